#include "ScriptSource.h"

#include <QRegularExpression>

#include <algorithm>

namespace zemsub::tool {

namespace {

// h:mm:ss.ff with any number of fraction digits, read as hundredths.
long long clockTime(const QString& text, QString* fraction)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(?:(\\d+):)?(\\d{1,2}):(\\d{1,2})(?:[,.](\\d*))?$"));
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    if (!match.hasMatch())
        return 0;
    const long long hours = match.captured(1).isEmpty() ? 0 : match.captured(1).left(9).toLongLong();
    *fraction = match.captured(4);
    return hours * 3600000 + match.captured(2).toLongLong() * 60000 + match.captured(3).toLongLong() * 1000 +
           fraction->left(9).toLongLong() * 10;
}

QStringList splitFields(const QString& value, int count)
{
    QStringList fields;
    int from = 0;
    for (int k = 0; k + 1 < count; ++k) {
        const int comma = int(value.indexOf(QLatin1Char(','), from));
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

struct ScriptState
{
    QString section;
    QStringList styleFormat;
    bool ssaStyles = false;
};

void readStyle(const QString& value, int lineNumber, const ScriptState& state, WrittenFile& file)
{
    const QStringList fields = value.split(QLatin1Char(','));
    for (int f = 0; f < int(fields.size()); ++f) {
        if (!startsWithHex(fields[f]))
            continue;
        const QString name =
            f < int(state.styleFormat.size()) ? state.styleFormat[f] : QStringLiteral("field %1").arg(f + 1);
        file.hexValues.push_back(HexValue{lineNumber,
                                          QStringLiteral("Style %1, %2").arg(fields.value(0).trimmed(), name),
                                          fields[f].trimmed()});
    }
}

WrittenBlock readDialogue(const QString& value, int lineNumber, const ScriptState& state, WrittenFile& file)
{
    const bool ssa = state.ssaStyles || (file.scriptTypeFound && !file.scriptType.endsWith(QLatin1Char('+')));
    const QStringList format = file.eventFormatFound ? file.eventFormat : defaultEventFormat(ssa);
    const QStringList fields = splitFields(value, int(format.size()));
    const int startField = int(format.indexOf(QStringLiteral("start")));
    const int endField = int(format.indexOf(QStringLiteral("end")));
    const int textField = int(format.indexOf(QStringLiteral("text")));
    WrittenBlock block;
    block.line = lineNumber;
    block.sourceFound = true;
    block.dialogueValue = value;
    QString startFraction, endFraction;
    block.start = clockTime(fields.value(startField), &startFraction);
    block.end = clockTime(fields.value(endField), &endFraction);
    block.fractions = QStringList{startFraction, endFraction};
    const int before = textField >= 0 ? std::min(textField, int(fields.size())) : int(fields.size());
    for (int f = 0; f < before; ++f)
        block.fields << fields[f].trimmed();
    if (textField >= 0 && textField < int(fields.size()))
        block.rawLines = QStringList{fields[textField]};
    for (int f = 0; f < before; ++f) {
        if (f != startField && f != endField && startsWithHex(fields[f]))
            file.hexValues.push_back(HexValue{lineNumber, QStringLiteral("Dialogue, %1").arg(format.value(f)),
                                              fields[f].trimmed()});
    }
    return block;
}

} // namespace

std::vector<WrittenBlock> readScriptSource(const SourceLines& source, WrittenFile& file)
{
    std::vector<WrittenBlock> blocks;
    ScriptState state;
    const QStringList& lines = source.lines;
    for (int k = 0; k < int(lines.size()); ++k) {
        const QString line = lines[k].trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char(';')))
            continue;
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            state.section = line.toLower();
            state.ssaStyles = state.ssaStyles || state.section == QLatin1String("[v4 styles]");
            continue;
        }
        const int colon = int(line.indexOf(QLatin1Char(':')));
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
            if (state.section == QLatin1String("[events]")) {
                file.eventFormat = names;
                file.eventFormatFound = true;
            } else {
                state.styleFormat = names;
            }
        } else if (key == QLatin1String("style")) {
            readStyle(value, k + 1, state, file);
        } else if (key == QLatin1String("dialogue")) {
            WrittenBlock block = readDialogue(value, k + 1, state, file);
            block.position = source.offsets[size_t(k)];
            blocks.push_back(block);
        }
    }
    return blocks;
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

} // namespace zemsub::tool
