#ifndef ZEMSUBFIX_PLAINWRITER_H
#define ZEMSUBFIX_PLAINWRITER_H

#include "ZemsubConvert.h"

#include <QByteArray>
#include <QSize>
#include <vector>

namespace zemsubfix {

// A script time, h:mm:ss.cc, at the nearest hundredth.
QString scriptClock(long long ms);

// A plain copy of the captions, UTF-8, line feeds. frame sizes an ASS script's
// play area (the pictures' frame; empty: 1920x1080).
QByteArray writePlain(PlainFormat format, const std::vector<PlainCaption>& captions, QSize frame);

} // namespace zemsubfix

#endif
