#ifndef ZEMSUB_PARSERS_DETAIL_LINEREADER_H
#define ZEMSUB_PARSERS_DETAIL_LINEREADER_H

// Line reading shared by every parser: pieces of at most 128 characters
// through a 129-character buffer, narrow (fgets) or wide (fgetws).

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <string>
#include <vector>

#include "ISubTitle.h"

namespace zemsub::detail {

constexpr int kPieceBuffer = 129;  // characters handed to fgets / fgetws
constexpr int kFullPiece = 128;    // a piece this long without a line feed continues the line

inline char* getPiece(char* buf, FILE* f) { return std::fgets(buf, kPieceBuffer, f); }
inline wchar_t* getPiece(wchar_t* buf, FILE* f) { return std::fgetws(buf, kPieceBuffer, f); }
inline size_t pieceLength(const char* s) { return std::strlen(s); }
inline size_t pieceLength(const wchar_t* s) { return std::wcslen(s); }

// Appends the pieces of one line (line feed included) to text.
// Returns true when the stream is at its end after the last read. A read error
// that is not the end of the file is cleared and ends the line. A read that
// brings nothing appends nothing (so a line ending exactly on a piece boundary
// at the end of the file is appended once).
template <class C>
bool readLinePieces(FILE* f, std::basic_string<C>& text)
{
    C buf[kPieceBuffer];
    for (;;) {
        std::fill(buf, buf + kPieceBuffer, C(0));
        if (!getPiece(buf, f)) {
            if (!std::feof(f))
                std::clearerr(f);
            break;
        }
        const size_t n = pieceLength(buf);
        text.append(buf, n);
        if (n < size_t(kFullPiece) || buf[n - 1] == C('\n'))
            break;
    }
    return std::feof(f) != 0;
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
// null, with nothing left open, on failure.
inline FILE* openForLines(const char* path, long start, SizeCheck check)
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
    std::fseek(f, start, SEEK_SET);
    return f;
}

// What a parser keeps of the text read by its last ReadString call when the
// file ends without a line feed.
enum class UnterminatedLastLine { Keep, Drop };

// Calls readLine (a parser's ReadString) into a fresh string until it answers
// false, appending every non-empty line. Fails (false) once `limit` calls have
// yielded a line; the caller closes the file either way.
template <class S, class ReadLine>
bool readAllLines(std::vector<S>& lines, ReadLine readLine, int limit, UnterminatedLastLine last)
{
    int count = 0;
    for (;;) {
        S line;
        if (!readLine(line)) {
            if (last == UnterminatedLastLine::Keep && !line.isEmpty())
                lines.push_back(line);
            return true;
        }
        if (!line.isEmpty())
            lines.push_back(line);
        if (++count >= limit)
            return false;
    }
}

}  // namespace zemsub::detail

#endif
