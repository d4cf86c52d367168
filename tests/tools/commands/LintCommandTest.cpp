// zemsub lint: each library behaviour that makes a caption show differently is
// named; each is triggered by a file written for it, and a clean file names none.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "support/TestFiles.h"

#    include <gtest/gtest.h>
#    include <nlohmann/json.hpp>

#    include <string>

namespace {

struct Lint
{
    int exitCode = -1;
    nlohmann::json report;
    QString err;
};

Lint lint(const QString& path)
{
    const RunResult result = runZemsub({"lint", "--json", path});
    Lint lint;
    lint.exitCode = result.exitCode;
    lint.err = result.err;
    if (result.exitCode == 0 || result.exitCode == 3)
        lint.report = nlohmann::json::parse(result.out.toStdString());
    return lint;
}

Lint lintText(const std::string& name, const std::string& bytes)
{
    static TempDir dir;
    return lint(qs(dir.write(name, bytes)));
}

std::vector<int> flaggedCaptions(const Lint& lint)
{
    std::vector<int> captions;
    for (const nlohmann::json& finding : lint.report["findings"])
        captions.push_back(finding["caption"].get<int>());
    return captions;
}

QStringList causesOf(const Lint& lint, int caption)
{
    QStringList codes;
    for (const nlohmann::json& finding : lint.report["findings"]) {
        if (finding["caption"] == caption) {
            for (const nlohmann::json& cause : finding["causes"])
                codes << qs(cause["code"]);
        }
    }
    return codes;
}

std::string block(int number, const std::string& times, const std::string& text)
{
    return std::to_string(number) + "\n" + times + "\n" + text + "\n\n";
}

// Three captions, one to five seconds.
std::string subRip(const std::string& first, const std::string& firstTimes = "00:00:01,000 --> 00:00:02,000")
{
    return block(1, firstTimes, first) + block(2, "00:00:03,000 --> 00:00:04,000", "Two") +
           block(3, "00:00:05,000 --> 00:00:06,000", "Three");
}

const std::string kScriptHead =
    "[Script Info]\nScriptType: v4.00+\n\n[V4+ Styles]\n"
    "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, "
    "BackColour, Bold, Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, "
    "BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, Encoding\n"
    "Style: Default,DejaVu Sans,48,16777215,255,0,0,0,0,0,0,100,100,0,0,1,2,1,2,40,40,36,1\n\n"
    "[Events]\n"
    "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n";

std::string dialogue(const std::string& start, const std::string& end, const std::string& text)
{
    return "Dialogue: 0," + start + "," + end + ",Default,,0,0,0,," + text + "\n";
}

// A caption under test, a second caption, and an empty last Dialogue line: the
// look-up never answers the last entry, and an empty one costs nothing.
std::string script(const std::string& text, const std::string& head = kScriptHead,
                   const std::string& start = "0:00:01.00")
{
    return head + dialogue(start, "0:00:02.00", text) + dialogue("0:00:03.00", "0:00:04.00", "Two") +
           dialogue("0:00:05.00", "0:00:06.00", "");
}

// --- clean files ---------------------------------------------------------

TEST(ZemsubLint, Utf8TextBehindFfFeIsNotReadByFfmpeg)
{
    // FFmpeg takes FF FE for UTF-16 and finds no subtitles in what that makes of UTF-8.
    const Lint result = lint(sample("wide-utf8.srt"));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.err.contains("wide-utf8.srt: cannot lint: FFmpeg cannot read it: "))
        << result.err.toStdString();
}

TEST(ZemsubLint, ScriptEndingInAnEmptyDialogueLineShowsAsWritten)
{
    const Lint result = lintText("clean.ass", script("Clean"));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.report["findings"].empty());
    EXPECT_TRUE(result.report["notes"].empty());
}

// --- the report ----------------------------------------------------------

