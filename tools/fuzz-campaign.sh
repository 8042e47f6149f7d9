#!/usr/bin/env bash
# A long fuzzing campaign, run by hand (not by ./test.sh): each target named
# on the command line (default: all) runs FUZZ_MINUTES minutes (default 10,
# or FUZZ_SECONDS seconds) from its committed corpus in fuzz/corpus, with a
# random seed, and goes on after a crash, a leak or a time-out. What it finds is copied for review to
# FUZZ_FINDINGS (default build/fuzz-findings):
#   TARGET/crashes/   inputs that made the target fail (crash-*, leak-*, timeout-*, oom-*)
#   TARGET/corpus/    inputs that reach code the committed corpus does not
#   TARGET/log        libFuzzer's output; the last "#N" line gives the executions
# A crash input becomes a seed in fuzz/corpus/TARGET and a test row once the
# fault is fixed; corpus inputs worth keeping are copied to fuzz/corpus/TARGET.
set -euo pipefail
cd "$(dirname "$0")/.."
minutes=${FUZZ_MINUTES:-10}
seconds=${FUZZ_SECONDS:-$((minutes * 60))}
findings=${FUZZ_FINDINGS:-build/fuzz-findings}
mkdir -p build
# Two campaigns started side by side build one after the other.
exec 9>build/fuzz.lock
flock 9
CC=clang CXX=clang++ cmake -S . -B build/fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DSK_FUZZ=ON -DSK_BUILD_TESTS=OFF -DSK_BUILD_BENCH=OFF -DSK_BUILD_GUI=OFF >/dev/null
cmake --build build/fuzz -j "$(nproc)"

targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for src in fuzz/*_fuzz.cpp; do targets+=("$(basename "$src" .cpp)"); done
fi
# The binaries of this moment: a rebuild during the campaign does not touch them.
for name in "${targets[@]}"; do
  out="$findings/$name"
  rm -rf "$out"
  mkdir -p "$out/crashes" "$out/work" "$out/corpus"
  cp build/fuzz/fuzz/"$name" "$out/$name"
done
flock -u 9
for name in "${targets[@]}"; do
  out="$findings/$name"
  echo "-- $name (${seconds} s)"
  # Fork mode with one worker: a failing input is saved and the run goes on.
  ASAN_OPTIONS=detect_leaks=1 "$out/$name" -fork=1 -ignore_crashes=1 \
    -ignore_timeouts=1 -ignore_ooms=1 -max_total_time="$seconds" \
    -rss_limit_mb=2048 -max_len=65536 -artifact_prefix="$out/crashes/" \
    "$out/work" "fuzz/corpus/$name" >"$out/log" 2>&1 || true
  # Keep only the inputs that add coverage to the committed corpus.
  "$out/$name" -merge=1 -max_len=65536 "$out/corpus" "fuzz/corpus/$name" \
    >/dev/null 2>&1 || true
  "$out/$name" -merge=1 -max_len=65536 "$out/corpus" "$out/work" \
    >>"$out/merge.log" 2>&1 || true
  for seed in "fuzz/corpus/$name"/*; do
    rm -f "$out/corpus/$(sha1sum "$seed" | cut -d' ' -f1)"
  done
  rm -rf "$out/work"
  executions=$(grep -oE '^#[0-9]+' "$out/log" | tail -1 | tr -d '#')
  echo "   Ausführungen: ${executions:-?}, Fehler: $(find "$out/crashes" -type f | wc -l)," \
    "neue Eingaben: $(find "$out/corpus" -type f | wc -l)"
done
