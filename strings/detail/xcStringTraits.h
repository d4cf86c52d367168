#ifndef ZEMSUB_DETAIL_XCSTRINGTRAITS_H
#define ZEMSUB_DETAIL_XCSTRINGTRAITS_H

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <stdexcept>
#include <string>

// The points where xcString and xcWString differ. Everything else is shared
// through StringCore (xcStringCore.h); read the two structs side by side.
namespace zemsub {
namespace detail {

struct NarrowTraits
{
    using Char = char;
    using Str = std::string;

    static constexpr Char space = ' ';
    static constexpr Char quote = '"';
    static constexpr Char carriageReturn = '\r';
    static constexpr Char lineFeed = '\n';
    static constexpr Char digitZero = '0';
    static constexpr Char digitNine = '9';

    // strcmp: CompareNoCase is case-sensitive.
    static int compareText(const Char* a, const Char* b) { return std::strcmp(a, b); }

    // toupper / tolower of the signed byte value.
    static int toUpper(Char c) { return std::toupper(static_cast<signed char>(c)); }
    static Char toLower(Char c) { return static_cast<Char>(std::tolower(static_cast<signed char>(c))); }

    // "%d" text of v.
    static Str formatInt(int v)
    {
        char buffer[16];
        std::snprintf(buffer, sizeof buffer, "%d", v);
        return Str(buffer);
    }

    // substr with a position past the length: an empty string.
    static Str substrPastLength() { return Str(); }

    // operator int: atoi of the text.
    static int toInt(const Str& s) { return std::atoi(s.c_str()); }
};

struct WideTraits
{
    using Char = wchar_t;
    using Str = std::wstring;

    static constexpr Char space = L' ';
    static constexpr Char quote = L'"';
    static constexpr Char carriageReturn = L'\r';
    static constexpr Char lineFeed = L'\n';
    static constexpr Char digitZero = L'0';
    static constexpr Char digitNine = L'9';

    // wcscmp: CompareNoCase is case-sensitive.
    static int compareText(const Char* a, const Char* b) { return std::wcscmp(a, b); }

    // toupper / tolower of the character code. The C library's tables cover
    // -128..255 only; every other code is its own upper and lower case.
    static bool inCaseTable(Char c) { return c >= -128 && c <= 255; }
    static int toUpper(Char c) { return inCaseTable(c) ? std::toupper(static_cast<int>(c)) : static_cast<int>(c); }
    static Char toLower(Char c)
    {
        return inCaseTable(c) ? static_cast<Char>(std::tolower(static_cast<int>(c))) : c;
    }

    // The number goes through swprintf into a buffer whose stated size is one
    // wide character, which holds only the terminator: the text is always empty.
    static Str formatInt(int v)
    {
        wchar_t buffer[1] = {0};
        std::swprintf(buffer, 1, L"%d", v);
        return Str(buffer);
    }

    // substr with a position past the length: the standard string's range error.
    [[noreturn]] static Str substrPastLength() { throw std::out_of_range("basic_string::substr"); }

    // operator int: wcstol with the LENGTH as the number base. A base of 1 or
    // above 36 is invalid and converts to 0 (wcstol is not asked).
    static int toInt(const Str& s)
    {
        const int base = static_cast<int>(s.size());
        if (base == 1 || base > 36)
            return 0;
        return static_cast<int>(std::wcstol(s.c_str(), nullptr, base));
    }
};

} // namespace detail
} // namespace zemsub

#endif
