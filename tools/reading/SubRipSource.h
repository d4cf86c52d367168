#ifndef ZEMSUB_READING_SUBRIPSOURCE_H
#define ZEMSUB_READING_SUBRIPSOURCE_H

#include "SourceLines.h"
#include "WrittenFile.h"

#include <vector>

namespace zemsub::tool {

// The SubRip blocks as they stand in the file: a time line ("-->"), the number
// line before it when there is one, the caption lines after it up to an empty
// line, a line of blanks or the next block. Each block's position is the byte
// offset of its time line (where FFmpeg's srt demuxer places the event); start
// and end are read as FFmpeg reads them (up to three fraction digits, in ms).
// text is left empty: a caption's text is FFmpeg's.
std::vector<WrittenBlock> readSubRipSource(const SourceLines& source);

// The caption lines with SubRip markup (<i>, <font ...>, {\...}) removed and trimmed.
QString withoutSubRipMarkup(const QStringList& lines);

} // namespace zemsub::tool

#endif
