// The moments fix's check and lint ask the library at: each caption's first
// millisecond of its own, middle and last; each gap's first millisecond and middle.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "playback/CaptionProbes.h"

#    include <gtest/gtest.h>

#    include <map>
#    include <utility>

using namespace zemsub::tool;

namespace {

using Planned = std::vector<std::pair<long long, ProbeKind>>;

Planned planned(const std::vector<TimeSpan>& captions, const std::vector<TimeSpan>& screen)
{
    Planned out;
    for (const ProbeTime& probe : planProbes(captions, std::vector<bool>(captions.size(), true), screen))
        out.push_back({probe.time, probe.kind});
    return out;
}

} // namespace

TEST(CaptionProbes, ACaptionIsAskedOnePastItsStartInItsMiddleAndAtItsLastMillisecond)
{
    const std::vector<ProbeTime> probes = planProbes({{1000, 2000}}, {true}, {{1000, 2000}});
    ASSERT_EQ(probes.size(), 3u);
    EXPECT_EQ(probes[0].time, 1001);
    EXPECT_EQ(probes[0].kind, ProbeKind::Start);
    EXPECT_EQ(probes[1].time, 1500);
    EXPECT_EQ(probes[1].kind, ProbeKind::Middle);
    EXPECT_EQ(probes[2].time, 1999);
    EXPECT_EQ(probes[2].kind, ProbeKind::End);
    for (const ProbeTime& probe : probes)
        EXPECT_EQ(probe.caption, 0);
}

TEST(CaptionProbes, ACaptionStartingAtZeroIsAskedAtZero)
{
    // A player's first frame is at 0, and nothing ends there.
    const Planned probes = planned({{0, 1000}}, {{0, 1000}});
    ASSERT_EQ(probes.size(), 3u);
    EXPECT_EQ(probes[0], std::make_pair(0LL, ProbeKind::Start));
    EXPECT_EQ(probes[1], std::make_pair(500LL, ProbeKind::Middle));
}

TEST(CaptionProbes, BackToBackCaptionsAreEachAskedWhereTheyAloneAreDue)
{
    // The first caption's span, as the library reads it, holds 2000 too.
    const Planned probes = planned({{1000, 2000}, {2000, 3000}}, {{1000, 2000}, {2000, 3000}});
    const Planned expected = {{1001, ProbeKind::Start}, {1500, ProbeKind::Middle}, {1999, ProbeKind::End},
                              {2001, ProbeKind::Start}, {2500, ProbeKind::Middle}, {2999, ProbeKind::End}};
    EXPECT_EQ(probes, expected);
}

TEST(CaptionProbes, ACaptionShorterThanThreeMillisecondsIsAskedAtItsStartAlone)
{
    EXPECT_EQ(planned({{5000, 5002}}, {}), (Planned{{5000, ProbeKind::Start}}));
    EXPECT_EQ(planned({{5000, 5001}}, {}), (Planned{{5000, ProbeKind::Start}}));
    EXPECT_EQ(planned({{5000, 5003}}, {}).size(), 3u);
}

TEST(CaptionProbes, CaptionsWithNothingToDrawOrNoTimeAreNotAsked)
{
    EXPECT_TRUE(planned({{3000, 3000}, {4000, 3500}}, {}).empty());
    const std::vector<ProbeTime> probes = planProbes({{1000, 2000}, {3000, 4000}}, {false, true}, {});
    ASSERT_EQ(probes.size(), 3u);
    for (const ProbeTime& probe : probes)
        EXPECT_EQ(probe.caption, 1);
}

TEST(CaptionProbes, EveryGapIsAskedAtItsFirstMillisecondAndItsMiddleHoweverShort)
{
    const Planned probes = planned({}, {{1000, 2000}, {2010, 3000}, {3001, 4000}, {4000, 5000}});
    // 10 ms between the first two; 1 ms between the next, asked once; none between touching ones.
    const Planned expected = {{2000, ProbeKind::GapStart}, {2005, ProbeKind::Gap}, {3000, ProbeKind::Gap}};
    EXPECT_EQ(probes, expected);
}

TEST(CaptionProbes, TheGapsAreThoseOfTheScreenWhateverOrderAndOverlapItsSpansHave)
{
    // Two spans overlapping make one stretch; nothing is asked before the first or after the last.
    const Planned probes = planned({}, {{6000, 7000}, {1000, 3000}, {2000, 4000}});
    const Planned expected = {{4000, ProbeKind::GapStart}, {5000, ProbeKind::Gap}};
    EXPECT_EQ(probes, expected);
}

TEST(CaptionProbes, ProbesComeInTimeOrderACaptionsBeforeAGapsAtTheSameTime)
{
    // The screen may differ from the captions (a player's screen of picture displays).
    const std::vector<ProbeTime> probes =
        planProbes({{3000, 4000}, {1000, 2000}}, {true, true}, {{1000, 1999}, {2001, 4000}});
    for (size_t i = 1; i < probes.size(); ++i)
        EXPECT_LE(probes[i - 1].time, probes[i].time);
    ASSERT_EQ(probes[0].caption, 1);
    ASSERT_GE(probes.size(), 5u);
    // 1999: the second caption's last millisecond, then the gap's first.
    EXPECT_EQ(probes[2].time, 1999);
    EXPECT_EQ(probes[2].kind, ProbeKind::End);
    EXPECT_EQ(probes[3].time, 1999);
    EXPECT_EQ(probes[3].kind, ProbeKind::GapStart);
}

TEST(CaptionProbes, AnswersGoThroughTheCaptionImage)
{
    const std::map<long long, QString> library = {{1, "\nhello"}, {2, QString()}, {3, "\nhello"}, {4, "\nbye"}};
    const std::vector<ProbeTime> probes = {
        {1, ProbeKind::Start, 0}, {2, ProbeKind::Gap, -1}, {3, ProbeKind::Start, 1}, {4, ProbeKind::Start, 2}};
    std::vector<long long> asked;
    const std::vector<ProbeAnswer> answers = askInOrder(probes, [&](long long ms) {
        asked.push_back(ms);
        return library.at(ms);
    });
    EXPECT_EQ(asked, (std::vector<long long>{1, 2, 3, 4}));
    ASSERT_EQ(answers.size(), 4u);
    EXPECT_EQ(answers[0].drawn, QStringLiteral("\nhello"));
    EXPECT_TRUE(answers[1].drawn.isNull());
    // The same text after a cleared image is answered but not drawn again.
    EXPECT_EQ(answers[2].answer, QStringLiteral("\nhello"));
    EXPECT_TRUE(answers[2].drawn.isNull());
    EXPECT_EQ(answers[3].drawn, QStringLiteral("\nbye"));
}

TEST(CaptionProbes, SameCaptionLooksPastBlanksAtLineEndsOnly)
{
    EXPECT_TRUE(sameCaption(QStringLiteral(" one\t\ntwo "), QStringLiteral("one\ntwo")));
    EXPECT_FALSE(sameCaption(QStringLiteral("one two"), QStringLiteral("onetwo")));
    EXPECT_FALSE(sameCaption(QStringLiteral("one\ntwo"), QStringLiteral("one two")));
    EXPECT_FALSE(sameCaption(QStringLiteral("one\r"), QStringLiteral("one")));
    EXPECT_FALSE(sameCaption(QStringLiteral("one\n"), QStringLiteral("one")));
}

#endif
