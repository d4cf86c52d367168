// The map builders against their step-by-step references on every input. The
// input is cut into lines at line feeds (each line ending at its first zero
// byte, as the readers hand lines over); the wide twins get the same bytes as
// characters 0 to 255.
//   srt_map: buildSrtMap against reference/SrtMapSteps.h, both twins: the same
//            map and the same trimmed lines.
//   ass_map: buildAssEntries through the field cursor against the same builder
//            reading every line with the parsers' own field readers, both
//            twins: the same entries, values and thrown int.
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "FuzzTargets.h"
#include "parsers/detail/ass/AssScript.h"
#include "parsers/detail/srt/SrtMapBuilder.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "reference/SrtMapSteps.h"

namespace zemsub::fuzz {
namespace {

// The step-by-step SubRip scan is quadratic in a run of caption lines.
constexpr size_t kLineLimit = 2000;

std::vector<std::string> cutLines(const uint8_t* data, size_t size)
{
    std::vector<std::string> lines;
    std::string line;
    for (size_t i = 0; i <= size; ++i) {
        if (i == size || data[i] == '\n') {
            lines.push_back(line.substr(0, line.find('\0')));
            line.clear();
            if (lines.size() == kLineLimit)
                break;
        } else {
            line += char(data[i]);
        }
    }
    return lines;
}

xcString narrowLine(const std::string& s)
{
    return xcString(s.c_str());
}

xcWString wideLine(const std::string& s)
{
    std::wstring w;
    for (unsigned char c : s)
        w += wchar_t(c);
    return xcWString(w.c_str());
}

template <class S> bool sameStored(const S& a, const S& b)
{
    if (a.length() != b.length())
        return false;
    for (int i = 0; i < a.length(); ++i)
        if (a.getData()[i] != b.getData()[i])
            return false;
    return true;
}

template <class T, class Make> void compareSrt(const std::vector<std::string>& text, Make make)
{
    std::vector<typename T::String> fastLines, stepLines;
    for (const std::string& line : text) {
        fastLines.push_back(make(line));
        stepLines.push_back(make(line));
    }
    std::map<int, typename T::Entry> fast, steps;
    bool fastThrew = false, stepsThrew = false;
    try {
        detail::buildSrtMap<T>(fastLines, fast);
    } catch (const std::out_of_range&) {
        fastThrew = true;
    }
    try {
        reference::buildSrtMapSteps<T>(stepLines, steps);
    } catch (const std::out_of_range&) {
        stepsThrew = true;
    }
    FUZZ_CHECK(fastThrew == stepsThrew);
    FUZZ_CHECK(fast.size() == steps.size());
    for (auto f = fast.begin(), s = steps.begin(); f != fast.end(); ++f, ++s) {
        FUZZ_CHECK(f->first == s->first);
        FUZZ_CHECK(f->second.start == s->second.start && f->second.end == s->second.end);
        FUZZ_CHECK(sameStored(f->second.text, s->second.text));
    }
    for (size_t k = 0; k < fastLines.size(); ++k)
        FUZZ_CHECK(sameStored(fastLines[k], stepLines[k]));
}

template <class T> struct AssTargets
{
    std::map<int, typename T::Entry> entries;
    typename T::String collisions;
    int playResX = 0;
    int playResY = 0;
    typename T::Style style;
};

template <class T, class Parser, class Strip, class Make>
void compareAss(Parser& parser, Strip strip, const std::vector<std::string>& text, Make make)
{
    std::vector<typename T::String> lines;
    for (const std::string& line : text)
        lines.push_back(make(line));
    AssTargets<T> fast, steps;
    int fastThrew = 0, stepsThrew = 0;
    try {
        detail::buildAssEntries<T>(parser, lines,
                                   {fast.entries, fast.collisions, fast.playResX, fast.playResY, fast.style},
                                   strip, detail::AssFastLines::Use);
    } catch (int thrown) {
        fastThrew = thrown;
    }
    try {
        detail::buildAssEntries<T>(parser, lines,
                                   {steps.entries, steps.collisions, steps.playResX, steps.playResY, steps.style},
                                   strip, detail::AssFastLines::Avoid);
    } catch (int thrown) {
        stepsThrew = thrown;
    }
    FUZZ_CHECK(fastThrew == stepsThrew);
    FUZZ_CHECK(fast.entries.size() == steps.entries.size());
    for (auto f = fast.entries.begin(), s = steps.entries.begin(); f != fast.entries.end(); ++f, ++s) {
        FUZZ_CHECK(f->first == s->first);
        FUZZ_CHECK(f->second.layer == s->second.layer);
        FUZZ_CHECK(f->second.start == s->second.start && f->second.end == s->second.end);
        FUZZ_CHECK(sameStored(f->second.text, s->second.text));
        FUZZ_CHECK(sameStored(f->second.style, s->second.style));
        FUZZ_CHECK(sameStored(f->second.name, s->second.name));
        FUZZ_CHECK(sameStored(f->second.effect, s->second.effect));
    }
    FUZZ_CHECK(sameStored(fast.collisions, steps.collisions));
    FUZZ_CHECK(fast.playResX == steps.playResX && fast.playResY == steps.playResY);
}

} // namespace
} // namespace zemsub::fuzz

int fuzz_srt_map(const uint8_t* data, size_t size)
{
    using namespace zemsub::fuzz;
    const std::vector<std::string> lines = cutLines(data, size);
    compareSrt<zemsub::detail::SrtNarrow>(lines, narrowLine);
    // __wtoi converts through the locale.
    for (const char* locale : wideLocales()) {
        CtypeLocale scope(locale);
        compareSrt<zemsub::detail::SrtWide>(lines, wideLine);
    }
    return 0;
}

int fuzz_ass_map(const uint8_t* data, size_t size)
{
    using namespace zemsub::fuzz;
    const std::vector<std::string> lines = cutLines(data, size);
    xcAssParser narrow;
    compareAss<zemsub::detail::AssNarrow>(
        narrow, [&narrow](xcString text) { return narrow.RemoveSSATags(text, 0); }, lines, narrowLine);
    xcAssParserU wide;
    compareAss<zemsub::detail::AssWide>(
        wide, [&wide](xcWString text) { return wide.RemoveSSATags(text); }, lines, wideLine);
    return 0;
}
