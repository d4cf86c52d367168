#include "FrameChoice.h"

#include "CommandLine.h"
#include "LibraryChecks.h"
#include "zemsub/frames/PictureFrames.h"

namespace zemsub::tool {

std::unique_ptr<FrameSource> openFrames(const LibraryInput& input, int track, const RenderStyle& style,
                                        const QString& command, bool pictureText, bool withCaptions)
{
    const FileFacts& facts = input.facts;
    const int formatCode = input.formatCode();
    const bool opened = input.kind == LibraryInput::Kind::Played;
    if (input.kind == LibraryInput::Kind::Index && track < 0 && !pictureText) {
        QString why;
        std::unique_ptr<IndexPictures> pictures = IndexPictures::open(facts.path, &why);
        if (!pictures)
            fileError(facts.path, why);
        if (pictures->frameFromPictures())
            err(QStringLiteral("%1: %2\n").arg(command, pictures->frameNote()));
        return indexFrames(std::move(pictures), style);
    }
    if (track >= 0 || pictureText || !opened) {
        OpenedPictures pictures = TrackPictures::open(facts.path, track);
        if (!pictures.failure.isEmpty())
            fileError(facts.path, pictures.failure);
        if (pictures.pictures)
            return trackFrames(std::move(*pictures.pictures), style);
        if (pictureText)
            fileError(facts.path, QStringLiteral("--text reads picture tracks, and FFmpeg finds none in it"));
    }
    QString why;
    std::unique_ptr<CaptionPlayer> player = CaptionPlayer::open(input, style, &why);
    if (!player)
        fileError(facts.path, why);
    std::optional<StoredTimeline> timeline;
    if (withCaptions)
        timeline = timelineOrExit(facts.path, formatCode);
    return playedFrames(std::move(player), std::move(timeline));
}

} // namespace zemsub::tool
