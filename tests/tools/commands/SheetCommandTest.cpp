// zemsub sheet: one tile per caption or per step, with its time under it.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "SamplePictures.h"
#    include "ToolRunner.h"
#    include "support/TestFiles.h"

#    include <QDir>
#    include <QImage>
#    include <gtest/gtest.h>

namespace {

// Tiles are 320 pixels wide with 8 pixels between them; each row adds a 20-pixel label.
QSize sheetSize(int tiles, int columns, QSize frame)
{
    const int tileHeight = frame.height() * 320 / frame.width();
    const int rows = (tiles + columns - 1) / columns;
    return QSize(8 + std::min(columns, tiles) * 328, 28 + rows * (tileHeight + 28) + 8);
}

TEST(ZemsubSheet, OneTilePerCaption)
{
    TempDir dir;
    const QString out = qs(dir.file("sheet.png"));
    const RunResult result = runZemsub({"sheet", sample("film.srt"), "-o", out});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    // The last entry is never answered, so its tile shows nothing.
    EXPECT_EQ(result.out, QString("tiles 12\tshown 11\twrote %1\n").arg(out));
    EXPECT_EQ(QImage(out).size(), sheetSize(12, 4, QSize(480, 360)));
    EXPECT_TRUE(result.err.isEmpty()) << result.err.toStdString();
}

TEST(ZemsubSheet, EveryStepFromZero)
{
    TempDir dir;
    const QString out = qs(dir.file("steps.png"));
    const RunResult result = runZemsub(
        {"sheet", sample("styled.ass"), "-o", out, "--every", "3000", "--columns", "3", "--size", "640x360"});
    EXPECT_EQ(result.exitCode, 0);
    // 0, 3000, ..., 21000: the last end is 21000.
    EXPECT_TRUE(result.out.startsWith("tiles 8\t")) << result.out.toStdString();
    EXPECT_EQ(QImage(out).size(), sheetSize(8, 3, QSize(640, 360)));
}

TEST(ZemsubSheet, TooManyStepsIsAUsageError)
{
    TempDir dir;
    const RunResult result =
        runZemsub({"sheet", sample("film.srt"), "-o", qs(dir.file("x.png")), "--every", "1"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.err.contains("at most 2000"));
    EXPECT_EQ(runZemsub({"sheet", sample("film.srt"), "-o", qs(dir.file("x.png")), "--every", "0"}).exitCode,
              2);
    EXPECT_EQ(
        runZemsub({"sheet", sample("film.srt"), "-o", qs(dir.file("x.png")), "--columns", "0"}).exitCode, 2);
}

TEST(ZemsubSheet, MoreCaptionsThanASheetHoldsWantASteppedSheet)
{
    TempDir dir;
    std::string srt;
    for (int i = 1; i <= 2001; ++i)
        srt += std::to_string(i) + "\n00:00:01,000 --> 00:00:02,000\nx\n\n";
    const RunResult result =
        runZemsub({"sheet", qs(dir.write("many.srt", srt)), "-o", qs(dir.file("many.png"))});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.err.contains("the file holds 2001 captions; at most 2000 tiles (use --every)"))
        << result.err.toStdString();
}

TEST(ZemsubSheet, LongFilesReportProgressOnStderr)
{
    TempDir dir;
    std::string srt;
    for (int i = 1; i <= 60; ++i) {
        srt += std::to_string(i) + "\n00:00:" + (i < 10 ? "0" : "") + std::to_string(i) +
               ",000 --> 00:00:" + (i < 10 ? "0" : "") + std::to_string(i) + ",500\nLine " +
               std::to_string(i) + "\n\n";
    }
    const QString path = qs(dir.write("long.srt", srt));
    const RunResult result = runZemsub({"sheet", path, "-o", qs(dir.file("long.png")), "--size", "160x90"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.out.startsWith("tiles 60\tshown 59\t"));
    EXPECT_TRUE(result.err.contains("sheet: 25/60 tiles\n"));
    EXPECT_TRUE(result.err.contains("sheet: 60/60 tiles\n"));
}

TEST(ZemsubSheet, TilesShowTheCaptions)
{
    TempDir dir;
    const QString out = qs(dir.file("sheet.png"));
    runZemsub({"sheet", sample("classic.ssa"), "-o", out, "--background", "#204060", "--columns", "5"});
    const QImage sheet(out);
    ASSERT_FALSE(sheet.isNull());
    // Tile 1 shows a caption (white text), tile 5 (the last Dialogue line) shows none.
    const QRect first = brightPixels(sheet.copy(8, 28, 320, 240), 230);
    const QRect last = brightPixels(sheet.copy(8 + 4 * 328, 28, 320, 240), 230);
    EXPECT_FALSE(first.isNull());
    EXPECT_TRUE(last.isNull());
}

TEST(ZemsubSheet, OneTilePerSubpictureOfAnIndex)
{
    TempDir dir;
    const QString out = qs(dir.file("vobsub.png"));
    const RunResult result =
        runZemsub({"sheet", sample("vobsub.idx"), "-o", out, "--background", "#204060", "--columns", "3"});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_EQ(result.out, QString("tiles 3\tshown 3\twrote %1\n").arg(out));
    const QImage sheet(out);
    ASSERT_EQ(sheet.size(), sheetSize(3, 3, QSize(720, 480)));
    // Each tile shows its subpicture where the index places it: 300,400 of 720x480, scaled to 320 wide.
    for (int tile = 0; tile < 3; ++tile) {
        const QRect box = pixelsUnlike(sheet.copy(8 + tile * 328, 28, 320, 213), QColor(0x20, 0x40, 0x60));
        ASSERT_FALSE(box.isNull()) << tile;
        EXPECT_NEAR(box.left(), 300 * 320 / 720, 1) << tile;
        EXPECT_NEAR(box.top(), 400 * 320 / 720, 1) << tile;
    }
}

TEST(ZemsubSheet, IndexPicturesBeyondTheFrameAreNotCountedAsShown)
{
    const ScriptOutput script = runSampleScript({"--position", "650,470"});
    ASSERT_TRUE(script.ran) << script.failure.toStdString();
    TempDir dir;
    dir.write("movie.sub", script.sub.toStdString());
    const QString index = qs(dir.write("movie.idx", script.index.toStdString()));
    const QString out = qs(dir.file("cut.png"));
    const RunResult result = runZemsub({"sheet", index, "-o", out, "--columns", "3"});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_EQ(result.out, QString("tiles 3\tshown 0\twrote %1\n").arg(out));
    EXPECT_EQ(result.err,
              "sheet: the picture at 00:00:01,000 does not show whole: partly outside the 720x480 frame: it "
              "reaches 746,494\n"
              "sheet: the picture at 00:00:04,000 does not show whole: partly outside the 720x480 frame: it "
              "reaches 770,494\n"
              "sheet: the picture at 00:00:07,500 does not show whole: partly outside the 720x480 frame: it "
              "reaches 850,510\n");
}

TEST(ZemsubSheet, IndexWithoutASizeLineTilesTheFrameItsPicturesReach)
{
    const ScriptOutput script = runSampleScript({"--size", "none", "--position", "1500,900"});
    ASSERT_TRUE(script.ran) << script.failure.toStdString();
    TempDir dir;
    dir.write("movie.sub", script.sub.toStdString());
    const QString index = qs(dir.write("movie.idx", script.index.toStdString()));
    const QString out = qs(dir.file("wide.png"));
    const RunResult result = runZemsub({"sheet", index, "-o", out, "--columns", "3"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, QString("tiles 3\tshown 3\twrote %1\n").arg(out));
    EXPECT_EQ(result.err, "sheet: the index has no size: line; its frame is 1700x940, as far as its pictures "
                          "reach (at least 720x480)\n");
    EXPECT_EQ(QImage(out).size(), sheetSize(3, 3, QSize(1700, 940)));
}

TEST(ZemsubSheet, OneTilePerPictureOfABlurayTrackWithItsText)
{
    TempDir dir;
    const QString out = qs(dir.file("sup.png"));
    const RunResult result = runZemsub({"sheet", sample("words.sup"), "-o", out, "--text"});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_EQ(result.out, QString("tiles 8\tshown 8\twrote %1\n").arg(out));
    EXPECT_EQ(QImage(out).size(), sheetSize(8, 4, QSize(1920, 1080)));

    // The labels carry the text read: a sheet with it differs from one without.
    const QString plain = qs(dir.file("plain.png"));
    EXPECT_EQ(runZemsub({"sheet", sample("words.sup"), "-o", plain}).exitCode, 0);
    const QImage withText(out);
    const QImage without(plain);
    ASSERT_EQ(withText.size(), without.size());
    EXPECT_EQ(withText.copy(8, 28, 320, 180), without.copy(8, 28, 320, 180)); // the same frame
    EXPECT_NE(withText.copy(8, 208, 320, 20), without.copy(8, 208, 320, 20)); // another label
}

TEST(ZemsubSheet, AnIndexWithTextIsReadThroughFfmpeg)
{
    TempDir dir;
    const QString out = qs(dir.file("idx.png"));
    const RunResult result = runZemsub({"sheet", sample("words.idx"), "-o", out, "--text", "--columns", "8"});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_EQ(result.out, QString("tiles 8\tshown 8\twrote %1\n").arg(out));
    EXPECT_EQ(QImage(out).size(), sheetSize(8, 8, QSize(720, 576)));
}

} // namespace
#endif
