#!/usr/bin/env python3
"""Whole outputs of every zemsub command, stored and compared byte for byte.

Runs each command (text and --json) over the samples, the generated quirk set, the
three-track video and the picture samples, in a scratch folder with relative paths,
and records per input: the exit code, stdout, stderr and every text file written.
Pictures written (render, sheet, --review) are recorded by size and a digest of
their pixels, per Qt major (font drawing may differ between the two).

  command_outputs.py ZEMSUB QT_MAJOR            compare with expected/
  ZEMSUB_GOLDEN_UPDATE=1 command_outputs.py ...  rewrite expected/
"""
import hashlib
import os
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.abspath(os.path.join(HERE, "..", "..", ".."))
EXPECTED = os.path.join(HERE, "expected")

TEXT_SAMPLES = ["film.srt", "wide-utf8.srt", "wide-utf16.srt", "styled.ass", "classic.ssa"]
PICTURE_SAMPLES = ["words.sup", "words.idx", "vobsub.idx"]
VIDEO = "tracks.mkv"
LONG, HEAD, TAIL = 160, 100, 30


def text_cases(name):
    stem = os.path.splitext(name)[0]
    return [
        ["info", name], ["info", "--json", name],
        ["at", name, "0", "1500", "00:00:05,000", "20000"],
        ["dump", name], ["dump", "--json", name],
        ["tracks", name], ["tracks", "--json", name],
        ["lint", name], ["lint", "--json", name],
        ["fix", name, "-o", stem + ".fixed.srt"], ["fix", "--json", name, "-o", stem + ".fixed.ass"],
        ["convert", name, "-o", stem + ".plain.vtt"], ["convert", "--json", name, "-o", stem + ".plain.srt"],
        ["render", name, "1500", "-o", stem + ".render.png"],
        ["sheet", name, "-o", stem + ".sheet.png"],
        ["sheet", "--every", "700", name, "-o", stem + ".every.png"],
    ]


def quirk_cases(name):
    stem = os.path.splitext(name)[0]
    return [
        ["info", name], ["dump", "--json", name],
        ["lint", name], ["lint", "--json", name],
        ["fix", name, "-o", stem + ".fixed.srt"], ["fix", "--json", name, "-o", stem + ".fixed.ass"],
        ["convert", "--json", name, "-o", stem + ".plain.srt"],
    ]


def picture_cases(name):
    stem = os.path.splitext(name)[0]
    return [
        ["info", name], ["at", name, "1000", "2500"], ["dump", "--json", name],
        ["tracks", name], ["tracks", "--json", name],
        ["lint", name], ["lint", "--json", name],
        ["fix", name, "-o", stem + ".fixed.srt"], ["fix", "--json", name, "-o", stem + ".fixed.ass"],
        ["convert", name, "-o", stem + ".plain.srt", "--review", stem + ".review.png"],
        ["convert", "--json", name, "-o", stem + ".plain.vtt"],
        ["render", name, "1500", "-o", stem + ".render.png"],
        ["sheet", name, "-o", stem + ".sheet.png"],
        ["sheet", "--text", name, "-o", stem + ".sheet-text.png"],
        ["sheet", "--every", "700", name, "-o", stem + ".every.png"],
    ]


def video_cases(name):
    cases = [["info", name], ["dump", name], ["tracks", name], ["tracks", "--json", name],
             ["lint", name], ["fix", name, "-o", "tracks.fixed.srt"]]
    for track in ("0", "1", "2"):
        cases += [
            ["lint", "--json", "--track", track, name],
            ["fix", "--json", "--track", track, name, "-o", "tracks.%s.fixed.srt" % track],
            ["convert", "--json", "--track", track, name, "-o", "tracks.%s.plain.srt" % track],
        ]
    cases += [["lint", "--language", "fre", name],
              ["convert", name, "-o", "{stem}.{lang}{forced}.srt"],
              ["render", "--track", "2", name, "1500", "-o", "tracks.render.png"],
              ["sheet", "--track", "2", name, "-o", "tracks.sheet.png"],
              ["sheet", "--track", "2", "--every", "700", name, "-o", "tracks.every.png"]]
    return cases


def pixels_digest(path):
    """Size and SHA-256 of the decoded RGBA pixels (not of the PNG's bytes)."""
    probe = subprocess.run(["ffprobe", "-v", "error", "-select_streams", "v:0", "-show_entries",
                            "stream=width,height", "-of", "csv=p=0", path],
                           capture_output=True, text=True)
    raw = subprocess.run(["ffmpeg", "-v", "error", "-i", path, "-f", "rawvideo", "-pix_fmt", "rgba", "-"],
                         capture_output=True)
    if raw.returncode != 0:
        return "unreadable picture"
    return "%s %s" % (probe.stdout.strip().replace(",", "x"), hashlib.sha256(raw.stdout).hexdigest())


