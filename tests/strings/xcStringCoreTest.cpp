// xcString core: construction, appending, access, comparison, searching,
// cutting and the in-place edits used by the SubRip parser and the manager.
#include "strings/xcString.h"

#include <gtest/gtest.h>

#include <climits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>

namespace {

// Every stored byte up to the recorded length, zero bytes included.
std::string bytes(const xcString& s)
{
    return std::string(s.getData(), static_cast<size_t>(s.length()));
}

// The zero-terminated text that C string functions see.
std::string cText(const xcString& s)
{
    return std::string(s.getData());
}

} // namespace

// ---- class shape ----

TEST(xcStringShape, HasVirtualDestructorAndOwnTypeInformation)
{
    EXPECT_TRUE(std::has_virtual_destructor<xcString>::value);
    EXPECT_TRUE(std::is_polymorphic<xcString>::value);
    xcString* p = new xcString("abc");
    EXPECT_EQ(typeid(*p), typeid(xcString));
    EXPECT_NE(std::string(typeid(*p).name()).find("xcString"), std::string::npos);
    delete p;
}

// ---- construction and assignment ----

TEST(xcStringConstruct, DefaultIsEmpty)
{
    xcString s;
    EXPECT_EQ(s.length(), 0);
    EXPECT_TRUE(s.isEmpty());
    EXPECT_STREQ(s.getData(), "");
}

TEST(xcStringConstruct, FromCStringStopsAtTheFirstZero)
{
    const char text[] = {'a', 'b', '\0', 'c', 'd', '\0'};
    xcString s(text);
    EXPECT_EQ(s.length(), 2);
    EXPECT_EQ(bytes(s), "ab");
}

TEST(xcStringConstruct, WithCountTakesExactlyThatManyBytesPastAZero)
{
    const char text[] = {'a', 'b', '\0', 'd', 'e', 'f'};
    xcString s(text, 5);
    EXPECT_EQ(s.length(), 5);
    EXPECT_EQ(bytes(s), std::string("ab\0de", 5));
    EXPECT_EQ(s.getData()[5], '\0');
}

TEST(xcStringConstruct, WithCountZeroIsEmpty)
{
    xcString s("abc", 0);
    EXPECT_TRUE(s.isEmpty());
}

TEST(xcStringConstruct, WithNegativeCountIsTheStandardLengthError)
{
    EXPECT_THROW(xcString("abc", -1), std::length_error);
}

TEST(xcStringConstruct, FromIntIsDecimalText)
{
    EXPECT_EQ(bytes(xcString(-42)), "-42");
    EXPECT_EQ(bytes(xcString(0)), "0");
    EXPECT_EQ(bytes(xcString(7)), "7");
    EXPECT_EQ(bytes(xcString(INT_MAX)), "2147483647");
    EXPECT_EQ(bytes(xcString(INT_MIN)), "-2147483648");
}

TEST(xcStringConstruct, FromStdStringKeepsEmbeddedZeros)
{
    const std::string source("a\0b", 3);
    xcString s(source);
    EXPECT_EQ(s.length(), 3);
    EXPECT_EQ(bytes(s), source);
}

TEST(xcStringConstruct, CopyIsIndependentOfItsSource)
{
    xcString a("abc");
    xcString b(a);
    b.setchar(0, 'X');
    b += "d";
    EXPECT_EQ(bytes(a), "abc");
    EXPECT_EQ(bytes(b), "Xbcd");
}

TEST(xcStringAssign, CopyAssignmentIsIndependent)
{
    xcString a("abc");
    xcString b("zz");
    b = a;
    EXPECT_EQ(bytes(b), "abc");
    a.setchar(1, 'Q');
    EXPECT_EQ(bytes(b), "abc");
    EXPECT_EQ(bytes(a), "aQc");
}

TEST(xcStringAssign, SelfAssignmentKeepsTheContent)
{
    xcString a(std::string("a\0b", 3));
    xcString& same = a;
    xcString& result = (a = same);
    EXPECT_EQ(&result, &a);
    EXPECT_EQ(bytes(a), std::string("a\0b", 3));
}

TEST(xcStringAssign, FromCStringReplacesTheContentUpToItsZero)
{
    xcString a("long old text");
    xcString& result = (a = "new\0tail");
    EXPECT_EQ(&result, &a);
    EXPECT_EQ(bytes(a), "new");
}

