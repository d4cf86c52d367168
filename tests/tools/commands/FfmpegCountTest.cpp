// Each command opens its input once and decodes each packet of the track it
// reads once (ZEMSUB_COUNT_FFMPEG makes zemsub say how often it did either).
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "support/TestFiles.h"

#    include <QProcess>
#    include <QRegularExpression>
#    include <gtest/gtest.h>

namespace {

struct Counts
{
    int opens = -1;
    int decodes = -1;
};

Counts countsOf(const QStringList& args, const QString& dir)
{
    QProcessEnvironment environment = toolEnvironment();
    environment.insert(QStringLiteral("ZEMSUB_COUNT_FFMPEG"), QStringLiteral("1"));
    const RunResult run = runZemsub(args, dir, environment);
    static const QRegularExpression said(
        QStringLiteral("FFmpeg opened (\\d+) inputs and decoded (\\d+) subtitle packets"));
    const QRegularExpressionMatch match = said.match(run.err);
    if (!match.hasMatch())
        return {};
    return Counts{match.captured(1).toInt(), match.captured(2).toInt()};
}

// Packets of each stream as ffprobe lists them, apart from the tools' reading.
int packetsOf(const QString& file, int stream)
{
    QProcess probe;
    probe.start(QStringLiteral("ffprobe"), {QStringLiteral("-v"), QStringLiteral("error"),
                                            QStringLiteral("-show_entries"), QStringLiteral("packet=stream_index"),
                                            QStringLiteral("-of"), QStringLiteral("csv=p=0"), file});
    if (!probe.waitForFinished(60000) || probe.exitCode() != 0)
        return -1;
    int count = 0;
    for (const QByteArray& line : probe.readAllStandardOutput().split('\n'))
        count += line.trimmed() == QByteArray::number(stream);
    return count;
}

class ZemsubFfmpegCounts : public ::testing::Test
{
protected:
    void SetUp() override
    {
        // A video with two text tracks and two picture tracks (DVD, then PGS).
        m_video = qs(m_dir.file("four.mkv"));
        QProcess mux;
        mux.start(QStringLiteral("ffmpeg"),
                  {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"), sample("tracks.mkv"),
                   QStringLiteral("-i"), sample("words.sup"), QStringLiteral("-map"), QStringLiteral("0"),
                   QStringLiteral("-map"), QStringLiteral("1"), QStringLiteral("-c"), QStringLiteral("copy"), m_video});
        ASSERT_TRUE(mux.waitForFinished(60000));
        ASSERT_EQ(mux.exitCode(), 0) << mux.readAllStandardError().toStdString();
    }

    TempDir m_dir;
    QString m_video;
};

} // namespace

TEST_F(ZemsubFfmpegCounts, FixOfAPictureTrackOpensOnceAndDecodesThatTrackOnly)
{
    // Streams: 0 video, 1 and 2 text, 3 DVD pictures, 4 PGS pictures (subtitle track 3).
    const int pgs = packetsOf(m_video, 4);
    ASSERT_GT(pgs, 0);
    const Counts fix = countsOf({"fix", "--track", "3", m_video, "-o", "copy.srt"}, qs(m_dir.path()));
    EXPECT_EQ(fix.opens, 1);
    EXPECT_EQ(fix.decodes, pgs);
    const Counts dvd = countsOf({"fix", "--track", "2", m_video, "-o", "copy.srt"}, qs(m_dir.path()));
    EXPECT_EQ(dvd.opens, 1);
    EXPECT_EQ(dvd.decodes, packetsOf(m_video, 3));
}

TEST_F(ZemsubFfmpegCounts, TextTrackOfAVideoIsReadOnceByEachCommand)
{
    const int french = packetsOf(m_video, 2);
    ASSERT_GT(french, 0);
    for (const QStringList& args :
         {QStringList{"fix", "--track", "1", m_video, "-o", "copy.srt"}, QStringList{"lint", "--track", "1", m_video},
          QStringList{"convert", "--track", "1", m_video, "-o", "plain.srt", "--overwrite"}}) {
        const Counts counts = countsOf(args, qs(m_dir.path()));
        SCOPED_TRACE(args.join(' ').toStdString());
        EXPECT_EQ(counts.opens, 1);
        EXPECT_EQ(counts.decodes, french);
    }
}

TEST_F(ZemsubFfmpegCounts, PicturesAreOpenedOnceToRenderAndToDrawASheet)
{
    const QString sup = sample("words.sup");
    const Counts render = countsOf({"render", sup, "1500", "-o", "frame.png"}, qs(m_dir.path()));
    EXPECT_EQ(render.opens, 1);
    EXPECT_EQ(render.decodes, packetsOf(sup, 0));
    const Counts sheet = countsOf({"sheet", "--track", "3", m_video, "-o", "sheet.png"}, qs(m_dir.path()));
    EXPECT_EQ(sheet.opens, 1);
    EXPECT_EQ(sheet.decodes, packetsOf(m_video, 4));
}

TEST_F(ZemsubFfmpegCounts, TrackListOpensOnceAndDecodesEverySubtitlePacketOnce)
{
    int subtitlePackets = 0;
    for (int stream = 1; stream <= 4; ++stream)
        subtitlePackets += packetsOf(m_video, stream);
    const Counts tracks = countsOf({"tracks", m_video}, qs(m_dir.path()));
    EXPECT_EQ(tracks.opens, 1);
    EXPECT_EQ(tracks.decodes, subtitlePackets);
}

TEST_F(ZemsubFfmpegCounts, SubtitleFileIsOpenedOnceByLintAndFix)
{
    const QString film = sample("film.srt");
    const int packets = packetsOf(film, 0);
    ASSERT_GT(packets, 0);
    for (const QStringList& args : {QStringList{"lint", film}, QStringList{"fix", film, "-o", "copy.srt"}}) {
        const Counts counts = countsOf(args, qs(m_dir.path()));
        SCOPED_TRACE(args.join(' ').toStdString());
        EXPECT_EQ(counts.opens, 1);
        EXPECT_EQ(counts.decodes, packets);
    }
}

#endif
