// Which caption the narrow SubRip parser answers at a time (GetSubTitle).
#include <gtest/gtest.h>

#include <string>

#include "parsers/xcSrtParser.h"
#include "support/TestFiles.h"

namespace {

class SrtLookUp : public ::testing::Test
{
protected:
    void open(const std::string& content)
    {
        const std::string path = dir.write("look.srt", content);
        ASSERT_TRUE(parser.Open(path.c_str()));
    }
    // The caption at t, or "<null>".
    std::string at(long long t)
    {
        const char* text = parser.GetSubTitle(t);
        return text ? std::string(text) : std::string("<null>");
    }

    TempDir dir;
    xcSrtParser parser;
};

const char* kThreeEntries = "1\n00:00:01,000 --> 00:00:02,000\nfirst\n\n"
                            "2\n00:00:03,000 --> 00:00:04,000\nsecond\n\n"
                            "3\n00:00:05,000 --> 00:00:06,000\nthird\n";

} // namespace

TEST_F(SrtLookUp, SingleEntryIsNeverAnswered)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nonly\n");
    ASSERT_EQ(parser.GetMap().size(), 1u);
    for (long long t : {0LL, 1000LL, 1500LL, 2000LL})
        EXPECT_EQ(parser.GetSubTitle(t), nullptr) << t;
    EXPECT_EQ(parser.GetMap().size(), 1u);
}

TEST_F(SrtLookUp, BothEndsOfAnEntryAreInclusive)
{
    open(kThreeEntries);
    EXPECT_EQ(at(999), "<null>");
    EXPECT_EQ(at(1000), "\nfirst");
    EXPECT_EQ(at(1500), "\nfirst");
    EXPECT_EQ(at(2000), "\nfirst");
    EXPECT_EQ(at(2001), "<null>");
    EXPECT_EQ(at(4000), "\nsecond");
}

TEST_F(SrtLookUp, TheHighestNumberedEntryIsNeverShown)
{
    open(kThreeEntries);
    EXPECT_EQ(at(5000), "<null>");
    EXPECT_EQ(at(5500), "<null>");
    EXPECT_EQ(at(6000), "<null>");
    EXPECT_EQ(parser.GetMap().size(), 3u);
}

TEST_F(SrtLookUp, AnsweredPointerIsTheEntrysOwnText)
{
    open(kThreeEntries);
    EXPECT_EQ(parser.GetSubTitle(3500), parser.GetMap().at(2).text.getData());
}

TEST_F(SrtLookUp, NegativeTimeIsNullEvenInsideAnEntry)
{
    open("1\n-1:00:00,000 --> 00:00:02,000\na\n\n2\n00:00:03,000 --> 00:00:04,000\nb\n");
    ASSERT_EQ(parser.GetMap().at(1).start, -3600000);
    EXPECT_EQ(parser.GetSubTitle(-1), nullptr);
    EXPECT_EQ(parser.GetSubTitle(-3600000), nullptr);
    EXPECT_EQ(at(0), "\na");
}

TEST_F(SrtLookUp, TimeZeroIsAnswered)
{
    open("1\n00:00:00,000 --> 00:00:01,000\nzero\n\n2\n00:00:03,000 --> 00:00:04,000\nb\n");
    EXPECT_EQ(at(0), "\nzero");
}

TEST_F(SrtLookUp, VeryLargeTimeFindsNothing)
{
    open(kThreeEntries);
    EXPECT_EQ(parser.GetSubTitle(1LL << 40), nullptr);
    EXPECT_EQ(parser.GetSubTitle(0x7fffffffffffffffLL), nullptr);
}

TEST_F(SrtLookUp, EntryWithWrappedNegativeTimesIsNeverMatched)
{
    open("1\n999:00:00,000 --> 999:00:01,000\nwrapped\n\n"
         "2\n00:00:03,000 --> 00:00:04,000\nb\n\n"
         "3\n00:00:05,000 --> 00:00:06,000\nc\n");
    EXPECT_EQ(at(3596400000LL), "<null>");
    EXPECT_EQ(at(3500), "\nb");
}

