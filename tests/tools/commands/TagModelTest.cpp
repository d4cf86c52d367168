// How lint works out what the script reader's tag removal leaves, to name the cause.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "zemsub/lint/TagModel.h"

#    include <gtest/gtest.h>

using namespace zemsub::tool;

namespace {

TEST(ZemsubTagModel, CompleteBlocksGo)
{
    const TagPassResult result = modelTagPasses("{\\b1}Hello{\\b0}");
    EXPECT_EQ(result.visible, "Hello");
    EXPECT_FALSE(result.repeated);
    EXPECT_FALSE(result.usedOldTail);
}

TEST(ZemsubTagModel, TheFirstClosingBraceEndsABlock)
{
    EXPECT_EQ(modelTagPasses("{a{b}c}x").visible, "c}x");
    EXPECT_EQ(modelTagPasses("a < b > c").visible, "a  c");
    EXPECT_EQ(modelTagPasses("1 < 2").visible, "1 < 2");
}

TEST(ZemsubTagModel, AnUnclosedBraceAfterARemovedBlockStopsAtARepeatedState)
{
    const TagPassResult result = modelTagPasses("{ab}{c");
    EXPECT_TRUE(result.repeated);
    EXPECT_TRUE(result.usedOldTail);
    EXPECT_EQ(result.visible, "{c");
}

TEST(ZemsubTagModel, TheOldTailCanComeBackIntoTheText)
{
    const TagPassResult result = modelTagPasses("{abcd}X{Y");
    EXPECT_FALSE(result.repeated);
    EXPECT_TRUE(result.usedOldTail);
    EXPECT_EQ(result.visible, "XXX{Y");
    EXPECT_EQ(removeCompleteBlocks("{abcd}X{Y"), "X{Y");
}

TEST(ZemsubTagModel, BracesInTheOldTailThatPairWithNothingChangeNothing)
{
    const TagPassResult result = modelTagPasses("{a}{b}c");
    EXPECT_EQ(result.visible, "c");
    EXPECT_FALSE(result.repeated);
}

TEST(ZemsubTagModel, OnlyTheFirstHardBreakTurnsIntoALineFeed)
{
    const TagPassResult one = modelTagPasses("a\\Nb\\Nc");
    EXPECT_EQ(one.visible, "a\nb\\Nc");
    EXPECT_EQ(one.breaksLeft, 1);
    EXPECT_EQ(modelTagPasses("\\N\\Nx\\Ny").visible, "\n\nx\\Ny");
    EXPECT_EQ(modelTagPasses("one\\ntwo").visible, "one\\ntwo");
}

} // namespace
#endif
