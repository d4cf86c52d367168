#include "TolerantReader.h"

#include <QRegularExpression>

#include <optional>

namespace zemsub::tool {

namespace {

struct Decoded
{
    QString text;
    QString encoding;
    bool utf8Mark = false;
    bool ffFeMark = false;
    bool utf16 = false;
};

bool validUtf8(const QByteArray& bytes)
{
    const int n = int(bytes.size());
    for (int i = 0; i < n;) {
        const unsigned char c = static_cast<unsigned char>(bytes[i]);
        int follow = 0;
        if (c < 0x80)
            follow = 0;
        else if (c >= 0xC2 && c <= 0xDF)
            follow = 1;
        else if (c >= 0xE0 && c <= 0xEF)
            follow = 2;
        else if (c >= 0xF0 && c <= 0xF4)
            follow = 3;
        else
            return false;
        if (i + follow > n - 1)
            return false;
        for (int k = 1; k <= follow; ++k) {
            if ((static_cast<unsigned char>(bytes[i + k]) & 0xC0) != 0x80)
                return false;
        }
        i += follow + 1;
    }
    return true;
}

QString fromUtf16(const QByteArray& bytes, bool littleEndian)
{
    QString text;
    text.reserve(int(bytes.size() / 2));
    for (int i = 0; i + 1 < int(bytes.size()); i += 2) {
        const unsigned char a = static_cast<unsigned char>(bytes[i]);
        const unsigned char b = static_cast<unsigned char>(bytes[i + 1]);
        text += QChar(littleEndian ? ushort(a | (b << 8)) : ushort(b | (a << 8)));
    }
    return text;
}

Decoded decode(const QByteArray& bytes)
{
    Decoded decoded;
    auto startsWith = [&](std::initializer_list<unsigned char> mark) {
        if (bytes.size() < int(mark.size()))
            return false;
        int i = 0;
        for (unsigned char c : mark) {
            if (static_cast<unsigned char>(bytes[i++]) != c)
                return false;
        }
        return true;
    };
    QByteArray rest = bytes;
    if (startsWith({0xFF, 0xFE})) {
        decoded.ffFeMark = true;
        rest = bytes.mid(2);
        if (rest.contains('\0') || !validUtf8(rest)) {
            decoded.utf16 = true;
            decoded.encoding = QStringLiteral("UTF-16LE");
            decoded.text = fromUtf16(rest, true);
            return decoded;
        }
    } else if (startsWith({0xFE, 0xFF})) {
        decoded.utf16 = true;
        decoded.encoding = QStringLiteral("UTF-16BE");
        decoded.text = fromUtf16(bytes.mid(2), false);
        return decoded;
    } else if (startsWith({0xEF, 0xBB, 0xBF})) {
        decoded.utf8Mark = true;
        rest = bytes.mid(3);
    }
    if (validUtf8(rest)) {
        decoded.encoding = QStringLiteral("UTF-8");
        decoded.text = QString::fromUtf8(rest);
    } else {
        decoded.encoding = QStringLiteral("Latin-1");
        decoded.text = QString::fromLatin1(rest);
    }
    return decoded;
}

bool isDigits(const QString& text)
{
    if (text.isEmpty())
        return false;
    for (QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    }
    return true;
}

// [h:]mm:ss[,.]fraction with any number of fraction digits (a decimal fraction of a second).
std::optional<long long> clockTime(const QString& text, QString* fraction)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(?:(\\d+):)?(\\d{1,2}):(\\d{1,2})(?:[,.](\\d*))?$"));
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    const long long hours = match.captured(1).isEmpty() ? 0 : match.captured(1).left(9).toLongLong();
    const long long minutes = match.captured(2).toLongLong();
    const long long seconds = match.captured(3).toLongLong();
    QString digits = match.captured(4);
    if (fraction)
        *fraction = digits;
    digits = (digits + QStringLiteral("000")).left(3);
    return hours * 3600000 + minutes * 60000 + seconds * 1000 + digits.toLongLong();
}

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

QString removeFormattingTags(QString text)
{
    static const QRegularExpression html(QStringLiteral("</?(?:i|b|u|s)>|</?font(?:\\s[^>]*)?>"),
                                         QRegularExpression::CaseInsensitiveOption);
    return text.remove(html);
}

void readSubRip(const QStringList& lines, WrittenFile& file)
{
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
        if (isDigits(line) && i + 1 < n && isTimeLine(lines[i + 1])) {
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
        const QRegularExpressionMatch match = timeLinePattern().match(lines[timeIndex]);
        QString startFraction, endFraction;
        block.start = clockTime(match.captured(1), &startFraction).value_or(0);
        block.end = clockTime(match.captured(2), &endFraction).value_or(0);
        block.fractions = QStringList{startFraction, endFraction};

        int j = timeIndex + 1;
        while (j < n) {
            const QString text = lines[j].trimmed();
            if (text.isEmpty()) {
                block.endedByBlanks = !lines[j].isEmpty();
                break;
            }
            // A block that follows without an empty line.
            if (isDigits(text) && j + 1 < n && isTimeLine(lines[j + 1]))
                break;
            if (isTimeLine(lines[j]))
                break;
            block.rawLines << text;
            ++j;
        }
        block.text = subRipDisplayText(block.rawLines);
        block.index = int(file.blocks.size()) + 1;
        file.blocks.push_back(block);
        i = j;
    }
}

QStringList splitFields(const QString& value, int count)
{
    QStringList fields;
    int from = 0;
    for (int k = 0; k + 1 < count; ++k) {
        const int comma = value.indexOf(QLatin1Char(','), from);
        if (comma < 0)
            break;
        fields << value.mid(from, comma - from);
        from = comma + 1;
    }
    fields << value.mid(from);
    return fields;
}

bool startsWithHex(const QString& field)
{
    return field.trimmed().startsWith(QLatin1String("&h"), Qt::CaseInsensitive);
}

void readScript(const QStringList& lines, WrittenFile& file)
{
    QString section;
    QStringList styleFormat;
    bool ssaStyles = false;
    for (int k = 0; k < int(lines.size()); ++k) {
        const QString line = lines[k].trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char(';')))
            continue;
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            section = line.toLower();
            ssaStyles = ssaStyles || section == QLatin1String("[v4 styles]");
            continue;
        }
        const int colon = line.indexOf(QLatin1Char(':'));
        if (colon < 0)
            continue;
        const QString key = line.left(colon).trimmed().toLower();
        const QString value = line.mid(colon + 1);
        if (key == QLatin1String("scripttype")) {
            file.scriptTypeFound = true;
            file.scriptType = value.trimmed();
        } else if (key == QLatin1String("wrapstyle")) {
            file.wrapStyleTwo = value.trimmed() == QLatin1String("2");
        } else if (key == QLatin1String("playresx") || key == QLatin1String("playresy")) {
            if (startsWithHex(value))
                file.hexValues.push_back(HexValue{k + 1, line.left(colon).trimmed(), value.trimmed()});
        } else if (key == QLatin1String("format")) {
            QStringList names;
            for (const QString& name : value.split(QLatin1Char(',')))
                names << name.trimmed().toLower();
            if (section == QLatin1String("[events]")) {
                file.eventFormat = names;
                file.eventFormatFound = true;
            } else {
                styleFormat = names;
            }
        } else if (key == QLatin1String("style")) {
            const QStringList fields = value.split(QLatin1Char(','));
            for (int f = 0; f < int(fields.size()); ++f) {
                if (!startsWithHex(fields[f]))
                    continue;
                const QString name =
                    f < int(styleFormat.size()) ? styleFormat[f] : QStringLiteral("field %1").arg(f + 1);
                file.hexValues.push_back(
                    HexValue{k + 1, QStringLiteral("Style %1, %2").arg(fields.value(0).trimmed(), name),
                             fields[f].trimmed()});
            }
        } else if (key == QLatin1String("dialogue")) {
            const bool ssa =
                ssaStyles || (file.scriptTypeFound && !file.scriptType.endsWith(QLatin1Char('+')));
            const QStringList format = file.eventFormatFound ? file.eventFormat : defaultEventFormat(ssa);
            const QStringList fields = splitFields(value, int(format.size()));
            const int startField = int(format.indexOf(QStringLiteral("start")));
            const int endField = int(format.indexOf(QStringLiteral("end")));
            const int textField = int(format.indexOf(QStringLiteral("text")));
            if (startField < 0 || endField < 0 || textField < 0 || fields.size() != format.size())
                continue;
            WrittenBlock block;
            block.line = k + 1;
            block.dialogueValue = value;
            QString startFraction, endFraction;
            const std::optional<long long> start = clockTime(fields[startField], &startFraction);
            const std::optional<long long> end = clockTime(fields[endField], &endFraction);
            if (!start || !end)
                continue;
            block.start = *start;
            block.end = *end;
            block.fractions = QStringList{startFraction, endFraction};
            for (int f = 0; f < textField; ++f)
                block.fields << fields[f].trimmed();
            block.rawLines = QStringList{fields[textField]};
            block.text = scriptDisplayText(fields[textField], file.wrapStyleTwo);
            for (int f = 0; f < textField; ++f) {
                if (f != startField && f != endField && startsWithHex(fields[f]))
                    file.hexValues.push_back(
                        HexValue{k + 1, QStringLiteral("Dialogue, %1").arg(format[f]), fields[f].trimmed()});
            }
            block.index = int(file.blocks.size()) + 1;
            file.blocks.push_back(block);
        }
    }
}

} // namespace

