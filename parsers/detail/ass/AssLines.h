#ifndef ZEMSUB_PARSERS_DETAIL_ASS_ASSLINES_H
#define ZEMSUB_PARSERS_DETAIL_ASS_ASSLINES_H

// Reading an ASS/SSA script into its line list.

#include <string>
#include <vector>

#include "parsers/detail/ass/AssTraits.h"
#include "parsers/detail/reading/LineSource.h"

namespace zemsub::detail {

// More lines than this (20000) and the script does not open.
constexpr int kAssLineLimit = 20001;

// One line without its line feed. False, with nothing stored, when the stream
// is at its end after the read: a last line without a line feed is dropped.
// Otherwise true when anything was read. Reads from a stream or a LineSource.
template <class T, class Source> bool readAssLine(Source& from, typename T::String& line)
{
    LineText<typename T::Char> text;
    if (readLineText(from, text))
        return false;
    const bool readSomething = text.size != 0;
    size_t n = text.size;
    if (n != 0 && text.data[n - 1] == typename T::Char('\n'))
        --n;
    line.clear();
    line.append(text.data, static_cast<int>(n));
    return readSomething;
}

// Opens path into file (positioned at T::kFirstByte) and reads every
// non-empty line into lines as the parser's ReadString reads them.
// False when the file cannot be opened, is empty, or holds too many lines;
// file is then closed and null, and lines keeps what was read.
template <class T>
bool readAssScript(const char* path, std::vector<typename T::String>& lines, FILE*& file,
                   Loading loading = Loading::Try)
{
    return readFileLines<T>(path, file, lines, kAssLineLimit, UnterminatedLastLine::Drop, loading,
                            [](auto& source, typename T::String& line) { return readAssLine<T>(source, line); });
}

} // namespace zemsub::detail

#endif
