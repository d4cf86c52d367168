// Choosing a parser by mark and extension, and forwarding to it.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <clocale>
#include <cstdio>
#include <string>

#include "manager/xcSubtitleManager.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "support/TestFiles.h"

namespace {

const char* kSubRip = "1\n00:00:01,000 --> 00:00:02,000\nfirst\n\n"
                      "2\n00:00:03,000 --> 00:00:04,000\nsecond\n\n"
                      "3\n00:00:05,000 --> 00:00:06,000\nthird\n";

// clang-format off
const char* kScript =
    "[Script Info]\nScriptType: v4.00+\nPlayResX: 640\nPlayResY: 480\n\n"
    "[V4+ Styles]\n"
    "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, BackColour, "
    "Bold, Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, BorderStyle, Outline, Shadow, "
    "Alignment, MarginL, MarginR, MarginV, Encoding\n"
    "Style: Default,Arial,20,&H00FFFFFF,&H000000FF,&H00000000,&H00000000,"
    "0,0,0,0,100,100,0,0,1,2,2,2,10,10,10,1\n\n"
    "[Events]\n"
    "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
    "Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,one\n"
    "Dialogue: 0,0:00:03.00,0:00:04.00,Default,,0,0,0,,two\n"
    "Dialogue: 0,0:00:05.00,0:00:06.00,Default,,0,0,0,,three\n";
// clang-format on

class SubtitleManagerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const char* current = std::setlocale(LC_ALL, nullptr);
        saved = current ? current : "C";
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    }
    void TearDown() override { std::setlocale(LC_ALL, saved.c_str()); }

    static std::string show(const char* s) { return s ? std::string(s) : std::string("<null>"); }
    static std::wstring show(const wchar_t* s) { return s ? std::wstring(s) : std::wstring(L"<null>"); }

    std::string saved;
    TempDir dir;
    xcSubtitleManager manager;
};

} // namespace

TEST_F(SubtitleManagerTest, FreshManagerHasNothingChosen)
{
    EXPECT_EQ(manager.GetFormatCode(), 0);
    EXPECT_FALSE(manager.IsWide());
    EXPECT_FALSE(manager.IsOpen());
    EXPECT_EQ(manager.GetSubTitle(1500), nullptr);
    EXPECT_EQ(manager.GetSubTitleU(1500), nullptr);
}

TEST_F(SubtitleManagerTest, SubRipExtensionIsRecognisedInAnyCase)
{
    for (const char* name : {"a.srt", "b.SRT", "c.Srt", "d.sRt"}) {
        const std::string path = dir.write(name, kSubRip);
        xcSubtitleManager m;
        EXPECT_TRUE(m.Open(path.c_str())) << name;
        EXPECT_EQ(m.GetFormatCode(), 1) << name;
        EXPECT_FALSE(m.IsWide()) << name;
        EXPECT_TRUE(m.IsOpen()) << name;
    }
}

TEST_F(SubtitleManagerTest, SubRipIsServedByTheNarrowParser)
{
    const std::string path = dir.write("plain.srt", kSubRip);
    ASSERT_TRUE(manager.Open(path.c_str()));
    EXPECT_EQ(show(manager.GetSubTitle(1500)), "\nfirst");
    EXPECT_EQ(show(manager.GetSubTitle(3500)), "\nsecond");
    EXPECT_EQ(show(manager.GetSubTitle(5500)), "<null>"); // the narrow parser never shows the last entry
    EXPECT_EQ(show(manager.GetSubTitle(0)), "<null>");
    EXPECT_EQ(show(manager.GetSubTitle(-1)), "<null>");
}

TEST_F(SubtitleManagerTest, NarrowChoiceAnswersNoWideText)
{
    const std::string path = dir.write("plain.srt", kSubRip);
    ASSERT_TRUE(manager.Open(path.c_str()));
    for (long long t : {0LL, 1500LL, 3500LL, 5500LL})
        EXPECT_EQ(manager.GetSubTitleU(t), nullptr) << t;
}

TEST_F(SubtitleManagerTest, MarkedSubRipIsServedByTheWideParser)
{
    const std::string path = dir.write("wide.srt", withMark(kSubRip));
    ASSERT_TRUE(manager.Open(path.c_str()));
    EXPECT_EQ(manager.GetFormatCode(), 4);
    EXPECT_TRUE(manager.IsWide());
    EXPECT_TRUE(manager.IsOpen());
    EXPECT_EQ(show(manager.GetSubTitleU(1500)), L"\nfirst");
    EXPECT_EQ(show(manager.GetSubTitleU(5500)), L"\nthird"); // the wide parser reaches the last entry
    EXPECT_EQ(show(manager.GetSubTitleU(0)), L"<null>");
}

