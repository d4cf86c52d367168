// zemsub-host: an example player for libzemsubtitle.
#include "HostOptions.h"
#include "PlayerLoop.h"
#include "SubtitleLibrary.h"

#include <QGuiApplication>
#include <QtGlobal>

#include <clocale>
#include <cstdio>
#include <cstring>

int main(int argc, char** argv)
{
    // Without a display (SSH, CI), draw offscreen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY") &&
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    // The library's wide readers decode with the C library under this locale.
    const char* locale = std::setlocale(LC_CTYPE, nullptr);
    if (!locale || std::strcmp(locale, "C") == 0)
        std::setlocale(LC_ALL, "C.UTF-8");

    HostOptions options;
    int exitCode = 0;
    if (!parseHostOptions(QCoreApplication::arguments(), options, exitCode))
        return exitCode;

    SubtitleLibrary library(options.library);
    if (!library.load()) {
        std::fprintf(stderr, "zemsub-host: %s\n", qPrintable(library.errorString()));
        return 1;
    }
    PlayerLoop player(options, library);
    if (!player.open()) {
        std::fprintf(stderr, "zemsub-host: %s: the library does not open it\n", qPrintable(options.subtitle));
        return 1;
    }
    player.start();
    return app.exec();
}
