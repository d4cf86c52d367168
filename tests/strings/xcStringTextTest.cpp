// xcString text operations: splitting, matching, padding, quote and space
// stripping, substitution, trimming by a byte, the case-insensitive family,
// lower-casing and XOR.
#include "strings/xcString.h"

#include <gtest/gtest.h>

#include <cctype>
#include <climits>
#include <cstring>
#include <map>
#include <string>

namespace {

std::string bytes(const xcString& s)
{
    return std::string(s.getData(), static_cast<size_t>(s.length()));
}

std::map<int, std::string> pieces(const std::map<int, xcString>& split)
{
    std::map<int, std::string> out;
    for (const auto& entry : split)
        out[entry.first] = bytes(entry.second);
    return out;
}

} // namespace

// ---- split ----

TEST(xcStringSplit, TrailingSeparatorAddsNoEmptyPiece)
{
    xcString s("a,b,");
    EXPECT_EQ(pieces(s.split(xcString(","))), (std::map<int, std::string>{{0, "a"}, {1, "b"}}));
}

TEST(xcStringSplit, LoneSeparatorGivesOneEmptyPiece)
{
    xcString s(",");
    EXPECT_EQ(pieces(s.split(xcString(","))), (std::map<int, std::string>{{0, ""}}));
}

TEST(xcStringSplit, MultiByteSeparatorIsMatchedWhole)
{
    xcString s("a::b");
    EXPECT_EQ(pieces(s.split(xcString("::"))), (std::map<int, std::string>{{0, "a"}, {1, "b"}}));
    xcString t("a:b::c");
    EXPECT_EQ(pieces(t.split(xcString("::"))), (std::map<int, std::string>{{0, "a:b"}, {1, "c"}}));
}

TEST(xcStringSplit, LeadingAndAdjacentSeparatorsGiveEmptyPieces)
{
    xcString abc("a,b,c");
    xcString doubled("a,,b");
    xcString leading(",a");
    EXPECT_EQ(pieces(abc.split(xcString(","))), (std::map<int, std::string>{{0, "a"}, {1, "b"}, {2, "c"}}));
    EXPECT_EQ(pieces(doubled.split(xcString(","))), (std::map<int, std::string>{{0, "a"}, {1, ""}, {2, "b"}}));
    EXPECT_EQ(pieces(leading.split(xcString(","))), (std::map<int, std::string>{{0, ""}, {1, "a"}}));
}

TEST(xcStringSplit, NoSeparatorGivesTheWholeStringAndEmptyGivesNothing)
{
    xcString abc("abc");
    xcString empty;
    EXPECT_EQ(pieces(abc.split(xcString(","))), (std::map<int, std::string>{{0, "abc"}}));
    EXPECT_TRUE(empty.split(xcString(",")).empty());
}

TEST(xcStringSplit, LeavesTheStringUnchanged)
{
    xcString s("a,b,c");
    s.split(xcString(","));
    EXPECT_EQ(bytes(s), "a,b,c");
}

TEST(xcStringSplit, ZeroByteIsAnOrdinarySeparator)
{
    xcString s(std::string("a\0b\0", 4));
    EXPECT_EQ(pieces(s.split(xcString(std::string("\0", 1)))),
              (std::map<int, std::string>{{0, "a"}, {1, "b"}}));
}

// ---- match ----

TEST(xcStringMatch, LaterOccurrenceReturnsOneYieldsTheTextBeforeAndCuts)
{
    xcString s("abc");
    xcString before("old");
    EXPECT_EQ(s.match(xcString("b"), &before, true, xcString()), 1);
    EXPECT_EQ(bytes(before), "a");
    EXPECT_EQ(bytes(s), "c");
}

TEST(xcStringMatch, AbsentPatternReturnsTwoAndWritesNothing)
{
    xcString s("abc");
    xcString before("untouched");
    EXPECT_EQ(s.match(xcString("x"), &before, true, xcString("R")), 2);
    EXPECT_EQ(bytes(before), "untouched");
    EXPECT_EQ(bytes(s), "abc");
}

