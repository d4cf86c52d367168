#ifndef ZEMSUBFIX_SCRIPTWRITER_H
#define ZEMSUBFIX_SCRIPTWRITER_H

#include "CopyText.h"
#include "Stretch.h"

#include <vector>

namespace zemsubfix {

// An ASS script of the stretches for the narrow script reader: ScriptType
// v4.00+ so that Dialogue lines are read the ASS way, the Format line in the
// order the reader takes the fields anyway, plain numbers where "&h" would read
// as -1, one Dialogue line per stretch, latest first, and a last one that is
// never due. Times are hundredths, rounded to the nearest. The reader turns only
// the first \N into a line break, so further breaks are written as line
// separators, which its painter breaks lines at.
CopyText writeScript(const std::vector<Stretch>& stretches);

// h:mm:ss.cc, rounded to the nearest hundredth.
QString scriptTime(long long ms);

} // namespace zemsubfix

#endif
