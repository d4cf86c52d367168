#ifndef ZEMSUB_TOOL_FRAMERENDERER_H
#define ZEMSUB_TOOL_FRAMERENDERER_H

#include "FrameSource.h"
#include "playback/LibraryInput.h"
#include "playback/LibraryView.h"

#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>
#include <memory>
#include <optional>

class ISubTitle;

namespace zemsub::tool {

// The caption style and frame a player sets through ISubTitle.
struct RenderStyle
{
    QSize size{480, 360};
    bool sizeGiven = false; // --size was given
    QString family = QStringLiteral("DejaVu Sans");
    int pointSize = 18;
    QString styleWord = QStringLiteral("Regular");
    int colour = 0xFFFFFF; // red in bits 0-7
    int lineSpacing = 2;
    QPoint position{240, 330};       // caption centre x, bottom y
    std::optional<int> transparency; // setTrasparency is only called when given
    QString background;              // colour name or image path; empty: a synthetic frame
};

// A colour name Qt knows, or #RRGGBB.
bool isColourName(const QString& text);

// Holds ISubTitle exactly as a player does: createSubtitle, the setters, open,
// then close and destroySubtitle; its frames (playedFrames, through
// LibraryFrames.h) ask getSubtitleData and destroySubData in between.
class CaptionPlayer
{
public:
    // The file played with style; null when the library does not open it,
    // *failure then saying why, as input (the library's view of it) says it.
    static std::unique_ptr<CaptionPlayer> open(const LibraryInput& input, const RenderStyle& style,
                                               QString* failure);
    ~CaptionPlayer();
    CaptionPlayer(const CaptionPlayer&) = delete;
    CaptionPlayer& operator=(const CaptionPlayer&) = delete;

    ISubTitle& subtitle() { return *m_subtitle; }
    const RenderStyle& style() const { return m_style; }

private:
    explicit CaptionPlayer(const RenderStyle& style);
    // Sets the style and opens the file; why it did not open, else empty.
    QString load(const LibraryInput& input);

    ISubTitle* m_subtitle = nullptr;
    RenderStyle m_style;
};

// The frame behind the captions: a colour, an image (scaled to cover), or a synthetic frame.
QImage makeBackground(const RenderStyle& style);

// The frames of the file player plays, on the style's background; its captions
// (each with text, at its middle) from the stored timeline when one is given.
std::unique_ptr<FrameSource> playedFrames(std::unique_ptr<CaptionPlayer> player,
                                          std::optional<StoredTimeline> timeline);

} // namespace zemsub::tool

#endif
