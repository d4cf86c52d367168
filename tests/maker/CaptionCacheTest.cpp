// getSubtitleData and destroySubData: which caption is asked for, when it is drawn
// again, and the record handed to the host.

#include <gtest/gtest.h>

#include <QPixmap>
#include <QtGlobal>
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#    include <QTextCodec>
#endif

#include <climits>
#include <memory>

#include "maker/ZemSubtitleMaker.h"
#include "manager/xcSubtitleManager.h"
#include "support/TestFiles.h"

#include "MakerTestSupport.h"

namespace {

using makertest::srtBlock;

// A maker with the test font and an open SubRip file.
class OpenMaker : public ::testing::Test
{
protected:
    void openSrt(const std::string& content)
    {
        makertest::useTestFont(maker);
        const std::string path = dir.write("captions.srt", content);
        ASSERT_TRUE(maker.open(path.c_str()));
    }

    // getSubtitleData; the record is handed back at once and its copy returned.
    bool ask(long long time, SubtitleData* copy = nullptr)
    {
        SubtitleData* data = maker.getSubtitleData(time, 0);
        if (!data)
            return false;
        if (copy)
            *copy = *data;
        maker.destroySubData(data);
        return true;
    }

    TempDir dir;
    ZemSubtitleMaker maker;
};

} // namespace

TEST(GetSubtitleData, NullBeforeAnyOpen)
{
    ZemSubtitleMaker maker;
    EXPECT_EQ(maker.getSubtitleData(1500, 0), nullptr);
    EXPECT_TRUE(maker.lastText().isNull());
    EXPECT_TRUE(maker.captionImage().isNull());
    EXPECT_EQ(maker.manager(), nullptr);
}

TEST_F(OpenMaker, NullAfterCloseAndTheImageIsKept)
{
    openSrt(makertest::twoCaptionSrt());
    ASSERT_TRUE(ask(1500));
    const qint64 key = maker.captionImage().cacheKey();
    ASSERT_TRUE(maker.close());
    EXPECT_EQ(maker.getSubtitleData(1500, 0), nullptr);
    EXPECT_EQ(maker.captionImage().cacheKey(), key);
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nHello"));
}

TEST_F(OpenMaker, NullAfterAFailedOpenOfAnotherFormat)
{
    const std::string path = dir.write("a.idx", "# VobSub index file\n");
    EXPECT_FALSE(maker.open(path.c_str()));
    EXPECT_EQ(maker.getSubtitleData(1500, 0), nullptr);
}

TEST_F(OpenMaker, DefaultRecordCoversTheDefaultFrame)
{
    const std::string path = dir.write("captions.srt", makertest::twoCaptionSrt());
    ASSERT_TRUE(maker.open(path.c_str()));  // default font and placement
    SubtitleData* data = maker.getSubtitleData(1500, 0);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->width, 480);
    EXPECT_EQ(data->height, 360);
    EXPECT_EQ(data->x, 0);
    EXPECT_EQ(data->y, 150);
    EXPECT_EQ(data->image, &maker.captionImage());
    EXPECT_EQ(data->image->width(), 480);
    EXPECT_EQ(data->image->height(), 360);
    maker.destroySubData(data);
}

TEST_F(OpenMaker, RecordPlacementFollowsTheImageSizeNotTheText)
{
    openSrt(makertest::twoCaptionSrt());
    maker.setVideoSize(1001, 501);
    maker.setSubtitlePos(300, 400);
    SubtitleData copy{};
    ASSERT_TRUE(ask(1500, &copy));
    EXPECT_EQ(copy.width, 1001);
    EXPECT_EQ(copy.height, 501);
    EXPECT_EQ(copy.x, 300 - 500);
    EXPECT_EQ(copy.y, 400 - 250);
}

TEST_F(OpenMaker, RecordHalvesTruncateTowardZero)
{
    openSrt(makertest::twoCaptionSrt());
    maker.setVideoSize(7, 5);
    maker.setSubtitlePos(-10, -20);
    SubtitleData copy{};
    ASSERT_TRUE(ask(1500, &copy));
    EXPECT_EQ(copy.x, -13);  // -10 - 7/2
    EXPECT_EQ(copy.y, -22);  // -20 - 5/2
}

