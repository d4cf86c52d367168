// Style lines of an 8-bit ASS/SSA script in the three style modes: the fixed
// field order, colour splitting, alpha clamping and alignment conversion.

#include <gtest/gtest.h>

#include <string>

#include "parsers/xcAssParser.h"
#include "support/TestFiles.h"

namespace {

class AssStyle : public testing::Test
{
protected:
    const ASS_STYLE_ST& open(const std::string& text)
    {
        EXPECT_TRUE(parser.Open(dir.write("s.ass", text).c_str()));
        return parser.GetStyle();
    }

    TempDir dir;
    xcAssParser parser;
};

TEST_F(AssStyle, ModeFiveReadsBoldItalicScalesSpacingAngleAndBorderStyle)
{
    const ASS_STYLE_ST& s =
        open("[V4+ Styles]\nStyle: *Main,Arial,12.5,1,0,110,120,1.5,30,4,1.5,2.5,7,11,12,13,2\n");
    EXPECT_STREQ(s.fontName.getData(), "Arial");
    EXPECT_EQ(s.fontSize, 12.5);
    EXPECT_TRUE(s.bold);
    EXPECT_FALSE(s.italic);
    EXPECT_EQ(s.scaleX, 110.0);
    EXPECT_EQ(s.scaleY, 120.0);
    EXPECT_EQ(s.spacing, 1.5);
    EXPECT_EQ(s.angle, 30.0);
    EXPECT_EQ(s.borderStyle, 4);
    EXPECT_EQ(s.outline, 1.5);
    EXPECT_EQ(s.shadow, 2.5);
    EXPECT_EQ(s.alignment, 7);
    EXPECT_EQ(s.marginL, 11);
    EXPECT_EQ(s.marginR, 12);
    EXPECT_EQ(s.marginV, 13);
    EXPECT_EQ(s.marginVCopy, 13);
    EXPECT_EQ(s.encoding, 2);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(s.colour[i], 0u);
        EXPECT_EQ(s.alpha[i], 0);
    }
}

TEST_F(AssStyle, ModeFourReadsBorderStyleAndAlphaLevel)
{
    const ASS_STYLE_ST& s = open("[V4 Styles]\nStyle: Main,Arial,12.5,3,1.5,2.5,6,11,12,13,100,128\n");
    EXPECT_EQ(s.fontSize, 12.5);
    EXPECT_EQ(s.borderStyle, 3);
    EXPECT_EQ(s.outline, 1.5);
    EXPECT_EQ(s.shadow, 2.5);
    EXPECT_EQ(s.alignment, 8);
    EXPECT_EQ(s.marginL, 11);
    EXPECT_EQ(s.marginR, 12);
    EXPECT_EQ(s.marginV, 13);
    EXPECT_EQ(s.marginVCopy, 13);
    EXPECT_EQ(s.encoding, 128);
    EXPECT_EQ(s.alpha[0], 100);
    EXPECT_EQ(s.alpha[1], 100);
    EXPECT_EQ(s.alpha[2], 100);
    EXPECT_EQ(s.alpha[3], 128);
    EXPECT_FALSE(s.bold);
    EXPECT_EQ(s.scaleX, 0.0);
}

TEST_F(AssStyle, ModeThreeReadsNoBorderStyle)
{
    const ASS_STYLE_ST& s = open("Style: Main,Arial,12.5,1.5,2.5,10,11,12,13,-5,0\n");
    EXPECT_EQ(s.borderStyle, 0);
    EXPECT_EQ(s.outline, 1.5);
    EXPECT_EQ(s.shadow, 2.5);
    EXPECT_EQ(s.alignment, 5);
    EXPECT_EQ(s.marginL, 11);
    EXPECT_EQ(s.marginR, 12);
    EXPECT_EQ(s.marginV, 13);
    EXPECT_EQ(s.encoding, 0);
    EXPECT_EQ(s.alpha[0], 0);
    EXPECT_EQ(s.alpha[3], 128);
}

TEST_F(AssStyle, AlphaLevelIsLimitedToTheByteRange)
{
    EXPECT_EQ(open("Style: M,F,1,0,0,1,0,0,0,256,0\n").alpha[0], 255);
    EXPECT_EQ(open("Style: M,F,1,0,0,1,0,0,0,255,0\n").alpha[1], 255);
    EXPECT_EQ(open("Style: M,F,1,0,0,1,0,0,0,99999,0\n").alpha[2], 255);
    EXPECT_EQ(open("Style: M,F,1,0,0,1,0,0,0,-1,0\n").alpha[0], 0);
    EXPECT_EQ(open("Style: M,F,1,0,0,1,0,0,0,&H80,0\n").alpha[0], 0);
    EXPECT_EQ(open("Style: M,F,1,0,0,1,0,0,0,0,0\n").alpha[3], 128);
}

TEST_F(AssStyle, SsaAlignmentIsConvertedToTheAssNumbering)
{
    const int ssa[] = {1, 2, 3, 5, 6, 7, 9, 10, 11, 0, 4, 8, 12, -1};
    const int ass[] = {1, 2, 3, 7, 8, 9, 4, 5, 6, 0, 6, 3, 6, 9};
    for (size_t i = 0; i < sizeof(ssa) / sizeof(ssa[0]); ++i) {
        const std::string line = "Style: M,F,1,0,0," + std::to_string(ssa[i]) + ",0,0,0,0,0\n";
        EXPECT_EQ(open(line).alignment, ass[i]) << "SSA alignment " << ssa[i];
    }
}

