// The style setters of ZemSubtitleMaker and what they store.

#include <gtest/gtest.h>

#include <QFont>

#include "maker/ZemSubtitleMaker.h"

#include "MakerTestSupport.h"

TEST(SetTrasparency, ZeroGivesAlpha200)
{
    ZemSubtitleMaker maker;
    maker.setTrasparency(0);
    EXPECT_EQ(maker.alpha(), 200);
}

TEST(SetTrasparency, FiftyGivesAlpha100)
{
    ZemSubtitleMaker maker;
    maker.setTrasparency(50);
    EXPECT_EQ(maker.alpha(), 100);
}

TEST(SetTrasparency, HundredGivesAlphaZero)
{
    ZemSubtitleMaker maker;
    maker.setTrasparency(100);
    EXPECT_EQ(maker.alpha(), 0);
}

TEST(SetTrasparency, OutOfRangeValuesAreNotClamped)
{
    ZemSubtitleMaker maker;
    maker.setTrasparency(-50);
    EXPECT_EQ(maker.alpha(), 300);
    maker.setTrasparency(150);
    EXPECT_EQ(maker.alpha(), -100);
    maker.setTrasparency(-1000);
    EXPECT_EQ(maker.alpha(), 2200);
}

TEST(SetTrasparency, FullOpacityCannotBeSetAgain)
{
    ZemSubtitleMaker maker;
    EXPECT_EQ(maker.alpha(), 255);
    for (int percent = -100; percent <= 100; ++percent) {
        maker.setTrasparency(percent);
        EXPECT_NE(maker.alpha(), 255) << percent;  // (100 - p) * 2 is always even
    }
}

TEST(SetTrasparency, SetsTheLastTextToEmptyNotNull)
{
    ZemSubtitleMaker maker;
    ASSERT_TRUE(maker.lastText().isNull());
    maker.setTrasparency(10);
    EXPECT_TRUE(maker.lastText().isEmpty());
    EXPECT_FALSE(maker.lastText().isNull());
}

TEST(SetSubtitlePos, StoresXAndY)
{
    ZemSubtitleMaker maker;
    maker.setSubtitlePos(-7, 12345);
    EXPECT_EQ(maker.captionX(), -7);
    EXPECT_EQ(maker.captionY(), 12345);
}

TEST(SetSubtitlePos, SetsTheLastTextToEmptyNotNull)
{
    ZemSubtitleMaker maker;
    maker.setSubtitlePos(1, 2);
    EXPECT_TRUE(maker.lastText().isEmpty());
    EXPECT_FALSE(maker.lastText().isNull());
}

TEST(SetVideoSize, StoresAnyValueAndKeepsTheLastText)
{
    ZemSubtitleMaker maker;
    maker.setVideoSize(1280, 720);
    EXPECT_EQ(maker.videoWidth(), 1280);
    EXPECT_EQ(maker.videoHeight(), 720);
    EXPECT_TRUE(maker.lastText().isNull());
    maker.setVideoSize(0, -5);
    EXPECT_EQ(maker.videoWidth(), 0);
    EXPECT_EQ(maker.videoHeight(), -5);
    EXPECT_TRUE(maker.lastText().isNull());
}

TEST(SetFontInfo, StoresFamilySizeColourAndSpacing)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo("DejaVu Serif", 0x123456, 31, "Regular", 9);
    EXPECT_EQ(maker.font().family(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(maker.font().pointSize(), 31);
    EXPECT_EQ(maker.textColor(), QColor(0x56, 0x34, 0x12));
    EXPECT_EQ(maker.lineSpacing(), 9);
}

TEST(SetFontInfo, FamilyIsReadAsUtf8)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo("Caf\xC3\xA9 \xE2\x82\xAC", 0, 12, "Regular", 2);
    EXPECT_EQ(maker.font().family(), QString::fromUtf8("Caf\xC3\xA9 \xE2\x82\xAC"));
    EXPECT_EQ(maker.font().family().size(), 6);
}

TEST(SetFontInfo, LowestByteIsRed)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, 0x0000FF, 12, "Regular", 2);
    EXPECT_EQ(maker.textColor(), QColor(255, 0, 0));
}

TEST(SetFontInfo, SecondByteIsGreen)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, 0x00FF00, 12, "Regular", 2);
    EXPECT_EQ(maker.textColor(), QColor(0, 255, 0));
}

TEST(SetFontInfo, ThirdByteIsBlue)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, 0xFF0000, 12, "Regular", 2);
    EXPECT_EQ(maker.textColor(), QColor(0, 0, 255));
}

TEST(SetFontInfo, HighByteIsIgnoredAndTheColourIsOpaque)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, static_cast<int>(0x80102030u), 12, "Regular", 2);
    EXPECT_EQ(maker.textColor(), QColor(0x30, 0x20, 0x10));
    EXPECT_EQ(maker.textColor().alpha(), 255);
    maker.setFontInfo(makertest::kFamily, -1, 12, "Regular", 2);
    EXPECT_EQ(maker.textColor(), QColor(255, 255, 255));
    EXPECT_EQ(maker.textColor().alpha(), 255);
}

TEST(SetFontInfo, ColourDoesNotTakeTheTransparency)
{
    ZemSubtitleMaker maker;
    maker.setTrasparency(50);
    maker.setFontInfo(makertest::kFamily, 0x00FF00, 12, "Regular", 2);
    EXPECT_EQ(maker.textColor().alpha(), 255);
    EXPECT_EQ(maker.alpha(), 100);
}

