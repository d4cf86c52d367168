#!/usr/bin/env python3
"""Writes samples/vobsub.idx and samples/vobsub.sub: a small VobSub pair, byte by byte.

The .sub file is an MPEG-2 program stream in 2048-byte sectors. Each subtitle is
one DVD subpicture unit (a 2-bit run-length bitmap and its control sequences) in
private stream 1, substream 0x20, split over as many sectors as it needs: every
sector but the last is filled to its end, the last one is closed with a padding
packet. The .idx file lists each subtitle's time and the offset of its first sector.

Run it from anywhere: python3 tools/make-sample-sub.py
  --out DIR       write the pair into DIR instead of samples/
  --pictures DIR  also write each subpicture as it is drawn: DIR/subpicture-N.png
                  (RGBA, the index's colours, transparent where the contrast is 0)
                  and DIR/pictures.txt, one line "START_MS X Y FILE" per subpicture
  --position X,Y  top left of every subpicture (default 300,400)
  --size WxH      the index's size: line (default 720x480); "none" leaves the line out
  --contrast A,B,C,D  alpha of codes 0 to 3, 0 transparent to 15 opaque (default 0,15,15,15)
  --bitmaps LIST  the subpictures from LIST instead of the built-in ones: one line
                  "START_MS DURATION_MS X Y FILE [forced]" each, FILE a binary PGM (P5)
                  whose values are the pixel codes 0 to 3, relative to LIST's folder;
                  DURATION_MS "max" stops at 0xFFFF units, as converters write an
                  unknown end; "forced" starts it with the forced display command
"""

import argparse
import os
import struct
import zlib

SECTOR = 2048
SUBSTREAM = 0x20
HERE = os.path.dirname(os.path.abspath(__file__))
SAMPLES = os.path.join(os.path.dirname(HERE), "samples")


def pack_header():
    # 00 00 01 BA, system clock reference 0 with its marker bits, mux rate, no stuffing.
    return bytes([0x00, 0x00, 0x01, 0xBA, 0x44, 0x00, 0x04, 0x00, 0x04, 0x01, 0x01, 0x89, 0xC3, 0xF8])


def pts_bytes(pts):
    return bytes([
        0x21 | ((pts >> 29) & 0x0E),
        (pts >> 22) & 0xFF,
        0x01 | ((pts >> 14) & 0xFE),
        (pts >> 7) & 0xFF,
        0x01 | ((pts << 1) & 0xFE),
    ])


def pes_sector(payload, pts, room_left):
    """One sector: pack header, private stream 1 PES with the substream byte, payload,
    then padding. pts is None for a continuation sector."""
    header_data = pts_bytes(pts) if pts is not None else b""
    flags = 0x80 if pts is not None else 0x00
    used = 14 + 9 + len(header_data) + 1 + len(payload)
    rest = SECTOR - used
    if 0 < rest < 6:
        # Too little room for a padding packet: stuff the PES header instead.
        header_data += b"\xFF" * rest
        rest = 0
    pes_body = bytes([0x81, flags, len(header_data)]) + header_data + bytes([SUBSTREAM]) + payload
    sector = pack_header() + b"\x00\x00\x01\xBD" + struct.pack(">H", len(pes_body)) + pes_body
    if rest:
        sector += b"\x00\x00\x01\xBE" + struct.pack(">H", rest - 6) + b"\xFF" * (rest - 6)
    assert len(sector) == SECTOR, len(sector)
    return sector


class Nibbles:
    def __init__(self):
        self.values = []

    def put(self, value, count):
        for shift in range(count - 1, -1, -1):
            self.values.append((value >> (4 * shift)) & 0xF)

    def align(self):
        if len(self.values) % 2:
            self.values.append(0)

    def bytes(self):
        self.align()
        return bytes((self.values[i] << 4) | self.values[i + 1] for i in range(0, len(self.values), 2))


def encode_run(nibbles, count, colour):
    if count < 4:
        nibbles.put((count << 2) | colour, 1)
    elif count < 16:
        nibbles.put((count << 2) | colour, 2)
    elif count < 64:
        nibbles.put((count << 2) | colour, 3)
    else:
        nibbles.put((count << 2) | colour, 4)


def encode_rows(rows):
    nibbles = Nibbles()
    for row in rows:
        x = 0
        while x < len(row):
            colour = row[x]
            run = 1
            while x + run < len(row) and row[x + run] == colour and run < 255:
                run += 1
            encode_run(nibbles, run, colour)
            x += run
        nibbles.align()
    return nibbles.bytes()


