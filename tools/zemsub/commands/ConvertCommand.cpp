// zemsub convert: a plain copy of a track as players show it, for any player.
#include "Commands.h"

#include "CommandLine.h"
#include "PictureReport.h"
#include "TimeParser.h"
#include "TrackOptions.h"
#include "ZemsubConvert.h"
#include "pictures/PictureText.h"
#include "zemsub/convert/OutputPattern.h"
#include "zemsub/frames/SheetPainter.h"
#include "playback/TextForm.h"

#include <QDir>
#include <QPainter>
#include <QFileInfo>
#include <QSaveFile>
#include <nlohmann/json.hpp>

#include <unistd.h>

namespace zemsub::tool {

namespace {

struct Outcome
{
    QString input;
    QString output;
    bool skipped = false; // the output exists
    zemsubfix::PlainReport report;
};

nlohmann::ordered_json outcomeJson(const Outcome& outcome)
{
    nlohmann::ordered_json json{{"file", outcome.input.toStdString()}, {"output", outcome.output.toStdString()}};
    if (outcome.skipped) {
        json["skipped"] = true;
        return json;
    }
    const zemsubfix::PlainReport& report = outcome.report;
    if (!report.error.isEmpty())
        json["error"] = report.error.toStdString();
    nlohmann::ordered_json track{{"index", report.track}, {"language", report.language.toStdString()}};
    if (report.pictures)
        track["readAs"] = report.ocrLanguage.toStdString();
    json["track"] = track;
    nlohmann::ordered_json captions = nlohmann::ordered_json::array();
    for (const zemsubfix::PlainCaption& caption : report.captions) {
        nlohmann::ordered_json entry{{"start", caption.start},       {"end", caption.end},
                                     {"text", caption.text.toStdString()}, {"italic", caption.italic},
                                     {"partlyItalic", caption.partlyItalic}, {"alignment", caption.alignment},
                                     {"forced", caption.forced}};
        if (caption.confidence >= 0) {
            entry["confidence"] = caption.confidence;
            entry["lowConfidence"] = caption.confidence < kLowConfidence;
            entry["narrowItalic"] = caption.narrowItalic;
        }
        captions.push_back(entry);
    }
    json["captions"] = captions;
    json["leftOut"] = leftOutArray(report.leftOut);
    if (report.pictures)
        json["lastDisplayEnd"] = report.lastDisplayEnd.toStdString();
    return json;
}

void printOutcome(const Outcome& outcome)
{
    if (outcome.skipped) {
        out(QStringLiteral("%1: %2 exists; skipped (--overwrite replaces it)\n").arg(outcome.input, outcome.output));
        return;
    }
    const zemsubfix::PlainReport& report = outcome.report;
    int italic = 0, forced = 0;
    for (const zemsubfix::PlainCaption& caption : report.captions) {
        italic += caption.partlyItalic;
        forced += caption.forced;
    }
    out(QStringLiteral("%1: %2 captions (%3 in italics, %4 forced) -> %5\n")
            .arg(outcome.input)
            .arg(report.captions.size())
            .arg(italic)
            .arg(forced)
            .arg(outcome.output));
    if (report.pictures)
        out(QStringLiteral("  pictures read as text in %1 (Tesseract)\n").arg(report.ocrLanguage));
    for (size_t i = 0; i < report.captions.size(); ++i) {
        const zemsubfix::PlainCaption& caption = report.captions[i];
        if (caption.confidence >= 0 && caption.confidence < kLowConfidence)
            out(lowConfidenceLine(int(i) + 1, caption.start, caption.confidence, caption.text));
    }
    out(lastDisplayLine(report.lastDisplayEnd));
    for (const zemsubfix::LeftOutPicture& picture : report.leftOut)
        out(leftOutLine(picture.start, picture.end, QRect(picture.x, picture.y, picture.width, picture.height),
                        picture.why));
}

// The pictures worth a second look as tiles, each on grey so that its edges show, with
// its time, why and the text read under it.
void drawReview(const QString& output, const std::vector<std::pair<QString, zemsubfix::ReviewPicture>>& pictures)
{
    QSize tile(320, 60);
    for (const auto& entry : pictures)
        tile = tile.expandedTo(entry.second.picture.size() + QSize(16, 16));
    tile.setHeight(std::min(tile.height(), tile.width() / 2));
    SheetPainter sheet(output, tile, int(pictures.size()), pictures.size() > 8 ? 3 : 2);
    for (size_t i = 0; i < pictures.size(); ++i) {
        const zemsubfix::ReviewPicture& review = pictures[i].second;
        QImage frame(tile, QImage::Format_ARGB32_Premultiplied);
        frame.fill(QColor(96, 96, 96));
        QPainter painter(&frame);
        const QSize size = review.picture.size().scaled(tile - QSize(16, 16), Qt::KeepAspectRatio);
        painter.drawImage(QRect(QPoint((tile.width() - size.width()) / 2, (tile.height() - size.height()) / 2), size),
                          review.picture);
        painter.end();
        QString label = QStringLiteral("%1%2 %3").arg(pictures[i].first, formatTime(review.start), review.why);
        if (!review.text.isEmpty())
            label += QStringLiteral(": ") + QString(review.text).replace(QLatin1Char('\n'), QStringLiteral(" / "));
        sheet.draw(int(i), frame, label);
    }
    if (!sheet.save(output))
        throw ToolError{ExitCannotRead, output + QStringLiteral(": cannot write the image")};
}

} // namespace

int runConvert(const QStringList& args)
{
    SubcommandLine line(
        QStringLiteral("convert"),
        QStringLiteral(
            "Writes a subtitle track as players show it, for any player: UTF-8, in the format of OUT's "
            "extension (srt, ass, vtt), italics and places kept; picture tracks are read as text. No cure "
            "for libzemsubtitle's quirks (zemsub fix makes that copy). OUT may be a pattern of {dir}, "
            "{stem}, {lang}, {track} and {forced}, as in -o '{dir}/{stem}.{lang}{forced}.srt'. A file that "
            "fails is reported and the run goes on; exit 3 when one did."));
    const QCommandLineOption outputOption({QStringLiteral("o"), QStringLiteral("output")},
                                          QStringLiteral("Write the copy to OUT (a path or a pattern)."),
                                          QStringLiteral("OUT"));
    const QCommandLineOption jsonOption(QStringLiteral("json"), QStringLiteral("Write JSON."));
    const QCommandLineOption forcedOption(QStringLiteral("forced-only"),
                                          QStringLiteral("Only the forced captions (shown with subtitles off)."));
    const QCommandLineOption overwriteOption(QStringLiteral("overwrite"),
                                             QStringLiteral("Replace copies that exist (else they are skipped)."));
    const QCommandLineOption reviewOption(
        QStringLiteral("review"),
        QStringLiteral("Draw the pictures worth a second look (read with low confidence, left out as graphics, "
                       "italics decided narrowly) as tiles with the text read under each."),
        QStringLiteral("SHEET.png"));
    line.parser().addOption(outputOption);
    line.parser().addOption(jsonOption);
    line.parser().addOption(forcedOption);
    line.parser().addOption(overwriteOption);
    line.parser().addOption(reviewOption);
    const QCommandLineOption ocrOption = ocrLanguageOption();
    line.parser().addOption(ocrOption);
    const TrackOptions trackOptions(line);
    line.addPositional(QStringLiteral("files"),
                       QStringLiteral("Subtitle files, videos with subtitle tracks, or pictures (.sup, .idx)."),
                       QStringLiteral("FILE..."));
    if (!line.parse(args))
        return ExitSuccess;
    const QStringList inputs = line.positionals(1, 1 << 20);
    const QString pattern = line.parser().value(outputOption);
    if (pattern.isEmpty())
        usageError(QStringLiteral("no copy named: give -o OUT"));
    if (inputs.size() > 1 && !patternPerInput(pattern))
        usageError(QStringLiteral("-o names one file for %1 inputs: give a pattern with {stem}").arg(inputs.size()));
    const bool json = line.parser().isSet(jsonOption);
    const bool overwrite = line.parser().isSet(overwriteOption);
    const bool forcedOnly = line.parser().isSet(forcedOption);
    const bool terminal = !json && isatty(STDERR_FILENO);

    zemsubfix::PlainOptions options;
    options.track = trackOptions.track();
    options.language = trackOptions.language();
    options.ocrLanguage = line.parser().value(ocrOption);
    options.forcedOnly = forcedOnly;
    const QString reviewSheet = line.parser().value(reviewOption);
    options.review = !reviewSheet.isEmpty();
    std::vector<std::pair<QString, zemsubfix::ReviewPicture>> review;

    int failed = 0;
    nlohmann::ordered_json all = nlohmann::ordered_json::array();
    for (int i = 0; i < inputs.size(); ++i) {
        Outcome outcome;
        outcome.input = inputs[i];
        if (terminal) {
            const QString at = QStringLiteral("\rconverting %1/%2: %3").arg(i + 1).arg(inputs.size()).arg(inputs[i]);
            err(at + QStringLiteral("\x1b[K"));
            options.pictureProgress = [at](int done, int total) {
                err(at + QStringLiteral(", reading pictures %1/%2\x1b[K").arg(done).arg(total));
            };
        }
        PatternValues values{inputs[i], QString(), -1, forcedOnly};
        outcome.output = expandPattern(pattern, values);
        if (!patternNeedsTrack(pattern) && QFileInfo::exists(outcome.output) && !overwrite) {
            outcome.skipped = true;
        } else {
            outcome.report = zemsubfix::convertPath(inputs[i], zemsubfix::plainFormatForPath(pattern), options);
            values.language = outcome.report.language;
            values.track = outcome.report.track;
            outcome.output = expandPattern(pattern, values);
            if (outcome.report.readable) {
                if (QFileInfo::exists(outcome.output) && !overwrite) {
                    outcome.skipped = true;
                } else {
                    QDir().mkpath(QFileInfo(outcome.output).path());
                    QSaveFile file(outcome.output);
                    if (!file.open(QIODevice::WriteOnly) ||
                        file.write(outcome.report.copy) != outcome.report.copy.size() || !file.commit())
                        outcome.report.error =
                            QStringLiteral("cannot write %1: %2").arg(outcome.output, file.errorString());
                }
            }
        }
        if (terminal)
            err(QStringLiteral("\r\x1b[K"));
        if (!outcome.skipped && !outcome.report.readable && outcome.report.error.isEmpty())
            outcome.report.error = QStringLiteral("cannot be read");
        if (!outcome.skipped && !outcome.report.error.isEmpty()) {
            ++failed;
            err(QStringLiteral("%1: cannot convert: %2\n").arg(inputs[i], outcome.report.error));
        }
        for (const zemsubfix::ReviewPicture& picture : outcome.report.review)
            review.emplace_back(inputs.size() > 1 ? QFileInfo(inputs[i]).completeBaseName() + QLatin1Char(' ')
                                                  : QString(),
                                picture);
        if (json)
            all.push_back(outcomeJson(outcome));
        else if (outcome.skipped || outcome.report.error.isEmpty())
            printOutcome(outcome);
    }
    if (json)
        out(QString::fromStdString(all.dump(2)) + QLatin1Char('\n'));
    if (options.review) {
        drawReview(reviewSheet, review);
        if (!json)
            out(QStringLiteral("%1 picture%2 to look at again: %3\n")
                    .arg(review.size())
                    .arg(review.size() == 1 ? QString() : QStringLiteral("s"))
                    .arg(reviewSheet));
    }
    return failed > 0 ? ExitNotAsWritten : ExitSuccess;
}

} // namespace zemsub::tool
