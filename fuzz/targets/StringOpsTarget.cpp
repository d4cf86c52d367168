// The string operations with fuzzed arguments. The input is a program: each
// step picks an operation and its arguments (positions and counts around the
// current length, texts from an alphabet the operations react to). The same
// step runs on an xcString and on an xcWString holding the same characters
// (bytes as 0 to 255); the twins must stay equal wherever they are specified
// alike, and a few results are checked against their definitions directly.
#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <stdexcept>
#include <string>

#include "FuzzSupport.h"
#include "FuzzTargets.h"
#include "strings/xcString.h"
#include "strings/xcWString.h"

namespace zemsub::fuzz {
namespace {

constexpr int kMaxLength = 2048;
constexpr int kMaxSteps = 64;

std::wstring widen(const std::string& s)
{
    std::wstring out;
    for (unsigned char c : s)
        out += wchar_t(c);
    return out;
}

wchar_t widen(char c)
{
    return wchar_t((unsigned char)c);
}

std::string content(const xcString& s)
{
    return std::string(s.getData(), size_t(s.length()));
}

bool same(const xcString& a, const xcWString& w)
{
    if (a.length() != w.length())
        return false;
    for (int i = 0; i < a.length(); ++i)
        if (widen(a.getData()[i]) != w.getData()[i])
            return false;
    return true;
}

void checkTerminated(const xcString& a, const xcWString& w)
{
    FUZZ_CHECK(a.length() >= 0 && w.length() >= 0);
    FUZZ_CHECK(a.getData()[a.length()] == 0);
    FUZZ_CHECK(w.getData()[w.length()] == 0);
    FUZZ_CHECK((const char*)a == a.getData());
    FUZZ_CHECK((const wchar_t*)w == w.getData());
    FUZZ_CHECK(a.isEmpty() == (a.length() == 0));
    FUZZ_CHECK(w.isEmpty() == (w.length() == 0));
}

int sign(int v)
{
    return (v > 0) - (v < 0);
}

// compareNoCase as defined: toupper of each signed byte (narrow) or code (wide),
// exactly n of them.
template <class C> int compareNoCaseModel(const C* a, const C* b, int n)
{
    for (int i = 0; i < n; ++i) {
        const int x = std::toupper(int(a[i]));
        const int y = std::toupper(int(b[i]));
        if (x < y)
            return -1;
        if (x > y)
            return 1;
    }
    return 0;
}

struct Twins
{
    xcString a;
    xcWString w;
};

// A text argument in both forms.
struct Arg
{
    std::string bytes;
    xcString narrow;
    xcWString wide;
};

Arg makeArg(ByteReader& r, int maxLength)
{
    Arg arg;
    arg.bytes = r.shortText(maxLength);
    arg.narrow = xcString(arg.bytes.data(), int(arg.bytes.size()));
    arg.wide = xcWString(widen(arg.bytes));
    return arg;
}

Arg nonEmptyArg(ByteReader& r, int maxLength)
{
    Arg arg = makeArg(r, maxLength);
    if (arg.bytes.empty()) {
        arg.bytes = std::string(1, r.interestingChar());
        arg.narrow = xcString(arg.bytes.data(), 1);
        arg.wide = xcWString(widen(arg.bytes));
    }
    return arg;
}

void searchStep(Twins& t, ByteReader& r, int which)
{
    const int len = t.a.length();
    const std::string text = content(t.a);
    switch (which) {
    case 0: {
        const char c = r.interestingChar();
        const int start = r.smallInt(len);
        const int found = t.a.find(c, start);
        FUZZ_CHECK(found == t.w.find(widen(c), start));
        long long expected = -1;
        if (start >= 0 && start < len) {
            const size_t at = text.find(c, size_t(start));
            expected = at == std::string::npos ? -1 : (long long)at;
        }
        FUZZ_CHECK(found == expected);
        break;
    }
    case 1: {
        const Arg s = makeArg(r, 4);
        const int start = r.smallInt(len);
        const int found = t.a.find(s.narrow, start);
        FUZZ_CHECK(found == t.w.find(s.wide, start));
        if (!s.bytes.empty()) {
            long long expected = -1;
            if (start >= 0 && start < len) {
                const size_t at = text.find(s.bytes, size_t(start));
                expected = at == std::string::npos ? -1 : (long long)at;
            }
            FUZZ_CHECK(found == expected);
        }
        break;
    }
    case 2: {
        const Arg set = makeArg(r, 3);
        const int start = r.smallInt(len);
        FUZZ_CHECK(t.a.findlast(set.narrow, start) == t.w.findlast(set.wide, start));
        break;
    }
    case 3: {
        const Arg s = makeArg(r, 3);
        const int start = r.smallInt(len);
        FUZZ_CHECK(t.a.findNoCase(s.narrow, start) == t.w.findNoCase(s.wide, start));
        FUZZ_CHECK(t.a.findlastNoCase(s.narrow, start) == t.w.findlastNoCase(s.wide, start));
        break;
    }
    case 4: {
        const int pos = r.smallInt(len);
        const char c = t.a.getChar(pos);
        FUZZ_CHECK(widen(c) == t.w.getChar(pos));
        FUZZ_CHECK(c == t.a[pos]);
        FUZZ_CHECK(t.w.getChar(pos) == t.w[pos]);
        FUZZ_CHECK(c == ((pos < 0 || pos >= len) ? 0 : text[size_t(pos)]));
        break;
    }
    default: {
        const Arg s = makeArg(r, 4);
        FUZZ_CHECK((t.a == s.narrow) == (t.w == s.wide));
        FUZZ_CHECK((t.a != s.narrow) == (t.w != s.wide));
        FUZZ_CHECK((t.a < s.narrow) == (t.w < s.wide));
        FUZZ_CHECK((t.a > s.narrow) == (t.w > s.wide));
        FUZZ_CHECK((t.a == s.narrow) == (text == s.bytes));
        FUZZ_CHECK((t.a < s.narrow) == (text < s.bytes)); // std::string orders unsigned bytes
        FUZZ_CHECK((t.a > s.narrow) == (text > s.bytes));
        FUZZ_CHECK(xcString::isEqualNoCase(t.a, s.narrow) == xcWString::isEqualNoCase(t.w, s.wide));
        FUZZ_CHECK(sign(t.a.CompareNoCase(s.narrow.getData())) == sign(t.w.CompareNoCase(s.wide.getData())));
        FUZZ_CHECK((t.a == s.narrow.getData()) == (t.w == s.wide.getData()));
        break;
    }
    }
}

void cutStep(Twins& t, ByteReader& r, int which)
{
    const int len = t.a.length();
    const std::string text = content(t.a);
    const int pos = r.smallInt(len);
    const int count = r.smallInt(len);
    switch (which) {
    case 0: {
        const xcString narrow = t.a.substr(pos, count);
        bool threw = false;
        xcWString wide;
        try {
            wide = t.w.substr(pos, count);
        } catch (const std::out_of_range&) {
            threw = true;
        }
        // A start past the end throws in the wide twin; with a count that asks for
        // nothing the order of the two tests is open, so either answer is taken.
        if (count == -1 || count > 0)
            FUZZ_CHECK(threw == (pos > len));
        else
            FUZZ_CHECK(!threw || pos > len);
        std::string expected;
        if (pos >= 0 && pos <= len && (count == -1 || count > 0))
            expected = text.substr(size_t(pos), count == -1 ? std::string::npos : size_t(count));
        FUZZ_CHECK(content(narrow) == expected);
        if (!threw)
            FUZZ_CHECK(same(narrow, wide));
        if (!threw && (r.byte() & 1)) {
            t.a = narrow;
            t.w = wide;
        }
        break;
    }
    case 1: {
        const xcString left = t.a.Left(pos);
        FUZZ_CHECK(same(left, t.w.Left(pos)));
        FUZZ_CHECK(content(left) == ((pos < 0 || pos > len) ? std::string() : text.substr(0, size_t(pos))));
        const xcString right = t.a.Right(pos);
        FUZZ_CHECK(same(right, t.w.Right(pos)));
        FUZZ_CHECK(content(right) ==
                   ((pos > 0 && pos < len) ? text.substr(size_t(len - pos)) : std::string()));
        break;
    }
    case 2: {
        const int a = t.a.deleteStr(pos, count);
        FUZZ_CHECK(a == t.w.deleteStr(pos, count));
        FUZZ_CHECK(a == len && t.a.length() == len);
        std::string expected = text;
        const int p = pos < 0 ? 0 : pos;
        int n = count < 0 ? 0 : count;
        if (len < p + n)
            n = len - p;
        if (n > 0)
            for (int from = p + n, to = p; from <= len; ++from, ++to)
                expected[size_t(to)] = from < len ? text[size_t(from)] : 0;
        FUZZ_CHECK(content(t.a) == expected);
        break;
    }
    case 3: {
        const char c = r.interestingChar();
        t.a.setchar(pos, c);
        t.w.setchar(pos, widen(c));
        FUZZ_CHECK(t.a.length() == len && t.w.length() == len);
        if (pos == len) {
            // The terminator was overwritten; put it back before anything reads a C string.
            t.a.setchar(len, 0);
            t.w.setchar(len, 0);
        }
        break;
    }
    default: {
        const Arg s = makeArg(r, 4);
        const int p = r.byte() % (len + 3);
        bool threwNarrow = false, threwWide = false;
        try {
            t.a.replace(p, count < 0 ? 0 : count, s.narrow);
        } catch (const std::out_of_range&) {
            threwNarrow = true;
        }
        try {
            t.w.replace(p, count < 0 ? 0 : count, s.wide);
        } catch (const std::out_of_range&) {
            threwWide = true;
        }
        FUZZ_CHECK(threwNarrow == threwWide && threwNarrow == (p > len));
        break;
    }
    }
}

void trimStep(Twins& t, ByteReader& r, int which)
{
    switch (which) {
    case 0:
        t.a.TrimLeft();
        t.w.TrimLeft();
        break;
    case 1:
        t.a.TrimRight();
        t.w.TrimRight();
        break;
    case 2: {
        const char c = r.interestingChar();
        t.a.TrimLeft(c);
        t.w.TrimLeft(widen(c));
        break;
    }
    case 3: {
        const char c = r.interestingChar();
        t.a.TrimRight(c);
        t.w.TrimRight(widen(c));
        break;
    }
    case 4:
        t.a.clearSpaces();
        t.w.clearSpaces();
        break;
    case 5:
        t.a.removeLastChar();
        t.w.removeLastChar();
        break;
    case 6:
        t.a.removeSpaces();
        t.w.removeSpaces();
        break;
    case 7:
        t.a.removeQuo();
        t.w.removeQuo();
        break;
    default: {
        const std::string before = content(t.a);
        t.a.MakeLower();
        t.w.MakeLower();
        std::string expected = before.substr(0, std::strlen(before.c_str()));
        for (char& c : expected)
            c = char(std::tolower(c));
        FUZZ_CHECK(content(t.a) == expected);
        break;
    }
    }
}

void textStep(Twins& t, ByteReader& r, int which)
{
    const int len = t.a.length();
    switch (which) {
    case 0: {
        const bool numeric = t.a.isNumeric();
        FUZZ_CHECK(numeric == t.w.isNumeric());
        const std::string text = content(t.a);
        bool digits = !text.empty();
        for (char c : text)
            digits = digits && c >= '0' && c <= '9';
        FUZZ_CHECK(numeric == digits);
        break;
    }
    case 1: {
        const Arg from = nonEmptyArg(r, 3);
        const Arg to = makeArg(r, 3);
        if (to.bytes.compare(0, from.bytes.size(), from.bytes) == 0)
            break; // a replacement that begins with what it replaces never ends
        t.a.replaceChars(from.narrow, to.narrow);
        t.w.replaceChars(from.wide, to.wide);
        break;
    }
    case 2: {
        const Arg sep = nonEmptyArg(r, 2);
        const std::map<int, xcString> a = t.a.split(sep.narrow);
        const std::map<int, xcWString> w = t.w.split(sep.wide);
        FUZZ_CHECK(a.size() == w.size());
        int key = 0;
        auto j = w.begin();
        for (auto i = a.begin(); i != a.end(); ++i, ++j, ++key) {
            FUZZ_CHECK(i->first == key && j->first == key);
            FUZZ_CHECK(same(i->second, j->second));
        }
        break;
    }
    case 3: {
        const Arg pattern = makeArg(r, 3);
        const Arg replacement = makeArg(r, 3);
        const bool cut = r.byte() & 1;
        const bool wantBefore = r.byte() & 1;
        xcString beforeA("untouched");
        xcWString beforeW(L"untouched");
        const int ra = t.a.match(pattern.narrow, wantBefore ? &beforeA : nullptr, cut, replacement.narrow);
        const int rw = t.w.match(pattern.wide, wantBefore ? &beforeW : nullptr, cut, replacement.wide);
        FUZZ_CHECK(ra == rw && ra >= 0 && ra <= 2);
        FUZZ_CHECK(same(beforeA, beforeW));
        break;
    }
    case 4: {
        if (len >= kMaxLength)
            break;
        const int width = r.smallInt(len + 16);
        const Arg fill = nonEmptyArg(r, 3);
        const bool front = r.byte() & 1;
        t.a.inflate(width, fill.narrow, front);
        t.w.inflate(width, fill.wide, front);
        FUZZ_CHECK(t.a.length() == (width > len ? width : len));
        break;
    }
    case 5: {
        const Arg x = makeArg(r, 4);
        const Arg y = makeArg(r, 4);
        // Both buffers hold at least the shorter length plus its terminator.
        const int readable = int(std::min(x.bytes.size(), y.bytes.size())) + 1;
        const int limit = std::min(r.smallInt(readable), readable);
        const int ra = t.a.compareNoCase(x.narrow.getData(), y.narrow.getData(), limit);
        const int rw = t.w.compareNoCase(x.wide.getData(), y.wide.getData(), limit);
        FUZZ_CHECK(ra == compareNoCaseModel(x.narrow.getData(), y.narrow.getData(), limit));
        FUZZ_CHECK(rw == compareNoCaseModel(x.wide.getData(), y.wide.getData(), limit));
        break;
    }
    case 6: {
        const Arg other = makeArg(r, 8);
        const xcString xa = xcString::xorString(t.a, other.narrow);
        const xcWString xw = xcWString::xorString(t.w, other.wide);
        const int longer = std::max(len, other.narrow.length());
        FUZZ_CHECK(xa.length() == longer && xw.length() == longer);
        for (int i = 0; i < longer; ++i) {
            const bool both = i < len && i < other.narrow.length();
            const char ca = both ? char(t.a.getData()[i] ^ other.bytes[size_t(i)])
                                 : char(~(i < len ? t.a.getData()[i] : other.bytes[size_t(i)]));
            const wchar_t cw = both ? wchar_t(t.w.getData()[i] ^ other.wide.getData()[i])
                                    : wchar_t(~(i < len ? t.w.getData()[i] : other.wide.getData()[i]));
            FUZZ_CHECK(xa.getData()[i] == ca);
            FUZZ_CHECK(xw.getData()[i] == cw);
        }
        break;
    }
    case 7: {
        // Numbers: decimal text in the narrow twin, nothing in the wide one.
        const int v = r.anyInt();
        FUZZ_CHECK(content(xcString(v)) == std::to_string(v));
        FUZZ_CHECK(xcWString(v).isEmpty());
        xcString a = t.a;
        a += v;
        FUZZ_CHECK(content(a) == content(t.a) + std::to_string(v));
        FUZZ_CHECK(content(t.a + v) == content(t.a) + std::to_string(v));
        xcWString w = t.w;
        w += v;
        FUZZ_CHECK(w == t.w && (t.w + v) == t.w);
        FUZZ_CHECK(int(t.a) == std::atoi(t.a.getData()));
        const int base = t.w.length();
        const long expected = (base >= 2 && base <= 36) ? std::wcstol(t.w.getData(), nullptr, base) : 0;
        const int value = int(t.w);
        if (expected >= INT_MIN && expected <= INT_MAX)
            FUZZ_CHECK(value == int(expected));
        break;
    }
    default: {
        const Arg m1 = makeArg(r, 2), m2 = makeArg(r, 2), m3 = makeArg(r, 2), m4 = makeArg(r, 2);
        const xcString beforeA = t.a;
        const xcWString beforeW = t.w;
        t.a.expand(m1.narrow, m2.narrow, m3.narrow, m4.narrow);
        t.w.expand(m1.wide, m2.wide, m3.wide, m4.wide);
        FUZZ_CHECK(t.a == beforeA && t.w == beforeW);
        break;
    }
    }
}

void growStep(Twins& t, ByteReader& r, int which)
{
    if (t.a.length() >= kMaxLength) {
        t.a.clear();
        t.w.erase();
        return;
    }
    const Arg s = makeArg(r, 8);
    switch (which) {
    case 0:
        t.a.append(s.bytes.data(), int(s.bytes.size()));
        t.w.append(s.wide.getData(), s.wide.length());
        break;
    case 1:
        t.a.append(s.narrow.getData());
        t.w.append(s.wide.getData());
        break;
    case 2:
        t.a += s.narrow;
        t.w += s.wide;
        break;
    case 3: {
        const char c = r.interestingChar();
        t.a += c;
        t.w += widen(c);
        break;
    }
    case 4:
        t.a = t.a + s.narrow;
        t.w = t.w + s.wide;
        break;
    case 5:
        t.a = s.narrow + s.narrow.getData();
        t.w = s.wide + s.wide.getData();
        break;
    case 6: {
        xcString copy;
        copy.deepCopy(t.a, nullptr, nullptr);
        xcWString wcopy;
        wcopy.deepCopy(t.w, nullptr, nullptr);
        FUZZ_CHECK(copy == t.a && wcopy == t.w);
        t.a = copy;
        t.w = wcopy;
        t.a = t.a; // self-assignment keeps the value
        t.w = t.w;
        break;
    }
    case 7: {
        std::string buf = s.bytes + '\0';
        std::wstring wbuf = widen(s.bytes) + L'\0';
        t.a.strlwr(buf.data());
        t.w.wcslwr(wbuf.data());
        FUZZ_CHECK(widen(std::string(buf.c_str())) == std::wstring(wbuf.c_str()));
        break;
    }
    default:
        t.a = s.narrow.getData();
        t.w = s.wide.getData();
        break;
    }
}

} // namespace
} // namespace zemsub::fuzz

int fuzz_string_ops(const uint8_t* data, size_t size)
{
    using namespace zemsub::fuzz;
    CtypeLocale c("C");
    ByteReader r(data, size);
    Twins t;
    const std::string initial = r.shortText(32);
    t.a = xcString(initial.data(), int(initial.size()));
    t.w = xcWString(widen(initial));
    for (int step = 0; step < kMaxSteps && !r.empty(); ++step) {
        const uint8_t op = r.byte();
        switch (op % 5) {
        case 0:
            searchStep(t, r, (op / 5) % 6);
            break;
        case 1:
            cutStep(t, r, (op / 5) % 5);
            break;
        case 2:
            trimStep(t, r, (op / 5) % 9);
            break;
        case 3:
            textStep(t, r, (op / 5) % 9);
            break;
        default:
            growStep(t, r, (op / 5) % 9);
            break;
        }
        FUZZ_CHECK(same(t.a, t.w));
        checkTerminated(t.a, t.w);
    }
    return 0;
}
