#ifndef ZEMSUB_PARSERS_DETAIL_IDX_IDXFIELDS_H
#define ZEMSUB_PARSERS_DETAIL_IDX_IDXFIELDS_H

// Field reading of the VobSub index twins (GetStr, GetInt).

#include "parsers/detail/idx/IdxText.h"

namespace zemsub::detail {

// Takes the first field off the front of line: the text before the first sep,
// or the whole line when there is none (the line then stays as it is). The line
// is trimmed on the left first; an empty line without sep throws the int 1.
template <class S, class C> S cutIdxField(S& line, C sep)
{
    line.TrimLeft();
    const int at = line.find(sep, 0);
    if (at < 0 && line.isEmpty())
        throw 1;
    S field = line.Left(at < 0 ? line.length() : at);
    if (at >= 0)
        line = line.substr(at + 1, -1);
    return field;
}

// The first field of line as a number, -1 when it does not read. A field that
// begins with "&h" is cut to those two characters before the "%x" read, so it
// never reads.
template <class S, class C> int readIdxIntField(S& line, C sep)
{
    S field = cutIdxField(line, sep);
    field.MakeLower();
    if (field.Left(2) == S(ZEMSUB_LIT(C, "&h"))) {
        const S text = field.Left(2);
        unsigned int value = 0;
        return scanText(text.getData(), ZEMSUB_LIT(C, "%x"), &value) == 1 ? int(value) : -1;
    }
    int value = 0;
    return scanText(field.getData(), ZEMSUB_LIT(C, "%d"), &value) == 1 ? value : -1;
}

} // namespace zemsub::detail

#endif
