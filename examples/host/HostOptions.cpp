#include "HostOptions.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <cstdio>

bool parseHostOptions(const QStringList& arguments, HostOptions& options, int& exitCode)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Plays a subtitle file over a synthetic video the way a player does: loads libzemsubtitle "
        "at run time, advances a play clock and lays each frame's caption over it."));
    parser.addHelpOption();
    const QCommandLineOption library(QStringLiteral("library"), QStringLiteral("The library file to load."),
                                     QStringLiteral("file"), QStringLiteral(ZEMSUB_HOST_LIBRARY));
    const QCommandLineOption seconds(QStringLiteral("seconds"),
                                     QStringLiteral("How long to play (default 5)."), QStringLiteral("s"),
                                     QStringLiteral("5"));
    const QCommandLineOption start(QStringLiteral("start"),
                                   QStringLiteral("Play clock at the first frame, in ms."),
                                   QStringLiteral("ms"), QStringLiteral("0"));
    const QCommandLineOption fps(QStringLiteral("fps"), QStringLiteral("Frames per second (default 25)."),
                                 QStringLiteral("n"), QStringLiteral("25"));
    const QCommandLineOption size(QStringLiteral("size"), QStringLiteral("Video size (default 640x360)."),
                                  QStringLiteral("WxH"), QStringLiteral("640x360"));
    const QCommandLineOption captureAt(
        QStringLiteral("capture-at"),
        QStringLiteral("Save the first frame with a caption at or after this clock time."),
        QStringLiteral("ms"));
    const QCommandLineOption capture(QStringLiteral("capture"),
                                     QStringLiteral("The PNG file for that frame."), QStringLiteral("file"));
    const QCommandLineOption noWindow(QStringLiteral("no-window"), QStringLiteral("Do not show a window."));
    const QCommandLineOption fix(QStringLiteral("fix"),
                                 QStringLiteral("Fix the file into a temporary copy (zemsubfix) and play that."));
    const QCommandLineOption fixLibrary(QStringLiteral("fix-library"),
                                        QStringLiteral("The zemsubfix library file to load."), QStringLiteral("file"),
                                        QStringLiteral(ZEMSUB_HOST_FIX_LIBRARY));
    parser.addOptions({library, seconds, start, fps, size, captureAt, capture, noWindow, fix, fixLibrary});
    parser.addPositionalArgument(QStringLiteral("subtitle"), QStringLiteral("The subtitle file to play."));

    auto fail = [&](const QString& message) {
        std::fprintf(stderr, "zemsub-host: %s\n", qPrintable(message));
        exitCode = 2;
        return false;
    };
    if (!parser.parse(arguments))
        return fail(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        exitCode = 0;
        return false;
    }
    if (parser.positionalArguments().size() != 1)
        return fail(QStringLiteral("give one subtitle file"));
    options.subtitle = parser.positionalArguments().first();
    options.library = parser.value(library);

    bool ok = false;
    options.seconds = parser.value(seconds).toDouble(&ok);
    if (!ok || options.seconds <= 0)
        return fail(QStringLiteral("--seconds wants a positive number"));
    options.startMs = parser.value(start).toLongLong(&ok);
    if (!ok)
        return fail(QStringLiteral("--start wants milliseconds"));
    options.fps = parser.value(fps).toInt(&ok);
    if (!ok || options.fps < 1 || options.fps > 240)
        return fail(QStringLiteral("--fps wants 1 to 240"));
    const QRegularExpressionMatch match =
        QRegularExpression(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$")).match(parser.value(size));
    if (!match.hasMatch() || match.captured(1).toInt() < 1 || match.captured(2).toInt() < 1)
        return fail(QStringLiteral("--size wants WxH"));
    options.size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
    if (parser.isSet(captureAt)) {
        options.captureAt = parser.value(captureAt).toLongLong(&ok);
        if (!ok || !parser.isSet(capture))
            return fail(QStringLiteral("--capture-at wants milliseconds and --capture a file"));
        options.capture = parser.value(capture);
    }
    options.window = !parser.isSet(noWindow);
    options.fix = parser.isSet(fix);
    options.fixLibrary = parser.value(fixLibrary);
    return true;
}
