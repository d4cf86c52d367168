// xcWString: the points where the wide twin differs from xcString, and the
// shared quirks as the wide twin shows them.
#include "strings/xcWString.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <map>
#include <cstring>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>

namespace {

std::wstring chars(const xcWString& s)
{
    return std::wstring(s.getData(), static_cast<size_t>(s.length()));
}

std::wstring cText(const xcWString& s)
{
    return std::wstring(s.getData());
}

} // namespace

TEST(xcWStringShape, HasVirtualDestructorAndOwnTypeInformation)
{
    EXPECT_TRUE(std::has_virtual_destructor<xcWString>::value);
    xcWString* p = new xcWString(L"abc");
    EXPECT_EQ(typeid(*p), typeid(xcWString));
    EXPECT_NE(std::string(typeid(*p).name()).find("xcWString"), std::string::npos);
    delete p;
}

// ---- substr past the length raises ----

TEST(xcWStringSubstr, PositionPastLengthRaisesTheStandardRangeError)
{
    const xcWString s(L"abcd");
    EXPECT_THROW(s.substr(5, 1), std::out_of_range);
    EXPECT_THROW(s.substr(5, -1), std::out_of_range);
    EXPECT_THROW(s.substr(INT_MAX, 3), std::out_of_range);
}

TEST(xcWStringSubstr, RangeErrorMessageIsBasicStringSubstr)
{
    const xcWString s(L"abcd");
    try {
        s.substr(5, 1);
        FAIL() << "no exception";
    } catch (const std::out_of_range& e) {
        EXPECT_STREQ(e.what(), "basic_string::substr");
    }
}

TEST(xcWStringSubstr, PositionAtLengthIsEmpty)
{
    const xcWString s(L"abcd");
    EXPECT_TRUE(s.substr(4, 1).isEmpty());
    EXPECT_TRUE(s.substr(4, -1).isEmpty());
}

TEST(xcWStringSubstr, NarrowBoundsRulesStillApply)
{
    const xcWString s(L"abcdef");
    EXPECT_TRUE(s.substr(-1, 2).isEmpty());
    EXPECT_TRUE(s.substr(2, 0).isEmpty());
    EXPECT_TRUE(s.substr(2, -2).isEmpty());
    EXPECT_EQ(chars(s.substr(2, -1)), L"cdef");
    EXPECT_EQ(chars(s.substr(4, 100)), L"ef");
}

TEST(xcWStringSubstr, EmptyCountRulesAnswerBeforeThePositionIsChecked)
{
    // A count of 0 or below -1, or a negative position, is answered with an
    // empty string before the position is compared with the length.
    const xcWString s(L"abcd");
    EXPECT_TRUE(s.substr(5, 0).isEmpty());
    EXPECT_TRUE(s.substr(5, -2).isEmpty());
}

// ---- operator int: wcstol with the length as base ----

TEST(xcWStringToInt, LengthIsTheNumberBase)
{
    EXPECT_EQ(static_cast<int>(xcWString(L"10")), 2);
    EXPECT_EQ(static_cast<int>(xcWString(L"12")), 1);
    EXPECT_EQ(static_cast<int>(xcWString(L"123")), 5);
    EXPECT_EQ(static_cast<int>(xcWString(L"101")), 10);
    EXPECT_EQ(static_cast<int>(xcWString(L"0010")), 4);
    EXPECT_EQ(static_cast<int>(xcWString(L"-11")), -4);
}

TEST(xcWStringToInt, OneCharacterHasTheInvalidBaseOneAndIsZero)
{
    EXPECT_EQ(static_cast<int>(xcWString(L"7")), 0);
    EXPECT_EQ(static_cast<int>(xcWString(L"0")), 0);
}

TEST(xcWStringToInt, EmptyIsZero)
{
    EXPECT_EQ(static_cast<int>(xcWString()), 0);
}

