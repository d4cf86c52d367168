#include "parsers/xcIdxParser.h"

#include "parsers/detail/idx/IdxFields.h"
#include "parsers/detail/lookup/IdxLookup.h"
#include "parsers/detail/idx/IdxMapBuilder.h"
#include "parsers/detail/idx/IdxPacket.h"
#include "parsers/detail/idx/IdxReading.h"
#include "parsers/detail/idx/IdxTraits.h"

namespace {
using Twin = zemsub::detail::IdxNarrow;
}

xcIdxParser::xcIdxParser()
    : m_file(nullptr), m_opened(false), m_customColorSwitch(0),
      m_transparencyMask(0), m_palette{}, m_customColors{}
{
}

xcIdxParser::~xcIdxParser() = default;

bool xcIdxParser::Open(const char* path)
{
    using namespace zemsub::detail;
    m_subPath = idxSubPath<xcString, char>(xcString(path));
    m_lines.clear();
    const bool whole = readIdxFile(
        m_file, Twin::indexFileName(path), Twin::kSizeCheck, m_lines,
        [this](xcString& line) { return ReadString(line); }, [this] { ConvertBufToIdxMap(); });
    if (whole)
        m_opened = true;
    return whole;
}

bool xcIdxParser::ReadString(xcString& line)
{
    return zemsub::detail::readIdxLine<xcString, char>(m_file, line);
}

xcString xcIdxParser::GetStr(xcString& line, char sep)
{
    return zemsub::detail::cutIdxField(line, sep);
}

int xcIdxParser::GetInt(xcString& line, char sep)
{
    return zemsub::detail::readIdxIntField(line, sep);
}

bool xcIdxParser::ConvertBufToIdxMap()
{
    zemsub::detail::buildIdxMap<Twin>(m_lines, m_map,
                                      {m_customColorSwitch, m_transparencyMask, m_palette, m_customColors});
    return true;
}

long long xcIdxParser::GetFilePos(long long timeMs)
{
    return zemsub::detail::findIdxFilePos(m_map, timeMs, Twin::kLookupTolerance, Twin::kLookupBound);
}

unsigned char* xcIdxParser::GetPacket(long long timeMs, int& packetSize, int& controlOffset)
{
    const long long pos = GetFilePos(timeMs);
    return zemsub::detail::readSubPacket(Twin::packetFileName(m_subPath), pos, packetSize, controlOffset);
}

const std::vector<xcString>& xcIdxParser::GetLines() const
{
    return m_lines;
}

const std::map<int, SUB_SESSION_ST>& xcIdxParser::GetMap() const
{
    return m_map;
}

const xcString& xcIdxParser::GetSubPath() const
{
    return m_subPath;
}

int xcIdxParser::GetCustomColorSwitch() const
{
    return m_customColorSwitch;
}

unsigned int xcIdxParser::GetTransparencyMask() const
{
    return m_transparencyMask;
}

const unsigned int* xcIdxParser::GetPalette() const
{
    return m_palette;
}

const unsigned int* xcIdxParser::GetCustomColors() const
{
    return m_customColors;
}
