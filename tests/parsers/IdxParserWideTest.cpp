// The wide VobSub index parser: how it opens, and where its map differs.
#include <gtest/gtest.h>

#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "parsers/xcIdxParserU.h"
#include "support/TestFiles.h"

namespace {

std::wstring text(const xcWString& s)
{
    return std::wstring(s.getData(), static_cast<size_t>(s.length()));
}

std::vector<std::wstring> lines(const xcIdxParserU& parser)
{
    std::vector<std::wstring> out;
    for (const xcWString& line : parser.GetLines())
        out.push_back(text(line));
    return out;
}

bool openName(xcIdxParserU& parser, const std::wstring& name)
{
    std::vector<wchar_t> path(name.begin(), name.end());
    path.push_back(L'\0');
    return parser.Open(path.data());
}

std::string repeatLine(const std::string& line, int count)
{
    std::string out;
    for (int i = 0; i < count; ++i)
        out += line;
    return out;
}

std::vector<unsigned int> customColors(const xcIdxParserU& parser)
{
    return std::vector<unsigned int>(parser.GetCustomColors(), parser.GetCustomColors() + 4);
}

} // namespace

TEST(IdxParserWide, OneCharacterNameOpens)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("i", "size: 720x480\n");
    xcIdxParserU parser;
    EXPECT_TRUE(openName(parser, L"i"));
    EXPECT_EQ(lines(parser), std::vector<std::wstring>{L"size: 720x480"});
}

TEST(IdxParserWide, OnlyTheFirstCharacterOfTheNameIsSeen)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("i", "size: 720x480\n");
    xcIdxParserU parser;
    // "index.idx" is handed over as the narrow name "i".
    EXPECT_TRUE(openName(parser, L"index.idx"));
    EXPECT_EQ(text(parser.GetSubPath()), L".idxsub");
    EXPECT_EQ(lines(parser), std::vector<std::wstring>{L"size: 720x480"});
}

TEST(IdxParserWide, LongerNameDoesNotOpenItsFile)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("movie.idx", "size: 720x480\n");
    xcIdxParserU parser;
    EXPECT_FALSE(openName(parser, L"movie.idx"));
    EXPECT_TRUE(parser.GetLines().empty());
}

TEST(IdxParserWide, SubPathRunsFromFirstDot)
{
    xcIdxParserU parser;
    openName(parser, L"/no/such.dir/movie.idx");
    EXPECT_EQ(text(parser.GetSubPath()), L".dir/movie.idxsub");
    openName(parser, L"/no/such/file");
    EXPECT_EQ(text(parser.GetSubPath()), L"sub");
}

TEST(IdxParserWide, ReadsFromTheFirstByte)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("i", "ab: 1\ncd: 2\n");
    xcIdxParserU parser;
    ASSERT_TRUE(openName(parser, L"i"));
    EXPECT_EQ(lines(parser), (std::vector<std::wstring>{L"ab: 1", L"cd: 2"}));
}

TEST(IdxParserWide, EmptyFileFailsAndIsClosed)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("e", "");
    xcIdxParserU parser;
    const int before = openDescriptorCount();
    EXPECT_FALSE(openName(parser, L"e"));
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST(IdxParserWide, LastLineWithoutLineFeedIsLostAndEmptyLinesDropped)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("i", "a: 1\n\n" + std::string(200, 'x') + "\ntimestamp: 00:00:01:000, filepos: 0");
    xcIdxParserU parser;
    ASSERT_TRUE(openName(parser, L"i"));
    EXPECT_EQ(lines(parser), (std::vector<std::wstring>{L"a: 1", std::wstring(200, L'x')}));
    EXPECT_TRUE(parser.GetMap().empty());
}

TEST(IdxParserWide, LineLimitIs5000Lines)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("a", repeatLine("# c\n", 5000));
    dir.write("b", repeatLine("# c\n", 5001));
    xcIdxParserU parser;
    EXPECT_TRUE(openName(parser, L"a"));
    EXPECT_EQ(parser.GetLines().size(), 5000u);
    const int before = openDescriptorCount();
    EXPECT_FALSE(openName(parser, L"b"));
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST(IdxParserWide, TimestampsAreKeyedByARunningCount)
{
    std::string content;
    for (int i = 0; i < 20; ++i)
        content += "# line " + std::to_string(i) + "\n";
    content += "timestamp: 00:00:01:101, filepos: 000000000\n"
               "timestamp: 00:00:04:938, filepos: 000001000\n"
               "timestamp: 00:01:02:345, filepos: 000001800\n";
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("i", content);
    xcIdxParserU parser;
    ASSERT_TRUE(openName(parser, L"i"));
    const auto& map = parser.GetMap();
    ASSERT_EQ(map.size(), 3u);
    EXPECT_EQ(map.at(0).time, 1101);
    EXPECT_EQ(map.at(1).time, 4938);
    EXPECT_EQ(map.at(2).time, 62345);
}

