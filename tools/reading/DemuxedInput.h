#ifndef ZEMSUB_READING_DEMUXEDINPUT_H
#define ZEMSUB_READING_DEMUXEDINPUT_H

#include "MediaInput.h"

#include <QByteArray>
#include <QString>
#include <memory>

struct AVFormatContext;

namespace zemsub::tool {

class MemoryInput;

// FFmpeg's words for an error code.
QString ffmpegError(int code);

// An input opened by libavformat: a file on disk through FFmpeg's own file
// reading, bytes in memory as a file of their name (the name gives the
// extension its probing weighs). Formats without a header have their streams
// found from the first packets.
class DemuxedInput
{
public:
    explicit DemuxedInput(const MediaInput& input);
    ~DemuxedInput();
    DemuxedInput(const DemuxedInput&) = delete;
    DemuxedInput& operator=(const DemuxedInput&) = delete;

    // Null when FFmpeg could not open the bytes: failure() says why.
    AVFormatContext* format() const { return m_format; }
    const QString& failure() const { return m_failure; }
    QString formatName() const;  // "matroska,webm", "srt", ...
    QString formatTitle() const; // its long name

private:
    std::unique_ptr<MemoryInput> m_memory; // bytes in memory only
    AVFormatContext* m_format = nullptr;
    QString m_failure;
};

} // namespace zemsub::tool

#endif
