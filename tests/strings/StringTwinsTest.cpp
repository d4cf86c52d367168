// xcString and xcWString side by side: the typed tests run both twins on the
// same inputs where they must agree; the TwinsDiffer tests pin each point where
// they must not.
#include "strings/xcString.h"
#include "strings/xcWString.h"

#include <gtest/gtest.h>

#include <cctype>
#include <climits>
#include <map>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace {

template <class S>
struct Twin;

template <>
struct Twin<xcString>
{
    using Char = char;
    using Std = std::string;
};

template <>
struct Twin<xcWString>
{
    using Char = wchar_t;
    using Std = std::wstring;
};

// The twin's string made of these ASCII bytes, one byte per character, zero bytes included.
template <class S>
S make(const std::string& ascii)
{
    typename Twin<S>::Std s;
    for (char c : ascii)
        s += static_cast<typename Twin<S>::Char>(static_cast<unsigned char>(c));
    return S(s);
}

// Every character up to the recorded length, back as bytes (ASCII inputs only).
template <class S>
std::string text(const S& s)
{
    std::string out;
    for (int i = 0; i < s.length(); ++i)
        out += static_cast<char>(s.getData()[i]);
    return out;
}

// The zero-terminated text, back as bytes.
template <class S>
std::string cText(const S& s)
{
    std::string out;
    for (const auto* p = s.getData(); *p; ++p)
        out += static_cast<char>(*p);
    return out;
}

std::string bin(const char* p, size_t n)
{
    return std::string(p, n);
}

template <class S>
class StringTwins : public ::testing::Test
{
};

using Twins = ::testing::Types<xcString, xcWString>;

class TwinNames
{
public:
    template <class S>
    static std::string GetName(int)
    {
        return std::is_same<S, xcString>::value ? "xcString" : "xcWString";
    }
};

} // namespace

TYPED_TEST_SUITE(StringTwins, Twins, TwinNames);

// ---- construction, copying, appending ----

TYPED_TEST(StringTwins, CountConstructorTakesZeroCharactersToo)
{
    using S = TypeParam;
    const S source = make<S>(bin("ab\0de", 5));
    const S s(source.getData(), 5);
    EXPECT_EQ(s.length(), 5);
    EXPECT_EQ(text(s), bin("ab\0de", 5));
    EXPECT_TRUE(S(source.getData(), 0).isEmpty());
    EXPECT_THROW(S(source.getData(), -1), std::length_error);
}

TYPED_TEST(StringTwins, CopiesAreIndependentValues)
{
    using S = TypeParam;
    S a = make<S>("abc");
    S b(a);
    S c;
    c = a;
    b.setchar(0, 'X');
    c += make<S>("d");
    EXPECT_EQ(text(a), "abc");
    EXPECT_EQ(text(b), "Xbc");
    EXPECT_EQ(text(c), "abcd");
}

TYPED_TEST(StringTwins, DeepCopyIgnoresItsPointerArguments)
{
    using S = TypeParam;
    using C = typename Twin<S>::Char;
    S target = make<S>("old");
    C marker = 'm';
    C* data = &marker;
    int length = -7;
    target.deepCopy(make<S>("new"), &data, &length);
    EXPECT_EQ(text(target), "new");
    EXPECT_EQ(data, &marker);
    EXPECT_EQ(marker, static_cast<C>('m'));
    EXPECT_EQ(length, -7);
}

TYPED_TEST(StringTwins, AppendingAddsAtTheEnd)
{
    using S = TypeParam;
    const S tail = make<S>(bin("c\0d", 3));
    S s = make<S>("a");
    s.append(make<S>("b").getData());
    s.append(tail.getData(), 3);
    s += make<S>("e");
    s += make<S>("f").getData();
    s += static_cast<typename Twin<S>::Char>('\0');
    EXPECT_EQ(text(s), bin("abc\0def\0", 8));
    const S sum = make<S>("x") + make<S>("y");
    EXPECT_EQ(text(sum), "xy");
    EXPECT_EQ(text(make<S>("x") + make<S>("z").getData()), "xz");
}

// ---- access ----

TYPED_TEST(StringTwins, GetCharIsZeroOutsideZeroToLength)
{
    using S = TypeParam;
    using C = typename Twin<S>::Char;
    S s = make<S>("A");
    EXPECT_EQ(s.getChar(-1), C(0));
    EXPECT_EQ(s.getChar(1), C(0));
    EXPECT_EQ(s.getChar(2), C(0));
    EXPECT_EQ(s.getChar(0), C('A'));
    EXPECT_EQ(s[0], C('A'));
    EXPECT_EQ(s[1], C(0));
    EXPECT_EQ(s[-1], C(0));
}

