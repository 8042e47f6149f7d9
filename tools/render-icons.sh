#!/usr/bin/env bash
# Renders the PNG sizes of the program's icon from its SVG (needs rsvg-convert
# from librsvg2-bin). Run after changing the SVG and commit the PNGs.
set -euo pipefail
cd "$(dirname "$0")/../data/icons/hicolor"
id=de.quorvel.Schichtkalender
for size in 16 24 32 48 64 128 256; do
  mkdir -p "${size}x${size}/apps"
  rsvg-convert -w "$size" -h "$size" "scalable/apps/$id.svg" -o "${size}x${size}/apps/$id.png"
done
