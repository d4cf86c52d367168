// Time to .sub position look-up of both VobSub index twins: GetFilePos.
#include <gtest/gtest.h>

#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "parsers/xcIdxParser.h"
#include "parsers/xcIdxParserU.h"
#include "support/TestFiles.h"

namespace {

// An index whose only entry is "timestamp" on line position 7.
const char* const kEntryAtSeven = "# 0\n# 1\n# 2\n# 3\n# 4\n# 5\n# 6\n"
                                  "timestamp: 00:01:02:345, filepos: 000001800\n";

void openNarrow(xcIdxParser& parser, const TempDir& dir, const std::string& content)
{
    const std::string path = dir.write("movie.idx", content);
    ASSERT_TRUE(parser.Open(path.c_str()));
}

// The wide parser opens one-character names relative to the current directory.
void openWide(xcIdxParserU& parser, const TempDir& dir, const std::string& content)
{
    dir.write("w", content);
    wchar_t name[] = L"w";
    ASSERT_TRUE(parser.Open(name));
}

} // namespace

TEST(IdxParserLookup, FindsEntryWithin499Milliseconds)
{
    TempDir dir;
    xcIdxParser parser;
    openNarrow(parser, dir, kEntryAtSeven);
    EXPECT_EQ(parser.GetFilePos(62345), 0x1800);
    EXPECT_EQ(parser.GetFilePos(62000), 0x1800);
    EXPECT_EQ(parser.GetFilePos(62844), 0x1800);
    EXPECT_EQ(parser.GetFilePos(61846), 0x1800);
}

TEST(IdxParserLookup, MissesEntry500MillisecondsAway)
{
    TempDir dir;
    xcIdxParser parser;
    openNarrow(parser, dir, kEntryAtSeven);
    EXPECT_EQ(parser.GetFilePos(62845), 0);
    EXPECT_EQ(parser.GetFilePos(61845), 0);
}

TEST(IdxParserLookup, ScanInsertsZeroEntriesForMissingKeys)
{
    TempDir dir;
    xcIdxParser parser;
    openNarrow(parser, dir, kEntryAtSeven);
    ASSERT_EQ(parser.GetMap().size(), 1u);
    parser.GetFilePos(62000);
    const auto& map = parser.GetMap();
    ASSERT_EQ(map.size(), 8u);
    for (int k = 0; k < 7; ++k) {
        ASSERT_EQ(map.count(k), 1u) << k;
        EXPECT_EQ(map.at(k).time, 0);
        EXPECT_EQ(map.at(k).filePos, 0);
    }
    EXPECT_EQ(map.at(7).time, 62345);
}

TEST(IdxParserLookup, MissStillFillsEveryGapUpToTheLastKey)
{
    TempDir dir;
    xcIdxParser parser;
    openNarrow(parser, dir, kEntryAtSeven);
    EXPECT_EQ(parser.GetFilePos(100000), 0);
    EXPECT_EQ(parser.GetMap().size(), 8u);
    EXPECT_EQ(parser.GetMap().rbegin()->first, 7);
}

TEST(IdxParserLookup, TimeBelow500MatchesTheFirstZeroEntry)
{
    TempDir dir;
    xcIdxParser parser;
    // The entry at key 7 is at 300 ms, yet the zero entry inserted at key 0 matches first.
    openNarrow(parser, dir,
               "# 0\n# 1\n# 2\n# 3\n# 4\n# 5\n# 6\ntimestamp: 00:00:00:300, filepos: 000001800\n");
    EXPECT_EQ(parser.GetFilePos(300), 0);
    EXPECT_EQ(parser.GetMap().size(), 2u);
    EXPECT_EQ(parser.GetMap().count(0), 1u);
}

TEST(IdxParserLookup, ZeroOrNegativeTimeAnswersZeroWithoutScanning)
{
    TempDir dir;
    xcIdxParser parser;
    openNarrow(
        parser, dir,
        "timestamp: 00:00:00:000, filepos: 000001800\n# 1\ntimestamp: 00:00:00:000, filepos: 000000800\n");
    EXPECT_EQ(parser.GetFilePos(0), 0);
    EXPECT_EQ(parser.GetFilePos(-5), 0);
    EXPECT_EQ(parser.GetMap().size(), 2u);
}

TEST(IdxParserLookup, EmptyMapAnswersZeroAndStaysEmpty)
{
    xcIdxParser parser;
    EXPECT_EQ(parser.GetFilePos(1000), 0);
    EXPECT_TRUE(parser.GetMap().empty());
}

TEST(IdxParserLookup, FirstKeyWithinToleranceWins)
{
    TempDir dir;
    xcIdxParser parser;
    openNarrow(parser, dir,
               "timestamp: 00:00:10:000, filepos: 000000800\n"
               "timestamp: 00:00:10:400, filepos: 000001000\n");
    EXPECT_EQ(parser.GetFilePos(10300), 0x800);
    EXPECT_EQ(parser.GetFilePos(10600), 0x1000);
}

TEST(IdxParserLookup, OnlyTheLow32BitsOfTheTimeCount)
{
    TempDir dir;
    xcIdxParser parser;
    openNarrow(parser, dir, kEntryAtSeven);
    EXPECT_EQ(parser.GetFilePos(62345 + (1LL << 32)), 0x1800);
}

// A wide "timestamp" line without "filepos:" reads its position from 6
// characters into the value: "0:1:2:345" gives 0x345. With the marker the cut
// keeps the ":" and the position stays 0, so these entries make a match visible.
TEST(IdxParserLookupWide, FindsEntryWithin999Milliseconds)
{
    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParserU parser;
    openWide(parser, dir, "# 0\ntimestamp:0:1:2:345\n");
    ASSERT_EQ(parser.GetMap().at(0).time, 62345);
    ASSERT_EQ(parser.GetMap().at(0).filePos, 0x345);
    EXPECT_EQ(parser.GetFilePos(62345), 0x345);
    EXPECT_EQ(parser.GetFilePos(61346), 0x345);
    EXPECT_EQ(parser.GetFilePos(63344), 0x345);
}

TEST(IdxParserLookupWide, MissesEntry1000MillisecondsAway)
{
    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParserU parser;
    openWide(parser, dir, "timestamp:0:1:2:345\n");
    EXPECT_EQ(parser.GetFilePos(61345), 0);
    EXPECT_EQ(parser.GetFilePos(63345), 0);
}

TEST(IdxParserLookupWide, ZeroOrNegativeTimeAndEmptyMapAnswerZero)
{
    xcIdxParserU empty;
    EXPECT_EQ(empty.GetFilePos(1000), 0);
    EXPECT_TRUE(empty.GetMap().empty());

    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParserU parser;
    openWide(parser, dir, "timestamp:0:0:0:0\n");
    ASSERT_EQ(parser.GetMap().at(0).filePos, 0x0);
    EXPECT_EQ(parser.GetFilePos(0), 0);
    EXPECT_EQ(parser.GetFilePos(-1), 0);
}

TEST(IdxParserLookupWide, FirstKeyWithinToleranceWins)
{
    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParserU parser;
    // Positions 0x345 and 0x678 (read from 6 characters in, as above).
    openWide(parser, dir, "timestamp:0:1:2:345\ntimestamp:0:1:3:678\n");
    ASSERT_EQ(parser.GetMap().at(1).time, 63678);
    ASSERT_EQ(parser.GetMap().at(1).filePos, 0x678);
    EXPECT_EQ(parser.GetFilePos(63000), 0x345);
    EXPECT_EQ(parser.GetFilePos(63400), 0x678);
}
