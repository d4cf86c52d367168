#ifndef ZEMSUB_TOOL_TOLERANTREADER_H
#define ZEMSUB_TOOL_TOLERANTREADER_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

namespace zemsub::tool {

// A file read the way a tolerant modern player reads it: any line end, a
// byte-order mark of any kind, blocks split at blank lines (SubRip), Dialogue
// lines read by their Format line (ASS/SSA), tags removed, \N as a line break.
// lint compares this reading with what the library answers.

enum class WrittenKind {
    SubRip,
    Script,
    Unknown,
};

// One caption as written.
struct WrittenBlock
{
    int index = 0;       // 1-based, in file order
    int line = 0;        // 1-based line of its first line (number line or Dialogue line)
    long long start = 0; // milliseconds
    long long end = 0;
    QString text;         // what a player shows, lines joined by "\n"
    QStringList rawLines; // SubRip: the caption lines as written, trimmed; Script: the Text field
    // SubRip
    QString number;             // the number line as written ("" when the block has none)
    QString timeLine;           // the time line as written
    bool endedByBlanks = false; // the caption was ended by a line of blanks, not an empty line
    // Script
    QString dialogueValue; // the Dialogue line after "Dialogue:"
    QStringList fields;    // the fields before Text, by the Format line, trimmed
    QStringList fractions; // the fraction digits of the start and end times as written
};

// A value written "&h..." where the script reader reads numbers.
struct HexValue
{
    int line = 0;
    QString where; // "Style Default, field 4" or "PlayResX"
    QString value;
};

struct WrittenFile
{
    WrittenKind kind = WrittenKind::Unknown;
    QString encoding;      // "UTF-8", "Latin-1", "UTF-16LE", ...
    bool utf8Mark = false; // begins with EF BB BF
    bool ffFeMark = false; // begins with FF FE
    bool utf16 = false;    // UTF-16 text behind the mark
    bool crlf = false;     // a line ends in CR LF
    int lineCount = 0;
    std::vector<WrittenBlock> blocks;

    // Script
    bool scriptTypeFound = false; // a ScriptType line is present
    QString scriptType;           // its value, trimmed
    bool eventFormatFound = false;
    QStringList eventFormat; // field names, lower case
    bool wrapStyleTwo = false;
    std::vector<HexValue> hexValues;
};

// The kind by extension (srt; ass, ssa), else by content.
WrittenKind guessKind(const QString& extension, const QByteArray& bytes);

// Decodes and reads the bytes. Unknown kind gives no blocks.
WrittenFile readWritten(const QByteArray& bytes, WrittenKind kind);

// The default Format of a Dialogue line: ASS (Layer first) or SSA (Marked first).
QStringList defaultEventFormat(bool ssa);

// What a modern renderer shows for an ASS/SSA Text field.
QString scriptDisplayText(const QString& text, bool wrapStyleTwo);
// What a modern player shows for SubRip caption lines (markup removed, lines trimmed).
QString subRipDisplayText(const QStringList& lines);

} // namespace zemsub::tool

#endif
