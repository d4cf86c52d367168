#include "FixSource.h"

#include "pictures/OcrLanguage.h"
#include "pictures/PictureText.h"
#include "reading/EventText.h"
#include "reading/StyledText.h"
#include "reading/ReadWrittenFile.h"
#include "reading/TrackInput.h"

#include <QRegularExpression>

#include <algorithm>

namespace zemsubfix {

namespace {

using zemsub::tool::CauseId;

// Override blocks and markup: what they ask the player to draw besides the text.
std::vector<CauseId> markupCauses(const QString& raw)
{
    std::vector<CauseId> causes;
    auto add = [&causes](CauseId id) {
        for (CauseId known : causes) {
            if (known == id)
                return;
        }
        causes.push_back(id);
    };
    static const QRegularExpression block(QStringLiteral("\\{([^}]*)\\}"));
    static const QRegularExpression tag(QStringLiteral("\\\\([a-zA-Z]+)(\\d*)"));
    for (auto blocks = block.globalMatch(raw); blocks.hasNext();) {
        const QString inside = blocks.next().captured(1);
        for (auto tags = tag.globalMatch(inside); tags.hasNext();) {
            const QRegularExpressionMatch match = tags.next();
            const QString name = match.captured(1);
            const QString number = match.captured(2);
            if (name == QLatin1String("p"))
                add(number.toInt() > 0 ? CauseId::Drawing : CauseId::PositionsStyles);
            else if (name == QLatin1String("k") || name == QLatin1String("K") ||
                     name == QLatin1String("kf") || name == QLatin1String("ko"))
                add(CauseId::Karaoke);
            else
                add(CauseId::PositionsStyles);
        }
    }
    static const QRegularExpression html(QStringLiteral("<\\s*/?\\s*(?:i|b|u|s|font)(?:\\s[^>]*)?>"),
                                         QRegularExpression::CaseInsensitiveOption);
    if (html.match(raw).hasMatch())
        add(CauseId::PositionsStyles);
    return causes;
}

// A script's text without the drawing commands between {\p1} and {\p0}.
QString withoutDrawing(const QString& raw)
{
    static const QRegularExpression block(QStringLiteral("\\{[^}]*\\}"));
    static const QRegularExpression drawingLevel(QStringLiteral("\\\\p(\\d+)"));
    QString kept;
    bool drawing = false;
    int from = 0;
    for (auto blocks = block.globalMatch(raw); blocks.hasNext();) {
        const QRegularExpressionMatch match = blocks.next();
        if (!drawing)
            kept += raw.mid(from, match.capturedStart() - from);
        kept += match.captured();
        for (auto levels = drawingLevel.globalMatch(match.captured()); levels.hasNext();)
            drawing = levels.next().captured(1).toInt() > 0;
        from = match.capturedEnd();
    }
    if (!drawing)
        kept += raw.mid(from);
    return kept;
}

// A picture track read as text: one caption per picture shown.
void readPictures(SourceFile& source, zemsub::tool::DemuxedInput& input, int track,
                  const QString& language, const std::function<void(int, int)>& progress, bool keepPictures)
{
    using namespace zemsub::tool;
    const PictureText read =
        readPictureText(input, track, language, progress, keepPictures ? &source.shownPictures : nullptr);
    source.ocrLanguage = language;
    if (!read.read) {
        source.error = read.failure;
        return;
    }
    source.readable = true;
    source.encoding = QStringLiteral("UTF-8");
    source.pictures = true;
    source.frame = read.frame;
    source.leftOut = read.leftOut;
    if (!read.captions.empty()) {
        const DisplayEnd last = read.captions.back().ended;
        if (last == DisplayEnd::StreamEnd || last == DisplayEnd::VideoEnd || last == DisplayEnd::ReadingTime)
            source.lastEnd = displayEndText(last);
    }
    for (const PictureCaption& picture : read.captions)
        source.screen.push_back(ScreenPicture{picture.start, picture.end, picture.place.top(), picture.text});
    // Pictures of one display go bottom first: the copy stacks a later caption above an earlier one.
    std::vector<PictureCaption> captions = read.captions;
    std::stable_sort(captions.begin(), captions.end(), [](const PictureCaption& a, const PictureCaption& b) {
        return a.display != b.display ? a.display < b.display : a.place.top() > b.place.top();
    });
    int index = 0;
    for (const PictureCaption& picture : captions) {
        SourceCaption caption;
        caption.index = ++index;
        caption.start = picture.start;
        caption.end = picture.end;
        caption.text = picture.text;
        caption.confidence = picture.confidence;
        caption.picture = picture.picture;
        caption.runs = picture.runs;
        caption.alignment = picture.alignment;
        caption.forced = picture.forced;
        caption.narrowItalic = picture.narrowItalic;
        // The library draws no italics.
        if (picture.partlyItalic())
            caption.notDrawn.push_back(CauseId::Italics);
        source.captions.push_back(caption);
    }
}

} // namespace

SourceFile readSource(const zemsub::tool::MediaInput& input, const QString& forcedEncoding, int track,
                      const QString& language, const QString& ocrLanguage,
                      const std::function<void(int, int)>& pictureProgress, bool keepPictures)
{
    using namespace zemsub::tool;
    SourceFile source;
    // One open: the tracks from the header, then the chosen one read from the same demuxer.
    const TrackInput opened = openTrack(input, TrackRequest{track, language, false});
    const TrackList& tracks = opened.tracks;
    const TrackChoice& choice = opened.choice;
    switch (opened.step) {
    case TrackInput::Step::Unread:
        source.error = tracks.failure;
        return source;
    case TrackInput::Step::NoTracks:
        source.error = QStringLiteral("FFmpeg finds no subtitle track in it (read as %1)").arg(tracks.formatTitle);
        return source;
    case TrackInput::Step::NotChosen:
        source.error = choice.error;
        return source;
    case TrackInput::Step::Chosen:
        break;
    }
    DemuxedInput& demuxed = *opened.demuxed;
    source.track = choice.index;
    source.trackReason = choice.why;
    source.trackSummary = describeChoice(tracks.tracks[size_t(choice.index)], choice);
    source.language = tracks.tracks[size_t(choice.index)].language;
    const WrittenFile written = readWrittenTrack(input, demuxed, forcedEncoding, tracks, choice.index);
    if (written.failed()) {
        source.error = written.failure;
        return source;
    }
    if (written.pictures) {
        const QString tag = tracks.tracks[size_t(choice.index)].language;
        readPictures(source, demuxed, choice.index,
                     readingLanguage(ocrLanguage, tag), pictureProgress, keepPictures);
        return source;
    }
    source.readable = true;
    source.encoding = written.encoding;
    source.scriptHeader = written.scriptHeader;
    source.demuxer = written.format;
    for (const WrittenBlock& block : written.blocks) {
        SourceCaption caption;
        caption.index = block.index;
        caption.line = block.line;
        caption.start = block.start;
        caption.end = block.end;
        caption.text = block.text;
        caption.event = block.event;
        const QString raw =
            (written.kind == WrittenKind::Script || written.utf8Track) && block.rawLines.isEmpty()
                ? eventTextField(block.event)
                : block.rawLines.join(QLatin1Char('\n'));
        caption.notDrawn = markupCauses(raw);
        const StyledText styled = styledText(eventTextField(block.event));
        caption.runs = styled.runs;
        caption.alignment = styled.alignment;
        for (CauseId id : caption.notDrawn) {
            if (id == CauseId::Drawing && (written.kind == WrittenKind::Script || written.utf8Track))
                caption.text = shownText(withoutDrawing(raw));
        }
        source.captions.push_back(caption);
    }
    return source;
}

} // namespace zemsubfix
