#ifndef ZEMSUB_REFERENCE_SRTMAPSTEPS_H
#define ZEMSUB_REFERENCE_SRTMAPSTEPS_H

// The SubRip entry map built step by step with copies, as the format reads:
// the reference for parsers/detail/srt/SrtMapBuilder.h.
//
// Every line is trimmed in place (TrimLeft, then TrimRight; the trimmed text
// stays in the list). An all-digit line sets the current key; a line with
// "-->" after its first character sets the current times; any other line
// starts a caption scan that trims and takes it and every second line after it
// until a number, a time line or an empty line, and appends "\n" and what it
// took to the entry at the current key.

#include <cstdint>
#include <map>
#include <vector>

#include "parsers/detail/Literal.h"
#include "parsers/detail/srt/SrtTraits.h"

namespace zemsub::reference {

// "hh:mm:ss,mmm" to milliseconds: each field is cut off at its separator (the
// whole rest when the separator is missing, which then stays the rest), only
// the first three characters after the comma count, and the sum is taken in
// 32-bit arithmetic and widened with its sign.
template <class T> long long srtTimeSteps(typename T::String part)
{
    using String = typename T::String;
    using C = typename T::Char;
    int field[3];
    const C* separators[3] = {ZEMSUB_LIT(C, ":"), ZEMSUB_LIT(C, ":"), ZEMSUB_LIT(C, ",")};
    for (int k = 0; k < 3; ++k) {
        const int pos = part.find(String(separators[k]), 0);
        field[k] = T::toInt(part.substr(0, pos));
        part = part.substr(pos + 1, -1);
    }
    const int millis = T::toInt(part.substr(0, 3));
    const std::uint32_t sum = std::uint32_t(field[0]) * 3600000u + std::uint32_t(field[1]) * 60000u +
                              std::uint32_t(field[2]) * 1000u + std::uint32_t(millis);
    return static_cast<long long>(static_cast<std::int32_t>(sum));
}

template <class T>
void buildSrtMapSteps(std::vector<typename T::String>& lines, std::map<int, typename T::Entry>& map)
{
    using String = typename T::String;
    using C = typename T::Char;
    const String arrow(ZEMSUB_LIT(C, "-->"));
    const auto trim = [](String& s) {
        s.TrimLeft();
        s.TrimRight();
    };
    int key = 0;
    long long start = 0;
    long long end = 0;
    for (size_t i = 0; i < lines.size(); ++i) {
        String& line = lines[i];
        trim(line);
        if (line.isNumeric()) {
            key = T::toInt(line);
            continue;
        }
        const int arrowPos = line.find(arrow, 0);
        if (arrowPos < 1) {
            String text;
            for (size_t j = i; j < lines.size(); j += 2) {
                trim(lines[j]);
                if (lines[j].isNumeric() || lines[j].find(arrow, 0) > 0 || lines[j].isEmpty())
                    break;
                text += lines[j];
            }
            typename T::Entry& entry = map[key];
            entry.start = start;
            entry.end = end;
            entry.text += ZEMSUB_LIT(C, "\n");
            entry.text += text;
            continue;
        }
        String left = line.substr(0, arrowPos);
        String right = line.substr(T::endTimeStart(arrowPos), -1);
        left.clearSpaces();
        right.clearSpaces();
        start = srtTimeSteps<T>(left);
        end = srtTimeSteps<T>(right);
    }
}

} // namespace zemsub::reference

#endif
