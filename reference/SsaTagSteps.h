#ifndef ZEMSUB_REFERENCE_SSATAGSTEPS_H
#define ZEMSUB_REFERENCE_SSATAGSTEPS_H

// Tag stripping (RemoveSSATags) written out step by step: the reference for
// parsers/detail/ass/SsaTags.h, SsaTagPass.h and SsaTagWindow.h.
//
// The text is a plain character buffer whose recorded length never changes
// during a pass: a cut moves the tail and its terminating zero down and leaves
// the old tail behind, where the searches still look. A pass ({...}, then
// <...>) ends when it comes back to a state (text and search position) it was
// in (found with Brent's cycle detection, so a pass needs no record of its
// states). Then the first "\N" becomes a line feed, and the next ones only
// while the one replaced stood at 0.

#include <string>

namespace zemsub::reference {

// What a walk met on its way, beside its result.
struct TagStepsNotes
{
    bool repeated = false;     // a pass ended at a repeated state
    bool usedOldTail = false;  // a block's closing character lay past the first zero
    long long period = 0;      // removals between a repeated state's two visits (the longest)
};

// One pass, removing open ... close blocks.
template <class C>
std::basic_string<C> tagPassSteps(std::basic_string<C> text, C open, C close, TagStepsNotes* notes = nullptr);

// The stripped text over its whole recorded length (stale characters included).
template <class C> std::basic_string<C> stripTagsSteps(std::basic_string<C> text, TagStepsNotes* notes = nullptr);

// The first position at or after start holding c over the whole text; -1 when
// there is none or start lies outside the text.
template <class C> long long findFrom(const std::basic_string<C>& text, C c, long long start);

} // namespace zemsub::reference

#endif
