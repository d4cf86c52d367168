// Construction, open, close and isOpened of ZemSubtitleMaker.

#include <gtest/gtest.h>

#include <QFont>

#include "maker/ZemSubtitleMaker.h"
#include "manager/xcSubtitleManager.h"
#include "support/TestFiles.h"

#include "MakerTestSupport.h"

namespace {

std::string assScript()
{
    return "[Script Info]\n"
           "ScriptType: v4.00+\n"
           "PlayResX: 384\n"
           "PlayResY: 288\n"
           "\n"
           "[V4+ Styles]\n"
           "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, BackColour, "
           "Bold, Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, BorderStyle, Outline, "
           "Shadow, Alignment, MarginL, MarginR, MarginV, Encoding\n"
           "Style: Default,Arial,20,&H00FFFFFF,&H000000FF,&H00000000,&H00000000,0,0,0,0,100,100,0,0,1,2,"
           "2,2,10,10,10,1\n"
           "\n"
           "[Events]\n"
           "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
           "Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,Script one\n"
           "Dialogue: 0,0:00:03.00,0:00:04.00,Default,,0,0,0,,Script two\n"
           "Dialogue: 0,0:00:05.00,0:00:06.00,Default,,0,0,0,,Script three\n";
}

} // namespace

TEST(MakerConstruction, MembersStartAtTheirDefaults)
{
    ZemSubtitleMaker maker;
    EXPECT_EQ(maker.manager(), nullptr);
    EXPECT_EQ(maker.font(), QFont());
    EXPECT_EQ(maker.lineSpacing(), 2);
    EXPECT_EQ(maker.captionY(), 330);
    EXPECT_EQ(maker.captionX(), 240);
    EXPECT_EQ(maker.textColor(), QColor(Qt::white));
    EXPECT_EQ(maker.textColor().alpha(), 255);
    EXPECT_EQ(maker.outlineColor(), QColor(Qt::black));
    EXPECT_EQ(maker.alpha(), 255);
    EXPECT_TRUE(maker.lastText().isNull());
    EXPECT_TRUE(maker.captionImage().isNull());
    EXPECT_EQ(maker.videoWidth(), 480);
    EXPECT_EQ(maker.videoHeight(), 360);
    EXPECT_FALSE(maker.isOpened());
}

TEST(MakerCreateSubManager, CreatesOnceAndKeepsTheManager)
{
    ZemSubtitleMaker maker;
    maker.createSubManager();
    xcSubtitleManager* first = maker.manager();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->GetFormatCode(), 0);
    maker.createSubManager();
    EXPECT_EQ(maker.manager(), first);
    EXPECT_FALSE(maker.isOpened());
}

TEST(MakerOpen, ValidSubRipFileOpens)
{
    TempDir dir;
    const std::string path = dir.write("a.srt", makertest::twoCaptionSrt());
    ZemSubtitleMaker maker;
    EXPECT_TRUE(maker.open(path.c_str()));
    EXPECT_TRUE(maker.isOpened());
    ASSERT_NE(maker.manager(), nullptr);
    EXPECT_EQ(maker.manager()->GetFormatCode(), 1);
}

TEST(MakerOpen, SecondOpenAnswersTrueAndKeepsTheFirstFile)
{
    TempDir dir;
    const std::string srt = dir.write("a.srt", makertest::twoCaptionSrt());
    const std::string ass = dir.write("b.ass", assScript());
    ZemSubtitleMaker maker;
    ASSERT_TRUE(maker.open(srt.c_str()));
    xcSubtitleManager* manager = maker.manager();

    EXPECT_TRUE(maker.open(ass.c_str()));
    EXPECT_EQ(maker.manager(), manager);
    EXPECT_EQ(manager->GetFormatCode(), 1);
    EXPECT_EQ(maker.lastText(), QString());
    makertest::useTestFont(maker);
    SubtitleData* data = maker.getSubtitleData(1500, 0);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nHello"));
    maker.destroySubData(data);
}

TEST(MakerOpen, SecondOpenDoesNotLookAtThePath)
{
    TempDir dir;
    const std::string srt = dir.write("a.srt", makertest::twoCaptionSrt());
    ZemSubtitleMaker maker;
    ASSERT_TRUE(maker.open(srt.c_str()));
    EXPECT_TRUE(maker.open(nullptr));
    EXPECT_TRUE(maker.open(""));
    EXPECT_TRUE(maker.open(dir.file("missing.txt").c_str()));
    EXPECT_TRUE(maker.isOpened());
}

TEST(MakerOpen, UnknownExtensionFailsAndKeepsTheManagerForTheNextAttempt)
{
    TempDir dir;
    const std::string text = dir.write("a.txt", makertest::twoCaptionSrt());
    const std::string srt = dir.write("a.srt", makertest::twoCaptionSrt());
    ZemSubtitleMaker maker;
    EXPECT_FALSE(maker.open(text.c_str()));
    EXPECT_FALSE(maker.isOpened());
    xcSubtitleManager* manager = maker.manager();
    ASSERT_NE(manager, nullptr);

    EXPECT_TRUE(maker.open(srt.c_str()));
    EXPECT_TRUE(maker.isOpened());
    EXPECT_EQ(maker.manager(), manager);
}

