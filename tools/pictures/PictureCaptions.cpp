#include "PictureCaptions.h"

#include "reading/DemuxedInput.h"
#include "reading/TrackInput.h"
#include "reading/PlayerClock.h"
#include "reading/StreamDecoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/mathematics.h>
}

#include <QRect>
#include <QVector>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace zemsub::tool {

namespace {

// Pictures larger than this are not drawn (a damaged packet can claim any size).
constexpr int kLargestSide = 8192;
// The pixels kept of a whole track: a film's thousands of captions stay far
// below; damaged data that claims more is refused rather than filling memory.
constexpr long long kMostPixels = 1LL << 30;
// Pictures of one display further apart than this share of the frame's height
// stand apart: each is a caption of its own.
constexpr int kApartShare = 6;

bool usable(const AVSubtitleRect* rect)
{
    return rect && rect->type == SUBTITLE_BITMAP && rect->w > 0 && rect->h > 0 && rect->w <= kLargestSide &&
           rect->h <= kLargestSide && rect->data[0] && rect->data[1];
}

int colourCount(const AVSubtitleRect& rect)
{
    return rect.nb_colors > 0 && rect.nb_colors <= 256 ? rect.nb_colors : 256;
}

bool visibleRect(const AVSubtitleRect& rect)
{
    const auto* palette = reinterpret_cast<const uint32_t*>(rect.data[1]);
    const int colours = colourCount(rect);
    for (int y = 0; y < rect.h; ++y) {
        const uint8_t* row = rect.data[0] + size_t(y) * size_t(rect.linesize[0]);
        for (int x = 0; x < rect.w; ++x) {
            if (row[x] < colours && (palette[row[x]] >> 24) != 0)
                return true;
        }
    }
    return false;
}

QRect rectOf(const AVSubtitleRect& rect)
{
    return QRect(rect.x, rect.y, rect.w, rect.h);
}

// Several rectangles drawn on one picture that holds them all.
QImage joinedPicture(const std::vector<const AVSubtitleRect*>& rects, const QRect& bounds)
{
    QImage image(bounds.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (const AVSubtitleRect* rect : rects) {
        const auto* palette = reinterpret_cast<const uint32_t*>(rect->data[1]);
        const int colours = colourCount(*rect);
        for (int y = 0; y < rect->h; ++y) {
            const uint8_t* row = rect->data[0] + size_t(y) * size_t(rect->linesize[0]);
            auto* target =
                reinterpret_cast<QRgb*>(image.scanLine(rect->y - bounds.y() + y)) + (rect->x - bounds.x());
            for (int x = 0; x < rect->w; ++x) {
                if (row[x] < colours && (palette[row[x]] >> 24))
                    target[x] = palette[row[x]];
            }
        }
    }
    return image;
}

// The pictures of one decoded subtitle, top to bottom: its visible rectangles,
// those that lie close together joined into one.
std::vector<ShownPicture> placesOf(const AVSubtitle& subtitle, int frameHeight)
{
    std::vector<const AVSubtitleRect*> rects;
    for (unsigned i = 0; i < subtitle.num_rects; ++i) {
        if (usable(subtitle.rects[i]) && visibleRect(*subtitle.rects[i]))
            rects.push_back(subtitle.rects[i]);
    }
    std::stable_sort(rects.begin(), rects.end(),
                     [](const AVSubtitleRect* a, const AVSubtitleRect* b) { return a->y < b->y; });
    const int apart = std::max(1, frameHeight) / kApartShare;
    std::vector<ShownPicture> places;
    for (size_t first = 0; first < rects.size();) {
        QRect bounds = rectOf(*rects[first]);
        size_t last = first + 1;
        while (last < rects.size() && rects[last]->y - bounds.bottom() <= apart)
            bounds |= rectOf(*rects[last++]);
        const std::vector<const AVSubtitleRect*> group(rects.begin() + long(first), rects.begin() + long(last));
        if (bounds.width() <= kLargestSide && bounds.height() <= kLargestSide) {
            ShownPicture place;
            place.position = bounds.topLeft();
            place.image = group.size() == 1 ? rectPicture(*group.front()) : joinedPicture(group, bounds);
            for (const AVSubtitleRect* rect : group)
                place.forced = place.forced || (rect->flags & AV_SUBTITLE_FLAG_FORCED);
            places.push_back(std::move(place));
        }
        first = last;
    }
    return places;
}

bool samePlaces(const std::vector<ShownPicture>& a, const std::vector<ShownPicture>& b)
{
    if (a.size() != b.size() || a.empty())
        return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i].position != b[i].position || a[i].image != b[i].image)
            return false;
    }
    return true;
}

} // namespace

QImage rectPicture(const AVSubtitleRect& rect)
{
    const auto* palette = reinterpret_cast<const uint32_t*>(rect.data[1]);
    int colours = rect.nb_colors > 0 && rect.nb_colors <= 256 ? rect.nb_colors : 256;
    for (int y = 0; y < rect.h && colours < 256; ++y) {
        const uint8_t* row = rect.data[0] + size_t(y) * size_t(rect.linesize[0]);
        if (std::any_of(row, row + rect.w, [colours](uint8_t code) { return code >= colours; }))
            colours = 256;
    }
    QImage image(rect.w, rect.h, QImage::Format_Indexed8);
    if (image.isNull())
        return image;
    QVector<QRgb> table(colours, qRgba(0, 0, 0, 0));
    for (int i = 0; i < colours && i < colourCount(rect); ++i)
        table[i] = palette[i]; // 0xAARRGGBB, as QRgb
    image.setColorTable(table);
    for (int y = 0; y < rect.h; ++y)
        std::copy_n(rect.data[0] + size_t(y) * size_t(rect.linesize[0]), rect.w, image.scanLine(y));
    return image;
}

