#ifndef ZEMSUB_TOOL_TRACKPICTURES_H
#define ZEMSUB_TOOL_TRACKPICTURES_H

#include "pictures/SubpictureDecoder.h"
#include "pictures/PictureCaptions.h"

#include <QSize>
#include <QString>
#include <optional>
#include <vector>

namespace zemsub::tool {

class TrackPictures;

// What opening a file's picture track gives.
struct OpenedPictures;

// The pictures of a picture track (a Blu-ray .sup, a DVD or Blu-ray track of a
// video file, a VobSub pair through FFmpeg), as FFmpeg's decoders hand them to a
// player: its palette, its transparency, its times.
class TrackPictures
{
public:
    // The picture track of the file: track when it names one (>= 0), else the
    // one players take among its picture tracks (the default-flagged one, then
    // the first). No pictures and no failure when no track is named and
    // FFmpeg reads no picture track in the file; a failure when the named track is
    // missing or no picture track, or its pictures cannot be decoded.
    static OpenedPictures open(const QString& path, int track);

    int track() const { return m_track; }
    const QString& codec() const { return m_pictures.codec; }
    // The track's language as tagged; empty when untagged.
    const QString& language() const { return m_language; }
    // The frame the positions refer to: as large as the pictures reach, at least
    // 720x480; 1920x1080 at least for Blu-ray.
    QSize frameSize() const { return m_frame; }
    const std::vector<ShownPicture>& pictures() const { return m_pictures.pictures; }

    // The picture shown at ms (from its start, up to its end); "none (why)" when none.
    DecodedSubpicture at(long long ms) const;
    // A picture as the index pictures are described and drawn.
    static DecodedSubpicture asSubpicture(const ShownPicture& picture);

private:
    TrackPictures() = default;

    int m_track = -1;
    QString m_language;
    PictureCaptions m_pictures;
    QSize m_frame;
};

struct OpenedPictures
{
    std::optional<TrackPictures> pictures;
    QString failure; // why the file's track cannot be shown, to be said of the file; empty otherwise
};

} // namespace zemsub::tool

#endif