TEST(MakerOpen, MissingFileFails)
{
    TempDir dir;
    ZemSubtitleMaker maker;
    EXPECT_FALSE(maker.open(dir.file("missing.srt").c_str()));
    EXPECT_FALSE(maker.isOpened());
    EXPECT_NE(maker.manager(), nullptr);
}

TEST(MakerOpen, NullAndEmptyPathsFail)
{
    ZemSubtitleMaker maker;
    EXPECT_FALSE(maker.open(nullptr));
    EXPECT_FALSE(maker.open(""));
    EXPECT_FALSE(maker.isOpened());
}

TEST(MakerOpen, EmptySubRipFileFails)
{
    TempDir dir;
    const std::string path = dir.write("empty.srt", "");
    ZemSubtitleMaker maker;
    EXPECT_FALSE(maker.open(path.c_str()));
    EXPECT_FALSE(maker.isOpened());
}

TEST(MakerClose, BeforeAnyOpenAnswersFalse)
{
    ZemSubtitleMaker maker;
    EXPECT_FALSE(maker.close());
    EXPECT_EQ(maker.manager(), nullptr);
}

TEST(MakerClose, TwiceAfterOpenAnswersTrueThenFalse)
{
    TempDir dir;
    const std::string path = dir.write("a.srt", makertest::twoCaptionSrt());
    ZemSubtitleMaker maker;
    ASSERT_TRUE(maker.open(path.c_str()));
    EXPECT_TRUE(maker.close());
    EXPECT_EQ(maker.manager(), nullptr);
    EXPECT_FALSE(maker.isOpened());
    EXPECT_FALSE(maker.close());
}

TEST(MakerClose, AfterAFailedOpenStillDeletesTheManager)
{
    ZemSubtitleMaker maker;
    EXPECT_FALSE(maker.open(""));
    ASSERT_NE(maker.manager(), nullptr);
    EXPECT_TRUE(maker.close());
    EXPECT_EQ(maker.manager(), nullptr);
}

TEST(MakerClose, NewOpenAfterCloseWorksWithAFreshManager)
{
    TempDir dir;
    const std::string first = dir.write("a.srt", makertest::twoCaptionSrt());
    const std::string second =
        dir.write("b.srt", makertest::srtBlock(1, "00:00:01,000", "00:00:02,000", "Other") +
                               makertest::srtBlock(2, "00:00:05,000", "00:00:06,000", "Last"));
    ZemSubtitleMaker maker;
    makertest::useTestFont(maker);
    ASSERT_TRUE(maker.open(first.c_str()));
    ASSERT_TRUE(maker.close());
    ASSERT_TRUE(maker.open(second.c_str()));
    EXPECT_TRUE(maker.isOpened());
    SubtitleData* data = maker.getSubtitleData(1500, 0);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nOther"));
    maker.destroySubData(data);
}

TEST(MakerClose, KeepsTheLastTextTheImageAndTheStyle)
{
    TempDir dir;
    const std::string path = dir.write("a.srt", makertest::twoCaptionSrt());
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, 0x0000FF, 18, "Bold", 5);
    maker.setSubtitlePos(100, 200);
    maker.setTrasparency(25);
    maker.setVideoSize(320, 240);
    ASSERT_TRUE(maker.open(path.c_str()));
    SubtitleData* data = maker.getSubtitleData(1500, 0);
    ASSERT_NE(data, nullptr);
    maker.destroySubData(data);
    const qint64 key = maker.captionImage().cacheKey();

    ASSERT_TRUE(maker.close());
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nHello"));
    EXPECT_FALSE(maker.captionImage().isNull());
    EXPECT_EQ(maker.captionImage().cacheKey(), key);
    EXPECT_EQ(maker.font().family(), QStringLiteral("DejaVu Sans"));
    EXPECT_EQ(maker.font().pointSize(), 18);
    EXPECT_EQ(maker.font().weight(), QFont::Bold);
    EXPECT_EQ(maker.textColor(), QColor(255, 0, 0));
    EXPECT_EQ(maker.lineSpacing(), 5);
    EXPECT_EQ(maker.captionX(), 100);
    EXPECT_EQ(maker.captionY(), 200);
    EXPECT_EQ(maker.alpha(), 150);
    EXPECT_EQ(maker.videoWidth(), 320);
    EXPECT_EQ(maker.videoHeight(), 240);
}

TEST(MakerIsOpened, FalseWithoutManagerAndAfterAFailedOpen)
{
    ZemSubtitleMaker maker;
    EXPECT_FALSE(maker.isOpened());
    maker.createSubManager();
    EXPECT_FALSE(maker.isOpened());
    EXPECT_FALSE(maker.open("no-dot-here"));
    EXPECT_FALSE(maker.isOpened());
}
