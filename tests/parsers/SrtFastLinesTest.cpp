// The SubRip map builder reads numbers and time lines from ranges of the
// stored lines where it can; on every generated line list it must build the
// same map, and leave the same lines, as the step-by-step reference.

#include <gtest/gtest.h>

#include <clocale>
#include <initializer_list>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "parsers/detail/srt/SrtMapBuilder.h"
#include "reference/SrtMapSteps.h"

namespace {

using zemsub::detail::buildSrtMap;
using zemsub::detail::SrtNarrow;
using zemsub::detail::SrtWide;

std::string stored(const xcString& s)
{
    return std::string(s.getData(), static_cast<size_t>(s.length()));
}

std::wstring stored(const xcWString& s)
{
    return std::wstring(s.getData(), static_cast<size_t>(s.length()));
}

std::string pick(std::mt19937& random, std::initializer_list<const char*> choices)
{
    return *(choices.begin() + random() % choices.size());
}

std::string number(std::mt19937& random)
{
    std::string digits = pick(random, {"0", "00", "7", "12", "059", "123456789", "1234567890", "99999999999",
                                       "2147483648", "4294967301"});
    if (random() % 6 == 0)
        digits = pick(random, {"-", "+", " ", "x", ""}) + digits;
    if (random() % 6 == 0)
        digits += pick(random, {" ", "x", "5", ".", ""});
    return digits;
}

std::string timeText(std::mt19937& random)
{
    std::string t = number(random) + pick(random, {":", ":", ":", "", ","}) + number(random) +
                    pick(random, {":", ":", ":", ".", ""}) + number(random) +
                    pick(random, {",", ",", ",", ":", ""}) +
                    pick(random, {"000", "5", "12", "1234", "", "0x", "999"});
    if (random() % 5 == 0) {
        const size_t at = random() % (t.size() + 1);
        t.insert(at, pick(random, {" ", "  ", "\t"}));
    }
    return t;
}

std::string timeLine(std::mt19937& random)
{
    const std::string left =
        pick(random, {"", " ", "  "}) + timeText(random) + pick(random, {" ", "", "  ", " x"});
    const std::string right = pick(random, {" ", "", "  ", "x"}) + timeText(random) + pick(random, {"", " "});
    if (random() % 10 == 0)
        return left + "-->" + pick(random, {"", " ", "x"});
    if (random() % 12 == 0)
        return "-->" + right;
    return left + "-->" + right;
}

std::vector<std::string> lineList(std::mt19937& random)
{
    std::vector<std::string> lines;
    const int entries = 1 + static_cast<int>(random() % 6);
    for (int e = 0; e < entries; ++e) {
        if (random() % 8 != 0)
            lines.push_back(pick(random, {"", " ", "  "}) + number(random) + pick(random, {"", " "}));
        if (random() % 8 != 0)
            lines.push_back(timeLine(random));
        // Now and then a long run of caption lines: each is scanned again from
        // the lines before it, and every scan trims it once more.
        const int texts = static_cast<int>(random() % 4 == 0 ? 3 + random() % 10 : random() % 3);
        for (int t = 0; t < texts; ++t)
            lines.push_back(pick(random, {"Hello", " two words ", "12 apples", "a-->b", "", "  ", "    -->x",
                                          "     7", "      six ", "   ", "Bye  "}));
    }
    return lines;
}

template <class T, class Widen>
void compareOnList(const std::vector<std::string>& list, Widen widen, int& built)
{
    using String = typename T::String;
    std::vector<String> fastLines;
    std::vector<String> plainLines;
    for (const std::string& line : list) {
        fastLines.push_back(widen(line));
        plainLines.push_back(widen(line));
    }
    std::map<int, typename T::Entry> fast;
    std::map<int, typename T::Entry> plain;
    bool fastThrew = false;
    bool plainThrew = false;
    try {
        buildSrtMap<T>(fastLines, fast);
    } catch (const std::out_of_range&) {
        fastThrew = true;
    }
    try {
        zemsub::reference::buildSrtMapSteps<T>(plainLines, plain);
    } catch (const std::out_of_range&) {
        plainThrew = true;
    }
    ASSERT_EQ(fastThrew, plainThrew);
    ASSERT_EQ(fast.size(), plain.size());
    for (auto f = fast.begin(), p = plain.begin(); f != fast.end(); ++f, ++p) {
        ASSERT_EQ(f->first, p->first);
        ASSERT_EQ(f->second.start, p->second.start) << "key " << f->first;
        ASSERT_EQ(f->second.end, p->second.end) << "key " << f->first;
        ASSERT_EQ(stored(f->second.text), stored(p->second.text)) << "key " << f->first;
    }
    for (size_t k = 0; k < fastLines.size(); ++k)
        ASSERT_EQ(stored(fastLines[k]), stored(plainLines[k]));
    ++built;
}

TEST(SrtFastLines, NarrowBuildsTheSameMapAsTheSteps)
{
    std::mt19937 random(6161u);
    int built = 0;
    for (int round = 0; round < 20000 && !HasFatalFailure(); ++round)
        compareOnList<SrtNarrow>(
            lineList(random), [](const std::string& s) { return xcString(s.c_str()); }, built);
    EXPECT_EQ(built, 20000);
}

TEST(SrtFastLines, WideBuildsTheSameMapAsTheSteps)
{
    std::mt19937 random(6162u);
    int built = 0;
    auto widen = [](const std::string& s) {
        const std::wstring w(s.begin(), s.end());
        return xcWString(w.c_str());
    };
    for (int round = 0; round < 8000 && !HasFatalFailure(); ++round)
        compareOnList<SrtWide>(lineList(random), widen, built);
    EXPECT_EQ(built, 8000);
}

// __wtoi converts the whole field to bytes by the locale first and reads 0
// when that fails: a number with a character the locale cannot convert must
// not be read from its digits alone.
TEST(SrtFastLines, WideNumberWithAnUnconvertibleCharacterReadsAsTheStepsReadIt)
{
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr);
    int built = 0;
    const std::vector<std::wstring> texts = {L"12\x20AC", L"00:00:01,500\x20AC --> 00:00:02,000",
                                             L"00:00:01,500 --> 00:00:02\x20AC,000"};
    for (const std::wstring& text : texts) {
        std::vector<xcWString> fastLines = {xcWString(L"1"), xcWString(text.c_str()), xcWString(L"Caption")};
        std::vector<xcWString> plainLines = fastLines;
        std::map<int, SRC_SESSION_ST_U> fast;
        std::map<int, SRC_SESSION_ST_U> plain;
        buildSrtMap<SrtWide>(fastLines, fast);
        zemsub::reference::buildSrtMapSteps<SrtWide>(plainLines, plain);
        ASSERT_EQ(fast.size(), plain.size());
        for (auto f = fast.begin(), p = plain.begin(); f != fast.end(); ++f, ++p) {
            EXPECT_EQ(f->first, p->first);
            EXPECT_EQ(f->second.start, p->second.start);
            EXPECT_EQ(f->second.end, p->second.end);
        }
        ++built;
    }
    std::setlocale(LC_ALL, saved.c_str());
    EXPECT_EQ(built, 3);
}

// The usual shape is read from the ranges: "00:01:02,345 --> 00:01:04,000".
TEST(SrtFastLines, UsualTimeLineGivesItsMilliseconds)
{
    std::vector<xcString> lines = {xcString("7"), xcString("00:01:02,345 --> 00:01:04,000"), xcString("Hi")};
    std::map<int, SRC_SESSION_ST> map;
    buildSrtMap<SrtNarrow>(lines, map);
    ASSERT_EQ(map.count(7), 1u);
    EXPECT_EQ(map[7].start, 62345);
    EXPECT_EQ(map[7].end, 64000);
    EXPECT_STREQ(map[7].text.getData(), "\nHi");
}

} // namespace