TEST(xcStringMatch, OccurrenceAtStartReturnsZeroWithEmptyBefore)
{
    xcString s("abc");
    xcString before("old");
    EXPECT_EQ(s.match(xcString("ab"), &before, true, xcString()), 0);
    EXPECT_EQ(bytes(before), "");
    EXPECT_EQ(bytes(s), "c");
}

TEST(xcStringMatch, WithoutCutTheStringStays)
{
    xcString s("key=value");
    xcString before;
    EXPECT_EQ(s.match(xcString("="), &before, false, xcString("R")), 1);
    EXPECT_EQ(bytes(before), "key");
    EXPECT_EQ(bytes(s), "key=value");
}

TEST(xcStringMatch, CutReplacesEverythingUpToThePatternEnd)
{
    xcString s("key=value");
    EXPECT_EQ(s.match(xcString("="), nullptr, true, xcString("K:")), 1);
    EXPECT_EQ(bytes(s), "K:value");
}

TEST(xcStringMatch, FirstOccurrenceCounts)
{
    xcString s("a,b,c");
    xcString before;
    EXPECT_EQ(s.match(xcString(","), &before, true, xcString()), 1);
    EXPECT_EQ(bytes(before), "a");
    EXPECT_EQ(bytes(s), "b,c");
}

TEST(xcStringMatch, EmptyPatternStandsAtZero)
{
    xcString s("abc");
    xcString before("old");
    EXPECT_EQ(s.match(xcString(), &before, true, xcString("X")), 0);
    EXPECT_EQ(bytes(before), "");
    EXPECT_EQ(bytes(s), "Xabc");
}

TEST(xcStringMatch, PatternLongerThanTheStringIsAbsent)
{
    xcString s("ab");
    EXPECT_EQ(s.match(xcString("abc"), nullptr, true, xcString()), 2);
    EXPECT_EQ(bytes(s), "ab");
}

// ---- expand ----

TEST(xcStringExpand, NeverChangesTheString)
{
    xcString s("a[b]c");
    s.expand(xcString("["), xcString("b"), xcString("X"), xcString("]"));
    EXPECT_EQ(bytes(s), "a[b]c");
    s.expand(xcString(""), xcString("a"), xcString("Y"), xcString(""));
    EXPECT_EQ(bytes(s), "a[b]c");
    s.expand(xcString("a"), xcString("c"), xcString("Z"), xcString("c"));
    EXPECT_EQ(bytes(s), "a[b]c");
    xcString empty;
    empty.expand(xcString(""), xcString(""), xcString("x"), xcString(""));
    EXPECT_TRUE(empty.isEmpty());
}

// ---- inflate ----

TEST(xcStringInflate, WidthAtOrBelowTheLengthChangesNothing)
{
    xcString s("abc");
    s.inflate(2, xcString("-"), true);
    EXPECT_EQ(bytes(s), "abc");
    s.inflate(3, xcString("-"), false);
    EXPECT_EQ(bytes(s), "abc");
    s.inflate(0, xcString("-"), true);
    s.inflate(-5, xcString("-"), true);
    EXPECT_EQ(bytes(s), "abc");
}

TEST(xcStringInflate, PadsAtTheFrontWithWholeAndPartCopies)
{
    xcString s("x");
    s.inflate(5, xcString("ab"), true);
    EXPECT_EQ(bytes(s), "ababx");
    xcString seven("7");
    seven.inflate(3, xcString("0"), true);
    EXPECT_EQ(bytes(seven), "007");
}

TEST(xcStringInflate, PadsAtTheBack)
{
    xcString s("ab");
    s.inflate(7, xcString("xy"), false);
    EXPECT_EQ(bytes(s), "abxyxyx");
}

TEST(xcStringInflate, FillLongerThanTheGapIsCut)
{
    xcString s("a");
    s.inflate(3, xcString("xyz"), true);
    EXPECT_EQ(bytes(s), "xya");
}

