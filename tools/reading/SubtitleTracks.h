#ifndef ZEMSUB_READING_SUBTITLETRACKS_H
#define ZEMSUB_READING_SUBTITLETRACKS_H

#include "DemuxedInput.h"
#include "MediaInput.h"

#include <QByteArray>
#include <QString>
#include <vector>

namespace zemsub::tool {

// One subtitle stream of a file, as FFmpeg demuxes it.
struct SubtitleTrack
{
    int index = 0;          // among the file's subtitle streams, from 0 (FFmpeg's 0:s:N)
    int stream = 0;         // FFmpeg's stream index among all streams
    QString codec;          // FFmpeg's codec name: "subrip", "ass", "mov_text", "hdmv_pgs_subtitle", ...
    bool pictures = false;  // the codec draws pictures (AV_CODEC_PROP_BITMAP_SUB)
    QString language;       // the language tag as written (ISO 639-2); empty when untagged
    QString title;          // the title tag; empty when untagged
    bool isDefault = false; // AV_DISPOSITION_DEFAULT
    bool forced = false;    // AV_DISPOSITION_FORCED
    int captions = 0;       // decoded captions (or packets, when FFmpeg has no decoder)
    int forcedCaptions = 0; // of them pictures flagged forced (PGS composition flag, DVD forced command)
    long long first = -1;   // milliseconds: start of the earliest caption (may be below 0); -1 when none
    long long last = -1;    // milliseconds: end of the latest caption; -1 when none
};

struct TrackList
{
    bool read = false;     // false: failure says why
    QString failure;       // FFmpeg's reason, in its words
    QString format;        // the demuxer's name: "matroska,webm", "mov,mp4,m4a,3gp,3g2,mj2", "srt", ...
    QString formatTitle;   // its long name
    bool utf8Text = false; // Matroska or MP4: their text tracks are UTF-8 by definition
    bool textFile = false; // a subtitle file of text (one stream, of text subtitles), read whole for its lines
    std::vector<SubtitleTrack> tracks; // in file order
};

// Whether the demuxer named format stores subtitle text as UTF-8 (Matroska, MP4).
bool storesUtf8Text(const QString& format);

// Opens bytes through the one way in (openTrack; fileName gives the extension
// FFmpeg's probing weighs and need not exist) and decodes every subtitle stream
// to count its captions. A plain subtitle file is one track, its text read in
// the encoding detected for it.
TrackList listSubtitleTracks(const QByteArray& bytes, const QString& fileName);
// The same for a file on disk or bytes in memory. Only a subtitle file's text
// (one text stream, nothing else) is read whole, for its encoding.
TrackList listSubtitleTracks(const MediaInput& input);

// The subtitle tracks of an input already opened, from its header alone: no
// packet is read, and captions, forcedCaptions, first and last are not counted.
TrackList describeTracks(const DemuxedInput& input);

} // namespace zemsub::tool

#endif