PictureCaptions readPictureCaptions(const QByteArray& bytes, const QString& fileName, int track)
{
    const TrackInput input = openTrack(MediaInput(bytes, fileName), TrackRequest{track, QString(), true});
    if (!input.chosen()) {
        PictureCaptions refused;
        refused.failure = chosenTrackFailure(input);
        return refused;
    }
    return readPictureCaptions(*input.demuxed, input.choice.index);
}

PictureCaptions readPictureCaptions(DemuxedInput& input, int track)
{
    PictureCaptions result;
    AVFormatContext* const format = input.format();
    if (!format) {
        result.failure = input.failure();
        return result;
    }
    const int stream = subtitleStreamIndex(format, track);
    if (stream < 0) {
        result.failure = QStringLiteral("FFmpeg finds no subtitle stream in it (read as %1)").arg(input.formatTitle());
        return result;
    }
    AVStream* subtitles = format->streams[stream];
    const AVCodec* decoder = avcodec_find_decoder(subtitles->codecpar->codec_id);
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(subtitles->codecpar->codec_id);
    if (!decoder || !descriptor || !(descriptor->props & AV_CODEC_PROP_BITMAP_SUB)) {
        result.failure = QStringLiteral("FFmpeg has no picture decoder for its subtitles (read as %1)")
                             .arg(input.formatTitle());
        return result;
    }
    const long long origin = playerOrigin(format);
    const TrackEnd trackEnd{statedStreamEnd(format, subtitles, origin), videoEnd(format, origin)};
    keepOnlyStream(format, stream);
    const Decoder codec = openDecoder(subtitles, QString(), &result.failure);
    if (!codec)
        return result;
    result.codec = QString::fromUtf8(decoder->name);
    result.origin = origin;

    // What the decoder hands over, in order, with the pictures of each.
    std::vector<DecodedDisplay> decoded;
    std::vector<std::vector<ShownPicture>> places;
    size_t lastPictures = 0; // the last decoded with pictures of its own
    long long pixels = 0;
    const Packet packet(av_packet_alloc());
    if (!packet) {
        result.failure = ffmpegError(AVERROR(ENOMEM));
        return result;
    }
    const AVRational ms{1, 1000};
    while (av_read_frame(format, packet.get()) >= 0) {
        if (pixels > kMostPixels) {
            av_packet_unref(packet.get());
            result.failure = QStringLiteral("its pictures hold more than %1 million pixels; it is not read")
                                 .arg(kMostPixels / 1000000);
            return result;
        }
        if (packet->stream_index == stream) {
            AVSubtitle subtitle{};
            int got = 0;
            if (decodeSubtitle(codec.get(), &subtitle, &got, packet.get()) >= 0 && got) {
                const long long pts =
                    packet->pts != AV_NOPTS_VALUE ? av_rescale_q(packet->pts, subtitles->time_base, ms) - origin
                                                  : (decoded.empty() ? 0 : decoded.back().start);
                DecodedDisplay display;
                display.start = pts + subtitle.start_display_time;
                if (subtitle.end_display_time > subtitle.start_display_time &&
                    subtitle.end_display_time != UINT32_MAX &&
                    subtitle.end_display_time - subtitle.start_display_time < kMostOwnDuration)
                    display.ownEnd = pts + subtitle.end_display_time;
                else if (packet->duration > 0)
                    display.ownEnd = pts + av_rescale_q(packet->duration, subtitles->time_base, ms);
                std::vector<ShownPicture> shown =
                    placesOf(subtitle, codec->height > 0 ? codec->height : 480);
                display.empty = shown.empty();
                display.repeats = !decoded.empty() && !decoded.back().empty &&
                                  samePlaces(shown, places[lastPictures]);
                // A repeat shares the pixels of the pictures it repeats.
                if (display.repeats) {
                    shown = places[lastPictures];
                } else if (!display.empty) {
                    lastPictures = places.size();
                    for (const ShownPicture& picture : shown)
                        pixels += (long long)picture.image.width() * picture.image.height();
                }
                // Out of order packets (damaged data) are shown at the time on screen.
                if (!decoded.empty())
                    display.start = std::max(display.start, decoded.back().start);
                decoded.push_back(display);
                places.push_back(std::move(shown));
            }
            if (got)
                avsubtitle_free(&subtitle);
        }
        av_packet_unref(packet.get());
    }
    result.decoded = int(decoded.size());
    if (codec->width > 0 && codec->height > 0)
        result.frame = QSize(codec->width, codec->height);

    int displayIndex = 0;
    for (const DisplaySpan& span : displaySpans(decoded, trackEnd)) {
        for (ShownPicture& picture : places[size_t(span.first)]) {
            picture.start = span.start;
            picture.end = span.end;
            picture.display = displayIndex;
            picture.ended = span.ended;
            result.pictures.push_back(std::move(picture));
        }
        ++displayIndex;
    }
    result.read = true;
    return result;
}

} // namespace zemsub::tool
