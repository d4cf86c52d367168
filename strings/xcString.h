#ifndef ZEMSUB_XCSTRING_H
#define ZEMSUB_XCSTRING_H

#include <map>
#include <string>

#include "zemsubtitle_export.h"

// Byte string value class in which all narrow parsing is done.
// Positions and counts are int; -1 means "not found". Several operations keep
// long-standing quirks (advancing TrimLeft, length-keeping deleteStr, ...) that
// the parsers' results depend on; each is described at its declaration.
class ZEMSUB_EXPORT xcString
{
public:
    xcString();
    xcString(const char* s);                 // bytes up to the terminating zero
    xcString(const char* s, int n);          // exactly n bytes, zero bytes included
    xcString(int v);                         // "%d" text of v
    xcString(const std::string& s);
    xcString(const xcString& other);
    virtual ~xcString();

    xcString& operator=(const xcString& other);
    xcString& operator=(const char* s);
    // Assigns src; the two pointer arguments are never read or written.
    void deepCopy(const xcString& src, char** unusedData, int* unusedLength);

    void append(const char* s);
    void append(const char* s, int n);
    void operator+=(const xcString& s);
    void operator+=(const char* s);
    void operator+=(char c);
    void operator+=(int v);
    xcString operator+(const xcString& s) const;
    xcString operator+(const char* s) const;
    xcString operator+(int v) const;

    int length() const;
    bool isEmpty();
    bool isEmpty() const;
    const char* getData() const;
    operator const char*() const;
    operator int() const;                    // atoi of the text
    // Byte at pos; 0 for a negative pos, pos at the length, or past it.
    char getChar(int pos) const;
    char operator[](int pos);
    // Stores c at pos; pos equal to the length overwrites the stored terminator
    // without changing the length. Out-of-range positions do nothing.
    void setchar(int pos, char c);

    // Byte-wise comparison as unsigned bytes; a common prefix makes the shorter one lesser.
    bool operator==(const xcString& other) const;
    bool operator!=(const xcString& other) const;
    bool operator==(const char* s) const;
    bool operator!=(const char* s) const;
    bool operator<(const xcString& other) const;
    bool operator>(const xcString& other) const;
    // Same length and equal bytes after toupper.
    static bool isEqualNoCase(const xcString& a, const xcString& b);

    // -1 when start is negative or at/past the length.
    int find(char c, int start) const;
    int find(const xcString& s, int start) const;
    // Last position at or before start holding ANY byte of set; a start that is
    // negative or at/past the length searches from the last byte.
    int findlast(const xcString& set, int start) const;
    // count -1 runs to the end; empty for a negative or past-the-end pos, count 0 or below -1.
    xcString substr(int pos, int count) const;
    xcString Left(int n);
    // Empty when n is 0, negative, or at/past the length: Right(length()) is empty.
    xcString Right(int n);

    void clear();
    void erase();
    void replace(int pos, int count, const xcString& s);
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
    // Non-empty and every byte an ASCII digit.
    bool isNumeric();

    // Pieces between occurrences of sep (which must not be empty); a trailing
    // separator adds no empty piece.
    std::map<int, xcString> split(const xcString& sep);
    // 0 when pattern stands at 0, 1 when later, 2 when absent. Optionally yields the
    // text before it and replaces everything up to its end by replacement.
    int match(xcString pattern, xcString* before, bool cut, xcString replacement);
    // Never changes the string.
    void expand(xcString startMark, xcString from, xcString to, xcString endMark);
    // Pads to width with repetitions of fill (which must not be empty).
    void inflate(int width, const xcString& fill, bool atFront);
    // Removes leading double quotes only (at least one byte is kept).
    void removeQuo();
    // Replaces from by to, going on only while the occurrence replaced stood at 0.
    void replaceChars(xcString from, xcString to);
    void TrimLeft(char c);
    void TrimRight(char c);
    void removeSpaces();
    // strcmp of the text against s: case-sensitive despite its name.
    int CompareNoCase(const char* s);
    // -1, 0 or 1 over exactly n bytes after toupper; ignores this string.
    int compareNoCase(const char* a, const char* b, int n);
    // Case-insensitive search that always starts at 0 (start is ignored).
    int findNoCase(const xcString& s, int start);
    // Last case-insensitive match ending at or before the limit taken from start.
    int findlastNoCase(const xcString& s, int start);
    // tolower up to the first zero byte; bytes after an embedded zero are dropped.
    xcString& MakeLower();
    char* strlwr(char* p);
    // Byte-wise XOR; the longer string's remaining bytes are complemented.
    static xcString xorString(const xcString& a, const xcString& b);

private:
    std::string m_str;
};

#endif
