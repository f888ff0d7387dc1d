#!/usr/bin/env bash
# guide_pictures.sh: takes the pictures of the guide anew, into data/help/: the guide's scripts are replayed in the real
# window, on a display of the right size that needs no screen. Look at them before you commit them.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
source scripts/configure.sh
kWidest=720   # pixels
kColours=64
kTemp=$(mktemp -d)
kFields=/tmp/fields   # where the scripts save: the name stands on two of the pictures
mkdir "$kFields"
trap 'rm -rf "$kTemp" "$kFields"' EXIT

configure release -DTORVALE_TESTS=ON
cmake --build build/release --target torvale_pictures

cat >"$kTemp/screen.json" <<'END'
{"windowFrameMargins": false,
 "screens": [{"name": "guide", "x": 0, "y": 0, "width": 1920, "height": 1200,
              "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}
END
kProject=$PWD
(cd "$kFields" && QT_QPA_PLATFORM=offscreen:configfile=$kTemp/screen.json HOME=$kTemp \
  "$kProject/build/release/torvale_pictures" "$kProject/data" "$kTemp" "$kProject"/tests/scripts/guide_*.script)

# The page for a phone, in a browser.
tests/desktop/phone_page.py build/release/torvale_script "$kTemp/phone"
convert "$kTemp/phone/phone-light-ticked.png" -resize 300x -bordercolor gray -border 1 "$kTemp/phone.png"

for report in "$kTemp"/*.pdf; do
  pdftoppm -png -r 90 -singlefile "$report" "${report%.pdf}"
  convert "${report%.pdf}.png" -trim -bordercolor white -border 12 -bordercolor gray -border 1 "${report%.pdf}.png"
done
mkdir -p data/help
for picture in "$kTemp"/*.png; do
  convert "$picture" -resize "${kWidest}x>" -dither None -colors $kColours -strip \
    "PNG8:data/help/$(basename "$picture")"
done
du -cb data/help/*.png | tail -n 1
