// Opening a file's pictures answers what went wrong instead of leaving the program.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "support/TestFiles.h"
#    include "support/TrackFiles.h"
#    include "zemsub/pictures/IndexPictures.h"
#    include "zemsub/pictures/TrackPictures.h"

#    include <gtest/gtest.h>

using zemsub::tool::IndexPictures;
using zemsub::tool::OpenedPictures;
using zemsub::tool::TrackPictures;

TEST(ZemsubTrackPictures, ThePictureTrackPlayersTakeIsTakenWhenNoneIsNamed)
{
    // The default-flagged French text track does not count: the one picture track is taken.
    const OpenedPictures opened = TrackPictures::open(sample("tracks.mkv"), -1);
    EXPECT_TRUE(opened.failure.isEmpty()) << opened.failure.toStdString();
    ASSERT_TRUE(opened.pictures);
    EXPECT_EQ(opened.pictures->track(), 2);
    EXPECT_EQ(opened.pictures->pictures().size(), 3u);
}

TEST(ZemsubTrackPictures, TheDefaultFlaggedPictureTrackIsTakenBeforeTheFirst)
{
    TempDir dir;
    const QString error =
        runFfmpeg(dir.path(), {"-i", sample("vobsub.idx"), "-i", sample("words.idx"), "-map", "0:s", "-map", "1:s",
                               "-c:s", "copy", "-disposition:s:0", "0", "-disposition:s:1", "default",
                               "-default_mode", "passthrough", "two.mkv"});
    ASSERT_TRUE(error.isEmpty()) << error.toStdString();
    const OpenedPictures opened = TrackPictures::open(qs(dir.file("two.mkv")), -1);
    EXPECT_TRUE(opened.failure.isEmpty()) << opened.failure.toStdString();
    ASSERT_TRUE(opened.pictures);
    EXPECT_EQ(opened.pictures->track(), 1);
    EXPECT_EQ(opened.pictures->pictures().size(), 8u); // words.idx's eight captions
    // Named, the first is taken.
    const OpenedPictures first = TrackPictures::open(qs(dir.file("two.mkv")), 0);
    ASSERT_TRUE(first.pictures);
    EXPECT_EQ(first.pictures->pictures().size(), 3u);
}

TEST(ZemsubTrackPictures, NoPicturesWithoutANamedTrackIsNoFailure)
{
    const OpenedPictures text = TrackPictures::open(sample("film.srt"), -1);
    EXPECT_FALSE(text.pictures);
    EXPECT_TRUE(text.failure.isEmpty());
    const OpenedPictures missing = TrackPictures::open(sample("no-such-file.sup"), -1);
    EXPECT_FALSE(missing.pictures);
    EXPECT_TRUE(missing.failure.isEmpty());
}

TEST(ZemsubTrackPictures, ANamedTrackThatCannotBeShownSaysWhy)
{
    const OpenedPictures absent = TrackPictures::open(sample("tracks.mkv"), 7);
    EXPECT_FALSE(absent.pictures);
    EXPECT_EQ(absent.failure, QStringLiteral("it has no track 7"));
    const OpenedPictures text = TrackPictures::open(sample("tracks.mkv"), 0);
    EXPECT_FALSE(text.pictures);
    EXPECT_EQ(text.failure, QStringLiteral("track 0 is subrip, not pictures"));
    const OpenedPictures missing = TrackPictures::open(sample("no-such-file.sup"), 0);
    EXPECT_FALSE(missing.pictures);
    EXPECT_TRUE(missing.failure.startsWith(QStringLiteral("cannot open: "))) << missing.failure.toStdString();
}

TEST(ZemsubIndexPictures, AnIndexTheReaderRefusesSaysWhy)
{
    TempDir dir;
    QString why;
    EXPECT_FALSE(IndexPictures::open(qs(dir.write("empty.idx", "")), &why));
    EXPECT_EQ(why, QStringLiteral("cannot parse: the index reader did not open it (it reads at most 5000 lines)"));
    why = QStringLiteral("stale");
    EXPECT_TRUE(IndexPictures::open(sample("vobsub.idx"), &why));
    EXPECT_TRUE(why.isEmpty());
}

#endif
