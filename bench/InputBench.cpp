// Reading a track of a video with several tracks: zemsubfix's copy of a text
// track against ffmpeg extracting the same track, and zemsub render of a .sup.
// The video is ZEMSUB_BENCH_VIDEO when set (its subtitle track 1 is read), else
// a generated one: 50 s of noisy 720p MPEG-2 (about 1.4 GB, as large as an hour
// of a small film), two SubRip tracks and a PGS track.
#include <benchmark/benchmark.h>

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include "ZemsubFix.h"

namespace {

bool run(const QString& program, const QStringList& args)
{
    QProcess process;
    process.start(program, args);
    return process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

// The video and a folder for what the rows write; empty when it cannot be made.
struct BenchVideo
{
    QTemporaryDir dir;
    QString path;
};

BenchVideo& benchVideo()
{
    static BenchVideo video = [] {
        BenchVideo made;
        const QString given = qEnvironmentVariable("ZEMSUB_BENCH_VIDEO");
        if (!given.isEmpty()) {
            made.path = given;
            return made;
        }
        const QString srt = made.dir.filePath(QStringLiteral("track.srt"));
        QString text;
        // A caption every 800 ms, each shown for a tenth of a second.
        for (int i = 0; i < 60; ++i)
            text += QStringLiteral("%1\n00:00:%2,%3 --> 00:00:%2,%4\nCaption %1\n\n")
                        .arg(i + 1)
                        .arg(i * 800 / 1000, 2, 10, QLatin1Char('0'))
                        .arg(i * 800 % 1000, 3, 10, QLatin1Char('0'))
                        .arg(i * 800 % 1000 + 100, 3, 10, QLatin1Char('0'));
        QFile file(srt);
        if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
            return made;
        file.close();
        const QString path = made.dir.filePath(QStringLiteral("video.mkv"));
        if (run(QStringLiteral("ffmpeg"),
                {"-v", "error", "-f", "lavfi", "-i", "testsrc2=size=1280x720:rate=25:duration=50,noise=alls=60:allf=t",
                 "-i", srt, "-i", srt,
                 "-i", QStringLiteral(ZEMSUB_SOURCE_DIR "/samples/words.sup"), "-map", "0", "-map", "1", "-map", "2",
                 "-map", "3", "-c:v", "mpeg2video", "-q:v", "2", "-c:s", "copy", "-metadata:s:s:1", "language=fre", path}))
            made.path = path;
        return made;
    }();
    return video;
}

void BM_Input_FixTextTrackOfVideo(benchmark::State& state)
{
    BenchVideo& video = benchVideo();
    if (video.path.isEmpty()) {
        state.SkipWithError("no video (ffmpeg could not make one)");
        return;
    }
    state.counters["video MB"] = double(QFileInfo(video.path).size()) / 1e6;
    zemsubfix::FixOptions options;
    options.track = 1;
    const QString copy = video.dir.filePath(QStringLiteral("copy.srt"));
    for (auto _ : state) {
        const zemsubfix::FixReport report = zemsubfix::fixFile(video.path, copy, options);
        if (!report.readable)
            state.SkipWithError(qPrintable(report.error));
        benchmark::DoNotOptimize(report.copy.size());
    }
}
BENCHMARK(BM_Input_FixTextTrackOfVideo)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Input_FfmpegExtractsTheTrack(benchmark::State& state)
{
    BenchVideo& video = benchVideo();
    if (video.path.isEmpty()) {
        state.SkipWithError("no video (ffmpeg could not make one)");
        return;
    }
    const QString out = video.dir.filePath(QStringLiteral("extracted.srt"));
    for (auto _ : state) {
        if (!run(QStringLiteral("ffmpeg"), {"-v", "error", "-y", "-i", video.path, "-map", "0:s:1", "-c", "copy", out}))
            state.SkipWithError("ffmpeg did not extract the track");
    }
}
BENCHMARK(BM_Input_FfmpegExtractsTheTrack)->Unit(benchmark::kMillisecond)->UseRealTime();

#ifdef ZEMSUB_TOOL_BINARY
void BM_Input_RenderSup(benchmark::State& state)
{
    QTemporaryDir dir;
    const QString frame = dir.filePath(QStringLiteral("frame.png"));
    for (auto _ : state) {
        if (!run(QStringLiteral(ZEMSUB_TOOL_BINARY),
                 {"render", QStringLiteral(ZEMSUB_SOURCE_DIR "/samples/words.sup"), "1500", "-o", frame}))
            state.SkipWithError("zemsub render failed");
    }
}
BENCHMARK(BM_Input_RenderSup)->Unit(benchmark::kMillisecond)->UseRealTime();
#endif

} // namespace
