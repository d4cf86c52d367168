// zemsub dump: the timeline as the library stores it, read right after Open.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "support/TestFiles.h"

#    include <gtest/gtest.h>
#    include <nlohmann/json.hpp>

namespace {

nlohmann::json dumpJson(const QString& path)
{
    const RunResult result = runZemsub({"dump", "--json", path});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    return nlohmann::json::parse(result.out.toStdString());
}

TEST(ZemsubDump, SubRipRowsAreKeyStartEndText)
{
    const RunResult result = runZemsub({"dump", sample("film.srt")});
    EXPECT_EQ(result.exitCode, 0);
    const QStringList lines = result.out.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 13);
    EXPECT_EQ(lines[0], "key\tstart\tend\ttext");
    EXPECT_EQ(lines[2],
              "2\t00:00:04,100\t00:00:06,900\t\\nThen we walk.\\nIt's only four miles to the point.");
    EXPECT_EQ(lines[6], "6\t00:00:16,200\t00:00:19,000\t\\n<i>Hello? Is anyone up there?</i>");
    EXPECT_EQ(lines[12], "12\t00:00:35,600\t00:00:38,000\t\\nNo. After you.");
}

TEST(ZemsubDump, SubRipJsonHoldsNoScriptFields)
{
    const nlohmann::json dump = dumpJson(sample("film.srt"));
    EXPECT_EQ(dump["formatCode"], 1);
    ASSERT_EQ(dump["entries"].size(), 12u);
    const nlohmann::json& first = dump["entries"][0];
    EXPECT_EQ(first["key"], 1);
    EXPECT_EQ(first["start"], 1200);
    EXPECT_EQ(first["end"], 3800);
    EXPECT_EQ(first["text"], "\nThe last ferry left an hour ago.");
    EXPECT_FALSE(first.contains("layer"));
    EXPECT_FALSE(first.contains("style"));
}

TEST(ZemsubDump, ScriptEntriesCarryLayerStyleNameAndEffect)
{
    const nlohmann::json dump = dumpJson(sample("styled.ass"));
    EXPECT_EQ(dump["formatCode"], 2);
    const nlohmann::json& entries = dump["entries"];
    ASSERT_EQ(entries.size(), 7u);
    EXPECT_EQ(entries[1]["text"], "\nAgain? It's never been on time.");
    EXPECT_EQ(entries[1]["name"], "Tomas");
    EXPECT_EQ(entries[2]["text"], "\nThen we wait.\nThe lights will tell us.");
    EXPECT_EQ(entries[4]["layer"], 1);
    EXPECT_EQ(entries[4]["style"], "Sign");
    EXPECT_EQ(entries[4]["name"], "");
    EXPECT_EQ(entries[4]["effect"], "");
    EXPECT_EQ(entries[4]["text"], "\nPIER 4 - NO MOORING");
    EXPECT_EQ(entries[4]["start"], 13500);
    EXPECT_EQ(entries[6]["key"], 7);
}

TEST(ZemsubDump, SsaScriptDropsTheMarkedFieldAndTheStyleStar)
{
    const nlohmann::json dump = dumpJson(sample("classic.ssa"));
    const nlohmann::json& entries = dump["entries"];
    ASSERT_EQ(entries.size(), 5u);
    EXPECT_EQ(entries[0]["layer"], 0);
    EXPECT_EQ(entries[0]["style"], "Default");
    EXPECT_EQ(entries[0]["start"], 500);
    EXPECT_EQ(entries[2]["text"], "\nAt two in the morning?\nYou'd better sign the book.");
}

TEST(ZemsubDump, PlainScriptRowsHaveSevenColumnsBeforeTheText)
{
    const RunResult result = runZemsub({"dump", sample("styled.ass")});
    const QStringList lines = result.out.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[0], "key\tstart\tend\tlayer\tstyle\tname\teffect\ttext");
    EXPECT_EQ(lines[5], "5\t00:00:13,500\t00:00:16,000\t1\tSign\t\t\t\\nPIER 4 - NO MOORING");
}

TEST(ZemsubDump, ShowsTheMapAsOpenLeftItBeforeAnyLookUp)
{
    // The look-up inserts missing keys; dump reads the map before any look-up, so key 2 is absent.
    TempDir dir;
    const QString path = qs(dir.write("gap.srt", "1\n00:00:01,000 --> 00:00:02,000\nA\n\n"
                                                 "3\n00:00:03,000 --> 00:00:04,000\nB\n\n"
                                                 "4\n00:00:05,000 --> 00:00:06,000\nC\n"));
    const nlohmann::json dump = dumpJson(path);
    ASSERT_EQ(dump["entries"].size(), 3u);
    EXPECT_EQ(dump["entries"][0]["key"], 1);
    EXPECT_EQ(dump["entries"][1]["key"], 3);
    EXPECT_EQ(dump["entries"][2]["key"], 4);
}

TEST(ZemsubDump, WideEntriesAreDecodedText)
{
    const nlohmann::json dump = dumpJson(sample("wide-utf8.srt"));
    EXPECT_EQ(dump["formatCode"], 4);
    EXPECT_EQ(dump["wide"], true);
    ASSERT_EQ(dump["entries"].size(), 3u);
    EXPECT_EQ(dump["entries"][1]["text"], "\nTr\xc3\xa8s bien, merci.\nUnd dir? Gr\xc3\xbc\xc3\x9f dich!");
}

TEST(ZemsubDump, IndexEntriesAreKeyedByTheirLinePosition)
{
    const nlohmann::json dump = dumpJson(sample("vobsub.idx"));
    EXPECT_EQ(dump["reader"], "index");
    const nlohmann::json& entries = dump["entries"];
    ASSERT_EQ(entries.size(), 3u);
    // 16 non-empty lines stand before the first timestamp line.
    EXPECT_EQ(entries[0]["key"], 16);
    EXPECT_EQ(entries[0]["time"], 1000);
    EXPECT_EQ(entries[0]["filePos"], 0);
    EXPECT_EQ(entries[1]["key"], 17);
    EXPECT_EQ(entries[1]["filePos"], 0x800);
    EXPECT_EQ(entries[2]["time"], 7500);
    EXPECT_EQ(entries[2]["filePos"], 0x1000);
}

} // namespace
#endif
