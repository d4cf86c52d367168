// A subtitle picture's text fill apart from its outline, cut into lines.
#include "TextPictures.h"
#include "pictures/PicturePrep.h"

#include <gtest/gtest.h>

namespace {

using namespace zemsub::tool;

int textPixels(const QImage& mask)
{
    int count = 0;
    for (int y = 0; y < mask.height(); ++y)
        for (int x = 0; x < mask.width(); ++x)
            count += qGray(mask.pixel(x, y)) < 128;
    return count;
}

TEST(PicturePrep, TheFillIsKeptAndTheOutlineDropped)
{
    CaptionText caption;
    caption.text = "Hello";
    const QImage picture = zemsub::samplegen::drawCaption(caption);
    const QImage mask = textFill(picture);
    ASSERT_EQ(mask.size(), picture.size());
    int fill = 0, wrong = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            const bool isFill = qAlpha(pixel) == 255 && qGray(pixel) > 127;
            const bool marked = qGray(mask.pixel(x, y)) < 128;
            fill += isFill;
            wrong += isFill != marked;
        }
    }
    EXPECT_GT(fill, 100);
    EXPECT_EQ(wrong, 0);
}

TEST(PicturePrep, DarkTextInALightOutlineIsTheFillToo)
{
    CaptionText caption;
    caption.text = "Hello";
    QImage picture = zemsub::samplegen::drawCaption(caption);
    picture.invertPixels(QImage::InvertRgb);
    const QImage mask = textFill(picture);
    int wrong = 0, fill = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            const bool isFill = qAlpha(pixel) == 255 && qGray(pixel) < 128;
            fill += isFill;
            wrong += isFill != (qGray(mask.pixel(x, y)) < 128);
        }
    }
    EXPECT_GT(fill, 100);
    EXPECT_EQ(wrong, 0);
}

TEST(PicturePrep, WithoutAnOutlineEveryDrawnPixelIsText)
{
    CaptionText caption;
    caption.text = "Hi";
    caption.outline = 0;
    const QImage picture = zemsub::samplegen::drawCaption(caption);
    int drawn = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            drawn += qAlpha(picture.pixel(x, y)) == 255;
    EXPECT_EQ(textPixels(textFill(picture)), drawn);
}

TEST(PicturePrep, LinesAreCutTopToBottomAtTheReadingHeight)
{
    CaptionText caption;
    caption.text = "First line\nSecond, longer line";
    const std::vector<QImage> lines = textLines(textFill(zemsub::samplegen::drawCaption(caption)), 32);
    ASSERT_EQ(lines.size(), 2u);
    for (const QImage& line : lines) {
        EXPECT_EQ(line.height(), 32 + 16);
        EXPECT_GT(textPixels(line), 50);
        // A light ground around the text.
        EXPECT_EQ(qGray(line.pixel(0, 0)), 255);
    }
    // Each is the line as drawn alone.
    caption.text = "First line";
    const std::vector<QImage> first = textLines(textFill(zemsub::samplegen::drawCaption(caption)), 32);
    caption.text = "Second, longer line";
    const std::vector<QImage> second = textLines(textFill(zemsub::samplegen::drawCaption(caption)), 32);
    ASSERT_EQ(first.size(), 1u);
    ASSERT_EQ(second.size(), 1u);
    EXPECT_EQ(lines[0], first[0]);
    EXPECT_EQ(lines[1], second[0]);
}

TEST(PicturePrep, AccentsStayWithTheirLine)
{
    CaptionText caption;
    caption.text = QString::fromUtf8("\u00c9T\u00c9 \u00c0 PARIS");
    EXPECT_EQ(textLines(textFill(zemsub::samplegen::drawCaption(caption))).size(), 1u);
}

TEST(PicturePrep, ShadowAndOutlineInAnyColourStayOut)
{
    // Four DVD colours: white fill, dark outline, a bright yellow shadow.
    CaptionText caption;
    caption.text = "Shadow";
    caption.shadow = 3;
    QImage picture = zemsub::samplegen::drawCaption(caption);
    int fill = 0, wrong = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (qAlpha(pixel) == 255 && qGray(pixel) > 32 && qGray(pixel) < 160)
                picture.setPixel(x, y, qRgb(0xe0, 0xc0, 0x20));
        }
    }
    const QImage mask = textFill(picture);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            const bool isFill = qAlpha(pixel) == 255 && pixel == qRgb(255, 255, 255);
            fill += isFill;
            wrong += isFill != (qGray(mask.pixel(x, y)) < 128);
        }
    }
    EXPECT_GT(fill, 100);
    EXPECT_EQ(wrong, 0);
}

TEST(PicturePrep, AnEmptyPictureHasNoLines)
{
    QImage empty(40, 20, QImage::Format_ARGB32);
    empty.fill(Qt::transparent);
    EXPECT_TRUE(textLines(textFill(empty)).empty());
}

} // namespace
