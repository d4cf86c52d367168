// Which caption an 8-bit ASS/SSA parser answers at a time.

#include <gtest/gtest.h>

#include <string>

#include "parsers/xcAssParser.h"
#include "support/TestFiles.h"

namespace {

std::string dialogue(const char* start, const char* end, const char* text)
{
    return std::string("Dialogue: 0,") + start + "," + end + ",Default,,0,0,0,," + text + "\n";
}

class AssLookup : public testing::Test
{
protected:
    void open(const std::string& events)
    {
        ASSERT_TRUE(parser.Open(dir.write("s.ass", "ScriptType: v4.00+\n" + events).c_str()));
    }

    TempDir dir;
    xcAssParser parser;
};

TEST_F(AssLookup, BothBoundsAreInclusive)
{
    open(dialogue("0:00:01.50", "0:00:03.00", "one") + dialogue("0:00:10.00", "0:00:11.00", "last"));
    EXPECT_EQ(parser.GetSubTitle(1499), nullptr);
    EXPECT_STREQ(parser.GetSubTitle(1500), "\none");
    EXPECT_STREQ(parser.GetSubTitle(3000), "\none");
    EXPECT_EQ(parser.GetSubTitle(3001), nullptr);
}

TEST_F(AssLookup, TimeZeroAndBelowAnswerNullEvenForAnEntryStartingAtZero)
{
    open(dialogue("0:00:00.00", "0:00:02.00", "zero") + dialogue("0:00:10.00", "0:00:11.00", "last"));
    EXPECT_EQ(parser.GetSubTitle(0), nullptr);
    EXPECT_EQ(parser.GetSubTitle(-5), nullptr);
    EXPECT_STREQ(parser.GetSubTitle(1), "\nzero");
}

TEST_F(AssLookup, LastEntryIsNeverAnswered)
{
    open(dialogue("0:00:01.00", "0:00:02.00", "a") + dialogue("0:00:03.00", "0:00:04.00", "b") +
         dialogue("0:00:05.00", "0:00:06.00", "c"));
    EXPECT_STREQ(parser.GetSubTitle(1500), "\na");
    EXPECT_STREQ(parser.GetSubTitle(3500), "\nb");
    EXPECT_EQ(parser.GetSubTitle(5500), nullptr);
}

TEST_F(AssLookup, SingleEntryIsNeverAnswered)
{
    open(dialogue("0:00:01.00", "0:00:02.00", "only"));
    EXPECT_EQ(parser.GetSubTitle(1500), nullptr);
}

TEST_F(AssLookup, FirstMatchInFileOrderWinsWhenEntriesOverlap)
{
    open(dialogue("0:00:05.00", "0:00:09.00", "later start") + dialogue("0:00:01.00", "0:00:10.00", "wide") +
         dialogue("0:00:00.00", "0:00:01.00", "last"));
    EXPECT_STREQ(parser.GetSubTitle(6000), "\nlater start");
    EXPECT_STREQ(parser.GetSubTitle(2000), "\nwide");
}

TEST_F(AssLookup, AnswerPointsIntoTheEntryAndLooksUpAddNothing)
{
    open(dialogue("0:00:01.00", "0:00:02.00", "a") + dialogue("0:00:03.00", "0:00:04.00", "b"));
    const char* text = parser.GetSubTitle(1000);
    EXPECT_EQ(text, parser.GetMap().at(1).text.getData());
    for (long long t = -10; t < 6000; t += 250)
        parser.GetSubTitle(t);
    EXPECT_EQ(parser.GetMap().size(), 2u);
    EXPECT_EQ(parser.GetSubTitle(1000), text);
}

TEST_F(AssLookup, NarrowParserAnswersNoWideText)
{
    open(dialogue("0:00:01.00", "0:00:02.00", "a") + dialogue("0:00:03.00", "0:00:04.00", "b"));
    for (long long t : {-1LL, 0LL, 1000LL, 1500LL, 3500LL})
        EXPECT_EQ(parser.GetSubTitleU(t), nullptr);
}

TEST_F(AssLookup, EntryWithNegativeTimesIsNeverAnswered)
{
    open(dialogue("600:00:00.00", "600:00:00.00", "wrapped") + dialogue("0:00:01.00", "0:00:02.00", "a") +
         dialogue("0:00:03.00", "0:00:04.00", "b"));
    EXPECT_EQ(parser.GetMap().at(1).start, -2134967296LL);
    EXPECT_STREQ(parser.GetSubTitle(1500), "\na");
}

TEST_F(AssLookup, EmptyTableAnswersNull)
{
    open("");
    EXPECT_EQ(parser.GetSubTitle(1000), nullptr);
}

} // namespace
