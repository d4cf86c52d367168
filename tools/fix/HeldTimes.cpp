#include "HeldTimes.h"

#include "playback/ReaderLimits.h"

#include <algorithm>

namespace zemsubfix {

long long copyTimeLimit(CopyFormat format)
{
    const long long latest = zemsub::tool::readerLatestTime();
    // SubRip writes the last millisecond; a script writes the end itself, rounded to hundredths.
    return format == CopyFormat::SubRip ? latest + 1 : latest / 10 * 10;
}

std::vector<SourceCaption> heldCaptions(std::vector<SourceCaption>& captions, CopyFormat format)
{
    const long long limit = copyTimeLimit(format);
    std::vector<SourceCaption> held = captions;
    for (size_t i = 0; i < captions.size(); ++i) {
        SourceCaption& caption = held[i];
        if (caption.end <= caption.start || (caption.start >= 0 && caption.end <= limit))
            continue;
        captions[i].notDrawn.push_back(zemsub::tool::CauseId::TimeRange);
        caption.start = std::clamp(caption.start, 0LL, limit);
        caption.end = std::clamp(caption.end, 0LL, limit);
    }
    return held;
}

} // namespace zemsubfix
