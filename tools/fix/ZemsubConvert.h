#ifndef ZEMSUBFIX_ZEMSUBCONVERT_H
#define ZEMSUBFIX_ZEMSUBCONVERT_H

// zemsubfix's plain copies: a subtitle track as players show it, for any player
// or media server (not for libzemsubtitle: no cure for its quirks). Picture
// tracks are read as text, with italics and places kept.
//
// Installed as <prefix>/include/zemsubtitle/fix/ZemsubConvert.h beside ZemsubFix.h.
//
//     zemsubfix::PlainReport report = zemsubfix::convertFile("movie.mkv", "movie.en.srt", {});

#include "ZemsubFix.h"
#include "ZemsubFixExport.h"

#include <QByteArray>
#include <QImage>
#include <QString>
#include <functional>
#include <vector>

namespace zemsubfix {

enum class PlainFormat {
    SubRip, // .srt: <i> for italics, {\an8} and the like for places
    Ass,    // .ass: \i1 for italics, \anN for places
    WebVtt, // .vtt: <i> for italics, line: and position: for places
};

// By the path's extension (srt, ass, ssa, vtt in any case); SubRip otherwise.
ZEMSUBFIX_EXPORT PlainFormat plainFormatForPath(const QString& path);

struct PlainOptions
{
    int track = -1;        // the subtitle track, from 0 in file order; -1: the one a player takes
    QString language;      // else the track of this language (as tagged): its default one, else its first
    QString ocrLanguage;   // a picture track is read in this Tesseract language; empty: the track's tag
    bool forcedOnly = false; // only the forced captions (those shown with subtitles off)
    bool review = false;     // keep the pictures that deserve a second look (PlainReport::review)
    // While a picture track is read: its different pictures read, of how many (see FixOptions).
    std::function<void(int done, int total)> pictureProgress;
};

// One caption of the copy.
struct PlainCaption
{
    long long start = 0; // milliseconds
    long long end = 0;
    QString text;        // as shown, lines joined by "\n", without marks
    QString marked;      // as written in the copy
    bool italic = false;       // every word in italics
    bool partlyItalic = false; // some word in italics
    int alignment = 2;   // as a numeric keypad: 2 bottom centre, 8 top centre, ...
    bool forced = false;
    int confidence = -1;       // read from a picture: Tesseract's, 0 to 100; -1 for text
    bool narrowItalic = false; // read from a picture: italics decided by a narrow margin
};

// A picture worth a second look, with what was made of it.
struct ReviewPicture
{
    long long start = 0;
    long long end = 0;
    QImage picture; // as the decoder gives it, transparent around the text
    QString text;   // the text read; empty for a picture left out
    QString why;    // "read with low confidence (63)", "left out: ink too small for a letter",
                    // "italics decided by a narrow margin"
};

struct ZEMSUBFIX_EXPORT PlainReport
{
    bool readable = false; // false: the input cannot be read, nothing was written
    QString error;         // why, when not readable or when the copy could not be written
    PlainFormat format = PlainFormat::SubRip;
    int track = -1;        // the subtitle track copied, from 0
    QString trackSummary;  // "track 1 (fre, default): subrip"
    QString language;      // the track's tag; empty when untagged
    bool pictures = false; // read from pictures
    QString ocrLanguage;   // the Tesseract language the pictures were read in
    int frameWidth = 0, frameHeight = 0; // pictures: the frame they lie on
    QByteArray copy;       // the copy's bytes, UTF-8
    std::vector<PlainCaption> captions;
    std::vector<LeftOutPicture> leftOut;
    std::vector<ReviewPicture> review; // with PlainOptions::review, in time order
    QString lastDisplayEnd; // as FixReport::lastDisplayEnd

    // 0 written; 1 unreadable or not written.
    int exitCode() const;
};

// Reads the bytes of a file named fileName and makes the copy (in the report only).
ZEMSUBFIX_EXPORT PlainReport convertBuffer(const QByteArray& bytes, const QString& fileName, PlainFormat format,
                                           const PlainOptions& options);

// Reads the file at inputPath as players do (a video is never held in memory)
// and makes the copy (in the report only).
ZEMSUBFIX_EXPORT PlainReport convertPath(const QString& inputPath, PlainFormat format, const PlainOptions& options);

// Reads inputPath and writes the copy to outputPath (atomically), in the format of its extension.
ZEMSUBFIX_EXPORT PlainReport convertFile(const QString& inputPath, const QString& outputPath,
                                         const PlainOptions& options);

} // namespace zemsubfix

#endif
