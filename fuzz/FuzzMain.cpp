// libFuzzer entry point for one target; ZEMSUB_FUZZ_TARGET names it (fuzz_<name>).
#include "FuzzTargets.h"

#ifndef ZEMSUB_FUZZ_TARGET
#    error "ZEMSUB_FUZZ_TARGET must name the target function"
#endif

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    return ZEMSUB_FUZZ_TARGET(data, size);
}