TEST_F(SrtLookUp, FirstMatchingKeyWinsWhenEntriesOverlap)
{
    open("1\n00:00:01,000 --> 00:00:05,000\nlong\n\n"
         "2\n00:00:02,000 --> 00:00:03,000\nshort\n\n"
         "3\n00:00:09,000 --> 00:00:10,000\nlast\n");
    EXPECT_EQ(at(2500), "\nlong");
    EXPECT_EQ(at(4000), "\nlong");
}

TEST_F(SrtLookUp, KeyZeroIsNeverLookedAt)
{
    open("0\n00:00:01,000 --> 00:00:02,000\nzero\n\n"
         "1\n00:00:03,000 --> 00:00:04,000\none\n\n"
         "2\n00:00:05,000 --> 00:00:06,000\ntwo\n");
    EXPECT_EQ(at(1500), "<null>");
    EXPECT_EQ(at(3500), "\none");
    EXPECT_EQ(at(5500), "\ntwo"); // keys 1 and 2 are below the size 3
}

TEST_F(SrtLookUp, MissingKeysBelowTheSizeAreInsertedEmpty)
{
    open("1\n00:00:01,000 --> 00:00:02,000\na\n\n"
         "3\n00:00:03,000 --> 00:00:04,000\nb\n\n"
         "5\n00:00:05,000 --> 00:00:06,000\nc\n");
    ASSERT_EQ(parser.GetMap().size(), 3u);
    EXPECT_EQ(at(3500), "<null>"); // keys 1 and 2 looked at; 2 is inserted
    ASSERT_EQ(parser.GetMap().size(), 4u);
    const SRC_SESSION_ST& inserted = parser.GetMap().at(2);
    EXPECT_EQ(inserted.start, 0);
    EXPECT_EQ(inserted.end, 0);
    EXPECT_TRUE(inserted.text.isEmpty());
}

TEST_F(SrtLookUp, InsertedKeyMakesALaterEntryReachable)
{
    open("1\n00:00:01,000 --> 00:00:02,000\na\n\n"
         "3\n00:00:03,000 --> 00:00:04,000\nb\n\n"
         "5\n00:00:05,000 --> 00:00:06,000\nc\n");
    EXPECT_EQ(at(3500), "<null>"); // size 3: keys 1, 2
    EXPECT_EQ(at(3500), "\nb");    // size 4: keys 1, 2, 3
    EXPECT_EQ(parser.GetMap().size(), 4u);
    // Keys 1 to 3 are all present now: nothing more is inserted, and 5 stays
    // out of reach.
    EXPECT_EQ(at(5500), "<null>");
    EXPECT_EQ(at(5500), "<null>");
    EXPECT_EQ(parser.GetMap().size(), 4u);
}

TEST_F(SrtLookUp, MatchingLookUpInsertsNothingBeyondWhatItPassed)
{
    open("1\n00:00:01,000 --> 00:00:02,000\na\n\n"
         "3\n00:00:03,000 --> 00:00:04,000\nb\n\n"
         "5\n00:00:05,000 --> 00:00:06,000\nc\n");
    EXPECT_EQ(at(1500), "\na");
    EXPECT_EQ(parser.GetMap().size(), 3u);
}

TEST_F(SrtLookUp, InsertedEntryAnswersAnEmptyTextAtTimeZero)
{
    open("1\n00:00:01,000 --> 00:00:02,000\na\n\n"
         "3\n00:00:03,000 --> 00:00:04,000\nb\n\n"
         "5\n00:00:05,000 --> 00:00:06,000\nc\n");
    at(3500); // inserts key 2 with times 0
    const char* text = parser.GetSubTitle(0);
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(text, parser.GetMap().at(2).text.getData());
}

TEST_F(SrtLookUp, LookUpsWithFewerThanTwoEntriesInsertNothing)
{
    open("7\n00:00:01,000 --> 00:00:02,000\na\n");
    at(1500);
    EXPECT_EQ(parser.GetMap().size(), 1u);
    EXPECT_EQ(parser.GetMap().count(7), 1u);
}

TEST_F(SrtLookUp, NothingOpenAnswersNull)
{
    EXPECT_EQ(parser.GetSubTitle(0), nullptr);
    EXPECT_EQ(parser.GetSubTitle(1000), nullptr);
    EXPECT_TRUE(parser.GetMap().empty());
}
