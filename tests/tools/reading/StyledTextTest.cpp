// A caption's text as a player draws it: italic runs and place, from the event's Text field.
#include "reading/StyledText.h"

#include <gtest/gtest.h>

namespace {

using namespace zemsub::tool;

TEST(StyledText, ItalicRunsFollowTheOverrideTags)
{
    const StyledText styled = styledText(QStringLiteral("Plain {\\i1}slanted{\\i0} plain"));
    ASSERT_EQ(styled.runs.size(), 3u);
    EXPECT_EQ(styled.runs[0].text, "Plain ");
    EXPECT_FALSE(styled.runs[0].italic);
    EXPECT_EQ(styled.runs[1].text, "slanted");
    EXPECT_TRUE(styled.runs[1].italic);
    EXPECT_EQ(styled.runs[2].text, " plain");
    EXPECT_EQ(styled.alignment, 2);
}

TEST(StyledText, LineBreaksAndOtherTagsAreShownAsAPlayerShowsThem)
{
    const StyledText styled = styledText(QStringLiteral("{\\i1\\b1\\c&H00FF00&}One\\Ntwo"));
    ASSERT_EQ(styled.runs.size(), 1u);
    EXPECT_EQ(styled.runs[0].text, "One\ntwo");
    EXPECT_TRUE(styled.runs[0].italic);
    // \i alone ends italics.
    EXPECT_FALSE(styledText(QStringLiteral("{\\i1}a{\\i}b")).runs.back().italic);
}

TEST(StyledText, PlacesFromAnAndTheLegacyA)
{
    EXPECT_EQ(styledText(QStringLiteral("{\\an8}Top")).alignment, 8);
    EXPECT_EQ(styledText(QStringLiteral("{\\an7}Top left")).alignment, 7);
    EXPECT_EQ(styledText(QStringLiteral("{\\a6}Top")).alignment, 8);
    EXPECT_EQ(styledText(QStringLiteral("{\\a10}Middle")).alignment, 5);
    EXPECT_EQ(styledText(QStringLiteral("{\\a3}Right")).alignment, 3);
    EXPECT_EQ(styledText(QStringLiteral("{\\an0}Nowhere")).alignment, 2);
}

TEST(StyledText, MarkedTextClosesItalicsAtEachLineEnd)
{
    const std::vector<TextRun> runs{{"Up ", false}, {"and\naway", true}};
    EXPECT_EQ(markedText(runs, "<i>", "</i>"), "Up <i>and</i>\n<i>away</i>");
    EXPECT_EQ(markedText(runs, "{\\i1}", "{\\i0}"), "Up {\\i1}and{\\i0}\n{\\i1}away{\\i0}");
    EXPECT_EQ(plainText(runs), "Up and\naway");
}

} // namespace
