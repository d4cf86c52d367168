// The copies zemsubfix writes, asked through the library as a player asks it.
#include "FixSupport.h"
#include "support/TestFiles.h"

#include <QFile>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace {

struct Fixed
{
    zemsubfix::FixReport report;
    std::string copy;
};

class FixWriter : public ::testing::Test
{
protected:
    Fixed fix(const std::string& bytes, const std::string& name, const std::string& copyName = "copy.srt")
    {
        return Fixed{fixInto(dir.path(), bytes, name, copyName), dir.file(copyName)};
    }

    // The library shows each caption at its start, middle and end, and nothing in the gaps.
    void expectShows(const Fixed& fixed, const std::vector<Shown>& shown)
    {
        ASSERT_TRUE(fixed.report.readable) << fixed.report.error.toStdString();
        ASSERT_TRUE(fixed.report.copyOpens);
        const std::vector<Expected> questions = questionsFor(shown);
        const std::vector<QString> answers = askLibrary(fixed.copy, questions);
        ASSERT_EQ(answers.size(), questions.size());
        for (size_t i = 0; i < questions.size(); ++i) {
            EXPECT_EQ(answers[i].isNull(), questions[i].text.isNull()) << "at " << questions[i].time;
            EXPECT_EQ(answers[i], questions[i].text) << "at " << questions[i].time;
        }
    }

    TempDir dir;
};

std::string entry(int number, const std::string& times, const std::string& lines, const char* end = "\n")
{
    return std::to_string(number) + end + times + end + lines + end + end;
}

TEST_F(FixWriter, CrLfFileShowsEveryCaptionTheLastIncluded)
{
    const Fixed fixed = fix(entry(1, "00:00:01,000 --> 00:00:02,000", "One\r\nline two", "\r\n") +
                                entry(2, "00:00:03,000 --> 00:00:04,500", "Two", "\r\n"),
                            "crlf.srt");
    expectShows(fixed, {{1000, 2000, "One\nline two"}, {3000, 4500, "Two"}});
    EXPECT_EQ(fixed.report.exitCode(), 0);
    EXPECT_FALSE(fixed.report.copy.contains('\r'));
}

TEST_F(FixWriter, FileOfOneEntryShowsIt)
{
    const Fixed fixed = fix(entry(1, "00:00:01,000 --> 00:00:02,000", "Alone"), "one.srt");
    expectShows(fixed, {{1000, 2000, "Alone"}});
    EXPECT_EQ(fixed.report.exitCode(), 0);
}

TEST_F(FixWriter, CaptionsOfThreeAndMoreLinesShowInOrder)
{
    const Fixed fixed = fix(entry(1, "00:00:01,000 --> 00:00:02,000", "A\nB\nC") +
                                entry(2, "00:00:03,000 --> 00:00:04,000", "one") +
                                entry(3, "00:00:05,000 --> 00:00:06,000", "1\n2\n3\n4") +
                                entry(4, "00:00:07,000 --> 00:00:08,000", "p\nq") +
                                entry(5, "00:00:09,000 --> 00:00:10,000", "v\nw\nx\ny\nz"),
                            "lines.srt");
    expectShows(fixed, {{1000, 2000, "A\nB\nC"},
                        {3000, 4000, "one"},
                        {5000, 6000, "1\n2\n3\n4"},
                        {7000, 8000, "p\nq"},
                        {9000, 10000, "v\nw\nx\ny\nz"}});
    EXPECT_EQ(fixed.report.exitCode(), 0);
}

TEST_F(FixWriter, DigitLinesArrowsAndNumberingAsWritten)
{
    const Fixed fixed = fix(entry(7, "00:00:01,000 --> 00:00:02,000", "2001") +
                                entry(7, "00:00:03,000 --> 00:00:04,000", "a --> b\n42") +
                                entry(3, "00:00:05,000 -->00:00:06,000", "x"),
                            "numbers.srt");
    expectShows(fixed, {{1000, 2000, "2001"}, {3000, 4000, "a --> b\n42"}, {5000, 6000, "x"}});
    EXPECT_EQ(fixed.report.exitCode(), 0);
}

