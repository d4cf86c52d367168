#!/usr/bin/env bash
# The fix part of `make demo`: lint on a sample before and after zemsub fix, then
# the before/after table over the samples and the generated quirk set
# (tools/make-quirk-set.py). Copies go to out/fix/.
# Usage: bash tools/demo-fix.sh BUILD_DIR   (the build dir holds tools/zemsub)
set -uo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-build/qt6}
[[ $build = /* ]] || build="$root/$build"
zemsub="$build/tools/zemsub"
if [[ ! -x $zemsub ]]; then
  echo "demo-fix: $zemsub is missing; build first (make build)" >&2
  exit 1
fi
out="$root/out/fix"
mkdir -p "$out/quirks"
if [[ -z ${XDG_RUNTIME_DIR:-} ]]; then
  export XDG_RUNTIME_DIR="$root/out/.runtime"
  mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
fi

z() {
  printf '$ zemsub %s\n' "$*"
  "$zemsub" "$@"
  local status=$?
  [[ $status -ne 0 ]] && printf '(exit %d)\n' "$status"
  return 0
}

printf '\n== fix: lint on a sample, then on its fixed copy\n'
z lint "$root/samples/film.srt"
z fix "$root/samples/film.srt" -o "$out/film.srt"
z lint "$out/film.srt"

python3 "$root/tools/make-quirk-set.py" "$out/quirks"
# Captions lint finds shown as written, out of those a player shows.
as_written() {
  "$zemsub" lint --json "$1" 2>/dev/null | python3 -c '
import json, sys
try:
    d = json.load(sys.stdin)
except ValueError:
    print("-"); sys.exit()
print(len([1 for f in d["findings"]]))'
}
printf '\n== fix: captions shown as written, before and after (copy.srt / copy.ass)\n'
printf '%-28s %8s %8s %10s %10s %s\n' file captions before after-srt after-ass "lint on the copies (exit, causes)"
for f in "$root"/samples/*.srt "$root"/samples/*.ass "$root"/samples/*.ssa "$out"/quirks/*; do
  name=$(basename "$f")
  if ! reason=$("$zemsub" fix "$f" -o "$out/copy.srt" 2>&1 >/dev/null) && [[ $reason == *"cannot fix"* ]]; then
    printf '%-28s %s\n' "$name" "not read: ${reason#*cannot fix: }"
    continue
  fi
  row=$("$zemsub" fix --json "$f" -o "$out/copy.srt" 2>/dev/null | python3 -c '
import json, sys
d = json.load(sys.stdin)
shown = [o for o in d["outcomes"] if o["end"] > o["start"] and o["written"].strip()]
print(len(shown), sum(o["textShown"] for o in shown))')
  read -r captions after_srt <<< "$row"
  after_ass=$("$zemsub" fix --json "$f" -o "$out/copy.ass" 2>/dev/null | python3 -c '
import json, sys
d = json.load(sys.stdin)
print(sum(o["textShown"] for o in d["outcomes"] if o["end"] > o["start"] and o["written"].strip()))')
  before=$("$zemsub" lint --json "$f" 2>/dev/null | python3 -c '
import json, sys
try:
    d = json.load(sys.stdin)
except ValueError:
    print(0); sys.exit()
bad = {f["caption"] for f in d["findings"]}
print(sum(1 for b in range(1, d["captions"] + 1) if b not in bad))' )
  lints=""
  for copy in "$out/copy.srt" "$out/copy.ass"; do
    causes=$("$zemsub" lint --json "$copy" 2>/dev/null | python3 -c '
import json, sys
d = json.load(sys.stdin)
print(",".join(sorted({c["code"] for f in d["findings"] for c in f["causes"]})) or "-")')
    "$zemsub" lint "$copy" > /dev/null 2>&1
    lints+="$? $causes  "
  done
  printf '%-28s %8s %8s %10s %10s %s\n' "$name" "${captions:-0}" "$before" "${after_srt:-0}" "${after_ass:-0}" "$lints"
done