TEST(IdxParserWide, CountSkipsOtherLinesAndRestartsWithEachOpen)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("a",
              "# x\ntimestamp: 00:00:01:000, filepos: 0\n# y\n;\n\ntimestamp: 00:00:02:000, filepos: 0\n");
    dir.write("b", "timestamp: 00:00:09:000, filepos: 0\n");
    xcIdxParserU parser;
    ASSERT_TRUE(openName(parser, L"a"));
    ASSERT_EQ(parser.GetMap().size(), 2u);
    EXPECT_EQ(parser.GetMap().at(1).time, 2000);
    ASSERT_TRUE(openName(parser, L"b"));
    ASSERT_EQ(parser.GetMap().size(), 2u);
    EXPECT_EQ(parser.GetMap().at(0).time, 9000);
    EXPECT_EQ(parser.GetMap().at(1).time, 2000);
}

TEST(IdxParserWide, PositionWithMarkerKeepsItsColonAndReadsNothing)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("i", "timestamp: 00:01:02:345, filepos: 000001800\ntimestamp: 00:00:01:000, filepos:1800\n");
    xcIdxParserU parser;
    ASSERT_TRUE(openName(parser, L"i"));
    EXPECT_EQ(parser.GetMap().at(0).time, 62345);
    EXPECT_EQ(parser.GetMap().at(0).filePos, 0);
    EXPECT_EQ(parser.GetMap().at(1).filePos, 0);
}

TEST(IdxParserWide, PositionThatDoesNotReadStoresZero)
{
    TempDir dir;
    InDirectory in(dir.path());
    // The first open leaves 0x345 at key 0 (no marker: read from 6 characters in).
    dir.write("a", "timestamp:0:1:2:345\n");
    dir.write("b", "timestamp: 00:00:01:000, filepos: 000000800\n");
    xcIdxParserU parser;
    ASSERT_TRUE(openName(parser, L"a"));
    ASSERT_EQ(parser.GetMap().at(0).filePos, 0x345);
    ASSERT_TRUE(openName(parser, L"b"));
    EXPECT_EQ(parser.GetMap().at(0).time, 1000);
    EXPECT_EQ(parser.GetMap().at(0).filePos, 0);
}

TEST(IdxParserWide, CustomColorsReadTheSwitchButNeitherMaskNorColours)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("i", "custom colors: ON, tridx: 1111, colors: 000000, ffffff, 808080, 000000\n");
    xcIdxParserU parser;
    ASSERT_TRUE(openName(parser, L"i"));
    EXPECT_EQ(parser.GetCustomColorSwitch(), 1);
    EXPECT_EQ(parser.GetTransparencyMask(), 0u);
    EXPECT_EQ(customColors(parser), std::vector<unsigned int>(4, 0));
}

TEST(IdxParserWide, CustomColorsSwitchWords)
{
    struct Case
    {
        const char* word;
        int before;
        int expected;
    };
    const Case cases[] = {{"ON", 0, 1}, {"1", 0, 1},     {"OFF", 1, 0}, {"0", 1, 0},
                          {"on", 0, 0}, {"maybe", 1, 1}, {"ONE", 0, 1}, {"OF", 1, 1}};
    for (const Case& c : cases) {
        TempDir dir;
        InDirectory in(dir.path());
        const std::string setBefore = c.before ? "custom colors: ON\n" : "custom colors: OFF\n";
        dir.write("i", setBefore + "custom colors: " + c.word + ", tridx: 0000, colors: 1, 2, 3, 4\n");
        xcIdxParserU parser;
        ASSERT_TRUE(openName(parser, L"i"));
        EXPECT_EQ(parser.GetCustomColorSwitch(), c.expected) << c.word << " after " << c.before;
    }
}

TEST(IdxParserWide, PaletteIsRead)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("i",
              "palette: 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 1a, 1b, 1c, 1d, 1e, 1f\npalette: a0, a1\n");
    xcIdxParserU parser;
    ASSERT_TRUE(openName(parser, L"i"));
    EXPECT_EQ(std::vector<unsigned int>(parser.GetPalette(), parser.GetPalette() + 16),
              (std::vector<unsigned int>{0xa0, 0xa1, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18, 0x19, 0x1a,
                                         0x1b, 0x1c, 0x1d, 0x1e, 0x1f}));
}

TEST(IdxParserWide, KeysAreComparedLowerCasedAndUnknownKeysIgnored)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write(
        "i", "# VobSub index file, v7\nsize: 720x480\nid: en, index: 0\nTIMESTAMP: 00:00:05:000, filepos: 0\n"
             "langidx: 0\n");
    xcIdxParserU parser;
    ASSERT_TRUE(openName(parser, L"i"));
    ASSERT_EQ(parser.GetMap().size(), 1u);
    EXPECT_EQ(parser.GetMap().at(0).time, 5000);
}

TEST(IdxParserWide, ColourSettingsStartAtZero)
{
    xcIdxParserU parser;
    EXPECT_EQ(std::vector<unsigned int>(parser.GetPalette(), parser.GetPalette() + 16),
              std::vector<unsigned int>(16, 0));
    EXPECT_EQ(customColors(parser), std::vector<unsigned int>(4, 0));
    EXPECT_EQ(parser.GetCustomColorSwitch(), 0);
    EXPECT_EQ(parser.GetTransparencyMask(), 0u);
    EXPECT_TRUE(parser.ConvertBufToIdxMap());
}
