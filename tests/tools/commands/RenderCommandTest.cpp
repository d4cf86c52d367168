// zemsub render: the frame a player draws, with the caption where the record says.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "SamplePictures.h"
#    include "ToolRunner.h"
#    include "support/TestFiles.h"

#    include <QDir>
#    include <QFile>

#    include <QImage>
#    include <gtest/gtest.h>

namespace {

const QColor kBackground(0x20, 0x40, 0x60);

struct Rendered
{
    RunResult run;
    QImage image;
};

Rendered render(const QString& file, const QString& time, const QStringList& options)
{
    static int counter = 0;
    static TempDir dir;
    const QString out = qs(dir.file("frame" + std::to_string(++counter) + ".png"));
    Rendered rendered;
    rendered.run = runZemsub(QStringList{"render", file, time, "-o", out} + options);
    rendered.image = QImage(out);
    return rendered;
}

// "\tpicture x=.. y=.. width=.. height=..\twrote " of a render line.
QString pictureField(const QRect& box)
{
    return QString("\tpicture x=%1 y=%2 width=%3 height=%4\twrote ")
        .arg(box.x())
        .arg(box.y())
        .arg(box.width())
        .arg(box.height());
}

// The caption's bottom centre in frame pixels, from the record: frame centre plus x and y.
QPoint recordPoint(const Rendered& rendered)
{
    return QPoint(rendered.image.width() / 2 + recordValue(rendered.run.out, "x"),
                  rendered.image.height() / 2 + recordValue(rendered.run.out, "y"));
}

void expectCaptionAt(const QRect& box, const QPoint& point)
{
    ASSERT_FALSE(box.isNull());
    // The block's last row is one above the point; the outline reaches two pixels further.
    EXPECT_LE(box.bottom(), point.y() + 1);
    EXPECT_GE(box.bottom(), point.y() - 12);
    EXPECT_NEAR(box.center().x(), point.x(), 6);
}

TEST(ZemsubRender, TheLibrarysDefaultFrameAndPosition)
{
    const Rendered r = render(sample("film.srt"), "2500", {"--background", "#204060"});
    EXPECT_EQ(r.run.exitCode, 0) << r.run.err.toStdString();
    EXPECT_EQ(r.image.size(), QSize(480, 360));
    EXPECT_TRUE(r.run.out.startsWith("time 00:00:02,500\trecord x=0 y=150 width=480 height=360\twrote "));
    expectCaptionAt(pixelsUnlike(r.image, kBackground), QPoint(240, 330));
}

TEST(ZemsubRender, CaptionPixelsSitWhereTheRecordSays)
{
    const Rendered r =
        render(sample("film.srt"), "00:00:02,500", {"--size", "640x360", "--background", "#204060"});
    EXPECT_EQ(r.run.exitCode, 0);
    EXPECT_EQ(r.image.size(), QSize(640, 360));
    EXPECT_EQ(recordValue(r.run.out, "width"), 640);
    EXPECT_EQ(recordValue(r.run.out, "height"), 360);
    expectCaptionAt(pixelsUnlike(r.image, kBackground), recordPoint(r));
    // White text inside its black outline.
    const QRect white = brightPixels(r.image, 230);
    ASSERT_FALSE(white.isNull());
    EXPECT_TRUE(pixelsUnlike(r.image, kBackground).contains(white));
}

TEST(ZemsubRender, PositionMovesTheCaptionAndTheRecord)
{
    const Rendered r = render(sample("film.srt"), "2500",
                              {"--size", "640x360", "--pos", "200,120", "--background", "#204060"});
    EXPECT_EQ(recordValue(r.run.out, "x"), 200 - 320);
    EXPECT_EQ(recordValue(r.run.out, "y"), 120 - 180);
    expectCaptionAt(pixelsUnlike(r.image, kBackground), QPoint(200, 120));
}

TEST(ZemsubRender, ColourIsReadWithRedInTheLowestByte)
{
    const Rendered red =
        render(sample("film.srt"), "2500", {"--colour", "0x0000FF", "--background", "black"});
    const Rendered blue =
        render(sample("film.srt"), "2500", {"--colour", "#0000FF", "--background", "black"});
    auto count = [](const QImage& image, int channel) {
        int n = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor c = image.pixelColor(x, y);
                const int values[] = {c.red(), c.green(), c.blue()};
                n +=
                    values[channel] > 200 && values[(channel + 1) % 3] < 60 && values[(channel + 2) % 3] < 60;
            }
        }
        return n;
    };
    EXPECT_GT(count(red.image, 0), 50);
    EXPECT_EQ(count(red.image, 2), 0);
    EXPECT_GT(count(blue.image, 2), 50);
    EXPECT_EQ(count(blue.image, 0), 0);
}