TEST(xcStringAssign, DeepCopyAssignsAndNeverTouchesItsPointerArguments)
{
    xcString source(std::string("x\0y", 3));
    xcString target("old");
    char marker = 'm';
    char* data = &marker;
    int length = 12345;
    target.deepCopy(source, &data, &length);
    EXPECT_EQ(bytes(target), std::string("x\0y", 3));
    EXPECT_EQ(data, &marker);
    EXPECT_EQ(marker, 'm');
    EXPECT_EQ(length, 12345);
    source.setchar(0, 'Z');
    EXPECT_EQ(bytes(target), std::string("x\0y", 3));
    EXPECT_NE(target.getData(), source.getData());
}

TEST(xcStringAssign, DeepCopyAcceptsNullPointerArguments)
{
    xcString target;
    target.deepCopy(xcString("abc"), nullptr, nullptr);
    EXPECT_EQ(bytes(target), "abc");
}

// ---- appending and concatenation ----

TEST(xcStringAppend, CStringUpToItsZero)
{
    xcString s("ab");
    s.append("cd\0ef");
    EXPECT_EQ(bytes(s), "abcd");
}

TEST(xcStringAppend, WithCountTakesZeroBytesToo)
{
    xcString s("ab");
    s.append("c\0d", 3);
    EXPECT_EQ(bytes(s), std::string("abc\0d", 5));
    s.append("zzz", 0);
    EXPECT_EQ(s.length(), 5);
}

TEST(xcStringAppend, WithNegativeCountIsTheStandardLengthError)
{
    xcString s("ab");
    EXPECT_THROW(s.append("cd", -1), std::length_error);
    EXPECT_EQ(bytes(s), "ab");
}

TEST(xcStringAppend, PlusEqualsStringCStringCharAndInt)
{
    xcString s("a");
    s += xcString(std::string("b\0", 2));
    s += "cd";
    s += 'e';
    s += -15;
    EXPECT_EQ(bytes(s), std::string("ab\0cde-15", 9));
}

TEST(xcStringAppend, PlusEqualsZeroCharAddsOneByte)
{
    xcString s("a");
    s += '\0';
    EXPECT_EQ(s.length(), 2);
    EXPECT_EQ(bytes(s), std::string("a\0", 2));
}

TEST(xcStringAppend, PlusEqualsSelfDoublesTheText)
{
    xcString s("ab");
    s += s;
    EXPECT_EQ(bytes(s), "abab");
}

TEST(xcStringConcat, PlusReturnsANewStringAndLeavesThisUnchanged)
{
    const xcString s("ab");
    EXPECT_EQ(bytes(s + xcString("cd")), "abcd");
    EXPECT_EQ(bytes(s + "ef"), "abef");
    EXPECT_EQ(bytes(s + 12), "ab12");
    EXPECT_EQ(bytes(s + -3), "ab-3");
    EXPECT_EQ(bytes(s), "ab");
}

// ---- access and conversion ----

TEST(xcStringAccess, LengthCountsEveryByteIncludingZeros)
{
    EXPECT_EQ(xcString(std::string("\0\0\0", 3)).length(), 3);
    EXPECT_EQ(xcString("abc").length(), 3);
}

TEST(xcStringAccess, IsEmptyOverloadsAgree)
{
    xcString empty;
    const xcString constEmpty;
    xcString full("x");
    const xcString constFull("x");
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_TRUE(constEmpty.isEmpty());
    EXPECT_FALSE(full.isEmpty());
    EXPECT_FALSE(constFull.isEmpty());
    EXPECT_FALSE(xcString(std::string("\0", 1)).isEmpty());
}

TEST(xcStringAccess, ConversionToCStringIsGetData)
{
    const xcString s("abc");
    const char* p = s;
    EXPECT_EQ(p, s.getData());
    EXPECT_STREQ(p, "abc");
}

TEST(xcStringAccess, OperatorIntIsAtoi)
{
    EXPECT_EQ(static_cast<int>(xcString(" 12abc")), 12);
    EXPECT_EQ(static_cast<int>(xcString("abc")), 0);
    EXPECT_EQ(static_cast<int>(xcString("-7")), -7);
    EXPECT_EQ(static_cast<int>(xcString("+5x")), 5);
    EXPECT_EQ(static_cast<int>(xcString("\t\n 42")), 42);
    EXPECT_EQ(static_cast<int>(xcString("")), 0);
    EXPECT_EQ(static_cast<int>(xcString("0x1F")), 0);
    EXPECT_EQ(static_cast<int>(xcString(std::string("1\0002", 3))), 1);
}

