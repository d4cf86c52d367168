#include "FixReasons.h"

#include "manager/detail/FormatCodes.h"

#include <clocale>

namespace zemsubfix {

Reason reasonFor(zemsub::tool::CauseId id, CopyFormat format)
{
    using namespace zemsub::tool;
    CauseContext context;
    context.script = format != CopyFormat::SubRip;
    context.formatCode = format == CopyFormat::SubRip ? zemsub::detail::kFormatSrt : zemsub::detail::kFormatAss;
    const char* locale = std::setlocale(LC_CTYPE, nullptr);
    context.locale = QString::fromLatin1(locale ? locale : "C");
    const Cause cause = describeCause(id, context);
    return Reason{cause.code, cause.text};
}

} // namespace zemsubfix
