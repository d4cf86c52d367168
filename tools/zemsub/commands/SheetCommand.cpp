// zemsub sheet: a contact sheet, one tile per caption or per step.
#include "Commands.h"

#include "CommandLine.h"
#include "LibraryChecks.h"
#include "StyleOptions.h"
#include "TimeParser.h"
#include "TrackOptions.h"
#include "zemsub/frames/FrameRenderer.h"
#include "playback/LibraryView.h"
#include "zemsub/frames/SheetPainter.h"
#include "zemsub/pictures/IndexPictures.h"
#include "zemsub/pictures/SubpictureFrame.h"
#include "zemsub/pictures/TrackPictures.h"
#include "pictures/OcrLanguage.h"
#include "pictures/PictureText.h"

#include <algorithm>
#include <map>

namespace zemsub::tool {

namespace {

constexpr int kMaxTiles = 2000;

struct Tile
{
    long long time = 0;
    QString label;
};

std::vector<Tile> captionTiles(const StoredTimeline& timeline)
{
    std::vector<StoredEntry> entries;
    for (const StoredEntry& entry : timeline.entries) {
        if (!entry.text.isEmpty())
            entries.push_back(entry);
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const StoredEntry& a, const StoredEntry& b) { return a.start < b.start; });
    if (entries.size() > size_t(kMaxTiles))
        usageError(QStringLiteral("sheet: the file holds %1 captions; at most %2 tiles (use --every)")
                       .arg(entries.size())
                       .arg(kMaxTiles));
    std::vector<Tile> tiles;
    for (const StoredEntry& entry : entries) {
        const long long middle = entry.start + (entry.end - entry.start) / 2;
        tiles.push_back(Tile{middle, QStringLiteral("#%1  %2").arg(entry.key).arg(formatTime(middle))});
    }
    return tiles;
}

// One tile every `every` ms from 0 up to last.
std::vector<Tile> stepTiles(long long last, long long every)
{
    const long long count = last / every + 1;
    if (count > kMaxTiles)
        usageError(QStringLiteral("sheet: --every %1 gives %2 tiles for this file; at most %3")
                       .arg(every)
                       .arg(count)
                       .arg(kMaxTiles));
    std::vector<Tile> tiles;
    for (long long time = 0; time <= last; time += every)
        tiles.push_back(Tile{time, formatTime(time)});
    return tiles;
}

std::vector<Tile> indexTiles(const std::vector<IndexEntry>& entries)
{
    std::vector<IndexEntry> sorted = entries;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const IndexEntry& a, const IndexEntry& b) { return a.time < b.time; });
    if (sorted.size() > size_t(kMaxTiles))
        usageError(QStringLiteral("sheet: the index holds %1 subpictures; at most %2 tiles (use --every)")
                       .arg(sorted.size())
                       .arg(kMaxTiles));
    std::vector<Tile> tiles;
    for (const IndexEntry& entry : sorted)
        tiles.push_back(Tile{entry.time, QStringLiteral("#%1  %2").arg(entry.key).arg(formatTime(entry.time))});
    return tiles;
}

// The end of the last caption stored (0 when none).
long long lastEnd(const StoredTimeline& timeline)
{
    long long last = 0;
    for (const StoredEntry& entry : timeline.entries)
        last = std::max(last, entry.end);
    return last;
}

// The time of the last subpicture (0 when none).
long long lastTime(const std::vector<IndexEntry>& entries)
{
    long long last = 0;
    for (const IndexEntry& entry : entries)
        last = std::max(last, entry.time);
    return last;
}

// Where a track's pictures end: the latest start, or the last picture's end.
long long lastTime(const std::vector<ShownPicture>& pictures)
{
    long long last = 0;
    for (const ShownPicture& picture : pictures)
        last = std::max(last, picture.start);
    return pictures.empty() ? 0 : std::max(last, pictures.back().end);
}

// One frame per tile, drawn by the caller; labels and layout are shared.
struct SheetFrame
{
    QImage image;
    bool shown = false;
    QString note; // added to the label
};

// Tiles of frames: frameAt(time) answers each tile's frame.
template <typename FrameAt>
int paintSheet(const QString& path, const QString& output, QSize frameSize, const std::vector<Tile>& tiles,
               int columns, FrameAt frameAt)
{
    const int count = int(tiles.size());
    SheetPainter painter(path, frameSize, count, columns);
    const bool progress = count > 50;
    int shown = 0;
    for (int i = 0; i < count; ++i) {
        const SheetFrame frame = frameAt(tiles[size_t(i)].time);
        shown += frame.shown ? 1 : 0;
        painter.draw(i, frame.image, tiles[size_t(i)].label + frame.note);
        if (progress && ((i + 1) % 25 == 0 || i + 1 == count))
            err(QStringLiteral("sheet: %1/%2 tiles\n").arg(i + 1).arg(count));
    }
    if (!painter.save(output))
        throw ToolError{ExitCannotRead, output + QStringLiteral(": cannot write the image")};
    out(QStringLiteral("tiles %1\tshown %2\twrote %3\n").arg(count).arg(shown).arg(output));
    return ExitSuccess;
}

