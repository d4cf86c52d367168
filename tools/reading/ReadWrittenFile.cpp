#include "ReadWrittenFile.h"

#include "EncodingDetection.h"
#include "EventText.h"
#include "ScriptSource.h"
#include "SourceLines.h"
#include "SubRipSource.h"
#include "SubtitleEvents.h"

#include <algorithm>
#include <climits>

namespace zemsub::tool {

namespace {

WrittenKind kindOf(const QString& format)
{
    if (format == QLatin1String("srt"))
        return WrittenKind::SubRip;
    if (format == QLatin1String("ass"))
        return WrittenKind::Script;
    return WrittenKind::Other;
}

// The source block an event stands on: the one at its byte offset, else the
// first one left with its times. -1 when none.
int findSource(const SubtitleEvent& event, const std::vector<WrittenBlock>& source,
               const std::vector<bool>& taken, bool offsetsAgree)
{
    if (offsetsAgree && event.position >= 0) {
        for (int i = 0; i < int(source.size()); ++i) {
            if (!taken[size_t(i)] && source[size_t(i)].position == event.position)
                return i;
        }
    }
    for (int i = 0; i < int(source.size()); ++i) {
        const WrittenBlock& block = source[size_t(i)];
        if (!taken[size_t(i)] && block.start == event.start && block.end == event.end)
            return i;
    }
    return -1;
}

void joinEvents(const SubtitleEvents& events, const std::vector<WrittenBlock>& source, bool offsetsAgree,
                WrittenFile& file)
{
    std::vector<bool> taken(source.size(), false);
    for (const SubtitleEvent& event : events.events) {
        WrittenBlock block;
        const int found = findSource(event, source, taken, offsetsAgree);
        if (found >= 0) {
            taken[size_t(found)] = true;
            block = source[size_t(found)];
        } else {
            block = WrittenBlock{};
        }
        block.start = event.start;
        block.end = event.end;
        block.position = event.position;
        block.event = event.assLine;
        block.text = shownText(eventTextField(event.assLine));
        file.blocks.push_back(block);
    }
    for (size_t i = 0; i < source.size(); ++i) {
        if (!taken[i] && !source[i].number.isEmpty())
            file.unreadNumbers << source[i].number;
    }
    // File order; events without their lines last, in FFmpeg's order.
    std::stable_sort(file.blocks.begin(), file.blocks.end(),
                     [](const WrittenBlock& a, const WrittenBlock& b) {
                         return (a.sourceFound ? a.line : INT_MAX) < (b.sourceFound ? b.line : INT_MAX);
                     });
    for (int i = 0; i < int(file.blocks.size()); ++i)
        file.blocks[size_t(i)].index = i + 1;
}

// A track of a video: FFmpeg's events alone, its text as FFmpeg hands it over (UTF-8).
WrittenFile readTrackEvents(DemuxedInput& input, int track)
{
    WrittenFile file;
    file.encoding = QStringLiteral("UTF-8");
    file.track = track;
    file.utf8Track = true;
    const SubtitleEvents events = readSubtitleEvents(input, QString(), track);
    file.format = events.format;
    file.formatTitle = events.formatTitle;
    if (!events.read) {
        file.failure = events.failure;
        return file;
    }
    file.read = true;
    file.refusedEvents = events.failedPackets;
    file.pictures = events.pictures;
    file.kind = WrittenKind::Other;
    file.scriptHeader = events.header;
    joinEvents(events, {}, false, file);
    return file;
}

// demuxed, when given, is the file already opened, its packets not read yet.
WrittenFile readPlainFile(const QByteArray& bytes, const QString& fileName, const QString& forcedEncoding,
                          int track, DemuxedInput* demuxed = nullptr)
{
    WrittenFile file;
    const DetectedEncoding encoding = detectEncoding(bytes, forcedEncoding);
    file.encoding = encoding.name;
    file.encodingForced = encoding.forced;
    file.encodingGuessed = encoding.guessed;
    file.utf8Mark = encoding.utf8Mark;
    file.ffFeMark = encoding.ffFeMark;
    file.utf16 = encoding.utf16;
    file.zeroBytes = bytes.contains('\0');

    const SourceLines source = splitSourceLines(bytes, encoding);
    file.crlf = source.crlf;
    file.unendedLastLine = source.unendedLastLine;
    file.lineCount = int(source.lines.size());

    file.track = track;
    const SubtitleEvents events = demuxed ? readSubtitleEvents(*demuxed, encoding.decoderEncoding(), track)
                                          : readSubtitleEvents(bytes, fileName, encoding.decoderEncoding(), track);
    file.format = events.format;
    file.formatTitle = events.formatTitle;
    if (!events.read) {
        file.failure = events.failure;
        if (encoding.forced)
            file.failure += QStringLiteral(" (text read as %1)").arg(encoding.name);
        return file;
    }
    file.read = true;
    file.refusedEvents = events.failedPackets;
    file.pictures = events.pictures;
    file.kind = kindOf(events.format);

    std::vector<WrittenBlock> lines;
    if (file.kind == WrittenKind::SubRip)
        lines = readSubRipSource(source);
    else if (file.kind == WrittenKind::Script)
        lines = readScriptSource(source, file);
    // FFmpeg's offsets are the file's own unless its text reader converted UTF-16.
    joinEvents(events, lines, !encoding.utf16, file);
    return file;
}

} // namespace

WrittenFile readWrittenFile(const QByteArray& bytes, const QString& fileName, const QString& forcedEncoding)
{
    return readPlainFile(bytes, fileName, forcedEncoding, -1);
}

WrittenFile readWrittenTrack(const MediaInput& input, DemuxedInput& demuxed, const QString& forcedEncoding,
                             const TrackList& tracks, int track)
{
    const bool known = track >= 0 && size_t(track) < tracks.tracks.size();
    if (known && tracks.tracks[size_t(track)].pictures) {
        // Pictures have no text to read here: their reading decodes them.
        WrittenFile file;
        file.read = true;
        file.pictures = true;
        file.track = track;
        file.format = tracks.format;
        file.formatTitle = tracks.formatTitle;
        file.kind = WrittenKind::Other;
        return file;
    }
    if (tracks.textFile)
        return readPlainFile(input.wholeBytes(), input.fileName(), forcedEncoding, track, &demuxed);
    return readTrackEvents(demuxed, track);
}

} // namespace zemsub::tool