WrittenKind guessKind(const QString& extension, const QByteArray& bytes)
{
    const QString ext = extension.toLower();
    if (ext == QLatin1String("srt"))
        return WrittenKind::SubRip;
    if (ext == QLatin1String("ass") || ext == QLatin1String("ssa"))
        return WrittenKind::Script;
    const QString text = decode(bytes).text;
    if (text.contains(QLatin1String("[Script Info]"), Qt::CaseInsensitive) ||
        text.contains(QLatin1String("\nDialogue:"), Qt::CaseInsensitive))
        return WrittenKind::Script;
    if (text.contains(QLatin1String("-->")))
        return WrittenKind::SubRip;
    return WrittenKind::Unknown;
}

WrittenFile readWritten(const QByteArray& bytes, WrittenKind kind)
{
    WrittenFile file;
    file.kind = kind;
    const Decoded decoded = decode(bytes);
    file.encoding = decoded.encoding;
    file.utf8Mark = decoded.utf8Mark;
    file.ffFeMark = decoded.ffFeMark;
    file.utf16 = decoded.utf16;

    QStringList lines = decoded.text.split(QLatin1Char('\n'));
    for (QString& line : lines) {
        if (line.endsWith(QLatin1Char('\r'))) {
            file.crlf = true;
            line.chop(1);
        }
    }
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    file.lineCount = int(lines.size());

    if (kind == WrittenKind::SubRip)
        readSubRip(lines, file);
    else if (kind == WrittenKind::Script)
        readScript(lines, file);
    return file;
}

