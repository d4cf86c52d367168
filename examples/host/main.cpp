// zemsub-host: an example player for libzemsubtitle.
#include "HostOptions.h"
#include "PlayerLoop.h"
#include "SubtitleFixer.h"
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
    // Fixed before open: the copy shows every caption the way a modern player shows the file.
    SubtitleFixer fixer(options.fixLibrary);
    if (options.fix) {
        if (!fixer.load()) {
            std::fprintf(stderr, "zemsub-host: %s\n", qPrintable(fixer.errorString()));
            return 1;
        }
        const QString copy = fixer.fix(options.subtitle);
        if (copy.isEmpty()) {
            std::fprintf(stderr, "zemsub-host: %s\n", qPrintable(fixer.errorString()));
            return 1;
        }
        int asWritten = 0;
        for (const zemsubfix::CaptionOutcome& caption : fixer.report().captions)
            asWritten += caption.asWritten() ? 1 : 0;
        std::printf("fixed %s: %d of %d captions as written\n", qPrintable(options.subtitle), asWritten,
                    int(fixer.report().captions.size()));
        options.subtitle = copy;
    }
    PlayerLoop player(options, library);
    if (!player.open()) {
        std::fprintf(stderr, "zemsub-host: %s: the library does not open it\n", qPrintable(options.subtitle));
        return 1;
    }
    player.start();
    return app.exec();
}
