#ifndef ZEMSUB_HOST_FRAMEWINDOW_H
#define ZEMSUB_HOST_FRAMEWINDOW_H

#include <QImage>
#include <QRasterWindow>

// Shows the latest composed frame.
class FrameWindow : public QRasterWindow
{
public:
    void showFrame(const QImage& frame);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_frame;
};

#endif
