#ifndef ZEMSUB_FUZZ_FUZZTARGETS_H
#define ZEMSUB_FUZZ_FUZZTARGETS_H

// Every fuzz target, as a plain function: fuzz/FuzzMain.cpp wraps one of them
// for libFuzzer, the regression replay links them all.

#include <cstddef>
#include <cstdint>

// X(name): the target fuzz_<name>, its seeds in fuzz/seeds/<name>, its regression
// corpus in fuzz/regression/<name>.
#define ZEMSUB_FUZZ_TARGETS(X)                                                                               \
    X(srt_parser)                                                                                            \
    X(srt_parser_u)                                                                                          \
    X(ass_parser)                                                                                            \
    X(ass_parser_u)                                                                                          \
    X(idx_parser)                                                                                            \
    X(idx_parser_u)                                                                                          \
    X(manager)                                                                                               \
    X(ssa_tags)                                                                                              \
    X(srt_map)                                                                                               \
    X(ass_map)                                                                                               \
    X(string_ops)                                                                                            \
    X(lint_reading)                                                                                          \
    X(fix)                                                                                                   \
    X(tracks)                                                                                                \
    X(pictures)

#define ZEMSUB_FUZZ_DECLARE(name) int fuzz_##name(const uint8_t* data, size_t size);
ZEMSUB_FUZZ_TARGETS(ZEMSUB_FUZZ_DECLARE)
#undef ZEMSUB_FUZZ_DECLARE

#endif
