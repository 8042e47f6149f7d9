#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, only those that
# are missing. Used by ./run.sh and ./test.sh.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  libgtest-dev libgmock-dev libbenchmark-dev
  libgtkmm-3.0-dev libcairo2-dev libpango1.0-dev libical-dev tzdata python3-icalendar
  clang libclang-rt-14-dev
  xvfb xauth xdotool xclip imagemagick
  desktop-file-utils appstream poppler-utils dbus-daemon
  fonts-freefont-ttf fonts-dejavu-core locales
)
if [ "${1:-}" = "--runtime" ]; then
  packages=(cmake ninja-build g++ pkg-config libgtest-dev libgmock-dev libbenchmark-dev
            libgtkmm-3.0-dev libcairo2-dev libpango1.0-dev libical-dev tzdata
            fonts-freefont-ttf fonts-dejavu-core)
fi

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done

sudo=""
if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installiere fehlende Pakete: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  if ! $sudo apt-get install -y --no-install-recommends "${missing[@]}"; then
    $sudo apt-get update
    $sudo apt-get install -y --no-install-recommends "${missing[@]}"
  fi
fi

# The tests check that a German locale (decimal comma) changes none of the
# numbers the program writes; they need de_DE.UTF-8 to exist.
if [ "${1:-}" != "--runtime" ] && ! locale -a 2>/dev/null | grep -qix 'de_DE\.utf-\?8'; then
  echo "Erzeuge die Locale de_DE.UTF-8"
  $sudo localedef -i de_DE -f UTF-8 de_DE.UTF-8
fi
