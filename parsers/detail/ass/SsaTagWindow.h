#ifndef ZEMSUB_PARSERS_DETAIL_ASS_SSATAGWINDOW_H
#define ZEMSUB_PARSERS_DETAIL_ASS_SSATAGWINDOW_H

// The part of a tag pass's text that is still searched, held as a queue.
//
// A pass keeps the recorded length L of its text and a position `from`; all
// searches run over the window W = text[from, L). Removing the block W[i, j]
// (deleteStr(from + i, j - i + 1)) moves W[j + 1, m) and the terminating zero
// down and keeps the old last j - i characters behind it, and the next search
// starts at the block's position. So the text before the new window gains
// W[0, i), and the new window is
//     W[j + 1, m) ++ [0] ++ W[m - (j - i), m)
// of length m - i: the front j + 1 characters leave the queue, and a zero and
// a copy of the last j - i characters join it at the back. The window is held
// as a range of one growing buffer, so a removal costs what it takes and adds,
// not the length of the text.
//
// Windows of the same length are compared through a polynomial prefix hash
// over the buffer (modulo 2^61 - 1, computed when first needed); a hash match
// is confirmed character by character, so the answer is always exact.

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

namespace zemsub::detail {

// The buffers of a pass, kept between passes and texts so that cleaning many
// short texts does not allocate for each.
template <class C> struct TagPassBuffers
{
    std::vector<C> chars;              // the queue
    std::vector<std::uint64_t> prefix; // prefix hashes of chars
    std::vector<size_t> stretch;       // window starts of the current stretch's states
    std::basic_string<C> between;      // the brace pass's result
};

template <class C> class TagWindow
{
public:
    static constexpr size_t npos = static_cast<size_t>(-1);
    static constexpr std::uint64_t defaultHashBase = 0x0f3a5c7e91b2d4e6ull;

    // The window over text[0, length), held in buffers. hashBase is the hash's
    // multiplier; any value gives the same answers, a poor one only more
    // confirmations.
    TagWindow(TagPassBuffers<C>& buffers, const C* text, size_t length,
              std::uint64_t hashBase = defaultHashBase)
        : m_chars(buffers.chars), m_prefix(buffers.prefix), m_base(hashBase % kModulus)
    {
        // Removals add what they take from the front; room for twice the text
        // spares most regrowth before the consumed front is dropped.
        m_chars.reserve(2 * length);
        m_chars.assign(text, text + length);
        m_prefix.assign(1, 0);
    }

    // Length of the window.
    size_t size() const { return m_chars.size() - m_start; }
    // Where the window starts in the buffer; stays valid until dropConsumed().
    size_t start() const { return m_start; }
    const C* data() const { return m_chars.data() + m_start; }
    const C* dataAt(size_t start) const { return m_chars.data() + start; }

    // Offset of the first c in the window at or after offset `from`, or npos.
    size_t find(C c, size_t from) const
    {
        const size_t n = size();
        if (from >= n)
            return npos;
        const C* base = data();
        // Blocks are mostly close by: look at a few characters before calling the library.
        const size_t near = n - from < kNear ? n : from + kNear;
        for (size_t k = from; k < near; ++k) {
            if (base[k] == c)
                return k;
        }
        const C* hit = std::char_traits<C>::find(base + near, n - near, c);
        return hit ? static_cast<size_t>(hit - base) : npos;
    }

    // Removes the block at window offsets [i, j], i <= j < size(); the caller
    // has taken the first i characters.
    void removeBlock(size_t i, size_t j)
    {
        const size_t kept = j - i; // characters copied from the back
        const size_t end = m_chars.size();
        m_chars.resize(end + 1 + kept);
        C* z = m_chars.data();
        z[end] = C();
        std::char_traits<C>::copy(z + end + 1, z + end - kept, kept);
        m_start += j + 1;
    }

    // Forgets the characters before the window once they outnumber it; the
    // copy this costs is paid for by the removals that consumed them. Every
    // start() taken before is invalid afterwards.
    void dropConsumed()
    {
        if (m_start <= size())
            return;
        m_chars.erase(m_chars.begin(), m_chars.begin() + static_cast<std::ptrdiff_t>(m_start));
        m_start = 0;
        m_prefix.resize(1);
    }

    // Whether the windows of the current length starting at a and b hold the
    // same characters. Both must lie within the buffer.
    bool sameWindows(size_t a, size_t b)
    {
        if (a == b)
            return true;
        const size_t m = size();
        // Most windows differ early: look at their first characters before hashing.
        const size_t head = m < kHead ? m : kHead;
        if (std::char_traits<C>::compare(dataAt(a), dataAt(b), head) != 0)
            return false;
        if (head == m)
            return true;
        const size_t last = (a > b ? a : b) + m;
        extendPrefix(last);
        if (m_powerFor != m) {
            m_power = power(m_base, m);
            m_powerFor = m;
        }
        if (windowHash(a, m) != windowHash(b, m))
            return false;
        return std::char_traits<C>::compare(dataAt(a), dataAt(b), m) == 0;
    }

private:
    static constexpr std::uint64_t kModulus = (std::uint64_t(1) << 61) - 1;
    static constexpr size_t kHead = 16;
    static constexpr size_t kNear = 16;

    static std::uint64_t reduce(std::uint64_t x)
    {
        x = (x & kModulus) + (x >> 61);
        return x >= kModulus ? x - kModulus : x;
    }

    static std::uint64_t mulMod(std::uint64_t a, std::uint64_t b)
    {
        __extension__ using Wide = unsigned __int128;
        const Wide product = static_cast<Wide>(a) * b;
        const std::uint64_t low = static_cast<std::uint64_t>(product) & kModulus;
        const std::uint64_t high = static_cast<std::uint64_t>(product >> 61);
        return reduce(low + high);
    }

    static std::uint64_t power(std::uint64_t base, size_t exponent)
    {
        std::uint64_t result = 1;
        while (exponent) {
            if (exponent & 1)
                result = mulMod(result, base);
            base = mulMod(base, base);
            exponent >>= 1;
        }
        return result;
    }

    static std::uint64_t valueOf(C c)
    {
        return static_cast<std::uint64_t>(static_cast<std::make_unsigned_t<C>>(c)) + 1;
    }

    // m_prefix[k] is the hash of the buffer's first k characters.
    void extendPrefix(size_t upTo)
    {
        size_t k = m_prefix.size() - 1;
        if (k >= upTo)
            return;
        m_prefix.resize(upTo + 1);
        for (; k < upTo; ++k)
            m_prefix[k + 1] = reduce(mulMod(m_prefix[k], m_base) + valueOf(m_chars[k]));
    }

    std::uint64_t windowHash(size_t start, size_t m) const
    {
        const std::uint64_t whole = m_prefix[start + m];
        const std::uint64_t before = mulMod(m_prefix[start], m_power);
        return whole >= before ? whole - before : whole + kModulus - before;
    }

    std::vector<C>& m_chars;
    std::vector<std::uint64_t>& m_prefix;
    size_t m_start = 0;
    std::uint64_t m_base;
    std::uint64_t m_power = 1;
    size_t m_powerFor = 0;
};

} // namespace zemsub::detail

#endif
