#ifndef ZEMSUB_READING_SCRIPTSOURCE_H
#define ZEMSUB_READING_SCRIPTSOURCE_H

#include "SourceLines.h"
#include "WrittenFile.h"

#include <QStringList>
#include <vector>

namespace zemsub::tool {

// An ASS/SSA script's lines as they stand in the file: ScriptType, WrapStyle,
// the Format lines, values written "&h...", and every Dialogue line (any case)
// split by the Format line of its section. The script facts go into file; the
// Dialogue lines are returned in file order, each with the byte offset of its
// line as position (where FFmpeg's ass demuxer places the event) and start and
// end read as FFmpeg reads them (the fraction digits as hundredths).
std::vector<WrittenBlock> readScriptSource(const SourceLines& source, WrittenFile& file);

// The default Format of a Dialogue line: ASS (Layer first) or SSA (Marked first).
QStringList defaultEventFormat(bool ssa);

} // namespace zemsub::tool

#endif
