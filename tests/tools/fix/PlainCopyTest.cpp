// zemsubfix's plain copies: a track as players show it, in SubRip, ASS or WebVTT.
#include "ZemsubConvert.h"
#include "support/TestFiles.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

using zemsubfix::PlainFormat;

const char* const kStyledSubRip = "1\n00:00:01,000 --> 00:00:02,500\nPlain and <i>slanted</i>\n\n"
                                  "2\n00:00:03,000 --> 00:00:04,000\n{\\an8}At the top\n\n"
                                  "3\n00:00:05,000 --> 00:00:06,000\n<i>All of it\nin italics</i>\n\n"
                                  "4\n00:00:07,000 --> 00:00:08,000\nFish & chips <3\n\n";

zemsubfix::PlainReport convert(PlainFormat format)
{
    return zemsubfix::convertBuffer(QByteArray(kStyledSubRip), QStringLiteral("styled.srt"), format, {});
}

const char* const kStyledScript =
    "[Script Info]\nScriptType: v4.00+\n\n[V4+ Styles]\n"
    "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, BackColour, Bold, Italic, "
    "Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, BorderStyle, Outline, Shadow, Alignment, MarginL, "
    "MarginR, MarginV, Encoding\n"
    "Style: Default,Arial,20,&H00FFFFFF,&H000000FF,&H00000000,&H00000000,0,0,0,0,100,100,0,0,1,2,2,2,10,10,10,1\n"
    "\n[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
    "Dialogue: 0,0:00:01.00,0:00:02.50,Default,,0,0,0,,Plain and {\\i1}slanted{\\i0}\n"
    "Dialogue: 0,0:00:03.00,0:00:04.00,Default,,0,0,0,,{\\an8\\b1}At the top\n"
    "Dialogue: 0,0:00:05.00,0:00:06.00,Default,,0,0,0,,{\\i1}All of it\\Nin italics\n";

TEST(PlainCopy, ASubRipFileIsWrittenAsItStands)
{
    const zemsubfix::PlainReport report = convert(PlainFormat::SubRip);
    ASSERT_TRUE(report.readable) << report.error.toStdString();
    EXPECT_EQ(report.copy, QByteArray(kStyledSubRip));
    // What it shows, caption by caption.
    ASSERT_EQ(report.captions.size(), 4u);
    EXPECT_TRUE(report.captions[0].partlyItalic);
    EXPECT_FALSE(report.captions[0].italic);
    EXPECT_TRUE(report.captions[2].italic);
    EXPECT_EQ(report.captions[1].alignment, 8);
    EXPECT_EQ(report.captions[2].text, "All of it\nin italics");
    EXPECT_EQ(report.captions[0].confidence, -1);
}

TEST(PlainCopy, AScriptAsSubRipKeepsItalicsAndPlacesAndNothingElse)
{
    const zemsubfix::PlainReport report =
        zemsubfix::convertBuffer(QByteArray(kStyledScript), QStringLiteral("styled.ass"), PlainFormat::SubRip, {});
    ASSERT_TRUE(report.readable) << report.error.toStdString();
    EXPECT_EQ(QString::fromUtf8(report.copy),
              "1\n00:00:01,000 --> 00:00:02,500\nPlain and <i>slanted</i>\n\n"
              "2\n00:00:03,000 --> 00:00:04,000\n{\\an8}At the top\n\n"
              "3\n00:00:05,000 --> 00:00:06,000\n<i>All of it</i>\n<i>in italics</i>\n\n");
}

TEST(PlainCopy, AScriptAsAScriptIsWrittenAsItStands)
{
    const zemsubfix::PlainReport report =
        zemsubfix::convertBuffer(QByteArray(kStyledScript), QStringLiteral("styled.ass"), PlainFormat::Ass, {});
    ASSERT_TRUE(report.readable) << report.error.toStdString();
    EXPECT_EQ(report.copy, QByteArray(kStyledScript));
}

TEST(PlainCopy, AssWritesItalicsAndAlignmentAsOverrideTags)
{
    const zemsubfix::PlainReport report = convert(PlainFormat::Ass);
    ASSERT_TRUE(report.readable) << report.error.toStdString();
    const QString copy = QString::fromUtf8(report.copy);
    EXPECT_TRUE(copy.startsWith("[Script Info]\nScriptType: v4.00+\n")) << copy.toStdString();
    EXPECT_TRUE(copy.contains("\nDialogue: 0,0:00:01.00,0:00:02.50,Default,,0,0,0,,Plain and {\\i1}slanted{\\i0}\n"))
        << copy.toStdString();
    EXPECT_TRUE(copy.contains(",,{\\an8}At the top\n")) << copy.toStdString();
    EXPECT_TRUE(copy.contains(",,{\\i1}All of it{\\i0}\\N{\\i1}in italics{\\i0}\n")) << copy.toStdString();
}

TEST(PlainCopy, WebVttEscapesItsMarkupAndPlacesCuesByLine)
{
    const zemsubfix::PlainReport report = convert(PlainFormat::WebVtt);
    ASSERT_TRUE(report.readable) << report.error.toStdString();
    const QString copy = QString::fromUtf8(report.copy);
    EXPECT_TRUE(copy.startsWith("WEBVTT\n\n00:00:01.000 --> 00:00:02.500\nPlain and <i>slanted</i>\n\n"))
        << copy.toStdString();
    EXPECT_TRUE(copy.contains("00:00:03.000 --> 00:00:04.000 line:0\nAt the top\n")) << copy.toStdString();
    EXPECT_TRUE(copy.contains("\nFish &amp; chips &lt;3\n")) << copy.toStdString();
}

TEST(PlainCopy, TheFormatFollowsTheExtension)
{
    EXPECT_EQ(zemsubfix::plainFormatForPath("a.SRT"), PlainFormat::SubRip);
    EXPECT_EQ(zemsubfix::plainFormatForPath("a.ass"), PlainFormat::Ass);
    EXPECT_EQ(zemsubfix::plainFormatForPath("a.ssa"), PlainFormat::Ass);
    EXPECT_EQ(zemsubfix::plainFormatForPath("a.vtt"), PlainFormat::WebVtt);
    EXPECT_EQ(zemsubfix::plainFormatForPath("a.txt"), PlainFormat::SubRip);
}

TEST(PlainCopy, TextInAnEightBitEncodingIsWrittenInUtf8)
{
    TempDir dir;
    const std::string input = dir.write("latin.srt", std::string("1\n00:00:01,000 --> 00:00:02,000\nCaf\xe9 cr\xe8me, d\xe9j\xe0 l\xe0\n\n"));
    const QString output = QString::fromStdString(dir.file("copy.srt"));
    const zemsubfix::PlainReport report =
        zemsubfix::convertFile(QString::fromStdString(input), output, {});
    ASSERT_EQ(report.exitCode(), 0) << report.error.toStdString();
    QFile written(output);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(written.readAll()),
              QString::fromUtf8("1\n00:00:01,000 --> 00:00:02,000\nCaf\u00e9 cr\u00e8me, d\u00e9j\u00e0 l\u00e0\n\n"));
}

TEST(PlainCopy, AFileThatCannotBeReadSaysWhyAndWritesNothing)
{
    TempDir dir;
    const QString output = QString::fromStdString(dir.file("copy.srt"));
    const zemsubfix::PlainReport report =
        zemsubfix::convertFile(QString::fromStdString(dir.file("missing.srt")), output, {});
    EXPECT_EQ(report.exitCode(), 1);
    EXPECT_FALSE(report.error.isEmpty());
    EXPECT_FALSE(QFile::exists(output));
}

} // namespace
