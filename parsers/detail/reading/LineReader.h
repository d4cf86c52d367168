#ifndef ZEMSUB_PARSERS_DETAIL_READING_LINEREADER_H
#define ZEMSUB_PARSERS_DETAIL_READING_LINEREADER_H

// Line reading shared by every parser: pieces of at most 128 characters
// through a 129-character buffer, narrow (fgets) or wide (fgetws).

#include <sys/stat.h>

#include <cstdio>
#include <cstring>
#include <cwchar>
#include <string>
#include <vector>

#include "parsers/detail/reading/SubOpen.h"

namespace zemsub::detail {

constexpr int kPieceBuffer = 129;  // characters handed to fgets / fgetws
constexpr int kFullPiece = 128;    // a piece this long without a line feed continues the line

inline char* getPiece(char* buf, FILE* f) { return std::fgets(buf, kPieceBuffer, f); }
inline wchar_t* getPiece(wchar_t* buf, FILE* f) { return std::fgetws(buf, kPieceBuffer, f); }
inline size_t pieceLength(const char* s) { return std::strlen(s); }
inline size_t pieceLength(const wchar_t* s) { return std::wcslen(s); }

// One line's pieces as readLinePieces reads them: a line that fits in one
// piece stays in `piece`, a longer one is gathered in `more`.
template <class C>
struct LineText
{
    C piece[kPieceBuffer];
    std::basic_string<C> more;
    const C* data = piece;
    size_t size = 0;
};

// A stream handing out pieces with fgets / fgetws.
template <class C>
struct StreamPieces
{
    FILE* f;
    bool get(C* buf) { return getPiece(buf, f) != nullptr; }
    bool eof() const { return std::feof(f) != 0; }
    void clearError() { std::clearerr(f); }
};

// Reads the pieces of one line (line feed included) from pieces into line.
// Returns true when the source is at its end after the last read. A read
// error that is not the end of the file is cleared and ends the line. A read
// that brings nothing adds nothing (so a line ending exactly on a piece
// boundary at the end of the file is read once).
template <class C, class Pieces>
bool readLineFrom(Pieces& pieces, LineText<C>& line)
{
    line.more.clear();
    line.data = line.piece;
    line.size = 0;
    for (bool first = true;; first = false) {
        if (!pieces.get(line.piece)) {
            if (!pieces.eof())
                pieces.clearError();
            break;
        }
        const size_t n = pieceLength(line.piece);
        const bool last = n < size_t(kFullPiece) || line.piece[n - 1] == C('\n');
        if (first && last) {
            line.size = n;
            return pieces.eof();
        }
        line.more.append(line.piece, n);
        if (last)
            break;
    }
    if (!line.more.empty()) {
        line.data = line.more.data();
        line.size = line.more.size();
    }
    return pieces.eof();
}

// One line from the stream f, as readLineFrom.
template <class C>
bool readLineText(FILE* f, LineText<C>& line)
{
    StreamPieces<C> pieces{f};
    return readLineFrom(pieces, line);
}

// Appends the pieces of one line (line feed included) to text; answers as
// readLineText.
template <class C>
bool readLinePieces(FILE* f, std::basic_string<C>& text)
{
    LineText<C> line;
    const bool atEnd = readLineText(f, line);
    text.append(line.data, line.size);
    return atEnd;
}

// Removes one trailing line feed; a carriage return before it stays.
template <class C>
void dropLineFeed(std::basic_string<C>& text)
{
    if (!text.empty() && text.back() == C('\n'))
        text.pop_back();
}

// How a parser measures the file before reading it.
enum class SizeCheck {
    SeekToEnd,       // narrow streams: seek to the end and read the position
    FromDescriptor,  // wide streams: fstat, so the stream is not sought before it is made wide
};

// Opens path with sub_open(path, "rb"), checks that it holds at least one byte
// and positions the stream at `start` (2 skips a byte-order mark). Answers
// null, with nothing left open, on failure. The size found goes to *sizeOut.
inline FILE* openForLines(const char* path, long start, SizeCheck check, long long* sizeOut = nullptr)
{
    char mode[] = "rb";
    FILE* f = sub_open(path, mode);
    if (!f)
        return nullptr;
    long long size = 0;
    if (check == SizeCheck::FromDescriptor) {
        struct stat st;
        size = fstat(fileno(f), &st) == 0 ? static_cast<long long>(st.st_size) : 0;
    } else {
        std::fseek(f, 0, SEEK_END);
        size = std::ftell(f);
    }
    if (size < 1) {
        std::fclose(f);
        return nullptr;
    }
    if (sizeOut)
        *sizeOut = size;
    std::fseek(f, start, SEEK_SET);
    return f;
}

// What a parser keeps of the text read by its last ReadString call when the
// file ends without a line feed.
enum class UnterminatedLastLine { Keep, Drop };

// Lines to make room for in a file of `bytes` bytes: a line takes at least a
// few bytes, and no more than `limit` lines are ever kept.
inline size_t expectedLines(long long bytes, int limit)
{
    const long long guess = bytes / 16 + 1;
    return static_cast<size_t>(guess < limit ? guess : limit);
}

// Calls readLine (a parser's ReadString) into a fresh string until it answers
// false, keeping every non-empty line. Fails (false) once `limit` calls have
// yielded a line; the caller closes the file either way. Each line is read in
// place at the end of lines; room for `expected` lines is made first, since
// the strings are copied whenever the vector grows.
template <class S, class ReadLine>
bool readAllLines(std::vector<S>& lines, ReadLine readLine, int limit, UnterminatedLastLine last,
                  size_t expected = 0)
{
    lines.reserve(lines.size() + expected);
    int count = 0;
    for (;;) {
        lines.emplace_back();
        if (!readLine(lines.back())) {
            if (last == UnterminatedLastLine::Drop || lines.back().isEmpty())
                lines.pop_back();
            return true;
        }
        if (lines.back().isEmpty())
            lines.pop_back();
        if (++count >= limit)
            return false;
    }
}

}  // namespace zemsub::detail

#endif
