#include "LintCauses.h"

#include "TagModel.h"

#include <QRegularExpression>

#include <algorithm>

namespace zemsub::tool {

namespace {

bool isDigits(const QString& text)
{
    if (text.isEmpty())
        return false;
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
}

bool hasNonAscii(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0x7F; });
}

bool overlapsEarlier(const WrittenFile& file, const WrittenBlock& block)
{
    for (const WrittenBlock& other : file.blocks) {
        if (other.index >= block.index)
            break;
        if (other.start < block.end && block.start < other.end)
            return true;
    }
    return false;
}

bool cacheHidAnswer(const WrittenBlock& block, int blockIndex, const std::vector<Probe>& probes)
{
    for (const Probe& probe : probes) {
        if (probe.block == blockIndex && probe.drawn.isNull() && !probe.answer.isEmpty() &&
            sameCaption(probe.answer.startsWith(QLatin1Char('\n')) ? probe.answer.mid(1) : probe.answer,
                        block.text))
            return true;
    }
    return false;
}

// SubRip ------------------------------------------------------------------

bool arrowWithoutBlank(const QString& timeLine)
{
    const int arrow = int(timeLine.indexOf(QLatin1String("-->")));
    if (arrow < 0 || arrow + 3 >= int(timeLine.size()))
        return false;
    const QChar behind = timeLine[arrow + 3];
    return behind != QLatin1Char(' ') && behind != QLatin1Char('\t');
}

int highestKey(const LibrarySide& library)
{
    int highest = -1;
    for (const StoredEntry& entry : library.stored)
        highest = std::max(highest, entry.key);
    return highest;
}

bool numberOutOfLine(const WrittenFile& file, const WrittenBlock& block, const LibrarySide& library,
                     bool narrow)
{
    if (!isDigits(block.number))
        return true;
    for (const WrittenBlock& other : file.blocks) {
        if (other.index != block.index && other.number == block.number)
            return true;
    }
    return narrow && block.number.toLongLong() >= static_cast<long long>(library.stored.size());
}

void explainSubRip(const WrittenFile& file, const WrittenBlock& block, const LibrarySide& library,
                   std::vector<CauseId>& causes)
{
    const bool narrow = library.formatCode == CodeSubRip;
    if (narrow && file.utf8Mark && block.index == 1)
        causes.push_back(CauseId::Utf8Mark);
    if (narrow && library.stored.size() == 1) {
        causes.push_back(CauseId::OneEntry);
    } else if (narrow && isDigits(block.number) && block.number.toLongLong() == highestKey(library)) {
        causes.push_back(CauseId::LastEntry);
    } else if (numberOutOfLine(file, block, library, narrow) &&
               !(narrow && file.utf8Mark && block.index == 1)) {
        causes.push_back(CauseId::Numbering);
    }
    if (std::any_of(block.rawLines.begin(), block.rawLines.end(), isDigits))
        causes.push_back(CauseId::DigitLine);
    if (block.rawLines.size() >= 3)
        causes.push_back(CauseId::ThreeLines);
    if (narrow && arrowWithoutBlank(block.timeLine))
        causes.push_back(CauseId::ArrowBlank);
    if (std::any_of(block.fractions.begin(), block.fractions.end(),
                    [](const QString& f) { return f.size() != 3; }))
        causes.push_back(CauseId::Fraction);
    if (block.endedByBlanks)
        causes.push_back(CauseId::BlankLine);
    if (subRipDisplayText(block.rawLines) != block.rawLines.join(QLatin1Char('\n')))
        causes.push_back(CauseId::Markup);
}

// ASS/SSA -----------------------------------------------------------------

// The reader reads Dialogue lines the ASS way only when the ScriptType value
// ends in "4.00+" exactly (a carriage return behind it spoils that).
bool readsScriptWay(const WrittenFile& file)
{
    return file.scriptTypeFound && !file.crlf && file.scriptType.endsWith(QLatin1String("4.00+"));
}

