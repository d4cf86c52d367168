#ifndef ZEMSUBFIX_ZEMSUBFIX_H
#define ZEMSUBFIX_ZEMSUBFIX_H

// zemsubfix: writes a copy of a subtitle file that libzemsubtitle, as it is,
// shows the way a modern player shows the original, and says per caption
// whether the copy shows it as written or why it cannot.
//
// Installed as <prefix>/include/zemsubtitle/fix/ZemsubFix.h; link with
// zemsubtitle::zemsubfix (CMake) or `pkg-config zemsubfix`.
//
//     zemsubfix::FixReport report = zemsubfix::fixFile(original, copy, {});
//     if (report.readable && player->open(copy)) ...
//
// Every call reads and writes files only where its arguments say, prints
// nothing and keeps no state. The copy is narrow text in the process's local
// 8-bit codec (UTF-8 under a UTF-8 locale) with line feeds.

#include "ZemsubFixExport.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <vector>

namespace zemsubfix {

enum class CopyFormat {
    SubRip, // .srt
    Ass,    // .ass
    Ssa,    // .ssa: the same script text as .ass
};

// The copy's format for a path: by its extension (srt, ass, ssa in any case), SubRip otherwise.
ZEMSUBFIX_EXPORT CopyFormat formatForPath(const QString& path);
// The extension of a format, without the dot.
ZEMSUBFIX_EXPORT QString formatExtension(CopyFormat format);

struct FixOptions
{
    CopyFormat format = CopyFormat::SubRip;
    QString encoding; // the input's encoding (an iconv name) when detection guesses wrong; empty: detected
                      // (plain files only: Matroska and MP4 tracks are UTF-8)
    int track = -1;   // the subtitle track to fix, from 0 in file order; -1: the one a player takes
    QString language; // else the track of this language (as tagged, ISO 639-2): its default one, else its first
    QString ocrLanguage; // a picture track is read as text in this Tesseract language ("eng", "fra", ...);
                         // empty: the track's tag, English when untagged
    // While a picture track is read: how many of its different pictures are read, of how many.
    // Called from the reading threads, one call at a time, at most ten times a second.
    std::function<void(int done, int total)> pictureProgress;
};

// One subtitle track of a file (a plain subtitle file is one track).
struct TrackInfo
{
    int track = 0;        // from 0, in file order (FFmpeg's 0:s:N)
    QString codec;        // FFmpeg's codec name: "subrip", "ass", "mov_text", "hdmv_pgs_subtitle", ...
    bool picture = false; // its subtitles are pictures, not text
    QString language;     // as tagged (ISO 639-2); empty when untagged
    QString title;
    bool isDefault = false;
    bool forced = false;
    int captions = 0;
    int forcedCaptions = 0; // picture tracks: captions flagged forced (shown with subtitles off)
    long long first = -1; // milliseconds: start of the earliest caption (may be below 0); -1 when none
    long long last = -1;  // milliseconds: end of the latest caption; -1 when none
};

// The subtitle tracks of the file at path, in file order. Empty, with the
// reason in *error (when given), when the file cannot be read or has none.
ZEMSUBFIX_EXPORT std::vector<TrackInfo> listTracks(const QString& path, QString* error);

// Why a caption cannot show as written: a stable code and the words lint uses.
struct Reason
{
    QString code;
    QString text;
};

// What the copy shows of one caption of the original.
struct CaptionOutcome
{
    int index = 0; // 1-based, in the original's order
    int line = 0;  // 1-based line of the original where it begins
    long long start = 0;
    long long end = 0;
    QString text;                // as a modern player shows it, lines joined by "\n"
    int confidence = -1;         // read from a picture: Tesseract's confidence, 0 to 100; -1 for text
    bool textShown = false;      // the library showed the text at its start, middle and end
    std::vector<Reason> reasons; // empty when the caption shows as written
    bool asWritten() const { return textShown && reasons.empty(); }
};

// A picture of a picture track that holds no text (a dot, a bar, a logo): left out of the copy.
struct LeftOutPicture
{
    long long start = 0;
    long long end = 0;
    int x = 0, y = 0, width = 0, height = 0; // on the frame
    QString why;                             // "ink too small for a letter", "nothing read as a word"
};

struct ZEMSUBFIX_EXPORT FixReport
{
    bool readable = false; // false: the input cannot be read, nothing was written
    QString error;         // why, when not readable or when the copy could not be written
    QString encoding;      // the input's encoding as read
    CopyFormat format = CopyFormat::SubRip;
    int track = -1;        // the subtitle track fixed, from 0; -1 when none was taken
    QString trackReason;   // why it: "asked for", "default", "first of its language", "first text track", ...
    QString trackSummary;  // "track 1 (fre, default): subrip"
    QString ocrLanguage;   // the Tesseract language a picture track was read in; empty for text
    QByteArray copy;        // the copy's bytes
    int copyLines = 0;      // lines of the copy
    bool copyOpens = false; // the library opened the copy
    std::vector<CaptionOutcome> captions;
    std::vector<long long> shownInGaps; // times where the copy shows a caption but the original none
    std::vector<LeftOutPicture> leftOut; // pictures read as text that hold none
    QString lastDisplayEnd; // pictures whose last display is never cleared: what ends it ("the end of the
                            // stream", "the end of the video", "its reading time"); empty otherwise

    bool allAsWritten() const;
    // 0 every caption shows as written; 3 the copy was written but some cannot; 1 unreadable.
    int exitCode() const;
};

// Fixes the bytes of a file named fileName (read as FFmpeg reads it; the name
// gives its probe the extension and need not exist); the copy is in the report and is not written anywhere but a
// temporary directory, where the library reads it back.
ZEMSUBFIX_EXPORT FixReport fixBuffer(const QByteArray& bytes, const QString& fileName,
                                     const FixOptions& options);

// Reads inputPath, fixes it, and writes the copy to outputPath atomically (a
// temporary file renamed over it). outputPath may be inputPath. When the copy
// cannot be written, the report says so in error and exitCode() is 1.
ZEMSUBFIX_EXPORT FixReport fixFile(const QString& inputPath, const QString& outputPath,
                                   const FixOptions& options);

// Judges a copy that exists (made earlier, or by hand) as fixFile judges its own:
// what the library shows of copyPath at each caption's start, middle and end
// against what a player shows of the original. Nothing is written; report.copy
// holds the copy's bytes. options.format names the copy's format.
ZEMSUBFIX_EXPORT FixReport checkCopyFile(const QString& inputPath, const QString& copyPath,
                                         const FixOptions& options);

} // namespace zemsubfix

#endif
