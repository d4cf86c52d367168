#!/usr/bin/env bash
# Runs the fuzz targets built in <build dir> (cmake -S fuzz -B <build dir> with clang).
#   FUZZ_SECONDS  seconds per target (default 60)
#   FUZZ_TARGETS  targets to run, separated by blanks (default: all, from targets.txt)
#   FUZZ_JOBS     targets run at the same time (default 1)
#   FUZZ_TIMEOUT  seconds one input may take before it counts as a hang (default 20)
#   FUZZ_MAX_LEN  largest input in bytes (default 40000: room for 20001 short lines)
# Each target starts from its seeds (fuzz/seeds/<t>), the matching files of samples/,
# of the generated quirk set (tools/make-quirk-set.py) and of the stored outputs' odd
# corners (zemsub_seed_writer), its regression corpus (fuzz/regression/<t>) and the
# corpus that earlier runs grew (<build dir>/work/corpus/<t>). Findings land in <build dir>/work/artifacts/<t>/.
# Exits non-zero when any target reported a finding.
set -uo pipefail

build=$(cd "${1:?usage: fuzz/run.sh <fuzz build dir>}" && pwd)
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${FUZZ_SECONDS:-60}
jobs=${FUZZ_JOBS:-1}
timeout=${FUZZ_TIMEOUT:-20}
max_len=${FUZZ_MAX_LEN:-40000}
targets=${FUZZ_TARGETS:-$(cat "$build/targets.txt")}
work="$build/work"
mkdir -p "$work"

dict_for() {
  case "$1" in
    srt_parser*|srt_map) echo "$root/fuzz/dict/srt.dict" ;;
    ass_parser*|ass_map) echo "$root/fuzz/dict/ass.dict" ;;
    idx_parser*) echo "$root/fuzz/dict/idx.dict" ;;
    ssa_tags) echo "$root/fuzz/dict/ssa_tags.dict" ;;
    manager|lint_reading|fix)
      cat "$root/fuzz/dict/srt.dict" "$root/fuzz/dict/ass.dict" > "$generated/manager.dict"
      echo "$generated/manager.dict" ;;
    *) echo "" ;;
  esac
}

# The generated files that seed the targets beside samples/: the quirk set and the
# odd corners of the stored reader outputs.
generated=$(mktemp -d "$work/generated.XXXXXX")
trap 'rm -rf "$generated"' EXIT
mkdir -p "$generated/quirks" "$generated/corners"
python3 "$root/tools/make-quirk-set.py" "$generated/quirks" > /dev/null ||
  { echo "cannot write the quirk set (tools/make-quirk-set.py)"; exit 1; }
"$build/zemsub_seed_writer" "$generated/corners" ||
  { echo "cannot write the odd-corner files ($build/zemsub_seed_writer)"; exit 1; }

# Copies the files that suit a target into dir (the manager's inputs start
# with the byte that picks the file name: 0x00 ".srt", 0x33 ".ass", 0x44 ".ssa"; lint_reading's
# and fix's with 0x00 ".srt", 0x01 ".ass", 0x02 ".ssa", no encoding forced, a SubRip copy;
# tracks' with 0x00 ".mkv", 0x02 ".srt", the player's choice; pictures' with 0x00 ".sup", 0x01 ".mkv").
sample_seeds() {
  local t=$1 dir=$2 f name
  mkdir -p "$dir"
  for f in "$root"/samples/* "$generated"/quirks/* "$generated"/corners/*; do
    [ -f "$f" ] || continue
    name="$(basename "$(dirname "$f")")-$(basename "$f")"
    case "$t:${f,,}" in
      srt_parser*:*.srt|ass_parser*:*.ass|ass_parser*:*.ssa|idx_parser*:*.idx|ssa_tags:*.ass|ssa_tags:*.ssa|srt_map:*.srt|ass_map:*.ass|ass_map:*.ssa)
        cp "$f" "$dir/$name" ;;
      manager:*.srt) { printf '\x00'; cat "$f"; } > "$dir/$name" ;;
      manager:*.ass) { printf '\x33'; cat "$f"; } > "$dir/$name" ;;
      manager:*.ssa) { printf '\x44'; cat "$f"; } > "$dir/$name" ;;
      lint_reading:*.srt|fix:*.srt) { printf '\x00'; cat "$f"; } > "$dir/$name" ;;
      lint_reading:*.ass|fix:*.ass) { printf '\x01'; cat "$f"; } > "$dir/$name" ;;
      lint_reading:*.ssa|fix:*.ssa) { printf '\x02'; cat "$f"; } > "$dir/$name" ;;
      tracks:*.mkv) { printf '\x00'; cat "$f"; } > "$dir/$name" ;;
      tracks:*.srt) { printf '\x02'; cat "$f"; } > "$dir/$name" ;;
      pictures:*.sup) { printf '\x00'; cat "$f"; } > "$dir/$name" ;;
      pictures:*.mkv) { printf '\x01'; cat "$f"; } > "$dir/$name" ;;
    esac
  done
}

run_one() {
  local t=$1
  local corpus="$work/corpus/$t" artifacts="$work/artifacts/$t" samples="$generated/seeds/$t"
  # Findings of an earlier run move aside, so that only this run's count.
  if [ -d "$artifacts" ] && [ -n "$(ls -A "$artifacts")" ]; then
    mkdir -p "$work/artifacts-earlier/$t"
    mv "$artifacts"/* "$work/artifacts-earlier/$t/"
  fi
  mkdir -p "$corpus" "$artifacts" "$root/fuzz/seeds/$t" "$root/fuzz/regression/$t"
  sample_seeds "$t" "$samples"
  local dict
  dict=$(dict_for "$t")
  local args=(-max_total_time="$seconds" -timeout="$timeout" -rss_limit_mb=2560 -max_len="$max_len"
              -print_final_stats=1 -artifact_prefix="$artifacts/")
  [ -n "$dict" ] && args+=(-dict="$dict")
  ( cd "$work" && ASAN_OPTIONS=detect_leaks=1 "$build/fuzz_$t" "${args[@]}" \
      "$corpus" "$root/fuzz/seeds/$t" "$samples" "$root/fuzz/regression/$t" ) > "$work/$t.log" 2>&1
  local status=$?
  local runs
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$work/$t.log" | tail -1)
  local found
  found=$(find "$artifacts" -type f | wc -l)
  if [ "$status" -ne 0 ] || [ "$found" -ne 0 ]; then
    echo "FINDING  $t: exit $status, ${runs:-?} executions, artifacts in $artifacts, log $work/$t.log"
    return 1
  fi
  echo "ok       $t: ${runs:-?} executions in ${seconds} s"
}

failed=0
running=0
for t in $targets; do
  if [ ! -x "$build/fuzz_$t" ]; then
    echo "missing  $t: $build/fuzz_$t was not built"
    failed=1
    continue
  fi
  run_one "$t" &
  running=$((running + 1))
  if [ "$running" -ge "$jobs" ]; then
    wait -n || failed=1
    running=$((running - 1))
  fi
done
while [ "$running" -gt 0 ]; do
  wait -n || failed=1
  running=$((running - 1))
done
exit $failed