TEST(xcWStringToInt, MoreThanThirtySixCharactersIsZero)
{
    EXPECT_EQ(static_cast<int>(xcWString(std::wstring(37, L'1'))), 0);
    EXPECT_EQ(static_cast<int>(xcWString(std::wstring(100, L'1'))), 0);
}

TEST(xcWStringToInt, ThirtySixCharactersIsBaseThirtySix)
{
    // "z" followed by 35 spaces: wcstol reads "z" in base 36.
    EXPECT_EQ(static_cast<int>(xcWString(L"z" + std::wstring(35, L' '))), 35);
}

TEST(xcWStringToInt, InvalidBaseLeavesErrnoAlone)
{
    errno = 0;
    EXPECT_EQ(static_cast<int>(xcWString(L"5")), 0);
    EXPECT_EQ(static_cast<int>(xcWString(std::wstring(40, L'1'))), 0);
    EXPECT_EQ(errno, 0);
}

TEST(xcWStringToInt, TextEndsAtAnEmbeddedZeroButTheBaseIsTheLength)
{
    // Length 3 gives base 3; the digits read are "1" only.
    EXPECT_EQ(static_cast<int>(xcWString(std::wstring(L"1\0" L"2", 3))), 1);
}

// ---- integers format to nothing ----

TEST(xcWStringInt, ConstructorFromIntIsEmpty)
{
    EXPECT_TRUE(xcWString(7).isEmpty());
    EXPECT_TRUE(xcWString(0).isEmpty());
    EXPECT_TRUE(xcWString(-42).isEmpty());
    EXPECT_TRUE(xcWString(INT_MIN).isEmpty());
}

TEST(xcWStringInt, PlusEqualsIntAppendsNothing)
{
    xcWString s(L"a");
    s += 12;
    EXPECT_EQ(chars(s), L"a");
    s += 0;
    EXPECT_EQ(chars(s), L"a");
}

TEST(xcWStringInt, PlusIntReturnsAPlainCopy)
{
    const xcWString s(L"x");
    EXPECT_EQ(chars(s + 3), L"x");
    EXPECT_EQ(chars(s + -3), L"x");
    EXPECT_EQ(chars(s), L"x");
}

// ---- shared quirks, wide form ----

TEST(xcWStringTrimLeft, TwoSpacesAndXLeaveOneSpace)
{
    xcWString s(L"  x");
    s.TrimLeft();
    EXPECT_EQ(chars(s), L" x");
}

TEST(xcWStringAccess, GetCharOfLatinSmallEWithAcuteIsItsCode)
{
    const xcWString s(L"\u00E9");
    EXPECT_EQ(s.getChar(0), static_cast<wchar_t>(0xE9));
    EXPECT_GT(s.getChar(0), 0);
}

TEST(xcWStringMakeLower, LeavesLatinSmallEWithAcuteUnchanged)
{
    xcWString s(L"\u00E9\u00C9A");
    s.MakeLower();
    EXPECT_EQ(chars(s), L"\u00E9\u00C9a");
}

TEST(xcWStringXor, WithEmptyIsTheThirtyTwoBitComplement)
{
    const xcWString r = xcWString::xorString(xcWString(L"A"), xcWString());
    ASSERT_EQ(r.length(), 1);
    EXPECT_EQ(static_cast<unsigned int>(r.getChar(0)), 0xFFFFFFBEu);
}

TEST(xcWStringDeleteStr, CutsTheTextButKeepsTheRecordedLength)
{
    xcWString s(L"abcdef");
    EXPECT_EQ(s.deleteStr(1, 2), 6);
    EXPECT_EQ(cText(s), L"adef");
    EXPECT_EQ(s.length(), 6);
    EXPECT_EQ(chars(s), std::wstring(L"adef\0f", 6));
}

