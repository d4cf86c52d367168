#ifndef ZEMSUB_PICTURES_PICTURECAPTIONS_H
#define ZEMSUB_PICTURES_PICTURECAPTIONS_H

#include "DisplayRule.h"
#include "reading/DemuxedInput.h"

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>
#include <vector>

struct AVSubtitleRect;

namespace zemsub::tool {

// One picture as a player shows it: from the moment its display is shown to
// the moment it is cleared or replaced.
struct ShownPicture
{
    long long start = 0; // milliseconds, on the player's clock
    long long end = 0;   // milliseconds
    QPoint position;     // top left on the video frame
    QImage image;        // the decoder's colours and transparency: Indexed8 with its palette, or ARGB32
                         // where several rectangles are joined
    int display = 0;     // the display it is part of, from 0: pictures that stand apart in one display
                         // (one at the top, one at the bottom) are pictures of their own with its times
    bool forced = false; // shown even with subtitles off (PGS composition flag, DVD forced command)
    DisplayEnd ended = DisplayEnd::Own;
};

struct PictureCaptions
{
    bool read = false; // false: failure says why
    QString failure;
    QString codec;     // FFmpeg's decoder: "dvdsub", "pgssub", "dvbsub"
    QSize frame;       // the track's frame, when it tells one
    long long origin = 0; // the container's start, taken off every time (milliseconds)
    int decoded = 0;   // subtitles the decoder handed over (displays, repeats and clearings)
    std::vector<ShownPicture> pictures; // in time order, each display's top to bottom; empty ones left out
};

// A decoder's rectangle as a picture: its pixel codes and its palette
// (Indexed8, a colour for each code it uses; codes beyond the palette
// transparent). Null when it cannot be held.
QImage rectPicture(const AVSubtitleRect& rect);

// Decodes the track-th subtitle stream of bytes (fileName gives the extension
// FFmpeg's probing weighs; track < 0: the picture track players take) with FFmpeg's picture
// decoders and shows its displays by displaySpans (DisplayRule.h). A track
// whose pictures hold more than 2^30 pixels is refused (damaged data; a film's
// captions hold a few hundred million at most).
PictureCaptions readPictureCaptions(const QByteArray& bytes, const QString& fileName, int track);
// The same for the track-th subtitle stream (>= 0) of an input already opened,
// whose packets are not read yet (it reads them).
PictureCaptions readPictureCaptions(DemuxedInput& input, int track);

} // namespace zemsub::tool

#endif
