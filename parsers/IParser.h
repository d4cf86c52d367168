#ifndef ZEMSUB_IPARSER_H
#define ZEMSUB_IPARSER_H

#include "zemsubtitle_export.h"

// What the subtitle manager drives: open a file, then ask for the caption at a time.
// Returned text points into the parser's own storage and stays valid until its next
// Open or its destruction. A narrow parser answers GetSubTitleU with null, a wide one
// GetSubTitle.
class ZEMSUB_EXPORT IParser
{
public:
    virtual ~IParser();
    virtual bool Open(const char* path) = 0;
    virtual bool IsOpen() const = 0;
    virtual const char* GetSubTitle(long long timeMs) = 0;
    virtual const wchar_t* GetSubTitleU(long long timeMs) = 0;
};

#endif