TYPED_TEST(StringTwins, SetcharAtLengthOverwritesTheTerminatorKeepingTheLength)
{
    using S = TypeParam;
    using C = typename Twin<S>::Char;
    S s = make<S>("ab");
    s.setchar(2, 'Z');
    EXPECT_EQ(s.length(), 2);
    EXPECT_EQ(s.getData()[2], C('Z'));
    s.setchar(3, 'Q');
    s.setchar(-1, 'Q');
    EXPECT_EQ(text(s), "ab");
    s.setchar(2, 0);
    s.setchar(1, 'B');
    EXPECT_EQ(cText(s), "aB");
}

TYPED_TEST(StringTwins, IsNumericAcceptsOnlyAsciiDigits)
{
    using S = TypeParam;
    EXPECT_TRUE(make<S>("007").isNumeric());
    EXPECT_FALSE(make<S>("").isNumeric());
    EXPECT_FALSE(make<S>("-1").isNumeric());
    EXPECT_FALSE(make<S>("1.5").isNumeric());
    EXPECT_FALSE(make<S>("1 ").isNumeric());
    EXPECT_FALSE(make<S>(bin("1\0", 2)).isNumeric());
}

// ---- comparison ----

TYPED_TEST(StringTwins, ComparisonIsCommonPrefixThenLength)
{
    using S = TypeParam;
    EXPECT_TRUE(make<S>("ab") < make<S>("abc"));
    EXPECT_TRUE(make<S>("abc") < make<S>("abd"));
    EXPECT_TRUE(make<S>("b") > make<S>("aaaa"));
    EXPECT_TRUE(make<S>(bin("a\0b", 3)) != make<S>("a"));
    EXPECT_TRUE(make<S>("abc") == make<S>("abc").getData());
    EXPECT_TRUE(make<S>(bin("ab\0", 3)) != make<S>("ab").getData());
    EXPECT_FALSE(make<S>("abc") < make<S>("abc"));
    EXPECT_FALSE(make<S>("abc") > make<S>("abc"));
}

TYPED_TEST(StringTwins, IsEqualNoCaseNeedsTheSameLength)
{
    using S = TypeParam;
    EXPECT_TRUE(S::isEqualNoCase(make<S>("SRT"), make<S>("srt")));
    EXPECT_FALSE(S::isEqualNoCase(make<S>("srt"), make<S>("srt ")));
    EXPECT_TRUE(S::isEqualNoCase(make<S>(""), make<S>("")));
}

TYPED_TEST(StringTwins, CompareNoCaseIsCaseSensitive)
{
    using S = TypeParam;
    S s = make<S>("ABC");
    EXPECT_NE(s.CompareNoCase(make<S>("abc").getData()), 0);
    EXPECT_EQ(s.CompareNoCase(make<S>("ABC").getData()), 0);
    S zero = make<S>(bin("ab\0c", 4));
    EXPECT_EQ(zero.CompareNoCase(make<S>("ab").getData()), 0);
}

TYPED_TEST(StringTwins, CompareNoCaseOverNCharacters)
{
    using S = TypeParam;
    S any;
    const S a = make<S>("aBc");
    const S b = make<S>("AbC");
    const S c = make<S>("AbD");
    const S za = make<S>(bin("a\0x", 3));
    const S zb = make<S>(bin("a\0y", 3));
    EXPECT_EQ(any.compareNoCase(a.getData(), b.getData(), 3), 0);
    EXPECT_EQ(any.compareNoCase(a.getData(), c.getData(), 3), -1);
    EXPECT_EQ(any.compareNoCase(c.getData(), a.getData(), 3), 1);
    EXPECT_EQ(any.compareNoCase(a.getData(), c.getData(), 0), 0);
    EXPECT_EQ(any.compareNoCase(a.getData(), c.getData(), -1), 0);
    EXPECT_EQ(any.compareNoCase(za.getData(), zb.getData(), 3), -1);
}

// ---- searching ----

