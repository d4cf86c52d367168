#ifndef ZEMSUB_PARSERS_DETAIL_SRTMAPBUILDER_H
#define ZEMSUB_PARSERS_DETAIL_SRTMAPBUILDER_H

// ConvertBufToSrtMap of both SubRip parsers.

#include <cstdint>
#include <map>
#include <vector>

#include "parsers/detail/SrtTraits.h"

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
    const String colon(T::colon());
    const String comma(T::comma());
    const int hours = takeField<T>(part, colon);
    const int minutes = takeField<T>(part, colon);
    const int seconds = takeField<T>(part, comma);
    const int millis = T::toInt(part.substr(0, 3));
    const std::uint32_t sum = std::uint32_t(hours) * 3600000u + std::uint32_t(minutes) * 60000u +
                              std::uint32_t(seconds) * 1000u + std::uint32_t(millis);
    return static_cast<long long>(static_cast<std::int32_t>(sum));
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
    const String arrow(T::arrow());
    const int n = static_cast<int>(lines.size());
    int key = 0;
    long long start = 0;
    long long end = 0;

    for (int i = 0; i < n; ++i) {
        String text;
        String& line = lines[i];
        trimBothSides(line);
        if (line.isNumeric()) {
            key = T::toInt(line);
            continue;
        }
        const int arrowPos = line.find(arrow, 0);
        if (arrowPos < 1) {
            for (int j = i; j < n; j += 2) {
                String& scanned = lines[j];
                trimBothSides(scanned);
                if (scanned.isNumeric() || scanned.find(arrow, 0) > 0 || scanned.isEmpty())
                    break;
                text += scanned;
            }
            typename T::Entry& entry = map[key];
            entry.start = start;
            entry.end = end;
            entry.text += T::lineFeed();
            entry.text += text;
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