TEST_F(FixWriter, FractionsOfAnyLengthAndTimeZero)
{
    const Fixed fixed =
        fix(entry(1, "00:00:00,0 --> 00:00:01,5", "zero") + entry(2, "00:00:02,25 --> 00:00:03,1250", "two"),
            "fractions.srt");
    // The digits are milliseconds, however many there are, as FFmpeg reads them.
    expectShows(fixed, {{0, 1005, "zero"}, {2025, 4250, "two"}});
    EXPECT_EQ(fixed.report.exitCode(), 0);
}

// --- times the library cannot hold ---------------------------------------

std::vector<std::string> reasonCodes(const zemsubfix::CaptionOutcome& caption)
{
    std::vector<std::string> codes;
    for (const zemsubfix::Reason& reason : caption.reasons)
        codes.push_back(reason.code.toStdString());
    return codes;
}

const std::vector<std::string> kTimeRange = {"time-range"};

TEST_F(FixWriter, TimesPastThe32BitRangeAreCutAndReported)
{
    const Fixed fixed = fix(entry(1, "00:00:01,000 --> 00:00:02,000", "early") +
                                entry(2, "596:31:00,000 --> 597:00:00,000", "straddles") +
                                entry(3, "600:00:00,000 --> 600:00:01,000", "late") +
                                entry(4, "100000:00:00,000 --> 100000:00:01,000", "six digits"),
                            "late.srt");
    ASSERT_EQ(fixed.report.captions.size(), 4u);
    EXPECT_TRUE(fixed.report.captions[0].asWritten());
    EXPECT_EQ(fixed.report.captions[2].start, 2160000000LL);
    EXPECT_EQ(fixed.report.captions[3].start, 360000000000LL);
    for (int i : {1, 2, 3})
        EXPECT_EQ(reasonCodes(fixed.report.captions[size_t(i)]), kTimeRange) << "caption " << i + 1;
    // The part inside the range shows to its last millisecond; what lies wholly outside is left out.
    EXPECT_TRUE(fixed.report.captions[1].textShown);
    EXPECT_FALSE(fixed.report.captions[2].textShown);
    EXPECT_FALSE(fixed.report.captions[3].textShown);
    EXPECT_TRUE(fixed.report.copy.contains("596:31:00,000 --> 596:31:23,647\nstraddles"));
    EXPECT_FALSE(fixed.report.copy.contains("late"));
    EXPECT_FALSE(fixed.report.copy.contains("six digits"));
    expectShows(fixed, {{1000, 2000, "early"}, {2147460000LL, 2147483648LL, "straddles"}});
    EXPECT_EQ(fixed.report.exitCode(), 3);
}

TEST_F(FixWriter, ScriptCopyEndsAtTheLastWholeHundredthInRange)
{
    const Fixed fixed = fix(entry(1, "00:00:01,000 --> 00:00:02,000", "early") +
                                entry(2, "596:31:20,000 --> 596:31:23,647", "edge"),
                            "edge.srt", "copy.ass");
    ASSERT_EQ(fixed.report.captions.size(), 2u);
    EXPECT_EQ(reasonCodes(fixed.report.captions[1]), kTimeRange);
    EXPECT_TRUE(fixed.report.copy.contains("Dialogue: 0,596:31:20.00,596:31:23.64,Default,,0,0,0,,edge"));
    const std::vector<QString> answers =
        askLibrary(fixed.copy, {{2147480000LL, "edge"}, {2147483640LL, "edge"}});
    ASSERT_EQ(answers.size(), 2u);
    EXPECT_EQ(answers[0], QStringLiteral("edge"));
    EXPECT_EQ(answers[1], QStringLiteral("edge"));
}

