// One picture read: its words, and which of them are drawn in italics.
#include "pictures/PictureText.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <gtest/gtest.h>

namespace {

using namespace zemsub::tool;

struct Part
{
    QString text;
    bool italic;
};

// A Blu-ray-like picture of one line: white fill in a black outline, its parts
// upright or in the face's italics.
QImage drawLine(const std::vector<Part>& parts, const QString& family, int pixels)
{
    QPainterPath path;
    qreal x = 0;
    int height = 0;
    for (const Part& part : parts) {
        QFont font(family);
        font.setPixelSize(pixels);
        font.setItalic(part.italic);
        const QFontMetrics metrics(font);
        path.addText(x, metrics.ascent(), font, part.text);
        x += metrics.horizontalAdvance(part.text);
        height = std::max(height, metrics.height());
    }
    QImage image(int(x) + 24, height + 24, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(12, 12);
    painter.setPen(QPen(Qt::black, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::black);
    painter.drawPath(path);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPath(path);
    painter.end();
    return image;
}

PictureCaption readOne(const QImage& image)
{
    const QSize frame(1920, 1080);
    ShownPicture picture;
    picture.start = 1000;
    picture.end = 3000;
    picture.position = QPoint((frame.width() - image.width()) / 2, 900);
    picture.image = image;
    const PictureText read = readPictures({picture}, "eng", nullptr, frame);
    EXPECT_TRUE(read.read) << read.failure.toStdString();
    EXPECT_EQ(read.captions.size(), 1u);
    return read.captions.empty() ? PictureCaption() : read.captions.front();
}

TEST(PictureReading, ALinePartlyInItalicsKeepsItsItalicWords)
{
    for (const char* family : {"DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono"}) {
        for (int pixels : {36, 48}) {
            SCOPED_TRACE(std::string(family) + " " + std::to_string(pixels));
            const PictureCaption caption =
                readOne(drawLine({{"Then he said ", false}, {"come home", true}}, family, pixels));
            EXPECT_EQ(caption.text, "Then he said come home");
            ASSERT_EQ(caption.runs.size(), 2u);
            EXPECT_EQ(caption.runs[0].text, "Then he said ");
            EXPECT_FALSE(caption.runs[0].italic);
            EXPECT_EQ(caption.runs[1].text, "come home");
            EXPECT_TRUE(caption.runs[1].italic);
            EXPECT_TRUE(caption.partlyItalic());
            EXPECT_FALSE(caption.italic());
        }
    }
}

TEST(PictureReading, WholeLinesUprightOrInItalics)
{
    for (const char* family : {"DejaVu Sans", "DejaVu Serif"}) {
        SCOPED_TRACE(family);
        const PictureCaption upright = readOne(drawLine({{"Where are you going?", false}}, family, 42));
        EXPECT_EQ(upright.text, "Where are you going?");
        EXPECT_FALSE(upright.partlyItalic());
        const PictureCaption slanted = readOne(drawLine({{"Where are you going?", true}}, family, 42));
        EXPECT_EQ(slanted.text, "Where are you going?");
        EXPECT_TRUE(slanted.italic());
    }
}

TEST(PictureReading, DrawnTagsAreKeptAsReadWithoutMeasuredItalics)
{
    // Some authoring tools draw the markup itself, as letters.
    const PictureCaption caption = readOne(drawLine({{"<i>Sinbad the sailor</i>", true}}, "DejaVu Sans", 42));
    EXPECT_EQ(caption.text, "<i>Sinbad the sailor</i>");
    EXPECT_FALSE(caption.partlyItalic());
}

} // namespace
