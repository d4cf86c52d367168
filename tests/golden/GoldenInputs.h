#ifndef ZEMSUB_TESTS_GOLDEN_GOLDENINPUTS_H
#define ZEMSUB_TESTS_GOLDEN_GOLDENINPUTS_H

#include <string>
#include <vector>

#include "golden/ReaderDumps.h"

// The inputs whose dumps are stored, by set: each set's stored outputs live in
// tests/golden/expected/<set>/<name>.txt.
namespace golden {

struct GoldenSet
{
    std::string name;
    std::vector<GoldenInput> inputs;
};

// The subtitle files of samples/ (an index with the packet file beside it).
GoldenSet sampleInputs(const std::string& sourceDir);
// One set per folder of fuzz/seeds/ and of fuzz/regression/.
std::vector<GoldenSet> fuzzInputs(const std::string& sourceDir);
// Files written for the odd corners of line reading and of each format.
GoldenSet quirkyInputs();

} // namespace golden

#endif
