// The tag passes of RemoveSSATags against the step-by-step reference
// (reference/SsaTagSteps.h), pass by pass. Both must store the same characters
// with the same recorded length, stale tail included, on every generated text: braces,
// angles, zeros, stale tails that pair with an open block, long texts, and
// passes that come back to an earlier state.

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "parsers/detail/ass/SsaTagPass.h"
#include "parsers/detail/ass/SsaTags.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "reference/SsaTagSteps.h"

namespace {

using zemsub::detail::runTagPass;

std::string stored(const xcString& s)
{
    return std::string(s.getData(), static_cast<size_t>(s.length()));
}

std::wstring stored(const xcWString& s)
{
    return std::wstring(s.getData(), static_cast<size_t>(s.length()));
}

xcString toText(const std::string& s)
{
    return xcString(s.data(), static_cast<int>(s.size()));
}

xcWString toText(const std::wstring& s)
{
    return xcWString(s.data(), static_cast<int>(s.size()));
}

std::wstring widen(const std::string& s)
{
    std::wstring w;
    for (char c : s)
        w += static_cast<wchar_t>(c);
    return w;
}

// ---- the reference, pass by pass ----

// One pass of the step-by-step reference; repeatsAfter is the number of
// removals after which the state repeats, 0 when the pass ends on its own.
template <class S, class C> S referencePass(const S& text, C open, C close, long long& repeatsAfter)
{
    zemsub::reference::TagStepsNotes notes;
    const auto out = zemsub::reference::tagPassSteps(stored(text), open, close, &notes);
    repeatsAfter = notes.repeated ? notes.period : 0;
    return toText(out);
}

struct Tally
{
    int texts = 0;
    int repeated = 0;
    int longerPeriod = 0; // repeated every two removals or more
    int changed = 0;
};

// The passes one by one (with the given hash multipliers), the shared
// removeSsaTags and the parser's RemoveSSATags (strip), against the reference.
template <class C, class S, class Strip>
void compareWithWalk(const std::basic_string<C>& input, const S& hardBreak, const S& lineFeed,
                     Strip strip, Tally& tally, const std::vector<std::uint64_t>& hashBases)
{
    if (testing::Test::HasFatalFailure())
        return; // one failure is enough to read
    const S text = toText(input);
    long long repeatedBraces = 0;
    long long repeatedAngles = 0;
    const S afterBraces = referencePass(text, C('{'), C('}'), repeatedBraces);
    const S afterAngles = referencePass(afterBraces, C('<'), C('>'), repeatedAngles);
    S walked = afterAngles;
    walked.replaceChars(hardBreak, lineFeed);

    for (std::uint64_t base : hashBases) {
        const std::basic_string<C> braces = runTagPass<C>(input, C('{'), C('}'), base);
        ASSERT_EQ(braces, stored(afterBraces)) << "brace pass, hash base " << base;
        const std::basic_string<C> angles = runTagPass<C>(braces, C('<'), C('>'), base);
        ASSERT_EQ(angles, stored(afterAngles)) << "angle pass, hash base " << base;
    }
    const S removed = zemsub::detail::removeSsaTags(text, hardBreak, lineFeed);
    ASSERT_EQ(stored(removed), stored(walked));
    ASSERT_EQ(removed.length(), walked.length());
    const S out = strip(text);
    ASSERT_EQ(stored(out), stored(walked));
    ASSERT_EQ(out.length(), walked.length());

    ++tally.texts;
    if (repeatedBraces || repeatedAngles)
        ++tally.repeated;
    if (repeatedBraces > 1 || repeatedAngles > 1)
        ++tally.longerPeriod;
    if (stored(walked) != input)
        ++tally.changed;
}

void compareNarrow(xcAssParser& parser, const std::string& input, Tally& tally,
                   const std::vector<std::uint64_t>& hashBases = {
                       zemsub::detail::TagWindow<char>::defaultHashBase})
{
    auto strip = [&parser](const xcString& text) { return parser.RemoveSSATags(text, 0); };
    compareWithWalk<char>(input, xcString("\\N"), xcString("\n"), strip, tally, hashBases);
}

void compareWide(xcAssParserU& parser, const std::wstring& input, Tally& tally,
                 const std::vector<std::uint64_t>& hashBases = {
                     zemsub::detail::TagWindow<wchar_t>::defaultHashBase})
{
    auto strip = [&parser](const xcWString& text) { return parser.RemoveSSATags(text); };
    compareWithWalk<wchar_t>(input, xcWString(L"\\N"), xcWString(L"\n"), strip, tally, hashBases);
}

// ---- generated texts ----

// Every text over `alphabet` of length up to maxLength.
template <class F> void everyText(const std::string& alphabet, int maxLength, F f)
{
    std::vector<size_t> digits;
    std::string text;
    for (int len = 0; len <= maxLength; ++len) {
        digits.assign(static_cast<size_t>(len), 0);
        for (;;) {
            text.clear();
            for (size_t d : digits)
                text += alphabet[d];
            f(text);
            size_t k = 0;
            while (k < digits.size() && ++digits[k] == alphabet.size())
                digits[k++] = 0;
            if (k == digits.size())
                break;
        }
    }
}

std::string randomText(std::mt19937& random, const std::string& alphabet, int minLength, int maxLength)
{
    const int len = minLength + static_cast<int>(random() % static_cast<unsigned>(maxLength - minLength + 1));
    std::string text;
    for (int i = 0; i < len; ++i)
        text += alphabet[random() % alphabet.size()];
    return text;
}

// Some complete blocks, then an opening character whose closing one only the
// stale tail can give: "{ab}{c" and its relatives.
std::string staleTailPairing(std::mt19937& random)
{
    auto filler = [&](const std::string& from, int most) {
        std::string s;
        const int n = static_cast<int>(random() % static_cast<unsigned>(most + 1));
        for (int i = 0; i < n; ++i)
            s += from[random() % from.size()];
        return s;
    };
    const std::string any("ab\\N }{<>", 9);
    const bool angles = random() % 3 == 0;
    const char open = angles ? '<' : '{';
    const char close = angles ? '>' : '}';
    std::string text = filler(any, 2);
    const int blocks = 1 + static_cast<int>(random() % 3);
    for (int b = 0; b < blocks; ++b) {
        text += open + filler(any, 6) + close;
        if (random() % 3 == 0)
            text += filler(any, 2);
        if (random() % 5 == 0)
            text += std::string(1, '\0');
    }
    text += open + filler("ab", 2);
    if (random() % 3 == 0)
        text += std::string(1, open) + filler("ab", 1);
    return text;
}

TEST(SsaTagPass, NarrowMatchesTheWalkOnEveryShortText)
{
    xcAssParser parser;
    Tally tally;
    everyText(std::string("{}<>a\0", 6), 6,
              [&](const std::string& text) { compareNarrow(parser, text, tally); });
    EXPECT_EQ(tally.texts, 55987);
    EXPECT_GT(tally.repeated, 1000);
}

TEST(SsaTagPass, WideMatchesTheWalkOnEveryShortText)
{
    xcAssParserU parser;
    Tally tally;
    everyText(std::string("{}<>a\0", 6), 5,
              [&](const std::string& text) { compareWide(parser, widen(text), tally); });
    EXPECT_EQ(tally.texts, 9331);
    EXPECT_GT(tally.repeated, 100);
}

TEST(SsaTagPass, NarrowMatchesTheWalkOnRandomTexts)
{
    xcAssParser parser;
    Tally tally;
    std::mt19937 random(8101u);
    const std::string dense("{{}}<<>>ab\\N\0\xE9", 14);
    const std::string sparse("{}<>abcdefghijklmnopqrstuvwxyz \\N\0", 35);
    for (int round = 0; round < 12000; ++round)
        compareNarrow(parser, randomText(random, dense, 7, 48), tally);
    for (int round = 0; round < 3000; ++round)
        compareNarrow(parser, randomText(random, sparse, 20, 200), tally);
    EXPECT_EQ(tally.texts, 15000);
    EXPECT_GT(tally.repeated, 600);
    EXPECT_GT(tally.longerPeriod, 200);
    EXPECT_GT(tally.changed, 10000);
}

TEST(SsaTagPass, WideMatchesTheWalkOnRandomTexts)
{
    xcAssParserU parser;
    Tally tally;
    std::mt19937 random(8102u);
    const std::wstring dense(L"{{}}<<>>ab\\N\0\x20AC", 14);
    for (int round = 0; round < 8000; ++round) {
        std::wstring text;
        const int len = 7 + static_cast<int>(random() % 42);
        for (int i = 0; i < len; ++i)
            text += dense[random() % dense.size()];
        compareWide(parser, text, tally);
    }
    EXPECT_EQ(tally.texts, 8000);
    EXPECT_GT(tally.repeated, 400);
    EXPECT_GT(tally.longerPeriod, 150);
}

TEST(SsaTagPass, StaleTailPairingsMatchTheWalk)
{
    xcAssParser narrow;
    xcAssParserU wide;
    Tally narrowTally;
    Tally wideTally;
    std::mt19937 random(8103u);
    for (int round = 0; round < 6000; ++round) {
        const std::string text = staleTailPairing(random);
        compareNarrow(narrow, text, narrowTally);
        if (round % 3 == 0)
            compareWide(wide, widen(text), wideTally);
    }
    EXPECT_GT(narrowTally.repeated, 1000);
    EXPECT_GT(narrowTally.longerPeriod, 300);
    EXPECT_GT(wideTally.repeated, 300);
}

// A hash multiplier of 0 makes every window's hash its last character, 1 the
// sum of its characters: matches that the characters then disprove must not
// change any answer.
TEST(SsaTagPass, HashCollisionsAreConfirmedCharacterByCharacter)
{
    xcAssParser parser;
    Tally tally;
    std::mt19937 random(8104u);
    const std::string dense("{{}}<<>>ab\0", 11);
    for (int round = 0; round < 4000; ++round) {
        const std::string text = round % 2 ? randomText(random, dense, 7, 40) : staleTailPairing(random);
        compareNarrow(parser, text, tally, {0, 1, 2});
    }
    EXPECT_GT(tally.repeated, 400);
    EXPECT_GT(tally.longerPeriod, 150);
}

// Long texts: many removals away from the window's start (the buffer is
// compacted between them), long runs at its start, stale tails full of
// closing characters, and passes that repeat only after many removals.
TEST(SsaTagPass, LongTextsMatchTheWalk)
{
    xcAssParser narrow;
    xcAssParserU wide;
    Tally tally;
    std::vector<std::string> texts;
    std::string captions;
    for (int i = 0; i < 400; ++i)
        captions += (i % 3 == 0) ? "{\\b1}word " : (i % 3 == 1) ? "<i>text</i> " : "plain\\Nline ";
    texts.push_back(captions);
    std::string pairs;
    for (int i = 0; i < 1500; ++i)
        pairs += "{}";
    texts.push_back(pairs);
    texts.push_back(std::string(2000, '}') + "{x}" + std::string(2000, '{'));
    texts.push_back("{" + std::string(4000, 'a') + "}{c");
    texts.push_back("<" + std::string(3000, 'a') + "><c" + std::string(500, 'z'));
    std::string blocksThenEndless;
    for (int i = 0; i < 600; ++i)
        blocksThenEndless += "x{a}";
    texts.push_back(blocksThenEndless + "{ab}{c");
    texts.push_back(blocksThenEndless + "{{}{{{}{");
    std::string nested;
    for (int i = 0; i < 500; ++i)
        nested += "{{{a}}}<<b>>";
    texts.push_back(nested);
    std::mt19937 random(8105u);
    for (int round = 0; round < 40; ++round) {
        const std::string alphabet =
            round % 2 ? std::string("{}<>ab\0", 7) : std::string("{}<>abcdefgh \\N", 15);
        texts.push_back(randomText(random, alphabet, 1000, 4000));
    }
    for (int round = 0; round < 60; ++round) {
        std::string text;
        const char* const pieces[] = {"ab", "{x}", "<y>", " ", "{\\b1}", "</i>"};
        while (text.size() < 3000)
            text += pieces[random() % 6];
        texts.push_back(text + staleTailPairing(random));
    }
    for (const std::string& text : texts)
        compareNarrow(narrow, text, tally, {zemsub::detail::TagWindow<char>::defaultHashBase, 0});
    for (size_t k = 0; k < texts.size(); k += 4)
        compareWide(wide, widen(texts[k]), tally);
    EXPECT_EQ(tally.texts, static_cast<int>(texts.size() + (texts.size() + 3) / 4));
    EXPECT_GT(tally.repeated, 8);
    EXPECT_GT(tally.longerPeriod, 5);
}

// n pairs "{}": every removal is at the window's start and leaves a zero and
// a "}" behind, so the stored text ends as n times zero and "}". The walk
// needs n removals over the whole text each; the pass finishes it in one
// run over the text.
TEST(SsaTagPass, LongRunOfRemovalsAtTheStartLeavesZeroAndBracePairs)
{
    constexpr int n = 300000;
    std::string pairs;
    std::string expected;
    for (int i = 0; i < n; ++i) {
        pairs += "{}";
        expected += std::string(1, '\0') + "}";
    }
    xcAssParser parser;
    const xcString out = parser.RemoveSSATags(toText(pairs), 0);
    EXPECT_EQ(out.length(), 2 * n);
    EXPECT_EQ(stored(out), expected);

    Tally tally;
    compareNarrow(parser, pairs.substr(0, 2000), tally);
}

// A megabyte of captions with tags, cleaned: the visible text is every
// caption word with its tags gone and the first "\N" made a line feed.
TEST(SsaTagPass, MegabyteOfTaggedCaptionsLosesEveryTag)
{
    std::string text;
    std::string visible;
    for (int i = 0; text.size() < (1u << 20); ++i) {
        text += (i % 3 == 0) ? "{\\b1}word " : (i % 3 == 1) ? "<i>text</i> " : "plain\\Nline ";
        visible += (i % 3 == 0)   ? "word "
                   : (i % 3 == 1) ? "text "
                                  : (i == 2 ? "plain\nline " : "plain\\Nline ");
    }
    xcAssParser parser;
    const xcString out = parser.RemoveSSATags(toText(text), 0);
    EXPECT_EQ(out.length(), static_cast<int>(text.size()) - 1);
    EXPECT_EQ(std::string(out.getData()), visible);

    xcAssParserU wide;
    const xcWString wout = wide.RemoveSSATags(toText(widen(text)));
    EXPECT_EQ(std::wstring(wout.getData()), widen(visible));
}

} // namespace
