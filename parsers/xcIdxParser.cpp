// Placeholder, replaced by the real implementation.
#include "parsers/xcIdxParser.h"
#include <type_traits>

xcIdxParser::xcIdxParser() {}
xcIdxParser::~xcIdxParser() {}
bool xcIdxParser::Open(const char*) { return false; }
bool xcIdxParser::ReadString(xcString&) { return false; }
xcString xcIdxParser::GetStr(xcString&, char) { return {}; }
int xcIdxParser::GetInt(xcString&, char) { return 0; }
bool xcIdxParser::ConvertBufToIdxMap() { return false; }
long long xcIdxParser::GetFilePos(long long) { return {}; }
unsigned char* xcIdxParser::GetPacket(long long, int&, int&) { return nullptr; }
const std::vector<xcString>& xcIdxParser::GetLines() const { static std::remove_cv_t<std::remove_reference_t<const std::vector<xcString>&>> v; return v; }
const std::map<int, SUB_SESSION_ST>& xcIdxParser::GetMap() const { static std::remove_cv_t<std::remove_reference_t<const std::map<int, SUB_SESSION_ST>&>> v; return v; }
const xcString& xcIdxParser::GetSubPath() const { static std::remove_cv_t<std::remove_reference_t<const xcString&>> v; return v; }
int xcIdxParser::GetCustomColorSwitch() const { return 0; }
unsigned int xcIdxParser::GetTransparencyMask() const { return 0; }
const unsigned int* xcIdxParser::GetPalette() const { return nullptr; }
const unsigned int* xcIdxParser::GetCustomColors() const { return nullptr; }
