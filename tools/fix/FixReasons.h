#ifndef ZEMSUBFIX_FIXREASONS_H
#define ZEMSUBFIX_FIXREASONS_H

#include "ZemsubFix.h"
#include "playback/Causes.h"

namespace zemsubfix {

// A cause in lint's words.
Reason reasonFor(zemsub::tool::CauseId id, CopyFormat format);

} // namespace zemsubfix

#endif
