// Uses the installed headers and library as a player would, and checks a few answers.
#include <cstdio>
#include <cstring>

#include <QGuiApplication>

#include "ISubTitle.h"
#include "manager/xcSubtitleManager.h"
#include "strings/xcString.h"

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);

    const char* path = argc > 1 ? argv[1] : "consumer-sample.srt";
    if (FILE* f = std::fopen(path, "wb")) {
        std::fputs("1\n00:00:01,000 --> 00:00:02,000\nHello\n\n2\n00:00:03,000 --> 00:00:04,000\nBye\n", f);
        std::fclose(f);
    }

    ISubTitle* sub = createSubtitle();
    if (!sub || !sub->open(path)) {
        std::fprintf(stderr, "consumer: cannot open %s through the installed library\n", path);
        return 1;
    }
    SubtitleData* data = sub->getSubtitleData(1500, 0);
    const bool ok = data && data->width == 480 && data->height == 360 && data->x == 0 && data->y == 150;
    sub->destroySubData(data);
    sub->close();
    destroySubtitle(&sub);

    xcString text("abc");
    const bool stringsOk = text.length() == 3 && text.Right(3).isEmpty();
    std::remove(path);
    if (!ok || !stringsOk || sub != nullptr) {
        std::fprintf(stderr, "consumer: unexpected answers from the installed library\n");
        return 1;
    }
    std::printf("consumer: ok\n");
    return 0;
}
