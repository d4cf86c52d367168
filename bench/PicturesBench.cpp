// Picture subtitles read as text: a generated 1080p Blu-ray track of 1,000
// different pictures, decoded by FFmpeg and read by Tesseract, one engine per core.
#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QString>

#include "pictures/PictureText.h"
#include "samplegen/CaptionPictures.h"
#include "samplegen/PgsWriter.h"

namespace {

constexpr int kPictures = 1000;

void BM_Pictures_ReadPgs1000(benchmark::State& state)
{
    using namespace zemsub::samplegen;
    const QByteArray sup = writePgs(blurayPictures(sampleCaptions(kPictures)), kBlurayFrame);
    for (auto _ : state) {
        const zemsub::tool::PictureText read =
            zemsub::tool::readPictureText(sup, QStringLiteral("bench.sup"), -1, QStringLiteral("eng"));
        if (!read.read || read.captions.size() != size_t(kPictures))
            state.SkipWithError("the pictures were not all read");
        benchmark::DoNotOptimize(read.captions.data());
    }
    state.counters["pictures_per_second"] =
        benchmark::Counter(double(kPictures) * double(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_Pictures_ReadPgs1000)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(1)->UseRealTime();

} // namespace
