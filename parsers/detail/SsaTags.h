#ifndef ZEMSUB_PARSERS_DETAIL_SSATAGS_H
#define ZEMSUB_PARSERS_DETAIL_SSATAGS_H

// RemoveSSATags, shared by both ASS/SSA parsers.

#include <string>
#include <type_traits>
#include <utility>

#include "parsers/detail/SsaTagPass.h"

namespace zemsub::detail {

// Removes {...} blocks, then <...> blocks (a block ends at the first closing
// character after its opening one; nothing is balanced), then turns "\N" into
// a line feed with replaceChars, which goes on only while the occurrence it
// replaced stood at index 0. The result keeps the recorded length and stale
// tail that deleteStr leaves. hardBreak is "\N" and lineFeed "\n" in S's
// characters.
template <class S> S removeSsaTags(const S& text, const S& hardBreak, const S& lineFeed)
{
    using C = std::remove_const_t<std::remove_pointer_t<decltype(std::declval<const S&>().getData())>>;
    std::basic_string<C> stored(text.getData(), static_cast<size_t>(text.length()));
    stored = runTagPass<C>(stored, C('{'), C('}'));
    stored = runTagPass<C>(stored, C('<'), C('>'));
    S result(stored.data(), static_cast<int>(stored.size()));
    result.replaceChars(hardBreak, lineFeed);
    return result;
}

// The same, for callers that hand in their FindChar: its answer is the first
// occurrence at or after the start, which the passes find in their own
// window without copying the text, so it is not called.
template <class S, class Find> S removeSsaTags(const S& text, Find&&, const S& hardBreak, const S& lineFeed)
{
    return removeSsaTags(text, hardBreak, lineFeed);
}

} // namespace zemsub::detail

#endif