TEST(xcStringAccess, GetCharOutsideZeroToLengthIsZero)
{
    const xcString s("A");
    EXPECT_EQ(s.getChar(-1), '\0');
    EXPECT_EQ(s.getChar(s.length()), '\0');
    EXPECT_EQ(s.getChar(s.length() + 1), '\0');
    EXPECT_EQ(s.getChar(INT_MIN), '\0');
    EXPECT_EQ(s.getChar(INT_MAX), '\0');
    EXPECT_EQ(s.getChar(0), 'A');
    EXPECT_EQ(xcString().getChar(0), '\0');
}

TEST(xcStringAccess, GetCharOfAByteAboveSevenFIsNegative)
{
    const xcString s("\xE9");
    EXPECT_EQ(s.getChar(0), static_cast<char>(0xE9));
    EXPECT_LT(s.getChar(0), 0);
}

TEST(xcStringAccess, IndexOperatorIsGetChar)
{
    xcString s(std::string("a\0\xFF", 3));
    EXPECT_EQ(s[0], 'a');
    EXPECT_EQ(s[1], '\0');
    EXPECT_EQ(s[2], static_cast<char>(0xFF));
    EXPECT_EQ(s[3], '\0');
    EXPECT_EQ(s[-1], '\0');
    EXPECT_EQ(s[4], '\0');
    static_assert(std::is_same<decltype(s[0]), char>::value, "operator[] returns the byte by value");
}

TEST(xcStringAccess, SetcharInsideStoresTheByte)
{
    xcString s("abc");
    s.setchar(0, 'X');
    s.setchar(2, '\0');
    EXPECT_EQ(bytes(s), std::string("Xb\0", 3));
    EXPECT_EQ(s.length(), 3);
}

TEST(xcStringAccess, SetcharOutsideDoesNothing)
{
    xcString s("abc");
    s.setchar(-1, 'X');
    s.setchar(4, 'X');
    s.setchar(INT_MIN, 'X');
    EXPECT_EQ(bytes(s), "abc");
    EXPECT_EQ(s.getData()[3], '\0');
}

TEST(xcStringAccess, SetcharAtLengthOverwritesTheTerminatorAndKeepsTheLength)
{
    xcString s("abc");
    s.setchar(3, 'X');
    EXPECT_EQ(s.length(), 3);
    EXPECT_EQ(s.getData()[3], 'X');
    EXPECT_EQ(bytes(s), "abc");
    EXPECT_EQ(s.getChar(3), '\0');
    s.setchar(3, '\0');
    EXPECT_STREQ(s.getData(), "abc");
}

TEST(xcStringAccess, SetcharAtLengthOfEmptyStringKeepsItEmpty)
{
    xcString s;
    s.setchar(0, '\0');
    EXPECT_EQ(s.length(), 0);
    EXPECT_TRUE(s.isEmpty());
}

// ---- comparison ----

TEST(xcStringCompare, EqualityIsByteIdentityIncludingZeros)
{
    EXPECT_TRUE(xcString("abc") == xcString("abc"));
    EXPECT_FALSE(xcString("abc") != xcString("abc"));
    EXPECT_FALSE(xcString("abc") == xcString("abC"));
    EXPECT_TRUE(xcString(std::string("a\0b", 3)) != xcString(std::string("a\0c", 3)));
    EXPECT_TRUE(xcString(std::string("a\0", 2)) != xcString("a"));
    EXPECT_TRUE(xcString() == xcString(""));
}

TEST(xcStringCompare, EqualityWithCStringReadsItUpToItsZero)
{
    EXPECT_TRUE(xcString("abc") == "abc");
    EXPECT_TRUE(xcString("abc") != "ab");
    EXPECT_TRUE(xcString("abc") != "abcd");
    EXPECT_TRUE(xcString(std::string("ab\0", 3)) != "ab");
    EXPECT_TRUE(xcString() == "");
}

TEST(xcStringCompare, ShorterPrefixOrdersFirst)
{
    EXPECT_TRUE(xcString("ab") < xcString("abc"));
    EXPECT_FALSE(xcString("abc") < xcString("ab"));
    EXPECT_TRUE(xcString("abc") > xcString("ab"));
    EXPECT_TRUE(xcString("") < xcString("a"));
}

