#ifndef ZEMSUB_PARSERS_DETAIL_ASSDIALOGUE_H
#define ZEMSUB_PARSERS_DETAIL_ASSDIALOGUE_H

// One Dialogue line (what follows "Dialogue:") into one entry.

#include <cstdint>
#include <map>

#include "parsers/detail/AssTraits.h"

namespace zemsub::detail {

// h:mm:ss.hh, read as four integer fields; milliseconds computed in 32-bit
// signed (wrapping) arithmetic and widened. Three fraction digits are read as
// hundredths: ".500" is 5000 ms.
template <class T, class P> long long readAssTime(P& parser, typename T::String& rest)
{
    using C = typename T::Char;
    const int hours = parser.GetInt(rest, C(':'));
    const int minutes = parser.GetInt(rest, C(':'));
    const int seconds = parser.GetInt(rest, C('.'));
    const int hundredths = parser.GetInt(rest, C(','));
    const std::uint32_t ms =
        ((static_cast<std::uint32_t>(hours) * 60u + static_cast<std::uint32_t>(minutes)) * 60u +
         static_cast<std::uint32_t>(seconds)) *
            1000u +
        static_cast<std::uint32_t>(hundredths) * 10u;
    return static_cast<long long>(static_cast<std::int32_t>(ms));
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
    if (style.CompareNoCase(ZEMSUB_ASS_LIT(C, "Default")) == 0)
        style = ZEMSUB_ASS_LIT(C, "Default");

    typename T::Entry& entry = entries[key];
    entry.layer = layer;
    entry.style = style;
    entry.name = name;
    entry.effect = effect;
    entry.start = start;
    entry.end = end;
    entry.text += ZEMSUB_ASS_LIT(C, "\n");
    entry.text += strip(text);
}

} // namespace zemsub::detail

#endif
