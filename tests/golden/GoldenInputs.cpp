#include "golden/GoldenInputs.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace golden {
namespace {

namespace fs = std::filesystem;

std::string readFile(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::vector<fs::path> sortedFiles(const fs::path& dir)
{
    std::vector<fs::path> files;
    if (fs::is_directory(dir))
        for (const auto& e : fs::directory_iterator(dir))
            if (e.is_regular_file())
                files.push_back(e.path());
    std::sort(files.begin(), files.end());
    return files;
}

void addFolder(std::vector<GoldenSet>& sets, const fs::path& root, const std::string& prefix)
{
    std::vector<fs::path> dirs;
    if (fs::is_directory(root))
        for (const auto& e : fs::directory_iterator(root))
            if (e.is_directory())
                dirs.push_back(e.path());
    std::sort(dirs.begin(), dirs.end());
    for (const fs::path& dir : dirs) {
        GoldenSet set{prefix + "/" + dir.filename().string(), {}};
        for (const fs::path& file : sortedFiles(dir))
            set.inputs.push_back({file.filename().string(), readFile(file), "", false});
        sets.push_back(set);
    }
}

} // namespace

GoldenSet sampleInputs(const std::string& sourceDir)
{
    GoldenSet set{"samples", {}};
    for (const fs::path& file : sortedFiles(fs::path(sourceDir) / "samples")) {
        if (file.extension() == ".sub")
            continue;   // packet data, read beside its index
        GoldenInput input{file.filename().string(), readFile(file), "", false};
        fs::path sub = file;
        sub.replace_extension(".sub");
        if (file.extension() == ".idx" && fs::exists(sub)) {
            input.subBytes = readFile(sub);
            input.hasSub = true;
        }
        set.inputs.push_back(input);
    }
    return set;
}

std::vector<GoldenSet> fuzzInputs(const std::string& sourceDir)
{
    std::vector<GoldenSet> sets;
    addFolder(sets, fs::path(sourceDir) / "fuzz" / "seeds", "seeds");
    addFolder(sets, fs::path(sourceDir) / "fuzz" / "regression", "regression");
    return sets;
}

} // namespace golden
