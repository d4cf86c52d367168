#include "SubpictureDecoder.h"
#include "reading/StreamDecoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/log.h>
#include <libavutil/mem.h>
}

#include <cstring>
#include <memory>

namespace zemsub::tool {

namespace {

struct ContextFree
{
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};
using Context = std::unique_ptr<AVCodecContext, ContextFree>;

// Frees the rectangles of a decoded subtitle when it goes.
class SubtitleHolder
{
public:
    SubtitleHolder() { std::memset(&subtitle, 0, sizeof subtitle); }
    ~SubtitleHolder() { avsubtitle_free(&subtitle); }
    SubtitleHolder(const SubtitleHolder&) = delete;
    SubtitleHolder& operator=(const SubtitleHolder&) = delete;
    AVSubtitle subtitle;
};

DecodedSubpicture failed(const QString& why)
{
    DecodedSubpicture result;
    result.failure = why;
    return result;
}

} // namespace

SubpictureDecoder::SubpictureDecoder(const std::array<unsigned int, 16>& palette, QSize frame)
{
    av_log_set_level(AV_LOG_QUIET);
    m_extradata = QStringLiteral("size: %1x%2\npalette: ").arg(frame.width()).arg(frame.height()).toLatin1();
    for (size_t i = 0; i < palette.size(); ++i) {
        if (i > 0)
            m_extradata += ", ";
        m_extradata += QByteArray::number(palette[i] & 0xFFFFFF, 16).rightJustified(6, '0');
    }
    m_extradata += '\n';
}

DecodedSubpicture SubpictureDecoder::decode(const unsigned char* packet, int size) const
{
    if (!packet || size <= 0)
        return failed(QStringLiteral("no packet"));
    const AVCodec* codec = avcodec_find_decoder(AV_CODEC_ID_DVD_SUBTITLE);
    if (!codec)
        return failed(QStringLiteral("FFmpeg has no DVD subtitle decoder"));
    Context context(avcodec_alloc_context3(codec));
    if (!context)
        return failed(QStringLiteral("FFmpeg could not set up its DVD subtitle decoder"));
    context->extradata = static_cast<uint8_t*>(av_mallocz(size_t(m_extradata.size()) + AV_INPUT_BUFFER_PADDING_SIZE));
    if (!context->extradata)
        return failed(QStringLiteral("FFmpeg could not set up its DVD subtitle decoder"));
    std::memcpy(context->extradata, m_extradata.constData(), size_t(m_extradata.size()));
    context->extradata_size = int(m_extradata.size());
    if (avcodec_open2(context.get(), codec, nullptr) < 0)
        return failed(QStringLiteral("FFmpeg's DVD subtitle decoder did not open"));

    Packet input(av_packet_alloc());
    if (!input || av_new_packet(input.get(), size) < 0)
        return failed(QStringLiteral("FFmpeg could not hold the packet"));
    std::memcpy(input->data, packet, size_t(size));

    SubtitleHolder holder;
    int got = 0;
    if (decodeSubtitle(context.get(), &holder.subtitle, &got, input.get()) < 0)
        return failed(QStringLiteral("FFmpeg's DVD subtitle decoder rejected the packet"));
    if (!got || holder.subtitle.num_rects < 1 || !holder.subtitle.rects)
        return failed(QStringLiteral("the decoder found no picture in the packet"));
    const AVSubtitleRect* rect = holder.subtitle.rects[0];
    if (!rect || rect->type != SUBTITLE_BITMAP || rect->w <= 0 || rect->h <= 0 || !rect->data[0] ||
        !rect->data[1] || rect->nb_colors < 1 || rect->nb_colors > 256)
        return failed(QStringLiteral("the decoder found no picture in the packet"));

    DecodedSubpicture result;
    result.shown.image = rectPicture(*rect);
    if (result.shown.image.isNull())
        return failed(QStringLiteral("the picture of %1x%2 does not fit in memory").arg(rect->w).arg(rect->h));
    result.decoded = true;
    result.shown.position = QPoint(rect->x, rect->y);
    return result;
}

} // namespace zemsub::tool
