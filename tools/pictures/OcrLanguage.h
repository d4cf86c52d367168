#ifndef ZEMSUB_PICTURES_OCRLANGUAGE_H
#define ZEMSUB_PICTURES_OCRLANGUAGE_H

#include <QString>

namespace zemsub::tool {

// Tesseract's name for a track's language tag: ISO 639-2 (bibliographic "fre"
// or terminological "fra") or ISO 639-1 ("fr"), in any case. Untagged or
// unknown tags read as English ("eng").
QString tesseractLanguage(const QString& tag);

// The language a track is read in: the one asked for (--ocr-language) when
// given, else Tesseract's name for the track's tag.
QString readingLanguage(const QString& asked, const QString& tag);

// The folder of Tesseract's language data: TESSDATA_PREFIX when set, else
// where Debian installs it.
QString languageDataFolder();

// Whether the data for a Tesseract language is installed.
bool languageInstalled(const QString& language);

// "no Tesseract data for fra: install the Debian package tesseract-ocr-fra, or
// name an installed language with --ocr-language".
QString missingLanguageMessage(const QString& language);

} // namespace zemsub::tool

#endif
