#ifndef ZEMSUB_PARSERS_DETAIL_LOOKUP_ASSLOOKUP_H
#define ZEMSUB_PARSERS_DETAIL_LOOKUP_ASSLOOKUP_H

// Which ASS/SSA entry shows at a time.
// Reference: scanScript in reference/LookupScans.h; differential tests:
// tests/parsers/AssLookupIndexTest.cpp and the fuzz targets ass_parser, ass_parser_u.

#include <map>
#include <vector>

#include "parsers/detail/lookup/CoverIndex.h"

namespace zemsub::detail {

// The first entry, in key order 1, 2, ..., count - 1, whose inclusive
// [start, end] holds the time, or null: times at or below 0 and tables of
// fewer than two entries answer null, and the entry with the highest key is
// never examined. Keys run 1..count without gaps, so the key-by-key scan this
// answers for inserts nothing. Built on the first look-up after the table changed.
class AssLookupIndex
{
public:
    void invalidate() { m_built = false; }

    template <class Entry>
    const Entry* find(std::map<int, Entry>& entries, long long time)
    {
        if (time <= 0)
            return nullptr;
        if (!m_built)
            build(entries);
        if (m_count < 2)
            return nullptr;
        const auto key = m_cover.firstCovering(time);
        return key ? &entries.find(*key)->second : nullptr;
    }

private:
    template <class Entry>
    void build(const std::map<int, Entry>& entries)
    {
        m_count = static_cast<int>(entries.size());
        std::vector<CoverIndex::Interval> intervals;
        for (const auto& [key, entry] : entries)
            if (key >= 1 && key < m_count)
                intervals.push_back({key, entry.start, entry.end});
        m_cover.build(intervals);
        m_built = true;
    }

    bool m_built = false;
    int m_count = 0;
    CoverIndex m_cover;
};

} // namespace zemsub::detail

#endif
