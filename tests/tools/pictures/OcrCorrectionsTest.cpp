// The confusions of reading subtitle pictures, put right line by line.
#include "pictures/OcrCorrections.h"

#include <gtest/gtest.h>

namespace {

using zemsub::tool::correctReading;

std::string corrected(const char* line)
{
    return correctReading(QString::fromUtf8(line), QStringLiteral("eng")).toStdString();
}

std::string inFrench(const char* line)
{
    return correctReading(QString::fromUtf8(line), QStringLiteral("fra"), &zemsub::tool::wordList("fra"))
        .toStdString();
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
    auto fixed = [&words](const char* line) { return correctReading(QString::fromUtf8(line), QStringLiteral("eng"), &words).toStdString(); };
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

TEST(OcrCorrections, FrenchKeepsItsElisionsItsSpacesAndItsEllipsis)
{
    EXPECT_EQ(inFrench("l'encre et l'eau"), "l'encre et l'eau");
    EXPECT_EQ(inFrench("d'abord, l'homme"), "d'abord, l'homme");
    EXPECT_EQ(inFrench("Vraiment ?"), "Vraiment ?");
    EXPECT_EQ(inFrench("Attention : il vient !"), "Attention : il vient !");
    EXPECT_EQ(inFrench("Oui ; non"), "Oui ; non");
    EXPECT_EQ(inFrench("Mais..."), "Mais...");
    EXPECT_EQ(inFrench("Et ... alors"), "Et ... alors");
    // What holds in every language still does.
    EXPECT_EQ(inFrench("\u2013Bonjour , toi."), "- Bonjour, toi.");
    EXPECT_EQ(inFrench("C\u2019est l\u2019\u00e9t\u00e9"), "C'est l'\u00e9t\u00e9");
    // English ones do not.
    EXPECT_EQ(inFrench("| l"), "| l");
}

TEST(OcrCorrections, EnglishKeepsItsEllipsisToo)
{
    EXPECT_EQ(corrected("Well..."), "Well...");
    EXPECT_EQ(corrected("Wait ... what?"), "Wait ... what?");
}

TEST(OcrCorrections, ABracketedSoundStaysAsDrawn)
{
    const QSet<QString>& words = zemsub::tool::englishWords();
    for (const char* line : {"[squawk]", "[Squawk]", "[laughs]", "(sighs)", "[LAUGHTER]"})
        EXPECT_EQ(correctReading(QString::fromUtf8(line), QStringLiteral("eng"), &words).toStdString(), line);
}

TEST(OcrCorrections, EllReadForIIsRaisedWhereOnlyTheIFormIsAWord)
{
    const QSet<QString> words{"is", "it", "if", "this", "lot", "it's"};
    auto fixed = [&words](const char* line) {
        return correctReading(QString::fromUtf8(line), QStringLiteral("eng"), &words).toStdString();
    };
    EXPECT_EQ(fixed("ls this it?"), "Is this it?");
    EXPECT_EQ(fixed("and lt is"), "and it is");
    EXPECT_EQ(fixed("Stop. lf you go"), "Stop. If you go");
    // A word of its own stays.
    EXPECT_EQ(fixed("a lot"), "a lot");
    // Word lists know "ls" as a command; a subtitle means "Is".
    const QSet<QString> withLs{"is", "ls"};
    EXPECT_EQ(correctReading(QStringLiteral("ls this it"), QStringLiteral("eng"), &withLs).toStdString(),
              "Is this it");
    // Not in French.
    EXPECT_EQ(correctReading(QStringLiteral("ls"), QStringLiteral("fra"), &words).toStdString(), "ls");
}

TEST(OcrCorrections, EachLanguageHasItsWordListWhereDebianHasOne)
{
    EXPECT_TRUE(zemsub::tool::wordList("fra").contains(QStringLiteral("encre")));
    EXPECT_TRUE(zemsub::tool::wordList("eng").contains(QStringLiteral("lighthouse")));
    EXPECT_TRUE(zemsub::tool::wordList("zzz").isEmpty());
}

} // namespace
