// zemsub fix: for every behaviour lint names, a file that has it, fixed, then
// linted (nothing left) and asked through the library at every caption's start,
// middle and end.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "support/LibraryAnswers.h"
#    include "support/TestFiles.h"

#    include <QFile>
#    include <gtest/gtest.h>
#    include <nlohmann/json.hpp>

#    include <set>
#    include <string>

namespace {

struct CauseCase
{
    const char* cause; // what lint names on the original
    const char* name;
    std::string bytes;
    std::vector<Shown> shown; // what a player shows
};

std::string srt(int number, const std::string& times, const std::string& lines, const std::string& end = "\n")
{
    return std::to_string(number) + end + times + end + lines + end + end;
}

const std::string scriptHead =
    "[Script Info]\nScriptType: v4.00+\n\n[Events]\n"
    "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n";

std::string dialogue(const std::string& start, const std::string& end, const std::string& text)
{
    return "Dialogue: 0," + start + "," + end + ",Default,,0,0,0,," + text + "\n";
}

std::vector<CauseCase> causeCases()
{
    const std::string two =
        srt(1, "00:00:01,000 --> 00:00:02,000", "one") + srt(2, "00:00:03,000 --> 00:00:04,000", "two");
    const std::vector<Shown> twoShown = {{1000, 2000, "one"}, {3000, 4000, "two"}};
    std::string longFile;
    std::vector<Shown> longShown;
    for (int i = 0; i < 5001; ++i) {
        char times[64];
        std::snprintf(times, sizeof times, "%02d:%02d:%02d,000 --> %02d:%02d:%02d,500", i / 3600, i / 60 % 60,
                      i % 60, i / 3600, i / 60 % 60, i % 60);
        longFile += srt(i + 1, times, "c" + std::to_string(i));
        longShown.push_back({1000LL * i, 1000LL * i + 500, QString::fromStdString("c" + std::to_string(i))});
    }
    return {
        {"extension", "plain.txt", two, twoShown},
        {"utf16", "wide.srt", utf16le(two), twoShown},
        {"crlf", "crlf.srt",
         srt(1, "00:00:01,000 --> 00:00:02,000", "one", "\r\n") +
             srt(2, "00:00:03,000 --> 00:00:04,000", "two", "\r\n"),
         twoShown},
        {"utf8-mark", "mark.srt", "\xEF\xBB\xBF" + two, twoShown},
        {"one-entry", "one.srt", srt(1, "00:00:01,000 --> 00:00:02,000", "alone"), {{1000, 2000, "alone"}}},
        {"last-entry", "last.srt", two, twoShown},
        {"numbering",
         "numbers.srt",
         srt(5, "00:00:01,000 --> 00:00:02,000", "one") + srt(3, "00:00:03,000 --> 00:00:04,000", "two") +
             srt(3, "00:00:05,000 --> 00:00:06,000", "three"),
         {{1000, 2000, "one"}, {3000, 4000, "two"}, {5000, 6000, "three"}}},
        {"key-zero",
         "zero.srt",
         srt(0, "00:00:01,000 --> 00:00:02,000", "zero") + srt(1, "00:00:03,000 --> 00:00:04,000", "one") +
             srt(2, "00:00:05,000 --> 00:00:06,000", "two"),
         {{1000, 2000, "zero"}, {3000, 4000, "one"}, {5000, 6000, "two"}}},
        {"digit-line",
         "digits.srt",
         srt(1, "00:00:01,000 --> 00:00:02,000", "1984") + srt(2, "00:00:03,000 --> 00:00:04,000", "two\n42"),
         {{1000, 2000, "1984"}, {3000, 4000, "two\n42"}}},
        {"three-lines",
         "three.srt",
         srt(1, "00:00:01,000 --> 00:00:02,000", "a\nb\nc") +
             srt(2, "00:00:03,000 --> 00:00:04,000", "d\ne\nf\ng"),
         {{1000, 2000, "a\nb\nc"}, {3000, 4000, "d\ne\nf\ng"}}},
        {"arrow-blank",
         "arrow.srt",
         // FFmpeg's probe takes no first time line without the blank: the arrow is in the second.
         srt(1, "10:00:01,000 --> 10:00:02,000", "one") + srt(2, "10:00:03,000 -->10:00:04,000", "two") +
             srt(3, "10:00:05,000 --> 10:00:06,000", "three"),
         {{36001000, 36002000, "one"}, {36003000, 36004000, "two"}, {36005000, 36006000, "three"}}},
        {"fraction",
         "fraction.srt",
         // FFmpeg reads the digits as milliseconds, however many: ",5" is 5 ms, ",1250" 1250 ms.
         srt(1, "00:00:01,5 --> 00:00:02,1250", "one") + srt(2, "00:00:04,000 --> 00:00:05,000", "two"),
         {{1005, 3250, "one"}, {4000, 5000, "two"}}},
        {"blank-line", "blanks.srt",
         srt(1, "00:00:01,000 --> 00:00:02,000", "one\n   ") + srt(2, "00:00:03,000 --> 00:00:04,000", "two"),
         twoShown},
        {"markup", "markup.srt",
         srt(1, "00:00:01,000 --> 00:00:02,000", "<i>one</i>") +
             srt(2, "00:00:03,000 --> 00:00:04,000", "{\\an8}<font color=\"red\">two</font>"),
         twoShown},
        {"no-scripttype",
         "nostype.ass",
         "[Script Info]\n[Events]\n" + dialogue("0:00:01.00", "0:00:02.00", "a = b") +
             dialogue("0:00:03.00", "0:00:04.00", "two") + dialogue("0:00:05.00", "0:00:06.00", "three"),
         {{1000, 2000, "a = b"}, {3000, 4000, "two"}, {5000, 6000, "three"}}},
        {"unclosed-tag",
         "unclosed.ass",
         scriptHead + dialogue("0:00:01.00", "0:00:02.00", "one{\\b1") +
             dialogue("0:00:03.00", "0:00:04.00", "two") + dialogue("0:00:05.00", "0:00:06.00", "three"),
         {{1000, 2000, "one"}, {3000, 4000, "two"}, {5000, 6000, "three"}}},
        {"tag-tail",
         "tail.ass",
         scriptHead + dialogue("0:00:01.00", "0:00:02.00", "{abc}x{y") +
             dialogue("0:00:03.00", "0:00:04.00", "two") + dialogue("0:00:05.00", "0:00:06.00", "three"),
         {{1000, 2000, "x"}, {3000, 4000, "two"}, {5000, 6000, "three"}}},
        {"tag-repeat",
         "repeat.ass",
         scriptHead + dialogue("0:00:01.00", "0:00:02.00", "x{ab}{c") +
             dialogue("0:00:03.00", "0:00:04.00", "two") + dialogue("0:00:05.00", "0:00:06.00", "three"),
         {{1000, 2000, "x"}, {3000, 4000, "two"}, {5000, 6000, "three"}}},
        {"angle-pair",
         "angles.ass",
         scriptHead + dialogue("0:00:01.00", "0:00:02.00", "x <y> z") +
             dialogue("0:00:03.00", "0:00:04.00", "two") + dialogue("0:00:05.00", "0:00:06.00", "three"),
         {{1000, 2000, "x <y> z"}, {3000, 4000, "two"}, {5000, 6000, "three"}}},
        {"line-breaks",
         "breaks.ass",
         scriptHead + dialogue("0:00:01.00", "0:00:02.00", "a\\Nb\\Nc") +
             dialogue("0:00:03.00", "0:00:04.00", "two") + dialogue("0:00:05.00", "0:00:06.00", "three"),
         {{1000, 2000, "a\nb\nc"}, {3000, 4000, "two"}, {5000, 6000, "three"}}},
        {"escapes",
         "escapes.ass",
         scriptHead + dialogue("0:00:01.00", "0:00:02.00", "a\\nb\\hc") +
             dialogue("0:00:03.00", "0:00:04.00", "two") + dialogue("0:00:05.00", "0:00:06.00", "three"),
         {{1000, 2000,
           // FFmpeg breaks the line at \n whatever the wrap style.
           QString::fromUtf8("a\nb\xc2\xa0"
                             "c")},
          {3000, 4000, "two"},
          {5000, 6000, "three"}}},
        {"overlap",
         "overlap.srt",
         srt(1, "00:00:01,000 --> 00:00:03,000", "under") + srt(2, "00:00:02,000 --> 00:00:04,000", "over") +
             srt(3, "00:00:05,000 --> 00:00:06,000", "end"),
         {{1000, 2000, "under"}, {2000, 3000, "over\nunder"}, {3000, 4000, "over"}, {5000, 6000, "end"}}},
        {"repeat-after-gap",
         "repeat.srt",
         srt(1, "00:00:01,000 --> 00:00:02,000", "same") + srt(2, "00:00:03,000 --> 00:00:04,000", "same") +
             srt(3, "00:00:05,000 --> 00:00:06,000", "end"),
         {{1000, 2000, "same"}, {3000, 4000, "same"}, {5000, 6000, "end"}}},
        {"encoding",
         "latin1.srt",
         srt(1, "00:00:01,000 --> 00:00:02,000", "caf\xe9") + srt(2, "00:00:03,000 --> 00:00:04,000", "two"),
         {{1000, 2000, QString::fromUtf8("caf\xc3\xa9")}, {3000, 4000, "two"}}},
        {"open-refused", "long.srt", longFile, longShown},
    };
}

nlohmann::json lintJson(const QString& path, int* exitCode)
{
    const RunResult result = runZemsub({"lint", "--json", path});
    *exitCode = result.exitCode;
    if (result.exitCode != 0 && result.exitCode != 3)
        return nlohmann::json();
    return nlohmann::json::parse(result.out.toStdString());
}

std::set<std::string> causeCodes(const nlohmann::json& report)
{
    std::set<std::string> codes;
    if (!report.is_object())
        return codes;
    for (const auto& finding : report["findings"])
        for (const auto& cause : finding["causes"])
            codes.insert(cause["code"].get<std::string>());
    return codes;
}

TEST(ZemsubFix, EveryCauseLintNamesIsCured)
{
    for (const CauseCase& c : causeCases()) {
        SCOPED_TRACE(c.cause);
        TempDir dir;
        const QString original = qs(dir.write(c.name, c.bytes));
        int before = -1;
        const nlohmann::json report = lintJson(original, &before);
        EXPECT_EQ(before, 3);
        EXPECT_EQ(causeCodes(report).count(c.cause), 1u);

        const QString copy = qs(dir.file("copy.srt"));
        const RunResult fixed = runZemsub({"fix", original, "-o", copy});
        const bool stylesOnly = std::string(c.cause) == "markup";
        EXPECT_EQ(fixed.exitCode, stylesOnly ? 3 : 0) << fixed.out.toStdString() << fixed.err.toStdString();
        int after = -1;
        lintJson(copy, &after);
        EXPECT_EQ(after, 0);

        const std::vector<Expected> questions = questionsFor(c.shown);
        const std::vector<QString> answers = askLibrary(copy.toStdString(), questions);
        ASSERT_EQ(answers.size(), questions.size());
        for (size_t i = 0; i < questions.size(); ++i) {
            EXPECT_EQ(answers[i].isNull(), questions[i].text.isNull()) << "at " << questions[i].time;
            EXPECT_EQ(answers[i], questions[i].text) << "at " << questions[i].time;
        }
    }
}

TEST(ZemsubFix, AmpHValuesAreWrittenAsNumbers)
{
    TempDir dir;
    const std::string script =
        "[Script Info]\nScriptType: v4.00+\nPlayResX: &h180\n[V4+ Styles]\n"
        "Style: Default,Arial,20,&H00FFFFFF,&H000000FF,&H00000000,&H00000000,0,0,0,0,100,"
        "100,0,0,1,2,2,2,10,10,10,1\n[Events]\n" +
        dialogue("0:00:01.00", "0:00:02.00", "one") + dialogue("0:00:03.00", "0:00:04.00", "two");
    const QString original = qs(dir.write("hex.ass", script));
    int before = -1;
    EXPECT_FALSE(lintJson(original, &before)["notes"].empty());
    const QString copy = qs(dir.file("copy.ass"));
    const RunResult fixed = runZemsub({"fix", original, "-o", copy});
    EXPECT_EQ(fixed.exitCode, 0) << fixed.out.toStdString();
    int after = -1;
    const nlohmann::json report = lintJson(copy, &after);
    EXPECT_EQ(after, 0);
    EXPECT_TRUE(report["notes"].empty());
    const std::vector<QString> answers =
        askLibrary(copy.toStdString(), questionsFor({{1000, 2000, "one"}, {3000, 4000, "two"}}));
    ASSERT_EQ(answers.size(), 7u);
    EXPECT_EQ(answers[0], QStringLiteral("one"));
    EXPECT_EQ(answers[6], QStringLiteral("two"));
}

TEST(ZemsubFix, ScriptCopyOfACrLfScript)
{
    TempDir dir;
    std::string script = "[Script Info]\r\nScriptType: v4.00+\r\n[Events]\r\n";
    script += "Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,one\r\n";
    script += "Dialogue: 0,0:00:03.00,0:00:04.00,Default,,0,0,0,,two\\Nlines\\Nhere\r\n";
    const QString original = qs(dir.write("crlf.ass", script));
    const QString copy = qs(dir.file("copy.ssa"));
    const RunResult fixed = runZemsub({"fix", original, "-o", copy});
    EXPECT_EQ(fixed.exitCode, 0) << fixed.out.toStdString();
    int after = -1;
    lintJson(copy, &after);
    EXPECT_EQ(after, 0);
    const std::vector<Expected> questions =
        questionsFor({{1000, 2000, "one"}, {3000, 4000, "two\nlines\nhere"}});
    const std::vector<QString> answers = askLibrary(copy.toStdString(), questions);
    ASSERT_EQ(answers.size(), questions.size());
    for (size_t i = 0; i < questions.size(); ++i)
        EXPECT_EQ(answers[i], questions[i].text) << "at " << questions[i].time;
}

TEST(ZemsubFix, UsageUnreadableInPlaceAndJson)
{
    TempDir dir;
    const QString original = qs(dir.write("a.srt", srt(1, "00:00:01,000 --> 00:00:02,000", "one")));
    EXPECT_EQ(runZemsub({"fix", original}).exitCode, 2);
    EXPECT_EQ(runZemsub({"fix", original, "-o", original}).exitCode, 2);
    const RunResult missing = runZemsub({"fix", qs(dir.file("none.srt")), "-o", qs(dir.file("x.srt"))});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(missing.err.contains(QStringLiteral("none.srt")));
    const RunResult notes =
        runZemsub({"fix", qs(dir.write("n.txt", "just words\n")), "-o", qs(dir.file("y.srt"))});
    EXPECT_EQ(notes.exitCode, 1);
    EXPECT_TRUE(notes.err.contains(QStringLiteral("n.txt")));
    EXPECT_FALSE(QFile::exists(qs(dir.file("y.srt"))));

    const RunResult json = runZemsub({"fix", "--json", original, "-o", qs(dir.file("b.srt"))});
    EXPECT_EQ(json.exitCode, 0);
    const nlohmann::json report = nlohmann::json::parse(json.out.toStdString());
    ASSERT_EQ(report["outcomes"].size(), 1u);
    EXPECT_TRUE(report["outcomes"][0]["asWritten"].get<bool>());
    EXPECT_EQ(report["format"], "srt");

    const QString euro = qs(dir.write("euro.srt", srt(1, "00:00:01,000 --> 00:00:02,000", "\x80 5")));
    const RunResult forced =
        runZemsub({"fix", "--json", "--encoding", "WINDOWS-1252", euro, "-o", qs(dir.file("euro-copy.srt"))});
    EXPECT_EQ(forced.exitCode, 0) << forced.err.toStdString();
    const nlohmann::json forcedReport = nlohmann::json::parse(forced.out.toStdString());
    EXPECT_EQ(forcedReport["outcomes"][0]["written"], "\xe2\x82\xac 5");
    const RunResult unknown = runZemsub({"fix", "--encoding", "NO-SUCH", euro, "-o", qs(dir.file("u.srt"))});
    EXPECT_EQ(unknown.exitCode, 1);
    EXPECT_TRUE(unknown.err.contains(QStringLiteral("NO-SUCH")));

    const RunResult inPlace = runZemsub({"fix", "--in-place", original});
    EXPECT_EQ(inPlace.exitCode, 0);
    const std::vector<QString> answers = askLibrary(original.toStdString(), {{1500, "one"}});
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0], QStringLiteral("one"));
}

} // namespace
#endif

