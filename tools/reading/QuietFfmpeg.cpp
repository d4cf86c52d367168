#include "QuietFfmpeg.h"

extern "C" {
#include <libavutil/log.h>
}

#include <cstdarg>

namespace zemsub::tool {

namespace {

void discard(void*, int, const char*, va_list)
{
}

} // namespace

void quietFfmpeg()
{
    av_log_set_level(AV_LOG_QUIET);
    av_log_set_callback(&discard);
}

} // namespace zemsub::tool
