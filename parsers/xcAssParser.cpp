#include "parsers/xcAssParser.h"

#include <cctype>
#include <cstdio>

#include "parsers/detail/ass/AssFields.h"
#include "parsers/detail/ass/AssLines.h"
#include "parsers/detail/lookup/AssLookup.h"
#include "parsers/detail/ass/AssScript.h"
#include "parsers/detail/ass/SsaTags.h"

using zemsub::detail::AssNarrow;

xcAssParser::xcAssParser()
    : m_file(nullptr), m_opened(false), m_playResX(0), m_playResY(0),
      m_index(std::make_unique<zemsub::detail::AssLookupIndex>())
{
}

xcAssParser::~xcAssParser()
{
    m_lines.clear();
    m_map.clear();
}

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

// Counts brace depth and steps over "\fe" inside override blocks on the way;
// none of that changes the answer, which is the first index >= start holding
// c (a negative start counts from 0), or -1.
int xcAssParser::FindChar(xcString text, char c, int start, int)
{
    const int n = text.length();
    if (n < 1)
        return -1;
    const char* data = text.getData();
    int depth = 0;
    int i = 0;
    for (;;) {
        const char ch = data[i];
        if (i >= start && ch == c)
            return i;
        bool stepped = false;
        if (ch == '{') {
            ++depth;
        } else if (depth > 0) {
            if (ch == '}') {
                --depth;
            } else if (ch == 'e' && i > 2 && i < n - 1 && data[i - 2] == '\\' && data[i - 1] == 'f') {
                // "\fe<digits>": the digits are scanned, the scan's end is not used.
                ++i;
                stepped = true;
                int digitsEnd = i;
                while (digitsEnd < n && data[digitsEnd] >= 0 &&
                       std::isdigit(static_cast<unsigned char>(data[digitsEnd])))
                    ++digitsEnd;
                static_cast<void>(digitsEnd);
            }
        }
        if (!stepped)
            ++i;
        if (i >= n)
            return -1;
    }
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
