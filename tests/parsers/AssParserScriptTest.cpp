// The script-level keys of an 8-bit ASS/SSA script: ScriptType and the two
// modes, PlayRes, Collisions, section heads, letter case, comment and ignored lines.

#include <gtest/gtest.h>

#include <string>

#include "parsers/xcAssParser.h"
#include "support/TestFiles.h"

namespace {

// An ASS-form line (layer first) and an SSA-form line (Marked first).
const char* const kAssLine = "Dialogue: 7,0:00:01.00,0:00:02.00,Default,,0,0,0,,ass\n";
const char* const kSsaLine = "Dialogue: Marked=0,0:00:01.00,0:00:02.00,Default,,0,0,0,,ssa\n";

class AssScript : public testing::Test
{
protected:
    bool open(const std::string& text) { return parser.Open(dir.write("s.ass", text).c_str()); }

    TempDir dir;
    xcAssParser parser;
};

TEST_F(AssScript, ScriptTypeV400PlusReadsTheLayerField)
{
    ASSERT_TRUE(open(std::string("ScriptType: v4.00+\n") + kAssLine));
    const ASS_SESSION_ST& e = parser.GetMap().at(1);
    EXPECT_EQ(e.layer, 7);
    EXPECT_EQ(e.start, 1000);
    EXPECT_EQ(e.end, 2000);
}

TEST_F(AssScript, ScriptTypeV400ReadsTheSsaMarkedField)
{
    ASSERT_TRUE(open(std::string("ScriptType: v4.00\n") + kSsaLine));
    const ASS_SESSION_ST& e = parser.GetMap().at(1);
    EXPECT_EQ(e.layer, 0);
    EXPECT_EQ(e.start, 1000);
    EXPECT_EQ(e.end, 2000);
    EXPECT_STREQ(e.style.getData(), "Default");
}

TEST_F(AssScript, WithoutScriptTypeDialogueIsReadTheSsaWay)
{
    ASSERT_TRUE(open(kSsaLine));
    EXPECT_EQ(parser.GetMap().at(1).start, 1000);
    EXPECT_STREQ(parser.GetMap().at(1).text.getData(), "\nssa");
}

TEST_F(AssScript, WithoutScriptTypeTheLayerOfAnAssLineIsDroppedAsMarkedField)
{
    ASSERT_TRUE(open(kAssLine));
    const ASS_SESSION_ST& e = parser.GetMap().at(1);
    EXPECT_EQ(e.layer, 0);
    EXPECT_EQ(e.start, 1000);
    EXPECT_EQ(e.end, 2000);
    EXPECT_STREQ(e.text.getData(), "\nass");
}

TEST_F(AssScript, ScriptTypeMatchesOnItsLastCharactersInAnyPrefix)
{
    ASSERT_TRUE(open(std::string("scripttype: V4.00+\n") + kAssLine));
    EXPECT_EQ(parser.GetMap().at(1).layer, 7);
    ASSERT_TRUE(open(std::string("ScriptType: 4.00+\n") + kAssLine));
    EXPECT_EQ(parser.GetMap().at(1).layer, 7);
    ASSERT_TRUE(open(std::string("ScriptType: v4.00+   \n") + kAssLine));
    EXPECT_EQ(parser.GetMap().at(1).layer, 7);
}

TEST_F(AssScript, ScriptTypeValueWithNothingBeforeItIsNotRecognised)
{
    // The rest is exactly "4.00+" (or "4.00"): Right of the whole length is empty.
    ASSERT_TRUE(open(std::string("ScriptType:4.00+\n") + kAssLine));
    EXPECT_EQ(parser.GetMap().at(1).layer, 0);
    ASSERT_TRUE(open(std::string("ScriptType:4.00\nStyle: S,F,1,2,3,4,5,6,7,8,9\n")));
    EXPECT_EQ(parser.GetStyle().borderStyle, 0);
    EXPECT_EQ(parser.GetStyle().outline, 2.0);
}

TEST_F(AssScript, ScriptTypeOfAnotherVersionChangesNothing)
{
    ASSERT_TRUE(open(std::string("ScriptType: v4.00+\nScriptType: v5.00\n") + kAssLine));
    EXPECT_EQ(parser.GetMap().at(1).layer, 7);
}

TEST_F(AssScript, ScriptTypeWithCarriageReturnIsNotRecognised)
{
    ASSERT_TRUE(open(std::string("ScriptType: v4.00+\r\n") + kAssLine));
    EXPECT_EQ(parser.GetMap().at(1).layer, 0);
}

TEST_F(AssScript, LaterScriptTypeChangesTheModeForLaterLines)
{
    ASSERT_TRUE(open(std::string(kSsaLine) + "ScriptType: v4.00+\n" + kAssLine));
    EXPECT_EQ(parser.GetMap().at(1).layer, 0);
    EXPECT_EQ(parser.GetMap().at(1).start, 1000);
    EXPECT_EQ(parser.GetMap().at(2).layer, 7);
}

TEST_F(AssScript, KeysAreRecognisedInAnyLetterCase)
{
    ASSERT_TRUE(open(std::string("PLAYRESX: 640\nplayResY: 480\nSCRIPTTYPE: v4.00+\n") +
                     "DIALOGUE: 1,0:00:01.00,0:00:02.00,Default,,0,0,0,,a\n"
                     "dialogue: 2,0:00:03.00,0:00:04.00,Default,,0,0,0,,b\n"));
    EXPECT_EQ(parser.GetPlayResX(), 640);
    EXPECT_EQ(parser.GetPlayResY(), 480);
    ASSERT_EQ(parser.GetMap().size(), 2u);
    EXPECT_EQ(parser.GetMap().at(2).layer, 2);
}

TEST_F(AssScript, KeyWithASpaceBeforeItsColonIsNotRecognised)
{
    ASSERT_TRUE(open("PlayResX : 640\nDialogue : Marked=0,0:00:01.00,0:00:02.00,Default,,0,0,0,,x\n"));
    EXPECT_EQ(parser.GetPlayResX(), 0);
    EXPECT_TRUE(parser.GetMap().empty());
}

TEST_F(AssScript, LeadingSpacesBeforeAKeyAreTrimmed)
{
    ASSERT_TRUE(open("   PlayResX: 320\n"));
    EXPECT_EQ(parser.GetPlayResX(), 320);
}

TEST_F(AssScript, PlayResValues)
{
    ASSERT_TRUE(open("PlayResX: 1280\nPlayResY:720\n"));
    EXPECT_EQ(parser.GetPlayResX(), 1280);
    EXPECT_EQ(parser.GetPlayResY(), 720);
}

TEST_F(AssScript, PlayResWithoutValueOrWithAmpersandHReadsMinusOne)
{
    ASSERT_TRUE(open("PlayResX:\nPlayResY: &H100\n"));
    EXPECT_EQ(parser.GetPlayResX(), -1);
    EXPECT_EQ(parser.GetPlayResY(), -1);
}

TEST_F(AssScript, CollisionsReverseInAnyCaseIsOne)
{
    ASSERT_TRUE(open("Collisions: Reverse\n"));
    EXPECT_STREQ(parser.GetCollisions().getData(), "1");
    ASSERT_TRUE(open("Collisions: REVERSE,x\n"));
    EXPECT_STREQ(parser.GetCollisions().getData(), "1");
}

TEST_F(AssScript, CollisionsNormalIsZero)
{
    ASSERT_TRUE(open("Collisions: Normal\n"));
    EXPECT_STREQ(parser.GetCollisions().getData(), "0");
    ASSERT_TRUE(open("Collisions:\n"));
    EXPECT_STREQ(parser.GetCollisions().getData(), "0");
}

TEST_F(AssScript, CollisionsValueIsCutAtTheFirstComma)
{
    ASSERT_TRUE(open("Collisions: Normal,Reverse\n"));
    EXPECT_STREQ(parser.GetCollisions().getData(), "0");
}

TEST_F(AssScript, SemicolonLinesAreComments)
{
    ASSERT_TRUE(open(std::string(";Dialogue: Marked=0,0:00:01.00,0:00:02.00,Default,,0,0,0,,x\n") +
                     "  ; PlayResX: 5\n" + kSsaLine));
    EXPECT_EQ(parser.GetPlayResX(), 0);
    ASSERT_EQ(parser.GetMap().size(), 1u);
    EXPECT_STREQ(parser.GetMap().at(1).text.getData(), "\nssa");
}

TEST_F(AssScript, FormatAndCommentLinesAreIgnored)
{
    ASSERT_TRUE(open(std::string("[Events]\nFormat: Start, End, Layer, Text\n") +
                     "Comment: Marked=0,0:00:05.00,0:00:06.00,Default,,0,0,0,,hidden\n" + kSsaLine));
    ASSERT_EQ(parser.GetMap().size(), 1u);
    EXPECT_EQ(parser.GetMap().at(1).start, 1000);
    EXPECT_STREQ(parser.GetMap().at(1).text.getData(), "\nssa");
}

TEST_F(AssScript, UnknownKeysAndOtherSectionHeadsAreIgnored)
{
    ASSERT_TRUE(
        open("[Script Info]\nTitle: x\nWrapStyle: 0\nScaledBorderAndShadow: yes\n[Fonts]\nplain text\n"));
    EXPECT_TRUE(parser.GetMap().empty());
    EXPECT_EQ(parser.GetLines().size(), 6u);
}

TEST_F(AssScript, DialogueKeysCountFromOneWithoutGaps)
{
    ASSERT_TRUE(open(std::string(kSsaLine) + "Comment: x\n" + kSsaLine + "junk\n" + kSsaLine));
    ASSERT_EQ(parser.GetMap().size(), 3u);
    EXPECT_EQ(parser.GetMap().begin()->first, 1);
    EXPECT_EQ(parser.GetMap().rbegin()->first, 3);
}

} // namespace
