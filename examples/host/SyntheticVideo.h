#ifndef ZEMSUB_HOST_SYNTHETICVIDEO_H
#define ZEMSUB_HOST_SYNTHETICVIDEO_H

#include <QImage>
#include <QSize>

// Frames of a made-up video: dark moving bars and a clock, so that a light
// caption stands out from every frame.
class SyntheticVideo
{
public:
    explicit SyntheticVideo(const QSize& size);
    QImage frameAt(long long ms) const;
    QSize size() const { return m_size; }

private:
    QSize m_size;
};

#endif