TEST_F(OpenMaker, TimeIsPositionPlusOffset)
{
    openSrt(makertest::twoCaptionSrt());
    SubtitleData* data = maker.getSubtitleData(1000, 500);
    ASSERT_NE(data, nullptr);
    maker.destroySubData(data);
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nHello"));

    data = maker.getSubtitleData(4500, -1000);
    ASSERT_NE(data, nullptr);
    maker.destroySubData(data);
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nWorld"));

    EXPECT_EQ(maker.getSubtitleData(2000, 500), nullptr);  // 2500: between the captions
}

TEST_F(OpenMaker, TimeSumWrapsAround)
{
    openSrt(makertest::twoCaptionSrt());
    // LLONG_MIN + 1000 + LLONG_MIN + 500 wraps to 1500.
    SubtitleData* data = maker.getSubtitleData(LLONG_MIN + 1000, LLONG_MIN + 500);
    ASSERT_NE(data, nullptr);
    maker.destroySubData(data);
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nHello"));
}

TEST_F(OpenMaker, NegativeTimeGivesNull)
{
    openSrt(makertest::twoCaptionSrt());
    EXPECT_EQ(maker.getSubtitleData(-1, 0), nullptr);
    EXPECT_TRUE(maker.captionImage().isNull());
}

TEST_F(OpenMaker, TwoCallsInOneCaptionShareOneImageRenderedOnce)
{
    openSrt(makertest::twoCaptionSrt());
    SubtitleData* first = maker.getSubtitleData(1200, 0);
    ASSERT_NE(first, nullptr);
    const QString text = maker.lastText();
    const qint64 key = maker.captionImage().cacheKey();

    SubtitleData* second = maker.getSubtitleData(1800, 0);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->image, second->image);
    EXPECT_EQ(second->image, &maker.captionImage());
    EXPECT_EQ(maker.captionImage().cacheKey(), key);
    EXPECT_EQ(maker.lastText(), text);
    EXPECT_TRUE(maker.lastText().isSharedWith(text));  // not even assigned again
    maker.destroySubData(first);
    maker.destroySubData(second);
}

TEST_F(OpenMaker, GapClearsTheImageButKeepsTheLastText)
{
    openSrt(makertest::twoCaptionSrt());
    ASSERT_TRUE(ask(1500));
    EXPECT_FALSE(ask(2500));
    EXPECT_TRUE(maker.captionImage().isNull());
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nHello"));
}

TEST_F(OpenMaker, NextDifferentCaptionAfterAGapRenders)
{
    openSrt(makertest::twoCaptionSrt());
    ASSERT_TRUE(ask(1500));
    ASSERT_FALSE(ask(2500));
    SubtitleData copy{};
    ASSERT_TRUE(ask(3500, &copy));
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nWorld"));
    EXPECT_FALSE(maker.captionImage().isNull());
    EXPECT_EQ(copy.image, &maker.captionImage());
}

TEST_F(OpenMaker, SameCaptionAfterAGapIsNotShownAgain)
{
    openSrt(srtBlock(1, "00:00:01,000", "00:00:02,000", "Same") +
            srtBlock(2, "00:00:03,000", "00:00:04,000", "Same") +
            srtBlock(3, "00:00:05,000", "00:00:06,000", "Other") +
            srtBlock(4, "00:00:07,000", "00:00:08,000", "Unused"));
    ASSERT_TRUE(ask(1500));
    EXPECT_FALSE(ask(2500));
    EXPECT_FALSE(ask(3500));  // equal to the last text while the image was cleared
    EXPECT_FALSE(ask(3900));
    EXPECT_TRUE(maker.captionImage().isNull());
    EXPECT_TRUE(ask(5500));  // a different caption renders again
}

TEST_F(OpenMaker, SameCaptionAfterAGapShowsAgainAfterASetter)
{
    openSrt(srtBlock(1, "00:00:01,000", "00:00:02,000", "Same") +
            srtBlock(2, "00:00:03,000", "00:00:04,000", "Same") +
            srtBlock(3, "00:00:05,000", "00:00:06,000", "Unused"));
    ASSERT_TRUE(ask(1500));
    ASSERT_FALSE(ask(2500));
    ASSERT_FALSE(ask(3500));
    maker.setSubtitlePos(240, 330);
    EXPECT_TRUE(ask(3500));
}

