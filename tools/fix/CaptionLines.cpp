#include "CaptionLines.h"
#include "reading/Digits.h"

namespace zemsubfix {

namespace {

const QChar joiner(kJoiner);

QString plainLine(QString line)
{
    line.remove(QLatin1Char('\r'));
    line.remove(QChar(0));
    return line.trimmed();
}

} // namespace

QString subRipLine(const QString& written)
{
    QString line = plainLine(written);
    if (line.isEmpty())
        return QString(joiner);
    if (zemsub::tool::isAllDigits(line))
        return joiner + line;
    line.replace(QLatin1String("-->"), QStringLiteral("-") + joiner + QStringLiteral("->"));
    line.replace(QLatin1String("{\\"), QStringLiteral("{") + joiner + QStringLiteral("\\"));
    QString out;
    out.reserve(line.size() + 4);
    for (int i = 0; i < int(line.size()); ++i) {
        out += line[i];
        if (line[i] == QLatin1Char('<') && i + 1 < int(line.size()) &&
            (line[i + 1].isLetter() || line[i + 1] == QLatin1Char('/') || line[i + 1].isSpace()))
            out += joiner;
    }
    return out;
}

QString scriptText(const QStringList& lines)
{
    QString text;
    for (int i = 0; i < int(lines.size()); ++i) {
        QString line = plainLine(lines[i]);
        QString out;
        for (int k = 0; k < int(line.size()); ++k) {
            out += line[k];
            if (line[k] == QLatin1Char('\\') && k + 1 < int(line.size()) &&
                QStringLiteral("Nnh").contains(line[k + 1]))
                out += joiner;
        }
        if (out.isEmpty())
            out = QString(joiner);
        if (i == 1)
            text += QLatin1String("\\N");
        else if (i > 1)
            text += QChar(kLineSeparator);
        text += out;
    }
    return text;
}

QStringList markedAsRepeat(QStringList lines)
{
    if (!lines.isEmpty())
        lines.last() += joiner;
    return lines;
}

QString withoutMarks(const QString& text)
{
    QString plain = text;
    plain.remove(joiner);
    plain.replace(QChar(kLineSeparator), QLatin1Char('\n'));
    return plain;
}

} // namespace zemsubfix