QStringList defaultEventFormat(bool ssa)
{
    return QStringList{ssa ? QStringLiteral("marked") : QStringLiteral("layer"),
                       QStringLiteral("start"),
                       QStringLiteral("end"),
                       QStringLiteral("style"),
                       QStringLiteral("name"),
                       QStringLiteral("marginl"),
                       QStringLiteral("marginr"),
                       QStringLiteral("marginv"),
                       QStringLiteral("effect"),
                       QStringLiteral("text")};
}

QString scriptDisplayText(const QString& text, bool wrapStyleTwo)
{
    // Override blocks go; an unclosed one hides the rest of the line, as in the common renderers.
    QString plain;
    for (int i = 0; i < int(text.size()); ++i) {
        if (text[i] == QLatin1Char('{')) {
            const int close = int(text.indexOf(QLatin1Char('}'), i + 1));
            if (close < 0)
                break;
            i = close;
            continue;
        }
        plain += text[i];
    }
    plain = removeFormattingTags(plain);
    QString shown;
    for (int i = 0; i < int(plain.size()); ++i) {
        if (plain[i] == QLatin1Char('\\') && i + 1 < int(plain.size())) {
            const QChar next = plain[i + 1];
            if (next == QLatin1Char('N')) {
                shown += QLatin1Char('\n');
                ++i;
                continue;
            }
            if (next == QLatin1Char('n')) {
                shown += wrapStyleTwo ? QLatin1Char('\n') : QLatin1Char(' ');
                ++i;
                continue;
            }
            if (next == QLatin1Char('h')) {
                shown += QChar(0x00A0);
                ++i;
                continue;
            }
        }
        shown += plain[i];
    }
    return shown;
}

QString subRipDisplayText(const QStringList& lines)
{
    static const QRegularExpression overrides(QStringLiteral("\\{\\\\[^}]*\\}"));
    QStringList shown;
    for (QString line : lines) {
        line.remove(overrides);
        shown << removeFormattingTags(line).trimmed();
    }
    return shown.join(QLatin1Char('\n'));
}

} // namespace zemsub::tool
