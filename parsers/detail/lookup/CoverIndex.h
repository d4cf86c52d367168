#ifndef ZEMSUB_PARSERS_DETAIL_LOOKUP_COVERINDEX_H
#define ZEMSUB_PARSERS_DETAIL_LOOKUP_COVERINDEX_H

#include <algorithm>
#include <climits>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace zemsub::detail {

// For a time, the smallest key among the inclusive intervals [start, end] that
// contain it: what a scan over the keys in ascending order finds first.
// Reference and differential tests: those of ScanIndex.h and AssLookup.h.
// Built once in O(n log n); each query is one binary search.
class CoverIndex
{
public:
    struct Interval
    {
        int key;
        long long start;
        long long end;
    };

    void build(const std::vector<Interval>& intervals)
    {
        std::vector<std::pair<long long, int>> events;  // (position, +key opens / ~key closes)
        events.reserve(intervals.size() * 2);
        for (const Interval& iv : intervals) {
            if (iv.start > iv.end)
                continue;
            events.emplace_back(iv.start, iv.key);
            if (iv.end != LLONG_MAX)
                events.emplace_back(iv.end + 1, ~iv.key);
        }
        std::sort(events.begin(), events.end());

        m_bounds.clear();
        m_minKey.clear();
        std::multiset<int> active;
        for (size_t i = 0; i < events.size();) {
            const long long at = events[i].first;
            for (; i < events.size() && events[i].first == at; ++i) {
                const int code = events[i].second;
                if (code >= 0)
                    active.insert(code);
                else
                    active.erase(active.find(~code));
            }
            m_bounds.push_back(at);
            m_minKey.push_back(active.empty() ? std::nullopt : std::optional<int>(*active.begin()));
        }
    }

    std::optional<int> firstCovering(long long t) const
    {
        auto it = std::upper_bound(m_bounds.begin(), m_bounds.end(), t);
        if (it == m_bounds.begin())
            return std::nullopt;
        return m_minKey[size_t(it - m_bounds.begin()) - 1];
    }

private:
    std::vector<long long> m_bounds;           // segment i covers [m_bounds[i], m_bounds[i + 1])
    std::vector<std::optional<int>> m_minKey;  // smallest key covering segment i
};

}  // namespace zemsub::detail

#endif