TEST_F(FixWriter, NegativeStartIsCutAtZeroAndReported)
{
    // FFmpeg reads the hours as a signed number: this caption starts an hour before 0.
    const Fixed fixed = fix(entry(1, "-1:00:00,000 --> 00:00:02,000", "before") +
                                entry(2, "-1:00:00,000 --> -1:00:00,500", "never") +
                                entry(3, "00:00:03,000 --> 00:00:04,000", "after"),
                            "negative.srt");
    ASSERT_EQ(fixed.report.captions.size(), 3u);
    const auto caption = [&fixed](const char* text) {
        for (const zemsubfix::CaptionOutcome& c : fixed.report.captions) {
            if (c.text == QLatin1String(text))
                return c;
        }
        ADD_FAILURE() << "no caption " << text;
        return zemsubfix::CaptionOutcome();
    };
    EXPECT_EQ(caption("before").start, -3600000LL);
    EXPECT_EQ(reasonCodes(caption("before")), kTimeRange);
    EXPECT_TRUE(caption("before").textShown);
    EXPECT_EQ(caption("never").end, -3599500LL);
    EXPECT_EQ(reasonCodes(caption("never")), kTimeRange);
    EXPECT_FALSE(caption("never").textShown);
    EXPECT_TRUE(caption("after").asWritten());
    EXPECT_TRUE(fixed.report.copy.contains("00:00:00,000 --> 00:00:01,999\nbefore"));
    EXPECT_FALSE(fixed.report.copy.contains("never"));
    expectShows(fixed, {{0, 2000, "before"}, {3000, 4000, "after"}});
}

TEST_F(FixWriter, ReversedSpanLastsAsFfmpegGivesIt)
{
    // FFmpeg lets a caption that ends before it starts last until the next one.
    const Fixed fixed = fix(entry(1, "00:00:05,000 --> 00:00:04,000", "reversed") +
                                entry(2, "00:00:08,000 --> 00:00:09,000", "next"),
                            "reversed.srt");
    ASSERT_EQ(fixed.report.captions.size(), 2u);
    EXPECT_EQ(fixed.report.captions[0].start, 5000);
    EXPECT_EQ(fixed.report.captions[0].end, 8000);
    EXPECT_TRUE(fixed.report.captions[0].reasons.empty());
    expectShows(fixed, {{5000, 8000, "reversed"}, {8000, 9000, "next"}});
}

TEST_F(FixWriter, HoursOfManyDigitsFromTheFuzzerAreReportedNotMoved)
{
    // A fuzzer's file: time lines with hours and minutes of six and more digits.
    const std::string bytes = "1\n00:5555500:11,0200 --> 00:00:02,000\nA\nB\n"
                              "00:550:553051,0200 --> 00:00:02,000\nA\nB\n";
    const Fixed fixed = fix(bytes, "digits.srt");
    ASSERT_TRUE(fixed.report.readable) << fixed.report.error.toStdString();
    ASSERT_FALSE(fixed.report.captions.empty());
    for (const zemsubfix::CaptionOutcome& caption : fixed.report.captions) {
        const bool outside = caption.end > caption.start && (caption.start < 0 || caption.end > 2147483648LL);
        EXPECT_EQ(reasonCodes(caption), outside ? kTimeRange : std::vector<std::string>{})
            << caption.start << " " << caption.end;
    }
    // Whatever the copy holds, it is held as written: read back, its times lie in range.
    const zemsubfix::FixReport again =
        zemsubfix::fixBuffer(fixed.report.copy, QStringLiteral("again.srt"), {});
    ASSERT_TRUE(again.readable);
    for (const zemsubfix::CaptionOutcome& caption : again.captions)
        EXPECT_TRUE(caption.reasons.empty()) << caption.start << " " << caption.end;
}

TEST_F(FixWriter, CaptionOnScreenWithAnAnglePairIsReportedInAScriptCopy)
{
    // Joined on screen, the pair of the one takes the other with it in a script copy.
    const std::string script = "[Script Info]\nScriptType: v4.00+\n[Events]\n"
                               "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
                               "Dialogue: 0,0:00:01.00,0:00:03.00,Default,,0,0,0,,plain\n"
                               "Dialogue: 0,0:00:02.00,0:00:04.00,Default,,0,0,0,,x <y> z\n";
    const Fixed fixed = fix(script, "pairs.ass", "copy.ass");
    ASSERT_EQ(fixed.report.captions.size(), 2u);
    EXPECT_FALSE(fixed.report.captions[0].textShown);
    EXPECT_EQ(reasonCodes(fixed.report.captions[0]), std::vector<std::string>{"angle-pair"});
    EXPECT_EQ(reasonCodes(fixed.report.captions[1]), std::vector<std::string>{"angle-pair"});
    // A SubRip copy shows both.
    EXPECT_EQ(fix(script, "pairs.ass", "copy.srt").report.exitCode(), 0);
}

