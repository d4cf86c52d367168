#ifndef ZEMSUB_PARSERS_DETAIL_ASS_ASSSTYLELINE_H
#define ZEMSUB_PARSERS_DETAIL_ASS_ASSSTYLELINE_H

// One Style line (what follows "Style:") into the parser's one style record.

#include "parsers/detail/ass/AssTraits.h"

namespace zemsub::detail {

// SSA alignment (1-3 bottom, +4 top, +8 middle) to the ASS numbering.
inline int assAlignmentFromSsa(int a)
{
    if (a & 4)
        return (a & 3) + 6;
    if (a & 8)
        return (a & 3) + 3;
    return a & 3;
}

// The fields are taken in this fixed order, whatever they hold and whatever
// the Format line says; colour, underline and strike-out fields are never read.
// styleMode 5 is "[V4+ Styles]", 4 "[V4 Styles]", 3 neither.
template <class T, class P>
void readAssStyle(P& parser, typename T::String& rest, int styleMode, typename T::Style& style)
{
    using C = typename T::Char;
    const C comma = C(',');

    parser.GetStr(rest, comma);  // the style's own name, read past and dropped
    style.fontName = parser.GetStr(rest, comma);
    style.fontSize = parser.GetFloat(rest, ',');
    if (styleMode == 5) {
        style.bold = parser.GetInt(rest, comma) != 0;
        style.italic = parser.GetInt(rest, comma) != 0;
        style.scaleX = parser.GetFloat(rest, ',');
        style.scaleY = parser.GetFloat(rest, ',');
        style.spacing = parser.GetFloat(rest, ',');
        style.angle = parser.GetFloat(rest, ',');
    }
    if (styleMode == 4 || styleMode == 5)
        style.borderStyle = parser.GetInt(rest, comma);
    style.outline = parser.GetFloat(rest, ',');
    style.shadow = parser.GetFloat(rest, ',');
    style.alignment = parser.GetInt(rest, comma);
    style.marginL = parser.GetInt(rest, comma);
    style.marginR = parser.GetInt(rest, comma);
    style.marginV = parser.GetInt(rest, comma);
    style.marginVCopy = style.marginV;
    int alphaLevel = 0;
    if (styleMode <= 4)
        alphaLevel = parser.GetInt(rest, comma);
    style.encoding = parser.GetInt(rest, comma);

    if (styleMode == 5) {
        for (int i = 0; i < 4; ++i) {
            style.alpha[i] = static_cast<unsigned char>(style.colour[i] >> 24);
            style.colour[i] &= 0x00FFFFFFu;
        }
    }
    if (styleMode <= 4) {
        style.colour[2] = style.colour[3];
        if (alphaLevel >= 256)
            alphaLevel = 255;
        else if (alphaLevel < 0)
            alphaLevel = 0;
        for (int i = 0; i < 3; ++i)
            style.alpha[i] = static_cast<unsigned char>(alphaLevel);
        style.alpha[3] = 128;
        style.alignment = assAlignmentFromSsa(style.alignment);
    }
}

} // namespace zemsub::detail

#endif