TEST(ZemsubLint, JsonReportShape)
{
    const Lint result = lint(sample("film.srt"));
    EXPECT_EQ(result.exitCode, 3);
    const nlohmann::json& report = result.report;
    for (const char* key : {"file", "kind", "encoding", "formatCode", "format", "wide", "opened", "captions",
                            "asWritten", "findings", "notes"})
        EXPECT_TRUE(report.contains(key)) << key;
    EXPECT_EQ(report["kind"], "subrip");
    EXPECT_EQ(report["captions"], 12);
    EXPECT_EQ(report["asWritten"], false);
    const nlohmann::json& finding = report["findings"].back();
    EXPECT_EQ(finding["caption"], 12);
    EXPECT_EQ(finding["line"], 47);
    EXPECT_EQ(finding["start"], 35600);
    EXPECT_EQ(finding["end"], 38000);
    EXPECT_EQ(finding["written"], "No. After you.");
    ASSERT_EQ(finding["probes"].size(), 3u);
    EXPECT_EQ(finding["probes"][0]["kind"], "start");
    EXPECT_EQ(finding["probes"][0]["time"], 35601);
    EXPECT_EQ(finding["probes"][1]["kind"], "middle");
    EXPECT_EQ(finding["probes"][2]["kind"], "end");
    EXPECT_EQ(finding["probes"][2]["time"], 37999);
    EXPECT_TRUE(finding["probes"][1]["answer"].is_null());
    EXPECT_EQ(finding["probes"][1]["asWritten"], false);
    EXPECT_EQ(finding["causes"][0]["code"], "last-entry");
    EXPECT_FALSE(finding["causes"][0]["text"].get<std::string>().empty());
}

TEST(ZemsubLint, PlainReportNamesCaptionsProbesAndCauses)
{
    const RunResult result = runZemsub({"lint", sample("film.srt")});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_TRUE(result.out.startsWith(sample("film.srt") +
                                      ": 12 captions as SubRip, read by the library as SubRip, "
                                      "narrow (format code 1); 2 not shown as written\n"));
    EXPECT_TRUE(result.out.contains("\ncaption 12, line 47, 00:00:35,600 --> 00:00:38,000\n"
                                    "  written  \"No. After you.\"\n"
                                    "  start   00:00:35,601  (nothing)\n"));
    EXPECT_TRUE(result.out.contains("  cause last-entry: the last entry: "));
}

TEST(ZemsubLint, SamplesShowTheirKnownDifferences)
{
    const Lint film = lint(sample("film.srt"));
    EXPECT_EQ(flaggedCaptions(film), (std::vector<int>{6, 12}));
    EXPECT_EQ(causesOf(film, 6), QStringList{"markup"});
    const Lint styled = lint(sample("styled.ass"));
    EXPECT_EQ(flaggedCaptions(styled), (std::vector<int>{7}));
    EXPECT_EQ(styled.report["notes"].size(), 8u);
    const Lint classic = lint(sample("classic.ssa"));
    EXPECT_EQ(flaggedCaptions(classic), (std::vector<int>{5}));
    EXPECT_EQ(causesOf(classic, 5), QStringList{"last-entry"});
}

// --- each behaviour ------------------------------------------------------

TEST(ZemsubLint, CrLfSubRipShowsNothingAndNamesTheKeptCarriageReturn)
{
    std::string text = subRip("One");
    std::string crlf;
    for (char c : text)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    const Lint result = lintText("crlf.srt", crlf);
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{1, 2, 3}));
    for (int caption : {1, 2, 3})
        EXPECT_TRUE(causesOf(result, caption).contains("crlf"));
}

TEST(ZemsubLint, CrLfScriptKeepsTheCarriageReturnInEveryCaption)
{
    std::string text = script("Crlf");
    std::string crlf;
    for (char c : text)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    const Lint result = lintText("crlf.ass", crlf);
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{1, 2}));
    EXPECT_EQ(causesOf(result, 1), QStringList{"crlf"});
    EXPECT_EQ(result.report["findings"][0]["probes"][1]["shown"], "Crlf\r");
}

TEST(ZemsubLint, ThreeLineCaptionIsGatheredTwoLinesApart)
{
    const Lint result = lintText("three.srt", subRip("A\nB\nC"));
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{1, 3}));
    EXPECT_EQ(causesOf(result, 1), QStringList{"three-lines"});
    EXPECT_EQ(result.report["findings"][0]["probes"][1]["shown"], "AC\nB\nC");
}

TEST(ZemsubLint, LastSubRipEntryIsNeverAnswered)
{
    const Lint result = lintText("last.srt", subRip("One"));
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{3}));
    EXPECT_EQ(causesOf(result, 3), QStringList{"last-entry"});
}

TEST(ZemsubLint, LastDialogueLineIsNeverAnswered)
{
    const Lint result = lintText("last.ass", kScriptHead + dialogue("0:00:01.00", "0:00:02.00", "One") +
                                                 dialogue("0:00:03.00", "0:00:04.00", "Two"));
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{2}));
    EXPECT_EQ(causesOf(result, 2), QStringList{"last-entry"});
}

