#include "SubRipSource.h"
#include "Digits.h"

#include <QRegularExpression>

namespace zemsub::tool {

namespace {

const QRegularExpression& timeLinePattern()
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\s*((?:\\d+:)?\\d{1,2}:\\d{1,2}(?:[,.]\\d*)?)\\s*-->\\s*((?:\\d+:)?\\d{1,2}:\\d{1,"
                       "2}(?:[,.]\\d*)?)"));
    return pattern;
}

bool isTimeLine(const QString& line)
{
    return line.contains(QLatin1String("-->")) && timeLinePattern().match(line).hasMatch();
}

// [h:]mm:ss[,.]fraction; the fraction's first three digits count as milliseconds.
long long clockTime(const QString& text, QString* fraction)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(?:(\\d+):)?(\\d{1,2}):(\\d{1,2})(?:[,.](\\d*))?$"));
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    if (!match.hasMatch())
        return 0;
    const long long hours = match.captured(1).isEmpty() ? 0 : match.captured(1).left(9).toLongLong();
    const long long minutes = match.captured(2).toLongLong();
    const long long seconds = match.captured(3).toLongLong();
    *fraction = match.captured(4);
    return hours * 3600000 + minutes * 60000 + seconds * 1000 + fraction->left(3).toLongLong();
}

} // namespace

std::vector<WrittenBlock> readSubRipSource(const SourceLines& source)
{
    std::vector<WrittenBlock> blocks;
    const QStringList& lines = source.lines;
    const int n = int(lines.size());
    int i = 0;
    while (i < n) {
        const QString line = lines[i].trimmed();
        if (line.isEmpty()) {
            ++i;
            continue;
        }
        int timeIndex = -1;
        QString number;
        if (isAllDigits(line) && i + 1 < n && isTimeLine(lines[i + 1])) {
            number = line;
            timeIndex = i + 1;
        } else if (isTimeLine(line)) {
            timeIndex = i;
        } else {
            ++i; // a stray line outside any block
            continue;
        }
        WrittenBlock block;
        block.line = i + 1;
        block.number = number;
        block.timeLine = lines[timeIndex];
        block.position = source.offsets[size_t(timeIndex)];
        block.sourceFound = true;
        const QRegularExpressionMatch match = timeLinePattern().match(lines[timeIndex]);
        QString startFraction, endFraction;
        block.start = clockTime(match.captured(1), &startFraction);
        block.end = clockTime(match.captured(2), &endFraction);
        block.fractions = QStringList{startFraction, endFraction};

        int j = timeIndex + 1;
        while (j < n) {
            const QString text = lines[j].trimmed();
            if (text.isEmpty()) {
                block.endedByBlanks = !lines[j].isEmpty();
                break;
            }
            // A block that follows without an empty line.
            if (isAllDigits(text) && j + 1 < n && isTimeLine(lines[j + 1]))
                break;
            if (isTimeLine(lines[j]))
                break;
            block.rawLines << text;
            ++j;
        }
        blocks.push_back(block);
        i = j;
    }
    return blocks;
}

QString withoutSubRipMarkup(const QStringList& lines)
{
    static const QRegularExpression overrides(QStringLiteral("\\{\\\\[^}]*\\}"));
    static const QRegularExpression html(QStringLiteral("</?(?:i|b|u|s)>|</?font(?:\\s[^>]*)?>"),
                                         QRegularExpression::CaseInsensitiveOption);
    QStringList shown;
    for (QString line : lines) {
        line.remove(overrides);
        shown << line.remove(html).trimmed();
    }
    return shown.join(QLatin1Char('\n'));
}

} // namespace zemsub::tool
