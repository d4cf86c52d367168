// libass rendering the same captions at 1920x1080, when libass is installed.
#include <benchmark/benchmark.h>

#include <cstdarg>
#include <cstdio>
#include <string>

extern "C" {
#include <ass/ass.h>
}

#include "BenchInputs.h"

namespace {

constexpr int kCaptions = 1000;

// libass reports what it reads on stdout unless told otherwise; the table stays readable.
void quiet(int, const char*, va_list, void*) {}

ASS_Library* quietLibrary()
{
    ASS_Library* library = ass_library_init();
    ass_set_message_cb(library, quiet, nullptr);
    return library;
}

std::string distinctCaptionsAss()
{
    std::string out = bench::assText(0);
    for (int k = 1; k <= kCaptions + 1; ++k) {
        const long long s = k * 3000LL, e = s + 2000;
        std::string caption = bench::captionText(k);
        caption.replace(caption.find('\n'), 1, "\\N");
        char times[64];
        std::snprintf(times, sizeof times, "%lld:%02lld:%02lld.00,%lld:%02lld:%02lld.00", s / 3600000,
                      s / 60000 % 60, s / 1000 % 60, e / 3600000, e / 60000 % 60, e / 1000 % 60);
        out += std::string("Dialogue: 0,") + times + ",Default,,0,0,0,," + caption + "\n";
    }
    return out;
}

void BM_Libass_CaptionChanges1080p(benchmark::State& state)
{
    ASS_Library* library = quietLibrary();
    ASS_Renderer* renderer = ass_renderer_init(library);
    ass_set_frame_size(renderer, 1920, 1080);
    ass_set_fonts(renderer, nullptr, "DejaVu Sans", ASS_FONTPROVIDER_AUTODETECT, nullptr, 1);
    std::string script = distinctCaptionsAss();
    ASS_Track* track = ass_read_memory(library, script.data(), script.size(), nullptr);
    int k = 0;
    for (auto _ : state) {
        int changed = 0;
        ASS_Image* image = ass_render_frame(renderer, track, (k % kCaptions + 1) * 3000LL + 500, &changed);
        benchmark::DoNotOptimize(image);
        ++k;
    }
    ass_free_track(track);
    ass_renderer_done(renderer);
    ass_library_done(library);
}

void BM_Libass_ReadScriptFromMemory(benchmark::State& state)
{
    ASS_Library* library = quietLibrary();
    std::string script = bench::assText(19980);
    for (auto _ : state) {
        ASS_Track* track = ass_read_memory(library, script.data(), script.size(), nullptr);
        benchmark::DoNotOptimize(track);
        ass_free_track(track);
    }
    ass_library_done(library);
}

}  // namespace

BENCHMARK(BM_Libass_CaptionChanges1080p)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Libass_ReadScriptFromMemory)->Unit(benchmark::kMillisecond);