TEST(ZemsubLint, LastLineWithoutALineFeedIsNotStoredAndLeavesTheOneBeforeLast)
{
    static TempDir dir;
    const QString path = qs(dir.write("unended.ssa", substationScript("")));
    const RunResult dump = runZemsub({"dump", "--json", path});
    ASSERT_EQ(dump.exitCode, 0) << dump.err.toStdString();
    EXPECT_EQ(nlohmann::json::parse(dump.out.toStdString())["entries"].size(), 3u);

    const Lint result = lint(path);
    EXPECT_EQ(result.exitCode, 3) << result.err.toStdString();
    EXPECT_EQ(result.report["captions"], 4);
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{3, 4}));
    EXPECT_EQ(causesOf(result, 3), QStringList{"unended-last-line"});
    EXPECT_EQ(causesOf(result, 4), QStringList{"unended-last-line"});
    const std::string text = result.report["findings"][0]["causes"][0]["text"].get<std::string>();
    EXPECT_NE(text.find("does not end in a line feed"), std::string::npos) << text;

    // With its line feed the last Dialogue line is stored, and only it goes unanswered.
    const Lint ended = lintText("ended.ssa", substationScript("\n"));
    EXPECT_EQ(flaggedCaptions(ended), (std::vector<int>{4}));
    EXPECT_EQ(causesOf(ended, 4), QStringList{"last-entry"});
    // A last line without a line feed that is no Dialogue line costs no caption.
    const Lint commentLast = lintText(
        "comment-last.ssa", substationScript("\nComment: Marked=0,0:00:09.00,0:00:10.00,Default,,0,0,0,,x"));
    EXPECT_EQ(flaggedCaptions(commentLast), (std::vector<int>{4}));
    EXPECT_EQ(causesOf(commentLast, 4), QStringList{"last-entry"});
}

TEST(ZemsubLint, OnlyDialogueLineWithoutALineFeedIsNotStored)
{
    std::string only = kScriptHead + dialogue("0:00:01.00", "0:00:02.00", "Only");
    only.pop_back();
    const Lint result = lintText("unended-one.ass", only);
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{1}));
    EXPECT_EQ(causesOf(result, 1), QStringList{"unended-last-line"});
}

TEST(ZemsubLint, FileOfOneEntryShowsNothing)
{
    const Lint srt = lintText("one.srt", block(1, "00:00:01,000 --> 00:00:02,000", "Only"));
    EXPECT_EQ(causesOf(srt, 1), QStringList{"one-entry"});
    const Lint ass = lintText("one.ass", kScriptHead + dialogue("0:00:01.00", "0:00:02.00", "Only"));
    EXPECT_EQ(causesOf(ass, 1), QStringList{"one-entry"});
}

TEST(ZemsubLint, CaptionLineOfDigitsIsTakenAsAnEntryNumber)
{
    const Lint result = lintText("digits.srt", subRip("The year was\n1984"));
    EXPECT_EQ(causesOf(result, 1), QStringList{"digit-line"});
    EXPECT_EQ(result.report["findings"][0]["probes"][1]["shown"], "The year was");
}

TEST(ZemsubLint, ArrowWithoutABlankLosesTheEndTimesFirstDigit)
{
    // In the second block: FFmpeg's probe does not take a first time line without the blank.
    const Lint result = lintText("arrow.srt", block(1, "00:00:01,000 --> 00:00:02,000", "One") +
                                                  block(2, "00:00:03,000 -->1:00:05,000", "Arrow") +
                                                  block(3, "01:00:06,000 --> 01:00:07,000", "Three"));
    EXPECT_EQ(result.exitCode, 3) << result.err.toStdString();
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{2, 3}));
    EXPECT_EQ(causesOf(result, 2), QStringList{"arrow-blank"});
    EXPECT_EQ(result.report["findings"][0]["end"], 3605000);
    // Shown at its start, gone long before its end.
    const nlohmann::json& probes = result.report["findings"][0]["probes"];
    EXPECT_EQ(probes[0]["asWritten"], true);
    EXPECT_EQ(probes[2]["asWritten"], false);
}

TEST(ZemsubLint, Utf8MarkGluedToTheFirstNumberHidesTheFirstCaption)
{
    const Lint result = lintText("mark.srt", "\xEF\xBB\xBF" + subRip("One"));
    EXPECT_EQ(result.report["encoding"], "UTF-8");
    EXPECT_EQ(causesOf(result, 1), QStringList{"utf8-mark"});
}

