// zemsub lint: every caption the library shows differently from the file, and why.
#include "Commands.h"

#include "CommandLine.h"
#include "LibraryView.h"
#include "LintCauses.h"
#include "LintProbe.h"
#include "TextForm.h"
#include "TimeParser.h"
#include "TolerantReader.h"

#include <QFile>
#include <nlohmann/json.hpp>

#include <clocale>

namespace zemsub::tool {

namespace {

struct Finding
{
    int block = 0;
    std::vector<const Probe*> probes;
    std::vector<CauseId> causes;
};

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

QString kindName(WrittenKind kind)
{
    return kind == WrittenKind::Script ? QStringLiteral("ASS/SSA") : QStringLiteral("SubRip");
}

} // namespace

int runLint(const QStringList& args)
{
    SubcommandLine line(
        QStringLiteral("lint"),
        QStringLiteral("Reads the file as a tolerant modern player would, asks the library what it "
                       "shows at each caption's start, middle and end, and lists every caption shown "
                       "differently or not at all with the library behaviour that causes it. Exit 0 "
                       "when the file shows as written, 3 when it does not."));
    const QCommandLineOption jsonOption(QStringLiteral("json"), QStringLiteral("Write JSON."));
    line.parser().addOption(jsonOption);
    line.addPositional(QStringLiteral("file"), QStringLiteral("A SubRip or ASS/SSA file."));
    if (!line.parse(args))
        return ExitSuccess;
    const QString path = line.positionals(1, 1).first();
    const bool json = line.parser().isSet(jsonOption);

    const FileFacts facts = inspectFile(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fileError(path, QStringLiteral("cannot open: %1").arg(file.errorString()));
    const QByteArray bytes = file.readAll();
    const WrittenKind kind = isIndexPath(facts) ? WrittenKind::Unknown : guessKind(facts.extension, bytes);
    if (kind == WrittenKind::Unknown)
        fileError(path,
                  QStringLiteral("cannot lint: lint reads SubRip and ASS/SSA text, and this is neither"));
    const WrittenFile written = readWritten(bytes, kind);

    ManagerSession session(path);
    LibrarySide library;
    library.formatCode = session.formatCode();
    library.opened = session.opened();
    library.wide = session.wide();
    const char* locale = std::setlocale(LC_CTYPE, nullptr);
    library.locale = QString::fromLatin1(locale ? locale : "C");
    if (library.opened)
        library.stored = readStoredTimeline(path, library.formatCode).entries;

    std::vector<Probe> probes = planProbes(written);
    runProbes(probes, [&session](long long ms) { return session.opened() ? session.textAt(ms) : QString(); });
    judgeProbes(probes, written);

    std::vector<Finding> findings;
    for (int i = 0; i < int(written.blocks.size()); ++i) {
        Finding finding;
        finding.block = i;
        bool differs = false;
        for (const Probe& probe : probes) {
            if (probe.block == i) {
                finding.probes.push_back(&probe);
                differs = differs || !probe.asWritten;
            }
        }
        if (!differs)
            continue;
        finding.causes = explainBlock(written, i, library, probes);
        findings.push_back(finding);
    }
    const std::vector<HexValue>& hexValues = written.hexValues;
    const Cause hexCause = describeCause(CauseId::HexValue, kind, library);

    if (json) {
        nlohmann::ordered_json items = nlohmann::ordered_json::array();
        for (const Finding& finding : findings) {
            const WrittenBlock& block = written.blocks[size_t(finding.block)];
            nlohmann::ordered_json probeItems = nlohmann::ordered_json::array();
            for (const Probe* probe : finding.probes) {
                probeItems.push_back(
                    {{"kind", probeKindName(probe->kind).toStdString()},
                     {"time", probe->time},
                     {"answer", optionalText(probe->answer)},
                     {"shown", optionalText(probe->drawn.isNull() ? QString() : drawnText(probe->drawn))},
                     {"asWritten", probe->asWritten}});
            }
            nlohmann::ordered_json causes = nlohmann::ordered_json::array();
            for (CauseId id : finding.causes) {
                const Cause cause = describeCause(id, kind, library);
                causes.push_back({{"code", cause.code.toStdString()}, {"text", cause.text.toStdString()}});
            }
            items.push_back({{"caption", block.index},
                             {"line", block.line},
                             {"start", block.start},
                             {"end", block.end},
                             {"written", block.text.toStdString()},
                             {"probes", probeItems},
                             {"causes", causes}});
        }
        nlohmann::ordered_json notes = nlohmann::ordered_json::array();
        for (const HexValue& value : hexValues) {
            notes.push_back(
                {{"line", value.line},
                 {"where", value.where.toStdString()},
                 {"value", value.value.toStdString()},
                 {"cause", {{"code", hexCause.code.toStdString()}, {"text", hexCause.text.toStdString()}}}});
        }
        const nlohmann::ordered_json doc = {{"file", path.toStdString()},
                                            {"kind", kind == WrittenKind::Script ? "script" : "subrip"},
                                            {"encoding", written.encoding.toStdString()},
                                            {"formatCode", library.formatCode},
                                            {"format", formatName(library.formatCode).toStdString()},
                                            {"wide", library.wide},
                                            {"opened", library.opened},
                                            {"captions", written.blocks.size()},
                                            {"asWritten", findings.empty()},
                                            {"findings", items},
                                            {"notes", notes}};
        out(QString::fromStdString(doc.dump(2)) + QLatin1Char('\n'));
    } else {
        out(QStringLiteral("%1: %2 captions as %3, read by the library as %4 (format code %5); %6\n")
                .arg(path)
                .arg(written.blocks.size())
                .arg(kindName(kind), formatName(library.formatCode))
                .arg(library.formatCode)
                .arg(findings.empty() ? QStringLiteral("all shown as written")
                                      : QStringLiteral("%1 not shown as written").arg(findings.size())));
        for (const Finding& finding : findings) {
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
                const Cause cause = describeCause(id, kind, library);
                out(QStringLiteral("  cause %1: %2\n").arg(cause.code, cause.text));
            }
        }
        if (!hexValues.empty()) {
            out(QStringLiteral("\nnotes (captions not affected):\n"));
            for (const HexValue& value : hexValues)
                out(QStringLiteral("  line %1: %2 is written \"%3\"\n")
                        .arg(value.line)
                        .arg(value.where, value.value));
            out(QStringLiteral("  cause %1: %2\n").arg(hexCause.code, hexCause.text));
        }
    }
    return findings.empty() ? ExitSuccess : ExitNotAsWritten;
}

} // namespace zemsub::tool
