#ifndef ZEMSUB_PARSERS_DETAIL_SRT_SRTMAPBUILDER_H
#define ZEMSUB_PARSERS_DETAIL_SRT_SRTMAPBUILDER_H

// ConvertBufToSrtMap of both SubRip parsers. Numbers and time lines are read
// from ranges of the stored lines where the ranges give exactly what the steps
// give, and caption lines go straight into their entry.
// Reference: reference/SrtMapSteps.h (the same map, step by step with copies);
// differential test: tests/parsers/SrtFastLinesTest.cpp, fuzz target srt_map.

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "parsers/detail/Literal.h"
#include "parsers/detail/srt/SrtTraits.h"

namespace zemsub::detail {

template <class S> void trimBothSides(S& s)
{
    s.TrimLeft();
    s.TrimRight();
}

// Cuts `part` just behind the separator found at pos (the whole part stays when
// there was none) and answers the number written before it.
template <class T> int takeField(typename T::String& part, const typename T::String& separator)
{
    const int pos = part.find(separator, 0);
    const int value = T::toInt(part.substr(0, pos));
    part = part.substr(pos + 1, -1);
    return value;
}

// "hh:mm:ss,mmm" to milliseconds, summed in 32-bit arithmetic and widened with
// sign. Only the first three characters after the comma count.
template <class T> long long readSrtTime(typename T::String part)
{
    using String = typename T::String;
    const String colon(ZEMSUB_LIT(typename T::Char, ":"));
    const String comma(ZEMSUB_LIT(typename T::Char, ","));
    const int hours = takeField<T>(part, colon);
    const int minutes = takeField<T>(part, colon);
    const int seconds = takeField<T>(part, comma);
    const int millis = T::toInt(part.substr(0, 3));
    const std::uint32_t sum = std::uint32_t(hours) * 3600000u + std::uint32_t(minutes) * 60000u +
                              std::uint32_t(seconds) * 1000u + std::uint32_t(millis);
    return static_cast<long long>(static_cast<std::int32_t>(sum));
}

// The steps above over ranges of a stored line, for the common shape where
// they need no copies; each answers false when its range is not of that shape.

// The first c in [b, e), or null. The ranges are a few characters long, too
// short for a library search to pay for its call.
template <class C> const C* findInShortRange(const C* b, const C* e, C c)
{
    for (; b != e; ++b) {
        if (*b == c)
            return b;
    }
    return nullptr;
}

// clearSpaces: the leading spaces go, then the first space after them, which
// keeps the range whole only when it is the last character.
template <class C> bool clearSpacesInRange(const C*& b, const C*& e)
{
    while (b != e && *b == C(' '))
        ++b;
    const C* space = findInShortRange(b, e, C(' '));
    if (!space)
        return true;
    if (space + 1 != e)
        return false;
    --e;
    return true;
}

// atoi (or __wtoi, which converts first) of a field that is one to nine
// decimal digits and nothing else.
template <class C> bool digitsInRange(const C* b, const C* e, int& value)
{
    if (b == e || e - b > 9)
        return false;
    int v = 0;
    for (const C* p = b; p != e; ++p) {
        if (*p < C('0') || *p > C('9'))
            return false;
        v = v * 10 + static_cast<int>(*p - C('0'));
    }
    value = v;
    return true;
}

// readSrtTime.
template <class C> bool srtTimeInRange(const C* b, const C* e, long long& ms)
{
    static const C separators[3] = {C(':'), C(':'), C(',')};
    int field[4];
    for (int k = 0; k < 3; ++k) {
        const C* sep = findInShortRange(b, e, separators[k]);
        // Without the separator the whole part is the field and stays the part.
        if (!digitsInRange(b, sep ? sep : e, field[k]))
            return false;
        if (sep)
            b = sep + 1;
    }
    if (!digitsInRange(b, e - b > 3 ? b + 3 : e, field[3]))
        return false;
    const std::uint32_t sum = std::uint32_t(field[0]) * 3600000u + std::uint32_t(field[1]) * 60000u +
                              std::uint32_t(field[2]) * 1000u + std::uint32_t(field[3]);
    ms = static_cast<long long>(static_cast<std::int32_t>(sum));
    return true;
}

// The start and end times of a time line (arrow at arrowPos), as buildSrtMap
// reads them.
template <class T>
bool srtTimesInLine(const typename T::String& line, int arrowPos, long long& start, long long& end)
{
    using C = typename T::Char;
    const int rightStart = T::endTimeStart(arrowPos);
    if (rightStart > line.length())
        return false;
    const C* leftBegin = line.getData();
    const C* leftEnd = leftBegin + arrowPos;
    const C* rightBegin = line.getData() + rightStart;
    const C* rightEnd = line.getData() + line.length();
    return clearSpacesInRange(leftBegin, leftEnd) && clearSpacesInRange(rightBegin, rightEnd) &&
           srtTimeInRange(leftBegin, leftEnd, start) && srtTimeInRange(rightBegin, rightEnd, end);
}

// One step of a caption scan: trims the line in place and answers whether the
// scan stops there (a number, a time line or an empty line).
template <class T> bool captionScanStops(typename T::String& line, const typename T::String& arrow)
{
    trimBothSides(line);
    return line.isNumeric() || line.find(arrow, 0) > 0 || line.isEmpty();
}

// Builds the entry map from the line list. Lines are trimmed in place (and the
// trimmed text stays in the list). An all-digit line sets the current key; a
// line with "-->" after its first character sets the current times; any other
// line starts a text scan that takes it and every second line after it until a
// number, a time line or an empty line, and appends "\n" and what it took to
// the entry at the current key.
template <class T>
void buildSrtMap(std::vector<typename T::String>& lines, std::map<int, typename T::Entry>& map)
{
    using String = typename T::String;
    const String arrow(ZEMSUB_LIT(typename T::Char, "-->"));
    const int n = static_cast<int>(lines.size());
    int key = 0;
    long long start = 0;
    long long end = 0;
    typename T::Entry* current = nullptr; // map[currentKey]; nodes stay where they are
    int currentKey = 0;

    // Whether a caption scan stops at line j (a number, a time line or an empty
    // line), trimming it as the scan does. Once a line has no leading blank
    // left, trimming changes it no more, and the answer is kept for the scans
    // that reach it again: a run of caption lines is scanned from each of its lines.
    enum class Stop : std::uint8_t { Unknown, Yes, No };
    std::vector<Stop> stops(lines.size(), Stop::Unknown);
    const auto scanStopsAt = [&](int j) {
        if (stops[j] != Stop::Unknown)
            return stops[j] == Stop::Yes;
        const String& scanned = lines[j];
        const bool stop = captionScanStops<T>(lines[j], arrow);
        if (scanned.isEmpty() || scanned.getData()[0] != typename T::Char(' '))
            stops[j] = stop ? Stop::Yes : Stop::No;
        return stop;
    };

    for (int i = 0; i < n; ++i) {
        String& line = lines[i];
        trimBothSides(line);
        if (line.isNumeric()) {
            if (!digitsInRange(line.getData(), line.getData() + line.length(), key))
                key = T::toInt(line);
            continue;
        }
        const int arrowPos = line.find(arrow, 0);
        if (arrowPos < 1) {
            // The caption lines go straight into the entry's text. The entry is
            // mostly the one of the line before, or a new last one.
            if (!current || currentKey != key) {
                current = &map.try_emplace(map.end(), key)->second;
                currentKey = key;
            }
            typename T::Entry& entry = *current;
            entry.start = start;
            entry.end = end;
            entry.text += ZEMSUB_LIT(typename T::Char, "\n");
            // The scan starts on this line, just trimmed and found to be neither a
            // number nor a time line: once its trimming is settled, only
            // emptiness can stop the scan here.
            if (stops[i] == Stop::Unknown && (line.isEmpty() || line.getData()[0] != typename T::Char(' ')))
                stops[i] = line.isEmpty() ? Stop::Yes : Stop::No;
            for (int j = i; j < n && !scanStopsAt(j); j += 2)
                entry.text += lines[j];
            continue;
        }
        long long fastStart = 0;
        long long fastEnd = 0;
        if (srtTimesInLine<T>(line, arrowPos, fastStart, fastEnd)) {
            start = fastStart;
            end = fastEnd;
            continue;
        }
        String left = line.substr(0, arrowPos);
        String right = line.substr(T::endTimeStart(arrowPos), -1);
        left.clearSpaces();
        right.clearSpaces();
        start = readSrtTime<T>(left);
        end = readSrtTime<T>(right);
    }
}

} // namespace zemsub::detail

#endif
