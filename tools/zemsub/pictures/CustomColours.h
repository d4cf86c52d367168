#ifndef ZEMSUB_TOOL_CUSTOMCOLOURS_H
#define ZEMSUB_TOOL_CUSTOMCOLOURS_H

#include <QImage>

#include <array>

namespace zemsub::tool {

// An index's custom colours, switched on: colour i (0xRRGGBB) replaces the colour
// of pixel code i, and a code whose bit i is set in the transparency mask is
// transparent; the other codes keep the subpicture's own contrast. Only a
// four-colour picture (Format_Indexed8) is changed.
void applyCustomColours(QImage& picture, const std::array<unsigned int, 4>& colours,
                        unsigned int transparencyMask);

} // namespace zemsub::tool

#endif
