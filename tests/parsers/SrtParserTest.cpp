// Opening and line reading of the narrow SubRip parser.
#include <gtest/gtest.h>

#include <string>

#include "parsers/xcSrtParser.h"
#include "support/TestFiles.h"

namespace {

std::string repeated(const std::string& line, int count)
{
    std::string out;
    out.reserve(line.size() * count);
    for (int i = 0; i < count; ++i)
        out += line;
    return out;
}

std::string lineText(const xcSrtParser& parser, size_t index)
{
    const xcString& line = parser.GetLines().at(index);
    return std::string(line.getData(), line.length());
}

const char* kThreeEntries = "1\n00:00:01,000 --> 00:00:02,000\nfirst\n\n"
                            "2\n00:00:03,000 --> 00:00:04,000\nsecond\n\n"
                            "3\n00:00:05,000 --> 00:00:06,000\nthird\n";

} // namespace

TEST(SrtParserOpen, FreshParserIsNotOpenAndHoldsNothing)
{
    xcSrtParser parser;
    EXPECT_FALSE(parser.IsOpen());
    EXPECT_TRUE(parser.GetLines().empty());
    EXPECT_TRUE(parser.GetMap().empty());
    EXPECT_EQ(parser.GetSubTitle(1500), nullptr);
}

TEST(SrtParserOpen, MissingPathFails)
{
    TempDir dir;
    xcSrtParser parser;
    EXPECT_FALSE(parser.Open(dir.file("missing.srt").c_str()));
    EXPECT_FALSE(parser.IsOpen());
}

