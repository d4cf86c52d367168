// Tag stripping in both twins. The input is the caption text: the narrow
// parser gets its bytes, the wide parser the same bytes as characters 0 to 255.
// Both results must be identical, character for character over the whole
// recorded length, and equal to the step-by-step reference; the character finders
// are checked at starts taken from the input.
#include <string>

#include "FuzzSupport.h"
#include "FuzzTargets.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "reference/SsaTagSteps.h"

namespace zemsub::fuzz {
namespace {

// Past this length the reference's record of visited states grows too large per input.
constexpr size_t kReferenceLimit = 1024;

void checkFinders(xcAssParser& narrow, xcAssParserU& wide, const std::string& text, const xcString& in,
                  const xcWString& win, ByteReader& reader)
{
    for (int i = 0; i < 6 && !reader.empty(); ++i) {
        const char c = reader.interestingChar();
        const int start = reader.smallInt(int(text.size()));
        // Narrow: the first match at or after the start, a negative start counting as 0.
        const long long narrowExpected =
            text.empty() ? -1 : zemsub::reference::findFrom(text, c, start < 0 ? 0 : start);
        FUZZ_CHECK(narrow.FindChar(in, c, start, reader.anyInt()) == narrowExpected);
        // Wide: the string's own find of the character widened with its sign.
        const std::wstring wtext(win.getData(), size_t(win.length()));
        FUZZ_CHECK(wide.FindChar(win, c, start) ==
                   zemsub::reference::findFrom(wtext, wchar_t(c), (long long)start));
    }
}

} // namespace
} // namespace zemsub::fuzz

int fuzz_ssa_tags(const uint8_t* data, size_t size)
{
    using namespace zemsub::fuzz;
    const std::string text(reinterpret_cast<const char*>(data), size);
    std::wstring wtext;
    for (unsigned char b : text)
        wtext += wchar_t(b);

    xcAssParser narrow;
    xcAssParserU wide;
    const xcString in(text.data(), int(text.size()));
    const xcWString win(wtext);
    const xcString out = narrow.RemoveSSATags(in, int(size));
    const xcWString wout = wide.RemoveSSATags(win);

    FUZZ_CHECK(out.length() == wout.length());
    for (int i = 0; i < out.length(); ++i)
        FUZZ_CHECK(wchar_t((unsigned char)out.getData()[i]) == wout.getData()[i]);
    FUZZ_CHECK(out.getData()[out.length()] == 0);
    FUZZ_CHECK(wout.getData()[wout.length()] == 0);

    if (size <= kReferenceLimit) {
        const std::string expected = zemsub::reference::stripTagsSteps(text);
        FUZZ_CHECK(std::string(out.getData(), size_t(out.length())) == expected);
    }

    ByteReader reader(data, size);
    checkFinders(narrow, wide, text, in, win, reader);
    return 0;
}
