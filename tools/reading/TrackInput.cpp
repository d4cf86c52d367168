#include "TrackInput.h"

namespace zemsub::tool {

TrackInput openTrack(const MediaInput& media, const TrackRequest& request)
{
    TrackInput input;
    input.demuxed = std::make_unique<DemuxedInput>(media);
    input.tracks = describeTracks(*input.demuxed);
    if (!input.tracks.read)
        return input;
    if (input.tracks.tracks.empty()) {
        input.step = TrackInput::Step::NoTracks;
        return input;
    }
    input.choice = chooseTrack(input.tracks.tracks, request.track, request.language,
                               request.pictures ? TrackKinds::Pictures : TrackKinds::Any);
    input.step = input.choice.chosen ? TrackInput::Step::Chosen : TrackInput::Step::NotChosen;
    return input;
}

QString chosenTrackFailure(const TrackInput& input)
{
    switch (input.step) {
    case TrackInput::Step::Unread:
        return input.tracks.failure;
    case TrackInput::Step::NoTracks:
        return QStringLiteral("FFmpeg finds no subtitle stream in it (read as %1)").arg(input.tracks.formatTitle);
    case TrackInput::Step::NotChosen:
        return input.choice.error;
    case TrackInput::Step::Chosen:
        break;
    }
    return QString();
}

} // namespace zemsub::tool
