#include "FixReasons.h"

#include <clocale>

namespace zemsubfix {

Reason reasonFor(zemsub::tool::CauseId id, CopyFormat format)
{
    using namespace zemsub::tool;
    LibrarySide library;
    library.formatCode = format == CopyFormat::SubRip ? CodeSubRip : CodeScript;
    library.opened = true;
    const char* locale = std::setlocale(LC_CTYPE, nullptr);
    library.locale = QString::fromLatin1(locale ? locale : "C");
    WrittenFile copy;
    copy.kind = format == CopyFormat::SubRip ? WrittenKind::SubRip : WrittenKind::Script;
    const Cause cause = describeCause(id, copy, library);
    return Reason{cause.code, cause.text};
}

} // namespace zemsubfix
