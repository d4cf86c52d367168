#include "PlayerLoop.h"

#include <QCoreApplication>
#include <QFile>
#include <QPainter>
#include <QPixmap>

#include <cstdio>

PlayerLoop::PlayerLoop(const HostOptions& options, const SubtitleLibrary& library)
    : m_options(options), m_library(library), m_video(options.size)
{
}

PlayerLoop::~PlayerLoop()
{
    if (m_subtitle) {
        m_subtitle->close();            // frees the parsed file
        m_library.destroy(&m_subtitle); // frees the object's storage
    }
}

bool PlayerLoop::open()
{
    m_subtitle = m_library.create();
    const QSize size = m_options.size;
    m_subtitle->setVideoSize(size.width(), size.height());
    m_subtitle->setFontInfo("DejaVu Sans", 0xFFFFFF, qMax(6, size.height() / 18), "Bold", 2);
    m_subtitle->setSubtitlePos(size.width() / 2, size.height() - size.height() / 12);
    const QByteArray path = QFile::encodeName(m_options.subtitle);
    try {
        return m_subtitle->open(path.constData());
    } catch (int) {
        // A malformed script behind FF FE: the library's reader throws the int 1.
        return false;
    }
}

void PlayerLoop::start()
{
    if (m_options.window) {
        m_window = std::make_unique<FrameWindow>();
        m_window->resize(m_options.size);
        m_window->setTitle(QStringLiteral("zemsub-host: %1").arg(m_options.subtitle));
        m_window->show();
    }
    QObject::connect(&m_timer, &QTimer::timeout, [this] { tick(); });
    m_timer.start(1000 / m_options.fps);
    m_clock.start();
}

void PlayerLoop::tick()
{
    const long long clock = m_options.startMs + m_clock.elapsed();
    QImage frame = m_video.frameAt(clock);
    SubtitleData* data = m_subtitle->getSubtitleData(clock, 0);
    ++m_frames;
    if (data) {
        ++m_captionFrames;
        // The caption image is frame-sized: centred on the frame, the caption
        // stands at the frame's centre plus the record's x and y.
        QPainter painter(&frame);
        painter.drawPixmap((frame.width() - data->width) / 2, (frame.height() - data->height) / 2,
                           *data->image);
        painter.end();
        if (!m_captured && m_options.captureAt >= 0 && clock >= m_options.captureAt) {
            m_captured = frame.save(m_options.capture, "PNG");
            std::printf("captured clock=%lld x=%d y=%d width=%d height=%d file=%s\n", clock, data->x, data->y,
                        data->width, data->height, qPrintable(m_options.capture));
            std::fflush(stdout);
        }
        m_subtitle->destroySubData(data);
    }
    if (m_window)
        m_window->showFrame(frame);
    if (m_clock.elapsed() >= static_cast<long long>(m_options.seconds * 1000))
        finish();
}

void PlayerLoop::finish()
{
    m_timer.stop();
    std::printf("played %d frames, %d with a caption\n", m_frames, m_captionFrames);
    std::fflush(stdout);
    if (m_options.captureAt >= 0 && !m_captured) {
        std::fprintf(stderr, "zemsub-host: no frame with a caption at or after %lld ms to capture\n",
                     m_options.captureAt);
        QCoreApplication::exit(1);
        return;
    }
    QCoreApplication::exit(0);
}
