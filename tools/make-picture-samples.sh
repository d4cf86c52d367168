#!/usr/bin/env bash
# Writes the picture samples from known text: samples/words.sup (Blu-ray, 1920x1080)
# and samples/words.idx + samples/words.sub (DVD VobSub, 720x576), the captions of
# zemsub-samplegen's set, and fuzz/seeds/pictures/ (a two-caption .sup for the
# pictures fuzz target).
# Usage: bash tools/make-picture-samples.sh BUILD_DIR   (the build dir holds tools/samplegen)
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:?usage: tools/make-picture-samples.sh BUILD_DIR}" && pwd)
generator="$build/tools/samplegen/zemsub-samplegen"
[ -x "$generator" ] || { echo "make-picture-samples: $generator is missing; build first" >&2; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}

"$generator" --sup "$root/samples/words.sup" --dvd "$work/dvd"
python3 "$root/tools/make-sample-sub.py" --out "$work" --bitmaps "$work/dvd/captions.txt" --size 720x576
mv "$work/vobsub.idx" "$root/samples/words.idx"
mv "$work/vobsub.sub" "$root/samples/words.sub"

mkdir -p "$root/fuzz/seeds/pictures"
"$generator" --count 2 --sup "$work/two.sup"
{ printf '\x00'; cat "$work/two.sup"; } > "$root/fuzz/seeds/pictures/two-captions.sup"
ls -l "$root/samples/words.sup" "$root/samples/words.idx" "$root/samples/words.sub" \
  "$root/fuzz/seeds/pictures/two-captions.sup"
