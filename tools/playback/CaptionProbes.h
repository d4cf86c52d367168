#ifndef ZEMSUB_TOOL_CAPTIONPROBES_H
#define ZEMSUB_TOOL_CAPTIONPROBES_H

#include <QString>

#include <functional>
#include <vector>

namespace zemsub::tool {

// The moments at which fix's check and lint ask the library what shows, as a
// player's frames would ask it. One rule for both, so they judge a caption alike.

enum class ProbeKind {
    Start,    // the caption's first millisecond of its own
    Middle,   // halfway through it
    End,      // its last millisecond
    Gap,      // halfway through a time with nothing on screen
    GapStart, // the first millisecond after a caption's end
};

QString probeKindName(ProbeKind kind);

// A time on screen: from its first millisecond up to, not including, end.
struct TimeSpan
{
    long long start = 0;
    long long end = 0;
};

struct ProbeTime
{
    long long time = 0;
    ProbeKind kind = ProbeKind::Middle;
    int caption = -1; // index into the captions planned; -1 in a gap
};

// Every caption with something to draw (end after start) is asked at:
// - its start plus one: the library's spans include their end, so a caption
//   that ends where this one starts holds that millisecond; one past it is the
//   first this caption holds alone. A caption starting at 0 is asked at 0, as
//   nothing ends there and a player's first frame is there.
// - the middle of its span, and its last millisecond (end - 1).
// - only its start, when it lasts less than 3 ms.
// Every gap between the stretches of screen (their union) is asked at its first
// millisecond and at its middle, however short: a frame may land in any gap,
// and an empty answer clears the caption image.
// captions[i] with shows[i] false is not asked. The probes come in time order,
// a caption's before a gap's at the same time.
std::vector<ProbeTime> planProbes(const std::vector<TimeSpan>& captions, const std::vector<bool>& shows,
                                  const std::vector<TimeSpan>& screen);

// What the library answered at a probe, and what the caption image then shows.
struct ProbeAnswer
{
    QString answer; // null: nothing
    QString drawn;  // null: nothing drawn
};

// Asks in the given order and follows the caption image between the answers:
// an equal text after a cleared image is not drawn again.
std::vector<ProbeAnswer> askInOrder(const std::vector<ProbeTime>& probes,
                                    const std::function<QString(long long)>& ask);

// Two captions show the same when their lines match, blanks at either end of a line aside.
bool sameCaption(const QString& drawn, const QString& written);

} // namespace zemsub::tool

#endif
