#ifndef ZEMSUB_TOOL_LINTFINDINGS_H
#define ZEMSUB_TOOL_LINTFINDINGS_H

#include "LintCauses.h"
#include "LintProbe.h"
#include "reading/WrittenFile.h"

#include <vector>

namespace zemsub::tool {

// A caption that does not show as written: its probes and the behaviours behind it.
struct Finding
{
    int block = 0; // index into WrittenFile::blocks
    std::vector<const Probe*> probes;
    std::vector<CauseId> causes;
};

// Every block with a probe that does not show it as written, in block order.
// The findings point into probes.
std::vector<Finding> judgeBlocks(const WrittenFile& written, const LibrarySide& library,
                                 const std::vector<Probe>& probes);

} // namespace zemsub::tool

#endif
