#ifndef ZEMSUB_TESTS_BADINPUT_BADINPUTTABLE_H
#define ZEMSUB_TESTS_BADINPUT_BADINPUTTABLE_H

// The bad-input table: one row per kind of input a player may be handed, each
// stating what the manager and every parser must answer for it.

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class xcAssParser;
class xcAssParserU;
class xcIdxParser;
class xcIdxParserU;
class xcSrtParser;
class xcSrtParserU;

namespace badinput {

// What Open must do.
enum class Opens {
    No,
    Yes,
    ThrowsOne,           // the int 1 of the wide field reader leaves Open
    IfStreamHasSize,     // a directory: as the narrow size check (seek to the end) finds it
    IfDescriptorHasSize, // a directory: as the wide size check (fstat) finds it
};

// A caption look-up: the time and the text it must answer (nullopt: a null pointer).
// Texts are written as bytes; a wide parser must answer the same characters.
struct Answer
{
    long long time;
    std::optional<std::string> text;
};

// Every look-up time that a row does not list must answer a null pointer; these
// are asked of every parser in every row.
const std::vector<long long>& standardTimes();

struct CaptionExpect
{
    Opens open = Opens::Yes;
    int entries = 0; // size of the entry map right after Open; -1: not stated
    std::vector<Answer> answers;
};

struct IdxExpect
{
    Opens open = Opens::Yes;
    int entries = 0;     // -1: not stated
    std::string subPath; // the .sub path formed from the path (bytes; widened for the wide twin)
    std::vector<std::pair<long long, long long>> positions; // GetFilePos(time) == position
};

struct ManagerExpect
{
    Opens open = Opens::No;
    int code = 0;
    bool wide = false;
    std::vector<Answer> answers; // asked of GetSubTitleU when wide, else of GetSubTitle
};

// The parsers a row opened, for checks beyond the table's columns.
struct Opened
{
    xcSrtParser& srt;
    xcSrtParserU& srtU;
    xcAssParser& ass;
    xcAssParserU& assU;
    xcIdxParser& idx;
    xcIdxParserU& idxU;
};

enum class Kind {
    File,      // path holds bytes
    Directory, // path is a directory
    Missing,   // nothing at path
};

struct Row
{
    std::string name; // test name
    std::string what; // the input, in words
    std::string path; // relative to the row's scratch directory
    Kind kind = Kind::File;
    std::string bytes;
    ManagerExpect manager;
    CaptionExpect srt, srtU, ass, assU;
    IdxExpect idx, idxU;
    // Streams that Open leaves open as it is meant to (the wide script parser's
    // int 1 leaves Open with its stream still open).
    int streamsLeftOpen = 0;
    // Further checks on the opened parsers (may be empty).
    std::function<void(Opened&)> more;
    // A finding that is reported and not yet fixed: the row states the required
    // result and runs disabled until the library gives it.
    std::string openFinding;
};

// The rows, in the order of the table in docs/bad-input.md.
std::vector<Row> fileRows();    // missing, directory, short files, mark, noise, NUL bytes
std::vector<Row> contentRows(); // long lines, many lines, braces, tags, times, numbers
std::vector<Row> pathRows();    // dots in paths, entry numbered 2000000000, wide field throw, index lines

// Shared texts.
std::string srtThree(); // entries 1, 2, 3 at 1-2 s, 3-4 s, 5-6 s: "a", "b", "c"
std::vector<Answer> srtThreeNarrow();
std::vector<Answer> srtThreeWide(); // the wide parser skips "1\n" and keys "a" at 0
std::string assScript(const std::vector<std::string>& dialogues); // v4.00+ script around Dialogue lines
std::string dialogue(const std::string& start, const std::string& end, const std::string& text);

// Test names show the row's name, not its bytes.
void PrintTo(const Row& row, std::ostream* out);

} // namespace badinput

#endif
