#ifndef ZEMSUB_TOOL_COMMANDLINE_H
#define ZEMSUB_TOOL_COMMANDLINE_H

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>
#include <QStringList>

namespace zemsub::tool {

// Exit codes of every subcommand.
enum ExitCode {
    ExitSuccess = 0,
    ExitCannotRead = 1,   // the file cannot be opened or parsed
    ExitUsage = 2,        // bad arguments
    ExitNotAsWritten = 3, // lint: the file does not show as written
};

// A failure that ends the command: the message goes to stderr, the code is the exit code.
struct ToolError
{
    int code;
    QString message;
};

[[noreturn]] void usageError(const QString& message);
// "FILE: reason", exit code 1.
[[noreturn]] void fileError(const QString& path, const QString& reason);

// Writes UTF-8 text to stdout / stderr.
void out(const QString& text);
void err(const QString& text);

// One subcommand's parser: --help and --version are always there.
class SubcommandLine
{
public:
    SubcommandLine(const QString& command, const QString& description);

    QCommandLineParser& parser() { return m_parser; }
    void addPositional(const QString& name, const QString& description, const QString& syntax = QString());

    // Parses args (without the program and command names). Returns false when
    // --help or --version was answered (the caller exits 0); throws ToolError
    // with code 2 for an unknown option or a missing value.
    bool parse(const QStringList& args);
    // The positional arguments, checked against the allowed count.
    QStringList positionals(int minimum, int maximum) const;
    QString helpText() const;

private:
    QString m_command;
    QCommandLineParser m_parser;
    QCommandLineOption m_help;
    QCommandLineOption m_version;
};

// The text of `zemsub --help`.
QString generalHelp();
QString versionText();

} // namespace zemsub::tool

#endif
