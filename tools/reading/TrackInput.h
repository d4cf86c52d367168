#ifndef ZEMSUB_READING_TRACKINPUT_H
#define ZEMSUB_READING_TRACKINPUT_H

#include "DemuxedInput.h"
#include "MediaInput.h"
#include "SubtitleTracks.h"
#include "TrackChoice.h"

#include <QString>
#include <memory>

namespace zemsub::tool {

// Which subtitle track is wanted: by number, else by language, else the one
// players take (among picture tracks alone when only pictures will do).
struct TrackRequest
{
    int track = -1;        // from 0, in file order (--track)
    QString language;      // as tagged (--language)
    bool pictures = false; // only a picture track will do
};

// The one way in: an input opened and demuxed once, its subtitle tracks from
// the header (no packet read), and the track the request takes. The chosen
// track is then read from the same demuxer (readWrittenTrack,
// readPictureCaptions, readPictureText).
struct TrackInput
{
    // How far it came: Unread (FFmpeg cannot read it: tracks.failure), NoTracks
    // (it holds no subtitle track), NotChosen (choice.error), Chosen.
    enum class Step {
        Unread,
        NoTracks,
        NotChosen,
        Chosen,
    };

    Step step = Step::Unread;
    std::unique_ptr<DemuxedInput> demuxed;
    TrackList tracks;
    TrackChoice choice;

    bool chosen() const { return step == Step::Chosen; }
    // The chosen track; only when chosen().
    const SubtitleTrack& track() const { return tracks.tracks[size_t(choice.index)]; }
};

TrackInput openTrack(const MediaInput& media, const TrackRequest& request);

// Why no track was taken, in FFmpeg's words or the choice's; empty when one was.
QString chosenTrackFailure(const TrackInput& input);

} // namespace zemsub::tool

#endif
