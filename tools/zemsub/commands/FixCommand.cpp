// zemsub fix: writes a copy that the library shows as written, and says per caption what it shows.
#include "Commands.h"

#include "CommandLine.h"
#include "PictureReport.h"
#include "TimeParser.h"
#include "TrackOptions.h"
#include "ZemsubFix.h"
#include "pictures/PictureText.h"
#include "playback/TextForm.h"

#include <QFileInfo>
#include <nlohmann/json.hpp>

#include <unistd.h>

#include <chrono>

namespace zemsub::tool {

namespace {

nlohmann::ordered_json reportJson(const QString& input, const QString& output,
                                  const zemsubfix::FixReport& report)
{
    nlohmann::ordered_json captions = nlohmann::ordered_json::array();
    for (const zemsubfix::CaptionOutcome& caption : report.captions) {
        nlohmann::ordered_json reasons = nlohmann::ordered_json::array();
        for (const zemsubfix::Reason& reason : caption.reasons)
            reasons.push_back({{"code", reason.code.toStdString()}, {"text", reason.text.toStdString()}});
        nlohmann::ordered_json outcome{{"caption", caption.index},
                                       {"line", caption.line},
                                       {"start", caption.start},
                                       {"end", caption.end},
                                       {"written", caption.text.toStdString()},
                                       {"textShown", caption.textShown},
                                       {"asWritten", caption.asWritten()},
                                       {"reasons", reasons}};
        if (caption.confidence >= 0) {
            outcome["confidence"] = caption.confidence;
            outcome["lowConfidence"] = caption.confidence < kLowConfidence;
        }
        captions.push_back(outcome);
    }
    nlohmann::ordered_json track{{"index", report.track}, {"reason", report.trackReason.toStdString()}};
    if (!report.ocrLanguage.isEmpty())
        track["readAs"] = report.ocrLanguage.toStdString();
    nlohmann::ordered_json json = {{"file", input.toStdString()},
            {"track", track},
            {"copy", output.toStdString()},
            {"format", zemsubfix::formatExtension(report.format).toStdString()},
            {"encoding", report.encoding.toStdString()},
            {"copyLines", report.copyLines},
            {"copyOpens", report.copyOpens},
            {"captions", report.captions.size()},
            {"asWritten", report.allAsWritten()},
            {"shownInGaps", report.shownInGaps},
            {"outcomes", captions}};
    if (!report.ocrLanguage.isEmpty()) {
        json["leftOut"] = leftOutArray(report.leftOut);
        json["lastDisplayEnd"] = report.lastDisplayEnd.toStdString();
    }
    return json;
}

void printReport(const QString& input, const QString& output, const zemsubfix::FixReport& report)
{
    int shown = 0;
    for (const zemsubfix::CaptionOutcome& caption : report.captions)
        shown += caption.asWritten() ? 1 : 0;
    out(QStringLiteral("%1: %2 captions; copy %3 (%4 lines) shows %5 as written\n")
            .arg(input)
            .arg(report.captions.size())
            .arg(output)
            .arg(report.copyLines)
            .arg(shown));
    if (!report.copyOpens)
        out(QStringLiteral("  the library does not open the copy\n"));
    if (!report.ocrLanguage.isEmpty())
        out(QStringLiteral("  pictures read as text in %1 (Tesseract)\n").arg(report.ocrLanguage));
    for (const zemsubfix::CaptionOutcome& caption : report.captions) {
        if (caption.confidence >= 0 && caption.confidence < kLowConfidence)
            out(lowConfidenceLine(caption.index, caption.start, caption.confidence, caption.text));
    }
    out(lastDisplayLine(report.lastDisplayEnd));
    for (const zemsubfix::LeftOutPicture& picture : report.leftOut)
        out(leftOutLine(picture.start, picture.end, QRect(picture.x, picture.y, picture.width, picture.height),
                        picture.why));
    for (const zemsubfix::CaptionOutcome& caption : report.captions) {
        if (caption.asWritten())
            continue;
        out(QStringLiteral("\ncaption %1, line %2, %3 --> %4%5\n")
                .arg(caption.index)
                .arg(caption.line)
                .arg(formatTime(caption.start), formatTime(caption.end),
                     caption.textShown ? QStringLiteral(": its text shows") : QStringLiteral(": not shown")));
        out(QStringLiteral("  written  \"%1\"\n").arg(escaped(caption.text)));
        for (const zemsubfix::Reason& reason : caption.reasons)
            out(QStringLiteral("  cause %1: %2\n").arg(reason.code, reason.text));
    }
    for (long long time : report.shownInGaps)
        out(QStringLiteral("\nthe copy shows a caption at %1, where none is written\n")
                .arg(formatTime(time)));
}

// "reading pictures: 120/1000, 10.4 a second, 1:25 left", rewritten in place on a terminal.
std::function<void(int, int)> progressLine()
{
    const auto start = std::chrono::steady_clock::now();
    return [start](int done, int total) {
        const double seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        const double rate = seconds > 0 ? done / seconds : 0;
        const long long left = rate > 0 ? (long long)((total - done) / rate + 0.5) : 0;
        err(QStringLiteral("\rreading pictures: %1/%2, %3 a second, %4:%5 left%6")
                .arg(done)
                .arg(total)
                .arg(rate, 0, 'f', 1)
                .arg(left / 60)
                .arg(left % 60, 2, 10, QLatin1Char('0'))
                .arg(done == total ? QStringLiteral("\n") : QStringLiteral("  ")));
    };
}

} // namespace

int runFix(const QStringList& args)
{
    SubcommandLine line(
        QStringLiteral("fix"),
        QStringLiteral(
            "Writes a copy of the file that the library shows the way a modern player shows the "
            "original, checks it with the library at each caption's start, middle and end, and says "
            "per caption whether it shows as written or why it cannot. The copy's format follows "
            "OUT's extension (srt, ass, ssa; SubRip otherwise). Exit 0 when every caption shows as "
            "written, 3 when the copy was written but some cannot, 1 when the file cannot be read."));
    const QCommandLineOption outputOption({QStringLiteral("o"), QStringLiteral("output")},
                                          QStringLiteral("Write the copy to OUT."), QStringLiteral("OUT"));
    const QCommandLineOption jsonOption(QStringLiteral("json"), QStringLiteral("Write JSON."));
    const QCommandLineOption encodingOption(QStringLiteral("encoding"),
                                            QStringLiteral("Read FILE in this encoding (an iconv name)."),
                                            QStringLiteral("NAME"));
    const QCommandLineOption inPlaceOption(QStringLiteral("in-place"),
                                           QStringLiteral("Replace FILE with the copy (atomically)."));
    line.parser().addOption(outputOption);
    line.parser().addOption(jsonOption);
    line.parser().addOption(encodingOption);
    const QCommandLineOption ocrOption = ocrLanguageOption();
    line.parser().addOption(inPlaceOption);
    line.parser().addOption(ocrOption);
    const TrackOptions trackOptions(line);
    line.addPositional(QStringLiteral("file"),
                       QStringLiteral("A SubRip or ASS/SSA file, a video file with subtitle tracks, or "
                                      "pictures (.sup, a picture track) read as text."));
    if (!line.parse(args))
        return ExitSuccess;
    const QString input = line.positionals(1, 1).first();
    const int track = trackOptions.track();
    const bool inPlace = line.parser().isSet(inPlaceOption);
    QString output = line.parser().value(outputOption);
    if (inPlace && !output.isEmpty() &&
        QFileInfo(output).absoluteFilePath() != QFileInfo(input).absoluteFilePath())
        usageError(QStringLiteral("--in-place writes FILE itself; leave out -o"));
    if (inPlace)
        output = input;
    if (output.isEmpty())
        usageError(QStringLiteral("no copy named: give -o OUT (or --in-place)"));
    const QFileInfo outputInfo(output);
    const bool sameFile =
        outputInfo.absoluteFilePath() == QFileInfo(input).absoluteFilePath() ||
        (outputInfo.exists() && outputInfo.canonicalFilePath() == QFileInfo(input).canonicalFilePath());
    if (!inPlace && sameFile)
        usageError(QStringLiteral("OUT is FILE itself: give --in-place to replace it"));
    if (!QFileInfo::exists(input))
        fileError(input, QStringLiteral("no such file"));
    if (QFileInfo(input).isDir())
        fileError(input, QStringLiteral("is a directory"));

    zemsubfix::FixOptions options;
    options.format = zemsubfix::formatForPath(output);
    options.encoding = line.parser().value(encodingOption);
    options.track = track;
    options.language = trackOptions.language();
    options.ocrLanguage = line.parser().value(ocrOption);
    // Progress only for a person watching a terminal.
    if (!line.parser().isSet(jsonOption) && isatty(STDERR_FILENO))
        options.pictureProgress = progressLine();
    const zemsubfix::FixReport report = zemsubfix::fixFile(input, output, options);
    announceTrack(report.trackSummary);
    if (!report.readable)
        fileError(input, QStringLiteral("cannot fix: %1").arg(report.error));
    if (!report.error.isEmpty())
        fileError(output, report.error);

    if (line.parser().isSet(jsonOption))
        out(QString::fromStdString(reportJson(input, output, report).dump(2)) + QLatin1Char('\n'));
    else
        printReport(input, output, report);
    return report.exitCode();
}

} // namespace zemsub::tool