bool unclosedBrace(const QString& text)
{
    const int open = int(text.lastIndexOf(QLatin1Char('{')));
    return open >= 0 && text.indexOf(QLatin1Char('}'), open) < 0;
}

bool foreignAnglePair(const QString& text)
{
    static const QRegularExpression formatting(QStringLiteral("^</?(?:i|b|u|s|font(?:\\s[^>]*)?)>$"),
                                               QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression pair(QStringLiteral("<[^>]*>"));
    QRegularExpressionMatchIterator it = pair.globalMatch(text);
    while (it.hasNext()) {
        if (!formatting.match(it.next().captured(0)).hasMatch())
            return true;
    }
    return false;
}

void explainScript(const WrittenFile& file, const WrittenBlock& block, const LibrarySide& library,
                   std::vector<CauseId>& causes)
{
    if (library.stored.size() == 1)
        causes.push_back(CauseId::OneEntry);
    else if (block.index == int(file.blocks.size()))
        causes.push_back(CauseId::LastEntry);

    const QString firstField = block.fields.value(0).trimmed();
    if (!readsScriptWay(file) && !file.crlf && block.dialogueValue.contains(QLatin1Char('=')) &&
        !firstField.startsWith(QLatin1String("marked="), Qt::CaseInsensitive))
        causes.push_back(CauseId::NoScriptType);

    const QString raw = block.rawLines.value(0);
    const TagPassResult tags = modelTagPasses(raw);
    if (tags.repeated)
        causes.push_back(CauseId::TagRepeat);
    else if (tags.usedOldTail)
        causes.push_back(CauseId::TagTail);
    else if (unclosedBrace(raw))
        causes.push_back(CauseId::UnclosedTag);
    QString outsideBraces = raw;
    outsideBraces.remove(QRegularExpression(QStringLiteral("\\{[^}]*\\}")));
    if (foreignAnglePair(outsideBraces))
        causes.push_back(CauseId::AnglePair);
    if (tags.breaksLeft > 0)
        causes.push_back(CauseId::LineBreaks);
    if (tags.visible.contains(QLatin1String("\\n")) || tags.visible.contains(QLatin1String("\\h")))
        causes.push_back(CauseId::Escapes);
    if (std::any_of(block.fractions.begin(), block.fractions.end(),
                    [](const QString& f) { return f.size() != 2; }))
        causes.push_back(CauseId::Fraction);

    // The fixed order reads the times and the text where the Format line puts them,
    // unless it moves them (the other fields do not change what is drawn).
    if (file.eventFormatFound) {
        const QStringList standard = defaultEventFormat(false);
        const QStringList& format = file.eventFormat;
        if (format.size() != standard.size() || format.indexOf(QStringLiteral("start")) != 1 ||
            format.indexOf(QStringLiteral("end")) != 2 || format.indexOf(QStringLiteral("text")) != 9)
            causes.push_back(CauseId::FormatOrder);
    }
}

} // namespace