TEST(ZemsubRender, StyleWordIsTakenOnlyInItsExactCase)
{
    const QStringList base = {"--point", "30", "--background", "#204060"};
    const QImage regular = render(sample("film.srt"), "2500", base + QStringList{"--style", "Regular"}).image;
    const QImage bold = render(sample("film.srt"), "2500", base + QStringList{"--style", "Bold"}).image;
    const QImage italic = render(sample("film.srt"), "2500", base + QStringList{"--style", "Italic"}).image;
    const QImage lower = render(sample("film.srt"), "2500", base + QStringList{"--style", "bold"}).image;
    ASSERT_FALSE(regular.isNull());
    EXPECT_NE(bold, regular);
    EXPECT_NE(italic, regular);
    EXPECT_NE(italic, bold);
    // Any other word leaves the font as it was: the default, upright and normal.
    EXPECT_EQ(lower, regular);
}

TEST(ZemsubRender, FullTransparencyDrawsACaptionNobodySees)
{
    const Rendered r =
        render(sample("film.srt"), "2500", {"--transparency", "100", "--background", "#204060"});
    EXPECT_EQ(r.run.exitCode, 0);
    EXPECT_EQ(recordValue(r.run.out, "width"), 480);
    EXPECT_TRUE(pixelsUnlike(r.image, kBackground, 0).isNull());
}

TEST(ZemsubRender, NoCaptionWritesThePlainFrame)
{
    const Rendered r = render(sample("film.srt"), "0", {"--background", "#204060"});
    EXPECT_EQ(r.run.exitCode, 0);
    EXPECT_TRUE(r.run.out.contains("\trecord none\t"));
    EXPECT_FALSE(r.image.isNull());
    EXPECT_TRUE(pixelsUnlike(r.image, kBackground, 0).isNull());
}

TEST(ZemsubRender, BackgroundImageCoversTheFrame)
{
    TempDir dir;
    QImage green(64, 36, QImage::Format_RGB32);
    green.fill(QColor(0, 200, 0));
    const QString picture = qs(dir.file("green.png"));
    ASSERT_TRUE(green.save(picture));
    const Rendered r = render(sample("film.srt"), "0", {"--size", "320x180", "--background", picture});
    EXPECT_EQ(r.run.exitCode, 0);
    EXPECT_TRUE(pixelsUnlike(r.image, QColor(0, 200, 0), 2).isNull());
}

TEST(ZemsubRender, WithoutABackgroundTheFrameIsSynthetic)
{
    const Rendered r = render(sample("film.srt"), "0", {});
    EXPECT_EQ(r.run.exitCode, 0);
    EXPECT_FALSE(pixelsUnlike(r.image, r.image.pixelColor(0, 0), 4).isNull());
    EXPECT_TRUE(brightPixels(r.image, 200).isNull());
}

TEST(ZemsubRender, TwoLineScriptCaptionStandsTwiceAsHigh)
{
    const Rendered one = render(sample("styled.ass"), "0:00:02.00", {"--background", "#204060"});
    const Rendered two = render(sample("styled.ass"), "0:00:08.00", {"--background", "#204060"});
    const QRect oneBox = pixelsUnlike(one.image, kBackground);
    const QRect twoBox = pixelsUnlike(two.image, kBackground);
    ASSERT_FALSE(oneBox.isNull());
    ASSERT_FALSE(twoBox.isNull());
    EXPECT_GT(twoBox.height(), oneBox.height() * 3 / 2);
    EXPECT_NEAR(twoBox.bottom(), oneBox.bottom(), 6);
}

TEST(ZemsubRender, WideSampleRenders)
{
    const Rendered r = render(sample("wide-utf8.srt"), "2000", {"--background", "#204060"});
    EXPECT_EQ(r.run.exitCode, 0);
    expectCaptionAt(pixelsUnlike(r.image, kBackground), recordPoint(r));
}

