#ifndef ZEMSUB_XCSRTPARSERU_H
#define ZEMSUB_XCSRTPARSERU_H

#include <cstdio>
#include <map>
#include <memory>
#include <vector>

namespace zemsub::detail {
template <class Entry>
class ScanIndex;
}

#include "parsers/IParser.h"
#include "strings/xcWString.h"

struct SRC_SESSION_ST_U
{
    long long start = 0;
    long long end = 0;
    xcWString text;
};

// Number reader of the wide parsers: wcstombs under the current locale, then atoi.
ZEMSUB_EXPORT int __wtoi(const wchar_t* s);

// SubRip parser for files that begin with FF FE (format code 4). The two mark
// bytes are skipped; the rest is decoded by the C library under the current
// locale. Unlike the narrow twin, time 0 answers null, keys are tried from 0
// while below the growing map size, and the arrow skip keeps the character behind it.
class ZEMSUB_EXPORT xcSrtParserU : public IParser
{
public:
    xcSrtParserU();
    ~xcSrtParserU() override;

    bool Open(const char* path) override;
    bool IsOpen() const override;
    const char* GetSubTitle(long long timeMs) override;        // always null
    const wchar_t* GetSubTitleU(long long timeMs) override;

    bool ReadString(xcWString& line);
    bool ConvertBufToSrtMap();

    const std::vector<xcWString>& GetLines() const;
    const std::map<int, SRC_SESSION_ST_U>& GetMap() const;

private:
    FILE* m_file;
    std::vector<xcWString> m_lines;
    // Look-ups insert entries for missing keys; the index holds them as a range
    // and puts them into the map when the map is asked for.
    mutable std::map<int, SRC_SESSION_ST_U> m_map;
    bool m_opened;
    std::unique_ptr<zemsub::detail::ScanIndex<SRC_SESSION_ST_U>> m_index;
};

#endif
