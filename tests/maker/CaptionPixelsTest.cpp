// What makeSubImage draws, read back from the pixels.

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QPixmap>

#include "maker/ZemSubtitleMaker.h"
#include "support/TestFiles.h"

#include "MakerTestSupport.h"

namespace {

using makertest::anyInk;
using makertest::InkBox;
using makertest::inkBox;
using makertest::pixels;
using makertest::redInk;

// A vertical bar: its ink reaches the last row of its line box in DejaVu Sans.
const QString kBar = QStringLiteral("\n|");
// A full block: solid, with straight edges.
const QString kBlock = QString(QChar(0x2588));

int lineHeight(const ZemSubtitleMaker& maker, const QString& line)
{
    return QFontMetrics(maker.font()).boundingRect(QRect(), 0x24, line).height();
}

// Rows (top to bottom) holding at least one pixel that matches, as [first, last] runs.
std::vector<std::pair<int, int>> rowRuns(const QImage& image, bool (*match)(QRgb))
{
    std::vector<std::pair<int, int>> runs;
    bool inRun = false;
    for (int y = 0; y < image.height(); ++y) {
        bool hit = false;
        for (int x = 0; x < image.width() && !hit; ++x)
            hit = match(image.pixel(x, y));
        if (hit && !inRun)
            runs.emplace_back(y, y);
        if (hit)
            runs.back().second = y;
        inRun = hit;
    }
    return runs;
}

// What k layers of colour at alpha a make over a transparent pixel.
QRgb layered(const std::vector<QColor>& layers)
{
    QPixmap pixmap(1, 1);
    pixmap.fill(QColor(0, 0, 0, 0));
    QPainter painter(&pixmap);
    for (const QColor& colour : layers)
        painter.fillRect(QRect(0, 0, 1, 1), colour);
    painter.end();
    return pixels(pixmap).pixel(0, 0);
}

class Pixels : public ::testing::Test
{
protected:
    void SetUp() override { makertest::useTestFont(maker); }
    QImage draw(const QString& text) { return pixels(maker.makeSubImage(text)); }

    ZemSubtitleMaker maker;
};

} // namespace

TEST_F(Pixels, ImageIsTheWholeFrame)
{
    maker.setVideoSize(333, 111);
    const QPixmap image = maker.makeSubImage(kBar);
    EXPECT_EQ(image.width(), 333);
    EXPECT_EQ(image.height(), 111);
}

TEST_F(Pixels, BackgroundIsFullyTransparent)
{
    const QImage image = draw(kBar);
    EXPECT_EQ(image.pixel(0, 0), 0u);
    EXPECT_EQ(image.pixel(479, 0), 0u);
    EXPECT_EQ(image.pixel(0, 359), 0u);
    EXPECT_EQ(image.pixel(479, 359), 0u);
    const InkBox ink = inkBox(image, anyInk);
    ASSERT_FALSE(ink.empty());
    EXPECT_LT(ink.right - ink.left, 40);
    EXPECT_LT(ink.bottom - ink.top, 60);
}

TEST_F(Pixels, TextEndsOnTheRowAboveCaptionY)
{
    const InkBox text = inkBox(draw(kBar), redInk);
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(text.bottom, 330 - 1);
}

TEST_F(Pixels, TextFollowsTheCaptionPosition)
{
    maker.setSubtitlePos(100, 200);
    const InkBox text = inkBox(draw(kBar), redInk);
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(text.bottom, 199);
    EXPECT_NEAR((text.left + text.right) / 2.0, 100.0, 1.5);
}

TEST_F(Pixels, OutlineReachesExactlyTwoPixelsBeyondTheText)
{
    const QImage image = draw(kBar);
    const InkBox text = inkBox(image, redInk);
    const InkBox all = inkBox(image, anyInk);
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(all.bottom, text.bottom + 2);
    EXPECT_EQ(all.bottom, 330 + 1);
    EXPECT_EQ(all.top, text.top - 2);
    EXPECT_EQ(all.left, text.left - 2);
    EXPECT_EQ(all.right, text.right + 2);
}

