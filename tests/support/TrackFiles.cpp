#include "support/TrackFiles.h"

#include <QProcess>

const char* const kFrenchFirst = "\xc3\x89t\xc3\xa9 \xc3\xa0 la plage";
const char* const kFrenchSecond = "Un c\xc5\x93ur, une \xc5\x93uvre";
const char* const kFrenchSrt = "1\n00:00:01,000 --> 00:00:02,500\n\xc3\x89t\xc3\xa9 \xc3\xa0 la plage\n\n"
                               "2\n00:00:05,123 --> 00:00:06,789\nUn c\xc5\x93ur, une \xc5\x93uvre\n";
const char* const kEnglishSrt = "1\n00:00:00,500 --> 00:00:01,250\nHello\n\n"
                                "2\n00:00:02,000 --> 00:00:03,000\nWorld\n\n"
                                "3\n00:00:04,000 --> 00:00:04,750\nBye\n";
const char* const kUntaggedSrt = "1\n00:00:10,000 --> 00:00:11,000\nNobody's\n";
// clang-format off
const char* const kStyledAss =
    "[Script Info]\nScriptType: v4.00+\nPlayResX: 640\nPlayResY: 480\n\n"
    "[V4+ Styles]\n"
    "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, BackColour, Bold, "
    "Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, BorderStyle, Outline, Shadow, Alignment, "
    "MarginL, MarginR, MarginV, Encoding\n"
    "Style: Default,Arial,28,&H00FFFFFF,&H000000FF,&H00000000,&H00000000,0,0,0,0,100,100,0,0,1,2,2,2,10,10,10,1\n"
    "Style: Sign,DejaVu Sans,40,&H0000FFFF,&H000000FF,&H00000000,&H00000000,1,0,0,0,100,100,0,0,1,2,2,8,10,10,10,1\n"
    "\n[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
    "Dialogue: 0,0:00:01.00,0:00:02.50,Default,,0,0,0,,Bonjour \xc3\xa0 tous\n"
    "Dialogue: 0,0:00:03.00,0:00:04.00,Sign,,0,0,0,,C\xc5\x93ur\n";
// clang-format on

QString runFfmpeg(const std::string& dir, const QStringList& args)
{
    QProcess ffmpeg;
    ffmpeg.setWorkingDirectory(QString::fromStdString(dir));
    ffmpeg.start(QStringLiteral("ffmpeg"), QStringList{QStringLiteral("-y"), QStringLiteral("-nostdin"),
                                                       QStringLiteral("-loglevel"), QStringLiteral("error")} +
                                               args);
    if (!ffmpeg.waitForStarted(30000))
        return QStringLiteral("cannot run ffmpeg (installed by cmake/install-deps.sh): %1")
            .arg(ffmpeg.errorString());
    if (!ffmpeg.waitForFinished(120000) || ffmpeg.exitStatus() != QProcess::NormalExit ||
        ffmpeg.exitCode() != 0)
        return QStringLiteral("ffmpeg %1 failed: %2")
            .arg(args.join(QLatin1Char(' ')), QString::fromLocal8Bit(ffmpeg.readAllStandardError()));
    return QString();
}

std::string makePictureFile(const TempDir& dir, const std::string& indexPath, QString* error)
{
    dir.write("eng.srt", kEnglishSrt);
    *error = runFfmpeg(dir.path(), {"-i", QString::fromStdString(indexPath), "-i", "eng.srt", "-map", "0:s",
                                    "-map", "1", "-c:s:0", "copy", "-c:s:1", "srt", "-metadata:s:s:1",
                                    "language=eng", "-disposition:s:0", "0", "-disposition:s:1", "0",
                                    "-default_mode", "passthrough", "pictures.mkv"});
    return error->isEmpty() ? dir.file("pictures.mkv") : std::string();
}

TrackFiles makeTrackFiles(const TempDir& dir)
{
    TrackFiles files;
    dir.write("eng.srt", kEnglishSrt);
    dir.write("fre.srt", kFrenchSrt);
    dir.write("none.srt", kUntaggedSrt);
    dir.write("styled.ass", kStyledAss);
    // clang-format off
    const QStringList steps[] = {
        QStringList{"-i", "eng.srt", "-i", "fre.srt", "-i", "none.srt", "-map", "0", "-map", "1", "-map", "2",
                    "-c:s", "srt", "-metadata:s:s:0", "language=eng", "-metadata:s:s:1", "language=fre",
                    "-metadata:s:s:1", "title=Fran\u00e7ais", "-disposition:s:0", "0", "-disposition:s:1",
                    "default", "-disposition:s:2", "0", "tracks.mkv"},
        QStringList{"-i", "eng.srt", "-i", "fre.srt", "-map", "0", "-map", "1", "-c:s", "mov_text",
                    "-metadata:s:s:0", "language=eng", "-metadata:s:s:1", "language=fre", "-disposition:s:0",
                    "0", "-disposition:s:1", "0", "tracks.mp4"},
        QStringList{"-i", "styled.ass", "-i", "eng.srt", "-map", "0", "-map", "1", "-c:s:0", "copy", "-c:s:1",
                    "srt", "-metadata:s:s:1", "language=eng", "-disposition:s:0", "0", "-disposition:s:1", "0",
                    "-default_mode", "passthrough", "styled.mkv"},
        QStringList{"-f", "lavfi", "-i", "anullsrc=r=8000:cl=mono", "-t", "0.2", "-c:a", "pcm_s16le",
                    "audio.mkv"},
        QStringList{"-f", "lavfi", "-i", "anullsrc=r=8000:cl=mono", "-i", "fre.srt", "-i", "eng.srt",
                    "-map", "0:a", "-map", "1", "-map", "2", "-t", "12", "-c:a", "pcm_s16le", "-c:s", "srt",
                    "-metadata:s:s:1", "language=eng", "mixed.mkv"},
    };
    // clang-format on
    for (const QStringList& step : steps) {
        files.error = runFfmpeg(dir.path(), step);
        if (!files.error.isEmpty())
            return files;
    }
    files.mkv = dir.file("tracks.mkv");
    files.mp4 = dir.file("tracks.mp4");
    files.ass = dir.file("styled.mkv");
    files.audio = dir.file("audio.mkv");
    files.mixed = dir.file("mixed.mkv");
    return files;
}
