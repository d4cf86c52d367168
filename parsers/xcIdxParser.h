#ifndef ZEMSUB_XCIDXPARSER_H
#define ZEMSUB_XCIDXPARSER_H

#include <cstdio>
#include <map>
#include <vector>

#include "strings/xcString.h"
#include "zemsubtitle_export.h"

// One "timestamp" line of a VobSub index.
struct SUB_SESSION_ST
{
    long long time = 0;
    long long filePos = 0;
};

// VobSub index (.idx) parser. Not reachable through the subtitle manager.
// Entries are keyed by the line position of their "timestamp" line; the map is
// never emptied by a later Open. The .sub path is the text from the FIRST "."
// of the whole path, followed by "sub".
class ZEMSUB_EXPORT xcIdxParser
{
public:
    xcIdxParser();
    virtual ~xcIdxParser();

    // Reads at most 5000 lines; a last line without a line feed is lost.
    bool Open(const char* path);
    bool ReadString(xcString& line);
    // Throws the int 1 when the line is empty and has no separator.
    xcString GetStr(xcString& line, char sep);
    int GetInt(xcString& line, char sep);
    // Empty and ";" lines are passed over; always true.
    bool ConvertBufToIdxMap();
    // filePos of the first entry within 499 ms of timeMs, or 0.
    long long GetFilePos(long long timeMs);
    // The subtitle packet due at timeMs, read from the .sub file (closed again
    // before the answer); free with delete[]. Null when a sector check fails.
    unsigned char* GetPacket(long long timeMs, int& packetSize, int& controlOffset);

    const std::vector<xcString>& GetLines() const;
    const std::map<int, SUB_SESSION_ST>& GetMap() const;
    const xcString& GetSubPath() const;
    int GetCustomColorSwitch() const;
    unsigned int GetTransparencyMask() const;
    const unsigned int* GetPalette() const;       // 16 entries
    const unsigned int* GetCustomColors() const;  // 4 entries

private:
    FILE* m_file;
    std::vector<xcString> m_lines;
    std::map<int, SUB_SESSION_ST> m_map;
    bool m_opened;
    xcString m_subPath;
    int m_customColorSwitch;
    unsigned int m_transparencyMask;
    unsigned int m_palette[16];
    unsigned int m_customColors[4];
    // Never used: kept so that the exported class keeps its released size and
    // layout (tests/parsers/ClassLayoutTest.cpp).
    xcString m_spare1;
    xcString m_spare2;
};

#endif