TEST(ZemsubLint, ScriptWithoutScriptTypeIsReadTheSsaWay)
{
    std::string head = kScriptHead;
    head.erase(head.find("ScriptType: v4.00+\n"), std::string("ScriptType: v4.00+\n").size());
    const Lint result = lintText("nost.ass", script("2+2=4", head));
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{1}));
    EXPECT_EQ(causesOf(result, 1), QStringList{"no-scripttype"});
    // With ScriptType the same line shows as written.
    EXPECT_EQ(lintText("withst.ass", script("2+2=4")).exitCode, 0);
}

TEST(ZemsubLint, AmpHValuesAreNotedWithoutChangingTheCaptions)
{
    std::string head = kScriptHead;
    const std::string style = "16777215,255,0,0,";
    head.replace(head.find(style), style.size(), "&H00FFFFFF,&H000000FF,&H00000000,&H80000000,");
    const Lint result = lintText("amph.ass", script("Colours", head));
    EXPECT_EQ(result.exitCode, 0);
    ASSERT_EQ(result.report["notes"].size(), 4u);
    const nlohmann::json& note = result.report["notes"][0];
    EXPECT_EQ(note["value"], "&H00FFFFFF");
    EXPECT_EQ(note["where"], "Style Default, primarycolour");
    EXPECT_EQ(note["cause"]["code"], "amp-h");
}

TEST(ZemsubLint, TagTextThatStopsAtARepeatedState)
{
    // After "{\b1}" goes, the unclosed "{" finds the "}" left behind the end of the text.
    const Lint result = lintText("repeat.ass", script("Hi{\\b1}{"));
    EXPECT_TRUE(result.exitCode == 3) << result.err.toStdString();
    EXPECT_EQ(causesOf(result, 1), QStringList{"tag-repeat"});
    EXPECT_EQ(result.report["findings"][0]["probes"][1]["shown"], "Hi{");
}

TEST(ZemsubLint, Utf16TextThatTheCLibraryCannotDecode)
{
    const Lint result = lint(sample("wide-utf16.srt"));
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.report["encoding"], "UTF-16LE");
    // FFmpeg's UTF-16 conversion breaks the third caption's three-byte characters: its decoder refuses it.
    EXPECT_EQ(result.report["refusedEvents"], 1);
    EXPECT_EQ(result.report["captions"], 2);
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{1, 2}));
    for (int caption : {1, 2})
        EXPECT_EQ(causesOf(result, caption), QStringList{"utf16"});
    const std::string text = result.report["findings"][0]["causes"][0]["text"];
    EXPECT_NE(text.find("(C.UTF-8)"), std::string::npos) << text;
}

// --- further behaviours it names -----------------------------------------

TEST(ZemsubLint, UnknownExtensionIsRefusedByTheManager)
{
    const Lint result = lintText("film.txt", subRip("One"));
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.report["formatCode"], 0);
    EXPECT_EQ(causesOf(result, 2), QStringList{"extension"});
}

TEST(ZemsubLint, FractionsOfMoreThanThreeDigitsLoseTheRest)
{
    // FFmpeg reads ",1000" as 1000 ms, the reader as 100 ms.
    const Lint srt = lintText("frac.srt", subRip("Frac", "00:00:01,000 --> 00:00:02,1000"));
    EXPECT_EQ(causesOf(srt, 1), QStringList{"fraction"});
    EXPECT_EQ(srt.report["findings"][0]["end"], 3000);
    // Short fractions are read as written on both sides: ",5" is 5 ms, ".500" 500 hundredths.
    EXPECT_TRUE(causesOf(lintText("short.srt", subRip("Frac", "00:00:01,000 --> 00:00:02,5")), 1).isEmpty());
    const Lint ass = lintText("frac.ass", script("Frac", kScriptHead, "0:00:01.500"));
    EXPECT_EQ(ass.exitCode, 0);
}

TEST(ZemsubLint, LineOfBlanksRunsTheCaptionOn)
{
    const Lint result = lintText("blanks.srt", subRip("Hello\n   \nWorld"));
    EXPECT_EQ(causesOf(result, 1), QStringList{"blank-line"});
}

TEST(ZemsubLint, SubRipMarkupIsDrawnAsWritten)
{
    const Lint result = lintText("markup.srt", subRip("<i>Quiet</i>"));
    EXPECT_EQ(causesOf(result, 1), QStringList{"markup"});
    EXPECT_EQ(result.report["findings"][0]["written"], "Quiet");
}