TYPED_TEST(StringTwins, FindBounds)
{
    using S = TypeParam;
    const S s = make<S>("abc");
    EXPECT_EQ(s.find('c', -1), -1);
    EXPECT_EQ(s.find('c', 0), 2);
    EXPECT_EQ(s.find('c', 3), -1);
    EXPECT_EQ(s.find('c', 4), -1);
    EXPECT_EQ(s.find(make<S>(""), 2), 2);
    EXPECT_EQ(s.find(make<S>(""), 3), 3);
    EXPECT_EQ(s.find(make<S>(""), 4), -1);
    EXPECT_EQ(s.find(make<S>("bc"), -1), -1);
    EXPECT_EQ(s.find(make<S>("bc"), 1), 1);
}

TYPED_TEST(StringTwins, FindlastSearchesForAnyCharacterOfTheSet)
{
    using S = TypeParam;
    const S s = make<S>("abcb");
    EXPECT_EQ(s.findlast(make<S>("xb"), -1), 3);
    EXPECT_EQ(s.findlast(make<S>("cb"), 3), 3);
    EXPECT_EQ(s.findlast(make<S>("b"), 2), 1);
    EXPECT_EQ(s.findlast(make<S>("b"), 4), 3);
    EXPECT_EQ(s.findlast(make<S>(""), -1), -1);
    EXPECT_EQ(make<S>("").findlast(make<S>("a"), -1), -1);
}

TYPED_TEST(StringTwins, FindNoCaseIgnoresStart)
{
    using S = TypeParam;
    S s = make<S>("abcb");
    EXPECT_EQ(s.findNoCase(make<S>("B"), 2), 1);
    EXPECT_EQ(s.findNoCase(make<S>("B"), -5), 1);
    EXPECT_EQ(s.findNoCase(make<S>("X"), 0), -1);
}

TYPED_TEST(StringTwins, FindlastNoCaseEndsAtTheLimit)
{
    using S = TypeParam;
    S s = make<S>("abcb");
    EXPECT_EQ(s.findlastNoCase(make<S>("B"), 0), 3);
    EXPECT_EQ(s.findlastNoCase(make<S>("B"), 2), 1);
    EXPECT_EQ(s.findlastNoCase(make<S>("B"), -1), 3);
    EXPECT_EQ(s.findlastNoCase(make<S>("B"), 4), 3);
    EXPECT_EQ(s.findlastNoCase(make<S>("x"), 0), -1);
}

// ---- cutting ----

TYPED_TEST(StringTwins, SubstrSharedBoundsRules)
{
    using S = TypeParam;
    const S s = make<S>("abcdef");
    EXPECT_EQ(text(s.substr(2, -1)), "cdef");
    EXPECT_TRUE(s.substr(2, 0).isEmpty());
    EXPECT_TRUE(s.substr(2, -2).isEmpty());
    EXPECT_TRUE(s.substr(6, 3).isEmpty());
    EXPECT_TRUE(s.substr(-1, 3).isEmpty());
    EXPECT_EQ(text(s.substr(4, 100)), "ef");
}

TYPED_TEST(StringTwins, RightOfTheLengthIsEmptyWhileLeftIsWhole)
{
    using S = TypeParam;
    S s = make<S>("abc");
    EXPECT_EQ(text(s.Left(3)), "abc");
    EXPECT_TRUE(s.Left(4).isEmpty());
    EXPECT_TRUE(s.Left(-1).isEmpty());
    EXPECT_EQ(text(s.Right(2)), "bc");
    EXPECT_TRUE(s.Right(3).isEmpty());
    EXPECT_TRUE(s.Right(0).isEmpty());
    EXPECT_TRUE(s.Right(-1).isEmpty());
}

// ---- changing in place ----

TYPED_TEST(StringTwins, ReplaceCutsTheCountAndRaisesPastTheLength)
{
    using S = TypeParam;
    S s = make<S>("abcdef");
    s.replace(4, 100, make<S>("X"));
    EXPECT_EQ(text(s), "abcdX");
    s.replace(5, 1, make<S>("Y"));
    EXPECT_EQ(text(s), "abcdXY");
    EXPECT_THROW(s.replace(7, 1, make<S>("Z")), std::out_of_range);
    EXPECT_THROW(s.replace(-1, 1, make<S>("Z")), std::out_of_range);
}

