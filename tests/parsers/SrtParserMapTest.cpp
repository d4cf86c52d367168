// How the narrow SubRip parser turns its lines into entries (ConvertBufToSrtMap).
#include <gtest/gtest.h>

#include <string>

#include "parsers/xcSrtParser.h"
#include "support/TestFiles.h"

namespace {

// Opens `content` as a .srt file; the parser outlives the temporary directory.
class SrtMap : public ::testing::Test
{
protected:
    void open(const std::string& content)
    {
        const std::string path = dir.write("map.srt", content);
        ASSERT_TRUE(parser.Open(path.c_str()));
    }
    const SRC_SESSION_ST& entry(int key) const { return parser.GetMap().at(key); }
    std::string text(int key) const
    {
        const xcString& t = entry(key).text;
        return std::string(t.getData(), t.length());
    }
    std::string line(size_t index) const
    {
        const xcString& l = parser.GetLines().at(index);
        return std::string(l.getData(), l.length());
    }

    TempDir dir;
    xcSrtParser parser;
};

} // namespace

TEST_F(SrtMap, EntriesAreKeyedByTheirNumbersWithTimesAndText)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nfirst\n\n"
         "2\n01:02:03,456 --> 01:02:04,789\nsecond\n");
    ASSERT_EQ(parser.GetMap().size(), 2u);
    EXPECT_EQ(entry(1).start, 1000);
    EXPECT_EQ(entry(1).end, 2000);
    EXPECT_EQ(text(1), "\nfirst");
    EXPECT_EQ(entry(2).start, 3600000 + 2 * 60000 + 3 * 1000 + 456);
    EXPECT_EQ(entry(2).end, 3600000 + 2 * 60000 + 4 * 1000 + 789);
    EXPECT_EQ(text(2), "\nsecond");
}

TEST_F(SrtMap, ConvertReportsSuccess)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nx\n");
    EXPECT_TRUE(parser.ConvertBufToSrtMap());
}

TEST_F(SrtMap, TwoCaptionLinesAreJoinedWithLineFeeds)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nA\nB\n");
    EXPECT_EQ(text(1), "\nA\nB");
}

TEST_F(SrtMap, ThreeCaptionLinesTakeEverySecondLineInTheFirstScan)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nA\nB\nC\n");
    EXPECT_EQ(text(1), "\nAC\nB\nC");
}

TEST_F(SrtMap, FourCaptionLinesFollowTheSameStepOfTwo)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nA\nB\nC\nD\n");
    EXPECT_EQ(text(1), "\nAC\nBD\nC\nD");
}

TEST_F(SrtMap, TheScanStopsAtTheNextNumberTwoLinesOn)
{
    // "A" scans "A", then line 4 ("2") stops it.
    open("1\n00:00:01,000 --> 00:00:02,000\nA\nB\n2\n00:00:03,000 --> 00:00:04,000\nC\n");
    EXPECT_EQ(text(1), "\nA\nB");
    EXPECT_EQ(text(2), "\nC");
}

TEST_F(SrtMap, AllDigitCaptionLineIsTakenAsTheEntryNumber)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nyear\n2001\nspace odyssey\n");
    ASSERT_EQ(parser.GetMap().size(), 2u);
    // The scan from "year" also takes the line two further on.
    EXPECT_EQ(text(1), "\nyearspace odyssey");
    EXPECT_EQ(text(2001), "\nspace odyssey");
    EXPECT_EQ(entry(2001).start, 1000);
    EXPECT_EQ(entry(2001).end, 2000);
}

TEST_F(SrtMap, MillisecondsAreReadAsWrittenNotScaled)
{
    open("1\n00:00:01,5 --> 00:00:02,500\nx\n");
    EXPECT_EQ(entry(1).start, 1005);
    EXPECT_EQ(entry(1).end, 2500);
}

TEST_F(SrtMap, OnlyThreeMillisecondDigitsCountAndTrailingTextIsIgnored)
{
    open("1\n00:00:01,2345 --> 00:00:02,600 X1:10 X2:20 Y1:30 Y2:40\nx\n");
    EXPECT_EQ(entry(1).start, 1234);
    EXPECT_EQ(entry(1).end, 2600);
}

