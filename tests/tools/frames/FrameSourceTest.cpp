// render and sheet take every frame from one interface, whatever the input.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "playback/LibraryView.h"
#    include "zemsub/frames/FrameRenderer.h"
#    include "zemsub/frames/PictureFrames.h"

#    include <gtest/gtest.h>

using namespace zemsub::tool;

TEST(ZemsubFrameSource, TheLibraryPlaysTheFileAndItsCaptionsAreTheStoredOnes)
{
    const QString path = sample("film.srt");
    const LibraryInput input = askLibrary(path);
    QString why;
    std::unique_ptr<CaptionPlayer> player = CaptionPlayer::open(input, RenderStyle(), &why);
    ASSERT_TRUE(player) << why.toStdString();
    const StoredTimeline timeline = readStoredTimeline(path, CodeSubRip);
    std::unique_ptr<FrameSource> frames = playedFrames(std::move(player), timeline);
    EXPECT_EQ(frames->frameSize(), QSize(480, 360));
    const std::vector<SourceCaption> captions = frames->captions();
    // film.srt: twelve captions, the last from 35.6 s to 38 s; a tile at each caption's middle.
    ASSERT_EQ(captions.size(), 12u);
    for (size_t i = 1; i < captions.size(); ++i)
        EXPECT_LE(captions[i - 1].time, captions[i].time);
    EXPECT_EQ(captions.back().number, 12);
    EXPECT_EQ(captions.back().time, 36800);
    EXPECT_EQ(frames->lastTime(), 38000);
    const SourceFrame shown = frames->frameAt(captions.front().time);
    EXPECT_TRUE(shown.shown);
    EXPECT_TRUE(shown.described.startsWith(QStringLiteral("record x="))) << shown.described.toStdString();
    EXPECT_EQ(shown.image.size(), QSize(480, 360));
    const SourceFrame none = frames->frameAt(0);
    EXPECT_FALSE(none.shown);
    EXPECT_EQ(none.tileNote, QStringLiteral("  (nothing shown)"));
}

TEST(ZemsubFrameSource, APictureTrackIsShownOnItsOwnFrame)
{
    OpenedPictures opened = TrackPictures::open(sample("tracks.mkv"), 2);
    ASSERT_TRUE(opened.pictures) << opened.failure.toStdString();
    std::unique_ptr<FrameSource> frames = trackFrames(std::move(*opened.pictures), RenderStyle());
    EXPECT_EQ(frames->frameSize(), QSize(720, 480)); // the track's frame, not the default size
    // tracks.mkv's DVD track: three pictures, at 1 s, 4 s and 7.5 s; the last, which
    // nothing clears, stays past its start.
    ASSERT_EQ(frames->captions().size(), 3u);
    EXPECT_EQ(frames->captions().front().number, 1);
    EXPECT_EQ(frames->captions().front().time, 1000);
    EXPECT_EQ(frames->captions().back().time, 7500);
    EXPECT_GT(frames->lastTime(), 7500);
    ASSERT_TRUE(frames->trackPictures());
    const SourceFrame frame = frames->frameAt(1000);
    EXPECT_TRUE(frame.shown);
    EXPECT_TRUE(frame.described.startsWith(QStringLiteral("track 2 ("))) << frame.described.toStdString();
}

TEST(ZemsubFrameSource, AnIndexIsShownThroughTheIndexReader)
{
    QString why;
    std::unique_ptr<IndexPictures> pictures = IndexPictures::open(sample("vobsub.idx"), &why);
    ASSERT_TRUE(pictures) << why.toStdString();
    RenderStyle style;
    style.size = QSize(360, 240);
    style.sizeGiven = true;
    std::unique_ptr<FrameSource> frames = indexFrames(std::move(pictures), style);
    EXPECT_EQ(frames->frameSize(), QSize(360, 240)); // a size given wins
    // vobsub.idx: timestamps at 1 s, 4 s and 7.5 s.
    ASSERT_EQ(frames->captions().size(), 3u);
    EXPECT_EQ(frames->captions()[1].time, 4000);
    EXPECT_EQ(frames->lastTime(), 7500);
    EXPECT_TRUE(frames->warnsOfProblems());
    EXPECT_FALSE(frames->trackPictures());
    const SourceFrame frame = frames->frameAt(1000);
    EXPECT_TRUE(frame.shown);
    EXPECT_TRUE(frame.described.startsWith(QStringLiteral("picture x="))) << frame.described.toStdString();
}

#endif
