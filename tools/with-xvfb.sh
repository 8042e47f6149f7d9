#!/usr/bin/env bash
# Runs a command on a private Xvfb display and stops the server afterwards.
# Xvfb chooses a free display number itself (-displayfd), so several runs side
# by side (ctest -j) never race for one, as "xvfb-run -a" can. The screen is
# 1600x1000 at 24 bits unless SK_XVFB_SCREEN says otherwise.
set -uo pipefail
if [ $# -eq 0 ]; then
  echo "Aufruf: tools/with-xvfb.sh BEFEHL [ARGUMENT...]" >&2
  exit 2
fi
dir=$(mktemp -d)
server=""
cleanup() {
  if [ -n "$server" ]; then
    kill "$server" 2>/dev/null
    wait "$server" 2>/dev/null
  fi
  rm -rf "$dir"
}
trap cleanup EXIT
mkfifo "$dir/display"
Xvfb -displayfd 3 -screen 0 "${SK_XVFB_SCREEN:-1600x1000x24}" -nolisten tcp -noreset \
  3>"$dir/display" 2>"$dir/log" &
server=$!
# The read ends when Xvfb writes its number, or at end of file if it dies.
if ! read -r -t 30 number <"$dir/display"; then
  echo "with-xvfb.sh: Xvfb ist nicht gestartet:" >&2
  cat "$dir/log" >&2
  exit 1
fi
DISPLAY=":$number" "$@"
