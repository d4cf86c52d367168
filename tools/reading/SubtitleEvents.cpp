#include "SubtitleEvents.h"

#include "MemoryInput.h"
#include "QuietFfmpeg.h"

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

QString ffmpegError(int code)
{
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return QString::fromUtf8(text);
}

struct FormatCloser
{
    void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
};

struct CodecCloser
{
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};

struct PacketFreer
{
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};

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

SubtitleEvents readSubtitleEvents(const QByteArray& bytes, const QString& fileName, const QString& encoding)
{
    quietFfmpeg();
    SubtitleEvents result;
    MemoryInput input(bytes);
    AVFormatContext* raw = avformat_alloc_context();
    if (!raw || !input.context()) {
        avformat_free_context(raw);
        result.failure = ffmpegError(AVERROR(ENOMEM));
        return result;
    }
    raw->pb = input.context();
    raw->flags |= AVFMT_FLAG_CUSTOM_IO;
    const QByteArray url = fileName.toUtf8();
    int code = avformat_open_input(&raw, url.constData(), nullptr, nullptr);
    if (code < 0) {
        result.failure = QStringLiteral("FFmpeg cannot read it: %1").arg(ffmpegError(code));
        return result; // avformat_open_input freed the context
    }
    const std::unique_ptr<AVFormatContext, FormatCloser> format(raw);
    result.format = QString::fromUtf8(format->iformat->name);
    result.formatTitle = QString::fromUtf8(format->iformat->long_name ? format->iformat->long_name : "");

    // Formats without a header (MPEG-PS, ...) make their streams as packets come.
    if (format->nb_streams == 0)
        avformat_find_stream_info(format.get(), nullptr);
    const AVCodec* decoder = nullptr;
    const int stream = av_find_best_stream(format.get(), AVMEDIA_TYPE_SUBTITLE, -1, -1, &decoder, 0);
    if (stream < 0 || !decoder) {
        result.failure = stream == AVERROR_DECODER_NOT_FOUND
                             ? QStringLiteral("FFmpeg has no decoder for its subtitles (read as %1)")
                                   .arg(result.formatTitle)
                             : QStringLiteral("FFmpeg finds no subtitle stream in it (read as %1)")
                                   .arg(result.formatTitle);
        return result;
    }
    AVStream* subtitles = format->streams[stream];
    const std::unique_ptr<AVCodecContext, CodecCloser> codec(avcodec_alloc_context3(decoder));
    if (!codec || avcodec_parameters_to_context(codec.get(), subtitles->codecpar) < 0) {
        result.failure = ffmpegError(AVERROR(ENOMEM));
        return result;
    }
    codec->pkt_timebase = subtitles->time_base;
    AVDictionary* options = nullptr;
    if (!encoding.isEmpty())
        av_dict_set(&options, "sub_charenc", encoding.toLatin1().constData(), 0);
    code = avcodec_open2(codec.get(), decoder, &options);
    av_dict_free(&options);
    if (code < 0) {
        result.failure = QStringLiteral("FFmpeg cannot open its %1 decoder: %2")
                             .arg(QString::fromUtf8(decoder->name), ffmpegError(code));
        return result;
    }
    result.codec = QString::fromUtf8(decoder->name);
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(decoder->id);
    if (descriptor && (descriptor->props & AV_CODEC_PROP_BITMAP_SUB)) {
        result.pictures = true;
        result.read = true;
        return result;
    }

    const std::unique_ptr<AVPacket, PacketFreer> packet(av_packet_alloc());
    if (!packet) {
        result.failure = ffmpegError(AVERROR(ENOMEM));
        return result;
    }
    while ((code = av_read_frame(format.get(), packet.get())) >= 0) {
        if (packet->stream_index == stream) {
            AVSubtitle subtitle{};
            int got = 0;
            if (avcodec_decode_subtitle2(codec.get(), &subtitle, &got, packet.get()) < 0)
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
