// Reading files into line lists, against the plain piece-by-piece reading it
// must give: fgets/fgetws pieces of at most 128 characters into a zeroed
// 129-character buffer, each measured with strlen/wcslen, a piece of 128
// characters without a line feed continuing the line. Lines around the piece
// size, zero bytes, carriage returns, files ending with and without a line
// feed, and lines handed to ReadString with text already in them.

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <random>
#include <string>
#include <vector>

#include "parsers/detail/ass/AssLines.h"
#include "parsers/detail/srt/SrtReading.h"
#include "parsers/xcAssParser.h"
#include "support/TestFiles.h"

namespace {

using namespace zemsub::detail;

std::string stored(const xcString& s)
{
    return std::string(s.getData(), static_cast<size_t>(s.length()));
}

std::wstring stored(const xcWString& s)
{
    return std::wstring(s.getData(), static_cast<size_t>(s.length()));
}

// ---- the plain reading ----

char* plainPiece(char* buf, FILE* f)
{
    return std::fgets(buf, 129, f);
}

wchar_t* plainPiece(wchar_t* buf, FILE* f)
{
    return std::fgetws(buf, 129, f);
}

size_t plainLength(const char* s)
{
    return std::strlen(s);
}

size_t plainLength(const wchar_t* s)
{
    return std::wcslen(s);
}

template <class C> bool plainPieces(FILE* f, std::basic_string<C>& text)
{
    C buf[129];
    for (;;) {
        for (C& c : buf)
            c = C(0);
        if (!plainPiece(buf, f)) {
            if (!std::feof(f))
                std::clearerr(f);
            break;
        }
        const size_t n = plainLength(buf);
        text.append(buf, n);
        if (n < 128 || buf[n - 1] == C('\n'))
            break;
    }
    return std::feof(f) != 0;
}

template <class C> void plainDropLineFeed(std::basic_string<C>& text)
{
    if (!text.empty() && text.back() == C('\n'))
        text.pop_back();
}

// SubRip ReadString: appends to what the line holds; at the end the text
// read stays and the answer is false.
template <class S, class C> bool plainSrtLine(FILE* f, S& line)
{
    std::basic_string<C> text(line.getData(), static_cast<size_t>(line.length()));
    if (plainPieces(f, text)) {
        line = S(text);
        return false;
    }
    const bool any = !text.empty();
    plainDropLineFeed(text);
    line = S(text);
    return any;
}

// ASS ReadString: replaces the line; false with nothing stored at the end.
template <class S, class C> bool plainAssLine(FILE* f, S& line)
{
    std::basic_string<C> text;
    if (plainPieces(f, text))
        return false;
    const bool any = !text.empty();
    plainDropLineFeed(text);
    line = S(text);
    return any;
}

// The whole file: every non-empty line, the last one kept or dropped.
template <class S, class ReadLine> std::vector<S> plainLines(ReadLine readLine, bool keepLast)
{
    std::vector<S> lines;
    for (int count = 0; count < 20001; ++count) {
        S line;
        if (!readLine(line)) {
            if (keepLast && !line.isEmpty())
                lines.push_back(line);
            break;
        }
        if (!line.isEmpty())
            lines.push_back(line);
    }
    return lines;
}

template <class S> void expectSameLines(const std::vector<S>& actual, const std::vector<S>& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t k = 0; k < actual.size(); ++k)
        ASSERT_EQ(stored(actual[k]), stored(expected[k])) << "line " << k;
}

// ---- generated files ----

std::string randomFile(std::mt19937& random)
{
    static const int lengths[] = {0, 1, 2, 30, 126, 127, 128, 129, 130, 200, 255, 256, 257, 384, 700};
    const std::string alphabet("abcdefgh ,:{}\\N\r\t\0", 19);
    std::string bytes;
    const int lines = 1 + static_cast<int>(random() % 12);
    for (int k = 0; k < lines; ++k) {
        const int len = lengths[random() % (sizeof lengths / sizeof lengths[0])];
        for (int i = 0; i < len; ++i)
            bytes += random() % 25 == 0 ? alphabet[random() % alphabet.size()] : char('a' + random() % 26);
        if (k + 1 < lines || random() % 2)
            bytes += '\n';
    }
    return bytes.empty() ? std::string("\n") : bytes; // an empty file does not open

}