TEST_F(Pixels, OutlineCornersAreCut)
{
    // A solid block: the pixel diagonally two away from its corner gets no outline.
    const QImage image = draw(kBlock);
    const InkBox text = inkBox(image, redInk);
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(qAlpha(image.pixel(text.left - 2, text.bottom + 2)), 0);
    EXPECT_EQ(qAlpha(image.pixel(text.right + 2, text.bottom + 2)), 0);
    EXPECT_GT(qAlpha(image.pixel(text.left - 1, text.bottom + 2)), 0);
    EXPECT_GT(qAlpha(image.pixel(text.left - 2, text.bottom + 1)), 0);
}

TEST_F(Pixels, BlockIsCentredOnCaptionX)
{
    const InkBox text = inkBox(draw(kBlock), redInk);
    ASSERT_FALSE(text.empty());
    EXPECT_NEAR((text.left + text.right) / 2.0, 240.0, 1.5);
    maker.setSubtitlePos(77, 330);
    const InkBox moved = inkBox(draw(kBlock), redInk);
    EXPECT_NEAR((moved.left + moved.right) / 2.0, 77.0, 1.5);
}

TEST_F(Pixels, EveryLineIsCentredOnCaptionX)
{
    const QImage image = draw(QStringLiteral("\nWWWWWWWWWW\n") + kBlock);
    const auto runs = rowRuns(image, [](QRgb p) { return redInk(p); });
    ASSERT_EQ(runs.size(), 2u);
    const QRect wide(0, runs[0].first, 480, runs[0].second - runs[0].first + 1);
    const QRect narrow(0, runs[1].first, 480, runs[1].second - runs[1].first + 1);
    const InkBox top = inkBox(image.copy(wide), redInk);
    const InkBox bottom = inkBox(image.copy(narrow), redInk);
    EXPECT_GT(top.right - top.left, 3 * (bottom.right - bottom.left));
    EXPECT_NEAR((top.left + top.right) / 2.0, 240.0, 2.0);
    EXPECT_NEAR((bottom.left + bottom.right) / 2.0, 240.0, 1.5);
}

TEST_F(Pixels, LineFeedABlankLineAndBDrawThreeLines)
{
    const QImage image = draw(QStringLiteral("\nA\n\nB"));
    const int h = lineHeight(maker, QStringLiteral("A"));
    const int empty = lineHeight(maker, QString());
    const int step = maker.lineSpacing() + 2;
    const int blockTop = 330 - (h + empty + lineHeight(maker, QStringLiteral("B")) + 2 * step);
    const int middleTop = blockTop + h + step;

    const auto runs = rowRuns(image, [](QRgb p) { return redInk(p); });
    ASSERT_EQ(runs.size(), 2u);  // A and B; the middle line is empty
    EXPECT_GE(runs[0].first, blockTop - 1);
    EXPECT_LT(runs[0].second, middleTop);
    EXPECT_GE(runs[1].first, middleTop + empty);
    EXPECT_LE(runs[1].second, 329);
    // nothing at all drawn inside the middle line, outlines included
    const InkBox middle = inkBox(image.copy(0, middleTop + 2, 480, empty - 4), anyInk);
    EXPECT_TRUE(middle.empty());
}

TEST_F(Pixels, BlankLineTakesAFullLineOfHeight)
{
    const QImage image = draw(QStringLiteral("\n|\n\n|"));
    const auto runs = rowRuns(image, [](QRgb p) { return redInk(p); });
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[1].second, 329);
    const int step = maker.lineSpacing() + 2;
    EXPECT_EQ(runs[1].second - runs[0].second,
              lineHeight(maker, QString()) + lineHeight(maker, QStringLiteral("|")) + 2 * step);
}

TEST_F(Pixels, TrailingEmptyLinesAreKept)
{
    const QImage image = draw(QStringLiteral("\n|\n"));
    const InkBox text = inkBox(image, redInk);
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(text.bottom, 329 - lineHeight(maker, QString()) - maker.lineSpacing() - 2);
}

