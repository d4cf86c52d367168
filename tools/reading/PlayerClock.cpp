#include "PlayerClock.h"

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/mathematics.h>
}

#include <QString>
#include <QStringList>

namespace zemsub::tool {

namespace {

const AVRational kMs{1, 1000};

bool hasPicturesOrSound(const AVFormatContext* format)
{
    for (unsigned i = 0; i < format->nb_streams; ++i) {
        const AVMediaType type = format->streams[i]->codecpar->codec_type;
        if ((type == AVMEDIA_TYPE_VIDEO && !(format->streams[i]->disposition & AV_DISPOSITION_ATTACHED_PIC)) ||
            type == AVMEDIA_TYPE_AUDIO)
            return true;
    }
    return false;
}

// "01:02:03.456000000" as milliseconds; -1 when it is not such a time.
long long tagTime(const char* value)
{
    const QStringList parts = QString::fromLatin1(value).split(QLatin1Char(':'));
    if (parts.size() != 3)
        return -1;
    bool hoursOk = false, minutesOk = false, secondsOk = false;
    const long long hours = parts[0].toLongLong(&hoursOk);
    const long long minutes = parts[1].toLongLong(&minutesOk);
    const double seconds = parts[2].toDouble(&secondsOk);
    if (!hoursOk || !minutesOk || !secondsOk || hours < 0 || hours > 1000 || minutes < 0 || seconds < 0)
        return -1;
    return (hours * 60 + minutes) * 60000 + (long long)(seconds * 1000.0 + 0.5);
}

} // namespace

long long playerOrigin(const AVFormatContext* format)
{
    if (!format || !format->iformat || !(format->iformat->flags & AVFMT_TS_DISCONT) ||
        format->start_time == AV_NOPTS_VALUE || !hasPicturesOrSound(format))
        return 0;
    return av_rescale_q(format->start_time, AV_TIME_BASE_Q, kMs);
}

long long statedStreamEnd(const AVFormatContext* format, const AVStream* stream, long long origin)
{
    if (!format || !stream)
        return -1;
    if (const AVDictionaryEntry* tag = av_dict_get(stream->metadata, "DURATION", nullptr, 0)) {
        const long long end = tagTime(tag->value);
        if (end >= 0)
            return end - origin;
    }
    if (stream->duration == AV_NOPTS_VALUE || stream->duration <= 0 ||
        format->duration_estimation_method != AVFMT_DURATION_FROM_STREAM)
        return -1;
    const long long start = stream->start_time != AV_NOPTS_VALUE ? stream->start_time : 0;
    return av_rescale_q(start + stream->duration, stream->time_base, kMs) - origin;
}

long long videoEnd(const AVFormatContext* format, long long origin)
{
    if (!format)
        return -1;
    for (unsigned i = 0; i < format->nb_streams; ++i) {
        const AVStream* stream = format->streams[i];
        if (stream->codecpar->codec_type != AVMEDIA_TYPE_VIDEO || (stream->disposition & AV_DISPOSITION_ATTACHED_PIC))
            continue;
        if (const long long stated = statedStreamEnd(format, stream, origin); stated >= 0)
            return stated;
        if (format->duration == AV_NOPTS_VALUE || format->duration <= 0)
            return -1;
        const long long start = format->start_time != AV_NOPTS_VALUE ? format->start_time : 0;
        return av_rescale_q(start + format->duration, AV_TIME_BASE_Q, kMs) - origin;
    }
    return -1;
}

} // namespace zemsub::tool
