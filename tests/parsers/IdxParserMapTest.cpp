// From index lines to entries and colour settings (narrow): ConvertBufToIdxMap.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parsers/xcIdxParser.h"
#include "support/TestFiles.h"

namespace {

// Opens an index file of the given text; fails the test when it does not open.
void openText(xcIdxParser& parser, const TempDir& dir, const std::string& content)
{
    static int serial = 0;
    const std::string path = dir.write("movie" + std::to_string(++serial) + ".idx", content);
    ASSERT_TRUE(parser.Open(path.c_str()));
}

std::vector<unsigned int> palette(const xcIdxParser& parser)
{
    return std::vector<unsigned int>(parser.GetPalette(), parser.GetPalette() + 16);
}

std::vector<unsigned int> customColors(const xcIdxParser& parser)
{
    return std::vector<unsigned int>(parser.GetCustomColors(), parser.GetCustomColors() + 4);
}

// Position of the first line that begins with prefix, -1 when none does.
int linePosition(const xcIdxParser& parser, const std::string& prefix)
{
    const auto& lines = parser.GetLines();
    for (size_t i = 0; i < lines.size(); ++i)
        if (std::string(lines[i].getData()).rfind(prefix, 0) == 0)
            return static_cast<int>(i);
    return -1;
}

const char* const kRealIndex =
    "# VobSub index file, v7 (do not modify this line!)\n"
    "#\n"
    "# To repair desyncronization, you can insert gaps this way:\n"
    "# (it usually happens after vob id changes)\n"
    "#\n"
    "#\t delay: [sign]hh:mm:ss:ms\n"
    "#\n"
    "# Where:\n"
    "#\t [sign]: +, - (optional)\n"
    "#\t hh: hours (0 <= hh)\n"
    "#\n"
    "# Settings\n"
    "\n"
    "# Original frame size\n"
    "size: 720x576\n"
    "\n"
    "# Origin, relative to the upper-left corner, can be overloaded by aligment\n"
    "org: 0, 0\n"
    "\n"
    "# Image scaling (hor,ver), origin is at the upper-left corner or at the alignment coord (x, y)\n"
    "scale: 100%, 100%\n"
    "\n"
    "# Alpha blending\n"
    "alpha: 100%\n"
    "\n"
    "# Smoothing for very blocky images (use OLD for no filtering)\n"
    "smooth: OFF\n"
    "\n"
    "# In millisecs\n"
    "fadein/out: 50, 50\n"
    "\n"
    "# Force subtitle placement relative to (org.x, org.y)\n"
    "align: OFF at LEFT TOP\n"
    "\n"
    "# For correcting non-progressive desync. (in millisecs or hh:mm:ss:ms)\n"
    "# Note: Not effective in DirectVobSub, use \"delay: ... \" instead.\n"
    "time offset: 0\n"
    "\n"
    "# ON: displays only forced subtitles, OFF: shows everything\n"
    "forced subs: OFF\n"
    "\n"
    "# The original palette of the DVD\n"
    "palette: 000000, f0f0f0, cccccc, 999999, 3333fa, 1111bb, fa3333, bb1111, 33fa33, 11bb11, fafa33, "
    "bbbb11, fa33fa, bb11bb, 33fafa, 11bbbb\n"
    "\n"
    "# Custom colors (transp idxs and the four colors)\n"
    "custom colors: OFF, tridx: 1000, colors: 000000, f0f0f0, cccccc, 999999\n"
    "\n"
    "# Language index in use\n"
    "langidx: 0\n"
    "\n"
    "# English\n"
    "id: en, index: 0\n"
    "# Decomment next line to activate alternative name in DirectVobSub / Windows Media Player 6.x\n"
    "# alt: English\n"
    "# Vob/Cell ID: 1, 1 (PTS: 0)\n"
    "timestamp: 00:00:01:101, filepos: 000000000\n"
    "timestamp: 00:00:04:938, filepos: 000001000\n"
    "timestamp: 00:01:10:070, filepos: 000002800\n"
    "timestamp: 00:59:59:999, filepos: 00007d000\n"
    "timestamp: 01:02:03:004, filepos: 1a2b3c4d5e\n";

} // namespace

