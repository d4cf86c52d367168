#ifndef ZEMSUB_PICTURES_ITALICSLANT_H
#define ZEMSUB_PICTURES_ITALICSLANT_H

#include <QImage>
#include <QRect>

namespace zemsub::tool {

// How far the strokes of some text lean. Tesseract's LSTM engine does not tell
// italics, so the tools measure them on the picture.
struct Slant
{
    // The horizontal shift per pixel of height that stands the strokes
    // upright: about 0 upright, about 0.2 italic.
    double shear = 0;
    // How clearly it was decided (small: narrowly): the distance of shear from
    // kItalicShear, less when a rival reading across it scored almost as well.
    double margin = 0;
    bool italic = false;
};

// Shears at or above this are italic. Upright text measures about 0, italic
// faces and obliques 0.16 to 0.25.
constexpr double kItalicShear = 0.07;

// The slant of the text strokes of mask (Grayscale8, below 128 text, else
// ground) within box: a word, or a line, not several lines at once (strokes are
// followed over a share of the ink's height). An empty box, or one with no
// stroke to measure, is upright with margin 0.
Slant measureSlant(const QImage& mask, const QRect& box);

} // namespace zemsub::tool

#endif
