#ifndef ZEMSUB_PARSERS_DETAIL_SRT_SRTREADING_H
#define ZEMSUB_PARSERS_DETAIL_SRT_SRTREADING_H

// File reading of the SubRip parsers: one line per ReadString call, and the
// whole file into the line list.

#include <cstdio>
#include <string>
#include <vector>

#include "parsers/detail/reading/LineReader.h"
#include "parsers/detail/reading/LineSource.h"
#include "parsers/detail/srt/SrtTraits.h"

namespace zemsub::detail {

// One line into `line` (appended to what it holds) from a stream or a
// LineSource. At the end of the file the text read so far stays in `line` and
// the answer is false. Otherwise one trailing line feed is removed and the
// answer says whether anything was read.
template <class T, class Source> bool readSrtLine(Source& from, typename T::String& line)
{
    using C = typename T::Char;
    LineText<C> read;
    const bool atEnd = readLineText(from, read);
    if (line.length() != 0) {
        std::basic_string<C> text(line.getData(), static_cast<size_t>(line.length()));
        text.append(read.data, read.size);
        const bool readSomething = !text.empty();
        if (!atEnd)
            dropLineFeed(text);
        line = typename T::String(text);
        return !atEnd && readSomething;
    }
    // A fresh line, as readAllLines hands in: it becomes what was read.
    size_t n = read.size;
    if (!atEnd && n != 0 && read.data[n - 1] == C('\n'))
        --n;
    line.append(read.data, static_cast<int>(n));
    return !atEnd && read.size != 0;
}

// Opens path and reads every non-empty line into `lines` as the parser's
// ReadString reads them; a last line without a line feed is kept. On success
// the file stays open in `file` for the caller to close; on failure nothing
// is left open and `file` is null.
template <class T>
bool readSrtFile(const char* path, FILE*& file, std::vector<typename T::String>& lines,
                 Loading loading = Loading::Try)
{
    return readFileLines<T>(path, file, lines, kSrtLineLimit, UnterminatedLastLine::Keep, loading,
                            [](auto& source, typename T::String& line) { return readSrtLine<T>(source, line); });
}

inline void closeSrtFile(FILE*& file)
{
    if (file)
        std::fclose(file);
    file = nullptr;
}

} // namespace zemsub::detail

#endif
