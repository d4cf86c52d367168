#ifndef ZEMSUB_PARSERS_DETAIL_IDX_IDXTEXT_H
#define ZEMSUB_PARSERS_DETAIL_IDX_IDXTEXT_H

// Character-type helpers for the VobSub index twins: one spelling of each
// literal, scan and compare for char (byte functions) and wchar_t (wide ones).

#include <cstdio>
#include <cstring>
#include <cwchar>

namespace zemsub::detail {

template <class C> struct IdxLiteral;

template <> struct IdxLiteral<char>
{
    static constexpr const char* pick(const char* narrow, const wchar_t*) { return narrow; }
    // One word into a char buffer.
    static constexpr const char* kWordFormat = "%s";
};

template <> struct IdxLiteral<wchar_t>
{
    static constexpr const wchar_t* pick(const char*, const wchar_t* wide) { return wide; }
    // One word into a wchar_t buffer (a plain "%s" would store multibyte text).
    static constexpr const wchar_t* kWordFormat = L"%ls";
};

// The literal s as a byte literal (C = char) or a wide literal (C = wchar_t).
#define ZEMSUB_IDX_TEXT(C, s) (::zemsub::detail::IdxLiteral<C>::pick(s, L##s))

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
