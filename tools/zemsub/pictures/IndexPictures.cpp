#include "IndexPictures.h"

#include "CustomColours.h"
#include "playback/TextForm.h"

#include "parsers/xcIdxParser.h"

#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <array>

namespace zemsub::tool {

namespace {

const QSize kLeastFrame(720, 480);

// The "size: WxH" line of the index; the reader recognises it but keeps nothing.
// Empty when there is none.
QSize sizeLine(const xcIdxParser& parser)
{
    static const QRegularExpression pattern(QStringLiteral("^\\s*size\\s*:\\s*(\\d{1,5})\\s*x\\s*(\\d{1,5})"),
                                            QRegularExpression::CaseInsensitiveOption);
    for (const xcString& line : parser.GetLines()) {
        const QRegularExpressionMatch match = pattern.match(fromNarrow(line.getData()));
        if (!match.hasMatch())
            continue;
        const int width = match.captured(1).toInt();
        const int height = match.captured(2).toInt();
        if (width > 0 && height > 0)
            return QSize(width, height);
    }
    return QSize();
}

// How far the pictures of the index reach, at least the least frame. They are cut
// by a reader of their own, so the reader that answers look-ups keeps its map as
// a player's would.
QSize reachOfPictures(const QByteArray& name, const std::vector<IndexEntry>& entries,
                      const SubPathArrangement& arrangement, const SubpictureDecoder& decoder)
{
    QSize reach = kLeastFrame;
    xcIdxParser survey;
    try {
        if (!survey.Open(name.constData()))
            return reach;
    } catch (int) {
        return reach;
    }
    for (const IndexEntry& entry : entries) {
        int size = 0;
        int control = 0;
        const std::unique_ptr<unsigned char[]> packet(
            arrangement.run([&] { return survey.GetPacket(entry.time, size, control); }));
        if (!packet)
            continue;
        const DecodedSubpicture picture = decoder.decode(packet.get(), size);
        if (!picture.decoded)
            continue;
        reach = reach.expandedTo(QSize(picture.shown.position.x() + picture.shown.image.width(),
                                       picture.shown.position.y() + picture.shown.image.height()));
    }
    return reach;
}

} // namespace

IndexPictures::IndexPictures() : m_parser(std::make_unique<xcIdxParser>())
{
}

std::unique_ptr<IndexPictures> IndexPictures::open(const QString& path, QString* failure)
{
    std::unique_ptr<IndexPictures> pictures(new IndexPictures());
    const QString why = pictures->load(path);
    if (failure)
        *failure = why;
    if (!why.isEmpty())
        return nullptr;
    return pictures;
}

QString IndexPictures::load(const QString& path)
{
    // An absolute, clean path: the .sub path the reader forms then never climbs out of a folder.
    const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    const QByteArray name = QFile::encodeName(absolute);
    bool opened = false;
    try {
        opened = m_parser->Open(name.constData());
    } catch (int) {
        return QStringLiteral("cannot parse: the index reader threw the int 1 (a field was asked of an empty line)");
    }
    if (!opened)
        return QStringLiteral("cannot parse: the index reader did not open it (it reads at most 5000 lines)");
    for (const auto& [key, entry] : m_parser->GetMap())
        m_entries.push_back(IndexEntry{key, entry.time, entry.filePos});

    std::array<unsigned int, 16> palette{};
    std::copy(m_parser->GetPalette(), m_parser->GetPalette() + 16, palette.begin());
    m_subFile = subFileBeside(absolute);
    m_arrangement =
        std::make_unique<SubPathArrangement>(fromNarrow(m_parser->GetSubPath().getData()), m_subFile);
    if (!m_arrangement->ready())
        m_subFile.clear();

    m_frameSize = sizeLine(*m_parser);
    if (m_frameSize.isEmpty()) {
        m_frameFromPictures = true;
        m_frameSize = kLeastFrame;
        if (!m_subFile.isEmpty())
            m_frameSize = reachOfPictures(name, m_entries, *m_arrangement, SubpictureDecoder(palette, kLeastFrame));
    }
    m_decoder = std::make_unique<SubpictureDecoder>(palette, m_frameSize);
    return QString();
}

IndexPictures::~IndexPictures() = default;

QString IndexPictures::frameNote() const
{
    if (!m_frameFromPictures)
        return QString();
    return QStringLiteral("the index has no size: line; its frame is %1x%2, as far as its pictures reach "
                          "(at least %3x%4)")
        .arg(m_frameSize.width())
        .arg(m_frameSize.height())
        .arg(kLeastFrame.width())
        .arg(kLeastFrame.height());
}

IndexPicture IndexPictures::at(long long ms)
{
    IndexPicture answer;
    answer.time = ms;
    answer.subPath = fromNarrow(m_parser->GetSubPath().getData());
    answer.filePos = m_parser->GetFilePos(ms);
    int size = 0;
    int control = 0;
    const std::unique_ptr<unsigned char[]> packet(
        m_arrangement->run([&] { return m_parser->GetPacket(ms, size, control); }));
    if (!packet) {
        if (m_subFile.isEmpty())
            answer.subpicture.failure = QStringLiteral("no packet: no .sub file beside the index");
        else
            answer.subpicture.failure =
                QStringLiteral("no packet: the .sub file holds none at 0x%1").arg(answer.filePos, 0, 16);
        return answer;
    }
    answer.packet = true;
    answer.packetSize = size;
    answer.controlOffset = control;
    answer.subpicture = m_decoder->decode(packet.get(), size);
    if (answer.subpicture.decoded && m_parser->GetCustomColorSwitch() == 1) {
        std::array<unsigned int, 4> colours{};
        std::copy(m_parser->GetCustomColors(), m_parser->GetCustomColors() + 4, colours.begin());
        applyCustomColours(answer.subpicture.shown.image, colours, m_parser->GetTransparencyMask());
    }
    return answer;
}

} // namespace zemsub::tool
