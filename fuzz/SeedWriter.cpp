// Writes the odd-corner files of the stored reader outputs into a folder, one
// file per input, so that fuzz/run.sh can start every target from them too.
//   zemsub_seed_writer <folder>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "golden/GoldenInputs.h"

namespace golden {
// The marker the index targets split their input at, as the stored outputs do.
const char* const kSubMarker = "%%SUB%%\n";
} // namespace golden

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: zemsub_seed_writer <folder>\n");
        return 2;
    }
    const std::filesystem::path folder(argv[1]);
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    for (const golden::GoldenInput& input : golden::quirkyInputs().inputs) {
        std::ofstream out(folder / input.name, std::ios::binary);
        out << input.bytes;
        if (!out) {
            std::fprintf(stderr, "zemsub_seed_writer: cannot write %s\n", (folder / input.name).c_str());
            return 1;
        }
    }
    return 0;
}
