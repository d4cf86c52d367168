#ifndef ZEMSUB_READING_PLAYERCLOCK_H
#define ZEMSUB_READING_PLAYERCLOCK_H

struct AVFormatContext;
struct AVStream;

namespace zemsub::tool {

// Where a player's clock starts, in milliseconds of the container's time: the
// container's start for formats that carry a running clock (MPEG-TS, MPEG-PS)
// and hold a video or sound, as players and ffmpeg show a broadcast capture from
// 0:00; 0 for every other file, whose times are the player's already.
long long playerOrigin(const AVFormatContext* format);

// The end of the stream as the container states it, on the player's clock
// (origin taken off): a stream duration or a DURATION tag (Matroska). -1 when the
// container does not state it (a duration guessed from the bit rate is no statement).
long long statedStreamEnd(const AVFormatContext* format, const AVStream* stream, long long origin);

// The end of the file's video on the player's clock; -1 when it has no video or
// its end is unknown.
long long videoEnd(const AVFormatContext* format, long long origin);

} // namespace zemsub::tool

#endif
