// The ASS/SSA parser for scripts behind FF FE: decoding through the locale,
// the int 1 thrown out of Open, and the twin's own differences.

#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "support/TestFiles.h"

namespace {

std::wstring storedW(const xcWString& s)
{
    return std::wstring(s.getData(), static_cast<size_t>(s.length()));
}

std::string stored(const xcString& s)
{
    return std::string(s.getData(), static_cast<size_t>(s.length()));
}

std::wstring widen(const std::string& s)
{
    return std::wstring(s.begin(), s.end());
}

const char* const kScript =
    "[Script Info]\n"
    "; comment\n"
    "ScriptType: v4.00+\n"
    "PlayResX: 640\n"
    "PlayResY: 480\n"
    "WrapStyle: 0\n"
    "\n"
    "[V4+ Styles]\n"
    "Style: *Main,Arial,12.5,1,0,110,120,1.5,30,4,1.5,2.5,7,11,12,13,2\n"
    "\n"
    "[Events]\n"
    "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
    "Dialogue: 0,0:00:01.50,0:00:03.00,*Default,,0,0,0,,{\\b1}Hello{\\b0}\n"
    "dialogue: 2,0:00:04.00,0:00:05.500,Main,Bob,0,0,0,Karaoke,one\\Ntwo\\Nthree\n"
    "Dialogue: 1,0:00:10.50,0:00:11.00,Main,,0,0,0,Hi,Hi there\n"
    "Dialogue: 0,0:00:12.00,0:00:13.00,Main,,0,0,0,,{ab}{c\n";

// The tests decode the bytes behind FF FE as UTF-8.
class AssWide : public testing::Test
{
protected:
    void SetUp() override
    {
        savedLocale = std::setlocale(LC_ALL, nullptr);
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    }
    void TearDown() override { std::setlocale(LC_ALL, savedLocale.c_str()); }

    std::string write(const std::string& text) { return dir.write("s.ass", withMark(text)); }
    bool open(const std::string& text) { return parser.Open(write(text).c_str()); }

