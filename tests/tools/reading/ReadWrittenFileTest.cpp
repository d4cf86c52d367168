// The written side of lint: a file's bytes read as FFmpeg-based players read
// them, each event joined to the lines it stands on.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "reading/ReadWrittenFile.h"
#    include "support/TestFiles.h"

#    include <QByteArray>
#    include <QFile>
#    include <gtest/gtest.h>

#    include <cstdio>
#    include <fcntl.h>
#    include <unistd.h>

using namespace zemsub::tool;

namespace {

WrittenFile read(const QByteArray& bytes, const QString& name, const QString& encoding = QString())
{
    return readWrittenFile(bytes, name, encoding);
}

QByteArray utf16le(const QByteArray& utf8)
{
    QByteArray bytes("\xFF\xFE", 2);
    const QString text = QString::fromUtf8(utf8);
    for (QChar c : text)
        bytes.append(char(c.unicode() & 0xFF)).append(char(c.unicode() >> 8));
    return bytes;
}

TEST(ZemsubReadWrittenFile, SubRipEventsAreJoinedToTheirLines)
{
    const WrittenFile file = read("1\n00:00:01,000 --> 00:00:02,500\nA\nB\n\n"
                                  "2\n00:01:00,000 --> 00:01:01,000 X1:10 X2:20\nC\n",
                                  "memory.srt");
    ASSERT_TRUE(file.read) << file.failure.toStdString();
    EXPECT_EQ(file.kind, WrittenKind::SubRip);
    EXPECT_EQ(file.format, "srt");
    ASSERT_EQ(file.blocks.size(), 2u);
    EXPECT_EQ(file.blocks[0].index, 1);
    EXPECT_EQ(file.blocks[0].number, "1");
    EXPECT_EQ(file.blocks[0].line, 1);
    EXPECT_EQ(file.blocks[0].position, 2); // the time line
    EXPECT_TRUE(file.blocks[0].sourceFound);
    EXPECT_EQ(file.blocks[0].start, 1000);
    EXPECT_EQ(file.blocks[0].end, 2500);
    EXPECT_EQ(file.blocks[0].text, "A\nB");
    EXPECT_EQ(file.blocks[0].rawLines, (QStringList{"A", "B"}));
    EXPECT_EQ(file.blocks[1].line, 6);
    EXPECT_EQ(file.blocks[1].start, 60000);
    EXPECT_EQ(file.blocks[1].text, "C");
    EXPECT_FALSE(file.crlf);
    EXPECT_EQ(file.encoding, "UTF-8");
    EXPECT_EQ(file.lineCount, 8);
}

TEST(ZemsubReadWrittenFile, CrLfAndTheUtf8MarkAreSeenAndTolerated)
{
    const WrittenFile file = read("\xEF\xBB\xBF"
                                  "1\r\n00:00:01,000 --> 00:00:02,000\r\nA\r\n\r\n"
                                  "2\r\n00:00:03,000 --> 00:00:04,000\r\nB\r\n",
                                  "marked.srt");
    ASSERT_TRUE(file.read);
    EXPECT_TRUE(file.crlf);
    EXPECT_TRUE(file.utf8Mark);
    ASSERT_EQ(file.blocks.size(), 2u);
    EXPECT_EQ(file.blocks[0].number, "1");
    EXPECT_EQ(file.blocks[0].text, "A");
    EXPECT_EQ(file.blocks[1].text, "B");
}

TEST(ZemsubReadWrittenFile, ALastLineWithoutALineFeedIsSeen)
{
    const QByteArray ended = "1\n00:00:01,000 --> 00:00:02,000\nA\n\n2\n00:00:03,000 --> 00:00:04,000\nB\n";
    EXPECT_FALSE(read(ended, "ended.srt").unendedLastLine);
    const QByteArray unended = ended.left(ended.size() - 1);
    const WrittenFile file = read(unended, "unended.srt");
    EXPECT_TRUE(file.unendedLastLine);
    EXPECT_EQ(file.lineCount, 7);
    EXPECT_TRUE(read(utf16le(unended), "unended16.srt").unendedLastLine);
    EXPECT_FALSE(read(utf16le(ended), "ended16.srt").unendedLastLine);
}

TEST(ZemsubReadWrittenFile, MarkupGoesAsFfmpegTurnsItIntoOverrideBlocks)
{
    const WrittenFile file =
        read("1\n00:00:01,500 --> 00:00:02,250\n<i>Hi</i> <font color=\"red\">there</font>\n"
             "{\\an8}Top\n\n2\n00:00:03,000 --> 00:00:04,000\na < b > c\n",
             "markup.srt");
    ASSERT_EQ(file.blocks.size(), 2u);
    EXPECT_EQ(file.blocks[0].text, "Hi there\nTop");
    EXPECT_EQ(file.blocks[0].rawLines.first(), "<i>Hi</i> <font color=\"red\">there</font>");
    EXPECT_TRUE(file.blocks[0].event.contains("{\\i1}Hi{\\i0}")) << file.blocks[0].event.toStdString();
    // "< b >" is taken for a bold tag.
    EXPECT_EQ(file.blocks[1].text, "a  c");
}

TEST(ZemsubReadWrittenFile, Utf16BehindItsMarkIsConvertedByFfmpeg)
{
    const WrittenFile file = read(
        utf16le("1\n00:00:01,000 --> 00:00:02,000\nTr\xC3\xA8s\n\n2\n00:00:03,000 --> 00:00:04,000\nB\n"),
        "wide.srt");
    ASSERT_TRUE(file.read);
    EXPECT_TRUE(file.ffFeMark);
    EXPECT_TRUE(file.utf16);
    EXPECT_EQ(file.encoding, "UTF-16LE");
    ASSERT_EQ(file.blocks.size(), 2u);
    EXPECT_EQ(file.blocks[0].text, QString::fromUtf8("Très"));
    EXPECT_EQ(file.blocks[0].number, "1"); // joined by its times
    EXPECT_EQ(file.blocks[1].line, 5);
}

TEST(ZemsubReadWrittenFile, DialogueLinesAreFfmpegsEventsWithTheirLinesFacts)
{
    const WrittenFile file =
        read("[Script Info]\nScriptType: v4.00+\nPlayResX: &h500\n[Events]\n"
             "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
             "Dialogue: 0,0:00:01.50,0:00:03.00,Default,,0,0,0,,Hello, {\\i1}world{\\i0}\\Nagain\n"
             "Comment: 0,0:00:04.00,0:00:05.00,Default,,0,0,0,,not shown\n"
             "dialogue: 0,0:00:06.00,0:00:07.00,Default,,0,0,0,,lower case\n"
             "Dialogue: 0,0:00:08.00,0:00:09.00,Default,,0,0,0,,soft\\nbreak\\hspace {unclosed\n",
             "script.ass");
    ASSERT_TRUE(file.read);
    EXPECT_EQ(file.kind, WrittenKind::Script);
    EXPECT_TRUE(file.scriptTypeFound);
    EXPECT_EQ(file.scriptType, "v4.00+");
    EXPECT_EQ(file.eventFormat.value(9), "text");
    // FFmpeg reads "Dialogue:" only as written so.
    ASSERT_EQ(file.blocks.size(), 2u);
    EXPECT_EQ(file.blocks[0].start, 1500);
    EXPECT_EQ(file.blocks[0].end, 3000);
    EXPECT_EQ(file.blocks[0].text, "Hello, world\nagain");
    EXPECT_EQ(file.blocks[0].line, 6);
    EXPECT_EQ(file.blocks[0].fields.value(3), "Default");
    EXPECT_EQ(file.blocks[1].line, 9);
    EXPECT_EQ(file.blocks[1].text, QStringLiteral("soft\nbreak") + QChar(0xA0) + "space ");
    ASSERT_EQ(file.hexValues.size(), 1u);
    EXPECT_EQ(file.hexValues[0].where, "PlayResX");
    EXPECT_EQ(file.hexValues[0].line, 3);
}

TEST(ZemsubReadWrittenFile, OtherFormatsFfmpegReadsAreReadToo)
{
    const WrittenFile file = read("WEBVTT\n\n00:00:01.000 --> 00:00:02.500\nHello <b>there</b>\nline two\n\n"
                                  "00:00:03.000 --> 00:00:04.000\nSecond\n",
                                  "captions.vtt");
    ASSERT_TRUE(file.read);
    EXPECT_EQ(file.kind, WrittenKind::Other);
    EXPECT_EQ(file.format, "webvtt");
    ASSERT_EQ(file.blocks.size(), 2u);
    EXPECT_EQ(file.blocks[0].text, "Hello there\nline two");
    EXPECT_EQ(file.blocks[0].end, 2500);
    EXPECT_FALSE(file.blocks[0].sourceFound);
}

TEST(ZemsubReadWrittenFile, WhatFfmpegCannotReadIsAFailureWithItsReason)
{
    const WrittenFile file = read("just some words\n", "notes.txt");
    EXPECT_FALSE(file.read);
    EXPECT_TRUE(file.failed());
    EXPECT_EQ(file.kind, WrittenKind::Unknown);
    EXPECT_TRUE(file.failure.startsWith("FFmpeg cannot read it: ")) << file.failure.toStdString();
    EXPECT_TRUE(file.blocks.empty());
    EXPECT_TRUE(read(QByteArray(), "empty.srt").failed());
}

TEST(ZemsubReadWrittenFile, EncodingsAreGuessedUnlessForced)
{
    const QByteArray bytes = "1\n00:00:01,000 --> 00:00:02,000\ncaf\xE9 cr\xE8me\n\n"
                             "2\n00:00:03,000 --> 00:00:04,000\nd\xE9j\xE0 vu\n";
    const WrittenFile guessed = read(bytes, "latin.srt");
    EXPECT_TRUE(guessed.encodingGuessed);
    EXPECT_NE(guessed.encoding, "UTF-8");
    ASSERT_EQ(guessed.blocks.size(), 2u);
    EXPECT_EQ(guessed.blocks[0].text, QString::fromUtf8("café crème"));
    EXPECT_EQ(guessed.blocks[0].rawLines.first(), QString::fromUtf8("café crème"));
    const WrittenFile greek = read(bytes, "latin.srt", "ISO-8859-7");
    EXPECT_TRUE(greek.encodingForced);
    EXPECT_EQ(greek.encoding, "ISO-8859-7");
    ASSERT_EQ(greek.blocks.size(), 2u);
    EXPECT_EQ(greek.blocks[0].text, QString::fromUtf8("cafι crθme"));
    const WrittenFile unknown = read(bytes, "latin.srt", "NO-SUCH-ENCODING");
    EXPECT_TRUE(unknown.failed());
    EXPECT_TRUE(unknown.failure.contains("srt")) << unknown.failure.toStdString();
}

TEST(ZemsubReadWrittenFile, FfmpegPrintsNothing)
{
    // Text its decoder refuses, and bytes it cannot read: FFmpeg would log both.
    TempDir dir;
    const std::string logPath = dir.file("stderr.txt");
    std::fflush(stderr);
    const int saved = dup(2);
    const int log = open(logPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ASSERT_GE(log, 0);
    dup2(log, 2);
    const WrittenFile refused = read("1\n00:00:01,000 --> 00:00:02,000\nok\n\n"
                                     "2\n00:00:03,000 --> 00:00:04,000\n\xC3\n",
                                     "broken.srt", "UTF-8");
    const WrittenFile failed = read(QByteArray(4096, '\x7F'), "noise.srt");
    std::fflush(stderr);
    dup2(saved, 2);
    close(saved);
    close(log);
    EXPECT_EQ(refused.refusedEvents, 1);
    EXPECT_TRUE(failed.failed());
    QFile written(QString::fromStdString(logPath));
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(written.readAll(), QByteArray());
}

} // namespace
#endif
