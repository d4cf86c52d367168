#ifndef ZEMSUB_PARSERS_DETAIL_ASS_SSATAGPASS_H
#define ZEMSUB_PARSERS_DETAIL_ASS_SSATAGPASS_H

// One block-removal pass of RemoveSSATags ({...} or <...>), ended at its first
// repeated state.
//
// The pass: from = 0; while from < L (the recorded length), find the first
// `open` at or after from and the first `close` at or after it, remove the
// block between them (both included) with deleteStr, and start the next
// search where the block began. deleteStr keeps the recorded length and
// leaves the old tail behind the new terminating zero, and the searches run
// over that whole length, so a closing character in the stale tail can pair
// with an opening one before the zero and the pass can come back to a state it
// was in: "{ab}{c" repeats after one removal, "{{}{{{}{" every two, and longer
// periods exist. Such a pass would never end; it ends instead at the first
// state that repeats, with the text as it stands there.
//
// The state is the stored characters and `from`. Everything before `from` is
// never searched again, so it is kept as a finished prefix, and the rest is a
// TagWindow. A removal whose block does not start the window moves `from` on
// and shortens the window for good, so no earlier state can come back; states
// can only repeat within a run of removals at the window's start (a stretch),
// where the prefix and the window length stay the same. Within a stretch the
// window starts are kept, and Brent's cycle detection compares each new state
// with a saved one; once the period is known, the first state equal to the one
// a period later is the first repeated state.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "parsers/detail/ass/SsaTagWindow.h"

namespace zemsub::detail {

// Runs the pass over the stored characters text[0, length) (length is the
// recorded length) and writes the stored characters it ends with, as many,
// into out, which must not overlap the text.
template <class C>
void runTagPass(TagPassBuffers<C>& buffers, const C* text, size_t length, C open, C close,
                std::basic_string<C>& out, std::uint64_t hashBase = TagWindow<C>::defaultHashBase)
{
    using Window = TagWindow<C>;
    out.clear();
    if (!std::char_traits<C>::find(text, length, open)) {
        out.append(text, length);
        return;
    }
    Window window(buffers, text, length, hashBase);

    std::vector<size_t>& stretch = buffers.stretch; // window starts of the stretch's states
    stretch.assign(1, window.start());
    size_t saved = 0; // Brent: the state the newest one is compared with
    size_t power = 1; // ... renewed when the distance to it reaches this
    for (;;) {
        const size_t i = window.find(open, 0);
        if (i == Window::npos)
            break;
        const size_t j = window.find(close, i);
        if (j == Window::npos)
            break;
        out.append(window.data(), i);
        window.removeBlock(i, j);
        if (i > 0) {
            window.dropConsumed();
            stretch.clear();
            stretch.push_back(window.start());
            saved = 0;
            power = 1;
            continue;
        }
        stretch.push_back(window.start());
        const size_t newest = stretch.size() - 1;
        if (window.sameWindows(stretch[saved], stretch[newest])) {
            const size_t period = newest - saved;
            size_t first = 0;
            while (!window.sameWindows(stretch[first], stretch[first + period]))
                ++first;
            out.append(window.dataAt(stretch[first]), window.size());
            return;
        }
        if (newest - saved == power) {
            saved = newest;
            power *= 2;
        }
    }
    out.append(window.data(), window.size());
}

template <class C>
std::basic_string<C> runTagPass(const std::basic_string<C>& text, C open, C close,
                                std::uint64_t hashBase = TagWindow<C>::defaultHashBase)
{
    TagPassBuffers<C> buffers;
    std::basic_string<C> out;
    runTagPass(buffers, text.data(), text.size(), open, close, out, hashBase);
    return out;
}

} // namespace zemsub::detail

#endif
