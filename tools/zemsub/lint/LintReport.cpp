#include "LintReport.h"

#include "zemsub/commands/CommandLine.h"
#include "zemsub/commands/PictureReport.h"
#include "zemsub/commands/TimeParser.h"
#include "playback/LibraryView.h"
#include "playback/TextForm.h"

#include "pictures/PictureText.h"

#include <nlohmann/json.hpp>

namespace zemsub::tool {

namespace {

nlohmann::ordered_json optionalText(const QString& text)
{
    if (text.isNull())
        return nullptr;
    return text.toStdString();
}

QString shownText(const Probe& probe)
{
    if (probe.drawn.isNull()) {
        if (!probe.answer.isEmpty())
            return QStringLiteral(
                       "(nothing; the library answered \"%1\" but the caption image was not drawn again)")
                .arg(escaped(drawnText(probe.answer)));
        return QStringLiteral("(nothing)");
    }
    return QLatin1Char('"') + escaped(drawnText(probe.drawn)) + QLatin1Char('"');
}

QString kindName(const WrittenFile& written)
{
    switch (written.kind) {
    case WrittenKind::SubRip:
        return QStringLiteral("SubRip");
    case WrittenKind::Script:
        return QStringLiteral("ASS/SSA");
    default:
        return written.formatTitle.isEmpty() ? written.format : written.formatTitle;
    }
}

const char* kindCode(WrittenKind kind)
{
    switch (kind) {
    case WrittenKind::SubRip:
        return "subrip";
    case WrittenKind::Script:
        return "script";
    default:
        return "other";
    }
}

nlohmann::ordered_json findingJson(const LintReport& report, const Finding& finding)
{
    const WrittenBlock& block = report.written->blocks[size_t(finding.block)];
    nlohmann::ordered_json probes = nlohmann::ordered_json::array();
    for (const Probe* probe : finding.probes) {
        probes.push_back(
            {{"kind", probeKindName(probe->kind).toStdString()},
             {"time", probe->time},
             {"answer", optionalText(probe->answer)},
             {"shown", optionalText(probe->drawn.isNull() ? QString() : drawnText(probe->drawn))},
             {"asWritten", probe->asWritten}});
    }
    nlohmann::ordered_json causes = nlohmann::ordered_json::array();
    for (CauseId id : finding.causes) {
        const Cause cause = describeCause(id, causeContext(*report.written, *report.library));
        causes.push_back({{"code", cause.code.toStdString()}, {"text", cause.text.toStdString()}});
    }
    return {{"caption", block.index},
            {"line", block.line},
            {"start", block.start},
            {"end", block.end},
            {"written", block.text.toStdString()},
            {"probes", probes},
            {"causes", causes}};
}

} // namespace

void printLintJson(const LintReport& report)
{
    const WrittenFile& written = *report.written;
    const LibrarySide& library = *report.library;
    nlohmann::ordered_json items = nlohmann::ordered_json::array();
    for (const Finding& finding : report.findings)
        items.push_back(findingJson(report, finding));
    const Cause hexCause = describeCause(CauseId::HexValue, causeContext(written, library));
    nlohmann::ordered_json notes = nlohmann::ordered_json::array();
    for (const HexValue& value : written.hexValues) {
        notes.push_back(
            {{"line", value.line},
             {"where", value.where.toStdString()},
             {"value", value.value.toStdString()},
             {"cause", {{"code", hexCause.code.toStdString()}, {"text", hexCause.text.toStdString()}}}});
    }
    nlohmann::ordered_json blocks = nlohmann::ordered_json::array();
    for (const WrittenBlock& block : written.blocks) {
        nlohmann::ordered_json item{{"caption", block.index},
                                    {"line", block.line},
                                    {"start", block.start},
                                    {"end", block.end},
                                    {"text", block.text.toStdString()}};
        if (block.confidence >= 0) {
            item["confidence"] = block.confidence;
            item["lowConfidence"] = block.confidence < kLowConfidence;
        }
        blocks.push_back(item);
    }
    nlohmann::ordered_json track{{"index", report.track}, {"reason", report.trackReason.toStdString()}};
    if (!written.readAs.isEmpty())
        track["readAs"] = written.readAs.toStdString();
    nlohmann::ordered_json doc = {
        {"file", report.path.toStdString()},
        {"track", track},
        {"kind", kindCode(written.kind)},
        {"ffmpegFormat", written.format.toStdString()},
        {"encoding", written.encoding.toStdString()},
        {"encodingForced", written.encodingForced},
        {"formatCode", library.formatCode},
        {"format", formatName(library.formatCode).toStdString()},
        {"wide", library.wide},
        {"opened", library.opened},
        {"captions", written.blocks.size()},
        {"refusedEvents", written.refusedEvents},
        {"asWritten", report.findings.empty()},
        {"findings", items},
        {"notes", notes},
        {"written", blocks}};
    if (!written.readAs.isEmpty())
        doc["leftOut"] = leftOutArray(written.leftOut);
    out(QString::fromStdString(doc.dump(2)) + QLatin1Char('\n'));
}

void printLintText(const LintReport& report)
{
    const WrittenFile& written = *report.written;
    const LibrarySide& library = *report.library;
    out(QStringLiteral("%1: %2 captions as %3, read by the library as %4 (format code %5); %6\n")
            .arg(report.path)
            .arg(written.blocks.size())
            .arg(kindName(written), formatName(library.formatCode))
            .arg(library.formatCode)
            .arg(report.findings.empty()
                     ? QStringLiteral("all shown as written")
                     : QStringLiteral("%1 not shown as written").arg(report.findings.size())));
    if (!written.readAs.isEmpty())
        out(QStringLiteral("  pictures read as text in %1 (Tesseract)\n").arg(written.readAs));
    for (const WrittenBlock& block : written.blocks) {
        if (block.confidence >= 0 && block.confidence < kLowConfidence)
            out(lowConfidenceLine(block.index, block.start, block.confidence, block.text));
    }
    for (const LeftOutGraphic& picture : written.leftOut)
        out(leftOutLine(picture.start, picture.end,
                        QRect(picture.x, picture.y, picture.width, picture.height), picture.why));
    for (const Finding& finding : report.findings) {
        const WrittenBlock& block = written.blocks[size_t(finding.block)];
        out(QStringLiteral("\ncaption %1, line %2, %3 --> %4\n")
                .arg(block.index)
                .arg(block.line)
                .arg(formatTime(block.start), formatTime(block.end)));
        out(QStringLiteral("  written  \"%1\"\n").arg(escaped(block.text)));
        for (const Probe* probe : finding.probes) {
            out(QStringLiteral("  %1 %2  %3\n")
                    .arg(probeKindName(probe->kind), -7)
                    .arg(formatTime(probe->time), shownText(*probe)));
        }
        for (CauseId id : finding.causes) {
            const Cause cause = describeCause(id, causeContext(written, library));
            out(QStringLiteral("  cause %1: %2\n").arg(cause.code, cause.text));
        }
    }
    if (!written.hexValues.empty() || written.refusedEvents > 0) {
        out(QStringLiteral("\nnotes (captions not affected):\n"));
        if (written.refusedEvents > 0)
            out(QStringLiteral("  FFmpeg's decoder refused %1 event(s) as not valid %2 text; players show "
                               "none of them\n")
                    .arg(written.refusedEvents)
                    .arg(written.utf16 ? QStringLiteral("UTF-8 (after its UTF-16 conversion)")
                                       : written.encoding));
        for (const HexValue& value : written.hexValues)
            out(QStringLiteral("  line %1: %2 is written \"%3\"\n")
                    .arg(value.line)
                    .arg(value.where, value.value));
        if (!written.hexValues.empty()) {
            const Cause hexCause = describeCause(CauseId::HexValue, causeContext(written, library));
            out(QStringLiteral("  cause %1: %2\n").arg(hexCause.code, hexCause.text));
        }
    }
}

} // namespace zemsub::tool