TEST_F(FixWriter, AdjacentCaptionsSwitchAtTheExactMillisecond)
{
    const Fixed fixed = fix(entry(1, "00:00:01,000 --> 00:00:02,000", "first") +
                                entry(2, "00:00:02,000 --> 00:00:03,000", "second"),
                            "adjacent.srt");
    const std::vector<QString> answers =
        askLibrary(fixed.copy, {{1999, "first"}, {2000, "second"}, {2999, "second"}, {3000, QString()}});
    ASSERT_EQ(answers.size(), 4u);
    EXPECT_EQ(answers[0], QStringLiteral("first"));
    EXPECT_EQ(answers[1], QStringLiteral("second"));
    EXPECT_EQ(answers[2], QStringLiteral("second"));
    EXPECT_TRUE(answers[3].isNull());
}

TEST_F(FixWriter, CaptionsOnScreenTogetherAreJoined)
{
    const Fixed fixed = fix(entry(1, "00:00:01,000 --> 00:00:03,000", "under") +
                                entry(2, "00:00:02,000 --> 00:00:04,000", "over"),
                            "overlap.srt");
    expectShows(fixed, {{1000, 2000, "under"}, {2000, 3000, "over\nunder"}, {3000, 4000, "over"}});
    EXPECT_EQ(fixed.report.exitCode(), 0);
}

TEST_F(FixWriter, RepeatAfterAGapIsDrawnAgain)
{
    const Fixed fixed = fix(entry(1, "00:00:01,000 --> 00:00:02,000", "again") +
                                entry(2, "00:00:03,000 --> 00:00:04,000", "again") +
                                entry(3, "00:00:05,000 --> 00:00:06,000", "again"),
                            "repeat.srt");
    expectShows(fixed, {{1000, 2000, "again"}, {3000, 4000, "again"}, {5000, 6000, "again"}});
    EXPECT_EQ(fixed.report.exitCode(), 0);
}

TEST_F(FixWriter, MarkupIsRemovedAndItsStylesReported)
{
    const Fixed fixed = fix(entry(1, "00:00:01,000 --> 00:00:02,000", "<i>Hi</i> {\\an8}there") +
                                entry(2, "00:00:03,000 --> 00:00:04,000", "plain 3 > 2 < 4 x"),
                            "markup.srt");
    expectShows(fixed, {{1000, 2000, "Hi there"}, {3000, 4000, "plain 3 > 2 < 4 x"}});
    ASSERT_EQ(fixed.report.captions.size(), 2u);
    EXPECT_TRUE(fixed.report.captions[0].textShown);
    ASSERT_EQ(fixed.report.captions[0].reasons.size(), 1u);
    EXPECT_EQ(fixed.report.captions[0].reasons[0].code, QStringLiteral("positions-styles"));
    EXPECT_TRUE(fixed.report.captions[1].asWritten());
    EXPECT_EQ(fixed.report.exitCode(), 3);
}

TEST_F(FixWriter, Utf16FileBecomesNarrowText)
{
    const Fixed fixed = fix(utf16le(entry(1, "00:00:01,000 --> 00:00:02,000", "wide") +
                                    entry(2, "00:00:03,000 --> 00:00:04,000", "text")),
                            "wide.srt");
    expectShows(fixed, {{1000, 2000, "wide"}, {3000, 4000, "text"}});
    EXPECT_NE(static_cast<unsigned char>(fixed.report.copy[0]), 0xFF);
    EXPECT_EQ(fixed.report.exitCode(), 0);
}

