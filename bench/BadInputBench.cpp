// Long and hostile inputs, each answered within a fixed bound: every benchmark
// carries its bound and its mean time per input as counters, and the label
// "OVER BOUND" when the mean exceeds the bound ("within bound" otherwise). The
// bounds are generous on purpose (a loaded machine must not trip them); what
// they catch is work that grows without limit: a pass that repeats, a look-up
// that walks a gap key by key, text that grows with the square of the input.
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <chrono>
#include <string>

#include "BenchInputs.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "parsers/xcIdxParser.h"
#include "parsers/xcIdxParserU.h"
#include "parsers/xcSrtParser.h"
#include "parsers/xcSrtParserU.h"

namespace {

// Times the loop body and labels the run by its mean against boundSeconds.
template <class Body> void withinBound(benchmark::State& state, double boundSeconds, Body body)
{
    using Clock = std::chrono::steady_clock;
    double total = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        body();
        total += std::chrono::duration<double>(Clock::now() - start).count();
    }
    const double mean = state.iterations() ? total / double(state.iterations()) : 0;
    state.counters["bound_s"] = boundSeconds;
    state.counters["mean_s"] = mean;
    state.SetLabel(mean > boundSeconds ? "OVER BOUND" : "within bound");
}

const std::string kMegabyteTags = bench::taggedText(1 << 20);

std::string scriptAround(const std::string& text)
{
    return "[Script Info]\nScriptType: v4.00+\n\n[Events]\n"
           "Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,," +
           text +
           "\n"
           "Dialogue: 0,0:00:03.00,0:00:04.00,Default,,0,0,0,,B\n"
           "Dialogue: 0,0:00:05.00,0:00:06.00,Default,,0,0,0,,C\n";
}

// Texts on which a brace or angle pass would come back to where it was: the
// unclosed opening character before the cut pairs with a closing one left in
// the stale tail behind it.
std::string endlessBraces(int kind)
{
    switch (kind) {
    case 0: { // the short case, over and over
        std::string out;
        while (out.size() < (1u << 20))
            out += "{ab}{c";
        return out;
    }
    case 1: // one long block, then an unclosed brace with a long tail
        return "{" + std::string(1 << 19, 'a') + "}{" + std::string(1 << 19, 'c');
    case 2: { // the same with angle brackets, after many closed blocks
        std::string out;
        while (out.size() < (1u << 19))
            out += "<i>x</i>";
        return out + "<ab><c";
    }
    default: { // alternating closers and openers
        std::string out;
        while (out.size() < (1u << 20))
            out += "}{x";
        return out;
    }
    }
}

// Index files whose lines are blank, blank-looking or ";" comments, with a time
// stamp now and then: 5000 lines, the most an index opens with.
std::string indexOfSkippedLines()
{
    std::string out;
    for (int i = 0; i < 4999; ++i)
        out += i % 50 == 0 ? "timestamp: 00:00:01:000, filepos: 000000800\n" : i % 3 ? ";\n" : "   \n";
    return out;
}

void BM_BadInput_OpenMegabyteTaggedDialogue(benchmark::State& state)
{
    const std::string path = bench::writeTemp("tagged-megabyte.ass", scriptAround(kMegabyteTags));
    withinBound(state, 2.0, [&] {
        xcAssParser parser;
        benchmark::DoNotOptimize(parser.Open(path.c_str()));
    });
}

void BM_BadInput_OpenMegabyteTaggedDialogueWide(benchmark::State& state)
{
    const std::string path =
        bench::writeTemp("tagged-megabyte-wide.ass", "\xFF\xFE" + scriptAround(kMegabyteTags));
    withinBound(state, 2.0, [&] {
        xcAssParserU parser;
        benchmark::DoNotOptimize(parser.Open(path.c_str()));
    });
}

void BM_BadInput_EndlessBraces(benchmark::State& state)
{
    const std::string text = endlessBraces(int(state.range(0)));
    const xcString input(text.data(), int(text.size()));
    xcAssParser parser;
    withinBound(state, 2.0, [&] { benchmark::DoNotOptimize(parser.RemoveSSATags(input, 0).getData()); });
}

void BM_BadInput_EndlessBracesWide(benchmark::State& state)
{
    const std::string text = endlessBraces(int(state.range(0)));
    const xcWString input(std::wstring(text.begin(), text.end()));
    xcAssParserU parser;
    withinBound(state, 2.0, [&] { benchmark::DoNotOptimize(parser.RemoveSSATags(input).getData()); });
}

void BM_BadInput_OpenHundredThousandBraces(benchmark::State& state)
{
    const std::string path = bench::writeTemp("braces.ass", scriptAround(std::string(100000, '{')));
    withinBound(state, 0.5, [&] {
        xcAssParser parser;
        benchmark::DoNotOptimize(parser.Open(path.c_str()));
    });
}