TEST(SetFontInfo, OutlineStaysBlack)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, 0x000000, 12, "Bold", 2);
    EXPECT_EQ(maker.outlineColor(), QColor(Qt::black));
    maker.setFontInfo(makertest::kFamily, 0xFFFFFF, 12, "Regular", 2);
    EXPECT_EQ(maker.outlineColor(), QColor(Qt::black));
}

TEST(SetFontInfo, RegularSetsNormalStyleAndWeight)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, 0, 12, "Bold Italic", 2);
    maker.setFontInfo(makertest::kFamily, 0, 12, "Regular", 2);
    EXPECT_EQ(maker.font().style(), QFont::StyleNormal);
    EXPECT_EQ(maker.font().weight(), QFont::Normal);
}

TEST(SetFontInfo, ItalicSetsItalicStyleAndNormalWeight)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, 0, 12, "Bold", 2);
    maker.setFontInfo(makertest::kFamily, 0, 12, "Italic", 2);
    EXPECT_EQ(maker.font().style(), QFont::StyleItalic);
    EXPECT_EQ(maker.font().weight(), QFont::Normal);
}

TEST(SetFontInfo, BoldSetsNormalStyleAndBoldWeight)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, 0, 12, "Italic", 2);
    maker.setFontInfo(makertest::kFamily, 0, 12, "Bold", 2);
    EXPECT_EQ(maker.font().style(), QFont::StyleNormal);
    EXPECT_EQ(maker.font().weight(), QFont::Bold);
}

TEST(SetFontInfo, BoldItalicSetsItalicStyleAndBoldWeight)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, 0, 12, "Bold Italic", 2);
    EXPECT_EQ(maker.font().style(), QFont::StyleItalic);
    EXPECT_EQ(maker.font().weight(), QFont::Bold);
}

TEST(SetFontInfo, StyleWordsInAnotherCaseChangeNothing)
{
    const char* words[] = {"bold", "BOLD", "italic", "Bold italic", "bold Italic", "regular", "REGULAR"};
    for (const char* word : words) {
        ZemSubtitleMaker maker;
        maker.setFontInfo(makertest::kFamily, 0, 12, "Bold Italic", 2);
        maker.setFontInfo(makertest::kFamily, 0x00FF00, 14, word, 4);
        EXPECT_EQ(maker.font().style(), QFont::StyleItalic) << word;
        EXPECT_EQ(maker.font().weight(), QFont::Bold) << word;
        // the rest of the call still applies
        EXPECT_EQ(maker.font().pointSize(), 14) << word;
        EXPECT_EQ(maker.textColor(), QColor(0, 255, 0)) << word;
        EXPECT_EQ(maker.lineSpacing(), 4) << word;
    }
}

TEST(SetFontInfo, LowerCaseBoldLeavesTheDefaultStyleAndWeight)
{
    ZemSubtitleMaker maker;
    const QFont::Style style = maker.font().style();
    const int weight = maker.font().weight();
    maker.setFontInfo(makertest::kFamily, 0, 12, "bold", 2);
    EXPECT_EQ(maker.font().style(), style);
    EXPECT_EQ(maker.font().weight(), weight);
    EXPECT_NE(maker.font().weight(), QFont::Bold);
}

TEST(SetFontInfo, UnknownEmptyOrNullStyleWordsChangeNothing)
{
    const char* words[] = {"Oblique", "", " Bold", "Bold ", "BoldItalic", nullptr};
    for (const char* word : words) {
        ZemSubtitleMaker maker;
        maker.setFontInfo(makertest::kFamily, 0, 12, "Italic", 2);
        maker.setFontInfo(makertest::kFamily, 0, 12, word, 2);
        EXPECT_EQ(maker.font().style(), QFont::StyleItalic) << (word ? word : "(null)");
        EXPECT_EQ(maker.font().weight(), QFont::Normal) << (word ? word : "(null)");
    }
}

TEST(SetFontInfo, LineSpacingIsNotChecked)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, 0, 12, "Regular", -40);
    EXPECT_EQ(maker.lineSpacing(), -40);
}

TEST(SetFontInfo, NonPositivePointSizeKeepsTheFontsSize)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, 0, 17, "Regular", 2);
    maker.setFontInfo(makertest::kFamily, 0, 0, "Regular", 2);
    EXPECT_EQ(maker.font().pointSize(), 17);
    maker.setFontInfo(makertest::kFamily, 0, -3, "Regular", 2);
    EXPECT_EQ(maker.font().pointSize(), 17);
}

TEST(SetFontInfo, SetsTheLastTextToEmptyNotNull)
{
    ZemSubtitleMaker maker;
    maker.setFontInfo(makertest::kFamily, 0, 12, "Regular", 2);
    EXPECT_TRUE(maker.lastText().isEmpty());
    EXPECT_FALSE(maker.lastText().isNull());
}

TEST(Setters, WorkBeforeAnyOpenWithoutCreatingAManager)
{
    ZemSubtitleMaker maker;
    maker.setVideoSize(100, 100);
    maker.setFontInfo(makertest::kFamily, 0, 12, "Regular", 2);
    maker.setSubtitlePos(50, 90);
    maker.setTrasparency(20);
    EXPECT_EQ(maker.manager(), nullptr);
}

TEST(SetFontInfo, NonPositivePointSizeIsAcceptedSilently)
{
    ZemSubtitleMaker maker;
    makertest::MessageCounter messages;
    maker.setFontInfo(makertest::kFamily, 0, 0, "Regular", 2);
    maker.setFontInfo(makertest::kFamily, 0, -12, "Regular", 2);
    maker.setFontInfo(nullptr, 0, 12, nullptr, 2);
    EXPECT_EQ(messages.count(), 0);
}
