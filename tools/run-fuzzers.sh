#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for a bounded time
# (FUZZ_SECONDS, default 20) starting from its seed corpus in fuzz/corpus.
# New inputs go to a scratch directory; the committed corpus is not changed.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${FUZZ_SECONDS:-20}
CC=clang CXX=clang++ cmake -S . -B build/fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DSK_FUZZ=ON -DSK_BUILD_TESTS=OFF -DSK_BUILD_BENCH=OFF -DSK_BUILD_GUI=OFF >/dev/null
cmake --build build/fuzz -j "$(nproc)"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
for src in fuzz/*_fuzz.cpp; do
  name=$(basename "$src" .cpp)
  mkdir -p "$scratch/$name" "$scratch/artifacts"
  echo "-- $name (${seconds}s)"
  ASAN_OPTIONS=detect_leaks=1 build/fuzz/fuzz/"$name" -max_total_time="$seconds" \
    -rss_limit_mb=2048 -max_len=65536 -print_final_stats=0 \
    -artifact_prefix="$scratch/artifacts/" "$scratch/$name" "fuzz/corpus/$name" 2>"$scratch/$name.log" \
    || { tail -40 "$scratch/$name.log"; echo "Fuzzer $name fand einen Fehler"; exit 1; }
  grep -E '^(#[0-9]+.*DONE|Done)' "$scratch/$name.log" | tail -1 || true
done
