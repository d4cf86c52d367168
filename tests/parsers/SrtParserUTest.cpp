// The wide SubRip parser: files that begin with FF FE, decoded under C.UTF-8.
#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "parsers/xcSrtParserU.h"
#include "support/TestFiles.h"

namespace {

// Sets LC_ALL to C.UTF-8 for the test and restores the earlier locale.
class Utf8Locale
{
public:
    Utf8Locale()
    {
        const char* current = std::setlocale(LC_ALL, nullptr);
        m_saved = current ? current : "C";
        m_ok = std::setlocale(LC_ALL, "C.UTF-8") != nullptr;
    }
    ~Utf8Locale() { std::setlocale(LC_ALL, m_saved.c_str()); }
    bool ok() const { return m_ok; }

private:
    std::string m_saved;
    bool m_ok = false;
};

std::string repeated(const std::string& line, int count)
{
    std::string out;
    out.reserve(line.size() * count);
    for (int i = 0; i < count; ++i)
        out += line;
    return out;
}

class SrtWideTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(locale.ok()); }

    // Writes FF FE + content and opens it.
    void open(const std::string& content)
    {
        const std::string path = dir.write("wide.srt", withMark(content));
        ASSERT_TRUE(parser.Open(path.c_str()));
    }
    const SRC_SESSION_ST_U& entry(int key) const { return parser.GetMap().at(key); }
    std::wstring text(int key) const
    {
        const xcWString& t = entry(key).text;
        return std::wstring(t.getData(), t.length());
    }
    std::wstring line(size_t index) const
    {
        const xcWString& l = parser.GetLines().at(index);
        return std::wstring(l.getData(), l.length());
    }
    std::wstring at(long long t)
    {
        const wchar_t* s = parser.GetSubTitleU(t);
        return s ? std::wstring(s) : std::wstring(L"<null>");
    }

    Utf8Locale locale;
    TempDir dir;
    xcSrtParserU parser;
};

const char* kThreeEntries = "1\n00:00:01,000 --> 00:00:02,000\nfirst\n\n"
                            "2\n00:00:03,000 --> 00:00:04,000\nsecond\n\n"
                            "3\n00:00:05,000 --> 00:00:06,000\nthird\n";

} // namespace

// Opening and reading

TEST_F(SrtWideTest, FreshParserIsNotOpen)
{
    EXPECT_FALSE(parser.IsOpen());
    EXPECT_EQ(parser.GetSubTitleU(1500), nullptr);
    EXPECT_TRUE(parser.GetMap().empty());
}

TEST_F(SrtWideTest, MissingPathFails)
{
    EXPECT_FALSE(parser.Open(dir.file("missing.srt").c_str()));
    EXPECT_FALSE(parser.IsOpen());
}

