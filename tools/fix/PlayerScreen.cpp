#include "PlayerScreen.h"

#include <algorithm>

namespace zemsubfix {

std::vector<Stretch> playerScreen(const std::vector<ScreenPicture>& pictures)
{
    std::vector<long long> bounds;
    for (const ScreenPicture& picture : pictures) {
        if (picture.end > picture.start) {
            bounds.push_back(picture.start);
            bounds.push_back(picture.end);
        }
    }
    std::sort(bounds.begin(), bounds.end());
    bounds.erase(std::unique(bounds.begin(), bounds.end()), bounds.end());
    std::vector<Stretch> screen;
    for (size_t i = 0; i + 1 < bounds.size(); ++i) {
        std::vector<const ScreenPicture*> shown;
        for (const ScreenPicture& picture : pictures) {
            if (picture.start <= bounds[i] && bounds[i] < picture.end)
                shown.push_back(&picture);
        }
        std::stable_sort(shown.begin(), shown.end(),
                         [](const ScreenPicture* a, const ScreenPicture* b) { return a->top < b->top; });
        Stretch stretch;
        stretch.start = bounds[i];
        stretch.end = bounds[i + 1];
        for (const ScreenPicture* picture : shown)
            stretch.lines += shownLines(picture->text);
        if (!stretch.lines.isEmpty())
            screen.push_back(stretch);
    }
    return screen;
}

} // namespace zemsubfix