def bitmap(width, height, bars, checker):
    """Colour 0 background, 1 fill, 2 border; bars vertical stripes of colour 3,
    or a checkerboard of 1 and 3 (which makes a long packet)."""
    rows = []
    for y in range(height):
        row = []
        for x in range(width):
            if x < 2 or y < 2 or x >= width - 2 or y >= height - 2:
                row.append(2)
            elif checker:
                row.append(1 if (x + y) % 2 else 3)
            elif bars and (x * bars // width) % 2 == 0:
                row.append(3)
            else:
                row.append(1)
        rows.append(row)
    return rows


# The index's palette, the subpicture's colour command (palette entries of codes
# 0 to 3) and its contrast (alpha of codes 0 to 3, 0 transparent, 15 opaque).
PALETTE = [0x000000, 0xf0f0f0, 0x202020, 0xe0c020, 0x3333fa, 0x1111bb, 0xfa3333, 0xbb1111,
           0x33fa33, 0x11bb11, 0xfafa33, 0xbbbb11, 0xfa33fa, 0xbb11bb, 0x33fafa, 0x11bbbb]
CODE_COLOURS = [0, 1, 2, 3]
CODE_CONTRAST = [0, 15, 15, 15]


def nibble_pair(high, low):
    return (high << 4) | low


def subpicture(rows, x, y, duration_ms, contrast, forced=False):
    width, height = len(rows[0]), len(rows)
    top = encode_rows(rows[0::2])
    bottom = encode_rows(rows[1::2])
    pixels = top + bottom
    first_control = 4 + len(pixels)
    x2, y2 = x + width - 1, y + height - 1
    commands = bytes([
        # colours, then contrast: emphasis 2, emphasis 1, pattern, background
        0x03, nibble_pair(CODE_COLOURS[3], CODE_COLOURS[2]), nibble_pair(CODE_COLOURS[1], CODE_COLOURS[0]),
        0x04, nibble_pair(contrast[3], contrast[2]), nibble_pair(contrast[1], contrast[0]),
        0x05, x >> 4, ((x & 0xF) << 4) | (x2 >> 8), x2 & 0xFF, y >> 4, ((y & 0xF) << 4) | (y2 >> 8), y2 & 0xFF,
        0x06,
    ]) + struct.pack(">HH", 4, 4 + len(top)) + bytes([0x00 if forced else 0x01, 0xFF])
    second_control = first_control + 4 + len(commands)
    delay = 0xFFFF if duration_ms is None else duration_ms * 90 // 1024
    stop = struct.pack(">HH", delay, second_control) + bytes([0x02, 0xFF])
    body = pixels + struct.pack(">HH", 0, second_control) + commands + stop
    return struct.pack(">HH", 4 + len(body), first_control) + body


def sectors_for(unit, pts):
    first_room = SECTOR - (14 + 9 + 5 + 1)
    next_room = SECTOR - (14 + 9 + 1)
    sectors = []
    chunk, unit = unit[:first_room], unit[first_room:]
    sectors.append(pes_sector(chunk, pts, 0))
    while unit:
        chunk, unit = unit[:next_room], unit[next_room:]
        sectors.append(pes_sector(chunk, None, 0))
    return sectors


def timestamp(ms):
    return "%02d:%02d:%02d:%03d" % (ms // 3600000, ms // 60000 % 60, ms // 1000 % 60, ms % 1000)


POSITION = (300, 400)  # top left of every subpicture on the 720x480 frame
SUBTITLES = [
    # start ms, duration ms, bitmap
    (1000, 2500, bitmap(96, 24, bars=2, checker=False)),
    (4000, 2500, bitmap(120, 24, bars=6, checker=False)),
    (7500, 3000, bitmap(200, 40, bars=0, checker=True)),
]


def png(rows):
    """An RGBA PNG of rows of (r, g, b, a) pixels."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data) & 0xFFFFFFFF)
    raw = b"".join(b"\x00" + bytes(channel for pixel in row for channel in pixel) for row in rows)
    header = struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 6, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(raw)) + chunk(b"IEND", b"")


def drawn(rows, contrast):
    """The bitmap's codes as the index colours them."""
    def colour(code):
        rgb = PALETTE[CODE_COLOURS[code]]
        return ((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF, contrast[code] * 17)
    return [[colour(code) for code in row] for row in rows]


def write_pictures(folder, position, contrast):
    os.makedirs(folder, exist_ok=True)
    listing = []
    for number, (start, _, rows) in enumerate(SUBTITLES, 1):
        name = "subpicture-%d.png" % number
        with open(os.path.join(folder, name), "wb") as f:
            f.write(png(drawn(rows, contrast)))
        listing.append("%d %d %d %s" % (start, position[0], position[1], name))
    with open(os.path.join(folder, "pictures.txt"), "w", newline="\n") as f:
        f.write("\n".join(listing) + "\n")


def read_codes(path):
    """A binary PGM (P5, maxval below 256) whose values are pixel codes 0 to 3."""
    with open(path, "rb") as f:
        data = f.read()
    fields = []
    at = 0
    while len(fields) < 4:
        while data[at:at + 1].isspace():
            at += 1
        if data[at:at + 1] == b"#":
            at = data.index(b"\n", at)
            continue
        end = at
        while not data[end:end + 1].isspace():
            end += 1
        fields.append(data[at:end])
        at = end
    if fields[0] != b"P5":
        raise ValueError("%s is not a binary PGM" % path)
    width, height = int(fields[1]), int(fields[2])
    pixels = data[at + 1:at + 1 + width * height]
    return [[min(3, value) for value in pixels[y * width:(y + 1) * width]] for y in range(height)]


def read_bitmaps(listing):
    folder = os.path.dirname(os.path.abspath(listing))
    subtitles = []
    with open(listing) as f:
        for line in f:
            if line.strip():
                fields = line.split()
                start, duration, x, y, name = fields[:5]
                subtitles.append((int(start), None if duration == "max" else int(duration),
                                  read_codes(os.path.join(folder, name)), (int(x), int(y)), "forced" in fields[5:]))
    return subtitles


def main():
    arguments = argparse.ArgumentParser(description="Writes the sample VobSub pair.")
    arguments.add_argument("--out", default=SAMPLES, help="folder of vobsub.idx and vobsub.sub")
    arguments.add_argument("--pictures", help="folder for the subpictures as drawn")
    arguments.add_argument("--position", default="%d,%d" % POSITION, help="top left of every subpicture, X,Y")
    arguments.add_argument("--size", default="720x480", help='the size: line, WxH, or "none"')
    arguments.add_argument("--bitmaps", help="a listing of subpictures to write instead of the built-in ones")
    arguments.add_argument("--contrast", default=",".join(map(str, CODE_CONTRAST)),
                           help="alpha of codes 0 to 3, A,B,C,D (0 to 15)")
    options = arguments.parse_args()
    position = tuple(int(value) for value in options.position.split(","))
    contrast = [int(value) for value in options.contrast.split(",")]
    if len(position) != 2 or not all(0 <= value < 4096 for value in position):
        arguments.error("--position wants X,Y from 0 to 4095")
    if len(contrast) != 4 or not all(0 <= value <= 15 for value in contrast):
        arguments.error("--contrast wants four values from 0 to 15")
    stream = b""
    index_lines = [
        "# VobSub index file, v7 (do not modify this line!)",
        "# Written for libzemsubtitle's samples by tools/make-sample-sub.py.",
        "size: " + options.size,
        "org: 0, 0",
        "scale: 100%, 100%",
        "alpha: 100%",
        "smooth: OFF",
        "fadein/out: 50, 50",
        "align: OFF at LEFT TOP",
        "time offset: 0",
        "forced subs: OFF",
        "palette: " + ", ".join("%06x" % colour for colour in PALETTE),
        "custom colors: OFF, tridx: 1000, colors: 000000, f0f0f0, 202020, e0c020",
        "langidx: 0",
        "",
        "# English",
        "id: en, index: 0",
    ]
    subtitles = [(start, duration, rows, position, False) for start, duration, rows in SUBTITLES]
    if options.bitmaps:
        subtitles = read_bitmaps(options.bitmaps)
    for start, duration, rows, at, forced in subtitles:
        unit = subpicture(rows, at[0], at[1], duration, contrast, forced)
        index_lines.append("timestamp: %s, filepos: %09x" % (timestamp(start), len(stream)))
        for sector in sectors_for(unit, start * 90):
            stream += sector
    if options.size == "none":
        index_lines.remove("size: none")
    os.makedirs(options.out, exist_ok=True)
    with open(os.path.join(options.out, "vobsub.sub"), "wb") as f:
        f.write(stream)
    with open(os.path.join(options.out, "vobsub.idx"), "w", newline="\n") as f:
        f.write("\n".join(index_lines) + "\n")
    if options.pictures:
        write_pictures(options.pictures, position, contrast)


if __name__ == "__main__":
    main()
