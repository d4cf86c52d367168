// ASS/SSA parsers, narrow and wide: open the input as a script, check the entry
// table's shape, compare every look-up with the model, cut fields off the lines
// with the parser's own field readers, then open the script again.
// The wide field reader throws the int 1 for a field asked of an empty
// remainder; that exception, and only that one, is an answer here.
#include "FuzzSupport.h"
#include "FuzzTargets.h"
#include "LineSourceCheck.h"
#include "LookupModel.h"
#include "parsers/detail/ass/AssLines.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"

namespace zemsub::fuzz {
namespace {

const char* const kPath = "in.ass";

struct Narrow
{
    using Parser = xcAssParser;
    using Entry = ASS_SESSION_ST;
    using Str = xcString;
    using Char = char;
    using Lines = zemsub::detail::AssNarrow;
    static constexpr bool kMayThrow = false;
    static const Char* ask(Parser& p, long long t) { return p.GetSubTitle(t); }
    static bool otherTwinIsNull(Parser& p, long long t) { return p.GetSubTitleU(t) == nullptr; }
};

struct Wide
{
    using Parser = xcAssParserU;
    using Entry = ASS_SESSION_ST_U;
    using Str = xcWString;
    using Char = wchar_t;
    using Lines = zemsub::detail::AssWide;
    static constexpr bool kMayThrow = true;
    static const Char* ask(Parser& p, long long t) { return p.GetSubTitleU(t); }
    static bool otherTwinIsNull(Parser& p, long long t) { return p.GetSubTitle(t) == nullptr; }
};

// Open, with the wide reader's int 1 turned into an outcome.
enum class Outcome { Refused, Opened, Threw };

template <class Twin> Outcome openScript(typename Twin::Parser& parser)
{
    try {
        return parser.Open(kPath) ? Outcome::Opened : Outcome::Refused;
    } catch (int thrown) {
        FUZZ_CHECK(Twin::kMayThrow);
        FUZZ_CHECK(thrown == 1);
        // The stream stays open behind the throw.
        FUZZ_CHECK(closeStreamLeftOpen(kPath));
        return Outcome::Threw;
    }
}

// Keys run 1, 2, 3... without gaps and every text starts with a line feed.
template <class Entry> void checkTableShape(const std::map<int, Entry>& map)
{
    int expected = 1;
    for (const auto& [key, e] : map) {
        FUZZ_CHECK(key == expected);
        ++expected;
        FUZZ_CHECK(e.text.length() >= 1);
        FUZZ_CHECK(e.text.getData()[0] == '\n');
    }
}

// The field readers on copies of the lines, as the table builder uses them.
template <class Twin>
void cutFields(typename Twin::Parser& parser, const std::vector<typename Twin::Str>& lines)
{
    using Str = typename Twin::Str;
    using Char = typename Twin::Char;
    const Char separators[] = {Char(','), Char(':'), Char('='), Char('.')};
    size_t used = 0;
    for (const Str& original : lines) {
        if (++used > 32)
            break;
        Str line = original;
        for (int step = 0; step < 12; ++step) {
            const Char sep = separators[(step + used) % 4];
            Str trimmed = line;
            trimmed.TrimLeft();
            const bool expectThrow = Twin::kMayThrow && trimmed.isEmpty() && trimmed.find(sep, 0) < 0;
            try {
                switch (step % 3) {
                case 0:
                    parser.GetStr(line, sep);
                    break;
                case 1:
                    parser.GetInt(line, sep);
                    break;
                default:
                    parser.GetFloat(line, char(sep));
                    break;
                }
                FUZZ_CHECK(!expectThrow);
            } catch (int thrown) {
                FUZZ_CHECK(thrown == 1);
                FUZZ_CHECK(expectThrow);
                break;
            }
        }
    }
}

template <class Twin> void exercise(size_t size)
{
    using Lines = typename Twin::Lines;
    checkLinesAsStream<typename Twin::Str>([](auto& lines, FILE*& file, detail::Loading loading) {
        return detail::readAssScript<Lines>(kPath, lines, file, loading);
    });

    typename Twin::Parser parser;
    const Outcome first = openScript<Twin>(parser);
    if (size == 0)
        FUZZ_CHECK(first == Outcome::Refused);
    FUZZ_CHECK(parser.IsOpen() == (first == Outcome::Opened));

    const std::map<int, typename Twin::Entry> fileMap = parser.GetMap();
    checkTableShape(fileMap);
    LookupModel<typename Twin::Entry> model(fileMap);
    const std::vector<long long> times = lookupTimes(entryBounds(fileMap));
    AnswerLog<typename Twin::Char> log;
    for (long long t : times) {
        FUZZ_CHECK(Twin::otherTwinIsNull(parser, t));
        const typename Twin::Char* answer = Twin::ask(parser, t);
        log.add(answer);
        checkSameAnswer(answer, model.script(t));
    }
    log.verify();
    FUZZ_CHECK(parser.GetMap().size() == fileMap.size());

    cutFields<Twin>(parser, parser.GetLines());

    const Outcome second = openScript<Twin>(parser);
    FUZZ_CHECK(second == first);
    FUZZ_CHECK(sameTimedTexts(parser.GetMap(), fileMap));
}

} // namespace
} // namespace zemsub::fuzz

int fuzz_ass_parser(const uint8_t* data, size_t size)
{
    using namespace zemsub::fuzz;
    ScratchCwd cwd;
    DescriptorCheck descriptors;
    writeScratch(kPath, data, size);
    exercise<Narrow>(size);
    descriptors.verify();
    return 0;
}

int fuzz_ass_parser_u(const uint8_t* data, size_t size)
{
    using namespace zemsub::fuzz;
    ScratchCwd cwd;
    DescriptorCheck descriptors;
    writeScratch(kPath, data, size);
    for (const char* locale : wideLocales()) {
        CtypeLocale scope(locale);
        exercise<Wide>(size);
    }
    descriptors.verify();
    return 0;
}
