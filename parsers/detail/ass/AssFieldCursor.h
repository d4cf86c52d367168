#ifndef ZEMSUB_PARSERS_DETAIL_ASS_ASSFIELDCURSOR_H
#define ZEMSUB_PARSERS_DETAIL_ASS_ASSFIELDCURSOR_H

// The field readers of the ASS/SSA parsers (AssFields.h) over a range of a
// stored line, without copying what remains after each field.
// Reference: the copying field readers of AssFields.h; differential test:
// tests/parsers/AssFastLinesTest.cpp.
//
// GetStr trims the remainder with xcString::TrimLeft, whose index advances
// after each removal: it removes the characters at 0, 2, 4, ... of the
// original text for as long as they are spaces, and so can take spaces from
// inside the text. Over a range that is only exact while it removes at most
// the first character; a cursor that would have to remove more, or is asked
// a field of an empty remainder (where the parsers differ), says so and the
// caller reads the line with the parser's own readers instead.

#include <cstddef>
#include <string>

#include "parsers/detail/ass/AssFields.h"
#include "parsers/detail/ass/AssTraits.h"

namespace zemsub::detail {

template <class T> class AssFieldCursor
{
public:
    using C = typename T::Char;

    AssFieldCursor(const C* begin, const C* end) : m_begin(begin), m_end(end) {}

    const C* begin() const { return m_begin; }
    const C* end() const { return m_end; }
    size_t size() const { return static_cast<size_t>(m_end - m_begin); }

    // xcString::TrimLeft; false, with nothing changed, when it would remove
    // more than the first character.
    bool trimLeft()
    {
        if (m_begin == m_end || *m_begin != C(' '))
            return true;
        if (size() >= 3 && m_begin[2] == C(' '))
            return false;
        ++m_begin;
        return true;
    }

    // xcString::TrimRight: every trailing space.
    void trimRight()
    {
        while (m_end != m_begin && m_end[-1] == C(' '))
            --m_end;
    }

    // GetStr(line, sep): the field is [fieldBegin, fieldEnd). Without sep the
    // field is the whole (trimmed) remainder, which stays. False when the
    // cursor cannot answer exactly (see above).
    bool cut(C sep, const C*& fieldBegin, const C*& fieldEnd)
    {
        if (!trimLeft() || m_begin == m_end)
            return false;
        const C* found = m_begin;
        while (found != m_end && *found != sep) // fields are short: no library call
            ++found;
        if (found == m_end)
            found = nullptr;
        fieldBegin = m_begin;
        fieldEnd = found ? found : m_end;
        if (found)
            m_begin = found + 1;
        return true;
    }

    // GetInt(line, sep).
    bool cutInt(C sep, int& value)
    {
        const C* b = nullptr;
        const C* e = nullptr;
        if (!cut(sep, b, e))
            return false;
        value = fieldInt(b, e);
        return true;
    }

    // intFromAssField of [b, e): a field that starts with one to nine decimal
    // digits reads as them ("%d" stops at the first other character, and
    // lower-casing changes no digit); any other goes through intFromAssField.
    static int fieldInt(const C* b, const C* e)
    {
        int value = 0;
        const C* p = b;
        while (p != e && p - b < 9 && isDigit(*p)) {
            value = value * 10 + static_cast<int>(*p - C('0'));
            ++p;
        }
        if (p != b && (p == e || !isDigit(*p)))
            return value;
        return intFromAssField<T>(typename T::String(b, static_cast<int>(e - b)));
    }

private:
    static bool isDigit(C c) { return c >= C('0') && c <= C('9'); }

    const C* m_begin;
    const C* m_end;
};

} // namespace zemsub::detail

#endif
