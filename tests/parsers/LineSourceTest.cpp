// Open's line source against the stream: a file taken whole must hand out,
// call after call, the very lines and end-of-file answers that fgets/fgetws
// pieces give, and files it cannot take whole go through the stream.

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <clocale>
#include <cstdio>
#include <random>
#include <string>

#include "parsers/detail/reading/LineSource.h"
#include "parsers/detail/reading/Utf8Text.h"
#include "support/TestFiles.h"

namespace {

using namespace zemsub::detail;

// Lines around the piece size, zero bytes, line feeds at piece boundaries,
// and an end with or without a line feed.
std::string randomBytes(std::mt19937& random, bool zeros)
{
    static const int lengths[] = {0, 1, 2, 40, 126, 127, 128, 129, 255, 256, 257, 383, 384, 385, 1000};
    std::string bytes;
    const int lines = static_cast<int>(random() % 10);
    for (int k = 0; k < lines; ++k) {
        const int len = lengths[random() % (sizeof lengths / sizeof lengths[0])];
        for (int i = 0; i < len; ++i) {
            const unsigned r = random() % 60;
            bytes += zeros && r == 0 ? '\0' : r == 1 ? '\r' : char('a' + random() % 26);
        }
        if (k + 1 < lines || random() % 2)
            bytes += '\n';
    }
    return bytes;
}

// Reads path from `start` through a LineSource and through the stream, one
// line per call, a few calls past the end; every answer must agree.
template <class C>
void expectSameAsStream(const std::string& path, long start, bool expectLoaded)
{
    FILE* ours = std::fopen(path.c_str(), "rb");
    FILE* plain = std::fopen(path.c_str(), "rb");
    ASSERT_TRUE(ours && plain);
    std::fseek(ours, start, SEEK_SET);
    std::fseek(plain, start, SEEK_SET);
    LineSource<C> source(ours, start);
    EXPECT_EQ(source.isLoaded(), expectLoaded) << path;
    int pastEnd = 0;
    for (int call = 0; call < 100000 && pastEnd < 3; ++call) {
        LineText<C> a;
        LineText<C> b;
        const bool endA = source.read(a);
        const bool endB = readLineText(plain, b);
        ASSERT_EQ(endA, endB) << "call " << call;
        ASSERT_EQ(std::basic_string<C>(a.data, a.size), std::basic_string<C>(b.data, b.size)) << "call " << call;
        pastEnd += endA ? 1 : 0;
    }
    std::fclose(ours);
    std::fclose(plain);
}

TEST(LineSource, NarrowFileTakenWholeReadsAsTheStream)
{
    TempDir dir;
    std::mt19937 random(811u);
    for (int round = 0; round < 300; ++round) {
        const std::string path = dir.write("n.txt", randomBytes(random, round % 2 == 0));
        expectSameAsStream<char>(path, 0, true);
        expectSameAsStream<char>(path, 2, true);
        if (HasFatalFailure())
            return;
    }
}

TEST(LineSource, WideUtf8FileTakenWholeReadsAsTheStream)
{
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    TempDir dir;
    std::mt19937 random(812u);
    for (int round = 0; round < 300; ++round) {
        const std::string bytes = withUtf8Characters(randomBytes(random, round % 2 == 0), random, 20);
        const std::string path = dir.write("w.txt", withMark(bytes));
        expectSameAsStream<wchar_t>(path, 2, true);
        if (HasFatalFailure())
            break;
    }
    std::setlocale(LC_ALL, saved.c_str());
}

// Bytes the converter might treat in its own way are left to the stream,
// which still gives the stream's answers.
TEST(LineSource, WideDoubtfulBytesGoThroughTheStream)
{
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    TempDir dir;
    const std::string doubtful[] = {
        "ab\xC3",               // cut short at the end
        "a\xC0\xAFz\n",         // overlong
        "a\xED\xA0\x80z\n",     // surrogate
        "a\xF4\x90\x80\x80z\n", // past U+10FFFF
        "a\x80z\nb\n",          // stray continuation byte
    };
    ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    for (const std::string& bytes : doubtful) {
        expectSameAsStream<wchar_t>(dir.write("d.txt", withMark(bytes)), 2, false);
    }
    // Under the plain "C" codeset only bytes below 0x80 are taken whole.
    ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr);
    expectSameAsStream<wchar_t>(dir.write("c.txt", withMark("plain\ntext\n")), 2, true);
    expectSameAsStream<wchar_t>(dir.write("c8.txt", withMark("caf\xC3\xA9\n")), 2, false);
    std::setlocale(LC_ALL, saved.c_str());
}

