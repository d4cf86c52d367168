#ifndef ZEMSUB_PARSERS_DETAIL_READING_UTF8TEXT_H
#define ZEMSUB_PARSERS_DETAIL_READING_UTF8TEXT_H

// Bytes to wide characters where the answer cannot depend on how the C
// library's converter treats doubtful input: well-formed UTF-8 under a UTF-8
// codeset, or bytes below 0x80 under the plain "C" codeset. Anything else
// (surrogates, overlong forms, values past U+10FFFF, cut sequences, other
// codesets) is left to the stream.
// Reference: the C library's mbrtowc; differential test:
// tests/parsers/Utf8DecoderTest.cpp.

#include <langinfo.h>

#include <cstring>
#include <string>

namespace zemsub::detail {

enum class WideCodeset { Utf8, Ascii, Other };

inline WideCodeset currentWideCodeset()
{
    const char* set = nl_langinfo(CODESET);
    if (!set)
        return WideCodeset::Other;
    if (std::strcmp(set, "UTF-8") == 0)
        return WideCodeset::Utf8;
    if (std::strcmp(set, "ANSI_X3.4-1968") == 0)
        return WideCodeset::Ascii;
    return WideCodeset::Other;
}

// Decodes bytes into out; false (out unspecified) when the bytes are not
// plain for the codeset.
inline bool decodePlainBytes(const std::string& bytes, WideCodeset set, std::wstring& out)
{
    if (set == WideCodeset::Other)
        return false;
    out.resize(bytes.size());  // never more characters than bytes
    wchar_t* to = &out[0];
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
    const auto* end = p + bytes.size();
    while (p < end) {
        // Sixteen bytes at a time while they are all below 0x80.
        while (end - p >= 16) {
            unsigned char high = 0;
            for (int k = 0; k < 16; ++k)
                high |= p[k];
            if (high & 0x80)
                break;
            for (int k = 0; k < 16; ++k)
                to[k] = static_cast<wchar_t>(p[k]);
            p += 16;
            to += 16;
        }
        if (p == end)
            break;
        const unsigned c = *p;
        if (c < 0x80) {
            *to++ = static_cast<wchar_t>(c);
            ++p;
            continue;
        }
        if (set != WideCodeset::Utf8)
            return false;
        int more = 0;
        unsigned value = 0;
        unsigned least = 0;
        if (c >= 0xC2 && c <= 0xDF) {
            more = 1, value = c & 0x1F, least = 0x80;
        } else if (c >= 0xE0 && c <= 0xEF) {
            more = 2, value = c & 0x0F, least = 0x800;
        } else if (c >= 0xF0 && c <= 0xF4) {
            more = 3, value = c & 0x07, least = 0x10000;
        } else {
            return false;
        }
        if (end - p <= more)
            return false;
        for (int k = 1; k <= more; ++k) {
            if ((p[k] & 0xC0) != 0x80)
                return false;
            value = (value << 6) | (p[k] & 0x3F);
        }
        if (value < least || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
            return false;
        *to++ = static_cast<wchar_t>(value);
        p += more + 1;
    }
    out.resize(static_cast<size_t>(to - out.data()));
    return true;
}

}  // namespace zemsub::detail

#endif
