#include "OcrCorrections.h"

#include <QRegularExpression>

namespace zemsub::tool {

QString correctReading(const QString& line)
{
    QString text = line.trimmed();

    text.replace(QChar(0x2018), QLatin1Char('\''));
    text.replace(QChar(0x2019), QLatin1Char('\''));
    text.replace(QChar(0x201C), QLatin1Char('"'));
    text.replace(QChar(0x201D), QLatin1Char('"'));

    // "|" standing for "I": alone, or starting a word of lower-case letters.
    static const QRegularExpression bar(QStringLiteral("\\|(?=[a-z'\\s,.!?]|$)"));
    text.replace(bar, QStringLiteral("I"));
    static const QRegularExpression lonelyEll(QStringLiteral("(?<![\\w'])l(?=\\s|'[a-z]|$)"));
    text.replace(lonelyEll, QStringLiteral("I"));

    static const QRegularExpression zero(QStringLiteral("(?<=\\p{L})0(?=\\p{L})|(?<=\\p{Lu})0\\b"));
    text.replace(zero, QStringLiteral("O"));

    static const QRegularExpression spaceBefore(QStringLiteral("\\s+([,.!?;:])"));
    text.replace(spaceBefore, QStringLiteral("\\1"));

    static const QRegularExpression dash(QStringLiteral("^[-\\x{2013}\\x{2014}]\\s*(?=\\S)"));
    text.replace(dash, QStringLiteral("- "));
    return text;
}

} // namespace zemsub::tool
