#ifndef ZEMSUB_REFERENCE_LOOKUPSCANS_H
#define ZEMSUB_REFERENCE_LOOKUPSCANS_H

// The caption look-ups written out key by key, with std::map::operator[]
// inserting every key they pass: the reference for
// parsers/detail/lookup/ScanIndex.h (SubRip) and AssLookup.h (ASS/SSA).

#include <climits>
#include <map>

namespace zemsub::reference {

// The 8-bit SubRip scan: keys 1 to size - 1, size taken on entry; a negative
// time answers null.
template <class Entry> const Entry* scanSrtNarrow(std::map<int, Entry>& map, long long t)
{
    if (t < 0)
        return nullptr;
    const long long count = (long long)map.size();
    for (long long k = 1; k <= count - 1; ++k) {
        const Entry& e = map[int(k)];
        if (t < e.start)
            continue;
        if (t <= e.end)
            return &e;
    }
    return nullptr;
}

// The wide SubRip scan: keys from 0 while below the size, read afresh at every
// step; time 0 and below answer null.
template <class Entry> const Entry* scanSrtWide(std::map<int, Entry>& map, long long t)
{
    if (t <= 0)
        return nullptr;
    for (long long k = 0; k < (long long)map.size(); ++k) {
        const Entry& e = map[int(k)];
        if (t < e.start)
            continue;
        if (t <= e.end)
            return &e;
    }
    return nullptr;
}

// The ASS/SSA scan of both twins: keys 1 to size - 1, bounds inclusive; time
// 0 and below answer null.
template <class Entry> const Entry* scanScript(std::map<int, Entry>& map, long long t)
{
    if (t <= 0)
        return nullptr;
    const long long count = (long long)map.size();
    for (long long k = 1; k < count; ++k) {
        const Entry& e = map[int(k)];
        if (e.start <= t && t <= e.end)
            return &e;
    }
    return nullptr;
}

// How many keys the scans may walk: the wide SubRip scan runs up to the highest
// key, and with a negative key (counted in the size, never reached) up to the
// end of the int range.
template <class Entry> long long scanWalkBound(const std::map<int, Entry>& map)
{
    if (map.empty())
        return 0;
    if (map.begin()->first < 0)
        return LLONG_MAX;
    const long long top = map.rbegin()->first;
    return top > (long long)map.size() ? top : (long long)map.size();
}

} // namespace zemsub::reference

#endif