TEST(xcStringCompare, FirstDifferingByteDecidesNotTheLength)
{
    EXPECT_TRUE(xcString("abc") < xcString("abd"));
    EXPECT_TRUE(xcString("b") > xcString("aaaa"));
    EXPECT_FALSE(xcString("abc") < xcString("abc"));
    EXPECT_FALSE(xcString("abc") > xcString("abc"));
}

TEST(xcStringCompare, BytesCompareAsUnsigned)
{
    EXPECT_TRUE(xcString("\xE9") > xcString("z"));
    EXPECT_TRUE(xcString("z") < xcString("\xE9"));
    EXPECT_TRUE(xcString(std::string("\0", 1)) < xcString("\x01"));
}

TEST(xcStringCompare, IsEqualNoCaseFoldsWithToupperAndNeedsEqualLengths)
{
    EXPECT_TRUE(xcString::isEqualNoCase(xcString("SRT"), xcString("srt")));
    EXPECT_FALSE(xcString::isEqualNoCase(xcString("srt"), xcString("srt ")));
    EXPECT_FALSE(xcString::isEqualNoCase(xcString("srt "), xcString("srt")));
    EXPECT_TRUE(xcString::isEqualNoCase(xcString(), xcString()));
    EXPECT_FALSE(xcString::isEqualNoCase(xcString("a"), xcString()));
    EXPECT_FALSE(xcString::isEqualNoCase(xcString("ass"), xcString("ssa")));
    EXPECT_TRUE(xcString::isEqualNoCase(xcString("a1-Z"), xcString("A1-z")));
}

TEST(xcStringCompare, IsEqualNoCaseComparesPastEmbeddedZeros)
{
    EXPECT_TRUE(xcString::isEqualNoCase(xcString(std::string("a\0b", 3)), xcString(std::string("A\0B", 3))));
    EXPECT_FALSE(xcString::isEqualNoCase(xcString(std::string("a\0b", 3)), xcString(std::string("a\0c", 3))));
}

TEST(xcStringCompare, IsEqualNoCaseLeavesBytesAboveSevenFAlone)
{
    EXPECT_TRUE(xcString::isEqualNoCase(xcString("\xE9"), xcString("\xE9")));
    EXPECT_FALSE(xcString::isEqualNoCase(xcString("\xE9"), xcString("\xC9")));
}

// ---- searching ----

TEST(xcStringFind, CharFromStart)
{
    const xcString s("abcabc");
    EXPECT_EQ(s.find('c', 0), 2);
    EXPECT_EQ(s.find('c', 2), 2);
    EXPECT_EQ(s.find('c', 3), 5);
    EXPECT_EQ(s.find('x', 0), -1);
}

TEST(xcStringFind, CharWithNegativeAtOrPastLengthStartIsNotFound)
{
    const xcString s("abc");
    EXPECT_EQ(s.find('c', -1), -1);
    EXPECT_EQ(s.find('a', INT_MIN), -1);
    EXPECT_EQ(s.find('c', 3), -1);
    EXPECT_EQ(s.find('c', 4), -1);
    EXPECT_EQ(xcString().find('a', 0), -1);
}

TEST(xcStringFind, CharFindsZeroAndHighBytes)
{
    const xcString s(std::string("a\0\xE9", 3));
    EXPECT_EQ(s.find('\0', 0), 1);
    EXPECT_EQ(s.find('\xE9', 0), 2);
}

TEST(xcStringFind, SubstringFromStart)
{
    const xcString s("abcabc");
    EXPECT_EQ(s.find(xcString("bc"), 0), 1);
    EXPECT_EQ(s.find(xcString("bc"), 2), 4);
    EXPECT_EQ(s.find(xcString("bc"), 5), -1);
    EXPECT_EQ(s.find(xcString("abcabcd"), 0), -1);
    EXPECT_EQ(s.find(xcString("bc"), -1), -1);
    EXPECT_EQ(s.find(xcString("bc"), 6), -1);
    EXPECT_EQ(s.find(xcString("bc"), 7), -1);
}

TEST(xcStringFind, EmptySubstringIsFoundAtStartUpToTheLength)
{
    const xcString s("abc");
    EXPECT_EQ(s.find(xcString(""), 2), 2);
    EXPECT_EQ(s.find(xcString(""), 0), 0);
    EXPECT_EQ(s.find(xcString(""), 3), 3);
    EXPECT_EQ(s.find(xcString(""), 4), -1);
    EXPECT_EQ(s.find(xcString(""), -1), -1);
}

