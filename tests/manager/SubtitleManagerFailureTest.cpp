// What the manager answers, and what state it keeps, when a file is refused.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "manager/xcSubtitleManager.h"
#include "support/TestFiles.h"

namespace {

const char* kSubRip = "1\n00:00:01,000 --> 00:00:02,000\nfirst\n\n"
                      "2\n00:00:03,000 --> 00:00:04,000\nsecond\n\n"
                      "3\n00:00:05,000 --> 00:00:06,000\nthird\n";

std::string tooManyLines()
{
    std::string out;
    for (int i = 0; i < 20001; ++i)
        out += "7\n";
    return out;
}

class ManagerFailure : public ::testing::Test
{
protected:
    void SetUp() override { descriptors = openDescriptorCount(); }
    void TearDown() override { EXPECT_EQ(openDescriptorCount(), descriptors); }

    // Opens a marked SubRip file so that the wide flag is set beforehand.
    void makeWide()
    {
        const std::string path = dir.write("marked.srt", withMark(kSubRip));
        ASSERT_TRUE(manager.Open(path.c_str()));
        ASSERT_TRUE(manager.IsWide());
    }
    void expectNothingChosen()
    {
        EXPECT_EQ(manager.GetFormatCode(), 0);
        EXPECT_FALSE(manager.IsOpen());
        for (long long t : {0LL, 1500LL, 3500LL, 5500LL}) {
            EXPECT_EQ(manager.GetSubTitle(t), nullptr) << t;
            EXPECT_EQ(manager.GetSubTitleU(t), nullptr) << t;
        }
    }

    int descriptors = 0;
    TempDir dir;
    xcSubtitleManager manager;
};

} // namespace

TEST_F(ManagerFailure, NullPathIsRefusedAndKeepsTheWideFlag)
{
    makeWide();
    EXPECT_FALSE(manager.Open(nullptr));
    expectNothingChosen();
    EXPECT_TRUE(manager.IsWide());
}

TEST_F(ManagerFailure, EmptyPathIsRefusedAndKeepsTheWideFlag)
{
    makeWide();
    EXPECT_FALSE(manager.Open(""));
    expectNothingChosen();
    EXPECT_TRUE(manager.IsWide());
}

TEST_F(ManagerFailure, MissingFileIsRefusedAndKeepsTheWideFlag)
{
    makeWide();
    EXPECT_FALSE(manager.Open(dir.file("missing.srt").c_str()));
    expectNothingChosen();
    EXPECT_TRUE(manager.IsWide());
}

TEST_F(ManagerFailure, EmptyFileIsRefusedAndKeepsTheWideFlag)
{
    makeWide();
    const std::string path = dir.write("empty.srt", "");
    EXPECT_FALSE(manager.Open(path.c_str()));
    expectNothingChosen();
    EXPECT_TRUE(manager.IsWide());
}

TEST_F(ManagerFailure, OneByteFileIsRefusedEvenAsSubRip)
{
    makeWide();
    const std::string path = dir.write("one.srt", "1");
    EXPECT_FALSE(manager.Open(path.c_str()));
    expectNothingChosen();
    EXPECT_TRUE(manager.IsWide());
}

TEST_F(ManagerFailure, OneByteFileKeepsANarrowFlagToo)
{
    const std::string plain = dir.write("plain.srt", kSubRip);
    ASSERT_TRUE(manager.Open(plain.c_str()));
    const std::string path = dir.write("one.srt", "\xFF");
    EXPECT_FALSE(manager.Open(path.c_str()));
    EXPECT_FALSE(manager.IsWide());
}

TEST_F(ManagerFailure, DirectoryIsRefused)
{
    const std::string path = dir.file("folder.srt");
    ASSERT_EQ(mkdir(path.c_str(), 0700), 0);
    EXPECT_FALSE(manager.Open(path.c_str()));
    expectNothingChosen();
}

