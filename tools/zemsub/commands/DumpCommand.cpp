// zemsub dump: the timeline as the library stores it, read right after Open.
#include "Commands.h"

#include "CommandLine.h"
#include "LibraryChecks.h"
#include "TimeParser.h"
#include "playback/LibraryView.h"
#include "playback/TextForm.h"

#include <nlohmann/json.hpp>

namespace zemsub::tool {

namespace {

int dumpIndex(const FileFacts& facts, bool json)
{
    const IndexView index = indexOrExit(facts.path);
    if (!index.opened)
        fileError(
            facts.path,
            QStringLiteral("not opened: the index reader did not open it (it reads at most 5000 lines)"));
    if (json) {
        nlohmann::ordered_json entries = nlohmann::ordered_json::array();
        for (const IndexEntry& entry : index.entries)
            entries.push_back({{"key", entry.key}, {"time", entry.time}, {"filePos", entry.filePos}});
        const nlohmann::ordered_json doc = {{"file", facts.path.toStdString()},
                                            {"formatCode", CodeNone},
                                            {"reader", "index"},
                                            {"subPath", index.subPath.toStdString()},
                                            {"entries", entries}};
        out(QString::fromStdString(doc.dump(2)) + QLatin1Char('\n'));
        return ExitSuccess;
    }
    out(QStringLiteral("key\ttime\tfilepos\n"));
    for (const IndexEntry& entry : index.entries)
        out(QStringLiteral("%1\t%2\t0x%3\n")
                .arg(entry.key)
                .arg(formatTime(entry.time))
                .arg(entry.filePos, 0, 16));
    return ExitSuccess;
}

nlohmann::ordered_json entryJson(const StoredEntry& entry)
{
    nlohmann::ordered_json item = {
        {"key", entry.key}, {"start", entry.start}, {"end", entry.end}, {"text", entry.text.toStdString()}};
    if (entry.script) {
        item["layer"] = entry.layer;
        item["style"] = entry.style.toStdString();
        item["name"] = entry.name.toStdString();
        item["effect"] = entry.effect.toStdString();
    }
    return item;
}

} // namespace

int runDump(const QStringList& args)
{
    SubcommandLine line(
        QStringLiteral("dump"),
        QStringLiteral("The timeline as the library stores it: key, start, end, text, and for scripts "
                       "layer, style, name and effect. Read right after Open, before any look-up. "
                       "For .idx files: key, time and file position."));
    const QCommandLineOption jsonOption(QStringLiteral("json"), QStringLiteral("Write JSON."));
    line.parser().addOption(jsonOption);
    line.addPositional(QStringLiteral("file"), QStringLiteral("The subtitle file."));
    if (!line.parse(args))
        return ExitSuccess;
    const QString path = line.positionals(1, 1).first();
    const bool json = line.parser().isSet(jsonOption);

    const LibraryInput input = libraryInputOrExit(path);
    const FileFacts& facts = input.facts;
    const ManagerSession& session = *input.session;
    if (input.kind == LibraryInput::Kind::Index)
        return dumpIndex(facts, json);
    requireShown(facts, session);

    const StoredTimeline timeline = timelineOrExit(path, session.formatCode());
    if (json) {
        nlohmann::ordered_json entries = nlohmann::ordered_json::array();
        for (const StoredEntry& entry : timeline.entries)
            entries.push_back(entryJson(entry));
        const nlohmann::ordered_json doc = {{"file", path.toStdString()},
                                            {"formatCode", timeline.formatCode},
                                            {"format", formatName(timeline.formatCode).toStdString()},
                                            {"wide", session.wide()},
                                            {"entries", entries}};
        out(QString::fromStdString(doc.dump(2)) + QLatin1Char('\n'));
        return ExitSuccess;
    }

    const bool script = timeline.formatCode == CodeScript || timeline.formatCode == CodeScriptWide;
    out(script ? QStringLiteral("key\tstart\tend\tlayer\tstyle\tname\teffect\ttext\n")
               : QStringLiteral("key\tstart\tend\ttext\n"));
    for (const StoredEntry& entry : timeline.entries) {
        QString row =
            QStringLiteral("%1\t%2\t%3\t").arg(entry.key).arg(formatTime(entry.start), formatTime(entry.end));
        if (script)
            row += QStringLiteral("%1\t%2\t%3\t%4\t")
                       .arg(entry.layer)
                       .arg(escaped(entry.style), escaped(entry.name), escaped(entry.effect));
        out(row + escaped(entry.text) + QLatin1Char('\n'));
    }
    return ExitSuccess;
}

} // namespace zemsub::tool
