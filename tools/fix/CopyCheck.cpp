#include "CopyCheck.h"

#include "CaptionLines.h"
#include "playback/CaptionProbes.h"
#include "playback/LibraryView.h"
#include "playback/TextForm.h"

#include <algorithm>

namespace zemsubfix {

namespace {

using zemsub::tool::ProbeKind;
using zemsub::tool::ProbeTime;
using zemsub::tool::TimeSpan;

// What the caption image shows of an answer, the copy's marks aside.
QString drawn(const QString& answer)
{
    return withoutMarks(zemsub::tool::drawnText(answer));
}

// The stretch on screen at time, or null.
const Stretch* stretchAt(const std::vector<Stretch>& stretches, long long time)
{
    auto it = std::upper_bound(stretches.begin(), stretches.end(), time,
                               [](long long t, const Stretch& s) { return t < s.start; });
    if (it == stretches.begin())
        return nullptr;
    --it;
    return time < it->end ? &*it : nullptr;
}

} // namespace

CopyCheck checkCopy(const QString& path, const std::vector<SourceCaption>& captions,
                    const std::vector<Stretch>& stretches, bool exactEnds)
{
    CopyCheck check;
    check.captionShown.assign(captions.size(), true);

    std::vector<TimeSpan> spans;
    std::vector<bool> shows;
    for (const SourceCaption& caption : captions) {
        spans.push_back({caption.start, caption.end});
        shows.push_back(!shownLines(caption.text).isEmpty());
    }
    std::vector<TimeSpan> screen;
    for (const Stretch& stretch : stretches)
        screen.push_back({stretch.start, stretch.end});
    const std::vector<ProbeTime> probes = zemsub::tool::planProbes(spans, shows, screen);

    zemsub::tool::ManagerSession session(path);
    check.opened = session.opened();
    const std::vector<zemsub::tool::ProbeAnswer> answers = zemsub::tool::askInOrder(
        probes, [&session](long long ms) { return session.textAt(ms); });

    for (size_t p = 0; p < probes.size(); ++p) {
        const ProbeTime& probe = probes[p];
        // Only a copy whose ends are exact to the millisecond promises nothing right after them.
        if (probe.kind == ProbeKind::GapStart && !exactEnds)
            continue;
        const QString& shown = answers[p].drawn;
        const Stretch* expected = stretchAt(stretches, probe.time);
        const bool right = expected ? !shown.isNull() &&
                                          zemsub::tool::sameCaption(drawn(shown),
                                                                    expected->lines.join(QLatin1Char('\n')))
                                    : shown.isNull();
        if (right)
            continue;
        if (probe.caption < 0) {
            check.shownInGaps.push_back(probe.time);
            continue;
        }
        check.captionShown[size_t(probe.caption)] = false;
        if (probe.time == 0)
            check.missedAtZero.push_back(probe.caption);
    }
    return check;
}

} // namespace zemsubfix
