// Track language tags as Tesseract names them, and its installed data.
#include "pictures/OcrLanguage.h"

#include <gtest/gtest.h>

namespace {

using namespace zemsub::tool;

TEST(OcrLanguage, TagsBecomeTesseractNames)
{
    EXPECT_EQ(tesseractLanguage("eng"), "eng");
    EXPECT_EQ(tesseractLanguage("fre"), "fra");
    EXPECT_EQ(tesseractLanguage("fra"), "fra");
    EXPECT_EQ(tesseractLanguage("ger"), "deu");
    EXPECT_EQ(tesseractLanguage("FR"), "fra");
    EXPECT_EQ(tesseractLanguage("en"), "eng");
    EXPECT_EQ(tesseractLanguage("chi"), "chi_sim");
    EXPECT_EQ(tesseractLanguage("spa"), "spa");
}

TEST(OcrLanguage, TheLanguageAskedForOverridesTheTag)
{
    EXPECT_EQ(readingLanguage("", "fre"), "fra");
    EXPECT_EQ(readingLanguage("", ""), "eng");
    EXPECT_EQ(readingLanguage("deu", "fre"), "deu");
}

TEST(OcrLanguage, UntaggedAndUnknownReadAsEnglish)
{
    EXPECT_EQ(tesseractLanguage(""), "eng");
    EXPECT_EQ(tesseractLanguage("und"), "eng");
    EXPECT_EQ(tesseractLanguage("x1"), "eng");
    EXPECT_EQ(tesseractLanguage("english"), "eng");
}

TEST(OcrLanguage, EnglishDataIsInstalledAndOthersAreNamedByTheirPackage)
{
    EXPECT_TRUE(languageInstalled("eng"));
    EXPECT_FALSE(languageInstalled("zzz"));
    EXPECT_FALSE(languageInstalled("../eng"));
    EXPECT_FALSE(languageInstalled(""));
    const QString message = missingLanguageMessage("chi_sim");
    EXPECT_TRUE(message.startsWith("no Tesseract data for chi_sim (in ")) << message.toStdString();
    EXPECT_TRUE(message.contains("install the Debian package tesseract-ocr-chi-sim, or name an installed "
                                 "language with --ocr-language"))
        << message.toStdString();
}

} // namespace
