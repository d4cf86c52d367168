#ifndef ZEMSUB_TOOL_COMMANDS_H
#define ZEMSUB_TOOL_COMMANDS_H

#include <QStringList>

namespace zemsub::tool {

// Each subcommand takes its arguments (without "zemsub" and the command name)
// and returns the exit code; failures are thrown as ToolError.
int runInfo(const QStringList& args);
int runAt(const QStringList& args);
int runDump(const QStringList& args);
int runRender(const QStringList& args);
int runSheet(const QStringList& args);
int runLint(const QStringList& args);
int runFix(const QStringList& args);
int runTracks(const QStringList& args);
int runConvert(const QStringList& args);

// Whether the command paints (and so needs a GUI application).
bool commandPaints(const QString& command);
// The command's runner, or null for an unknown name.
using CommandRunner = int (*)(const QStringList&);
CommandRunner findCommand(const QString& command);

} // namespace zemsub::tool

#endif
