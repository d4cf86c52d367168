#ifndef ZEMSUB_PICTURES_DISPLAYRULE_H
#define ZEMSUB_PICTURES_DISPLAYRULE_H

#include <QString>
#include <vector>

namespace zemsub::tool {

// What a picture decoder hands over for one packet, on the player's clock.
struct DecodedDisplay
{
    long long start = 0;   // milliseconds
    long long ownEnd = -1; // the end the packet gives (DVD stop command, DVB page time-out, block
                           // duration); -1 when it gives none or the format's maximum
    bool empty = false;    // nothing to show: it clears the screen
    bool repeats = false;  // the same pictures at the same places as the decoded display before it
};

// How a display came to its end.
enum class DisplayEnd {
    Own,         // its own end
    Replaced,    // the next display started
    Cleared,     // an empty display cleared it
    StreamEnd,   // never cleared: the container's duration for the stream
    VideoEnd,    // never cleared: the end of the file's video
    ReadingTime, // never cleared, and nothing else tells: as long as its text takes to read
};

// "its own end", "replaced by the next", ...
QString displayEndText(DisplayEnd end);

// One display as a player shows it.
struct DisplaySpan
{
    int first = 0;       // the decoded display it starts with
    long long start = 0;
    long long end = 0;   // for ReadingTime: start until the text is known (readingTimeEnd)
    DisplayEnd ended = DisplayEnd::Own;
};

// Where a last display with no end of its own may end: -1 for what the file
// does not tell.
struct TrackEnd
{
    long long stream = -1; // the container's duration of the subtitle stream
    long long video = -1;  // the end of the file's video
};

// Any own end at or beyond this is no end (a DVD stop at 0xFFFF units of
// 1024/90 ms, as converters write when the end is unknown).
constexpr long long kMostOwnDuration = (0xFFFFLL << 10) / 90;

// The displays of a picture stream as a player shows them: one at a time, a new
// one replacing the one on screen; each ends at its own end or when the next
// starts, whichever is first; a display that repeats the one on screen (same
// pictures, no gap) goes on with it; an empty one only clears. The last one,
// if nothing ends it, ends with the stream, else with the video, else after
// its reading time. Displays of no length are left out. decoded is in time order.
std::vector<DisplaySpan> displaySpans(const std::vector<DecodedDisplay>& decoded, const TrackEnd& trackEnd);

// The end of a display that nothing ends, from the characters it shows: one
// second, and 50 ms a character, at most seven seconds.
long long readingTimeEnd(long long start, int characters);

} // namespace zemsub::tool

#endif