TEST_F(OpenMaker, SetVideoSizeAloneDoesNotRenderAgain)
{
    openSrt(makertest::twoCaptionSrt());
    ASSERT_TRUE(ask(1500));
    const qint64 key = maker.captionImage().cacheKey();
    maker.setVideoSize(1280, 720);
    SubtitleData copy{};
    ASSERT_TRUE(ask(1600, &copy));
    EXPECT_EQ(maker.captionImage().cacheKey(), key);
    EXPECT_EQ(copy.width, 480);
    EXPECT_EQ(copy.height, 360);
    EXPECT_EQ(maker.captionImage().size(), QSize(480, 360));
}

TEST_F(OpenMaker, NextDifferentCaptionUsesTheNewVideoSize)
{
    openSrt(makertest::twoCaptionSrt());
    ASSERT_TRUE(ask(1500));
    maker.setVideoSize(1280, 720);
    SubtitleData copy{};
    ASSERT_TRUE(ask(3500, &copy));
    EXPECT_EQ(copy.width, 1280);
    EXPECT_EQ(copy.height, 720);
    EXPECT_EQ(copy.x, 240 - 640);
    EXPECT_EQ(copy.y, 330 - 360);
}

TEST_F(OpenMaker, SetSubtitlePosRendersAgain)
{
    openSrt(makertest::twoCaptionSrt());
    ASSERT_TRUE(ask(1500));
    const qint64 key = maker.captionImage().cacheKey();
    maker.setSubtitlePos(200, 300);
    EXPECT_TRUE(maker.lastText().isEmpty());
    SubtitleData copy{};
    ASSERT_TRUE(ask(1600, &copy));
    EXPECT_NE(maker.captionImage().cacheKey(), key);
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nHello"));
    EXPECT_EQ(copy.x, 200 - 240);
    EXPECT_EQ(copy.y, 300 - 180);
}

TEST_F(OpenMaker, SetTrasparencyRendersAgain)
{
    openSrt(makertest::twoCaptionSrt());
    ASSERT_TRUE(ask(1500));
    const qint64 key = maker.captionImage().cacheKey();
    maker.setTrasparency(30);
    ASSERT_TRUE(ask(1600));
    EXPECT_NE(maker.captionImage().cacheKey(), key);
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nHello"));
}

TEST_F(OpenMaker, SetFontInfoRendersAgain)
{
    openSrt(makertest::twoCaptionSrt());
    ASSERT_TRUE(ask(1500));
    const qint64 key = maker.captionImage().cacheKey();
    makertest::useTestFont(maker);  // the very same settings still force a render
    ASSERT_TRUE(ask(1600));
    EXPECT_NE(maker.captionImage().cacheKey(), key);
}

TEST_F(OpenMaker, OpenAndCloseDoNotRenderAgain)
{
    openSrt(makertest::twoCaptionSrt());
    ASSERT_TRUE(ask(1500));
    const qint64 key = maker.captionImage().cacheKey();
    EXPECT_TRUE(maker.open(dir.file("captions.srt").c_str()));
    ASSERT_TRUE(ask(1600));
    EXPECT_EQ(maker.captionImage().cacheKey(), key);
    ASSERT_TRUE(maker.close());
    ASSERT_TRUE(maker.open(dir.file("captions.srt").c_str()));
    ASSERT_TRUE(ask(1700));
    EXPECT_EQ(maker.captionImage().cacheKey(), key);
}

TEST_F(OpenMaker, ZeroWidthGivesNullAlthoughACaptionIsDue)
{
    openSrt(makertest::twoCaptionSrt());
    maker.setVideoSize(0, 360);
    EXPECT_FALSE(ask(1500));
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nHello"));  // already taken
    EXPECT_TRUE(maker.captionImage().isNull());
}

TEST_F(OpenMaker, ZeroHeightGivesNull)
{
    openSrt(makertest::twoCaptionSrt());
    maker.setVideoSize(480, 0);
    EXPECT_FALSE(ask(1500));
    EXPECT_TRUE(maker.makeSubImage(QStringLiteral("x")).isNull());
}

