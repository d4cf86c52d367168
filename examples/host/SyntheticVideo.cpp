#include "SyntheticVideo.h"

#include <QColor>
#include <QFont>
#include <QPainter>

SyntheticVideo::SyntheticVideo(const QSize& size) : m_size(size)
{
}

QImage SyntheticVideo::frameAt(long long ms) const
{
    QImage frame(m_size, QImage::Format_ARGB32_Premultiplied);
    frame.fill(QColor(20, 28, 48));
    QPainter painter(&frame);
    const int bars = 8;
    const int barWidth = qMax(1, m_size.width() / bars);
    const int shift = int((ms / 10) % (2 * barWidth));
    for (int i = -2; i <= bars + 2; ++i) {
        const QColor colour = i % 2 ? QColor(40, 60, 90) : QColor(30, 44, 70);
        painter.fillRect(i * 2 * barWidth / 2 + shift - barWidth, 0, barWidth, m_size.height(), colour);
    }
    painter.setPen(QColor(120, 130, 150));
    painter.setFont(QFont(QStringLiteral("DejaVu Sans"), qMax(6, m_size.height() / 30)));
    painter.drawText(QRect(8, 4, m_size.width() - 16, m_size.height() / 10), Qt::AlignLeft | Qt::AlignTop,
                     QStringLiteral("%1 ms").arg(ms));
    return frame;
}
