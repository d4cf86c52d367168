#ifndef ZEMSUB_PLAYBACK_CAUSES_H
#define ZEMSUB_PLAYBACK_CAUSES_H

#include <QString>

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

// What the words of a cause name: the file's kind and format, and the library's side.
struct CauseContext
{
    bool script = false;     // an ASS/SSA script (else SubRip or other text)
    QString formatTitle;     // FFmpeg's name of the file's format
    int formatCode = 0;      // the manager's format code for the file
    QString locale;          // the character-type locale the wide readers decode under
};

// The behaviour behind id, in the library's own words; the same for lint and fix.
Cause describeCause(CauseId id, const CauseContext& context);

} // namespace zemsub::tool

#endif
