#ifndef ZEMSUB_TESTS_TEXTPICTURES_H
#define ZEMSUB_TESTS_TEXTPICTURES_H

#include "support/TestFiles.h"

#include <QImage>
#include <QString>
#include <string>
#include <vector>

// A caption drawn as DVD subtitles draw text: a fill inside an outline on a
// transparent ground, in four colours without smoothing.
struct TextPicture
{
    long long start = 0;
    long long duration = 0;
    QString text; // lines separated by "\n"
    QString family = QStringLiteral("DejaVu Sans");
    int pixelSize = 30;
    bool italic = false;
    int outline = 2;
};

// The caption as an ARGB32 picture: white fill, black outline, transparent ground.
QImage drawTextPicture(const TextPicture& picture);

// The end a DVD player gives a caption of this duration: the stop command
// counts in units of 1024/90 ms.
long long dvdEnd(long long start, long long duration);

// A VobSub pair of the captions, written by tools/make-sample-sub.py into dir as
// movie.idx and movie.sub, then muxed by ffmpeg into dir/pictures.mkv (track 0
// the pictures, track 1 an English SubRip track). Empty, with the reason in
// *error, when not made.
std::string makeTextPictureTrack(const TempDir& dir, const std::vector<TextPicture>& captions, QString* error);

#endif