TEST(xcStringInflate, EmptyStringAndZeroByteFill)
{
    xcString s;
    s.inflate(3, xcString("ab"), false);
    EXPECT_EQ(bytes(s), "aba");
    xcString z("1");
    z.inflate(3, xcString(std::string("\0", 1)), true);
    EXPECT_EQ(bytes(z), std::string("\0\0" "1", 3));
}

// ---- removeQuo ----

TEST(xcStringRemoveQuo, StripsAtTheFrontOnly)
{
    xcString a("\"x\"");
    xcString b("\"abc\"");
    xcString c("abc\"");
    a.removeQuo();
    b.removeQuo();
    c.removeQuo();
    EXPECT_EQ(bytes(a), "x\"");
    EXPECT_EQ(bytes(b), "abc\"");
    EXPECT_EQ(bytes(c), "abc\"");
}

TEST(xcStringRemoveQuo, AllLeadingQuotesGoButOneByteStays)
{
    xcString twoThenX("\"\"x");
    xcString three("\"\"\"");
    xcString two("\"\"");
    xcString one("\"");
    twoThenX.removeQuo();
    three.removeQuo();
    two.removeQuo();
    one.removeQuo();
    EXPECT_EQ(bytes(twoThenX), "x");
    EXPECT_EQ(bytes(three), "\"");
    EXPECT_EQ(bytes(two), "\"");
    EXPECT_EQ(bytes(one), "\"");
}

TEST(xcStringRemoveQuo, EmptyStaysEmptyAndSingleQuotesStay)
{
    xcString empty;
    xcString single("'a'");
    empty.removeQuo();
    single.removeQuo();
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_EQ(bytes(single), "'a'");
}

// ---- replaceChars ----

TEST(xcStringReplaceChars, StopsAfterTheFirstOccurrenceNotAtZero)
{
    xcString s("a\\Nb\\Nc");
    s.replaceChars(xcString("\\N"), xcString("\n"));
    EXPECT_EQ(bytes(s), "a\nb\\Nc");
}

TEST(xcStringReplaceChars, GoesOnWhileTheOccurrenceIsAtZero)
{
    xcString s("\\N\\Na\\Nb");
    s.replaceChars(xcString("\\N"), xcString("\n"));
    EXPECT_EQ(bytes(s), "\n\na\\Nb");
}

TEST(xcStringReplaceChars, AbsentOrEmptyChangesNothing)
{
    xcString s("abc");
    xcString empty;
    s.replaceChars(xcString("x"), xcString("y"));
    empty.replaceChars(xcString("x"), xcString("y"));
    EXPECT_EQ(bytes(s), "abc");
    EXPECT_TRUE(empty.isEmpty());
}

TEST(xcStringReplaceChars, EmptyReplacementRemovesTheLeadingRunOrOneLaterOccurrence)
{
    xcString lead("xxab");
    xcString inner("axbx");
    lead.replaceChars(xcString("x"), xcString());
    inner.replaceChars(xcString("x"), xcString());
    EXPECT_EQ(bytes(lead), "ab");
    EXPECT_EQ(bytes(inner), "abx");
}

// ---- TrimLeft(char), TrimRight(char), removeSpaces ----

TEST(xcStringTrimLeftChar, IndexAdvancesAsWithSpaces)
{
    xcString one("xabc");
    xcString two("xxabc");
    xcString three("xxxabc");
    xcString four("xxxxabc");
    one.TrimLeft('x');
    two.TrimLeft('x');
    three.TrimLeft('x');
    four.TrimLeft('x');
    EXPECT_EQ(bytes(one), "abc");
    EXPECT_EQ(bytes(two), "xabc");
    EXPECT_EQ(bytes(three), "xabc");
    EXPECT_EQ(bytes(four), "xxabc");
}

TEST(xcStringTrimLeftChar, OtherBytesIncludingSpaceStay)
{
    xcString s(" xabc");
    s.TrimLeft('x');
    EXPECT_EQ(bytes(s), " xabc");
}

TEST(xcStringTrimLeftChar, HighByte)
{
    xcString s("\xE9" "a");
    s.TrimLeft('\xE9');
    EXPECT_EQ(bytes(s), "a");
}

