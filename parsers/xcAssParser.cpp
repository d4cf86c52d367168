// Placeholder, replaced by the real implementation.
#include "parsers/xcAssParser.h"
#include <type_traits>

xcAssParser::xcAssParser() {}
xcAssParser::~xcAssParser() {}
bool xcAssParser::Open(const char*) { return false; }
bool xcAssParser::IsOpen() const { return false; }
const char* xcAssParser::GetSubTitle(long long) { return nullptr; }
const wchar_t* xcAssParser::GetSubTitleU(long long) { return nullptr; }
bool xcAssParser::ReadString(xcString&) { return false; }
xcString xcAssParser::GetStr(xcString&, char) { return {}; }
int xcAssParser::GetInt(xcString&, char) { return 0; }
double xcAssParser::GetFloat(xcString&, char) { return 0; }
bool xcAssParser::ConvertBufToAssMap() { return false; }
xcString xcAssParser::RemoveSSATags(xcString, int) { return {}; }
int xcAssParser::FindChar(xcString, char, int, int) { return 0; }
const std::vector<xcString>& xcAssParser::GetLines() const { static std::remove_cv_t<std::remove_reference_t<const std::vector<xcString>&>> v; return v; }
const std::map<int, ASS_SESSION_ST>& xcAssParser::GetMap() const { static std::remove_cv_t<std::remove_reference_t<const std::map<int, ASS_SESSION_ST>&>> v; return v; }
int xcAssParser::GetPlayResX() const { return 0; }
int xcAssParser::GetPlayResY() const { return 0; }
const xcString& xcAssParser::GetCollisions() const { static std::remove_cv_t<std::remove_reference_t<const xcString&>> v; return v; }
const ASS_STYLE_ST& xcAssParser::GetStyle() const { static std::remove_cv_t<std::remove_reference_t<const ASS_STYLE_ST&>> v; return v; }