TEST(xcStringFind, SubstringWithEmbeddedZero)
{
    const xcString s(std::string("ab\0cd\0ef", 8));
    EXPECT_EQ(s.find(xcString(std::string("\0e", 2)), 0), 5);
}

TEST(xcStringFindlast, SearchesForAnyByteOfTheSet)
{
    const xcString s("abcb");
    EXPECT_EQ(s.findlast(xcString("xb"), -1), 3);
    EXPECT_EQ(s.findlast(xcString("ca"), -1), 2);
    EXPECT_EQ(s.findlast(xcString("bc"), 3), 3);
    // "cb" as a substring stands at 2; as a set its last member is at 3.
    EXPECT_EQ(s.findlast(xcString("cb"), 3), 3);
    EXPECT_EQ(s.findlast(xcString("xyz"), -1), -1);
}

TEST(xcStringFindlast, StartBoundsTheSearch)
{
    const xcString s("abcb");
    EXPECT_EQ(s.findlast(xcString("b"), 2), 1);
    EXPECT_EQ(s.findlast(xcString("b"), 1), 1);
    EXPECT_EQ(s.findlast(xcString("b"), 0), -1);
    EXPECT_EQ(s.findlast(xcString("a"), 0), 0);
}

TEST(xcStringFindlast, StartAtOrPastLengthOrNegativeSearchesFromTheEnd)
{
    const xcString s("abcb");
    EXPECT_EQ(s.findlast(xcString("b"), 4), 3);
    EXPECT_EQ(s.findlast(xcString("b"), 5), 3);
    EXPECT_EQ(s.findlast(xcString("b"), INT_MAX), 3);
    EXPECT_EQ(s.findlast(xcString("b"), -1), 3);
    EXPECT_EQ(s.findlast(xcString("b"), INT_MIN), 3);
}

TEST(xcStringFindlast, EmptySetOrEmptyStringIsNotFound)
{
    EXPECT_EQ(xcString("abc").findlast(xcString(""), -1), -1);
    EXPECT_EQ(xcString("abc").findlast(xcString(""), 1), -1);
    EXPECT_EQ(xcString("").findlast(xcString("a"), -1), -1);
    EXPECT_EQ(xcString("").findlast(xcString("a"), 0), -1);
}

TEST(xcStringFindlast, SetMayHoldZeroAndHighBytes)
{
    const xcString s(std::string("a\0b\xE9", 4));
    EXPECT_EQ(s.findlast(xcString(std::string("\0", 1)), -1), 1);
    EXPECT_EQ(s.findlast(xcString("\xE9"), -1), 3);
}

// ---- cutting ----

TEST(xcStringSubstr, CountMinusOneRunsToTheEnd)
{
    const xcString s("abcdef");
    EXPECT_EQ(bytes(s.substr(2, -1)), "cdef");
    EXPECT_EQ(bytes(s.substr(0, -1)), "abcdef");
}

TEST(xcStringSubstr, CountZeroOrBelowMinusOneIsEmpty)
{
    const xcString s("abcdef");
    EXPECT_TRUE(s.substr(2, 0).isEmpty());
    EXPECT_TRUE(s.substr(2, -2).isEmpty());
    EXPECT_TRUE(s.substr(0, INT_MIN).isEmpty());
}

TEST(xcStringSubstr, PositionAtOrPastLengthIsEmpty)
{
    const xcString s("abcdef");
    EXPECT_TRUE(s.substr(6, 3).isEmpty());
    EXPECT_TRUE(s.substr(6, -1).isEmpty());
    EXPECT_TRUE(s.substr(7, 1).isEmpty());
    EXPECT_TRUE(s.substr(7, -1).isEmpty());
    EXPECT_TRUE(s.substr(INT_MAX, 1).isEmpty());
}

TEST(xcStringSubstr, NegativePositionIsEmpty)
{
    const xcString s("abcdef");
    EXPECT_TRUE(s.substr(-1, 2).isEmpty());
    EXPECT_TRUE(s.substr(-1, -1).isEmpty());
}

TEST(xcStringSubstr, CountBeyondTheEndIsCut)
{
    const xcString s("abcdef");
    EXPECT_EQ(bytes(s.substr(4, 100)), "ef");
    EXPECT_EQ(bytes(s.substr(1, 2)), "bc");
    EXPECT_EQ(bytes(s.substr(0, INT_MAX)), "abcdef");
}

