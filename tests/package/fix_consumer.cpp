// Uses the installed zemsubfix as a player would: fixes a file whose last caption
// the library hides, and checks that the copy shows every caption as written.
#include <cstdio>

#include "ZemsubFix.h"

int main()
{
    const QByteArray text(
        "1\n00:00:01,000 --> 00:00:02,000\nHello\n\n2\n00:00:03,000 --> 00:00:04,000\nBye\n");
    const zemsubfix::FixReport report = zemsubfix::fixBuffer(text, QStringLiteral("consumer.srt"), {});
    if (report.exitCode() != 0 || report.captions.size() != 2) {
        std::fprintf(stderr, "fix_consumer: the copy does not show both captions as written\n");
        return 1;
    }
    std::printf("fix_consumer: ok\n");
    return 0;
}