TEST_F(OpenMaker, NegativeSizeGivesNullSilently)
{
    openSrt(makertest::twoCaptionSrt());
    maker.setVideoSize(-480, -360);
    makertest::MessageCounter messages;
    EXPECT_FALSE(ask(1500));
    EXPECT_TRUE(maker.makeSubImage(QStringLiteral("x")).isNull());
    maker.setVideoSize(480, -1);
    EXPECT_TRUE(maker.makeSubImage(QStringLiteral("x")).isNull());
    EXPECT_EQ(messages.count(), 0);
}

TEST_F(OpenMaker, CorrectedSizeAloneKeepsTheSameCaptionHidden)
{
    openSrt(makertest::twoCaptionSrt());
    maker.setVideoSize(0, 0);
    ASSERT_FALSE(ask(1500));
    maker.setVideoSize(480, 360);
    EXPECT_FALSE(ask(1600));  // same text as the last text, image still null
    EXPECT_TRUE(maker.captionImage().isNull());

    SubtitleData copy{};
    EXPECT_TRUE(ask(3500, &copy));  // its text changes
    EXPECT_EQ(copy.width, 480);
}

TEST_F(OpenMaker, CorrectedSizeShowsTheSameCaptionAfterASetter)
{
    openSrt(makertest::twoCaptionSrt());
    maker.setVideoSize(-5, 100);
    ASSERT_FALSE(ask(1500));
    maker.setVideoSize(320, 200);
    ASSERT_FALSE(ask(1500));
    maker.setTrasparency(0);
    SubtitleData copy{};
    ASSERT_TRUE(ask(1500, &copy));
    EXPECT_EQ(copy.width, 320);
    EXPECT_EQ(copy.height, 200);
}

TEST_F(OpenMaker, TransparencyHundredGivesARecordWithAFullyTransparentImage)
{
    openSrt(makertest::twoCaptionSrt());
    maker.setTrasparency(100);
    SubtitleData* data = maker.getSubtitleData(1500, 0);
    ASSERT_NE(data, nullptr);
    const QImage image = makertest::pixels(*data->image);
    maker.destroySubData(data);
    EXPECT_EQ(image.size(), QSize(480, 360));
    EXPECT_EQ(makertest::countPixels(image, makertest::anyInk), 0);
}

TEST(DestroySubData, NullIsHarmless)
{
    ZemSubtitleMaker maker;
    maker.destroySubData(nullptr);
    SUCCEED();
}

TEST_F(OpenMaker, DestroySubDataLeavesTheImageAlone)
{
    openSrt(makertest::twoCaptionSrt());
    SubtitleData* data = maker.getSubtitleData(1500, 0);
    ASSERT_NE(data, nullptr);
    QPixmap* image = data->image;
    const qint64 key = image->cacheKey();
    maker.destroySubData(data);
    EXPECT_FALSE(maker.captionImage().isNull());
    EXPECT_EQ(maker.captionImage().cacheKey(), key);
    EXPECT_EQ(image, &maker.captionImage());
}

