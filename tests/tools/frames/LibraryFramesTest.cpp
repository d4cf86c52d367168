// The frame source of a file the library plays: the video's frame at that time
// with the caption image laid centred on it, one getSubtitleData call a frame.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ISubTitle.h"
#    include "ToolRunner.h"
#    include "support/TestFiles.h"
#    include "zemsub/frames/LibraryFrames.h"

#    include <QColor>
#    include <gtest/gtest.h>

using namespace zemsub::tool;

namespace {

const QSize kFrame(320, 180);
// The library never shows a SubRip file's last caption: the second stands behind the first.
const std::string kCaption = "1\n00:00:01,000 --> 00:00:02,000\nCAPTION\n\n"
                             "2\n00:00:05,000 --> 00:00:06,000\nlast\n";

// A dark frame whose blue channel says the time it was made for.
QImage videoAt(long long ms)
{
    QImage image(kFrame, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(10, 20, int(ms % 100)));
    return image;
}

struct OpenedSubtitle
{
    explicit OpenedSubtitle(const std::string& path) : subtitle(createSubtitle())
    {
        subtitle->setVideoSize(kFrame.width(), kFrame.height());
        subtitle->setFontInfo("DejaVu Sans", 0xFFFFFF, 14, "Bold", 2);
        subtitle->setSubtitlePos(kFrame.width() / 2, kFrame.height() - 10);
        opened = subtitle->open(path.c_str());
    }
    ~OpenedSubtitle()
    {
        subtitle->close();
        destroySubtitle(&subtitle);
    }
    ISubTitle* subtitle;
    bool opened = false;
};

} // namespace

TEST(ZemsubLibraryFrames, AFrameWithACaptionIsTheVideoFrameOfThatTimeWithTheCaptionWhereTheRecordSays)
{
    TempDir dir;
    OpenedSubtitle file(dir.write("one.srt", kCaption));
    ASSERT_TRUE(file.opened);
    std::vector<long long> asked;
    LibraryFrames frames(*file.subtitle, kFrame, [&asked](long long ms) {
        asked.push_back(ms);
        return videoAt(ms);
    });

    const SourceFrame shown = frames.frameAt(1537);
    EXPECT_EQ(asked, std::vector<long long>{1537});
    ASSERT_TRUE(shown.shown);
    const CaptionRecord record = frames.record();
    EXPECT_TRUE(record.shown);
    EXPECT_EQ(shown.described, QStringLiteral("record ") + describeRecord(record));
    EXPECT_TRUE(shown.tileNote.isEmpty());
    EXPECT_EQ(shown.image.size(), kFrame);
    // The caption image covers the frame; the caption's bottom centre stands at
    // the frame's centre plus the record's x and y.
    EXPECT_EQ(record.width, kFrame.width());
    EXPECT_EQ(record.height, kFrame.height());
    const QRect caption = brightPixels(shown.image, 200);
    ASSERT_FALSE(caption.isNull());
    const QPoint point(kFrame.width() / 2 + record.x, kFrame.height() / 2 + record.y);
    EXPECT_LE(caption.bottom(), point.y());
    EXPECT_GE(caption.bottom(), point.y() - 12);
    EXPECT_NEAR(caption.center().x(), point.x(), 6);
    // Away from the caption the pixels are the video's of 1537 ms.
    EXPECT_EQ(shown.image.pixel(2, 2), videoAt(1537).pixel(2, 2));
}

TEST(ZemsubLibraryFrames, AFrameWithoutACaptionIsTheVideoFrameUntouched)
{
    TempDir dir;
    OpenedSubtitle file(dir.write("one.srt", kCaption));
    ASSERT_TRUE(file.opened);
    LibraryFrames frames(*file.subtitle, kFrame, videoAt);
    frames.frameAt(1500);
    const SourceFrame none = frames.frameAt(2500);
    EXPECT_FALSE(none.shown);
    EXPECT_FALSE(frames.record().shown); // the record of the frame asked last
    EXPECT_EQ(none.described, QStringLiteral("record none"));
    EXPECT_EQ(none.tileNote, QStringLiteral("  (nothing shown)"));
    EXPECT_EQ(none.image, videoAt(2500));
}

TEST(ZemsubLibraryFrames, CaptionsAndTheLastTimeAreTheOnesGiven)
{
    TempDir dir;
    OpenedSubtitle file(dir.write("one.srt", kCaption));
    ASSERT_TRUE(file.opened);
    const LibraryFrames bare(*file.subtitle, kFrame, videoAt);
    EXPECT_TRUE(bare.captions().empty());
    EXPECT_EQ(bare.lastTime(), 0);
    EXPECT_EQ(bare.frameSize(), kFrame);
    EXPECT_EQ(bare.holder(), QStringLiteral("file"));
    EXPECT_EQ(bare.captionWord(), QStringLiteral("captions"));
    const LibraryFrames given(*file.subtitle, kFrame, videoAt, {SourceCaption{1, 1500}}, 2000);
    ASSERT_EQ(given.captions().size(), 1u);
    EXPECT_EQ(given.captions()[0].number, 1);
    EXPECT_EQ(given.captions()[0].time, 1500);
    EXPECT_EQ(given.lastTime(), 2000);
}

#endif
