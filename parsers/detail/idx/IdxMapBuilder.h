#ifndef ZEMSUB_PARSERS_DETAIL_IDX_IDXMAPBUILDER_H
#define ZEMSUB_PARSERS_DETAIL_IDX_IDXMAPBUILDER_H

// From the line list of an index file to its entry map and colour settings
// (ConvertBufToIdxMap), for either twin (see IdxTraits.h).

#include <cstdint>
#include <map>
#include <vector>

#include "parsers/detail/idx/IdxFields.h"
#include "parsers/detail/idx/IdxText.h"

namespace zemsub::detail {

// The colour settings of an index, as the parser holds them.
struct IdxColours
{
    int& customColorSwitch;
    unsigned int& transparencyMask;
    unsigned int* palette;      // 16 entries
    unsigned int* customColors; // 4 entries
};

// "tridx" digits as bits: bit 0 = bit 12, bit 1 = bit 8, bit 2 = bit 4, bit 3 = bit 0.
inline unsigned int tridxToMask(unsigned int digits)
{
    return ((digits >> 12) & 1u) | (((digits >> 8) & 1u) << 1) | (((digits >> 4) & 1u) << 2) |
           ((digits & 1u) << 3);
}

// h:m:s:ms in signed 32-bit arithmetic (wrapping), widened with sign.
inline long long idxTimeMs(int hours, int minutes, int seconds, int millis)
{
    const uint32_t sum = static_cast<uint32_t>(hours) * 3600000u + static_cast<uint32_t>(minutes) * 60000u +
                         static_cast<uint32_t>(seconds) * 1000u + static_cast<uint32_t>(millis);
    return static_cast<int32_t>(sum);
}

// The position of marker in value plus skip: where the value behind it is read
// (from skip - 1 when the marker is missing).
template <class S> int idxValueAt(const S& value, const S& marker, int skip)
{
    return value.find(marker, 0) + skip;
}

template <class Twin> void readIdxPalette(const typename Twin::String& value, unsigned int* palette)
{
    using C = typename Twin::Char;
    unsigned int* p = palette;
    scanText(value.getData(), ZEMSUB_LIT(C, "%x,%x,%x,%x,%x,%x,%x,%x,%x,%x,%x,%x,%x,%x,%x,%x"), &p[0],
             &p[1], &p[2], &p[3], &p[4], &p[5], &p[6], &p[7], &p[8], &p[9], &p[10], &p[11], &p[12], &p[13],
             &p[14], &p[15]);
}

template <class Twin> void readIdxCustomColours(const typename Twin::String& value, IdxColours& colours)
{
    using C = typename Twin::Char;
    using S = typename Twin::String;

    // The switch: the first word, "ON..." or "1..." on, "OFF..." or "0..." off,
    // anything else leaves it as it is.
    std::vector<C> word(static_cast<size_t>(value.length()) + 1, C(0));
    scanText(value.getData(), Twin::kWordFormat, word.data());
    if (beginsWith(word.data(), ZEMSUB_LIT(C, "ON"), 2) ||
        beginsWith(word.data(), ZEMSUB_LIT(C, "1"), 1))
        colours.customColorSwitch = 1;
    else if (beginsWith(word.data(), ZEMSUB_LIT(C, "OFF"), 3) ||
             beginsWith(word.data(), ZEMSUB_LIT(C, "0"), 1))
        colours.customColorSwitch = 0;

    const int tridxAt = idxValueAt(value, S(ZEMSUB_LIT(C, "tridx:")), Twin::kTridxSkip);
    scanText(tailFrom(value, tridxAt).getData(), ZEMSUB_LIT(C, "%x"), &colours.transparencyMask);
    colours.transparencyMask = tridxToMask(colours.transparencyMask);

    const int colorsAt = idxValueAt(value, S(ZEMSUB_LIT(C, "colors:")), Twin::kColorsSkip);
    unsigned int* c = colours.customColors;
    scanText(tailFrom(value, colorsAt).getData(), ZEMSUB_LIT(C, "%x,%x,%x,%x"), &c[0], &c[1], &c[2],
             &c[3]);
}

template <class Twin> void readIdxTimestamp(const typename Twin::String& value, typename Twin::Entry& entry)
{
    using C = typename Twin::Char;
    using S = typename Twin::String;

    int hours = 0, minutes = 0, seconds = 0, millis = 0;
    scanText(value.getData(), ZEMSUB_LIT(C, "%d:%d:%d:%d"), &hours, &minutes, &seconds, &millis);
    entry.time = idxTimeMs(hours, minutes, seconds, millis);

    const int posAt = idxValueAt(value, S(ZEMSUB_LIT(C, "filepos:")), Twin::kFilePosSkip);
    unsigned long long filePos = static_cast<unsigned long long>(Twin::filePosBeforeRead(entry));
    scanText(tailFrom(value, posAt).getData(), ZEMSUB_LIT(C, "%llx"), &filePos);
    entry.filePos = static_cast<long long>(filePos);
}

// Reads every ‹key: value› line. Empty lines and ";" lines are passed over.
// Keys are compared lower-cased; "size", "org", "scale", "alpha", "smooth",
// "fadein/out", "align", "time offset", "forced subs" and "langidx" are
// recognised and store nothing, and so does every other key.
template <class Twin>
void buildIdxMap(const std::vector<typename Twin::String>& lines, std::map<int, typename Twin::Entry>& map,
                 IdxColours colours)
{
    using C = typename Twin::Char;
    using S = typename Twin::String;

    int timestamps = 0;
    for (size_t i = 0; i < lines.size(); ++i) {
        S value = lines[i];
        value.TrimLeft();
        value.TrimRight();
        if (value.isEmpty() || value.getChar(0) == C(';'))
            continue;
        S key = cutIdxField(value, C(':'));
        key.MakeLower();

        if (key == ZEMSUB_LIT(C, "palette")) {
            readIdxPalette<Twin>(value, colours.palette);
        } else if (key == ZEMSUB_LIT(C, "custom colors")) {
            readIdxCustomColours<Twin>(value, colours);
        } else if (key == ZEMSUB_LIT(C, "timestamp")) {
            const int mapKey = Twin::kKeyByLinePosition ? static_cast<int>(i) : timestamps;
            ++timestamps;
            readIdxTimestamp<Twin>(value, map[mapKey]);
        }
    }
}

} // namespace zemsub::detail

#endif
