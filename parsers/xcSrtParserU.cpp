// Placeholder, replaced by the real implementation.
#include "parsers/xcSrtParserU.h"
#include <type_traits>

xcSrtParserU::xcSrtParserU() {}
xcSrtParserU::~xcSrtParserU() {}
bool xcSrtParserU::Open(const char*) { return false; }
bool xcSrtParserU::IsOpen() const { return false; }
const char* xcSrtParserU::GetSubTitle(long long) { return nullptr; }
const wchar_t* xcSrtParserU::GetSubTitleU(long long) { return nullptr; }
bool xcSrtParserU::ReadString(xcWString&) { return false; }
bool xcSrtParserU::ConvertBufToSrtMap() { return false; }
const std::vector<xcWString>& xcSrtParserU::GetLines() const { static std::remove_cv_t<std::remove_reference_t<const std::vector<xcWString>&>> v; return v; }
const std::map<int, SRC_SESSION_ST_U>& xcSrtParserU::GetMap() const { static std::remove_cv_t<std::remove_reference_t<const std::map<int, SRC_SESSION_ST_U>&>> v; return v; }
int __wtoi(const wchar_t*) { return 0; }
