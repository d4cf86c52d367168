#ifndef ZEMSUB_READING_MEMORYINPUT_H
#define ZEMSUB_READING_MEMORYINPUT_H

#include <QByteArray>
#include <cstdint>

struct AVIOContext;

namespace zemsub::tool {

// An FFmpeg input over bytes in memory: libavformat reads and seeks in the
// buffer as in a file, so a file's bytes can be demuxed without the file.
class MemoryInput
{
public:
    explicit MemoryInput(const QByteArray& bytes);
    ~MemoryInput();
    MemoryInput(const MemoryInput&) = delete;
    MemoryInput& operator=(const MemoryInput&) = delete;

    // Null when FFmpeg could not allocate the context.
    AVIOContext* context() const { return m_context; }

private:
    static int read(void* opaque, unsigned char* buffer, int size);
    static int64_t seek(void* opaque, int64_t offset, int whence);

    QByteArray m_bytes;
    long long m_position = 0;
    AVIOContext* m_context = nullptr;
};

} // namespace zemsub::tool

#endif
