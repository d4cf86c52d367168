#include "LintProbe.h"

#include "playback/CaptionImageModel.h"
#include "playback/TextForm.h"

#include <algorithm>

namespace zemsub::tool {

namespace {

QString trimBlanks(const QString& line)
{
    int from = 0;
    int to = int(line.size());
    auto blank = [](QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t'); };
    while (from < to && blank(line[from]))
        ++from;
    while (to > from && blank(line[to - 1]))
        --to;
    return line.mid(from, to - from);
}

} // namespace

QString probeKindName(ProbeKind kind)
{
    switch (kind) {
    case ProbeKind::Start:
        return QStringLiteral("start");
    case ProbeKind::Middle:
        return QStringLiteral("middle");
    case ProbeKind::End:
        return QStringLiteral("end");
    case ProbeKind::Gap:
        return QStringLiteral("gap");
    }
    return QString();
}

std::vector<Probe> planProbes(const WrittenFile& file)
{
    std::vector<Probe> probes;
    for (int i = 0; i < int(file.blocks.size()); ++i) {
        const WrittenBlock& block = file.blocks[size_t(i)];
        const long long duration = block.end - block.start;
        if (duration <= 0 || block.text.trimmed().isEmpty())
            continue; // nothing a player would show
        if (duration < 3) {
            probes.push_back(Probe{block.start, ProbeKind::Start, i, {}, {}, false});
            continue;
        }
        // The first and last millisecond of a half-open span: a caption that ends
        // where the next begins does not count as overlapping it.
        probes.push_back(Probe{block.start + 1, ProbeKind::Start, i, {}, {}, false});
        probes.push_back(Probe{block.start + duration / 2, ProbeKind::Middle, i, {}, {}, false});
        probes.push_back(Probe{block.end - 1, ProbeKind::End, i, {}, {}, false});
    }

    std::vector<const WrittenBlock*> byStart;
    for (const WrittenBlock& block : file.blocks) {
        if (block.end > block.start && !block.text.trimmed().isEmpty())
            byStart.push_back(&block);
    }
    std::stable_sort(byStart.begin(), byStart.end(),
                     [](const WrittenBlock* a, const WrittenBlock* b) { return a->start < b->start; });
    long long coveredUntil = -1;
    for (const WrittenBlock* block : byStart) {
        if (coveredUntil >= 0 && block->start - coveredUntil >= kGapFrame)
            probes.push_back(
                Probe{coveredUntil + (block->start - coveredUntil) / 2, ProbeKind::Gap, -1, {}, {}, false});
        coveredUntil = std::max(coveredUntil, block->end);
    }

    std::stable_sort(probes.begin(), probes.end(),
                     [](const Probe& a, const Probe& b) { return a.time < b.time; });
    return probes;
}

void runProbes(std::vector<Probe>& probes, const std::function<QString(long long)>& ask)
{
    CaptionImageModel image;
    for (Probe& probe : probes) {
        probe.answer = ask(probe.time);
        probe.drawn = image.show(probe.answer);
    }
}

bool sameCaption(const QString& drawn, const QString& written)
{
    const QStringList a = drawn.split(QLatin1Char('\n'));
    const QStringList b = written.split(QLatin1Char('\n'));
    if (a.size() != b.size())
        return false;
    for (int i = 0; i < int(a.size()); ++i) {
        if (trimBlanks(a[i]) != trimBlanks(b[i]))
            return false;
    }
    return true;
}

void judgeProbes(std::vector<Probe>& probes, const WrittenFile& file)
{
    for (Probe& probe : probes) {
        if (probe.block < 0)
            continue;
        probe.asWritten = !probe.drawn.isNull() &&
                          sameCaption(drawnText(probe.drawn), file.blocks[size_t(probe.block)].text);
    }
}

} // namespace zemsub::tool
