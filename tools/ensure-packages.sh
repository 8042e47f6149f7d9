#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, only those that
# are missing. Used by ./run.sh and ./test.sh.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  libgtest-dev libgmock-dev libbenchmark-dev
  libgtkmm-3.0-dev libcairo2-dev libpango1.0-dev libical-dev tzdata python3-icalendar
  clang libclang-rt-14-dev
  xvfb xauth xdotool imagemagick
  fonts-freefont-ttf fonts-dejavu-core
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
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installiere fehlende Pakete: ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
if ! $sudo apt-get install -y --no-install-recommends "${missing[@]}"; then
  $sudo apt-get update
  $sudo apt-get install -y --no-install-recommends "${missing[@]}"
fi
