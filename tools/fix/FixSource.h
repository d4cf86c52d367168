#ifndef ZEMSUBFIX_FIXSOURCE_H
#define ZEMSUBFIX_FIXSOURCE_H

#include "pictures/PictureText.h"
#include "reading/MediaInput.h"
#include "reading/StyledText.h"
#include "playback/Causes.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <vector>

namespace zemsubfix {

// One caption of the original, as a modern player shows it.
struct SourceCaption
{
    int index = 0;
    int line = 0;
    long long start = 0;
    long long end = 0;
    QString text; // lines joined by "\n"
    int confidence = -1; // read from a picture: Tesseract's confidence; -1 for text
    int picture = -1;    // read from a picture: which one, from 0
    QString event;       // text: FFmpeg's decoded event (ReadOrder,Layer,Style,...,Text)
    // What the player draws besides the text, or times, that the library cannot show.
    std::vector<zemsub::tool::CauseId> notDrawn;
    std::vector<zemsub::tool::TextRun> runs; // the text in runs of italic and upright
    int alignment = 2;   // where on the frame, as a numeric keypad
    bool forced = false; // a forced picture
    bool narrowItalic = false; // read from a picture: a word's slant was decided narrowly
};

// One picture of a picture track as the decoder and the display rule give it,
// with the text read from it.
struct ScreenPicture
{
    long long start = 0;
    long long end = 0;
    int top = 0;  // its top on the frame
    QString text; // lines joined by "\n"
};

struct SourceFile
{
    bool readable = false;
    QString error;
    QString encoding;
    int track = -1;       // the subtitle track read; -1 when none was taken
    QString trackReason;  // why that one
    QString trackSummary; // the track and why, in one line
    QString scriptHeader; // an ASS/SSA track's header as stored beside it (Matroska, MP4)
    QString demuxer;      // text: FFmpeg's demuxer ("srt", "ass", "webvtt", "matroska,webm", ...)
    QString ocrLanguage;  // the Tesseract language a picture track was read in
    QString language;     // the track's language as tagged; empty when untagged
    bool pictures = false; // read from pictures
    QSize frame;          // pictures: the frame they lie on
    QString lastEnd;      // pictures whose last display nothing ends: what ends it ("the end of the video", ...)
    std::vector<SourceCaption> captions;
    std::vector<zemsub::tool::LeftOutPicture> leftOut; // pictures that hold no text
    // Pictures: each as the display rule shows it, with its top and its text,
    // apart from the captions that the copy is written from.
    std::vector<ScreenPicture> screen;
    // Pictures, when asked for: each picture as decoded (captions and pictures left out name theirs).
    std::vector<zemsub::tool::ShownPicture> shownPictures;
};

// The one place where the original is read.
// track and language choose among the file's subtitle tracks (see chooseTrack).
// A picture track is read as text in ocrLanguage (a Tesseract name), else in
// the language of its tag.
SourceFile readSource(const zemsub::tool::MediaInput& input, const QString& forcedEncoding, int track = -1,
                      const QString& language = QString(), const QString& ocrLanguage = QString(),
                      const std::function<void(int, int)>& pictureProgress = nullptr, bool keepPictures = false);

} // namespace zemsubfix

#endif
