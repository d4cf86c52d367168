// Both SubRip parsers on input that is not a subtitle file.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <clocale>
#include <random>
#include <string>

#include "parsers/xcSrtParser.h"
#include "parsers/xcSrtParserU.h"
#include "support/TestFiles.h"

namespace {

class SrtBadInput : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const char* current = std::setlocale(LC_ALL, nullptr);
        saved = current ? current : "C";
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
        descriptors = openDescriptorCount();
    }
    void TearDown() override
    {
        EXPECT_EQ(openDescriptorCount(), descriptors);
        std::setlocale(LC_ALL, saved.c_str());
    }

    std::string noise(size_t size, unsigned seed)
    {
        std::mt19937 random(seed);
        std::string bytes(size, '\0');
        for (char& c : bytes)
            c = static_cast<char>(random() & 0xFF);
        return bytes;
    }
    // Every look-up of both kinds at a few times; must not crash.
    template <class P> void lookEverywhere(P& parser)
    {
        for (long long t : {-1LL, 0LL, 1LL, 1000LL, 1LL << 31, 1LL << 40}) {
            parser.GetSubTitle(t);
            parser.GetSubTitleU(t);
        }
    }

    std::string saved;
    int descriptors = 0;
    TempDir dir;
};

} // namespace

TEST_F(SrtBadInput, DirectoryIsNotReadAsSubtitles)
{
    const std::string path = dir.file("folder.srt");
    ASSERT_EQ(mkdir(path.c_str(), 0700), 0);
    xcSrtParser narrow;
    xcSrtParserU wide;
    narrow.Open(path.c_str());
    wide.Open(path.c_str());
    EXPECT_TRUE(narrow.GetMap().empty());
    EXPECT_TRUE(wide.GetMap().empty());
    EXPECT_EQ(narrow.GetSubTitle(1000), nullptr);
    EXPECT_EQ(wide.GetSubTitleU(1000), nullptr);
}

TEST_F(SrtBadInput, OneByteFileOpensWithNothingToShow)
{
    const std::string path = dir.write("one.srt", "x");
    xcSrtParser narrow;
    ASSERT_TRUE(narrow.Open(path.c_str()));
    ASSERT_EQ(narrow.GetMap().size(), 1u);
    EXPECT_EQ(std::string(narrow.GetMap().at(0).text.getData()), "\nx");
    EXPECT_EQ(narrow.GetSubTitle(0), nullptr);
}

TEST_F(SrtBadInput, ZeroByteInsideALineEndsThatLine)
{
    const std::string content = std::string("1\n00:00:01,000 --> 00:00:02,000\nab") + '\0' + "cd\nef\n";
    xcSrtParser narrow;
    xcSrtParserU wide;
    ASSERT_TRUE(narrow.Open(dir.write("nul.srt", content).c_str()));
    ASSERT_TRUE(wide.Open(dir.write("nulw.srt", withMark(content)).c_str()));
    EXPECT_EQ(std::string(narrow.GetMap().at(1).text.getData()), "\nab\nef");
    EXPECT_EQ(std::wstring(wide.GetMap().at(1).text.getData()), L"\nab\nef");
}

TEST_F(SrtBadInput, LineStartingWithAZeroByteEndsTheReading)
{
    const std::string content = std::string("1\n00:00:01,000 --> 00:00:02,000\nab\n") + '\0' + "cd\nef\n";
    xcSrtParser narrow;
    xcSrtParserU wide;
    ASSERT_TRUE(narrow.Open(dir.write("nul.srt", content).c_str()));
    ASSERT_TRUE(wide.Open(dir.write("nulw.srt", withMark(content)).c_str()));
    EXPECT_EQ(narrow.GetLines().size(), 3u);
    EXPECT_EQ(wide.GetLines().size(), 3u);
}

TEST_F(SrtBadInput, OnlyZeroBytesOpenEmpty)
{
    const std::string content(1000, '\0');
    xcSrtParser narrow;
    xcSrtParserU wide;
    EXPECT_TRUE(narrow.Open(dir.write("zeros.srt", content).c_str()));
    EXPECT_TRUE(wide.Open(dir.write("zerosw.srt", content).c_str()));
    EXPECT_TRUE(narrow.GetLines().empty());
    EXPECT_TRUE(wide.GetLines().empty());
}

TEST_F(SrtBadInput, MegabyteLineIsReadWhole)
{
    const std::string line(1 << 20, 'q');
    xcSrtParser narrow;
    xcSrtParserU wide;
    ASSERT_TRUE(narrow.Open(dir.write("mega.srt", line).c_str()));
    ASSERT_TRUE(wide.Open(dir.write("megaw.srt", withMark(line + "\n")).c_str()));
    ASSERT_EQ(narrow.GetLines().size(), 1u);
    ASSERT_EQ(wide.GetLines().size(), 1u);
    EXPECT_EQ(narrow.GetLines()[0].length(), 1 << 20);
    EXPECT_EQ(wide.GetLines()[0].length(), 1 << 20);
    EXPECT_EQ(narrow.GetMap().at(0).text.length(), (1 << 20) + 1);
    EXPECT_EQ(wide.GetMap().at(0).text.length(), (1 << 20) + 1);
}

TEST_F(SrtBadInput, BinaryNoiseNeverCrashesOrHangs)
{
    for (unsigned seed = 1; seed <= 8; ++seed) {
        const std::string bytes = noise(4096, seed);
        xcSrtParser narrow;
        xcSrtParserU wide;
        narrow.Open(dir.write("noise.srt", bytes).c_str());
        wide.Open(dir.write("noisew.srt", withMark(bytes)).c_str());
        lookEverywhere(narrow);
        lookEverywhere(wide);
    }
}

TEST_F(SrtBadInput, UndecodableBytesInAWideFileNeverHang)
{
    const std::string content = "1\n00:00:01,000 --> 00:00:02,000\nok\xFF\xFE\x80 bad\n\xC3\nafter\n";
    xcSrtParserU wide;
    wide.Open(dir.write("bad.srt", withMark(content)).c_str());
    lookEverywhere(wide);
}

TEST_F(SrtBadInput, UndecodableBytesInTheCLocaleNeverHang)
{
    ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr);
    const std::string content =
        "1\n00:00:01,000 --> 00:00:02,000\ncaf\xC3\xA9\n2\n00:00:03,000 --> 00:00:04,000\nx\n";
    xcSrtParserU wide;
    wide.Open(dir.write("latin.srt", withMark(content)).c_str());
    lookEverywhere(wide);
}

TEST_F(SrtBadInput, UnreadableFileFails)
{
    const std::string path = dir.write("locked.srt", "1\n00:00:01,000 --> 00:00:02,000\nx\n");
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    if (FILE* f = std::fopen(path.c_str(), "rb")) {
        std::fclose(f);
        GTEST_SKIP() << "running with permission to read any file";
    }
    xcSrtParser narrow;
    xcSrtParserU wide;
    EXPECT_FALSE(narrow.Open(path.c_str()));
    EXPECT_FALSE(wide.Open(path.c_str()));
}
