#ifndef ZEMSUB_PARSERS_DETAIL_SSATAGPASS_H
#define ZEMSUB_PARSERS_DETAIL_SSATAGPASS_H

// One block-removal pass of RemoveSSATags ({...} or <...>), ended at its first
// repeated state.
//
// A removal is deleteStr, which keeps the recorded length and leaves the old
// tail behind the new terminating zero, and the searches run over that whole
// recorded length. A closing character in that stale tail can pair with an
// opening one before the zero, and the pass can then come back to a state it
// was in: "{ab}{c" repeats after one removal, "{{}{{{}{" every two, and longer
// periods exist. Such a pass would never end; it ends instead at the first
// state that repeats, with the text as it stands there. Every pass that ends on
// its own is walked exactly as before.
//
// Repetition is found with Brent's cycle detection, which keeps one saved
// state besides the walking one; the state is the stored characters (the
// recorded length never changes) and the position where the next search starts.

#include <string>
#include <type_traits>
#include <utility>

namespace zemsub::detail {

template <class S> struct TagPassState
{
    S text;
    int from;
};

template <class S> bool sameTagPassState(const TagPassState<S>& a, const TagPassState<S>& b)
{
    using C = std::remove_const_t<std::remove_pointer_t<decltype(std::declval<const S&>().getData())>>;
    const int n = a.text.length();
    return a.from == b.from && n == b.text.length() &&
           std::char_traits<C>::compare(a.text.getData(), b.text.getData(), static_cast<size_t>(n)) == 0;
}

// One search-and-remove step: the first `open` at or after state.from, the
// first `close` at or after it, and the block between them (both included)
// goes; the next search starts where the block began. False, with nothing
// changed, when the pass ends here. find(text, c, start) is the parser's FindChar.
template <class S, class Find> bool tagPassStep(TagPassState<S>& state, char open, char close, Find& find)
{
    if (state.from >= state.text.length())
        return false;
    const int p = find(state.text, open, state.from);
    if (p < 0)
        return false;
    const int q = find(state.text, close, p);
    if (q < 0)
        return false;
    state.text.deleteStr(p, q - p + 1);
    state.from = p;
    return true;
}

template <class S, class Find> S runTagPass(const S& text, char open, char close, Find find)
{
    using State = TagPassState<S>;
    const State first{text, 0};

    // Walk the pass, comparing each state with a saved one that is renewed
    // whenever the distance to it reaches the next power of two.
    State saved = first;
    State walker = first;
    if (!tagPassStep(walker, open, close, find))
        return walker.text;
    long long power = 1;
    long long period = 1;
    while (!sameTagPassState(saved, walker)) {
        if (power == period) {
            saved = walker;
            power *= 2;
            period = 0;
        }
        if (!tagPassStep(walker, open, close, find))
            return walker.text;
        ++period;
    }

    // The pass repeats every `period` steps. The first repeated state is the
    // first one that equals the state `period` steps further on: walk again
    // from the start with a second walker that far ahead.
    State behind = first;
    State ahead = first;
    for (long long i = 0; i < period; ++i)
        tagPassStep(ahead, open, close, find);
    while (!sameTagPassState(behind, ahead)) {
        tagPassStep(behind, open, close, find);
        tagPassStep(ahead, open, close, find);
    }
    return behind.text;
}

} // namespace zemsub::detail

#endif
