#ifndef ZEMSUB_PARSERS_DETAIL_SRT_SRTTRAITS_H
#define ZEMSUB_PARSERS_DETAIL_SRT_SRTTRAITS_H

// Everything in which the two SubRip parsers differ, side by side. The shared
// reading and map-building code is written once over these.

#include <cstdlib>
#include <map>

#include "parsers/detail/lookup/ScanIndex.h"
#include "parsers/detail/reading/LineReader.h"
#include "parsers/xcSrtParser.h"
#include "parsers/xcSrtParserU.h"

namespace zemsub::detail {

// A SubRip file of more lines than this fails to open.
constexpr int kSrtLineLimit = 20001;

struct SrtNarrow
{
    using Char = char;
    using String = xcString;
    using Entry = SRC_SESSION_ST;

    // Reading starts at the first byte; the size is taken by seeking to the end.
    static constexpr long kFirstByte = 0;
    static constexpr SizeCheck kSizeCheck = SizeCheck::SeekToEnd;

    // Entry numbers and time fields.
    static int toInt(const String& s) { return std::atoi(s.getData()); }

    // The end time starts four characters behind the arrow's start: the arrow
    // and the character after it (normally a blank) are skipped, so
    // "-->00:00:02,000" loses its first digit.
    static int endTimeStart(int arrowPos) { return arrowPos + 4; }

    // The look-up: the first of keys 1 to size - 1 (size on entry) whose times
    // enclose timeMs, as a key-by-key scan with the map's index operator finds
    // it, inserting an empty entry for every missing key it passes. Key 0 and
    // the highest key are never looked at.
    static const Entry* lookUp(ScanIndex<Entry>& index, std::map<int, Entry>& map, long long timeMs)
    {
        return index.findFromOneBelowSize(map, timeMs);
    }
};

struct SrtWide
{
    using Char = wchar_t;
    using String = xcWString;
    using Entry = SRC_SESSION_ST_U;

    // The two mark bytes are skipped unread, whatever they hold. The stream is
    // not sought before it turns wide, so the size comes from the descriptor.
    static constexpr long kFirstByte = 2;
    static constexpr SizeCheck kSizeCheck = SizeCheck::FromDescriptor;

    static int toInt(const String& s) { return __wtoi(s.getData()); }

    // The end time starts right behind the arrow: the character after it stays.
    static int endTimeStart(int arrowPos) { return arrowPos + 3; }

    // The look-up: keys from 0 upward while below the map's size, read afresh
    // at every step, as a scan with the map's index operator does it: a missing
    // key is inserted as an empty entry and the size grows, so with entries 1
    // to N key 0 is added and every entry is reached. Time 0 and below answer null.
    static const Entry* lookUp(ScanIndex<Entry>& index, std::map<int, Entry>& map, long long timeMs)
    {
        return index.findFromZeroWhileBelowSize(map, timeMs);
    }
};

} // namespace zemsub::detail

#endif
