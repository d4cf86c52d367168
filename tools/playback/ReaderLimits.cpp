#include "ReaderLimits.h"

#include "manager/detail/FormatCodes.h"
#include "parsers/detail/ass/AssLines.h"
#include "parsers/detail/srt/SrtTraits.h"

#include <limits>

namespace zemsub::tool {

int readerLineLimit(int formatCode)
{
    // The readers stop at one line past their limit.
    const bool script =
        formatCode == zemsub::detail::kFormatAss || formatCode == zemsub::detail::kFormatAssWide;
    return (script ? zemsub::detail::kAssLineLimit : zemsub::detail::kSrtLineLimit) - 1;
}

long long readerLatestTime()
{
    return std::numeric_limits<int>::max();
}

} // namespace zemsub::tool
