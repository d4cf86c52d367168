#include "strings/xcWString.h"

#include "strings/detail/xcStringCore.h"
#include "strings/detail/xcStringTraits.h"

// A thin shell over StringCore: every algorithm is shared with the narrow twin;
// the points where the twins differ are the members of WideTraits.

namespace {
using Core = zemsub::detail::StringCore<zemsub::detail::WideTraits>;
} // namespace

xcWString::xcWString() {}

xcWString::xcWString(const wchar_t* s) : m_str(s) {}

xcWString::xcWString(const wchar_t* s, int n) : m_str(Core::fromCount(s, n)) {}

xcWString::xcWString(int v) : m_str(Core::Traits::formatInt(v)) {}

xcWString::xcWString(const std::wstring& s) : m_str(s) {}

xcWString::xcWString(const xcWString& other) : m_str(other.m_str) {}

xcWString::~xcWString() {}

xcWString& xcWString::operator=(const xcWString& other)
{
    if (this != &other)
        m_str = other.m_str;
    return *this;
}

xcWString& xcWString::operator=(const wchar_t* s)
{
    m_str = s;
    return *this;
}

void xcWString::deepCopy(const xcWString& src, wchar_t**, int*)
{
    // The standard string never shares its storage, so a copy is private at once.
    if (this != &src)
        m_str = src.m_str;
}

void xcWString::append(const wchar_t* s)
{
    m_str.append(s);
}

void xcWString::append(const wchar_t* s, int n)
{
    m_str.append(s, Core::toSize(n));
}

void xcWString::operator+=(const xcWString& s)
{
    m_str += s.m_str;
}

void xcWString::operator+=(const wchar_t* s)
{
    m_str += s;
}

void xcWString::operator+=(wchar_t c)
{
    m_str += c;
}

void xcWString::operator+=(int v)
{
    m_str += Core::Traits::formatInt(v);
}

xcWString xcWString::operator+(const xcWString& s) const
{
    return xcWString(m_str + s.m_str);
}

xcWString xcWString::operator+(const wchar_t* s) const
{
    return xcWString(m_str + s);
}

xcWString xcWString::operator+(int v) const
{
    return xcWString(m_str + Core::Traits::formatInt(v));
}

int xcWString::length() const
{
    return Core::length(m_str);
}

bool xcWString::isEmpty()
{
    return m_str.empty();
}

bool xcWString::isEmpty() const
{
    return m_str.empty();
}

const wchar_t* xcWString::getData() const
{
    return m_str.c_str();
}

xcWString::operator const wchar_t*() const
{
    return m_str.c_str();
}

xcWString::operator int() const
{
    return Core::Traits::toInt(m_str);
}

wchar_t xcWString::getChar(int pos) const
{
    return Core::charAt(m_str, pos);
}

wchar_t xcWString::operator[](int pos)
{
    return Core::charAt(m_str, pos);
}

void xcWString::setchar(int pos, wchar_t c)
{
    Core::setCharAt(m_str, pos, c);
}

bool xcWString::operator==(const xcWString& other) const
{
    return m_str == other.m_str;
}

bool xcWString::operator!=(const xcWString& other) const
{
    return m_str != other.m_str;
}

bool xcWString::operator==(const wchar_t* s) const
{
    return m_str == s;
}

bool xcWString::operator!=(const wchar_t* s) const
{
    return m_str != s;
}

bool xcWString::operator<(const xcWString& other) const
{
    return m_str.compare(other.m_str) < 0;
}

bool xcWString::operator>(const xcWString& other) const
{
    return m_str.compare(other.m_str) > 0;
}

bool xcWString::isEqualNoCase(const xcWString& a, const xcWString& b)
{
    return Core::isEqualNoCase(a.m_str, b.m_str);
}

int xcWString::find(wchar_t c, int start) const
{
    return Core::find(m_str, c, start);
}

int xcWString::find(const xcWString& s, int start) const
{
    return Core::find(m_str, s.m_str, start);
}

int xcWString::findlast(const xcWString& set, int start) const
{
    return Core::findlast(m_str, set.m_str, start);
}

xcWString xcWString::substr(int pos, int count) const
{
    return xcWString(Core::substr(m_str, pos, count));
}

xcWString xcWString::Left(int n)
{
    return xcWString(Core::left(m_str, n));
}

xcWString xcWString::Right(int n)
{
    return xcWString(Core::right(m_str, n));
}

void xcWString::clear()
{
    m_str.clear();
}

void xcWString::erase()
{
    m_str.clear();
}

void xcWString::replace(int pos, int count, const xcWString& s)
{
    Core::replace(m_str, pos, count, s.m_str);
}

int xcWString::deleteStr(int pos, int count)
{
    return Core::deleteStr(m_str, pos, count);
}

void xcWString::TrimLeft()
{
    Core::trimLeft(m_str, Core::Traits::space);
}

void xcWString::TrimRight()
{
    Core::trimRight(m_str, Core::Traits::space);
}

void xcWString::clearSpaces()
{
    Core::clearSpaces(m_str);
}

void xcWString::removeLastChar()
{
    Core::removeLastChar(m_str);
}

bool xcWString::isNumeric()
{
    return Core::isNumeric(m_str);
}

std::map<int, xcWString> xcWString::split(const xcWString& sep)
{
    return Core::split<xcWString>(m_str, sep.m_str);
}

int xcWString::match(xcWString pattern, xcWString* before, bool cut, xcWString replacement)
{
    return Core::match(m_str, pattern.m_str, before ? &before->m_str : nullptr, cut, replacement.m_str);
}

void xcWString::expand(xcWString, xcWString, xcWString, xcWString)
{
    // Inert on purpose: the substitution inside the marked stretch sits behind a
    // guard that only a start-marker position below -1 passes, and no search
    // yields one, so the string is never changed.
}

void xcWString::inflate(int width, const xcWString& fill, bool atFront)
{
    Core::inflate(m_str, width, fill.m_str, atFront);
}

void xcWString::removeQuo()
{
    Core::removeQuo(m_str);
}

void xcWString::replaceChars(xcWString from, xcWString to)
{
    Core::replaceChars(m_str, from.m_str, to.m_str);
}

void xcWString::TrimLeft(wchar_t c)
{
    Core::trimLeft(m_str, c);
}

void xcWString::TrimRight(wchar_t c)
{
    Core::trimRight(m_str, c);
}

void xcWString::removeSpaces()
{
    Core::removeSpaces(m_str);
}

int xcWString::CompareNoCase(const wchar_t* s)
{
    return Core::Traits::compareText(m_str.c_str(), s);
}

int xcWString::compareNoCase(const wchar_t* a, const wchar_t* b, int n)
{
    return Core::compareNoCase(a, b, n);
}

int xcWString::findNoCase(const xcWString& s, int)
{
    return Core::findNoCase(m_str, s.m_str);
}

int xcWString::findlastNoCase(const xcWString& s, int start)
{
    return Core::findlastNoCase(m_str, s.m_str, start);
}

xcWString& xcWString::MakeLower()
{
    Core::makeLower(m_str);
    return *this;
}

wchar_t* xcWString::wcslwr(wchar_t* p)
{
    return Core::lowerText(p);
}

xcWString xcWString::xorString(const xcWString& a, const xcWString& b)
{
    return xcWString(Core::xorString(a.m_str, b.m_str));
}
