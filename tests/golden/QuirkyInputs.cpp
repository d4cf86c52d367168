// Files for the odd corners: line endings, line lengths around the reader's
// piece size, marks and broken UTF-8 for the wide readers, SubRip keys and times
// out of the ordinary, ASS scripts with every field short or odd, index files
// with odd fields, and a few large files that take the fast paths.
#include <cstdio>
#include <random>
#include <string>

#include "golden/GoldenInputs.h"

namespace golden {
namespace {

std::string replaceAll(std::string s, const std::string& from, const std::string& to)
{
    for (size_t at = s.find(from); at != std::string::npos; at = s.find(from, at + to.size()))
        s.replace(at, from.size(), to);
    return s;
}

std::string utf16(const std::string& latin1)
{
    std::string out = "\xFF\xFE";
    for (char c : latin1) {
        out += c;
        out += '\0';
    }
    return out;
}

const char* const kSrt =
    "1\n00:00:01,000 --> 00:00:02,500\nFirst line\nsecond line\n\n"
    "2\n00:00:03,000 --> 00:00:04,000\n<i>Tagged</i> text\n\n"
    "3\n00:00:04,000 --> 00:00:06,000\nThird\n\n"
    "4\n00:00:07,000 --> 00:00:08,000\nLast\n";

const char* const kAss =
    "[Script Info]\nScriptType: v4.00+\nPlayResX: 640\nPlayResY: 480\nCollisions: Normal\n\n"
    "[V4+ Styles]\n"
    "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, BackColour, Bold, Italic, "
    "Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, BorderStyle, Outline, Shadow, Alignment, MarginL, "
    "MarginR, MarginV, Encoding\n"
    "Style: Default,Arial,20,&H00FFFFFF,&H000000FF,&H00000000,&H80000000,-1,0,0,0,100,100,0,0,1,2,2,2,10,10,10,1\n\n"
    "[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
    "Dialogue: 0,0:00:01.00,0:00:02.50,Default,A,0,0,0,,Plain line\n"
    "Dialogue: 1,0:00:02.00,0:00:04.00,Default,B,0,0,0,,{\\b1}Bold{\\b0} and <i>angle</i>\\Nsecond\n"
    "Dialogue: 0,0:00:05.00,0:00:06.00,Default,,0,0,0,Scroll up,Commas, in, the, text\n"
    "Dialogue: 0,0:00:07.00,0:00:08.00,Default,,0,0,0,,{unclosed brace\n";

const char* const kSsa =
    "[Script Info]\nScriptType: v4.00\nPlayResX: 384\nPlayResY: 288\n\n[V4 Styles]\n"
    "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, TertiaryColour, BackColour, Bold, Italic, "
    "BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, AlphaLevel, Encoding\n"
    "Style: Default,Tahoma,24,16777215,65535,65535,-2147483640,-1,0,1,1,2,2,30,30,10,0,0\n\n"
    "[Events]\nFormat: Marked, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
    "Dialogue: Marked=0,0:00:01.00,0:00:02.00,Default,,0000,0000,0000,,SSA line\n"
    "Dialogue: Marked=0,0:00:03.00,0:00:04.00,*Default,,0000,0000,0000,,{\\i1}Second{\\i0}\\nsoft\n";

const char* const kIdx =
    "# VobSub index file, v7 (do not modify this line!)\nsize: 720x480\n"
    "palette: 000000, f0f0f0, cccccc, 999999, 3333fa, 1111bb, fa3333, bb1111, 33fa33, 11bb11, fafa33, bbbb11, "
    "fa33fa, bb11bb, 33fafa, 11bbbb\n"
    "custom colors: ON, tridx: 1010, colors: 000000, ffffff, 808080, 123456\n\n"
    "# English\nid: en, index: 0\n"
    "timestamp: 00:00:01:000, filepos: 000000000\n"
    "timestamp: 00:00:02:500, filepos: 000000800\n"
    ";timestamp: 00:00:03:000, filepos: 000001000\n"
    "timestamp: 01:02:03:456, filepos: 0000fffff\n";

std::string manyEntriesSrt(std::mt19937& random, int count)
{
    static const char* const words[] = {"harbour", "\xC3\xA9t\xC3\xA9", "<b>bold</b>", "lights", "\xE2\x82\xAC" "5",
                                        "{\\i1}x", "  spaced  ", "end."};
    std::string out;
    long long t = 0;
    for (int i = 1; i <= count; ++i) {
        t += 100 + random() % 3000;
        const long long end = t + 200 + random() % 4000;
        char times[80];
        std::snprintf(times, sizeof times, "%02lld:%02lld:%02lld,%03lld --> %02lld:%02lld:%02lld,%03lld\n",
                      t / 3600000, t / 60000 % 60, t / 1000 % 60, t % 1000, end / 3600000, end / 60000 % 60,
                      end / 1000 % 60, end % 1000);
        out += std::to_string(random() % 50 == 0 ? i + 3 : i) + "\n" + times;
        const int lines = 1 + random() % 3;
        for (int l = 0; l < lines; ++l) {
            out += words[random() % 8];
            out += ' ';
            out += words[random() % 8];
            out += "\n";
        }
        out += "\n";
    }
    return out;
}

std::string manyDialogues(std::mt19937& random, int count)
{
    static const char* const texts[] = {"Plain", "{\\b1}bold{\\b0}", "a\\Nb", "<u>u</u> {x} y", "\xC3\xA9t\xC3\xA9",
                                        "{\\pos(1,2)}{\\c&H00FF00&}green", "{{nested}}", "tail{"};
    std::string out = std::string(kAss).substr(0, std::string(kAss).find("Dialogue:"));
    long long t = 0;
    for (int i = 0; i < count; ++i) {
        t += random() % 2000;
        const long long end = t + random() % 5000;
        char times[64];
        std::snprintf(times, sizeof times, "%lld:%02lld:%02lld.%02lld,%lld:%02lld:%02lld.%02lld", t / 3600000,
                      t / 60000 % 60, t / 1000 % 60, t % 1000 / 10, end / 3600000, end / 60000 % 60,
                      end / 1000 % 60, end % 1000 / 10);
        out += std::string(random() % 10 == 0 ? "Comment: " : "Dialogue: ") + std::to_string(random() % 3) + "," +
               times + ",Default,N" + std::to_string(i) + ",0,0,0,," + texts[random() % 8] + "\n";
    }
    return out;
}

} // namespace

GoldenSet quirkyInputs()
{
    GoldenSet set{"quirky", {}};
    auto add = [&set](const std::string& name, const std::string& bytes) {
        set.inputs.push_back({name, bytes, "", false});
    };
    const std::string srt = kSrt;
    const std::string ass = kAss;

    // Line reading.
    add("empty", "");
    add("only-line-feeds", "\n\n\n\n");
    add("only-carriage-returns", "\r\r\r");
    add("crlf.srt", replaceAll(srt, "\n", "\r\n"));
    add("cr-only.srt", replaceAll(srt, "\n", "\r"));
    add("no-final-line-feed.srt", srt.substr(0, srt.size() - 1));
    add("zero-bytes.srt", replaceAll(srt, "Third", std::string("Th\0ird", 6)));
    for (int n : {126, 127, 128, 129, 255, 256, 257, 400}) {
        std::string line(size_t(n), 'x');
        for (int i = 0; i < n; i += 37)
            line[size_t(i)] = char('a' + i % 26);
        add("line-" + std::to_string(n) + ".srt", "1\n00:00:01,000 --> 00:00:02,000\n" + line + "\n\n2\n" +
                                                      "00:00:03,000 --> 00:00:04,000\n" + line + "\n");
    }
    add("many-short-lines", [] {
        std::string s;
        for (int i = 0; i < 20005; ++i)
            s += std::to_string(i % 10) + "\n";
        return s;
    }());
    add("many-blank-lines.srt", std::string(30000, '\n') + srt);

    // Wide readers: marks and decoding.
    add("mark-only", "\xFF\xFE");
    add("half-mark", "\xFF");
    add("mark-utf8.srt", "\xFF\xFE" + replaceAll(srt, "Third", "Th\xC3\xAErd \xE2\x82\xAC \xF0\x9F\x98\x80"));
    add("mark-utf16.srt", utf16(srt));
    add("mark-bad-utf8.srt", "\xFF\xFE" + replaceAll(srt, "Last", "L\xC3st \xE0\x80\xAF \xED\xA0\x80 \xF4\x90\x80\x80 "
                                                                   "\xC0\xAF \xF8\x88\x80\x80\x80 \x80 \xE2\x82"));
    add("mark-utf8.ass", "\xFF\xFE" + replaceAll(ass, "Plain line", "Pl\xC3\xA4in \xE2\x80\x94 line"));
    add("mark-utf16.ass", utf16(ass));
    add("mark-bad-utf8.ass", "\xFF\xFE" + replaceAll(ass, "Plain line", "Pl\xC3 \xFF\xFE in"));
    add("latin1.srt", replaceAll(srt, "Third", "Th\xEEr\xE9"));

    // SubRip keys, arrows and times.
    add("keys-out-of-order.srt", replaceAll(replaceAll(srt, "3\n00:00:04", "9\n00:00:04"), "2\n00:00:03", "1\n00:00:03"));
    add("key-zero-and-negative.srt",
        "0\n00:00:00,500 --> 00:00:01,000\nzero\n\n-2\n00:00:01,000 --> 00:00:02,000\nnegative\n\n"
        "1\n00:00:03,000 --> 00:00:04,000\none\n\n2\n00:00:05,000 --> 00:00:06,000\ntwo\n");
    add("key-gap.srt", replaceAll(replaceAll(srt, "3\n00:00:04", "30\n00:00:04"), "4\n00:00:07", "31\n00:00:07"));
    add("arrows.srt", "1\n00:00:01,000-->00:00:02,000\ntight\n\n2\n00:00:03,000 -> 00:00:04,000\nshort\n\n"
                      "3\n00:00:05,000 --> 00:00:06,000 X1:10 X2:20\ncoordinates\n\n"
                      "4\n00:00:07.000 --> 00:00:08.000\ndots\n\n5\n0:0:9,5 --> 0:0:10,25\nshort fields\n");
    add("odd-times.srt", "1\n99:59:59,999 --> 100:00:00,000\nlate\n\n2\n00:61:61,1000 --> 00:00:00,000\nbackwards\n\n"
                         "3\nab:cd:ef,ghi --> 00:00:01,000\nletters\n\n4\n-00:00:01,000 --> 00:00:02,000\nminus\n\n"
                         "5\n00:00:02,000 --> \nno end\n\n6\n\n7\n00:00:20,000 --> 00:00:21,000\n");
    add("text-like-keys.srt", "1\n00:00:01,000 --> 00:00:02,000\n2\n3\n\n2\n00:00:03,000 --> 00:00:04,000\n"
                              "00:00:05,000 --> 00:00:06,000\n\n3\n00:00:07,000 --> 00:00:08,000\nend\n");
    add("spaces.srt", replaceAll(srt, "\n", "  \n"));
    add("tabs-and-bom.srt", "\xEF\xBB\xBF" + replaceAll(srt, " --> ", "\t-->\t"));

    // ASS/SSA scripts.
    add("script.ass", ass);
    add("script.ssa", kSsa);
    add("crlf.ass", replaceAll(ass, "\n", "\r\n"));
    add("no-final-line-feed.ass", ass.substr(0, ass.size() - 1));
    add("playres-empty.ass", replaceAll(ass, "PlayResX: 640", "PlayResX:"));
    add("playres-spaces.ass", replaceAll(ass, "PlayResY: 480", "PlayResY:   "));
    add("short-dialogues.ass",
        ass + "Dialogue: 0,0:00:09.00,0:00:10.00,Default,,0,0,0,\nDialogue: 0,0:00:11.00\nDialogue:\n"
              "Dialogue: 0,0:00:12.00,0:00:13.00,Default,,0,0,0,,\n");
    add("odd-dialogues.ass",
        ass + "Dialogue: x,1:2:3.4,0:00:00.00,,,,,,,\\N\\N{}\n"
              "Dialogue: 0,9:59:59.99,10:00:00.00,Default,,0,0,0,,late\n"
              "dialogue: 0,0:00:14.00,0:00:15.00,Default,,0,0,0,,lower case\n"
              "Dialogue:0,0:00:16.00,0:00:17.00,Default,,0,0,0,,no space\n"
              "Dialogue: 0,-0:00:01.00,0:00:18.00,Default,,0,0,0,,negative\n"
              "Dialogue: 0,0:00:19.00,0:00:20.00,Default,,0,0,0,,<<a>b> {a{b}c} \\n \\h end\n");
    add("styles-odd.ass",
        replaceAll(ass, "Style: Default,Arial,20,&H00FFFFFF",
                   "Style: Default,  Spaced Font ,20.5,&HFF00FF00,&H12,abc,&H80000000,1,-1,0,0,95.5,105,1.5,-3,3,0.5,"
                   "4,7,1,2,3,0\nStyle: Short,Font") );
    add("no-sections.ass", "Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,orphan\nPlayResX: 12\n");

    // VobSub index files.
    add("index.idx", kIdx);
    add("index-odd.idx", std::string(kIdx) + "timestamp: 00:00:05:000\ntimestamp:\ntimestamp: x, filepos: y\n"
                                             "palette: 1, 2\ncustom colors: OFF, tridx: 0, colors:\n"
                                             "timestamp: 00:00:01:000, filepos: 000000010\n");
    add("index-with-packet.idx", std::string(kIdx) + kSubMarker + std::string(2048, '\0') + std::string(64, 'P'));
    add("index-blank.idx", "\n;\n\n;;\n");

    // Large files: the whole-file line source and the fast map builders.
    std::mt19937 random(14);
    add("many-entries.srt", manyEntriesSrt(random, 1500));
    add("many-entries-mark.srt", "\xFF\xFE" + manyEntriesSrt(random, 700));
    add("many-dialogues.ass", manyDialogues(random, 1500));
    add("many-dialogues-mark.ass", "\xFF\xFE" + manyDialogues(random, 600));
    return set;
}

} // namespace golden
