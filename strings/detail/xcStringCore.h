#ifndef ZEMSUB_DETAIL_XCSTRINGCORE_H
#define ZEMSUB_DETAIL_XCSTRINGCORE_H

#include <cstddef>
#include <map>
#include <string>

// The algorithms that xcString and xcWString share, written once over the
// character type. Traits (xcStringTraits.h) supplies the literal characters and
// every point where the twins differ. All functions work on the class's own
// std::basic_string; positions and counts are int, -1 means "not found".
namespace zemsub {
namespace detail {

template <class TraitsT>
struct StringCore
{
    using Traits = TraitsT;
    using Char = typename Traits::Char;
    using Str = typename Traits::Str;
    using Size = typename Str::size_type;

    static int length(const Str& s) { return static_cast<int>(s.size()); }

    // A negative int position becomes a huge unsigned one, as the standard string sees it.
    static Size toSize(int v) { return static_cast<Size>(static_cast<std::ptrdiff_t>(v)); }
    static int fromSize(Size v) { return v == Str::npos ? -1 : static_cast<int>(v); }

    // ---- construction and access ----

    // Exactly n characters at p; a negative n is the standard string's length error.
    static Str fromCount(const Char* p, int n)
    {
        Str s;
        s.append(p, toSize(n));
        return s;
    }

    static Char charAt(const Str& s, int pos)
    {
        if (pos < 0 || pos >= length(s))
            return Char();
        return s[static_cast<Size>(pos)];
    }

    // pos equal to the length writes over the stored terminator; the length stays.
    static void setCharAt(Str& s, int pos, Char c)
    {
        if (pos < 0 || pos > length(s))
            return;
        s.data()[pos] = c;
    }

    static bool isNumeric(const Str& s)
    {
        if (s.empty())
            return false;
        for (Char c : s) {
            if (c < Traits::digitZero || c > Traits::digitNine)
                return false;
        }
        return true;
    }

    // ---- case-insensitive family ----

    static bool isEqualNoCase(const Str& a, const Str& b)
    {
        if (a.size() != b.size())
            return false;
        for (Size i = 0; i < a.size(); ++i) {
            if (Traits::toUpper(a[i]) != Traits::toUpper(b[i]))
                return false;
        }
        return true;
    }

    // Exactly n characters, zero characters included.
    static int compareNoCase(const Char* a, const Char* b, int n)
    {
        for (int i = 0; i < n; ++i) {
            const int x = Traits::toUpper(a[i]);
            const int y = Traits::toUpper(b[i]);
            if (x < y)
                return -1;
            if (x > y)
                return 1;
        }
        return 0;
    }

    // Always searches from 0: callers' start positions are not used.
    static int findNoCase(const Str& s, const Str& what)
    {
        const int n = length(what);
        const int last = length(s) - n;
        for (int i = 0; i <= last; ++i) {
            if (compareNoCase(s.data() + i, what.data(), n) == 0)
                return i;
        }
        return -1;
    }

    // Last match ending at or before the limit; a start below 1 or at/past the
    // length puts the limit at the last character.
    static int findlastNoCase(const Str& s, const Str& what, int start)
    {
        const int e = (start < 1 || start >= length(s)) ? length(s) - 1 : start;
        const int n = length(what);
        for (int i = e - n + 1; i >= 0; --i) {
            if (compareNoCase(s.data() + i, what.data(), n) == 0)
                return i;
        }
        return -1;
    }

    // Lower-cases up to the terminating zero; returns p.
    static Char* lowerText(Char* p)
    {
        for (Char* q = p; *q != Char(); ++q)
            *q = Traits::toLower(*q);
        return p;
    }

    // The string ends at its first zero character, and is lower-cased up to there.
    static void makeLower(Str& s)
    {
        const Size zero = s.find(Char());
        if (zero != Str::npos)
            s.resize(zero);
        for (Char& c : s)
            c = Traits::toLower(c);
    }

    // ---- searching and cutting ----

    static int find(const Str& s, Char c, int start) { return fromSize(s.find(c, toSize(start))); }
    static int find(const Str& s, const Str& what, int start) { return fromSize(s.find(what, toSize(start))); }

    // Any character of set, not the substring.
    static int findlast(const Str& s, const Str& set, int start)
    {
        return fromSize(s.find_last_of(set, toSize(start)));
    }

    static Str substr(const Str& s, int pos, int count)
    {
        if (pos < 0 || count == 0 || count < -1)
            return Str();
        if (pos > length(s))
            return Traits::substrPastLength();
        return s.substr(static_cast<Size>(pos), count == -1 ? Str::npos : static_cast<Size>(count));
    }

    static Str left(const Str& s, int n)
    {
        if (n < 0 || n > length(s))
            return Str();
        return s.substr(0, static_cast<Size>(n));
    }

    // Right(length()) is empty, unlike Left(length()).
    static Str right(const Str& s, int n)
    {
        if (n <= 0 || n >= length(s))
            return Str();
        return s.substr(s.size() - static_cast<Size>(n));
    }

    // ---- changing in place ----