TEST(ZemsubLint, EntryNumbersOutOfLine)
{
    const Lint result = lintText("numbers.srt", block(1, "00:00:01,000 --> 00:00:02,000", "One") +
                                                    block(7, "00:00:03,000 --> 00:00:04,000", "Seven") +
                                                    block(2, "00:00:05,000 --> 00:00:06,000", "Two") +
                                                    block(3, "00:00:07,000 --> 00:00:08,000", "Three") +
                                                    block(4, "00:00:09,000 --> 00:00:10,000", "Four"));
    // Keys 1, 2, 3, 4, 7: the look-up tries 1 to 4, so 7 is the unanswered highest and 4 shows.
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{2}));
    EXPECT_EQ(causesOf(result, 2), QStringList{"last-entry"});
    const Lint twice = lintText("twice.srt", block(1, "00:00:01,000 --> 00:00:02,000", "One") +
                                                 block(1, "00:00:03,000 --> 00:00:04,000", "Again") +
                                                 block(2, "00:00:05,000 --> 00:00:06,000", "Two"));
    EXPECT_TRUE(causesOf(twice, 1).contains("numbering"));
}

TEST(ZemsubLint, EntryNumberedZeroIsNeverAnswered)
{
    const Lint result = lintText("zero.srt", block(0, "00:00:01,000 --> 00:00:02,000", "Zero") +
                                                 block(1, "00:00:03,000 --> 00:00:04,000", "One") +
                                                 block(2, "00:00:05,000 --> 00:00:06,000", "Two"));
    // Key 0 counts among the entries, so the look-up reaches the highest, 2.
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{1}));
    EXPECT_EQ(causesOf(result, 1), QStringList{"key-zero"});
    const std::string text = result.report["findings"][0]["causes"][0]["text"].get<std::string>();
    EXPECT_NE(text.find("zemsub fix numbers the copy's entries from 1"), std::string::npos) << text;
    // A second entry 0 is numbering out of line, not this cause.
    const Lint twice = lintText("zeros.srt", block(0, "00:00:01,000 --> 00:00:02,000", "Zero") +
                                                 block(0, "00:00:03,000 --> 00:00:04,000", "Again") +
                                                 block(1, "00:00:05,000 --> 00:00:06,000", "One") +
                                                 block(2, "00:00:07,000 --> 00:00:08,000", "Two"));
    EXPECT_EQ(causesOf(twice, 1), QStringList{"numbering"});
}

TEST(ZemsubLint, TimesPastThe32BitRangeWrapAround)
{
    // 600 hours is past 2^31 ms: the reader's time wraps to a negative one.
    const Lint result = lintText("late.srt", block(1, "00:00:01,000 --> 00:00:02,000", "One") +
                                                 block(2, "600:00:00,000 --> 600:00:01,000", "Late") +
                                                 block(3, "600:00:02,000 --> 600:00:03,000", "Last"));
    ASSERT_EQ(result.exitCode, 3) << result.err.toStdString();
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{2, 3}));
    EXPECT_EQ(causesOf(result, 2), QStringList{"time-range"});
    EXPECT_EQ(result.report["findings"][0]["start"], 2160000000LL);
    const std::string text = result.report["findings"][0]["causes"][0]["text"].get<std::string>();
    EXPECT_NE(text.find("outside 0:00:00.000 to 596:31:23.647"), std::string::npos) << text;
    // The latest millisecond the reader holds still shows.
    const Lint edge = lintText("edge.srt", block(1, "596:31:22,000 --> 596:31:23,647", "Edge") +
                                               block(2, "596:31:23,647 --> 596:31:23,647", "Last"));
    const std::vector<int> flagged = flaggedCaptions(edge);
    EXPECT_EQ(std::count(flagged.begin(), flagged.end(), 1), 0) << edge.report.dump();
}

TEST(ZemsubLint, ArrowInACaptionLineIsTakenAsATimeLine)
{
    // FFmpeg takes no time line without hours: the block runs on into the caption before it.
    const Lint result = lintText("arrow-text.srt", block(1, "00:00:01,000 --> 00:00:02,000", "One") +
                                                       block(2, "00:05,000 --> 00:00:06,000", "Short") +
                                                       block(3, "00:00:07,000 --> 00:00:08,000", "Three") +
                                                       block(4, "00:00:09,000 --> 00:00:10,000", "Four"));
    ASSERT_EQ(flaggedCaptions(result), (std::vector<int>{1, 3}));
    EXPECT_TRUE(causesOf(result, 1).contains("arrow-in-text")) << causesOf(result, 1).join(' ').toStdString();
}

