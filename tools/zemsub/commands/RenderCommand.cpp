// zemsub render: the frame a player draws at one time.
#include "Commands.h"

#include "CommandLine.h"
#include "LibraryChecks.h"
#include "StyleOptions.h"
#include "TimeParser.h"
#include "TrackOptions.h"
#include "zemsub/frames/FrameRenderer.h"
#include "playback/LibraryView.h"
#include "zemsub/pictures/IndexPictures.h"
#include "zemsub/pictures/SubpictureFrame.h"
#include "zemsub/pictures/TrackPictures.h"

namespace zemsub::tool {

namespace {

void save(const QImage& image, const QString& output)
{
    if (!image.save(output, "PNG"))
        throw ToolError{ExitCannotRead, output + QStringLiteral(": cannot write the image")};
}

// A VobSub index: the packet the index reader cuts at the time, decoded and laid
// on the index's frame (or on --size, scaled). A picture that does not show whole
// there says why on its line.
int renderIndex(const FileFacts& facts, long long time, RenderStyle style, const QString& output)
{
    QString why;
    const std::unique_ptr<IndexPictures> opened = IndexPictures::open(facts.path, &why);
    if (!opened)
        fileError(facts.path, why);
    IndexPictures& pictures = *opened;
    if (pictures.frameFromPictures())
        err(QStringLiteral("render: %1\n").arg(pictures.frameNote()));
    if (!style.sizeGiven)
        style.size = pictures.frameSize();
    const IndexPicture answer = pictures.at(time);
    save(frameWithSubpicture(makeBackground(style), answer.subpicture, pictures.frameSize()), output);
    out(QStringLiteral("time %1\tpicture %2\twrote %3\n")
            .arg(formatTime(time), describeSubpicture(answer.subpicture, pictures.frameSize()), output));
    return ExitSuccess;
}

// A picture track (a .sup, a picture track of a video): the picture FFmpeg shows
// at the time, laid on the track's frame.
int renderTrack(const TrackPictures& pictures, long long time, RenderStyle style, const QString& output)
{
    if (!style.sizeGiven)
        style.size = pictures.frameSize();
    const DecodedSubpicture shown = pictures.at(time);
    save(frameWithSubpicture(makeBackground(style), shown, pictures.frameSize()), output);
    out(QStringLiteral("time %1	track %2 (%3, %4x%5)	picture %6	wrote %7\n")
            .arg(formatTime(time))
            .arg(pictures.track())
            .arg(pictures.codec())
            .arg(pictures.frameSize().width())
            .arg(pictures.frameSize().height())
            .arg(describeSubpicture(shown, pictures.frameSize()), output));
    return ExitSuccess;
}

} // namespace

int runRender(const QStringList& args)
{
    SubcommandLine line(
        QStringLiteral("render"),
        QStringLiteral("Goes through ISubTitle exactly as a player does and writes the frame at TIME "
                       "with the caption image laid over it. The caption image covers the whole "
                       "frame, so the caption stands at the frame's centre plus the record's x and y. "
                       "For a VobSub .idx (its .sub beside it): the packet the index reader cuts at TIME, "
                       "decoded by FFmpeg in the index's colours and laid on the index's frame at its "
                       "position. For pictures the library does not open (a .sup, a picture track of "
                       "a video): the picture FFmpeg shows at TIME, on the track's frame."));
    const QCommandLineOption outputOption({QStringLiteral("o"), QStringLiteral("output")},
                                          QStringLiteral("The PNG file to write."),
                                          QStringLiteral("OUT.png"));
    const QCommandLineOption trackOption(QStringLiteral("track"),
                                         QStringLiteral("The picture track to show, from 0 (default: the first)."),
                                         QStringLiteral("N"));
    line.parser().addOption(outputOption);
    line.parser().addOption(trackOption);
    StyleOptions styleOptions;
    styleOptions.addTo(line.parser());
    line.addPositional(QStringLiteral("file"), QStringLiteral("The subtitle file."));
    line.addPositional(QStringLiteral("time"), QStringLiteral("Milliseconds, hh:mm:ss,mmm or h:mm:ss.cc."));
    if (!line.parse(args))
        return ExitSuccess;
    const QStringList positionals = line.positionals(2, 2);
    const std::optional<long long> time = parseTime(positionals.at(1));
    if (!time)
        usageError(QStringLiteral("render: \"%1\" is not a time").arg(positionals.at(1)));
    const QString output = line.parser().value(outputOption);
    if (output.isEmpty())
        usageError(QStringLiteral("render: -o OUT.png is required"));
    const RenderStyle style = styleOptions.read(line.parser(), QStringLiteral("render"));

    const int track = pictureTrackOption(line, trackOption, QStringLiteral("render"));

    const FileFacts facts = inspectOrExit(positionals.at(0));
    const bool opened = sessionOrExit(facts.path).formatCode() != CodeNone;
    if (isIndexPath(facts) && !opened && track < 0)
        return renderIndex(facts, *time, style, output);
    if (track >= 0 || !opened) {
        const OpenedPictures opened = TrackPictures::open(facts.path, track);
        if (!opened.failure.isEmpty())
            fileError(facts.path, opened.failure);
        if (opened.pictures)
            return renderTrack(*opened.pictures, *time, style, output);
    }
    QString why;
    const std::unique_ptr<CaptionPlayer> playing = CaptionPlayer::open(facts, style, &why);
    if (!playing)
        fileError(facts.path, why);
    CaptionPlayer& player = *playing;
    const RenderedFrame frame = player.frameAt(*time);
    save(frame.image, output);
    out(QStringLiteral("time %1\trecord %2\twrote %3\n")
            .arg(formatTime(*time), describeRecord(frame.record), output));
    return ExitSuccess;
}

} // namespace zemsub::tool
