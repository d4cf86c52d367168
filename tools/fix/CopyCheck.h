#ifndef ZEMSUBFIX_COPYCHECK_H
#define ZEMSUBFIX_COPYCHECK_H

#include "FixSource.h"
#include "Stretch.h"

#include <QString>
#include <vector>

namespace zemsubfix {

// What the library showed of the copy, asked the way a player asks it.
struct CopyCheck
{
    bool opened = false;
    std::vector<bool> captionShown;     // per caption: its text at its start, middle and end
    std::vector<int> missedAtZero;      // captions that showed nothing at time 0
    std::vector<long long> shownInGaps; // times where the copy shows a caption but none is written
};

// Opens the copy at path with the library's subtitle manager and asks it at the
// captions' and the gaps' probes, the same that lint asks (planProbes), in time
// order through the caption image's render cache. Each answer is held against
// the stretch on screen at its time; the first millisecond after a stretch
// counts only when the copy's ends are exact.
CopyCheck checkCopy(const QString& path, const std::vector<SourceCaption>& captions,
                    const std::vector<Stretch>& stretches, bool exactEnds);

} // namespace zemsubfix

#endif
