#include "OcrCorrections.h"

#include <QFile>
#include <QRegularExpression>

namespace zemsub::tool {

namespace {

// "L" or "I" read for "l" at the start of a word inside a sentence.
QString lowerMistakenCapitals(const QString& text, const QSet<QString>& words)
{
    static const QRegularExpression word(QStringLiteral("(?<=[\\p{Ll},] )[LI]\\p{Ll}+\\b"));
    QString fixed = text;
    for (auto matches = word.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QString read = match.captured();
        const QString lower = QLatin1Char('l') + read.mid(1);
        if (!words.contains(read) && words.contains(lower))
            fixed.replace(match.capturedStart(), lower.size(), lower);
    }
    return fixed;
}

} // namespace

const QSet<QString>& englishWords()
{
    static const QSet<QString> words = [] {
        QSet<QString> list;
        for (const char* path : {"/usr/share/dict/words", "/usr/share/dict/american-english"}) {
            QFile file(QString::fromLatin1(path));
            if (!file.open(QIODevice::ReadOnly))
                continue;
            while (!file.atEnd())
                list.insert(QString::fromUtf8(file.readLine()).trimmed());
            break;
        }
        return list;
    }();
    return words;
}

QString correctReading(const QString& line, const QSet<QString>* words)
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

    if (words && !words->isEmpty())
        text = lowerMistakenCapitals(text, *words);
    return text;
}

} // namespace zemsub::tool
