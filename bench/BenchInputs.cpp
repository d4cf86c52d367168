#include "BenchInputs.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace bench {

namespace {

std::string srtTime(long long ms)
{
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02lld:%02lld:%02lld,%03lld", ms / 3600000, ms / 60000 % 60, ms / 1000 % 60,
                  ms % 1000);
    return buf;
}

std::string assTime(long long ms)
{
    char buf[32];
    std::snprintf(buf, sizeof buf, "%lld:%02lld:%02lld.%02lld", ms / 3600000, ms / 60000 % 60, ms / 1000 % 60,
                  ms % 1000 / 10);
    return buf;
}

const std::string& tempDir()
{
    static const std::string dir = [] {
        std::string pattern = (std::filesystem::temp_directory_path() / "zemsub-bench-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            throw std::runtime_error("mkdtemp failed");
        return pattern;
    }();
    return dir;
}

}  // namespace

std::string captionText(int i)
{
    return "Caption number " + std::to_string(i) + " on the first line\nand its second line, " +
           std::to_string(i * 7 % 1000) + " words";
}

std::string srtText(int entries)
{
    std::string out;
    for (int k = 1; k <= entries; ++k) {
        out += std::to_string(k) + "\n";
        out += srtTime(k * 3000LL) + " --> " + srtTime(k * 3000LL + 2000) + "\n";
        out += "Caption number " + std::to_string(k) + " on the first line\n";
        out += "and its second line\n\n";
    }
    return out;
}

std::string assText(int dialogues)
{
    std::string out = "[Script Info]\nScriptType: v4.00+\nPlayResX: 1920\nPlayResY: 1080\n\n"
                      "[V4+ Styles]\nFormat: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, "
                      "OutlineColour, BackColour, Bold, Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, "
                      "Angle, BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, Encoding\n"
                      "Style: Default,DejaVu Sans,48,&H00FFFFFF,&H000000FF,&H00000000,&H00000000,0,0,0,0,100,100,"
                      "0,0,1,2,0,2,10,10,30,1\n\n"
                      "[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n";
    for (int k = 1; k <= dialogues; ++k)
        out += "Dialogue: 0," + assTime(k * 3000LL) + "," + assTime(k * 3000LL + 2000) +
               ",Default,,0,0,0,,{\\i1}Caption number " + std::to_string(k) + "{\\i0} on the first line\\Nand its "
               "second line\n";
    return out;
}

std::string taggedText(size_t bytes)
{
    std::string out;
    out.reserve(bytes + 64);
    int i = 0;
    while (out.size() < bytes) {
        out += (i % 3 == 0) ? "{\\b1}word " : (i % 3 == 1) ? "<i>text</i> " : "plain\\Nline ";
        ++i;
    }
    return out;
}

std::string writeTemp(const std::string& name, const std::string& bytes)
{
    const std::string path = tempDir() + "/" + name;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), std::streamsize(bytes.size()));
    return path;
}

}  // namespace bench
