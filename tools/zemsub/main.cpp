// zemsub: shows what libzemsubtitle, and so a player built on it, shows for a subtitle file.
#include "zemsub/commands/CommandLine.h"
#include "zemsub/commands/Commands.h"
#include "reading/StreamDecoder.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QtGlobal>

#include <clocale>
#include <cstring>
#include <memory>

using namespace zemsub::tool;

namespace {

// The wide readers decode with the C library under the process locale. Qt's
// application object applies the environment's locale; where that is the plain
// C locale, take C.UTF-8 so that UTF-8 text behind FF FE decodes.
void settleLocale()
{
    std::setlocale(LC_ALL, "");
    const char* current = std::setlocale(LC_CTYPE, nullptr);
    if (!current || std::strcmp(current, "C") == 0 || std::strcmp(current, "POSIX") == 0)
        std::setlocale(LC_ALL, "C.UTF-8");
}

// Qt's offscreen platform warns about a missing runtime directory on every run;
// that says nothing about the subtitle file, so it is left out.
void quietHandler(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set")))
        return;
    std::fputs(qPrintable(qFormatLogMessage(type, context, message) + QLatin1Char('\n')), stderr);
}

// Paint without a display: the offscreen platform when none is configured.
void chooseOffscreenWithoutDisplay()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY") &&
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

// With ZEMSUB_COUNT_FFMPEG set, says on leaving how often FFmpeg opened an input
// and decoded a subtitle packet: each command opens its input once and decodes
// each packet of the track it reads once.
struct FfmpegCountReport
{
    ~FfmpegCountReport()
    {
        if (qEnvironmentVariableIsEmpty("ZEMSUB_COUNT_FFMPEG"))
            return;
        const FfmpegCounts counts = ffmpegCounts();
        std::fprintf(stderr, "zemsub: FFmpeg opened %lld inputs and decoded %lld subtitle packets\n", counts.opens,
                     counts.decodes);
    }
};

} // namespace

int main(int argc, char** argv)
{
    const FfmpegCountReport countReport;
    qInstallMessageHandler(quietHandler);
    // zemsub reads its whole command line itself: Qt sees only the program name, so
    // that options such as --style are not taken as Qt's own.
    int qtArgc = 1;
    char* qtArgv[] = {argv[0], nullptr};
    std::unique_ptr<QCoreApplication> app;
    if (argc > 1 && commandPaints(QString::fromLatin1(argv[1]))) {
        chooseOffscreenWithoutDisplay();
        app = std::make_unique<QGuiApplication>(qtArgc, qtArgv);
    } else {
        app = std::make_unique<QCoreApplication>(qtArgc, qtArgv);
    }
    QCoreApplication::setApplicationName(QStringLiteral("zemsub"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZEMSUB_VERSION_TEXT));
    settleLocale();
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);

    try {
        if (args.isEmpty())
            usageError(QStringLiteral("no command given"));
        const QString name = args.takeFirst();
        if (name == QLatin1String("--help") || name == QLatin1String("-h") || name == QLatin1String("help")) {
            out(generalHelp());
            return ExitSuccess;
        }
        if (name == QLatin1String("--version") || name == QLatin1String("-v")) {
            out(versionText());
            return ExitSuccess;
        }
        const CommandRunner run = findCommand(name);
        if (!run)
            usageError(QStringLiteral("unknown command \"%1\"").arg(name));
        const int code = run(args);
        std::fflush(stdout);
        return code;
    } catch (const ToolError& error) {
        std::fflush(stdout);
        err(QStringLiteral("zemsub: %1\n").arg(error.message));
        return error.code;
    } catch (const std::exception& error) {
        std::fflush(stdout);
        err(QStringLiteral("zemsub: %1\n").arg(QString::fromLocal8Bit(error.what())));
        return ExitCannotRead;
    }
}
