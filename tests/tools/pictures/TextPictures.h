#ifndef ZEMSUB_TESTS_TEXTPICTURES_H
#define ZEMSUB_TESTS_TEXTPICTURES_H

#include "samplegen/CaptionPictures.h"
#include "support/TestFiles.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <string>
#include <vector>

using zemsub::samplegen::CaptionText;

// The end a DVD player gives a caption of this duration: the stop command
// counts in units of 1024/90 ms.
long long dvdEnd(long long start, long long duration);

// A VobSub pair of the captions (drawn in four colours), written by
// tools/make-sample-sub.py into dir as movie.idx and movie.sub; the index's path,
// or empty with the reason in *error. editListing, when given, may change the
// script's listing first (a duration "max", a "forced" field).
std::string makeTextVobSub(const TempDir& dir, const std::vector<CaptionText>& captions, QString* error,
                           const std::function<QByteArray(const QByteArray&)>& editListing = nullptr);

// The pair muxed by ffmpeg into dir/pictures.mkv (track 0 the pictures, track 1
// an English SubRip track). Empty, with the reason in *error, when not made.
std::string makeTextPictureTrack(const TempDir& dir, const std::vector<CaptionText>& captions, QString* error);

// A Blu-ray .sup of the captions (as blurayPictures draws them) in dir: movie.sup.
std::string makeTextSup(const TempDir& dir, const std::vector<CaptionText>& captions);

#endif