TYPED_TEST(StringTwins, DeleteStrKeepsTheRecordedLength)
{
    using S = TypeParam;
    S s = make<S>("abcdef");
    EXPECT_EQ(s.deleteStr(1, 2), 6);
    EXPECT_EQ(cText(s), "adef");
    EXPECT_EQ(s.length(), 6);
    EXPECT_EQ(text(s), bin("adef\0f", 6));
    S t = make<S>("abcdef");
    EXPECT_EQ(t.deleteStr(4, 10), 6);
    EXPECT_EQ(text(t), bin("abcd\0f", 6));
    S u = make<S>("abcdef");
    EXPECT_EQ(u.deleteStr(7, 1), 6);
    EXPECT_EQ(u.deleteStr(-2, -2), 6);
    EXPECT_EQ(text(u), "abcdef");
}

TYPED_TEST(StringTwins, TrimLeftRemovesHalfOfALeadingRunRoundedUp)
{
    using S = TypeParam;
    for (int k = 0; k <= 7; ++k) {
        S spaces = make<S>(std::string(static_cast<size_t>(k), ' ') + "abc");
        S marks = make<S>(std::string(static_cast<size_t>(k), '*') + "abc");
        spaces.TrimLeft();
        marks.TrimLeft('*');
        EXPECT_EQ(text(spaces), std::string(static_cast<size_t>(k / 2), ' ') + "abc") << k;
        EXPECT_EQ(text(marks), std::string(static_cast<size_t>(k / 2), '*') + "abc") << k;
    }
}

TYPED_TEST(StringTwins, TrimRightRemovesTheWholeTrailingRun)
{
    using S = TypeParam;
    S spaces = make<S>("x   ");
    S marks = make<S>("**x**");
    S zero = make<S>(bin("x\0\0", 3));
    spaces.TrimRight();
    marks.TrimRight('*');
    zero.TrimRight(0);
    EXPECT_EQ(text(spaces), "x");
    EXPECT_EQ(text(marks), "**x");
    EXPECT_EQ(text(zero), bin("x\0\0", 3));
}

TYPED_TEST(StringTwins, ClearSpacesStopsAfterTheFirstInteriorSpace)
{
    using S = TypeParam;
    S a = make<S>("  1 2 3");
    S b = make<S>("1 2 3");
    a.clearSpaces();
    b.clearSpaces();
    EXPECT_EQ(text(a), "12 3");
    EXPECT_EQ(text(b), "12 3");
}

TYPED_TEST(StringTwins, RemoveSpacesStripsBothEndsOnly)
{
    using S = TypeParam;
    S s = make<S>("  a b  ");
    S all = make<S>("   ");
    s.removeSpaces();
    all.removeSpaces();
    EXPECT_EQ(text(s), "a b");
    EXPECT_TRUE(all.isEmpty());
}

TYPED_TEST(StringTwins, RemoveLastCharRemovesOnlyTrailingCrAndLf)
{
    using S = TypeParam;
    S a = make<S>("abc\r\n\r\n");
    S b = make<S>("abc ");
    S c = make<S>("\n");
    a.removeLastChar();
    b.removeLastChar();
    c.removeLastChar();
    EXPECT_EQ(text(a), "abc");
    EXPECT_EQ(text(b), "abc ");
    EXPECT_TRUE(c.isEmpty());
}

TYPED_TEST(StringTwins, RemoveQuoStripsAtTheFrontOnly)
{
    using S = TypeParam;
    S a = make<S>("\"x\"");
    S b = make<S>("\"\"\"");
    S c = make<S>("\"");
    S d;
    a.removeQuo();
    b.removeQuo();
    c.removeQuo();
    d.removeQuo();
    EXPECT_EQ(text(a), "x\"");
    EXPECT_EQ(text(b), "\"");
    EXPECT_EQ(text(c), "\"");
    EXPECT_TRUE(d.isEmpty());
}

TYPED_TEST(StringTwins, ReplaceCharsStopsAfterTheFirstOccurrenceNotAtZero)
{
    using S = TypeParam;
    S a = make<S>("a\\Nb\\Nc");
    S b = make<S>("\\N\\Na\\Nb");
    a.replaceChars(make<S>("\\N"), make<S>("\n"));
    b.replaceChars(make<S>("\\N"), make<S>("\n"));
    EXPECT_EQ(text(a), "a\nb\\Nc");
    EXPECT_EQ(text(b), "\n\na\\Nb");
}

TYPED_TEST(StringTwins, InflatePadsWithWholeAndPartCopies)
{
    using S = TypeParam;
    S a = make<S>("x");
    S b = make<S>("ab");
    S c = make<S>("abc");
    a.inflate(5, make<S>("ab"), true);
    b.inflate(7, make<S>("xy"), false);
    c.inflate(2, make<S>("-"), true);
    EXPECT_EQ(text(a), "ababx");
    EXPECT_EQ(text(b), "abxyxyx");
    EXPECT_EQ(text(c), "abc");
}

