#ifndef ZEMSUB_TOOL_FRAMECHOICE_H
#define ZEMSUB_TOOL_FRAMECHOICE_H

#include "playback/LibraryInput.h"
#include "zemsub/frames/FrameRenderer.h"
#include "zemsub/frames/FrameSource.h"

#include <QString>
#include <memory>

namespace zemsub::tool {

// The frames render and sheet show of a file: a VobSub index through the index
// reader (no track named, the manager refuses the file, no text asked for); a
// picture track (one named, text asked for, or a file the manager refuses that
// holds one); else the library playing the file, with its stored captions when
// withCaptions. Ends the command with exit 1, naming the file, when none can be
// shown. command names the command in notes on stderr.
std::unique_ptr<FrameSource> openFrames(const LibraryInput& input, int track, const RenderStyle& style,
                                        const QString& command, bool pictureText, bool withCaptions = false);

} // namespace zemsub::tool

#endif