TEST_F(FixWriter, ScriptCopyShowsEveryLineAndTheLastDialogue)
{
    const std::string script =
        "[Script Info]\n[Events]\n"
        "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
        "Dialogue: 0,0:00:00.00,0:00:01.00,Default,,0,0,0,,{\\b1}a\\Nb\\Nc\n"
        "Dialogue: 0,0:00:02.00,0:00:03.00,Default,,0,0,0,,x = <y>\\N\\Nz\n"
        "Style: Default,Arial,&h20,&H00FFFFFF\n";
    const Fixed srt = fix(script, "moved.ass", "copy.srt");
    expectShows(srt, {{0, 1000, "a\nb\nc"}, {2000, 3000, "x = <y>\n\nz"}});
    EXPECT_EQ(srt.report.captions[1].reasons.size(), 0u);

    const Fixed ass = fix(script, "moved.ass", "copy.ass");
    ASSERT_TRUE(ass.report.copyOpens);
    EXPECT_TRUE(ass.report.copy.contains("ScriptType: v4.00+"));
    EXPECT_FALSE(ass.report.copy.toLower().contains("&h"));
    const std::vector<QString> answers =
        askLibrary(ass.copy, {{1, "a\nb\nc"}, {999, "a\nb\nc"}, {2500, QString()}});
    ASSERT_EQ(answers.size(), 3u);
    EXPECT_EQ(answers[0], QStringLiteral("a\nb\nc"));
    EXPECT_EQ(answers[1], QStringLiteral("a\nb\nc"));
    // Time 0 and text between "<" and ">" are what a script cannot show.
    std::vector<QString> codes;
    for (const zemsubfix::Reason& reason : ass.report.captions[0].reasons)
        codes.push_back(reason.code);
    EXPECT_NE(std::find(codes.begin(), codes.end(), QStringLiteral("time-zero")), codes.end());
    EXPECT_FALSE(ass.report.captions[1].textShown);
    EXPECT_EQ(ass.report.captions[1].reasons.back().code, QStringLiteral("angle-pair"));
    EXPECT_EQ(ass.report.exitCode(), 3);
}

TEST_F(FixWriter, ScriptWhoseLastLineHasNoLineFeedShowsItsLastTwoCaptions)
{
    // SubStation Alpha's own form: Marked fields, a Sound line among the Dialogue
    // lines, and no line feed after the last Dialogue line, which the reader drops.
    const std::string script = substationScript("");
    // The original: "Four" is not stored, and "Three", left last, is never answered.
    const std::vector<QString> before =
        askLibrary(dir.write("unended.ssa", script), {{3500, "Two"}, {5500, QString()}, {7500, QString()}});
    ASSERT_EQ(before.size(), 3u);
    EXPECT_EQ(before[0], QStringLiteral("Two"));
    EXPECT_TRUE(before[1].isEmpty());
    EXPECT_TRUE(before[2].isEmpty());

    const Fixed fixed = fix(script, "unended.ssa", "copy.ssa");
    ASSERT_TRUE(fixed.report.readable) << fixed.report.error.toStdString();
    ASSERT_TRUE(fixed.report.copyOpens);
    ASSERT_EQ(fixed.report.captions.size(), 4u);
    for (const zemsubfix::CaptionOutcome& caption : fixed.report.captions) {
        EXPECT_TRUE(caption.textShown) << caption.text.toStdString();
        EXPECT_TRUE(caption.reasons.empty()) << caption.text.toStdString();
    }
    EXPECT_TRUE(fixed.report.copy.endsWith('\n'));
    const std::vector<QString> answers = askLibrary(
        fixed.copy,
        {{1500, "One"}, {3500, "Two"}, {5010, "Three"}, {5990, "Three"}, {7010, "Four"}, {7990, "Four"}});
    const std::vector<QString> expected = {"One", "Two", "Three", "Three", "Four", "Four"};
    EXPECT_EQ(answers, expected);
    EXPECT_EQ(fixed.report.exitCode(), 0);
}