TEST(xcStringSubstr, KeepsEmbeddedZeros)
{
    const xcString s(std::string("a\0b\0c", 5));
    EXPECT_EQ(bytes(s.substr(1, 3)), std::string("\0b\0", 3));
}

TEST(xcStringLeft, FirstBytesUpToTheWholeString)
{
    xcString s("abc");
    EXPECT_EQ(bytes(s.Left(3)), "abc");
    EXPECT_EQ(bytes(s.Left(2)), "ab");
    EXPECT_TRUE(s.Left(0).isEmpty());
}

TEST(xcStringLeft, NegativeOrPastLengthIsEmpty)
{
    xcString s("abc");
    EXPECT_TRUE(s.Left(4).isEmpty());
    EXPECT_TRUE(s.Left(-1).isEmpty());
    EXPECT_TRUE(s.Left(INT_MAX).isEmpty());
}

TEST(xcStringRight, LastBytesBelowTheLength)
{
    xcString s("abc");
    EXPECT_EQ(bytes(s.Right(2)), "bc");
    EXPECT_EQ(bytes(s.Right(1)), "c");
}

TEST(xcStringRight, RightOfTheWholeLengthIsEmptyUnlikeLeft)
{
    xcString s("abc");
    EXPECT_TRUE(s.Right(3).isEmpty());
    EXPECT_EQ(bytes(s.Left(3)), "abc");
}

TEST(xcStringRight, ZeroNegativeOrPastLengthIsEmpty)
{
    xcString s("abc");
    EXPECT_TRUE(s.Right(0).isEmpty());
    EXPECT_TRUE(s.Right(-1).isEmpty());
    EXPECT_TRUE(s.Right(4).isEmpty());
    EXPECT_TRUE(xcString("").Right(0).isEmpty());
}

// ---- changing in place ----

TEST(xcStringEdit, ClearAndEraseEmptyTheString)
{
    xcString a("abc");
    xcString b(std::string("\0x", 2));
    a.clear();
    b.erase();
    EXPECT_TRUE(a.isEmpty());
    EXPECT_TRUE(b.isEmpty());
    EXPECT_STREQ(a.getData(), "");
}

TEST(xcStringReplace, ReplacesAtMostCountBytes)
{
    xcString s("abcdef");
    s.replace(1, 2, xcString("XYZ"));
    EXPECT_EQ(bytes(s), "aXYZdef");
}

TEST(xcStringReplace, CountBeyondTheEndIsCut)
{
    xcString s("abcdef");
    s.replace(4, 100, xcString("X"));
    EXPECT_EQ(bytes(s), "abcdX");
}

TEST(xcStringReplace, NegativeCountRunsToTheEnd)
{
    xcString s("abcdef");
    s.replace(2, -1, xcString("X"));
    EXPECT_EQ(bytes(s), "abX");
}

TEST(xcStringReplace, ZeroCountInserts)
{
    xcString s("abc");
    s.replace(1, 0, xcString(std::string("\0", 1)));
    EXPECT_EQ(bytes(s), std::string("a\0bc", 4));
}

TEST(xcStringReplace, AtLengthAppends)
{
    xcString s("abc");
    s.replace(3, 5, xcString("de"));
    EXPECT_EQ(bytes(s), "abcde");
}

TEST(xcStringReplace, PastLengthOrNegativePositionIsTheStandardRangeError)
{
    xcString s("abc");
    EXPECT_THROW(s.replace(4, 1, xcString("x")), std::out_of_range);
    EXPECT_THROW(s.replace(-1, 1, xcString("x")), std::out_of_range);
    EXPECT_EQ(bytes(s), "abc");
}

TEST(xcStringDeleteStr, CutsTheTextButKeepsTheRecordedLength)
{
    xcString s("abcdef");
    EXPECT_EQ(s.deleteStr(1, 2), 6);
    EXPECT_EQ(cText(s), "adef");
    EXPECT_EQ(s.length(), 6);
}

TEST(xcStringDeleteStr, OldTailStaysBehindTheNewZero)
{
    xcString s("abcdef");
    s.deleteStr(1, 2);
    EXPECT_EQ(bytes(s), std::string("adef\0f", 6));
    EXPECT_EQ(s.getChar(5), 'f');
    EXPECT_EQ(s.getChar(4), '\0');
}