Cause describeCause(CauseId id, WrittenKind kind, const LibrarySide& library)
{
    const bool script = kind == WrittenKind::Script;
    switch (id) {
    case CauseId::Extension:
        return {id, QStringLiteral("extension"),
                QStringLiteral(
                    "the manager chooses a reader by the text after the last \".\" (srt, ass or ssa in any "
                    "case) and refuses every other file")};
    case CauseId::OpenRefused:
        return {id, QStringLiteral("open-refused"),
                QStringLiteral(
                    "the reader's Open answered false (a file of more than 20000 lines does not open)")};
    case CauseId::Utf16:
        return {id, QStringLiteral("utf16"),
                QStringLiteral(
                    "UTF-16 text that the C library cannot decode: the wide readers skip FF FE and leave "
                    "the rest to the C library's wide stream input under the process locale (%1), which "
                    "reads no UTF-16, so reading ends at the first zero character")
                    .arg(library.locale)};
    case CauseId::CrLf:
        return {id, QStringLiteral("crlf"),
                script ? QStringLiteral(
                             "CR LF line ends: the carriage return stays on every line (only spaces are "
                             "trimmed), so section names and ScriptType go unrecognised (Dialogue lines are "
                             "read the SSA way) and every caption keeps a carriage return at its end")
                       : QStringLiteral(
                             "CR LF line ends: the carriage return stays on every line (only spaces are "
                             "trimmed), so number lines stop being numbers and the captions run together "
                             "under one entry")};
    case CauseId::Utf8Mark:
        return {id, QStringLiteral("utf8-mark"),
                QStringLiteral(
                    "a UTF-8 mark glued to the first number: that line is no longer all digits, so the "
                    "first caption is stored under entry 0, which the look-up never tries")};
    case CauseId::OneEntry:
        return {id, QStringLiteral("one-entry"),
                script ? QStringLiteral(
                             "a script of one Dialogue line: the look-up needs at least two entries and "
                             "never shows anything")
                       : QStringLiteral(
                             "a file of one entry: the look-up needs at least two entries and never shows "
                             "anything")};
    case CauseId::LastEntry:
        return {id, QStringLiteral("last-entry"),
                script ? QStringLiteral(
                             "the last Dialogue line: the look-up tries keys 1 up to the number of entries "
                             "minus one, so the last entry is never answered")
                       : QStringLiteral(
                             "the last entry: the look-up tries keys 1 up to the number of entries minus "
                             "one, so the entry with the highest number is never answered")};
    case CauseId::Numbering:
        return {id, QStringLiteral("numbering"),
                QStringLiteral(
                    "entry numbers out of line: entries are keyed by the number as written, blocks with the "
                    "same number are merged, and the look-up only tries keys 1 up to the number of entries "
                    "minus one")};
    case CauseId::DigitLine:
        return {id, QStringLiteral("digit-line"),
                QStringLiteral(
                    "a caption line of digits: any all-digit line is taken as an entry number, also one "
                    "that stands where caption text is expected")};
    case CauseId::ThreeLines:
        return {id, QStringLiteral("three-lines"),
                QStringLiteral(
                    "a caption of three or more lines: caption lines are gathered two lines apart, so the "
                    "lines A, B, C are stored as \"AC\", \"B\", \"C\"")};
    case CauseId::ArrowBlank:
        return {id, QStringLiteral("arrow-blank"),
                QStringLiteral(
                    "an arrow without a blank behind it: the arrow is skipped together with the character "
                    "behind it, so the end time loses its first digit")};
    case CauseId::Fraction:
        return {id, QStringLiteral("fraction"),
                script ? QStringLiteral(
                             "a time fraction that is not two digits: it is read as hundredths as written, "
                             "so \".500\" is 500 hundredths")
                       : QStringLiteral(
                             "a time fraction that is not three digits: milliseconds are read as written, "
                             "not scaled, so \",5\" is 5 ms")};
    case CauseId::BlankLine:
        return {id, QStringLiteral("blank-line"),
                QStringLiteral(
                    "a line of blanks is not an empty line: it stays in the line list, trims to nothing "
                    "and adds a lone line feed, and the lines around it run on into the same entry")};
    case CauseId::Markup:
        return {id, QStringLiteral("markup"),
                QStringLiteral("SubRip markup is drawn as written: the SubRip reader removes no tags")};
    case CauseId::NoScriptType:
        return {id, QStringLiteral("no-scripttype"),
                QStringLiteral(
                    "a script without \"ScriptType: v4.00+\" is read the SSA way: a Marked field is "
                    "expected, and its search for \"=\" runs over the whole line, so a Dialogue line that "
                    "holds \"=\" loses everything up to it")};
    case CauseId::TagRepeat:
        return {id, QStringLiteral("tag-repeat"),
                QStringLiteral(
                    "tag text that stops at a repeated state: a removed block leaves the old tail behind "
                    "the end of the text, an unclosed brace pairs with a closing one there, and the pass "
                    "ends when it comes back to a state it was in, leaving the text as it stands then")};
    case CauseId::TagTail:
        return {id, QStringLiteral("tag-tail"),
                QStringLiteral(
                    "tag text that reaches into the old tail: a removed block leaves the old tail behind "
                    "the end of the text, and an unclosed brace pairs with a closing one there")};
    case CauseId::UnclosedTag:
        return {id, QStringLiteral("unclosed-tag"),
                QStringLiteral(
                    "an opening brace without a closing one after it ends the pass: the rest of the text "
                    "is kept as written")};
    case CauseId::AnglePair:
        return {id, QStringLiteral("angle-pair"),
                QStringLiteral("text between \"<\" and \">\" is removed as a tag, whatever it holds")};
    case CauseId::LineBreaks:
        return {id, QStringLiteral("line-breaks"),
                QStringLiteral(
                    "only the first \\N of a caption becomes a line feed (a further one only while the one "
                    "before stood at the very start); the others are drawn as written")};
    case CauseId::Escapes:
        return {id, QStringLiteral("escapes"),
                QStringLiteral("\\n and \\h are drawn as written: only \\N is turned into a line feed")};
    case CauseId::FormatOrder:
        return {id, QStringLiteral("format-order"),
                QStringLiteral(
                    "the Format line is not read: Dialogue fields are taken in the fixed order Layer (or "
                    "Marked), Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text")};
    case CauseId::Overlap:
        return {id, QStringLiteral("overlap"),
                QStringLiteral(
                    "overlapping captions: the first entry that matches the time wins and the other is not "
                    "shown with it")};
    case CauseId::RepeatAfterGap:
        return {id, QStringLiteral("repeat-after-gap"),
                QStringLiteral(
                    "a caption whose text equals the text shown before a gap is not drawn again: the gap "
                    "clears the caption image but keeps the last text")};
    case CauseId::Encoding:
        return {id, QStringLiteral("encoding"),
                QStringLiteral(
                    "narrow captions are decoded with the system's local 8-bit codec, not as the file's "
                    "own encoding")};
    case CauseId::HexValue:
        return {id, QStringLiteral("amp-h"),
                QStringLiteral(
                    "values written \"&h...\" read as -1 (the style record and play size are kept as read "
                    "and not used for drawing)")};
    case CauseId::Unexplained:
        return {id, QStringLiteral("unexplained"),
                QStringLiteral("none of the behaviours lint knows explains this difference")};
    }
    return {id, QString(), QString()};
}

std::vector<CauseId> explainBlock(const WrittenFile& file, int blockIndex, const LibrarySide& library,
                                  const std::vector<Probe>& probes)
{
    const WrittenBlock& block = file.blocks[size_t(blockIndex)];
    std::vector<CauseId> causes;
    if (library.formatCode == CodeNone)
        return {CauseId::Extension};
    if (!library.opened)
        return {CauseId::OpenRefused};
    if (library.wide && file.utf16)
        return {CauseId::Utf16};
    if (file.crlf)
        causes.push_back(CauseId::CrLf);

    if (file.kind == WrittenKind::SubRip)
        explainSubRip(file, block, library, causes);
    else
        explainScript(file, block, library, causes);

    if (overlapsEarlier(file, block))
        causes.push_back(CauseId::Overlap);
    if (cacheHidAnswer(block, blockIndex, probes))
        causes.push_back(CauseId::RepeatAfterGap);
    if (!library.wide && file.encoding == QLatin1String("Latin-1") && hasNonAscii(block.text))
        causes.push_back(CauseId::Encoding);
    if (causes.empty())
        causes.push_back(CauseId::Unexplained);
    return causes;
}

} // namespace zemsub::tool