void BM_BadInput_OpenMegabyteSrtLine(benchmark::State& state)
{
    const std::string path = bench::writeTemp(
        "megabyte-line.srt", "1\n00:00:01,000 --> 00:00:02,000\n" + std::string(1 << 20, 'a') + "\n\n" +
                                 "2\n00:00:03,000 --> 00:00:04,000\nb\n");
    withinBound(state, 1.0, [&] {
        xcSrtParser parser;
        benchmark::DoNotOptimize(parser.Open(path.c_str()));
    });
}

void BM_BadInput_OpenIndexOfSkippedLines(benchmark::State& state)
{
    const std::string path = bench::writeTemp("skipped.idx", indexOfSkippedLines());
    withinBound(state, 0.5, [&] {
        xcIdxParser parser;
        benchmark::DoNotOptimize(parser.Open(path.c_str()));
    });
}

void BM_BadInput_OpenIndexOfSkippedLinesWide(benchmark::State& state)
{
    // The wide twin opens the one-character name its path begins with, here "s".
    const std::string path = bench::writeTemp("s", indexOfSkippedLines());
    const std::string dir = path.substr(0, path.size() - 2);
    char previous[4096];
    if (!getcwd(previous, sizeof previous) || chdir(dir.c_str()) != 0) {
        state.SkipWithError("cannot enter the temporary directory");
        return;
    }
    wchar_t name[] = L"s.idx";
    withinBound(state, 0.5, [&] {
        xcIdxParserU parser;
        benchmark::DoNotOptimize(parser.Open(name));
    });
    if (chdir(previous) != 0)
        state.SkipWithError("cannot leave the temporary directory");
}

// Caption lines with nothing between them that ends the SubRip line scan: each
// line gathers every second line after it, so the text grows with the square of
// the line count (8000 lines of 10 characters, 88 KB: 160 million characters).
// That answer has to be written, so the bound here is on the time per character
// of it: within three times what appending the same pieces to one string takes
// in the same run (the floor), which is mostly fresh memory being touched.
void BM_BadInput_OpenPlainTextLines(benchmark::State& state)
{
    constexpr int kLines = 8000;
    constexpr size_t kPiece = 10;
    std::string text;
    for (int i = 0; i < kLines; ++i)
        text += std::string(kPiece, char('a' + i % 26)) + "\n";
    const std::string path = bench::writeTemp("plain-lines.srt", text);

    size_t answer = 0;
    {
        xcSrtParser parser;
        if (!parser.Open(path.c_str()) || parser.GetMap().size() != 1) {
            state.SkipWithError("the file did not open as one entry");
            return;
        }
        answer = static_cast<size_t>(parser.GetMap().begin()->second.text.length());
    }
    using Clock = std::chrono::steady_clock;
    double floor = 0;
    for (int round = 0; round < 3; ++round) {
        const auto start = Clock::now();
        std::string built;
        const std::string piece(kPiece, 'x');
        while (built.size() + kPiece <= answer)
            built += piece;
        benchmark::DoNotOptimize(built.data());
        const double took = std::chrono::duration<double>(Clock::now() - start).count();
        floor = round == 0 || took < floor ? took : floor;
    }
    withinBound(state, 3 * floor, [&] {
        xcSrtParser parser;
        benchmark::DoNotOptimize(parser.Open(path.c_str()));
    });
    state.counters["answer_chars"] = double(answer);
    state.counters["floor_s"] = floor;
}

void BM_BadInput_WideSrtLookupAcrossGap(benchmark::State& state)
{
    const std::string path =
        bench::writeTemp("gap-wide.srt", "\xFF\xFE"
                                         "1\n00:00:01,000 --> 00:00:02,000\na\n\n"
                                         "2000000000\n00:00:03,000 --> 00:00:04,000\nb\n");
    xcSrtParserU parser;
    if (!parser.Open(path.c_str())) {
        state.SkipWithError("cannot open the input");
        return;
    }
    long long t = 0;
    withinBound(state, 0.01, [&] {
        // A time that matches nothing walks every key; one in the last entry reaches it.
        benchmark::DoNotOptimize(parser.GetSubTitleU(++t % 2 ? 3500 : 10000));
    });
}

} // namespace

BENCHMARK(BM_BadInput_OpenMegabyteTaggedDialogue)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BadInput_OpenMegabyteTaggedDialogueWide)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BadInput_EndlessBraces)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BadInput_EndlessBracesWide)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BadInput_OpenHundredThousandBraces)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BadInput_OpenMegabyteSrtLine)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BadInput_OpenIndexOfSkippedLines)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BadInput_OpenIndexOfSkippedLinesWide)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BadInput_OpenPlainTextLines)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BadInput_WideSrtLookupAcrossGap)->Unit(benchmark::kMicrosecond);
