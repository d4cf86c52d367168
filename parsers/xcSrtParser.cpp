// Placeholder, replaced by the real implementation.
#include "parsers/xcSrtParser.h"
#include <type_traits>

xcSrtParser::xcSrtParser() {}
xcSrtParser::~xcSrtParser() {}
bool xcSrtParser::Open(const char*) { return false; }
bool xcSrtParser::IsOpen() const { return false; }
const char* xcSrtParser::GetSubTitle(long long) { return nullptr; }
const wchar_t* xcSrtParser::GetSubTitleU(long long) { return nullptr; }
bool xcSrtParser::ReadString(xcString&) { return false; }
bool xcSrtParser::ConvertBufToSrtMap() { return false; }
const std::vector<xcString>& xcSrtParser::GetLines() const { static std::remove_cv_t<std::remove_reference_t<const std::vector<xcString>&>> v; return v; }
const std::map<int, SRC_SESSION_ST>& xcSrtParser::GetMap() const { static std::remove_cv_t<std::remove_reference_t<const std::map<int, SRC_SESSION_ST>&>> v; return v; }
