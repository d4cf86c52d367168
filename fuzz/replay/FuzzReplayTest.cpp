// Runs every file of fuzz/seeds/<target>/ and fuzz/regression/<target>/ through
// its fuzz target, built here without libFuzzer: each input must be answered
// without a crash, a failed check, a hang or (under LeakSanitizer) a leak.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "FuzzTargets.h"

namespace {

using TargetFunction = int (*)(const uint8_t*, size_t);

struct ReplayCase
{
    std::string target;
    std::string corpus; // "seeds" or "regression"
    std::string path;
    TargetFunction run;
    std::string openFinding; // from fuzz/regression/OPEN_FINDINGS; empty when none
};

// fuzz/regression/OPEN_FINDINGS: one line per input that still gives a finding
// ("<corpus>/<target>/<file> <what>"); those inputs replay disabled until fixed.
std::map<std::string, std::string> openFindings()
{
    std::map<std::string, std::string> out;
    std::ifstream in(std::string(ZEMSUB_SOURCE_DIR) + "/fuzz/regression/OPEN_FINDINGS");
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        const size_t blank = line.find(' ');
        out[line.substr(0, blank)] = blank == std::string::npos ? "" : line.substr(blank + 1);
    }
    return out;
}

std::vector<ReplayCase> allCases()
{
    struct Target
    {
        const char* name;
        TargetFunction run;
    };
#define ZEMSUB_FUZZ_ENTRY(name) {#name, fuzz_##name},
    const Target targets[] = {ZEMSUB_FUZZ_TARGETS(ZEMSUB_FUZZ_ENTRY)};
#undef ZEMSUB_FUZZ_ENTRY

    const std::map<std::string, std::string> open = openFindings();
    std::vector<ReplayCase> cases;
    for (const Target& t : targets) {
        for (const char* corpus : {"seeds", "regression"}) {
            const std::filesystem::path dir =
                std::filesystem::path(ZEMSUB_SOURCE_DIR) / "fuzz" / corpus / t.name;
            std::error_code ec;
            std::vector<std::string> files;
            for (const auto& entry : std::filesystem::directory_iterator(dir, ec))
                if (entry.is_regular_file() && entry.path().filename().string()[0] != '.')
                    files.push_back(entry.path().string());
            std::sort(files.begin(), files.end());
            for (const std::string& f : files) {
                const std::string key =
                    std::string(corpus) + "/" + t.name + "/" + std::filesystem::path(f).filename().string();
                const auto finding = open.find(key);
                cases.push_back({t.name, corpus, f, t.run, finding == open.end() ? "" : finding->second});
            }
        }
    }
    return cases;
}

std::string caseName(const testing::TestParamInfo<ReplayCase>& info)
{
    std::string name = info.param.target + "_" + info.param.corpus + "_" +
                       std::filesystem::path(info.param.path).filename().string();
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c)))
            c = '_';
    return name + "_" + std::to_string(info.index);
}

void PrintTo(const ReplayCase& c, std::ostream* out)
{
    *out << c.path;
}

class FuzzReplay : public testing::TestWithParam<ReplayCase>
{
};

TEST_P(FuzzReplay, InputIsAnsweredWithoutCrashHangOrLeak)
{
    const ReplayCase& c = GetParam();
    std::ifstream in(c.path, std::ios::binary);
    ASSERT_TRUE(in) << c.path;
    const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    // Printed first, so that a crash names its input.
    std::fprintf(stderr, "replaying %s through fuzz_%s\n", c.path.c_str(), c.target.c_str());
    EXPECT_EQ(c.run(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()), 0);
}

std::vector<ReplayCase> casesWhere(bool openFinding)
{
    std::vector<ReplayCase> out;
    for (ReplayCase& c : allCases())
        if (c.openFinding.empty() != openFinding)
            out.push_back(c);
    return out;
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(FuzzReplay);
INSTANTIATE_TEST_SUITE_P(Corpus, FuzzReplay, testing::ValuesIn(casesWhere(false)), caseName);
// Inputs whose finding is reported and not fixed yet.
INSTANTIATE_TEST_SUITE_P(DISABLED_OpenFindings, FuzzReplay, testing::ValuesIn(casesWhere(true)), caseName);

TEST(FuzzCorpora, EveryTargetHasSeeds)
{
    std::vector<std::string> withSeeds;
    for (const ReplayCase& c : allCases())
        if (c.corpus == "seeds")
            withSeeds.push_back(c.target);
#define ZEMSUB_FUZZ_EXPECT_SEEDS(name)                                                                       \
    EXPECT_NE(std::find(withSeeds.begin(), withSeeds.end(), #name), withSeeds.end()) << #name;
    ZEMSUB_FUZZ_TARGETS(ZEMSUB_FUZZ_EXPECT_SEEDS)
#undef ZEMSUB_FUZZ_EXPECT_SEEDS
}

} // namespace
