#ifndef ZEMSUB_READING_TRACKCHOICE_H
#define ZEMSUB_READING_TRACKCHOICE_H

#include "SubtitleTracks.h"

#include <QString>
#include <vector>

namespace zemsub::tool {

// The track taken from a file's subtitle tracks, and why.
struct TrackChoice
{
    bool chosen = false; // false: error says why
    QString error;
    int index = -1; // among the subtitle tracks, from 0
    QString why; // "asked for", "default", "first of its language", "first text track", "first picture track"
};

// The tracks players choose among when none is named.
enum class TrackKinds {
    Any,
    Pictures, // for what shows pictures alone
};

// requested >= 0 takes that track; else a non-empty language takes that
// language's default-flagged track, then its first; else what players take:
// the default-flagged track, then the first text track, then the first
// picture track (among Pictures: the default-flagged picture track, then the
// first). Languages compare without regard to case.
TrackChoice chooseTrack(const std::vector<SubtitleTrack>& tracks, int requested, const QString& language,
                        TrackKinds kinds = TrackKinds::Any);

// "track 1 (fre, default): subrip" with the title in quotes when it has one.
QString describeChoice(const SubtitleTrack& track, const TrackChoice& choice);

} // namespace zemsub::tool

#endif