TEST(SrtParserOpen, EmptyFileFailsAndIsClosed)
{
    TempDir dir;
    const std::string path = dir.write("empty.srt", "");
    const int before = openDescriptorCount();
    xcSrtParser parser;
    EXPECT_FALSE(parser.Open(path.c_str()));
    EXPECT_FALSE(parser.IsOpen());
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST(SrtParserOpen, SuccessfulOpenReadsEveryNonEmptyLineAndClosesTheFile)
{
    TempDir dir;
    const std::string path = dir.write("three.srt", kThreeEntries);
    const int before = openDescriptorCount();
    xcSrtParser parser;
    ASSERT_TRUE(parser.Open(path.c_str()));
    EXPECT_TRUE(parser.IsOpen());
    EXPECT_EQ(openDescriptorCount(), before);
    ASSERT_EQ(parser.GetLines().size(), 9u);
    EXPECT_EQ(lineText(parser, 0), "1");
    EXPECT_EQ(lineText(parser, 1), "00:00:01,000 --> 00:00:02,000");
    EXPECT_EQ(lineText(parser, 2), "first");
    EXPECT_EQ(lineText(parser, 3), "2");
    EXPECT_EQ(lineText(parser, 8), "third");
    EXPECT_EQ(parser.GetMap().size(), 3u);
}

TEST(SrtParserOpen, TwentyThousandLinesOpen)
{
    TempDir dir;
    const std::string path = dir.write("limit.srt", repeated("7\n", 20000));
    xcSrtParser parser;
    EXPECT_TRUE(parser.Open(path.c_str()));
    EXPECT_EQ(parser.GetLines().size(), 20000u);
}

TEST(SrtParserOpen, TwentyThousandAndOneLinesFailAndCloseTheFile)
{
    TempDir dir;
    const std::string path = dir.write("over.srt", repeated("7\n", 20001));
    const int before = openDescriptorCount();
    xcSrtParser parser;
    EXPECT_FALSE(parser.Open(path.c_str()));
    EXPECT_FALSE(parser.IsOpen());
    EXPECT_TRUE(parser.GetMap().empty());
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST(SrtParserOpen, EmptyLinesCountTowardsTheLineLimit)
{
    TempDir dir;
    const std::string path = dir.write("blank.srt", repeated("7\n", 19999) + "\n\n");
    xcSrtParser parser;
    EXPECT_FALSE(parser.Open(path.c_str()));
}

TEST(SrtParserOpen, UnterminatedLineAfterTwentyThousandLinesIsKept)
{
    // The read that meets the end of the file is not counted.
    TempDir dir;
    const std::string path = dir.write("last.srt", repeated("7\n", 20000) + "8");
    xcSrtParser parser;
    ASSERT_TRUE(parser.Open(path.c_str()));
    ASSERT_EQ(parser.GetLines().size(), 20001u);
    EXPECT_EQ(lineText(parser, 20000), "8");
}

TEST(SrtParserOpen, EmptyLinesAreDropped)
{
    TempDir dir;
    const std::string path = dir.write("gaps.srt", "\n\n1\n\n\n00:00:01,000 --> 00:00:02,000\n\nx\n\n");
    xcSrtParser parser;
    ASSERT_TRUE(parser.Open(path.c_str()));
    ASSERT_EQ(parser.GetLines().size(), 3u);
    EXPECT_EQ(lineText(parser, 0), "1");
    EXPECT_EQ(lineText(parser, 2), "x");
}

TEST(SrtParserOpen, LastLineWithoutLineFeedIsKept)
{
    TempDir dir;
    const std::string path = dir.write("noeol.srt", "1\n00:00:01,000 --> 00:00:02,000\nlast words");
    xcSrtParser parser;
    ASSERT_TRUE(parser.Open(path.c_str()));
    ASSERT_EQ(parser.GetLines().size(), 3u);
    EXPECT_EQ(lineText(parser, 2), "last words");
    EXPECT_EQ(std::string(parser.GetMap().at(1).text.getData()), "\nlast words");
}

TEST(SrtParserOpen, CarriageReturnStaysAtTheEndOfEachLine)
{
    TempDir dir;
    const std::string path = dir.write("crlf.srt", "1\r\n00:00:01,000 --> 00:00:02,000\r\nHello\r\n\r\n");
    xcSrtParser parser;
    ASSERT_TRUE(parser.Open(path.c_str()));
    ASSERT_EQ(parser.GetLines().size(), 4u);
    EXPECT_EQ(lineText(parser, 0), "1\r");
    EXPECT_EQ(lineText(parser, 2), "Hello\r");
    EXPECT_EQ(lineText(parser, 3), "\r");
}

TEST(SrtParserOpen, LinesAroundThePieceSizeAreReadWhole)
{
    TempDir dir;
    for (int length : {127, 128, 129, 256, 257}) {
        const std::string text(length, 'a');
        const std::string path = dir.write("long.srt", text + "\n" + "b\n");
        xcSrtParser parser;
        ASSERT_TRUE(parser.Open(path.c_str())) << length;
        ASSERT_EQ(parser.GetLines().size(), 2u) << length;
        EXPECT_EQ(lineText(parser, 0), text) << length;
        EXPECT_EQ(lineText(parser, 1), "b") << length;
    }
}

TEST(SrtParserOpen, UnterminatedLastLineOnThePieceBoundaryIsKeptOnce)
{
    TempDir dir;
    for (int length : {127, 128, 129, 256}) {
        const std::string text(length, 'z');
        const std::string path = dir.write("edge.srt", "b\n" + text);
        xcSrtParser parser;
        ASSERT_TRUE(parser.Open(path.c_str())) << length;
        ASSERT_EQ(parser.GetLines().size(), 2u) << length;
        EXPECT_EQ(lineText(parser, 1), text) << length;
    }
}

TEST(SrtParserOpen, ReopeningReplacesTheEarlierContent)
{
    TempDir dir;
    const std::string first = dir.write("a.srt", kThreeEntries);
    const std::string second = dir.write("b.srt", "5\n00:00:09,000 --> 00:00:10,000\nother\n");
    xcSrtParser parser;
    ASSERT_TRUE(parser.Open(first.c_str()));
    ASSERT_TRUE(parser.Open(second.c_str()));
    EXPECT_EQ(parser.GetLines().size(), 3u);
    ASSERT_EQ(parser.GetMap().size(), 1u);
    EXPECT_EQ(parser.GetMap().count(5), 1u);
}

TEST(SrtParserOpen, FailedOpenAfterSuccessStaysOpenWithNothingToShow)
{
    TempDir dir;
    const std::string good = dir.write("good.srt", kThreeEntries);
    xcSrtParser parser;
    ASSERT_TRUE(parser.Open(good.c_str()));
    ASSERT_NE(parser.GetSubTitle(1500), nullptr);
    EXPECT_FALSE(parser.Open(dir.file("missing.srt").c_str()));
    EXPECT_TRUE(parser.IsOpen());
    EXPECT_TRUE(parser.GetMap().empty());
    EXPECT_TRUE(parser.GetLines().empty());
    for (long long t : {-1LL, 0LL, 1000LL, 1500LL, 2000LL, 3500LL, 5500LL})
        EXPECT_EQ(parser.GetSubTitle(t), nullptr) << t;
}

TEST(SrtParserOpen, FailedOpenOnTheLineLimitAfterSuccessStaysOpen)
{
    TempDir dir;
    const std::string good = dir.write("good.srt", kThreeEntries);
    const std::string big = dir.write("big.srt", repeated("7\n", 20001));
    xcSrtParser parser;
    ASSERT_TRUE(parser.Open(good.c_str()));
    EXPECT_FALSE(parser.Open(big.c_str()));
    EXPECT_TRUE(parser.IsOpen());
    EXPECT_TRUE(parser.GetMap().empty());
    EXPECT_EQ(parser.GetSubTitle(1500), nullptr);
}

TEST(SrtParserOpen, WideLookUpIsAlwaysNull)
{
    TempDir dir;
    const std::string path = dir.write("three.srt", kThreeEntries);
    xcSrtParser parser;
    ASSERT_TRUE(parser.Open(path.c_str()));
    for (long long t : {-1LL, 0LL, 1000LL, 1500LL, 3500LL, 5500LL, 1LL << 40})
        EXPECT_EQ(parser.GetSubTitleU(t), nullptr) << t;
}
