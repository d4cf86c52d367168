// Per-frame look-ups over a 5000-entry SubRip map, against the plain key-by-key scan.
#include <benchmark/benchmark.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "BenchInputs.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcSrtParser.h"

namespace {

// 5000 one-line captions: 4 lines each, 20000 lines.
std::string srt5000()
{
    std::string out;
    for (int k = 1; k <= 5000; ++k) {
        const long long s = k * 3000LL;
        char buf[96];
        std::snprintf(buf, sizeof buf, "%d\n%02lld:%02lld:%02lld,000 --> %02lld:%02lld:%02lld,000\n", k, s / 3600000,
                      s / 60000 % 60, s / 1000 % 60, (s + 2000) / 3600000, (s + 2000) / 60000 % 60,
                      (s + 2000) / 1000 % 60);
        out += buf;
        out += "Caption " + std::to_string(k) + "\n\n";
    }
    return out;
}

xcSrtParser& openedSrt()
{
    static xcSrtParser parser;
    static const bool opened = parser.Open(bench::writeTemp("lookup.srt", srt5000()).c_str());
    (void)opened;
    return parser;
}

std::vector<long long> randomTimes()
{
    std::mt19937 rng(7);
    std::uniform_int_distribution<long long> d(0, 5001 * 3000LL);
    std::vector<long long> times(4096);
    for (auto& t : times)
        t = d(rng);
    return times;
}

// The scan the index replaces: keys 1 .. size-1 through the map's index operator.
const char* plainScan(std::map<int, SRC_SESSION_ST>& m, long long t)
{
    if (t < 0)
        return nullptr;
    const size_t count = m.size();
    if (count < 2)
        return nullptr;
    for (int k = 1; size_t(k) < count; ++k) {
        if (t < m[k].start)
            continue;
        if (t <= m[k].end)
            return m[k].text.getData();
    }
    return nullptr;
}

void BM_Lookup_PlainScan5000(benchmark::State& state)
{
    std::map<int, SRC_SESSION_ST> copy = openedSrt().GetMap();
    const auto times = randomTimes();
    size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(plainScan(copy, times[i++ & 4095]));
}

void BM_Lookup_GetSubTitle5000(benchmark::State& state)
{
    xcSrtParser& parser = openedSrt();
    const auto times = randomTimes();
    size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(parser.GetSubTitle(times[i++ & 4095]));
}

void BM_Lookup_AssGetSubTitle5000(benchmark::State& state)
{
    static xcAssParser parser;
    static const bool opened = parser.Open(bench::writeTemp("lookup.ass", bench::assText(5000)).c_str());
    (void)opened;
    const auto times = randomTimes();
    size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(parser.GetSubTitle(times[i++ & 4095]));
}

}  // namespace

BENCHMARK(BM_Lookup_PlainScan5000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Lookup_GetSubTitle5000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Lookup_AssGetSubTitle5000)->Unit(benchmark::kMicrosecond);
