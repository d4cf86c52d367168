#include "reference/SsaTagSteps.h"

#include <algorithm>
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

template <class C> struct PassState
{
    std::basic_string<C> text;
    long long from = 0;

    bool operator==(const PassState& o) const { return from == o.from && text == o.text; }
    bool operator!=(const PassState& o) const { return !(*this == o); }
};

// One removal: the first open at or after from and the first close at or
// after it; false when the pass ends instead.
template <class C> bool passStep(PassState<C>& s, C open, C close, bool* usedOldTail = nullptr)
{
    if (s.from >= (long long)s.text.size())
        return false;
    const long long p = findFrom(s.text, open, s.from);
    if (p < 0)
        return false;
    const long long q = findFrom(s.text, close, p);
    if (q < 0)
        return false;
    if (usedOldTail && (size_t)q >= s.text.find(C(0)))
        *usedOldTail = true;
    cutKeepingLength(s.text, p, q - p + 1);
    s.from = p;
    return true;
}

} // namespace

template <class C>
std::basic_string<C> tagPassSteps(std::basic_string<C> text, C open, C close, TagStepsNotes* notes)
{
    const PassState<C> first{std::move(text), 0};
    PassState<C> walker = first;
    long long steps = 0;
    long long period = 0;
    bool repeated = false;
    if (passStep(walker, open, close)) {
        // Brent: compare with a saved state, renewed at each power of two.
        steps = 1;
        period = 1;
        long long power = 1;
        PassState<C> saved = first;
        bool ended = false;
        while (walker != saved) {
            if (power == period) {
                saved = walker;
                power *= 2;
                period = 0;
            }
            if (!passStep(walker, open, close)) {
                ended = true;
                break;
            }
            ++period;
            ++steps;
        }
        if (!ended) {
            // The first state that comes back: walk two states period apart.
            repeated = true;
            PassState<C> behind = first;
            PassState<C> ahead = first;
            for (long long i = 0; i < period; ++i)
                passStep(ahead, open, close);
            long long mu = 0;
            while (behind != ahead) {
                passStep(behind, open, close);
                passStep(ahead, open, close);
                ++mu;
            }
            steps = mu + period;
            walker = behind;
        }
    }
    if (notes) {
        // The removals up to the answer once more, for what they met.
        PassState<C> replay = first;
        for (long long i = 0; i < steps; ++i)
            passStep(replay, open, close, &notes->usedOldTail);
        if (repeated) {
            notes->repeated = true;
            notes->period = std::max(notes->period, period);
        }
    }
    return walker.text;
}

namespace {

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
    text = tagPassSteps(std::move(text), C('{'), C('}'), notes);
    text = tagPassSteps(std::move(text), C('<'), C('>'), notes);
    replaceBreaks(text);
    return text;
}

template std::string tagPassSteps(std::string, char, char, TagStepsNotes*);
template std::wstring tagPassSteps(std::wstring, wchar_t, wchar_t, TagStepsNotes*);
template std::u32string tagPassSteps(std::u32string, char32_t, char32_t, TagStepsNotes*);
template std::string stripTagsSteps(std::string, TagStepsNotes*);
template std::wstring stripTagsSteps(std::wstring, TagStepsNotes*);
template std::u32string stripTagsSteps(std::u32string, TagStepsNotes*);
template long long findFrom(const std::string&, char, long long);
template long long findFrom(const std::wstring&, wchar_t, long long);
template long long findFrom(const std::u32string&, char32_t, long long);

} // namespace zemsub::reference
