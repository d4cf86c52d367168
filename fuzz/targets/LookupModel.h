#ifndef ZEMSUB_FUZZ_TARGETS_LOOKUPMODEL_H
#define ZEMSUB_FUZZ_TARGETS_LOOKUPMODEL_H

// The reference look-ups (reference/LookupScans.h) over a copy of a parser's
// entry map. The targets compare every answer of a parser with this model, and
// the parser's map with the model's afterwards.

#include <climits>
#include <cstring>
#include <cwchar>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "FuzzSupport.h"
#include "reference/LookupScans.h"

namespace zemsub::fuzz {

inline std::basic_string<char> cText(const char* p)
{
    return p;
}
inline std::basic_string<wchar_t> cText(const wchar_t* p)
{
    return p;
}

template <class Entry> class LookupModel
{
public:
    using Char = std::remove_cv_t<std::remove_pointer_t<decltype(Entry().text.getData())>>;

    explicit LookupModel(const std::map<int, Entry>& fileMap) : m_map(fileMap) {}

    // How many map nodes the scans may have to walk; the model is only asked
    // when this stays small.
    long long walkBound() const { return reference::scanWalkBound(m_map); }

    const Entry* srtNarrow(long long t) { return reference::scanSrtNarrow(m_map, t); }
    const Entry* srtWide(long long t) { return reference::scanSrtWide(m_map, t); }
    const Entry* script(long long t) { return reference::scanScript(m_map, t); }

    const std::map<int, Entry>& map() const { return m_map; }

private:
    std::map<int, Entry> m_map;
};

// An answer of a parser and the model's entry must agree: both null, or the same
// text up to its terminating zero.
template <class Char, class Entry> void checkSameAnswer(const Char* answer, const Entry* expected)
{
    FUZZ_CHECK((answer == nullptr) == (expected == nullptr));
    if (answer)
        FUZZ_CHECK(cText(answer) == cText(expected->text.getData()));
}

// Remembers every text a parser handed out; verify() reads them all again, so a
// pointer that a later look-up invalidated shows up (under AddressSanitizer) or
// reads different text.
template <class Char> class AnswerLog
{
public:
    void add(const Char* p)
    {
        if (p && m_seen.size() < 64)
            m_seen.emplace_back(p, cText(p));
    }
    void verify() const
    {
        for (const auto& [p, text] : m_seen)
            FUZZ_CHECK(cText(p) == text);
    }

private:
    std::vector<std::pair<const Char*, std::basic_string<Char>>> m_seen;
};

// Entry bounds for lookupTimes().
template <class Entry>
std::vector<std::pair<long long, long long>> entryBounds(const std::map<int, Entry>& map)
{
    std::vector<std::pair<long long, long long>> out;
    for (const auto& [key, e] : map)
        out.emplace_back(e.start, e.end);
    return out;
}

// Two entry maps hold the same keys, times and texts.
template <class Entry> bool sameTimedTexts(const std::map<int, Entry>& a, const std::map<int, Entry>& b)
{
    if (a.size() != b.size())
        return false;
    for (auto i = a.begin(), j = b.begin(); i != a.end(); ++i, ++j) {
        if (i->first != j->first || i->second.start != j->second.start || i->second.end != j->second.end ||
            !(i->second.text == j->second.text))
            return false;
    }
    return true;
}

} // namespace zemsub::fuzz

#endif
