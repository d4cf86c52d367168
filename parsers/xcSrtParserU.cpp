#include "parsers/xcSrtParserU.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "parsers/detail/lookup/ScanIndex.h"
#include "parsers/detail/srt/SrtMapBuilder.h"
#include "parsers/detail/srt/SrtReading.h"
#include "parsers/detail/srt/SrtTraits.h"

using zemsub::detail::SrtWide;

int __wtoi(const wchar_t* s)
{
    if (!s)
        return 0;
    const size_t length = std::wcstombs(nullptr, s, std::wcslen(s));
    if (length == static_cast<size_t>(-1))
        return 0; // not convertible: no buffer of that size can be had
    char* bytes = static_cast<char*>(std::malloc(length + 1));
    if (!bytes)
        return 0;
    std::memset(bytes, 0, length + 1);
    std::wcstombs(bytes, s, length);
    const int value = std::atoi(bytes);
    std::free(bytes);
    return value;
}

xcSrtParserU::xcSrtParserU()
    : m_file(nullptr), m_opened(false), m_index(std::make_unique<zemsub::detail::ScanIndex<SRC_SESSION_ST_U>>())
{
}

xcSrtParserU::~xcSrtParserU() = default;

bool xcSrtParserU::Open(const char* path)
{
    m_lines.clear();
    m_map.clear();
    m_index->reset();
    if (!zemsub::detail::readSrtFile<SrtWide>(path, m_file, m_lines))
        return false;
    ConvertBufToSrtMap();
    zemsub::detail::closeSrtFile(m_file);
    m_opened = true;
    return true;
}

bool xcSrtParserU::IsOpen() const
{
    return m_opened;
}

const char* xcSrtParserU::GetSubTitle(long long)
{
    return nullptr;
}

const wchar_t* xcSrtParserU::GetSubTitleU(long long timeMs)
{
    const SRC_SESSION_ST_U* entry = SrtWide::lookUp(*m_index, m_map, timeMs);
    return entry ? entry->text.getData() : nullptr;
}

bool xcSrtParserU::ReadString(xcWString& line)
{
    return zemsub::detail::readSrtLine<SrtWide>(m_file, line);
}

bool xcSrtParserU::ConvertBufToSrtMap()
{
    m_index->invalidate(m_map);
    zemsub::detail::buildSrtMap<SrtWide>(m_lines, m_map);
    return true;
}

const std::vector<xcWString>& xcSrtParserU::GetLines() const
{
    return m_lines;
}

const std::map<int, SRC_SESSION_ST_U>& xcSrtParserU::GetMap() const
{
    m_index->materialize(m_map);
    return m_map;
}
