#include "TrackPictures.h"

#include "zemsub/commands/CommandLine.h"
#include "reading/MediaInput.h"
#include "reading/SubtitleTracks.h"

namespace zemsub::tool {

namespace {

const QSize kLeastFrame(720, 480);
const QSize kBlurayFrame(1920, 1080);

} // namespace

std::optional<TrackPictures> TrackPictures::open(const QString& path, int track)
{
    const bool named = track >= 0;
    QString why;
    const std::optional<MediaInput> input = MediaInput::open(path, &why);
    if (!input) {
        if (named)
            fileError(path, why);
        return std::nullopt;
    }
    // One open: the tracks from the header, then the chosen one decoded from the same demuxer.
    DemuxedInput demuxed(*input);
    const TrackList list = describeTracks(demuxed);
    if (!list.read) {
        if (named)
            fileError(path, QStringLiteral("cannot read its tracks: %1").arg(list.failure));
        return std::nullopt;
    }
    const SubtitleTrack* chosen = nullptr;
    for (const SubtitleTrack& candidate : list.tracks) {
        if (named ? candidate.index == track : candidate.pictures) {
            chosen = &candidate;
            break;
        }
    }
    if (!chosen) {
        if (named)
            fileError(path, QStringLiteral("it has no track %1").arg(track));
        return std::nullopt;
    }
    if (!chosen->pictures)
        fileError(path, QStringLiteral("track %1 is %2, not pictures").arg(track).arg(chosen->codec));

    TrackPictures pictures;
    pictures.m_track = chosen->index;
    pictures.m_language = chosen->language;
    pictures.m_pictures = readPictureCaptions(demuxed, pictures.m_track);
    if (!pictures.m_pictures.read)
        fileError(path, QStringLiteral("cannot decode its pictures: %1").arg(pictures.m_pictures.failure));
    QSize& frame = pictures.m_frame;
    frame = pictures.m_pictures.frame.isEmpty() ? kLeastFrame : pictures.m_pictures.frame;
    if (pictures.m_pictures.codec == QLatin1String("pgssub"))
        frame = frame.expandedTo(kBlurayFrame);
    for (const ShownPicture& picture : pictures.m_pictures.pictures)
        frame = frame.expandedTo(QSize(picture.position.x() + picture.image.width(),
                                       picture.position.y() + picture.image.height()));
    return pictures;
}

DecodedSubpicture TrackPictures::asSubpicture(const ShownPicture& picture)
{
    DecodedSubpicture subpicture;
    subpicture.decoded = true;
    subpicture.shown = picture;
    return subpicture;
}

DecodedSubpicture TrackPictures::at(long long ms) const
{
    for (const ShownPicture& picture : m_pictures.pictures) {
        if (picture.start <= ms && ms < picture.end)
            return asSubpicture(picture);
    }
    DecodedSubpicture none;
    none.failure = QStringLiteral("no picture is shown at this time");
    return none;
}

} // namespace zemsub::tool
