#ifndef ZEMSUB_PARSERS_DETAIL_IDX_IDXTRAITS_H
#define ZEMSUB_PARSERS_DETAIL_IDX_IDXTRAITS_H

// Every point where the VobSub index twins differ, side by side. Everything
// else is the shared code of the other Idx*.h headers.

#include "parsers/detail/lookup/IdxLookup.h"
#include "parsers/detail/reading/LineReader.h"
#include "parsers/xcIdxParser.h"
#include "parsers/xcIdxParserU.h"

namespace zemsub::detail {

struct IdxNarrow
{
    using Char = char;
    using String = xcString;
    using Entry = SUB_SESSION_ST;

    // One word into a char buffer.
    static constexpr const char* kWordFormat = "%s";

    // The index file is opened by its path.
    static const char* indexFileName(const char* path) { return path; }
    static constexpr SizeCheck kSizeCheck = SizeCheck::SeekToEnd;

    // A "timestamp" entry is keyed by the position of its line in the line list.
    static constexpr bool kKeyByLinePosition = true;

    // Values are read from behind the whole marker ("tridx:", "colors:", "filepos:").
    static constexpr int kTridxSkip = 6;
    static constexpr int kColorsSkip = 7;
    static constexpr int kFilePosSkip = 8;
    // A position that does not read leaves the entry's filePos as it was.
    static long long filePosBeforeRead(const Entry& entry) { return entry.filePos; }

    // GetFilePos: within 499 ms, bound read at each step.
    static constexpr int kLookupTolerance = 499;
    static constexpr IdxScanBound kLookupBound = IdxScanBound::EachStep;

    // GetPacket reads the .sub path formed by Open.
    static const char* packetFileName(const String& subPath) { return subPath.getData(); }
};

struct IdxWide
{
    using Char = wchar_t;
    using String = xcWString;
    using Entry = SUB_SESSION_ST_U;

    // One word into a wchar_t buffer (a plain "%s" would store multibyte text).
    static constexpr const wchar_t* kWordFormat = L"%ls";

    // The wide path's storage is handed over as narrow bytes: with 32-bit
    // little-endian wchar_t the name ends after the path's first character.
    static const char* indexFileName(const wchar_t* path) { return reinterpret_cast<const char*>(path); }
    // Measured through the descriptor, so the stream is not sought before it turns wide.
    static constexpr SizeCheck kSizeCheck = SizeCheck::FromDescriptor;

    // A "timestamp" entry is keyed by the count of "timestamp" lines before it.
    static constexpr bool kKeyByLinePosition = false;

    // Values are read from behind the marker's name only: the ":" stays in
    // front of the number, so the mask, the colours and the position read nothing.
    static constexpr int kTridxSkip = 5;
    static constexpr int kColorsSkip = 6;
    static constexpr int kFilePosSkip = 7;
    // The position is read into a work value that starts at 0 and is stored either way.
    static long long filePosBeforeRead(const Entry&) { return 0; }

    // GetFilePos: within 999 ms, bound read once.
    static constexpr int kLookupTolerance = 999;
    static constexpr IdxScanBound kLookupBound = IdxScanBound::Once;

    // GetPacket opens the empty name, not the .sub path.
    static const char* packetFileName(const String&) { return ""; }
};

} // namespace zemsub::detail

#endif
