#ifndef ZEMSUB_XCSRTPARSER_H
#define ZEMSUB_XCSRTPARSER_H

#include <cstdio>
#include <map>
#include <memory>
#include <vector>

namespace zemsub::detail {
template <class Entry>
class ScanIndex;
}

#include "parsers/IParser.h"
#include "strings/xcString.h"

// One SubRip entry; text holds "\n" + line for every caption line.
struct SRC_SESSION_ST
{
    long long start = 0;
    long long end = 0;
    xcString text;
};

// SubRip (.srt) parser for 8-bit text (format code 1).
// Keys are the entry numbers as written. GetSubTitle looks at keys 1 to
// size - 1 only, so the highest-numbered entry is never answered, and it
// inserts empty entries for missing keys as it goes.
class ZEMSUB_EXPORT xcSrtParser : public IParser
{
public:
    xcSrtParser();
    ~xcSrtParser() override;

    // Reads every non-empty line (at most 20000) and builds the entry map.
    bool Open(const char* path) override;
    bool IsOpen() const override;
    const char* GetSubTitle(long long timeMs) override;
    const wchar_t* GetSubTitleU(long long timeMs) override;   // always null

    // Reads one line in pieces of at most 128 bytes; false at the end of the file.
    bool ReadString(xcString& line);
    // Turns the line list into the entry map; always true.
    bool ConvertBufToSrtMap();

    const std::vector<xcString>& GetLines() const;
    const std::map<int, SRC_SESSION_ST>& GetMap() const;

private:
    FILE* m_file;
    std::vector<xcString> m_lines;
    // Look-ups insert entries for missing keys; the index holds them as a range
    // and puts them into the map when the map is asked for.
    mutable std::map<int, SRC_SESSION_ST> m_map;
    bool m_opened;
    std::unique_ptr<zemsub::detail::ScanIndex<SRC_SESSION_ST>> m_index;
};

#endif
