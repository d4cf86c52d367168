#ifndef ZEMSUB_XCASSPARSERU_H
#define ZEMSUB_XCASSPARSERU_H

#include <cstdio>
#include <map>
#include <memory>
#include <vector>

namespace zemsub::detail {
class AssLookupIndex;
}

#include "parsers/IParser.h"
#include "strings/xcWString.h"

struct ASS_SESSION_ST_U
{
    int layer = 0;
    long long start = 0;
    long long end = 0;
    xcWString text, style, name, effect;
};

struct ASS_STYLE_ST_U
{
    int marginL = 0, marginVCopy = 0, marginR = 0, marginV = 0;
    unsigned int colour[4] = {0, 0, 0, 0};
    unsigned char alpha[4] = {0, 0, 0, 0};
    xcWString fontName;
    int encoding = 0, alignment = 0, borderStyle = 0;
    double fontSize = 0, scaleX = 0, scaleY = 0, spacing = 0, angle = 0, outline = 0, shadow = 0;
    bool bold = false, italic = false;
};

// ASS/SSA parser for scripts that begin with FF FE (format code 5).
// GetStr throws the int 1 when a field is asked of an empty remainder; nothing
// in the library catches it, so it leaves Open with the table half built.
class ZEMSUB_EXPORT xcAssParserU : public IParser
{
public:
    xcAssParserU();
    ~xcAssParserU() override;

    bool Open(const char* path) override;
    bool IsOpen() const override;
    const char* GetSubTitle(long long time) override;         // always null
    const wchar_t* GetSubTitleU(long long time) override;

    // One line; false (and nothing kept) for a last line without a line feed.
    bool ReadString(xcWString& line);
    // Cuts the first field off line at sep, as xcAssParser::GetStr, but throws
    // the int 1 where that one answers an empty field (line empty after TrimLeft).
    xcWString GetStr(xcWString& line, wchar_t sep);
    // Field as "%d"; an "&h" value always reads -1; -1 when nothing converts.
    int GetInt(xcWString& line, wchar_t sep);
    // Field as "%f"; -1.0 when nothing converts.
    double GetFloat(xcWString& line, char sep);
    bool ConvertBufToAssMap();
    // As xcAssParser::RemoveSSATags.
    xcWString RemoveSSATags(xcWString text);
    // xcWString::find of c (widened with its sign) from start.
    int FindChar(xcWString text, char c, int start);

    const std::vector<xcWString>& GetLines() const;
    const std::map<int, ASS_SESSION_ST_U>& GetMap() const;
    int GetPlayResX() const;
    int GetPlayResY() const;
    const xcWString& GetCollisions() const;
    const ASS_STYLE_ST_U& GetStyle() const;

private:
    FILE* m_file;
    std::vector<xcWString> m_lines;
    std::map<int, ASS_SESSION_ST_U> m_map;
    bool m_opened;
    // Never used: kept so that the exported class keeps its released size and
    // layout (tests/parsers/ClassLayoutTest.cpp).
    xcWString m_spare;
    xcWString m_collisions;
    int m_playResX;
    int m_playResY;
    ASS_STYLE_ST_U m_style;
    std::unique_ptr<zemsub::detail::AssLookupIndex> m_index;  // answers GetSubTitleU
};

#endif