TEST(IdxParserMap, TimestampIsKeyedByItsLinePositionWithTimeAndPosition)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir,
             "# 0\n# 1\n# 2\n# 3\n# 4\n# 5\n# 6\n"
             "timestamp: 00:01:02:345, filepos: 000001800\n");
    const auto& map = parser.GetMap();
    ASSERT_EQ(map.size(), 1u);
    ASSERT_EQ(map.count(7), 1u);
    EXPECT_EQ(map.at(7).time, 62345);
    EXPECT_EQ(map.at(7).filePos, 0x1800);
}

TEST(IdxParserMap, LinePositionsCountOnlyNonEmptyLines)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir, "\n\n# a\n\n\ntimestamp: 00:00:01:000, filepos: 000000800\n");
    ASSERT_EQ(parser.GetMap().count(1), 1u);
    EXPECT_EQ(parser.GetMap().at(1).filePos, 0x800);
}

TEST(IdxParserMap, RealIndexFileGivesEveryTimestampAndTheColours)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir, kRealIndex);

    const int first = linePosition(parser, "timestamp: 00:00:01:101");
    ASSERT_GE(first, 0);
    const auto& map = parser.GetMap();
    ASSERT_EQ(map.size(), 5u);
    EXPECT_EQ(map.at(first).time, 1101);
    EXPECT_EQ(map.at(first).filePos, 0);
    EXPECT_EQ(map.at(first + 1).time, 4938);
    EXPECT_EQ(map.at(first + 1).filePos, 0x1000);
    EXPECT_EQ(map.at(first + 2).time, 70070);
    EXPECT_EQ(map.at(first + 2).filePos, 0x2800);
    EXPECT_EQ(map.at(first + 3).time, 3599999);
    EXPECT_EQ(map.at(first + 3).filePos, 0x7d000);
    EXPECT_EQ(map.at(first + 4).time, 3723004);
    EXPECT_EQ(map.at(first + 4).filePos, 0x1a2b3c4d5eLL);

    EXPECT_EQ(palette(parser),
              (std::vector<unsigned int>{0x000000, 0xf0f0f0, 0xcccccc, 0x999999, 0x3333fa, 0x1111bb, 0xfa3333,
                                         0xbb1111, 0x33fa33, 0x11bb11, 0xfafa33, 0xbbbb11, 0xfa33fa, 0xbb11bb,
                                         0x33fafa, 0x11bbbb}));
    EXPECT_EQ(parser.GetCustomColorSwitch(), 0);
    EXPECT_EQ(parser.GetTransparencyMask(), 1u);
    EXPECT_EQ(customColors(parser), (std::vector<unsigned int>{0x000000, 0xf0f0f0, 0xcccccc, 0x999999}));
}

TEST(IdxParserMap, RealIndexFileWithCarriageReturnsReadsTheSame)
{
    std::string crlf;
    for (const char* p = kRealIndex; *p; ++p) {
        if (*p == '\n')
            crlf += '\r';
        crlf += *p;
    }
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir, crlf);
    const int first = linePosition(parser, "timestamp: 00:00:01:101");
    ASSERT_GE(first, 0);
    const auto& map = parser.GetMap();
    // The "\r" lines of the blank lines stay in the list; they store nothing.
    ASSERT_EQ(map.size(), 5u);
    EXPECT_EQ(map.at(first + 2).time, 70070);
    EXPECT_EQ(map.at(first + 2).filePos, 0x2800);
    EXPECT_EQ(map.at(first + 4).filePos, 0x1a2b3c4d5eLL);
    EXPECT_EQ(parser.GetPalette()[15], 0x11bbbbu);
    EXPECT_EQ(parser.GetTransparencyMask(), 1u);
    EXPECT_EQ(parser.GetCustomColors()[3], 0x999999u);
}

TEST(IdxParserMap, SemicolonAndBlankLinesInTheMiddleArePassedOver)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir,
             "timestamp: 00:00:01:000, filepos: 000000800\n"
             "; a remark\n"
             "   \n"
             "  ; indented remark\n"
             " ;\n"
             "timestamp: 00:00:02:000, filepos: 000001000\n");
    const auto& map = parser.GetMap();
    ASSERT_EQ(map.size(), 2u);
    EXPECT_EQ(map.at(0).time, 1000);
    EXPECT_EQ(map.at(5).time, 2000);
    EXPECT_EQ(map.at(5).filePos, 0x1000);
}

