#ifndef ZEMSUB_READING_SUBTITLEEVENTS_H
#define ZEMSUB_READING_SUBTITLEEVENTS_H

#include "DemuxedInput.h"
#include "MediaInput.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

namespace zemsub::tool {

// One subtitle event as FFmpeg's decoder hands it to a player.
struct SubtitleEvent
{
    long long start = 0;     // milliseconds
    long long end = 0;       // milliseconds
    long long position = -1; // byte offset of its packet in the file; -1 when unknown
    QString assLine; // the decoded event: ReadOrder,Layer,Style,Name,MarginL,MarginR,MarginV,Effect,Text
};

// A file demuxed by libavformat and one subtitle stream decoded by libavcodec.
struct SubtitleEvents
{
    bool read = false;     // false: failure says why
    QString failure;       // FFmpeg's reason, in its words
    QString format;        // the demuxer's name: "srt", "ass", "webvtt", "microdvd", ...
    QString formatTitle;   // its long name
    QString codec;         // the decoder's name
    QString header;        // ASS/SSA: the script's header (codec extradata), when the file keeps it so
    bool pictures = false; // the decoder draws pictures (VobSub, PGS, ...): no events are read
    int failedPackets = 0; // packets the decoder refused (invalid text in the encoding, ...)
    std::vector<SubtitleEvent> events; // in FFmpeg's order (by start time, then file position)
};

// Reads bytes from memory. fileName gives the extension FFmpeg's probing weighs;
// encoding, when not empty, is handed to the decoder's text conversion (sub_charenc).
// track is the subtitle stream to decode, counted among the subtitle streams
// from 0; -1 takes the one players take (openTrack, TrackInput.h).
SubtitleEvents readSubtitleEvents(const QByteArray& bytes, const QString& fileName, const QString& encoding,
                                  int track = -1);
// The same for track (>= 0) of an input already opened, whose packets are not
// read yet (it reads them).
SubtitleEvents readSubtitleEvents(DemuxedInput& input, const QString& encoding, int track);

} // namespace zemsub::tool

#endif
