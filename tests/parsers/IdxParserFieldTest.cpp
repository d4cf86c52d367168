// Field reading of both VobSub index twins: GetStr and GetInt.
#include <gtest/gtest.h>

#include <string>

#include "parsers/xcIdxParser.h"
#include "parsers/xcIdxParserU.h"

namespace {

std::string text(const xcString& s)
{
    return std::string(s.getData(), static_cast<size_t>(s.length()));
}

std::wstring text(const xcWString& s)
{
    return std::wstring(s.getData(), static_cast<size_t>(s.length()));
}

} // namespace

TEST(IdxParserField, GetStrCutsTheFieldBeforeTheSeparator)
{
    xcIdxParser parser;
    xcString line("timestamp: 00:00:01:000");
    EXPECT_EQ(text(parser.GetStr(line, ':')), "timestamp");
    EXPECT_EQ(text(line), " 00:00:01:000");
}

TEST(IdxParserField, GetStrTrimsTheLineOnTheLeftWithTheAdvancingTrim)
{
    xcIdxParser parser;
    xcString one(" key:value");
    EXPECT_EQ(text(parser.GetStr(one, ':')), "key");
    // Of two leading spaces the left trim removes one.
    xcString two("  key:value");
    EXPECT_EQ(text(parser.GetStr(two, ':')), " key");
    EXPECT_EQ(text(two), "value");
}

TEST(IdxParserField, GetStrKeepsTrailingSpacesOfTheField)
{
    xcIdxParser parser;
    xcString line("palette :1");
    EXPECT_EQ(text(parser.GetStr(line, ':')), "palette ");
}

TEST(IdxParserField, GetStrWithoutSeparatorAnswersTheWholeLineAndLeavesIt)
{
    xcIdxParser parser;
    xcString line("no separator here");
    EXPECT_EQ(text(parser.GetStr(line, ':')), "no separator here");
    EXPECT_EQ(text(line), "no separator here");
}

TEST(IdxParserField, GetStrWithSeparatorLastLeavesAnEmptyLine)
{
    xcIdxParser parser;
    xcString line("key:");
    EXPECT_EQ(text(parser.GetStr(line, ':')), "key");
    EXPECT_EQ(text(line), "");
}

TEST(IdxParserField, GetStrOfAnEmptyLineThrowsIntOne)
{
    xcIdxParser parser;
    xcString empty;
    try {
        parser.GetStr(empty, ':');
        FAIL() << "no exception";
    } catch (int e) {
        EXPECT_EQ(e, 1);
    }
    // One space is trimmed away first.
    xcString space(" ");
    EXPECT_THROW(parser.GetStr(space, ':'), int);
}

TEST(IdxParserField, GetStrOfTwoSpacesAnswersTheSpaceLeftByTheTrim)
{
    xcIdxParser parser;
    xcString spaces("  ");
    EXPECT_EQ(text(parser.GetStr(spaces, ':')), " ");
}

TEST(IdxParserField, GetIntReadsDecimal)
{
    xcIdxParser parser;
    xcString line("31");
    EXPECT_EQ(parser.GetInt(line, ','), 31);
    xcString list(" -5,17,rest");
    EXPECT_EQ(parser.GetInt(list, ','), -5);
    EXPECT_EQ(parser.GetInt(list, ','), 17);
    EXPECT_EQ(text(list), "rest");
}

TEST(IdxParserField, GetIntOfHexPrefixAlwaysYieldsMinusOne)
{
    xcIdxParser parser;
    xcString lower("&h1F");
    EXPECT_EQ(parser.GetInt(lower, ','), -1);
    xcString upper("&H10,5");
    EXPECT_EQ(parser.GetInt(upper, ','), -1);
    EXPECT_EQ(parser.GetInt(upper, ','), 5);
}

TEST(IdxParserField, GetIntOfTextYieldsMinusOne)
{
    xcIdxParser parser;
    xcString line("abc,1");
    EXPECT_EQ(parser.GetInt(line, ','), -1);
    xcString amp("&");
    EXPECT_EQ(parser.GetInt(amp, ','), -1);
}

TEST(IdxParserField, GetIntOfAnEmptyLineThrowsIntOne)
{
    xcIdxParser parser;
    xcString empty;
    EXPECT_THROW(parser.GetInt(empty, ','), int);
}

TEST(IdxParserFieldWide, GetStrCutsTheFieldBeforeTheSeparator)
{
    xcIdxParserU parser;
    xcWString line(L"  timestamp: 00:00:01:000");
    EXPECT_EQ(text(parser.GetStr(line, L':')), L" timestamp");
    EXPECT_EQ(text(line), L" 00:00:01:000");
    xcWString whole(L"no separator");
    EXPECT_EQ(text(parser.GetStr(whole, L':')), L"no separator");
    EXPECT_EQ(text(whole), L"no separator");
}

TEST(IdxParserFieldWide, GetStrOfAnEmptyLineThrowsIntOne)
{
    xcIdxParserU parser;
    xcWString empty;
    try {
        parser.GetStr(empty, L':');
        FAIL() << "no exception";
    } catch (int e) {
        EXPECT_EQ(e, 1);
    }
}

TEST(IdxParserFieldWide, GetIntReadsDecimalAndHexPrefixYieldsMinusOne)
{
    xcIdxParserU parser;
    xcWString value(L"31");
    EXPECT_EQ(parser.GetInt(value, L','), 31);
    xcWString hex(L"&h1F,7");
    EXPECT_EQ(parser.GetInt(hex, L','), -1);
    EXPECT_EQ(parser.GetInt(hex, L','), 7);
    xcWString bad(L"x");
    EXPECT_EQ(parser.GetInt(bad, L','), -1);
    xcWString empty;
    EXPECT_THROW(parser.GetInt(empty, L','), int);
}
