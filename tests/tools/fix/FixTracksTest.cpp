// zemsubfix on Matroska and MP4 files made by ffmpeg: the tracks it lists, the one it takes.
#include "FixSupport.h"
#include "support/TrackFilesSuite.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

class FixTracks : public TrackFilesSuite
{
protected:
    static QString path(const std::string& file) { return QString::fromStdString(file); }
};

TEST_F(FixTracks, ListTracksGivesEachTrackInFileOrder)
{
    QString error = QStringLiteral("unset");
    const std::vector<zemsubfix::TrackInfo> tracks = zemsubfix::listTracks(path(files.mkv), &error);
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
    ASSERT_EQ(tracks.size(), 3u);
    EXPECT_EQ(tracks[0].track, 0);
    EXPECT_EQ(tracks[0].codec, QStringLiteral("subrip"));
    EXPECT_FALSE(tracks[0].picture);
    EXPECT_EQ(tracks[0].language, QStringLiteral("eng"));
    EXPECT_FALSE(tracks[0].isDefault);
    EXPECT_EQ(tracks[0].captions, 3);
    EXPECT_EQ(tracks[0].first, 500);
    EXPECT_EQ(tracks[0].last, 4750);
    EXPECT_EQ(tracks[1].language, QStringLiteral("fre"));
    EXPECT_EQ(tracks[1].title, QString::fromUtf8("Fran\xc3\xa7"
                                                 "ais"));
    EXPECT_TRUE(tracks[1].isDefault);
    EXPECT_FALSE(tracks[1].forced);
    EXPECT_EQ(tracks[1].first, 1000);
    EXPECT_EQ(tracks[1].last, 6789);
    EXPECT_TRUE(tracks[2].language.isEmpty());
    EXPECT_EQ(tracks[2].captions, 1);
}

TEST_F(FixTracks, ListTracksSaysWhyWhenThereAreNone)
{
    QString error;
    EXPECT_TRUE(zemsubfix::listTracks(path(files.audio), &error).empty());
    EXPECT_TRUE(error.contains(QStringLiteral("no subtitle track"))) << error.toStdString();
    EXPECT_TRUE(zemsubfix::listTracks(path(dir->file("absent.mkv")), &error).empty());
    EXPECT_TRUE(error.startsWith(QStringLiteral("cannot open"))) << error.toStdString();
    EXPECT_TRUE(zemsubfix::listTracks(path(files.audio), nullptr).empty());
}

TEST_F(FixTracks, ThePlayersChoiceIsTheDefaultTrackReadAsUtf8)
{
    const zemsubfix::FixReport report =
        zemsubfix::fixFile(path(files.mkv), path(dir->file("player.srt")), zemsubfix::FixOptions{});
    ASSERT_TRUE(report.readable) << report.error.toStdString();
    EXPECT_EQ(report.track, 1);
    EXPECT_EQ(report.trackReason, QStringLiteral("default"));
    EXPECT_EQ(report.encoding, QStringLiteral("UTF-8"));
    ASSERT_EQ(report.captions.size(), 2u);
    EXPECT_EQ(report.captions[0].text.toUtf8().toStdString(), kFrenchFirst);
    EXPECT_EQ(report.captions[1].text.toUtf8().toStdString(), kFrenchSecond);
    EXPECT_EQ(report.captions[0].start, 1000);
    EXPECT_EQ(report.captions[0].end, 2500);
    EXPECT_EQ(report.captions[1].start, 5123);
    EXPECT_EQ(report.captions[1].end, 6789);
    EXPECT_TRUE(report.copy.contains(QByteArray(kFrenchFirst) + '\n'));
    EXPECT_TRUE(report.copy.contains(QByteArray(kFrenchSecond) + '\n'));
    EXPECT_EQ(report.exitCode(), 0);
}

TEST_F(FixTracks, AnEncodingGivenDoesNotApplyToMatroskaOrMp4Text)
{
    for (const std::string& file : {files.mkv, files.mp4}) {
        zemsubfix::FixOptions options;
        options.language = QStringLiteral("fre");
        options.encoding = QStringLiteral("WINDOWS-1252");
        const zemsubfix::FixReport report =
            zemsubfix::fixFile(path(file), path(dir->file("enc.srt")), options);
        ASSERT_TRUE(report.readable) << report.error.toStdString();
        EXPECT_EQ(report.track, 1) << file;
        ASSERT_EQ(report.captions.size(), 2u);
        EXPECT_EQ(report.captions[0].text.toUtf8().toStdString(), kFrenchFirst) << file;
        EXPECT_EQ(report.captions[1].text.toUtf8().toStdString(), kFrenchSecond) << file;
    }
}

