#ifndef ZEMSUB_READING_EVENTTEXT_H
#define ZEMSUB_READING_EVENTTEXT_H

#include <QString>

namespace zemsub::tool {

// The Text field of a decoded ASS event (ReadOrder,Layer,Style,Name,MarginL,
// MarginR,MarginV,Effect,Text): everything after the eighth comma.
QString eventTextField(const QString& event);

// What a player shows for an ASS Text field: override blocks removed (an
// unclosed one hides the rest), \N and \n as line breaks, \h as a no-break space.
QString shownText(const QString& textField);

} // namespace zemsub::tool

#endif
