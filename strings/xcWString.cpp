#include "strings/xcWString.h"

#include "strings/detail/xcStringCore.h"
#include "strings/detail/xcStringTraits.h"

// A thin shell over StringCore: every algorithm is shared with the narrow twin;
// the points where the twins differ are the members of WideTraits.

namespace {
using Char = wchar_t;
using Text = std::wstring;
using Core = zemsub::detail::StringCore<zemsub::detail::WideTraits>;
} // namespace

#define ZEMSUB_STRING xcWString
#define ZEMSUB_LOWER_FUNCTION wcslwr
#include "strings/detail/xcStringMembers.inc"
#undef ZEMSUB_LOWER_FUNCTION
#undef ZEMSUB_STRING
