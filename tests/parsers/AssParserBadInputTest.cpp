// Malformed ASS/SSA scripts: every one answers a result, and the only
// exception out of Open is the wide parser's int 1.

#include <gtest/gtest.h>

#include <clocale>
#include <random>
#include <string>

#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "support/TestFiles.h"

namespace {

// Pieces that scripts are made of, well-formed and not.
const char* const kPieces[] = {
    "Dialogue:",
    "dialogue: ",
    "Style:",
    "ScriptType: v4.00+",
    "ScriptType: v4.00",
    "[V4 Styles]",
    "[V4+ Styles]",
    "PlayResX:",
    "PlayResY: ",
    "Collisions:",
    "Comment:",
    "Format:",
    ";",
    ",",
    ",,",
    ":",
    ".",
    "=",
    "Marked=0",
    "0:00:01.00",
    "9999999999:99:99.999",
    "-1",
    "&H00FFFFFF",
    "{",
    "}",
    "<",
    ">",
    "{ab}{c",
    "<ab><c",
    "{{}{{{}{",
    "\\N",
    "\\n",
    "\\fe",
    "*",
    "**",
    " ",
    "   ",
    "\t",
    "\r",
    "\x01",
    "\xE9",
    "\xC3\xA9",
    "\xFF\xFE",
    "Default",
    "text",
};

std::string randomScript(std::mt19937& random)
{
    std::string script;
    const int lines = 1 + static_cast<int>(random() % 12);
    for (int l = 0; l < lines; ++l) {
        const int pieces = static_cast<int>(random() % 14);
        for (int p = 0; p < pieces; ++p)
            script += kPieces[random() % (sizeof(kPieces) / sizeof(kPieces[0]))];
        if (random() % 9 == 0)
            script += std::string(static_cast<size_t>(random() % 300), "{x}<"[random() % 4]);
        if (random() % 15 == 0)
            script += '\0';
        script += "\n";
    }
    if (random() % 2)
        script.pop_back();
    return script;
}

TEST(AssParserBadInput, NarrowParserAnswersEveryGeneratedScript)
{
    TempDir dir;
    std::mt19937 random(4242u);
    for (int round = 0; round < 600; ++round) {
        const std::string script = randomScript(random);
        xcAssParser parser;
        const std::string path = dir.write("s.ass", script);
        EXPECT_NO_THROW(EXPECT_EQ(parser.Open(path.c_str()), !script.empty()));
        for (long long t : {-1LL, 0LL, 1LL, 1000LL, 1000000LL})
            parser.GetSubTitle(t);
        EXPECT_EQ(parser.IsOpen(), !script.empty());
    }
}

TEST(AssParserBadInput, WideParserAnswersEveryGeneratedScriptOrThrowsIntOne)
{
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    TempDir dir;
    std::mt19937 random(777u);
    int opened = 0;
    int thrown = 0;
    for (int round = 0; round < 600; ++round) {
        const std::string script = withMark(randomScript(random));
        xcAssParserU parser;
        const std::string path = dir.write("s.ass", script);
        try {
            EXPECT_TRUE(parser.Open(path.c_str()));
            ++opened;
        } catch (int value) {
            EXPECT_EQ(value, 1);
            ++thrown;
        }
        for (long long t : {-1LL, 0LL, 1LL, 1000LL, 1000000LL})
            parser.GetSubTitleU(t);
    }
    EXPECT_GT(opened, 0);
    EXPECT_GT(thrown, 0);
    std::setlocale(LC_ALL, saved.c_str());
}

TEST(AssParserBadInput, WideBytesTheLocaleCannotDecodeEndTheReading)
{
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    TempDir dir;
    xcAssParserU parser;
    EXPECT_TRUE(parser.Open(dir.write("s.ass", withMark("one\nt\xFFwo\nthree\n")).c_str()));
    ASSERT_FALSE(parser.GetLines().empty());
    EXPECT_STREQ(parser.GetLines()[0].getData(), L"one");
    EXPECT_EQ(parser.GetLines().size(), 1u);
    std::setlocale(LC_ALL, saved.c_str());
}

TEST(AssParserBadInput, EndlessCaptionsInAWholeScriptDoNotHang)
{
    TempDir dir;
    std::string script = "ScriptType: v4.00+\n";
    for (int i = 0; i < 200; ++i)
        script += "Dialogue: 0,0:00:01.00,0:00:02.00,S,,0,0,0,,{ab}{c<ab><c{{}{{{}{\n";
    xcAssParser parser;
    ASSERT_TRUE(parser.Open(dir.write("s.ass", script).c_str()));
    EXPECT_EQ(parser.GetMap().size(), 200u);
}

} // namespace
