#ifndef ZEMSUB_HOST_PLAYERLOOP_H
#define ZEMSUB_HOST_PLAYERLOOP_H

#include "FrameWindow.h"
#include "HostOptions.h"
#include "SubtitleLibrary.h"
#include "SyntheticVideo.h"
#include "zemsub/frames/LibraryFrames.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>

// The play loop of a player: a clock, a frame per tick, the caption laid over it
// by the same frame source zemsub render uses for a file the library plays.
class PlayerLoop
{
public:
    PlayerLoop(const HostOptions& options, const SubtitleLibrary& library);
    ~PlayerLoop();
    PlayerLoop(const PlayerLoop&) = delete;
    PlayerLoop& operator=(const PlayerLoop&) = delete;

    // Sets the style and opens the subtitle file; false when the library does not open it.
    bool open();
    // Starts the clock; the application's event loop then ends after the play time.
    void start();

private:
    void tick();
    void finish();

    const HostOptions& m_options;
    const SubtitleLibrary& m_library;
    ISubTitle* m_subtitle = nullptr;
    SyntheticVideo m_video;
    std::unique_ptr<zemsub::tool::LibraryFrames> m_frames;
    std::unique_ptr<FrameWindow> m_window;
    QTimer m_timer;
    QElapsedTimer m_clock;
    int m_frameCount = 0;
    int m_captionFrames = 0;
    bool m_captured = false;
};

#endif