TEST(xcStringDeleteStr, CountPastTheEndCutsToTheEnd)
{
    xcString s("abcdef");
    EXPECT_EQ(s.deleteStr(4, 10), 6);
    EXPECT_EQ(cText(s), "abcd");
    EXPECT_EQ(bytes(s), std::string("abcd\0f", 6));
}

TEST(xcStringDeleteStr, PositionAtOrPastLengthChangesNothing)
{
    xcString s("abcdef");
    EXPECT_EQ(s.deleteStr(7, 1), 6);
    EXPECT_EQ(bytes(s), "abcdef");
    EXPECT_EQ(s.deleteStr(6, 1), 6);
    EXPECT_EQ(bytes(s), "abcdef");
    EXPECT_EQ(s.deleteStr(INT_MAX, INT_MAX), 6);
    EXPECT_EQ(bytes(s), "abcdef");
}

TEST(xcStringDeleteStr, NegativePositionCountsAsZero)
{
    xcString s("abcdef");
    EXPECT_EQ(s.deleteStr(-3, 2), 6);
    EXPECT_EQ(bytes(s), std::string("cdef\0f", 6));
}

TEST(xcStringDeleteStr, ZeroOrNegativeCountChangesNothing)
{
    xcString s("abcdef");
    EXPECT_EQ(s.deleteStr(1, 0), 6);
    EXPECT_EQ(s.deleteStr(1, -5), 6);
    EXPECT_EQ(bytes(s), "abcdef");
}

TEST(xcStringDeleteStr, WholeTextLeavesAnEmptyCTextOfTheSameLength)
{
    xcString s("abc");
    EXPECT_EQ(s.deleteStr(0, 3), 3);
    EXPECT_EQ(cText(s), "");
    EXPECT_EQ(s.length(), 3);
    EXPECT_EQ(bytes(s), std::string("\0bc", 3));
}

TEST(xcStringDeleteStr, EmptyStringReturnsZero)
{
    xcString s;
    EXPECT_EQ(s.deleteStr(0, 1), 0);
    EXPECT_TRUE(s.isEmpty());
}

TEST(xcStringTrimLeft, IndexAdvancesSoHalfOfTheLeadingSpacesGo)
{
    xcString one(" abc");
    xcString two("  abc");
    xcString three("   abc");
    xcString four("    abc");
    one.TrimLeft();
    two.TrimLeft();
    three.TrimLeft();
    four.TrimLeft();
    EXPECT_EQ(bytes(one), "abc");
    EXPECT_EQ(bytes(two), " abc");
    EXPECT_EQ(bytes(three), " abc");
    EXPECT_EQ(bytes(four), "  abc");
}

TEST(xcStringTrimLeft, TwoSpacesAndXLeaveOneSpace)
{
    xcString s("  x");
    s.TrimLeft();
    EXPECT_EQ(bytes(s), " x");
}

TEST(xcStringTrimLeft, OnlySpaceCountsAsBlank)
{
    xcString tab("\tx");
    xcString crlf("\r\nx");
    tab.TrimLeft();
    crlf.TrimLeft();
    EXPECT_EQ(bytes(tab), "\tx");
    EXPECT_EQ(bytes(crlf), "\r\nx");
}

TEST(xcStringTrimLeft, AllSpacesOrEmpty)
{
    xcString one(" ");
    xcString two("  ");
    xcString empty;
    one.TrimLeft();
    two.TrimLeft();
    empty.TrimLeft();
    EXPECT_EQ(bytes(one), "");
    EXPECT_EQ(bytes(two), " ");
    EXPECT_TRUE(empty.isEmpty());
}

TEST(xcStringTrimLeft, AdvancedIndexCanLandOnAnInteriorSpace)
{
    // After each removal the index moves on to the next position, and in
    // " a b " every position it reaches holds a space: 0, then 1 of "a b ",
    // then 2 of "ab ".
    xcString s(" a b ");
    s.TrimLeft();
    EXPECT_EQ(bytes(s), "ab");
    xcString t(" a bc");
    t.TrimLeft();
    EXPECT_EQ(bytes(t), "abc");
}

TEST(xcStringTrimLeft, InteriorAndTrailingSpacesStayWithoutALeadingSpace)
{
    xcString s("a b ");
    s.TrimLeft();
    EXPECT_EQ(bytes(s), "a b ");
}

