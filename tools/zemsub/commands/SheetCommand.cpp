// zemsub sheet: a contact sheet, one tile per caption or per step.
#include "Commands.h"

#include "CommandLine.h"
#include "FrameChoice.h"
#include "LibraryChecks.h"
#include "StyleOptions.h"
#include "TimeParser.h"
#include "TrackOptions.h"
#include "zemsub/frames/SheetPainter.h"
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

// One tile per caption of the source, at the time it gives.
std::vector<Tile> captionTiles(const FrameSource& frames)
{
    const std::vector<SourceCaption> captions = frames.captions();
    if (captions.size() > size_t(kMaxTiles))
        usageError(QStringLiteral("sheet: the %1 holds %2 %3; at most %4 tiles (use --every)")
                       .arg(frames.holder())
                       .arg(captions.size())
                       .arg(frames.captionWord())
                       .arg(kMaxTiles));
    std::vector<Tile> tiles;
    for (const SourceCaption& caption : captions)
        tiles.push_back(
            Tile{caption.time, QStringLiteral("#%1  %2").arg(caption.number).arg(formatTime(caption.time))});
    return tiles;
}

// The text read from each picture of the track, by its start.
std::map<long long, QString> textsOf(const QString& path, const TrackPictures& pictures, const QString& ocrLanguage)
{
    std::map<long long, QString> texts;
    const QString language = readingLanguage(ocrLanguage, pictures.language());
    const PictureText read = readPictures(pictures.pictures(), language);
    if (!read.read)
        fileError(path, QStringLiteral("cannot read its pictures as text: %1").arg(read.failure));
    for (const PictureCaption& caption : read.captions)
        texts[pictures.pictures()[size_t(caption.picture)].start] = caption.text;
    return texts;
}

// Tiles of frames, each the source's frame at the tile's time with its note.
int paintSheet(const QString& path, const QString& output, FrameSource& frames, const std::vector<Tile>& tiles,
               int columns, const std::map<long long, QString>& texts)
{
    const int count = int(tiles.size());
    SheetPainter painter(path, frames.frameSize(), count, columns);
    const bool progress = count > 50;
    int shown = 0;
    for (int i = 0; i < count; ++i) {
        const long long time = tiles[size_t(i)].time;
        const SourceFrame frame = frames.frameAt(time);
        shown += frame.shown ? 1 : 0;
        QString note = frame.tileNote;
        if (!frame.problem.isEmpty() && frames.warnsOfProblems())
            err(QStringLiteral("sheet: the picture at %1 does not show whole: %2\n")
                    .arg(formatTime(time), frame.problem));
        const auto text = texts.find(time);
        if (text != texts.end())
            note += QStringLiteral("  \"%1\"")
                        .arg(QString(text->second).replace(QLatin1Char('\n'), QStringLiteral(" / ")));
        painter.draw(i, frame.image, tiles[size_t(i)].label + note);
        if (progress && ((i + 1) % 25 == 0 || i + 1 == count))
            err(QStringLiteral("sheet: %1/%2 tiles\n").arg(i + 1).arg(count));
    }
    if (!painter.save(output))
        throw ToolError{ExitCannotRead, output + QStringLiteral(": cannot write the image")};
    out(QStringLiteral("tiles %1\tshown %2\twrote %3\n").arg(count).arg(shown).arg(output));
    return ExitSuccess;
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

    const LibraryInput input = libraryInputOrExit(path);
    const std::unique_ptr<FrameSource> frames =
        openFrames(input, track, style, QStringLiteral("sheet"), withText, true);
    const std::vector<Tile> tiles = every > 0 ? stepTiles(frames->lastTime(), every) : captionTiles(*frames);
    std::map<long long, QString> texts;
    if (withText && frames->trackPictures())
        texts = textsOf(path, *frames->trackPictures(), line.parser().value(ocrOption));
    return paintSheet(path, output, *frames, tiles, columns, texts);
}

} // namespace zemsub::tool
