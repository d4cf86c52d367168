// The look-up index against the key-by-key reference scans: same answers,
// same map after every call.
#include <climits>
#include <map>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "parsers/detail/lookup/ScanIndex.h"
#include "reference/LookupScans.h"

using zemsub::detail::ScanIndex;

namespace {

struct Entry
{
    long long start = 0;
    long long end = 0;
    std::string text;
};

bool sameEntry(const Entry* a, const Entry* b)
{
    if (!a || !b)
        return a == b;
    return a->start == b->start && a->end == b->end && a->text == b->text;
}

bool sameMap(const std::map<int, Entry>& a, const std::map<int, Entry>& b)
{
    if (a.size() != b.size())
        return false;
    for (auto i = a.begin(), j = b.begin(); i != a.end(); ++i, ++j)
        if (i->first != j->first || !sameEntry(&i->second, &j->second))
            return false;
    return true;
}

std::map<int, Entry> randomMap(std::mt19937& rng, int minKey, int maxKey)
{
    std::map<int, Entry> m;
    const int n = std::uniform_int_distribution<int>(0, 12)(rng);
    for (int i = 0; i < n; ++i) {
        const int key = std::uniform_int_distribution<int>(minKey, maxKey)(rng);
        const long long start = std::uniform_int_distribution<int>(-5, 60)(rng);
        const long long end = start + std::uniform_int_distribution<int>(-3, 20)(rng);
        m[key] = Entry{start, end, "text" + std::to_string(i)};
    }
    return m;
}

long long randomTime(std::mt19937& rng)
{
    const int pick = std::uniform_int_distribution<int>(0, 9)(rng);
    if (pick == 0)
        return 0;
    return std::uniform_int_distribution<int>(-2, 75)(rng);
}

enum class Scan { FromOne, FromZero };

void runDifferential(Scan scan, int minKey, bool materializeEveryCall, unsigned seed)
{
    std::mt19937 rng(seed);
    for (int round = 0; round < 3000; ++round) {
        std::map<int, Entry> reference = randomMap(rng, minKey, 40);
        std::map<int, Entry> indexed = reference;
        ScanIndex<Entry> index;
        for (int call = 0; call < 8; ++call) {
            const long long t = randomTime(rng);
            const Entry* want = scan == Scan::FromOne ? zemsub::reference::scanSrtNarrow(reference, t)
                                                      : zemsub::reference::scanSrtWide(reference, t);
            const Entry* got = scan == Scan::FromOne ? index.findFromOneBelowSize(indexed, t)
                                                     : index.findFromZeroWhileBelowSize(indexed, t);
            ASSERT_TRUE(sameEntry(want, got)) << "round " << round << " call " << call << " t " << t;
            ASSERT_EQ((long long)reference.size(), index.size(indexed)) << "round " << round;
            if (materializeEveryCall || call == 7) {
                index.materialize(indexed);
                ASSERT_TRUE(sameMap(reference, indexed)) << "round " << round << " call " << call;
            }
        }
    }
}

}  // namespace

TEST(ScanIndex, EightBitScanGivesThePlainScansAnswersAndMapAfterEveryCall)
{
    runDifferential(Scan::FromOne, -3, true, 1);
}

TEST(ScanIndex, EightBitScanMatchesWhenTheMapIsOnlyMaterializedAtTheEnd)
{
    runDifferential(Scan::FromOne, -3, false, 2);
}

TEST(ScanIndex, WideScanGivesThePlainScansAnswersAndMapAfterEveryCall)
{
    runDifferential(Scan::FromZero, 0, true, 3);
}

TEST(ScanIndex, WideScanMatchesWhenTheMapIsOnlyMaterializedAtTheEnd)
{
    runDifferential(Scan::FromZero, 0, false, 4);
}

TEST(ScanIndex, TimeZeroIsCoveredByTheFirstInsertedEmptyEntry)
{
    std::map<int, Entry> m{{2, {0, 0, "two"}}, {3, {0, 10, "three"}}, {4, {0, 0, "four"}}};
    ScanIndex<Entry> index;
    const Entry* e = index.findFromOneBelowSize(m, 0);
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->text, "");
    index.materialize(m);
    EXPECT_EQ(m.size(), 4u);
    EXPECT_EQ(m.count(1), 1u);
}

TEST(ScanIndex, WideScanOverAHugeGapAnswersWithoutInsertingNodes)
{
    std::map<int, Entry> m{{2000000000, {1000, 2000, "far"}}};
    ScanIndex<Entry> index;
    const Entry* e = index.findFromZeroWhileBelowSize(m, 1500);
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->text, "far");
    EXPECT_EQ(index.size(m), 2000000001LL);
    EXPECT_EQ(m.size(), 1u);  // the inserted run is held as a range
    EXPECT_EQ(index.findFromZeroWhileBelowSize(m, 5000), nullptr);
    EXPECT_EQ(index.size(m), 2000000001LL);
}

TEST(ScanIndex, WideScanWithANegativeKeyRunsThroughTheWholeKeyRange)
{
    std::map<int, Entry> m{{-1, {1000, 2000, "negative"}}, {5, {3000, 4000, "five"}}};
    ScanIndex<Entry> index;
    EXPECT_EQ(index.findFromZeroWhileBelowSize(m, 1500), nullptr);  // key -1 is never scanned
    EXPECT_EQ(index.size(m), 2LL + INT_MAX);                       // keys 0 .. INT_MAX all inserted
    const Entry* e = index.findFromZeroWhileBelowSize(m, 3500);
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->text, "five");
}

TEST(ScanIndex, InvalidateKeepsInsertedEntriesAsNodes)
{
    std::map<int, Entry> m{{1, {0, 5, "a"}}, {4, {10, 20, "b"}}, {9, {30, 40, "c"}}};
    ScanIndex<Entry> index;
    EXPECT_EQ(index.findFromOneBelowSize(m, 100), nullptr);  // keys 1, 2 scanned; 2 inserted
    index.invalidate(m);
    EXPECT_EQ(m.size(), 4u);
    EXPECT_EQ(m.count(2), 1u);
    EXPECT_EQ(index.size(m), 4);
}
