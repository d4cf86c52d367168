#ifndef ZEMSUB_READING_WRITTENFILE_H
#define ZEMSUB_READING_WRITTENFILE_H

#include <QString>
#include <QStringList>
#include <vector>

namespace zemsub::tool {

// A subtitle file as an FFmpeg-based player reads it: the captions (times and
// text) are FFmpeg's decoded events; what FFmpeg does not tell (number lines,
// blanks, fractions, line ends, the Format line...) is read from the lines as
// they stand in the file.

enum class WrittenKind {
    SubRip,  // FFmpeg's srt demuxer
    Script,  // FFmpeg's ass demuxer (ASS and SSA)
    Other,   // another subtitle format FFmpeg reads (WebVTT, MicroDVD, ...)
    Unknown, // FFmpeg could not read it
};

// One caption as written.
struct WrittenBlock
{
    int index = 0;       // 1-based, in file order
    int line = 0;        // 1-based line of its first line (number line or Dialogue line); 0 when not found
    long long start = 0; // milliseconds, FFmpeg's
    long long end = 0;
    QString text;  // what a player shows, lines joined by "\n" (FFmpeg's event, override blocks removed)
    QString event; // FFmpeg's decoded event: ReadOrder,Layer,Style,Name,MarginL,MarginR,MarginV,Effect,Text
    long long position = -1;  // FFmpeg's byte offset of the event's packet; -1 when unknown
    bool sourceFound = false; // the lines below were found in the file for this event
    int confidence = -1;      // read from a picture: Tesseract's confidence, 0 to 100; -1 for text

    // The lines as they stand in the file.
    QStringList rawLines; // SubRip: the caption lines, trimmed; Script: the Text field
    // SubRip
    QString number;             // the number line as written ("" when the block has none)
    QString timeLine;           // the time line as written
    bool endedByBlanks = false; // the caption was ended by a line of blanks, not an empty line
    // Script
    QString dialogueValue; // the Dialogue line after "Dialogue:"
    QStringList fields;    // the fields before Text, by the Format line, trimmed
    QStringList fractions; // the fraction digits of the start and end times as written
};

// A value written "&h..." where the script reader reads numbers.
struct HexValue
{
    int line = 0;
    QString where; // "Style Default, field 4" or "PlayResX"
    QString value;
};

// A picture that holds no text (a dot, a bar, a logo), left out of the captions.
struct LeftOutGraphic
{
    long long start = 0;
    long long end = 0;
    int x = 0, y = 0, width = 0, height = 0; // on the frame
    QString why;
};

struct WrittenFile
{
    WrittenKind kind = WrittenKind::Unknown;
    bool read = false;      // FFmpeg read the file; false: failure says why
    QString failure;        // FFmpeg's reason, when not read
    QString format;         // FFmpeg's demuxer: "srt", "ass", "webvtt", ...
    QString formatTitle;    // its long name: "SubRip subtitle", ...
    int refusedEvents = 0;  // events FFmpeg's decoder refused (text invalid in the encoding, ...)
    bool pictures = false;  // FFmpeg reads subtitles drawn as pictures (VobSub, PGS, ...): no blocks
                            // unless they are read as text (readAs)
    QString readAs;         // pictures read as text: the Tesseract language; empty otherwise
    std::vector<LeftOutGraphic> leftOut; // pictures read as text that hold none
    int track = -1;         // the subtitle track read, from 0; -1: the one FFmpeg finds best
    bool utf8Track = false; // a Matroska or MP4 track: UTF-8 text, no lines of its own (blocks are events)
    QString scriptHeader;   // such a track's ASS/SSA header ([Script Info], styles), as stored beside it

    QString encoding;             // "UTF-8", "UTF-16LE", "WINDOWS-1252", ...
    bool encodingForced = false;  // named with --encoding
    bool encodingGuessed = false; // uchardet's guess
    bool utf8Mark = false;        // begins with EF BB BF
    bool ffFeMark = false;        // begins with FF FE
    bool utf16 = false;           // UTF-16 text behind the mark
    bool crlf = false;            // a line ends in CR LF
    bool zeroBytes = false;       // the file holds a zero byte
    bool unendedLastLine = false; // the last line has no line feed after it
    int lineCount = 0;
    std::vector<WrittenBlock> blocks;
    // SubRip: the number lines of blocks that no FFmpeg event stands on (FFmpeg
    // dropped a repeat, or read the block into another caption).
    QStringList unreadNumbers;

    // Script
    bool scriptTypeFound = false; // a ScriptType line is present
    QString scriptType;           // its value, trimmed
    bool eventFormatFound = false;
    QStringList eventFormat; // field names, lower case
    bool wrapStyleTwo = false;
    std::vector<HexValue> hexValues;

    bool failed() const { return !read; }
};

} // namespace zemsub::tool

#endif
