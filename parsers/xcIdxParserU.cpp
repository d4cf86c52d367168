// Placeholder, replaced by the real implementation.
#include "parsers/xcIdxParserU.h"
#include <type_traits>

xcIdxParserU::xcIdxParserU() {}
xcIdxParserU::~xcIdxParserU() {}
bool xcIdxParserU::Open(wchar_t*) { return false; }
bool xcIdxParserU::ReadString(xcWString&) { return false; }
xcWString xcIdxParserU::GetStr(xcWString&, wchar_t) { return {}; }
int xcIdxParserU::GetInt(xcWString&, wchar_t) { return 0; }
bool xcIdxParserU::ConvertBufToIdxMap() { return false; }
long long xcIdxParserU::GetFilePos(int) { return 0; }
unsigned char* xcIdxParserU::GetPacket(int, int&, int&) { return nullptr; }
const std::vector<xcWString>& xcIdxParserU::GetLines() const { static std::remove_cv_t<std::remove_reference_t<const std::vector<xcWString>&>> v; return v; }
const std::map<int, SUB_SESSION_ST_U>& xcIdxParserU::GetMap() const { static std::remove_cv_t<std::remove_reference_t<const std::map<int, SUB_SESSION_ST_U>&>> v; return v; }
const xcWString& xcIdxParserU::GetSubPath() const { static std::remove_cv_t<std::remove_reference_t<const xcWString&>> v; return v; }
int xcIdxParserU::GetCustomColorSwitch() const { return 0; }
unsigned int xcIdxParserU::GetTransparencyMask() const { return 0; }
const unsigned int* xcIdxParserU::GetPalette() const { return nullptr; }
const unsigned int* xcIdxParserU::GetCustomColors() const { return nullptr; }
