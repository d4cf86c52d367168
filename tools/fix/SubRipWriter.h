#ifndef ZEMSUBFIX_SUBRIPWRITER_H
#define ZEMSUBFIX_SUBRIPWRITER_H

#include "CopyText.h"
#include "Stretch.h"

#include <vector>

namespace zemsubfix {

// A SubRip copy of the stretches that the narrow SubRip reader shows exactly
// and that a player reads as the same captions.
//
// Entry i is stretch i, and its end is written one millisecond early, since the
// reader's end is inclusive. The reader gathers caption lines two apart, so a
// stretch of three or more lines is written twice: for the library, at the
// very start, in pairs of lines with its number and a time line between them,
// each of which ends a gathering scan (players read all of this as the text of
// one caption of no duration); and for players in its place, numbered 0 so
// that the library files those lines under the entry it never shows. Without
// such an entry a last entry is added that is never due. Lines of digits,
// arrows and markup are kept from reading as what they are not by an
// invisible word joiner; a repeat after a gap carries one at its end.
CopyText writeSubRip(const std::vector<Stretch>& stretches);

// h:mm:ss,mmm
QString subRipTime(long long ms);

} // namespace zemsubfix

#endif
