#include "TrackPictures.h"

#include "reading/MediaInput.h"
#include "reading/TrackInput.h"

namespace zemsub::tool {

namespace {

const QSize kLeastFrame(720, 480);
const QSize kBlurayFrame(1920, 1080);

} // namespace

OpenedPictures TrackPictures::open(const QString& path, int track)
{
    const bool named = track >= 0;
    // Without a named track, a file that shows no pictures is no failure: it is shown otherwise.
    auto none = [named](const QString& why) { return OpenedPictures{std::nullopt, named ? why : QString()}; };
    QString why;
    const std::optional<MediaInput> input = MediaInput::open(path, &why);
    if (!input)
        return none(why);
    // One open: the tracks from the header, then the chosen one decoded from the same demuxer.
    const TrackInput opened = openTrack(*input, TrackRequest{track, QString(), true});
    switch (opened.step) {
    case TrackInput::Step::Unread:
        return none(QStringLiteral("cannot read its tracks: %1").arg(opened.tracks.failure));
    case TrackInput::Step::NoTracks:
    case TrackInput::Step::NotChosen:
        return none(QStringLiteral("it has no track %1").arg(track));
    case TrackInput::Step::Chosen:
        break;
    }
    const SubtitleTrack* chosen = &opened.track();
    if (!chosen->pictures)
        return {std::nullopt, QStringLiteral("track %1 is %2, not pictures").arg(track).arg(chosen->codec)};
    DemuxedInput& demuxed = *opened.demuxed;

    TrackPictures pictures;
    pictures.m_track = chosen->index;
    pictures.m_language = chosen->language;
    pictures.m_pictures = readPictureCaptions(demuxed, pictures.m_track);
    if (!pictures.m_pictures.read)
        return {std::nullopt, QStringLiteral("cannot decode its pictures: %1").arg(pictures.m_pictures.failure)};
    QSize& frame = pictures.m_frame;
    frame = pictures.m_pictures.frame.isEmpty() ? kLeastFrame : pictures.m_pictures.frame;
    if (pictures.m_pictures.codec == QLatin1String("pgssub"))
        frame = frame.expandedTo(kBlurayFrame);
    for (const ShownPicture& picture : pictures.m_pictures.pictures)
        frame = frame.expandedTo(QSize(picture.position.x() + picture.image.width(),
                                       picture.position.y() + picture.image.height()));
    return {std::move(pictures), QString()};
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
