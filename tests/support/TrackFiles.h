#ifndef ZEMSUB_TESTS_TRACKFILES_H
#define ZEMSUB_TESTS_TRACKFILES_H

#include "support/TestFiles.h"

#include <QString>
#include <QStringList>
#include <string>

// Subtitle files written into a temporary directory and muxed into Matroska
// and MP4 files by the ffmpeg command (installed by cmake/install-deps.sh).

// The captions the French track holds (UTF-8), and their times in milliseconds.
extern const char* const kFrenchFirst;  // "Été à la plage"
extern const char* const kFrenchSecond; // "Un cœur, une œuvre"
extern const char* const kFrenchSrt;
extern const char* const kEnglishSrt;  // three captions, 500 to 4750
extern const char* const kUntaggedSrt; // one caption, 10000 to 11000
extern const char* const kStyledAss;   // two styles: Default and Sign, PlayResX 640

struct TrackFiles
{
    QString error;     // empty when every file was made; else what ffmpeg said
    std::string mkv;   // tracks: 0 eng, 1 fre (default, title "Français"), 2 untagged; no default otherwise
    std::string mp4;   // mov_text tracks: 0 eng, 1 fre (the muxer flags the first default)
    std::string ass;   // Matroska: 0 the styled script (untagged), 1 eng; neither default
    std::string audio; // Matroska with one audio stream and no subtitles
    std::string mixed; // Matroska: an audio stream, then the French track (untagged), then the English one (eng)
};

// Runs ffmpeg with args (after -y -loglevel error) in dir: "" on success, else why not.
QString runFfmpeg(const std::string& dir, const QStringList& args);

// Writes the subtitle files into dir and muxes them.
TrackFiles makeTrackFiles(const TempDir& dir);

// Matroska in dir: 0 the VobSub pictures of indexPath (as tagged there), 1 an
// English SubRip track; neither default. Empty, with ffmpeg's words in *error, when not made.
std::string makePictureFile(const TempDir& dir, const std::string& indexPath, QString* error);

#endif
