#ifndef ZEMSUBFIX_STRETCH_H
#define ZEMSUBFIX_STRETCH_H

#include "FixSource.h"

#include <QStringList>
#include <vector>

namespace zemsubfix {

// A stretch of time in which the set of captions on screen stays the same.
struct Stretch
{
    long long start = 0; // first millisecond
    long long end = 0;   // first millisecond after it
    QStringList lines;   // what shows, top line first
    bool repeat = false; // its text equals the one shown before the gap in front of it
};

// The stretches of the captions that show something, in time order, without
// overlaps. Captions on screen together are stacked as players stack them: the
// one that came first at the bottom.
std::vector<Stretch> buildStretches(const std::vector<SourceCaption>& captions);

// The lines a caption shows: trimmed, without carriage returns and zero
// characters; none for a caption with nothing to show.
QStringList shownLines(const QString& text);

} // namespace zemsubfix

#endif
