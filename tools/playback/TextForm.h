#ifndef ZEMSUB_TOOL_TEXTFORM_H
#define ZEMSUB_TOOL_TEXTFORM_H

#include <QString>

namespace zemsub::tool {

// Caption text as a player receives it: narrow text through the local 8-bit
// codec, wide text from the platform's wchar_t; null stays null.
QString fromNarrow(const char* text);
QString fromWide(const wchar_t* text);

// One line of text for the terminal: line feed as \n, carriage return as \r,
// tab as \t, other control characters as \xNN.
QString escaped(const QString& text);

// The text a player draws: the caption image drops one leading line feed.
QString drawnText(const QString& libraryText);

} // namespace zemsub::tool

#endif
