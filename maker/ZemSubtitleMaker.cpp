// Placeholder, replaced by the real implementation.
#include "maker/ZemSubtitleMaker.h"
#include <type_traits>

ZemSubtitleMaker::ZemSubtitleMaker() {}
ZemSubtitleMaker::~ZemSubtitleMaker() {}
bool ZemSubtitleMaker::open(const char*) { return false; }
bool ZemSubtitleMaker::close() { return false; }
bool ZemSubtitleMaker::isOpened() { return false; }
SubtitleData* ZemSubtitleMaker::getSubtitleData(long long, long long) { return nullptr; }
void ZemSubtitleMaker::destroySubData(SubtitleData*) {  }
void ZemSubtitleMaker::setVideoSize(int, int) {  }
void ZemSubtitleMaker::setFontInfo(const char*, int, int, const char*, int) {  }
void ZemSubtitleMaker::setSubtitlePos(int, int) {  }
void ZemSubtitleMaker::setTrasparency(int) {  }
void ZemSubtitleMaker::createSubManager() {  }
QPixmap ZemSubtitleMaker::makeSubImage(const QString&) { return {}; }
xcSubtitleManager* ZemSubtitleMaker::manager() const { return nullptr; }
const QFont& ZemSubtitleMaker::font() const { static std::remove_cv_t<std::remove_reference_t<const QFont&>> v; return v; }
int ZemSubtitleMaker::lineSpacing() const { return 0; }
int ZemSubtitleMaker::captionX() const { return 0; }
int ZemSubtitleMaker::captionY() const { return 0; }
QColor ZemSubtitleMaker::textColor() const { return {}; }
QColor ZemSubtitleMaker::outlineColor() const { return {}; }
int ZemSubtitleMaker::alpha() const { return 0; }
const QString& ZemSubtitleMaker::lastText() const { static std::remove_cv_t<std::remove_reference_t<const QString&>> v; return v; }
const QPixmap& ZemSubtitleMaker::captionImage() const { static std::remove_cv_t<std::remove_reference_t<const QPixmap&>> v; return v; }
int ZemSubtitleMaker::videoWidth() const { return 0; }
int ZemSubtitleMaker::videoHeight() const { return 0; }
