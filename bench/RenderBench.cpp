// What a player pays per frame: the frame while a caption stays, and a new caption.
#include <benchmark/benchmark.h>

#include <QString>

#include <string>

#include "BenchInputs.h"
#include "ISubTitle.h"
#include "maker/ZemSubtitleMaker.h"

namespace {

constexpr int kCaptions = 1000;

std::string distinctCaptionsSrt()
{
    std::string out;
    for (int k = 1; k <= kCaptions + 1; ++k) {
        const long long s = k * 3000LL;
        char buf[96];
        std::snprintf(buf, sizeof buf, "%d\n%02lld:%02lld:%02lld,000 --> %02lld:%02lld:%02lld,000\n", k, s / 3600000,
                      s / 60000 % 60, s / 1000 % 60, (s + 2000) / 3600000, (s + 2000) / 60000 % 60,
                      (s + 2000) / 1000 % 60);
        out += buf;
        const std::string caption = bench::captionText(k);
        out += caption.substr(0, caption.find('\n')) + "\n" + caption.substr(caption.find('\n') + 1) + "\n\n";
    }
    return out;
}

ISubTitle* openedAt1080p()
{
    ISubTitle* sub = createSubtitle();
    sub->setVideoSize(1920, 1080);
    sub->setFontInfo("DejaVu Sans", 0xFFFFFF, 36, "Regular", 2);
    sub->setSubtitlePos(960, 1040);
    sub->open(bench::writeTemp("render.srt", distinctCaptionsSrt()).c_str());
    return sub;
}

void release(ISubTitle* sub)
{
    sub->close();
    delete static_cast<ZemSubtitleMaker*>(sub);
}

void BM_Frame_CaptionStays1080p(benchmark::State& state)
{
    ISubTitle* sub = openedAt1080p();
    sub->destroySubData(sub->getSubtitleData(3500, 0));
    for (auto _ : state) {
        SubtitleData* d = sub->getSubtitleData(3500, 0);
        benchmark::DoNotOptimize(d);
        sub->destroySubData(d);
    }
    release(sub);
}

void BM_Frame_CaptionChanges1080p(benchmark::State& state)
{
    ISubTitle* sub = openedAt1080p();
    int k = 0;
    for (auto _ : state) {
        SubtitleData* d = sub->getSubtitleData((k % kCaptions + 1) * 3000LL + 500, 0);
        benchmark::DoNotOptimize(d);
        sub->destroySubData(d);
        ++k;
    }
    release(sub);
}

void BM_MakeSubImage1080p(benchmark::State& state)
{
    ZemSubtitleMaker maker;
    maker.setVideoSize(1920, 1080);
    maker.setFontInfo("DejaVu Sans", 0xFFFFFF, 36, "Regular", 2);
    maker.setSubtitlePos(960, 1040);
    int k = 0;
    for (auto _ : state) {
        QPixmap image = maker.makeSubImage(QString::fromStdString("\n" + bench::captionText(++k % kCaptions)));
        benchmark::DoNotOptimize(image.cacheKey());
    }
}

}  // namespace

BENCHMARK(BM_Frame_CaptionStays1080p)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Frame_CaptionChanges1080p)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_MakeSubImage1080p)->Unit(benchmark::kMicrosecond);