TEST_F(ManagerFailure, UnknownExtensionIsRefusedButSetsTheWideFlag)
{
    const std::string marked = dir.write("marked.txt", withMark(kSubRip));
    EXPECT_FALSE(manager.Open(marked.c_str()));
    expectNothingChosen();
    EXPECT_TRUE(manager.IsWide());

    const std::string plain = dir.write("plain.txt", kSubRip);
    EXPECT_FALSE(manager.Open(plain.c_str()));
    expectNothingChosen();
    EXPECT_FALSE(manager.IsWide());
}

TEST_F(ManagerFailure, IndexAndPacketFilesAreRefused)
{
    for (const char* name : {"movie.idx", "movie.IDX", "movie.sub"}) {
        const std::string path = dir.write(name, "# VobSub index file, v7 (do not modify this line!)\n");
        EXPECT_FALSE(manager.Open(path.c_str())) << name;
        expectNothingChosen();
    }
}

TEST_F(ManagerFailure, ExtensionMustMatchWhole)
{
    for (const char* name : {"a.sr", "a.srtx", "a.srt ", "a.as", "a.ssa2", "a."}) {
        const std::string path = dir.write(name, kSubRip);
        EXPECT_FALSE(manager.Open(path.c_str())) << name;
        expectNothingChosen();
    }
}

TEST_F(ManagerFailure, PathWithoutADotIsRefused)
{
    // A relative name without any dot, for a SubRip file that exists.
    dir.write("captions", kSubRip);
    char previous[4096];
    ASSERT_NE(getcwd(previous, sizeof previous), nullptr);
    ASSERT_EQ(chdir(dir.path().c_str()), 0);
    const bool opened = manager.Open("captions");
    ASSERT_EQ(chdir(previous), 0);
    EXPECT_FALSE(opened);
    expectNothingChosen();
}

TEST_F(ManagerFailure, ParserFailureKeepsTheFormatCode)
{
    const std::string path = dir.write("big.srt", tooManyLines());
    EXPECT_FALSE(manager.Open(path.c_str()));
    EXPECT_EQ(manager.GetFormatCode(), 1);
    EXPECT_FALSE(manager.IsOpen());
    EXPECT_EQ(manager.GetSubTitle(1500), nullptr);
    EXPECT_EQ(manager.GetSubTitleU(1500), nullptr);
}

TEST_F(ManagerFailure, WideParserFailureKeepsTheFormatCode)
{
    const std::string path = dir.write("big.srt", withMark(tooManyLines()));
    EXPECT_FALSE(manager.Open(path.c_str()));
    EXPECT_EQ(manager.GetFormatCode(), 4);
    EXPECT_TRUE(manager.IsWide());
    EXPECT_FALSE(manager.IsOpen());
    EXPECT_EQ(manager.GetSubTitleU(1500), nullptr);
}

TEST_F(ManagerFailure, ParserFailureAfterSuccessStillReportsOpen)
{
    const std::string good = dir.write("good.srt", kSubRip);
    const std::string big = dir.write("big.srt", tooManyLines());
    ASSERT_TRUE(manager.Open(good.c_str()));
    EXPECT_FALSE(manager.Open(big.c_str()));
    EXPECT_EQ(manager.GetFormatCode(), 1);
    EXPECT_TRUE(manager.IsOpen()); // the parser's flag is never cleared
    EXPECT_EQ(manager.GetSubTitle(1500), nullptr);
}

TEST_F(ManagerFailure, RefusalAfterSuccessForgetsTheChoice)
{
    const std::string good = dir.write("good.srt", kSubRip);
    ASSERT_TRUE(manager.Open(good.c_str()));
    ASSERT_TRUE(manager.IsOpen());
    EXPECT_FALSE(manager.Open(dir.file("missing.srt").c_str()));
    expectNothingChosen();
}

TEST_F(ManagerFailure, ManagerCanBeDestroyedInAnyState)
{
    const std::string path = dir.write("good.srt", kSubRip);
    auto* fresh = new xcSubtitleManager();
    delete fresh;
    auto* opened = new xcSubtitleManager();
    ASSERT_TRUE(opened->Open(path.c_str()));
    opened->GetSubTitle(1500);
    delete opened;
    auto* refused = new xcSubtitleManager();
    EXPECT_FALSE(refused->Open(""));
    delete refused;
}