// The VobSub sample's subpictures, decoded and laid on the index's 720x480 frame.
TEST(ZemsubRender, IndexSubpicturesLieOnTheFrameAsTheScriptDrewThem)
{
    const ScriptOutput script = runSampleScript();
    ASSERT_TRUE(script.ran) << script.failure.toStdString();
    ASSERT_EQ(script.pictures.size(), 3u);
    for (const DrawnPicture& drawn : script.pictures) {
        SCOPED_TRACE(drawn.start);
        const Rendered r = render(sample("vobsub.idx"), QString::number(drawn.start), {"--background", "#204060"});
        EXPECT_EQ(r.run.exitCode, 0) << r.run.err.toStdString();
        const QRect box(drawn.position, drawn.image.size());
        EXPECT_TRUE(r.run.out.contains(pictureField(box)))
            << r.run.out.toStdString();
        ASSERT_EQ(r.image.size(), QSize(720, 480));
        // Nothing outside the subpicture changes; inside, every pixel is the drawn one
        // (the frame where the drawing is transparent).
        EXPECT_EQ(pixelsUnlike(r.image, kBackground, 0), box);
        int differing = 0;
        for (int y = 0; y < box.height(); ++y) {
            for (int x = 0; x < box.width(); ++x) {
                const QRgb want = drawn.image.pixel(x, y);
                const QRgb expected = qAlpha(want) == 255 ? want : kBackground.rgb();
                differing += r.image.pixel(box.x() + x, box.y() + y) != expected;
            }
        }
        EXPECT_EQ(differing, 0);
    }
}

// The script's pair written as movie.idx and movie.sub into a folder of dir; the index's path.
QString writePair(const TempDir& dir, const ScriptOutput& script, const std::string& folder)
{
    QDir(qs(dir.path())).mkpath(qs(folder));
    dir.write(folder + "/movie.sub", script.sub.toStdString());
    return qs(dir.write(folder + "/movie.idx", script.index.toStdString()));
}

TEST(ZemsubRender, IndexWithoutASizeLineTakesTheFrameItsPicturesReach)
{
    // Pictures placed for a 1080-line frame; without a size: line, a 720x480 frame would lose them.
    const ScriptOutput script = runSampleScript({"--size", "none", "--position", "1500,900"});
    ASSERT_TRUE(script.ran) << script.failure.toStdString();
    ASSERT_FALSE(script.index.contains("size:"));
    TempDir dir;
    const QString index = writePair(dir, script, "wide");
    // The largest picture, 200x40 at 1500,900, reaches 1700,940.
    for (const DrawnPicture& drawn : script.pictures) {
        SCOPED_TRACE(drawn.start);
        const Rendered r = render(index, QString::number(drawn.start), {"--background", "#204060"});
        EXPECT_EQ(r.run.exitCode, 0);
        EXPECT_EQ(r.run.err, "render: the index has no size: line; its frame is 1700x940, as far as its "
                             "pictures reach (at least 720x480)\n");
        const QRect box(drawn.position, drawn.image.size());
        EXPECT_TRUE(r.run.out.contains(pictureField(box)))
            << r.run.out.toStdString();
        EXPECT_EQ(r.image.size(), QSize(1700, 940));
        EXPECT_EQ(pixelsUnlike(r.image, kBackground, 0), box);
    }
}

TEST(ZemsubRender, IndexWithoutASizeLineKeepsAtLeastTheDvdFrame)
{
    const ScriptOutput script = runSampleScript({"--size", "none"});
    ASSERT_TRUE(script.ran) << script.failure.toStdString();
    TempDir dir;
    const Rendered r = render(writePair(dir, script, "small"), "1000", {"--background", "#204060"});
    EXPECT_EQ(r.run.exitCode, 0);
    EXPECT_EQ(r.run.err, "render: the index has no size: line; its frame is 720x480, as far as its "
                         "pictures reach (at least 720x480)\n");
    EXPECT_EQ(r.image.size(), QSize(720, 480));
    EXPECT_EQ(pixelsUnlike(r.image, kBackground, 0), QRect(300, 400, 96, 24));

    // Without its .sub there is nothing to measure: the least frame.
    TempDir alone;
    const QString lonely = qs(alone.write("movie.idx", script.index.toStdString()));
    const Rendered missing = render(lonely, "1000", {"--background", "#204060"});
    EXPECT_EQ(missing.run.exitCode, 0);
    EXPECT_TRUE(missing.run.err.contains("its frame is 720x480")) << missing.run.err.toStdString();
    EXPECT_EQ(missing.image.size(), QSize(720, 480));
}

