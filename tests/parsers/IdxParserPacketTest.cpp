// Cutting a subtitle packet out of the .sub file: GetPacket of both twins.
#include <gtest/gtest.h>

#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "parsers/xcIdxParser.h"
#include "parsers/xcIdxParserU.h"
#include "support/TestFiles.h"

namespace {

constexpr int kSector = 2048;

using Bytes = std::vector<unsigned char>;

// A 2048-byte pack carrying a private-stream-1 PES packet of substream
// `substream`, with h bytes of PES header data and the payload behind them.
// A first sector has a PTS (flag in byte 21, marker 0x21 in byte 23).
Bytes subSector(int h, bool withPts, const Bytes& payload, unsigned char substream = 0x20)
{
    Bytes s(kSector, 0);
    const unsigned char pack[] = {0x00, 0x00, 0x01, 0xBA, 0x44, 0x00, 0x04,
                                  0x00, 0x04, 0x01, 0x01, 0x89, 0xC3, 0xF8};
    std::copy(std::begin(pack), std::end(pack), s.begin());
    s[14] = 0x00;
    s[15] = 0x00;
    s[16] = 0x01;
    s[17] = 0xBD;
    s[18] = 0x07; // PES packet length
    s[19] = 0xEC;
    s[20] = 0x81;
    s[21] = withPts ? 0x80 : 0x00;
    s[22] = static_cast<unsigned char>(h);
    for (int i = 0; i < h; ++i)
        s[23 + i] = 0xFF;
    if (withPts) {
        s[23] = 0x21;
        s[24] = 0x00;
        s[25] = 0x01;
        s[26] = 0x00;
        s[27] = 0x01;
    }
    s[23 + h] = substream;
    for (size_t i = 0; i < payload.size() && 24 + h + i < s.size(); ++i)
        s[24 + h + i] = payload[i];
    return s;
}

// A subtitle packet of size bytes: the size and control offset words, then a pattern.
Bytes packet(int size, int controlOffset)
{
    Bytes p(static_cast<size_t>(size));
    for (int i = 0; i < size; ++i)
        p[i] = static_cast<unsigned char>((i * 7 + 3) & 0xFF);
    p[0] = static_cast<unsigned char>(size >> 8);
    p[1] = static_cast<unsigned char>(size & 0xFF);
    p[2] = static_cast<unsigned char>(controlOffset >> 8);
    p[3] = static_cast<unsigned char>(controlOffset & 0xFF);
    return p;
}

Bytes slice(const Bytes& b, size_t from, size_t count)
{
    return Bytes(b.begin() + static_cast<long>(from),
                 b.begin() + static_cast<long>(std::min(b.size(), from + count)));
}

std::string fileBytes(const std::vector<Bytes>& sectors)
{
    std::string out;
    for (const Bytes& s : sectors)
        out.append(s.begin(), s.end());
    return out;
}

// The index used by every narrow test: the entry at key 0, 1000 ms, sector 1.
const char* const kIndex = "timestamp: 00:00:01:000, filepos: 000000800\n";

struct PacketResult
{
    std::unique_ptr<unsigned char[]> data;
    int size = -7;
    int controlOffset = -7;

    Bytes bytes() const { return data ? Bytes(data.get(), data.get() + size) : Bytes(); }
};

PacketResult getPacket(xcIdxParser& parser, long long timeMs)
{
    PacketResult r;
    r.data.reset(parser.GetPacket(timeMs, r.size, r.controlOffset));
    return r;
}

// Writes movie.idx and its .sub (sector 0 a foreign sector, then `sectors`) and opens the index.
void prepare(xcIdxParser& parser, const TempDir& dir, const std::vector<Bytes>& sectors)
{
    std::vector<Bytes> all{Bytes(kSector, 0)};
    all.insert(all.end(), sectors.begin(), sectors.end());
    dir.write("movie.idx", kIndex);
    dir.write(".idxsub", fileBytes(all));
    ASSERT_TRUE(parser.Open("movie.idx"));
    ASSERT_STREQ(parser.GetSubPath().getData(), ".idxsub");
}

} // namespace

