#ifndef ZEMSUB_TOOL_TRACKOPTIONS_H
#define ZEMSUB_TOOL_TRACKOPTIONS_H

#include "CommandLine.h"

#include <QString>

namespace zemsub::tool {

// --track N and --language CODE, the options that name a subtitle track.
class TrackOptions
{
public:
    explicit TrackOptions(SubcommandLine& line);

    // After parsing: the track asked for (-1 when none) and the language (empty
    // when none). A track that is not a number, or both given, is a usage error.
    int track() const;
    QString language() const;

private:
    SubcommandLine& m_line;
    QCommandLineOption m_track;
    QCommandLineOption m_language;
};

// --ocr-language LANG: the Tesseract language picture tracks are read in (fix, lint, sheet --text).
QCommandLineOption ocrLanguageOption();

// render and sheet: the value of their --track option (a picture track), -1
// when not given; anything but a number from 0 is a usage error.
int pictureTrackOption(SubcommandLine& line, const QCommandLineOption& option, const QString& command);

// Says on stderr which track was taken and why: "using track 1 (fre, default): subrip".
void announceTrack(const QString& summary);

} // namespace zemsub::tool

#endif
