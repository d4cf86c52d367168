// zemsub at: the caption text the library answers at each time.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "SamplePictures.h"
#    include "ToolRunner.h"
#    include "support/TestFiles.h"

#    include <QDir>
#    include <QFile>
#    include <gtest/gtest.h>

namespace {

QStringList answerLines(const RunResult& result)
{
    QStringList lines = result.out.split('\n');
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

TEST(ZemsubAt, AnswersEachTimeOnItsOwnLineWithLineFeedsShown)
{
    const RunResult result = runZemsub({"at", sample("film.srt"), "2000", "5000", "0"});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    const QStringList lines = answerLines(result);
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0], "00:00:02,000\t\\nThe last ferry left an hour ago.");
    EXPECT_EQ(lines[1], "00:00:05,000\t\\nThen we walk.\\nIt's only four miles to the point.");
    EXPECT_EQ(lines[2], "00:00:00,000\t(none)");
}

TEST(ZemsubAt, EveryTimeFormMeansTheSameMoment)
{
    const RunResult result = runZemsub({"at", sample("styled.ass"), "8000", "00:00:08,000", "0:00:08.00"});
    const QStringList lines = answerLines(result);
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0], "00:00:08,000\t\\nThen we wait.\\nThe lights will tell us.");
    EXPECT_EQ(lines[1], lines[0]);
    EXPECT_EQ(lines[2], lines[0]);
}

