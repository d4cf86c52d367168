// The ASS/SSA look-up index against the key-by-key reference scan.
#include <map>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "parsers/detail/lookup/AssLookup.h"
#include "reference/LookupScans.h"

namespace {

struct Entry
{
    long long start = 0;
    long long end = 0;
    std::string text;
};

}  // namespace

TEST(AssLookupIndex, AnswersWhatThePlainScanAnswersOnRandomTables)
{
    std::mt19937 rng(11);
    for (int round = 0; round < 3000; ++round) {
        std::map<int, Entry> table;
        const int n = std::uniform_int_distribution<int>(0, 12)(rng);
        for (int key = 1; key <= n; ++key) {
            const long long start = std::uniform_int_distribution<int>(-5, 60)(rng);
            table[key] = Entry{start, start + std::uniform_int_distribution<int>(-3, 20)(rng), std::to_string(key)};
        }
        std::map<int, Entry> reference = table;
        zemsub::detail::AssLookupIndex index;
        for (int call = 0; call < 10; ++call) {
            const long long t = std::uniform_int_distribution<int>(-2, 75)(rng);
            const Entry* want = zemsub::reference::scanScript(reference, t);
            const Entry* got = index.find(table, t);
            ASSERT_EQ(want == nullptr, got == nullptr) << "round " << round << " t " << t;
            if (want) {
                EXPECT_EQ(want->text, got->text) << "round " << round << " t " << t;
            }
            ASSERT_EQ(reference.size(), table.size());
        }
    }
}

TEST(AssLookupIndex, RebuildsAfterInvalidate)
{
    std::map<int, Entry> table{{1, {10, 20, "a"}}, {2, {30, 40, "b"}}, {3, {50, 60, "c"}}};
    zemsub::detail::AssLookupIndex index;
    EXPECT_EQ(index.find(table, 55), nullptr);  // the last entry is never answered
    table[4] = Entry{70, 80, "d"};
    index.invalidate();
    const Entry* e = index.find(table, 55);
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->text, "c");
}
