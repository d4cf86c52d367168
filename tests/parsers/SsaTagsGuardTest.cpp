// RemoveSSATags ends a brace or angle pass at its first repeated state. These
// tests run it beside plain, unguarded runs of the same steps written out here:
// wherever the plain run ends within its step cap, both results are identical
// (stored characters and recorded length); where it does not, the result is
// the text of the first state that repeats.

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <utility>

#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"

namespace {

std::string stored(const xcString& s)
{
    return std::string(s.getData(), static_cast<size_t>(s.length()));
}

std::wstring stored(const xcWString& s)
{
    return std::wstring(s.getData(), static_cast<size_t>(s.length()));
}

xcString narrowText(const std::string& s)
{
    return xcString(s.data(), static_cast<int>(s.size()));
}

xcWString wideText(const std::string& s)
{
    const std::wstring w(s.begin(), s.end());
    return xcWString(w.data(), static_cast<int>(w.size()));
}

int findIn(xcAssParser& parser, const xcString& text, char c, int start)
{
    return parser.FindChar(text, c, start, 0);
}

int findIn(xcAssParserU& parser, const xcWString& text, char c, int start)
{
    return parser.FindChar(text, c, start);
}

// The pass as written: no guard, at most `cap` removals. False when the cap
// was reached before the pass ended.
template <class Parser, class S> bool plainPass(Parser& parser, S& text, char open, char close, int cap)
{
    int p = 0;
    int removals = 0;
    while (p < text.length()) {
        p = findIn(parser, text, open, p);
        if (p < 0)
            break;
        const int q = findIn(parser, text, close, p);
        if (q < 0)
            break;
        text.deleteStr(p, q - p + 1);
        if (++removals > cap)
            return false;
    }
    return true;
}

// The pass with every state remembered: it stops at the first state seen
// before. Sets `repeated` when it stopped that way, and `period` to the
// number of removals between the two sightings.
template <class Parser, class S>
void rememberingPass(Parser& parser, S& text, char open, char close, bool& repeated, int& period)
{
    using Key = std::pair<decltype(stored(text)), int>;
    std::map<Key, int> seen; // state -> removals made before it
    int p = 0;
    int removals = 0;
    repeated = false;
    period = 0;
    while (p < text.length()) {
        const Key key(stored(text), p);
        const auto before = seen.find(key);
        if (before != seen.end()) {
            repeated = true;
            period = removals - before->second;
            return;
        }
        seen.emplace(key, removals);
        p = findIn(parser, text, open, p);
        if (p < 0)
            break;
        const int q = findIn(parser, text, close, p);
        if (q < 0)
            break;
        text.deleteStr(p, q - p + 1);
        ++removals;
    }
}

template <class S, class From, class To> void convertFirstBreak(S& text, const From& from, const To& to)
{
    text.replaceChars(S(from), S(to));
}

struct Tally
{
    int endedOnTheirOwn = 0;
    int endless = 0;
    int endlessWithLongerPeriod = 0;
};

// Runs one text both ways and compares.
template <class Parser, class S>
void compareOne(Parser& parser, const S& input, S guarded, const S& hardBreak, const S& lineFeed,
                Tally& tally)
{
    constexpr int kCap = 1000;
    S plain = input;
    const bool ended = plainPass(parser, plain, '{', '}', kCap) && plainPass(parser, plain, '<', '>', kCap);
    if (ended) {
        convertFirstBreak(plain, hardBreak, lineFeed);
        ASSERT_EQ(stored(guarded), stored(plain));
        ASSERT_EQ(guarded.length(), plain.length());
        ++tally.endedOnTheirOwn;
        return;
    }
    S remembered = input;
    bool repeatedBraces = false;
    bool repeatedAngles = false;
    int periodBraces = 0;
    int periodAngles = 0;
    rememberingPass(parser, remembered, '{', '}', repeatedBraces, periodBraces);
    rememberingPass(parser, remembered, '<', '>', repeatedAngles, periodAngles);
    ASSERT_TRUE(repeatedBraces || repeatedAngles);
    convertFirstBreak(remembered, hardBreak, lineFeed);
    ASSERT_EQ(stored(guarded), stored(remembered));
    ASSERT_EQ(guarded.length(), remembered.length());
    ++tally.endless;
    if (periodBraces > 1 || periodAngles > 1)
        ++tally.endlessWithLongerPeriod;
}

// Every text over the given alphabet up to maxLength characters, then
// `randomCount` longer random ones over a wider alphabet.
template <class F> void forGeneratedTexts(int maxLength, int randomCount, F f)
{
    const std::string small = "{}<>a";
    std::string text;
    for (int len = 0; len <= maxLength; ++len) {
        long long combos = 1;
        for (int i = 0; i < len; ++i)
            combos *= static_cast<long long>(small.size());
        for (long long code = 0; code < combos; ++code) {
            text.assign(static_cast<size_t>(len), ' ');
            long long rest = code;
            for (int i = 0; i < len; ++i) {
                text[static_cast<size_t>(i)] = small[static_cast<size_t>(rest % 5)];
                rest /= 5;
            }
            f(text);
        }
    }
    const std::string wide = std::string("{{}}<<>>ab\\N", 12) + std::string(1, '\0');
    std::mt19937 random(20240601u);
    for (int round = 0; round < randomCount; ++round) {
        const int len = 8 + static_cast<int>(random() % 33);
        text.clear();
        for (int i = 0; i < len; ++i)
            text += wide[random() % wide.size()];
        f(text);
    }
}

TEST(SsaTagsGuard, NarrowMatchesUnguardedRunsOnGeneratedTexts)
{
    xcAssParser parser;
    Tally tally;
    forGeneratedTexts(7, 6000, [&](const std::string& text) {
        const xcString input = narrowText(text);
        compareOne(parser, input, parser.RemoveSSATags(input, 0), xcString("\\N"), xcString("\n"), tally);
    });
    RecordProperty("endedOnTheirOwn", tally.endedOnTheirOwn);
    RecordProperty("endless", tally.endless);
    RecordProperty("endlessWithLongerPeriod", tally.endlessWithLongerPeriod);
    EXPECT_GT(tally.endedOnTheirOwn, 90000);
    EXPECT_GT(tally.endless, 3000);
    EXPECT_GT(tally.endlessWithLongerPeriod, 50);
}

TEST(SsaTagsGuard, WideMatchesUnguardedRunsOnGeneratedTexts)
{
    xcAssParserU parser;
    Tally tally;
    forGeneratedTexts(6, 4000, [&](const std::string& text) {
        const xcWString input = wideText(text);
        compareOne(parser, input, parser.RemoveSSATags(input), xcWString(L"\\N"), xcWString(L"\n"), tally);
    });
    RecordProperty("endedOnTheirOwn", tally.endedOnTheirOwn);
    RecordProperty("endless", tally.endless);
    RecordProperty("endlessWithLongerPeriod", tally.endlessWithLongerPeriod);
    EXPECT_GT(tally.endedOnTheirOwn, 15000);
    EXPECT_GT(tally.endless, 500);
    EXPECT_GT(tally.endlessWithLongerPeriod, 50);
}

// Long texts that end on their own: many blocks, removals at the same and at
// growing positions, stale tails full of closing characters.
TEST(SsaTagsGuard, LongTerminatingTextsAreUnchangedByTheGuard)
{
    xcAssParser parser;
    Tally tally;
    std::string manyBlocks;
    for (int i = 0; i < 200; ++i)
        manyBlocks += "{\\b1}word<i>x</i> ";
    std::string nested;
    for (int i = 0; i < 100; ++i)
        nested += "{{{a}}}";
    for (const std::string& text : {manyBlocks, nested, std::string(300, '}') + "{x}",
                                    std::string("{") + std::string(300, 'a') + "}"}) {
        const xcString input = narrowText(text);
        compareOne(parser, input, parser.RemoveSSATags(input, 0), xcString("\\N"), xcString("\n"), tally);
    }
    EXPECT_EQ(tally.endedOnTheirOwn, 4);
}

TEST(SsaTagsGuard, EndlessBraceTextEndsAtItsFirstRepeatedState)
{
    xcAssParser parser;
    // {ab}{c: the first removal leaves "{c", zero, "}{c"; the brace before the
    // zero pairs with the one behind it and the same removal comes back.
    const xcString out = parser.RemoveSSATags("{ab}{c", 0);
    EXPECT_EQ(stored(out), std::string("{c\0}{c", 6));
    EXPECT_STREQ(out.getData(), "{c");

    xcAssParserU wide;
    const xcWString wout = wide.RemoveSSATags(L"{ab}{c");
    EXPECT_EQ(stored(wout), std::wstring(L"{c\0}{c", 6));
}

TEST(SsaTagsGuard, EndlessAngleTextEndsAfterItsBracesAreRemoved)
{
    xcAssParser parser;
    // The brace pass ends normally with "><", zero, "><"; in the angle pass the
    // "<" before the zero pairs with the ">" behind it, and that removal repeats.
    xcString expected("{a}><");
    ASSERT_TRUE(plainPass(parser, expected, '{', '}', 100));
    EXPECT_EQ(stored(expected), std::string("><\0><", 5));
    bool repeated = false;
    int period = 0;
    rememberingPass(parser, expected, '<', '>', repeated, period);
    EXPECT_TRUE(repeated);
    EXPECT_EQ(period, 1);

    const xcString out = parser.RemoveSSATags("{a}><", 0);
    EXPECT_EQ(stored(out), std::string("><\0><", 5));
    EXPECT_EQ(stored(out), stored(expected));
}

TEST(SsaTagsGuard, PassThatRepeatsEveryTwoRemovalsEndsAtItsFirstRepeatedState)
{
    xcAssParser parser;
    xcString remembered("{{}{{{}{");
    bool repeated = false;
    int period = 0;
    rememberingPass(parser, remembered, '{', '}', repeated, period);
    ASSERT_TRUE(repeated);
    EXPECT_EQ(period, 2);
    EXPECT_EQ(stored(parser.RemoveSSATags("{{}{{{}{", 0)), stored(remembered));
}

TEST(SsaTagsGuard, EndlessHardBreakTextStillConvertsItsFirstBreak)
{
    xcAssParser parser;
    // After the repeated state "\N{c", zero, "}{c" the first "\N" becomes a line feed.
    const xcString out = parser.RemoveSSATags("\\N{ab}{c", 0);
    EXPECT_STREQ(out.getData(), "\n{c");
}

} // namespace