def section(title, data):
    """A section as it is, or, past LONG lines, its ends and a digest of the whole."""
    text = data.decode("utf-8", "backslashreplace")
    lines = text.split("\n")
    if len(lines) <= LONG:
        return "--- %s\n%s" % (title, text)
    return "--- %s (%d lines, sha256 %s)\n%s\n...\n%s" % (
        title, len(lines), hashlib.sha256(data).hexdigest(), "\n".join(lines[:HEAD]), "\n".join(lines[-TAIL:]))


def run_case(zemsub, work, args, text_out, picture_out):
    before = set(os.listdir(work))
    env = dict(os.environ, QT_QPA_PLATFORM="offscreen", LC_ALL="C.UTF-8", LANG="C.UTF-8")
    result = subprocess.run([zemsub] + args, cwd=work, capture_output=True, env=env, timeout=600)
    text_out.append("=== zemsub %s\n" % " ".join(args))
    text_out.append("exit %d\n" % result.returncode)
    text_out.append(section("stdout", result.stdout))
    text_out.append(section("stderr", result.stderr))
    for written in sorted(set(os.listdir(work)) - before):
        path = os.path.join(work, written)
        if written.endswith(".png"):
            text_out.append("--- picture %s\n" % written)
            picture_out.append("%s | zemsub %s: %s\n" % (written, " ".join(args), pixels_digest(path)))
        else:
            with open(path, "rb") as f:
                text_out.append(section("file " + written, f.read()))
        os.remove(path)


def inputs(scratch):
    quirks = os.path.join(scratch, "quirks")
    subprocess.run([sys.executable, os.path.join(ROOT, "tools", "make-quirk-set.py"), quirks],
                   check=True, capture_output=True)
    sets = [("samples", os.path.join(ROOT, "samples"), name, text_cases) for name in TEXT_SAMPLES]
    sets += [("pictures", os.path.join(ROOT, "samples"), name, picture_cases) for name in PICTURE_SAMPLES]
    sets += [("video", os.path.join(ROOT, "samples"), VIDEO, video_cases)]
    sets += [("quirks", quirks, name, quirk_cases) for name in sorted(os.listdir(quirks))]
    return sets


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: command_outputs.py ZEMSUB QT_MAJOR")
    zemsub, qt = os.path.abspath(sys.argv[1]), sys.argv[2]
    update = os.environ.get("ZEMSUB_GOLDEN_UPDATE") == "1"
    only = os.environ.get("ZEMSUB_GOLDEN_ONLY")
    failures = []
    with tempfile.TemporaryDirectory() as scratch:
        for group, folder, name, cases in inputs(scratch):
            if only and only != name:
                continue
            work = os.path.join(scratch, "work")
            shutil.rmtree(work, ignore_errors=True)
            os.makedirs(work)
            shutil.copy(os.path.join(folder, name), work)
            stem = os.path.splitext(name)[0]
            if name.endswith(".idx"):
                shutil.copy(os.path.join(folder, stem + ".sub"), work)
            text_out, picture_out = [], []
            for args in cases(name):
                run_case(zemsub, work, args, text_out, picture_out)
            stored = [(os.path.join(EXPECTED, group, name + ".txt"), "".join(text_out)),
                      (os.path.join(EXPECTED, "pictures-qt" + qt, group, name + ".txt"), "".join(picture_out))]
            for path, made in stored:
                if update and not made:
                    if os.path.exists(path):
                        os.remove(path)
                    continue
                if update:
                    os.makedirs(os.path.dirname(path), exist_ok=True)
                    with open(path, "w", encoding="utf-8", newline="\n") as f:
                        f.write(made)
                    continue
                try:
                    with open(path, encoding="utf-8", newline="") as f:
                        kept = f.read()
                except FileNotFoundError:
                    kept = None
                if kept is None and made:
                    failures.append("%s: no stored output" % os.path.relpath(path, HERE))
                    continue
                kept = kept or ""
                if kept != made:
                    kept_lines, made_lines = kept.split("\n"), made.split("\n")
                    line = next((i for i, (a, b) in enumerate(zip(kept_lines, made_lines)) if a != b),
                                min(len(kept_lines), len(made_lines)))
                    failures.append("%s: differs at line %d\n  stored: %r\n  now:    %r" % (
                        os.path.relpath(path, HERE), line + 1,
                        kept_lines[line] if line < len(kept_lines) else "(end)",
                        made_lines[line] if line < len(made_lines) else "(end)"))
    for failure in failures:
        print(failure)
    if failures:
        print("%d stored outputs moved (ZEMSUB_GOLDEN_UPDATE=1 rewrites them; review with git diff)"
              % len(failures))
        sys.exit(1)
    print("every stored output matches" if not update else "stored outputs rewritten")


if __name__ == "__main__":
    main()
