#include "TrackPictures.h"

#include "zemsub/commands/CommandLine.h"
#include "reading/FileBytes.h"
#include "reading/SubtitleTracks.h"

namespace zemsub::tool {

namespace {

const QSize kLeastFrame(720, 480);
const QSize kBlurayFrame(1920, 1080);

} // namespace

TrackPictures::TrackPictures(const QString& path, int track)
{
    const FileBytes input(path);
    if (!input.opened())
        fileError(path, input.error());
    const TrackList list = listSubtitleTracks(input.bytes(), path);
    if (!list.read)
        fileError(path, QStringLiteral("cannot read its tracks: %1").arg(list.failure));
    for (const SubtitleTrack& candidate : list.tracks) {
        if (track >= 0 ? candidate.index == track : candidate.pictures) {
            m_track = candidate.index;
            m_language = candidate.language;
            if (!candidate.pictures)
                fileError(path, QStringLiteral("track %1 is %2, not pictures").arg(track).arg(candidate.codec));
            break;
        }
    }
    if (m_track < 0)
        fileError(path, track >= 0 ? QStringLiteral("it has no track %1").arg(track)
                                   : QStringLiteral("the library does not open it, and FFmpeg finds no picture "
                                                    "track in it (read as %1)")
                                         .arg(list.formatTitle));
    m_pictures = readPictureCaptions(input.bytes(), path, m_track);
    if (!m_pictures.read)
        fileError(path, QStringLiteral("cannot decode its pictures: %1").arg(m_pictures.failure));
    m_frame = m_pictures.frame.isEmpty() ? kLeastFrame : m_pictures.frame;
    if (m_pictures.codec == QLatin1String("pgssub"))
        m_frame = m_frame.expandedTo(kBlurayFrame);
    for (const ShownPicture& picture : m_pictures.pictures)
        m_frame = m_frame.expandedTo(QSize(picture.position.x() + picture.image.width(),
                                           picture.position.y() + picture.image.height()));
}

bool TrackPictures::holdsPictures(const QString& path)
{
    const FileBytes input(path);
    if (!input.opened())
        return false;
    const TrackList list = listSubtitleTracks(input.bytes(), path);
    for (const SubtitleTrack& track : list.tracks) {
        if (track.pictures)
            return true;
    }
    return false;
}

DecodedSubpicture TrackPictures::asSubpicture(const ShownPicture& picture)
{
    DecodedSubpicture subpicture;
    subpicture.decoded = true;
    subpicture.picture = picture.image;
    subpicture.position = picture.position;
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
