#ifndef ZEMSUB_PICTURES_PICTUREPREP_H
#define ZEMSUB_PICTURES_PICTUREPREP_H

#include <QImage>
#include <QRect>
#include <vector>

namespace zemsub::tool {

// The text fill of a subtitle picture, apart from its outline and shadow: a mask
// (Grayscale8, 0 text, 255 ground) of the picture's size. The fill is told from
// the outline by where its colour lies, whatever the palette: the commonest
// colour that keeps away from the transparent ground is the fill, the colours
// along the ground are outline and shadow, and each pixel goes with the nearest.
// A picture whose every colour touches the ground (no outline) is all fill.
QImage textFill(const QImage& picture);

// One line of text cut from a mask.
struct LineCut
{
    QRect box;        // where its text lies on the mask
    QImage image;     // the text scaled to the line height, with a margin
    double scale = 1; // image pixels per mask pixel
    int margin = 0;   // image pixels of ground around the text
    // A box on the image as a box on the mask.
    QRect onMask(const QRect& onImage) const;
};

// The lines of text of a mask, top to bottom: each cut from the mask with a
// margin and scaled so that its text (ascenders to descenders) stands
// lineHeight pixels high, dark text on a light ground, as Tesseract reads best.
// lineHeight 0: each line at its own height, enlarged to 32 or reduced to 48
// (DVD lines are enlarged; Blu-ray lines keep letters apart from brackets).
std::vector<LineCut> cutLines(const QImage& mask, int lineHeight = 32);
// Their images alone.
std::vector<QImage> textLines(const QImage& mask, int lineHeight = 32);

} // namespace zemsub::tool

#endif
