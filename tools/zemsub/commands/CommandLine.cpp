#include "CommandLine.h"

#include <cstdio>

namespace zemsub::tool {

void usageError(const QString& message)
{
    throw ToolError{ExitUsage, message + QStringLiteral("\n(see zemsub --help)")};
}

void fileError(const QString& path, const QString& reason)
{
    throw ToolError{ExitCannotRead, path + QStringLiteral(": ") + reason};
}

void out(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
}

void err(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
}

SubcommandLine::SubcommandLine(const QString& command, const QString& description)
    : m_command(command),
      m_help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help and exit.")),
      m_version(QStringLiteral("version"), QStringLiteral("Show the version and exit."))
{
    m_parser.setApplicationDescription(description);
    m_parser.addOption(m_help);
    m_parser.addOption(m_version);
}

void SubcommandLine::addPositional(const QString& name, const QString& description, const QString& syntax)
{
    m_parser.addPositionalArgument(name, description, syntax);
}

bool SubcommandLine::parse(const QStringList& args)
{
    QStringList all = args;
    all.prepend(QStringLiteral("zemsub ") + m_command);
    if (!m_parser.parse(all))
        usageError(QStringLiteral("%1: %2").arg(m_command, m_parser.errorText()));
    if (m_parser.isSet(m_help)) {
        out(helpText());
        return false;
    }
    if (m_parser.isSet(m_version)) {
        out(versionText());
        return false;
    }
    return true;
}

QStringList SubcommandLine::positionals(int minimum, int maximum) const
{
    const QStringList args = m_parser.positionalArguments();
    if (args.size() < minimum)
        usageError(QStringLiteral("%1: missing arguments").arg(m_command));
    if (maximum >= 0 && args.size() > maximum)
        usageError(QStringLiteral("%1: unexpected argument \"%2\"").arg(m_command, args.at(maximum)));
    return args;
}

QString SubcommandLine::helpText() const
{
    // The parser names the program by the application's first argument; name the
    // subcommand instead.
    QString text = m_parser.helpText();
    const int lineEnd = text.indexOf(QLatin1Char('\n'));
    const int options = text.indexOf(QStringLiteral(" [options]"));
    if (text.startsWith(QStringLiteral("Usage: ")) && options > 0 && options < lineEnd)
        text.replace(0, options, QStringLiteral("Usage: zemsub ") + m_command);
    return text;
}

QString generalHelp()
{
    return QStringLiteral(
        "Usage: zemsub <command> [options] FILE ...\n"
        "Shows what libzemsubtitle, and so a player built on it, shows for a subtitle file.\n"
        "\n"
        "Commands:\n"
        "  info FILE              the format the library chooses and why, what it read\n"
        "  at FILE TIME...        the caption text the library answers at each time\n"
        "  dump FILE [--json]     the timeline as the library stores it\n"
        "  render FILE TIME -o OUT.png [style options]\n"
        "                         the frame a player draws at TIME\n"
        "  sheet FILE -o SHEET.png [--every MS]\n"
        "                         one tile per caption (or per step) with its time under it\n"
        "  tracks FILE [--json]   the subtitle tracks of a file (Matroska, MP4, ...): codec, language,\n"
        "                         flags, captions\n"
        "  lint FILE [--json] [--encoding NAME] [--track N | --language CODE]\n"
        "                         every caption the library shows differently from an FFmpeg-based\n"
        "                         player, and why\n"
        "  fix FILE -o OUT [--json] [--encoding NAME] [--in-place] [--track N | --language CODE]\n"
        "                         a copy the library shows as written, and per caption why not\n"
        "  convert FILE... -o OUT [--json] [--track N | --language CODE] [--forced-only] [--overwrite]\n"
        "                         a plain copy (srt, ass, vtt) as players show the track, for any player\n"
        "\n"
        "TIME is milliseconds (1500), hh:mm:ss,mmm (00:00:01,500) or h:mm:ss.cc (0:00:01.50).\n"
        "Run zemsub <command> --help for a command's options.\n"
        "\n"
        "Exit codes: 0 success, 1 the file cannot be opened or parsed, 2 usage error,\n"
        "3 (lint) the file does not show as written, (fix) some captions cannot show as written,\n"
        "(convert) some file could not be converted.\n");
}

QString versionText()
{
    return QStringLiteral("zemsub " ZEMSUB_VERSION_TEXT "\n");
}

} // namespace zemsub::tool
