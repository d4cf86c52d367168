#ifndef ZEMSUB_PARSERS_DETAIL_LITERAL_H
#define ZEMSUB_PARSERS_DETAIL_LITERAL_H

// One spelling of a text literal for both twins of every format:
// ZEMSUB_LIT(C, "x") is "x" when C is char and L"x" when C is wchar_t.

namespace zemsub::detail {

template <class C> constexpr const C* pickLiteral(const char* narrow, const wchar_t* wide);

template <> constexpr const char* pickLiteral<char>(const char* narrow, const wchar_t*)
{
    return narrow;
}

template <> constexpr const wchar_t* pickLiteral<wchar_t>(const char*, const wchar_t* wide)
{
    return wide;
}

} // namespace zemsub::detail

#define ZEMSUB_LIT(C, text) ::zemsub::detail::pickLiteral<C>(text, L##text)

#endif
