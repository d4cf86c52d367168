#ifndef ZEMSUB_PICTURES_PICTURETEXT_H
#define ZEMSUB_PICTURES_PICTURETEXT_H

#include "PictureCaptions.h"
#include "PictureReading.h"

#include <QByteArray>
#include <QRect>
#include <QSize>
#include <QString>
#include <functional>
#include <vector>

namespace zemsub::tool {

// One picture read as text: a caption.
struct PictureCaption
{
    long long start = 0;
    long long end = 0;
    QString text;       // lines top to bottom, joined by "\n"
    int confidence = 0; // Tesseract's, the lowest of its lines (0 to 100)
    int picture = 0;    // which of the pictures, from 0
    int display = 0;    // which display it is shown in: captions of one display share their times
    bool forced = false;
    std::vector<TextRun> runs; // the text in runs of italic and upright
    bool narrowItalic = false; // a word's slant was decided by a narrow margin
    QRect place;               // where the picture lies on the frame
    int alignment = 2;         // where on the frame, as a numeric keypad: 1-3 bottom, 7-9 top
    DisplayEnd ended = DisplayEnd::Own;
    bool italic() const;       // every word in italics
    bool partlyItalic() const; // some word in italics
};

// A picture that holds no text (a dot, a bar, a logo): left out of the captions.
struct LeftOutPicture
{
    long long start = 0;
    long long end = 0;
    QRect place;  // on the frame
    QString why;  // "ink too small for a letter", "nothing read as a word"
    int picture = 0; // which of the pictures, from 0
};

struct PictureText
{
    bool read = false; // false: failure says why
    QString failure;
    QString codec;     // FFmpeg's decoder
    QString language;  // the Tesseract language read with
    QSize frame;       // the frame the pictures lie on
    int pictures = 0;  // pictures decoded
    int distinct = 0;  // of them different (each read once)
    std::vector<PictureCaption> captions; // in time order, each display's top to bottom
    std::vector<LeftOutPicture> leftOut;  // pictures that hold no text
};

// Below this confidence a caption's reading is worth a look.
constexpr int kLowConfidence = 70;

// Told how many of the distinct pictures have been read, from the reading
// threads one at a time, at most every tenth of a second and once at the end.
using ReadingProgress = std::function<void(int done, int total)>;

// Reads the track-th subtitle track of bytes (track < 0: the picture track
// players take; FFmpeg decodes its pictures) as
// text with Tesseract in language (a Tesseract name, see OcrLanguage.h), one
// engine per core.
// The decoded pictures are handed to *pictures when given (captions and pictures
// left out name theirs by index), to be shown beside their reading.
PictureText readPictureText(const QByteArray& bytes, const QString& fileName, int track, const QString& language,
                            const ReadingProgress& progress = nullptr,
                            std::vector<ShownPicture>* pictures = nullptr);
// The same from an input already opened, whose packets are not read yet (it reads them).
PictureText readPictureText(DemuxedInput& input, int track, const QString& language,
                            const ReadingProgress& progress = nullptr,
                            std::vector<ShownPicture>* pictures = nullptr);

// The same for pictures already decoded, on a frame of that size (empty: as
// large as the pictures reach, at least 720x480). A picture that ends by its
// reading time (DisplayEnd::ReadingTime) ends as long after its start as its
// text takes to read.
PictureText readPictures(const std::vector<ShownPicture>& pictures, const QString& language,
                         const ReadingProgress& progress = nullptr, QSize frame = QSize());

// Where a picture lies on the frame, as a numeric keypad: the bottom row (1-3)
// unless the picture lies wholly in the upper half (7-9); left or right where its
// centre lies more than a tenth of the frame's width off the middle.
int alignmentOf(const QRect& place, QSize frame);

} // namespace zemsub::tool

#endif
