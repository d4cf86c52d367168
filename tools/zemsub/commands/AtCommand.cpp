// zemsub at: the caption text the library answers at each time.
#include "Commands.h"

#include "CommandLine.h"
#include "LibraryChecks.h"
#include "TimeParser.h"
#include "playback/LibraryView.h"
#include "playback/TextForm.h"
#include "zemsub/pictures/IndexPictures.h"
#include "zemsub/pictures/SubpictureFrame.h"

namespace zemsub::tool {

namespace {

std::vector<long long> parseTimes(const QStringList& texts)
{
    std::vector<long long> times;
    for (const QString& text : texts) {
        const std::optional<long long> time = parseTime(text);
        if (!time)
            usageError(QStringLiteral("at: \"%1\" is not a time (milliseconds, hh:mm:ss,mmm or h:mm:ss.cc)")
                           .arg(text));
        times.push_back(*time);
    }
    return times;
}

int answerIndex(const FileFacts& facts, const std::vector<long long>& times)
{
    QString why;
    const std::unique_ptr<IndexPictures> opened = IndexPictures::open(facts.path, &why);
    if (!opened)
        fileError(facts.path, why);
    IndexPictures& pictures = *opened;
    if (pictures.frameFromPictures())
        err(QStringLiteral("at: %1\n").arg(pictures.frameNote()));
    for (long long time : times) {
        const IndexPicture answer = pictures.at(time);
        QString packet;
        if (answer.packet)
            packet = QStringLiteral("packet of %1 bytes, control at %2\tpicture %3")
                         .arg(answer.packetSize)
                         .arg(answer.controlOffset)
                         .arg(describeSubpicture(answer.subpicture, pictures.frameSize()));
        else if (pictures.subFile().isEmpty())
            packet = QStringLiteral("no packet (sub path \"%1\"; no .sub file beside the index)").arg(answer.subPath);
        else
            packet = QStringLiteral("no packet (sub path \"%1\")").arg(answer.subPath);
        out(QStringLiteral("%1\tfilepos 0x%2\t%3\n")
                .arg(formatTime(time))
                .arg(answer.filePos, 0, 16)
                .arg(packet));
    }
    return ExitSuccess;
}

} // namespace

int runAt(const QStringList& args)
{
    SubcommandLine line(
        QStringLiteral("at"),
        QStringLiteral("The caption text the library answers at each time, asked in the order given "
                       "through one manager (look-ups can add entries, as in a player). Line feeds "
                       "are shown as \\n; \"(none)\" when nothing shows, \"(empty)\" for an empty text. For "
                       ".idx files: the file "
                       "position, the packet the index reader cuts (its .sub file beside it) and the "
                       "size and position of the picture FFmpeg decodes from it."));
    line.addPositional(QStringLiteral("file"), QStringLiteral("The subtitle file."));
    line.addPositional(
        QStringLiteral("time"),
        QStringLiteral("Milliseconds, hh:mm:ss,mmm or h:mm:ss.cc (use -- before negative times)."),
        QStringLiteral("time..."));
    if (!line.parse(args))
        return ExitSuccess;
    QStringList positionals = line.positionals(2, -1);
    const QString path = positionals.takeFirst();
    const std::vector<long long> times = parseTimes(positionals);

    const LibraryInput input = libraryInputOrExit(path);
    const FileFacts& facts = input.facts;
    ManagerSession& session = *input.session;
    if (input.kind == LibraryInput::Kind::Index)
        return answerIndex(facts, times);
    requireShown(facts, session);

    for (long long time : times) {
        const QString text = session.textAt(time);
        QString shown = escaped(text);
        if (text.isNull())
            shown = QStringLiteral("(none)");
        else if (text.isEmpty())
            shown = QStringLiteral("(empty)");
        out(QStringLiteral("%1\t%2\n").arg(formatTime(time), shown));
    }
    return ExitSuccess;
}

} // namespace zemsub::tool
