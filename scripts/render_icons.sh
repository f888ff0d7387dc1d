#!/usr/bin/env bash
# render_icons.sh: draws data/icons/torvale.svg at the sizes that desktops ask for, into data/icons/png/. Run it after a
# change of the drawing (needs rsvg-convert of librsvg2-bin).
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../data/icons"
for size in 16 22 24 32 48 64 128 256; do
  rsvg-convert --width=$size --height=$size torvale.svg --output="png/$size.png"
done
