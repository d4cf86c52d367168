#ifndef ZEMSUB_TOOL_LINTCAUSES_H
#define ZEMSUB_TOOL_LINTCAUSES_H

#include "LintProbe.h"
#include "reading/WrittenFile.h"
#include "zemsub/frames/LibraryView.h"

#include <QString>
#include <vector>

namespace zemsub::tool {

// The library behaviours that make a caption show differently from the file.
enum class CauseId {
    Extension,
    OpenRefused,
    Utf16,
    CrLf,
    Utf8Mark,
    OneEntry,
    LastEntry,
    Numbering,
    KeyZero,
    DigitLine,
    ArrowInText,
    TimeLine,
    ZeroByte,
    ThreeLines,
    ArrowBlank,
    Fraction,
    BlankLine,
    Markup,
    NoScriptType,
    TagRepeat,
    TagTail,
    UnclosedTag,
    AnglePair,
    LineBreaks,
    Escapes,
    Overlap,
    RepeatAfterGap,
    Encoding,
    OtherFormat,
    HexValue,
    UnendedLastLine,
    // What no copy can make the library show.
    Drawing,
    Karaoke,
    PositionsStyles,
    Italics,
    TooLong,
    TimeZero,
    TimePrecision,
    TimeRange,
    Unexplained,
};

struct Cause
{
    CauseId id;
    QString code; // stable name for JSON and tests
    QString text; // the behaviour, in the library's own words
};

// What lint knows of the library's side of the file.
struct LibrarySide
{
    int formatCode = CodeNone;
    bool opened = false;
    bool wide = false;
    std::vector<StoredEntry> stored; // the map right after Open
    QString locale;                  // the character-type locale the wide readers decode under
};

Cause describeCause(CauseId id, const WrittenFile& file, const LibrarySide& library);

// The behaviours behind a block that does not show as written. Never empty:
// Unexplained when nothing known applies.
std::vector<CauseId> explainBlock(const WrittenFile& file, int blockIndex, const LibrarySide& library,
                                  const std::vector<Probe>& probes);

} // namespace zemsub::tool

#endif
