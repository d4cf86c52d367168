// Tag stripping of ASS/SSA captions: brace and angle blocks, the first "\N",
// and the stale tail that deleteStr leaves behind the terminating zero.

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"

namespace {

// Every stored character, up to the recorded length.
std::string stored(const xcString& s)
{
    return std::string(s.getData(), static_cast<size_t>(s.length()));
}

std::wstring stored(const xcWString& s)
{
    return std::wstring(s.getData(), static_cast<size_t>(s.length()));
}

std::wstring widen(const std::string& s)
{
    return std::wstring(s.begin(), s.end());
}

xcString narrowText(const std::string& s)
{
    return xcString(s.data(), static_cast<int>(s.size()));
}

xcWString wideText(const std::string& s)
{
    const std::wstring w = widen(s);
    return xcWString(w.data(), static_cast<int>(w.size()));
}

// The text and what should be stored after stripping ('\0' marks the
// terminating zero and what stands behind it).
struct StripCase
{
    const char* name;
    std::string input;
    std::string storedAfter;
};

using namespace std::string_literals;

const StripCase kCases[] = {
    {"BoldTagsAroundHello", "{\\b1}Hello{\\b0}", "Hello\0\\b0}\0\\b0}"s},
    {"FirstClosingBraceEndsTheBlock", "{a{b}c}x", "c}x\0}c}x"s},
    {"UnclosedBraceStays", "x{unclosed", "x{unclosed"},
    {"UnclosedBraceAfterABlockStays", "{a}x{b", "x{b\0{b"s},
    {"ItalicAngleTagsGo", "<i>Hi</i>", "Hi\0i>\0\0i>"s},
    {"LoneLessThanStays", "1 < 2", "1 < 2"},
    {"AngleBlockBetweenSpacesGoes", "a < b > c", "a  c\0 > c"s},
    {"HardBreakBecomesLineFeed", "one\\Ntwo", "one\ntwo"},
    {"SoftBreakStays", "one\\ntwo", "one\\ntwo"},
    {"OnlyFirstHardBreakConverted", "a\\Nb\\Nc", "a\nb\\Nc"},
    {"HardBreakAtStartConvertsTheNextToo", "\\N\\Nx\\Ny", "\n\nx\\Ny"},
    {"LoneClosingBraceStays", "}{x}", "}\0x}"s},
    {"EmptyStaysEmpty", "", ""},
    {"StaleBracesThatPairWithNothingEndNormally", "{a}{b}c", "c\0}c\0}c"s},
    {"OtherEscapesStay", "a\\h\\tb", "a\\h\\tb"},
    // "\N" in the stale tail: the replacement after the one at index 0 is
    // found behind the zero, and each replacement shortens the stored text.
    {"HardBreakReplacementReachesTheStaleTail", "{x}\\N", "\n\0\n"s},
    {"HardBreakOnlyInTheStaleTail", "{xx}{\\N}", "\0\n}\0\\N}"s},
    // Endless without the guard: the pass ends at its first repeated state.
    {"EndlessBracePassEndsAtFirstRepeatedState", "{ab}{c", "{c\0}{c"s},
    {"EndlessAnglePassEndsAtFirstRepeatedState", "<ab><c", "<c\0><c"s},
    {"PassRepeatingEveryTwoRemovalsEndsAtFirstRepeatedState", "{{}{{{}{", "{\0}{\0\0}{"s},
};

// Keeps test listings short.
void PrintTo(const StripCase& c, std::ostream* os)
{
    *os << c.name;
}

class SsaTagsCases : public testing::TestWithParam<StripCase>
{
};

TEST_P(SsaTagsCases, NarrowStoresExactlyTheExpectedCharacters)
{
    xcAssParser parser;
    const StripCase& c = GetParam();
    const xcString out = parser.RemoveSSATags(narrowText(c.input), 0);
    EXPECT_EQ(stored(out), c.storedAfter);
    EXPECT_EQ(out.length(), static_cast<int>(c.storedAfter.size()));
}

TEST_P(SsaTagsCases, WideStoresExactlyTheExpectedCharacters)
{
    xcAssParserU parser;
    const StripCase& c = GetParam();
    const xcWString out = parser.RemoveSSATags(wideText(c.input));
    EXPECT_EQ(stored(out), widen(c.storedAfter));
    EXPECT_EQ(out.length(), static_cast<int>(c.storedAfter.size()));
}

INSTANTIATE_TEST_SUITE_P(RemoveSSATags, SsaTagsCases, testing::ValuesIn(kCases),
                         [](const testing::TestParamInfo<StripCase>& info) {
                             return std::string(info.param.name);
                         });

TEST(SsaTags, VisibleTextOfBoldTagsIsHello)
{
    xcAssParser parser;
    EXPECT_STREQ(parser.RemoveSSATags("{\\b1}Hello{\\b0}", 7).getData(), "Hello");
    xcAssParserU wide;
    EXPECT_STREQ(wide.RemoveSSATags(L"{\\b1}Hello{\\b0}").getData(), L"Hello");
}

TEST(SsaTags, RecordedLengthOfTheInputIsKeptByRemovals)
{
    xcAssParser parser;
    const xcString out = parser.RemoveSSATags("{\\b1}Hello{\\b0}", 0);
    EXPECT_EQ(out.length(), 15);
    EXPECT_EQ(std::string(out.getData()), "Hello");
}

TEST(SsaTags, EncodingArgumentHasNoEffect)
{
    xcAssParser parser;
    for (int encoding : {-1, 0, 1, 128, 65001})
        EXPECT_EQ(stored(parser.RemoveSSATags("{\\fe128}x<b>y\\Nz", encoding)),
                  stored(parser.RemoveSSATags("{\\fe128}x<b>y\\Nz", 0)));
}

TEST(SsaTags, ArgumentIsTakenByValueAndLeftAlone)
{
    xcAssParser parser;
    const xcString in("{a}b");
    parser.RemoveSSATags(in, 0);
    EXPECT_EQ(stored(in), "{a}b");
}

// FindChar

TEST(SsaFindChar, NarrowFindsFirstIndexNotBelowStart)
{
    xcAssParser parser;
    EXPECT_EQ(parser.FindChar("a{b}c{d}", '{', 0, 0), 1);
    EXPECT_EQ(parser.FindChar("a{b}c{d}", '{', 2, 0), 5);
    EXPECT_EQ(parser.FindChar("a{b}c{d}", '}', 1, 0), 3);
    EXPECT_EQ(parser.FindChar("a{b}c{d}", 'x', 0, 0), -1);
    EXPECT_EQ(parser.FindChar("a{b}c{d}", '}', 8, 0), -1);
}

TEST(SsaFindChar, NarrowFindsSoughtBraceWhileCountingBraces)
{
    xcAssParser parser;
    EXPECT_EQ(parser.FindChar("{{{", '{', 1, 0), 1);
    EXPECT_EQ(parser.FindChar("{{}}", '}', 0, 0), 2);
}

TEST(SsaFindChar, NarrowStepsOverFeDigitsWithoutChangingTheAnswer)
{
    xcAssParser parser;
    EXPECT_EQ(parser.FindChar("{\\fe128}x", '1', 0, 0), 4);
    EXPECT_EQ(parser.FindChar("{\\fe128}x", '}', 0, 0), 7);
    EXPECT_EQ(parser.FindChar("{\\fe128}x", 'x', 0, 0), 8);
    EXPECT_EQ(parser.FindChar("{a\\fe}", '}', 0, 0), 5);
    EXPECT_EQ(parser.FindChar("{\\fe\xE9}", '}', 0, 0), 5);
}

TEST(SsaFindChar, NarrowOnEmptyTextAnswersMinusOne)
{
    xcAssParser parser;
    EXPECT_EQ(parser.FindChar("", '{', 0, 0), -1);
}

TEST(SsaFindChar, NarrowWithNegativeStartSearchesFromTheFirstCharacter)
{
    xcAssParser parser;
    EXPECT_EQ(parser.FindChar("{x}", '{', -1, 0), 0);
}

TEST(SsaFindChar, NarrowSearchesBehindAnEmbeddedZero)
{
    xcAssParser parser;
    EXPECT_EQ(parser.FindChar(xcString("a\0}", 3), '}', 0, 0), 2);
}

TEST(SsaFindChar, NarrowLastArgumentIsIgnored)
{
    xcAssParser parser;
    EXPECT_EQ(parser.FindChar("ab{c", '{', 0, 12345), 2);
}

TEST(SsaFindChar, WideIsFindFromStart)
{
    xcAssParserU parser;
    EXPECT_EQ(parser.FindChar(L"a{b}c{d}", '{', 0), 1);
    EXPECT_EQ(parser.FindChar(L"a{b}c{d}", '{', 2), 5);
    EXPECT_EQ(parser.FindChar(L"a{b}c{d}", 'x', 0), -1);
    EXPECT_EQ(parser.FindChar(xcWString(L"a\0}", 3), '}', 0), 2);
}

TEST(SsaFindChar, WideWithNegativeStartAnswersMinusOneAsFindDoes)
{
    xcAssParserU parser;
    EXPECT_EQ(parser.FindChar(L"{x}", '{', -1), -1);
}

TEST(SsaFindChar, WideWidensTheSoughtCharacterWithItsSign)
{
    xcAssParserU parser;
    const wchar_t latin[] = {L'a', 0xE9, 0};
    EXPECT_EQ(parser.FindChar(latin, '\xE9', 0), -1);
    const wchar_t signExtended[] = {L'a', static_cast<wchar_t>(-23), 0};
    EXPECT_EQ(parser.FindChar(signExtended, '\xE9', 0), 1);
}

// The narrow finder answers what a plain search answers, whatever braces,
// "\fe" runs, digits and high bytes the text holds.
TEST(SsaFindChar, NarrowMatchesAPlainSearchOnGeneratedTexts)
{
    xcAssParser parser;
    const char alphabet[] = {'{', '}', '\\', 'f', 'e', '1', '9', 'a', '\xE9', '\0'};
    unsigned seed = 12345;
    auto next = [&seed]() {
        seed = seed * 1103515245u + 12345u;
        return (seed >> 16) & 0x7FFF;
    };
    for (int round = 0; round < 5000; ++round) {
        const int len = static_cast<int>(next() % 14);
        std::string s;
        for (int i = 0; i < len; ++i)
            s += alphabet[next() % sizeof(alphabet)];
        const char sought = "{}e1\xE9"[next() % 5];
        const int start = static_cast<int>(next() % 17) - 2;
        int expected = -1;
        for (int i = start < 0 ? 0 : start; i < len; ++i) {
            if (s[static_cast<size_t>(i)] == sought) {
                expected = i;
                break;
            }
        }
        ASSERT_EQ(parser.FindChar(narrowText(s), sought, start, 0), expected) << "text of length " << len;
    }
}

} // namespace
