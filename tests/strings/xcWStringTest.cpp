// xcWString: the points where the wide twin differs from xcString, and the
// shared quirks as the wide twin shows them.
#include "strings/xcWString.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
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
