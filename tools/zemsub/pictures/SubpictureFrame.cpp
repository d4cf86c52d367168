#include "SubpictureFrame.h"

#include <QPainter>

namespace zemsub::tool {

QImage frameWithSubpicture(const QImage& background, const DecodedSubpicture& subpicture, QSize indexFrame)
{
    QImage frame = background.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (!subpicture.decoded || indexFrame.isEmpty())
        return frame;
    QPainter painter(&frame);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    if (frame.size() != indexFrame)
        painter.scale(double(frame.width()) / indexFrame.width(), double(frame.height()) / indexFrame.height());
    painter.drawImage(subpicture.position, subpicture.picture.convertToFormat(QImage::Format_ARGB32));
    return frame;
}

QString describeSubpicture(const DecodedSubpicture& subpicture)
{
    if (!subpicture.decoded)
        return QStringLiteral("none (%1)").arg(subpicture.failure);
    return QStringLiteral("x=%1 y=%2 width=%3 height=%4")
        .arg(subpicture.position.x())
        .arg(subpicture.position.y())
        .arg(subpicture.picture.width())
        .arg(subpicture.picture.height());
}

} // namespace zemsub::tool
