#!/usr/bin/env bash
# Installs what is missing, builds and runs every test of Quorvel
# Schichtkalender: the normal build with warnings as errors, the same tests
# once more under AddressSanitizer and UndefinedBehaviorSanitizer, and the
# fuzz targets over their corpus with a fixed seed and a fixed number of runs.
set -euo pipefail
cd "$(dirname "$0")"
tools/ensure-packages.sh

jobs=$(nproc)
export TZ=UTC LC_ALL=C.UTF-8

echo "== Build (Warnungen als Fehler)"
cmake -S . -B build/test -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DSK_WERROR=ON >/dev/null
cmake --build build/test -j "$jobs"
echo "== Tests"
ctest --test-dir build/test -j "$jobs" --output-on-failure

echo "== Build mit AddressSanitizer und UndefinedBehaviorSanitizer"
cmake -S . -B build/asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DSK_WERROR=ON -DSK_SANITIZE=ON \
      -DSK_BUILD_BENCH=OFF -DSK_BUILD_GUI=OFF >/dev/null
cmake --build build/asan -j "$jobs"
echo "== Tests unter den Sanitizern"
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir build/asan -j "$jobs" --output-on-failure -LE gui

if [ -d fuzz ]; then
  echo "== Fuzzing"
  tools/run-fuzzers.sh
fi
echo "== Alle Tests bestanden"