TEST_F(SrtMap, ArrowWithoutBlankBehindItLosesTheFirstDigitOfTheEndTime)
{
    open("1\n00:00:01,000 -->10:00:02,000\nx\n");
    EXPECT_EQ(entry(1).start, 1000);
    EXPECT_EQ(entry(1).end, 2000); // read from "0:00:02,000"
}

TEST_F(SrtMap, ArrowWithoutBlankBeforeItStillSplitsTheTimes)
{
    open("1\n00:00:01,000--> 00:00:02,000\nx\n");
    EXPECT_EQ(entry(1).start, 1000);
    EXPECT_EQ(entry(1).end, 2000);
}

TEST_F(SrtMap, OnlyTheFirstInteriorBlankOfATimeIsRemoved)
{
    // "0 0:00:0 1,500" keeps "00:00:0 1,500": the seconds read as 0.
    open("1\n0 0:00:0 1,500 --> 00:00:02,000\nx\n");
    EXPECT_EQ(entry(1).start, 500);
    // With a single blank the time reads whole.
    open("1\n0 0:00:01,500 --> 00:00:02,000\nx\n");
    EXPECT_EQ(entry(1).start, 1500);
}

TEST_F(SrtMap, TimeWithoutSeparatorsReadsEveryFieldFromTheWholeText)
{
    open("1\n12 --> 13\nx\n");
    EXPECT_EQ(entry(1).start, 12LL * 3600000 + 12 * 60000 + 12 * 1000 + 12);
    EXPECT_EQ(entry(1).end, 13LL * 3600000 + 13 * 60000 + 13 * 1000 + 13);
}

TEST_F(SrtMap, NonDigitTimeFieldsReadAsZero)
{
    open("1\nab:cd:ef,ghi --> 00:00:02,000\nx\n");
    EXPECT_EQ(entry(1).start, 0);
    EXPECT_EQ(entry(1).end, 2000);
}

TEST_F(SrtMap, ArrowAtTheEndOfTheLineGivesAnEndOfZero)
{
    open("1\n00:00:01,000 -->\nx\n");
    EXPECT_EQ(entry(1).start, 1000);
    EXPECT_EQ(entry(1).end, 0);
}

TEST_F(SrtMap, LargeTimesWrapInThirtyTwoBits)
{
    // 999 hours is 3596400000 ms, beyond a signed 32-bit number.
    open("1\n999:00:00,000 --> 596:00:00,000\nx\n");
    EXPECT_EQ(entry(1).start, 3596400000LL - 4294967296LL);
    EXPECT_EQ(entry(1).end, 596LL * 3600000);
}

TEST_F(SrtMap, NegativeFieldsGiveNegativeTimes)
{
    open("1\n-1:00:00,000 --> 00:00:-2,000\nx\n");
    EXPECT_EQ(entry(1).start, -3600000);
    EXPECT_EQ(entry(1).end, -2000);
}

TEST_F(SrtMap, BlankLineBetweenCaptionLinesAddsALoneLineFeed)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nA\n   \nB\n");
    // "A" scans A and B; the blank line, trimmed empty, adds "\n"; "B" adds "\nB".
    EXPECT_EQ(text(1), "\nAB\n\nB");
    EXPECT_EQ(line(3), "");
}

TEST_F(SrtMap, LineStartingWithTheArrowIsCaptionText)
{
    open("1\n00:00:01,000 --> 00:00:02,000\n--> 00:00:05,000\n");
    ASSERT_EQ(parser.GetMap().size(), 1u);
    EXPECT_EQ(text(1), "\n--> 00:00:05,000");
    EXPECT_EQ(entry(1).start, 1000);
    EXPECT_EQ(entry(1).end, 2000);
}

