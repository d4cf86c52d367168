// Picture subtitles read as text: a generated 1080p Blu-ray track and a DVD
// VobSub pair of 1,000 different pictures each, decoded by FFmpeg, shown by the
// display rule, read by Tesseract (one engine per core) with each word's slant
// measured.
#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

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

void BM_Pictures_ReadDvd1000(benchmark::State& state)
{
    using namespace zemsub::samplegen;
    QTemporaryDir dir;
    QString error;
    if (!dir.isValid() || !writeDvdBitmaps(dir.path(), sampleCaptions(kPictures), &error)) {
        state.SkipWithError("the DVD bitmaps were not written");
        return;
    }
    // tools/make-sample-sub.py packs them into a VobSub pair, as the tests do.
    QProcess script;
    script.start(QStringLiteral("python3"),
                 {QStringLiteral(ZEMSUB_SOURCE_DIR "/tools/make-sample-sub.py"), QStringLiteral("--out"), dir.path(),
                  QStringLiteral("--bitmaps"), dir.filePath(QStringLiteral("captions.txt")), QStringLiteral("--size"),
                  QStringLiteral("720x576")});
    if (!script.waitForFinished(600000) || script.exitCode() != 0) {
        state.SkipWithError("the VobSub pair was not made");
        return;
    }
    const QString index = dir.filePath(QStringLiteral("vobsub.idx"));
    QFile file(index);
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    for (auto _ : state) {
        const zemsub::tool::PictureText read =
            zemsub::tool::readPictureText(bytes, index, 0, QStringLiteral("eng"));
        if (!read.read || read.captions.size() != size_t(kPictures))
            state.SkipWithError("the pictures were not all read");
        benchmark::DoNotOptimize(read.captions.data());
    }
    state.counters["pictures_per_second"] =
        benchmark::Counter(double(kPictures) * double(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_Pictures_ReadDvd1000)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(1)->UseRealTime();

} // namespace
