#include "CustomColours.h"

namespace zemsub::tool {

void applyCustomColours(QImage& picture, const std::array<unsigned int, 4>& colours,
                        unsigned int transparencyMask)
{
    if (picture.format() != QImage::Format_Indexed8 || picture.colorCount() != 4)
        return;
    for (int code = 0; code < 4; ++code) {
        const int alpha = (transparencyMask >> code) & 1u ? 0 : qAlpha(picture.color(code));
        const unsigned int rgb = colours[size_t(code)];
        picture.setColor(code, qRgba(int((rgb >> 16) & 0xFF), int((rgb >> 8) & 0xFF), int(rgb & 0xFF), alpha));
    }
}

} // namespace zemsub::tool
