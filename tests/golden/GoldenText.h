#ifndef ZEMSUB_TESTS_GOLDEN_GOLDENTEXT_H
#define ZEMSUB_TESTS_GOLDEN_GOLDENTEXT_H

#include <cstdint>
#include <functional>
#include <string>

#include "strings/xcString.h"
#include "strings/xcWString.h"

// Printable forms of library text for the stored outputs: quoted, with every
// byte or character outside printable ASCII escaped, so a dump is plain ASCII.
namespace golden {

std::string quoted(const char* s);                  // up to the zero; "null" for null
std::string quoted(const wchar_t* s);
// The whole recorded length, zero bytes and stale characters included.
std::string quoted(const xcString& s);
std::string quoted(const xcWString& s);

// FNV-1a over bytes, as 16 hex digits.
std::string hash(const std::string& bytes);

// A list written in full up to a limit, and past it as its count, its first and
// last items and a hash of every item, so large inputs keep the dump small. An
// item too long for one line is cut, with its length and its hash.
class ListWriter
{
public:
    ListWriter(std::string& out, const std::string& title, size_t count);
    void item(size_t index, const std::string& text);
    void finish();

private:
    std::string& m_out;
    size_t m_count;
    std::string m_all;
};

} // namespace golden

#endif
