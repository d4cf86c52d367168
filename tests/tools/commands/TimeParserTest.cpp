// The time parser behind "zemsub at", "render" and "sheet --every".
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "zemsub/commands/TimeParser.h"

#    include <gtest/gtest.h>

using zemsub::tool::formatTime;
using zemsub::tool::parseTime;

namespace {

TEST(ZemsubTimeParser, PlainNumbersAreMilliseconds)
{
    EXPECT_EQ(parseTime("0"), 0);
    EXPECT_EQ(parseTime("1500"), 1500);
    EXPECT_EQ(parseTime(" 42 "), 42);
    EXPECT_EQ(parseTime("-1"), -1);
    EXPECT_EQ(parseTime("+7"), 7);
}

TEST(ZemsubTimeParser, SubRipClockWithMilliseconds)
{
    EXPECT_EQ(parseTime("00:00:01,500"), 1500);
    EXPECT_EQ(parseTime("01:02:03,004"), 3723004);
    EXPECT_EQ(parseTime("123:00:00,000"), 123LL * 3600000);
}

TEST(ZemsubTimeParser, ScriptClockWithHundredths)
{
    EXPECT_EQ(parseTime("0:00:01.50"), 1500);
    EXPECT_EQ(parseTime("1:02:03.04"), 3723040);
}

TEST(ZemsubTimeParser, FractionIsADecimalFractionOfASecond)
{
    EXPECT_EQ(parseTime("00:00:01,5"), 1500);
    EXPECT_EQ(parseTime("00:00:01.05"), 1050);
    EXPECT_EQ(parseTime("00:00:01,005"), 1005);
}

TEST(ZemsubTimeParser, MinutesAndSecondsWithoutHours)
{
    EXPECT_EQ(parseTime("01:30"), 90000);
    EXPECT_EQ(parseTime("90:00"), 5400000);
    EXPECT_EQ(parseTime("2:03.5"), 123500);
}

TEST(ZemsubTimeParser, RejectsWhatIsNotATime)
{
    for (const char* text : {"", " ", "soon", "1.5", "1,5", "1:2:3:4", "00:60:00", "00:00:60",
                             "00:00:01,5000", "-00:00:01", "00:00:01,", "12345678901234567890"})
        EXPECT_FALSE(parseTime(text).has_value()) << text;
}

TEST(ZemsubTimeParser, FormatsAsSubRipClock)
{
    EXPECT_EQ(formatTime(0), "00:00:00,000");
    EXPECT_EQ(formatTime(3723004), "01:02:03,004");
    EXPECT_EQ(formatTime(-1), "-00:00:00,001");
    EXPECT_EQ(formatTime(360000000), "100:00:00,000");
}

TEST(ZemsubTimeParser, FormattedTimesReadBack)
{
    for (long long ms : {0LL, 1LL, 999LL, 59999LL, 3599999LL, 86400000LL})
        EXPECT_EQ(parseTime(formatTime(ms)), ms);
}

} // namespace
#endif
