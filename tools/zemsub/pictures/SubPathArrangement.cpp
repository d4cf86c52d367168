#include "SubPathArrangement.h"

#include <QFile>
#include <QFileInfo>

namespace zemsub::tool {

QString subFileBeside(const QString& indexPath)
{
    const QFileInfo index(indexPath);
    const QString suffix = index.suffix();
    if (suffix.compare(QLatin1String("idx"), Qt::CaseInsensitive) != 0)
        return QString();
    const QString stem = index.absoluteFilePath().chopped(suffix.size());
    const QString preferred = suffix == QLatin1String("IDX") ? QStringLiteral("SUB") : QStringLiteral("sub");
    for (const QString& ending : {preferred, preferred.toUpper(), preferred.toLower()}) {
        const QFileInfo sub(stem + ending);
        if (sub.isFile())
            return sub.absoluteFilePath();
    }
    return QString();
}

SubPathArrangement::SubPathArrangement(const QString& formedPath, const QString& subFile)
{
    if (subFile.isEmpty() || formedPath.isEmpty())
        return;
    m_folder = std::make_unique<QTemporaryDir>();
    if (!m_folder->isValid())
        return;
    const QString root = QDir(m_folder->path()).canonicalPath();
    const QString target = QDir::cleanPath(root + QLatin1Char('/') + formedPath);
    if (!target.startsWith(root + QLatin1Char('/')))
        return;
    if (!QDir().mkpath(QFileInfo(target).absolutePath()))
        return;
    m_ready = QFile::link(subFile, target) || QFile::copy(subFile, target);
}

SubPathArrangement::Visit::Visit(const QString& folder)
{
    if (folder.isEmpty())
        return;
    const QString previous = QDir::currentPath();
    if (QDir::setCurrent(folder))
        m_previous = previous;
}

SubPathArrangement::Visit::~Visit()
{
    if (!m_previous.isEmpty())
        QDir::setCurrent(m_previous);
}

} // namespace zemsub::tool