    static void replace(Str& s, int pos, int count, const Str& with)
    {
        s.replace(toSize(pos), toSize(count), with);
    }

    // Moves the tail and its terminator down over the cut but keeps the recorded
    // length; returns that length.
    static int deleteStr(Str& s, int pos, int count)
    {
        const long long total = static_cast<long long>(s.size());
        const long long from = pos < 0 ? 0 : pos;
        long long n = count < 0 ? 0 : count;
        if (total < from + n)
            n = total - from;
        if (n > 0) {
            Char* d = s.data();
            std::char_traits<Char>::move(d + from, d + from + n, static_cast<Size>(total - (from + n) + 1));
        }
        return static_cast<int>(total);
    }

    // The index advances after each removal, so only half of a leading run
    // (rounded up) goes. A zero c removes nothing.
    static void trimLeft(Str& s, Char c)
    {
        if (c == Char())
            return;
        for (Size i = 0; i < s.size() && s[i] == c; ++i)
            s.erase(i, 1);
    }

    // Removes every trailing c. A zero c removes nothing.
    static void trimRight(Str& s, Char c)
    {
        if (c == Char() || s.empty())
            return;
        Size i = s.size() - 1;
        while (s[i] == c) {
            s.erase(i, 1);
            if (i == 0)
                break;
            --i;
        }
    }

    // Leading spaces, then the first space found later, and no other.
    static void clearSpaces(Str& s)
    {
        for (;;) {
            const Size p = s.find(Traits::space);
            if (p == Str::npos)
                return;
            s.erase(p, 1);
            if (p != 0)
                return;
        }
    }

    // Every leading and every trailing space; interior ones stay.
    static void removeSpaces(Str& s)
    {
        Size lead = 0;
        while (lead < s.size() && s[lead] == Traits::space)
            ++lead;
        s.erase(0, lead);
        while (!s.empty() && s.back() == Traits::space)
            s.pop_back();
    }

    // Trailing carriage returns and line feeds only.
    static void removeLastChar(Str& s)
    {
        Size n = s.size();
        while (n > 0 && (s[n - 1] == Traits::carriageReturn || s[n - 1] == Traits::lineFeed))
            --n;
        s.resize(n);
    }

    // Leading quotes only, keeping at least one character; a trailing quote stays.
    static void removeQuo(Str& s)
    {
        const int total = length(s);
        int start = 0;
        if (total != 1) {
            while (start < total - 1 && s[static_cast<Size>(start)] == Traits::quote)
                ++start;
        }
        s.erase(0, static_cast<Size>(start));
    }

    // Goes on only while the occurrence replaced stood at 0. A to that begins
    // with from never ends.
    static void replaceChars(Str& s, const Str& from, const Str& to)
    {
        if (s.empty())
            return;
        for (;;) {
            const Size p = s.find(from);
            if (p == Str::npos)
                return;
            s.replace(p, from.size(), to);
            if (p != 0)
                return;
        }
    }

    // A fill that must not be empty, repeated and cut to exactly the missing width.
    static void inflate(Str& s, int width, const Str& fill, bool atFront)
    {
        if (length(s) >= width)
            return;
        const int need = width - length(s);
        const int n = length(fill);
        Str padding;
        for (int k = 0; k < need / n; ++k)
            padding += fill;
        padding.append(fill, 0, static_cast<Size>(need % n));
        if (atFront)
            s.insert(0, padding);
        else
            s += padding;
    }

    // 0 at position 0, 1 later, 2 absent (nothing written).
    static int match(Str& s, const Str& pattern, Str* before, bool cut, const Str& replacement)
    {
        const Size p = s.find(pattern);
        if (p == Str::npos)
            return 2;
        const Size end = p + pattern.size();
        const int result = p == 0 ? 0 : 1;
        if (before)
            *before = s.substr(0, p);
        if (cut && end <= s.size())
            s.replace(0, end, replacement);
        return result;
    }

    // Pieces between separators (which must not be empty); a trailing separator
    // adds no empty last piece. Value is the string class built from Str.
    template <class Value>
    static std::map<int, Value> split(const Str& s, const Str& sep)
    {
        std::map<int, Value> pieces;
        Str rest = s;
        Str piece;
        int key = 0;
        while (match(rest, sep, &piece, true, Str()) != 2)
            pieces.emplace(key++, Value(piece));
        if (!rest.empty())
            pieces.emplace(key, Value(rest));
        return pieces;
    }

    // Character-wise XOR; the longer one's remaining characters complemented.
    static Str xorString(const Str& a, const Str& b)
    {
        const Str& longer = a.size() >= b.size() ? a : b;
        const Size common = a.size() < b.size() ? a.size() : b.size();
        Str result(longer.size(), Char());
        for (Size i = 0; i < common; ++i)
            result[i] = static_cast<Char>(a[i] ^ b[i]);
        for (Size i = common; i < longer.size(); ++i)
            result[i] = static_cast<Char>(~longer[i]);
        return result;
    }
};

} // namespace detail
} // namespace zemsub

#endif
