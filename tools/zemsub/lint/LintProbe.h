#ifndef ZEMSUB_TOOL_LINTPROBE_H
#define ZEMSUB_TOOL_LINTPROBE_H

#include "playback/CaptionProbes.h"
#include "reading/WrittenFile.h"

#include <QString>
#include <functional>
#include <vector>

namespace zemsub::tool {

// One question to the library about the file: what shows at this time.
struct Probe
{
    long long time = 0;
    ProbeKind kind = ProbeKind::Middle;
    int block = -1;         // index into WrittenFile::blocks; -1 for a gap
    QString answer;         // the text the library answers (null: none)
    QString drawn;          // what the caption image shows after the render cache (null: nothing)
    bool asWritten = false; // drawn matches the block's text
};

// Asks at the probes of every block with text and of every gap between them
// (planProbes), in time order, and marks each block probe whose drawn text is
// the block's as written.
std::vector<Probe> probeBlocks(const WrittenFile& file, const std::function<QString(long long)>& ask);

} // namespace zemsub::tool

#endif
