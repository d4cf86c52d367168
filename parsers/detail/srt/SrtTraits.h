#ifndef ZEMSUB_PARSERS_DETAIL_SRT_SRTTRAITS_H
#define ZEMSUB_PARSERS_DETAIL_SRT_SRTTRAITS_H

// Everything in which the two SubRip parsers differ, side by side. The shared
// reading and map-building code is written once over these.

#include <cstdlib>

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

    static const Char* arrow() { return "-->"; }
    static const Char* colon() { return ":"; }
    static const Char* comma() { return ","; }
    static const Char* lineFeed() { return "\n"; }

    // Entry numbers and time fields.
    static int toInt(const String& s) { return std::atoi(s.getData()); }

    // The end time starts four characters behind the arrow's start: the arrow
    // and the character after it (normally a blank) are skipped, so
    // "-->00:00:02,000" loses its first digit.
    static int endTimeStart(int arrowPos) { return arrowPos + 4; }
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

    static const Char* arrow() { return L"-->"; }
    static const Char* colon() { return L":"; }
    static const Char* comma() { return L","; }
    static const Char* lineFeed() { return L"\n"; }

    static int toInt(const String& s) { return __wtoi(s.getData()); }

    // The end time starts right behind the arrow: the character after it stays.
    static int endTimeStart(int arrowPos) { return arrowPos + 3; }
};

} // namespace zemsub::detail

#endif
