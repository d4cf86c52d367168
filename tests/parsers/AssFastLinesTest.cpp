// The ASS/SSA entry builder reads Dialogue lines through a cursor over the
// stored line where it can; on every generated script it must make the same
// entries and set the same values as reading every line with the parser's own
// field readers.

#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "parsers/detail/ass/AssScript.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"

namespace {

using zemsub::detail::AssFastLines;
using zemsub::detail::AssNarrow;
using zemsub::detail::AssWide;
using zemsub::detail::buildAssEntries;

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

std::string spaces(std::mt19937& random)
{
    return random() % 4 ? "" : pick(random, {" ", "  ", "   ", " \t"});
}

std::string number(std::mt19937& random)
{
    return spaces(random) + pick(random, {"0", "1", "00", "59", "123456789", "1234567890", "-3", "+4", "&h10",
                                          "&H7", "x", "", "7x", " 5", "99999999999", "2147483648"});
}

std::string time(std::mt19937& random)
{
    return number(random) + pick(random, {":", ":", ":", ""}) + number(random) +
           pick(random, {":", ":", ":", "."}) + number(random) + pick(random, {".", ".", ".", ","}) +
           number(random);
}

std::string dialogueKey(std::mt19937& random)
{
    return pick(random, {"Dialogue", "Dialogue", "Dialogue", "dialogue", "DIALOGUE", "DiAlOgUe", "Dialogue ",
                         " Dialogue", "  Dialogue", "Dialogues", "Comment", "Dialog"});
}

std::string caption(std::mt19937& random)
{
    return pick(random, {"Hello", "{\\i1}Hi{\\i0} there", "<i>x</i>", "a\\Nb\\Nc", "\\N\\Nx", "{ab}{c",
                         "{a}{b}c", "", " lead", "x, y, z", "{\\fe1}t", "<<a>>", "Hello\\Nworld{\\b1}"});
}

std::string dialogueLine(std::mt19937& random)
{
    std::string line = spaces(random) + dialogueKey(random) + pick(random, {":", ":", ":", "", ": ", ":  "});
    if (random() % 3 == 0)
        line += "Marked=" + number(random) + ",";
    else
        line += number(random) + ",";
    line += time(random) + "," + time(random) + ",";
    if (random() % 12 == 0)
        return line; // ends after the times
    line += pick(random, {"Default", "*Default", "**Default", "* Default", "Main", "", " Default"}) + ",";
    line += pick(random, {"", "Actor", " name "}) + ",";
    const int margins = random() % 10 == 0 ? static_cast<int>(random() % 3) : 3;
    for (int m = 0; m < margins; ++m)
        line += number(random) + ",";
    if (random() % 8 == 0)
        return line + pick(random, {"", " ", "Effect"});
    line += pick(random, {"", "", "Banner;5", "Hello", " Karaoke"}) + ",";
    line += caption(random) + spaces(random);
    return line;
}

std::vector<std::string> script(std::mt19937& random)
{
    std::vector<std::string> lines;
    if (random() % 4)
        lines.push_back(
            pick(random, {"ScriptType: v4.00+", "ScriptType: v4.00", "ScriptType: 4.00+", "ScriptType:"}));
    if (random() % 3 == 0)
        lines.push_back(
            pick(random, {"PlayResX: 640", "PlayResY: 480", "Collisions: Reverse", "[V4+ Styles]",
                          "Style: Default,Arial,20,&H00FFFFFF,&H000000FF,&H00000000,&H00000000,0,0,0,0,"
                          "100,100,0,0,1,2,0,2,10,10,10,1",
                          "; comment", "Format: Layer, Start, End, Style, Text"}));
    const int dialogues = 1 + static_cast<int>(random() % 8);
    for (int d = 0; d < dialogues; ++d) {
        lines.push_back(dialogueLine(random));
        if (random() % 10 == 0)
            lines.push_back(pick(random, {"ScriptType: v4.00", "ScriptType: v4.00+", "", "   "}));
    }
    return lines;
}

template <class Entry>
void expectSameEntries(const std::map<int, Entry>& fast, const std::map<int, Entry>& plain)
{
    ASSERT_EQ(fast.size(), plain.size());
    for (auto f = fast.begin(), p = plain.begin(); f != fast.end(); ++f, ++p) {
        ASSERT_EQ(f->first, p->first);
        ASSERT_EQ(f->second.layer, p->second.layer) << "key " << f->first;
        ASSERT_EQ(f->second.start, p->second.start) << "key " << f->first;
        ASSERT_EQ(f->second.end, p->second.end) << "key " << f->first;
        ASSERT_EQ(stored(f->second.text), stored(p->second.text)) << "key " << f->first;
        ASSERT_EQ(stored(f->second.style), stored(p->second.style)) << "key " << f->first;
        ASSERT_EQ(stored(f->second.name), stored(p->second.name)) << "key " << f->first;
        ASSERT_EQ(stored(f->second.effect), stored(p->second.effect)) << "key " << f->first;
    }
}

struct Tally
{
    int scripts = 0;
    int threw = 0;
};

template <class T, class Parser, class Strip, class Make>
void compareOnScript(Parser& parser, Strip strip, Make make, const std::vector<std::string>& text,
                     Tally& tally)
{
    using S = typename T::String;
    std::vector<S> lines;
    for (const std::string& line : text)
        lines.push_back(make(line));
    struct Targets
    {
        std::map<int, typename T::Entry> entries;
        S collisions;
        int playResX = 0;
        int playResY = 0;
        typename T::Style style;
    } fast, plain;
    bool fastThrew = false;
    bool plainThrew = false;
    try {
        buildAssEntries<T>(parser, lines,
                           {fast.entries, fast.collisions, fast.playResX, fast.playResY, fast.style}, strip,
                           AssFastLines::Use);
    } catch (int) {
        fastThrew = true;
    }
    try {
        buildAssEntries<T>(parser, lines,
                           {plain.entries, plain.collisions, plain.playResX, plain.playResY, plain.style},
                           strip, AssFastLines::Avoid);
    } catch (int) {
        plainThrew = true;
    }
    ASSERT_EQ(fastThrew, plainThrew);
    expectSameEntries(fast.entries, plain.entries);
    ASSERT_EQ(stored(fast.collisions), stored(plain.collisions));
    ASSERT_EQ(fast.playResX, plain.playResX);
    ASSERT_EQ(fast.playResY, plain.playResY);
    ++tally.scripts;
    tally.threw += fastThrew ? 1 : 0;
}

TEST(AssFastLines, NarrowMakesTheSameEntriesAsTheFieldReaders)
{
    xcAssParser parser;
    auto strip = [&parser](xcString text) { return parser.RemoveSSATags(text, 0); };
    auto make = [](const std::string& s) { return xcString(s.c_str()); };
    std::mt19937 random(7171u);
    Tally tally;
    for (int round = 0; round < 15000 && !HasFatalFailure(); ++round)
        compareOnScript<AssNarrow>(parser, strip, make, script(random), tally);
    EXPECT_EQ(tally.scripts, 15000);
}

TEST(AssFastLines, WideMakesTheSameEntriesAsTheFieldReaders)
{
    xcAssParserU parser;
    auto strip = [&parser](xcWString text) { return parser.RemoveSSATags(text); };
    auto make = [](const std::string& s) {
        const std::wstring w(s.begin(), s.end());
        return xcWString(w.c_str());
    };
    std::mt19937 random(7172u);
    Tally tally;
    for (int round = 0; round < 8000 && !HasFatalFailure(); ++round)
        compareOnScript<AssWide>(parser, strip, make, script(random), tally);
    EXPECT_EQ(tally.scripts, 8000);
    // Dialogue lines that end right after a field throw the int 1 in the wide
    // parser, with the entries made before them kept.
    EXPECT_GT(tally.threw, 500);
}

// The usual line, read through the cursor.
TEST(AssFastLines, UsualDialogueLineGivesItsFields)
{
    xcAssParser parser;
    auto strip = [&parser](xcString text) { return parser.RemoveSSATags(text, 0); };
    std::vector<xcString> lines = {
        xcString("ScriptType: v4.00+"),
        xcString("Dialogue: 2,0:00:01.50,0:00:03.00,*Default,Bob,0,0,0,Fx,{\\i1}One{\\i0}\\Ntwo")};
    std::map<int, ASS_SESSION_ST> entries;
    xcString collisions;
    int x = 0;
    int y = 0;
    ASS_STYLE_ST style;
    ASSERT_TRUE(buildAssEntries<AssNarrow>(parser, lines, {entries, collisions, x, y, style}, strip));
    ASSERT_EQ(entries.size(), 1u);
    const ASS_SESSION_ST& e = entries.at(1);
    EXPECT_EQ(e.layer, 2);
    EXPECT_EQ(e.start, 1500);
    EXPECT_EQ(e.end, 3000);
    EXPECT_STREQ(e.style.getData(), "Default");
    EXPECT_STREQ(e.name.getData(), "Bob");
    EXPECT_STREQ(e.effect.getData(), "Fx");
    EXPECT_STREQ(e.text.getData(), "\nOne\ntwo");
}

} // namespace
