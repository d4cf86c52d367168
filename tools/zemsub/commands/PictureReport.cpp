#include "PictureReport.h"

#include "TimeParser.h"
#include "playback/TextForm.h"

namespace zemsub::tool {

QString lowConfidenceLine(int caption, long long start, int confidence, const QString& text)
{
    return QStringLiteral("  caption %1, %2: read with low confidence (%3): \"%4\"\n")
        .arg(caption)
        .arg(formatTime(start))
        .arg(confidence)
        .arg(escaped(text));
}

QString lastDisplayLine(const QString& lastDisplayEnd)
{
    if (lastDisplayEnd.isEmpty())
        return QString();
    return QStringLiteral("  the last display is never cleared: it ends with %1\n").arg(lastDisplayEnd);
}

QString leftOutLine(long long start, long long end, const QRect& place, const QString& why)
{
    return QStringLiteral("  %1 --> %2: picture of %3x%4 at %5,%6 left out: %7\n")
        .arg(formatTime(start), formatTime(end))
        .arg(place.width())
        .arg(place.height())
        .arg(place.x())
        .arg(place.y())
        .arg(why);
}

nlohmann::ordered_json leftOutJson(long long start, long long end, const QRect& place, const QString& why)
{
    return {{"start", start},          {"end", end},
            {"x", place.x()},          {"y", place.y()},
            {"width", place.width()},  {"height", place.height()},
            {"why", why.toStdString()}};
}

} // namespace zemsub::tool