TEST(LineReading, NarrowSubRipAndAssFilesReadAsPlainPieces)
{
    TempDir dir;
    std::mt19937 random(5151u);
    for (int round = 0; round < 400; ++round) {
        const std::string path = dir.write("lines.txt", randomFile(random));
        const Loading loading = round % 2 ? Loading::Avoid : Loading::Try;

        FILE* file = nullptr;
        std::vector<xcString> srt;
        ASSERT_TRUE(readSrtFile<SrtNarrow>(path.c_str(), file, srt, loading));
        std::fclose(file);
        FILE* plain = std::fopen(path.c_str(), "rb");
        expectSameLines(srt, plainLines<xcString>(
                                 [&](xcString& l) { return plainSrtLine<xcString, char>(plain, l); }, true));
        std::fclose(plain);

        std::vector<xcString> ass;
        ASSERT_TRUE(readAssScript<AssNarrow>(path.c_str(), ass, file, loading));
        std::fclose(file);
        plain = std::fopen(path.c_str(), "rb");
        expectSameLines(ass, plainLines<xcString>(
                                 [&](xcString& l) { return plainAssLine<xcString, char>(plain, l); }, false));
        std::fclose(plain);
        if (HasFatalFailure())
            return;
    }
}

TEST(LineReading, WideFilesReadAsPlainPieces)
{
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    TempDir dir;
    std::mt19937 random(5152u);
    for (int round = 0; round < 200; ++round) {
        const std::string bytes = withUtf8Characters(randomFile(random), random, 20);
        const std::string path = dir.write("wide.txt", withMark(bytes));
        const Loading loading = round % 2 ? Loading::Avoid : Loading::Try;

        FILE* file = nullptr;
        std::vector<xcWString> srt;
        ASSERT_TRUE(readSrtFile<SrtWide>(path.c_str(), file, srt, loading));
        std::fclose(file);
        FILE* plain = std::fopen(path.c_str(), "rb");
        std::fseek(plain, 2, SEEK_SET);
        expectSameLines(srt,
                        plainLines<xcWString>(
                            [&](xcWString& l) { return plainSrtLine<xcWString, wchar_t>(plain, l); }, true));
        std::fclose(plain);

        std::vector<xcWString> ass;
        ASSERT_TRUE(readAssScript<AssWide>(path.c_str(), ass, file, loading));
        std::fclose(file);
        plain = std::fopen(path.c_str(), "rb");
        std::fseek(plain, 2, SEEK_SET);
        expectSameLines(ass,
                        plainLines<xcWString>(
                            [&](xcWString& l) { return plainAssLine<xcWString, wchar_t>(plain, l); }, false));
        std::fclose(plain);
        if (HasFatalFailure())
            break;
    }
    std::setlocale(LC_ALL, saved.c_str());
}

// The SubRip ReadString appends to what its line already holds, and drops a
// line feed of that text when the read brings nothing.
TEST(LineReading, SubRipLineHandedInWithTextKeepsItInFront)
{
    TempDir dir;
    const std::string path = dir.write("two.txt", std::string("first\n") + std::string(300, 'x') + "\nlast");
    const char* const before[] = {"", "held", "held\n", "\n"};
    for (const char* held : before) {
        FILE* ours = std::fopen(path.c_str(), "rb");
        FILE* plain = std::fopen(path.c_str(), "rb");
        for (int call = 0; call < 5; ++call) {
            xcString line(held);
            xcString expected(held);
            const bool answer = readSrtLine<SrtNarrow>(ours, line);
            ASSERT_EQ(answer, (plainSrtLine<xcString, char>(plain, expected))) << held << " call " << call;
            ASSERT_EQ(stored(line), stored(expected)) << held << " call " << call;
        }
        std::fclose(ours);
        std::fclose(plain);
    }
}

// An ASS script read through Open keeps its lines as read.
TEST(LineReading, AssOpenKeepsEveryLineAsRead)
{
    TempDir dir;
    std::string script = "[Script Info]\nScriptType: v4.00+\n\n[Events]\n";
    for (int k = 0; k < 50; ++k)
        script += "Dialogue: 0,0:00:0" + std::to_string(k % 10) + ".00,0:00:09.00,Default,,0,0,0,," +
                  std::string(static_cast<size_t>(k * 7), 'w') + "\n";
    const std::string path = dir.write("s.ass", script);
    xcAssParser parser;
    ASSERT_TRUE(parser.Open(path.c_str()));
    FILE* plain = std::fopen(path.c_str(), "rb");
    expectSameLines(
        parser.GetLines(),
        plainLines<xcString>([&](xcString& l) { return plainAssLine<xcString, char>(plain, l); }, false));
    std::fclose(plain);
}

} // namespace
