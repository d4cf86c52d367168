#ifndef ZEMSUB_HOST_HOSTOPTIONS_H
#define ZEMSUB_HOST_HOSTOPTIONS_H

#include <QSize>
#include <QString>
#include <QStringList>

struct HostOptions
{
    QString library;       // the library file to load
    QString subtitle;      // the subtitle file to open
    double seconds = 5;    // how long to play
    long long startMs = 0; // the play clock at the first frame
    int fps = 25;
    QSize size{640, 360};     // the video frame
    long long captureAt = -1; // save the first frame with a caption at or after this clock time
    QString capture;          // the PNG for that frame
    bool window = true;       // show the frames in a window
    bool fix = false;         // play a fixed copy (zemsubfix) instead of the file
    QString fixLibrary;       // the zemsubfix library file to load
};

// Parses the arguments; returns false after printing help (exit 0) or an error (exit 2),
// with the exit code in exitCode.
bool parseHostOptions(const QStringList& arguments, HostOptions& options, int& exitCode);

#endif