TEST_F(Pixels, LeadingLineFeedIsOptional)
{
    EXPECT_EQ(draw(QStringLiteral("|")), draw(QStringLiteral("\n|")));
}

TEST_F(Pixels, LineSpacingIsAddedBetweenLinesOnly)
{
    maker.setFontInfo(makertest::kFamily, 0xFFFFFF, 20, "Regular", 2);
    const auto narrow = rowRuns(draw(QStringLiteral("\n|\n|\n|")), [](QRgb p) { return redInk(p); });
    maker.setFontInfo(makertest::kFamily, 0xFFFFFF, 20, "Regular", 12);
    const auto wide = rowRuns(draw(QStringLiteral("\n|\n|\n|")), [](QRgb p) { return redInk(p); });
    ASSERT_EQ(narrow.size(), 3u);
    ASSERT_EQ(wide.size(), 3u);
    EXPECT_EQ(narrow[2].second, 329);
    EXPECT_EQ(wide[2].second, 329);
    EXPECT_EQ(narrow[1].second - wide[1].second, 10);
    EXPECT_EQ(narrow[0].second - wide[0].second, 20);
}

TEST_F(Pixels, NegativeLineSpacingPullsLinesTogether)
{
    const QString twoBlocks = QStringLiteral("\n") + kBlock + QStringLiteral("\n") + kBlock;
    const auto apart = rowRuns(draw(twoBlocks), [](QRgb p) { return redInk(p); });
    maker.setFontInfo(makertest::kFamily, 0xFFFFFF, 20, "Regular", -2);
    const auto close = rowRuns(draw(twoBlocks), [](QRgb p) { return redInk(p); });
    ASSERT_EQ(apart.size(), 2u);
    ASSERT_EQ(close.size(), 2u);
    EXPECT_EQ(apart[1].second, 329);
    EXPECT_EQ(close[1].second, 329);
    EXPECT_EQ(close[0].first - apart[0].first, 4);
}

// Lines are drawn one after the other, each outline first and its text on top, so
// a line's outline covers the text of the line above where they meet.
TEST_F(Pixels, LaterLineOutlineCoversTheLineAbove)
{
    maker.setFontInfo(makertest::kFamily, 0xFFFFFF, 20, "Regular", -2);
    const QImage image = draw(QStringLiteral("\n") + kBlock + QStringLiteral("\n") + kBlock);
    const auto runs = rowRuns(image, [](QRgb p) { return redInk(p); });
    ASSERT_EQ(runs.size(), 2u);
    const int centre = inkBox(image, redInk).left + 5;
    const int lowerTop = 330 - lineHeight(maker, kBlock);
    // the upper block's box reaches lowerTop - 1, yet black rows end its text earlier
    EXPECT_LT(runs[0].second, lowerTop - 1);
    for (int y = runs[0].second + 1; y < runs[1].first; ++y)
        EXPECT_EQ(image.pixel(centre, y), qRgba(0, 0, 0, 255)) << y;
}

TEST_F(Pixels, OutlineIsBlackAroundWhiteText)
{
    const QImage image = draw(QStringLiteral("\nAg|"));
    int opaqueBlack = 0;
    int opaqueWhite = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = image.pixel(x, y);
            EXPECT_TRUE(qRed(p) == qGreen(p) && qGreen(p) == qBlue(p)) << x << "," << y;
            if (p == qRgba(0, 0, 0, 255))
                ++opaqueBlack;
            if (p == qRgba(255, 255, 255, 255))
                ++opaqueWhite;
        }
    }
    EXPECT_GT(opaqueBlack, 20);
    EXPECT_GT(opaqueWhite, 20);
    // just left of the bar's stem, at mid height: outline, not text
    const InkBox text = inkBox(image, redInk);
    const int midRow = (text.top + text.bottom) / 2;
    EXPECT_EQ(image.pixel(text.right + 1, text.bottom - 3), qRgba(0, 0, 0, 255));
    EXPECT_EQ(qRed(image.pixel(text.left - 1, midRow)), 0);
}

