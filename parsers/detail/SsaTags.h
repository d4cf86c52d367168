#ifndef ZEMSUB_PARSERS_DETAIL_SSATAGS_H
#define ZEMSUB_PARSERS_DETAIL_SSATAGS_H

// RemoveSSATags, shared by both ASS/SSA parsers.

#include "parsers/detail/SsaTagPass.h"

namespace zemsub::detail {

// Removes {...} blocks, then <...> blocks (a block ends at the first closing
// character after its opening one; nothing is balanced), then turns "\N" into
// a line feed with replaceChars, which goes on only while the occurrence it
// replaced stood at index 0. The result keeps the recorded length and stale
// tail that deleteStr leaves. find(text, c, start) is the parser's FindChar;
// hardBreak is "\N" and lineFeed "\n" in S's characters.
template <class S, class Find> S removeSsaTags(S text, Find find, const S& hardBreak, const S& lineFeed)
{
    text = runTagPass(text, '{', '}', find);
    text = runTagPass(text, '<', '>', find);
    text.replaceChars(hardBreak, lineFeed);
    return text;
}

} // namespace zemsub::detail

#endif
