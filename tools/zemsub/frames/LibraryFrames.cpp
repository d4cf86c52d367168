#include "LibraryFrames.h"

#include "ISubTitle.h"

#include <QPainter>
#include <QPixmap>

namespace zemsub::tool {

QString describeRecord(const CaptionRecord& record)
{
    if (!record.shown)
        return QStringLiteral("none");
    return QStringLiteral("x=%1 y=%2 width=%3 height=%4")
        .arg(record.x)
        .arg(record.y)
        .arg(record.width)
        .arg(record.height);
}

LibraryFrames::LibraryFrames(ISubTitle& subtitle, QSize frameSize, Video video, std::vector<SourceCaption> captions,
                             long long lastTime)
    : m_subtitle(subtitle), m_frameSize(frameSize), m_video(std::move(video)), m_captions(std::move(captions)),
      m_lastTime(lastTime)
{
}

SourceFrame LibraryFrames::frameAt(long long ms)
{
    SourceFrame frame;
    frame.image = m_video(ms);
    m_record = CaptionRecord();
    if (SubtitleData* data = m_subtitle.getSubtitleData(ms, 0)) {
        m_record = CaptionRecord{true, data->width, data->height, data->x, data->y};
        if (data->image) {
            QPainter painter(&frame.image);
            const QPoint corner((frame.image.width() - data->width) / 2, (frame.image.height() - data->height) / 2);
            painter.drawPixmap(corner, *data->image);
        }
        m_subtitle.destroySubData(data);
    }
    frame.shown = m_record.shown;
    frame.described = QStringLiteral("record ") + describeRecord(m_record);
    if (!m_record.shown)
        frame.tileNote = QStringLiteral("  (nothing shown)");
    return frame;
}

} // namespace zemsub::tool
