// render and sheet take every frame from one interface, whatever the input.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "playback/LibraryView.h"
#    include "zemsub/frames/FrameSource.h"

#    include <gtest/gtest.h>

using namespace zemsub::tool;

TEST(ZemsubFrameSource, TheLibraryPlaysTheFileAndItsCaptionsAreTheStoredOnes)
{
    const QString path = sample("film.srt");
    const FileFacts facts = inspectFile(path);
    QString why;
    std::unique_ptr<CaptionPlayer> player = CaptionPlayer::open(facts, RenderStyle(), &why);
    ASSERT_TRUE(player) << why.toStdString();
    const StoredTimeline timeline = readStoredTimeline(path, CodeSubRip);
    std::unique_ptr<FrameSource> frames = libraryFrames(std::move(player), timeline);
    EXPECT_EQ(frames->frameSize(), QSize(480, 360));
    const std::vector<SourceCaption> captions = frames->captions();
    ASSERT_FALSE(captions.empty());
    for (size_t i = 1; i < captions.size(); ++i)
        EXPECT_LE(captions[i - 1].time, captions[i].time);
    long long last = 0;
    for (const StoredEntry& entry : timeline.entries)
        last = std::max(last, entry.end);
    EXPECT_EQ(frames->lastTime(), last);
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
    const std::vector<ShownPicture> pictures = opened.pictures->pictures();
    std::unique_ptr<FrameSource> frames = trackFrames(std::move(*opened.pictures), RenderStyle());
    EXPECT_EQ(frames->frameSize(), QSize(720, 480)); // the track's frame, not the default size
    ASSERT_EQ(frames->captions().size(), pictures.size());
    EXPECT_EQ(frames->captions().front().number, 1);
    EXPECT_EQ(frames->captions().front().time, pictures.front().start);
    EXPECT_EQ(frames->lastTime(), pictures.back().end);
    ASSERT_TRUE(frames->trackPictures());
    const SourceFrame frame = frames->frameAt(pictures.front().start);
    EXPECT_TRUE(frame.shown);
    EXPECT_TRUE(frame.described.startsWith(QStringLiteral("track 2 ("))) << frame.described.toStdString();
}

TEST(ZemsubFrameSource, AnIndexIsShownThroughTheIndexReader)
{
    QString why;
    std::unique_ptr<IndexPictures> pictures = IndexPictures::open(sample("vobsub.idx"), &why);
    ASSERT_TRUE(pictures) << why.toStdString();
    const std::vector<IndexEntry> entries = pictures->entries();
    RenderStyle style;
    style.size = QSize(360, 240);
    style.sizeGiven = true;
    std::unique_ptr<FrameSource> frames = indexFrames(std::move(pictures), style);
    EXPECT_EQ(frames->frameSize(), QSize(360, 240)); // a size given wins
    EXPECT_EQ(frames->captions().size(), entries.size());
    EXPECT_TRUE(frames->warnsOfProblems());
    EXPECT_FALSE(frames->trackPictures());
    const SourceFrame frame = frames->frameAt(entries.front().time);
    EXPECT_TRUE(frame.shown);
    EXPECT_TRUE(frame.described.startsWith(QStringLiteral("picture x="))) << frame.described.toStdString();
}

#endif
