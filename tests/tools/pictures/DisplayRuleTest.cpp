// What a picture stream shows when: one display at a time, each until its own
// end or the next display, whichever is first.
#include "pictures/DisplayRule.h"

#include <gtest/gtest.h>

namespace {

using namespace zemsub::tool;

DecodedDisplay shown(long long start, long long ownEnd = -1)
{
    DecodedDisplay display;
    display.start = start;
    display.ownEnd = ownEnd;
    return display;
}

DecodedDisplay cleared(long long at)
{
    DecodedDisplay display;
    display.start = at;
    display.empty = true;
    return display;
}

DecodedDisplay repeated(long long start, long long ownEnd = -1)
{
    DecodedDisplay display = shown(start, ownEnd);
    display.repeats = true;
    return display;
}

TEST(DisplayRule, DisplaysWithoutEndsLastUntilReplacedNeverStacked)
{
    // Every subpicture stopping at the format's maximum, as converters write it.
    const std::vector<DisplaySpan> spans =
        displaySpans({shown(1000), shown(4000), shown(9000)}, TrackEnd{-1, 60000});
    ASSERT_EQ(spans.size(), 3u);
    EXPECT_EQ(spans[0].start, 1000);
    EXPECT_EQ(spans[0].end, 4000);
    EXPECT_EQ(spans[0].ended, DisplayEnd::Replaced);
    EXPECT_EQ(spans[1].end, 9000);
    EXPECT_EQ(spans[2].start, 9000);
    EXPECT_EQ(spans[2].end, 60000);
    EXPECT_EQ(spans[2].ended, DisplayEnd::VideoEnd);
}

TEST(DisplayRule, AnEndPastTheNextStartGivesWayToIt)
{
    // The next subpicture starts 6 ms before this one stops.
    const std::vector<DisplaySpan> spans = displaySpans({shown(1000, 3006), shown(3000, 5000)}, {});
    ASSERT_EQ(spans.size(), 2u);
    EXPECT_EQ(spans[0].end, 3000);
    EXPECT_EQ(spans[0].ended, DisplayEnd::Replaced);
    EXPECT_EQ(spans[1].start, 3000);
    EXPECT_EQ(spans[1].end, 5000);
    EXPECT_EQ(spans[1].ended, DisplayEnd::Own);
}

TEST(DisplayRule, AnOwnEndBeforeTheNextStartEndsIt)
{
    const std::vector<DisplaySpan> spans = displaySpans({shown(1000, 2500), shown(3000, 4000)}, {});
    ASSERT_EQ(spans.size(), 2u);
    EXPECT_EQ(spans[0].end, 2500);
    EXPECT_EQ(spans[0].ended, DisplayEnd::Own);
    EXPECT_EQ(spans[1].first, 1);
}

TEST(DisplayRule, AnEmptyDisplayClearsAndShowsNothing)
{
    // A page time-out of 30 s, cleared by an empty page after 2 s.
    const std::vector<DisplaySpan> spans =
        displaySpans({shown(1000, 31000), cleared(3000), shown(5000, 35000), cleared(8000)}, {});
    ASSERT_EQ(spans.size(), 2u);
    EXPECT_EQ(spans[0].end, 3000);
    EXPECT_EQ(spans[0].ended, DisplayEnd::Cleared);
    EXPECT_EQ(spans[1].start, 5000);
    EXPECT_EQ(spans[1].first, 2);
    EXPECT_EQ(spans[1].end, 8000);
}

TEST(DisplayRule, ARepeatGoesOnWithTheDisplayOnScreen)
{
    // A broadcast sends the page again every few seconds.
    const std::vector<DisplaySpan> spans =
        displaySpans({shown(1000, 31000), repeated(3000, 33000), repeated(5000, 35000), cleared(6000)}, {});
    ASSERT_EQ(spans.size(), 1u);
    EXPECT_EQ(spans[0].start, 1000);
    EXPECT_EQ(spans[0].end, 6000);
}

TEST(DisplayRule, ARepeatAfterTheDisplayEndedIsShownAgain)
{
    const std::vector<DisplaySpan> spans = displaySpans({shown(1000, 2000), repeated(5000, 6000)}, {});
    ASSERT_EQ(spans.size(), 2u);
    EXPECT_EQ(spans[1].start, 5000);
    EXPECT_EQ(spans[1].end, 6000);
    EXPECT_EQ(spans[1].first, 1);
}

TEST(DisplayRule, TheLastDisplayEndsWithTheStreamThenTheVideoThenItsReadingTime)
{
    EXPECT_EQ(displaySpans({shown(1000)}, TrackEnd{9000, 20000}).at(0).ended, DisplayEnd::StreamEnd);
    EXPECT_EQ(displaySpans({shown(1000)}, TrackEnd{9000, 20000}).at(0).end, 9000);
    // A stated end at or before the display's start says nothing of it.
    EXPECT_EQ(displaySpans({shown(1000)}, TrackEnd{1000, 20000}).at(0).ended, DisplayEnd::VideoEnd);
    const DisplaySpan alone = displaySpans({shown(1000)}, TrackEnd{}).at(0);
    EXPECT_EQ(alone.ended, DisplayEnd::ReadingTime);
    EXPECT_GT(alone.end, alone.start);
}

TEST(DisplayRule, ReadingTimeGrowsWithTheTextUpToSevenSeconds)
{
    EXPECT_EQ(readingTimeEnd(1000, 0), 2000);
    EXPECT_EQ(readingTimeEnd(1000, 40), 4000);
    EXPECT_EQ(readingTimeEnd(1000, 1000), 8000);
}

TEST(DisplayRule, DisplaysOfNoLengthAreLeftOut)
{
    const std::vector<DisplaySpan> spans = displaySpans({shown(1000), shown(1000), shown(2000, 3000)}, {});
    ASSERT_EQ(spans.size(), 2u);
    EXPECT_EQ(spans[0].first, 1);
    EXPECT_EQ(spans[0].start, 1000);
    EXPECT_EQ(spans[0].end, 2000);
}

} // namespace
