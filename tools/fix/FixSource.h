#ifndef ZEMSUBFIX_FIXSOURCE_H
#define ZEMSUBFIX_FIXSOURCE_H

#include "zemsub/lint/LintCauses.h"

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
    // What the player draws besides the text, or times, that the library cannot show.
    std::vector<zemsub::tool::CauseId> notDrawn;
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
    QString ocrLanguage;  // the Tesseract language a picture track was read in
    std::vector<SourceCaption> captions;
};

// The one place where the original is read.
// track and language choose among the file's subtitle tracks (see chooseTrack).
// A picture track is read as text in ocrLanguage (a Tesseract name), else in
// the language of its tag.
SourceFile readSource(const QByteArray& bytes, const QString& fileName, const QString& forcedEncoding,
                      int track = -1, const QString& language = QString(),
                      const QString& ocrLanguage = QString(),
                      const std::function<void(int, int)>& pictureProgress = nullptr);

} // namespace zemsubfix

#endif
