// Rows about paths (no dot, several dots, a dot only in a directory name), the
// wide SubRip entry numbered 2000000000, the wide script field that throws, and
// index files with blank and ";" lines. Also the texts the rows share.
#include "badinput/BadInputTable.h"

#include <ostream>
#include "parsers/xcAssParser.h"

#include <gtest/gtest.h>

namespace badinput {

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

const std::vector<long long>& standardTimes()
{
    static const std::vector<long long> times = {-1,   0,    1,    1000,      1500,     3500,
                                                 5500, 7500, 9500, 1LL << 31, 1LL << 40};
    return times;
}

std::string srtThree()
{
    return "1\n00:00:01,000 --> 00:00:02,000\na\n\n"
           "2\n00:00:03,000 --> 00:00:04,000\nb\n\n"
           "3\n00:00:05,000 --> 00:00:06,000\nc\n";
}

std::vector<Answer> srtThreeNarrow()
{
    return {{1000, "\na"}, {1500, "\na"}, {3500, "\nb"}}; // the last entry never shows
}

std::vector<Answer> srtThreeWide()
{
    return {{1000, "\na"}, {1500, "\na"}, {3500, "\nb"}, {5500, "\nc"}};
}

std::string dialogue(const std::string& start, const std::string& end, const std::string& text)
{
    return "Dialogue: 0," + start + "," + end + ",Default,,0,0,0,," + text;
}

std::string assScript(const std::vector<std::string>& dialogues)
{
    std::string out = "[Script Info]\nScriptType: v4.00+\n\n[Events]\n";
    for (const std::string& d : dialogues)
        out += d + "\n";
    return out;
}

namespace {

// SubRip content under a path whose extension the manager may refuse; every
// parser opened directly reads it as it reads any path.
Row srtUnderPath(const std::string& name, const std::string& what, const std::string& path, int managerCode,
                 const std::string& subPath)
{
    Row r;
    r.name = name;
    r.what = what;
    r.path = path;
    r.bytes = srtThree();
    if (managerCode)
        r.manager = {Opens::Yes, managerCode, false, srtThreeNarrow()};
    else
        r.manager = {Opens::No, 0, false, {}};
    r.srt = {Opens::Yes, 3, srtThreeNarrow()};
    r.srtU = {Opens::Yes, 3, srtThreeWide()};
    r.ass = r.assU = {Opens::Yes, 0, {}};
    r.idx = r.idxU = {Opens::Yes, 0, subPath, {}};
    return r;
}

} // namespace

std::vector<Row> pathRows()
{
    std::vector<Row> rows;
    rows.push_back(srtUnderPath("PathWithoutDot", "a path with no dot at all (refused by the manager)",
                                "noext", 0, "sub"));
    rows.push_back(srtUnderPath("PathWithSeveralDots", "a path with several dots (the last one counts)",
                                "a.b.srt", 1, ".b.srtsub"));
    rows.push_back(srtUnderPath("DotOnlyInDirectory",
                                "a dot only in a directory name (refused by the manager)", "sub.d/file", 0,
                                ".d/filesub"));
    rows.push_back(srtUnderPath("SrtThenOtherExtension", "a .srt.txt path (refused by the manager)",
                                "subs.srt.txt", 0, ".srt.txtsub"));
    {
        Row r;
        r.name = "WideSrtNumbered2000000000";
        r.what =
            "a wide SubRip entry numbered 2000000000 (look-ups cross the gap in bounded time and memory)";
        r.path = "big.srt";
        r.bytes = "\xFF\xFE"
                  "1\n00:00:01,000 --> 00:00:02,000\na\n\n"
                  "2000000000\n00:00:03,000 --> 00:00:04,000\nb\n";
        const std::vector<Answer> wide = {{1000, "\na"}, {1500, "\na"}, {3500, "\nb"}};
        r.manager = {Opens::Yes, 4, true, wide};
        // The 8-bit parser keeps the mark in entry 0's text; its look-up inserts an
        // empty entry 1 (times 0), which answers time 0 with an empty text.
        r.srt = {Opens::Yes, 2, {{0, ""}}};
        r.srtU = {Opens::Yes, 2, wide};
        r.ass = r.assU = {Opens::Yes, 0, {}};
        r.idx = r.idxU = {Opens::Yes, 0, ".srtsub", {}};
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "WideScriptFieldMissing";
        r.what = "a wide script whose PlayResX has no value (the wide field reader throws the int 1)";
        r.path = "throw.ass";
        r.bytes = "\xFF\xFE[Script Info]\nPlayResX:\n";
        r.manager = {Opens::ThrowsOne, 5, true, {}};
        r.srt = r.srtU = {Opens::Yes, 1, {}};
        r.ass = {Opens::Yes, 0, {}};
        r.assU = {Opens::ThrowsOne, 0, {}};
        r.idx = r.idxU = {Opens::Yes, 0, ".asssub", {}};
        r.more = [](Opened& o) { EXPECT_EQ(o.ass.GetPlayResX(), -1); }; // the 8-bit reader answers -1
        // The manager's wide script parser and the one opened directly keep their streams.
        r.streamsLeftOpen = 2;
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "IndexBlankAndCommentLines";
        r.what = "a VobSub index with blank, blank-looking and \";\" lines";
        r.path = "blank.idx";
        r.bytes = "\n;\n  \n; c\ntimestamp: 00:00:01:000, filepos: 000000800\n\n;\n"
                  "timestamp: 00:00:03:000, filepos: 000001000\n";
        r.manager = {Opens::No, 0, false, {}};
        r.srt = r.srtU = {Opens::Yes, 1, {}};
        r.ass = r.assU = {Opens::Yes, 0, {}};
        // Keys are line positions (3 and 5) in the 8-bit twin, a running count in the wide one.
        r.idx = {Opens::Yes, 2, ".idxsub", {{100, 0}, {1000, 0x800}, {2000, 0}, {3000, 0x1000}}};
        r.idxU = {Opens::Yes, 2, ".idxsub", {{1000, 0}, {3000, 0}}};
        rows.push_back(r);
    }
    return rows;
}

} // namespace badinput
