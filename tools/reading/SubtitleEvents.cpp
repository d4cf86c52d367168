#include "SubtitleEvents.h"

#include "DemuxedInput.h"
#include "StreamDecoder.h"
#include "TrackInput.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/error.h>
#include <libavutil/mathematics.h>
}

#include <memory>

namespace zemsub::tool {

namespace {

long long toMilliseconds(long long value, AVRational timeBase)
{
    return av_rescale_q(value, timeBase, AVRational{1, 1000});
}

// The events of one decoded packet; several rectangles are joined as separate lines.
void addEvents(const AVSubtitle& subtitle, const AVPacket& packet, AVRational timeBase,
               std::vector<SubtitleEvent>& events)
{
    QStringList lines;
    for (unsigned i = 0; i < subtitle.num_rects; ++i) {
        const AVSubtitleRect* rect = subtitle.rects[i];
        if (rect && rect->type == SUBTITLE_ASS && rect->ass)
            lines << QString::fromUtf8(rect->ass);
        else if (rect && rect->type == SUBTITLE_TEXT && rect->text)
            lines << QStringLiteral("0,0,Default,,0,0,0,,") + QString::fromUtf8(rect->text);
    }
    if (lines.isEmpty())
        return;
    SubtitleEvent event;
    const long long pts = packet.pts != AV_NOPTS_VALUE ? packet.pts : 0;
    event.start = toMilliseconds(pts, timeBase);
    // An end before the start (a negative duration) shows nothing: the event ends where it starts.
    event.end = packet.duration > 0 ? toMilliseconds(pts + packet.duration, timeBase) : event.start;
    event.position = packet.pos;
    event.assLine = lines.join(QLatin1Char('\n'));
    events.push_back(event);
}

} // namespace

SubtitleEvents readSubtitleEvents(const QByteArray& bytes, const QString& fileName, const QString& encoding,
                                  int track)
{
    // Without a track named, the one players take, as every input's track is taken.
    const TrackInput input = openTrack(MediaInput(bytes, fileName), TrackRequest{track, QString(), false});
    return readSubtitleEvents(*input.demuxed, encoding, input.chosen() ? input.choice.index : track);
}

SubtitleEvents readSubtitleEvents(DemuxedInput& input, const QString& encoding, int track)
{
    SubtitleEvents result;
    AVFormatContext* const format = input.format();
    if (!format) {
        result.failure = input.failure();
        return result;
    }
    result.format = input.formatName();
    result.formatTitle = input.formatTitle();

    const int stream = subtitleStreamIndex(format, track);
    const AVCodec* decoder = stream < 0 ? nullptr : avcodec_find_decoder(format->streams[stream]->codecpar->codec_id);
    if (stream < 0 || !decoder) {
        result.failure = stream >= 0
                             ? QStringLiteral("FFmpeg has no decoder for its subtitles (read as %1)")
                                   .arg(result.formatTitle)
                             : QStringLiteral("FFmpeg finds no subtitle stream in it (read as %1)")
                                   .arg(result.formatTitle);
        return result;
    }
    AVStream* subtitles = format->streams[stream];
    // Only this stream's packets are handed over.
    keepOnlyStream(format, stream);
    const Decoder codec = openDecoder(subtitles, encoding, &result.failure);
    if (!codec)
        return result;
    result.codec = QString::fromUtf8(decoder->name);
    if ((decoder->id == AV_CODEC_ID_ASS || decoder->id == AV_CODEC_ID_SSA) && subtitles->codecpar->extradata)
        result.header = QString::fromUtf8(reinterpret_cast<const char*>(subtitles->codecpar->extradata),
                                          subtitles->codecpar->extradata_size);
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(decoder->id);
    if (descriptor && (descriptor->props & AV_CODEC_PROP_BITMAP_SUB)) {
        result.pictures = true;
        result.read = true;
        return result;
    }

    const Packet packet(av_packet_alloc());
    if (!packet) {
        result.failure = ffmpegError(AVERROR(ENOMEM));
        return result;
    }
    while (av_read_frame(format, packet.get()) >= 0) {
        if (packet->stream_index == stream) {
            AVSubtitle subtitle{};
            int got = 0;
            if (decodeSubtitle(codec.get(), &subtitle, &got, packet.get()) < 0)
                ++result.failedPackets;
            else if (got)
                addEvents(subtitle, *packet, subtitles->time_base, result.events);
            if (got)
                avsubtitle_free(&subtitle);
        }
        av_packet_unref(packet.get());
    }
    result.read = true;
    return result;
}

} // namespace zemsub::tool
