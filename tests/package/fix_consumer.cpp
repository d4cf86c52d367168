// Uses the installed zemsubfix as a player would: fixes a file whose last caption
// the library hides, and checks that the copy shows every caption as written.
#include <cstdio>

#include <QFile>
#include <QTemporaryDir>

#include "ZemsubConvert.h"
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
    if (report.track != 0) {
        std::fprintf(stderr, "fix_consumer: the report does not name the file's one track\n");
        return 1;
    }
    // The track listing is exported too.
    QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("consumer.srt")));
    if (!dir.isValid() || !file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
        std::fprintf(stderr, "fix_consumer: cannot write a file to list\n");
        return 1;
    }
    file.close();
    QString error;
    const std::vector<zemsubfix::TrackInfo> tracks = zemsubfix::listTracks(file.fileName(), &error);
    if (tracks.size() != 1 || tracks[0].codec != QLatin1String("subrip") || tracks[0].captions != 2) {
        std::fprintf(stderr, "fix_consumer: the listing does not give the file's one track: %s\n",
                     qPrintable(error));
        return 1;
    }
    // So are plain copies for any player.
    const zemsubfix::PlainReport plain =
        zemsubfix::convertBuffer(text, QStringLiteral("consumer.srt"), zemsubfix::PlainFormat::WebVtt, {});
    if (plain.exitCode() != 0 || plain.captions.size() != 2 || !plain.copy.startsWith("WEBVTT\n")) {
        std::fprintf(stderr, "fix_consumer: the plain copy does not hold both captions\n");
        return 1;
    }
    std::printf("fix_consumer: ok\n");
    return 0;
}
