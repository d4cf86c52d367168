#ifndef ZEMSUB_READING_ENCODINGDETECTION_H
#define ZEMSUB_READING_ENCODINGDETECTION_H

#include <QByteArray>
#include <QString>

namespace zemsub::tool {

// The text encoding of a subtitle file, decided the way FFmpeg-based players do:
// a byte-order mark is FFmpeg's (its text reader turns UTF-16 behind FF FE or
// FE FF into UTF-8 and skips EF BB BF); without one, uchardet guesses.
struct DetectedEncoding
{
    QString name;          // "UTF-8", "UTF-16LE", "WINDOWS-1252", ... as iconv knows it
    bool forced = false;   // named by the caller, not detected
    bool guessed = false;  // uchardet's answer (no mark, not forced)
    bool utf8Mark = false; // begins with EF BB BF
    bool ffFeMark = false; // begins with FF FE
    bool feFfMark = false; // begins with FE FF
    bool utf16 = false;    // UTF-16 text behind its mark

    // What the decoder is to convert from: empty when FFmpeg reads the text as
    // UTF-8 already (UTF-8 or ASCII, or UTF-16 that its text reader converted).
    QString decoderEncoding() const;
};

// forcedEncoding, when not empty, wins over everything but the mark handling.
DetectedEncoding detectEncoding(const QByteArray& bytes, const QString& forcedEncoding = QString());

// Whether bytes are well-formed UTF-8.
bool isValidUtf8(const QByteArray& bytes);

} // namespace zemsub::tool

#endif