TEST_F(Pixels, TextIsAntialiased)
{
    const QImage image = draw(QStringLiteral("\nAWv"));
    const int partial = makertest::countPixels(image, [](QRgb p) { return qAlpha(p) > 0 && qAlpha(p) < 255; });
    EXPECT_GT(partial, 0);
}

TEST_F(Pixels, LowestColourByteIsRed)
{
    maker.setFontInfo(makertest::kFamily, 0x0000FF, 20, "Regular", 2);
    const QImage image = draw(kBlock);
    EXPECT_GT(makertest::countPixels(image, [](QRgb p) { return p == qRgba(255, 0, 0, 255); }), 100);
    EXPECT_EQ(makertest::countPixels(image, [](QRgb p) { return qGreen(p) > 0 || qBlue(p) > 0; }), 0);
}

TEST_F(Pixels, MiddleColourByteIsGreen)
{
    maker.setFontInfo(makertest::kFamily, 0x00FF00, 20, "Regular", 2);
    const QImage image = draw(kBlock);
    EXPECT_GT(makertest::countPixels(image, [](QRgb p) { return p == qRgba(0, 255, 0, 255); }), 100);
    EXPECT_EQ(makertest::countPixels(image, [](QRgb p) { return qRed(p) > 0 || qBlue(p) > 0; }), 0);
}

TEST_F(Pixels, ThirdColourByteIsBlue)
{
    maker.setFontInfo(makertest::kFamily, 0xFF0000, 20, "Regular", 2);
    const QImage image = draw(kBlock);
    EXPECT_GT(makertest::countPixels(image, [](QRgb p) { return p == qRgba(0, 0, 255, 255); }), 100);
    EXPECT_EQ(makertest::countPixels(image, [](QRgb p) { return qRed(p) > 0 || qGreen(p) > 0; }), 0);
}

TEST_F(Pixels, MixedColourIsUnpackedFromLowToHighBytes)
{
    maker.setFontInfo(makertest::kFamily, static_cast<int>(0xFF204080u), 20, "Regular", 2);
    const QImage image = draw(kBlock);
    EXPECT_GT(makertest::countPixels(image, [](QRgb p) { return p == qRgba(0x80, 0x40, 0x20, 255); }), 100);
}

TEST_F(Pixels, TransparencyHundredLeavesEveryPixelTransparent)
{
    maker.setTrasparency(100);
    const QImage image = draw(QStringLiteral("\nAg|\n") + kBlock);
    EXPECT_EQ(makertest::countPixels(image, anyInk), 0);
}

TEST_F(Pixels, TransparencyAboveHundredDrawsNothingAndStaysSilent)
{
    maker.setTrasparency(150);  // alpha -100
    makertest::MessageCounter messages;
    const QImage image = draw(kBlock);
    EXPECT_EQ(messages.count(), 0);
    EXPECT_EQ(makertest::countPixels(image, anyInk), 0);
}

TEST_F(Pixels, TransparencyBelowZeroDrawsOpaqueAndStaysSilent)
{
    const QImage opaque = draw(kBlock);  // the default alpha 255
    maker.setTrasparency(-50);          // alpha 300
    makertest::MessageCounter messages;
    const QImage image = draw(kBlock);
    EXPECT_EQ(messages.count(), 0);
    EXPECT_EQ(image, opaque);
}