TEST(ZemsubRender, IndexSizeLineIsTheFrameEvenWhenPicturesReachFurther)
{
    const ScriptOutput large = runSampleScript({"--size", "1920x1080", "--position", "1500,900"});
    ASSERT_TRUE(large.ran) << large.failure.toStdString();
    TempDir dir;
    const Rendered r = render(writePair(dir, large, "large"), "1000", {"--background", "#204060"});
    EXPECT_EQ(r.run.exitCode, 0);
    EXPECT_TRUE(r.run.err.isEmpty()) << r.run.err.toStdString();
    EXPECT_TRUE(r.run.out.contains("\tpicture x=1500 y=900 width=96 height=24\twrote ")) << r.run.out.toStdString();
    EXPECT_EQ(r.image.size(), QSize(1920, 1080));
    EXPECT_EQ(pixelsUnlike(r.image, kBackground, 0), QRect(1500, 900, 96, 24));
}

TEST(ZemsubRender, IndexPictureBeyondItsFrameSaysWhy)
{
    const ScriptOutput partly = runSampleScript({"--position", "650,470"});
    const ScriptOutput beyond = runSampleScript({"--position", "800,500"});
    ASSERT_TRUE(partly.ran) << partly.failure.toStdString();
    ASSERT_TRUE(beyond.ran) << beyond.failure.toStdString();
    TempDir dir;
    const Rendered cut = render(writePair(dir, partly, "partly"), "1000", {"--background", "#204060"});
    EXPECT_EQ(cut.run.exitCode, 0);
    EXPECT_TRUE(cut.run.out.contains("\tpicture x=650 y=470 width=96 height=24 (partly outside the 720x480 "
                                     "frame: it reaches 746,494)\twrote "))
        << cut.run.out.toStdString();
    // Only the part inside the frame is drawn.
    EXPECT_EQ(cut.image.size(), QSize(720, 480));
    EXPECT_EQ(pixelsUnlike(cut.image, kBackground, 0), QRect(650, 470, 70, 10));

    const Rendered lost = render(writePair(dir, beyond, "beyond"), "1000", {"--background", "#204060"});
    EXPECT_EQ(lost.run.exitCode, 0);
    EXPECT_TRUE(lost.run.out.contains(
        "\tpicture x=800 y=500 width=96 height=24 (outside the 720x480 frame: it reaches 896,524)\twrote "))
        << lost.run.out.toStdString();
    EXPECT_TRUE(pixelsUnlike(lost.image, kBackground, 0).isNull());
}

TEST(ZemsubRender, FullyTransparentIndexPictureIsNoPicture)
{
    // Every code at contrast 0: the decoder keeps nothing of the packet.
    const ScriptOutput script = runSampleScript({"--contrast", "0,0,0,0"});
    ASSERT_TRUE(script.ran) << script.failure.toStdString();
    TempDir dir;
    const Rendered r = render(writePair(dir, script, "clear"), "1000", {"--background", "#204060"});
    EXPECT_EQ(r.run.exitCode, 0);
    EXPECT_TRUE(r.run.out.contains("\tpicture none (the decoder found no picture in the packet)\t"))
        << r.run.out.toStdString();
    EXPECT_TRUE(pixelsUnlike(r.image, kBackground, 0).isNull());
}

TEST(ZemsubRender, IndexFrameIsScaledToTheGivenSize)
{
    const Rendered r = render(sample("vobsub.idx"), "1000", {"--size", "360x240", "--background", "#204060"});
    EXPECT_EQ(r.run.exitCode, 0) << r.run.err.toStdString();
    // The record stays on the index's frame; the picture is drawn at half size.
    EXPECT_TRUE(r.run.out.contains("\tpicture x=300 y=400 width=96 height=24\t"));
    EXPECT_EQ(r.image.size(), QSize(360, 240));
    EXPECT_EQ(pixelsUnlike(r.image, kBackground, 0), QRect(150, 200, 48, 12));
}

