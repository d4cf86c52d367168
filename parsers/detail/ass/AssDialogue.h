#ifndef ZEMSUB_PARSERS_DETAIL_ASS_ASSDIALOGUE_H
#define ZEMSUB_PARSERS_DETAIL_ASS_ASSDIALOGUE_H

// One Dialogue line (what follows "Dialogue:") into one entry.

#include <cstdint>
#include <map>
#include <string>

#include "parsers/detail/ass/AssFieldCursor.h"
#include "parsers/detail/ass/AssTraits.h"
#include "parsers/detail/ass/SsaTags.h"

namespace zemsub::detail {

// h:mm:ss.hh, read as four integer fields; milliseconds computed in 32-bit
// signed (wrapping) arithmetic and widened. Three fraction digits are read as
// hundredths: ".500" is 5000 ms.
inline long long assTimeMs(int hours, int minutes, int seconds, int hundredths)
{
    const std::uint32_t ms =
        ((static_cast<std::uint32_t>(hours) * 60u + static_cast<std::uint32_t>(minutes)) * 60u +
         static_cast<std::uint32_t>(seconds)) *
            1000u +
        static_cast<std::uint32_t>(hundredths) * 10u;
    return static_cast<long long>(static_cast<std::int32_t>(ms));
}

template <class T, class P> long long readAssTime(P& parser, typename T::String& rest)
{
    using C = typename T::Char;
    const int hours = parser.GetInt(rest, C(':'));
    const int minutes = parser.GetInt(rest, C(':'));
    const int seconds = parser.GetInt(rest, C('.'));
    const int hundredths = parser.GetInt(rest, C(','));
    return assTimeMs(hours, minutes, seconds, hundredths);
}

// Reads the fields in their fixed order, whatever the Format line says:
// [Marked=..,] or Layer, Start, End, Style, Name, three margins, Effect, Text.
// In the SSA event mode (eventMode 4 or below) the "=" of the Marked field is
// searched over the whole rest. strip is the parser's RemoveSSATags. Every
// field is read before the entry with `key` is made.
template <class T, class P, class Strip>
void readAssDialogue(P& parser, typename T::String& rest, int eventMode, int key,
                     std::map<int, typename T::Entry>& entries, Strip& strip)
{
    using C = typename T::Char;
    using S = typename T::String;
    const C comma = C(',');

    int layer = 0;
    if (eventMode > 4) {
        layer = parser.GetInt(rest, comma);
    } else {
        parser.GetStr(rest, C('='));
        parser.GetInt(rest, comma);
    }
    const long long start = readAssTime<T>(parser, rest);
    const long long end = readAssTime<T>(parser, rest);
    S style = parser.GetStr(rest, comma);
    const S name = parser.GetStr(rest, comma);
    for (int margin = 0; margin < 3; ++margin)
        parser.GetInt(rest, comma);
    S effect = parser.GetStr(rest, comma);
    S text = rest;

    // Without a comma left for the Effect, GetStr handed out the text itself
    // (without consuming it): drop that copy.
    const int n = text.length() < effect.length() ? text.length() : effect.length();
    if (text.Left(n) == effect.Left(n))
        effect.clear();

    // A leading star (the SSA "*Default") goes; the "Default" assignment is
    // exact (CompareNoCase is case-sensitive) and so never changes the value.
    style.TrimLeft(C('*'));
    if (style.CompareNoCase(ZEMSUB_LIT(C, "Default")) == 0)
        style = ZEMSUB_LIT(C, "Default");

    typename T::Entry& entry = entries[key];
    entry.layer = layer;
    entry.style = style;
    entry.name = name;
    entry.effect = effect;
    entry.start = start;
    entry.end = end;
    entry.text += ZEMSUB_LIT(C, "\n");
    entry.text += strip(text);
}

// What readAssDialogue reads and makes of the rest of a stored line, read
// through a cursor instead of the parser's field readers, with the caption
// cleaned by the code RemoveSSATags runs (into `cleaned`, with `buffers`, both
// kept between lines). False, with nothing changed, when the cursor cannot
// read the line exactly; the caller then reads it with readAssDialogue.
template <class T>
bool readAssDialogueFast(AssFieldCursor<T> rest, int eventMode, int key,
                         std::map<int, typename T::Entry>& entries, TagPassBuffers<typename T::Char>& buffers,
                         std::basic_string<typename T::Char>& cleaned)
{
    using C = typename T::Char;
    using S = typename T::String;
    const C comma = C(',');
    const C* b = nullptr;
    const C* e = nullptr;

    int layer = 0;
    int unused = 0;
    if (eventMode > 4) {
        if (!rest.cutInt(comma, layer))
            return false;
    } else if (!rest.cut(C('='), b, e) || !rest.cutInt(comma, unused)) {
        return false;
    }
    static const C timeSeparators[4] = {C(':'), C(':'), C('.'), comma};
    int time[8];
    for (int k = 0; k < 8; ++k) {
        if (!rest.cutInt(timeSeparators[k % 4], time[k]))
            return false;
    }
    if (!rest.cut(comma, b, e))
        return false;
    S style(b, static_cast<int>(e - b));
    if (!rest.cut(comma, b, e))
        return false;
    const S name(b, static_cast<int>(e - b));
    for (int margin = 0; margin < 3; ++margin) {
        if (!rest.cutInt(comma, unused))
            return false;
    }
    if (!rest.cut(comma, b, e))
        return false;
    const C* const text = rest.begin();
    const size_t textLength = rest.size();

    const size_t n = textLength < static_cast<size_t>(e - b) ? textLength : static_cast<size_t>(e - b);
    const S effect = std::char_traits<C>::compare(text, b, n) == 0 ? S() : S(b, static_cast<int>(e - b));

    style.TrimLeft(C('*'));
    if (style.CompareNoCase(ZEMSUB_LIT(C, "Default")) == 0)
        style = ZEMSUB_LIT(C, "Default");

    static const std::basic_string<C> hardBreak(ZEMSUB_LIT(C, "\\N"));
    static const std::basic_string<C> lineFeed(ZEMSUB_LIT(C, "\n"));
    removeSsaTagsInto(buffers, text, textLength, hardBreak, lineFeed, cleaned);

    typename T::Entry& entry = entries.try_emplace(entries.end(), key)->second;
    entry.layer = layer;
    entry.style = style;
    entry.name = name;
    entry.effect = effect;
    entry.start = assTimeMs(time[0], time[1], time[2], time[3]);
    entry.end = assTimeMs(time[4], time[5], time[6], time[7]);
    entry.text += ZEMSUB_LIT(C, "\n");
    entry.text.append(cleaned.data(), static_cast<int>(cleaned.size()));
    return true;
}

} // namespace zemsub::detail

#endif
