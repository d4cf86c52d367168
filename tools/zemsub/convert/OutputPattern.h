#ifndef ZEMSUB_TOOL_OUTPUTPATTERN_H
#define ZEMSUB_TOOL_OUTPUTPATTERN_H

#include <QString>

namespace zemsub::tool {

// What a copy's name is made of.
struct PatternValues
{
    QString input;    // the input's path
    QString language; // the track's tag; "und" when untagged
    int track = -1;
    bool forced = false; // only forced captions
};

// The output path for an input: the pattern with {dir} (the input's folder),
// {stem} (its name without its extension), {lang}, {track} and {forced}
// (".forced" for a copy of forced captions, else nothing) put in.
QString expandPattern(const QString& pattern, const PatternValues& values);

// Whether the pattern names a different file per input ({stem}).
bool patternPerInput(const QString& pattern);

// Whether the pattern needs the track read first ({lang}, {track}).
bool patternNeedsTrack(const QString& pattern);

} // namespace zemsub::tool

#endif
