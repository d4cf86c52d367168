#ifndef ZEMSUB_TOOL_READERLIMITS_H
#define ZEMSUB_TOOL_READERLIMITS_H

namespace zemsub::tool {

// Lines the reader of a format code reads at most; a file of more does not open.
int readerLineLimit(int formatCode);

// The latest millisecond the readers hold: they compute times in signed 32-bit
// arithmetic, so a later time wraps around.
long long readerLatestTime();

} // namespace zemsub::tool

#endif
