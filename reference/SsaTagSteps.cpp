#include "reference/SsaTagSteps.h"

#include <set>
#include <utility>

namespace zemsub::reference {
namespace {

// Cut [pos, pos + count): the tail and the terminator move down, the length stays.
template <class C> void cutKeepingLength(std::basic_string<C>& text, long long pos, long long count)
{
    const long long length = (long long)text.size();
    for (long long from = pos + count, to = pos; from <= length; ++from, ++to)
        text[size_t(to)] = from < length ? text[size_t(from)] : C(0);
}

template <class C> void pass(std::basic_string<C>& text, C open, C close, TagStepsNotes& notes)
{
    std::set<std::pair<std::basic_string<C>, long long>> seen;
    long long p = 0;
    while (p < (long long)text.size()) {
        if (!seen.emplace(text, p).second) {
            notes.repeated = true;
            return;
        }
        p = findFrom(text, open, p);
        if (p < 0)
            return;
        const long long q = findFrom(text, close, p);
        if (q < 0)
            return;
        if ((size_t)q >= text.find(C(0)))
            notes.usedOldTail = true;
        cutKeepingLength(text, p, q - p + 1);
    }
}

template <class C> void replaceBreaks(std::basic_string<C>& text)
{
    const C from[] = {C('\\'), C('N')};
    for (;;) {
        const size_t at = text.find(from, 0, 2);
        if (at == std::basic_string<C>::npos)
            return;
        text.replace(at, 2, 1, C('\n'));
        if (at != 0)
            return;
    }
}

} // namespace

template <class C> long long findFrom(const std::basic_string<C>& text, C c, long long start)
{
    if (start < 0 || start >= (long long)text.size())
        return -1;
    const size_t at = text.find(c, size_t(start));
    return at == std::basic_string<C>::npos ? -1 : (long long)at;
}

template <class C> std::basic_string<C> stripTagsSteps(std::basic_string<C> text, TagStepsNotes* notes)
{
    TagStepsNotes ignored;
    TagStepsNotes& into = notes ? *notes : ignored;
    pass(text, C('{'), C('}'), into);
    pass(text, C('<'), C('>'), into);
    replaceBreaks(text);
    return text;
}

template std::string stripTagsSteps(std::string, TagStepsNotes*);
template std::wstring stripTagsSteps(std::wstring, TagStepsNotes*);
template std::u32string stripTagsSteps(std::u32string, TagStepsNotes*);
template long long findFrom(const std::string&, char, long long);
template long long findFrom(const std::wstring&, wchar_t, long long);
template long long findFrom(const std::u32string&, char32_t, long long);

} // namespace zemsub::reference
