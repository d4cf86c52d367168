#ifndef ZEMSUB_TOOL_SUBPICTUREFRAME_H
#define ZEMSUB_TOOL_SUBPICTUREFRAME_H

#include "SubpictureDecoder.h"

#include <QImage>
#include <QSize>
#include <QString>

namespace zemsub::tool {

// The background with the subpicture laid on it at its position, pixel for pixel.
// Positions refer to the index's frame; a background of another size shows that
// frame scaled to it (nearest pixel).
QImage frameWithSubpicture(const QImage& background, const DecodedSubpicture& subpicture, QSize indexFrame);

// "x=.. y=.. width=.. height=.." on the index's frame, or "none (why)".
QString describeSubpicture(const DecodedSubpicture& subpicture);

} // namespace zemsub::tool

#endif