TYPED_TEST(StringTwins, MakeLowerChangesAToZAndCutsAtAZero)
{
    using S = TypeParam;
    S s = make<S>(bin("AbC@[\0XY", 8));
    S& result = s.MakeLower();
    EXPECT_EQ(&result, &s);
    EXPECT_EQ(text(s), "abc@[");
}

TYPED_TEST(StringTwins, ExpandNeverChangesTheString)
{
    using S = TypeParam;
    S s = make<S>("a[b]c");
    s.expand(make<S>("["), make<S>("b"), make<S>("X"), make<S>("]"));
    EXPECT_EQ(text(s), "a[b]c");
}

// ---- text operations ----

TYPED_TEST(StringTwins, SplitAndMatch)
{
    using S = TypeParam;
    S s = make<S>("a,,b,");
    std::map<int, std::string> got;
    for (const auto& piece : s.split(make<S>(",")))
        got[piece.first] = text(piece.second);
    EXPECT_EQ(got, (std::map<int, std::string>{{0, "a"}, {1, ""}, {2, "b"}}));
    EXPECT_EQ(text(s), "a,,b,");

    S m = make<S>("abc");
    S before = make<S>("keep");
    EXPECT_EQ(m.match(make<S>("x"), &before, true, S()), 2);
    EXPECT_EQ(text(before), "keep");
    EXPECT_EQ(m.match(make<S>("b"), &before, true, S()), 1);
    EXPECT_EQ(text(before), "a");
    EXPECT_EQ(text(m), "c");
    EXPECT_EQ(m.match(make<S>("c"), nullptr, true, make<S>("R")), 0);
    EXPECT_EQ(text(m), "R");
}

TYPED_TEST(StringTwins, XorOfEqualStringsIsZeros)
{
    using S = TypeParam;
    const S r = S::xorString(make<S>("abc"), make<S>("abc"));
    EXPECT_EQ(r.length(), 3);
    EXPECT_EQ(text(r), std::string(3, '\0'));
    EXPECT_EQ(text(S::xorString(make<S>("ab"), make<S>(bin("\x01\x02", 2)))), bin("\x60\x60", 2));
    EXPECT_TRUE(S::xorString(S(), S()).isEmpty());
}

// ---- where the twins differ ----

TEST(TwinsDiffer, SubstrPastTheLengthIsEmptyNarrowAndRaisesWide)
{
    EXPECT_TRUE(xcString("abcd").substr(5, 1).isEmpty());
    EXPECT_THROW(xcWString(L"abcd").substr(5, 1), std::out_of_range);
    EXPECT_TRUE(xcString("abcd").substr(4, 1).isEmpty());
    EXPECT_TRUE(xcWString(L"abcd").substr(4, 1).isEmpty());
}

TEST(TwinsDiffer, OperatorIntIsAtoiNarrowAndLengthBaseWcstolWide)
{
    EXPECT_EQ(static_cast<int>(xcString("10")), 10);
    EXPECT_EQ(static_cast<int>(xcWString(L"10")), 2);
    EXPECT_EQ(static_cast<int>(xcString("7")), 7);
    EXPECT_EQ(static_cast<int>(xcWString(L"7")), 0);
    EXPECT_EQ(static_cast<int>(xcString("101")), 101);
    EXPECT_EQ(static_cast<int>(xcWString(L"101")), 10);
    EXPECT_EQ(static_cast<int>(xcString("")), 0);
    EXPECT_EQ(static_cast<int>(xcWString(L"")), 0);
}

TEST(TwinsDiffer, IntegersFormatNarrowAndVanishWide)
{
    EXPECT_STREQ(xcString(7).getData(), "7");
    EXPECT_TRUE(xcWString(7).isEmpty());
    xcString n("a");
    xcWString w(L"a");
    n += 12;
    w += 12;
    EXPECT_STREQ(n.getData(), "a12");
    EXPECT_STREQ(w.getData(), L"a");
    EXPECT_STREQ((xcString("x") + 3).getData(), "x3");
    EXPECT_STREQ((xcWString(L"x") + 3).getData(), L"x");
}

