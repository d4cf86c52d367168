// The narrow and wide SubRip parsers on the same content.
#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "parsers/xcSrtParser.h"
#include "parsers/xcSrtParserU.h"
#include "support/TestFiles.h"

namespace {

class SrtTwins : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const char* current = std::setlocale(LC_ALL, nullptr);
        saved = current ? current : "C";
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    }
    void TearDown() override { std::setlocale(LC_ALL, saved.c_str()); }

    // Opens content as a plain file with the narrow parser and, behind FF FE,
    // with the wide one.
    void open(const std::string& content)
    {
        const std::string plain = dir.write("plain.srt", content);
        const std::string marked = dir.write("marked.srt", withMark(content));
        ASSERT_TRUE(narrow.Open(plain.c_str()));
        ASSERT_TRUE(wide.Open(marked.c_str()));
    }
    static std::string toNarrow(const wchar_t* s)
    {
        if (!s)
            return "<null>";
        std::string out;
        for (; *s; ++s)
            out += static_cast<char>(*s); // ASCII content only
        return out;
    }
    static std::string show(const char* s) { return s ? std::string(s) : std::string("<null>"); }

    std::string saved;
    TempDir dir;
    xcSrtParser narrow;
    xcSrtParserU wide;
};

const char* kSample = "1\n00:00:01,000 --> 00:00:02,000\nfirst line\nsecond line\n\n"
                      "2\n00:01:03,250 --> 00:01:04,750 X1:1 X2:2\n  indented\n\n"
                      "4\n01:00:00,000 --> 01:00:01,500\nA\nB\nC\n   \n"
                      "4\n02:00:00,000 --> 02:00:01,000\nrepeat\n\n"
                      "9\n00:00:07,000 --> 00:00:08,000\nlast\n";

} // namespace

TEST_F(SrtTwins, SameContentGivesTheSameLinesAndEntries)
{
    open(kSample);
    ASSERT_EQ(narrow.GetLines().size(), wide.GetLines().size());
    for (size_t i = 0; i < narrow.GetLines().size(); ++i)
        EXPECT_EQ(std::string(narrow.GetLines()[i].getData()), toNarrow(wide.GetLines()[i].getData())) << i;

    ASSERT_EQ(narrow.GetMap().size(), 4u);
    ASSERT_EQ(wide.GetMap().size(), 4u);
    auto w = wide.GetMap().begin();
    for (const auto& [key, entry] : narrow.GetMap()) {
        EXPECT_EQ(key, w->first);
        EXPECT_EQ(entry.start, w->second.start) << key;
        EXPECT_EQ(entry.end, w->second.end) << key;
        EXPECT_EQ(std::string(entry.text.getData()), toNarrow(w->second.text.getData())) << key;
        ++w;
    }
    EXPECT_EQ(std::string(narrow.GetMap().at(4).text.getData()), "\nAC\nB\nC\n\nrepeat");
    EXPECT_EQ(narrow.GetMap().at(4).start, 7200000);
}

TEST_F(SrtTwins, TheLookUpsDifferAtTimeZeroAndAtTheLastEntry)
{
    open("1\n00:00:00,000 --> 00:00:01,000\nzero\n\n"
         "2\n00:00:03,000 --> 00:00:04,000\nmiddle\n\n"
         "3\n00:00:05,000 --> 00:00:06,000\nlast\n");
    EXPECT_EQ(show(narrow.GetSubTitle(0)), "\nzero");
    EXPECT_EQ(toNarrow(wide.GetSubTitleU(0)), "<null>");
    EXPECT_EQ(show(narrow.GetSubTitle(3500)), "\nmiddle");
    EXPECT_EQ(toNarrow(wide.GetSubTitleU(3500)), "\nmiddle");
    EXPECT_EQ(show(narrow.GetSubTitle(5500)), "<null>");
    EXPECT_EQ(toNarrow(wide.GetSubTitleU(5500)), "\nlast");
    EXPECT_EQ(narrow.GetMap().size(), 3u);
    EXPECT_EQ(wide.GetMap().size(), 4u);
}

TEST_F(SrtTwins, OnlyTheWideTwinLooksAtKeyZero)
{
    open("00:00:01,000 --> 00:00:02,000\nbefore\n\n"
         "1\n00:00:01,000 --> 00:00:02,000\none\n\n"
         "2\n00:00:03,000 --> 00:00:04,000\ntwo\n");
    EXPECT_EQ(show(narrow.GetSubTitle(1500)), "\none");
    EXPECT_EQ(toNarrow(wide.GetSubTitleU(1500)), "\nbefore");
}

TEST_F(SrtTwins, OnlyTheNarrowTwinSkipsTheCharacterBehindTheArrow)
{
    open("1\n00:00:01,000 -->10:00:02,000\nx\n");
    EXPECT_EQ(narrow.GetMap().at(1).end, 2000);
    EXPECT_EQ(wide.GetMap().at(1).end, 36002000);
}

TEST_F(SrtTwins, EachTwinAnswersOnlyItsOwnLookUp)
{
    open(kSample);
    for (long long t : {0LL, 1500LL, 63500LL})
        EXPECT_EQ(narrow.GetSubTitleU(t), nullptr) << t;
    for (long long t : {0LL, 1500LL, 63500LL})
        EXPECT_EQ(wide.GetSubTitle(t), nullptr) << t;
}
