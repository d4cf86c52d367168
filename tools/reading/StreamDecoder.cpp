#include "StreamDecoder.h"

#include "DemuxedInput.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/error.h>
}

#include <atomic>

namespace zemsub::tool {

namespace {

std::atomic<long long> g_opens{0};
std::atomic<long long> g_decodes{0};

} // namespace

int decodeSubtitle(AVCodecContext* decoder, AVSubtitle* subtitle, int* got, const AVPacket* packet)
{
    ++g_decodes;
    return avcodec_decode_subtitle2(decoder, subtitle, got, const_cast<AVPacket*>(packet));
}

FfmpegCounts ffmpegCounts()
{
    return FfmpegCounts{g_opens.load(), g_decodes.load()};
}

void countOpen()
{
    ++g_opens;
}

void CodecCloser::operator()(AVCodecContext* context) const
{
    avcodec_free_context(&context);
}

void PacketFreer::operator()(AVPacket* packet) const
{
    av_packet_free(&packet);
}

Decoder openDecoder(const AVStream* stream, const QString& encoding, QString* failure)
{
    auto fail = [failure](const QString& why) {
        if (failure)
            *failure = why;
        return Decoder();
    };
    const AVCodec* codec = avcodec_find_decoder(stream->codecpar->codec_id);
    if (!codec)
        return fail(QStringLiteral("FFmpeg has no decoder for it"));
    Decoder context(avcodec_alloc_context3(codec));
    if (!context || avcodec_parameters_to_context(context.get(), stream->codecpar) < 0)
        return fail(ffmpegError(AVERROR(ENOMEM)));
    context->pkt_timebase = stream->time_base;
    AVDictionary* options = nullptr;
    if (!encoding.isEmpty())
        av_dict_set(&options, "sub_charenc", encoding.toLatin1().constData(), 0);
    const int code = avcodec_open2(context.get(), codec, &options);
    av_dict_free(&options);
    if (code < 0)
        return fail(QStringLiteral("FFmpeg cannot open its %1 decoder: %2")
                        .arg(QString::fromUtf8(codec->name), ffmpegError(code)));
    return context;
}

int subtitleStreamIndex(const AVFormatContext* format, int track)
{
    int seen = 0;
    for (unsigned i = 0; i < format->nb_streams; ++i) {
        if (format->streams[i]->codecpar->codec_type == AVMEDIA_TYPE_SUBTITLE && seen++ == track)
            return int(i);
    }
    return -1;
}

void keepOnlyStream(AVFormatContext* format, int stream)
{
    for (unsigned i = 0; i < format->nb_streams; ++i) {
        if (int(i) != stream)
            format->streams[i]->discard = AVDISCARD_ALL;
    }
}

} // namespace zemsub::tool
