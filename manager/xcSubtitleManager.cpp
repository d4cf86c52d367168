// Placeholder, replaced by the real implementation.
#include "manager/xcSubtitleManager.h"
#include <type_traits>

xcSubtitleManager::xcSubtitleManager() {}
xcSubtitleManager::~xcSubtitleManager() {}
bool xcSubtitleManager::Open(const char*) { return false; }
bool xcSubtitleManager::IsOpen() { return false; }
const char* xcSubtitleManager::GetSubTitle(long long) { return nullptr; }
const wchar_t* xcSubtitleManager::GetSubTitleU(long long) { return nullptr; }
int xcSubtitleManager::GetFormatCode() const { return 0; }
bool xcSubtitleManager::IsWide() const { return {}; }
