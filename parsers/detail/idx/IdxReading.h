#ifndef ZEMSUB_PARSERS_DETAIL_IDX_IDXREADING_H
#define ZEMSUB_PARSERS_DETAIL_IDX_IDXREADING_H

// Reading an index file into its line list (Open, ReadString) and the .sub
// path that Open derives from the index path.

#include <cstdio>
#include <string>
#include <vector>

#include "parsers/detail/idx/IdxText.h"
#include "parsers/detail/reading/LineReader.h"

namespace zemsub::detail {

// An index of more lines than this does not open (every line counts, empty ones too).
constexpr int kIdxLineLimit = 5001;

// The text from the first "." of the whole path (a directory's too) to its end,
// then "sub"; a path without "." gives "sub".
template <class S, class C> S idxSubPath(const S& path)
{
    return path.substr(path.find(C('.'), 0), -1) + ZEMSUB_LIT(C, "sub");
}

// One line without its line feed. Answers false at the end of the file, and
// then drops what that last read brought: an unterminated last line is lost.
template <class S, class C> bool readIdxLine(FILE* f, S& line)
{
    if (!f)
        return false;
    std::basic_string<C> text;
    if (readLinePieces(f, text))
        return false;
    const bool any = !text.empty();
    dropLineFeed(text);
    line = S(text);
    return any;
}

// Opens name, reads its non-empty lines into lines with readLine and, when the
// whole file was read, runs convert. The stream sits in file while it is open.
template <class S, class ReadLine, class Convert>
bool readIdxFile(FILE*& file, const char* name, SizeCheck sizeCheck, std::vector<S>& lines, ReadLine readLine,
                 Convert convert)
{
    file = openForLines(name, 0, sizeCheck);
    if (!file)
        return false;
    const bool whole = readAllLines(lines, readLine, kIdxLineLimit, UnterminatedLastLine::Drop);
    if (whole)
        convert();
    std::fclose(file);
    file = nullptr;
    return whole;
}

} // namespace zemsub::detail

#endif
