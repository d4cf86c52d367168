// zemsub fix on pictures: the bundled Blu-ray and DVD samples read as text.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "support/TestFiles.h"

#    include <QJsonArray>
#    include <QJsonDocument>
#    include <QJsonObject>
#    include <QProcess>
#    include <QStandardPaths>
#    include <gtest/gtest.h>

namespace {

// The captions zemsub-samplegen draws into samples/words.*.
const QStringList kWords = {"Hello, world!",
                            "Where are you going?",
                            "- Home, I think.\n- Wait for me!",
                            "It's ten o'clock.",
                            "Nobody knows the answer.",
                            "Look at the sky.",
                            "The last ferry left an hour ago.",
                            "Then we walk.\nThe lighthouse is only six miles away."};
// The one drawn in italics: its words show, upright, for the library draws no italics.
constexpr int kItalicWord = 5;

QJsonObject fixJson(const QString& file, const QStringList& options = {})
{
    TempDir dir;
    const RunResult run = runZemsub(QStringList{"fix", file, "-o", qs(dir.file("copy.srt")), "--json"} + options);
    EXPECT_EQ(run.exitCode, 3) << run.err.toStdString();
    return QJsonDocument::fromJson(run.out.toUtf8()).object();
}

void expectWords(const QJsonObject& report)
{
    const QJsonArray outcomes = report["outcomes"].toArray();
    ASSERT_EQ(outcomes.size(), kWords.size());
    for (int i = 0; i < outcomes.size(); ++i) {
        const QJsonObject caption = outcomes[i].toObject();
        EXPECT_EQ(caption["written"].toString(), kWords[i]) << i;
        EXPECT_TRUE(caption["textShown"].toBool()) << i;
        EXPECT_EQ(caption["asWritten"].toBool(), i != kItalicWord) << i;
        if (i == kItalicWord) {
            const QJsonArray reasons = caption["reasons"].toArray();
            ASSERT_EQ(reasons.size(), 1);
            EXPECT_EQ(reasons[0].toObject()["code"].toString(), "italics");
        }
        EXPECT_GE(caption["confidence"].toInt(), 70) << i;
        EXPECT_FALSE(caption["lowConfidence"].toBool()) << i;
    }
}

TEST(ZemsubFixPictures, TheBluraySampleIsReadExactly)
{
    const QJsonObject report = fixJson(sample("words.sup"));
    EXPECT_EQ(report["track"].toObject()["readAs"].toString(), "eng");
    EXPECT_EQ(report["track"].toObject()["reason"].toString(), "first picture track");
    expectWords(report);
    const QJsonArray outcomes = report["outcomes"].toArray();
    ASSERT_FALSE(outcomes.isEmpty());
    EXPECT_EQ(outcomes[0].toObject()["start"].toInt(), 1000);
    EXPECT_EQ(outcomes[0].toObject()["end"].toInt(), 3000);
}

TEST(ZemsubFixPictures, TheDvdSampleIsReadExactly)
{
    const QJsonObject report = fixJson(sample("words.idx"));
    expectWords(report);
    const QJsonArray outcomes = report["outcomes"].toArray();
    ASSERT_FALSE(outcomes.isEmpty());
    // The stop command counts in 1024/90 ms: 2000 ms is 175 units, 1991 ms.
    EXPECT_EQ(outcomes[0].toObject()["end"].toInt(), 2991);
}

TEST(ZemsubFixPictures, AMissingOcrLanguageIsAClearError)
{
    TempDir dir;
    const RunResult run =
        runZemsub({"fix", sample("words.sup"), "-o", qs(dir.file("copy.srt")), "--ocr-language", "zzz"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains("cannot fix: no Tesseract data for zzz")) << run.err.toStdString();
    EXPECT_TRUE(run.err.contains("tesseract-ocr-zzz")) << run.err.toStdString();
}

TEST(ZemsubFixPictures, NoProgressLineWhenStderrIsNoTerminal)
{
    TempDir dir;
    const RunResult run = runZemsub({"fix", sample("words.sup"), "-o", qs(dir.file("copy.srt"))});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.err, "using track 0 (untagged, first picture track): hdmv_pgs_subtitle\n");
    EXPECT_TRUE(run.out.contains("pictures read as text in eng (Tesseract)\n")) << run.out.toStdString();
}

TEST(ZemsubFixPictures, AProgressLineOnATerminal)
{
    const QString script = QStandardPaths::findExecutable("script");
    if (script.isEmpty())
        GTEST_SKIP() << "script (bsdutils) is not installed to give the tool a terminal";
    TempDir dir;
    const QString command = QString("'%1' fix '%2' -o '%3' > /dev/null")
                                .arg(ZEMSUB_TOOL_BINARY, sample("words.sup"), qs(dir.file("copy.srt")));
    QProcess process;
    process.setProcessEnvironment(toolEnvironment());
    process.start(script, {"-q", "-e", "-c", command, "/dev/null"});
    ASSERT_TRUE(process.waitForFinished(120000));
    const QString seen = QString::fromUtf8(process.readAllStandardOutput());
    EXPECT_EQ(process.exitCode(), 3) << seen.toStdString();
    EXPECT_TRUE(seen.contains("\rreading pictures: 8/8, ")) << seen.toStdString();
    EXPECT_TRUE(seen.contains(" a second, 0:00 left")) << seen.toStdString();
}

} // namespace
#endif
