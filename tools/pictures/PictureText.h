#ifndef ZEMSUB_PICTURES_PICTURETEXT_H
#define ZEMSUB_PICTURES_PICTURETEXT_H

#include "PictureCaptions.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <vector>

namespace zemsub::tool {

// One picture read as text.
struct PictureCaption
{
    long long start = 0;
    long long end = 0;
    QString text;       // lines top to bottom, joined by "\n"
    int confidence = 0; // Tesseract's, the lowest of its lines (0 to 100)
    int picture = 0;    // which of the pictures, from 0
};

struct PictureText
{
    bool read = false; // false: failure says why
    QString failure;
    QString codec;     // FFmpeg's decoder
    QString language;  // the Tesseract language read with
    int pictures = 0;  // pictures decoded
    int distinct = 0;  // of them different (each read once)
    std::vector<PictureCaption> captions; // pictures with no text read are left out
};

// Below this confidence a caption's reading is worth a look.
constexpr int kLowConfidence = 70;

// Told how many of the distinct pictures have been read, from the reading
// threads one at a time, at most every tenth of a second and once at the end.
using ReadingProgress = std::function<void(int done, int total)>;

// Reads the track-th subtitle track of bytes (FFmpeg decodes its pictures) as
// text with Tesseract in language (a Tesseract name, see OcrLanguage.h), one
// engine per core.
PictureText readPictureText(const QByteArray& bytes, const QString& fileName, int track, const QString& language,
                            const ReadingProgress& progress = nullptr);

// The same for pictures already decoded.
PictureText readPictures(const std::vector<ShownPicture>& pictures, const QString& language,
                         const ReadingProgress& progress = nullptr);

} // namespace zemsub::tool

#endif