TEST(ZemsubLint, TimeLineReadOtherwiseThanPlayers)
{
    // A dot before the milliseconds: players read 5 s; the reader cuts the seconds at the ",".
    const Lint result = lintText("dot.srt", block(1, "00:00:01,000 --> 00:00:02,000", "One") +
                                                block(2, "00:00:05.000 --> 00:00:06,000", "Dot") +
                                                block(3, "00:00:07,000 --> 00:00:08,000", "Three") +
                                                block(4, "00:00:09,000 --> 00:00:10,000", "Four"));
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{2, 4}));
    EXPECT_EQ(causesOf(result, 2), QStringList{"time-line"});
}

TEST(ZemsubLint, RepeatedBlockThatFfmpegDropsIsMergedByTheReader)
{
    // FFmpeg drops the second of two equal blocks; the reader appends it to the same entry.
    const std::string two = block(2, "00:00:03,000 --> 00:00:04,000", "Two");
    const Lint result = lintText("again.srt", block(1, "00:00:01,000 --> 00:00:02,000", "One") + two + two +
                                                  block(3, "00:00:05,000 --> 00:00:06,000", "Three") +
                                                  block(4, "00:00:07,000 --> 00:00:08,000", "Four"));
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{2, 4}));
    EXPECT_EQ(causesOf(result, 2), QStringList{"numbering"});
    EXPECT_EQ(result.report["findings"][0]["probes"][1]["shown"], "Two\nTwo");
}

TEST(ZemsubLint, NumberThatIsAlsoADigitLineOfAnotherCaption)
{
    // Caption 1's line "3" keys the line behind it under 3, where caption 3's text is appended.
    const Lint result = lintText("shared.srt", block(1, "00:00:01,000 --> 00:00:02,000", "One\n3\nextra") +
                                                   block(2, "00:00:03,000 --> 00:00:04,000", "Two") +
                                                   block(3, "00:00:05,000 --> 00:00:06,000", "Three") +
                                                   block(4, "00:00:07,000 --> 00:00:08,000", "Four"));
    EXPECT_TRUE(causesOf(result, 1).contains("digit-line"));
    EXPECT_EQ(causesOf(result, 3), QStringList{"numbering"});
}

TEST(ZemsubLint, ZeroByteEndsTheReadersLine)
{
    const std::string broken = std::string("3\0\0\x07\xdd", 5) + "00:03,000 --> 00:00:03,500\nc3\n\n";
    const Lint result =
        lintText("zero-byte.srt", block(1, "00:00:01,000 --> 00:00:01,500", "c1") +
                                      block(2, "00:00:02,000 --> 00:00:02,500", "c2") + broken +
                                      block(4, "00:00:04,000 --> 00:00:04,500", "c4") +
                                      block(5, "00:00:05,000 --> 00:00:05,500", "c5"));
    EXPECT_EQ(flaggedCaptions(result), (std::vector<int>{2}));
    EXPECT_EQ(causesOf(result, 2), QStringList{"zero-byte"});
}

TEST(ZemsubLint, FormattingPairsInAScriptAreRemovedAsTags)
{
    const Lint result = lintText("pairs.ass", script("<u>u</u> {x} y"));
    EXPECT_EQ(causesOf(result, 1), QStringList{"angle-pair"});
    // A later Format line without a Text field: the caption's text is FFmpeg's.
    std::string later = script("<i>x</i> y");
    later.insert(later.find("Dialogue:"),
                 "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effec,eT\n");
    const Lint odd = lintText("later.ass", later);
    EXPECT_TRUE(causesOf(odd, 1).contains("angle-pair")) << causesOf(odd, 1).join(' ').toStdString();
}

TEST(ZemsubLint, TagTextReachingIntoTheOldTail)
{
    const Lint result = lintText("tail.ass", script("{abcd}X{Y"));
    EXPECT_EQ(causesOf(result, 1), QStringList{"tag-tail"});
    EXPECT_EQ(result.report["findings"][0]["probes"][1]["shown"], "XXX{Y");
}

TEST(ZemsubLint, UnclosedBraceKeepsTheRest)
{
    const Lint result = lintText("unclosed.ass", script("{\\i1}Wait{"));
    EXPECT_EQ(causesOf(result, 1), QStringList{"unclosed-tag"});
}

