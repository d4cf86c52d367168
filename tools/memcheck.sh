#!/usr/bin/env bash
# Valgrind memcheck of zemsub over the bundled samples: every command that reads,
# looks up, renders and lints, once per sample. Passes when memcheck reports no
# error and no lost block other than those the library leaves on purpose:
# destroySubtitle frees the subtitle object's storage without running its
# destructor, so the members the object holds (font, last caption text, caption
# image, and the manager when close() was not called) stay allocated. Those
# blocks are allocated by ZemSubtitleMaker's own operations; the suppression
# below covers exactly them.
# Usage: bash tools/memcheck.sh [BUILD_DIR]   (a build without sanitizers, holding tools/zemsub)
set -uo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-build/qt6}
[[ $build = /* ]] || build="$root/$build"
zemsub="$build/tools/zemsub"
if [[ ! -x $zemsub ]]; then
  echo "memcheck: $zemsub is missing; build first (make build)" >&2
  exit 1
fi
if ! command -v valgrind >/dev/null; then
  echo "memcheck: valgrind is not installed" >&2
  exit 1
fi

work=$(mktemp -d /tmp/zemsub-memcheck.XXXXXX)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen
# Qt's regular expressions compile to machine code that memcheck cannot follow
# (it reports jumps on uninitialised values inside the generated code): interpret them.
export QT_ENABLE_REGEXP_JIT=0
export XDG_RUNTIME_DIR="$work/runtime"
mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"

cat > "$work/maker-members.supp" <<'EOF'
{
   storage-of-the-subtitle-object-members-left-by-destroySubtitle
   Memcheck:Leak
   match-leak-kinds: definite,indirect
   ...
   fun:_ZN16ZemSubtitleMaker*
}
EOF

# Each run: the command line (after "zemsub"), one per line.
runs=()
for sample in "$root"/samples/*.srt "$root"/samples/*.ass "$root"/samples/*.ssa; do
  [[ -f $sample ]] || continue
  runs+=("info $sample")
  runs+=("dump $sample")
  runs+=("at $sample 0 1000 2000 5000 8000 20000 36800")
  runs+=("lint $sample")
  runs+=("render $sample 5000 --size 320x240 -o $work/frame.png")
  runs+=("sheet $sample --every 4000 --columns 3 -o $work/sheet.png")
done
for index in "$root"/samples/*.idx; do
  [[ -f $index ]] || continue
  runs+=("info $index")
  runs+=("dump $index")
done

failed=0
n=0
for run in "${runs[@]}"; do
  n=$((n + 1))
  log="$work/run-$n.log"
  # shellcheck disable=SC2086
  (cd "$work" && valgrind --tool=memcheck --leak-check=full --show-leak-kinds=definite,indirect \
      --errors-for-leak-kinds=definite,indirect --error-exitcode=99 --num-callers=40 \
      --suppressions="$work/maker-members.supp" --log-file="$log" "$zemsub" $run > /dev/null 2>&1)
  status=$?
  summary=$(sed -n 's/^==[0-9]*== ERROR SUMMARY: //p' "$log" | tail -1)
  suppressed=$(sed -n 's/^==[0-9]*== *suppressed: //p' "$log" | tail -1)
  if [[ $status -eq 99 ]]; then
    echo "FAIL  zemsub ${run/$root\//} : $summary"
    grep -v -e '^==[0-9]*== *$' "$log" | sed -n '/ERROR SUMMARY/q;p' | tail -n +8 | head -80
    failed=1
  else
    echo "ok    zemsub ${run/$root\//} (exit $status; ${summary:-no summary}; left on purpose: ${suppressed:-nothing})"
  fi
done
exit $failed
