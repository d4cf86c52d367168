#include "MemoryInput.h"

extern "C" {
#include <libavformat/avio.h>
#include <libavutil/error.h>
#include <libavutil/mem.h>
}

#include <algorithm>
#include <cstring>

namespace zemsub::tool {

namespace {

constexpr int kBufferSize = 1 << 15;

} // namespace

MemoryInput::MemoryInput(const QByteArray& bytes) : m_bytes(bytes)
{
    auto* buffer = static_cast<unsigned char*>(av_malloc(kBufferSize));
    if (!buffer)
        return;
    m_context =
        avio_alloc_context(buffer, kBufferSize, 0, this, &MemoryInput::read, nullptr, &MemoryInput::seek);
    if (!m_context)
        av_free(buffer);
}

MemoryInput::~MemoryInput()
{
    if (m_context) {
        // The buffer may have been replaced by FFmpeg: free the one it holds now.
        av_freep(&m_context->buffer);
        avio_context_free(&m_context);
    }
}

int MemoryInput::read(void* opaque, unsigned char* buffer, int size)
{
    auto* self = static_cast<MemoryInput*>(opaque);
    const long long left = static_cast<long long>(self->m_bytes.size()) - self->m_position;
    if (left <= 0)
        return AVERROR_EOF;
    const int n = static_cast<int>(std::min<long long>(left, size));
    std::memcpy(buffer, self->m_bytes.constData() + self->m_position, static_cast<size_t>(n));
    self->m_position += n;
    return n;
}

int64_t MemoryInput::seek(void* opaque, int64_t offset, int whence)
{
    auto* self = static_cast<MemoryInput*>(opaque);
    const long long size = self->m_bytes.size();
    long long target = 0;
    switch (whence & ~AVSEEK_FORCE) {
    case AVSEEK_SIZE:
        return size;
    case SEEK_SET:
        target = offset;
        break;
    case SEEK_CUR:
        target = self->m_position + offset;
        break;
    case SEEK_END:
        target = size + offset;
        break;
    default:
        return AVERROR(EINVAL);
    }
    if (target < 0 || target > size)
        return AVERROR(EINVAL);
    self->m_position = target;
    return target;
}

} // namespace zemsub::tool