TEST(ZemsubLint, AngleBracketsAreRemovedAsTags)
{
    const Lint result = lintText("angle.ass", script("a < b > c"));
    EXPECT_EQ(causesOf(result, 1), QStringList{"angle-pair"});
}

TEST(ZemsubLint, OnlyTheFirstHardBreakBecomesALineFeed)
{
    const Lint result = lintText("breaks.ass", script("one\\Ntwo\\Nthree"));
    EXPECT_EQ(causesOf(result, 1), QStringList{"line-breaks"});
}

TEST(ZemsubLint, SoftBreakAndHardSpaceAreDrawnAsWritten)
{
    const Lint result = lintText("escapes.ass", script("soft\\nbreak\\hhard"));
    EXPECT_EQ(causesOf(result, 1), QStringList{"escapes"});
}

TEST(ZemsubLint, FfmpegReadsDialogueFieldsInTheFixedOrderToo)
{
    std::string head = kScriptHead;
    const std::string format =
        "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n";
    head.replace(head.find(format), format.size(), "Format: Layer, Start, End, Text\n");
    // Read in the fixed order on both sides, "Hello" is the style and nothing is left for the text.
    const Lint result = lintText("format.ass", head + "Dialogue: 0,0:00:01.00,0:00:02.00,Hello, world\n" +
                                                   "Dialogue: 0,0:00:03.00,0:00:04.00,Two\n" +
                                                   "Dialogue: 0,0:00:05.00,0:00:06.00,\n");
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_EQ(result.report["captions"], 3);
}

TEST(ZemsubLint, OverlappingCaptionsShowTheFirst)
{
    const Lint result = lintText("overlap.srt", block(1, "00:00:01,000 --> 00:00:05,000", "First") +
                                                    block(2, "00:00:03,000 --> 00:00:07,000", "Second") +
                                                    block(3, "00:00:08,000 --> 00:00:09,000", "Three") +
                                                    block(4, "00:00:10,000 --> 00:00:11,000", "Four"));
    EXPECT_EQ(causesOf(result, 2), QStringList{"overlap"});
    EXPECT_EQ(result.report["findings"][0]["probes"][0]["shown"], "First");
}

TEST(ZemsubLint, SameTextAfterAGapIsNotDrawnAgain)
{
    const Lint result = lintText("repeat.srt", block(1, "00:00:01,000 --> 00:00:02,000", "Same") +
                                                   block(2, "00:00:03,000 --> 00:00:04,000", "Same") +
                                                   block(3, "00:00:05,000 --> 00:00:06,000", "Three") +
                                                   block(4, "00:00:07,000 --> 00:00:08,000", "Four"));
    EXPECT_EQ(causesOf(result, 2), QStringList{"repeat-after-gap"});
    const nlohmann::json& probe = result.report["findings"][0]["probes"][1];
    EXPECT_EQ(probe["answer"], "\nSame");
    EXPECT_TRUE(probe["shown"].is_null());
}

TEST(ZemsubLint, SameTextAfterAGapShorterThanAFrameIsNotDrawnAgainEither)
{
    // A frame may land in any gap; one that does clears the image.
    const Lint result = lintText("repeat-10ms.srt", block(1, "00:00:01,000 --> 00:00:02,000", "Same") +
                                                        block(2, "00:00:02,010 --> 00:00:03,000", "Same") +
                                                        block(3, "00:00:05,000 --> 00:00:06,000", "Three") +
                                                        block(4, "00:00:07,000 --> 00:00:08,000", "Four"));
    EXPECT_EQ(causesOf(result, 2), QStringList{"repeat-after-gap"});
}

TEST(ZemsubLint, ScriptCaptionAtTimeZeroMissesThePlayersFirstFrame)
{
    const Lint result = lintText("zero.ass", script("Zero", kScriptHead, "0:00:00.00"));
    EXPECT_EQ(flaggedCaptions(result), std::vector<int>{1});
    EXPECT_EQ(causesOf(result, 1), QStringList{"time-zero"});
    const nlohmann::json& probes = result.report["findings"][0]["probes"];
    ASSERT_EQ(probes.size(), 3u);
    EXPECT_EQ(probes[0]["kind"], "start");
    EXPECT_EQ(probes[0]["time"], 0);
    EXPECT_TRUE(probes[0]["answer"].is_null());
    // From the next millisecond on it shows.
    EXPECT_EQ(probes[1]["shown"], "Zero");
    EXPECT_EQ(probes[2]["shown"], "Zero");
}

