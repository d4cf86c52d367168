#include "TrackChoice.h"

#include <QStringList>

namespace zemsub::tool {

namespace {

TrackChoice taken(int index, const QString& why)
{
    TrackChoice choice;
    choice.chosen = true;
    choice.index = index;
    choice.why = why;
    return choice;
}

TrackChoice refused(const QString& error)
{
    TrackChoice choice;
    choice.error = error;
    return choice;
}

QString languageOf(const SubtitleTrack& track)
{
    return track.language.isEmpty() ? QStringLiteral("untagged") : track.language;
}

} // namespace

TrackChoice chooseTrack(const std::vector<SubtitleTrack>& tracks, int requested, const QString& language,
                        TrackKinds kinds)
{
    const int count = int(tracks.size());
    if (count == 0)
        return refused(QStringLiteral("it has no subtitle track"));
    if (requested >= 0 && !language.isEmpty())
        return refused(QStringLiteral("name a track or a language, not both"));
    if (requested >= 0) {
        if (requested >= count)
            return refused(QStringLiteral("there is no track %1: its subtitle tracks are 0 to %2")
                               .arg(requested)
                               .arg(count - 1));
        return taken(requested, QStringLiteral("asked for"));
    }
    if (!language.isEmpty()) {
        int first = -1;
        for (const SubtitleTrack& track : tracks) {
            if (track.language.compare(language, Qt::CaseInsensitive) != 0)
                continue;
            if (track.isDefault)
                return taken(track.index, QStringLiteral("default"));
            if (first < 0)
                first = track.index;
        }
        if (first >= 0)
            return taken(first, QStringLiteral("first of its language"));
        QStringList languages;
        for (const SubtitleTrack& track : tracks) {
            if (!languages.contains(languageOf(track)))
                languages << languageOf(track);
        }
        return refused(QStringLiteral("no subtitle track in %1: its tracks are %2")
                           .arg(language, languages.join(QStringLiteral(", "))));
    }
    const bool picturesOnly = kinds == TrackKinds::Pictures;
    for (const SubtitleTrack& track : tracks) {
        if (track.isDefault && (track.pictures || !picturesOnly))
            return taken(track.index, QStringLiteral("default"));
    }
    for (const SubtitleTrack& track : tracks) {
        if (!track.pictures && !picturesOnly)
            return taken(track.index, QStringLiteral("first text track"));
    }
    for (const SubtitleTrack& track : tracks) {
        if (track.pictures)
            return taken(track.index, QStringLiteral("first picture track"));
    }
    return refused(QStringLiteral("it has no picture track"));
}

QString describeChoice(const SubtitleTrack& track, const TrackChoice& choice)
{
    QString text = QStringLiteral("track %1 (%2, %3): %4")
                       .arg(track.index)
                       .arg(languageOf(track), choice.why, track.codec);
    if (!track.title.isEmpty())
        text += QStringLiteral(" \"%1\"").arg(track.title);
    return text;
}

} // namespace zemsub::tool
