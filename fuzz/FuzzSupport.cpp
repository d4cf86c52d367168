#include "FuzzSupport.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// glibc's chain of the process's open streams (every FILE that fopen made).
extern "C" FILE* _IO_list_all;

namespace zemsub::fuzz {

void fail(const char* what, const char* file, int line)
{
    std::fprintf(stderr, "zemsub fuzz check failed: %s (%s:%d)\n", what, file, line);
    std::abort();
}

namespace {

std::string makeScratchDir()
{
    std::string base = "/dev/shm";
    if (access(base.c_str(), W_OK) != 0) {
        const char* tmp = std::getenv("TMPDIR");
        base = tmp && *tmp ? tmp : "/tmp";
    }
    std::string pattern = base + "/zemsub-fuzz-XXXXXX";
    if (!mkdtemp(pattern.data()))
        fail("mkdtemp of the scratch directory", __FILE__, __LINE__);
    return pattern;
}

void removeScratchDir()
{
    const std::string& dir = scratchDir();
    if (DIR* d = opendir(dir.c_str())) {
        while (dirent* e = readdir(d)) {
            if (std::strcmp(e->d_name, ".") != 0 && std::strcmp(e->d_name, "..") != 0)
                unlink((dir + "/" + e->d_name).c_str());
        }
        closedir(d);
    }
    rmdir(dir.c_str());
}

} // namespace

const std::string& scratchDir()
{
    static const std::string dir = [] {
        std::string made = makeScratchDir();
        return made;
    }();
    static const bool cleanup = [] { return std::atexit(removeScratchDir) == 0; }();
    (void)cleanup;
    return dir;
}

std::string writeScratch(const std::string& name, const uint8_t* data, size_t size)
{
    const std::string path = scratchDir() + "/" + name;
    FILE* f = std::fopen(path.c_str(), "wb");
    if (!f)
        fail("cannot create a scratch file", __FILE__, __LINE__);
    if (size && std::fwrite(data, 1, size, f) != size)
        fail("cannot write a scratch file", __FILE__, __LINE__);
    std::fclose(f);
    return path;
}

std::string writeScratch(const std::string& name, const std::string& bytes)
{
    return writeScratch(name, reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

void removeScratch(const std::string& name)
{
    unlink((scratchDir() + "/" + name).c_str());
}

ScratchCwd::ScratchCwd()
{
    char buf[PATH_MAX];
    if (getcwd(buf, sizeof buf))
        m_previous = buf;
    if (chdir(scratchDir().c_str()) != 0)
        fail("chdir into the scratch directory", __FILE__, __LINE__);
}

ScratchCwd::~ScratchCwd()
{
    if (!m_previous.empty() && chdir(m_previous.c_str()) != 0)
        fail("chdir back from the scratch directory", __FILE__, __LINE__);
}

CtypeLocale::CtypeLocale(const char* name)
{
    if (const char* now = std::setlocale(LC_CTYPE, nullptr))
        m_previous = now;
    if (!std::setlocale(LC_CTYPE, name))
        fail("setlocale of a locale the targets need", __FILE__, __LINE__);
}

CtypeLocale::~CtypeLocale()
{
    std::setlocale(LC_CTYPE, m_previous.empty() ? "C" : m_previous.c_str());
}

const std::vector<const char*>& wideLocales()
{
    static const std::vector<const char*> names = [] {
        std::vector<const char*> out;
        for (const char* candidate : {"C.UTF-8", "C.utf8"}) {
            if (std::setlocale(LC_CTYPE, candidate)) {
                out.push_back(candidate);
                break;
            }
        }
        std::setlocale(LC_CTYPE, "C");
        out.push_back("C");
        return out;
    }();
    return names;
}

int openDescriptors()
{
    int count = 0;
    if (DIR* dir = opendir("/proc/self/fd")) {
        while (dirent* e = readdir(dir))
            if (e->d_name[0] != '.')
                ++count;
        closedir(dir);
        --count; // the directory stream itself
    }
    return count;
}

bool closeStreamLeftOpen(const std::string& path)
{
    struct stat wanted;
    if (stat(path.c_str(), &wanted) != 0)
        return false;
    for (FILE* f = _IO_list_all; f; f = f->_chain) {
        struct stat held;
        if (f->_fileno >= 0 && fstat(f->_fileno, &held) == 0 && held.st_dev == wanted.st_dev &&
            held.st_ino == wanted.st_ino) {
            std::fclose(f);
            return true;
        }
    }
    return false;
}

DescriptorCheck::DescriptorCheck() : m_before(openDescriptors())
{
}

void DescriptorCheck::verify() const
{
    FUZZ_CHECK(openDescriptors() <= m_before);
}

uint8_t ByteReader::byte()
{
    return m_pos < m_size ? m_data[m_pos++] : 0;
}

int ByteReader::smallInt(int limit)
{
    const int range = limit + 7;
    return int(byte()) % (range > 0 ? range : 1) - 3;
}

int ByteReader::anyInt()
{
    switch (byte() % 6) {
    case 0:
        return INT_MIN;
    case 1:
        return INT_MAX;
    case 2:
        return -1;
    case 3:
        return int(byte()) - 128;
    default: {
        unsigned v = 0;
        for (int i = 0; i < 4; ++i)
            v = (v << 8) | byte();
        return int(v);
    }
    }
}

char ByteReader::interestingChar()
{
    static const char alphabet[] = {' ', ' ', '"', '\r', '\n', '{', '}', '<', '>', '\\', 'N',    'n',   'a',
                                    'A', 'b', 'B', '0',  '1',  '9', ',', ':', '-', '\0', '\x80', '\xe9'};
    const uint8_t b = byte();
    if (b >= 0xF0)
        return char(b); // now and then any byte at all
    return alphabet[b % sizeof alphabet];
}

std::string ByteReader::shortText(int maxLength)
{
    const int n = maxLength > 0 ? byte() % (maxLength + 1) : 0;
    std::string out;
    for (int i = 0; i < n; ++i)
        out += interestingChar();
    return out;
}

std::vector<long long> lookupTimes(const std::vector<std::pair<long long, long long>>& bounds)
{
    std::vector<long long> times = {
        LLONG_MIN, -1, 0, 1, 2, 499, 500, 999, 1000, 1001, INT_MAX, (long long)INT_MAX + 1, LLONG_MAX};
    const size_t n = bounds.size();
    for (size_t i = 0; i < n; ++i) {
        if (i >= 8 && i + 4 < n)
            continue; // the first eight and the last four
        const auto [start, end] = bounds[i];
        for (long long t : {start, end}) {
            times.push_back(t);
            if (t > LLONG_MIN)
                times.push_back(t - 1);
            if (t < LLONG_MAX)
                times.push_back(t + 1);
        }
    }
    return times;
}

SplitInput splitAt(const uint8_t* data, size_t size, const std::string& marker)
{
    SplitInput out;
    const std::string all(reinterpret_cast<const char*>(data), size);
    const size_t at = all.find(marker);
    if (at == std::string::npos) {
        out.first = all;
        return out;
    }
    out.first = all.substr(0, at);
    out.second = all.substr(at + marker.size());
    out.hasSecond = true;
    return out;
}

} // namespace zemsub::fuzz
