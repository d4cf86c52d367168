#ifndef ZEMSUB_READING_READWRITTENFILE_H
#define ZEMSUB_READING_READWRITTENFILE_H

#include "SubtitleTracks.h"
#include "WrittenFile.h"

#include <QByteArray>
#include <QString>

namespace zemsub::tool {

// Reads a subtitle file's bytes as an FFmpeg-based player does: the encoding
// from its mark, else forcedEncoding, else uchardet; the events demuxed and
// decoded by FFmpeg from memory; then each event joined to the lines it stands
// on in the file (by FFmpeg's byte offset, else by its times). fileName gives
// the extension FFmpeg's probing weighs and need not exist. When FFmpeg cannot
// read the bytes, the result has read false, kind Unknown and FFmpeg's reason
// in failure. FFmpeg prints nothing.
WrittenFile readWrittenFile(const QByteArray& bytes, const QString& fileName,
                            const QString& forcedEncoding = QString());

// The same for the track-th subtitle track of input, listed as tracks and
// opened as demuxed (its packets not read yet; this reads them). A track of a
// format that stores text as UTF-8 (Matroska, MP4), or of any video, is read as
// FFmpeg's events alone (forcedEncoding is ignored; an ASS/SSA track keeps its
// header in scriptHeader); only a subtitle file of text is read whole, for its
// lines. A picture track is not read here: pictures is set.
WrittenFile readWrittenTrack(const MediaInput& input, DemuxedInput& demuxed, const QString& forcedEncoding,
                             const TrackList& tracks, int track);

} // namespace zemsub::tool

#endif
