#ifndef ZEMSUB_PARSERS_DETAIL_ASSLOOKUP_H
#define ZEMSUB_PARSERS_DETAIL_ASSLOOKUP_H

// Which ASS/SSA entry shows at a time.

#include <map>

namespace zemsub::detail {

// The first entry, in key order 1, 2, ..., whose inclusive [start, end] holds
// time, or null. Times at or below 0 and tables of fewer than two entries
// answer null; the entry with the highest key is never examined.
template <class Entry> const Entry* findShowingAssEntry(std::map<int, Entry>& entries, long long time)
{
    if (time <= 0)
        return nullptr;
    const int count = static_cast<int>(entries.size());
    if (count < 2)
        return nullptr;
    for (int key = 1; key < count; ++key) {
        const Entry& entry = entries[key];
        if (entry.start <= time && time <= entry.end)
            return &entry;
    }
    return nullptr;
}

} // namespace zemsub::detail

#endif
