#!/usr/bin/env bash
# Installs the build into a fresh prefix and checks that every file lies
# where a desktop finds it: the program on the PATH of the prefix, the
# launcher entry and its icon by the application ID, the AppStream file.
# Usage: install_test.sh BUILD_DIR
set -euo pipefail
build=$1
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
cmake --install "$build" --prefix "$prefix" >/dev/null
id=de.quorvel.Schichtkalender
fail=0
expect() {
  if [ ! -s "$prefix/$1" ]; then
    echo "fehlt: $1"
    fail=1
  fi
}
expect bin/schichtkalender
[ -x "$prefix/bin/schichtkalender" ] || { echo "nicht ausführbar: bin/schichtkalender"; fail=1; }
expect share/applications/$id.desktop
expect share/metainfo/$id.metainfo.xml
expect share/icons/hicolor/scalable/apps/$id.svg
for size in 16 24 32 48 64 128 256; do
  png=share/icons/hicolor/${size}x${size}/apps/$id.png
  expect "$png"
  # The PNG header holds width and height as 32-bit big-endian numbers.
  dims=$(od -An -tu1 -j16 -N8 "$prefix/$png" | awk '{print $3*256+$4 "x" $7*256+$8}')
  [ "$dims" = "${size}x${size}" ] || { echo "$png ist $dims groß"; fail=1; }
done
# The entry names the binary and the icon that were installed.
grep -qx "Exec=schichtkalender" "$prefix/share/applications/$id.desktop" || { echo "Exec falsch"; fail=1; }
grep -qx "Icon=$id" "$prefix/share/applications/$id.desktop" || { echo "Icon falsch"; fail=1; }
grep -q "<launchable type=\"desktop-id\">$id.desktop</launchable>" \
  "$prefix/share/metainfo/$id.metainfo.xml" || { echo "launchable falsch"; fail=1; }
# The installed program runs from there.
"$prefix/bin/schichtkalender" holidays 2024 >/dev/null || { echo "Programm läuft nicht"; fail=1; }
exit $fail
