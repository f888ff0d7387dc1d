#!/usr/bin/env bash
# wine.sh PROGRAM [ARGUMENT...]: runs a program for Windows under Wine with a registry and folders of its own, which lie
# in build/wine (or TORVALE_WINE) and are made when they are missing. Needs Debian's package wine64. A program with
# windows wants a display.
#   wine.sh --end   ends what still runs there
# A folder in the network, \\torvale\share, is there too and named to the program by TORVALE_NETWORK_FOLDER.
set -euo pipefail
kHere=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
export WINEPREFIX=${TORVALE_WINE:-$kHere/../build/wine}
export WINEDEBUG=${WINEDEBUG:--all}
# Nothing of Wine's own shall ask for a browser or write into the menu of this desktop.
export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
kWine=/usr/lib/wine/wine64

# GoogleTest takes a path for a whole one only with the letter of a disk ahead; Z: is this system's root.
[ -z "${GTEST_OUTPUT:-}" ] || export GTEST_OUTPUT=${GTEST_OUTPUT/#json:\//json:Z:/}

mkdir -p "$WINEPREFIX"
WINEPREFIX=$(readlink -f "$WINEPREFIX")
if [ "$1" = --end ]; then
  exec /usr/lib/wine/wineserver64 -k
fi
(
  flock 9
  if [ ! -f "$WINEPREFIX/made" ]; then
    "$kWine" wineboot -i >"$WINEPREFIX/made.log" 2>&1
    # The oldest that the program asks for; Wine would take an older one.
    "$kWine" winecfg -v win10 >>"$WINEPREFIX/made.log" 2>&1
    # Where Wine looks for the disks of other machines.
    mkdir -p "$WINEPREFIX/dosdevices/unc/torvale" "$WINEPREFIX/share"
    ln -sfn "$WINEPREFIX/share" "$WINEPREFIX/dosdevices/unc/torvale/share"
    touch "$WINEPREFIX/made"
  fi
) 9>"$WINEPREFIX/lock"
export TORVALE_NETWORK_FOLDER='\\torvale\share'
exec "$kWine" "$@"
