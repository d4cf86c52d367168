// Placeholder, replaced by the real implementation.
#include "parsers/xcAssParserU.h"
#include <type_traits>

xcAssParserU::xcAssParserU() {}
xcAssParserU::~xcAssParserU() {}
bool xcAssParserU::Open(const char*) { return false; }
bool xcAssParserU::IsOpen() const { return false; }
const char* xcAssParserU::GetSubTitle(long long) { return nullptr; }
const wchar_t* xcAssParserU::GetSubTitleU(long long) { return nullptr; }
bool xcAssParserU::ReadString(xcWString&) { return false; }
xcWString xcAssParserU::GetStr(xcWString&, wchar_t) { return {}; }
int xcAssParserU::GetInt(xcWString&, wchar_t) { return 0; }
double xcAssParserU::GetFloat(xcWString&, char) { return 0; }
bool xcAssParserU::ConvertBufToAssMap() { return false; }
xcWString xcAssParserU::RemoveSSATags(xcWString) { return {}; }
int xcAssParserU::FindChar(xcWString, char, int) { return 0; }
const std::vector<xcWString>& xcAssParserU::GetLines() const { static std::remove_cv_t<std::remove_reference_t<const std::vector<xcWString>&>> v; return v; }
const std::map<int, ASS_SESSION_ST_U>& xcAssParserU::GetMap() const { static std::remove_cv_t<std::remove_reference_t<const std::map<int, ASS_SESSION_ST_U>&>> v; return v; }
int xcAssParserU::GetPlayResX() const { return 0; }
int xcAssParserU::GetPlayResY() const { return 0; }
const xcWString& xcAssParserU::GetCollisions() const { static std::remove_cv_t<std::remove_reference_t<const xcWString&>> v; return v; }
const ASS_STYLE_ST_U& xcAssParserU::GetStyle() const { static std::remove_cv_t<std::remove_reference_t<const ASS_STYLE_ST_U&>> v; return v; }
