#ifndef ZEMSUB_PARSERS_DETAIL_LOOKUP_IDXLOOKUP_H
#define ZEMSUB_PARSERS_DETAIL_LOOKUP_IDXLOOKUP_H

// Time to .sub position look-up of the VobSub index twins (GetFilePos).

#include <cstdint>
#include <map>

namespace zemsub::detail {

// When the scan bound (the map's size) is read.
enum class IdxScanBound {
    EachStep, // afresh at each key: keys inserted by the scan extend it
    Once,     // once, before the scan
};

// Whether the low 32 bits of time lie within tolerance of those of timeMs,
// the difference taken in signed 32-bit arithmetic.
inline bool idxTimeMatches(long long time, long long timeMs, int tolerance)
{
    const auto diff = static_cast<int32_t>(static_cast<uint32_t>(time) - static_cast<uint32_t>(timeMs));
    const long long distance = diff < 0 ? -static_cast<long long>(diff) : diff;
    return distance <= tolerance;
}

// filePos of the first key from 0 upward whose time is within tolerance of
// timeMs, or 0. Keys are visited with the index operator, so every missing key
// below the bound is inserted zeroed.
template <class Entry>
long long findIdxFilePos(std::map<int, Entry>& map, long long timeMs, int tolerance, IdxScanBound bound)
{
    if (timeMs <= 0)
        return 0;
    const int sizeAtStart = static_cast<int>(map.size());
    if (sizeAtStart <= 0)
        return 0;
    for (int k = 0; k < (bound == IdxScanBound::EachStep ? static_cast<int>(map.size()) : sizeAtStart); ++k) {
        const Entry& entry = map[k];
        if (idxTimeMatches(entry.time, timeMs, tolerance))
            return entry.filePos;
    }
    return 0;
}

} // namespace zemsub::detail

#endif