TEST(ZemsubAt, NegativeTimesAfterTheOptionsEnd)
{
    const RunResult result = runZemsub({"at", sample("film.srt"), "--", "-1"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(answerLines(result), QStringList{"-00:00:00,001\t(none)"});
}

TEST(ZemsubAt, TheHighestNumberedEntryIsNeverAnswered)
{
    const RunResult result = runZemsub({"at", sample("film.srt"), "33000", "36800"});
    EXPECT_EQ(answerLines(result), (QStringList{"00:00:33,000\t\\nAfter you.", "00:00:36,800\t(none)"}));
}

TEST(ZemsubAt, WideTextIsDecodedByTheLocale)
{
    const RunResult result = runZemsub({"at", sample("wide-utf8.srt"), "2000", "8000"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(answerLines(result),
              (QStringList{QString::fromUtf8("00:00:02,000\t\\nBonjour, ça va ?"),
                           QString::fromUtf8("00:00:08,000\t\\nΚαλημέρα — доброе утро.")}));
}

TEST(ZemsubAt, ThePlainCLocaleFallsBackToUtf8ForWideText)
{
    QProcessEnvironment environment = toolEnvironment();
    environment.insert("LANG", "C");
    const RunResult result = runZemsub({"at", sample("wide-utf8.srt"), "2000"}, QString(), environment);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(answerLines(result), QStringList{QString::fromUtf8("00:00:02,000\t\\nBonjour, ça va ?")});
}

TEST(ZemsubAt, UtfSixteenTextAnswersNothing)
{
    const RunResult result = runZemsub({"at", sample("wide-utf16.srt"), "2000", "4000", "8000"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(answerLines(result),
              (QStringList{"00:00:02,000\t(none)", "00:00:04,000\t(none)", "00:00:08,000\t(none)"}));
}

TEST(ZemsubAt, AnEmptyTextIsShownAsEmpty)
{
    // A narrow SubRip look-up inserts empty entries for missing keys (times 0), and time 0 finds one.
    TempDir dir;
    const QString path = qs(dir.write("gap.srt", "1\n00:00:01,000 --> 00:00:02,000\nA\n\n"
                                                 "3\n00:00:03,000 --> 00:00:04,000\nB\n\n"
                                                 "4\n00:00:05,000 --> 00:00:06,000\nC\n"));
    const RunResult result = runZemsub({"at", path, "1500", "0"});
    EXPECT_EQ(answerLines(result), (QStringList{"00:00:01,500\t\\nA", "00:00:00,000\t(empty)"}));
}

TEST(ZemsubAt, IndexAnswersFilePositionsAndTheSubPathItTries)
{
    // Without its .sub: a timestamp answers within 499 ms of its time, and no packet is cut.
    TempDir dir;
    QFile index(sample("vobsub.idx"));
    ASSERT_TRUE(index.open(QIODevice::ReadOnly));
    const QString alone = qs(dir.write("movie.idx", index.readAll().toStdString()));
    const RunResult result = runZemsub({"at", alone, "1000", "4200", "7001", "7000", "20000"});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    const QString none = "no packet (sub path \".idxsub\"; no .sub file beside the index)";
    EXPECT_EQ(answerLines(result), (QStringList{"00:00:01,000\tfilepos 0x0\t" + none,
                                                "00:00:04,200\tfilepos 0x800\t" + none,
                                                "00:00:07,001\tfilepos 0x1000\t" + none,
                                                "00:00:07,000\tfilepos 0x0\t" + none,
                                                "00:00:20,000\tfilepos 0x0\t" + none}));
}

TEST(ZemsubAt, IndexReportsTheDecodedPicturesSizeAndPosition)
{
    // The .sub beside the index is where the reader finds it. A time with no entry
    // within 499 ms gives file position 0, so the reader cuts the first packet.
    const RunResult result = runZemsub({"at", sample("vobsub.idx"), "1000", "4200", "7001", "20000"});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_EQ(answerLines(result),
              (QStringList{
                  "00:00:01,000\tfilepos 0x0\tpacket of 122 bytes, control at 92\tpicture x=300 y=400 width=96 height=24",
                  "00:00:04,200\tfilepos 0x800\tpacket of 242 bytes, control at 212\tpicture x=300 y=400 width=120 height=24",
                  "00:00:07,001\tfilepos 0x1000\tpacket of 3606 bytes, control at 3576\tpicture x=300 y=400 width=200 height=40",
                  "00:00:20,000\tfilepos 0x0\tpacket of 122 bytes, control at 92\tpicture x=300 y=400 width=96 height=24"}));
}

TEST(ZemsubAt, IndexWithoutASizeLineReportsTheFrameItsPicturesReach)
{
    const ScriptOutput script = runSampleScript({"--size", "none", "--position", "650,470"});
    ASSERT_TRUE(script.ran) << script.failure.toStdString();
    TempDir dir;
    dir.write("movie.sub", script.sub.toStdString());
    const QString index = qs(dir.write("movie.idx", script.index.toStdString()));
    const RunResult result = runZemsub({"at", index, "1000", "7500"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "at: the index has no size: line; its frame is 850x510, as far as its pictures reach "
                          "(at least 720x480)\n");
    EXPECT_EQ(answerLines(result),
              (QStringList{"00:00:01,000\tfilepos 0x0\tpacket of 122 bytes, control at 92\tpicture x=650 y=470 "
                           "width=96 height=24",
                           "00:00:07,500\tfilepos 0x1000\tpacket of 3606 bytes, control at 3576\tpicture x=650 "
                           "y=470 width=200 height=40"}));
}

// The packet sizes written at each timestamp's position in the sample .sub.
int writtenPacketSize(const QByteArray& sub, int position)
{
    const int headerLength = static_cast<unsigned char>(sub[position + 22]);
    const int payload = position + 24 + headerLength;
    return (static_cast<unsigned char>(sub[payload]) << 8) | static_cast<unsigned char>(sub[payload + 1]);
}

TEST(ZemsubAt, IndexCutsTheSamplePacketsFromTheSubPathItForms)
{
    // The .sub path is the text from the first "." of the path, then "sub": for an
    // absolute path whose only dot starts ".idx" that is ".idxsub" in the working folder.
    // With no .sub beside the index, that is where the packets come from.
    TempDir dir;
    TempDir work;
    QFile sub(sample("vobsub.sub"));
    ASSERT_TRUE(sub.open(QIODevice::ReadOnly));
    const QByteArray bytes = sub.readAll();
    work.write(".idxsub", bytes.toStdString());
    QFile indexFile(sample("vobsub.idx"));
    ASSERT_TRUE(indexFile.open(QIODevice::ReadOnly));
    const QString index = qs(dir.write("movie.idx", indexFile.readAll().toStdString()));
    if (index.indexOf('.') != index.lastIndexOf('.'))
        GTEST_SKIP() << "the temporary folder's path holds a dot, so the library forms another .sub path";
    const RunResult result = runZemsub({"at", index, "1000", "4000", "7500"}, qs(work.path()));
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    const QStringList lines = answerLines(result);
    ASSERT_EQ(lines.size(), 3);
    const int positions[] = {0, 0x800, 0x1000};
    for (int i = 0; i < 3; ++i) {
        const int size = writtenPacketSize(bytes, positions[i]);
        EXPECT_TRUE(lines[i].contains(QString("packet of %1 bytes").arg(size))) << lines[i].toStdString();
        EXPECT_TRUE(lines[i].contains("\tpicture x=300 y=400 width=")) << lines[i].toStdString();
    }
    EXPECT_GT(writtenPacketSize(bytes, 0x1000), 2048); // the third one spans two sectors
}

} // namespace
#endif
