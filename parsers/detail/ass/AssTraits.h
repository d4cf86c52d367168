#ifndef ZEMSUB_PARSERS_DETAIL_ASS_ASSTRAITS_H
#define ZEMSUB_PARSERS_DETAIL_ASS_ASSTRAITS_H

// Everything in which the 8-bit ASS/SSA parser and its FF FE twin differ, in one
// place. The shared code in the other Ass*.h headers is written against these.

#include <cstdio>
#include <cwchar>

#include "parsers/detail/Literal.h"
#include "parsers/detail/reading/LineReader.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"

namespace zemsub::detail {

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

    // FindChar: the first c at or after start (a negative start counts from 0), or -1.
    static int findChar(const String& text, char c, int start) { return text.find(c, start < 0 ? 0 : start); }
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

    // FindChar: the string's own find of c widened with its sign, so a negative
    // start finds nothing.
    static int findChar(const String& text, char c, int start) { return text.find(static_cast<wchar_t>(c), start); }
};

} // namespace zemsub::detail

#endif
