#ifndef ZEMSUB_MANAGER_DETAIL_FORMATCODES_H
#define ZEMSUB_MANAGER_DETAIL_FORMATCODES_H

// The format codes GetFormatCode answers: the reader the manager chose.

namespace zemsub::detail {

enum FormatCode : int {
    kFormatNone = 0,
    kFormatSrt = 1,
    kFormatAss = 2,
    kFormatSrtWide = 4,
    kFormatAssWide = 5,
};

} // namespace zemsub::detail

#endif
