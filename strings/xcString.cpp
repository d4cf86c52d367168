#include "strings/xcString.h"

#include "strings/detail/xcStringCore.h"
#include "strings/detail/xcStringTraits.h"

// A thin shell over StringCore: every algorithm is shared with the wide twin;
// the points where the twins differ are the members of NarrowTraits.

namespace {
using Char = char;
using Text = std::string;
using Core = zemsub::detail::StringCore<zemsub::detail::NarrowTraits>;
} // namespace

#define ZEMSUB_STRING xcString
#define ZEMSUB_LOWER_FUNCTION strlwr
#include "strings/detail/xcStringMembers.inc"
#undef ZEMSUB_LOWER_FUNCTION
#undef ZEMSUB_STRING