TEST(xcStringTrimRight, RemovesEveryTrailingSpace)
{
    xcString s("x   ");
    s.TrimRight();
    EXPECT_EQ(bytes(s), "x");
}

TEST(xcStringTrimRight, AllSpacesBecomeEmpty)
{
    xcString s("   ");
    s.TrimRight();
    EXPECT_TRUE(s.isEmpty());
}

TEST(xcStringTrimRight, OtherBytesStopIt)
{
    xcString tab("x \t");
    xcString lead("  x");
    xcString empty;
    tab.TrimRight();
    lead.TrimRight();
    empty.TrimRight();
    EXPECT_EQ(bytes(tab), "x \t");
    EXPECT_EQ(bytes(lead), "  x");
    EXPECT_TRUE(empty.isEmpty());
}

TEST(xcStringClearSpaces, LeadingSpacesThenOnlyTheFirstInteriorSpace)
{
    xcString a("1 2 3");
    xcString b("  1 2 3");
    xcString c("123");
    a.clearSpaces();
    b.clearSpaces();
    c.clearSpaces();
    EXPECT_EQ(bytes(a), "12 3");
    EXPECT_EQ(bytes(b), "12 3");
    EXPECT_EQ(bytes(c), "123");
}

TEST(xcStringClearSpaces, AllSpacesOrEmpty)
{
    xcString spaces("   ");
    xcString empty;
    spaces.clearSpaces();
    empty.clearSpaces();
    EXPECT_TRUE(spaces.isEmpty());
    EXPECT_TRUE(empty.isEmpty());
}

TEST(xcStringClearSpaces, TrailingSpaceIsTheFirstInteriorOne)
{
    xcString s("ab  ");
    s.clearSpaces();
    EXPECT_EQ(bytes(s), "ab ");
}

TEST(xcStringRemoveLastChar, RemovesAnyMixOfTrailingCrAndLf)
{
    xcString a("abc\r\n\r\n");
    xcString b("abc\n\r\n");
    a.removeLastChar();
    b.removeLastChar();
    EXPECT_EQ(bytes(a), "abc");
    EXPECT_EQ(bytes(b), "abc");
}

TEST(xcStringRemoveLastChar, AnyOtherLastByteIsKept)
{
    xcString space("abc ");
    xcString inner("a\rb\nc");
    xcString tab("abc\n\t");
    space.removeLastChar();
    inner.removeLastChar();
    tab.removeLastChar();
    EXPECT_EQ(bytes(space), "abc ");
    EXPECT_EQ(bytes(inner), "a\rb\nc");
    EXPECT_EQ(bytes(tab), "abc\n\t");
}

TEST(xcStringRemoveLastChar, OnlyLineEndsBecomesEmpty)
{
    xcString lf("\n");
    xcString mix("\r\n\r");
    xcString empty;
    lf.removeLastChar();
    mix.removeLastChar();
    empty.removeLastChar();
    EXPECT_TRUE(lf.isEmpty());
    EXPECT_TRUE(mix.isEmpty());
    EXPECT_TRUE(empty.isEmpty());
}

TEST(xcStringRemoveLastChar, ZeroByteBeforeTheLineEndStays)
{
    xcString s(std::string("a\0\n", 3));
    s.removeLastChar();
    EXPECT_EQ(bytes(s), std::string("a\0", 2));
}

TEST(xcStringIsNumeric, OnlyAsciiDigits)
{
    EXPECT_TRUE(xcString("007").isNumeric());
    EXPECT_TRUE(xcString("0").isNumeric());
    EXPECT_TRUE(xcString("1234567890").isNumeric());
}

TEST(xcStringIsNumeric, EmptySignPointSpaceAndOtherBytesAreNot)
{
    EXPECT_FALSE(xcString("").isNumeric());
    EXPECT_FALSE(xcString("-1").isNumeric());
    EXPECT_FALSE(xcString("+1").isNumeric());
    EXPECT_FALSE(xcString("1.5").isNumeric());
    EXPECT_FALSE(xcString("1 ").isNumeric());
    EXPECT_FALSE(xcString(" 1").isNumeric());
    EXPECT_FALSE(xcString("1a").isNumeric());
    EXPECT_FALSE(xcString("\xB9").isNumeric());
    EXPECT_FALSE(xcString(std::string("1\0", 2)).isNumeric());
}
