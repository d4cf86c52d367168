// zemsub info: the format the manager chooses and why, and what the reader read.
#include "Commands.h"

#include "CommandLine.h"
#include "LibraryChecks.h"
#include "TimeParser.h"
#include "playback/LibraryView.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace zemsub::tool {

namespace {

QString hexColour(unsigned int value)
{
    return QStringLiteral("%1").arg(value & 0xFFFFFFu, 6, 16, QLatin1Char('0'));
}

nlohmann::ordered_json timesJson(const std::vector<StoredEntry>& entries)
{
    if (entries.empty())
        return nullptr;
    long long first = entries.front().start;
    long long last = entries.front().end;
    for (const StoredEntry& entry : entries) {
        first = std::min(first, entry.start);
        last = std::max(last, entry.end);
    }
    return nlohmann::ordered_json{{"first", first}, {"last", last}};
}

int printIndex(const FileFacts& facts, int managerCode, bool json)
{
    const IndexView index = indexOrExit(facts.path);
    if (json) {
        nlohmann::ordered_json palette = nlohmann::ordered_json::array();
        for (unsigned int colour : index.palette)
            palette.push_back(hexColour(colour).toStdString());
        nlohmann::ordered_json colours = nlohmann::ordered_json::array();
        for (unsigned int colour : index.customColors)
            colours.push_back(hexColour(colour).toStdString());
        const nlohmann::ordered_json doc = {
            {"file", facts.path.toStdString()},
            {"size", facts.size},
            {"formatCode", managerCode},
            {"reason", formatReason(facts, managerCode).toStdString()},
            {"index",
             {{"opened", index.opened},
              {"lines", index.lines},
              {"subPath", index.subPath.toStdString()},
              {"palette", palette},
              {"customColorSwitch", index.customColorSwitch},
              {"customColors", colours},
              {"transparencyMask", index.transparencyMask},
              {"timestamps", index.entries.size()}}},
        };
        out(QString::fromStdString(doc.dump(2)) + QLatin1Char('\n'));
    } else {
        QStringList palette;
        for (unsigned int colour : index.palette)
            palette << hexColour(colour);
        QStringList colours;
        for (unsigned int colour : index.customColors)
            colours << hexColour(colour);
        out(QStringLiteral("file:              %1\n").arg(facts.path));
        out(QStringLiteral("size:              %1 bytes\n").arg(facts.size));
        out(QStringLiteral("format code:       %1 (%2)\n").arg(managerCode).arg(formatName(managerCode)));
        out(QStringLiteral("why:               %1\n").arg(formatReason(facts, managerCode)));
        out(QStringLiteral("index reader open: %1\n")
                .arg(index.opened ? QStringLiteral("true") : QStringLiteral("false")));
        out(QStringLiteral("lines read:        %1\n").arg(index.lines));
        out(QStringLiteral(
                "sub path:          %1 (the text from the first \".\" of the path, then \"sub\")\n")
                .arg(index.subPath));
        out(QStringLiteral("palette:           %1\n").arg(palette.join(QLatin1Char(' '))));
        out(QStringLiteral("custom colours:    %1 (switch %2)\n")
                .arg(colours.join(QLatin1Char(' ')))
                .arg(index.customColorSwitch));
        out(QStringLiteral("transparency mask: 0x%1\n").arg(index.transparencyMask, 0, 16));
        out(QStringLiteral("timestamps:        %1\n").arg(index.entries.size()));
    }
    if (!index.opened)
        fileError(
            facts.path,
            QStringLiteral("not opened: the index reader did not open it (it reads at most 5000 lines)"));
    return ExitSuccess;
}

} // namespace

int runInfo(const QStringList& args)
{
    SubcommandLine line(
        QStringLiteral("info"),
        QStringLiteral("The format code the manager chooses and why, wide or narrow, the open result, "
                       "lines read, entries stored, first and last times. For .idx files: the sub "
                       "path, palette, custom colours, mask and timestamp count."));
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
    const int code = session.formatCode();
    if (input.kind == LibraryInput::Kind::Index)
        return printIndex(facts, code, json);

    const StoredTimeline timeline = timelineOrExit(path, code);
    if (json) {
        const nlohmann::ordered_json doc = {
            {"file", path.toStdString()},
            {"size", facts.size},
            {"formatCode", code},
            {"format", formatName(code).toStdString()},
            {"reason", formatReason(facts, code).toStdString()},
            {"wide", session.wide()},
            {"opened", session.opened()},
            {"lines", timeline.lines},
            {"entries", timeline.entries.size()},
            {"times", timesJson(timeline.entries)},
        };
        out(QString::fromStdString(doc.dump(2)) + QLatin1Char('\n'));
    } else {
        out(QStringLiteral("file:         %1\n").arg(path));
        out(QStringLiteral("size:         %1 bytes\n").arg(facts.size));
        out(QStringLiteral("format code:  %1 (%2)\n").arg(code).arg(formatName(code)));
        out(QStringLiteral("why:          %1\n").arg(formatReason(facts, code)));
        out(QStringLiteral("text:         %1\n")
                .arg(session.wide() ? QStringLiteral("wide") : QStringLiteral("narrow")));
        out(QStringLiteral("open:         %1\n")
                .arg(session.opened() ? QStringLiteral("true") : QStringLiteral("false")));
        out(QStringLiteral("lines read:   %1\n").arg(timeline.lines));
        out(QStringLiteral("entries:      %1\n").arg(timeline.entries.size()));
        if (!timeline.entries.empty()) {
            const nlohmann::ordered_json times = timesJson(timeline.entries);
            out(QStringLiteral("first time:   %1\n").arg(formatTime(times["first"].get<long long>())));
            out(QStringLiteral("last time:    %1\n").arg(formatTime(times["last"].get<long long>())));
        }
    }
    requireShown(facts, session);
    return ExitSuccess;
}

} // namespace zemsub::tool
