#include "parsers/xcAssParserU.h"

#include <cstdio>

#include "parsers/detail/ass/AssFields.h"
#include "parsers/detail/ass/AssLines.h"
#include "parsers/detail/ass/AssTraits.h"
#include "parsers/detail/ass/AssScript.h"
#include "parsers/detail/ass/SsaTags.h"
#include "parsers/detail/lookup/AssLookup.h"

using zemsub::detail::AssWide;

xcAssParserU::xcAssParserU()
    : m_file(nullptr), m_opened(false), m_playResX(0), m_playResY(0),
      m_index(std::make_unique<zemsub::detail::AssLookupIndex>())
{
}

xcAssParserU::~xcAssParserU() = default;

// The int 1 of GetStr passes through here as it stands: the entries made so far
// stay, the stream stays open and the opened flag is not set.
bool xcAssParserU::Open(const char* path)
{
    m_lines.clear();
    m_map.clear();
    m_index->invalidate();
    if (!zemsub::detail::readAssScript<AssWide>(path, m_lines, m_file))
        return false;
    ConvertBufToAssMap();
    std::fclose(m_file);
    m_file = nullptr;
    m_opened = true;
    return true;
}

bool xcAssParserU::IsOpen() const
{
    return m_opened;
}

const char* xcAssParserU::GetSubTitle(long long)
{
    return nullptr;
}

const wchar_t* xcAssParserU::GetSubTitleU(long long time)
{
    const ASS_SESSION_ST_U* entry = m_index->find(m_map, time);
    return entry ? entry->text.getData() : nullptr;
}

bool xcAssParserU::ReadString(xcWString& line)
{
    return zemsub::detail::readAssLine<AssWide>(m_file, line);
}

xcWString xcAssParserU::GetStr(xcWString& line, wchar_t sep)
{
    return zemsub::detail::cutAssField<AssWide>(line, sep);
}

int xcAssParserU::GetInt(xcWString& line, wchar_t sep)
{
    return zemsub::detail::intFromAssField<AssWide>(GetStr(line, sep));
}

double xcAssParserU::GetFloat(xcWString& line, char sep)
{
    return zemsub::detail::floatFromAssField<AssWide>(GetStr(line, static_cast<wchar_t>(sep)));
}

bool xcAssParserU::ConvertBufToAssMap()
{
    m_index->invalidate();
    auto strip = [this](xcWString text) { return RemoveSSATags(text); };
    return zemsub::detail::buildAssEntries<AssWide>(
        *this, m_lines, {m_map, m_collisions, m_playResX, m_playResY, m_style}, strip);
}

xcWString xcAssParserU::RemoveSSATags(xcWString text)
{
    return zemsub::detail::removeSsaTags(text, xcWString(L"\\N"), xcWString(L"\n"));
}

int xcAssParserU::FindChar(xcWString text, char c, int start)
{
    return AssWide::findChar(text, c, start);
}

const std::vector<xcWString>& xcAssParserU::GetLines() const
{
    return m_lines;
}

const std::map<int, ASS_SESSION_ST_U>& xcAssParserU::GetMap() const
{
    return m_map;
}

int xcAssParserU::GetPlayResX() const
{
    return m_playResX;
}

int xcAssParserU::GetPlayResY() const
{
    return m_playResY;
}

const xcWString& xcAssParserU::GetCollisions() const
{
    return m_collisions;
}

const ASS_STYLE_ST_U& xcAssParserU::GetStyle() const
{
    return m_style;
}
