#ifndef ZEMSUB_TESTS_LIBRARYANSWERS_H
#define ZEMSUB_TESTS_LIBRARYANSWERS_H

#include <QString>
#include <string>
#include <vector>

// A caption as a player shows it.
struct Shown
{
    long long start;
    long long end;
    QString text; // lines joined by "\n"
};

// One question to the library and the answer a player gives.
struct Expected
{
    long long time;
    QString text; // null: nothing shows
};

// Asks at every caption's first, middle and last millisecond, and in the middle
// of every gap of the timeline (the captions in time order, not overlapping).
std::vector<Expected> questionsFor(const std::vector<Shown>& shown);

// What a player built on the library draws at each time, asked in the given
// order through createSubtitle/ISubTitle (render cache included), the
// invisible marks of a copy aside (word joiners dropped, line separators as
// line breaks); null where nothing is drawn.
std::vector<QString> askLibrary(const std::string& path, const std::vector<Expected>& questions);

#endif
