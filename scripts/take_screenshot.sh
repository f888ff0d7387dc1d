#!/usr/bin/env bash
# take_screenshot.sh: takes docs/screenshot.png anew, a finished design in the window. Look at it before you commit it.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
source scripts/configure.sh
kTemp=$(mktemp -d)
trap 'rm -rf "$kTemp"' EXIT

[ -f build/release/build.ninja ] || configure release -DTORVALE_TESTS=OFF
cmake --build build/release --target torvale
scripts/start_on_xvfb.sh build/release/torvale "$kTemp/display.png" "$kTemp/home" '^TORVALE +Computer' \
  "$PWD/data/samples/ditch_corner.CSH"
# The display around the window is black.
convert "$kTemp/display.png" -trim +repage -dither None -colors 128 -strip PNG8:docs/screenshot.png
