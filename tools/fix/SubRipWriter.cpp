#include "SubRipWriter.h"

#include "CaptionLines.h"
#include "manager/detail/FormatCodes.h"
#include "playback/ReaderLimits.h"

namespace zemsubfix {

namespace {

QStringList copyLines(const Stretch& stretch)
{
    QStringList lines;
    for (const QString& line : stretch.lines)
        lines << subRipLine(line);
    return stretch.repeat ? markedAsRepeat(lines) : lines;
}

long long lastMillisecond(const Stretch& stretch)
{
    return stretch.end - 1;
}

QString timeLine(const Stretch& stretch)
{
    return subRipTime(stretch.start) + QStringLiteral(" --> ") + subRipTime(lastMillisecond(stretch));
}

// A time line only the library reads: it skips the character behind the arrow,
// where a player's reader expects a time.
QString libraryTimeLine(const Stretch& stretch)
{
    return subRipTime(stretch.start) + QStringLiteral(" -->x") + subRipTime(lastMillisecond(stretch));
}

CopyText write(const std::vector<Stretch>& stretches, bool blankLines)
{
    LineSink sink;
    bool gathered = false;
    for (const Stretch& stretch : stretches)
        gathered = gathered || stretch.lines.size() > 2;

    if (gathered) {
        // Players take this as one caption of no duration.
        sink.add(QStringLiteral("0"));
        sink.add(QStringLiteral("00:00:00,000 --> 00:00:00,000"));
        for (int i = 0; i < int(stretches.size()); ++i) {
            const Stretch& stretch = stretches[size_t(i)];
            if (stretch.lines.size() <= 2)
                continue;
            const QStringList lines = copyLines(stretch);
            for (int k = 0; k < int(lines.size()); k += 2) {
                sink.add(QString::number(i + 1));
                sink.add(libraryTimeLine(stretch));
                sink.add(lines[k]);
                if (k + 1 < int(lines.size()))
                    sink.add(lines[k + 1]);
            }
        }
        if (blankLines)
            sink.add(QString());
    }

    for (int i = 0; i < int(stretches.size()); ++i) {
        const Stretch& stretch = stretches[size_t(i)];
        sink.add(stretch.lines.size() > 2 ? QStringLiteral("0") : QString::number(i + 1));
        sink.add(timeLine(stretch));
        for (const QString& line : copyLines(stretch))
            sink.add(line);
        if (blankLines)
            sink.add(QString());
    }

    if (!gathered) {
        // Never due: the look-up stops one key short of the highest.
        const long long at = stretches.empty() ? 0 : lastMillisecond(stretches.back());
        sink.add(QString::number(int(stretches.size()) + 1));
        sink.add(subRipTime(at) + QStringLiteral(" --> ") + subRipTime(at));
        sink.add(QString(QChar(kJoiner)));
    }
    return sink.take();
}

} // namespace

QString subRipTime(long long ms)
{
    if (ms < 0)
        ms = 0;
    return QStringLiteral("%1:%2:%3,%4")
        .arg(ms / 3600000, 2, 10, QLatin1Char('0'))
        .arg(ms / 60000 % 60, 2, 10, QLatin1Char('0'))
        .arg(ms / 1000 % 60, 2, 10, QLatin1Char('0'))
        .arg(ms % 1000, 3, 10, QLatin1Char('0'));
}

CopyText writeSubRip(const std::vector<Stretch>& stretches)
{
    CopyText copy = write(stretches, true);
    if (copy.lines > zemsub::tool::readerLineLimit(zemsub::detail::kFormatSrt))
        copy = write(stretches, false);
    return copy;
}

} // namespace zemsubfix
