#ifndef ZEMSUB_PARSERS_DETAIL_ASS_SSATAGS_H
#define ZEMSUB_PARSERS_DETAIL_ASS_SSATAGS_H

// RemoveSSATags, shared by both ASS/SSA parsers.
// Reference: reference/SsaTagSteps.h; differential tests:
// tests/parsers/SsaTagPassTest.cpp and the fuzz target ssa_tags.

#include <string>
#include <type_traits>
#include <utility>

#include "parsers/detail/ass/SsaTagPass.h"
#include "strings/detail/xcStringCore.h"
#include "strings/detail/xcStringTraits.h"

namespace zemsub::detail {

// The character type of a string class.
template <class S>
using SsaTagChar = std::remove_const_t<std::remove_pointer_t<decltype(std::declval<const S&>().getData())>>;

// The string algorithms of each character type, as xcString and xcWString run them.
template <class C> struct StringCoreOf;
template <> struct StringCoreOf<char>
{
    using Core = StringCore<NarrowTraits>;
};
template <> struct StringCoreOf<wchar_t>
{
    using Core = StringCore<WideTraits>;
};

// Removes {...} blocks, then <...> blocks (a block ends at the first closing
// character after its opening one; nothing is balanced), then replaces
// hardBreak ("\N") with lineFeed the way xcString::replaceChars does, going on
// only while the occurrence it replaced stood at index 0. The stored
// characters text[0, length) become out, which keeps the recorded length and
// the stale tail that deleteStr leaves, less what the replacement takes.
template <class C>
void removeSsaTagsInto(TagPassBuffers<C>& buffers, const C* text, size_t length,
                       const std::basic_string<C>& hardBreak, const std::basic_string<C>& lineFeed,
                       std::basic_string<C>& out)
{
    runTagPass(buffers, text, length, C('{'), C('}'), buffers.between);
    runTagPass(buffers, buffers.between.data(), buffers.between.size(), C('<'), C('>'), out);
    StringCoreOf<C>::Core::replaceChars(out, hardBreak, lineFeed);
}

template <class S> std::basic_string<SsaTagChar<S>> storedText(const S& s)
{
    return std::basic_string<SsaTagChar<S>>(s.getData(), static_cast<size_t>(s.length()));
}

// The same on strings: hardBreak is "\N" and lineFeed "\n" in S's characters.
template <class S> S removeSsaTags(const S& text, const S& hardBreak, const S& lineFeed)
{
    TagPassBuffers<SsaTagChar<S>> buffers;
    std::basic_string<SsaTagChar<S>> out;
    removeSsaTagsInto(buffers, text.getData(), static_cast<size_t>(text.length()), storedText(hardBreak),
                      storedText(lineFeed), out);
    return S(out.data(), static_cast<int>(out.size()));
}

} // namespace zemsub::detail

#endif
