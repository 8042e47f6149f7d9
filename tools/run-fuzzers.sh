#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each the same way every
# time: first over its committed corpus in fuzz/corpus, then a fixed number
# of mutations (FUZZ_RUNS, else the count below) from a fixed seed
# (FUZZ_SEED, default 1). The same code gives the same run, so a failure here
# comes from the change under test, not from a lucky seed. New inputs go to a
# scratch directory; the committed corpus is not changed. Long campaigns with
# random seeds: tools/fuzz-campaign.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
seed=${FUZZ_SEED:-1}
# Mutations per target: about ten seconds each on the CI machine.
declare -A runs=(
  [account_files_fuzz]=300000
  [calendar_markings_fuzz]=80000
  [decipher_note_fuzz]=130000
  [note_names_fuzz]=200000
  [settings_fuzz]=12000
  [shift_markings_fuzz]=50000
)
mkdir -p build
exec 9>build/fuzz.lock  # shared with tools/fuzz-campaign.sh
flock 9
CC=clang CXX=clang++ cmake -S . -B build/fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DSK_FUZZ=ON -DSK_BUILD_TESTS=OFF -DSK_BUILD_BENCH=OFF -DSK_BUILD_GUI=OFF >/dev/null
cmake --build build/fuzz -j "$(nproc)"
# Without address randomisation the same run finds the same inputs on any
# machine; where the system refuses it, the run is still bounded.
fixed=(setarch "$(uname -m)" -R)
if ! "${fixed[@]}" true 2>/dev/null; then
  echo "Hinweis: Adressen bleiben zufällig, Läufe können sich leicht unterscheiden"
  fixed=()
fi
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
for src in fuzz/*_fuzz.cpp; do
  name=$(basename "$src" .cpp)
  count=${FUZZ_RUNS:-${runs[$name]:-20000}}
  mkdir -p "$scratch/$name" "$scratch/artifacts"
  echo "-- $name (Startwert $seed, $count Läufe)"
  # -reload=0: the corpus is not read again on a timer, which would make the
  # run depend on the machine's speed. -use_cmp=0: no mutations from the
  # operands of comparisons, which include addresses that differ between
  # machines; the committed corpus already holds what they would find.
  ASAN_OPTIONS=detect_leaks=1 "${fixed[@]}" build/fuzz/fuzz/"$name" -seed="$seed" \
    -runs="$count" -reload=0 -use_cmp=0 -timeout=30 -rss_limit_mb=2048 -max_len=65536 -print_final_stats=0 \
    -artifact_prefix="$scratch/artifacts/" "$scratch/$name" "fuzz/corpus/$name" 2>"$scratch/$name.log" \
    || { tail -40 "$scratch/$name.log"; echo "Fuzzer $name fand einen Fehler"; exit 1; }
  grep -E '^(#[0-9]+.*DONE|Done)' "$scratch/$name.log" | tail -2 || true
done
