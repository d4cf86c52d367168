// The subtitle manager. The first input byte picks two file names (one per
// nibble) from a table of extensions, letter cases and dot placements; the rest
// is the file. The manager opens it under the first name, then again under the
// second; each time its format code and wide flag are checked against the rule
// (first two bytes, text after the last dot), and its answers are compared with
// those of a fresh parser of the chosen kind opening the same file.
#include <sys/stat.h>

#include <climits>
#include <cstring>
#include <cwchar>
#include <string>

#include "FuzzSupport.h"
#include "FuzzTargets.h"
#include "LookupModel.h"
#include "manager/xcSubtitleManager.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "parsers/xcSrtParser.h"
#include "parsers/xcSrtParserU.h"

namespace zemsub::fuzz {
namespace {

const char* const kNames[16] = {"in.srt", "in.SRT",  "in.Srt",     "in.ass",  "in.ssa", "in.SSA",
                                "in.AsS", "in.idx",  "in.srt.txt", "a.b.srt", "noext",  ".srt",
                                "in.",    "d.ir/in", "in.txt",     "x.y.ass"};

bool sameNoCase(const std::string& a, const char* b)
{
    if (a.size() != std::strlen(b))
        return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (std::toupper((unsigned char)a[i]) != std::toupper((unsigned char)b[i]))
            return false;
    return true;
}

// The format code the manager must choose for a file of these bytes under this name.
int expectedCode(const std::string& name, const std::string& bytes)
{
    if (bytes.size() < 2)
        return 0;
    const bool wide = (unsigned char)bytes[0] == 0xFF && (unsigned char)bytes[1] == 0xFE;
    const size_t dot = name.rfind('.');
    if (dot == std::string::npos)
        return 0;
    const std::string ext = name.substr(dot + 1);
    if (sameNoCase(ext, "srt"))
        return wide ? 4 : 1;
    if (sameNoCase(ext, "ass") || sameNoCase(ext, "ssa"))
        return wide ? 5 : 2;
    return 0;
}

enum class Outcome { Refused, Opened, Threw };

template <class Opener> Outcome openWith(Opener&& open, bool mayThrow, const char* path)
{
    try {
        return open() ? Outcome::Opened : Outcome::Refused;
    } catch (int thrown) {
        FUZZ_CHECK(mayThrow);
        FUZZ_CHECK(thrown == 1);
        // The stream stays open behind the throw.
        FUZZ_CHECK(closeStreamLeftOpen(path));
        return Outcome::Threw;
    }
}

template <class Char> bool sameText(const Char* a, const Char* b)
{
    if (!a || !b)
        return a == b;
    return cText(a) == cText(b);
}

// A fresh parser of the chosen kind opens the same file; the manager must answer as it does.
template <class Parser>
void compareWithParser(xcSubtitleManager& manager, const char* path, Outcome managerOutcome, bool mayThrow)
{
    Parser parser;
    const Outcome direct = openWith([&] { return parser.Open(path); }, mayThrow, path);
    FUZZ_CHECK(direct == managerOutcome);
    const std::vector<long long> times = lookupTimes(entryBounds(parser.GetMap()));
    for (long long t : times) {
        FUZZ_CHECK(sameText(manager.GetSubTitle(t), parser.GetSubTitle(t)));
        FUZZ_CHECK(sameText(manager.GetSubTitleU(t), parser.GetSubTitleU(t)));
    }
}

void openAndCompare(xcSubtitleManager& manager, const std::string& name, const std::string& bytes)
{
    const bool wasWide = manager.IsWide();
    const int code = expectedCode(name, bytes);
    const Outcome outcome = openWith([&] { return manager.Open(name.c_str()); }, code == 5, name.c_str());
    FUZZ_CHECK(manager.GetFormatCode() == code);
    if (bytes.size() >= 2)
        FUZZ_CHECK(manager.IsWide() == ((unsigned char)bytes[0] == 0xFF && (unsigned char)bytes[1] == 0xFE));
    else
        FUZZ_CHECK(manager.IsWide() == wasWide);

    switch (code) {
    case 0:
        FUZZ_CHECK(outcome == Outcome::Refused);
        FUZZ_CHECK(!manager.IsOpen());
        for (long long t : {LLONG_MIN, -1LL, 0LL, 1LL, 1000LL, LLONG_MAX}) {
            FUZZ_CHECK(manager.GetSubTitle(t) == nullptr);
            FUZZ_CHECK(manager.GetSubTitleU(t) == nullptr);
        }
        break;
    case 1:
        compareWithParser<xcSrtParser>(manager, name.c_str(), outcome, false);
        break;
    case 2:
        compareWithParser<xcAssParser>(manager, name.c_str(), outcome, false);
        break;
    case 4:
        compareWithParser<xcSrtParserU>(manager, name.c_str(), outcome, false);
        break;
    case 5:
        compareWithParser<xcAssParserU>(manager, name.c_str(), outcome, true);
        break;
    default:
        FUZZ_CHECK(!"a format code outside 0, 1, 2, 4, 5");
    }
}

} // namespace
} // namespace zemsub::fuzz

int fuzz_manager(const uint8_t* data, size_t size)
{
    using namespace zemsub::fuzz;
    const uint8_t pick = size ? data[0] : 0;
    const std::string bytes =
        size ? std::string(reinterpret_cast<const char*>(data) + 1, size - 1) : std::string();
    const std::string first = kNames[pick & 15];
    const std::string second = kNames[pick >> 4];

    ScratchCwd cwd;
    mkdir("d.ir", 0700);
    DescriptorCheck descriptors;
    writeScratch(first, bytes);
    writeScratch(second, bytes);
    for (const char* locale : wideLocales()) {
        CtypeLocale scope(locale);
        xcSubtitleManager manager;
        FUZZ_CHECK(manager.GetFormatCode() == 0 && !manager.IsWide() && !manager.IsOpen());
        openAndCompare(manager, first, bytes);
        openAndCompare(manager, second, bytes);
        // A refused path leaves nothing chosen.
        openAndCompare(manager, "missing.srt", std::string());
    }
    descriptors.verify();
    return 0;
}