TEST(IdxParserMap, KeysAreComparedLowerCased)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir,
             "TimeStamp: 00:00:01:000, filepos: 000000800\n"
             "PALETTE: 000001, 000002\n"
             "Custom Colors: ON, tridx: 0001, colors: 1, 2, 3, 4\n");
    ASSERT_EQ(parser.GetMap().count(0), 1u);
    EXPECT_EQ(parser.GetMap().at(0).filePos, 0x800);
    EXPECT_EQ(parser.GetPalette()[1], 2u);
    EXPECT_EQ(parser.GetCustomColorSwitch(), 1);
    EXPECT_EQ(parser.GetTransparencyMask(), 8u);
}

TEST(IdxParserMap, KeyWithSpaceBeforeColonIsNotRecognised)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir, "timestamp : 00:00:01:000, filepos: 000000800\npalette : 1, 2\n");
    EXPECT_TRUE(parser.GetMap().empty());
    EXPECT_EQ(parser.GetPalette()[0], 0u);
}

TEST(IdxParserMap, UpToThreeLeadingSpacesAreTrimmedAway)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir, " timestamp: 00:00:01:000, filepos: 0\n   timestamp: 00:00:03:000, filepos: 0\n");
    ASSERT_EQ(parser.GetMap().size(), 2u);
    EXPECT_EQ(parser.GetMap().at(0).time, 1000);
    EXPECT_EQ(parser.GetMap().at(1).time, 3000);
}

TEST(IdxParserMap, FourLeadingSpacesLeaveOneBeforeTheKey)
{
    TempDir dir;
    xcIdxParser parser;
    // Each of the two left trims removes half of the run (rounded up): 4, 2, then 1 space.
    openText(parser, dir, "    timestamp: 00:00:07:000, filepos: 0\n    palette: 1, 2\n");
    EXPECT_TRUE(parser.GetMap().empty());
    EXPECT_EQ(parser.GetPalette()[0], 0u);
}

TEST(IdxParserMap, ColourSettingsStartAtZero)
{
    xcIdxParser parser;
    EXPECT_EQ(palette(parser), std::vector<unsigned int>(16, 0));
    EXPECT_EQ(customColors(parser), std::vector<unsigned int>(4, 0));
    EXPECT_EQ(parser.GetCustomColorSwitch(), 0);
    EXPECT_EQ(parser.GetTransparencyMask(), 0u);
}

TEST(IdxParserMap, PaletteWithFewerValuesKeepsTheRest)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir,
             "palette: 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 1a, 1b, 1c, 1d, 1e, 1f\n"
             "palette: a0, a1, a2\n");
    EXPECT_EQ(palette(parser), (std::vector<unsigned int>{0xa0, 0xa1, 0xa2, 0x13, 0x14, 0x15, 0x16, 0x17,
                                                          0x18, 0x19, 0x1a, 0x1b, 0x1c, 0x1d, 0x1e, 0x1f}));
}

TEST(IdxParserMap, PaletteStopsAtTheFirstValueThatDoesNotRead)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir, "palette: 1, 2, zz, 4\n");
    EXPECT_EQ(palette(parser), (std::vector<unsigned int>{1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(IdxParserMap, CustomColorsOffSetsSwitchMaskAndColours)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir, "custom colors: OFF, tridx: 0100, colors: 000000, ffffff, 808080, 000000\n");
    EXPECT_EQ(parser.GetCustomColorSwitch(), 0);
    EXPECT_EQ(parser.GetTransparencyMask(), 2u);
    EXPECT_EQ(customColors(parser), (std::vector<unsigned int>{0x000000, 0xffffff, 0x808080, 0x000000}));
}

TEST(IdxParserMap, CustomColorsSwitchWords)
{
    struct Case
    {
        const char* word;
        int before;
        int expected;
    };
    const Case cases[] = {
        {"ON", 0, 1},     {"ONCE", 0, 1}, {"1", 0, 1},  {"17", 0, 1},    {"OFF", 1, 0},
        {"OFFSET", 1, 0}, {"0", 1, 0},    {"05", 1, 0}, {"maybe", 1, 1}, {"maybe", 0, 0},
        {"on", 0, 0},     {"off", 1, 1},  {"O", 1, 1},  {"OF", 0, 0},
    };
    for (const Case& c : cases) {
        TempDir dir;
        xcIdxParser parser;
        const std::string setBefore = c.before ? "custom colors: ON\n" : "custom colors: OFF\n";
        openText(parser, dir, setBefore + "custom colors: " + c.word + ", tridx: 0000, colors: 1, 2, 3, 4\n");
        EXPECT_EQ(parser.GetCustomColorSwitch(), c.expected) << c.word << " after " << c.before;
    }
}

TEST(IdxParserMap, TridxDigitsBecomeMaskBits)
{
    struct Case
    {
        const char* tridx;
        unsigned int mask;
    };
    const Case cases[] = {{"1000", 1},  {"0100", 2}, {"0010", 4}, {"0001", 8},
                          {"1111", 15}, {"0000", 0}, {"1001", 9}};
    for (const Case& c : cases) {
        TempDir dir;
        xcIdxParser parser;
        openText(parser, dir, std::string("custom colors: ON, tridx: ") + c.tridx + ", colors: 1, 2, 3, 4\n");
        EXPECT_EQ(parser.GetTransparencyMask(), c.mask) << c.tridx;
    }
}

TEST(IdxParserMap, TridxThatDoesNotReadRebuildsTheMaskFromItsValue)
{
    TempDir dir;
    xcIdxParser parser;
    // 0x1001 gives 9; the second line reads nothing, so 9 (bits 0 and 3) is rebuilt to 8.
    openText(parser, dir,
             "custom colors: ON, tridx: 1001, colors: 1, 2, 3, 4\n"
             "custom colors: ON, tridx: zz, colors: 5, 6, 7, 8\n");
    EXPECT_EQ(parser.GetTransparencyMask(), 8u);
    EXPECT_EQ(customColors(parser), (std::vector<unsigned int>{5, 6, 7, 8}));
}

TEST(IdxParserMap, CustomColoursNotReadKeepTheirValues)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir,
             "custom colors: ON, tridx: 0000, colors: a, b, c, d\n"
             "custom colors: ON, tridx: 0000, colors: e, f\n");
    EXPECT_EQ(customColors(parser), (std::vector<unsigned int>{0xe, 0xf, 0xc, 0xd}));
}

