#!/usr/bin/env bash
# The demo behind `make demo`: zemsub over the bundled samples. Prints what the
# library reads and shows, and writes rendered frames and contact sheets to out/.
# Usage: bash tools/demo.sh BUILD_DIR   (the build dir holds tools/zemsub)
set -uo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-build/qt6}
[[ $build = /* ]] || build="$root/$build"
zemsub="$build/tools/zemsub"
host="$build/examples/host/zemsub-host"
if [[ ! -x $zemsub ]]; then
  echo "demo: $zemsub is missing; build first (make build)" >&2
  exit 1
fi
out="$root/out"
mkdir -p "$out"
cd "$root"

# Qt wants a private runtime folder; give it one under out/ when the session has none.
if [[ -z ${XDG_RUNTIME_DIR:-} ]]; then
  export XDG_RUNTIME_DIR="$out/.runtime"
  mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
fi

if [[ -t 1 ]]; then
  section() { printf '\n\033[1m== %s\033[0m\n' "$*"; }
else
  section() { printf '\n== %s\n' "$*"; }
fi
# Runs zemsub, echoing the command; a non-zero exit is shown, not fatal (lint answers 3 on purpose).
z() {
  printf '$ zemsub %s\n' "$*"
  "$zemsub" "$@"
  local status=$?
  if [[ $status -ne 0 ]]; then
    printf '(exit %d)\n' "$status"
  fi
  return 0
}

section "What the library reads: format, reason and timeline of each sample"
for sample in samples/film.srt samples/styled.ass samples/classic.ssa samples/wide-utf8.srt samples/wide-utf16.srt; do
  z info "$sample"
  z dump "$sample"
  echo
done

section "What it answers at given times"
z at samples/film.srt 2000 00:00:05,000 0:00:20.00 36800
z at samples/wide-utf8.srt 2000 8000

section "Rendered frames, as a player draws them"
z render samples/film.srt 00:00:05,000 --size 1280x720 -o "out/film-5s.png"
z render samples/styled.ass 0:00:08.00 --size 1280x720 -o "out/styled-8s.png"
z render samples/classic.ssa 0:00:07.00 --size 640x480 --style Italic --colour 0x00FFFF -o "out/classic-7s.png"
z render samples/wide-utf8.srt 0:00:08.00 --size 1280x720 -o "out/wide-8s.png"

section "Contact sheets"
z sheet samples/film.srt -o "out/film-sheet.png"
z sheet samples/styled.ass --every 2000 --columns 6 -o "out/styled-every-2s.png"

section "lint: every caption the library shows differently from the file, and why"
for sample in samples/film.srt samples/styled.ass samples/classic.ssa samples/wide-utf8.srt samples/wide-utf16.srt; do
  z lint "$sample"
  echo
done

section "The VobSub pair: packets cut by the index reader, decoded by FFmpeg"
z info samples/vobsub.idx
z dump samples/vobsub.idx
# zemsub puts the .sub beside the index where the index reader looks for it.
z at samples/vobsub.idx 1000 4000 7500
z render samples/vobsub.idx 7500 -o "out/vobsub-7.5s.png"
z sheet samples/vobsub.idx --columns 3 -o "out/vobsub-sheet.png"

section "Tracks inside a video file: listed, one taken as a player takes it, copied for the library"
# samples/tracks.mkv is made by tools/make-sample-video.sh.
z tracks samples/tracks.mkv
mkdir -p out/tracks
z fix samples/tracks.mkv -o out/tracks/default.srt
z fix samples/tracks.mkv --language eng -o out/tracks/eng.srt
z at out/tracks/default.srt 4500 23000

section "Pictures read as text: a Blu-ray .sup and a DVD VobSub pair, decoded by FFmpeg, read by Tesseract"
# samples/words.* are drawn from known text by tools/make-picture-samples.sh.
mkdir -p out/pictures
z tracks samples/words.sup
z fix samples/words.sup -o out/pictures/words-sup.srt
cat out/pictures/words-sup.srt
z fix samples/words.idx -o out/pictures/words-idx.srt
z render samples/words.sup 2000 -o "out/words-sup-2s.png"
z sheet samples/words.sup --text -o "out/words-sup-sheet.png"

section "zemsub convert: plain copies for any player, italics and places kept"
z convert samples/words.sup samples/words.idx -o 'out/pictures/{stem}.{lang}{forced}.srt' --overwrite
cat out/pictures/words.und.srt
z convert samples/words.sup -o out/pictures/words.vtt --overwrite
z convert samples/tracks.mkv --track 2 -o out/pictures/bars.srt --overwrite --review out/pictures-review.png

if [[ -x $host ]]; then
  section "The example host: three seconds of play over a synthetic video"
  printf '$ zemsub-host --seconds 3 --capture-at 1500 ...\n'
  "$host" --seconds 3 --capture-at 1500 --capture out/host-frame.png --no-window samples/film.srt ||
    printf '(exit %d)\n' "$?"
fi

section "Written to $out"
ls -1 "$out"/*.png | sed "s|^$root/||"
