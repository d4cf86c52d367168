#ifndef ZEMSUB_PARSERS_DETAIL_READING_LINESOURCE_H
#define ZEMSUB_PARSERS_DETAIL_READING_LINESOURCE_H

// Where Open reads its lines from. A regular file of reasonable size is taken
// in one go from its descriptor and handed out exactly as the stream's pieces
// would bring it: the same lines, the same truncation at a zero character, the
// same end-of-file answers. Anything else is read through the stream itself.
// Reference: the stream's own pieces (LineReader.h); differential tests:
// tests/parsers/LineSourceTest.cpp, LineReadingTest.cpp, the fuzz targets' LineSourceCheck.h.

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <vector>

#include "parsers/detail/reading/LineReader.h"
#include "parsers/detail/reading/Utf8Text.h"

namespace zemsub::detail {

// Files larger than this are read through the stream: Open may stop long
// before their end (line limits), and taking them whole would cost memory.
constexpr long long kLoadLimit = 8LL << 20;

// The bytes of a regular file from `start` to its end, read through its
// descriptor (the stream itself is not moved). False when the file is not a
// plain file, is too large, or a read fails.
inline bool loadFileBytes(FILE* f, long start, std::string& bytes)
{
    const int fd = fileno(f);
    struct stat st;
    if (fd < 0 || fstat(fd, &st) != 0 || !S_ISREG(st.st_mode) || st.st_size > kLoadLimit)
        return false;
    bytes.clear();
    if (st.st_size > start)
        bytes.reserve(static_cast<size_t>(st.st_size - start));
    off_t at = start;
    char buf[65536];
    for (;;) {
        const ssize_t n = pread(fd, buf, sizeof buf, at);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        if (n == 0)
            return true;
        bytes.append(buf, static_cast<size_t>(n));
        at += n;
        if (static_cast<long long>(bytes.size()) > kLoadLimit)
            return false;
    }
}

inline bool loadFileText(FILE* f, long start, std::string& text)
{
    return loadFileBytes(f, start, text);
}

// The wide twin's difference: bytes become characters only where the
// stream's converter could not answer otherwise (Utf8Text.h).
inline bool loadFileText(FILE* f, long start, std::wstring& text)
{
    const WideCodeset set = currentWideCodeset();
    if (set == WideCodeset::Other)
        return false;
    std::string bytes;
    return loadFileBytes(f, start, bytes) && decodePlainBytes(bytes, set, text);
}

// Text held in memory, handed out in the pieces fgets / fgetws would make of
// it: at most 128 characters, up to and including a line feed. The end is
// seen when a read wanted more than was left.
template <class C>
class LoadedPieces
{
public:
    std::basic_string<C> text;
    size_t pos = 0;
    bool atEnd = false;

    bool get(C* buf)
    {
        const size_t rest = text.size() - pos;
        if (atEnd || rest == 0) {
            atEnd = true;
            return false;
        }
        const C* from = text.data() + pos;
        size_t take = rest < size_t(kFullPiece) ? rest : size_t(kFullPiece);
        if (const C* feed = std::char_traits<C>::find(from, take, C('\n')))
            take = static_cast<size_t>(feed - from) + 1;
        else if (take == rest && rest < size_t(kFullPiece))
            atEnd = true;  // the read ran out before a line feed or a full piece
        std::char_traits<C>::copy(buf, from, take);
        buf[take] = C();
        pos += take;
        return true;
    }
    bool eof() const { return atEnd; }
    void clearError() {}
};

// Whether the file may be taken whole. The parsers always pass Try; Avoid reads
// the same file through the stream, which is how the line-reading tests and the
// fuzz targets' LineSourceCheck.h compare the two ways on every input.
enum class Loading { Try, Avoid };

// Open's reader: the loaded text when the file could be taken whole,
// otherwise the stream.
template <class C>
class LineSource
{
public:
    LineSource(FILE* f, long start, Loading loading = Loading::Try) : m_stream{f}
    {
        if (loading == Loading::Try && loadFileText(f, start, m_loaded.text)) {
            m_isLoaded = true;
            m_hasZero = std::char_traits<C>::find(m_loaded.text.data(), m_loaded.text.size(), C()) != nullptr;
        } else {
            std::basic_string<C>().swap(m_loaded.text);  // nothing kept of a load given up
        }
    }

    bool isLoaded() const { return m_isLoaded; }

    // One line, as readLineText gives it from the stream.
    bool read(LineText<C>& line)
    {
        if (!m_isLoaded)
            return readLineFrom(m_stream, line);
        if (m_hasZero)
            return readLineFrom(m_loaded, line);
        return readWholeLine(line);
    }

private:
    // Without zero characters a line's pieces join up to what lies between
    // line feeds, so the line is handed out in place.
    bool readWholeLine(LineText<C>& line)
    {
        LoadedPieces<C>& t = m_loaded;
        line.more.clear();
        const C* from = t.text.data() + t.pos;
        const size_t rest = t.text.size() - t.pos;
        line.data = from;
        if (const C* feed = std::char_traits<C>::find(from, rest, C('\n'))) {
            line.size = static_cast<size_t>(feed - from) + 1;
            t.pos += line.size;
            return false;
        }
        line.size = rest;
        t.pos += rest;
        t.atEnd = true;
        return true;
    }

    StreamPieces<C> m_stream;
    LoadedPieces<C> m_loaded;
    bool m_isLoaded = false;
    bool m_hasZero = false;
};

// One line from a LineSource, as readLineText reads one from a stream.
template <class C>
bool readLineText(LineSource<C>& source, LineText<C>& line)
{
    return source.read(line);
}

// Opens path (positioned at T::kFirstByte) into file and reads every non-empty
// line into lines with readLine(source, line), at most limit - 1 of them. On
// success the file stays open for the caller to close; on failure it is closed
// and null, and lines keeps what was read.
template <class T, class ReadLine>
bool readFileLines(const char* path, FILE*& file, std::vector<typename T::String>& lines, int limit,
                   UnterminatedLastLine last, Loading loading, ReadLine readLine)
{
    long long size = 0;
    file = openForLines(path, T::kFirstByte, T::kSizeCheck, &size);
    if (!file)
        return false;
    LineSource<typename T::Char> source(file, T::kFirstByte, loading);
    auto readOne = [&source, &readLine](typename T::String& line) { return readLine(source, line); };
    if (!readAllLines(lines, readOne, limit, last, expectedLines(size, limit))) {
        std::fclose(file);
        file = nullptr;
        return false;
    }
    return true;
}

}  // namespace zemsub::detail

#endif
