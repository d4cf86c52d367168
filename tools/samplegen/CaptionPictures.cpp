#include "CaptionPictures.h"

#include <QDir>
#include <QFile>
#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QStringList>

#include <algorithm>

namespace zemsub::samplegen {

QImage drawCaption(const CaptionText& caption)
{
    QFont font(caption.family);
    font.setPixelSize(caption.pixelSize);
    font.setItalic(caption.italic);
    const QFontMetrics metrics(font);
    const QStringList lines = caption.text.split(QLatin1Char('\n'));
    int width = 0;
    for (const QString& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    QPainterPath path;
    for (int i = 0; i < lines.size(); ++i) {
        const int x = (width - metrics.horizontalAdvance(lines[i])) / 2;
        path.addText(x, metrics.ascent() + i * metrics.lineSpacing(), font, lines[i]);
    }
    const int margin = caption.outline + caption.shadow + 4;
    QImage image(width + 2 * margin, int(lines.size()) * metrics.lineSpacing() + 2 * margin,
                 QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, caption.smooth);
    painter.translate(margin, margin);
    auto outlined = [&](const QColor& colour, QPointF offset) {
        painter.save();
        painter.translate(offset);
        if (caption.outline > 0)
            painter.setPen(QPen(colour, 2 * caption.outline, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        else
            painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawPath(path);
        painter.restore();
    };
    if (caption.shadow > 0)
        outlined(QColor(64, 64, 64), QPointF(caption.shadow, caption.shadow));
    if (caption.outline > 0)
        outlined(Qt::black, QPointF(0, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPath(path);
    painter.end();
    return image;
}

QByteArray dvdBitmap(const QImage& picture)
{
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    QByteArray pgm = QStringLiteral("P5\n%1 %2\n3\n").arg(image.width()).arg(image.height()).toLatin1();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            const int grey = qGray(pixel);
            pgm.append(char(qAlpha(pixel) < 128 ? 0 : grey > 160 ? 1 : grey < 32 ? 2 : 3));
        }
    }
    return pgm;
}

bool writeDvdBitmaps(const QString& folder, const std::vector<CaptionText>& captions, QString* error)
{
    auto write = [error](const QString& path, const QByteArray& bytes) {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size())
            return true;
        *error = QStringLiteral("cannot write %1").arg(path);
        return false;
    };
    const QDir dir(folder);
    if (!QDir().mkpath(folder)) {
        *error = QStringLiteral("cannot make %1").arg(folder);
        return false;
    }
    QByteArray listing;
    for (size_t i = 0; i < captions.size(); ++i) {
        const QImage image = drawCaption(captions[i]);
        const QString name = QStringLiteral("caption-%1.pgm").arg(i);
        if (!write(dir.filePath(name), dvdBitmap(image)))
            return false;
        const QPoint position = dvdPosition(image.size());
        listing += QStringLiteral("%1 %2 %3 %4 %5\n")
                       .arg(captions[i].start)
                       .arg(captions[i].duration)
                       .arg(position.x())
                       .arg(position.y())
                       .arg(name)
                       .toUtf8();
    }
    return write(dir.filePath(QStringLiteral("captions.txt")), listing);
}

QPoint dvdPosition(QSize picture)
{
    return QPoint(std::max(0, (kDvdFrame.width() - picture.width()) / 2), std::max(0, 540 - picture.height()));
}

std::vector<CaptionText> sampleCaptions(int count)
{
    std::vector<CaptionText> set(8);
    set[0] = {1000, 2000, QStringLiteral("Hello, world!")};
    set[1] = {3500, 1500, QStringLiteral("Where are you going?")};
    set[2] = {5500, 3000, QStringLiteral("- Home, I think.\n- Wait for me!")};
    set[3] = {9000, 2000, QStringLiteral("It's ten o'clock.")};
    set[4] = {11500, 2500, QStringLiteral("Nobody knows the answer.")};
    set[4].family = QStringLiteral("DejaVu Serif");
    set[4].pixelSize = 36;
    set[5] = {14500, 2000, QStringLiteral("Look at the sky.")};
    set[5].italic = true;
    set[5].pixelSize = 26;
    set[6] = {17000, 2500, QStringLiteral("The last ferry left an hour ago.")};
    set[6].shadow = 3;
    set[7] = {20000, 3000, QStringLiteral("Then we walk.\nThe lighthouse is only six miles away.")};
    set[7].family = QStringLiteral("DejaVu Sans Mono");
    set[7].pixelSize = 24;
    if (count <= 0)
        return set;
    std::vector<CaptionText> captions;
    for (int i = 0; i < count; ++i) {
        CaptionText caption = set[size_t(i) % set.size()];
        caption.start = 1000 + 3000LL * i;
        caption.duration = 2500;
        if (i >= int(set.size()))
            caption.text = QStringLiteral("Number %1.\n").arg(i) + caption.text;
        captions.push_back(caption);
    }
    return captions;
}

} // namespace zemsub::samplegen
