// zemsub render: the frame a player draws at one time.
#include "Commands.h"

#include "CommandLine.h"
#include "FrameChoice.h"
#include "LibraryChecks.h"
#include "StyleOptions.h"
#include "TimeParser.h"
#include "TrackOptions.h"

namespace zemsub::tool {

namespace {

void save(const QImage& image, const QString& output)
{
    if (!image.save(output, "PNG"))
        throw ToolError{ExitCannotRead, output + QStringLiteral(": cannot write the image")};
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

    const LibraryInput input = libraryInputOrExit(positionals.at(0));
    const std::unique_ptr<FrameSource> frames = openFrames(input, track, style, QStringLiteral("render"), false);
    const SourceFrame frame = frames->frameAt(*time);
    save(frame.image, output);
    out(QStringLiteral("time %1\t%2\twrote %3\n").arg(formatTime(*time), frame.described, output));
    return ExitSuccess;
}

} // namespace zemsub::tool
