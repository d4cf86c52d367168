#include "strings/xcString.h"

#include "strings/detail/xcStringCore.h"
#include "strings/detail/xcStringTraits.h"

// A thin shell over StringCore: every algorithm is shared with the wide twin;
// the points where the twins differ are the members of NarrowTraits.

namespace {
using Core = zemsub::detail::StringCore<zemsub::detail::NarrowTraits>;
} // namespace

xcString::xcString() {}

xcString::xcString(const char* s) : m_str(s) {}

xcString::xcString(const char* s, int n) : m_str(Core::fromCount(s, n)) {}

xcString::xcString(int v) : m_str(Core::Traits::formatInt(v)) {}

xcString::xcString(const std::string& s) : m_str(s) {}

xcString::xcString(const xcString& other) : m_str(other.m_str) {}

xcString::~xcString() {}

xcString& xcString::operator=(const xcString& other)
{
    if (this != &other)
        m_str = other.m_str;
    return *this;
}

xcString& xcString::operator=(const char* s)
{
    m_str = s;
    return *this;
}

void xcString::deepCopy(const xcString& src, char**, int*)
{
    // The standard string never shares its storage, so a copy is private at once.
    if (this != &src)
        m_str = src.m_str;
}

void xcString::append(const char* s)
{
    m_str.append(s);
}

void xcString::append(const char* s, int n)
{
    m_str.append(s, Core::toSize(n));
}

void xcString::operator+=(const xcString& s)
{
    m_str += s.m_str;
}

void xcString::operator+=(const char* s)
{
    m_str += s;
}

void xcString::operator+=(char c)
{
    m_str += c;
}

void xcString::operator+=(int v)
{
    m_str += Core::Traits::formatInt(v);
}

xcString xcString::operator+(const xcString& s) const
{
    return xcString(m_str + s.m_str);
}

xcString xcString::operator+(const char* s) const
{
    return xcString(m_str + s);
}

xcString xcString::operator+(int v) const
{
    return xcString(m_str + Core::Traits::formatInt(v));
}

int xcString::length() const
{
    return Core::length(m_str);
}

bool xcString::isEmpty()
{
    return m_str.empty();
}

bool xcString::isEmpty() const
{
    return m_str.empty();
}

const char* xcString::getData() const
{
    return m_str.c_str();
}

xcString::operator const char*() const
{
    return m_str.c_str();
}

xcString::operator int() const
{
    return Core::Traits::toInt(m_str);
}

char xcString::getChar(int pos) const
{
    return Core::charAt(m_str, pos);
}

char xcString::operator[](int pos)
{
    return Core::charAt(m_str, pos);
}

void xcString::setchar(int pos, char c)
{
    Core::setCharAt(m_str, pos, c);
}

bool xcString::operator==(const xcString& other) const
{
    return m_str == other.m_str;
}

bool xcString::operator!=(const xcString& other) const
{
    return m_str != other.m_str;
}

bool xcString::operator==(const char* s) const
{
    return m_str == s;
}

bool xcString::operator!=(const char* s) const
{
    return m_str != s;
}

bool xcString::operator<(const xcString& other) const
{
    return m_str.compare(other.m_str) < 0;
}

bool xcString::operator>(const xcString& other) const
{
    return m_str.compare(other.m_str) > 0;
}

bool xcString::isEqualNoCase(const xcString& a, const xcString& b)
{
    return Core::isEqualNoCase(a.m_str, b.m_str);
}

int xcString::find(char c, int start) const
{
    return Core::find(m_str, c, start);
}

int xcString::find(const xcString& s, int start) const
{
    return Core::find(m_str, s.m_str, start);
}

int xcString::findlast(const xcString& set, int start) const
{
    return Core::findlast(m_str, set.m_str, start);
}

xcString xcString::substr(int pos, int count) const
{
    return xcString(Core::substr(m_str, pos, count));
}

xcString xcString::Left(int n)
{
    return xcString(Core::left(m_str, n));
}

xcString xcString::Right(int n)
{
    return xcString(Core::right(m_str, n));
}

void xcString::clear()
{
    m_str.clear();
}

void xcString::erase()
{
    m_str.clear();
}

void xcString::replace(int pos, int count, const xcString& s)
{
    Core::replace(m_str, pos, count, s.m_str);
}

int xcString::deleteStr(int pos, int count)
{
    return Core::deleteStr(m_str, pos, count);
}

void xcString::TrimLeft()
{
    Core::trimLeft(m_str, Core::Traits::space);
}

void xcString::TrimRight()
{
    Core::trimRight(m_str, Core::Traits::space);
}

void xcString::clearSpaces()
{
    Core::clearSpaces(m_str);
}

void xcString::removeLastChar()
{
    Core::removeLastChar(m_str);
}

bool xcString::isNumeric()
{
    return Core::isNumeric(m_str);
}

std::map<int, xcString> xcString::split(const xcString& sep)
{
    return Core::split<xcString>(m_str, sep.m_str);
}

int xcString::match(xcString pattern, xcString* before, bool cut, xcString replacement)
{
    return Core::match(m_str, pattern.m_str, before ? &before->m_str : nullptr, cut, replacement.m_str);
}

void xcString::expand(xcString, xcString, xcString, xcString)
{
    // Inert on purpose: the substitution inside the marked stretch sits behind a
    // guard that only a start-marker position below -1 passes, and no search
    // yields one, so the string is never changed.
}

void xcString::inflate(int width, const xcString& fill, bool atFront)
{
    Core::inflate(m_str, width, fill.m_str, atFront);
}

void xcString::removeQuo()
{
    Core::removeQuo(m_str);
}

void xcString::replaceChars(xcString from, xcString to)
{
    Core::replaceChars(m_str, from.m_str, to.m_str);
}

void xcString::TrimLeft(char c)
{
    Core::trimLeft(m_str, c);
}

void xcString::TrimRight(char c)
{
    Core::trimRight(m_str, c);
}

void xcString::removeSpaces()
{
    Core::removeSpaces(m_str);
}

int xcString::CompareNoCase(const char* s)
{
    return Core::Traits::compareText(m_str.c_str(), s);
}

int xcString::compareNoCase(const char* a, const char* b, int n)
{
    return Core::compareNoCase(a, b, n);
}

int xcString::findNoCase(const xcString& s, int)
{
    return Core::findNoCase(m_str, s.m_str);
}

int xcString::findlastNoCase(const xcString& s, int start)
{
    return Core::findlastNoCase(m_str, s.m_str, start);
}

xcString& xcString::MakeLower()
{
    Core::makeLower(m_str);
    return *this;
}

char* xcString::strlwr(char* p)
{
    return Core::lowerText(p);
}

xcString xcString::xorString(const xcString& a, const xcString& b)
{
    return xcString(Core::xorString(a.m_str, b.m_str));
}
