#include "PicturePrep.h"

#include <QColor>
#include <QHash>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace zemsub::tool {

namespace {

constexpr int kOpaque = 128;      // alpha from which a pixel counts as drawn
constexpr double kInnerShare = 0.1; // at most this share of a fill colour's pixels touch the ground
constexpr double kEdgeShare = 0.3;  // at least this share of an outline colour's pixels do
constexpr int kMargin = 8;        // ground around a line, in scaled pixels
constexpr int kLeastLine = 32;    // lines of their own height: no lower (small ones are enlarged)
constexpr int kMostLine = 48;     // and no higher

bool drawn(const QImage& picture, int x, int y)
{
    if (x < 0 || y < 0 || x >= picture.width() || y >= picture.height())
        return false;
    return qAlpha(picture.pixel(x, y)) >= kOpaque;
}

// A drawn pixel with the ground next to it.
bool atEdge(const QImage& picture, int x, int y)
{
    return !drawn(picture, x - 1, y) || !drawn(picture, x + 1, y) || !drawn(picture, x, y - 1) ||
           !drawn(picture, x, y + 1);
}

struct Band
{
    int top = 0;
    int bottom = 0; // exclusive
    int height() const { return bottom - top; }
};

} // namespace

// The drawn pixels of one colour (each channel cut to 16 steps).
struct ColourClass
{
    long long count = 0;
    long long atEdge = 0;
    double red = 0, green = 0, blue = 0; // sums
    double edgeShare() const { return double(atEdge) / double(count); }
    QRgb mean() const
    {
        return qRgb(int(red / double(count)), int(green / double(count)), int(blue / double(count)));
    }
};

int distance(QRgb a, QRgb b)
{
    const int r = qRed(a) - qRed(b), g = qGreen(a) - qGreen(b), bl = qBlue(a) - qBlue(b);
    return r * r + g * g + bl * bl;
}

QImage textFill(const QImage& source)
{
    const QImage picture = source.convertToFormat(QImage::Format_ARGB32);
    QImage mask(picture.size(), QImage::Format_Grayscale8);
    mask.fill(255);
    QHash<int, ColourClass> classes;
    long long drawnCount = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (!drawn(picture, x, y))
                continue;
            const QRgb pixel = picture.pixel(x, y);
            ColourClass& colour = classes[((qRed(pixel) >> 4) << 8) | ((qGreen(pixel) >> 4) << 4) | (qBlue(pixel) >> 4)];
            ++colour.count;
            colour.atEdge += atEdge(picture, x, y);
            colour.red += qRed(pixel);
            colour.green += qGreen(pixel);
            colour.blue += qBlue(pixel);
            ++drawnCount;
        }
    }
    // The fill: the commonest colour that keeps away from the ground. The
    // outline and shadow: the colours that lie along it.
    const ColourClass* fill = nullptr;
    std::vector<QRgb> edges;
    for (const ColourClass& colour : classes) {
        if (colour.edgeShare() < kInnerShare && (!fill || colour.count > fill->count))
            fill = &colour;
        if (colour.edgeShare() >= kEdgeShare && colour.count * 50 >= drawnCount)
            edges.push_back(colour.mean());
    }
    const QRgb fillColour = fill ? fill->mean() : 0;
    for (int y = 0; y < picture.height(); ++y) {
        uchar* row = mask.scanLine(y);
        for (int x = 0; x < picture.width(); ++x) {
            if (!drawn(picture, x, y))
                continue;
            bool text = true;
            if (fill) {
                const QRgb pixel = picture.pixel(x, y);
                const int toFill = distance(pixel, fillColour);
                for (QRgb edge : edges)
                    text = text && toFill < distance(pixel, edge);
            }
            if (text)
                row[x] = 0;
        }
    }
    return mask;
}

QRect LineCut::onMask(const QRect& onImage) const
{
    const auto back = [this](int value, int origin) {
        return origin + int(std::lround(double(value - margin) / scale));
    };
    const QPoint topLeft(back(onImage.left(), box.left()), back(onImage.top(), box.top()));
    const QPoint bottomRight(back(onImage.right() + 1, box.left()), back(onImage.bottom() + 1, box.top()));
    return QRect(topLeft, bottomRight - QPoint(1, 1)).intersected(box);
}

std::vector<QImage> textLines(const QImage& mask, int lineHeight)
{
    std::vector<QImage> images;
    for (LineCut& line : cutLines(mask, lineHeight))
        images.push_back(std::move(line.image));
    return images;
}

std::vector<LineCut> cutLines(const QImage& mask, int lineHeight)
{
    // Rows holding text, grouped into bands; a band much lower than the tallest
    // (accents, dots, the tail of a comma) joins its nearest neighbour.
    std::vector<Band> bands;
    for (int y = 0; y < mask.height(); ++y) {
        const uchar* row = mask.constScanLine(y);
        if (std::all_of(row, row + mask.width(), [](uchar value) { return value >= 128; }))
            continue;
        if (!bands.empty() && bands.back().bottom == y)
            bands.back().bottom = y + 1;
        else
            bands.push_back(Band{y, y + 1});
    }
    if (bands.empty())
        return {};
    int tallest = 0;
    for (const Band& band : bands)
        tallest = std::max(tallest, band.height());
    for (size_t i = 0; i < bands.size() && bands.size() > 1;) {
        if (bands[i].height() * 2 >= tallest) {
            ++i;
            continue;
        }
        const int above = i > 0 ? bands[i].top - bands[i - 1].bottom : INT32_MAX;
        const int below = i + 1 < bands.size() ? bands[i + 1].top - bands[i].bottom : INT32_MAX;
        if (above <= below) {
            bands[i - 1].bottom = bands[i].bottom;
        } else {
            bands[i + 1].top = bands[i].top;
        }
        bands.erase(bands.begin() + long(i));
    }

    std::vector<LineCut> lines;
    for (const Band& band : bands) {
        int left = mask.width(), right = -1;
        for (int y = band.top; y < band.bottom; ++y) {
            const uchar* row = mask.constScanLine(y);
            for (int x = 0; x < mask.width(); ++x) {
                if (row[x] < 128) {
                    left = std::min(left, x);
                    right = std::max(right, x);
                }
            }
        }
        const QImage cut = mask.copy(left, band.top, right - left + 1, band.height());
        const int height = lineHeight > 0 ? lineHeight : std::clamp(band.height(), kLeastLine, kMostLine);
        const double scale = double(height) / double(std::max(1, band.height()));
        const QSize size(std::max(1, int(std::lround(cut.width() * scale))), height);
        QImage line(size + QSize(2 * kMargin, 2 * kMargin), QImage::Format_Grayscale8);
        line.fill(255);
        QPainter painter(&line);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRect(QPoint(kMargin, kMargin), size), cut);
        painter.end();
        lines.push_back(LineCut{QRect(left, band.top, right - left + 1, band.height()), line, scale, kMargin});
    }
    return lines;
}

} // namespace zemsub::tool
