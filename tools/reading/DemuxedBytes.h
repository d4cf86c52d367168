#ifndef ZEMSUB_READING_DEMUXEDBYTES_H
#define ZEMSUB_READING_DEMUXEDBYTES_H

#include "MemoryInput.h"

#include <QByteArray>
#include <QString>

struct AVFormatContext;

namespace zemsub::tool {

// FFmpeg's words for an error code.
QString ffmpegError(int code);

// Bytes opened by libavformat as a file named fileName (the name gives the
// extension its probing weighs). Formats without a header have their streams
// found from the first packets.
class DemuxedBytes
{
public:
    DemuxedBytes(const QByteArray& bytes, const QString& fileName);
    ~DemuxedBytes();
    DemuxedBytes(const DemuxedBytes&) = delete;
    DemuxedBytes& operator=(const DemuxedBytes&) = delete;

    // Null when FFmpeg could not open the bytes: failure() says why.
    AVFormatContext* format() const { return m_format; }
    const QString& failure() const { return m_failure; }
    QString formatName() const;  // "matroska,webm", "srt", ...
    QString formatTitle() const; // its long name

private:
    MemoryInput m_input;
    AVFormatContext* m_format = nullptr;
    QString m_failure;
};

} // namespace zemsub::tool

#endif
