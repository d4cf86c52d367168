#ifndef ZEMSUB_READING_STREAMDECODER_H
#define ZEMSUB_READING_STREAMDECODER_H

#include <QString>
#include <memory>

struct AVCodecContext;
struct AVFormatContext;
struct AVPacket;
struct AVStream;
struct AVSubtitle;

namespace zemsub::tool {

struct CodecCloser
{
    void operator()(AVCodecContext* context) const;
};
struct PacketFreer
{
    void operator()(AVPacket* packet) const;
};
using Decoder = std::unique_ptr<AVCodecContext, CodecCloser>;
using Packet = std::unique_ptr<AVPacket, PacketFreer>;

// FFmpeg's decoder for the stream, opened with the stream's time base; text is
// converted from encoding (sub_charenc) when one is given. Null when FFmpeg has
// no decoder or cannot open it; *failure (when given) then says why in the
// words the tools print.
Decoder openDecoder(const AVStream* stream, const QString& encoding, QString* failure = nullptr);

// FFmpeg's stream index of the track-th subtitle stream (from 0, in file
// order); -1 when there are not that many.
int subtitleStreamIndex(const AVFormatContext* format, int track);

// Has the demuxer hand over the packets of that stream only.
void keepOnlyStream(AVFormatContext* format, int stream);

// avcodec_decode_subtitle2, counted: every subtitle packet the tools decode goes through here.
int decodeSubtitle(AVCodecContext* decoder, AVSubtitle* subtitle, int* got, const AVPacket* packet);

// How often this process has opened an input with FFmpeg and decoded a subtitle packet.
struct FfmpegCounts
{
    long long opens = 0;
    long long decodes = 0;
};
FfmpegCounts ffmpegCounts();
void countOpen();

} // namespace zemsub::tool

#endif
