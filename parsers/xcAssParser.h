#ifndef ZEMSUB_XCASSPARSER_H
#define ZEMSUB_XCASSPARSER_H

#include <cstdio>
#include <map>
#include <memory>
#include <vector>

namespace zemsub::detail {
class AssLookupIndex;
}

#include "parsers/IParser.h"
#include "strings/xcString.h"

// One Dialogue line. text is "\n" + the caption with its tags removed.
struct ASS_SESSION_ST
{
    int layer = 0;
    long long start = 0;
    long long end = 0;
    xcString text, style, name, effect;
};

// The values of the last Style line read.
struct ASS_STYLE_ST
{
    int marginL = 0, marginVCopy = 0, marginR = 0, marginV = 0;
    unsigned int colour[4] = {0, 0, 0, 0};     // primary, secondary, outline (tertiary), back
    unsigned char alpha[4] = {0, 0, 0, 0};     // one per colour
    xcString fontName;
    int encoding = 0, alignment = 0, borderStyle = 0;
    double fontSize = 0, scaleX = 0, scaleY = 0, spacing = 0, angle = 0, outline = 0, shadow = 0;
    bool bold = false, italic = false;
};

// ASS/SSA script parser for 8-bit text (format code 2).
// Entries are keyed 1, 2, 3... in Dialogue order; the look-up never answers the
// last one, and answers null at time 0 and below.
class ZEMSUB_EXPORT xcAssParser : public IParser
{
public:
    xcAssParser();
    ~xcAssParser() override;

    bool Open(const char* path) override;
    bool IsOpen() const override;
    const char* GetSubTitle(long long time) override;
    const wchar_t* GetSubTitleU(long long time) override;     // always null

    // One line; false (and nothing kept) for a last line without a line feed.
    bool ReadString(xcString& line);
    // Cuts the first field off line at sep (the whole line when sep is absent).
    xcString GetStr(xcString& line, char sep);
    // Field as "%d"; an "&h" value always reads -1; -1 when nothing converts.
    int GetInt(xcString& line, char sep);
    // Field as "%f"; -1.0 when nothing converts.
    double GetFloat(xcString& line, char sep);
    bool ConvertBufToAssMap();
    // Removes {...} and <...> blocks, then turns the first "\N" into a line feed.
    // The result keeps the recorded length of the input (see xcString::deleteStr)
    // and the stale characters behind its zero. A pass that comes back to a
    // state it was in ends there. encoding is handed to FindChar and has no effect.
    xcString RemoveSSATags(xcString text, int encoding);
    // First index >= start holding c, or -1; the last argument is ignored.
    int FindChar(xcString text, char c, int start, int unused);

    const std::vector<xcString>& GetLines() const;
    const std::map<int, ASS_SESSION_ST>& GetMap() const;
    int GetPlayResX() const;
    int GetPlayResY() const;
    const xcString& GetCollisions() const;
    const ASS_STYLE_ST& GetStyle() const;

private:
    FILE* m_file;
    std::vector<xcString> m_lines;
    std::map<int, ASS_SESSION_ST> m_map;
    bool m_opened;
    // Never used: kept so that the exported class keeps its released size and
    // layout (tests/parsers/ClassLayoutTest.cpp).
    xcString m_spare;
    xcString m_collisions;
    int m_playResX;
    int m_playResY;
    ASS_STYLE_ST m_style;
    std::unique_ptr<zemsub::detail::AssLookupIndex> m_index;  // answers GetSubTitle
};

#endif
