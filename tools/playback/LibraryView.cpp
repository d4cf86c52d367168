#include "LibraryView.h"

#include "ReaderLimits.h"
#include "TextForm.h"

#include "ISubTitle.h"
#include "manager/xcSubtitleManager.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "parsers/xcIdxParser.h"
#include "parsers/xcSrtParser.h"
#include "parsers/xcSrtParserU.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstring>

namespace zemsub::tool {

namespace {

QByteArray encodedPath(const QString& path)
{
    return QFile::encodeName(path);
}

QString hexBytes(const QByteArray& bytes)
{
    QStringList parts;
    for (char c : bytes)
        parts << QStringLiteral("%1").arg(static_cast<unsigned char>(c), 2, 16, QLatin1Char('0')).toUpper();
    return parts.join(QLatin1Char(' '));
}

QString readerName(int code)
{
    switch (code) {
    case CodeSubRip:
        return QStringLiteral("SubRip reader");
    case CodeScript:
        return QStringLiteral("ASS/SSA reader");
    case CodeSubRipWide:
        return QStringLiteral("wide SubRip reader");
    case CodeScriptWide:
        return QStringLiteral("wide ASS/SSA reader");
    default:
        return QStringLiteral("reader");
    }
}

// Counts line feeds, to tell the readers' line limit from other failures.
long long countLineFeeds(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    long long count = 0;
    while (!file.atEnd()) {
        const QByteArray chunk = file.read(1 << 16);
        count += chunk.count('\n');
    }
    return count;
}

QString narrow(const xcString& s)
{
    return fromNarrow(s.getData());
}

QString wide(const xcWString& s)
{
    return fromWide(s.getData());
}

template <typename Entry> StoredEntry subRipEntry(int key, const Entry& entry, QString text)
{
    StoredEntry stored;
    stored.key = key;
    stored.start = entry.start;
    stored.end = entry.end;
    stored.text = std::move(text);
    return stored;
}

template <typename Entry, typename Convert>
StoredEntry scriptEntry(int key, const Entry& entry, Convert convert)
{
    StoredEntry stored = subRipEntry(key, entry, convert(entry.text));
    stored.script = true;
    stored.layer = entry.layer;
    stored.style = convert(entry.style);
    stored.name = convert(entry.name);
    stored.effect = convert(entry.effect);
    return stored;
}

template <typename Parser, typename MakeEntry>
StoredTimeline readWith(const QString& path, int code, MakeEntry makeEntry)
{
    Parser parser;
    StoredTimeline timeline;
    timeline.formatCode = code;
    const QByteArray name = encodedPath(path);
    try {
        timeline.opened = parser.Open(name.constData());
    } catch (int) {
        timeline.failure = wideThrowReason(int(parser.GetMap().size()));
        return timeline;
    }
    timeline.lines = int(parser.GetLines().size());
    for (const auto& [key, entry] : parser.GetMap())
        timeline.entries.push_back(makeEntry(key, entry));
    return timeline;
}

} // namespace

FileFacts inspectFile(const QString& path)
{
    FileFacts facts;
    facts.path = path;
    auto fail = [&facts](const QString& why) {
        facts.failure = why;
        return facts;
    };
    if (path.isEmpty())
        return fail(QStringLiteral("cannot open: the path is empty"));
    const QFileInfo info(path);
    if (info.isDir())
        return fail(QStringLiteral("cannot open: it is a directory"));

    char mode[] = "rb";
    const QByteArray name = encodedPath(path);
    errno = 0;
    FILE* file = sub_open(name.constData(), mode);
    if (!file)
        return fail(QStringLiteral("cannot open: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
    char head[4] = {};
    const size_t got = std::fread(head, 1, sizeof head, file);
    const bool failed = std::ferror(file) != 0;
    std::fclose(file);
    if (failed)
        return fail(QStringLiteral("cannot read it"));

    facts.head = QByteArray(head, int(got));
    facts.size = info.size();
    facts.mark = got >= 2 && static_cast<unsigned char>(head[0]) == 0xFF &&
                 static_cast<unsigned char>(head[1]) == 0xFE;
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    facts.hasDot = dot >= 0;
    if (facts.hasDot)
        facts.extension = path.mid(dot + 1);
    return facts;
}

bool isIndexPath(const FileFacts& facts)
{
    return facts.hasDot && facts.extension.compare(QLatin1String("idx"), Qt::CaseInsensitive) == 0;
}

QString formatName(int code)
{
    switch (code) {
    case CodeSubRip:
        return QStringLiteral("SubRip, narrow");
    case CodeScript:
        return QStringLiteral("ASS/SSA, narrow");
    case CodeSubRipWide:
        return QStringLiteral("SubRip, wide");
    case CodeScriptWide:
        return QStringLiteral("ASS/SSA, wide");
    default:
        return QStringLiteral("none");
    }
}

QString formatReason(const FileFacts& facts, int code)
{
    if (facts.size < 2)
        return QStringLiteral(
            "the file is shorter than two bytes (the manager reads two to choose a reader)");
    const QString bytes = QStringLiteral("first bytes %1").arg(hexBytes(facts.head.left(2)));
    const QString mark = facts.mark ? QStringLiteral("%1: the FF FE mark, wide text").arg(bytes)
                                    : QStringLiteral("%1: no FF FE mark, narrow text").arg(bytes);
    if (!facts.hasDot)
        return QStringLiteral("%1; the path has no \".\", so there is no extension to choose a reader by")
            .arg(mark);
    const QString extension = QStringLiteral("extension \"%1\" (after the last \".\")").arg(facts.extension);
    if (code == CodeNone) {
        QString reason = QStringLiteral("%1; %2 is not srt, ass or ssa, so the manager refuses the file")
                             .arg(mark, extension);
        if (isIndexPath(facts))
            reason += QStringLiteral(
                " (.idx files are read by the VobSub index reader, which the manager never uses)");
        return reason;
    }
    return QStringLiteral("%1; %2").arg(mark, extension);
}

QString wideThrowReason(int entriesBefore)
{
    QString reason =
        QStringLiteral("cannot parse: the wide ASS/SSA reader threw the int 1 (a field was asked of an "
                       "empty remainder, such as a key line with nothing after its colon or a Dialogue "
                       "line that ends right after its MarginV comma)");
    if (entriesBefore >= 0)
        reason += QStringLiteral("; %1 Dialogue lines were read before it").arg(entriesBefore);
    return reason;
}

StoredTimeline readStoredTimeline(const QString& path, int formatCode)
{
    switch (formatCode) {
    case CodeSubRip:
        return readWith<xcSrtParser>(path, formatCode, [](int key, const SRC_SESSION_ST& e) {
            return subRipEntry(key, e, narrow(e.text));
        });
    case CodeSubRipWide:
        return readWith<xcSrtParserU>(path, formatCode, [](int key, const SRC_SESSION_ST_U& e) {
            return subRipEntry(key, e, wide(e.text));
        });
    case CodeScript:
        return readWith<xcAssParser>(
            path, formatCode, [](int key, const ASS_SESSION_ST& e) { return scriptEntry(key, e, narrow); });
    case CodeScriptWide:
        return readWith<xcAssParserU>(
            path, formatCode, [](int key, const ASS_SESSION_ST_U& e) { return scriptEntry(key, e, wide); });
    default:
        return StoredTimeline();
    }
}

IndexView readIndex(const QString& path)
{
    xcIdxParser parser;
    IndexView view;
    const QByteArray name = encodedPath(path);
    try {
        view.opened = parser.Open(name.constData());
    } catch (int) {
        view.failure =
            QStringLiteral("cannot parse: the index reader threw the int 1 (a field was asked of an empty line)");
        return view;
    }
    view.lines = int(parser.GetLines().size());
    view.subPath = fromNarrow(parser.GetSubPath().getData());
    if (view.opened) {
        view.customColorSwitch = parser.GetCustomColorSwitch();
        view.transparencyMask = parser.GetTransparencyMask();
        std::copy(parser.GetPalette(), parser.GetPalette() + 16, view.palette);
        std::copy(parser.GetCustomColors(), parser.GetCustomColors() + 4, view.customColors);
    }
    for (const auto& [key, entry] : parser.GetMap())
        view.entries.push_back(IndexEntry{key, entry.time, entry.filePos});
    return view;
}

ManagerSession::ManagerSession(const QString& path) : m_manager(std::make_unique<xcSubtitleManager>())
{
    const QByteArray name = encodedPath(path);
    try {
        m_opened = m_manager->Open(name.constData());
    } catch (int) {
        m_failure = wideThrowReason(-1);
    }
}

ManagerSession::~ManagerSession() = default;
ManagerSession::ManagerSession(ManagerSession&&) noexcept = default;

int ManagerSession::formatCode() const
{
    return m_manager->GetFormatCode();
}

bool ManagerSession::wide() const
{
    return m_manager->IsWide();
}

QString ManagerSession::textAt(long long ms)
{
    if (!m_opened)
        return QString();
    if (m_manager->IsWide())
        return fromWide(m_manager->GetSubTitleU(ms));
    return fromNarrow(m_manager->GetSubTitle(ms));
}

QString notShownReason(const FileFacts& facts, const ManagerSession& session)
{
    if (session.opened())
        return QString();
    const int code = session.formatCode();
    if (code == CodeNone)
        return QStringLiteral("not opened: ") + formatReason(facts, code);
    QString reason = QStringLiteral("not opened: the %1 did not open it").arg(readerName(code));
    const int limit = readerLineLimit(code);
    if (countLineFeeds(facts.path) >= limit)
        reason += QStringLiteral(" (a file of more than %1 lines does not open)").arg(limit);
    return reason;
}

} // namespace zemsub::tool
