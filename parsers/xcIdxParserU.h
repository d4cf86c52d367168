#ifndef ZEMSUB_XCIDXPARSERU_H
#define ZEMSUB_XCIDXPARSERU_H

#include <cstdio>
#include <map>
#include <vector>

#include "strings/xcWString.h"
#include "zemsubtitle_export.h"

struct SUB_SESSION_ST_U
{
    long long time = 0;
    long long filePos = 0;
};

// Wide twin of xcIdxParser. Its path is handed to sub_open as narrow bytes (so only
// a one-character name opens), entries are keyed by a running count, the look-up
// tolerance is 999 ms, every filePos and the custom colours read nothing, and
// GetPacket opens the empty path.
class ZEMSUB_EXPORT xcIdxParserU
{
public:
    xcIdxParserU();
    virtual ~xcIdxParserU();

    bool Open(wchar_t* path);
    bool ReadString(xcWString& line);
    xcWString GetStr(xcWString& line, wchar_t sep);
    int GetInt(xcWString& line, wchar_t sep);
    bool ConvertBufToIdxMap();
    // filePos of the first entry within 999 ms of timeMs, or 0.
    long long GetFilePos(int timeMs);
    unsigned char* GetPacket(int timeMs, int& packetSize, int& controlOffset);

    const std::vector<xcWString>& GetLines() const;
    const std::map<int, SUB_SESSION_ST_U>& GetMap() const;
    const xcWString& GetSubPath() const;
    int GetCustomColorSwitch() const;
    unsigned int GetTransparencyMask() const;
    const unsigned int* GetPalette() const;
    const unsigned int* GetCustomColors() const;

private:
    FILE* m_file;
    std::vector<xcWString> m_lines;
    std::map<int, SUB_SESSION_ST_U> m_map;
    bool m_opened;
    xcWString m_subPath;
    int m_customColorSwitch;
    unsigned int m_transparencyMask;
    unsigned int m_palette[16];
    unsigned int m_customColors[4];
    // Never used: kept so that the exported class keeps its released size and
    // layout (tests/parsers/ClassLayoutTest.cpp).
    xcWString m_spare1;
    xcWString m_spare2;
};

#endif
