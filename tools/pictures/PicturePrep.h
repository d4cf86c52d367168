#ifndef ZEMSUB_PICTURES_PICTUREPREP_H
#define ZEMSUB_PICTURES_PICTUREPREP_H

#include <QImage>
#include <vector>

namespace zemsub::tool {

// The text fill of a subtitle picture, apart from its outline and shadow: a mask
// (Grayscale8, 0 text, 255 ground) of the picture's size. The fill is told from
// the outline by where it lies, not by its colour: the opaque pixels away from
// the transparent ground are the fill, the pixels at its edge the outline. A
// picture without an outline (no colour apart at its edge) is all fill.
QImage textFill(const QImage& picture);

// The lines of text of a mask, top to bottom: each cut from the mask with a
// margin and scaled so that its text stands lineHeight pixels high, dark text
// on a light ground, as Tesseract reads best.
std::vector<QImage> textLines(const QImage& mask, int lineHeight = 48);

} // namespace zemsub::tool

#endif
