// The example host plays a file for a few seconds on the offscreen platform and
// captures a frame whose caption stands where the record says.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "support/TestFiles.h"

#    include <QImage>
#    include <QRegularExpression>
#    include <gtest/gtest.h>

namespace {

const std::string kTwoCaptions = "1\n00:00:00,100 --> 00:00:10,000\nHOST CAPTION\n\n"
                                 "2\n00:00:10,500 --> 00:00:11,000\nnever shown\n";

TEST(ZemsubHost, CapturedFrameShowsTheCaptionWhereTheRecordSays)
{
    TempDir dir;
    const QString subtitle = qs(dir.write("host.srt", kTwoCaptions));
    const QString frame = qs(dir.file("frame.png"));
    const RunResult result =
        runHost({"--seconds", "2", "--capture-at", "600", "--capture", frame, "--size", "480x270", subtitle});
    ASSERT_TRUE(result.finished);
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();

    const QRegularExpressionMatch captured =
        QRegularExpression("^captured clock=(\\d+) .*$", QRegularExpression::MultilineOption)
            .match(result.out);
    ASSERT_TRUE(captured.hasMatch()) << result.out.toStdString();
    EXPECT_GE(captured.captured(1).toLongLong(), 600);
    const QString line = captured.captured(0);
    EXPECT_EQ(recordValue(line, "width"), 480);
    EXPECT_EQ(recordValue(line, "height"), 270);

    const QImage image(frame);
    ASSERT_EQ(image.size(), QSize(480, 270));
    // The synthetic video is dark; the caption is white. Its bottom centre is the
    // frame's centre plus the record's x and y.
    const QRect caption = brightPixels(image, 200);
    ASSERT_FALSE(caption.isNull());
    const QPoint point(240 + recordValue(line, "x"), 135 + recordValue(line, "y"));
    EXPECT_LE(caption.bottom(), point.y());
    EXPECT_GE(caption.bottom(), point.y() - 12);
    EXPECT_NEAR(caption.center().x(), point.x(), 6);

    const QRegularExpressionMatch played =
        QRegularExpression("played (\\d+) frames, (\\d+) with a caption").match(result.out);
    ASSERT_TRUE(played.hasMatch());
    EXPECT_GE(played.captured(1).toInt(), 10);
    EXPECT_GE(played.captured(2).toInt(), 5);
}

TEST(ZemsubHost, StartingThePlayClockLaterShowsNothingAfterTheLastAnsweredCaption)
{
    TempDir dir;
    const QString subtitle = qs(dir.write("host.srt", kTwoCaptions));
    const RunResult result = runHost({"--seconds", "1", "--start", "10400", "--no-window", subtitle});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.out.contains(QRegularExpression("played \\d+ frames, 0 with a caption")))
        << result.out.toStdString();
}

TEST(ZemsubHost, FixedCopyShowsTheLastCaptionTheOriginalHides)
{
    TempDir dir;
    const QString subtitle = qs(dir.write("host.srt", kTwoCaptions));
    const QString frame = qs(dir.file("last.png"));
    const RunResult result = runHost({"--fix", "--seconds", "1", "--start", "10400", "--capture-at", "10500",
                                      "--capture", frame, "--size", "480x270", subtitle});
    ASSERT_TRUE(result.finished);
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_TRUE(result.out.contains("fixed " + subtitle + ": 2 of 2 captions as written")) << result.out.toStdString();
    const QRegularExpressionMatch played =
        QRegularExpression("played (\\d+) frames, (\\d+) with a caption").match(result.out);
    ASSERT_TRUE(played.hasMatch()) << result.out.toStdString();
    // The original shows nothing from 10400 on; how many frames a second holds depends on the machine.
    EXPECT_GE(played.captured(2).toInt(), 1);
    EXPECT_FALSE(brightPixels(QImage(frame), 200).isNull());
}

TEST(ZemsubHost, FixedCopyOfAVideosTrackOrOfPicturesPlays)
{
    TempDir dir;
    // Plays the fixed copy of file from 1.5 s, captures 2 s and expects a caption there.
    auto playFixed = [&dir](const QString& file, const QString& fixedLine) {
        SCOPED_TRACE(file.toStdString());
        const QString frame = qs(dir.file("frame.png"));
        const RunResult run = runHost({"--fix", "--seconds", "1", "--start", "1500", "--capture-at", "2000",
                                       "--capture", frame, "--size", "480x270", file});
        EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_TRUE(run.out.contains("fixed " + file + ": " + fixedLine)) << run.out.toStdString();
        EXPECT_FALSE(brightPixels(QImage(frame), 200).isNull());
    };
    // A video file: the copy of the track a player takes (the French one, flagged default); its
    // italic caption shows, but not in italics.
    playFixed(sample("tracks.mkv"), "7 of 8 captions as written");
    // Blu-ray pictures, read as text first; the one drawn in italics shows upright.
    playFixed(sample("words.sup"), "7 of 8 captions as written");
}

TEST(ZemsubHost, NoCaptionToCaptureExitsOne)
{
    TempDir dir;
    const QString subtitle = qs(dir.write("host.srt", kTwoCaptions));
    const RunResult result = runHost({"--seconds", "1", "--start", "10400", "--capture-at", "0", "--capture",
                                      qs(dir.file("f.png")), subtitle});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.err.contains("no frame with a caption"));
}

TEST(ZemsubHost, FileTheLibraryDoesNotOpenExitsOne)
{
    TempDir dir;
    const QString subtitle = qs(dir.write("host.txt", kTwoCaptions));
    const RunResult result = runHost({"--seconds", "1", subtitle});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.err.contains("the library does not open it"));
}

TEST(ZemsubHost, LibraryThatCannotBeLoadedExitsOne)
{
    TempDir dir;
    const QString subtitle = qs(dir.write("host.srt", kTwoCaptions));
    const RunResult result =
        runHost({"--library", qs(dir.file("libnothing.so")), "--seconds", "1", subtitle});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_FALSE(result.err.isEmpty());
}

TEST(ZemsubHost, BadArgumentsAreUsageErrors)
{
    EXPECT_EQ(runHost({}).exitCode, 2);
    EXPECT_EQ(runHost({"--seconds", "0", "x.srt"}).exitCode, 2);
    EXPECT_EQ(runHost({"--size", "big", "x.srt"}).exitCode, 2);
    EXPECT_EQ(runHost({"--help"}).exitCode, 0);
}

} // namespace
#endif
