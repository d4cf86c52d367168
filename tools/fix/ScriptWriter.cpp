#include "ScriptWriter.h"

#include "CaptionLines.h"

namespace zemsubfix {

namespace {

QString dialogue(long long start, long long end, const QString& text)
{
    return QStringLiteral("Dialogue: 0,%1,%2,Default,,0,0,0,,%3")
        .arg(scriptTime(start), scriptTime(end), text);
}

} // namespace

QString scriptTime(long long ms)
{
    if (ms < 0)
        ms = 0;
    const long long hundredths = (ms + 5) / 10;
    return QStringLiteral("%1:%2:%3.%4")
        .arg(hundredths / 360000)
        .arg(hundredths / 6000 % 60, 2, 10, QLatin1Char('0'))
        .arg(hundredths / 100 % 60, 2, 10, QLatin1Char('0'))
        .arg(hundredths % 100, 2, 10, QLatin1Char('0'));
}

CopyText writeScript(const std::vector<Stretch>& stretches)
{
    LineSink sink;
    sink.add(QStringLiteral("[Script Info]"));
    sink.add(QStringLiteral("ScriptType: v4.00+"));
    sink.add(QStringLiteral("PlayResX: 384"));
    sink.add(QStringLiteral("PlayResY: 288"));
    sink.add(QString());
    sink.add(QStringLiteral("[V4+ Styles]"));
    sink.add(
        QStringLiteral("Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, "
                       "BackColour, Bold, Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, "
                       "BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, Encoding"));
    sink.add(
        QStringLiteral("Style: Default,Arial,20,16777215,255,0,0,0,0,0,0,100,100,0,0,1,2,2,2,10,10,10,1"));
    sink.add(QString());
    sink.add(QStringLiteral("[Events]"));
    sink.add(
        QStringLiteral("Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text"));
    // Latest first: where one stretch ends as the next begins, the reader's end is
    // inclusive and its first match wins, so the later one must come first.
    for (auto it = stretches.rbegin(); it != stretches.rend(); ++it) {
        const Stretch& stretch = *it;
        const QStringList lines = stretch.repeat ? markedAsRepeat(stretch.lines) : stretch.lines;
        sink.add(dialogue(stretch.start, stretch.end, scriptText(lines)));
    }
    // Never due: the look-up stops one entry short of the last.
    const long long at = stretches.empty() ? 0 : stretches.back().end;
    sink.add(dialogue(at, at, QString()));
    return sink.take();
}

} // namespace zemsubfix
