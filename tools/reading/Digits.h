#ifndef ZEMSUB_READING_DIGITS_H
#define ZEMSUB_READING_DIGITS_H

#include <QString>

namespace zemsub::tool {

// A line the SubRip reader takes for an entry number: one or more ASCII digits and nothing else.
inline bool isAllDigits(const QString& text)
{
    if (text.isEmpty())
        return false;
    for (QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    }
    return true;
}

} // namespace zemsub::tool

#endif
