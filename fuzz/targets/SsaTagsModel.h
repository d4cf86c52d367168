#ifndef ZEMSUB_FUZZ_TARGETS_SSATAGSMODEL_H
#define ZEMSUB_FUZZ_TARGETS_SSATAGSMODEL_H

// Tag stripping written out step by step on a plain character buffer whose
// recorded length never changes during a pass (a cut moves the tail and its
// terminating zero down and leaves the old tail behind), with the rule that a
// pass ends when it comes back to a state (text and search position) it was in.

#include <set>
#include <string>
#include <utility>

namespace zemsub::fuzz {

template <class C> class SsaTagsModel
{
public:
    using Text = std::basic_string<C>;

    static Text strip(Text text)
    {
        pass(text, C('{'), C('}'));
        pass(text, C('<'), C('>'));
        replaceBreaks(text);
        return text;
    }

    // First position at or after start holding c, over the whole recorded text.
    static long long find(const Text& text, C c, long long start)
    {
        if (start < 0 || start >= (long long)text.size())
            return -1;
        const size_t at = text.find(c, size_t(start));
        return at == Text::npos ? -1 : (long long)at;
    }

private:
    // Cut [pos, pos + count): the tail and the terminator move down, the length stays.
    static void cutKeepingLength(Text& text, long long pos, long long count)
    {
        const long long length = (long long)text.size();
        for (long long from = pos + count, to = pos; from <= length; ++from, ++to)
            text[size_t(to)] = from < length ? text[size_t(from)] : C(0);
    }

    static void pass(Text& text, C open, C close)
    {
        std::set<std::pair<Text, long long>> seen;
        long long p = 0;
        while (p < (long long)text.size()) {
            if (!seen.emplace(text, p).second)
                return;
            p = find(text, open, p);
            if (p < 0)
                return;
            const long long q = find(text, close, p);
            if (q < 0)
                return;
            cutKeepingLength(text, p, q - p + 1);
        }
    }

    // The first "\N" becomes a line feed; the next only while the one replaced stood at 0.
    static void replaceBreaks(Text& text)
    {
        const C from[] = {C('\\'), C('N')};
        for (;;) {
            if (text.empty())
                return;
            const size_t at = text.find(from, 0, 2);
            if (at == Text::npos)
                return;
            text.replace(at, 2, 1, C('\n'));
            if (at != 0)
                return;
        }
    }
};

} // namespace zemsub::fuzz

#endif
