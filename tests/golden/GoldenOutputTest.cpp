// Every reader's whole output for the samples, the fuzz seeds and the quirky
// files, compared byte for byte with the stored dumps in tests/golden/expected/.
// With ZEMSUB_GOLDEN_UPDATE=1 in the environment the dumps are written instead
// (see tests/golden/README.md).
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "golden/GoldenInputs.h"
#include "golden/ReaderDumps.h"

namespace {

namespace fs = std::filesystem;

fs::path expectedDir()
{
    return fs::path(ZEMSUB_SOURCE_DIR) / "tests" / "golden" / "expected";
}

bool updating()
{
    const char* v = std::getenv("ZEMSUB_GOLDEN_UPDATE");
    return v && std::string(v) == "1";
}

std::string readFile(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The first line where two dumps differ, for the failure message.
std::string firstDifference(const std::string& expected, const std::string& actual)
{
    std::istringstream e(expected), a(actual);
    std::string el, al;
    for (int line = 1;; ++line) {
        const bool he = bool(std::getline(e, el)), ha = bool(std::getline(a, al));
        if (!he && !ha)
            return "no line differs";
        if (!he || !ha || el != al)
            return "line " + std::to_string(line) + ":\n  stored: " + (he ? el : "<end>") +
                   "\n  now:    " + (ha ? al : "<end>");
    }
}

void checkSet(const golden::GoldenSet& set)
{
    const fs::path dir = expectedDir() / set.name;
    std::set<std::string> names;
    for (const golden::GoldenInput& input : set.inputs) {
        const std::string name = input.name + ".txt";
        names.insert(name);
        const std::string actual = golden::dumpReaders(input);
        const fs::path stored = dir / name;
        if (updating()) {
            fs::create_directories(dir);
            std::ofstream(stored, std::ios::binary | std::ios::trunc) << actual;
            continue;
        }
        ASSERT_TRUE(fs::exists(stored)) << stored << " is missing";
        const std::string expected = readFile(stored);
        EXPECT_TRUE(expected == actual) << set.name << "/" << input.name << " differs at "
                                        << firstDifference(expected, actual);
    }
    // A stored dump without its input is stale.
    if (fs::is_directory(dir))
        for (const auto& e : fs::directory_iterator(dir)) {
            if (!e.is_regular_file() || names.count(e.path().filename().string()))
                continue;
            if (updating())
                fs::remove(e.path());
            else
                ADD_FAILURE() << e.path() << " has no input";
        }
}

TEST(GoldenOutput, Samples)
{
    checkSet(golden::sampleInputs(ZEMSUB_SOURCE_DIR));
}

TEST(GoldenOutput, FuzzSeedsAndRegressions)
{
    const std::vector<golden::GoldenSet> sets = golden::fuzzInputs(ZEMSUB_SOURCE_DIR);
    ASSERT_FALSE(sets.empty());
    for (const golden::GoldenSet& set : sets)
        checkSet(set);
}

TEST(GoldenOutput, QuirkyFiles)
{
    checkSet(golden::quirkyInputs());
}

} // namespace