TEST(IdxParserPacket, ValidOneSectorPacket)
{
    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParser parser;
    const Bytes p = packet(100, 60);
    prepare(parser, dir, {subSector(5, true, p)});
    const PacketResult r = getPacket(parser, 1000);
    ASSERT_TRUE(r.data != nullptr);
    EXPECT_EQ(r.size, 100);
    EXPECT_EQ(r.controlOffset, 60);
    EXPECT_EQ(r.bytes(), p);
}

TEST(IdxParserPacket, SizeAndControlOffsetAreBigEndianWords)
{
    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParser parser;
    const Bytes p = packet(0x0123, 0x0110);
    prepare(parser, dir, {subSector(0, true, p)});
    const PacketResult r = getPacket(parser, 1200);
    ASSERT_TRUE(r.data != nullptr);
    EXPECT_EQ(r.size, 0x123);
    EXPECT_EQ(r.controlOffset, 0x110);
    EXPECT_EQ(r.bytes(), p);
}

TEST(IdxParserPacket, PacketFillingTheFirstSectorNeedsNoFurtherSector)
{
    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParser parser;
    const Bytes p = packet(kSector - 29, 40);
    prepare(parser, dir, {subSector(5, true, p)});
    const PacketResult r = getPacket(parser, 1000);
    ASSERT_TRUE(r.data != nullptr);
    EXPECT_EQ(r.bytes(), p);
}

TEST(IdxParserPacket, PacketSpanningThreeSectorsSkipsForeignSectors)
{
    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParser parser;
    const int first = kSector - (24 + 5);
    const int second = kSector - 24;
    const int third = 500;
    const Bytes p = packet(first + second + third, 4000);
    prepare(parser, dir,
            {subSector(5, true, slice(p, 0, first)),
             subSector(0, false, Bytes(kSector, 0xEE), 0x21), // another subtitle stream
             Bytes(kSector, 0),                               // a sector of no interest
             subSector(0, false, slice(p, first, second)), subSector(2, false, Bytes(kSector, 0xDD), 0x22),
             subSector(3, false, slice(p, first + second, third)),
             subSector(0, false, Bytes(kSector, 0xCC))});
    const PacketResult r = getPacket(parser, 1000);
    ASSERT_TRUE(r.data != nullptr);
    EXPECT_EQ(r.size, first + second + third);
    EXPECT_EQ(r.controlOffset, 4000);
    EXPECT_EQ(r.bytes(), p);
}

TEST(IdxParserPacket, EachHeaderCheckFailingGivesNullAndLeavesTheOutputs)
{
    struct Corruption
    {
        const char* what;
        int at;
        unsigned char value;
    };
    // The first sector has h = 5, so its substream number stands at 28.
    const Corruption corruptions[] = {
        {"pack start code byte 0", 0, 0x47},
        {"pack start code byte 1", 1, 0x01},
        {"pack start code byte 2", 2, 0x00},
        {"pack start code byte 3", 3, 0xBB},
        {"private stream 1 byte 14", 14, 0x01},
        {"private stream 1 byte 15", 15, 0x01},
        {"private stream 1 byte 16", 16, 0x00},
        {"private stream 1 byte 17", 17, 0xE0},
        {"PTS flag", 21, 0x7F},
        {"PTS marker nibble", 23, 0x31},
        {"substream number", 28, 0x21},
    };
    for (const Corruption& c : corruptions) {
        TempDir dir;
        InDirectory in(dir.path());
        xcIdxParser parser;
        Bytes first = subSector(5, true, packet(100, 60));
        first[c.at] = c.value;
        prepare(parser, dir, {first});
        const PacketResult r = getPacket(parser, 1000);
        EXPECT_TRUE(r.data == nullptr) << c.what;
        EXPECT_EQ(r.size, -7) << c.what;
        EXPECT_EQ(r.controlOffset, -7) << c.what;
    }
}

TEST(IdxParserPacket, PtsFlagNeedsOnlyItsTopBit)
{
    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParser parser;
    Bytes first = subSector(5, true, packet(100, 60));
    first[21] = 0xC0;
    prepare(parser, dir, {first});
    EXPECT_TRUE(getPacket(parser, 1000).data != nullptr);
}

