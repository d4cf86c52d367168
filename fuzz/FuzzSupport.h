#ifndef ZEMSUB_FUZZ_FUZZSUPPORT_H
#define ZEMSUB_FUZZ_FUZZSUPPORT_H

// Helpers shared by the fuzz targets: a scratch directory for input files,
// locale and working-directory scopes, a descriptor-leak check, a byte reader
// and the check macro that turns a broken expectation into a crash.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zemsub::fuzz {

// Prints what failed and aborts: libFuzzer records the input as a crash.
[[noreturn]] void fail(const char* what, const char* file, int line);

#define FUZZ_CHECK(cond) ((cond) ? (void)0 : ::zemsub::fuzz::fail(#cond, __FILE__, __LINE__))

// The process's scratch directory (created once, removed at exit). Prefers /dev/shm.
const std::string& scratchDir();

// Writes bytes to name (relative to the scratch directory) and answers the full path.
std::string writeScratch(const std::string& name, const uint8_t* data, size_t size);
std::string writeScratch(const std::string& name, const std::string& bytes);
void removeScratch(const std::string& name);

// Makes the scratch directory the working directory for its lifetime, so that
// targets can hand relative paths (with exactly the dots they choose) to the library.
class ScratchCwd
{
public:
    ScratchCwd();
    ~ScratchCwd();
    ScratchCwd(const ScratchCwd&) = delete;
    ScratchCwd& operator=(const ScratchCwd&) = delete;

private:
    std::string m_previous;
};

// Sets LC_CTYPE for its lifetime (the wide parsers decode through it).
class CtypeLocale
{
public:
    explicit CtypeLocale(const char* name);
    ~CtypeLocale();
    CtypeLocale(const CtypeLocale&) = delete;
    CtypeLocale& operator=(const CtypeLocale&) = delete;

private:
    std::string m_previous;
};

// The locales every wide target runs each input under: one that decodes UTF-8
// and the plain C locale, which refuses every byte above 127.
const std::vector<const char*>& wideLocales();

// Number of descriptors the process holds; the check at the end of a target
// catches a file left open on any path.
int openDescriptors();

// The wide script parser's int 1 leaves Open with its stream still open, as
// the parser is meant to. Finds the one stream of the process that is open on
// path, closes it, and answers whether there was one; a long fuzz run would
// otherwise run out of descriptors.
bool closeStreamLeftOpen(const std::string& path);

class DescriptorCheck
{
public:
    DescriptorCheck();
    // Crashes when the process holds more descriptors than when constructed.
    void verify() const;

private:
    int m_before;
};

// Reads small values off the front of an input; past the end everything is 0.
class ByteReader
{
public:
    ByteReader(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}

    bool empty() const { return m_pos >= m_size; }
    uint8_t byte();
    // A position or count near the interesting range: -3 up to limit + 3.
    int smallInt(int limit);
    // A value from the whole int range, weighted toward edges.
    int anyInt();
    // A character from an alphabet that the string operations react to.
    char interestingChar();
    // Up to maxLength characters of interestingChar().
    std::string shortText(int maxLength);

private:
    const uint8_t* m_data;
    size_t m_size;
    size_t m_pos = 0;
};

// Play times to ask a parser for: fixed edge values plus the neighbours of the
// given entry bounds (at most a few dozen in all).
std::vector<long long> lookupTimes(const std::vector<std::pair<long long, long long>>& bounds);

// Splits an input into the part before the first occurrence of marker and the
// part after it; without the marker, the second part is absent.
struct SplitInput
{
    std::string first;
    std::string second;
    bool hasSecond = false;
};
SplitInput splitAt(const uint8_t* data, size_t size, const std::string& marker);

} // namespace zemsub::fuzz

#endif