TEST(ZemsubLint, SubRipCaptionAtTimeZeroIsShownThere)
{
    const Lint result = lintText("zero.srt", subRip("Zero", "00:00:00,000 --> 00:00:01,000"));
    EXPECT_EQ(flaggedCaptions(result), std::vector<int>{3}); // the last entry alone
}

TEST(ZemsubLint, LatinOneTextIsDecodedWithTheLocalCodec)
{
    const Lint result = lintText("latin1.srt", subRip("caf\xE9"));
    // uchardet's guess; every guess it makes here reads E9 as "é".
    EXPECT_NE(result.report["encoding"], "UTF-8");
    EXPECT_EQ(causesOf(result, 1), QStringList{"encoding"});
    EXPECT_EQ(result.report["findings"][0]["written"], "caf\u00e9");
}

TEST(ZemsubLint, MoreThanTwentyThousandLinesDoNotOpen)
{
    std::string text;
    for (int i = 1; i <= 7001; ++i)
        text += block(i, "00:00:01,000 --> 00:00:02,000", "x");
    const Lint result = lintText("long.srt", text);
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.report["opened"], false);
    EXPECT_EQ(causesOf(result, 1), QStringList{"open-refused"});
}

TEST(ZemsubLint, WhatIsNeitherSubRipNorAScriptCannotBeLinted)
{
    const Lint result = lintText("notes.txt", "just some words\n");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.err.contains("cannot lint"));
    EXPECT_EQ(lint(sample("vobsub.idx")).exitCode, 1);
}

TEST(ZemsubLint, PicturesAreReadAsTextAndNoneIsShownByTheLibrary)
{
    const Lint pictures = lint(sample("words.sup"));
    ASSERT_EQ(pictures.exitCode, 3) << pictures.err.toStdString();
    EXPECT_EQ(pictures.report["track"]["readAs"], "eng");
    EXPECT_EQ(pictures.report["opened"], false);
    ASSERT_EQ(pictures.report["written"].size(), 8u);
    EXPECT_EQ(pictures.report["written"][0]["text"], "Hello, world!");
    EXPECT_EQ(pictures.report["written"][0]["start"], 1000);
    EXPECT_EQ(pictures.report["written"][0]["end"], 3000);
    EXPECT_EQ(pictures.report["written"][7]["text"], "Then we walk.\nThe lighthouse is only six miles away.");
    for (const nlohmann::json& caption : pictures.report["written"]) {
        EXPECT_GE(caption["confidence"].get<int>(), 70);
        EXPECT_EQ(caption["lowConfidence"], false);
    }
    // The library opens no .sup: every caption is a finding, for its extension.
    EXPECT_EQ(flaggedCaptions(pictures), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(causesOf(pictures, 1), QStringList{"extension"});

    const RunResult missing = runZemsub({"lint", sample("words.sup"), "--ocr-language", "zzz"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(missing.err.contains("words.sup: cannot lint: no Tesseract data for zzz")) << missing.err.toStdString();
}

TEST(ZemsubLint, PicturesOfNoTextAreLeftOutAndListed)
{
    // The VobSub sample's pictures are bars, not letters: no captions, each picture listed.
    const RunResult text = runZemsub({"lint", "--track", "2", sample("tracks.mkv")});
    EXPECT_EQ(text.exitCode, 0) << text.err.toStdString();
    EXPECT_TRUE(text.out.contains("  pictures read as text in eng (Tesseract)\n")) << text.out.toStdString();
    EXPECT_TRUE(text.out.contains(": 0 captions as ")) << text.out.toStdString();
    EXPECT_TRUE(text.out.contains("  00:00:01,000 --> 00:00:03,491: picture of 96x24 at 300,400 left out: "
                                  "nothing read as a word\n"))
        << text.out.toStdString();
    const RunResult json = runZemsub({"lint", "--track", "2", sample("tracks.mkv"), "--json"});
    const nlohmann::json leftOut = nlohmann::json::parse(json.out.toStdString())["leftOut"];
    ASSERT_EQ(leftOut.size(), 3u);
    EXPECT_EQ(leftOut[2]["start"], 7500);
    EXPECT_EQ(leftOut[2]["width"], 200);
    EXPECT_EQ(leftOut[2]["why"], "nothing read as a word");
}

} // namespace
#endif
