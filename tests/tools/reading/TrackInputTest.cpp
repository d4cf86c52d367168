// The one way in: an input opened once, its tracks from the header, the track taken.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "reading/TrackInput.h"
#    include "support/TrackFiles.h"

#    include <gtest/gtest.h>

namespace {

using zemsub::tool::MediaInput;
using zemsub::tool::openTrack;
using zemsub::tool::TrackInput;
using zemsub::tool::TrackRequest;

TrackInput opened(const std::string& path, const TrackRequest& request)
{
    QString why;
    const std::optional<MediaInput> media = MediaInput::open(qs(path), &why);
    EXPECT_TRUE(media.has_value()) << why.toStdString();
    return openTrack(*media, request);
}

class TrackInputTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        dir = new TempDir;
        files = new TrackFiles(makeTrackFiles(*dir));
    }
    static void TearDownTestSuite()
    {
        delete files;
        delete dir;
    }
    void SetUp() override { ASSERT_TRUE(files->error.isEmpty()) << files->error.toStdString(); }

    static TempDir* dir;
    static TrackFiles* files;
};

TempDir* TrackInputTest::dir = nullptr;
TrackFiles* TrackInputTest::files = nullptr;

TEST_F(TrackInputTest, TheTrackPlayersTakeComesWithTheTrackListAndTheDemuxerToReadItFrom)
{
    const TrackInput input = opened(files->mkv, {});
    ASSERT_TRUE(input.chosen());
    EXPECT_EQ(input.tracks.tracks.size(), 3u);
    EXPECT_EQ(input.track().index, 1); // the default-flagged French track
    EXPECT_EQ(input.choice.why, QStringLiteral("default"));
    ASSERT_TRUE(input.demuxed);
    EXPECT_NE(input.demuxed->format(), nullptr);
    // The header alone: nothing counted.
    EXPECT_EQ(input.track().captions, 0);
}

TEST_F(TrackInputTest, ATrackByNumberOrByLanguage)
{
    EXPECT_EQ(opened(files->mkv, {2, QString(), false}).track().index, 2);
    EXPECT_EQ(opened(files->mkv, {-1, QStringLiteral("ENG"), false}).track().index, 0);
    const TrackInput missing = opened(files->mkv, {-1, QStringLiteral("ger"), false});
    EXPECT_EQ(missing.step, TrackInput::Step::NotChosen);
    EXPECT_FALSE(missing.choice.error.isEmpty());
}

TEST_F(TrackInputTest, HowFarItCameWhenNoTrackIsTaken)
{
    EXPECT_EQ(opened(files->audio, {}).step, TrackInput::Step::NoTracks);
    // Only pictures will do, and the file has text tracks alone.
    const TrackInput text = opened(files->mkv, {-1, QString(), true});
    EXPECT_EQ(text.step, TrackInput::Step::NotChosen);
    EXPECT_EQ(text.choice.error, QStringLiteral("it has no picture track"));

    const std::string garbage = dir->write("garbage.mkv", std::string(64, '\x7f'));
    const TrackInput unread = opened(garbage, {});
    EXPECT_EQ(unread.step, TrackInput::Step::Unread);
    EXPECT_FALSE(unread.tracks.failure.isEmpty());
}

TEST_F(TrackInputTest, APictureTrackIsTakenWherePicturesAloneWillDo)
{
    QString error;
    const std::string video = makePictureFile(*dir, sample("vobsub.idx").toStdString(), &error);
    ASSERT_FALSE(video.empty()) << error.toStdString();
    const TrackInput any = opened(video, {});
    ASSERT_TRUE(any.chosen());
    EXPECT_EQ(any.track().index, 1); // players take the first text track
    const TrackInput pictures = opened(video, {-1, QString(), true});
    ASSERT_TRUE(pictures.chosen());
    EXPECT_EQ(pictures.track().index, 0);
    EXPECT_TRUE(pictures.track().pictures);
}

} // namespace

#endif
