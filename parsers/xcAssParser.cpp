#include "parsers/xcAssParser.h"

#include <cstdio>

#include "parsers/detail/ass/AssFields.h"
#include "parsers/detail/ass/AssLines.h"
#include "parsers/detail/ass/AssTraits.h"
#include "parsers/detail/ass/AssScript.h"
#include "parsers/detail/ass/SsaTags.h"
#include "parsers/detail/lookup/AssLookup.h"

using zemsub::detail::AssNarrow;

xcAssParser::xcAssParser()
    : m_file(nullptr), m_opened(false), m_playResX(0), m_playResY(0),
      m_index(std::make_unique<zemsub::detail::AssLookupIndex>())
{
}

xcAssParser::~xcAssParser() = default;

bool xcAssParser::Open(const char* path)
{
    m_lines.clear();
    m_map.clear();
    m_index->invalidate();
    if (!zemsub::detail::readAssScript<AssNarrow>(path, m_lines, m_file))
        return false;
    ConvertBufToAssMap();
    std::fclose(m_file);
    m_file = nullptr;
    m_opened = true;
    return true;
}

bool xcAssParser::IsOpen() const
{
    return m_opened;
}

const char* xcAssParser::GetSubTitle(long long time)
{
    const ASS_SESSION_ST* entry = m_index->find(m_map, time);
    return entry ? entry->text.getData() : nullptr;
}

const wchar_t* xcAssParser::GetSubTitleU(long long)
{
    return nullptr;
}

bool xcAssParser::ReadString(xcString& line)
{
    return zemsub::detail::readAssLine<AssNarrow>(m_file, line);
}

xcString xcAssParser::GetStr(xcString& line, char sep)
{
    return zemsub::detail::cutAssField<AssNarrow>(line, sep);
}

int xcAssParser::GetInt(xcString& line, char sep)
{
    return zemsub::detail::intFromAssField<AssNarrow>(GetStr(line, sep));
}

double xcAssParser::GetFloat(xcString& line, char sep)
{
    return zemsub::detail::floatFromAssField<AssNarrow>(GetStr(line, sep));
}

bool xcAssParser::ConvertBufToAssMap()
{
    m_index->invalidate();
    auto strip = [this](xcString text) { return RemoveSSATags(text, m_style.encoding); };
    return zemsub::detail::buildAssEntries<AssNarrow>(
        *this, m_lines, {m_map, m_collisions, m_playResX, m_playResY, m_style}, strip);
}

// The passes search their own window for what FindChar would answer (the first
// occurrence at or after the start), so the encoding plays no part.
xcString xcAssParser::RemoveSSATags(xcString text, int)
{
    return zemsub::detail::removeSsaTags(text, xcString("\\N"), xcString("\n"));
}

int xcAssParser::FindChar(xcString text, char c, int start, int)
{
    return AssNarrow::findChar(text, c, start);
}

const std::vector<xcString>& xcAssParser::GetLines() const
{
    return m_lines;
}

const std::map<int, ASS_SESSION_ST>& xcAssParser::GetMap() const
{
    return m_map;
}

int xcAssParser::GetPlayResX() const
{
    return m_playResX;
}

int xcAssParser::GetPlayResY() const
{
    return m_playResY;
}

const xcString& xcAssParser::GetCollisions() const
{
    return m_collisions;
}

const ASS_STYLE_ST& xcAssParser::GetStyle() const
{
    return m_style;
}
