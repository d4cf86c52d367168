#include "FrameWindow.h"

#include <QPainter>

void FrameWindow::showFrame(const QImage& frame)
{
    m_frame = frame;
    update();
}

void FrameWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(QRect(QPoint(0, 0), size()), Qt::black);
    if (!m_frame.isNull())
        painter.drawImage(QRect(QPoint(0, 0), size()), m_frame);
}
