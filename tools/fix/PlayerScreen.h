#ifndef ZEMSUBFIX_PLAYERSCREEN_H
#define ZEMSUBFIX_PLAYERSCREEN_H

#include "Stretch.h"

#include <QString>
#include <vector>

namespace zemsubfix {

// What a player shows of the pictures, worked out from them alone: at any time
// the pictures on screen, top to bottom, as one stretch per span in which they
// stay the same. What the copy must show.
std::vector<Stretch> playerScreen(const std::vector<ScreenPicture>& pictures);

} // namespace zemsubfix

#endif
