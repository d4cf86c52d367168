// zemsub lint: every caption the library shows differently from the file, and why.
#include "Commands.h"

#include "CommandLine.h"
#include "LibraryChecks.h"
#include "TrackOptions.h"
#include "reading/MediaInput.h"
#include "pictures/OcrLanguage.h"
#include "pictures/PictureText.h"
#include "reading/ReadWrittenFile.h"
#include "reading/TrackInput.h"
#include "playback/LibraryView.h"
#include "zemsub/lint/LintCauses.h"
#include "zemsub/lint/LintFindings.h"
#include "zemsub/lint/LintProbe.h"
#include "zemsub/lint/LintReport.h"

#include <clocale>

namespace zemsub::tool {

namespace {

// The file as an FFmpeg-based player reads it; exit 1 naming the file when it cannot be read.
// A picture track's pictures read as text: one caption per picture, its text
// as a Matroska track's event carries it.
void readPicturesAsText(WrittenFile& written, DemuxedInput& input, const QString& path, int track,
                        const QString& language)
{
    const PictureText read = readPictureText(input, track, language);
    if (!read.read)
        fileError(path, QStringLiteral("cannot lint: %1").arg(read.failure));
    written.readAs = language;
    written.utf8Track = true;
    written.encoding = QStringLiteral("UTF-8");
    int index = 0;
    for (const PictureCaption& caption : read.captions) {
        WrittenBlock block;
        block.index = ++index;
        block.start = caption.start;
        block.end = caption.end;
        block.text = caption.text;
        block.event = QStringLiteral("0,0,Default,,0,0,0,,") + QString(caption.text).replace(QLatin1Char('\n'), QStringLiteral("\\N"));
        block.confidence = caption.confidence;
        written.blocks.push_back(block);
    }
    for (const LeftOutPicture& picture : read.leftOut)
        written.leftOut.push_back(LeftOutGraphic{picture.start, picture.end, picture.place.x(), picture.place.y(),
                                                 picture.place.width(), picture.place.height(), picture.why});
}

WrittenFile readWrittenSide(const QString& path, const QString& encoding, int track, const QString& language,
                            const QString& ocrLanguage, TrackChoice& choice)
{
    QString why;
    const std::optional<MediaInput> input = MediaInput::open(path, &why);
    if (!input)
        fileError(path, why);
    // One open: the tracks from the header, then the chosen one read from the same demuxer.
    const TrackInput opened = openTrack(*input, TrackRequest{track, language, false});
    const TrackList& tracks = opened.tracks;
    if (!opened.chosen())
        fileError(path, QStringLiteral("cannot lint: %1").arg(chosenTrackFailure(opened)));
    choice = opened.choice;
    DemuxedInput& demuxed = *opened.demuxed;
    announceTrack(describeChoice(tracks.tracks[size_t(choice.index)], choice));
    WrittenFile written = readWrittenTrack(*input, demuxed, encoding, tracks, choice.index);
    if (written.failed())
        fileError(path, QStringLiteral("cannot lint: %1").arg(written.failure));
    if (written.pictures)
        readPicturesAsText(written, demuxed, path, choice.index,
                           readingLanguage(ocrLanguage, tracks.tracks[size_t(choice.index)].language));
    return written;
}

LibrarySide readLibrarySide(const QString& path, const ManagerSession& session)
{
    LibrarySide library;
    library.formatCode = session.formatCode();
    library.opened = session.opened();
    library.wide = session.wide();
    const char* locale = std::setlocale(LC_CTYPE, nullptr);
    library.locale = QString::fromLatin1(locale ? locale : "C");
    if (library.opened)
        library.stored = timelineOrExit(path, library.formatCode).entries;
    return library;
}

// Asks the library at each caption's start, middle and end and in each gap, as a player's frames would.
std::vector<Probe> probeLibrary(const WrittenFile& written, ManagerSession& session)
{
    return probeBlocks(written, [&session](long long ms) { return session.textAt(ms); });
}

} // namespace

int runLint(const QStringList& args)
{
    SubcommandLine line(
        QStringLiteral("lint"),
        QStringLiteral("Reads the file as an FFmpeg-based player does (FFmpeg's demuxers and decoders, "
                       "encodings guessed by uchardet), asks the library what it shows at each caption's "
                       "start, middle and end, and lists every caption shown differently or not at all "
                       "with the library behaviour that causes it. Exit 0 when the file shows as written, "
                       "3 when it does not."));
    const QCommandLineOption jsonOption(QStringLiteral("json"), QStringLiteral("Write JSON."));
    const QCommandLineOption encodingOption(
        QStringLiteral("encoding"),
        QStringLiteral("Read the text as NAME (an iconv name) instead of guessing."), QStringLiteral("NAME"));
    line.parser().addOption(jsonOption);
    line.parser().addOption(encodingOption);
    const QCommandLineOption ocrOption = ocrLanguageOption();
    line.parser().addOption(ocrOption);
    const TrackOptions trackOptions(line);
    line.addPositional(QStringLiteral("file"),
                       QStringLiteral("A subtitle file (SubRip, ASS/SSA, WebVTT, ...)."));
    if (!line.parse(args))
        return ExitSuccess;
    const QString path = line.positionals(1, 1).first();
    const int track = trackOptions.track();

    // The library first: its own failures (the wide script reader's thrown int) are reported as such.
    const LibraryInput input = libraryInputOrExit(path);
    if (input.kind == LibraryInput::Kind::Index)
        fileError(path, QStringLiteral("cannot lint: lint reads text subtitles, and this is a VobSub index"));
    ManagerSession& session = *input.session;
    TrackChoice choice;
    const WrittenFile written = readWrittenSide(path, line.parser().value(encodingOption), track,
                                                trackOptions.language(), line.parser().value(ocrOption), choice);
    const LibrarySide library = readLibrarySide(path, session);
    const std::vector<Probe> probes = probeLibrary(written, session);

    LintReport report;
    report.path = path;
    report.written = &written;
    report.library = &library;
    report.findings = judgeBlocks(written, library, probes);
    report.track = choice.index;
    report.trackReason = choice.why;
    if (line.parser().isSet(jsonOption))
        printLintJson(report);
    else
        printLintText(report);
    return report.findings.empty() ? ExitSuccess : ExitNotAsWritten;
}

} // namespace zemsub::tool
