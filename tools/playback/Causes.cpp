// The words lint and fix give each cause: the library's behaviour, in its own terms.
#include "Causes.h"

#include "ReaderLimits.h"

namespace zemsub::tool {

namespace {

// The readers' latest time as h:mm:ss.mmm.
QString latestTimeText()
{
    const long long ms = readerLatestTime();
    return QStringLiteral("%1:%2:%3.%4")
        .arg(ms / 3600000)
        .arg(ms / 60000 % 60, 2, 10, QLatin1Char('0'))
        .arg(ms / 1000 % 60, 2, 10, QLatin1Char('0'))
        .arg(ms % 1000, 3, 10, QLatin1Char('0'));
}

} // namespace

Cause describeCause(CauseId id, const CauseContext& context)
{
    const bool script = context.script;
    const QString& format = context.formatTitle;
    switch (id) {
    case CauseId::Extension:
        return {id, QStringLiteral("extension"),
                QStringLiteral(
                    "the manager chooses a reader by the text after the last \".\" (srt, ass or ssa in any "
                    "case) and refuses every other file")};
    case CauseId::OpenRefused:
        return {
            id, QStringLiteral("open-refused"),
            QStringLiteral("the reader's Open answered false (a file of more than %1 lines does not open)")
                .arg(readerLineLimit(context.formatCode))};
    case CauseId::Utf16:
        return {id, QStringLiteral("utf16"),
                QStringLiteral(
                    "UTF-16 text that the C library cannot decode: the wide readers skip FF FE and leave "
                    "the rest to the C library's wide stream input under the process locale (%1), which "
                    "reads no UTF-16, so reading ends at the first zero character")
                    .arg(context.locale)};
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
    case CauseId::KeyZero:
        return {id, QStringLiteral("key-zero"),
                QStringLiteral(
                    "the entry numbered 0: the look-up tries keys 1 up to the number of entries minus one, "
                    "so the entry under key 0 is never answered (zemsub fix numbers the copy's entries "
                    "from 1)")};
    case CauseId::DigitLine:
        return {id, QStringLiteral("digit-line"),
                QStringLiteral(
                    "a caption line of digits: any all-digit line is taken as an entry number, also one "
                    "that stands where caption text is expected")};
    case CauseId::ArrowInText:
        return {id, QStringLiteral("arrow-in-text"),
                QStringLiteral(
                    "a caption line holding \"-->\" past its first character is taken as a time line, "
                    "also one that a player shows as text: the caption stops there and the lines behind it "
                    "take that line's times")};
    case CauseId::TimeLine:
        return {id, QStringLiteral("time-line"),
                script
                    ? QStringLiteral(
                          "a time that the reader reads otherwise than players: it cuts the fields at \":\", "
                          "\":\", \".\" and \",\" and reads each as a number, so a time written another way "
                          "puts an entry at a time players do not show it (zemsub fix writes every time "
                          "line plainly)")
                    : QStringLiteral(
                          "a time line that the reader reads otherwise than players: it cuts the fields at "
                          "\":\", \":\" and \",\" and reads each as a number, so a time without hours or "
                          "with other separators puts an entry at a time players do not show it (zemsub fix "
                          "writes every time line plainly)")};
    case CauseId::ZeroByte:
        return {
            id, QStringLiteral("zero-byte"),
            QStringLiteral("a zero byte: the reader's line ends at it, the rest of the line is read as a "
                           "line of its own, and a line that reads empty ends the file (zemsub fix writes "
                           "no zero bytes)")};
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
                QStringLiteral(
                    "a time fraction of more than three digits: milliseconds are read from the first three "
                    "digits only, so \",5000\" is 500 ms")};
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
    case CauseId::OtherFormat:
        return {id, QStringLiteral("other-format"),
                QStringLiteral(
                    "written as %1, which FFmpeg reads and the library does not: the manager picks the "
                    "SubRip or script reader by the extension alone, and that reader reads other lines")
                    .arg(format.isEmpty() ? QStringLiteral("another format") : format)};
    case CauseId::HexValue:
        return {id, QStringLiteral("amp-h"),
                QStringLiteral(
                    "values written \"&h...\" read as -1 (the style record and play size are kept as read "
                    "and not used for drawing)")};
    case CauseId::UnendedLastLine:
        return {id, QStringLiteral("unended-last-line"),
                QStringLiteral(
                    "a last line without a line feed: the reader drops the last line of a file that does "
                    "not end in a line feed, so the Dialogue line standing there is never stored, and the "
                    "Dialogue line before it becomes the last entry, which the look-up never answers "
                    "(zemsub fix ends every line of the copy with a line feed)")};
    case CauseId::Drawing:
        return {id, QStringLiteral("drawing"),
                QStringLiteral("drawing commands: the library draws text only, so a caption drawn as a shape "
                               "(\\p1) is not drawn")};
    case CauseId::Karaoke:
        return {
            id, QStringLiteral("karaoke"),
            QStringLiteral("karaoke timing: the library draws a caption whole, so syllables timed with \\k "
                           "are not highlighted in turn")};
    case CauseId::PositionsStyles:
        return {
            id, QStringLiteral("positions-styles"),
            QStringLiteral("positions and styles that the library does not draw: every caption is drawn in "
                           "the one font, colour and place the player sets")};
    case CauseId::Italics:
        return {id, QStringLiteral("italics"),
                QStringLiteral("drawn in italics on the picture: the library draws every caption in the one "
                               "style the player sets, so the copy shows these words upright")};
    case CauseId::TooLong:
        return {id, QStringLiteral("too-long"),
                QStringLiteral("a file too long for the %1-line limit: the reader's Open answers false for "
                               "a file of more than %1 lines")
                    .arg(readerLineLimit(context.formatCode))};
    case CauseId::TimeZero:
        return {id, QStringLiteral("time-zero"),
                QStringLiteral("time 0 shows nothing: the script look-up answers nothing at 0 ms")};
    case CauseId::TimePrecision:
        return {id, QStringLiteral("time-precision"),
                QStringLiteral("script times are read in hundredths of a second, so a time between two "
                               "hundredths cannot be written")};
    case CauseId::TimeRange:
        return {id, QStringLiteral("time-range"),
                QStringLiteral(
                    "a time outside 0:00:00.000 to %1: the readers compute times in 32-bit arithmetic, so "
                    "a later time wraps around and shows at another time or never, and no copy's time line "
                    "can carry it; zemsub fix keeps only the part of the caption inside that range")
                    .arg(latestTimeText())};
    case CauseId::Unexplained:
        return {id, QStringLiteral("unexplained"),
                QStringLiteral("none of the behaviours lint knows explains this difference")};
    }
    return {id, QString(), QString()};
}

} // namespace zemsub::tool
