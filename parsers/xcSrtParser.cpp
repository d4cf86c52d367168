#include "parsers/xcSrtParser.h"

#include "parsers/detail/lookup/ScanIndex.h"
#include "parsers/detail/srt/SrtMapBuilder.h"
#include "parsers/detail/srt/SrtReading.h"
#include "parsers/detail/srt/SrtTraits.h"

using zemsub::detail::SrtNarrow;

xcSrtParser::xcSrtParser()
    : m_file(nullptr), m_opened(false), m_index(std::make_unique<zemsub::detail::ScanIndex<SRC_SESSION_ST>>())
{
}

xcSrtParser::~xcSrtParser() = default;

bool xcSrtParser::Open(const char* path)
{
    m_lines.clear();
    m_map.clear();
    m_index->reset();
    if (!zemsub::detail::readSrtFile<SrtNarrow>(path, m_file, m_lines))
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

const char* xcSrtParser::GetSubTitle(long long timeMs)
{
    const SRC_SESSION_ST* entry = SrtNarrow::lookUp(*m_index, m_map, timeMs);
    return entry ? entry->text.getData() : nullptr;
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
    m_index->invalidate(m_map);
    zemsub::detail::buildSrtMap<SrtNarrow>(m_lines, m_map);
    return true;
}

const std::vector<xcString>& xcSrtParser::GetLines() const
{
    return m_lines;
}

const std::map<int, SRC_SESSION_ST>& xcSrtParser::GetMap() const
{
    m_index->materialize(m_map);
    return m_map;
}
