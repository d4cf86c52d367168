// The track fix and lint take among a file's subtitle tracks.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "reading/TrackChoice.h"

#    include <gtest/gtest.h>

namespace {

using zemsub::tool::chooseTrack;
using zemsub::tool::SubtitleTrack;
using zemsub::tool::TrackChoice;

SubtitleTrack track(const char* language, bool isDefault = false, bool pictures = false)
{
    SubtitleTrack made;
    made.language = QString::fromLatin1(language);
    made.isDefault = isDefault;
    made.pictures = pictures;
    made.codec = pictures ? QStringLiteral("hdmv_pgs_subtitle") : QStringLiteral("subrip");
    return made;
}

std::vector<SubtitleTrack> numbered(std::vector<SubtitleTrack> tracks)
{
    for (size_t i = 0; i < tracks.size(); ++i)
        tracks[i].index = int(i);
    return tracks;
}

TEST(TrackChoice, ATrackAskedForIsTakenWhateverItsFlags)
{
    const auto tracks = numbered({track("eng"), track("fre", true), track("", false, true)});
    for (int i = 0; i < 3; ++i) {
        const TrackChoice choice = chooseTrack(tracks, i, QString());
        ASSERT_TRUE(choice.chosen) << i;
        EXPECT_EQ(choice.index, i);
        EXPECT_EQ(choice.why, QStringLiteral("asked for"));
    }
}

TEST(TrackChoice, ATrackOutOfRangeIsRefusedNamingTheRange)
{
    const auto tracks = numbered({track("eng"), track("fre")});
    const TrackChoice choice = chooseTrack(tracks, 2, QString());
    EXPECT_FALSE(choice.chosen);
    EXPECT_EQ(choice.index, -1);
    EXPECT_EQ(choice.error, QStringLiteral("there is no track 2: its subtitle tracks are 0 to 1"));
}

TEST(TrackChoice, ALanguageTakesItsDefaultTrackFirstThenItsFirst)
{
    const auto tracks =
        numbered({track("eng"), track("fre"), track("fre", true), track("eng", true, true), track("ger")});
    TrackChoice choice = chooseTrack(tracks, -1, QStringLiteral("fre"));
    EXPECT_EQ(choice.index, 2);
    EXPECT_EQ(choice.why, QStringLiteral("default"));
    choice = chooseTrack(tracks, -1, QStringLiteral("GER"));
    EXPECT_EQ(choice.index, 4);
    EXPECT_EQ(choice.why, QStringLiteral("first of its language"));
    choice = chooseTrack(numbered({track("fre"), track("eng"), track("eng")}), -1, QStringLiteral("eng"));
    EXPECT_EQ(choice.index, 1);
}

TEST(TrackChoice, AnAbsentLanguageIsRefusedNamingTheLanguagesThere)
{
    const TrackChoice choice =
        chooseTrack(numbered({track("eng"), track(""), track("eng")}), -1, QStringLiteral("fre"));
    EXPECT_FALSE(choice.chosen);
    EXPECT_EQ(choice.error, QStringLiteral("no subtitle track in fre: its tracks are eng, untagged"));
}

TEST(TrackChoice, PlayersTakeTheDefaultTrackThenTheFirstTextThenTheFirstPicture)
{
    TrackChoice choice =
        chooseTrack(numbered({track("eng"), track("", false, true), track("fre", true)}), -1, {});
    EXPECT_EQ(choice.index, 2);
    EXPECT_EQ(choice.why, QStringLiteral("default"));
    choice = chooseTrack(numbered({track("eng", false, true), track("fre"), track("ger")}), -1, {});
    EXPECT_EQ(choice.index, 1);
    EXPECT_EQ(choice.why, QStringLiteral("first text track"));
    choice = chooseTrack(numbered({track("eng", false, true), track("fre", false, true)}), -1, {});
    EXPECT_EQ(choice.index, 0);
    EXPECT_EQ(choice.why, QStringLiteral("first picture track"));
    choice =
        chooseTrack(numbered({track("eng", false, true), track("fre", true, true), track("ger")}), -1, {});
    EXPECT_EQ(choice.index, 1);
}

TEST(TrackChoice, WherePicturesAloneWillDoPlayersTakeTheDefaultPictureTrackThenTheFirst)
{
    using zemsub::tool::TrackKinds;
    // A default text track does not count; the default-flagged picture track does.
    const auto flagged = numbered({track("eng", true), track("fre", false, true), track("ger", true, true)});
    TrackChoice choice = chooseTrack(flagged, -1, QString(), TrackKinds::Pictures);
    ASSERT_TRUE(choice.chosen);
    EXPECT_EQ(choice.index, 2);
    EXPECT_EQ(choice.why, QStringLiteral("default"));

    const auto unflagged = numbered({track("eng", true), track("fre", false, true), track("ger", false, true)});
    choice = chooseTrack(unflagged, -1, QString(), TrackKinds::Pictures);
    ASSERT_TRUE(choice.chosen);
    EXPECT_EQ(choice.index, 1);
    EXPECT_EQ(choice.why, QStringLiteral("first picture track"));

    choice = chooseTrack(numbered({track("eng"), track("fre", true)}), -1, QString(), TrackKinds::Pictures);
    EXPECT_FALSE(choice.chosen);
    EXPECT_EQ(choice.error, QStringLiteral("it has no picture track"));

    // A track asked for is taken whatever it is; the caller sees what it holds.
    choice = chooseTrack(unflagged, 0, QString(), TrackKinds::Pictures);
    ASSERT_TRUE(choice.chosen);
    EXPECT_EQ(choice.index, 0);
}

TEST(TrackChoice, NoTracksOrBothATrackAndALanguageAreRefused)
{
    EXPECT_FALSE(chooseTrack({}, -1, QString()).chosen);
    EXPECT_FALSE(chooseTrack({}, 0, QString()).chosen);
    const TrackChoice both = chooseTrack(numbered({track("eng")}), 0, QStringLiteral("eng"));
    EXPECT_FALSE(both.chosen);
    EXPECT_FALSE(both.error.isEmpty());
}

TEST(TrackChoice, DescribedWithItsLanguageReasonCodecAndTitle)
{
    auto tracks = numbered({track("eng"), track("fre", true)});
    tracks[1].title = QStringLiteral("Forced bits");
    const TrackChoice choice = chooseTrack(tracks, -1, QString());
    EXPECT_EQ(describeChoice(tracks[1], choice),
              QStringLiteral("track 1 (fre, default): subrip \"Forced bits\""));
}

} // namespace
#endif