TEST_F(FixWriter, DrawingAndKaraokeAreReported)
{
    const std::string script =
        "[Script Info]\nScriptType: v4.00+\n[Events]\n"
        "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
        "Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,{\\p1}m 0 0 l 10 0 10 10{\\p0}\n"
        "Dialogue: 0,0:00:03.00,0:00:04.00,Default,,0,0,0,,{\\k20}ka{\\k30}ra\n";
    const Fixed fixed = fix(script, "effects.ass");
    ASSERT_EQ(fixed.report.captions.size(), 2u);
    ASSERT_FALSE(fixed.report.captions[0].reasons.empty());
    EXPECT_EQ(fixed.report.captions[0].reasons[0].code, QStringLiteral("drawing"));
    ASSERT_FALSE(fixed.report.captions[1].reasons.empty());
    EXPECT_EQ(fixed.report.captions[1].reasons[0].code, QStringLiteral("karaoke"));
    expectShows(fixed, {{3000, 4000, "kara"}});
    EXPECT_EQ(fixed.report.exitCode(), 3);
}

TEST_F(FixWriter, ForcedEncodingReadsTheText)
{
    zemsubfix::FixOptions options;
    options.encoding = QStringLiteral("WINDOWS-1252");
    const zemsubfix::FixReport report =
        zemsubfix::fixBuffer(QByteArray(entry(1, "00:00:01,000 --> 00:00:02,000", "\x80 5").c_str()),
                             QStringLiteral("euro.srt"), options);
    ASSERT_TRUE(report.readable);
    ASSERT_EQ(report.captions.size(), 1u);
    EXPECT_EQ(report.captions[0].text, QString::fromUtf8("\xe2\x82\xac 5"));
    options.encoding = QStringLiteral("NO-SUCH-ENCODING");
    EXPECT_FALSE(zemsubfix::fixBuffer("x", QStringLiteral("a.srt"), options).readable);
}

TEST_F(FixWriter, UnreadableInputWritesNothing)
{
    const Fixed fixed = fix("just some words\n", "notes.txt");
    EXPECT_FALSE(fixed.report.readable);
    EXPECT_EQ(fixed.report.exitCode(), 1);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(fixed.copy)));
}

TEST_F(FixWriter, CopyBeyondTheLineLimitIsReported)
{
    std::string ordered;
    for (int i = 0; i < 5000; ++i) {
        const long long start = 1000LL * i;
        const auto clock = [](long long ms) {
            char buffer[32];
            std::snprintf(buffer, sizeof buffer, "%02lld:%02lld:%02lld,%03lld", ms / 3600000, ms / 60000 % 60,
                          ms / 1000 % 60, ms % 1000);
            return std::string(buffer);
        };
        ordered += entry(i + 1, clock(start) + " --> " + clock(start + 500), "a\nb\nc" + std::to_string(i));
    }
    const Fixed fixed = fix(ordered, "long.srt");
    ASSERT_TRUE(fixed.report.readable);
    EXPECT_GT(fixed.report.copyLines, 20000);
    EXPECT_FALSE(fixed.report.copyOpens);
    ASSERT_FALSE(fixed.report.captions.empty());
    EXPECT_EQ(fixed.report.captions[0].reasons[0].code, QStringLiteral("too-long"));
    EXPECT_EQ(fixed.report.exitCode(), 3);
}

TEST_F(FixWriter, AGivenCopyThatTheWideScriptReaderThrowsOnIsNotOpened)
{
    const std::string original =
        dir.write("one.ass", "[Script Info]\nScriptType: v4.00+\n\n[Events]\n"
                             "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
                             "Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,one\n");
    // Behind FF FE, a PlayResX without a value: the wide script reader throws the int 1 while it opens.
    const std::string copy = dir.write("throw.ass", "\xFF\xFE[Script Info]\nPlayResX:\n");
    zemsubfix::FixOptions options;
    options.format = zemsubfix::CopyFormat::Ass;
    const zemsubfix::FixReport report =
        zemsubfix::checkCopyFile(QString::fromStdString(original), QString::fromStdString(copy), options);
    ASSERT_TRUE(report.readable) << report.error.toStdString();
    EXPECT_FALSE(report.copyOpens);
    ASSERT_EQ(report.captions.size(), 1u);
    EXPECT_FALSE(report.captions[0].textShown);
    EXPECT_EQ(report.exitCode(), 3);
}

} // namespace
