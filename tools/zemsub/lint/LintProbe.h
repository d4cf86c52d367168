#ifndef ZEMSUB_TOOL_LINTPROBE_H
#define ZEMSUB_TOOL_LINTPROBE_H

#include "reading/WrittenFile.h"

#include <QString>
#include <functional>
#include <vector>

namespace zemsub::tool {

enum class ProbeKind {
    Start,
    Middle,
    End,
    Gap,
};

QString probeKindName(ProbeKind kind);

// One question to the library: what shows at this time.
struct Probe
{
    long long time = 0;
    ProbeKind kind = ProbeKind::Middle;
    int block = -1;         // index into WrittenFile::blocks; -1 for a gap
    QString answer;         // the text the library answers (null: none)
    QString drawn;          // what the caption image shows after the render cache (null: nothing)
    bool asWritten = false; // drawn matches the block's text
};

// A player's frame lands in every gap of at least this many milliseconds.
constexpr long long kGapFrame = 40;

// The probes for every block (its first, middle and last millisecond on screen)
// and for every gap between captions, in time order.
std::vector<Probe> planProbes(const WrittenFile& file);

// Asks each probe in time order, then follows the caption image's render cache:
// an equal text after a cleared image is not drawn again.
void runProbes(std::vector<Probe>& probes, const std::function<QString(long long)>& ask);

// Marks each block probe that shows the block as written.
void judgeProbes(std::vector<Probe>& probes, const WrittenFile& file);

// Two captions show the same when their lines match, blanks at either end of a line aside.
bool sameCaption(const QString& drawn, const QString& written);

} // namespace zemsub::tool

#endif
