#ifndef ZEMSUBFIX_HELDTIMES_H
#define ZEMSUBFIX_HELDTIMES_H

#include "FixSource.h"
#include "ZemsubFix.h"

#include <vector>

namespace zemsubfix {

// The first millisecond after the latest that a copy of the format carries and
// the library reads back as written: its readers compute times in 32-bit
// arithmetic, and a script time is written in hundredths.
long long copyTimeLimit(CopyFormat format);

// The captions as the copy carries them: each cut to 0 up to the limit (none
// left of one wholly outside). A caption that was cut gets the time-range cause.
std::vector<SourceCaption> heldCaptions(std::vector<SourceCaption>& captions, CopyFormat format);

} // namespace zemsubfix

#endif
