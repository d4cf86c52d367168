#include "OcrLanguage.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace zemsub::tool {

QString tesseractLanguage(const QString& tag)
{
    // Tesseract names languages by ISO 639-2/T; the tags differ where /B does, and for two-letter codes.
    static const QHash<QString, QString> names{
        {QStringLiteral("fre"), QStringLiteral("fra")}, {QStringLiteral("ger"), QStringLiteral("deu")},
        {QStringLiteral("dut"), QStringLiteral("nld")}, {QStringLiteral("cze"), QStringLiteral("ces")},
        {QStringLiteral("gre"), QStringLiteral("ell")}, {QStringLiteral("per"), QStringLiteral("fas")},
        {QStringLiteral("rum"), QStringLiteral("ron")}, {QStringLiteral("slo"), QStringLiteral("slk")},
        {QStringLiteral("alb"), QStringLiteral("sqi")}, {QStringLiteral("arm"), QStringLiteral("hye")},
        {QStringLiteral("baq"), QStringLiteral("eus")}, {QStringLiteral("bur"), QStringLiteral("mya")},
        {QStringLiteral("geo"), QStringLiteral("kat")}, {QStringLiteral("ice"), QStringLiteral("isl")},
        {QStringLiteral("mac"), QStringLiteral("mkd")}, {QStringLiteral("may"), QStringLiteral("msa")},
        {QStringLiteral("wel"), QStringLiteral("cym")}, {QStringLiteral("tib"), QStringLiteral("bod")},
        {QStringLiteral("chi"), QStringLiteral("chi_sim")}, {QStringLiteral("zho"), QStringLiteral("chi_sim")},
        {QStringLiteral("en"), QStringLiteral("eng")}, {QStringLiteral("fr"), QStringLiteral("fra")},
        {QStringLiteral("de"), QStringLiteral("deu")}, {QStringLiteral("es"), QStringLiteral("spa")},
        {QStringLiteral("it"), QStringLiteral("ita")}, {QStringLiteral("pt"), QStringLiteral("por")},
        {QStringLiteral("nl"), QStringLiteral("nld")}, {QStringLiteral("ru"), QStringLiteral("rus")},
        {QStringLiteral("pl"), QStringLiteral("pol")}, {QStringLiteral("sv"), QStringLiteral("swe")},
        {QStringLiteral("da"), QStringLiteral("dan")}, {QStringLiteral("fi"), QStringLiteral("fin")},
        {QStringLiteral("no"), QStringLiteral("nor")}, {QStringLiteral("cs"), QStringLiteral("ces")},
        {QStringLiteral("el"), QStringLiteral("ell")}, {QStringLiteral("tr"), QStringLiteral("tur")},
        {QStringLiteral("ja"), QStringLiteral("jpn")}, {QStringLiteral("ko"), QStringLiteral("kor")},
        {QStringLiteral("zh"), QStringLiteral("chi_sim")}, {QStringLiteral("ar"), QStringLiteral("ara")},
        {QStringLiteral("he"), QStringLiteral("heb")}, {QStringLiteral("hu"), QStringLiteral("hun")},
    };
    const QString code = tag.trimmed().toLower();
    if (code.isEmpty() || code == QLatin1String("und") || code == QLatin1String("unknown"))
        return QStringLiteral("eng");
    const auto known = names.constFind(code);
    if (known != names.constEnd())
        return *known;
    if (code.size() == 3 && code.at(0).isLetter() && code.at(1).isLetter() && code.at(2).isLetter())
        return code;
    return QStringLiteral("eng");
}

QString readingLanguage(const QString& asked, const QString& tag)
{
    return asked.isEmpty() ? tesseractLanguage(tag) : asked;
}

QString languageDataFolder()
{
    const QString prefix = qEnvironmentVariable("TESSDATA_PREFIX");
    if (!prefix.isEmpty())
        return prefix;
    for (const char* folder : {"/usr/share/tesseract-ocr/5/tessdata", "/usr/share/tesseract-ocr/4.00/tessdata",
                               "/usr/share/tessdata", "/usr/local/share/tessdata"}) {
        if (QFileInfo(QString::fromLatin1(folder)).isDir())
            return QString::fromLatin1(folder);
    }
    return QStringLiteral("/usr/share/tesseract-ocr/5/tessdata");
}

bool languageInstalled(const QString& language)
{
    if (language.isEmpty() || language.contains(QLatin1Char('/')))
        return false;
    for (const QString& part : language.split(QLatin1Char('+'))) {
        if (!QFileInfo::exists(QDir(languageDataFolder()).filePath(part + QStringLiteral(".traineddata"))))
            return false;
    }
    return true;
}

QString missingLanguageMessage(const QString& language)
{
    QString package = language;
    package.replace(QLatin1Char('_'), QLatin1Char('-'));
    return QStringLiteral("no Tesseract data for %1 (in %2): install the Debian package tesseract-ocr-%3, or name "
                          "an installed language with --ocr-language")
        .arg(language, languageDataFolder(), package);
}

} // namespace zemsub::tool
