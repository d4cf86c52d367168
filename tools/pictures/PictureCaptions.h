#ifndef ZEMSUB_PICTURES_PICTURECAPTIONS_H
#define ZEMSUB_PICTURES_PICTURECAPTIONS_H

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>
#include <vector>

namespace zemsub::tool {

// One picture as a player shows it: from the moment it is shown to the moment
// it is cleared or replaced.
struct ShownPicture
{
    long long start = 0; // milliseconds
    long long end = 0;   // milliseconds
    QPoint position;     // top left on the video frame
    QImage image;        // the decoder's colours and transparency: Indexed8 with its palette, or ARGB32
                         // where several rectangles are joined
};

struct PictureCaptions
{
    bool read = false; // false: failure says why
    QString failure;
    QString codec;     // FFmpeg's decoder: "dvdsub", "pgssub", "dvbsub"
    QSize frame;       // the track's frame, when it tells one
    std::vector<ShownPicture> pictures; // in time order; empty pictures are left out
};

// Decodes the track-th subtitle stream of bytes (fileName gives the extension
// FFmpeg's probing weighs) with FFmpeg's picture decoders. A picture ends at the
// end its packet gives (a DVD stop command, a block duration), else when the
// next one is shown or the screen is cleared; the last open one ends a few
// seconds after it starts. A track whose pictures hold more than 2^30 pixels is
// refused (damaged data; a film's captions hold a few hundred million at most).
PictureCaptions readPictureCaptions(const QByteArray& bytes, const QString& fileName, int track);

} // namespace zemsub::tool

#endif
