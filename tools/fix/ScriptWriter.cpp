#include "ScriptWriter.h"

#include "CaptionLines.h"

#include <QRegularExpression>
#include <QStringList>

namespace zemsubfix {

namespace {

QString dialogue(long long start, long long end, const QString& text)
{
    return QStringLiteral("Dialogue: 0,%1,%2,Default,,0,0,0,,%3")
        .arg(scriptTime(start), scriptTime(end), text);
}

const QString kStyleFormat =
    QStringLiteral("Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, "
                   "BackColour, Bold, Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, "
                   "BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, Encoding");
const QString kDefaultStyle =
    QStringLiteral("Style: Default,Arial,20,16777215,255,0,0,0,0,0,0,100,100,0,0,1,2,2,2,10,10,10,1");

void addOwnHeader(LineSink& sink)
{
    sink.add(QStringLiteral("[Script Info]"));
    sink.add(QStringLiteral("ScriptType: v4.00+"));
    sink.add(QStringLiteral("PlayResX: 384"));
    sink.add(QStringLiteral("PlayResY: 288"));
    sink.add(QString());
    sink.add(QStringLiteral("[V4+ Styles]"));
    sink.add(kStyleFormat);
    sink.add(kDefaultStyle);
    sink.add(QString());
}

// A style line with its "&h" values as plain numbers.
QString plainNumbers(const QString& style)
{
    const int colon = style.indexOf(QLatin1Char(':'));
    QStringList fields = style.mid(colon + 1).split(QLatin1Char(','));
    static const QRegularExpression hex(QStringLiteral("^\\s*&[hH]([0-9a-fA-F]{1,8})&?\\s*$"));
    for (QString& field : fields) {
        const QRegularExpressionMatch match = hex.match(field);
        if (match.hasMatch())
            field = QString::number(match.captured(1).toUInt(nullptr, 16));
    }
    return style.left(colon + 1) + QLatin1Char(' ') + fields.join(QLatin1Char(',')).trimmed();
}

// The lines of header before [Events], adapted; empty when it is not an ASS header.
QStringList keptHeader(const QString& header)
{
    QStringList kept;
    bool styles = false;
    bool standardFormat = false;
    bool hasDefault = false;
    QString section;
    for (QString line : header.split(QLatin1Char('\n'))) {
        line.remove(QLatin1Char('\r'));
        line.remove(QChar(0));
        const QString trimmed = line.trimmed();
        if (trimmed.startsWith(QLatin1Char('['))) {
            section = trimmed.toLower();
            if (section == QLatin1String("[events]"))
                break;
            styles = styles || section == QLatin1String("[v4+ styles]");
        }
        if (section == QLatin1String("[script info]") &&
            trimmed.startsWith(QLatin1String("ScriptType:"), Qt::CaseInsensitive))
            line = QStringLiteral("ScriptType: v4.00+");
        if (section == QLatin1String("[v4+ styles]")) {
            if (trimmed.startsWith(QLatin1String("Format:"), Qt::CaseInsensitive)) {
                QString fields = trimmed;
                standardFormat =
                    fields.remove(QLatin1Char(' '))
                        .compare(QString(kStyleFormat).remove(QLatin1Char(' ')), Qt::CaseInsensitive) == 0;
            } else if (trimmed.startsWith(QLatin1String("Style:"), Qt::CaseInsensitive)) {
                line = plainNumbers(trimmed);
                hasDefault = hasDefault || line.mid(6).trimmed().startsWith(QLatin1String("Default,"));
            }
        }
        kept << line;
    }
    if (!styles || !standardFormat)
        return {};
    while (!kept.isEmpty() && kept.last().trimmed().isEmpty())
        kept.removeLast();
    if (!hasDefault) {
        // After the last line of [V4+ Styles].
        int at = int(kept.size());
        for (int i = 0; i < int(kept.size()); ++i) {
            if (kept[i].trimmed().compare(QLatin1String("[v4+ styles]"), Qt::CaseInsensitive) == 0) {
                at = i + 1;
                while (at < int(kept.size()) && !kept[at].trimmed().startsWith(QLatin1Char('[')) &&
                       !kept[at].trimmed().isEmpty())
                    ++at;
            }
        }
        kept.insert(at, kDefaultStyle);
    }
    kept << QString();
    return kept;
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

CopyText writeScript(const std::vector<Stretch>& stretches, const QString& header)
{
    LineSink sink;
    const QStringList kept = header.isEmpty() ? QStringList() : keptHeader(header);
    if (kept.isEmpty())
        addOwnHeader(sink);
    for (const QString& line : kept)
        sink.add(line);
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
