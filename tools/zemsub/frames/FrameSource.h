#ifndef ZEMSUB_TOOL_FRAMESOURCE_H
#define ZEMSUB_TOOL_FRAMESOURCE_H

#include <QImage>
#include <QSize>
#include <QString>
#include <vector>

namespace zemsub::tool {

class TrackPictures;

// One frame of a source, with what the commands say of it.
struct SourceFrame
{
    QImage image;      // the frame with the caption or picture laid on it
    bool shown = false; // a caption, or a picture that shows whole
    QString described; // render's words: "record ..." or "picture ..."
    QString tileNote;  // what a sheet tile adds to its label
    QString problem;   // a picture that does not show whole: why; empty otherwise
};

// A caption as a tile shows it: its number and the time its frame is taken at.
struct SourceCaption
{
    int number = 0;
    long long time = 0;
};

// Where render, sheet and the example host's capture take their frames from:
// the library playing a file (LibraryFrames.h), a VobSub index's packets or a
// picture track as FFmpeg shows it (PictureFrames.h).
class FrameSource
{
public:
    virtual ~FrameSource() = default;

    // The frame the captions are drawn on.
    virtual QSize frameSize() const = 0;
    // Every caption, in time order, at the time its tile is taken.
    virtual std::vector<SourceCaption> captions() const = 0;
    // What holds the captions and what they are called: ("file", "captions"), ...
    virtual QString holder() const = 0;
    virtual QString captionWord() const = 0;
    // The time up to which steps of a sheet go.
    virtual long long lastTime() const = 0;
    // Whether a sheet warns on stderr of a picture that does not show whole.
    virtual bool warnsOfProblems() const { return false; }
    virtual SourceFrame frameAt(long long ms) = 0;
    // The picture track the frames come from, when they come from one (its pictures read as text).
    virtual const TrackPictures* trackPictures() const { return nullptr; }
};

} // namespace zemsub::tool

#endif