TEST(xcWStringCompareNoCase, IsWcscmpAndCaseSensitive)
{
    xcWString s(L"ABC");
    EXPECT_NE(s.CompareNoCase(L"abc"), 0);
    EXPECT_LT(s.CompareNoCase(L"abc"), 0);
    EXPECT_EQ(s.CompareNoCase(L"ABC"), 0);
    EXPECT_GT(s.CompareNoCase(L"AB"), 0);
}

// ---- construction, appending and access with codes beyond ASCII ----

TEST(xcWStringConstruct, FromWideCStringStopsAtTheFirstZero)
{
    const wchar_t text[] = {L'\u00E9', L'\u4E2D', 0, L'x', 0};
    xcWString s(text);
    EXPECT_EQ(s.length(), 2);
    EXPECT_EQ(chars(s), std::wstring(L"\u00E9\u4E2D"));
}

TEST(xcWStringConstruct, WithCountTakesZeroCharactersToo)
{
    const wchar_t text[] = {L'a', 0, L'\U0001F600', L'b'};
    xcWString s(text, 4);
    EXPECT_EQ(s.length(), 4);
    EXPECT_EQ(chars(s), std::wstring(text, 4));
    EXPECT_TRUE(xcWString(text, 0).isEmpty());
    EXPECT_THROW(xcWString(text, -1), std::length_error);
}

TEST(xcWStringConstruct, FromStdWstringAndAssignment)
{
    const std::wstring source(L"a\0\u00FF", 3);
    xcWString s(source);
    EXPECT_EQ(chars(s), source);
    xcWString t;
    t = L"new\0tail";
    EXPECT_EQ(chars(t), L"new");
    t = s;
    s.setchar(0, L'Z');
    EXPECT_EQ(chars(t), source);
}

TEST(xcWStringAppend, ZeroCharacterAndCountedAppend)
{
    xcWString s(L"a");
    s += L'\0';
    s.append(L"b\0c", 3);
    s.append(L"de\0f");
    EXPECT_EQ(chars(s), std::wstring(L"a\0b\0cde", 7));
    EXPECT_THROW(s.append(L"x", -1), std::length_error);
}

TEST(xcWStringAccess, GetCharBoundsAndIndexOperator)
{
    xcWString s(L"\u4E2D");
    EXPECT_EQ(s.getChar(0), L'\u4E2D');
    EXPECT_EQ(s[0], L'\u4E2D');
    EXPECT_EQ(s.getChar(-1), L'\0');
    EXPECT_EQ(s.getChar(1), L'\0');
    EXPECT_EQ(s.getChar(2), L'\0');
    EXPECT_EQ(s[INT_MAX], L'\0');
}

TEST(xcWStringAccess, SetcharAtLengthOverwritesTheTerminator)
{
    xcWString s(L"ab");
    s.setchar(2, L'\u4E2D');
    EXPECT_EQ(s.length(), 2);
    EXPECT_EQ(s.getData()[2], L'\u4E2D');
    EXPECT_EQ(s.getChar(2), L'\0');
    s.setchar(3, L'x');
    s.setchar(-1, L'x');
    EXPECT_EQ(chars(s), L"ab");
}

TEST(xcWStringCompare, EqualityWithWideCStringAndCodeOrder)
{
    EXPECT_TRUE(xcWString(L"\u00E9t\u00E9") == L"\u00E9t\u00E9");
    EXPECT_TRUE(xcWString(std::wstring(L"ab\0", 3)) != L"ab");
    EXPECT_TRUE(xcWString(L"\u0100") > xcWString(L"\u00FF"));
    EXPECT_TRUE(xcWString(L"\u00FF") < xcWString(L"\u00FF\u0001"));
}

TEST(xcWStringCompare, IsEqualNoCaseFoldsAsciiOnly)
{
    EXPECT_TRUE(xcWString::isEqualNoCase(xcWString(L"Ass"), xcWString(L"aSS")));
    EXPECT_FALSE(xcWString::isEqualNoCase(xcWString(L"\u00E9"), xcWString(L"\u00C9")));
    EXPECT_FALSE(xcWString::isEqualNoCase(xcWString(L"ss"), xcWString(L"ss ")));
}

