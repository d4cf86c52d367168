#include "PictureCaptions.h"

#include "reading/DemuxedBytes.h"
#include "reading/StreamDecoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/mathematics.h>
}

#include <QRect>
#include <QVector>

#include <cstdint>
#include <memory>
#include <optional>

namespace zemsub::tool {

namespace {

// How long the last picture of a track stays when nothing clears it.
constexpr long long kLastPictureMs = 5000;
// Pictures larger than this are not drawn (a damaged packet can claim any size).
constexpr int kLargestSide = 8192;
// The pixels kept of a whole track: a film's thousands of captions stay far
// below; damaged data that claims more is refused rather than filling memory.
constexpr long long kMostPixels = 1LL << 30;

bool usable(const AVSubtitleRect* rect)
{
    return rect && rect->type == SUBTITLE_BITMAP && rect->w > 0 && rect->h > 0 && rect->w <= kLargestSide &&
           rect->h <= kLargestSide && rect->data[0] && rect->data[1];
}

// One rectangle as it is: its pixel codes and its palette (the common case, a
// quarter of the memory of colours).
QImage indexedPicture(const AVSubtitleRect& rect, bool& visible)
{
    const auto* palette = reinterpret_cast<const uint32_t*>(rect.data[1]);
    const int colours = rect.nb_colors > 0 && rect.nb_colors <= 256 ? rect.nb_colors : 256;
    QImage image(rect.w, rect.h, QImage::Format_Indexed8);
    QVector<QRgb> table(256, qRgba(0, 0, 0, 0));
    for (int i = 0; i < colours; ++i)
        table[i] = palette[i];
    image.setColorTable(table);
    for (int y = 0; y < rect.h; ++y) {
        const uint8_t* row = rect.data[0] + size_t(y) * size_t(rect.linesize[0]);
        uchar* target = image.scanLine(y);
        for (int x = 0; x < rect.w; ++x) {
            target[x] = row[x];
            visible = visible || (row[x] < colours && (palette[row[x]] >> 24) != 0);
        }
    }
    return image;
}

// The rectangles of a decoded subtitle drawn on one picture that holds them all.
std::optional<ShownPicture> drawRects(const AVSubtitle& subtitle)
{
    QRect bounds;
    int rects = 0;
    const AVSubtitleRect* only = nullptr;
    for (unsigned i = 0; i < subtitle.num_rects; ++i) {
        if (usable(subtitle.rects[i])) {
            bounds |= QRect(subtitle.rects[i]->x, subtitle.rects[i]->y, subtitle.rects[i]->w, subtitle.rects[i]->h);
            only = subtitle.rects[i];
            ++rects;
        }
    }
    if (bounds.isEmpty() || bounds.width() > kLargestSide || bounds.height() > kLargestSide)
        return std::nullopt;
    ShownPicture shown;
    shown.position = bounds.topLeft();
    bool visible = false;
    if (rects == 1) {
        shown.image = indexedPicture(*only, visible);
        return visible ? std::optional<ShownPicture>(std::move(shown)) : std::nullopt;
    }
    shown.image = QImage(bounds.size(), QImage::Format_ARGB32);
    shown.image.fill(Qt::transparent);
    for (unsigned i = 0; i < subtitle.num_rects; ++i) {
        const AVSubtitleRect* rect = subtitle.rects[i];
        if (!usable(rect))
            continue;
        const auto* palette = reinterpret_cast<const uint32_t*>(rect->data[1]);
        const int colours = rect->nb_colors > 0 && rect->nb_colors <= 256 ? rect->nb_colors : 256;
        for (int y = 0; y < rect->h; ++y) {
            const uint8_t* row = rect->data[0] + size_t(y) * size_t(rect->linesize[0]);
            auto* target = reinterpret_cast<QRgb*>(shown.image.scanLine(rect->y - bounds.y() + y)) +
                           (rect->x - bounds.x());
            for (int x = 0; x < rect->w; ++x) {
                if (row[x] >= colours)
                    continue;
                const uint32_t argb = palette[row[x]];
                if (argb >> 24) {
                    target[x] = argb;
                    visible = true;
                }
            }
        }
    }
    if (!visible)
        return std::nullopt;
    return shown;
}

} // namespace

PictureCaptions readPictureCaptions(const QByteArray& bytes, const QString& fileName, int track)
{
    PictureCaptions result;
    const DemuxedBytes input(bytes, fileName);
    AVFormatContext* const format = input.format();
    if (!format) {
        result.failure = input.failure();
        return result;
    }
    const int stream = track < 0 ? av_find_best_stream(format, AVMEDIA_TYPE_SUBTITLE, -1, -1, nullptr, 0)
                                 : subtitleStreamIndex(format, track);
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
    keepOnlyStream(format, stream);
    const Decoder codec = openDecoder(subtitles, QString(), &result.failure);
    if (!codec)
        return result;
    result.codec = QString::fromUtf8(decoder->name);
    if (codec->width > 0 && codec->height > 0)
        result.frame = QSize(codec->width, codec->height);

    // The picture on screen, until something ends it.
    std::optional<ShownPicture> open;
    long long pixels = 0;
    auto close = [&](long long at) {
        if (!open)
            return;
        open->end = std::max(open->start, at);
        if (open->end > open->start) {
            pixels += (long long)open->image.width() * open->image.height();
            result.pictures.push_back(std::move(*open));
        }
        open.reset();
    };

    const Packet packet(av_packet_alloc());
    if (!packet) {
        result.failure = ffmpegError(AVERROR(ENOMEM));
        return result;
    }
    const AVRational ms{1, 1000};
    while (av_read_frame(format, packet.get()) >= 0) {
        if (pixels > kMostPixels) {
            av_packet_unref(packet.get());
            result.pictures.clear();
            result.failure = QStringLiteral("its pictures hold more than %1 million pixels; it is not read")
                                 .arg(kMostPixels / 1000000);
            return result;
        }
        if (packet->stream_index == stream) {
            AVSubtitle subtitle{};
            int got = 0;
            if (avcodec_decode_subtitle2(codec.get(), &subtitle, &got, packet.get()) >= 0 && got) {
                const long long pts =
                    packet->pts != AV_NOPTS_VALUE ? av_rescale_q(packet->pts, subtitles->time_base, ms) : 0;
                const long long start = pts + subtitle.start_display_time;
                close(start);
                if (std::optional<ShownPicture> shown = drawRects(subtitle)) {
                    shown->start = start;
                    open = std::move(shown);
                    if (subtitle.end_display_time > subtitle.start_display_time &&
                        subtitle.end_display_time != UINT32_MAX)
                        close(pts + subtitle.end_display_time);
                    else if (packet->duration > 0)
                        close(pts + av_rescale_q(packet->duration, subtitles->time_base, ms));
                }
            }
            if (got)
                avsubtitle_free(&subtitle);
        }
        av_packet_unref(packet.get());
    }
    if (open)
        close(open->start + kLastPictureMs);
    result.read = true;
    return result;
}

} // namespace zemsub::tool
