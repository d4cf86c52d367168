#ifndef ZEMSUB_READING_QUIETFFMPEG_H
#define ZEMSUB_READING_QUIETFFMPEG_H

namespace zemsub::tool {

// Keeps FFmpeg's own log off stderr: the tool reports what failed itself.
// Safe to call any number of times.
void quietFfmpeg();

} // namespace zemsub::tool

#endif
