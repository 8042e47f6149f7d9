#!/usr/bin/env bash
# Installs what is missing, builds and starts Quorvel Schichtkalender.
# Arguments are passed to the program (for example: ./run.sh days --help).
set -euo pipefail
cd "$(dirname "$0")"
tools/ensure-packages.sh --runtime
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DSK_BUILD_TESTS=OFF -DSK_BUILD_BENCH=OFF >/dev/null
# Build progress only when there is something to build.
cmake --build build/release --target schichtkalender |
  { grep -v -e '^ninja: no work to do\.$' -e '^\[0/[0-9]*\] Re-checking globbed directories' || true; }
if [ $# -gt 0 ]; then
  exec build/release/src/schichtkalender "$@"
fi
if [ -f src/app/application.hpp ]; then
  if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec build/release/src/schichtkalender
  fi
  # No display: today's page as a picture instead of the window, as the
  # window would open on it (the cursor on today, the start user's data).
  data=()
  if [ -d SKDaten/Programm ]; then data=(--data-dir SKDaten); fi
  build/release/src/schichtkalender render --out kalender.png --cursor "$(date +%Y-%m-%d)" "${data[@]}"
  echo "Keine grafische Anzeige gefunden: die Kalenderseite von heute steht in kalender.png."
  exit 0
fi
# No window built: the current month on the command line.
first=$(date +%Y-%m-01)
last=$(date -d "$first +1 month -1 day" +%Y-%m-%d)
exec build/release/src/schichtkalender days --from "$first" --to "$last"
