#!/usr/bin/env bash
# Reads real picture tracks as text with zemsub convert and scores each copy
# with the judge beside them: captions paired, character error rate, start and
# end offsets, italics kept and false; then the whole set.
#   tools/measure-pictures.sh BUILD_DIR [PICTURES_DIR]
# PICTURES_DIR (default ../shared/pictures beside the checkout) holds TRACK.sup
# or TRACK.idx/.sub with TRACK.srt, what each says, and judge.py. Nothing of it
# is kept in the repository.
set -euo pipefail
build=${1:?usage: measure-pictures.sh BUILD_DIR [PICTURES_DIR]}
here=$(cd "$(dirname "$0")/.." && pwd)
pictures=${2:-$here/../shared/pictures}
if [ ! -f "$pictures/judge.py" ]; then
  echo "no real picture tracks at $pictures (with judge.py): nothing measured"
  exit 0
fi
zemsub=$build/tools/zemsub
python=/usr/bin/python3
if ! $python -c 'import srt' 2>/dev/null; then
  bash "$here/cmake/install-deps.sh" python3-srt
fi
out=$(mktemp -d /tmp/zemsub-measure.XXXXXX)
trap 'rm -rf "$out"' EXIT
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
printf '%-22s %s\n' track "judge (the last display's end not measured)"
totals=()
for truth in "$pictures"/*.srt; do
  track=$(basename "$truth" .srt)
  input=
  for ext in sup idx mkv ts; do
    [ -f "$pictures/$track.$ext" ] && input="$pictures/$track.$ext" && break
  done
  [ -n "$input" ] || continue
  start=$(date +%s%N)
  if ! "$zemsub" convert "$input" -o "$out/$track.srt" --overwrite > "$out/$track.log" 2>&1; then
    echo "$track: zemsub convert failed:"; cat "$out/$track.log"; continue
  fi
  ms=$(( ($(date +%s%N) - start) / 1000000 ))
  line=$($python "$pictures/judge.py" "$truth" "$out/$track.srt" --last-end-free)
  printf '%-22s %s, %d.%01d s\n' "$track" "$line" $((ms / 1000)) $((ms % 1000 / 100))
  totals+=("$line")
done
printf '%s\n' "${totals[@]}" | $python -c '
import re, sys
keys = ["truth", "got", "paired", "chars", "errors"]
sums = dict.fromkeys(keys, 0); starts = ends = kept = italic = false = upright = 0
for line in sys.stdin:
    if not line.strip():
        continue
    for k in keys:
        sums[k] += int(re.search(k + r" (\d+)", line).group(1))
    starts = max(starts, int(re.search(r"start off max (\d+)", line).group(1)))
    ends = max(ends, int(re.search(r"end off max (\d+)", line).group(1)))
    m = re.search(r"italic (\d+)/(\d+) kept, (\d+) false of (\d+) upright", line)
    kept += int(m.group(1)); italic += int(m.group(2)); false += int(m.group(3)); upright += int(m.group(4))
cer = 100.0 * sums["errors"] / max(sums["chars"], 1)
print("%-22s truth %d, got %d, paired %d, chars %d, errors %d, cer %.3f%%, start off max %d ms, end off max %d ms, "
      "italic %d/%d kept, %d false of %d upright" % ("all", sums["truth"], sums["got"], sums["paired"], sums["chars"],
      sums["errors"], cer, starts, ends, kept, italic, false, upright))
'
