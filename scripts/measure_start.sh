#!/usr/bin/env bash
# measure_start.sh [RUNS]: starts the program RUNS times (by default 9), in turn with a plain window of the toolkit, on
# a virtual display, and prints how long each takes until its window is drawn, and the memory it then holds, with the
# longest line opened too; then the sizes of the packages. Compare the figures of one run with each other, never across
# machines.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
source scripts/configure.sh
kRuns=${1:-9}
kTemp=$(mktemp -d)
x_server=
trap '[ -z "$x_server" ] || kill "$x_server"; rm -rf "$kTemp"' EXIT

{
  configure release -DTORVALE_BENCH=ON
  cmake --build build/release --target torvale torvale_script torvale_plain_window
  scripts/make_packages.sh
} >"$kTemp/log" 2>&1 || { tail -n 20 "$kTemp/log" >&2; exit 1; }

# A hole every foot over a mile.
build/release/torvale_script >/dev/null <<END
type txtInfo(2) "1500"
type txtInfo(3) "2.0"
type txtInfo(5) "E"
fill Grid1 1 0
0	10.00	1320	1	36	1/8	1	10	1
5280	10.00	1320	1	36	1/8	1	10	1
end
click mnuDesignField
dialog "$kTemp/mile.PFD"
click mnuFileSaveAs
END

Xvfb -displayfd 3 -screen 0 1400x1000x24 -nolisten tcp 3>"$kTemp/display" 2>"$kTemp/xvfb" &
x_server=$!
until [ -s "$kTemp/display" ]; do sleep 0.1; kill -0 "$x_server"; done
mkdir -m 700 "$kTemp/runtime"
env -u WAYLAND_DISPLAY -u XDG_CONFIG_HOME -u XDG_DATA_HOME DISPLAY=":$(<"$kTemp/display")" HOME="$kTemp" \
  XDG_RUNTIME_DIR="$kTemp/runtime" QT_QPA_PLATFORM=xcb \
  python3 scripts/measure_start.py "$kRuns" \
  "plain window" '^plain$' build/release/torvale_plain_window -- \
  "TORVALE" '^TORVALE +$' build/release/torvale -- \
  "TORVALE with a mile of holes" '^TORVALE +Planned' build/release/torvale "$kTemp/mile.PFD"
echo
(cd build/release/packages && du -b -- * | awk '{printf "%-36s %6.2f MB\n", $2, $1 / 1e6}')
echo "installed $(dpkg-deb -f build/release/packages/*.deb Installed-Size) kB"
