// lint's own reader: how a tolerant modern player reads SubRip and ASS/SSA files.
#ifndef ZEMSUB_TOOLS_ABSENT
#    include "ToolRunner.h"
#    include "zemsub/TolerantReader.h"

#    include <gtest/gtest.h>

using namespace zemsub::tool;

namespace {

WrittenFile read(const QByteArray& bytes, WrittenKind kind)
{
    return readWritten(bytes, kind);
}

TEST(ZemsubTolerantReader, SubRipBlocksSplitAtEmptyLines)
{
    const WrittenFile file = read("1\n00:00:01,000 --> 00:00:02,500\nA\nB\n\n"
                                  "2\n00:01:00,000 --> 00:01:01,000 X1:10 X2:20\nC\n",
                                  WrittenKind::SubRip);
    ASSERT_EQ(file.blocks.size(), 2u);
    EXPECT_EQ(file.blocks[0].number, "1");
    EXPECT_EQ(file.blocks[0].line, 1);
    EXPECT_EQ(file.blocks[0].start, 1000);
    EXPECT_EQ(file.blocks[0].end, 2500);
    EXPECT_EQ(file.blocks[0].text, "A\nB");
    EXPECT_EQ(file.blocks[1].line, 6);
    EXPECT_EQ(file.blocks[1].start, 60000);
    EXPECT_EQ(file.blocks[1].text, "C");
    EXPECT_FALSE(file.crlf);
    EXPECT_EQ(file.encoding, "UTF-8");
}

TEST(ZemsubTolerantReader, CrLfAndMarksAreTolerated)
{
    const WrittenFile file = read("\xEF\xBB\xBF"
                                  "1\r\n00:00:01,000 --> 00:00:02,000\r\nA\r\n\r\n",
                                  WrittenKind::SubRip);
    EXPECT_TRUE(file.crlf);
    EXPECT_TRUE(file.utf8Mark);
    ASSERT_EQ(file.blocks.size(), 1u);
    EXPECT_EQ(file.blocks[0].number, "1");
    EXPECT_EQ(file.blocks[0].text, "A");
}

TEST(ZemsubTolerantReader, BlocksWithoutEmptyLinesBetweenThemAndWithoutNumbers)
{
    const WrittenFile file = read("1\n00:00:01,000 --> 00:00:02,000\nA\n2\n00:00:03,000 --> 00:00:04,000\nB\n"
                                  "00:00:05,000 --> 00:00:06,000\nC\n",
                                  WrittenKind::SubRip);
    ASSERT_EQ(file.blocks.size(), 3u);
    EXPECT_EQ(file.blocks[1].text, "B");
    EXPECT_EQ(file.blocks[2].number, "");
    EXPECT_EQ(file.blocks[2].text, "C");
}

TEST(ZemsubTolerantReader, SubRipMarkupIsRemovedAndFractionsScaled)
{
    const WrittenFile file =
        read("1\n00:00:01,5 --> 00:00:02.25\n<i>Hi</i> <font color=\"red\">there</font>\n"
             "{\\an8}Top\n",
             WrittenKind::SubRip);
    ASSERT_EQ(file.blocks.size(), 1u);
    EXPECT_EQ(file.blocks[0].start, 1500);
    EXPECT_EQ(file.blocks[0].end, 2250);
    EXPECT_EQ(file.blocks[0].fractions, (QStringList{"5", "25"}));
    EXPECT_EQ(file.blocks[0].text, "Hi there\nTop");
    EXPECT_EQ(file.blocks[0].rawLines.first(), "<i>Hi</i> <font color=\"red\">there</font>");
}

TEST(ZemsubTolerantReader, Utf16AfterTheMarkIsDecoded)
{
    QByteArray bytes("\xFF\xFE", 2);
    for (char c : QByteArray("1\n00:00:01,000 --> 00:00:02,000\nA\n"))
        bytes.append(c).append('\0');
    const WrittenFile file = read(bytes, WrittenKind::SubRip);
    EXPECT_TRUE(file.ffFeMark);
    EXPECT_TRUE(file.utf16);
    EXPECT_EQ(file.encoding, "UTF-16LE");
    ASSERT_EQ(file.blocks.size(), 1u);
    EXPECT_EQ(file.blocks[0].text, "A");
}

TEST(ZemsubTolerantReader, Utf8AfterTheMarkStaysUtf8AndInvalidUtf8IsLatin1)
{
    const WrittenFile marked = read("\xFF\xFE"
                                    "1\n00:00:01,000 --> 00:00:02,000\n\xC3\xA9t\xC3\xA9\n",
                                    WrittenKind::SubRip);
    EXPECT_TRUE(marked.ffFeMark);
    EXPECT_FALSE(marked.utf16);
    EXPECT_EQ(marked.blocks.at(0).text, QString::fromUtf8("été"));
    const WrittenFile latin = read("1\n00:00:01,000 --> 00:00:02,000\n\xE9t\xE9\n", WrittenKind::SubRip);
    EXPECT_EQ(latin.encoding, "Latin-1");
    EXPECT_EQ(latin.blocks.at(0).text, QString::fromUtf8("été"));
}

TEST(ZemsubTolerantReader, DialogueLinesAreReadByTheirFormatLine)
{
    const WrittenFile file = read("[Script Info]\nScriptType: v4.00+\nPlayResX: &h500\n[Events]\n"
                                  "Format: Start, End, Text\n"
                                  "Dialogue: 0:00:01.50,0:00:03.00,Hello, {\\i1}world{\\i0}\\Nagain\n"
                                  "Comment: 0:00:04.00,0:00:05.00,not shown\n"
                                  "dialogue: 0:00:06.00,0:00:07.00,soft\\nbreak\\hspace {unclosed\n",
                                  WrittenKind::Script);
    EXPECT_TRUE(file.scriptTypeFound);
    EXPECT_EQ(file.scriptType, "v4.00+");
    EXPECT_EQ(file.eventFormat, (QStringList{"start", "end", "text"}));
    ASSERT_EQ(file.blocks.size(), 2u);
    EXPECT_EQ(file.blocks[0].start, 1500);
    EXPECT_EQ(file.blocks[0].end, 3000);
    EXPECT_EQ(file.blocks[0].text, "Hello, world\nagain");
    EXPECT_EQ(file.blocks[0].line, 6);
    EXPECT_EQ(file.blocks[1].text, QStringLiteral("soft break") + QChar(0xA0) + "space ");
    ASSERT_EQ(file.hexValues.size(), 1u);
    EXPECT_EQ(file.hexValues[0].where, "PlayResX");
    EXPECT_EQ(file.hexValues[0].line, 3);
}

TEST(ZemsubTolerantReader, WithoutAFormatLineTheScriptTypeChoosesLayerOrMarked)
{
    const WrittenFile ssa = read("[Script Info]\nScriptType: v4.00\n[Events]\n"
                                 "Dialogue: Marked=0,0:00:01.00,0:00:02.00,*Default,,0000,0000,0000,,A, b\n",
                                 WrittenKind::Script);
    ASSERT_EQ(ssa.blocks.size(), 1u);
    EXPECT_EQ(ssa.blocks[0].fields.first(), "Marked=0");
    EXPECT_EQ(ssa.blocks[0].text, "A, b");
    const WrittenFile ass =
        read("[Events]\nDialogue: 1,0:00:01.00,0:00:02.00,Default,,0,0,0,,B\n", WrittenKind::Script);
    EXPECT_EQ(ass.blocks.at(0).fields.first(), "1");
    EXPECT_EQ(ass.blocks.at(0).text, "B");
}

TEST(ZemsubTolerantReader, KindByExtensionThenByContent)
{
    EXPECT_EQ(guessKind("SRT", ""), WrittenKind::SubRip);
    EXPECT_EQ(guessKind("ssa", ""), WrittenKind::Script);
    EXPECT_EQ(guessKind("txt", "[Script Info]\n"), WrittenKind::Script);
    EXPECT_EQ(guessKind("txt", "1\n00:00:01,000 --> 00:00:02,000\n"), WrittenKind::SubRip);
    EXPECT_EQ(guessKind("txt", "words\n"), WrittenKind::Unknown);
}

} // namespace
#endif
