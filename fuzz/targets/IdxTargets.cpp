// VobSub index parsers, narrow and wide. The input is the index text, optionally
// followed by the marker "%%SUB%%\n" and the bytes of the .sub file that the
// narrow parser cuts packets from. The field readers throw the int 1 for a
// field asked of an empty remainder; that is checked to happen exactly then.
#include <climits>

#include "FuzzSupport.h"
#include "FuzzTargets.h"
#include "parsers/xcIdxParser.h"
#include "parsers/xcIdxParserU.h"

namespace zemsub::fuzz {
namespace {

const char* const kSubMarker = "%%SUB%%\n";

// The field readers on copies of the lines.
template <class Parser, class Str, class Char> void cutFields(Parser& parser, const std::vector<Str>& lines)
{
    const Char separators[] = {Char(':'), Char(','), Char(' ')};
    size_t used = 0;
    for (const Str& original : lines) {
        if (++used > 32)
            break;
        Str line = original;
        for (int step = 0; step < 8; ++step) {
            const Char sep = separators[(step + used) % 3];
            Str trimmed = line;
            trimmed.TrimLeft();
            const bool expectThrow = trimmed.isEmpty() && trimmed.find(sep, 0) < 0;
            try {
                if (step % 2)
                    parser.GetInt(line, sep);
                else
                    parser.GetStr(line, sep);
                FUZZ_CHECK(!expectThrow);
            } catch (int thrown) {
                FUZZ_CHECK(thrown == 1);
                FUZZ_CHECK(expectThrow);
                break;
            }
        }
    }
}

template <class Entry> std::vector<long long> idxTimes(const std::map<int, Entry>& map)
{
    std::vector<long long> times = {LLONG_MIN, INT_MIN, -1, 0, 1, 499, 500, 999, 1000, INT_MAX, LLONG_MAX};
    size_t used = 0;
    for (const auto& [key, e] : map) {
        if (++used > 12)
            break;
        for (long long d : {-1000LL, -999LL, -500LL, -499LL, 0LL, 499LL, 500LL, 999LL, 1000LL})
            times.push_back(e.time + d);
    }
    return times;
}

template <class Entry> bool isSomeFilePos(const std::map<int, Entry>& map, long long pos)
{
    for (const auto& [key, e] : map)
        if (e.filePos == pos)
            return true;
    return false;
}

void exerciseNarrow(const SplitInput& input)
{
    xcIdxParser parser;
    const bool opened = parser.Open("in.idx");
    if (input.first.empty())
        FUZZ_CHECK(!opened);
    FUZZ_CHECK(parser.GetSubPath() == ".idxsub");

    const size_t lineCount = parser.GetLines().size();
    for (const auto& [key, e] : parser.GetMap())
        FUZZ_CHECK(key >= 0 && size_t(key) < lineCount);

    const std::vector<long long> times = idxTimes(parser.GetMap());
    for (long long t : times) {
        const long long pos = parser.GetFilePos(t);
        if (t <= 0)
            FUZZ_CHECK(pos == 0);
        FUZZ_CHECK(pos == 0 || isSomeFilePos(parser.GetMap(), pos));
    }
    for (size_t i = 0; i < times.size(); i += 2) {
        int packetSize = -7, controlOffset = -7;
        unsigned char* packet = parser.GetPacket(times[i], packetSize, controlOffset);
        if (packet) {
            FUZZ_CHECK(packetSize >= 0 && packetSize <= 0xFFFF);
            FUZZ_CHECK(controlOffset >= 0 && controlOffset <= 0xFFFF);
            // Every byte of the packet is there to be read.
            volatile unsigned sum = 0;
            for (int k = 0; k < packetSize; ++k)
                sum = sum + packet[k];
            delete[] packet;
        }
    }
    cutFields<xcIdxParser, xcString, char>(parser, parser.GetLines());

    // The map is kept across opens; a second Open answers as the first.
    FUZZ_CHECK(parser.Open("in.idx") == opened);
}

void exerciseWide(const SplitInput& input)
{
    xcIdxParserU parser;
    // The path's storage is read as narrow bytes: the file opened is "x".
    wchar_t path[] = L"x.idx";
    const bool opened = parser.Open(path);
    if (input.first.empty())
        FUZZ_CHECK(!opened);
    FUZZ_CHECK(parser.GetSubPath() == L".idxsub");

    const std::vector<long long> times = idxTimes(parser.GetMap());
    for (long long t : times) {
        const long long pos = parser.GetFilePos(int(t));
        if (int(t) <= 0)
            FUZZ_CHECK(pos == 0);
        FUZZ_CHECK(pos == 0 || isSomeFilePos(parser.GetMap(), pos));
    }
    for (size_t i = 0; i < times.size(); i += 4) {
        int packetSize = -7, controlOffset = -7;
        FUZZ_CHECK(parser.GetPacket(int(times[i]), packetSize, controlOffset) == nullptr);
        FUZZ_CHECK(packetSize == -7 && controlOffset == -7);
    }
    cutFields<xcIdxParserU, xcWString, wchar_t>(parser, parser.GetLines());
    FUZZ_CHECK(parser.Open(path) == opened);
}

} // namespace
} // namespace zemsub::fuzz

int fuzz_idx_parser(const uint8_t* data, size_t size)
{
    using namespace zemsub::fuzz;
    const SplitInput input = splitAt(data, size, kSubMarker);
    ScratchCwd cwd;
    DescriptorCheck descriptors;
    writeScratch("in.idx", input.first);
    if (input.hasSecond)
        writeScratch(".idxsub", input.second);
    else
        removeScratch(".idxsub");
    exerciseNarrow(input);
    descriptors.verify();
    return 0;
}

int fuzz_idx_parser_u(const uint8_t* data, size_t size)
{
    using namespace zemsub::fuzz;
    const SplitInput input = splitAt(data, size, kSubMarker);
    ScratchCwd cwd;
    DescriptorCheck descriptors;
    writeScratch("x", input.first);
    for (const char* locale : wideLocales()) {
        CtypeLocale scope(locale);
        exerciseWide(input);
    }
    descriptors.verify();
    return 0;
}