TEST_F(SrtMap, TimeLineWithoutTextMakesNoEntryAndItsTimesPassOn)
{
    open("1\n00:00:01,000 --> 00:00:02,000\n2\n00:00:03,000 --> 00:00:04,000\nx\n");
    ASSERT_EQ(parser.GetMap().size(), 1u);
    EXPECT_EQ(text(2), "\nx");
    EXPECT_EQ(entry(2).start, 3000);
}

TEST_F(SrtMap, TextBeforeAnyNumberOrTimeGoesToKeyZeroWithTimesZero)
{
    open("stray\n1\n00:00:01,000 --> 00:00:02,000\nx\n");
    ASSERT_EQ(parser.GetMap().size(), 2u);
    EXPECT_EQ(text(0), "\nstray");
    EXPECT_EQ(entry(0).start, 0);
    EXPECT_EQ(entry(0).end, 0);
}

TEST_F(SrtMap, TextWithoutANewNumberGoesToTheLastNumberSeen)
{
    open("4\n00:00:01,000 --> 00:00:02,000\nx\n\n00:00:03,000 --> 00:00:04,000\ny\n");
    ASSERT_EQ(parser.GetMap().size(), 1u);
    EXPECT_EQ(text(4), "\nxy\ny");
    EXPECT_EQ(entry(4).start, 3000);
    EXPECT_EQ(entry(4).end, 4000);
}

TEST_F(SrtMap, RepeatedNumberTakesTheLaterTimesAndAppendsItsText)
{
    open("3\n00:00:01,000 --> 00:00:02,000\nfirst\n\n3\n00:00:07,000 --> 00:00:08,000\nagain\n");
    ASSERT_EQ(parser.GetMap().size(), 1u);
    EXPECT_EQ(text(3), "\nfirst\nagain");
    EXPECT_EQ(entry(3).start, 7000);
    EXPECT_EQ(entry(3).end, 8000);
}

TEST_F(SrtMap, GapsInTheNumberingAreKeptAsWritten)
{
    open("10\n00:00:01,000 --> 00:00:02,000\na\n\n20\n00:00:03,000 --> 00:00:04,000\nb\n");
    ASSERT_EQ(parser.GetMap().size(), 2u);
    EXPECT_EQ(text(10), "\na");
    EXPECT_EQ(text(20), "\nb");
}

TEST_F(SrtMap, LinesAreTrimmedInPlaceWithTheHalvingLeftTrim)
{
    // Four leading blanks: the line is trimmed on its own turn and again as the
    // first line of its scan, and keeps one blank.
    open("1\n00:00:01,000 --> 00:00:02,000\n    abc   \n");
    EXPECT_EQ(text(1), "\n abc");
    EXPECT_EQ(line(2), " abc");
}

TEST_F(SrtMap, NumberWithSurroundingBlanksIsStillANumber)
{
    open(" 7  \n00:00:01,000 --> 00:00:02,000\nx\n");
    EXPECT_EQ(parser.GetMap().count(7), 1u);
    EXPECT_EQ(line(0), "7");
}

TEST_F(SrtMap, CarriageReturnsHideTheNumbersSoEverythingGoesToKeyZero)
{
    open("1\r\n00:00:01,000 --> 00:00:02,000\r\nHello\r\n\r\n"
         "2\r\n00:00:03,000 --> 00:00:04,000\r\nWorld\r\n");
    ASSERT_EQ(parser.GetMap().size(), 1u);
    EXPECT_EQ(text(0), "\n1\rHello\r2\rWorld\r"
                       "\nHello\r2\rWorld\r"
                       "\n\r"
                       "\n2\rWorld\r"
                       "\nWorld\r");
    EXPECT_EQ(entry(0).start, 3000);
    EXPECT_EQ(entry(0).end, 4000);
}

TEST_F(SrtMap, OverlongNumberReadsAsAtoiDoes)
{
    open("99999999999\n00:00:01,000 --> 00:00:02,000\nx\n");
    ASSERT_EQ(parser.GetMap().size(), 1u);
    EXPECT_EQ(parser.GetMap().begin()->first, std::atoi("99999999999"));
}