TEST_F(SrtWideTest, EmptyFileFailsAndIsClosed)
{
    const std::string path = dir.write("empty.srt", "");
    const int before = openDescriptorCount();
    EXPECT_FALSE(parser.Open(path.c_str()));
    EXPECT_FALSE(parser.IsOpen());
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST_F(SrtWideTest, FileOfOnlyTheMarkOpensEmpty)
{
    const std::string path = dir.write("mark.srt", "\xFF\xFE");
    EXPECT_TRUE(parser.Open(path.c_str()));
    EXPECT_TRUE(parser.GetLines().empty());
    EXPECT_TRUE(parser.GetMap().empty());
    EXPECT_EQ(parser.GetSubTitleU(1), nullptr);
}

TEST_F(SrtWideTest, OneByteFileOpensEmpty)
{
    const std::string path = dir.write("one.srt", "1");
    EXPECT_TRUE(parser.Open(path.c_str()));
    EXPECT_TRUE(parser.GetLines().empty());
}

TEST_F(SrtWideTest, TheFirstTwoBytesAreSkippedWhateverTheyHold)
{
    const std::string path = dir.write("nomark.srt", "12\n00:00:01,000 --> 00:00:02,000\nx\n");
    ASSERT_TRUE(parser.Open(path.c_str()));
    ASSERT_EQ(parser.GetLines().size(), 2u);
    EXPECT_EQ(line(0), L"00:00:01,000 --> 00:00:02,000");
}

TEST_F(SrtWideTest, SuccessfulOpenReadsLinesAndClosesTheFile)
{
    const std::string path = dir.write("three.srt", withMark(kThreeEntries));
    const int before = openDescriptorCount();
    ASSERT_TRUE(parser.Open(path.c_str()));
    EXPECT_TRUE(parser.IsOpen());
    EXPECT_EQ(openDescriptorCount(), before);
    ASSERT_EQ(parser.GetLines().size(), 9u);
    EXPECT_EQ(line(0), L"1");
    EXPECT_EQ(line(2), L"first");
    ASSERT_EQ(parser.GetMap().size(), 3u);
    EXPECT_EQ(entry(3).start, 5000);
    EXPECT_EQ(text(3), L"\nthird");
}

TEST_F(SrtWideTest, Utf8TextIsDecodedToOneCharacterPerCodePoint)
{
    open("1\n00:00:01,000 --> 00:00:02,000\ncaf\xC3\xA9 \xE2\x82\xAC\n");
    EXPECT_EQ(text(1), L"\ncaf\u00e9 \u20ac");
}

TEST_F(SrtWideTest, TwentyThousandLinesOpen)
{
    const std::string path = dir.write("limit.srt", withMark(repeated("7\n", 20000)));
    EXPECT_TRUE(parser.Open(path.c_str()));
    EXPECT_EQ(parser.GetLines().size(), 20000u);
}

TEST_F(SrtWideTest, TwentyThousandAndOneLinesFailAndCloseTheFile)
{
    const std::string path = dir.write("over.srt", withMark(repeated("7\n", 20001)));
    const int before = openDescriptorCount();
    EXPECT_FALSE(parser.Open(path.c_str()));
    EXPECT_FALSE(parser.IsOpen());
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST_F(SrtWideTest, LinesAroundThePieceSizeAreReadWhole)
{
    for (int length : {127, 128, 129, 256, 257}) {
        const std::string narrow(length, 'a');
        const std::string path = dir.write("long.srt", withMark(narrow + "\nb\n"));
        ASSERT_TRUE(parser.Open(path.c_str())) << length;
        ASSERT_EQ(parser.GetLines().size(), 2u) << length;
        EXPECT_EQ(line(0), std::wstring(length, L'a')) << length;
        EXPECT_EQ(line(1), L"b") << length;
    }
}

TEST_F(SrtWideTest, PiecesCountCharactersNotBytes)
{
    // 128 two-byte characters: one full piece, then the line feed.
    std::string bytes;
    for (int i = 0; i < 128; ++i)
        bytes += "\xC3\xA9";
    open(bytes + "\nb\n");
    ASSERT_EQ(parser.GetLines().size(), 2u);
    EXPECT_EQ(line(0), std::wstring(128, L'\u00e9'));
}

TEST_F(SrtWideTest, UnterminatedLastLineOnThePieceBoundaryIsKeptOnce)
{
    for (int length : {127, 128, 129, 256}) {
        const std::string path = dir.write("edge.srt", withMark("b\n" + std::string(length, 'z')));
        ASSERT_TRUE(parser.Open(path.c_str())) << length;
        ASSERT_EQ(parser.GetLines().size(), 2u) << length;
        EXPECT_EQ(line(1), std::wstring(length, L'z')) << length;
    }
}

TEST_F(SrtWideTest, CarriageReturnStaysAtTheEndOfEachLine)
{
    open("1\r\n00:00:01,000 --> 00:00:02,000\r\nHello\r\n");
    ASSERT_EQ(parser.GetLines().size(), 3u);
    EXPECT_EQ(line(0), L"1\r");
    EXPECT_EQ(line(2), L"Hello\r");
    // "1\r" is no number: everything goes to key 0, which the wide look-up reaches.
    ASSERT_EQ(parser.GetMap().size(), 1u);
    EXPECT_EQ(at(1500), L"\n1\rHello\r\nHello\r");
}

TEST_F(SrtWideTest, LastLineWithoutLineFeedIsKept)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nend");
    EXPECT_EQ(text(1), L"\nend");
}

TEST_F(SrtWideTest, FailedOpenAfterSuccessStaysOpenWithNothingToShow)
{
    open(kThreeEntries);
    ASSERT_NE(parser.GetSubTitleU(1500), nullptr);
    EXPECT_FALSE(parser.Open(dir.file("missing.srt").c_str()));
    EXPECT_TRUE(parser.IsOpen());
    EXPECT_TRUE(parser.GetMap().empty());
    for (long long t : {-1LL, 0LL, 1000LL, 1500LL, 3500LL, 5500LL})
        EXPECT_EQ(parser.GetSubTitleU(t), nullptr) << t;
}

TEST_F(SrtWideTest, NarrowLookUpIsAlwaysNull)
{
    open(kThreeEntries);
    for (long long t : {-1LL, 0LL, 1000LL, 1500LL, 3500LL, 5500LL, 1LL << 40})
        EXPECT_EQ(parser.GetSubTitle(t), nullptr) << t;
}

// Building the map

TEST_F(SrtWideTest, ConvertReportsSuccess)
{
    open(kThreeEntries);
    EXPECT_TRUE(parser.ConvertBufToSrtMap());
}

TEST_F(SrtWideTest, ArrowWithoutBlankBehindItKeepsTheWholeEndTime)
{
    open("1\n00:00:01,000 -->10:00:02,000\nx\n");
    EXPECT_EQ(entry(1).start, 1000);
    EXPECT_EQ(entry(1).end, 36002000);
}

TEST_F(SrtWideTest, ArrowWithoutBlankGivesTwoThousand)
{
    open("1\n00:00:01,000 -->00:00:02,000\nx\n");
    EXPECT_EQ(entry(1).end, 2000);
}

TEST_F(SrtWideTest, ThreeCaptionLinesTakeEverySecondLineInTheFirstScan)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nA\nB\nC\n");
    EXPECT_EQ(text(1), L"\nAC\nB\nC");
}

