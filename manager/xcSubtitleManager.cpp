#include "manager/xcSubtitleManager.h"

#include <cstdio>
#include <cstring>

#include "ISubTitle.h"
#include "manager/detail/FormatCodes.h"
#include "parsers/IParser.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "parsers/xcSrtParser.h"
#include "parsers/xcSrtParserU.h"
#include "strings/xcString.h"

namespace {

using namespace zemsub::detail;

// The UTF-16 little-endian byte-order mark; no other mark makes a file wide.
bool isWideMark(const unsigned char bytes[2])
{
    return bytes[0] == 0xFF && bytes[1] == 0xFE;
}

} // namespace

xcSubtitleManager::xcSubtitleManager()
    : m_formatCode(kFormatNone), m_reserved(false), m_wide(false), m_reservedParser(nullptr),
      m_assParser(nullptr), m_srtParser(nullptr), m_assParserU(nullptr), m_srtParserU(nullptr)
{
    m_srtParser = new xcSrtParser();
    m_assParser = new xcAssParser();
    m_srtParserU = new xcSrtParserU();
    m_assParserU = new xcAssParserU();
}

xcSubtitleManager::~xcSubtitleManager()
{
    delete m_srtParser;
    m_srtParser = nullptr;
    delete m_assParser;
    m_assParser = nullptr;
    delete m_srtParserU;
    m_srtParserU = nullptr;
    delete m_assParserU;
    m_assParserU = nullptr;
}

void xcSubtitleManager::RegisterParsers()
{
    m_registry.clear();
    m_registry[kFormatSrt] = m_srtParser;
    m_registry[kFormatAss] = m_assParser;
    m_registry[kFormatSrtWide] = m_srtParserU;
    m_registry[kFormatAssWide] = m_assParserU;
}

IParser* xcSubtitleManager::ChosenParser()
{
    return m_registry[m_formatCode];
}

bool xcSubtitleManager::Open(const char* path)
{
    RegisterParsers();
    m_formatCode = kFormatNone;
    if (!path || path[0] == '\0')
        return false;

    char mode[] = "rb";
    FILE* file = sub_open(path, mode);
    if (!file)
        return false;
    unsigned char mark[2] = {0, 0};
    const size_t read = std::fread(mark, 1, 2, file);
    std::fclose(file);
    if (read < 2)
        return false;
    m_wide = isWideMark(mark);

    const char* dot = std::strrchr(path, '.');
    if (!dot)
        return false;
    const xcString extension(dot + 1);
    if (xcString::isEqualNoCase(extension, "srt"))
        m_formatCode = m_wide ? kFormatSrtWide : kFormatSrt;
    else if (xcString::isEqualNoCase(extension, "ass") || xcString::isEqualNoCase(extension, "ssa"))
        m_formatCode = m_wide ? kFormatAssWide : kFormatAss;
    else
        return false;

    return ChosenParser()->Open(path);
}

bool xcSubtitleManager::IsOpen()
{
    if (m_formatCode == kFormatNone)
        return false;
    return ChosenParser()->IsOpen();
}

const char* xcSubtitleManager::GetSubTitle(long long timeMs)
{
    if (m_formatCode == kFormatNone)
        return nullptr;
    return ChosenParser()->GetSubTitle(timeMs);
}

const wchar_t* xcSubtitleManager::GetSubTitleU(long long timeMs)
{
    if (m_formatCode == kFormatNone)
        return nullptr;
    return ChosenParser()->GetSubTitleU(timeMs);
}

int xcSubtitleManager::GetFormatCode() const
{
    return m_formatCode;
}

bool xcSubtitleManager::IsWide() const
{
    return m_wide;
}
