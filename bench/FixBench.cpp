// zemsubfix over the largest SubRip file the library opens: read, write the copy,
// open it with the library and ask it at every caption's start, middle and end.
#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QString>

#include "BenchInputs.h"
#include "ZemsubFix.h"

namespace {

void BM_Fix_Srt20000Lines(benchmark::State& state)
{
    const std::string text = bench::srtText(4000); // 20000 lines
    const QByteArray bytes(text.data(), int(text.size()));
    for (auto _ : state) {
        const zemsubfix::FixReport report = zemsubfix::fixBuffer(bytes, QStringLiteral("bench.srt"), {});
        if (!report.allAsWritten())
            state.SkipWithError("the copy does not show every caption as written");
        benchmark::DoNotOptimize(report.copy.size());
    }
}
BENCHMARK(BM_Fix_Srt20000Lines)->Unit(benchmark::kMillisecond);

} // namespace