TEST(xcStringTrimChar, ZeroByteRemovesNothing)
{
    xcString lead(std::string("\0\0a", 3));
    xcString trail(std::string("a\0\0", 3));
    lead.TrimLeft('\0');
    trail.TrimRight('\0');
    EXPECT_EQ(bytes(lead), std::string("\0\0a", 3));
    EXPECT_EQ(bytes(trail), std::string("a\0\0", 3));
}

TEST(xcStringTrimRightChar, RemovesEveryTrailingByte)
{
    xcString s("abc;;;");
    xcString all(";;;");
    xcString stop("a;;b");
    s.TrimRight(';');
    all.TrimRight(';');
    stop.TrimRight(';');
    EXPECT_EQ(bytes(s), "abc");
    EXPECT_TRUE(all.isEmpty());
    EXPECT_EQ(bytes(stop), "a;;b");
}

TEST(xcStringRemoveSpaces, AllLeadingAndTrailingSpacesGo)
{
    xcString s("  a b  ");
    xcString spaces("   ");
    xcString empty;
    s.removeSpaces();
    spaces.removeSpaces();
    empty.removeSpaces();
    EXPECT_EQ(bytes(s), "a b");
    EXPECT_TRUE(spaces.isEmpty());
    EXPECT_TRUE(empty.isEmpty());
}

TEST(xcStringRemoveSpaces, OnlySpaceCounts)
{
    xcString s("\t a \t");
    s.removeSpaces();
    EXPECT_EQ(bytes(s), "\t a \t");
}

// ---- CompareNoCase (strcmp) ----

TEST(xcStringCompareNoCaseUpper, IsStrcmpAndCaseSensitive)
{
    xcString s("ABC");
    EXPECT_NE(s.CompareNoCase("abc"), 0);
    EXPECT_LT(s.CompareNoCase("abc"), 0);
    EXPECT_EQ(s.CompareNoCase("ABC"), 0);
    EXPECT_GT(s.CompareNoCase("AB"), 0);
    EXPECT_LT(s.CompareNoCase("ABCD"), 0);
}

TEST(xcStringCompareNoCaseUpper, StopsAtAnEmbeddedZeroAndComparesBytesUnsigned)
{
    xcString zero(std::string("ab\0c", 4));
    EXPECT_EQ(zero.CompareNoCase("ab"), 0);
    xcString high("\xE9");
    EXPECT_GT(high.CompareNoCase("z"), 0);
}

// ---- compareNoCase (n bytes, toupper) ----

TEST(xcStringCompareNoCaseN, FoldsCaseOverNBytes)
{
    xcString s;
    EXPECT_EQ(s.compareNoCase("aBc", "AbC", 3), 0);
    EXPECT_EQ(s.compareNoCase("abc", "abd", 2), 0);
    EXPECT_EQ(s.compareNoCase("abc", "abd", 3), -1);
    EXPECT_EQ(s.compareNoCase("abd", "ABC", 3), 1);
}

TEST(xcStringCompareNoCaseN, ZeroOrNegativeCountIsEqual)
{
    xcString s;
    EXPECT_EQ(s.compareNoCase("a", "b", 0), 0);
    EXPECT_EQ(s.compareNoCase("a", "b", -1), 0);
    EXPECT_EQ(s.compareNoCase("a", "b", INT_MIN), 0);
}

TEST(xcStringCompareNoCaseN, ZeroByteDoesNotEndTheComparison)
{
    xcString s;
    const char a[] = {'a', '\0', 'x'};
    const char b[] = {'A', '\0', 'y'};
    EXPECT_EQ(s.compareNoCase(a, b, 3), -1);
    EXPECT_EQ(s.compareNoCase(a, b, 2), 0);
}

TEST(xcStringCompareNoCaseN, IgnoresTheObjectsOwnText)
{
    xcString x("zzz");
    xcString y("aBc");
    EXPECT_EQ(x.compareNoCase("aBc", "ABC", 3), 0);
    EXPECT_EQ(y.compareNoCase("a", "b", 1), -1);
    EXPECT_EQ(bytes(x), "zzz");
}

