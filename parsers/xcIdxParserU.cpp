#include "parsers/xcIdxParserU.h"

#include "parsers/detail/idx/IdxFields.h"
#include "parsers/detail/lookup/IdxLookup.h"
#include "parsers/detail/idx/IdxMapBuilder.h"
#include "parsers/detail/idx/IdxPacket.h"
#include "parsers/detail/idx/IdxReading.h"
#include "parsers/detail/idx/IdxTraits.h"

namespace {
using Twin = zemsub::detail::IdxWide;
}

xcIdxParserU::xcIdxParserU()
    : m_file(nullptr), m_opened(false), m_customColorSwitch(0),
      m_transparencyMask(0), m_palette{}, m_customColors{}
{
}

xcIdxParserU::~xcIdxParserU() = default;

bool xcIdxParserU::Open(wchar_t* path)
{
    using namespace zemsub::detail;
    m_subPath = idxSubPath<xcWString, wchar_t>(xcWString(path));
    m_lines.clear();
    const bool whole = readIdxFile(
        m_file, Twin::indexFileName(path), Twin::kSizeCheck, m_lines,
        [this](xcWString& line) { return ReadString(line); }, [this] { ConvertBufToIdxMap(); });
    if (whole)
        m_opened = true;
    return whole;
}

bool xcIdxParserU::ReadString(xcWString& line)
{
    return zemsub::detail::readIdxLine<xcWString, wchar_t>(m_file, line);
}

xcWString xcIdxParserU::GetStr(xcWString& line, wchar_t sep)
{
    return zemsub::detail::cutIdxField(line, sep);
}

int xcIdxParserU::GetInt(xcWString& line, wchar_t sep)
{
    return zemsub::detail::readIdxIntField(line, sep);
}

bool xcIdxParserU::ConvertBufToIdxMap()
{
    zemsub::detail::buildIdxMap<Twin>(m_lines, m_map,
                                      {m_customColorSwitch, m_transparencyMask, m_palette, m_customColors});
    return true;
}

long long xcIdxParserU::GetFilePos(int timeMs)
{
    return zemsub::detail::findIdxFilePos(m_map, timeMs, Twin::kLookupTolerance, Twin::kLookupBound);
}

unsigned char* xcIdxParserU::GetPacket(int timeMs, int& packetSize, int& controlOffset)
{
    const long long pos = GetFilePos(timeMs);
    return zemsub::detail::readSubPacket(Twin::packetFileName(m_subPath), pos, packetSize, controlOffset);
}

const std::vector<xcWString>& xcIdxParserU::GetLines() const
{
    return m_lines;
}

const std::map<int, SUB_SESSION_ST_U>& xcIdxParserU::GetMap() const
{
    return m_map;
}

const xcWString& xcIdxParserU::GetSubPath() const
{
    return m_subPath;
}

int xcIdxParserU::GetCustomColorSwitch() const
{
    return m_customColorSwitch;
}

unsigned int xcIdxParserU::GetTransparencyMask() const
{
    return m_transparencyMask;
}

const unsigned int* xcIdxParserU::GetPalette() const
{
    return m_palette;
}

const unsigned int* xcIdxParserU::GetCustomColors() const
{
    return m_customColors;
}
