#ifndef ZEMSUB_TESTS_GOLDEN_READERDUMPS_H
#define ZEMSUB_TESTS_GOLDEN_READERDUMPS_H

#include <string>

// What every reader of the library makes of one input, as text: for each parser
// twin (the wide ones under a UTF-8 locale and under the C locale) the result of
// Open or the int it threw, the line list, the entry map, the answers at a spread
// of times and the map after those look-ups, with each parser's other readings;
// then the tag stripping of the whole input.
namespace golden {

struct GoldenInput
{
    std::string name;       // file name of the stored output, without ".txt"
    std::string bytes;      // the file every parser opens
    std::string subBytes;   // the packet file beside an index, when hasSub
    bool hasSub = false;
};

// An index input may carry its packet file behind this marker line.
extern const char* const kSubMarker;

std::string dumpReaders(const GoldenInput& input);

} // namespace golden

#endif
