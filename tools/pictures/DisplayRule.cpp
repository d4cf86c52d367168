#include "DisplayRule.h"

#include <algorithm>

namespace zemsub::tool {

QString displayEndText(DisplayEnd end)
{
    switch (end) {
    case DisplayEnd::Own:
        return QStringLiteral("its own end");
    case DisplayEnd::Replaced:
        return QStringLiteral("replaced by the next");
    case DisplayEnd::Cleared:
        return QStringLiteral("cleared");
    case DisplayEnd::StreamEnd:
        return QStringLiteral("the end of the stream");
    case DisplayEnd::VideoEnd:
        return QStringLiteral("the end of the video");
    case DisplayEnd::ReadingTime:
        return QStringLiteral("its reading time");
    }
    return QString();
}

long long readingTimeEnd(long long start, int characters)
{
    return start + std::min(7000LL, 1000LL + 50LL * std::max(0, characters));
}

std::vector<DisplaySpan> displaySpans(const std::vector<DecodedDisplay>& decoded, const TrackEnd& trackEnd)
{
    std::vector<DisplaySpan> spans;
    // The display on screen: where it began, and its own end (-1 none).
    int shown = -1;
    long long shownStart = 0;
    long long shownOwnEnd = -1;
    auto close = [&](long long at, DisplayEnd why) {
        if (shown < 0)
            return;
        if (at > shownStart)
            spans.push_back(DisplaySpan{shown, shownStart, at, why});
        shown = -1;
    };
    for (size_t i = 0; i < decoded.size(); ++i) {
        const DecodedDisplay& next = decoded[i];
        if (shown >= 0 && shownOwnEnd >= 0 && shownOwnEnd <= next.start)
            close(shownOwnEnd, DisplayEnd::Own);
        // A repeat of the display on screen goes on with it, taking its end.
        if (shown >= 0 && !next.empty && next.repeats) {
            shownOwnEnd = next.ownEnd;
            continue;
        }
        close(next.start, next.empty ? DisplayEnd::Cleared : DisplayEnd::Replaced);
        if (next.empty)
            continue;
        shown = int(i);
        shownStart = next.start;
        shownOwnEnd = next.ownEnd;
    }
    if (shown >= 0) {
        if (shownOwnEnd >= 0)
            close(shownOwnEnd, DisplayEnd::Own);
        else if (trackEnd.stream > shownStart)
            close(trackEnd.stream, DisplayEnd::StreamEnd);
        else if (trackEnd.video > shownStart)
            close(trackEnd.video, DisplayEnd::VideoEnd);
        else
            close(readingTimeEnd(shownStart, 0), DisplayEnd::ReadingTime);
    }
    return spans;
}

} // namespace zemsub::tool
