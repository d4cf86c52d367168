#ifndef ZEMSUB_READING_STYLEDTEXT_H
#define ZEMSUB_READING_STYLEDTEXT_H

#include <QString>
#include <vector>

namespace zemsub::tool {

// A stretch of caption text drawn upright or in italics.
struct TextRun
{
    QString text; // may hold "\n" between lines
    bool italic = false;
};

// A caption's text as a player draws it: its runs and its place.
struct StyledText
{
    std::vector<TextRun> runs;
    int alignment = 2; // as a numeric keypad: 1-3 bottom, 4-6 middle, 7-9 top
};

// What a player draws of an ASS Text field: the text as shownText gives it, in
// runs switched by \i1 and \i0 (or \i), placed by \anN or the legacy \aN; other
// override tags are not drawn here.
StyledText styledText(const QString& textField);

// Runs as one text with open and close around the italic ones ("<i>", "</i>"
// for SubRip and WebVTT, "{\i1}", "{\i0}" for ASS), every line closed at its
// end and opened again on the next.
QString markedText(const std::vector<TextRun>& runs, const QString& open, const QString& close);

// The runs' text alone.
QString plainText(const std::vector<TextRun>& runs);

} // namespace zemsub::tool

#endif
