#ifndef ZEMSUB_TOOL_PICTUREREPORT_H
#define ZEMSUB_TOOL_PICTUREREPORT_H

#include <QRect>
#include <QString>
#include <nlohmann/json.hpp>

namespace zemsub::tool {

// A caption read from a picture with a low confidence, as the reports say it:
// "  caption 3, 00:00:05,500: read with low confidence (63): \"text\"\n".
QString lowConfidenceLine(int caption, long long start, int confidence, const QString& text);

// "  the last display is never cleared: it ends with the end of the video\n"; empty when it is.
QString lastDisplayLine(const QString& lastDisplayEnd);

// A picture left out of the captions as holding no text, as the reports say it:
// "  00:00:01,000 --> 00:00:03,491: picture of 96x24 at 300,400 left out: nothing read as a word\n".
QString leftOutLine(long long start, long long end, const QRect& place, const QString& why);

// The same as JSON: {"start", "end", "x", "y", "width", "height", "why"}.
nlohmann::ordered_json leftOutJson(long long start, long long end, const QRect& place, const QString& why);

// Every such picture of a list of records with start, end, x, y, width, height and why.
template <typename Pictures>
nlohmann::ordered_json leftOutArray(const Pictures& pictures)
{
    nlohmann::ordered_json all = nlohmann::ordered_json::array();
    for (const auto& picture : pictures)
        all.push_back(leftOutJson(picture.start, picture.end,
                                  QRect(picture.x, picture.y, picture.width, picture.height), picture.why));
    return all;
}

} // namespace zemsub::tool

#endif