TEST(IdxParserPacket, FileShorterThanThePacketGivesNull)
{
    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParser parser;
    const Bytes p = packet(3000, 100);
    prepare(parser, dir, {subSector(5, true, slice(p, 0, kSector - 29))});
    const PacketResult r = getPacket(parser, 1000);
    EXPECT_TRUE(r.data == nullptr);
    // The sizes were read before the copy ran short.
    EXPECT_EQ(r.size, 3000);
    EXPECT_EQ(r.controlOffset, 100);
}

TEST(IdxParserPacket, OnlyForeignSectorsAfterTheFirstGiveNull)
{
    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParser parser;
    const Bytes p = packet(3000, 100);
    prepare(parser, dir,
            {subSector(5, true, slice(p, 0, kSector - 29)), subSector(0, false, slice(p, 2019, 981), 0x21),
             Bytes(kSector, 0)});
    EXPECT_TRUE(getPacket(parser, 1000).data == nullptr);
}

TEST(IdxParserPacket, TimeWithoutEntryReadsFromTheStartOfTheFile)
{
    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParser parser;
    prepare(parser, dir, {subSector(5, true, packet(100, 60))});
    // Position 0 holds the foreign sector.
    EXPECT_TRUE(getPacket(parser, 50000).data == nullptr);

    // With a packet at the start of the file, a time without entry finds it.
    const Bytes p = packet(80, 10);
    dir.write(".idxsub", fileBytes({subSector(0, true, p)}));
    const PacketResult r = getPacket(parser, 50000);
    ASSERT_TRUE(r.data != nullptr);
    EXPECT_EQ(r.bytes(), p);
}

TEST(IdxParserPacket, MissingSubFileGivesNullAndLeavesTheOutputs)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("movie.idx", kIndex);
    xcIdxParser parser;
    ASSERT_TRUE(parser.Open("movie.idx"));
    const PacketResult r = getPacket(parser, 1000);
    EXPECT_TRUE(r.data == nullptr);
    EXPECT_EQ(r.size, -7);
    EXPECT_EQ(r.controlOffset, -7);
}

TEST(IdxParserPacket, SubFileIsClosedAfterwards)
{
    TempDir dir;
    InDirectory in(dir.path());
    xcIdxParser parser;
    prepare(parser, dir, {subSector(5, true, packet(100, 60))});
    const int before = openDescriptorCount();
    EXPECT_TRUE(getPacket(parser, 1000).data != nullptr);
    EXPECT_EQ(openDescriptorCount(), before);
    EXPECT_TRUE(getPacket(parser, 50000).data == nullptr);
    EXPECT_EQ(openDescriptorCount(), before);
}

TEST(IdxParserPacket, LookUpInsertsZeroEntries)
{
    TempDir dir;
    InDirectory in(dir.path());
    dir.write("movie.idx", "# 0\n# 1\n# 2\n" + std::string(kIndex));
    xcIdxParser parser;
    ASSERT_TRUE(parser.Open("movie.idx"));
    int size = 0, offset = 0;
    EXPECT_TRUE(parser.GetPacket(1000, size, offset) == nullptr);
    EXPECT_EQ(parser.GetMap().size(), 4u);
}

TEST(IdxParserPacketWide, AlwaysNullWhenTheEmptyNameCannotBeOpened)
{
    TempDir dir;
    InDirectory in(dir.path());
    // The wide parser opens the empty name, whatever index and .sub exist.
    dir.write("w", "timestamp: 00:00:01:000, filepos: 000000000\n");
    dir.write(".idxsub", fileBytes({subSector(0, true, packet(80, 10))}));
    dir.write("wsub", fileBytes({subSector(0, true, packet(80, 10))}));
    wchar_t name[] = L"w";
    xcIdxParserU parser;
    ASSERT_TRUE(parser.Open(name));
    const int before = openDescriptorCount();
    for (int timeMs : {-1, 0, 1, 1000, 50000}) {
        int size = -7, offset = -7;
        EXPECT_TRUE(parser.GetPacket(timeMs, size, offset) == nullptr) << timeMs;
        EXPECT_EQ(size, -7);
        EXPECT_EQ(offset, -7);
    }
    EXPECT_EQ(openDescriptorCount(), before);
}
