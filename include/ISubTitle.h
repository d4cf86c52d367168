#ifndef ZEMSUB_ISUBTITLE_H
#define ZEMSUB_ISUBTITLE_H

#include <cstdio>

#include "zemsubtitle_export.h"

class QPixmap;

// A rendered caption handed to the host by ISubTitle::getSubtitleData.
// image points at the maker's own caption pixmap (the whole video frame);
// x and y are the caption position minus half the image size.
// reserved is never written; do not read it.
struct SubtitleData
{
    int width;
    int height;
    QPixmap* image;
    int reserved;
    int x;
    int y;
};

#if defined(__GNUC__)
#pragma GCC diagnostic push
// Hosts bind this interface by its vtable: it has no destructor by design.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

// The object a player drives: open a file, set the style, ask for captions.
// Slot order is part of the binary interface and must never change.
class ZEMSUB_EXPORT ISubTitle
{
public:
    // Opens a subtitle file; true while a file is already open (the path is then ignored).
    virtual bool open(const char* path) = 0;
    // Forgets the open file; false when nothing was ever opened.
    virtual bool close() = 0;
    virtual bool isOpened() = 0;
    // Caption image for the time position + offset (milliseconds), or null.
    // Give the record back with destroySubData.
    virtual SubtitleData* getSubtitleData(long long position, long long offset) = 0;
    virtual void destroySubData(SubtitleData* data) = 0;
    // Size of the frame and of the caption image; does not force a new render.
    virtual void setVideoSize(int width, int height) = 0;
    // colour: red in bits 0-7, green 8-15, blue 16-23. style: "Regular", "Italic",
    // "Bold" or "Bold Italic", exact case; any other word leaves the style as it was.
    virtual void setFontInfo(const char* family, int colour, int pointSize, const char* style, int lineSpacing) = 0;
    // x: horizontal centre of the caption block; y: its bottom edge.
    virtual void setSubtitlePos(int x, int y) = 0;
    // alpha becomes (100 - percent) * 2, unclamped.
    virtual void setTrasparency(int percent) = 0;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

// Creates the subtitle object.
ZEMSUB_EXPORT ISubTitle* createSubtitle();
// Frees the object's storage WITHOUT running its destructor: call close() first
// to release the open file's memory. Clears *object.
ZEMSUB_EXPORT void destroySubtitle(ISubTitle** object);
// fopen(path, mode); the one place where the library opens files.
ZEMSUB_EXPORT FILE* sub_open(const char* path, char* mode);

#endif