#ifndef ZEMSUB_TOOLS_ABSENT
namespace {

// What no copy can cure, in lint's codes.
const std::set<std::string> cannotCure = {"drawing",      "karaoke",   "positions-styles", "too-long",
                                          "open-refused", "time-zero", "time-precision",   "time-range"};

TEST(ZemsubFix, SamplesAndEveryQuirkLintCleanAfterFixing)
{
    std::vector<std::pair<QString, std::string>> files;
    TempDir dir;
    for (const char* name : {"film.srt", "styled.ass", "classic.ssa", "wide-utf16.srt"})
        files.emplace_back(sample(QString::fromLatin1(name)), name);
    // FF FE followed by UTF-8 is no text to FFmpeg: nothing to copy, and fix says so.
    const RunResult unread = runZemsub({"fix", sample("wide-utf8.srt"), "-o", qs(dir.file("unread.srt"))});
    EXPECT_EQ(unread.exitCode, 1);
    EXPECT_TRUE(unread.err.contains(QStringLiteral("wide-utf8.srt: cannot fix: FFmpeg cannot read it")))
        << unread.err.toStdString();
    EXPECT_FALSE(QFile::exists(qs(dir.file("unread.srt"))));
    for (const CauseCase& c : causeCases()) {
        if (std::string(c.cause) != "open-refused") // the long file is the cause test's
            files.emplace_back(qs(dir.write(std::string("quirk-") + c.cause + "-" + c.name, c.bytes)),
                               c.name);
    }
    // What lint sees as written text, and fix reports as not drawn or not due.
    files.emplace_back(
        qs(dir.write("drawing.ass", scriptHead +
                                        dialogue("0:00:01.00", "0:00:02.00", "{\\p1}m 0 0 l 9 0{\\p0}") +
                                        dialogue("0:00:03.00", "0:00:04.00", "two"))),
        "drawing.ass");
    files.emplace_back(
        qs(dir.write("karaoke.ass", scriptHead + dialogue("0:00:01.00", "0:00:02.00", "{\\k20}ka{\\k30}ra") +
                                        dialogue("0:00:03.00", "0:00:04.00", "two"))),
        "karaoke.ass");
    files.emplace_back(qs(dir.write("zero.ass", scriptHead + dialogue("0:00:00.00", "0:00:01.00", "zero") +
                                                    dialogue("0:00:02.00", "0:00:03.00", "two"))),
                       "zero.ass");
    for (const auto& file : files) {
        for (const char* copyName : {"copy.srt", "copy.ass"}) {
            SCOPED_TRACE(file.first.toStdString() + " -> " + copyName);
            const QString copy = qs(dir.file(copyName));
            const RunResult fixed = runZemsub({"fix", file.first, "-o", copy});
            EXPECT_TRUE(fixed.exitCode == 0 || fixed.exitCode == 3) << fixed.err.toStdString();
            int after = -1;
            const nlohmann::json report = lintJson(copy, &after);
            EXPECT_TRUE(after == 0 || after == 3);
            // A script reader removes text between "<" and ">" whatever it holds.
            const bool script = std::string(copyName) == "copy.ass";
            for (const std::string& code : causeCodes(report))
                EXPECT_TRUE(cannotCure.count(code) == 1 || (script && code == "angle-pair")) << code;
        }
    }
}

} // namespace
#endif
