#include "parsers/xcSrtParser.h"

#include "parsers/detail/SrtMapBuilder.h"
#include "parsers/detail/SrtReading.h"
#include "parsers/detail/SrtTraits.h"

using zemsub::detail::SrtNarrow;

xcSrtParser::xcSrtParser() : m_file(nullptr), m_opened(false)
{
}

xcSrtParser::~xcSrtParser()
{
    m_lines.clear();
    m_map.clear();
}

bool xcSrtParser::Open(const char* path)
{
    m_lines.clear();
    m_map.clear();
    if (!zemsub::detail::readSrtFile<SrtNarrow>(path, m_file, m_lines,
                                                [this](xcString& line) { return ReadString(line); }))
        return false;
    ConvertBufToSrtMap();
    zemsub::detail::closeSrtFile(m_file);
    m_opened = true;
    return true;
}

bool xcSrtParser::IsOpen() const
{
    return m_opened;
}

// The look-up: keys 1 to size - 1 in order, each taken with the map's index
// operator (a missing key is inserted as an empty entry). The first entry whose
// times enclose timeMs wins; key 0 and the highest key are never looked at.
const char* xcSrtParser::GetSubTitle(long long timeMs)
{
    if (timeMs < 0)
        return nullptr;
    const int count = static_cast<int>(m_map.size());
    if (count < 2)
        return nullptr;
    for (int key = 1; key < count; ++key) {
        if (timeMs < m_map[key].start)
            continue;
        if (timeMs <= m_map[key].end)
            return m_map[key].text.getData();
    }
    return nullptr;
}

const wchar_t* xcSrtParser::GetSubTitleU(long long)
{
    return nullptr;
}

bool xcSrtParser::ReadString(xcString& line)
{
    return zemsub::detail::readSrtLine<SrtNarrow>(m_file, line);
}

bool xcSrtParser::ConvertBufToSrtMap()
{
    zemsub::detail::buildSrtMap<SrtNarrow>(m_lines, m_map);
    return true;
}

const std::vector<xcString>& xcSrtParser::GetLines() const
{
    return m_lines;
}

const std::map<int, SRC_SESSION_ST>& xcSrtParser::GetMap() const
{
    return m_map;
}
