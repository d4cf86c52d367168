#include "maker/detail/CaptionPainter.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRect>
#include <QStringList>
#include <QtGlobal>

namespace zemsub::detail {

namespace {

// Qt::AlignHCenter | Qt::AlignTop: lines are measured and drawn centred in their box.
constexpr int kLineFlags = 0x24;

// (dx, dy) pairs, dx first, drawn in this order: every offset within two pixels
// except the centre and the four corners.
constexpr signed char kOutlineOffsets[40] = {
    -1, -2,  0, -2,  1, -2,
    -2, -1, -1, -1,  0, -1,  1, -1,  2, -1,
    -2,  0, -1,  0,  1,  0,  2,  0,
    -2,  1, -1,  1,  0,  1,  1,  1,  2,  1,
    -1,  2,  0,  2,  1,  2,
};
constexpr int kOutlinePasses = sizeof(kOutlineOffsets) / 2;

int lineHeight(const QFontMetrics& metrics, const QString& line)
{
    return metrics.boundingRect(QRect(), kLineFlags, line).height();
}

// QColor::setAlpha clamps an alpha outside 0..255 to that range but warns on
// stderr doing so; clamp the same way here so that drawing stays silent.
QColor withAlpha(QColor colour, int alpha)
{
    colour.setAlpha(qBound(0, alpha, 255));
    return colour;
}

QStringList captionLines(const QString& text)
{
    QString body = text;
    if (body.startsWith(QChar(10), Qt::CaseSensitive))
        body = body.mid(1);
    return body.split(QChar(10), Qt::KeepEmptyParts, Qt::CaseSensitive);
}

} // namespace

QPixmap paintCaption(const QString& text, const CaptionStyle& style)
{
    const QFontMetrics metrics(style.font);
    const QStringList lines = captionLines(text);

    int widest = 0;
    int heights = 0;
    for (const QString& line : lines) {
        const QRect bounds = metrics.boundingRect(QRect(), kLineFlags, line);
        widest = qMax(widest, bounds.width());
        heights += bounds.height();
    }
    const int count = static_cast<int>(lines.size());
    const int blockHeight = heights + (count - 1) * style.lineSpacing + 2 * count - 2;

    QPixmap image(style.imageWidth, style.imageHeight);
    if (image.isNull())
        return image;  // a painter on a null pixmap would only complain
    image.fill(QColor(0, 0, 0, 0));

    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    painter.setFont(style.font);

    const QColor outline = withAlpha(style.outlineColor, style.alpha);
    const QColor fill = withAlpha(style.textColor, style.alpha);
    const int left = style.captionX - widest / 2;
    int top = style.captionY - blockHeight;
    for (const QString& line : lines) {
        const int height = lineHeight(metrics, line);
        const QRect box(left, top, widest, height);
        for (int i = 0; i < kOutlinePasses; ++i) {
            painter.setPen(outline);
            painter.drawText(box.translated(kOutlineOffsets[2 * i], kOutlineOffsets[2 * i + 1]), kLineFlags,
                             line);
        }
        painter.setPen(fill);
        painter.drawText(box, kLineFlags, line);
        top += height + style.lineSpacing + 2;
    }
    painter.end();
    return image;
}

} // namespace zemsub::detail
