#include "PictureFrames.h"

#include "zemsub/pictures/SubpictureFrame.h"

#include <algorithm>

namespace zemsub::tool {

namespace {

// A decoded picture laid on the background, positioned on the frame it belongs to.
SourceFrame pictureFrame(const QImage& background, const DecodedSubpicture& shown, QSize pictureFrame)
{
    SourceFrame frame;
    frame.image = frameWithSubpicture(background, shown, pictureFrame);
    frame.problem = subpictureProblem(shown, pictureFrame);
    frame.shown = shown.decoded && frame.problem.isEmpty();
    return frame;
}

class IndexFrames : public FrameSource
{
public:
    IndexFrames(std::unique_ptr<IndexPictures> pictures, RenderStyle style) : m_pictures(std::move(pictures))
    {
        if (!style.sizeGiven)
            style.size = m_pictures->frameSize();
        m_background = makeBackground(style);
    }

    QSize frameSize() const override { return m_background.size(); }

    // Each subpicture, at its time.
    std::vector<SourceCaption> captions() const override
    {
        std::vector<IndexEntry> sorted = m_pictures->entries();
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const IndexEntry& a, const IndexEntry& b) { return a.time < b.time; });
        std::vector<SourceCaption> captions;
        for (const IndexEntry& entry : sorted)
            captions.push_back(SourceCaption{entry.key, entry.time});
        return captions;
    }

    QString holder() const override { return QStringLiteral("index"); }
    QString captionWord() const override { return QStringLiteral("subpictures"); }

    long long lastTime() const override
    {
        long long last = 0;
        for (const IndexEntry& entry : m_pictures->entries())
            last = std::max(last, entry.time);
        return last;
    }

    bool warnsOfProblems() const override { return true; }

    SourceFrame frameAt(long long ms) override
    {
        const IndexPicture answer = m_pictures->at(ms);
        const QSize indexFrame = m_pictures->frameSize();
        const DecodedSubpicture& shown = answer.subpicture;
        SourceFrame frame = pictureFrame(m_background, shown, indexFrame);
        frame.described = QStringLiteral("picture ") + describeSubpicture(shown, indexFrame);
        frame.tileNote = shown.decoded ? QStringLiteral("  %1x%2 at %3,%4")
                                             .arg(shown.shown.image.width())
                                             .arg(shown.shown.image.height())
                                             .arg(shown.shown.position.x())
                                             .arg(shown.shown.position.y())
                                       : QStringLiteral("  (no picture)");
        if (!frame.problem.isEmpty())
            frame.tileNote += QStringLiteral("  (%1)").arg(frame.problem);
        return frame;
    }

private:
    std::unique_ptr<IndexPictures> m_pictures;
    QImage m_background;
};

class TrackFrames : public FrameSource
{
public:
    TrackFrames(TrackPictures pictures, RenderStyle style) : m_pictures(std::move(pictures))
    {
        if (!style.sizeGiven)
            style.size = m_pictures.frameSize();
        m_background = makeBackground(style);
    }

    QSize frameSize() const override { return m_background.size(); }

    // Each picture, at its start.
    std::vector<SourceCaption> captions() const override
    {
        std::vector<SourceCaption> captions;
        for (size_t i = 0; i < m_pictures.pictures().size(); ++i)
            captions.push_back(SourceCaption{int(i + 1), m_pictures.pictures()[i].start});
        return captions;
    }

    QString holder() const override { return QStringLiteral("track"); }
    const TrackPictures* trackPictures() const override { return &m_pictures; }
    QString captionWord() const override { return QStringLiteral("pictures"); }

    // The latest start, or the last picture's end.
    long long lastTime() const override
    {
        const std::vector<ShownPicture>& pictures = m_pictures.pictures();
        long long last = 0;
        for (const ShownPicture& picture : pictures)
            last = std::max(last, picture.start);
        return pictures.empty() ? 0 : std::max(last, pictures.back().end);
    }

    SourceFrame frameAt(long long ms) override
    {
        const DecodedSubpicture shown = m_pictures.at(ms);
        const QSize trackFrame = m_pictures.frameSize();
        SourceFrame frame = pictureFrame(m_background, shown, trackFrame);
        frame.described = QStringLiteral("track %1 (%2, %3x%4)\tpicture %5")
                              .arg(m_pictures.track())
                              .arg(m_pictures.codec())
                              .arg(trackFrame.width())
                              .arg(trackFrame.height())
                              .arg(describeSubpicture(shown, trackFrame));
        frame.tileNote = shown.decoded ? QString() : QStringLiteral("  (no picture)");
        if (!frame.problem.isEmpty())
            frame.tileNote += QStringLiteral("  (%1)").arg(frame.problem);
        return frame;
    }

private:
    TrackPictures m_pictures;
    QImage m_background;
};

} // namespace

std::unique_ptr<FrameSource> indexFrames(std::unique_ptr<IndexPictures> pictures, RenderStyle style)
{
    return std::make_unique<IndexFrames>(std::move(pictures), std::move(style));
}

std::unique_ptr<FrameSource> trackFrames(TrackPictures pictures, RenderStyle style)
{
    return std::make_unique<TrackFrames>(std::move(pictures), std::move(style));
}

} // namespace zemsub::tool
