// The confusions of reading subtitle pictures, put right line by line.
#include "pictures/OcrCorrections.h"

#include <gtest/gtest.h>

namespace {

using zemsub::tool::correctReading;

std::string corrected(const char* line)
{
    return correctReading(QString::fromUtf8(line)).toStdString();
}

TEST(OcrCorrections, BarReadForCapitalI)
{
    EXPECT_EQ(corrected("| know"), "I know");
    EXPECT_EQ(corrected("|t's mine"), "It's mine");
    EXPECT_EQ(corrected("|'m here"), "I'm here");
    // A bar before a capital or a digit is left alone.
    EXPECT_EQ(corrected("A|B"), "A|B");
}

TEST(OcrCorrections, LonelyEllReadForCapitalI)
{
    EXPECT_EQ(corrected("l am here"), "I am here");
    EXPECT_EQ(corrected("l'm here"), "I'm here");
    EXPECT_EQ(corrected("and l"), "and I");
    // Inside words it stays.
    EXPECT_EQ(corrected("hello all"), "hello all");
}

TEST(OcrCorrections, CurlyQuotesBecomeStraight)
{
    EXPECT_EQ(corrected("It\u2019s \u201cfine\u201d, \u2018really\u2019"), "It's \"fine\", 'really'");
}

TEST(OcrCorrections, DialogueDashAtTheLineStart)
{
    EXPECT_EQ(corrected("-Where?"), "- Where?");
    EXPECT_EQ(corrected("\u2013 Home."), "- Home.");
    EXPECT_EQ(corrected("\u2014Now"), "- Now");
    EXPECT_EQ(corrected("- ...maybe"), "- ...maybe");
    // Only at the start.
    EXPECT_EQ(corrected("well-known"), "well-known");
}

TEST(OcrCorrections, NoSpaceBeforePunctuation)
{
    EXPECT_EQ(corrected("Hello , world !"), "Hello, world!");
    EXPECT_EQ(corrected("What ?"), "What?");
}

TEST(OcrCorrections, ZeroBetweenLettersIsO)
{
    EXPECT_EQ(corrected("C0ME HERE"), "COME HERE");
    EXPECT_EQ(corrected("HELL0"), "HELLO");
    EXPECT_EQ(corrected("at 10 o'clock, 2000"), "at 10 o'clock, 2000");
}

TEST(OcrCorrections, CapitalLOrIInsideASentenceIsLoweredWhereTheWordListSaysSo)
{
    const QSet<QString> words{"the", "lighthouse", "light", "Lisbon", "is", "Ill", "ill", "lint"};
    auto fixed = [&words](const char* line) { return correctReading(QString::fromUtf8(line), &words).toStdString(); };
    EXPECT_EQ(fixed("The Lighthouse is far"), "The lighthouse is far");
    EXPECT_EQ(fixed("go, Iint"), "go, lint");
    // At a sentence's start, a capital is right.
    EXPECT_EQ(fixed("Lighthouse ahead"), "Lighthouse ahead");
    EXPECT_EQ(fixed("Stop. Lighthouse ahead"), "Stop. Lighthouse ahead");
    // Names the list spells with a capital, and words it spells both ways, stay.
    EXPECT_EQ(fixed("to Lisbon"), "to Lisbon");
    EXPECT_EQ(fixed("was Ill"), "was Ill");
    // Words it does not know stay.
    EXPECT_EQ(fixed("the Lumiere"), "the Lumiere");
    // Without a list nothing changes.
    EXPECT_EQ(corrected("The Lighthouse"), "The Lighthouse");
}

TEST(OcrCorrections, TheSystemWordListIsInstalled)
{
    const QSet<QString>& words = zemsub::tool::englishWords();
    EXPECT_TRUE(words.contains("lighthouse"));
    EXPECT_FALSE(words.contains("Lighthouse"));
}

TEST(OcrCorrections, SpacesAroundTheLineGo)
{
    EXPECT_EQ(corrected("  Hello  "), "Hello");
    EXPECT_EQ(corrected(""), "");
}

} // namespace
