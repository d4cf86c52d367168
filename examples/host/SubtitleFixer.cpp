#include "SubtitleFixer.h"

namespace {

// zemsubfix::fixFile(const QString&, const QString&, const zemsubfix::FixOptions&), Itanium C++ ABI.
const char kFixFileSymbol[] = "_ZN9zemsubfix7fixFileERK7QStringS2_RKNS_10FixOptionsE";

} // namespace

SubtitleFixer::SubtitleFixer(const QString& file) : m_library(file)
{
}

bool SubtitleFixer::load()
{
    if (!m_library.load()) {
        m_error = m_library.errorString();
        return false;
    }
    m_fixFile = reinterpret_cast<FixFileFunction>(m_library.resolve(kFixFileSymbol));
    if (!m_fixFile) {
        m_error = QStringLiteral("%1 does not export zemsubfix::fixFile").arg(m_library.fileName());
        return false;
    }
    return true;
}

QString SubtitleFixer::fix(const QString& subtitle)
{
    if (!m_dir.isValid()) {
        m_error = QStringLiteral("no temporary directory for the fixed copy");
        return QString();
    }
    const QString copy = m_dir.filePath(QStringLiteral("fixed.srt"));
    zemsubfix::FixOptions options;
    options.format = zemsubfix::CopyFormat::SubRip;
    m_report = m_fixFile(subtitle, copy, options);
    if (!m_report.readable || !m_report.error.isEmpty()) {
        m_error = QStringLiteral("%1: cannot fix: %2").arg(subtitle, m_report.error);
        return QString();
    }
    return copy;
}
