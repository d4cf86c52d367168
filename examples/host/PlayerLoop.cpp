#include "PlayerLoop.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

PlayerLoop::PlayerLoop(const HostOptions& options, const SubtitleLibrary& library)
    : m_options(options), m_library(library), m_video(options.size)
{
}

PlayerLoop::~PlayerLoop()
{
    m_frames.reset();
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
        if (!m_subtitle->open(path.constData()))
            return false;
    } catch (int) {
        // A malformed script behind FF FE: the library's reader throws the int 1.
        return false;
    }
    m_frames = std::make_unique<zemsub::tool::LibraryFrames>(
        *m_subtitle, size, [this](long long ms) { return m_video.frameAt(ms); });
    return true;
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
    // One getSubtitleData call: the video frame with the caption laid over it.
    const zemsub::tool::SourceFrame frame = m_frames->frameAt(clock);
    ++m_frameCount;
    if (frame.shown) {
        ++m_captionFrames;
        if (!m_captured && m_options.captureAt >= 0 && clock >= m_options.captureAt) {
            m_captured = frame.image.save(m_options.capture, "PNG");
            const zemsub::tool::CaptionRecord& record = m_frames->record();
            std::printf("captured clock=%lld x=%d y=%d width=%d height=%d file=%s\n", clock, record.x, record.y,
                        record.width, record.height, qPrintable(m_options.capture));
            std::fflush(stdout);
        }
    }
    if (m_window)
        m_window->showFrame(frame.image);
    if (m_clock.elapsed() >= static_cast<long long>(m_options.seconds * 1000))
        finish();
}

void PlayerLoop::finish()
{
    m_timer.stop();
    std::printf("played %d frames, %d with a caption\n", m_frameCount, m_captionFrames);
    std::fflush(stdout);
    if (m_options.captureAt >= 0 && !m_captured) {
        std::fprintf(stderr, "zemsub-host: no frame with a caption at or after %lld ms to capture\n",
                     m_options.captureAt);
        QCoreApplication::exit(1);
        return;
    }
    QCoreApplication::exit(0);
}