// A VobSub index: each tile is the index's frame with the packet the index reader
// cuts at the tile's time, decoded by FFmpeg.
int sheetOfIndex(const FileFacts& facts, const QString& output, long long every, int columns, RenderStyle style)
{
    QString why;
    const std::unique_ptr<IndexPictures> opened = IndexPictures::open(facts.path, &why);
    if (!opened)
        fileError(facts.path, why);
    IndexPictures& pictures = *opened;
    if (pictures.frameFromPictures())
        err(QStringLiteral("sheet: %1\n").arg(pictures.frameNote()));
    if (!style.sizeGiven)
        style.size = pictures.frameSize();
    const QImage background = makeBackground(style);
    const std::vector<Tile> tiles =
        every > 0 ? stepTiles(lastTime(pictures.entries()), every) : indexTiles(pictures.entries());
    return paintSheet(facts.path, output, style.size, tiles, columns, [&](long long time) {
        const IndexPicture answer = pictures.at(time);
        SheetFrame frame;
        frame.image = frameWithSubpicture(background, answer.subpicture, pictures.frameSize());
        const QString problem = subpictureProblem(answer.subpicture, pictures.frameSize());
        frame.shown = answer.subpicture.decoded && problem.isEmpty();
        frame.note = answer.subpicture.decoded
                         ? QStringLiteral("  %1x%2 at %3,%4")
                               .arg(answer.subpicture.shown.image.width())
                               .arg(answer.subpicture.shown.image.height())
                               .arg(answer.subpicture.shown.position.x())
                               .arg(answer.subpicture.shown.position.y())
                         : QStringLiteral("  (no picture)");
        if (!problem.isEmpty()) {
            frame.note += QStringLiteral("  (%1)").arg(problem);
            err(QStringLiteral("sheet: the picture at %1 does not show whole: %2\n").arg(formatTime(time), problem));
        }
        return frame;
    });
}

// A picture track: one tile per picture at its start (or per step), the picture
// FFmpeg shows then on the track's frame; with the text read from it when asked.
int sheetOfTrack(const QString& path, const TrackPictures& pictures, const QString& output, long long every,
                 int columns, RenderStyle style, bool withText, const QString& ocrLanguage)
{
    if (!style.sizeGiven)
        style.size = pictures.frameSize();
    std::vector<Tile> tiles;
    if (every > 0) {
        tiles = stepTiles(lastTime(pictures.pictures()), every);
    } else {
        if (pictures.pictures().size() > size_t(kMaxTiles))
            usageError(QStringLiteral("sheet: the track holds %1 pictures; at most %2 tiles (use --every)")
                           .arg(pictures.pictures().size())
                           .arg(kMaxTiles));
        for (size_t i = 0; i < pictures.pictures().size(); ++i)
            tiles.push_back(Tile{pictures.pictures()[i].start,
                                 QStringLiteral("#%1  %2").arg(i + 1).arg(formatTime(pictures.pictures()[i].start))});
    }
    // The text read from each picture, by its start.
    std::map<long long, QString> texts;
    if (withText) {
        const QString language = readingLanguage(ocrLanguage, pictures.language());
        const PictureText read = readPictures(pictures.pictures(), language);
        if (!read.read)
            fileError(path, QStringLiteral("cannot read its pictures as text: %1").arg(read.failure));
        for (const PictureCaption& caption : read.captions)
            texts[pictures.pictures()[size_t(caption.picture)].start] = caption.text;
    }
    const QImage background = makeBackground(style);
    return paintSheet(path, output, style.size, tiles, columns, [&](long long time) {
        const DecodedSubpicture shown = pictures.at(time);
        SheetFrame frame;
        frame.image = frameWithSubpicture(background, shown, pictures.frameSize());
        const QString problem = subpictureProblem(shown, pictures.frameSize());
        frame.shown = shown.decoded && problem.isEmpty();
        frame.note = shown.decoded ? QString() : QStringLiteral("  (no picture)");
        if (!problem.isEmpty())
            frame.note += QStringLiteral("  (%1)").arg(problem);
        const auto text = texts.find(time);
        if (text != texts.end())
            frame.note += QStringLiteral("  \"%1\"").arg(QString(text->second).replace(QLatin1Char('\n'), QStringLiteral(" / ")));
        return frame;
    });
}

} // namespace

