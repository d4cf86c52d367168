// The field readers of both ASS/SSA parsers: GetStr, GetInt, GetFloat.

#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"

namespace {

// GetStr

TEST(AssGetStr, CutsFieldAndLeavesTheRestAfterTheSeparator)
{
    xcAssParser parser;
    xcString line("abc,def,ghi");
    EXPECT_STREQ(parser.GetStr(line, ',').getData(), "abc");
    EXPECT_STREQ(line.getData(), "def,ghi");
}

TEST(AssGetStr, WithoutSeparatorReturnsWholeLineAndLeavesItUnchanged)
{
    xcAssParser parser;
    xcString line("abc");
    EXPECT_STREQ(parser.GetStr(line, ',').getData(), "abc");
    EXPECT_STREQ(line.getData(), "abc");
}

TEST(AssGetStr, KeepsTrailingSpacesOfTheField)
{
    xcAssParser parser;
    xcString line("a  ,b");
    EXPECT_STREQ(parser.GetStr(line, ',').getData(), "a  ");
    EXPECT_STREQ(line.getData(), "b");
}

TEST(AssGetStr, RemovesOnlyHalfOfTheLeadingSpaces)
{
    xcAssParser parser;
    xcString line("    a,b");
    EXPECT_STREQ(parser.GetStr(line, ',').getData(), "  a");
}

TEST(AssGetStr, SeparatorFirstGivesEmptyFieldAndConsumesIt)
{
    xcAssParser parser;
    xcString line(",x");
    EXPECT_STREQ(parser.GetStr(line, ',').getData(), "");
    EXPECT_STREQ(line.getData(), "x");
}

TEST(AssGetStr, SpacesBeforeTheRestAreNotRemovedFromTheRest)
{
    xcAssParser parser;
    xcString line("a, b");
    parser.GetStr(line, ',');
    EXPECT_STREQ(line.getData(), " b");
}

TEST(AssGetStr, NarrowEmptyRemainderGivesEmptyField)
{
    xcAssParser parser;
    xcString line;
    EXPECT_TRUE(parser.GetStr(line, ',').isEmpty());
    EXPECT_TRUE(line.isEmpty());
}

TEST(AssGetStr, WideEmptyRemainderThrowsIntOne)
{
    xcAssParserU parser;
    xcWString line;
    try {
        parser.GetStr(line, L',');
        FAIL() << "no exception";
    } catch (int value) {
        EXPECT_EQ(value, 1);
    }
}

TEST(AssGetStr, WideSeparatorFirstGivesEmptyFieldWithoutThrowing)
{
    xcAssParserU parser;
    xcWString line(L",x");
    EXPECT_STREQ(parser.GetStr(line, L',').getData(), L"");
    EXPECT_STREQ(line.getData(), L"x");
}

TEST(AssGetStr, WideRemainderOfSpacesIsNotEmptySoDoesNotThrow)
{
    xcAssParserU parser;
    xcWString line(L"   ");
    EXPECT_STREQ(parser.GetStr(line, L',').getData(), L" ");
}

TEST(AssGetStr, WideCutsLikeTheNarrowOne)
{
    xcAssParserU parser;
    xcWString line(L"  ab ,cd");
    EXPECT_STREQ(parser.GetStr(line, L',').getData(), L" ab ");
    EXPECT_STREQ(line.getData(), L"cd");
    EXPECT_STREQ(parser.GetStr(line, L',').getData(), L"cd");
    EXPECT_STREQ(line.getData(), L"cd");
}

// GetInt

TEST(AssGetInt, ReadsDecimalFields)
{
    xcAssParser parser;
    xcString line("12, -3,7x,+4");
    EXPECT_EQ(parser.GetInt(line, ','), 12);
    EXPECT_EQ(parser.GetInt(line, ','), -3);
    EXPECT_EQ(parser.GetInt(line, ','), 7);
    EXPECT_EQ(parser.GetInt(line, ','), 4);
}

TEST(AssGetInt, NonNumberReadsMinusOne)
{
    xcAssParser parser;
    xcString line("abc,");
    EXPECT_EQ(parser.GetInt(line, ','), -1);
}

TEST(AssGetInt, EmptyFieldReadsMinusOne)
{
    xcAssParser parser;
    xcString line;
    EXPECT_EQ(parser.GetInt(line, ','), -1);
}

TEST(AssGetInt, EveryAmpersandHValueReadsMinusOne)
{
    xcAssParser parser;
    for (const char* text : {"&H00FFFFFF", "&h10", "&H0", "&H", "&hff&"}) {
        xcString line(text);
        EXPECT_EQ(parser.GetInt(line, ','), -1) << text;
    }
}

TEST(AssGetInt, HexadecimalWithoutAmpersandReadsItsDecimalStart)
{
    xcAssParser parser;
    xcString line("0x1F");
    EXPECT_EQ(parser.GetInt(line, ','), 0);
}

TEST(AssGetInt, WideReadsDecimalAndAmpersandHAsMinusOne)
{
    xcAssParserU parser;
    xcWString line(L"12, -3,&H10,x");
    EXPECT_EQ(parser.GetInt(line, L','), 12);
    EXPECT_EQ(parser.GetInt(line, L','), -3);
    EXPECT_EQ(parser.GetInt(line, L','), -1);
    EXPECT_EQ(parser.GetInt(line, L','), -1);
}

TEST(AssGetInt, WideEmptyRemainderThrowsIntOne)
{
    xcAssParserU parser;
    xcWString line;
    EXPECT_THROW(parser.GetInt(line, L','), int);
}

// GetFloat

TEST(AssGetFloat, ReadsASinglePrecisionValueWidened)
{
    xcAssParser parser;
    xcString line("1.5,0.1,1E1,-2");
    EXPECT_EQ(parser.GetFloat(line, ','), 1.5);
    EXPECT_EQ(parser.GetFloat(line, ','), static_cast<double>(0.1f));
    EXPECT_NE(static_cast<double>(0.1f), 0.1);
    EXPECT_EQ(parser.GetFloat(line, ','), 10.0);
    EXPECT_EQ(parser.GetFloat(line, ','), -2.0);
}

TEST(AssGetFloat, NonNumberAndEmptyReadMinusOne)
{
    xcAssParser parser;
    xcString line("abc,");
    EXPECT_EQ(parser.GetFloat(line, ','), -1.0);
    EXPECT_EQ(parser.GetFloat(line, ','), -1.0);
}

TEST(AssGetFloat, WideTakesANarrowSeparator)
{
    const std::string saved = std::setlocale(LC_NUMERIC, nullptr);
    std::setlocale(LC_NUMERIC, "C");
    xcAssParserU parser;
    xcWString line(L"2.25,x,0.1");
    EXPECT_EQ(parser.GetFloat(line, ','), 2.25);
    EXPECT_EQ(parser.GetFloat(line, ','), -1.0);
    EXPECT_EQ(parser.GetFloat(line, ','), static_cast<double>(0.1f));
    std::setlocale(LC_NUMERIC, saved.c_str());
}

TEST(AssGetFloat, WideEmptyRemainderThrowsIntOne)
{
    xcAssParserU parser;
    xcWString line;
    EXPECT_THROW(parser.GetFloat(line, ','), int);
}

} // namespace
