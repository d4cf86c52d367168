// The line source's own UTF-8 decoder against the C library's mbrtowc, which
// the wide stream uses: over every code point and every malformed pattern of up
// to four bytes. Where the decoder takes bytes it must give exactly what
// mbrtowc gives; under a UTF-8 codeset it must take everything mbrtowc takes
// except what it leaves to the stream on purpose: values past U+10FFFF and
// surrogates.

#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cwchar>
#include <string>

#include "parsers/detail/reading/Utf8Text.h"

namespace {

using zemsub::detail::currentWideCodeset;
using zemsub::detail::decodePlainBytes;
using zemsub::detail::WideCodeset;

class CtypeLocale
{
public:
    explicit CtypeLocale(const char* name) : m_previous(std::setlocale(LC_CTYPE, nullptr))
    {
        m_ok = std::setlocale(LC_CTYPE, name) != nullptr;
    }
    ~CtypeLocale() { std::setlocale(LC_CTYPE, m_previous.c_str()); }
    bool ok() const { return m_ok; }

private:
    std::string m_previous;
    bool m_ok = false;
};

// The bytes through mbrtowc one character after the other; false when it
// refuses them or they end inside a character.
bool decodeWithMbrtowc(const std::string& bytes, std::wstring& out)
{
    std::mbstate_t state{};
    out.clear();
    size_t at = 0;
    while (at < bytes.size()) {
        wchar_t c = 0;
        const size_t n = std::mbrtowc(&c, bytes.data() + at, bytes.size() - at, &state);
        if (n == static_cast<size_t>(-1) || n == static_cast<size_t>(-2))
            return false;
        out += c;
        at += n == 0 ? 1 : n;
    }
    return true;
}

std::string utf8(unsigned cp)
{
    std::string s;
    if (cp < 0x80) {
        s += char(cp);
    } else if (cp < 0x800) {
        s += char(0xC0 | (cp >> 6));
        s += char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        s += char(0xE0 | (cp >> 12));
        s += char(0x80 | ((cp >> 6) & 0x3F));
        s += char(0x80 | (cp & 0x3F));
    } else {
        s += char(0xF0 | (cp >> 18));
        s += char(0x80 | ((cp >> 12) & 0x3F));
        s += char(0x80 | ((cp >> 6) & 0x3F));
        s += char(0x80 | (cp & 0x3F));
    }
    return s;
}

bool hasDoubtfulValue(const std::wstring& text)
{
    for (wchar_t c : text) {
        const unsigned long v = static_cast<unsigned long>(static_cast<uint32_t>(c));
        if (v > 0x10FFFF || (v >= 0xD800 && v <= 0xDFFF))
            return true;
    }
    return false;
}

// Counts disagreements and records the first.
struct Comparison
{
    WideCodeset set;
    bool takesAllThatMbrtowcTakes = false;
    long long checked = 0;
    long long failures = 0;
    std::string first = {};

    void check(const std::string& bytes)
    {
        ++checked;
        std::wstring fast, slow;
        const bool fastTook = decodePlainBytes(bytes, set, fast);
        const bool slowTook = decodeWithMbrtowc(bytes, slow);
        const bool agree = fastTook ? (slowTook && fast == slow)
                                    : !(takesAllThatMbrtowcTakes && slowTook && !hasDoubtfulValue(slow));
        if (agree)
            return;
        if (failures++ == 0) {
            for (unsigned char b : bytes) {
                char hex[4];
                std::snprintf(hex, sizeof hex, "%02X ", b);
                first += hex;
            }
            first += fastTook ? "taken by the decoder" : "left by the decoder";
            first += slowTook ? ", taken by mbrtowc" : ", refused by mbrtowc";
        }
    }
};

const unsigned char kTailBytes[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC2, 0xE0, 0xF0, 0xFF};

TEST(Utf8Decoder, EveryCodePointAndEveryPatternUpToFourBytesAsMbrtowcReadsThem)
{
    CtypeLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.ok());
    ASSERT_EQ(currentWideCodeset(), WideCodeset::Utf8);
    Comparison c{WideCodeset::Utf8, true};

    // Every code point, surrogates and the first values past U+10FFFF included,
    // alone and between two letters.
    for (unsigned cp = 0; cp <= 0x110010; ++cp) {
        const std::string bytes = utf8(cp);
        c.check(bytes);
        if (cp % 97 == 0)
            c.check("a" + bytes + "b");
    }
    // Every sequence of one, two and three bytes.
    for (unsigned a = 0; a < 256; ++a) {
        c.check(std::string(1, char(a)));
        for (unsigned b = 0; b < 256; ++b) {
            c.check({char(a), char(b)});
            for (unsigned d = 0; d < 256; ++d)
                c.check({char(a), char(b), char(d)});
        }
    }
    // Four bytes: every lead byte and second byte, the last two from each class
    // of byte (ASCII, each range of continuation bytes, lead bytes).
    for (unsigned a = 0x80; a < 256; ++a)
        for (unsigned b = 0; b < 256; ++b)
            for (unsigned char d : kTailBytes)
                for (unsigned char e : kTailBytes)
                    c.check({char(a), char(b), char(d), char(e)});

    EXPECT_EQ(c.failures, 0) << "of " << c.checked << "; first: " << c.first;
}

TEST(Utf8Decoder, UnderTheCLocaleTakesOnlyWhatMbrtowcGivesTheSameWay)
{
    CtypeLocale locale("C");
    ASSERT_TRUE(locale.ok());
    ASSERT_EQ(currentWideCodeset(), WideCodeset::Ascii);
    Comparison c{WideCodeset::Ascii, false};
    for (unsigned a = 0; a < 256; ++a) {
        c.check(std::string(1, char(a)));
        for (unsigned b = 0; b < 256; ++b)
            c.check({char(a), char(b)});
    }
    EXPECT_EQ(c.failures, 0) << "of " << c.checked << "; first: " << c.first;
    std::wstring out;
    EXPECT_FALSE(decodePlainBytes("\xC3\xA9", WideCodeset::Ascii, out));
    EXPECT_FALSE(decodePlainBytes("abc", WideCodeset::Other, out));
}

} // namespace
