#include "golden/GoldenText.h"

#include <cstdio>

namespace golden {
namespace {

constexpr size_t kFullList = 240;
constexpr size_t kEnds = 60;
constexpr size_t kFullItem = 1000;
constexpr size_t kItemHead = 200;

void putChar(std::string& out, unsigned long c)
{
    if (c == '"' || c == '\\') {
        out += '\\';
        out += char(c);
    } else if (c >= 0x20 && c < 0x7F) {
        out += char(c);
    } else {
        char buf[24];
        std::snprintf(buf, sizeof buf, c < 0x100 ? "\\x%02lX" : "\\u{%lX}", c);
        out += buf;
    }
}

} // namespace

std::string quoted(const char* s)
{
    if (!s)
        return "null";
    std::string out = "\"";
    for (; *s; ++s)
        putChar(out, (unsigned char)*s);
    return out + "\"";
}

std::string quoted(const wchar_t* s)
{
    if (!s)
        return "null";
    std::string out = "\"";
    for (; *s; ++s)
        putChar(out, (unsigned long)(uint32_t)*s);
    return out + "\"";
}

std::string quoted(const xcString& s)
{
    std::string out = "\"";
    for (int i = 0; i < s.length(); ++i)
        putChar(out, (unsigned char)s.getData()[i]);
    return out + "\"";
}

std::string quoted(const xcWString& s)
{
    std::string out = "\"";
    for (int i = 0; i < s.length(); ++i)
        putChar(out, (unsigned long)(uint32_t)s.getData()[i]);
    return out + "\"";
}

std::string hash(const std::string& bytes)
{
    uint64_t h = 14695981039346656037ull;
    for (unsigned char c : bytes) {
        h ^= c;
        h *= 1099511628211ull;
    }
    char buf[20];
    std::snprintf(buf, sizeof buf, "%016llx", (unsigned long long)h);
    return buf;
}

ListWriter::ListWriter(std::string& out, const std::string& title, size_t count) : m_out(out), m_count(count)
{
    m_out += title + ": " + std::to_string(count) + "\n";
}

void ListWriter::item(size_t index, const std::string& text)
{
    std::string line = "  " + std::to_string(index) + " ";
    if (text.size() <= kFullItem)
        line += text + "\n";
    else
        line += text.substr(0, kItemHead) + "... (" + std::to_string(text.size()) + " characters, " + hash(text) +
                ")\n";
    if (m_count <= kFullList || index < kEnds || index + kEnds >= m_count)
        m_out += line;
    else if (index == kEnds)
        m_out += "  ...\n";
    if (m_count > kFullList)
        m_all += line;
}

void ListWriter::finish()
{
    if (m_count > kFullList)
        m_out += "  all: " + hash(m_all) + "\n";
}

} // namespace golden
