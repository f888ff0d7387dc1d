#!/usr/bin/env bash
# start_on_xvfb.sh PROGRAM [PICTURE [HOME [TITLE [ARGUMENT...]]]]: starts the window on a virtual X display as a new
# user would, with an empty home (HOME, if it is to be looked at afterwards), waits for the main window (the one whose
# title matches TITLE), takes a picture of the display, closes the window and fails unless
#   - the window came up and something is drawn in it,
#   - the program ended by itself with status 0,
#   - nothing was said on standard error (toolkit warnings go there).
set -euo pipefail
kProgram=$(readlink -f "$1")
kPicture=$(readlink -m "${2:-/dev/null}")
kScripts=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
kTemp=$(mktemp -d)
kHome=${3:-$kTemp/home}
kTitle=${4:-^TORVALE}
kArguments=("${@:5}")
xvfb_pid=
program_pid=

clean_up() {
  [ -z "$program_pid" ] || kill -KILL "$program_pid" 2>/dev/null || true
  [ -z "$xvfb_pid" ] || kill "$xvfb_pid" 2>/dev/null || true
  wait 2>/dev/null || true
  rm -rf "$kTemp"
}
trap clean_up EXIT

fail() {
  echo "start on a virtual display: $*" >&2
  [ ! -s "$kTemp/stderr" ] || sed 's/^/  stderr: /' "$kTemp/stderr" >&2
  exit 1
}

has_ended() { [ -n "$program_pid" ] && ! kill -0 "$program_pid" 2>/dev/null; }

# wait_for SECONDS COMMAND...: until the command succeeds, the time is over, or the program has ended.
wait_for() {
  local deadline=$((SECONDS + $1))
  shift
  until "$@" >/dev/null 2>&1; do
    { [ $SECONDS -lt $deadline ] && ! has_ended; } || return 1
    sleep 0.2
  done
}

main_windows() { xdotool search --onlyvisible --name "$kTitle"; }

# The server picks a free display and writes its number when it is ready for clients.
Xvfb -displayfd 3 -screen 0 1400x1000x24 -nolisten tcp 3>"$kTemp/display" 2>"$kTemp/xvfb" &
xvfb_pid=$!
wait_for 30 test -s "$kTemp/display" || fail "the X server did not start: $(cat "$kTemp/xvfb")"
export DISPLAY=:$(<"$kTemp/display")

mkdir -p -m 700 "$kHome" "$kTemp/runtime"
cd "$kHome"
env -u WAYLAND_DISPLAY -u XDG_CONFIG_HOME -u XDG_DATA_HOME -u XDG_CACHE_HOME -u XDG_STATE_HOME \
  HOME="$kHome" XDG_RUNTIME_DIR="$kTemp/runtime" QT_QPA_PLATFORM=xcb \
  "$kProgram" "${kArguments[@]}" >"$kTemp/stdout" 2>"$kTemp/stderr" &
program_pid=$!

wait_for 30 main_windows || fail "no window with the title $kTitle came up"
# The splash screen closes by itself after two seconds.
sleep 4
! has_ended || fail "the program ended by itself"
main_windows >"$kTemp/windows" || fail "the window went away"

import -window root "$kTemp/picture.png"
[ "$kPicture" = /dev/null ] || cp "$kTemp/picture.png" "$kPicture"
colours=$(identify -format '%k' "$kTemp/picture.png")
[ "$colours" -gt 8 ] || fail "the display holds $colours colours: nothing is drawn"

while read -r window; do
  python3 "$kScripts/close_window.py" "$window" || fail "window $window can't be asked to close"
done <"$kTemp/windows"
wait_for 15 has_ended || fail "the program still runs 15 seconds after its window was closed"
status=0
wait "$program_pid" || status=$?
program_pid=
[ "$status" -eq 0 ] || fail "exit status $status"
[ ! -s "$kTemp/stderr" ] || fail "something was said on standard error"
