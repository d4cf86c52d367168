// __wtoi, the number reader of the wide parsers.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>

#include "parsers/xcSrtParserU.h"

namespace {

class Wtoi : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const char* current = std::setlocale(LC_ALL, nullptr);
        saved = current ? current : "C";
    }
    void TearDown() override { std::setlocale(LC_ALL, saved.c_str()); }
    std::string saved;
};

} // namespace

TEST_F(Wtoi, NullIsZero)
{
    EXPECT_EQ(__wtoi(nullptr), 0);
}

TEST_F(Wtoi, DigitsAreRead)
{
    EXPECT_EQ(__wtoi(L"12"), 12);
    EXPECT_EQ(__wtoi(L"0"), 0);
    EXPECT_EQ(__wtoi(L"007"), 7);
    EXPECT_EQ(__wtoi(L"2147483647"), 2147483647);
}

TEST_F(Wtoi, ReadsAsAtoiDoes)
{
    EXPECT_EQ(__wtoi(L"-42"), -42);
    EXPECT_EQ(__wtoi(L"+5"), 5);
    EXPECT_EQ(__wtoi(L"  31x"), 31);
    EXPECT_EQ(__wtoi(L"12:34"), 12);
    EXPECT_EQ(__wtoi(L"abc"), 0);
    EXPECT_EQ(__wtoi(L""), 0);
    EXPECT_EQ(__wtoi(L"99999999999"), std::atoi("99999999999"));
}

TEST_F(Wtoi, ConvertsUnderTheCurrentLocale)
{
    ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    EXPECT_EQ(__wtoi(L"12\u00e9"), 12);
    EXPECT_EQ(__wtoi(L"\u00e912"), 0);
}

TEST_F(Wtoi, TextTheLocaleCannotConvertIsZero)
{
    ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr);
    // The whole text fails to convert, so even the leading digit is not read.
    EXPECT_EQ(__wtoi(L"7\u20ac"), 0);
    EXPECT_EQ(__wtoi(L"7"), 7);
}
