#ifndef ZEMSUB_TOOL_READERLIMITS_H
#define ZEMSUB_TOOL_READERLIMITS_H

namespace zemsub::tool {

// Lines the reader of a format code reads at most; a file of more does not open.
int readerLineLimit(int formatCode);

} // namespace zemsub::tool

#endif