    std::string savedLocale;
    TempDir dir;
    xcAssParserU parser;
};

TEST_F(AssWide, FileOfJustTheMarkOpensEmpty)
{
    EXPECT_TRUE(parser.Open(dir.write("s.ass", "\xFF\xFE").c_str()));
    EXPECT_TRUE(parser.IsOpen());
    EXPECT_TRUE(parser.GetLines().empty());
    EXPECT_TRUE(parser.GetMap().empty());
}

TEST_F(AssWide, MissingOrEmptyFileDoesNotOpen)
{
    EXPECT_FALSE(parser.Open(dir.file("absent.ass").c_str()));
    const std::string path = dir.write("empty.ass", "");
    const int before = openDescriptorCount();
    EXPECT_FALSE(parser.Open(path.c_str()));
    EXPECT_EQ(openDescriptorCount(), before);
    EXPECT_FALSE(parser.IsOpen());
}

TEST_F(AssWide, MarkBytesAreNotRead)
{
    ASSERT_TRUE(open("PlayResX: 5\n"));
    ASSERT_EQ(parser.GetLines().size(), 1u);
    EXPECT_EQ(storedW(parser.GetLines()[0]), L"PlayResX: 5");
    EXPECT_EQ(parser.GetPlayResX(), 5);
}

TEST_F(AssWide, SameScriptGivesTheSameEntriesAsTheNarrowParser)
{
    const int before = openDescriptorCount();
    ASSERT_TRUE(open(kScript));
    EXPECT_EQ(openDescriptorCount(), before);
    xcAssParser narrow;
    ASSERT_TRUE(narrow.Open(dir.write("n.ass", kScript).c_str()));

    ASSERT_EQ(parser.GetMap().size(), 4u);
    ASSERT_EQ(narrow.GetMap().size(), 4u);
    for (const auto& [key, n] : narrow.GetMap()) {
        const ASS_SESSION_ST_U& w = parser.GetMap().at(key);
        EXPECT_EQ(w.layer, n.layer) << key;
        EXPECT_EQ(w.start, n.start) << key;
        EXPECT_EQ(w.end, n.end) << key;
        EXPECT_EQ(storedW(w.text), widen(stored(n.text))) << key;
        EXPECT_EQ(storedW(w.style), widen(stored(n.style))) << key;
        EXPECT_EQ(storedW(w.name), widen(stored(n.name))) << key;
        EXPECT_EQ(storedW(w.effect), widen(stored(n.effect))) << key;
    }
    EXPECT_EQ(parser.GetPlayResX(), 640);
    EXPECT_EQ(parser.GetPlayResY(), 480);
    EXPECT_EQ(parser.GetLines().size(), narrow.GetLines().size());

    const ASS_STYLE_ST_U& s = parser.GetStyle();
    const ASS_STYLE_ST& t = narrow.GetStyle();
    EXPECT_EQ(storedW(s.fontName), L"Arial");
    EXPECT_EQ(s.fontSize, t.fontSize);
    EXPECT_EQ(s.bold, t.bold);
    EXPECT_EQ(s.scaleX, t.scaleX);
    EXPECT_EQ(s.spacing, t.spacing);
    EXPECT_EQ(s.borderStyle, t.borderStyle);
    EXPECT_EQ(s.alignment, t.alignment);
    EXPECT_EQ(s.marginV, t.marginV);
    EXPECT_EQ(s.marginVCopy, t.marginVCopy);
    EXPECT_EQ(s.encoding, t.encoding);
}

TEST_F(AssWide, EntriesOfTheScript)
{
    ASSERT_TRUE(open(kScript));
    const auto& m = parser.GetMap();
    EXPECT_EQ(m.at(1).start, 1500);
    EXPECT_EQ(m.at(1).end, 3000);
    EXPECT_EQ(storedW(m.at(1).style), L"Default");
    EXPECT_EQ(storedW(m.at(1).text), std::wstring(L"\nHello\0\\b0}\0\\b0}", 16));
    EXPECT_EQ(m.at(2).layer, 2);
    EXPECT_EQ(m.at(2).end, 5000 + 5000);
    EXPECT_EQ(storedW(m.at(2).name), L"Bob");
    EXPECT_EQ(storedW(m.at(2).effect), L"Karaoke");
    EXPECT_STREQ(m.at(2).text.getData(), L"\none\ntwo\\Nthree");
    EXPECT_TRUE(m.at(3).effect.isEmpty());
    EXPECT_EQ(storedW(m.at(4).text), std::wstring(L"\n{c\0}{c", 7));
}

TEST_F(AssWide, LookUpAnswersWideTextAndNeverTheLastEntry)
{
    ASSERT_TRUE(open(kScript));
    EXPECT_EQ(parser.GetSubTitleU(0), nullptr);
    EXPECT_EQ(parser.GetSubTitleU(1499), nullptr);
    EXPECT_STREQ(parser.GetSubTitleU(1500), L"\nHello");
    EXPECT_STREQ(parser.GetSubTitleU(3000), L"\nHello");
    EXPECT_STREQ(parser.GetSubTitleU(6500), L"\none\ntwo\\Nthree"); // 4000 to 10000 (".500")
    EXPECT_STREQ(parser.GetSubTitleU(10600), L"\nHi there");
    EXPECT_EQ(parser.GetSubTitleU(12500), nullptr);
    EXPECT_EQ(parser.GetSubTitleU(1500), parser.GetMap().at(1).text.getData());
}

TEST_F(AssWide, WideParserAnswersNoNarrowText)
{
    ASSERT_TRUE(open(kScript));
    for (long long t : {-1LL, 0LL, 1500LL, 4500LL, 10600LL, 12500LL})
        EXPECT_EQ(parser.GetSubTitle(t), nullptr);
}

TEST_F(AssWide, SingleEntryIsNeverAnswered)
{
    ASSERT_TRUE(open("Dialogue: Marked=0,0:00:01.00,0:00:02.00,S,,0,0,0,,only\n"));
    EXPECT_EQ(parser.GetSubTitleU(1500), nullptr);
}

TEST_F(AssWide, Utf8TextIsDecodedByTheLocale)
{
    ASSERT_TRUE(open("Dialogue: Marked=0,0:00:01.00,0:00:02.00,S,,0,0,0,,caf\xC3\xA9 \xE2\x82\xAC\n"
                     "Dialogue: Marked=0,0:00:03.00,0:00:04.00,S,,0,0,0,,x\n"));
    EXPECT_STREQ(parser.GetSubTitleU(1500), L"\ncaf\u00E9 \u20AC");
}

TEST_F(AssWide, LineLongerThan128CharactersIsReadWhole)
{
    const std::string longLine = std::string(200, 'a') + "\xC3\xA9" + std::string(100, 'b');
    ASSERT_TRUE(open(longLine + "\nend\n"));
    ASSERT_EQ(parser.GetLines().size(), 2u);
    EXPECT_EQ(storedW(parser.GetLines()[0]), std::wstring(200, L'a') + L"\u00E9" + std::wstring(100, L'b'));
}

TEST_F(AssWide, LastLineWithoutLineFeedIsLost)
{
    ASSERT_TRUE(open("one\ntwo"));
    ASSERT_EQ(parser.GetLines().size(), 1u);
    EXPECT_EQ(storedW(parser.GetLines()[0]), L"one");
}

TEST_F(AssWide, CarriageReturnStaysOnTheLine)
{
    ASSERT_TRUE(open("one\r\n"));
    EXPECT_EQ(storedW(parser.GetLines()[0]), L"one\r");
}

TEST_F(AssWide, TwentyThousandLinesOpenAndOneMoreDoesNot)
{
    std::string lines;
    for (int i = 0; i < 20000; ++i)
        lines += "x\n";
    EXPECT_TRUE(open(lines));
    EXPECT_EQ(parser.GetLines().size(), 20000u);
    const std::string path = write(lines + "x\n");
    const int before = openDescriptorCount();
    EXPECT_FALSE(parser.Open(path.c_str()));
    EXPECT_EQ(openDescriptorCount(), before);
    EXPECT_EQ(parser.GetLines().size(), 20001u);
    EXPECT_TRUE(parser.GetMap().empty());
}

TEST_F(AssWide, CollisionsIsAlwaysEmpty)
{
    ASSERT_TRUE(open("Collisions: Reverse\n"));
    EXPECT_TRUE(parser.GetCollisions().isEmpty());
    ASSERT_TRUE(open("Collisions: Normal\n"));
    EXPECT_TRUE(parser.GetCollisions().isEmpty());
}

TEST_F(AssWide, IgnoredKeysWithoutValueDoNotThrow)
{
    EXPECT_TRUE(open("WrapStyle:\nScaledBorderAndShadow:\nTitle:\nScriptType:\n[V4+ Styles]\n"));
    EXPECT_EQ(parser.GetLines().size(), 5u);
}

TEST_F(AssWide, FailedOpenAfterSuccessKeepsIsOpen)
{
    ASSERT_TRUE(open(kScript));
    EXPECT_FALSE(parser.Open(dir.file("absent.ass").c_str()));
    EXPECT_TRUE(parser.IsOpen());
    EXPECT_TRUE(parser.GetMap().empty());
    EXPECT_EQ(parser.GetSubTitleU(1500), nullptr);
}

// The int 1 out of Open

int thrownByOpen(xcAssParserU& parser, const std::string& path)
{
    try {
        parser.Open(path.c_str());
    } catch (int value) {
        return value;
    }
    return 0;
}

TEST_F(AssWide, PlayResXWithoutValueThrowsIntOneOutOfOpen)
{
    EXPECT_EQ(thrownByOpen(parser, write("PlayResX:\n")), 1);
    EXPECT_EQ(thrownByOpen(parser, write("PlayResY:   \n")), 1);
    EXPECT_FALSE(parser.IsOpen());
}

TEST_F(AssWide, DialogueEndingAfterTheMarginVCommaThrowsIntOneOutOfOpen)
{
    EXPECT_EQ(thrownByOpen(parser,
                           write("ScriptType: v4.00+\nDialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,\n")),
              1);
    EXPECT_TRUE(parser.GetMap().empty());
}

TEST_F(AssWide, NarrowParserReadsTheSameLinesWithoutThrowing)
{
    xcAssParser narrow;
    ASSERT_TRUE(narrow.Open(dir.write("n.ass", "PlayResX:\nScriptType: v4.00+\n"
                                               "Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,\n")
                                .c_str()));
    EXPECT_EQ(narrow.GetPlayResX(), -1);
    EXPECT_EQ(stored(narrow.GetMap().at(1).text), "\n");
}

TEST_F(AssWide, OtherEmptyRemaindersThrowToo)
{
    EXPECT_EQ(thrownByOpen(parser, write("Collisions:\n")), 1);
    EXPECT_EQ(thrownByOpen(parser, write("Style: A,\n")), 1);
    EXPECT_EQ(thrownByOpen(parser, write("Dialogue:\n")), 1);
    EXPECT_EQ(thrownByOpen(parser, write("Style: A,Font,7\n")), 0);
}

TEST_F(AssWide, ThrowLeavesTheTableHalfBuiltAndTheStreamOpen)
{
    ASSERT_TRUE(open(kScript));
    const std::string path = write("ScriptType: v4.00+\n"
                                   "PlayResX: 800\n"
                                   "Dialogue: 0,0:00:01.00,0:00:02.00,S,,0,0,0,,a\n"
                                   "Dialogue: 0,0:00:03.00,0:00:04.00,S,,0,0,0,,b\n"
                                   "Dialogue: 0,0:00:05.00,0:00:06.00,S,,0,0,0,\n"
                                   "Dialogue: 0,0:00:07.00,0:00:08.00,S,,0,0,0,,d\n"
                                   "PlayResY: 600\n");
    xcAssParserU fresh;
    const int before = openDescriptorCount();
    EXPECT_EQ(thrownByOpen(fresh, path), 1);
    EXPECT_EQ(openDescriptorCount(), before + 1);
    EXPECT_FALSE(fresh.IsOpen());
    EXPECT_EQ(fresh.GetLines().size(), 7u);
    ASSERT_EQ(fresh.GetMap().size(), 2u);
    EXPECT_STREQ(fresh.GetMap().at(2).text.getData(), L"\nb");
    EXPECT_EQ(fresh.GetPlayResX(), 800);
    EXPECT_EQ(fresh.GetPlayResY(), 0);
    // The half-built table answers like any other.
    EXPECT_STREQ(fresh.GetSubTitleU(1500), L"\na");
    EXPECT_EQ(fresh.GetSubTitleU(3500), nullptr);
}

TEST_F(AssWide, ThrowAfterASuccessfulOpenKeepsIsOpen)
{
    ASSERT_TRUE(open(kScript));
    EXPECT_EQ(thrownByOpen(parser, write("PlayResX:\n")), 1);
    EXPECT_TRUE(parser.IsOpen());
    EXPECT_TRUE(parser.GetMap().empty());
}

} // namespace