// A source over f that reads the stream itself, its first line being firstLine.
void expectReadThroughStream(FILE* f, const std::string& firstLine, Loading loading = Loading::Try)
{
    LineSource<char> source(f, 0, loading);
    EXPECT_FALSE(source.isLoaded());
    LineText<char> line;
    EXPECT_FALSE(source.read(line));
    EXPECT_EQ(std::string(line.data, line.size), firstLine);
}

TEST(LineSource, StreamsWithoutAPlainFileAreReadAsStreams)
{
    char text[] = "one\ntwo\n";
    FILE* memory = fmemopen(text, sizeof text - 1, "rb");
    ASSERT_NE(memory, nullptr);
    expectReadThroughStream(memory, "one\n");
    std::fclose(memory);

    TempDir dir;
    const std::string fifo = dir.file("pipe");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    FILE* reader = std::fopen(fifo.c_str(), "w+");  // both ends, so neither open waits
    ASSERT_NE(reader, nullptr);
    std::fputs("piped\n", reader);
    std::fflush(reader);
    expectReadThroughStream(reader, "piped\n");
    std::fclose(reader);
}

TEST(LineSource, AvoidingLoadingReadsTheStream)
{
    TempDir dir;
    const std::string path = dir.write("a.txt", "x\ny");
    FILE* f = std::fopen(path.c_str(), "rb");
    LineSource<char> source(f, 0, Loading::Avoid);
    EXPECT_FALSE(source.isLoaded());
    LineText<char> line;
    EXPECT_FALSE(source.read(line));
    EXPECT_EQ(std::string(line.data, line.size), "x\n");
    EXPECT_TRUE(source.read(line));
    EXPECT_EQ(std::string(line.data, line.size), "y");
    std::fclose(f);
}

TEST(Utf8Text, DecodesOnlyPlainBytes)
{
    std::wstring out;
    ASSERT_TRUE(decodePlainBytes(std::string("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\0z", 12), WideCodeset::Utf8, out));
    EXPECT_EQ(out, std::wstring(L"a\u00E9\u20AC\U0001F600") + L'\0' + L"z");
    EXPECT_FALSE(decodePlainBytes("\xE0\x80\x80", WideCodeset::Utf8, out));   // overlong
    EXPECT_FALSE(decodePlainBytes("\xED\xBF\xBF", WideCodeset::Utf8, out));   // surrogate
    EXPECT_FALSE(decodePlainBytes("\xF5\x80\x80\x80", WideCodeset::Utf8, out));
    EXPECT_FALSE(decodePlainBytes("\xE2\x82", WideCodeset::Utf8, out));       // cut short
    EXPECT_FALSE(decodePlainBytes("\xC3(", WideCodeset::Utf8, out));
    EXPECT_TRUE(decodePlainBytes("plain", WideCodeset::Ascii, out));
    EXPECT_EQ(out, L"plain");
    EXPECT_FALSE(decodePlainBytes("\xC3\xA9", WideCodeset::Ascii, out));
    EXPECT_FALSE(decodePlainBytes("plain", WideCodeset::Other, out));
}

// Runs of plain bytes of every length around the sixteen-byte steps, with a
// character of two bytes, or a doubtful byte, at every place behind them.
TEST(Utf8Text, PlainRunsOfEveryLength)
{
    std::wstring out;
    for (size_t before = 0; before < 50; ++before) {
        for (size_t after = 0; after < 20; ++after) {
            const std::string run(before, 'a');
            const std::string tail(after, 'b');
            ASSERT_TRUE(decodePlainBytes(run + "\xC3\xA9" + tail, WideCodeset::Utf8, out));
            EXPECT_EQ(out, std::wstring(before, L'a') + L"\u00E9" + std::wstring(after, L'b'));
            EXPECT_FALSE(decodePlainBytes(run + "\xFF" + tail, WideCodeset::Utf8, out)) << before;
            EXPECT_FALSE(decodePlainBytes(run + "\xC3" + tail, WideCodeset::Ascii, out)) << before;
            ASSERT_TRUE(decodePlainBytes(run + tail, WideCodeset::Ascii, out));
            EXPECT_EQ(out, std::wstring(before, L'a') + std::wstring(after, L'b'));
        }
    }
}

// A file past the size limit is read through the stream.
TEST(LineSource, LargeFilesAreReadThroughTheStream)
{
    TempDir dir;
    const std::string path = dir.file("big.txt");
    FILE* w = std::fopen(path.c_str(), "wb");
    ASSERT_NE(w, nullptr);
    std::fputs("first\n", w);
    std::fclose(w);
    ASSERT_EQ(truncate(path.c_str(), kLoadLimit + 1), 0);
    FILE* f = std::fopen(path.c_str(), "rb");
    expectReadThroughStream(f, "first\n");
    std::fclose(f);
}

}  // namespace
