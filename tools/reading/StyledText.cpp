#include "StyledText.h"

#include "EventText.h"

#include <QRegularExpression>
#include <QStringList>

namespace zemsub::tool {

namespace {

void addRun(std::vector<TextRun>& runs, const QString& text, bool italic)
{
    if (text.isEmpty())
        return;
    if (!runs.empty() && runs.back().italic == italic)
        runs.back().text += text;
    else
        runs.push_back(TextRun{text, italic});
}

// The legacy \a values (1-3 bottom, +4 top, +8 middle) as a numeric keypad.
int keypadOfLegacy(int value)
{
    const int column = (value - 1) % 4 + 1;
    if (column < 1 || column > 3)
        return 2;
    if (value >= 9)
        return column + 3;
    if (value >= 5)
        return column + 6;
    return column;
}

} // namespace

StyledText styledText(const QString& textField)
{
    StyledText styled;
    static const QRegularExpression block(QStringLiteral("\\{[^}]*\\}"));
    static const QRegularExpression tag(QStringLiteral("\\\\(an|a|i)(\\d*)"));
    bool italic = false;
    int from = 0;
    for (auto blocks = block.globalMatch(textField); blocks.hasNext();) {
        const QRegularExpressionMatch match = blocks.next();
        addRun(styled.runs, shownText(textField.mid(from, match.capturedStart() - from)), italic);
        for (auto tags = tag.globalMatch(match.captured()); tags.hasNext();) {
            const QRegularExpressionMatch one = tags.next();
            const QString name = one.captured(1);
            const int value = one.captured(2).toInt();
            if (name == QLatin1String("i"))
                italic = value == 1;
            else if (name == QLatin1String("an") && value >= 1 && value <= 9)
                styled.alignment = value;
            else if (name == QLatin1String("a") && value >= 1 && value <= 11)
                styled.alignment = keypadOfLegacy(value);
        }
        from = match.capturedEnd();
    }
    addRun(styled.runs, shownText(textField.mid(from)), italic);
    return styled;
}

QString markedText(const std::vector<TextRun>& runs, const QString& open, const QString& close)
{
    QString text;
    for (const TextRun& run : runs) {
        if (!run.italic) {
            text += run.text;
            continue;
        }
        const QStringList lines = run.text.split(QLatin1Char('\n'));
        for (int i = 0; i < lines.size(); ++i) {
            if (i > 0)
                text += QLatin1Char('\n');
            if (!lines[i].isEmpty())
                text += open + lines[i] + close;
        }
    }
    return text;
}

QString plainText(const std::vector<TextRun>& runs)
{
    QString text;
    for (const TextRun& run : runs)
        text += run.text;
    return text;
}

} // namespace zemsub::tool
