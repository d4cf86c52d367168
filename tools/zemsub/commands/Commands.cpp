#include "Commands.h"

namespace zemsub::tool {

bool commandPaints(const QString& command)
{
    return command == QLatin1String("render") || command == QLatin1String("sheet") ||
           command == QLatin1String("convert"); // its --review sheet
}

CommandRunner findCommand(const QString& command)
{
    struct Entry
    {
        const char* name;
        CommandRunner run;
    };
    static const Entry commands[] = {
        {"info", runInfo},     {"at", runAt},       {"dump", runDump},
        {"render", runRender}, {"sheet", runSheet}, {"lint", runLint},
        {"fix", runFix},       {"tracks", runTracks}, {"convert", runConvert},
    };
    for (const Entry& entry : commands) {
        if (command == QLatin1String(entry.name))
            return entry.run;
    }
    return nullptr;
}

} // namespace zemsub::tool