TEST(xcStringCompareNoCaseN, NegativeBytesFoldAsTheCLibraryGivesThem)
{
    // glibc's toupper maps a negative byte value -128..-2 to the same byte as
    // unsigned (0xE9 -> 233), and -1 (byte 0xFF) stays -1, the value of EOF.
    ASSERT_EQ(std::toupper(static_cast<signed char>(0xE9)), 0xE9);
    ASSERT_EQ(std::toupper(static_cast<signed char>(0xFE)), 0xFE);
    ASSERT_EQ(std::toupper(static_cast<signed char>(0xFF)), -1);
    xcString s;
    EXPECT_EQ(s.compareNoCase("\xE9", "z", 1), 1);
    EXPECT_EQ(s.compareNoCase("\xE9", "\xC9", 1), 1);
    EXPECT_EQ(s.compareNoCase("\xFE", "\x01", 1), 1);
    EXPECT_EQ(s.compareNoCase("\xFF", "\x01", 1), -1);
}

// ---- findNoCase ----

TEST(xcStringFindNoCase, IgnoresStartAndSearchesFromZero)
{
    xcString s("abcb");
    EXPECT_EQ(s.findNoCase(xcString("B"), 2), 1);
    EXPECT_EQ(s.findNoCase(xcString("B"), 3), 1);
    EXPECT_EQ(s.findNoCase(xcString("B"), -1), 1);
    EXPECT_EQ(s.findNoCase(xcString("B"), 100), 1);
}

TEST(xcStringFindNoCase, FoldsCase)
{
    xcString s("xxAbCx");
    EXPECT_EQ(s.findNoCase(xcString("aBc"), 0), 2);
    EXPECT_EQ(s.findNoCase(xcString("abd"), 0), -1);
}

TEST(xcStringFindNoCase, EmptyPatternIsAtZeroAndLongerPatternIsAbsent)
{
    xcString s("ab");
    xcString empty;
    EXPECT_EQ(s.findNoCase(xcString(), 1), 0);
    EXPECT_EQ(empty.findNoCase(xcString(), 0), 0);
    EXPECT_EQ(s.findNoCase(xcString("abc"), 0), -1);
    EXPECT_EQ(empty.findNoCase(xcString("a"), 0), -1);
}

TEST(xcStringFindNoCase, MatchesAcrossZeroBytes)
{
    xcString s(std::string("a\0b\0c", 5));
    EXPECT_EQ(s.findNoCase(xcString(std::string("B\0C", 3)), 0), 2);
}

// ---- findlastNoCase ----

TEST(xcStringFindlastNoCase, StartZeroMeansFromTheEnd)
{
    xcString s("abcb");
    EXPECT_EQ(s.findlastNoCase(xcString("B"), 0), 3);
}

TEST(xcStringFindlastNoCase, MatchEndsAtOrBeforeTheStart)
{
    xcString s("abcb");
    EXPECT_EQ(s.findlastNoCase(xcString("B"), 2), 1);
    EXPECT_EQ(s.findlastNoCase(xcString("B"), 1), 1);
    EXPECT_EQ(s.findlastNoCase(xcString("B"), 3), 3);
    xcString t("abAB");
    EXPECT_EQ(t.findlastNoCase(xcString("ab"), 3), 2);
    EXPECT_EQ(t.findlastNoCase(xcString("ab"), 2), 0);
    EXPECT_EQ(t.findlastNoCase(xcString("ab"), 1), 0);
}

TEST(xcStringFindlastNoCase, NegativeOrAtOrPastLengthStartMeansFromTheEnd)
{
    xcString s("abcb");
    EXPECT_EQ(s.findlastNoCase(xcString("B"), -1), 3);
    EXPECT_EQ(s.findlastNoCase(xcString("B"), 4), 3);
    EXPECT_EQ(s.findlastNoCase(xcString("B"), 5), 3);
    EXPECT_EQ(s.findlastNoCase(xcString("B"), INT_MIN), 3);
}

