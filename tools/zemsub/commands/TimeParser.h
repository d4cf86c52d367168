#ifndef ZEMSUB_TOOL_TIMEPARSER_H
#define ZEMSUB_TOOL_TIMEPARSER_H

#include <QString>
#include <optional>

namespace zemsub::tool {

// A play time in milliseconds from text: "1500" (milliseconds, a sign allowed),
// "hh:mm:ss,mmm", "h:mm:ss.cc" or "mm:ss". The fraction after "," or "." is a
// decimal fraction of a second: ".5" is 500 ms, ".50" 500 ms, ".500" 500 ms.
// Minutes and seconds behind a larger field must be below 60. Nothing when the
// text is not a time.
std::optional<long long> parseTime(const QString& text);

// hh:mm:ss,mmm (hours grow past two digits as needed; negative times get a "-").
QString formatTime(long long ms);

} // namespace zemsub::tool

#endif