TEST(IdxParserMap, TimestampTimeIsComputedInSigned32BitArithmetic)
{
    TempDir dir;
    xcIdxParser parser;
    // 1000 hours is 3600000000 ms, beyond the signed 32-bit range.
    openText(parser, dir, "timestamp: 1000:00:00:000, filepos: 000000800\n");
    EXPECT_EQ(parser.GetMap().at(0).time, 3600000000LL - 4294967296LL);
}

TEST(IdxParserMap, PositionThatDoesNotReadKeepsTheEntrysPosition)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir, "timestamp: 00:00:01:000, filepos: 000000800\n");
    openText(parser, dir, "timestamp: 00:00:02:000, filepos: zz\n");
    ASSERT_EQ(parser.GetMap().size(), 1u);
    EXPECT_EQ(parser.GetMap().at(0).time, 2000);
    EXPECT_EQ(parser.GetMap().at(0).filePos, 0x800);
}

TEST(IdxParserMap, PositionWithoutMarkerIsReadFromSevenCharactersIn)
{
    TempDir dir;
    xcIdxParser parser;
    // No "filepos:": the cut starts at -1 + 8, in the value "0:1:2:345" at "45".
    openText(parser, dir, "timestamp:0:1:2:345\n");
    ASSERT_EQ(parser.GetMap().count(0), 1u);
    EXPECT_EQ(parser.GetMap().at(0).time, 62345);
    EXPECT_EQ(parser.GetMap().at(0).filePos, 0x45);
}

TEST(IdxParserMap, UnknownKeysAndSettingsStoreNothing)
{
    TempDir dir;
    xcIdxParser parser;
    openText(parser, dir,
             "size: 720x480\norg: 0, 0\nscale: 100%, 100%\nalpha: 100%\nsmooth: OFF\nfadein/out: 50, 50\n"
             "align: OFF at LEFT TOP\ntime offset: 0\nforced subs: OFF\nlangidx: 0\nid: en, index: 0\n"
             "delay: 00:00:01:000\n# timestamp: 00:00:01:000, filepos: 000000800\nno colon at all\n");
    EXPECT_TRUE(parser.GetMap().empty());
    EXPECT_EQ(palette(parser), std::vector<unsigned int>(16, 0));
    EXPECT_EQ(customColors(parser), std::vector<unsigned int>(4, 0));
    EXPECT_EQ(parser.GetTransparencyMask(), 0u);
}

TEST(IdxParserMap, ConvertBufToIdxMapAnswersTrue)
{
    xcIdxParser parser;
    EXPECT_TRUE(parser.ConvertBufToIdxMap());
    EXPECT_TRUE(parser.GetMap().empty());
}