TEST_F(SrtWideTest, MillisecondsAreReadAsWritten)
{
    open("1\n00:00:01,5 --> 00:00:02,500\nx\n");
    EXPECT_EQ(entry(1).start, 1005);
    EXPECT_EQ(entry(1).end, 2500);
}

TEST_F(SrtWideTest, AllDigitCaptionLineIsTakenAsTheEntryNumber)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nyear\n2001\nodyssey\n");
    ASSERT_EQ(parser.GetMap().size(), 2u);
    EXPECT_EQ(text(1), L"\nyearodyssey");
    EXPECT_EQ(text(2001), L"\nodyssey");
}

TEST_F(SrtWideTest, BlankLineBetweenCaptionLinesAddsALoneLineFeed)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nA\n   \nB\n");
    EXPECT_EQ(text(1), L"\nAB\n\nB");
}

TEST_F(SrtWideTest, LineStartingWithTheArrowIsCaptionText)
{
    open("1\n00:00:01,000 --> 00:00:02,000\n--> 00:00:05,000\n");
    EXPECT_EQ(text(1), L"\n--> 00:00:05,000");
}

TEST_F(SrtWideTest, LargeTimesWrapInThirtyTwoBits)
{
    open("1\n999:00:00,000 --> -1:00:00,000\nx\n");
    EXPECT_EQ(entry(1).start, 3596400000LL - 4294967296LL);
    EXPECT_EQ(entry(1).end, -3600000);
}

TEST_F(SrtWideTest, TimeWithoutSeparatorsReadsEveryFieldFromTheWholeText)
{
    open("1\n12 --> 13\nx\n");
    EXPECT_EQ(entry(1).start, 12LL * 3600000 + 12 * 60000 + 12 * 1000 + 12);
    EXPECT_EQ(entry(1).end, 13LL * 3600000 + 13 * 60000 + 13 * 1000 + 13);
}

TEST_F(SrtWideTest, ArrowAtTheEndOfTheLineGivesAnEndOfZero)
{
    open("1\n00:00:01,000 -->\nx\n");
    EXPECT_EQ(entry(1).end, 0);
}

TEST_F(SrtWideTest, RepeatedNumberTakesTheLaterTimesAndAppendsItsText)
{
    open("3\n00:00:01,000 --> 00:00:02,000\nfirst\n\n3\n00:00:07,000 --> 00:00:08,000\nagain\n");
    EXPECT_EQ(text(3), L"\nfirst\nagain");
    EXPECT_EQ(entry(3).start, 7000);
}

TEST_F(SrtWideTest, LinesAreTrimmedInPlaceWithTheHalvingLeftTrim)
{
    open("1\n00:00:01,000 --> 00:00:02,000\n    abc   \n");
    EXPECT_EQ(text(1), L"\n abc");
}

// Looking up

