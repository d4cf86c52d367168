#include "SubpictureFrame.h"

#include <QPainter>
#include <QRect>

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
    painter.drawImage(subpicture.shown.position, subpicture.shown.image.convertToFormat(QImage::Format_ARGB32));
    return frame;
}

QString subpictureProblem(const DecodedSubpicture& subpicture, QSize indexFrame)
{
    if (!subpicture.decoded)
        return QString();
    const QRect frame(QPoint(0, 0), indexFrame);
    const QRect picture(subpicture.shown.position, subpicture.shown.image.size());
    const QString reach = QStringLiteral("it reaches %1,%2").arg(picture.right() + 1).arg(picture.bottom() + 1);
    if (!frame.intersects(picture))
        return QStringLiteral("outside the %1x%2 frame: %3")
            .arg(indexFrame.width())
            .arg(indexFrame.height())
            .arg(reach);
    if (!frame.contains(picture))
        return QStringLiteral("partly outside the %1x%2 frame: %3")
            .arg(indexFrame.width())
            .arg(indexFrame.height())
            .arg(reach);
    return QString();
}

QString describeSubpicture(const DecodedSubpicture& subpicture, QSize indexFrame)
{
    if (!subpicture.decoded)
        return QStringLiteral("none (%1)").arg(subpicture.failure);
    QString text = QStringLiteral("x=%1 y=%2 width=%3 height=%4")
                       .arg(subpicture.shown.position.x())
                       .arg(subpicture.shown.position.y())
                       .arg(subpicture.shown.image.width())
                       .arg(subpicture.shown.image.height());
    const QString problem = subpictureProblem(subpicture, indexFrame);
    if (!problem.isEmpty())
        text += QStringLiteral(" (%1)").arg(problem);
    return text;
}

} // namespace zemsub::tool
