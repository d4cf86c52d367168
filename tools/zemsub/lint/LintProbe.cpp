#include "LintProbe.h"

#include "playback/TextForm.h"

namespace zemsub::tool {

std::vector<Probe> probeBlocks(const WrittenFile& file, const std::function<QString(long long)>& ask)
{
    std::vector<TimeSpan> spans;
    std::vector<bool> shows;
    std::vector<TimeSpan> screen;
    for (const WrittenBlock& block : file.blocks) {
        spans.push_back({block.start, block.end});
        shows.push_back(!block.text.trimmed().isEmpty());
        if (shows.back())
            screen.push_back(spans.back());
    }
    const std::vector<ProbeTime> times = planProbes(spans, shows, screen);
    const std::vector<ProbeAnswer> answers = askInOrder(times, ask);

    std::vector<Probe> probes;
    probes.reserve(times.size());
    for (size_t i = 0; i < times.size(); ++i) {
        Probe probe{times[i].time, times[i].kind, times[i].caption, answers[i].answer, answers[i].drawn, false};
        if (probe.block >= 0)
            probe.asWritten = !probe.drawn.isNull() &&
                              sameCaption(drawnText(probe.drawn), file.blocks[size_t(probe.block)].text);
        probes.push_back(probe);
    }
    return probes;
}

} // namespace zemsub::tool
