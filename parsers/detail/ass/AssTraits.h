#ifndef ZEMSUB_PARSERS_DETAIL_ASS_ASSTRAITS_H
#define ZEMSUB_PARSERS_DETAIL_ASS_ASSTRAITS_H

// Everything in which the 8-bit ASS/SSA parser and its FF FE twin differ, in one
// place. The shared code in the other Ass*.h headers is written against these.

#include <cstdio>
#include <cwchar>

#include "parsers/detail/reading/LineReader.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"

namespace zemsub::detail {

// The same text literal as char or wchar_t: ZEMSUB_ASS_LIT(C, "x") is "x" or L"x".
template <class C> constexpr const C* pickLiteral(const char* narrow, const wchar_t* wide);
template <> constexpr const char* pickLiteral<char>(const char* narrow, const wchar_t*)
{
    return narrow;
}
template <> constexpr const wchar_t* pickLiteral<wchar_t>(const char*, const wchar_t* wide)
{
    return wide;
}
#define ZEMSUB_ASS_LIT(C, text) ::zemsub::detail::pickLiteral<C>(text, L##text)

struct AssNarrow
{
    using Char = char;
    using String = xcString;
    using Entry = ASS_SESSION_ST;
    using Style = ASS_STYLE_ST;

    // Where the first line starts and how the file is measured.
    static constexpr long kFirstByte = 0;
    static constexpr SizeCheck kSizeCheck = SizeCheck::SeekToEnd;

    // A field asked of an empty remainder is simply empty.
    static String emptyField() { return String(); }

    static bool scanDecimal(const char* text, int& value) { return std::sscanf(text, "%d", &value) == 1; }
    static bool scanHex(const char* text, int& value)
    {
        unsigned int u = 0;
        if (std::sscanf(text, "%x", &u) != 1)
            return false;
        value = static_cast<int>(u);
        return true;
    }
    static bool scanFloat(const char* text, float& value) { return std::sscanf(text, "%f", &value) == 1; }
};

struct AssWide
{
    using Char = wchar_t;
    using String = xcWString;
    using Entry = ASS_SESSION_ST_U;
    using Style = ASS_STYLE_ST_U;

    // Skips the FF FE mark; the size comes from the descriptor so that the
    // stream is not sought before fgetws makes it wide.
    static constexpr long kFirstByte = 2;
    static constexpr SizeCheck kSizeCheck = SizeCheck::FromDescriptor;

    // A field asked of an empty remainder throws the int 1, which nothing in
    // the library catches: it leaves Open as it stands.
    [[noreturn]] static String emptyField() { throw 1; }

    static bool scanDecimal(const wchar_t* text, int& value)
    {
        return std::swscanf(text, L"%d", &value) == 1;
    }
    static bool scanHex(const wchar_t* text, int& value)
    {
        unsigned int u = 0;
        if (std::swscanf(text, L"%x", &u) != 1)
            return false;
        value = static_cast<int>(u);
        return true;
    }
    static bool scanFloat(const wchar_t* text, float& value)
    {
        return std::swscanf(text, L"%f", &value) == 1;
    }
};

} // namespace zemsub::detail

#endif
