#include "LintCauses.h"
#include "reading/Digits.h"

#include "playback/ReaderLimits.h"
#include "playback/TextForm.h"
#include "TagModel.h"
#include "reading/EventText.h"
#include "reading/SubRipSource.h"

#include <QRegularExpression>

#include <algorithm>
#include <set>
#include <utility>

namespace zemsub::tool {

namespace {

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

// A time the readers' 32-bit arithmetic cannot hold.
bool outsideReaderTimes(const WrittenBlock& block)
{
    return block.end > block.start &&
           (block.start > readerLatestTime() || block.end - 1 > readerLatestTime());
}

bool cacheHidAnswer(const WrittenBlock& block, int blockIndex, const std::vector<Probe>& probes)
{
    for (const Probe& probe : probes) {
        if (probe.block == blockIndex && probe.drawn.isNull() && !probe.answer.isEmpty() &&
            sameCaption(drawnText(probe.answer), block.text))
            return true;
    }
    return false;
}

// The block was asked at 0 and the library answered nothing there.
bool unansweredAtZero(int blockIndex, const std::vector<Probe>& probes)
{
    return std::any_of(probes.begin(), probes.end(), [blockIndex](const Probe& probe) {
        return probe.block == blockIndex && probe.time == 0 && probe.answer.isEmpty();
    });
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
    if (!isAllDigits(block.number))
        return true;
    for (const WrittenBlock& other : file.blocks) {
        if (other.index != block.index && other.number == block.number)
            return true;
    }
    if (file.unreadNumbers.contains(block.number))
        return true;
    return narrow && block.number.toLongLong() >= static_cast<long long>(library.stored.size());
}

// What the caption lines alone tell: the reader takes a line of digits for a
// number and a line holding an arrow for a time line, and gathers lines two apart.
void explainSubRipLines(const QStringList& lines, std::vector<CauseId>& causes)
{
    if (std::any_of(lines.begin(), lines.end(), isAllDigits))
        causes.push_back(CauseId::DigitLine);
    if (std::any_of(lines.begin(), lines.end(),
                    [](const QString& line) { return line.trimmed().indexOf(QLatin1String("-->")) >= 1; }))
        causes.push_back(CauseId::ArrowInText);
    if (lines.size() >= 3)
        causes.push_back(CauseId::ThreeLines);
}

// The caption's lines as FFmpeg gives them, trimmed.
QStringList eventLines(const WrittenBlock& block)
{
    QStringList lines = block.text.split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = line.trimmed();
    return lines;
}

void explainSubRip(const WrittenFile& file, const WrittenBlock& block, const LibrarySide& library,
                   std::vector<CauseId>& causes)
{
    const bool narrow = library.formatCode == CodeSubRip;
    if (narrow && file.utf8Mark && block.index == 1)
        causes.push_back(CauseId::Utf8Mark);
    if (narrow && library.stored.size() == 1) {
        causes.push_back(CauseId::OneEntry);
    } else if (narrow && isAllDigits(block.number) && block.number.toLongLong() == highestKey(library)) {
        causes.push_back(CauseId::LastEntry);
    } else if (narrow && isAllDigits(block.number) && block.number.toLongLong() == 0 &&
               !numberOutOfLine(file, block, library, narrow)) {
        causes.push_back(CauseId::KeyZero);
    } else if (numberOutOfLine(file, block, library, narrow) &&
               !(narrow && file.utf8Mark && block.index == 1)) {
        causes.push_back(CauseId::Numbering);
    }
    // FFmpeg may run a caption on past a blank line where the next time line is broken.
    const QStringList shown = eventLines(block);
    explainSubRipLines(shown.size() > block.rawLines.size() ? shown : block.rawLines, causes);
    if (narrow && arrowWithoutBlank(block.timeLine))
        causes.push_back(CauseId::ArrowBlank);
    // FFmpeg reads every fraction digit as milliseconds, the reader the first three.
    if (std::any_of(block.fractions.begin(), block.fractions.end(),
                    [](const QString& f) { return f.size() > 3; }))
        causes.push_back(CauseId::Fraction);
    if (block.endedByBlanks)
        causes.push_back(CauseId::BlankLine);
    if (withoutSubRipMarkup(block.rawLines) != block.rawLines.join(QLatin1Char('\n')))
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

// A script's text is shown as written by players, SubRip-like formatting
// (<i>, <u>, ...) included; the reader removes every pair.
bool anglePair(const QString& text)
{
    static const QRegularExpression pair(QStringLiteral("<[^>]*>"));
    return pair.match(text).hasMatch();
}

// The narrow script reader drops the last line of a file that does not end in
// a line feed. When FFmpeg reads a Dialogue there, the reader stores one
// Dialogue line fewer, and the one before becomes its last entry, never
// answered. The captions (1-based) of the line dropped and of the entry left
// last; 0 for none.
struct UnendedLastLine
{
    int dropped = 0;
    int keptLast = 0;
};

UnendedLastLine unendedLastLine(const WrittenFile& file, const LibrarySide& library)
{
    UnendedLastLine found;
    if (file.kind != WrittenKind::Script || !file.unendedLastLine || file.zeroBytes ||
        library.formatCode != CodeScript || !library.opened)
        return found;
    // The blocks stand in file order, those found on their lines first.
    const auto onItsLine = [](const WrittenBlock& block) { return block.sourceFound; };
    const auto last = std::find_if(file.blocks.rbegin(), file.blocks.rend(), onItsLine);
    if (last == file.blocks.rend() || last->line != file.lineCount)
        return found;
    found.dropped = last->index;
    const auto before = std::find_if(std::next(last), file.blocks.rend(), onItsLine);
    if (before != file.blocks.rend())
        found.keptLast = before->index;
    return found;
}

void explainScript(const WrittenFile& file, const WrittenBlock& block, const LibrarySide& library,
                   std::vector<CauseId>& causes)
{
    const UnendedLastLine unended = unendedLastLine(file, library);
    if (block.index == unended.dropped || block.index == unended.keptLast)
        causes.push_back(CauseId::UnendedLastLine);
    else if (library.stored.size() == 1)
        causes.push_back(CauseId::OneEntry);
    else if (block.index == int(file.blocks.size()))
        causes.push_back(CauseId::LastEntry);

    const QString firstField = block.fields.value(0).trimmed();
    if (!readsScriptWay(file) && !file.crlf && block.dialogueValue.contains(QLatin1Char('=')) &&
        !firstField.startsWith(QLatin1String("marked="), Qt::CaseInsensitive))
        causes.push_back(CauseId::NoScriptType);

    // The Text field by the Format line, else FFmpeg's (a later Format line may lack it).
    const QString raw = block.rawLines.isEmpty() ? eventTextField(block.event) : block.rawLines.value(0);
    const TagPassResult tags = modelTagPasses(raw);
    if (tags.repeated)
        causes.push_back(CauseId::TagRepeat);
    else if (tags.usedOldTail)
        causes.push_back(CauseId::TagTail);
    else if (unclosedBrace(raw))
        causes.push_back(CauseId::UnclosedTag);
    QString outsideBraces = raw;
    outsideBraces.remove(QRegularExpression(QStringLiteral("\\{[^}]*\\}")));
    if (anglePair(outsideBraces))
        causes.push_back(CauseId::AnglePair);
    if (tags.breaksLeft > 0)
        causes.push_back(CauseId::LineBreaks);
    if (tags.visible.contains(QLatin1String("\\n")) || tags.visible.contains(QLatin1String("\\h")))
        causes.push_back(CauseId::Escapes);
}

// The block's number is also a line of digits inside another caption, which
// the reader takes for the same entry number.
bool numberStandsInACaption(const WrittenFile& file, const WrittenBlock& block)
{
    if (!isAllDigits(block.number))
        return false;
    for (const WrittenBlock& other : file.blocks) {
        if (other.index != block.index && eventLines(other).contains(block.number))
            return true;
    }
    return false;
}

// The reader's times of an entry over one of the block's probes, or of the
// block itself, that no caption has as written: a time line read otherwise.
bool timesReadOtherwise(const WrittenFile& file, int blockIndex, const LibrarySide& library,
                        const std::vector<Probe>& probes)
{
    if (file.kind != WrittenKind::SubRip && file.kind != WrittenKind::Script)
        return false;
    std::set<std::pair<long long, long long>> written;
    for (const WrittenBlock& block : file.blocks)
        written.insert({block.start, block.end});
    const WrittenBlock& block = file.blocks[size_t(blockIndex)];
    bool ownTimesStored = false;
    for (const StoredEntry& entry : library.stored)
        ownTimesStored = ownTimesStored || (entry.start == block.start && entry.end == block.end);
    if (!ownTimesStored)
        return true;
    for (const Probe& probe : probes) {
        if (probe.block != blockIndex || probe.asWritten)
            continue;
        for (const StoredEntry& entry : library.stored) {
            if (entry.start <= probe.time && probe.time <= entry.end &&
                !written.count({entry.start, entry.end}))
                return true;
        }
    }
    return false;
}

} // namespace

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

