// Dialogue lines of an 8-bit ASS/SSA script: fields, times, the effect-copy
// and star rules, missing fields, and the stored caption text.

#include <gtest/gtest.h>

#include <string>

#include "parsers/xcAssParser.h"
#include "support/TestFiles.h"

namespace {

std::string stored(const xcString& s)
{
    return std::string(s.getData(), static_cast<size_t>(s.length()));
}

class AssDialogue : public testing::Test
{
protected:
    // Opens the lines behind "ScriptType: v4.00+" (event mode 5).
    const ASS_SESSION_ST& openAss(const std::string& lines, int key = 1)
    {
        EXPECT_TRUE(parser.Open(dir.write("s.ass", "ScriptType: v4.00+\n" + lines).c_str()));
        return parser.GetMap().at(key);
    }
    // Opens the lines as they stand (event mode 3 unless they say otherwise).
    const ASS_SESSION_ST& openPlain(const std::string& lines, int key = 1)
    {
        EXPECT_TRUE(parser.Open(dir.write("s.ass", lines).c_str()));
        return parser.GetMap().at(key);
    }

    TempDir dir;
    xcAssParser parser;
};

TEST_F(AssDialogue, FieldsOfAnAssLine)
{
    const ASS_SESSION_ST& e =
        openAss("Dialogue: 3,0:00:01.50,0:00:03.00,Main,Bob,0010,0020,0030,Fade,Hello\n");
    EXPECT_EQ(e.layer, 3);
    EXPECT_EQ(e.start, 1500);
    EXPECT_EQ(e.end, 3000);
    EXPECT_STREQ(e.style.getData(), "Main");
    EXPECT_STREQ(e.name.getData(), "Bob");
    EXPECT_STREQ(e.effect.getData(), "Fade");
    EXPECT_STREQ(e.text.getData(), "\nHello");
}

TEST_F(AssDialogue, HoursMinutesSecondsAndHundredths)
{
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,1:02:03.04,10:00:00.99,S,,0,0,0,,x\n");
    EXPECT_EQ(e.start, 3723040);
    EXPECT_EQ(e.end, 36000990);
}

TEST_F(AssDialogue, ThreeFractionDigitsAreReadAsHundredths)
{
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,0:00:01.500,0:00:02.5,S,,0,0,0,,x\n");
    EXPECT_EQ(e.start, 6000);
    EXPECT_EQ(e.end, 2050);
}

TEST_F(AssDialogue, TimesWrapInThirtyTwoBits)
{
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,600:00:00.00,0:00:01.00,S,,0,0,0,,x\n");
    EXPECT_EQ(e.start, -2134967296LL);
}

TEST_F(AssDialogue, TextKeepsItsCommas)
{
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,0:00:01.00,0:00:02.00,S,,0,0,0,,one, two, three\n");
    EXPECT_STREQ(e.text.getData(), "\none, two, three");
    EXPECT_TRUE(e.effect.isEmpty());
}

TEST_F(AssDialogue, SsaMarkedFieldIsDroppedAndLayerIsZero)
{
    const ASS_SESSION_ST& e = openPlain("Dialogue: Marked=1,0:00:01.00,0:00:02.00,*Default,Ann,0,0,0,,Hi\n");
    EXPECT_EQ(e.layer, 0);
    EXPECT_EQ(e.start, 1000);
    EXPECT_STREQ(e.style.getData(), "Default");
    EXPECT_STREQ(e.name.getData(), "Ann");
    EXPECT_STREQ(e.text.getData(), "\nHi");
}

TEST_F(AssDialogue, SsaModeEqualsSearchRunsOverTheWholeRest)
{
    // No "=" before the text: everything up to the one in the text goes, and
    // every field is then read from "b" alone, which no read consumes.
    const ASS_SESSION_ST& e = openPlain("Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,a=b\n");
    EXPECT_EQ(e.layer, 0);
    EXPECT_EQ(e.start, -3661010);
    EXPECT_EQ(e.end, -3661010);
    EXPECT_STREQ(e.style.getData(), "b");
    EXPECT_STREQ(e.name.getData(), "b");
    EXPECT_TRUE(e.effect.isEmpty());
    EXPECT_STREQ(e.text.getData(), "\nb");
}

TEST_F(AssDialogue, SsaModeFieldsAreReadFromWhatFollowsTheEqualsSign)
{
    const ASS_SESSION_ST& e = openPlain(
        "Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,x=9,0:00:05.00,0:00:06.00,S,N,0,0,0,E,T\n");
    EXPECT_EQ(e.start, 5000);
    EXPECT_EQ(e.end, 6000);
    EXPECT_STREQ(e.style.getData(), "S");
    EXPECT_STREQ(e.name.getData(), "N");
    EXPECT_STREQ(e.effect.getData(), "E");
    EXPECT_STREQ(e.text.getData(), "\nT");
}

TEST_F(AssDialogue, EffectThatCopiesTheTextIsCleared)
{
    // No comma left for the Effect: the effect read hands out the text itself.
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,0:00:01.00,0:00:02.00,S,,0,0,0,Hello\n");
    EXPECT_TRUE(e.effect.isEmpty());
    EXPECT_STREQ(e.text.getData(), "\nHello");
}

TEST_F(AssDialogue, EffectEqualToTheStartOfTheTextIsCleared)
{
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,0:00:01.00,0:00:02.00,S,,0,0,0,Hel,Hello\n");
    EXPECT_TRUE(e.effect.isEmpty());
    EXPECT_STREQ(e.text.getData(), "\nHello");
}

TEST_F(AssDialogue, EffectIsClearedWhenTheTextIsEmpty)
{
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,0:00:01.00,0:00:02.00,S,,0,0,0,Scroll up,\n");
    EXPECT_TRUE(e.effect.isEmpty());
    EXPECT_STREQ(e.text.getData(), "\n");
}

TEST_F(AssDialogue, EffectDifferentFromTheTextStays)
{
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,0:00:01.00,0:00:02.00,S,,0,0,0,Karaoke,Hello\n");
    EXPECT_STREQ(e.effect.getData(), "Karaoke");
}

TEST_F(AssDialogue, LineEndingAfterTheMarginVCommaGivesEmptyEffectAndALoneLineFeed)
{
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,\n");
    EXPECT_TRUE(e.effect.isEmpty());
    EXPECT_EQ(stored(e.text), "\n");
    EXPECT_EQ(e.start, 1000);
    EXPECT_EQ(e.end, 2000);
}

TEST_F(AssDialogue, LineWithMissingFieldsReadsWhatIsThere)
{
    // After the start, nothing has a comma: every later read hands out "00"
    // without consuming it.
    const ASS_SESSION_ST& e = openAss("Dialogue: 4,0:00:01.00\n");
    EXPECT_EQ(e.layer, 4);
    EXPECT_EQ(e.start, 1000);
    EXPECT_EQ(e.end, 0);
    EXPECT_STREQ(e.style.getData(), "00");
    EXPECT_STREQ(e.name.getData(), "00");
    EXPECT_TRUE(e.effect.isEmpty());
    EXPECT_STREQ(e.text.getData(), "\n00");
}

TEST_F(AssDialogue, BareDialogueKeyGivesAnEntryOfMinusOneTimes)
{
    const ASS_SESSION_ST& e = openAss("Dialogue:\n");
    EXPECT_EQ(e.layer, -1);
    EXPECT_EQ(e.start, -3661010);
    EXPECT_TRUE(e.style.isEmpty());
    EXPECT_EQ(stored(e.text), "\n");
}

TEST_F(AssDialogue, OneLeadingStarOfTheStyleIsRemoved)
{
    EXPECT_STREQ(openAss("Dialogue: 0,0:00:01.00,0:00:02.00,*Default,,0,0,0,,x\n").style.getData(),
                 "Default");
    EXPECT_STREQ(openAss("Dialogue: 0,0:00:01.00,0:00:02.00,**Main,,0,0,0,,x\n").style.getData(), "*Main");
    EXPECT_STREQ(openAss("Dialogue: 0,0:00:01.00,0:00:02.00,***Main,,0,0,0,,x\n").style.getData(), "*Main");
    EXPECT_STREQ(openAss("Dialogue: 0,0:00:01.00,0:00:02.00,Ma*in,,0,0,0,,x\n").style.getData(), "Ma*in");
}

TEST_F(AssDialogue, DefaultStyleKeepsItsLetterCase)
{
    EXPECT_STREQ(openAss("Dialogue: 0,0:00:01.00,0:00:02.00,default,,0,0,0,,x\n").style.getData(), "default");
    EXPECT_STREQ(openAss("Dialogue: 0,0:00:01.00,0:00:02.00,DEFAULT,,0,0,0,,x\n").style.getData(), "DEFAULT");
}

TEST_F(AssDialogue, FieldsKeepTrailingSpacesAndHalfTheirLeadingOnes)
{
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,0:00:01.00,0:00:02.00,  Main ,  Bob  ,0,0,0,,x\n");
    EXPECT_STREQ(e.style.getData(), " Main ");
    EXPECT_STREQ(e.name.getData(), " Bob  ");
}

TEST_F(AssDialogue, StoredTextIsALineFeedThenTheCleanedCaption)
{
    const ASS_SESSION_ST& e =
        openAss("Dialogue: 0,0:00:01.00,0:00:02.00,S,,0,0,0,,{\\i1}one\\Ntwo\\Nthree{\\i0}\n");
    EXPECT_STREQ(e.text.getData(), "\none\ntwo\\Nthree");
}

TEST_F(AssDialogue, StoredTextCarriesTheStaleTailBehindItsZero)
{
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,0:00:01.00,0:00:02.00,S,,0,0,0,,{\\b1}Hello{\\b0}\n");
    EXPECT_STREQ(e.text.getData(), "\nHello");
    EXPECT_EQ(e.text.length(), 16);
    EXPECT_EQ(stored(e.text), std::string("\nHello\0\\b0}\0\\b0}", 16));
}

TEST_F(AssDialogue, TextThatWouldRepeatForeverIsStoredAtItsFirstRepeatedState)
{
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,0:00:01.00,0:00:02.00,S,,0,0,0,,{ab}{c\n");
    EXPECT_EQ(stored(e.text), std::string("\n{c\0}{c", 7));
}

TEST_F(AssDialogue, CarriageReturnStaysAtTheEndOfTheText)
{
    const ASS_SESSION_ST& e = openAss("Dialogue: 0,0:00:01.00,0:00:02.00,S,,0,0,0,,Hi\r\n");
    EXPECT_STREQ(e.text.getData(), "\nHi\r");
}

TEST_F(AssDialogue, FormatLineDoesNotChangeTheFieldOrder)
{
    const ASS_SESSION_ST& e =
        openAss("Format: Text, Effect, MarginV, MarginR, MarginL, Name, Style, End, Start, Layer\n"
                "Dialogue: 2,0:00:01.00,0:00:02.00,S,N,0,0,0,E,T\n");
    EXPECT_EQ(e.layer, 2);
    EXPECT_EQ(e.start, 1000);
    EXPECT_STREQ(e.text.getData(), "\nT");
}

} // namespace
