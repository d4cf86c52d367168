#ifndef ZEMSUB_SAMPLEGEN_PGSWRITER_H
#define ZEMSUB_SAMPLEGEN_PGSWRITER_H

#include "CaptionPictures.h"

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QSize>
#include <vector>

namespace zemsub::samplegen {

// A further picture shown in the same display set.
struct PgsObject
{
    QPoint position;
    QImage image;
};

// One picture of a Blu-ray subtitle stream, shown from start to end.
struct PgsPicture
{
    long long start = 0; // milliseconds
    long long end = 0;   // milliseconds
    QPoint position;     // top left on the frame
    QImage image;        // ARGB32; its colours (with those of the others) are cut to 255 and one transparent
    std::vector<PgsObject> others; // at most one more: a display set has two windows
    bool forced = false; // the composition's forced flag: shown with subtitles off
};

// A .sup file: for each picture a display set (composition, windows, palette,
// objects, end) at its start and a clearing one (a composition without objects)
// at its end, times in 90 kHz ticks. A picture whose end is not after its start
// has no clearing display set: the next one replaces it.
QByteArray writePgs(const std::vector<PgsPicture>& pictures, QSize frame);

// The captions as a Blu-ray disc draws them: smooth, one and a half times the
// DVD size, centred 60 pixels above the bottom of a 1920x1080 frame.
std::vector<PgsPicture> blurayPictures(const std::vector<CaptionText>& captions);
constexpr QSize kBlurayFrame{1920, 1080};

} // namespace zemsub::samplegen

#endif