// ---- searching and cutting with wide codes ----

TEST(xcWStringFind, CharAndSubstringWithWideCodes)
{
    const xcWString s(L"a\u4E2D\u6587\u4E2D");
    EXPECT_EQ(s.find(L'\u4E2D', 0), 1);
    EXPECT_EQ(s.find(L'\u4E2D', 2), 3);
    EXPECT_EQ(s.find(L'\u4E2D', -1), -1);
    EXPECT_EQ(s.find(L'\u4E2D', 4), -1);
    EXPECT_EQ(s.find(xcWString(L"\u6587\u4E2D"), 0), 2);
    EXPECT_EQ(s.find(xcWString(L""), 4), 4);
    EXPECT_EQ(s.find(xcWString(L""), 5), -1);
}

TEST(xcWStringFindlast, SetOfWideCodes)
{
    const xcWString s(L"\u4E2Dx\u6587y");
    EXPECT_EQ(s.findlast(xcWString(L"\u6587\u4E2D"), -1), 2);
    EXPECT_EQ(s.findlast(xcWString(L"\u6587\u4E2D"), 1), 0);
    EXPECT_EQ(s.findlast(xcWString(L"\u6587\u4E2D"), 4), 2);
    EXPECT_EQ(s.findlast(xcWString(L""), -1), -1);
}

TEST(xcWStringCut, LeftRightAndSubstrKeepWideCodes)
{
    xcWString s(L"\u00E9\u4E2D\U0001F600");
    EXPECT_EQ(chars(s.Left(2)), L"\u00E9\u4E2D");
    EXPECT_EQ(chars(s.Right(1)), L"\U0001F600");
    EXPECT_TRUE(s.Right(3).isEmpty());
    EXPECT_EQ(chars(s.Left(3)), chars(s));
    EXPECT_EQ(chars(s.substr(1, 1)), L"\u4E2D");
    EXPECT_EQ(chars(s.substr(3, -1)), L"");
}

// ---- changing in place ----

TEST(xcWStringEdit, TrimWithAWideCharacter)
{
    xcWString left(L"\u3000\u3000\u3000x");
    xcWString right(L"x\u3000\u3000");
    left.TrimLeft(L'\u3000');
    right.TrimRight(L'\u3000');
    EXPECT_EQ(chars(left), L"\u3000x");
    EXPECT_EQ(chars(right), L"x");
}

TEST(xcWStringEdit, OnlyTheSpaceCodeCountsAsBlank)
{
    // U+3000 and U+00A0 are not the space character 0x20.
    xcWString s(L"\u00A0 a \u3000");
    s.removeSpaces();
    EXPECT_EQ(chars(s), L"\u00A0 a \u3000");
    xcWString t(L" \u00A0");
    t.clearSpaces();
    EXPECT_EQ(chars(t), L"\u00A0");
}

TEST(xcWStringEdit, RemoveLastCharAndRemoveQuo)
{
    xcWString lines(L"\u4E2D\r\n\n");
    lines.removeLastChar();
    EXPECT_EQ(chars(lines), L"\u4E2D");
    xcWString quoted(L"\"\"\u4E2D\"");
    quoted.removeQuo();
    EXPECT_EQ(chars(quoted), L"\u4E2D\"");
}

TEST(xcWStringEdit, ReplaceCharsAndInflateWithWideText)
{
    xcWString s(L"\u4E2D|\u6587|x");
    s.replaceChars(xcWString(L"|"), xcWString(L"\u3001"));
    EXPECT_EQ(chars(s), L"\u4E2D\u3001\u6587|x");
    xcWString p(L"7");
    p.inflate(4, xcWString(L"\u00B7\u00B7"), true);
    EXPECT_EQ(chars(p), L"\u00B7\u00B7\u00B77");
}

