#ifndef ZEMSUB_PARSERS_DETAIL_ASS_ASSSCRIPT_H
#define ZEMSUB_PARSERS_DETAIL_ASS_ASSSCRIPT_H

// The line list of an ASS/SSA script to its entries (ConvertBufToAssMap).

#include <map>
#include <string>
#include <vector>

#include "parsers/detail/ass/AssDialogue.h"
#include "parsers/detail/ass/AssFieldCursor.h"
#include "parsers/detail/ass/AssStyleLine.h"
#include "parsers/detail/ass/AssTraits.h"

namespace zemsub::detail {

// What the script sets in its parser.
template <class T> struct AssScriptTargets
{
    std::map<int, typename T::Entry>& entries;
    typename T::String& collisions;
    int& playResX;
    int& playResY;
    typename T::Style& style;
};

// Dialogue lines are read through a cursor over the stored line where it can
// read them exactly (AssFieldCursor.h), which gives what the steps below give;
// AssFastLines::Avoid reads every line with the parser's own readers.
enum class AssFastLines { Use, Avoid };

// The rest of a stored line behind its key when the key is "dialogue" as the
// steps below see it (trimmed, cut at ":", lower-cased); a null range when it
// is not, or when the cursor cannot tell.
template <class T> AssFieldCursor<T> dialogueRest(const typename T::String& stored)
{
    using C = typename T::Char;
    const AssFieldCursor<T> none(nullptr, nullptr);
    AssFieldCursor<T> line(stored.getData(), stored.getData() + stored.length());
    if (!line.trimLeft())
        return none;
    line.trimRight();
    const C* b = nullptr;
    const C* e = nullptr;
    if (line.size() == 0 || *line.begin() == C(';') || !line.cut(C(':'), b, e))
        return none;
    // MakeLower: the key ends at its first zero character and is lower-cased.
    static const C dialogue[] = {C('d'), C('i'), C('a'), C('l'), C('o'), C('g'), C('u'), C('e')};
    const C* zero = std::char_traits<C>::find(b, static_cast<size_t>(e - b), C());
    if (zero)
        e = zero;
    if (e - b != 8)
        return none;
    for (int k = 0; k < 8; ++k) {
        if (StringCoreOf<C>::Core::Traits::toLower(b[k]) != dialogue[k])
            return none;
    }
    return line;
}

// Both modes start at 3. ScriptType "...4.00" sets both to 4, "...4.00+" both
// to 5; the "[V4 Styles]" and "[V4+ Styles]" heads set the style mode only.
// Keys are compared exactly after lower-casing; a line without ":" is its own
// key. Format lines, Comment lines and unknown keys are passed over.
// strip is the parser's RemoveSSATags. False when there are no lines.
template <class T, class P, class Strip>
bool buildAssEntries(P& parser, const std::vector<typename T::String>& lines, AssScriptTargets<T> out,
                     Strip strip, AssFastLines fastLines = AssFastLines::Use)
{
    using C = typename T::Char;
    using S = typename T::String;
    const C comma = C(',');

    int eventMode = 3;
    int styleMode = 3;
    int dialogueKey = 1;
    if (lines.empty())
        return false;

    TagPassBuffers<C> buffers;
    std::basic_string<C> cleaned;
    for (const S& stored : lines) {
        if (fastLines == AssFastLines::Use) {
            AssFieldCursor<T> rest = dialogueRest<T>(stored);
            if (rest.begin() &&
                readAssDialogueFast<T>(rest, eventMode, dialogueKey, out.entries, buffers, cleaned)) {
                ++dialogueKey;
                continue;
            }
        }
        S line = stored;
        line.TrimLeft();
        line.TrimRight();
        if (line.isEmpty() || line.getChar(0) == C(';'))
            continue;
        S key = parser.GetStr(line, C(':'));
        key.MakeLower();

        if (key == ZEMSUB_LIT(C, "playresx")) {
            out.playResX = parser.GetInt(line, comma);
        } else if (key == ZEMSUB_LIT(C, "playresy")) {
            out.playResY = parser.GetInt(line, comma);
        } else if (key == ZEMSUB_LIT(C, "wrapstyle")) {
            // ignored
        } else if (key == ZEMSUB_LIT(C, "scripttype")) {
            // Right(length()) is empty, so a bare "4.00" with nothing before it matches neither.
            if (line.length() > 3 && line.Right(4).CompareNoCase(ZEMSUB_LIT(C, "4.00")) == 0) {
                eventMode = styleMode = 4;
            } else if (line.length() > 4 && line.Right(5).CompareNoCase(ZEMSUB_LIT(C, "4.00+")) == 0) {
                eventMode = styleMode = 5;
            }
        } else if (key == ZEMSUB_LIT(C, "collisions")) {
            S value = parser.GetStr(line, comma);
            value.MakeLower();
            out.collisions = S(value.find(S(ZEMSUB_LIT(C, "reverse")), 0) >= 0 ? 1 : 0);
        } else if (key == ZEMSUB_LIT(C, "scaledborderandshadow")) {
            // ignored
        } else if (key == ZEMSUB_LIT(C, "[v4 styles]")) {
            styleMode = 4;
        } else if (key == ZEMSUB_LIT(C, "[v4+ styles]")) {
            styleMode = 5;
        } else if (key == ZEMSUB_LIT(C, "style")) {
            readAssStyle<T>(parser, line, styleMode, out.style);
        } else if (key == ZEMSUB_LIT(C, "dialogue")) {
            readAssDialogue<T>(parser, line, eventMode, dialogueKey, out.entries, strip);
            ++dialogueKey;
        }
    }
    return true;
}

} // namespace zemsub::detail

#endif
