#include "OcrCorrections.h"

#include <QFile>
#include <QHash>
#include <QMutex>
#include <QRegularExpression>

namespace zemsub::tool {

namespace {

bool english(const QString& language)
{
    return language == QLatin1String("eng");
}

bool french(const QString& language)
{
    return language == QLatin1String("fra");
}

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

// "l" read for "I" or "i" at the start of a word that the list knows only with
// "i" ("ls" -> "Is" at a sentence's start, "is" inside one).
QString raiseMistakenEll(const QString& text, const QSet<QString>& words)
{
    static const QRegularExpression word(QStringLiteral("(?<![\\w'])l(\\p{Ll}+)\\b"));
    static const QRegularExpression sentenceEnd(QStringLiteral("(^|[.!?]\\s+|^- )$"));
    QString fixed = text;
    for (auto matches = word.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QString stem = match.captured(1);
        const QString lower = QLatin1Char('i') + stem;
        // Word lists hold "ls" and the like (commands, abbreviations) that a subtitle hardly does.
        static const QSet<QString> unlikely{QStringLiteral("ls"), QStringLiteral("lt"), QStringLiteral("lf"),
                                            QStringLiteral("ln")};
        if ((words.contains(match.captured()) && !unlikely.contains(match.captured())) || !words.contains(lower))
            continue;
        const bool starts = sentenceEnd.match(text.left(match.capturedStart())).hasMatch();
        fixed[match.capturedStart()] = starts ? QLatin1Char('I') : QLatin1Char('i');
    }
    return fixed;
}

QSet<QString> loadWords(const QStringList& paths)
{
    QSet<QString> list;
    for (const QString& path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        while (!file.atEnd())
            list.insert(QString::fromUtf8(file.readLine()).trimmed());
        break;
    }
    return list;
}

// Debian's word list files, by Tesseract language.
QStringList wordListFiles(const QString& language)
{
    static const QHash<QString, QStringList> files{
        {QStringLiteral("eng"), {QStringLiteral("/usr/share/dict/american-english"),
                                 QStringLiteral("/usr/share/dict/british-english")}},
        {QStringLiteral("fra"), {QStringLiteral("/usr/share/dict/french")}},
        {QStringLiteral("deu"), {QStringLiteral("/usr/share/dict/ngerman")}},
        {QStringLiteral("spa"), {QStringLiteral("/usr/share/dict/spanish")}},
        {QStringLiteral("ita"), {QStringLiteral("/usr/share/dict/italian")}},
        {QStringLiteral("por"), {QStringLiteral("/usr/share/dict/portuguese")}},
        {QStringLiteral("nld"), {QStringLiteral("/usr/share/dict/dutch")}},
        {QStringLiteral("dan"), {QStringLiteral("/usr/share/dict/danish")}},
        {QStringLiteral("swe"), {QStringLiteral("/usr/share/dict/swedish")}},
        {QStringLiteral("pol"), {QStringLiteral("/usr/share/dict/polish")}},
    };
    return files.value(language);
}

} // namespace

const QSet<QString>& wordList(const QString& language)
{
    static QMutex lock;
    static QHash<QString, QSet<QString>> lists;
    const QMutexLocker locker(&lock);
    auto known = lists.constFind(language);
    if (known == lists.constEnd())
        known = lists.insert(language, loadWords(wordListFiles(language)));
    return *known;
}

const QSet<QString>& englishWords()
{
    return wordList(QStringLiteral("eng"));
}

QString correctReading(const QString& line, const QString& language, const QSet<QString>* words)
{
    QString text = line.trimmed();

    text.replace(QChar(0x2018), QLatin1Char('\''));
    text.replace(QChar(0x2019), QLatin1Char('\''));
    text.replace(QChar(0x201C), QLatin1Char('"'));
    text.replace(QChar(0x201D), QLatin1Char('"'));

    if (english(language)) {
        // "|" standing for "I": alone, or starting a word of lower-case letters.
        static const QRegularExpression bar(QStringLiteral("\\|(?=[a-z'\\s,.!?]|$)"));
        text.replace(bar, QStringLiteral("I"));
        static const QRegularExpression lonelyEll(QStringLiteral("(?<![\\w'])l(?=\\s|'[a-z]|$)"));
        text.replace(lonelyEll, QStringLiteral("I"));
    }

    static const QRegularExpression zero(QStringLiteral("(?<=\\p{L})0(?=\\p{L})|(?<=\\p{Lu})0\\b"));
    text.replace(zero, QStringLiteral("O"));

    static const QRegularExpression spaceBeforeStop(QStringLiteral("\\s+([,.](?!\\.\\.))"));
    text.replace(spaceBeforeStop, QStringLiteral("\\1"));
    if (!french(language)) {
        static const QRegularExpression spaceBeforeMark(QStringLiteral("\\s+([!?;:])"));
        text.replace(spaceBeforeMark, QStringLiteral("\\1"));
    }

    static const QRegularExpression dash(QStringLiteral("^[-\\x{2013}\\x{2014}]\\s*(?=\\S)"));
    text.replace(dash, QStringLiteral("- "));

    if (words && !words->isEmpty()) {
        text = lowerMistakenCapitals(text, *words);
        if (english(language))
            text = raiseMistakenEll(text, *words);
    }
    return text;
}

} // namespace zemsub::tool
