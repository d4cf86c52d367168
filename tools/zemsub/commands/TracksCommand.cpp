// zemsub tracks: the subtitle tracks of a file, as FFmpeg demuxes them.
#include "Commands.h"

#include "CommandLine.h"
#include "TimeParser.h"
#include "reading/MediaInput.h"
#include "reading/SubtitleTracks.h"

#include <QFileInfo>
#include <nlohmann/json.hpp>

namespace zemsub::tool {

namespace {

// null for a track without captions.
nlohmann::ordered_json timeJson(const SubtitleTrack& track, long long ms)
{
    return track.captions == 0 ? nlohmann::ordered_json(nullptr) : nlohmann::ordered_json(ms);
}

void printJson(const QString& path, const TrackList& list)
{
    nlohmann::ordered_json tracks = nlohmann::ordered_json::array();
    for (const SubtitleTrack& track : list.tracks) {
        nlohmann::ordered_json entry{{"track", track.index},
                                     {"codec", track.codec.toStdString()},
                                     {"kind", track.pictures ? "picture" : "text"},
                                     {"language", track.language.toStdString()},
                                     {"title", track.title.toStdString()},
                                     {"default", track.isDefault},
                                     {"forced", track.forced},
                                     {"captions", track.captions},
                                     {"first", timeJson(track, track.first)},
                                     {"last", timeJson(track, track.last)}};
        // Pictures say whether they are forced, one by one.
        if (track.pictures)
            entry["forcedCaptions"] = track.forcedCaptions;
        tracks.push_back(entry);
    }
    const nlohmann::ordered_json doc = {{"file", path.toStdString()}, {"tracks", tracks}};
    out(QString::fromStdString(doc.dump(2)) + QLatin1Char('\n'));
}

void printText(const QString& path, const TrackList& list)
{
    out(QStringLiteral("%1: %2, %3 subtitle track%4\n")
            .arg(path, list.formatTitle)
            .arg(list.tracks.size())
            .arg(list.tracks.size() == 1 ? QString() : QStringLiteral("s")));
    for (const SubtitleTrack& track : list.tracks) {
        QString flags;
        if (track.isDefault)
            flags += QStringLiteral(", default");
        if (track.forced)
            flags += QStringLiteral(", forced");
        QString line =
            QStringLiteral("  %1: %2 (%3), %4%5")
                .arg(track.index)
                .arg(track.codec, track.pictures ? QStringLiteral("picture") : QStringLiteral("text"),
                     track.language.isEmpty() ? QStringLiteral("untagged") : track.language, flags);
        if (!track.title.isEmpty())
            line += QStringLiteral(", \"%1\"").arg(track.title);
        line += QStringLiteral(", %1 caption%2").arg(track.captions).arg(track.captions == 1 ? "" : "s");
        if (track.forcedCaptions > 0)
            line += QStringLiteral(" (%1 forced)").arg(track.forcedCaptions);
        if (track.captions > 0)
            line += QStringLiteral(", %1 --> %2").arg(formatTime(track.first), formatTime(track.last));
        out(line + QLatin1Char('\n'));
    }
}

} // namespace

int runTracks(const QStringList& args)
{
    SubcommandLine line(
        QStringLiteral("tracks"),
        QStringLiteral("Lists the subtitle tracks of a file as FFmpeg demuxes it (Matroska, MP4, a plain "
                       "subtitle file, ...), numbered from 0 in file order: codec, text or picture, "
                       "language, title, default and forced flags, captions, first and last time. "
                       "Exit 1 when the file cannot be read or has no subtitle track."));
    const QCommandLineOption jsonOption(QStringLiteral("json"), QStringLiteral("Write JSON."));
    line.parser().addOption(jsonOption);
    line.addPositional(QStringLiteral("file"), QStringLiteral("A video or subtitle file."));
    if (!line.parse(args))
        return ExitSuccess;
    const QString path = line.positionals(1, 1).first();
    if (!QFileInfo::exists(path))
        fileError(path, QStringLiteral("no such file"));
    if (QFileInfo(path).isDir())
        fileError(path, QStringLiteral("is a directory"));
    QString why;
    const std::optional<MediaInput> input = MediaInput::open(path, &why);
    if (!input)
        fileError(path, why);
    const TrackList list = listSubtitleTracks(*input);
    if (!list.read)
        fileError(path, list.failure);
    if (list.tracks.empty())
        fileError(path, QStringLiteral("no subtitle tracks (FFmpeg reads it as %1)").arg(list.formatTitle));
    if (line.parser().isSet(jsonOption))
        printJson(path, list);
    else
        printText(path, list);
    return ExitSuccess;
}

} // namespace zemsub::tool