TEST(TwinsDiffer, NarrowOrdersUnsignedBytesWideOrdersSignedCodes)
{
    // Byte 0xE9 orders after "z"; the wide code -23 (0xFFFFFFE9) orders before it,
    // while the code 0xE9 orders after it.
    EXPECT_TRUE(xcString("\xE9") > xcString("z"));
    const xcWString negative(std::wstring(1, static_cast<wchar_t>(-23)));
    EXPECT_TRUE(negative < xcWString(L"z"));
    EXPECT_TRUE(xcWString(L"\u00E9") > xcWString(L"z"));
}

TEST(TwinsDiffer, XorComplementsBytesNarrowAndThirtyTwoBitCharactersWide)
{
    const xcString n = xcString::xorString(xcString("A"), xcString());
    const xcWString w = xcWString::xorString(xcWString(L"A"), xcWString());
    ASSERT_EQ(n.length(), 1);
    ASSERT_EQ(w.length(), 1);
    EXPECT_EQ(static_cast<unsigned char>(n.getChar(0)), 0xBEu);
    EXPECT_EQ(static_cast<unsigned int>(w.getChar(0)), 0xFFFFFFBEu);
}

TEST(TwinsDiffer, WideCodesBeyondTheByteTableAreTheirOwnCase)
{
    // 0x161 and 0x141 share their low byte with "a" and "A": no folding may
    // reach them through a truncated look-up.
    EXPECT_FALSE(xcWString::isEqualNoCase(xcWString(L"\u0161"), xcWString(L"\u0141")));
    EXPECT_FALSE(xcWString::isEqualNoCase(xcWString(L"\u0161"), xcWString(L"A")));
    EXPECT_FALSE(xcWString::isEqualNoCase(xcWString(L"\u0160"), xcWString(L"\u0161")));
    xcWString s;
    EXPECT_EQ(s.compareNoCase(L"\u0161", L"\u0160", 1), 1);
    EXPECT_EQ(s.compareNoCase(L"a", L"\u0100", 1), -1);
    xcWString word(L"x\u0161");
    EXPECT_EQ(word.findNoCase(xcWString(L"A"), 0), -1);
    EXPECT_EQ(word.findlastNoCase(xcWString(L"\u0161"), 0), 1);
}

TEST(TwinsDiffer, WideLowerCasingLeavesCodesOutsideTheTableUnchanged)
{
    const std::wstring codes = {static_cast<wchar_t>(0x100), static_cast<wchar_t>(0x141),
                                static_cast<wchar_t>(0x15A), static_cast<wchar_t>(0x10FFFF),
                                static_cast<wchar_t>(0x7FFFFFFF), static_cast<wchar_t>(-129),
                                static_cast<wchar_t>(INT_MIN)};
    xcWString s(codes);
    s.MakeLower();
    EXPECT_EQ(std::wstring(s.getData(), static_cast<size_t>(s.length())), codes);
    std::wstring buffer = codes;
    xcWString any;
    EXPECT_EQ(any.wcslwr(&buffer[0]), &buffer[0]);
    EXPECT_EQ(buffer, codes);
}

TEST(TwinsDiffer, WideNegativeCodesInTheByteRangeGoThroughTheCTable)
{
    // Codes -128..-1 are inside the C library's table: glibc answers them as the
    // byte of the same value, so -55 lowers to the code 0xC9 and -23 folds to the
    // code 0xE9. The narrow twin's byte 0xC9 is stored back as the same byte.
    ASSERT_EQ(std::tolower(-55), 0xC9);
    ASSERT_EQ(std::toupper(-23), 0xE9);
    xcWString w(std::wstring(1, static_cast<wchar_t>(-55)));
    w.MakeLower();
    EXPECT_EQ(w.getChar(0), static_cast<wchar_t>(0xC9));
    EXPECT_TRUE(xcWString::isEqualNoCase(xcWString(std::wstring(1, static_cast<wchar_t>(-23))),
                                         xcWString(L"\u00E9")));
    xcString n("\xC9");
    n.MakeLower();
    EXPECT_EQ(n.getChar(0), static_cast<char>(0xC9));
}

TEST(TwinsDiffer, TrimStepsRemoveOneCharacterOfTheirOwnWidth)
{
    xcString n("  \xE9");
    xcWString w(L"  \u00E9");
    n.TrimLeft();
    w.TrimLeft();
    EXPECT_EQ(n.length(), 2);
    EXPECT_EQ(w.length(), 2);
    EXPECT_EQ(w.getChar(1), static_cast<wchar_t>(0xE9));
    EXPECT_EQ(n.getChar(1), static_cast<char>(0xE9));
}