TEST_F(SubtitleManagerTest, WideChoiceAnswersNoNarrowText)
{
    const std::string path = dir.write("wide.srt", withMark(kSubRip));
    ASSERT_TRUE(manager.Open(path.c_str()));
    for (long long t : {0LL, 1500LL, 3500LL, 5500LL})
        EXPECT_EQ(manager.GetSubTitle(t), nullptr) << t;
}

TEST_F(SubtitleManagerTest, Utf16SubRipIsReadAfterTheMark)
{
    // Real UTF-16 bytes, decoded as UTF-8, are characters separated by zeros:
    // the first line is cut at its zero, and the zero behind its line feed
    // ends the reading.
    const std::string path = dir.write("utf16.srt", utf16le(kSubRip));
    EXPECT_TRUE(manager.Open(path.c_str()));
    EXPECT_EQ(manager.GetFormatCode(), 4);
    EXPECT_TRUE(manager.IsWide());
    EXPECT_TRUE(manager.IsOpen());
    EXPECT_EQ(manager.GetSubTitleU(1500), nullptr);
}

TEST_F(SubtitleManagerTest, SameContentWithoutTheMarkIsNarrow)
{
    const std::string marked = dir.write("marked.srt", withMark(kSubRip));
    const std::string plain = dir.write("plain.srt", kSubRip);
    ASSERT_TRUE(manager.Open(marked.c_str()));
    EXPECT_EQ(manager.GetFormatCode(), 4);
    ASSERT_TRUE(manager.Open(plain.c_str()));
    EXPECT_EQ(manager.GetFormatCode(), 1);
    EXPECT_FALSE(manager.IsWide());
}

TEST_F(SubtitleManagerTest, OnlyTheLittleEndianMarkMakesAFileWide)
{
    const std::string bigEndian = dir.write("be.srt", "\xFE\xFF" + std::string(kSubRip));
    const std::string utf8 = dir.write("u8.srt", "\xEF\xBB\xBF" + std::string(kSubRip));
    const std::string halfMark = dir.write("half.srt", "\xFF" + std::string(kSubRip));
    for (const std::string& path : {bigEndian, utf8, halfMark}) {
        EXPECT_TRUE(manager.Open(path.c_str())) << path;
        EXPECT_EQ(manager.GetFormatCode(), 1) << path;
        EXPECT_FALSE(manager.IsWide()) << path;
    }
}

TEST_F(SubtitleManagerTest, AssAndSsaExtensionsChooseTheAssParserInAnyCase)
{
    for (const char* name : {"a.ass", "b.ASS", "c.ssa", "d.SSA", "e.Ssa"}) {
        const std::string path = dir.write(name, kScript);
        xcSubtitleManager m;
        const bool opened = m.Open(path.c_str());
        EXPECT_EQ(m.GetFormatCode(), 2) << name;
        EXPECT_FALSE(m.IsWide()) << name;
        xcAssParser alone;
        EXPECT_EQ(opened, alone.Open(path.c_str())) << name;
        EXPECT_EQ(m.IsOpen(), alone.IsOpen()) << name;
    }
}

TEST_F(SubtitleManagerTest, AssLookUpsAreForwardedToTheAssParser)
{
    const std::string path = dir.write("script.ass", kScript);
    xcAssParser alone;
    const bool aloneOpened = alone.Open(path.c_str());
    EXPECT_EQ(manager.Open(path.c_str()), aloneOpened);
    for (long long t : {0LL, 1500LL, 3500LL, 5500LL}) {
        EXPECT_EQ(show(manager.GetSubTitle(t)), show(alone.GetSubTitle(t))) << t;
        EXPECT_EQ(manager.GetSubTitleU(t), nullptr) << t;
    }
}