    // What the file's lines tell, when FFmpeg's event was found on them.
    if (file.kind == WrittenKind::SubRip && block.sourceFound)
        explainSubRip(file, block, library, causes);
    else if (file.kind == WrittenKind::SubRip)
        explainSubRipLines(eventLines(block), causes);
    else if (file.kind == WrittenKind::Script && block.sourceFound)
        explainScript(file, block, library, causes);
    else if (file.kind == WrittenKind::Other)
        causes.push_back(CauseId::OtherFormat);

    if (library.formatCode == CodeScript && unansweredAtZero(blockIndex, probes))
        causes.push_back(CauseId::TimeZero);
    if (outsideReaderTimes(block))
        causes.push_back(CauseId::TimeRange);
    if (overlapsEarlier(file, block))
        causes.push_back(CauseId::Overlap);
    if (cacheHidAnswer(block, blockIndex, probes))
        causes.push_back(CauseId::RepeatAfterGap);
    if (!library.wide && !file.utf16 && file.encoding != QLatin1String("UTF-8") && hasNonAscii(block.text))
        causes.push_back(CauseId::Encoding);
    // Last resorts, looked for only when nothing above applies.
    if (causes.empty() && file.kind == WrittenKind::SubRip && numberStandsInACaption(file, block))
        causes.push_back(CauseId::Numbering);
    if (causes.empty() && timesReadOtherwise(file, blockIndex, library, probes))
        causes.push_back(CauseId::TimeLine);
    if (causes.empty() && file.zeroBytes)
        causes.push_back(CauseId::ZeroByte);
    if (causes.empty())
        causes.push_back(CauseId::Unexplained);
    return causes;
}

CauseContext causeContext(const WrittenFile& file, const LibrarySide& library)
{
    return CauseContext{file.kind == WrittenKind::Script, file.formatTitle, library.formatCode, library.locale};
}

} // namespace zemsub::tool
