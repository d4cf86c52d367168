#ifndef ZEMSUB_PARSERS_DETAIL_LOOKUP_SCANINDEX_H
#define ZEMSUB_PARSERS_DETAIL_LOOKUP_SCANINDEX_H

#include <algorithm>
#include <climits>
#include <map>
#include <vector>

#include "parsers/detail/lookup/CoverIndex.h"

namespace zemsub::detail {

// Answers the SubRip look-ups from an index while keeping the entry map exactly
// as the key-by-key scans with std::map::operator[] leave it.
// Reference: scanSrtNarrow and scanSrtWide in reference/LookupScans.h;
// differential tests: tests/parsers/ScanIndexTest.cpp and the fuzz targets
// srt_parser, srt_parser_u.
//
// The scans insert an empty entry (times 0) for every missing key they pass.
// Those keys always form a run [firstKey, filledHi], so they are held as that
// range and only put into the map when the map is asked for (materialize).
// Keys present when the index was built are "file keys"; everything else in
// the run is a zero entry, which covers time 0 only.
template <class Entry>
class ScanIndex
{
public:
    // Forget everything: the map was emptied.
    void reset()
    {
        m_built = false;
        m_filledHi = LLONG_MIN;
        m_materializedHi = LLONG_MIN;
    }

    // Call before the map is changed by anything but a look-up: the inserted
    // entries become real nodes and the index is rebuilt on the next look-up.
    void invalidate(std::map<int, Entry>& map)
    {
        materialize(map);
        reset();
    }

    // Puts the inserted-entry run into the map. Costs one node per key: a host
    // that asks for the map after huge gaps were scanned pays for them here.
    void materialize(std::map<int, Entry>& map)
    {
        if (!m_built || m_filledHi < m_firstKey)
            return;
        long long k = std::max<long long>(m_firstKey, m_materializedHi + 1);
        auto hint = map.lower_bound(int(k));
        for (; k <= m_filledHi; ++k) {
            if (hint != map.end() && hint->first == k) {
                ++hint;
                continue;
            }
            map.emplace_hint(hint, int(k), Entry());
        }
        m_materializedHi = std::max(m_materializedHi, m_filledHi);
    }

    // Number of entries the map holds, inserted ones included.
    long long size(const std::map<int, Entry>& map) const
    {
        if (!m_built)
            return (long long)map.size();
        return (long long)m_fileKeys.size() + missingUpTo(m_filledHi);
    }

    // The 8-bit scan: keys 1 to size - 1 as the size was on entry.
    const Entry* findFromOneBelowSize(std::map<int, Entry>& map, long long t)
    {
        if (t < 0)
            return nullptr;
        ensureBuilt(map, 1);
        const long long count = size(map);
        if (count < 2)
            return nullptr;
        const long long last = std::min<long long>(count - 1, INT_MAX);
        long long hit = LLONG_MAX;
        if (auto k = m_cover.firstCovering(t))
            hit = *k;
        if (t == 0)
            hit = std::min(hit, m_firstGap);  // an empty entry covers time 0
        if (hit <= last)
            return fillAndTake(map, hit);
        fill(last);
        return nullptr;
    }

    // The wide scan: keys from 0 while below the map's size, read afresh each
    // step, so it runs through the highest key (or, with negative keys in the
    // map, until the key counter is exhausted).
    const Entry* findFromZeroWhileBelowSize(std::map<int, Entry>& map, long long t)
    {
        if (t <= 0)
            return nullptr;
        ensureBuilt(map, 0);
        if (size(map) == 0)
            return nullptr;
        if (auto k = m_cover.firstCovering(t))
            return fillAndTake(map, *k);
        fill(m_hasKeyBelowFirst ? INT_MAX : m_maxFileKey);
        return nullptr;
    }

private:
    void ensureBuilt(const std::map<int, Entry>& map, int firstKey)
    {
        if (m_built)
            return;
        m_built = true;
        m_firstKey = firstKey;
        m_filledHi = LLONG_MIN;
        m_materializedHi = LLONG_MIN;
        m_fileKeys.clear();
        m_fileKeys.reserve(map.size());
        std::vector<CoverIndex::Interval> intervals;
        for (const auto& [key, entry] : map) {
            m_fileKeys.push_back(key);
            if (key >= firstKey)
                intervals.push_back({key, entry.start, entry.end});
        }
        m_cover.build(intervals);
        m_hasKeyBelowFirst = !map.empty() && map.begin()->first < firstKey;
        m_maxFileKey = map.empty() ? LLONG_MIN : map.rbegin()->first;
        m_firstGap = firstKey;
        for (auto it = map.lower_bound(firstKey); it != map.end() && it->first == m_firstGap; ++it)
            ++m_firstGap;
    }

    // Keys in [m_firstKey, hi] that are not file keys.
    long long missingUpTo(long long hi) const
    {
        if (hi < m_firstKey)
            return 0;
        auto lo = std::lower_bound(m_fileKeys.begin(), m_fileKeys.end(), m_firstKey);
        auto up = std::upper_bound(m_fileKeys.begin(), m_fileKeys.end(), hi);
        return (hi - m_firstKey + 1) - (long long)(up - lo);
    }

    void fill(long long hi) { m_filledHi = std::max(m_filledHi, hi); }

    const Entry* fillAndTake(std::map<int, Entry>& map, long long key)
    {
        fill(key);
        // The answer points into the entry's own node: an inserted entry that is
        // answered gets its node now (the map would hold it anyway).
        return &map.try_emplace(int(key)).first->second;
    }

    bool m_built = false;
    int m_firstKey = 0;
    long long m_filledHi = LLONG_MIN;        // inserted run is [m_firstKey, m_filledHi]
    long long m_materializedHi = LLONG_MIN;  // how much of the run is in the map already
    std::vector<int> m_fileKeys;             // sorted keys present at build time
    long long m_firstGap = 0;                // smallest key >= m_firstKey that is not a file key
    long long m_maxFileKey = LLONG_MIN;
    bool m_hasKeyBelowFirst = false;
    CoverIndex m_cover;                      // file entries with keys >= m_firstKey
};

}  // namespace zemsub::detail

#endif