TEST_F(SubtitleManagerTest, MarkedAssChoosesTheWideAssParser)
{
    for (const char* name : {"w.ass", "w.SSA"}) {
        const std::string path = dir.write(name, withMark(kScript));
        xcSubtitleManager m;
        const bool opened = m.Open(path.c_str());
        EXPECT_EQ(m.GetFormatCode(), 5) << name;
        EXPECT_TRUE(m.IsWide()) << name;
        xcAssParserU alone;
        EXPECT_EQ(opened, alone.Open(path.c_str())) << name;
        EXPECT_EQ(m.IsOpen(), alone.IsOpen()) << name;
        for (long long t : {1500LL, 3500LL}) {
            EXPECT_EQ(show(m.GetSubTitleU(t)), show(alone.GetSubTitleU(t))) << name << " " << t;
            EXPECT_EQ(m.GetSubTitle(t), nullptr) << name << " " << t;
        }
    }
}

TEST_F(SubtitleManagerTest, AssScriptOpensAndAnswersThroughTheManager)
{
    const std::string plain = dir.write("script.ass", kScript);
    ASSERT_TRUE(manager.Open(plain.c_str()));
    EXPECT_TRUE(manager.IsOpen());
    EXPECT_EQ(show(manager.GetSubTitle(1500)), "\none");
    EXPECT_EQ(manager.GetSubTitleU(1500), nullptr);

    const std::string marked = dir.write("script.ssa", withMark(kScript));
    ASSERT_TRUE(manager.Open(marked.c_str()));
    EXPECT_EQ(manager.GetFormatCode(), 5);
    EXPECT_TRUE(manager.IsOpen());
    EXPECT_EQ(show(manager.GetSubTitleU(1500)), L"\none");
    EXPECT_EQ(manager.GetSubTitle(1500), nullptr);
}

TEST_F(SubtitleManagerTest, OnlyTheTextAfterTheLastDotCounts)
{
    const std::string srtTxt = dir.write("movie.srt.txt", kSubRip);
    EXPECT_FALSE(manager.Open(srtTxt.c_str()));
    EXPECT_EQ(manager.GetFormatCode(), 0);
    const std::string txtSrt = dir.write("movie.txt.srt", kSubRip);
    EXPECT_TRUE(manager.Open(txtSrt.c_str()));
    EXPECT_EQ(manager.GetFormatCode(), 1);
}

TEST_F(SubtitleManagerTest, DotInADirectoryNameCountsWhenTheFileNameHasNone)
{
    const std::string folder = dir.file("subs.srt");
    ASSERT_EQ(mkdir(folder.c_str(), 0700), 0);
    const std::string path = folder + "/captions";
    {
        FILE* f = std::fopen(path.c_str(), "wb");
        ASSERT_NE(f, nullptr);
        std::fputs(kSubRip, f);
        std::fclose(f);
    }
    EXPECT_FALSE(manager.Open(path.c_str())); // extension "srt/captions"
    EXPECT_EQ(manager.GetFormatCode(), 0);
}

TEST_F(SubtitleManagerTest, ReopeningServesTheNewFile)
{
    const std::string first = dir.write("first.srt", kSubRip);
    const std::string second = dir.write(
        "second.srt", "1\n00:00:01,000 --> 00:00:02,000\nnew\n\n2\n00:00:03,000 --> 00:00:04,000\nx\n");
    ASSERT_TRUE(manager.Open(first.c_str()));
    ASSERT_TRUE(manager.Open(second.c_str()));
    EXPECT_EQ(show(manager.GetSubTitle(1500)), "\nnew");
    EXPECT_EQ(show(manager.GetSubTitle(3500)), "<null>");
}

TEST_F(SubtitleManagerTest, SwitchingBetweenNarrowAndWideFiles)
{
    const std::string plain = dir.write("plain.srt", kSubRip);
    const std::string marked = dir.write("marked.srt", withMark(kSubRip));
    ASSERT_TRUE(manager.Open(plain.c_str()));
    ASSERT_TRUE(manager.Open(marked.c_str()));
    EXPECT_EQ(manager.GetSubTitle(1500), nullptr);
    EXPECT_EQ(show(manager.GetSubTitleU(1500)), L"\nfirst");
    ASSERT_TRUE(manager.Open(plain.c_str()));
    EXPECT_EQ(show(manager.GetSubTitle(1500)), "\nfirst");
    EXPECT_EQ(manager.GetSubTitleU(1500), nullptr);
}

TEST_F(SubtitleManagerTest, OpenLeavesNoFileOpen)
{
    const std::string path = dir.write("plain.srt", kSubRip);
    const int before = openDescriptorCount();
    ASSERT_TRUE(manager.Open(path.c_str()));
    EXPECT_EQ(openDescriptorCount(), before);
}
