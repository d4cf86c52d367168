// Opening the largest files the parsers accept, against the floor: reading the
// same bytes and splitting them into lines.
#include <benchmark/benchmark.h>

#include <clocale>
#include <cstdio>
#include <string>
#include <vector>

#include "BenchInputs.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcSrtParser.h"
#include "parsers/xcSrtParserU.h"

namespace {

const std::string& srtPath()
{
    static const std::string p = bench::writeTemp("open.srt", bench::srtText(4000));  // 20000 lines
    return p;
}

const std::string& srtWidePath()
{
    static const std::string p = bench::writeTemp("open-wide.srt", "\xFF\xFE" + bench::srtText(4000));
    return p;
}

int assDialoguesFor20000Lines()
{
    const std::string header = bench::assText(0);
    int lines = 0;
    for (char c : header)
        lines += c == '\n';
    return 20000 - lines;
}

const std::string& assPath()
{
    static const std::string p = bench::writeTemp("open.ass", bench::assText(assDialoguesFor20000Lines()));
    return p;
}

// The floor: the file's bytes read and split into non-empty lines.
void readAndSplit(const std::string& path, benchmark::State& state)
{
    for (auto _ : state) {
        std::string bytes;
        if (FILE* f = std::fopen(path.c_str(), "rb")) {
            char buf[65536];
            size_t n;
            while ((n = std::fread(buf, 1, sizeof buf, f)) > 0)
                bytes.append(buf, n);
            std::fclose(f);
        }
        std::vector<std::string> lines;
        size_t from = 0;
        while (from < bytes.size()) {
            size_t to = bytes.find('\n', from);
            if (to == std::string::npos)
                to = bytes.size();
            if (to > from)
                lines.emplace_back(bytes, from, to - from);
            from = to + 1;
        }
        benchmark::DoNotOptimize(lines.data());
    }
}

void BM_Floor_Srt20000Lines(benchmark::State& state) { readAndSplit(srtPath(), state); }
void BM_Floor_Ass20000Lines(benchmark::State& state) { readAndSplit(assPath(), state); }

void BM_Open_Srt20000Lines(benchmark::State& state)
{
    xcSrtParser parser;
    for (auto _ : state)
        benchmark::DoNotOptimize(parser.Open(srtPath().c_str()));
}

void BM_Open_SrtWide20000Lines(benchmark::State& state)
{
    std::setlocale(LC_ALL, "C.UTF-8");
    xcSrtParserU parser;
    for (auto _ : state)
        benchmark::DoNotOptimize(parser.Open(srtWidePath().c_str()));
    std::setlocale(LC_ALL, "C");
}

void BM_Open_Ass20000Lines(benchmark::State& state)
{
    xcAssParser parser;
    for (auto _ : state)
        benchmark::DoNotOptimize(parser.Open(assPath().c_str()));
}

}  // namespace

BENCHMARK(BM_Floor_Srt20000Lines)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Open_Srt20000Lines)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Open_SrtWide20000Lines)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Floor_Ass20000Lines)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Open_Ass20000Lines)->Unit(benchmark::kMillisecond);
