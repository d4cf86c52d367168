#include "LintFindings.h"

namespace zemsub::tool {

std::vector<Finding> judgeBlocks(const WrittenFile& written, const LibrarySide& library,
                                 const std::vector<Probe>& probes)
{
    std::vector<Finding> findings;
    for (int i = 0; i < int(written.blocks.size()); ++i) {
        Finding finding;
        finding.block = i;
        bool differs = false;
        for (const Probe& probe : probes) {
            if (probe.block == i) {
                finding.probes.push_back(&probe);
                differs = differs || !probe.asWritten;
            }
        }
        if (!differs)
            continue;
        finding.causes = explainBlock(written, i, library, probes);
        findings.push_back(finding);
    }
    return findings;
}

} // namespace zemsub::tool