int runSheet(const QStringList& args)
{
    SubcommandLine line(
        QStringLiteral("sheet"),
        QStringLiteral("A contact sheet: one tile per caption (at its middle), or one per step with "
                       "--every, each rendered through ISubTitle as a player does, with its time "
                       "under it. Progress goes to stderr for long files. For a VobSub .idx (its "
                       ".sub beside it): one tile per subpicture, the packet the index reader cuts at "
                       "its time decoded by FFmpeg on the index's frame, with its size and position. "
                       "For pictures the library does not open (a .sup, a picture track of a video, or "
                       "an .idx with --text): one tile per picture as FFmpeg shows it, with --text the "
                       "text read from it."));
    const QCommandLineOption outputOption({QStringLiteral("o"), QStringLiteral("output")},
                                          QStringLiteral("The PNG file to write."),
                                          QStringLiteral("SHEET.png"));
    const QCommandLineOption everyOption(
        QStringLiteral("every"),
        QStringLiteral("One tile every MS milliseconds from 0 instead of one per caption."),
        QStringLiteral("MS"));
    const QCommandLineOption columnsOption(QStringLiteral("columns"),
                                           QStringLiteral("Tiles per row (default 4)."), QStringLiteral("N"));
    const QCommandLineOption trackOption(QStringLiteral("track"),
                                         QStringLiteral("The picture track to show, from 0 (default: the first)."),
                                         QStringLiteral("N"));
    const QCommandLineOption textOption(
        QStringLiteral("text"),
        QStringLiteral("Picture tracks: put the text read from each picture (Tesseract) under its tile."));
    const QCommandLineOption ocrOption = ocrLanguageOption();
    line.parser().addOptions({outputOption, everyOption, columnsOption, trackOption, textOption, ocrOption});
    StyleOptions styleOptions;
    styleOptions.addTo(line.parser());
    line.addPositional(QStringLiteral("file"), QStringLiteral("The subtitle file."));
    if (!line.parse(args))
        return ExitSuccess;
    const QString path = line.positionals(1, 1).first();
    const QString output = line.parser().value(outputOption);
    if (output.isEmpty())
        usageError(QStringLiteral("sheet: -o SHEET.png is required"));
    long long every = 0;
    if (line.parser().isSet(everyOption)) {
        const std::optional<long long> step = parseTime(line.parser().value(everyOption));
        if (!step || *step < 1)
            usageError(QStringLiteral("sheet: --every wants a positive time, not \"%1\"")
                           .arg(line.parser().value(everyOption)));
        every = *step;
    }
    int columns = 4;
    if (line.parser().isSet(columnsOption)) {
        bool ok = false;
        columns = line.parser().value(columnsOption).toInt(&ok);
        if (!ok || columns < 1 || columns > 64)
            usageError(QStringLiteral("sheet: --columns wants 1 to 64, not \"%1\"")
                           .arg(line.parser().value(columnsOption)));
    }
    const RenderStyle style = styleOptions.read(line.parser(), QStringLiteral("sheet"));

    const int track = pictureTrackOption(line, trackOption, QStringLiteral("sheet"));
    const bool withText = line.parser().isSet(textOption);

    const FileFacts facts = inspectOrExit(path);
    const bool opened = sessionOrExit(path).formatCode() != CodeNone;
    if (isIndexPath(facts) && !opened && track < 0 && !withText)
        return sheetOfIndex(facts, output, every, columns, style);
    if (track >= 0 || withText || !opened) {
        const OpenedPictures opened = TrackPictures::open(path, track);
        if (!opened.failure.isEmpty())
            fileError(path, opened.failure);
        if (opened.pictures)
            return sheetOfTrack(path, *opened.pictures, output, every, columns, style, withText,
                                line.parser().value(ocrOption));
        if (withText)
            fileError(path, QStringLiteral("--text reads picture tracks, and FFmpeg finds none in it"));
    }
    QString why;
    const std::unique_ptr<CaptionPlayer> playing = CaptionPlayer::open(facts, style, &why);
    if (!playing)
        fileError(facts.path, why);
    CaptionPlayer& player = *playing;
    const StoredTimeline timeline = timelineOrExit(path, sessionOrExit(path).formatCode());
    const std::vector<Tile> tiles = every > 0 ? stepTiles(lastEnd(timeline), every) : captionTiles(timeline);
    return paintSheet(path, output, style.size, tiles, columns, [&](long long time) {
        const RenderedFrame rendered = player.frameAt(time);
        SheetFrame frame;
        frame.image = rendered.image;
        frame.shown = rendered.record.shown;
        if (!rendered.record.shown)
            frame.note = QStringLiteral("  (nothing shown)");
        return frame;
    });
}

} // namespace zemsub::tool
