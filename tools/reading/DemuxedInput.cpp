#include "DemuxedInput.h"

#include "MemoryInput.h"
#include "QuietFfmpeg.h"
#include "StreamDecoder.h"

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/error.h>
}

namespace zemsub::tool {

QString ffmpegError(int code)
{
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return QString::fromUtf8(text);
}

DemuxedInput::DemuxedInput(const MediaInput& input)
{
    quietFfmpeg();
    AVFormatContext* raw = avformat_alloc_context();
    if (!input.onDisk())
        m_memory = std::make_unique<MemoryInput>(input.memoryBytes());
    if (!raw || (m_memory && !m_memory->context())) {
        avformat_free_context(raw);
        m_failure = ffmpegError(AVERROR(ENOMEM));
        return;
    }
    if (m_memory) {
        raw->pb = m_memory->context();
        raw->flags |= AVFMT_FLAG_CUSTOM_IO;
    }
    const QByteArray url = input.url();
    const int code = avformat_open_input(&raw, url.constData(), nullptr, nullptr);
    if (code < 0) {
        m_failure = QStringLiteral("FFmpeg cannot read it: %1").arg(ffmpegError(code));
        return; // avformat_open_input freed the context
    }
    m_format = raw;
    countOpen();
    // Formats without a header (MPEG-PS, ...) make their streams as packets come;
    // those with a running clock (MPEG-TS, MPEG-PS) tell where it starts only after a look.
    if (m_format->nb_streams == 0 || (m_format->iformat->flags & AVFMT_TS_DISCONT))
        avformat_find_stream_info(m_format, nullptr);
}

DemuxedInput::~DemuxedInput()
{
    if (m_format)
        avformat_close_input(&m_format);
}

QString DemuxedInput::formatName() const
{
    return m_format ? QString::fromUtf8(m_format->iformat->name) : QString();
}

QString DemuxedInput::formatTitle() const
{
    return m_format && m_format->iformat->long_name ? QString::fromUtf8(m_format->iformat->long_name)
                                                    : QString();
}

} // namespace zemsub::tool
