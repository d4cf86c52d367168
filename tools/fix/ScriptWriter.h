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
// header, when it is an ASS header with [V4+ Styles] (a Matroska or MP4
// track's), replaces the script's own header: its [Script Info] and styles are
// kept, with ScriptType v4.00+, "&h" values in styles written as plain numbers
// and a Default style added when it has none.
CopyText writeScript(const std::vector<Stretch>& stretches, const QString& header = QString());

// h:mm:ss.cc, rounded to the nearest hundredth.
QString scriptTime(long long ms);

} // namespace zemsubfix

#endif
