// zemsub convert: plain copies of tracks for any player, many files in one run.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "support/TestFiles.h"

#    include <QDir>
#    include <QColor>
#    include <QFile>
#    include <QImage>
#    include <gtest/gtest.h>
#    include <nlohmann/json.hpp>

namespace {

QString readText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

TEST(ZemsubConvert, BlurayPicturesBecomeAPlainSubRipWithTheirItalics)
{
    TempDir dir;
    const QString copy = qs(dir.file("words.srt"));
    const RunResult run = runZemsub({"convert", sample("words.sup"), "-o", copy});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains(": 8 captions (1 in italics, 0 forced) -> " + copy)) << run.out.toStdString();
    const QString text = readText(copy);
    EXPECT_TRUE(text.startsWith("1\n00:00:01,000 --> 00:00:03,000\nHello, world!\n\n")) << text.toStdString();
    EXPECT_TRUE(text.contains("\n<i>Look at the sky.</i>\n")) << text.toStdString();
    // A plain copy: none of fix's marks for the library.
    EXPECT_FALSE(text.contains(QChar(0x2060)));
    EXPECT_FALSE(text.contains("-->x"));
}

TEST(ZemsubConvert, ManyFilesByAPatternSkippingCopiesThatExist)
{
    TempDir dir;
    QDir().mkpath(qs(dir.file("in")));
    ASSERT_TRUE(QFile::copy(sample("words.sup"), qs(dir.file("in/Movie.sup"))));
    ASSERT_TRUE(QFile::copy(sample("tracks.mkv"), qs(dir.file("in/Show.mkv"))));
    const QString pattern = qs(dir.file("out")) + "/{stem}.{lang}{forced}.vtt";
    const QStringList inputs{qs(dir.file("in/Movie.sup")), qs(dir.file("in/Show.mkv"))};
    const RunResult first = runZemsub(QStringList{"convert"} + inputs + QStringList{"-o", pattern});
    ASSERT_EQ(first.exitCode, 0) << first.err.toStdString();
    EXPECT_TRUE(readText(qs(dir.file("out/Movie.und.vtt"))).startsWith("WEBVTT\n\n00:00:01.000 --> "));
    // The video's track a player takes: the French one, flagged default.
    EXPECT_TRUE(QFile::exists(qs(dir.file("out/Show.fre.vtt"))));

    const RunResult again = runZemsub(QStringList{"convert"} + inputs + QStringList{"-o", pattern});
    EXPECT_EQ(again.exitCode, 0);
    EXPECT_EQ(again.out.count("exists; skipped"), 2) << again.out.toStdString();
    const RunResult overwrite =
        runZemsub(QStringList{"convert"} + inputs + QStringList{"-o", pattern, "--overwrite"});
    EXPECT_EQ(overwrite.exitCode, 0);
    EXPECT_EQ(overwrite.out.count("exists; skipped"), 0);
}

TEST(ZemsubConvert, AFileThatFailsIsReportedAndTheRunGoesOn)
{
    TempDir dir;
    const std::string broken = dir.write("broken.srt", "this is no subtitle file at all\n");
    const QString pattern = qs(dir.path()) + "/{stem}.copy.srt";
    const RunResult run = runZemsub({"convert", qs(broken), sample("words.sup"), "-o", pattern});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_TRUE(run.err.contains(qs(broken) + ": cannot convert: ")) << run.err.toStdString();
    EXPECT_TRUE(QFile::exists(qs(dir.file("words.copy.srt"))));
    EXPECT_FALSE(QFile::exists(qs(dir.file("broken.copy.srt"))));
}

TEST(ZemsubConvert, OneOutputForManyFilesIsAUsageError)
{
    TempDir dir;
    const RunResult run =
        runZemsub({"convert", sample("words.sup"), sample("words.idx"), "-o", qs(dir.file("one.srt"))});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.err.contains("{stem}")) << run.err.toStdString();
}

TEST(ZemsubConvert, JsonGivesEachCaptionAndEachPictureLeftOut)
{
    TempDir dir;
    const RunResult run =
        runZemsub({"convert", sample("tracks.mkv"), "--track", "2", "-o", qs(dir.file("bars.srt")), "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const nlohmann::json doc = nlohmann::json::parse(run.out.toStdString());
    ASSERT_EQ(doc.size(), 1u);
    EXPECT_EQ(doc[0]["track"]["index"], 2);
    EXPECT_EQ(doc[0]["track"]["readAs"], "eng");
    EXPECT_EQ(doc[0]["captions"].size(), 0u);
    ASSERT_EQ(doc[0]["leftOut"].size(), 3u);
    EXPECT_EQ(doc[0]["leftOut"][0]["start"], 1000);
    EXPECT_EQ(doc[0]["leftOut"][0]["x"], 300);

    const RunResult words = runZemsub({"convert", sample("words.sup"), "-o", qs(dir.file("w.ass")), "--json"});
    const nlohmann::json read = nlohmann::json::parse(words.out.toStdString());
    ASSERT_EQ(read[0]["captions"].size(), 8u);
    EXPECT_EQ(read[0]["captions"][5]["italic"], true);
    EXPECT_EQ(read[0]["captions"][0]["italic"], false);
    EXPECT_EQ(read[0]["captions"][0]["alignment"], 2);
    EXPECT_TRUE(readText(qs(dir.file("w.ass"))).contains(",,{\\i1}Look at the sky.{\\i0}\n"));
}

TEST(ZemsubConvert, ForcedOnlyKeepsTheForcedCaptions)
{
    TempDir dir;
    const RunResult run = runZemsub(
        {"convert", sample("words.sup"), "--forced-only", "-o", qs(dir.path()) + "/{stem}{forced}.srt"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    // The sample has no forced caption: an empty copy, named as forced.
    EXPECT_TRUE(run.out.contains(": 0 captions")) << run.out.toStdString();
    EXPECT_TRUE(QFile::exists(qs(dir.file("words.forced.srt"))));
}

TEST(ZemsubConvert, TheReviewSheetDrawsWhatDeservesASecondLook)
{
    TempDir dir;
    const QString sheet = qs(dir.file("review.png"));
    const RunResult run = runZemsub(
        {"convert", sample("tracks.mkv"), "--track", "2", "-o", qs(dir.file("bars.srt")), "--review", sheet});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains("3 pictures to look at again: " + sheet)) << run.out.toStdString();
    const QImage image(sheet);
    ASSERT_FALSE(image.isNull());
    // Three tiles in two columns: two rows under the title.
    EXPECT_GT(image.height(), 2 * 60);
    // The sample's bars are yellow: the tiles show the pictures themselves.
    bool yellow = false;
    for (int y = 0; y < image.height() && !yellow; ++y)
        for (int x = 0; x < image.width() && !yellow; ++x) {
            const QColor c = image.pixelColor(x, y);
            yellow = c.red() > 180 && c.green() > 150 && c.blue() < 90;
        }
    EXPECT_TRUE(yellow);

    // Clean pictures read with confidence give an empty sheet.
    const QString clean = qs(dir.file("clean.png"));
    const RunResult words =
        runZemsub({"convert", sample("words.idx"), "-o", qs(dir.file("w.srt")), "--review", clean});
    EXPECT_TRUE(words.out.contains("0 pictures to look at again")) << words.out.toStdString();
}

} // namespace
#endif
