// SubRip parsers, narrow and wide: open the input as a file, ask for captions at
// edge times and around every entry, and compare each answer with the look-up
// model; then open the file again and check that nothing of the look-ups stays.
#include "FuzzSupport.h"
#include "FuzzTargets.h"
#include "LineSourceCheck.h"
#include "LookupModel.h"
#include "parsers/detail/srt/SrtReading.h"
#include "parsers/xcSrtParser.h"
#include "parsers/xcSrtParserU.h"

namespace zemsub::fuzz {
namespace {

// The model walks key by key; past this many keys only the parser answers.
constexpr long long kModelWalkLimit = 4096;

const char* const kPath = "in.srt";

struct Narrow
{
    using Parser = xcSrtParser;
    using Entry = SRC_SESSION_ST;
    using Char = char;
    using Lines = zemsub::detail::SrtNarrow;
    static const Char* ask(Parser& p, long long t) { return p.GetSubTitle(t); }
    static bool otherTwinIsNull(Parser& p, long long t) { return p.GetSubTitleU(t) == nullptr; }
    static const Entry* model(LookupModel<Entry>& m, long long t) { return m.srtNarrow(t); }
};

struct Wide
{
    using Parser = xcSrtParserU;
    using Entry = SRC_SESSION_ST_U;
    using Char = wchar_t;
    using Lines = zemsub::detail::SrtWide;
    static const Char* ask(Parser& p, long long t) { return p.GetSubTitleU(t); }
    static bool otherTwinIsNull(Parser& p, long long t) { return p.GetSubTitle(t) == nullptr; }
    static const Entry* model(LookupModel<Entry>& m, long long t) { return m.srtWide(t); }
};

template <class Twin> void exercise(size_t size)
{
    using Lines = typename Twin::Lines;
    checkLinesAsStream<typename Lines::String>([](auto& lines, FILE*& file, detail::Loading loading) {
        return detail::readSrtFile<Lines>(kPath, file, lines, loading);
    });

    typename Twin::Parser parser;
    const bool opened = parser.Open(kPath);
    if (size == 0)
        FUZZ_CHECK(!opened);
    FUZZ_CHECK(parser.IsOpen() == opened);

    const std::map<int, typename Twin::Entry> fileMap = parser.GetMap();
    LookupModel<typename Twin::Entry> model(fileMap);
    const bool modelled = model.walkBound() <= kModelWalkLimit;
    const std::vector<long long> times = lookupTimes(entryBounds(fileMap));

    AnswerLog<typename Twin::Char> log;
    for (long long t : times) {
        FUZZ_CHECK(Twin::otherTwinIsNull(parser, t));
        const typename Twin::Char* answer = Twin::ask(parser, t);
        log.add(answer);
        if (modelled)
            checkSameAnswer(answer, Twin::model(model, t));
    }
    log.verify();
    if (modelled)
        FUZZ_CHECK(sameTimedTexts(parser.GetMap(), model.map()));

    // A second Open starts from nothing: the entries the look-ups inserted are gone.
    FUZZ_CHECK(parser.Open(kPath) == opened);
    FUZZ_CHECK(parser.IsOpen() == opened);
    FUZZ_CHECK(sameTimedTexts(parser.GetMap(), fileMap));
    LookupModel<typename Twin::Entry> fresh(fileMap);
    for (size_t i = 0; i < times.size(); i += 5) {
        const typename Twin::Char* answer = Twin::ask(parser, times[i]);
        if (modelled)
            checkSameAnswer(answer, Twin::model(fresh, times[i]));
    }
}

} // namespace
} // namespace zemsub::fuzz

int fuzz_srt_parser(const uint8_t* data, size_t size)
{
    using namespace zemsub::fuzz;
    ScratchCwd cwd;
    DescriptorCheck descriptors;
    writeScratch(kPath, data, size);
    exercise<Narrow>(size);
    descriptors.verify();
    return 0;
}

int fuzz_srt_parser_u(const uint8_t* data, size_t size)
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