TEST(ZemsubRender, IndexWithoutItsSubOrWithAnUndecodablePacketDrawsThePlainFrame)
{
    TempDir dir;
    QFile index(sample("vobsub.idx"));
    ASSERT_TRUE(index.open(QIODevice::ReadOnly));
    const std::string indexBytes = index.readAll().toStdString();
    QDir(qs(dir.path())).mkpath("alone");
    const QString alone = qs(dir.write("alone/movie.idx", indexBytes));
    const Rendered missing = render(alone, "1000", {"--background", "#204060"});
    EXPECT_EQ(missing.run.exitCode, 0);
    EXPECT_TRUE(missing.run.out.contains("\tpicture none (no packet: no .sub file beside the index)\t"))
        << missing.run.out.toStdString();
    EXPECT_TRUE(pixelsUnlike(missing.image, kBackground, 0).isNull());

    // The first unit's control offset pointed past its end.
    QFile sub(sample("vobsub.sub"));
    ASSERT_TRUE(sub.open(QIODevice::ReadOnly));
    QByteArray bytes = sub.readAll();
    const int unit = 24 + static_cast<unsigned char>(bytes[22]);
    bytes[unit + 2] = char(0xFF);
    bytes[unit + 3] = char(0xF0);
    QDir(qs(dir.path())).mkpath("damaged");
    const QString damaged = qs(dir.write("damaged/movie.idx", indexBytes));
    dir.write("damaged/movie.sub", bytes.toStdString());
    const Rendered r = render(damaged, "1000", {"--background", "#204060"});
    EXPECT_EQ(r.run.exitCode, 0);
    EXPECT_TRUE(r.run.out.contains("\tpicture none (the decoder found no picture in the packet)\t"))
        << r.run.out.toStdString();
    EXPECT_TRUE(r.run.err.isEmpty()) << r.run.err.toStdString(); // FFmpeg stays quiet
    EXPECT_TRUE(pixelsUnlike(r.image, kBackground, 0).isNull());
    // The second one is untouched.
    EXPECT_TRUE(render(damaged, "4000", {}).run.out.contains("\tpicture x=300 y=400 width=120 height=24\t"));
}

TEST(ZemsubRender, BlurayPicturesShowOnTheirFrameWhileTheyLast)
{
    const Rendered r = render(sample("words.sup"), "2000", {"--background", "#204060"});
    EXPECT_EQ(r.run.exitCode, 0) << r.run.err.toStdString();
    EXPECT_TRUE(r.run.out.startsWith("time 00:00:02,000\ttrack 0 (pgssub, 1920x1080)\tpicture x="))
        << r.run.out.toStdString();
    EXPECT_FALSE(r.run.out.contains("outside")) << r.run.out.toStdString();
    ASSERT_EQ(r.image.size(), QSize(1920, 1080));
    const QRect box = pixelsUnlike(r.image, kBackground, 0);
    ASSERT_FALSE(box.isNull());
    // Centred, 60 pixels above the bottom; white text is there.
    EXPECT_NEAR(box.center().x(), 960, 4);
    EXPECT_LE(box.bottom(), 1020);
    EXPECT_GT(box.bottom(), 980);
    EXPECT_FALSE(brightPixels(r.image, 230).isNull());

    // Between the first picture's clearing (3000) and the second (3500) nothing shows.
    const Rendered gap = render(sample("words.sup"), "3200", {"--background", "#204060"});
    EXPECT_EQ(gap.run.exitCode, 0);
    EXPECT_TRUE(gap.run.out.contains("\tpicture none (no picture is shown at this time)\t")) << gap.run.out.toStdString();
    EXPECT_TRUE(pixelsUnlike(gap.image, kBackground, 0).isNull());
}

TEST(ZemsubRender, APictureTrackOfAVideoShowsAsItsIndexDoes)
{
    // tracks.mkv's track 2 holds the pictures of vobsub.idx.
    const Rendered track = render(sample("tracks.mkv"), "1000", {"--track", "2", "--background", "#204060"});
    EXPECT_EQ(track.run.exitCode, 0) << track.run.err.toStdString();
    EXPECT_TRUE(track.run.out.contains("\ttrack 2 (dvdsub, 720x480)\tpicture x=300 y=400 width=96 height=24\t"))
        << track.run.out.toStdString();
    const Rendered index = render(sample("vobsub.idx"), "1000", {"--background", "#204060"});
    EXPECT_EQ(track.image, index.image);

    const Rendered text = render(sample("tracks.mkv"), "1000", {"--track", "0"});
    EXPECT_EQ(text.run.exitCode, 1);
    EXPECT_TRUE(text.run.err.contains("tracks.mkv: track 0 is subrip, not pictures")) << text.run.err.toStdString();
    const Rendered bad = render(sample("tracks.mkv"), "1000", {"--track", "x"});
    EXPECT_EQ(bad.run.exitCode, 2);
    EXPECT_TRUE(bad.run.err.contains("render: --track wants a track number from 0, not \"x\""))
        << bad.run.err.toStdString();
}

} // namespace
#endif