// Inside the block all 20 outline passes and the text overlap at full coverage, so
// the text's alpha reads back as its colour over an (almost) opaque black bed.
TEST_F(Pixels, TransparencyAppliesToTheText)
{
    for (int percent : {0, 50, 80}) {
        maker.setTrasparency(percent);
        const int a = (100 - percent) * 2;
        const QImage image = draw(kBlock);
        const InkBox text = inkBox(image, redInk);
        ASSERT_FALSE(text.empty()) << percent;
        const QRgb centre = image.pixel((text.left + text.right) / 2, (text.top + text.bottom) / 2);

        std::vector<QColor> layers(20, QColor(0, 0, 0, a));
        layers.push_back(QColor(255, 255, 255, a));
        const QRgb expected = layered(layers);
        EXPECT_NEAR(qAlpha(centre), qAlpha(expected), 2) << percent;
        EXPECT_NEAR(qRed(centre), qRed(expected), 2) << percent;
        EXPECT_NEAR(qRed(centre), a, 3) << percent;
    }
}

// The outermost outline ring, two pixels left of the block, is outline only: its
// alpha falls with the transparency.
TEST_F(Pixels, TransparencyAppliesToTheOutline)
{
    auto ringPixel = [this]() {
        const QImage image = draw(kBlock);
        const InkBox text = inkBox(image, redInk);
        return image.pixel(text.left - 2, (text.top + text.bottom) / 2);
    };
    const QRgb opaque = ringPixel();
    maker.setTrasparency(0);
    const QRgb a200 = ringPixel();
    maker.setTrasparency(50);
    const QRgb a100 = ringPixel();
    maker.setTrasparency(80);
    const QRgb a40 = ringPixel();
    for (QRgb p : {opaque, a200, a100, a40})
        EXPECT_EQ(qRed(p) | qGreen(p) | qBlue(p), 0);
    EXPECT_GT(qAlpha(a40), 0);
    EXPECT_LT(qAlpha(a40), qAlpha(a100));
    EXPECT_LT(qAlpha(a100), qAlpha(a200));
    EXPECT_LT(qAlpha(a200), qAlpha(opaque));
}

TEST_F(Pixels, TextOutsideTheFrameIsCutOff)
{
    maker.setVideoSize(50, 40);
    maker.setSubtitlePos(0, 10);
    const QPixmap image = maker.makeSubImage(QStringLiteral("\nWWWWWWWWWWWW\nWWWW"));
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.size(), QSize(50, 40));
    const QImage p = pixels(image);
    EXPECT_GT(makertest::countPixels(p, anyInk), 0);  // the lower-left part shows
}

TEST_F(Pixels, OnlyEmptyLinesGiveATransparentFrame)
{
    const QPixmap image = maker.makeSubImage(QStringLiteral("\n\n\n"));
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.size(), QSize(480, 360));
    EXPECT_EQ(makertest::countPixels(pixels(image), anyInk), 0);
}

TEST_F(Pixels, BoldDrawsWiderStrokes)
{
    const int regular = makertest::countPixels(draw(QStringLiteral("\nHello")), redInk);
    maker.setFontInfo(makertest::kFamily, 0xFFFFFF, 20, "Bold", 2);
    const int bold = makertest::countPixels(draw(QStringLiteral("\nHello")), redInk);
    EXPECT_GT(bold, regular);
}

TEST_F(Pixels, CaptionFromTheFileIsDrawnAboveCaptionY)
{
    TempDir dir;
    const std::string path =
        dir.write("bars.srt", makertest::srtBlock(1, "00:00:01,000", "00:00:02,000", "Ag|") +
                                  makertest::srtBlock(2, "00:00:03,000", "00:00:04,000", "Unused"));
    maker.setVideoSize(640, 480);
    maker.setSubtitlePos(320, 400);
    ASSERT_TRUE(maker.open(path.c_str()));
    SubtitleData* data = maker.getSubtitleData(1500, 0);
    ASSERT_NE(data, nullptr);
    const QImage image = pixels(*data->image);
    maker.destroySubData(data);
    const InkBox text = inkBox(image, redInk);
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(image.size(), QSize(640, 480));
    EXPECT_EQ(text.bottom, 399);
    EXPECT_EQ(inkBox(image, anyInk).bottom, 401);
    EXPECT_NEAR((text.left + text.right) / 2.0, 320.0, 4.0);  // "Ag|" is not symmetric
}
