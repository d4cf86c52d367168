#ifndef ZEMSUB_XCSUBTITLEMANAGER_H
#define ZEMSUB_XCSUBTITLEMANAGER_H

#include <map>

#include "zemsubtitle_export.h"

class IParser;
class xcAssParser;
class xcAssParserU;
class xcSrtParser;
class xcSrtParserU;

// Chooses a parser by the first two bytes (FF FE: wide) and the extension after
// the last "." ("srt", "ass", "ssa" in any case) and forwards to it.
// Format codes: 1 SubRip, 2 ASS/SSA, 4 SubRip wide, 5 ASS/SSA wide; 0 none.
class ZEMSUB_EXPORT xcSubtitleManager
{
public:
    xcSubtitleManager();
    virtual ~xcSubtitleManager();

    bool Open(const char* path);
    bool IsOpen();
    const char* GetSubTitle(long long timeMs);
    const wchar_t* GetSubTitleU(long long timeMs);

    int GetFormatCode() const;
    // Whether the last file read far enough began with FF FE: ask GetSubTitleU then.
    bool IsWide() const;

private:
    // Empties the registry and registers the four parsers under their codes.
    void RegisterParsers();
    // The registry's parser for the current format code (inserted if missing).
    IParser* ChosenParser();

    int m_formatCode;
    bool m_reserved;            // never used; kept for the released layout
    bool m_wide;
    IParser* m_reservedParser;  // never used; kept for the released layout
    xcAssParser* m_assParser;
    xcSrtParser* m_srtParser;
    xcAssParserU* m_assParserU;
    xcSrtParserU* m_srtParserU;
    std::map<int, IParser*> m_registry;
};

#endif