TEST(xcStringFindlastNoCase, NotFound)
{
    xcString s("abcb");
    xcString empty;
    EXPECT_EQ(s.findlastNoCase(xcString("x"), 0), -1);
    EXPECT_EQ(s.findlastNoCase(xcString("abcbx"), 0), -1);
    EXPECT_EQ(s.findlastNoCase(xcString("cb"), 2), -1);
    EXPECT_EQ(empty.findlastNoCase(xcString("a"), 0), -1);
}

TEST(xcStringFindlastNoCase, EmptyPatternStandsJustBehindTheLimit)
{
    xcString s("abc");
    EXPECT_EQ(s.findlastNoCase(xcString(), 0), 3);
    EXPECT_EQ(s.findlastNoCase(xcString(), 1), 2);
}

// ---- MakeLower and strlwr ----

TEST(xcStringMakeLower, LowersAsciiLettersAndReturnsThisString)
{
    xcString s("AbC");
    xcString& result = s.MakeLower();
    EXPECT_EQ(&result, &s);
    EXPECT_EQ(bytes(s), "abc");
}

TEST(xcStringMakeLower, OnlyAToZChange)
{
    xcString s("@[`{1-Z\xC9\xE9\xFF");
    s.MakeLower();
    EXPECT_EQ(bytes(s), "@[`{1-z\xC9\xE9\xFF");
}

TEST(xcStringMakeLower, EmbeddedZeroEndsTheString)
{
    xcString s(std::string("AB\0CD", 5));
    s.MakeLower();
    EXPECT_EQ(s.length(), 2);
    EXPECT_EQ(bytes(s), "ab");
}

TEST(xcStringMakeLower, EmptyStaysEmpty)
{
    xcString s;
    s.MakeLower();
    EXPECT_TRUE(s.isEmpty());
}

TEST(xcStringStrlwr, LowersUpToTheZeroAndLeavesTheObjectAlone)
{
    xcString s("KEEP");
    char text[] = "HeLLo\0WORLD";
    char* result = s.strlwr(text);
    EXPECT_EQ(result, text);
    EXPECT_EQ(std::string(text, sizeof text - 1), std::string("hello\0WORLD", 11));
    EXPECT_EQ(bytes(s), "KEEP");
}

TEST(xcStringStrlwr, EmptyTextIsReturnedAsItIs)
{
    xcString s;
    char text[] = "";
    EXPECT_EQ(s.strlwr(text), text);
    EXPECT_EQ(text[0], '\0');
}

// ---- xorString ----

TEST(xcStringXor, WithEmptyIsTheComplement)
{
    const xcString r = xcString::xorString(xcString("A"), xcString());
    EXPECT_EQ(bytes(r), "\xBE");
    const xcString r2 = xcString::xorString(xcString(), xcString("A"));
    EXPECT_EQ(bytes(r2), "\xBE");
}

TEST(xcStringXor, EqualStringsGiveThatManyZeroBytes)
{
    const xcString r = xcString::xorString(xcString("abc"), xcString("abc"));
    EXPECT_EQ(r.length(), 3);
    EXPECT_EQ(bytes(r), std::string(3, '\0'));
}

TEST(xcStringXor, CommonPartXoredAndLongerTailComplemented)
{
    const xcString a("ab");
    const xcString b(std::string("\x01\x02\x03\xFF", 4));
    const std::string expected = {static_cast<char>('a' ^ 1), static_cast<char>('b' ^ 2),
                                  static_cast<char>(~3), static_cast<char>(0)};
    EXPECT_EQ(bytes(xcString::xorString(a, b)), expected);
    EXPECT_EQ(bytes(xcString::xorString(b, a)), expected);
}

TEST(xcStringXor, TwoEmptyStringsGiveEmpty)
{
    EXPECT_TRUE(xcString::xorString(xcString(), xcString()).isEmpty());
}

TEST(xcStringXor, XorTwiceWithTheSameKeyRestoresTheText)
{
    const xcString text("Subtitle");
    const xcString key("K3y-K3y!");
    EXPECT_EQ(bytes(xcString::xorString(xcString::xorString(text, key), key)), "Subtitle");
}
