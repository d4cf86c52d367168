#include "support/TestFiles.h"

#include <dirent.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

TempDir::TempDir()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "zemsub-test-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("mkdtemp failed");
    m_path = pattern;
}

TempDir::~TempDir()
{
    std::error_code ec;
    std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, ec);
    std::filesystem::remove_all(m_path, ec);
}

std::string TempDir::file(const std::string& name) const
{
    return m_path + "/" + name;
}

std::string TempDir::write(const std::string& name, const std::string& bytes) const
{
    const std::string path = file(name);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out)
        throw std::runtime_error("cannot write " + path);
    return path;
}

InDirectory::InDirectory(const std::string& dir)
{
    char buf[PATH_MAX];
    if (!getcwd(buf, sizeof buf))
        throw std::runtime_error("getcwd failed");
    m_previous = buf;
    if (chdir(dir.c_str()) != 0)
        throw std::runtime_error("chdir failed");
}

InDirectory::~InDirectory()
{
    if (chdir(m_previous.c_str()) != 0)
        std::abort();
}

std::string utf16le(const std::string& latin1, bool withMark)
{
    std::string out;
    if (withMark)
        out += "\xFF\xFE";
    for (unsigned char c : latin1) {
        out += static_cast<char>(c);
        out += '\0';
    }
    return out;
}

std::string withMark(const std::string& bytes)
{
    return std::string("\xFF\xFE") + bytes;
}

std::string withUtf8Characters(const std::string& bytes, std::mt19937& random, unsigned oneIn)
{
    static const char* const characters[] = {"\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xEF\xBF\xBF"};
    std::string out;
    for (char c : bytes) {
        if (c != '\n' && random() % oneIn == 0)
            out += characters[random() % 4];
        else
            out += c;
    }
    return out;
}

int openDescriptorCount()
{
    int count = 0;
    if (DIR* dir = opendir("/proc/self/fd")) {
        while (dirent* e = readdir(dir))
            if (e->d_name[0] != '.')
                ++count;
        closedir(dir);
        --count;  // the directory stream itself
    }
    return count;
}

std::string substationScript(const std::string& ending)
{
    return "[Script Info]\nScriptType: v4.00\n\n[V4 Styles]\n"
           "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, TertiaryColour, BackColour, "
           "Bold, Italic, BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, AlphaLevel, "
           "Encoding\n"
           "Style: Default,Arial,28,16777215,65535,0,0,0,0,1,2,1,2,20,20,20,0,0\n\n[Events]\n"
           "Format: Marked, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
           "Dialogue: Marked=0,0:00:01.00,0:00:02.00,Default,,0000,0000,0000,,One\n"
           "Dialogue: Marked=0,0:00:03.00,0:00:04.00,Default,,0000,0000,0000,,Two\n"
           "Dialogue: Marked=0,0:00:05.00,0:00:06.00,Default,,0000,0000,0000,,Three\n"
           "Sound: Marked=0,0:00:06.50,0:00:07.00,Default,,0000,0000,0000,,bell.wav\n"
           "Dialogue: Marked=0,0:00:07.00,0:00:08.00,Default,,0000,0000,0000,,Four" +
           ending;
}
