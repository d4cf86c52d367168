#ifndef ZEMSUB_PARSERS_DETAIL_READING_SUBOPEN_H
#define ZEMSUB_PARSERS_DETAIL_READING_SUBOPEN_H

// The library's one file-open function, as the parsers see it (defined with the
// exported entry points; declared the same way in ISubTitle.h).

#include <cstdio>

#include "zemsubtitle_export.h"

ZEMSUB_EXPORT FILE* sub_open(const char* path, char* mode);

#endif
