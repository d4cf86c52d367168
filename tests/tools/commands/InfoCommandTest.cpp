// zemsub info on the samples: the format the manager chooses and why, and what was read.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"

#    include <QFile>
#    include <gtest/gtest.h>
#    include <nlohmann/json.hpp>

namespace {

nlohmann::json infoJson(const QString& path)
{
    const RunResult result = runZemsub({"info", "--json", path});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    return nlohmann::json::parse(result.out.toStdString());
}

int nonEmptyLines(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    int count = 0;
    for (const QByteArray& line : file.readAll().split('\n'))
        count += line.isEmpty() ? 0 : 1;
    return count;
}

TEST(ZemsubInfo, SubRipSampleIsNarrowFormatCodeOne)
{
    const nlohmann::json info = infoJson(sample("film.srt"));
    EXPECT_EQ(info["formatCode"], 1);
    EXPECT_EQ(info["format"], "SubRip, narrow");
    EXPECT_EQ(info["wide"], false);
    EXPECT_EQ(info["opened"], true);
    EXPECT_EQ(info["lines"], nonEmptyLines(sample("film.srt")));
    EXPECT_EQ(info["entries"], 12);
    EXPECT_EQ(info["times"]["first"], 1200);
    EXPECT_EQ(info["times"]["last"], 38000);
    EXPECT_EQ(info["reason"],
              "first bytes 31 0A: no FF FE mark, narrow text; extension \"srt\" (after the last \".\")");
}

TEST(ZemsubInfo, PlainOutputNamesEveryField)
{
    const RunResult result = runZemsub({"info", sample("film.srt")});
    EXPECT_EQ(result.exitCode, 0);
    for (const char* line :
         {"format code:  1 (SubRip, narrow)\n", "text:         narrow\n", "open:         true\n",
          "entries:      12\n", "first time:   00:00:01,200\n", "last time:    00:00:38,000\n"})
        EXPECT_TRUE(result.out.contains(line)) << line << result.out.toStdString();
    EXPECT_TRUE(result.out.contains("why:          first bytes 31 0A: no FF FE mark"));
}

TEST(ZemsubInfo, ScriptSamplesAreFormatCodeTwo)
{
    const nlohmann::json ass = infoJson(sample("styled.ass"));
    EXPECT_EQ(ass["formatCode"], 2);
    EXPECT_EQ(ass["entries"], 7); // the Comment line is not an entry
    EXPECT_EQ(ass["lines"], nonEmptyLines(sample("styled.ass")));
    const nlohmann::json ssa = infoJson(sample("classic.ssa"));
    EXPECT_EQ(ssa["formatCode"], 2);
    EXPECT_EQ(ssa["entries"], 5);
    EXPECT_EQ(ssa["times"]["first"], 500);
    EXPECT_EQ(ssa["times"]["last"], 13000);
}

TEST(ZemsubInfo, MarkedSubRipIsWideFormatCodeFourForTheReasonOfItsMark)
{
    const nlohmann::json info = infoJson(sample("wide-utf8.srt"));
    EXPECT_EQ(info["formatCode"], 4);
    EXPECT_EQ(info["wide"], true);
    EXPECT_EQ(info["entries"], 3);
    EXPECT_TRUE(
        qs(info["reason"]).startsWith("first bytes FF FE: the FF FE mark, wide text; extension \"srt\""));
}

TEST(ZemsubInfo, UtfSixteenTextOpensWithNothingReadBeyondItsFirstLine)
{
    const nlohmann::json info = infoJson(sample("wide-utf16.srt"));
    EXPECT_EQ(info["formatCode"], 4);
    EXPECT_EQ(info["opened"], true);
    EXPECT_EQ(info["lines"], 1);
    EXPECT_EQ(info["entries"], 0);
    EXPECT_TRUE(info["times"].is_null());
}

TEST(ZemsubInfo, IndexSampleShowsTheIndexReadersState)
{
    const nlohmann::json info = infoJson(sample("vobsub.idx"));
    EXPECT_EQ(info["formatCode"], 0);
    EXPECT_TRUE(qs(info["reason"]).contains("the VobSub index reader, which the manager never uses"));
    const nlohmann::json& index = info["index"];
    EXPECT_EQ(index["opened"], true);
    EXPECT_EQ(index["timestamps"], 3);
    EXPECT_EQ(index["subPath"], ".idxsub"); // from the first "." of the path
    EXPECT_EQ(index["palette"].size(), 16u);
    EXPECT_EQ(index["palette"][1], "f0f0f0");
    EXPECT_EQ(index["palette"][15], "11bbbb");
    EXPECT_EQ(index["customColorSwitch"], 0);
    EXPECT_EQ(index["customColors"][3], "e0c020");
    EXPECT_EQ(index["transparencyMask"], 1); // tridx: 1000
}

TEST(ZemsubInfo, RefusedFilePrintsTheChoiceThenExitsOne)
{
    const RunResult result = runZemsub({"info", sample("vobsub.sub")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.out.contains("format code:  0 (none)"));
    EXPECT_TRUE(result.err.contains("vobsub.sub: not opened: first bytes 00 00"));
}

} // namespace
#endif