TEST(xcWStringEdit, DeleteStrBoundsKeepTheLength)
{
    xcWString s(L"abcdef");
    EXPECT_EQ(s.deleteStr(4, 10), 6);
    EXPECT_EQ(cText(s), L"abcd");
    xcWString t(L"abcdef");
    EXPECT_EQ(t.deleteStr(7, 1), 6);
    EXPECT_EQ(t.deleteStr(-1, 0), 6);
    EXPECT_EQ(chars(t), L"abcdef");
}

TEST(xcWStringSplit, WideSeparator)
{
    xcWString s(L"\u4E2D\u3001\u3001\u6587\u3001");
    const std::map<int, xcWString> parts = s.split(xcWString(L"\u3001"));
    ASSERT_EQ(parts.size(), 3u);
    EXPECT_EQ(chars(parts.at(0)), L"\u4E2D");
    EXPECT_EQ(chars(parts.at(1)), L"");
    EXPECT_EQ(chars(parts.at(2)), L"\u6587");
}

// ---- case family and lower-casing ----

TEST(xcWStringNoCase, FindNoCaseIgnoresStartAndFindlastNoCaseUsesIt)
{
    xcWString s(L"abcb");
    EXPECT_EQ(s.findNoCase(xcWString(L"B"), 2), 1);
    EXPECT_EQ(s.findlastNoCase(xcWString(L"B"), 0), 3);
    EXPECT_EQ(s.findlastNoCase(xcWString(L"B"), 2), 1);
}

TEST(xcWStringNoCase, CompareNoCaseOverNCharactersPastZeros)
{
    xcWString s;
    const wchar_t a[] = {L'a', 0, L'\u4E2D'};
    const wchar_t b[] = {L'A', 0, L'\u4E2E'};
    EXPECT_EQ(s.compareNoCase(a, b, 2), 0);
    EXPECT_EQ(s.compareNoCase(a, b, 3), -1);
    EXPECT_EQ(s.compareNoCase(b, a, 3), 1);
    EXPECT_EQ(s.compareNoCase(a, b, 0), 0);
}

TEST(xcWStringMakeLower, CutsAtAnEmbeddedZero)
{
    xcWString s(std::wstring(L"AB\0CD", 5));
    s.MakeLower();
    EXPECT_EQ(s.length(), 2);
    EXPECT_EQ(chars(s), L"ab");
}

TEST(xcWStringWcslwr, LowersUpToTheZeroAndLeavesTheObjectAlone)
{
    xcWString s(L"KEEP");
    wchar_t text[] = L"AbC\0DEF";
    EXPECT_EQ(s.wcslwr(text), text);
    EXPECT_EQ(std::wstring(text, 7), std::wstring(L"abc\0DEF", 7));
    EXPECT_EQ(chars(s), L"KEEP");
}

TEST(xcWStringXor, SymmetricWithComplementedTail)
{
    const xcWString a(L"ab");
    const xcWString b(std::wstring(L"\u0101\u0102\u0103", 3));
    const xcWString r = xcWString::xorString(a, b);
    ASSERT_EQ(r.length(), 3);
    EXPECT_EQ(r.getChar(0), static_cast<wchar_t>(L'a' ^ 0x101));
    EXPECT_EQ(r.getChar(1), static_cast<wchar_t>(L'b' ^ 0x102));
    EXPECT_EQ(r.getChar(2), static_cast<wchar_t>(~0x103));
    EXPECT_EQ(chars(xcWString::xorString(b, a)), chars(r));
}

TEST(xcWStringExpand, NeverChangesTheString)
{
    xcWString s(L"<\u4E2D>");
    s.expand(xcWString(L"<"), xcWString(L"\u4E2D"), xcWString(L"x"), xcWString(L">"));
    EXPECT_EQ(chars(s), L"<\u4E2D>");
}
