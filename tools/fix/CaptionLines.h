#ifndef ZEMSUBFIX_CAPTIONLINES_H
#define ZEMSUBFIX_CAPTIONLINES_H

#include <QString>
#include <QStringList>

namespace zemsubfix {

// U+2060 WORD JOINER: draws nothing, and keeps a line from reading as what it is not.
constexpr char16_t kJoiner = 0x2060;
// U+2028 LINE SEPARATOR: the library's painter breaks the line there.
constexpr char16_t kLineSeparator = 0x2028;

// One caption line as a SubRip copy writes it: no line of digits (an entry
// number), no arrow (a time line), no markup a reader would remove, never empty.
QString subRipLine(const QString& line);

// A caption's lines as a script's Text field writes them: the first break as
// \N, the others as line separators; no escapes the reader would turn into
// breaks; empty lines kept.
QString scriptText(const QStringList& lines);

// The lines with the invisible mark that makes a repeat differ from the text before it.
QStringList markedAsRepeat(QStringList lines);

// What the library's text shows, marks aside: joiners dropped, line separators as line feeds.
QString withoutMarks(const QString& text);

} // namespace zemsubfix

#endif
