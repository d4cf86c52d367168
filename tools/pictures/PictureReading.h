#ifndef ZEMSUB_PICTURES_PICTUREREADING_H
#define ZEMSUB_PICTURES_PICTUREREADING_H

#include "reading/StyledText.h"

#include <QImage>
#include <QSet>
#include <QString>
#include <vector>

namespace zemsub::tool {

class TextReader;

// One picture read as text.
struct PictureReading
{
    QString text;                // lines top to bottom, joined by "\n"
    std::vector<TextRun> runs;   // the same text, in runs of italic and upright
    int confidence = 0;          // Tesseract's, the lowest of its lines (0 to 100)
    bool narrowItalic = false;   // a word's slant lay close to the line between upright and italic
    QString graphic;             // why the picture holds no text ("ink too small for a letter",
                                 // "nothing read as a word"); empty for text
};

// Lines are read at their own height between 32 and 48 pixels (see cutLines):
// at 32, Tesseract takes the small letters of a Blu-ray line between tall
// brackets for capitals; DVD lines read best enlarged to 32.
constexpr int kReadLineHeight = 0;
// Ink lower than this share of the frame's height is too small for a letter.
constexpr int kLeastLetterShare = 40;
// A slant decided by less than this margin is worth a second look.
constexpr double kNarrowSlant = 0.03;
// A word is told apart from its line by at least this many letters, and a
// margin of at least this much.
constexpr int kLeastSlantLetters = 3;
constexpr double kClearSlant = 0.06;
// Below this confidence a word read is no word.
constexpr int kLeastWordConfidence = 45;

// Reads a subtitle picture shown on a frame frameHeight pixels high: its text
// fill cut into lines, each read by reader, put right for language with words,
// each word's slant measured on the picture.
PictureReading readPicture(TextReader& reader, const QImage& picture, int frameHeight, const QString& language,
                           const QSet<QString>* words);

} // namespace zemsub::tool

#endif
