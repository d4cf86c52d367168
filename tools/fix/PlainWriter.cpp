#include "PlainWriter.h"

#include <QStringList>

namespace zemsubfix {

namespace {

QString clock(long long ms, QChar fraction, int digits)
{
    ms = std::max(0LL, ms);
    QString text = QStringLiteral("%1:%2:%3")
                       .arg(ms / 3600000, digits == 2 ? 1 : 2, 10, QLatin1Char('0'))
                       .arg(ms / 60000 % 60, 2, 10, QLatin1Char('0'))
                       .arg(ms / 1000 % 60, 2, 10, QLatin1Char('0'));
    if (digits == 2)
        return text + fraction + QStringLiteral("%1").arg(ms % 1000 / 10, 2, 10, QLatin1Char('0'));
    return text + fraction + QStringLiteral("%1").arg(ms % 1000, 3, 10, QLatin1Char('0'));
}

// Script times are hundredths: the nearest one.
long long hundredths(long long ms)
{
    return (ms + 5) / 10 * 10;
}

QString subRip(const std::vector<PlainCaption>& captions)
{
    QString text;
    int number = 0;
    for (const PlainCaption& caption : captions) {
        text += QStringLiteral("%1\n%2 --> %3\n").arg(++number).arg(clock(caption.start, QLatin1Char(','), 3),
                                                                   clock(caption.end, QLatin1Char(','), 3));
        if (caption.alignment != 2)
            text += QStringLiteral("{\\an%1}").arg(caption.alignment);
        text += caption.marked + QStringLiteral("\n\n");
    }
    return text;
}

QString script(const std::vector<PlainCaption>& captions, QSize frame)
{
    if (frame.isEmpty())
        frame = QSize(1920, 1080);
    const int size = std::max(8, frame.height() / 15);
    QString text = QStringLiteral(
                       "[Script Info]\nScriptType: v4.00+\nWrapStyle: 0\nScaledBorderAndShadow: yes\n"
                       "PlayResX: %1\nPlayResY: %2\n\n[V4+ Styles]\n"
                       "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, "
                       "BackColour, Bold, Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, "
                       "BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, Encoding\n"
                       "Style: Default,Arial,%3,&H00FFFFFF,&H000000FF,&H00000000,&H00000000,0,0,0,0,100,100,"
                       "0,0,1,%4,0,2,%5,%5,%5,1\n\n[Events]\n"
                       "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n")
                       .arg(frame.width())
                       .arg(frame.height())
                       .arg(size)
                       .arg(std::max(1, size / 20))
                       .arg(frame.height() / 20);
    for (const PlainCaption& caption : captions) {
        QString line = caption.alignment != 2 ? QStringLiteral("{\\an%1}").arg(caption.alignment) : QString();
        line += caption.marked;
        line.replace(QLatin1Char('\n'), QStringLiteral("\\N"));
        text += QStringLiteral("Dialogue: 0,%1,%2,Default,,0,0,0,,%3\n")
                    .arg(scriptClock(caption.start), scriptClock(caption.end), line);
    }
    return text;
}

// A cue's settings for a place other than the bottom centre.
QString cueSettings(int alignment)
{
    QStringList settings;
    if (alignment >= 7)
        settings << QStringLiteral("line:0");
    else if (alignment >= 4)
        settings << QStringLiteral("line:50%");
    const int column = (alignment - 1) % 3;
    if (column == 0)
        settings << QStringLiteral("position:10%") << QStringLiteral("align:start");
    else if (column == 2)
        settings << QStringLiteral("position:90%") << QStringLiteral("align:end");
    return settings.isEmpty() ? QString() : QLatin1Char(' ') + settings.join(QLatin1Char(' '));
}

QString webVtt(const std::vector<PlainCaption>& captions)
{
    QString text = QStringLiteral("WEBVTT\n\n");
    for (const PlainCaption& caption : captions) {
        text += QStringLiteral("%1 --> %2%3\n%4\n\n")
                    .arg(clock(caption.start, QLatin1Char('.'), 3), clock(caption.end, QLatin1Char('.'), 3),
                         cueSettings(caption.alignment), caption.marked);
    }
    return text;
}

} // namespace

QString scriptClock(long long ms)
{
    return clock(hundredths(ms), QLatin1Char('.'), 2);
}

QByteArray writePlain(PlainFormat format, const std::vector<PlainCaption>& captions, QSize frame)
{
    switch (format) {
    case PlainFormat::Ass:
        return script(captions, frame).toUtf8();
    case PlainFormat::WebVtt:
        return webVtt(captions).toUtf8();
    case PlainFormat::SubRip:
        break;
    }
    return subRip(captions).toUtf8();
}

} // namespace zemsubfix
