// Tag stripping on long caption texts.
#include <benchmark/benchmark.h>

#include "BenchInputs.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"

namespace {

void BM_RemoveSSATags(benchmark::State& state)
{
    xcAssParser parser;
    const std::string text = bench::taggedText(size_t(state.range(0)));
    const xcString input(text.data(), int(text.size()));
    for (auto _ : state)
        benchmark::DoNotOptimize(parser.RemoveSSATags(input, 0).getData());
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_RemoveSSATagsWide(benchmark::State& state)
{
    xcAssParserU parser;
    const std::string text = bench::taggedText(size_t(state.range(0)));
    const std::wstring wide(text.begin(), text.end());
    const xcWString input(wide);
    for (auto _ : state)
        benchmark::DoNotOptimize(parser.RemoveSSATags(input).getData());
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

}  // namespace

BENCHMARK(BM_RemoveSSATags)->Arg(4096)->Arg(1 << 20)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RemoveSSATagsWide)->Arg(1 << 20)->Unit(benchmark::kMillisecond);
