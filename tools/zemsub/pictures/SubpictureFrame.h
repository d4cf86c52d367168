#ifndef ZEMSUB_TOOL_SUBPICTUREFRAME_H
#define ZEMSUB_TOOL_SUBPICTUREFRAME_H

#include "pictures/SubpictureDecoder.h"

#include <QImage>
#include <QSize>
#include <QString>

namespace zemsub::tool {

// The background with the subpicture laid on it at its position, pixel for pixel.
// Positions refer to the index's frame; a background of another size shows that
// frame scaled to it (nearest pixel).
QImage frameWithSubpicture(const QImage& background, const DecodedSubpicture& subpicture, QSize indexFrame);

// Why a decoded subpicture does not show whole on the index's frame: it lies
// wholly or partly outside it. Empty when it shows whole, or when nothing was
// decoded (the decoder finds no picture where every pixel is transparent).
QString subpictureProblem(const DecodedSubpicture& subpicture, QSize indexFrame);

// "x=.. y=.. width=.. height=.." on the index's frame, then its problem in
// brackets when it has one, or "none (why)".
QString describeSubpicture(const DecodedSubpicture& subpicture, QSize indexFrame);

} // namespace zemsub::tool

#endif
