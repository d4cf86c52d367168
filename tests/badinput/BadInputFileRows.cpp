// Rows about the file itself: missing, a directory, 0 to 2 bytes, the mark
// alone, binary noise, NUL bytes.
#include <random>

#include "badinput/BadInputTable.h"

namespace badinput {

namespace {

// Bytes of noise with no line feed, carriage return, NUL, ":", "-" or ">" in it, so
// that every parser sees one line that is neither a number, a time line nor a key.
std::string noise(size_t size)
{
    std::mt19937 random(7);
    std::string out;
    while (out.size() < size) {
        const char c = static_cast<char>(random() & 0xFF);
        if (c == '\n' || c == '\r' || c == '\0' || c == ':' || c == '-' || c == '>')
            continue;
        out += c;
    }
    if (out[0] == '\xFF')
        out[0] = 'x'; // no mark
    out[5] = 'x';     // not all digits
    return out;
}

CaptionExpect opens(int entries, std::vector<Answer> answers = {})
{
    return {Opens::Yes, entries, std::move(answers)};
}

CaptionExpect refuses()
{
    return {Opens::No, 0, {}};
}

} // namespace

std::vector<Row> fileRows()
{
    std::vector<Row> rows;
    {
        Row r;
        r.name = "MissingFile";
        r.what = "a path where nothing is";
        r.path = "missing.srt";
        r.kind = Kind::Missing;
        r.manager = {Opens::No, 0, false, {}};
        r.srt = r.srtU = r.ass = r.assU = refuses();
        r.idx = r.idxU = {Opens::No, 0, ".srtsub", {}};
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "Directory";
        r.what = "a directory (opens where the file system reports it a size, holding nothing)";
        r.path = "dir.srt";
        r.kind = Kind::Directory;
        r.manager = {Opens::No, 0, false, {}};
        r.srt = r.ass = {Opens::IfStreamHasSize, 0, {}};
        r.srtU = r.assU = {Opens::IfDescriptorHasSize, 0, {}};
        r.idx = {Opens::IfStreamHasSize, 0, ".srtsub", {}};
        r.idxU = {Opens::IfDescriptorHasSize, 0, ".srtsub", {}};
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "EmptyFile";
        r.what = "a file of 0 bytes";
        r.path = "empty.srt";
        r.manager = {Opens::No, 0, false, {}};
        r.srt = r.srtU = r.ass = r.assU = refuses();
        r.idx = r.idxU = {Opens::No, 0, ".srtsub", {}};
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "OneByte";
        r.what = "a file of 1 byte";
        r.path = "one.srt";
        r.bytes = "x";
        r.manager = {Opens::No, 0, false, {}};
        r.srt = opens(1); // the unterminated line "x" goes to entry 0, which is never asked
        r.srtU = r.ass = r.assU = opens(0);
        r.idx = r.idxU = {Opens::Yes, 0, ".srtsub", {}};
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "TwoBytes";
        r.what = "a file of 2 bytes";
        r.path = "two.srt";
        r.bytes = "1\n";
        r.manager = {Opens::Yes, 1, false, {}};
        r.srt = r.srtU = r.ass = r.assU = opens(0);
        r.idx = r.idxU = {Opens::Yes, 0, ".srtsub", {}};
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "MarkAloneSrt";
        r.what = "the bytes FF FE alone, named .srt";
        r.path = "mark.srt";
        r.bytes = "\xFF\xFE";
        r.manager = {Opens::Yes, 4, true, {}};
        r.srt = opens(1);
        r.srtU = r.ass = r.assU = opens(0);
        r.idx = r.idxU = {Opens::Yes, 0, ".srtsub", {}};
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "MarkAloneAss";
        r.what = "the bytes FF FE alone, named .ass";
        r.path = "mark.ass";
        r.bytes = "\xFF\xFE";
        r.manager = {Opens::Yes, 5, true, {}};
        r.srt = opens(1);
        r.srtU = r.ass = r.assU = opens(0);
        r.idx = r.idxU = {Opens::Yes, 0, ".asssub", {}};
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "BinaryNoise";
        r.what = "4096 bytes of binary noise";
        r.path = "noise.srt";
        r.bytes = noise(4096);
        r.manager = {Opens::Yes, 1, false, {}};
        r.srt = opens(1);
        r.srtU = opens(-1); // what decodes before the first undecodable byte
        r.ass = r.assU = opens(0);
        r.idx = r.idxU = {Opens::Yes, 0, ".srtsub", {}};
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "BinaryNoiseBehindMark";
        r.what = "4096 bytes of binary noise behind FF FE";
        r.path = "noisew.srt";
        r.bytes = "\xFF\xFE" + noise(4096);
        r.manager = {Opens::Yes, 4, true, {}};
        r.srt = opens(1);
        r.srtU = opens(-1);
        r.ass = r.assU = opens(0);
        r.idx = r.idxU = {Opens::Yes, 0, ".srtsub", {}};
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "NulBytes";
        r.what = "1000 NUL bytes (the first line reads empty, which ends the reading)";
        r.path = "nul.srt";
        r.bytes = std::string(1000, '\0');
        r.manager = {Opens::Yes, 1, false, {}};
        r.srt = r.srtU = r.ass = r.assU = opens(0);
        r.idx = r.idxU = {Opens::Yes, 0, ".srtsub", {}};
        rows.push_back(r);
    }
    {
        Row r;
        r.name = "NulInsideCaption";
        r.what = "a NUL byte inside a caption line (the line ends there)";
        r.path = "nulcap.srt";
        r.bytes = std::string("1\n00:00:01,000 --> 00:00:02,000\nab\0cd\n\n", 39) +
                  "2\n00:00:03,000 --> 00:00:04,000\nb\n\n3\n00:00:05,000 --> 00:00:06,000\nc\n";
        const std::vector<Answer> narrow = {{1000, "\nab"}, {1500, "\nab"}, {3500, "\nb"}};
        r.manager = {Opens::Yes, 1, false, narrow};
        r.srt = opens(3, narrow);
        r.srtU = opens(3, {{1000, "\nab"}, {1500, "\nab"}, {3500, "\nb"}, {5500, "\nc"}});
        r.ass = r.assU = opens(0);
        r.idx = r.idxU = {Opens::Yes, 0, ".srtsub", {}};
        rows.push_back(r);
    }
    return rows;
}

} // namespace badinput