// Narrow text goes through the local 8-bit codec.
TEST_F(OpenMaker, NarrowCaptionWithHighBytesIsDecodedByTheLocal8BitCodec)
{
    const std::string utf8 = "Gr\xC3\xBC\xC3\x9F" "e \xE2\x82\xAC";
    openSrt(srtBlock(1, "00:00:01,000", "00:00:02,000", utf8) +
            srtBlock(2, "00:00:03,000", "00:00:04,000", "Unused"));
    ASSERT_TRUE(ask(1500));
    const QByteArray bytes = QByteArray("\n") + QByteArray(utf8.c_str());
    EXPECT_EQ(maker.lastText(), QString::fromLocal8Bit(bytes));
    EXPECT_NE(maker.lastText(), QString::fromLatin1(bytes));
}

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
// Qt 5 decodes local 8-bit text with the locale's codec: under Latin-1 the UTF-8
// bytes of "é" are two characters.
TEST_F(OpenMaker, NarrowCaptionFollowsTheLocaleCodec)
{
    openSrt(srtBlock(1, "00:00:01,000", "00:00:02,000", "caf\xC3\xA9") +
            srtBlock(2, "00:00:03,000", "00:00:04,000", "Unused"));
    QTextCodec* previous = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    const bool shown = ask(1500);
    const QString latin1Text = maker.lastText();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    maker.setSubtitlePos(240, 330);
    ask(1500);
    const QString utf8Text = maker.lastText();
    QTextCodec::setCodecForLocale(previous);

    EXPECT_TRUE(shown);
    EXPECT_EQ(latin1Text, QString::fromLatin1("\ncaf\xC3\xA9"));
    EXPECT_EQ(latin1Text.size(), 6);
    EXPECT_EQ(utf8Text, QString::fromUtf8("\ncaf\xC3\xA9"));
    EXPECT_EQ(utf8Text.size(), 5);
}
#else
// Qt 6 takes local 8-bit text on Unix as UTF-8, whatever the locale.
TEST_F(OpenMaker, NarrowCaptionIsUtf8)
{
    openSrt(srtBlock(1, "00:00:01,000", "00:00:02,000", "caf\xC3\xA9") +
            srtBlock(2, "00:00:03,000", "00:00:04,000", "Unused"));
    ASSERT_TRUE(ask(1500));
    EXPECT_EQ(maker.lastText(), QString::fromUtf8("\ncaf\xC3\xA9"));
    EXPECT_EQ(maker.lastText().size(), 5);
}
#endif

// An FF FE file goes to the wide SubRip parser: the text comes from GetSubTitleU
// as wide characters. The parser decodes under the process locale.
TEST_F(OpenMaker, WideFileCaptionComesThroughTheWideLookUp)
{
    makertest::LocaleGuard locale("C.UTF-8");
    ASSERT_TRUE(locale.ok());
    const std::string content =
        srtBlock(1, "00:00:01,000", "00:00:02,000", "Wide \xE2\x82\xAC \xF0\x9F\x98\x80") +
        srtBlock(2, "00:00:03,000", "00:00:04,000", "Last");
    makertest::useTestFont(maker);
    const std::string path = dir.write("wide.srt", withMark(content));
    ASSERT_TRUE(maker.open(path.c_str()));
    ASSERT_TRUE(maker.manager()->IsWide());
    ASSERT_EQ(maker.manager()->GetFormatCode(), 4);

    SubtitleData copy{};
    ASSERT_TRUE(ask(1500, &copy));
    EXPECT_EQ(maker.lastText(), QString::fromUtf8("\nWide \xE2\x82\xAC \xF0\x9F\x98\x80"));
    // U+1F600 outside the BMP: one wchar_t, two UTF-16 units
    EXPECT_EQ(maker.lastText().size(), 10);
    EXPECT_EQ(copy.width, 480);

    // the wide parser shows its last entry too
    ASSERT_TRUE(ask(3500));
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nLast"));
    EXPECT_FALSE(ask(2500));
}

TEST_F(OpenMaker, WideFileAtTimeZeroGivesNull)
{
    makertest::LocaleGuard locale("C.UTF-8");
    ASSERT_TRUE(locale.ok());
    makertest::useTestFont(maker);
    const std::string path =
        dir.write("wide.srt", withMark(srtBlock(1, "00:00:00,000", "00:00:02,000", "Zero") +
                                       srtBlock(2, "00:00:03,000", "00:00:04,000", "Last")));
    ASSERT_TRUE(maker.open(path.c_str()));
    EXPECT_FALSE(ask(0));
    EXPECT_TRUE(ask(1));
    EXPECT_EQ(maker.lastText(), QStringLiteral("\nZero"));
}

TEST_F(OpenMaker, EachCallWithAnImageGivesANewRecord)
{
    openSrt(makertest::twoCaptionSrt());
    std::unique_ptr<SubtitleData> a(maker.getSubtitleData(1500, 0));
    std::unique_ptr<SubtitleData> b(maker.getSubtitleData(1500, 0));
    ASSERT_TRUE(a && b);
    EXPECT_NE(a.get(), b.get());
    EXPECT_EQ(a->width, b->width);
    EXPECT_EQ(a->x, b->x);
    EXPECT_EQ(a->y, b->y);
    maker.destroySubData(a.release());
    maker.destroySubData(b.release());
}
