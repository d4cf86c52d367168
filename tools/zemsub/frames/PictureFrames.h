#ifndef ZEMSUB_TOOL_PICTUREFRAMES_H
#define ZEMSUB_TOOL_PICTUREFRAMES_H

#include "FrameRenderer.h"
#include "FrameSource.h"
#include "zemsub/pictures/IndexPictures.h"
#include "zemsub/pictures/TrackPictures.h"

#include <memory>

namespace zemsub::tool {

// A VobSub index's packets, on the index's frame (or on style's size when given).
std::unique_ptr<FrameSource> indexFrames(std::unique_ptr<IndexPictures> pictures, RenderStyle style);
// A picture track as FFmpeg shows it, on the track's frame (or on style's size when given).
std::unique_ptr<FrameSource> trackFrames(TrackPictures pictures, RenderStyle style);

} // namespace zemsub::tool

#endif
