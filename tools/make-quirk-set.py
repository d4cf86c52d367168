#!/usr/bin/env python3
"""Writes a set of small subtitle files, one for every behaviour lint names
(and the ones fix cannot cure), into the directory given: the generated quirk
set that docs/fix.md tabulates before and after zemsub fix."""
import os
import sys


def srt(number, times, lines, end="\n"):
    return f"{number}{end}{times}{end}{end.join(lines.split(chr(10)))}{end}{end}"


def dialogue(start, end, text):
    return f"Dialogue: 0,{start},{end},Default,,0,0,0,,{text}\n"


HEAD = ("[Script Info]\nScriptType: v4.00+\n\n[Events]\n"
        "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n")


def script(*texts, head=HEAD):
    return head + "".join(dialogue(f"0:00:0{2 * i + 1}.00", f"0:00:0{2 * i + 2}.00", t)
                          for i, t in enumerate(texts))


TWO = srt(1, "00:00:01,000 --> 00:00:02,000", "one") + srt(2, "00:00:03,000 --> 00:00:04,000", "two")


def long_file():
    parts = []
    for i in range(5001):
        t = f"{i // 3600:02d}:{i // 60 % 60:02d}:{i % 60:02d}"
        parts.append(srt(i + 1, f"{t},000 --> {t},500", f"c{i}"))
    return "".join(parts)


def quirks():
    utf16 = b"\xff\xfe" + TWO.encode("utf-16-le")
    return {
        "extension.txt": TWO,
        "utf16.srt": utf16,
        "crlf.srt": srt(1, "00:00:01,000 --> 00:00:02,000", "one", "\r\n")
        + srt(2, "00:00:03,000 --> 00:00:04,000", "two", "\r\n"),
        "utf8-mark.srt": "\ufeff" + TWO,
        "one-entry.srt": srt(1, "00:00:01,000 --> 00:00:02,000", "alone"),
        "numbering.srt": srt(5, "00:00:01,000 --> 00:00:02,000", "one")
        + srt(3, "00:00:03,000 --> 00:00:04,000", "two") + srt(3, "00:00:05,000 --> 00:00:06,000", "three"),
        "key-zero.srt": srt(0, "00:00:01,000 --> 00:00:02,000", "zero")
        + srt(1, "00:00:03,000 --> 00:00:04,000", "one") + srt(2, "00:00:05,000 --> 00:00:06,000", "two"),
        "digit-line.srt": srt(1, "00:00:01,000 --> 00:00:02,000", "1984")
        + srt(2, "00:00:03,000 --> 00:00:04,000", "two\n42"),
        "three-lines.srt": srt(1, "00:00:01,000 --> 00:00:02,000", "a\nb\nc")
        + srt(2, "00:00:03,000 --> 00:00:04,000", "d\ne\nf\ng"),
        "arrow-blank.srt": srt(1, "10:00:01,000 --> 10:00:02,000", "one")
        + srt(2, "10:00:03,000 -->10:00:04,000", "two") + srt(3, "10:00:05,000 --> 10:00:06,000", "three"),
        "fraction.srt": srt(1, "00:00:01,5 --> 00:00:02,1250", "one") + srt(2, "00:00:04,000 --> 00:00:05,000", "two"),
        "blank-line.srt": srt(1, "00:00:01,000 --> 00:00:02,000", "one\n   ")
        + srt(2, "00:00:03,000 --> 00:00:04,000", "two"),
        "markup.srt": srt(1, "00:00:01,000 --> 00:00:02,000", "<i>one</i>")
        + srt(2, "00:00:03,000 --> 00:00:04,000", '{\\an8}<font color="red">two</font>'),
        "no-scripttype.ass": script("a = b", "two", "three", head="[Script Info]\n[Events]\n"),
        "unclosed-tag.ass": script("one{\\b1", "two", "three"),
        "tag-tail.ass": script("{abc}x{y", "two", "three"),
        "tag-repeat.ass": script("x{ab}{c", "two", "three"),
        "angle-pair.ass": script("x <y> z", "two", "three"),
        "line-breaks.ass": script("a\\Nb\\Nc", "two", "three"),
        "escapes.ass": script("a\\nb\\hc", "two", "three"),
        "overlap.srt": srt(1, "00:00:01,000 --> 00:00:03,000", "under")
        + srt(2, "00:00:02,000 --> 00:00:04,000", "over") + srt(3, "00:00:05,000 --> 00:00:06,000", "end"),
        "repeat-after-gap.srt": srt(1, "00:00:01,000 --> 00:00:02,000", "same")
        + srt(2, "00:00:03,000 --> 00:00:04,000", "same") + srt(3, "00:00:05,000 --> 00:00:06,000", "end"),
        "encoding.srt": (srt(1, "00:00:01,000 --> 00:00:02,000", "caf\xe9")
                         + srt(2, "00:00:03,000 --> 00:00:04,000", "two")).encode("latin-1"),
        "amp-h.ass": "[Script Info]\nScriptType: v4.00+\nPlayResX: &h180\n[Events]\n"
        + dialogue("0:00:01.00", "0:00:02.00", "one") + dialogue("0:00:03.00", "0:00:04.00", "two"),
        "time-zero.ass": HEAD + dialogue("0:00:00.00", "0:00:01.00", "zero")
        + dialogue("0:00:02.00", "0:00:03.00", "two"),
        "drawing.ass": script("{\\p1}m 0 0 l 10 0 10 10{\\p0}", "two", "three"),
        "karaoke.ass": script("{\\k20}ka{\\k30}ra", "two", "three"),
        "time-range.srt": srt(1, "00:00:01,000 --> 00:00:02,000", "one")
        + srt(2, "600:00:00,000 --> 600:00:01,000", "late") + srt(3, "600:00:02,000 --> 600:00:03,000", "last"),
        "open-refused.srt": long_file(),
        "unended-last-line.ssa": "[Script Info]\nScriptType: v4.00\n\n[Events]\n"
        "Format: Marked, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
        "Dialogue: Marked=0,0:00:01.00,0:00:02.00,*Default,,0000,0000,0000,,one\n"
        "Dialogue: Marked=0,0:00:03.00,0:00:04.00,*Default,,0000,0000,0000,,two\n"
        "Sound: Marked=0,0:00:04.00,0:00:05.00,*Default,,0000,0000,0000,,bell.wav\n"
        "Dialogue: Marked=0,0:00:05.00,0:00:06.00,*Default,,0000,0000,0000,,three\n"
        "Dialogue: Marked=0,0:00:07.00,0:00:08.00,*Default,,0000,0000,0000,,four",
    }


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: make-quirk-set.py DIR")
    os.makedirs(sys.argv[1], exist_ok=True)
    for name, content in quirks().items():
        data = content if isinstance(content, bytes) else content.encode("utf-8")
        with open(os.path.join(sys.argv[1], name), "wb") as f:
            f.write(data)


if __name__ == "__main__":
    main()
