#ifndef ZEMSUB_PARSERS_DETAIL_IDX_IDXPACKET_H
#define ZEMSUB_PARSERS_DETAIL_IDX_IDXPACKET_H

// Cutting one subtitle packet out of a .sub file: an MPEG-2 program stream of
// 2048-byte sectors, each a pack carrying a private-stream-1 PES packet.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>

#include "parsers/detail/reading/SubOpen.h"

namespace zemsub::detail {

constexpr int kSubSectorSize = 2048;
constexpr unsigned char kFirstSubStream = 0x20;

// Reads the next sector into sector (zero-filled first); answers the bytes read.
inline size_t readSubSector(FILE* f, unsigned char* sector)
{
    std::memset(sector, 0, kSubSectorSize);
    return std::fread(sector, 1, kSubSectorSize, f);
}

// Length of the PES header data of the sector.
inline int pesHeaderLength(const unsigned char* sector)
{
    return sector[22];
}

// The substream number stands right behind the PES header data.
inline bool carriesFirstSubStream(const unsigned char* sector)
{
    return sector[23 + pesHeaderLength(sector)] == kFirstSubStream;
}

// Where the subtitle bytes of the sector begin.
inline int subPayloadStart(const unsigned char* sector)
{
    return 24 + pesHeaderLength(sector);
}

// The first sector of a packet, tested in this order: pack start code,
// private stream 1, PTS present, PTS marker of the first substream,
// substream number.
inline bool isFirstSubSector(const unsigned char* s)
{
    static const unsigned char packStart[4] = {0x00, 0x00, 0x01, 0xBA};
    static const unsigned char privateStream1[4] = {0x00, 0x00, 0x01, 0xBD};
    if (std::memcmp(s, packStart, 4) != 0)
        return false;
    if (std::memcmp(s + 14, privateStream1, 4) != 0)
        return false;
    if ((s[21] & 0x80) == 0)
        return false;
    if ((s[23] & 0xF0) != kFirstSubStream)
        return false;
    return carriesFirstSubStream(s);
}

// The packet that starts at pos (its low 32 bits) in the open stream f.
// packetSize and controlOffset are set once the first sector passes its tests.
inline unsigned char* readSubPacketFrom(FILE* f, long long pos, int& packetSize, int& controlOffset)
{
    std::fseek(f, static_cast<long>(static_cast<int32_t>(pos)), SEEK_SET);
    unsigned char sector[kSubSectorSize];
    readSubSector(f, sector);
    if (!isFirstSubSector(sector))
        return nullptr;

    int start = subPayloadStart(sector);
    packetSize = sector[start] * 256 + sector[start + 1];
    controlOffset = sector[start + 2] * 256 + sector[start + 3];

    unsigned char* packet = new (std::nothrow) unsigned char[packetSize];
    if (!packet)
        return nullptr;

    int copied = 0;
    for (;;) {
        const int n = std::min(packetSize - copied, kSubSectorSize - start);
        std::memcpy(packet + copied, sector + start, n);
        copied += n;
        if (copied >= packetSize)
            break;
        // The packet goes on in the next sector of the same substream.
        bool found = false;
        while (readSubSector(f, sector) > 0) {
            if (carriesFirstSubStream(sector)) {
                found = true;
                break;
            }
        }
        if (!found)
            break;
        start = subPayloadStart(sector);
    }
    if (copied != packetSize) {
        delete[] packet;
        return nullptr;
    }
    return packet;
}

// Opens path, reads the packet at pos and closes the file again.
inline unsigned char* readSubPacket(const char* path, long long pos, int& packetSize, int& controlOffset)
{
    char mode[] = "rb";
    FILE* f = sub_open(path, mode);
    if (!f)
        return nullptr;
    unsigned char* packet = readSubPacketFrom(f, pos, packetSize, controlOffset);
    std::fclose(f);
    return packet;
}

} // namespace zemsub::detail

#endif
