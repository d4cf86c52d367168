// Rows about what the file holds: a one-megabyte line, the line limit, a line of
// 100000 braces, unterminated and endless tags, times past 32 bits, huge and
// negative numbers.
#include <climits>
#include <cstdio>

#include "badinput/BadInputTable.h"
#include "parsers/xcAssParser.h"
#include "parsers/xcAssParserU.h"
#include "parsers/xcSrtParser.h"

#include <gtest/gtest.h>

namespace badinput {

namespace {

const std::string kMegabyte(1 << 20, 'a');

std::string srtTime(long long ms)
{
    char buf[48];
    std::snprintf(buf, sizeof buf, "%02lld:%02lld:%02lld,%03lld", ms / 3600000, ms / 60000 % 60,
                  ms / 1000 % 60, ms % 1000);
    return buf;
}

// 5000 entries of four lines each (number, time, text, blank): 20000 lines.
// Entry k shows "c<k>" from k * 10 s for 2 s.
std::string srt20000Lines()
{
    std::string out;
    for (int k = 1; k <= 5000; ++k)
        out += std::to_string(k) + "\n" + srtTime(k * 10000LL) + " --> " + srtTime(k * 10000LL + 2000) +
               "\nc" + std::to_string(k) + "\n\n";
    return out;
}

CaptionExpect opens(int entries, std::vector<Answer> answers = {})
{
    return {Opens::Yes, entries, std::move(answers)};
}

IdxExpect indexOpens(const std::string& subPath)
{
    return {Opens::Yes, 0, subPath, {}};
}

// A SubRip or script file read by the parsers of the other format: everything
// goes to one entry that no look-up reaches, or to no entry at all.
void nothingForOtherFormats(Row& r, bool isScript)
{
    if (isScript) {
        r.srt = r.srtU = opens(1);
        r.idx = r.idxU = indexOpens(".asssub");
    } else {
        r.ass = r.assU = opens(0);
        r.idx = r.idxU = indexOpens(".srtsub");
    }
}

} // namespace

std::vector<Row> contentRows()
{
    std::vector<Row> rows;
    {
        Row r;
        r.name = "MegabyteCaptionLine";
        r.what = "a SubRip caption line of one megabyte";
        r.path = "long.srt";
        r.bytes = "1\n00:00:01,000 --> 00:00:02,000\n" + kMegabyte +
                  "\n\n2\n00:00:03,000 --> 00:00:04,000\nb\n\n3\n00:00:05,000 --> 00:00:06,000\nc\n";
        const std::vector<Answer> narrow = {
            {1000, "\n" + kMegabyte}, {1500, "\n" + kMegabyte}, {3500, "\nb"}};
        r.manager = {Opens::Yes, 1, false, narrow};
        r.srt = opens(3, narrow);
        r.srtU = opens(3, {{1000, "\n" + kMegabyte}, {1500, "\n" + kMegabyte}, {3500, "\nb"}, {5500, "\nc"}});
        nothingForOtherFormats(r, false);
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "MegabyteDialogueText";
        r.what = "an ASS Dialogue text of one megabyte";
        r.path = "long.ass";
        r.bytes =
            assScript({dialogue("0:00:01.00", "0:00:02.00", kMegabyte),
                       dialogue("0:00:03.00", "0:00:04.00", "B"), dialogue("0:00:05.00", "0:00:06.00", "C")});
        const std::vector<Answer> answers = {
            {1000, "\n" + kMegabyte}, {1500, "\n" + kMegabyte}, {3500, "\nB"}};
        r.manager = {Opens::Yes, 2, false, answers};
        r.ass = r.assU = opens(3, answers);
        nothingForOtherFormats(r, true);
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "TwentyThousandLines";
        r.what = "a SubRip file of 20000 lines (the most that opens)";
        r.path = "lines20000.srt";
        r.bytes = srt20000Lines();
        const std::vector<Answer> narrow = {
            {10000, "\nc1"}, {10500, "\nc1"}, {49990500, "\nc4999"}, {50000500, {}}};
        r.manager = {Opens::Yes, 1, false, narrow};
        r.srt = opens(5000, narrow);
        // The wide parser skips "1\n": the first caption goes to entry 0, and the last one shows.
        r.srtU =
            opens(5000, {{10000, "\nc1"}, {10500, "\nc1"}, {49990500, "\nc4999"}, {50000500, "\nc5000"}});
        r.ass = r.assU = opens(0);
        r.idx = r.idxU = {Opens::No, 0, ".srtsub", {}}; // an index opens at most 5000 lines
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "TwentyThousandAndOneLines";
        r.what = "a file of 20001 lines (the wide parsers skip the first two bytes: 20000 lines)";
        r.path = "lines20001.srt";
        std::string lines;
        for (int i = 0; i < 20001; ++i)
            lines += "1\n";
        r.bytes = lines;
        r.manager = {Opens::No, 1, false, {}};
        r.srt = r.ass = {Opens::No, 0, {}};
        r.srtU = r.assU = opens(0);
        r.idx = r.idxU = {Opens::No, 0, ".srtsub", {}};
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "HundredThousandBraces";
        r.what = "a Dialogue text of 100000 \"{\" (no closing brace: left as it is)";
        r.path = "braces.ass";
        const std::string braces(100000, '{');
        r.bytes =
            assScript({dialogue("0:00:01.00", "0:00:02.00", braces),
                       dialogue("0:00:03.00", "0:00:04.00", "B"), dialogue("0:00:05.00", "0:00:06.00", "C")});
        const std::vector<Answer> answers = {{1000, "\n" + braces}, {1500, "\n" + braces}, {3500, "\nB"}};
        r.manager = {Opens::Yes, 2, false, answers};
        r.ass = r.assU = opens(3, answers);
        nothingForOtherFormats(r, true);
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "UnterminatedAndEndlessTags";
        r.what = "unterminated tags, and the brace case that would repeat forever";
        r.path = "tags.ass";
        r.bytes = assScript({dialogue("0:00:01.00", "0:00:02.00", "x{unclosed"),
                             dialogue("0:00:03.00", "0:00:04.00", "{a}x{b"),
                             dialogue("0:00:05.00", "0:00:06.00", "{ab}{c"),
                             dialogue("0:00:07.00", "0:00:08.00", "<i>Hi</i> a<b"),
                             dialogue("0:00:09.00", "0:00:10.00", "last")});
        const std::vector<Answer> answers = {{1000, "\nx{unclosed"},
                                             {1500, "\nx{unclosed"},
                                             {3500, "\nx{b"},
                                             {5500, "\n{c"},
                                             {7500, "\nHi a<b"}};
        r.manager = {Opens::Yes, 2, false, answers};
        r.ass = r.assU = opens(5, answers);
        nothingForOtherFormats(r, true);
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "SrtTimesPast32Bits";
        r.what = "SubRip times past 32 bits (they wrap: 1500 h reads as 1105032704 ms)";
        r.path = "past32.srt";
        r.bytes = "1\n00:00:01,000 --> 00:00:02,000\na\n\n"
                  "2\n1500:00:00,000 --> 1500:00:01,000\nb\n\n"
                  "3\n1000:00:00,000 --> 1193:00:00,000\nc\n\n"
                  "4\n00:00:09,000 --> 00:00:10,000\nd\n";
        const std::vector<Answer> narrow = {
            {1000, "\na"}, {1500, "\na"}, {1105033000, "\nb"}, {3600000000LL, {}}, {5400000500LL, {}}};
        r.manager = {Opens::Yes, 1, false, narrow};
        r.srt = opens(4, narrow);
        r.srtU = opens(4, {{1000, "\na"},
                           {1500, "\na"},
                           {1105033000, "\nb"},
                           {3600000000LL, {}},
                           {5400000500LL, {}},
                           {9500, "\nd"}});
        nothingForOtherFormats(r, false);
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "AssTimesPast32Bits";
        r.what = "ASS times past 32 bits (they wrap as in SubRip)";
        r.path = "past32.ass";
        r.bytes = assScript(
            {dialogue("0:00:01.00", "0:00:02.00", "A"), dialogue("1500:00:00.00", "1500:00:01.00", "B"),
             dialogue("0:00:05.00", "0:00:06.00", "C"), dialogue("0:00:07.00", "0:00:08.00", "D")});
        const std::vector<Answer> answers = {
            {1000, "\nA"}, {1500, "\nA"}, {1105033000, "\nB"}, {5400000500LL, {}}, {5500, "\nC"}};
        r.manager = {Opens::Yes, 2, false, answers};
        r.ass = r.assU = opens(4, answers);
        nothingForOtherFormats(r, true);
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "IndexTimesPast32Bits";
        r.what = "VobSub index times past 32 bits (matched on their low 32 bits)";
        r.path = "past32.idx";
        r.bytes = "timestamp: 00:00:01:000, filepos: 000000800\n"
                  "timestamp: 1500:00:00:000, filepos: 000001000\n";
        r.manager = {Opens::No, 0, false, {}};
        r.srt = r.srtU = opens(1);
        r.ass = r.assU = opens(0);
        r.idx = {Opens::Yes, 2, ".idxsub", {{1000, 0x800}, {1105032804, 0x1000}, {5400000100LL, 0x1000}}};
        r.idxU = {Opens::Yes, 2, ".idxsub", {}}; // the wide twin reads no position
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "SrtHugeNumbers";
        r.what = "SubRip numbers at the int limits (entry 2147483647, 2147483647 hours)";
        r.path = "huge.srt";
        r.bytes = "1\n00:00:01,000 --> 00:00:02,000\na\n\n"
                  "2\n2147483647:59:59,999 --> 2147483647:59:59,999\nb\n\n"
                  "2147483647\n596:31:23,647 --> 596:31:23,648\nz\n\n"
                  "3\n00:00:05,000 --> 00:00:06,000\nc\n";
        const std::vector<Answer> answers = {{1000, "\na"}, {1500, "\na"}, {5500, "\nc"}, {2147483647, {}}};
        r.manager = {Opens::Yes, 1, false, answers};
        r.srt = r.srtU = opens(4, answers);
        nothingForOtherFormats(r, false);
        r.more = [](Opened& o) {
            const auto& map = o.srt.GetMap();
            ASSERT_EQ(map.count(2147483647), 1u);
            EXPECT_EQ(map.at(2147483647).start, INT_MAX);
            EXPECT_EQ(map.at(2147483647).end, INT_MIN); // one more wraps
            EXPECT_EQ(map.at(2).start, -1);
        };
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "AssHugeNumbers";
        r.what = "ASS numbers at the int limits (layer, play size, 2147483647 hours)";
        r.path = "huge.ass";
        r.bytes =
            "[Script Info]\nScriptType: v4.00+\nPlayResX: 2147483647\nPlayResY: -2147483648\n\n[Events]\n" +
            dialogue("0:00:01.00", "0:00:02.00", "A") + "\n" +
            "Dialogue: 2147483647,2147483647:59:59.99,2147483647:59:59.99,Default,,2147483647,0,0,,B\n" +
            dialogue("0:00:05.00", "0:00:06.00", "C") + "\n" + dialogue("0:00:07.00", "0:00:08.00", "D") +
            "\n";
        const std::vector<Answer> answers = {{1000, "\nA"}, {1500, "\nA"}, {5500, "\nC"}};
        r.manager = {Opens::Yes, 2, false, answers};
        r.ass = r.assU = opens(4, answers);
        nothingForOtherFormats(r, true);
        r.more = [](Opened& o) {
            EXPECT_EQ(o.ass.GetPlayResX(), INT_MAX);
            EXPECT_EQ(o.ass.GetPlayResY(), INT_MIN);
            EXPECT_EQ(o.assU.GetPlayResX(), INT_MAX);
            EXPECT_EQ(o.assU.GetPlayResY(), INT_MIN);
            ASSERT_EQ(o.ass.GetMap().count(2), 1u);
            EXPECT_EQ(o.ass.GetMap().at(2).layer, INT_MAX);
            EXPECT_EQ(o.ass.GetMap().at(2).start, -10); // wrapped
            EXPECT_EQ(o.assU.GetMap().at(2).end, -10);
        };
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "SrtNegativeTimes";
        r.what = "SubRip times with negative fields";
        r.path = "negative.srt";
        r.bytes = "1\n-1:00:00,000 --> 00:00:02,000\na\n\n"
                  "2\n00:00:03,000 --> 00:-1:00,000\nb\n\n"
                  "3\n00:00:05,000 --> 00:00:06,000\nc\n";
        const std::vector<Answer> narrow = {{0, "\na"}, {1, "\na"}, {1000, "\na"}, {1500, "\na"}};
        r.manager = {Opens::Yes, 1, false, narrow};
        r.srt = opens(3, narrow);
        r.srtU =
            opens(3, {{1, "\na"}, {1000, "\na"}, {1500, "\na"}, {5500, "\nc"}}); // time 0 never shows here
        nothingForOtherFormats(r, false);
        r.more = [](Opened& o) {
            EXPECT_EQ(o.srt.GetMap().at(1).start, -3600000);
            EXPECT_EQ(o.srt.GetMap().at(2).end, -60000);
        };
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "AssNegativeTimes";
        r.what = "ASS times with negative fields";
        r.path = "negative.ass";
        r.bytes =
            assScript({dialogue("-1:00:00.00", "0:00:02.00", "A"), dialogue("0:00:03.00", "0:-1:00.00", "B"),
                       dialogue("0:00:05.00", "0:00:06.00", "C"), dialogue("0:00:07.00", "0:00:08.00", "D")});
        const std::vector<Answer> answers = {{1, "\nA"}, {1000, "\nA"}, {1500, "\nA"}, {5500, "\nC"}};
        r.manager = {Opens::Yes, 2, false, answers};
        r.ass = r.assU = opens(4, answers);
        nothingForOtherFormats(r, true);
        r.more = [](Opened& o) {
            EXPECT_EQ(o.ass.GetMap().at(1).start, -3600000);
            EXPECT_EQ(o.assU.GetMap().at(2).end, -60000);
        };
        rows.push_back(r);
    }
    return rows;
}

} // namespace badinput