TEST_F(FixTracks, ATrackOrLanguageThatIsNotThereIsUnreadable)
{
    zemsubfix::FixOptions options;
    options.track = 3;
    zemsubfix::FixReport report = zemsubfix::fixFile(path(files.mkv), path(dir->file("none.srt")), options);
    EXPECT_FALSE(report.readable);
    EXPECT_EQ(report.exitCode(), 1);
    EXPECT_TRUE(report.error.contains(QStringLiteral("no track 3"))) << report.error.toStdString();
    options.track = -1;
    options.language = QStringLiteral("spa");
    report = zemsubfix::fixFile(path(files.mp4), path(dir->file("none.srt")), options);
    EXPECT_FALSE(report.readable);
    EXPECT_TRUE(report.error.contains(QStringLiteral("no subtitle track in spa")))
        << report.error.toStdString();
}

TEST_F(FixTracks, AScriptTrackKeepsItsHeaderInAnAssCopy)
{
    zemsubfix::FixOptions options;
    options.format = zemsubfix::CopyFormat::Ass;
    const zemsubfix::FixReport report =
        zemsubfix::fixFile(path(files.ass), path(dir->file("styled.ass")), options);
    ASSERT_TRUE(report.readable) << report.error.toStdString();
    EXPECT_EQ(report.track, 0);
    EXPECT_TRUE(report.copyOpens);
    EXPECT_TRUE(report.copy.contains("PlayResY: 480\n")) << report.copy.toStdString();
    EXPECT_TRUE(report.copy.contains("Style: Sign,DejaVu Sans,40,")) << report.copy.toStdString();
    ASSERT_EQ(report.captions.size(), 2u);
    EXPECT_EQ(report.captions[1].text, QString::fromUtf8("C\xc5\x93ur"));
    EXPECT_EQ(report.captions[1].start, 3000);
    EXPECT_EQ(report.exitCode(), 0);
}

TEST_F(FixTracks, APlainFileIsItsOnlyTrack)
{
    const zemsubfix::FixReport report =
        zemsubfix::fixFile(path(dir->file("eng.srt")), path(dir->file("plain.srt")), zemsubfix::FixOptions{});
    ASSERT_TRUE(report.readable) << report.error.toStdString();
    EXPECT_EQ(report.track, 0);
    EXPECT_EQ(report.trackReason, QStringLiteral("first text track"));
    EXPECT_EQ(report.captions.size(), 3u);
}

} // namespace

#include "ZemsubConvert.h"

namespace {

TEST_F(FixTracks, AScriptTrackConvertedToAScriptKeepsItsHeaderAndStyles)
{
    zemsubfix::PlainOptions options;
    options.track = 0;
    const QString copy = QString::fromStdString(dir->file("styled-copy.ass"));
    const zemsubfix::PlainReport report = zemsubfix::convertFile(path(files.ass), copy, options);
    ASSERT_EQ(report.exitCode(), 0) << report.error.toStdString();
    const QString text = QString::fromUtf8(report.copy);
    EXPECT_TRUE(text.contains("PlayResX: 640")) << text.toStdString();
    EXPECT_TRUE(text.contains("Style: Sign,DejaVu Sans,40,")) << text.toStdString();
    EXPECT_TRUE(text.contains("Dialogue: 0,0:00:01.00,0:00:02.50,Default,,0,0,0,,Bonjour \u00e0 tous\n"))
        << text.toStdString();
    EXPECT_TRUE(text.contains("Dialogue: 0,0:00:03.00,0:00:04.00,Sign,,0,0,0,,C\u0153ur\n")) << text.toStdString();
    // As SubRip, what a player shows of it.
    const zemsubfix::PlainReport plain =
        zemsubfix::convertFile(path(files.ass), QString::fromStdString(dir->file("styled-copy.srt")), options);
    EXPECT_EQ(QString::fromUtf8(plain.copy),
              QString::fromUtf8("1\n00:00:01,000 --> 00:00:02,500\nBonjour \u00e0 tous\n\n"
                                "2\n00:00:03,000 --> 00:00:04,000\nC\u0153ur\n\n"));
}

} // namespace
