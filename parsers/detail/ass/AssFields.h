#ifndef ZEMSUB_PARSERS_DETAIL_ASS_ASSFIELDS_H
#define ZEMSUB_PARSERS_DETAIL_ASS_ASSFIELDS_H

// The field readers of the ASS/SSA parsers (GetStr, GetInt, GetFloat).

#include "parsers/detail/ass/AssTraits.h"

namespace zemsub::detail {

// Cuts the first field off line at sep, after removing leading spaces (with
// TrimLeft's advancing index). Without sep the whole line is the field and the
// line is left as it is; an empty line gives T::emptyField().
template <class T> typename T::String cutAssField(typename T::String& line, typename T::Char sep)
{
    line.TrimLeft();
    int p = line.find(sep, 0);
    const bool found = p >= 0;
    if (!found) {
        p = line.length();
        if (p == 0)
            return T::emptyField();
    }
    typename T::String field = line.Left(p);
    if (found)
        line = line.substr(p + 1, -1);
    return field;
}

// "%d" of the lower-cased field, -1 when nothing converts. A field starting
// with "&h" is scanned as "%x" but cut to those two characters first, so it
// always reads -1.
template <class T> int intFromAssField(typename T::String field)
{
    using C = typename T::Char;
    field.MakeLower();
    int value = 0;
    bool converted = false;
    if (field.getChar(0) == C('&') && field.getChar(1) == C('h'))
        converted = T::scanHex(field.Left(2).getData(), value);
    else
        converted = T::scanDecimal(field.getData(), value);
    return converted ? value : -1;
}

// "%f" of the lower-cased field into a float, widened; -1.0 when nothing converts.
template <class T> double floatFromAssField(typename T::String field)
{
    field.MakeLower();
    float value = 0;
    return T::scanFloat(field.getData(), value) ? static_cast<double>(value) : -1.0;
}

} // namespace zemsub::detail

#endif