TEST_F(AssStyle, ModeFiveKeepsTheAlignmentAsWritten)
{
    EXPECT_EQ(open("[V4+ Styles]\nStyle: M,F,1,0,0,0,0,0,0,0,0,0,10,0,0,0,0\n").alignment, 10);
}

TEST_F(AssStyle, RealAssStyleLineIsReadInTheFixedOrder)
{
    // Colour fields land in bold, italic and the scales; "&H" values read -1.
    const ASS_STYLE_ST& s = open(
        "ScriptType: v4.00+\n[V4+ Styles]\n"
        "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, BackColour, Bold, "
        "Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, BorderStyle, Outline, Shadow, "
        "Alignment, MarginL, MarginR, MarginV, Encoding\n"
        "Style: Default,Arial,20,&H00FFFFFF,&H000000FF,&H00000000,&H00000000,0,0,0,0,100,100,0,0,1,2,2,2,"
        "10,10,10,1\n");
    EXPECT_STREQ(s.fontName.getData(), "Arial");
    EXPECT_EQ(s.fontSize, 20.0);
    EXPECT_TRUE(s.bold);
    EXPECT_TRUE(s.italic);
    EXPECT_EQ(s.scaleX, -1.0);
    EXPECT_EQ(s.scaleY, -1.0);
    EXPECT_EQ(s.spacing, 0.0);
    EXPECT_EQ(s.angle, 0.0);
    EXPECT_EQ(s.borderStyle, 0);
    EXPECT_EQ(s.outline, 0.0);
    EXPECT_EQ(s.shadow, 100.0);
    EXPECT_EQ(s.alignment, 100);
    EXPECT_EQ(s.marginL, 0);
    EXPECT_EQ(s.marginR, 0);
    EXPECT_EQ(s.marginV, 1);
    EXPECT_EQ(s.encoding, 2);
}

TEST_F(AssStyle, RealSsaStyleLineIsReadInTheFixedOrder)
{
    const ASS_STYLE_ST& s =
        open("ScriptType: v4.00\n[V4 Styles]\n"
             "Style: *Default,Tahoma,24,16777215,65535,65535,-2147483640,-1,0,1,2,3,2,30,40,50,0,0\n");
    EXPECT_STREQ(s.fontName.getData(), "Tahoma");
    EXPECT_EQ(s.fontSize, 24.0);
    EXPECT_EQ(s.borderStyle, 16777215);
    EXPECT_EQ(s.outline, 65535.0);
    EXPECT_EQ(s.shadow, 65535.0);
    EXPECT_EQ(s.alignment, 3); // -2147483640 has bit 8 set
    EXPECT_EQ(s.marginL, -1);
    EXPECT_EQ(s.marginR, 0);
    EXPECT_EQ(s.marginV, 1);
    EXPECT_EQ(s.alpha[0], 2);
    EXPECT_EQ(s.encoding, 3);
}

TEST_F(AssStyle, LaterStyleLineOverwritesTheEarlierOne)
{
    const ASS_STYLE_ST& s = open("Style: A,First,10,0,0,1,1,1,1,0,0\nStyle: B,Second,20,0,0,2,2,2,2,0,0\n");
    EXPECT_STREQ(s.fontName.getData(), "Second");
    EXPECT_EQ(s.fontSize, 20.0);
    EXPECT_EQ(s.marginV, 2);
}

TEST_F(AssStyle, ShortStyleLineRepeatsItsLastField)
{
    // Without a comma the last field is handed out again and again.
    const ASS_STYLE_ST& s = open("Style: A,Font,7\n");
    EXPECT_STREQ(s.fontName.getData(), "Font");
    EXPECT_EQ(s.fontSize, 7.0);
    EXPECT_EQ(s.outline, 7.0);
    EXPECT_EQ(s.alignment, 9);
    EXPECT_EQ(s.marginV, 7);
    EXPECT_EQ(s.encoding, 7);
    EXPECT_EQ(s.alpha[0], 7);
}

TEST_F(AssStyle, SectionHeadChangesOnlyTheStyleMode)
{
    // "[V4+ Styles]" reads styles the ASS way while Dialogue stays SSA.
    ASSERT_TRUE(parser.Open(dir.write("s.ass", "[V4+ Styles]\nStyle: M,F,1,1,1,1,1,1,1,9,0,0,0,0,0,0,0\n"
                                               "Dialogue: Marked=0,0:00:01.00,0:00:02.00,S,,0,0,0,,x\n")
                                .c_str()));
    EXPECT_EQ(parser.GetStyle().borderStyle, 9);
    EXPECT_EQ(parser.GetMap().at(1).start, 1000);
}

TEST_F(AssStyle, ScriptTypeSetsTheStyleModeToo)
{
    EXPECT_EQ(open("ScriptType: v4.00\nStyle: M,F,1,5,0,0,1,0,0,0,0,0\n").borderStyle, 5);
}

TEST_F(AssStyle, EncodingOfTheStyleDoesNotChangeTheStrippedText)
{
    ASSERT_TRUE(
        parser.Open(dir.write("s.ass", "Style: M,F,1,0,0,1,0,0,0,0,128\n"
                                       "Dialogue: Marked=0,0:00:01.00,0:00:02.00,S,,0,0,0,,{\\fe128}x\n")
                        .c_str()));
    EXPECT_EQ(parser.GetStyle().encoding, 128);
    EXPECT_STREQ(parser.GetMap().at(1).text.getData(), "\nx");
}

} // namespace
