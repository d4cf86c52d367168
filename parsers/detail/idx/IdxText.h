#ifndef ZEMSUB_PARSERS_DETAIL_IDX_IDXTEXT_H
#define ZEMSUB_PARSERS_DETAIL_IDX_IDXTEXT_H

// Character-type helpers for the VobSub index twins: scan and compare for
// char (byte functions) and wchar_t (wide ones).

#include <cstdio>
#include <cstring>
#include <cwchar>

#include "parsers/detail/Literal.h"

namespace zemsub::detail {

// sscanf / swscanf.
template <class... Out> int scanText(const char* text, const char* format, Out... out)
{
    return std::sscanf(text, format, out...);
}

template <class... Out> int scanText(const wchar_t* text, const wchar_t* format, Out... out)
{
    return std::swscanf(text, format, out...);
}

// strncmp / wcsncmp over n characters, as a "begins with".
inline bool beginsWith(const char* text, const char* prefix, size_t n)
{
    return std::strncmp(text, prefix, n) == 0;
}

inline bool beginsWith(const wchar_t* text, const wchar_t* prefix, size_t n)
{
    return std::wcsncmp(text, prefix, n) == 0;
}

// The text of s from position pos to its end; empty when pos lies past the end.
template <class S> S tailFrom(const S& s, int pos)
{
    return pos > s.length() ? S() : s.substr(pos, -1);
}

} // namespace zemsub::detail

#endif
