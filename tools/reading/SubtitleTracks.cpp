#include "SubtitleTracks.h"

#include "DemuxedInput.h"
#include "EncodingDetection.h"
#include "StreamDecoder.h"
#include "TrackInput.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/mathematics.h>
}

#include <algorithm>
#include <memory>

namespace zemsub::tool {

namespace {

QString tag(const AVStream* stream, const char* key)
{
    const AVDictionaryEntry* entry = av_dict_get(stream->metadata, key, nullptr, 0);
    return entry && entry->value ? QString::fromUtf8(entry->value) : QString();
}

long long toMilliseconds(long long value, AVRational timeBase)
{
    return av_rescale_q(value, timeBase, AVRational{1, 1000});
}

// Whether a decoded subtitle shows anything: a picture, or text.
bool showsSomething(const AVSubtitle& subtitle)
{
    for (unsigned i = 0; i < subtitle.num_rects; ++i) {
        const AVSubtitleRect* rect = subtitle.rects[i];
        if (!rect)
            continue;
        if (rect->type == SUBTITLE_BITMAP && rect->w > 0 && rect->h > 0)
            return true;
        if ((rect->type == SUBTITLE_ASS && rect->ass && *rect->ass) ||
            (rect->type == SUBTITLE_TEXT && rect->text && *rect->text))
            return true;
    }
    return false;
}

// Whether a picture of the subtitle is flagged forced.
bool isForced(const AVSubtitle& subtitle)
{
    for (unsigned i = 0; i < subtitle.num_rects; ++i) {
        if (subtitle.rects[i] && (subtitle.rects[i]->flags & AV_SUBTITLE_FLAG_FORCED))
            return true;
    }
    return false;
}

void count(SubtitleTrack& track, long long start, long long end)
{
    // A caption may start before 0 (FFmpeg reads negative hours): the count says whether first and last are
    // set.
    const bool firstOne = track.captions++ == 0;
    track.first = firstOne ? start : std::min(track.first, start);
    track.last = firstOne ? std::max(start, end) : std::max(track.last, std::max(start, end));
}

// A subtitle file of text: one stream, of text subtitles.
bool isTextSubtitleFile(const AVFormatContext* format)
{
    if (format->nb_streams != 1 || format->streams[0]->codecpar->codec_type != AVMEDIA_TYPE_SUBTITLE)
        return false;
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(format->streams[0]->codecpar->codec_id);
    return !(descriptor && (descriptor->props & AV_CODEC_PROP_BITMAP_SUB));
}

} // namespace

bool storesUtf8Text(const QString& format)
{
    return format == QLatin1String("matroska,webm") || format == QLatin1String("mov,mp4,m4a,3gp,3g2,mj2");
}

TrackList listSubtitleTracks(const QByteArray& bytes, const QString& fileName)
{
    return listSubtitleTracks(MediaInput(bytes, fileName));
}

TrackList describeTracks(const DemuxedInput& input)
{
    TrackList list;
    AVFormatContext* const format = input.format();
    if (!format) {
        list.failure = input.failure();
        return list;
    }
    list.format = input.formatName();
    list.formatTitle = input.formatTitle();
    list.utf8Text = storesUtf8Text(list.format);
    list.textFile = !list.utf8Text && isTextSubtitleFile(format);
    for (unsigned i = 0; i < format->nb_streams; ++i) {
        const AVStream* stream = format->streams[i];
        if (stream->codecpar->codec_type != AVMEDIA_TYPE_SUBTITLE)
            continue;
        SubtitleTrack track;
        track.index = int(list.tracks.size());
        track.stream = int(i);
        track.codec = QString::fromUtf8(avcodec_get_name(stream->codecpar->codec_id));
        const AVCodecDescriptor* descriptor = avcodec_descriptor_get(stream->codecpar->codec_id);
        track.pictures = descriptor && (descriptor->props & AV_CODEC_PROP_BITMAP_SUB);
        track.language = tag(stream, "language");
        if (track.language == QLatin1String("und"))
            track.language.clear();
        track.title = tag(stream, "title");
        track.isDefault = stream->disposition & AV_DISPOSITION_DEFAULT;
        track.forced = stream->disposition & AV_DISPOSITION_FORCED;
        list.tracks.push_back(track);
    }
    list.read = true;
    return list;
}

TrackList listSubtitleTracks(const MediaInput& media)
{
    // The one way in; the players' choice it takes is not needed here.
    TrackInput opened = openTrack(media, TrackRequest{});
    TrackList list = std::move(opened.tracks);
    if (!list.read || list.tracks.empty())
        return list;
    AVFormatContext* const format = opened.demuxed->format();
    // A subtitle file's text is read in its detected encoding, as its reading does.
    const QString encoding = list.textFile ? detectEncoding(media.wholeBytes()).decoderEncoding() : QString();

    std::vector<int> trackOfStream(format->nb_streams, -1);
    std::vector<Decoder> decoders;
    for (unsigned i = 0; i < format->nb_streams; ++i) {
        // Video and audio packets are skipped by the demuxer, not handed over.
        if (format->streams[i]->codecpar->codec_type != AVMEDIA_TYPE_SUBTITLE)
            format->streams[i]->discard = AVDISCARD_ALL;
    }
    for (const SubtitleTrack& track : list.tracks) {
        trackOfStream[size_t(track.stream)] = track.index;
        decoders.push_back(openDecoder(format->streams[track.stream], track.pictures ? QString() : encoding));
    }

    const Packet packet(av_packet_alloc());
    if (!packet)
        return list;
    while (av_read_frame(format, packet.get()) >= 0) {
        const int index = packet->stream_index >= 0 && unsigned(packet->stream_index) < format->nb_streams
                              ? trackOfStream[size_t(packet->stream_index)]
                              : -1;
        if (index >= 0) {
            SubtitleTrack& track = list.tracks[size_t(index)];
            const AVRational timeBase = format->streams[packet->stream_index]->time_base;
            const long long pts = packet->pts != AV_NOPTS_VALUE ? packet->pts : 0;
            const long long start = toMilliseconds(pts, timeBase);
            const long long end =
                packet->duration > 0 ? toMilliseconds(pts + packet->duration, timeBase) : start;
            AVCodecContext* decoder = decoders[size_t(index)].get();
            if (!decoder) {
                if (packet->size > 0)
                    count(track, start, end);
            } else {
                AVSubtitle subtitle{};
                int got = 0;
                if (decodeSubtitle(decoder, &subtitle, &got, packet.get()) >= 0 && got &&
                    showsSomething(subtitle)) {
                    count(track, start, end);
                    track.forcedCaptions += isForced(subtitle);
                }
                if (got)
                    avsubtitle_free(&subtitle);
            }
        }
        av_packet_unref(packet.get());
    }
    return list;
}

} // namespace zemsub::tool
