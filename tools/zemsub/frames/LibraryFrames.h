#ifndef ZEMSUB_TOOL_LIBRARYFRAMES_H
#define ZEMSUB_TOOL_LIBRARYFRAMES_H

#include "FrameSource.h"

#include <functional>

class ISubTitle;

namespace zemsub::tool {

// The record a getSubtitleData call answered, copied.
struct CaptionRecord
{
    bool shown = false;
    int width = 0;
    int height = 0;
    int x = 0;
    int y = 0;
};

// "x=.. y=.. width=.. height=.." or "none".
QString describeRecord(const CaptionRecord& record);

// The frames of a file the library plays: at each time, the video frame with
// the caption image laid over it, as a player lays it. The caption image covers
// the whole frame and is centred on it, so the caption stands at the frame's
// centre plus the record's x and y.
//
// Needs only Qt and ISubTitle.h: zemsub render and sheet use it over the
// library they link, the example host over the library it loads at run time.
class LibraryFrames : public FrameSource
{
public:
    using Video = std::function<QImage(long long ms)>;

    // subtitle is opened and styled by the caller and outlives these frames;
    // captions and lastTime are what the caller knows of the file's timeline.
    LibraryFrames(ISubTitle& subtitle, QSize frameSize, Video video, std::vector<SourceCaption> captions = {},
                  long long lastTime = 0);

    QSize frameSize() const override { return m_frameSize; }
    std::vector<SourceCaption> captions() const override { return m_captions; }
    QString holder() const override { return QStringLiteral("file"); }
    QString captionWord() const override { return QStringLiteral("captions"); }
    long long lastTime() const override { return m_lastTime; }
    // Asks getSubtitleData(ms, 0) once, lays its image and frees its record.
    SourceFrame frameAt(long long ms) override;

    // The record of the last frame asked for.
    const CaptionRecord& record() const { return m_record; }

private:
    ISubTitle& m_subtitle;
    QSize m_frameSize;
    Video m_video;
    std::vector<SourceCaption> m_captions;
    long long m_lastTime = 0;
    CaptionRecord m_record;
};

} // namespace zemsub::tool

#endif