TEST_F(SrtWideTest, TimeZeroIsNullEvenWhenAnEntryStartsAtZero)
{
    open("1\n00:00:00,000 --> 00:00:02,000\nzero\n");
    EXPECT_EQ(parser.GetSubTitleU(0), nullptr);
    EXPECT_EQ(at(1), L"\nzero");
}

TEST_F(SrtWideTest, NegativeTimeIsNull)
{
    open("1\n-1:00:00,000 --> 00:00:02,000\na\n");
    EXPECT_EQ(parser.GetSubTitleU(-1), nullptr);
    EXPECT_EQ(parser.GetSubTitleU(-3600000), nullptr);
}

TEST_F(SrtWideTest, EveryEntryIsReachedIncludingTheLast)
{
    open(kThreeEntries);
    EXPECT_EQ(at(1000), L"\nfirst");
    EXPECT_EQ(at(2000), L"\nfirst");
    EXPECT_EQ(at(2500), L"<null>");
    EXPECT_EQ(at(4000), L"\nsecond");
    EXPECT_EQ(at(5500), L"\nthird");
    EXPECT_EQ(at(6001), L"<null>");
}

TEST_F(SrtWideTest, SingleEntryIsAnswered)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nonly\n");
    EXPECT_EQ(at(1500), L"\nonly");
}

TEST_F(SrtWideTest, FirstLookUpInsertsKeyZero)
{
    open(kThreeEntries);
    ASSERT_EQ(parser.GetMap().size(), 3u);
    EXPECT_EQ(at(5500), L"\nthird");
    ASSERT_EQ(parser.GetMap().size(), 4u);
    const SRC_SESSION_ST_U& inserted = parser.GetMap().at(0);
    EXPECT_EQ(inserted.start, 0);
    EXPECT_EQ(inserted.end, 0);
    EXPECT_TRUE(inserted.text.isEmpty());
    EXPECT_EQ(at(5500), L"\nthird");
    EXPECT_EQ(parser.GetMap().size(), 4u);
}

TEST_F(SrtWideTest, LookUpInsertsEveryMissingKeyItPasses)
{
    open("2\n00:00:01,000 --> 00:00:02,000\na\n\n5\n00:00:03,000 --> 00:00:04,000\nb\n");
    ASSERT_EQ(parser.GetMap().size(), 2u);
    EXPECT_EQ(at(1500), L"\na"); // keys 0, 1 inserted on the way to 2
    EXPECT_EQ(parser.GetMap().size(), 4u);
    EXPECT_EQ(at(9000), L"<null>"); // 3 and 4 inserted; stops after 5
    ASSERT_EQ(parser.GetMap().size(), 6u);
    for (int key : {0, 1, 3, 4})
        EXPECT_TRUE(parser.GetMap().at(key).text.isEmpty()) << key;
    EXPECT_EQ(at(3500), L"\nb");
    EXPECT_EQ(parser.GetMap().size(), 6u);
}

TEST_F(SrtWideTest, FirstMatchingKeyWinsWhenEntriesOverlap)
{
    open("1\n00:00:01,000 --> 00:00:05,000\nlong\n\n2\n00:00:02,000 --> 00:00:03,000\nshort\n");
    EXPECT_EQ(at(2500), L"\nlong");
}

TEST_F(SrtWideTest, KeyZeroIsLookedAtFirst)
{
    // Text before the first number goes to key 0 with the times in force.
    open("00:00:01,000 --> 00:00:02,000\nstray\n1\n00:00:01,000 --> 00:00:02,000\nx\n");
    ASSERT_EQ(parser.GetMap().size(), 2u);
    EXPECT_EQ(at(1500), L"\nstray");
}

TEST_F(SrtWideTest, AnsweredPointerIsTheEntrysOwnText)
{
    open(kThreeEntries);
    EXPECT_EQ(parser.GetSubTitleU(3500), parser.GetMap().at(2).text.getData());
}

TEST_F(SrtWideTest, EmptyMapAnswersNullAndStaysEmpty)
{
    open("1\n2\n3\n");
    EXPECT_EQ(parser.GetSubTitleU(1000), nullptr);
    EXPECT_TRUE(parser.GetMap().empty());
}

TEST_F(SrtWideTest, VeryLargeTimeFindsNothing)
{
    open(kThreeEntries);
    EXPECT_EQ(parser.GetSubTitleU(1LL << 40), nullptr);
    EXPECT_EQ(parser.GetMap().size(), 4u);
}
