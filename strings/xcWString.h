#ifndef ZEMSUB_XCWSTRING_H
#define ZEMSUB_XCWSTRING_H

#include <map>
#include <string>

#include "zemsubtitle_export.h"

// Wide-character twin of xcString (one wchar_t per character), used by the
// parsers of files that begin with FF FE. Same operations and quirks as
// xcString, except where a declaration below says otherwise.
class ZEMSUB_EXPORT xcWString
{
public:
    xcWString();
    xcWString(const wchar_t* s);                 // characters up to the terminating zero
    xcWString(const wchar_t* s, int n);          // exactly n characters, zero characters included
    xcWString(int v);                         // always empty: the number is formatted into a one-character buffer
    xcWString(const std::wstring& s);
    xcWString(const xcWString& other);
    virtual ~xcWString();

    xcWString& operator=(const xcWString& other);
    xcWString& operator=(const wchar_t* s);
    // Assigns src; the two pointer arguments are never read or written.
    void deepCopy(const xcWString& src, wchar_t** unusedData, int* unusedLength);

    void append(const wchar_t* s);
    void append(const wchar_t* s, int n);
    void operator+=(const xcWString& s);
    void operator+=(const wchar_t* s);
    void operator+=(wchar_t c);
    void operator+=(int v);                  // appends nothing (see xcWString(int))
    xcWString operator+(const xcWString& s) const;
    xcWString operator+(const wchar_t* s) const;
    xcWString operator+(int v) const;       // a plain copy (see xcWString(int))

    int length() const;
    bool isEmpty();
    bool isEmpty() const;
    const wchar_t* getData() const;
    operator const wchar_t*() const;
    // wcstol of the text with the LENGTH as the number base: "10" is 2, one
    // character (base 1) or more than 36 characters give 0.
    operator int() const;
    // Character at pos; 0 for a negative pos, pos at the length, or past it.
    wchar_t getChar(int pos) const;
    wchar_t operator[](int pos);
    // Stores c at pos; pos equal to the length overwrites the stored terminator
    // without changing the length. Out-of-range positions do nothing.
    void setchar(int pos, wchar_t c);

    // Comparison by character code; a common prefix makes the shorter one lesser.
    bool operator==(const xcWString& other) const;
    bool operator!=(const xcWString& other) const;
    bool operator==(const wchar_t* s) const;
    bool operator!=(const wchar_t* s) const;
    bool operator<(const xcWString& other) const;
    bool operator>(const xcWString& other) const;
    // Same length and equal characters after toupper.
    static bool isEqualNoCase(const xcWString& a, const xcWString& b);

    // -1 when start is negative or at/past the length.
    int find(wchar_t c, int start) const;
    int find(const xcWString& s, int start) const;
    // Last position at or before start holding ANY character of set; a start that is
    // negative or at/past the length searches from the last character.
    int findlast(const xcWString& set, int start) const;
    // count -1 runs to the end; empty for a negative pos, count 0 or below -1
    // (checked first); otherwise a pos past the length throws
    // std::out_of_range ("basic_string::substr").
    xcWString substr(int pos, int count) const;
    xcWString Left(int n);
    // Empty when n is 0, negative, or at/past the length: Right(length()) is empty.
    xcWString Right(int n);

    void clear();
    void erase();
    void replace(int pos, int count, const xcWString& s);
    // Moves the tail and its terminator down over [pos, pos + count) but keeps the
    // recorded length: getData() reads the cut text, the old tail stays behind it.
    // Returns the (unchanged) length.
    int deleteStr(int pos, int count);
    // Removes leading spaces with an index that advances after each removal,
    // so only half of a run of leading spaces (rounded up) goes.
    void TrimLeft();
    void TrimRight();
    // Removes leading spaces, then the first interior space only.
    void clearSpaces();
    // Removes trailing line feeds and carriage returns.
    void removeLastChar();
    // Non-empty and every character an ASCII digit.
    bool isNumeric();

    // Pieces between occurrences of sep (which must not be empty); a trailing
    // separator adds no empty piece.
    std::map<int, xcWString> split(const xcWString& sep);
    // 0 when pattern stands at 0, 1 when later, 2 when absent. Optionally yields the
    // text before it and replaces everything up to its end by replacement.
    int match(xcWString pattern, xcWString* before, bool cut, xcWString replacement);
    // Never changes the string.
    void expand(xcWString startMark, xcWString from, xcWString to, xcWString endMark);
    // Pads to width with repetitions of fill (which must not be empty).
    void inflate(int width, const xcWString& fill, bool atFront);
    // Removes leading double quotes only (at least one character is kept).
    void removeQuo();
    // Replaces from by to, going on only while the occurrence replaced stood at 0.
    void replaceChars(xcWString from, xcWString to);
    void TrimLeft(wchar_t c);
    void TrimRight(wchar_t c);
    void removeSpaces();
    // wcscmp of the text against s: case-sensitive despite its name.
    int CompareNoCase(const wchar_t* s);
    // -1, 0 or 1 over exactly n characters after toupper; ignores this string.
    int compareNoCase(const wchar_t* a, const wchar_t* b, int n);
    // Case-insensitive search that always starts at 0 (start is ignored).
    int findNoCase(const xcWString& s, int start);
    // Last case-insensitive match ending at or before the limit taken from start.
    int findlastNoCase(const xcWString& s, int start);
    // tolower up to the first zero character; characters after an embedded zero are dropped.
    xcWString& MakeLower();
    wchar_t* wcslwr(wchar_t* p);
    // XOR of 32-bit characters; the longer string's remaining characters are complemented.
    static xcWString xorString(const xcWString& a, const xcWString& b);

private:
    std::wstring m_str;
};

#endif
