#!/bin/sh
# A user at the panel: a real window under Xvfb, a real pointer, the virtual board at the far end of a pseudo-terminal.
# Walks through all views and checks the output of board and panel.      usage: walk.sh BUILD_FOLDER
. "$(dirname "$0")/lib.sh"
build=$1
seen() { grep -c -- "$1" "$work/board.log" || true; }
tap() { xdotool mousemove --window "$window" "$1" "$2" mousedown 1; sleep 0.1; xdotool mouseup 1; sleep "${3:-0.4}"; }

start screen Xvfb -displayfd 1 -screen 0 1280x800x24
expect "$work/screen.log" '^[0-9]*$'
DISPLAY=:$(grep '^[0-9]*$' "$work/screen.log")
export DISPLAY

start board "$build/tools/board_sim" --link "$work/line" --state "$work/state" --trace --no-noise
expect "$work/board.log" "the board is at"
start panel env -C "$build/panel" ZOF_COM6="$work/line" ./zof_bench
panel=$!
expect "$work/panel.log" "115200 baud"
window=$(timeout 20 xdotool search --sync --name "USB-PD bench box" | head -1)
[ -n "$window" ] || fail "no window"
sleep 1

tap 632 300 0.8                              # Rails ›
expect "$work/board.log" "report 36 RAIL_REQUEST = 1"
tap 400 160                                  # PPS 3.3-21.0 V
xdotool mousemove --window "$window" 752 344 mousedown 1
for x in 700 640 580 520 466; do xdotool mousemove --window "$window" $x 344; sleep 0.1; done
xdotool mouseup 1
sleep 0.3
tap 684 392 0.8                              # Use
expect "$work/board.log" "report 35 RAIL_SELECT = 7"
mv=$(sed -n 's/.*report 32 ADJ_MV = \([0-9]*\) mV.*/\1/p' "$work/board.log")
[ "$mv" -gt 10000 ] && [ "$mv" -lt 14000 ] || fail "the slider said $mv mV"
tap 632 168 1                                # the toggle
expect "$work/board.log" "report 34 OUT_REQ = 1"
expect "$work/board.log" "write 22 OUT_STATE = 1"
expect "$work/board.log" "write 16 LIVE_MV = $mv mV"

# Sliding off a button does not trigger it.
xdotool mousemove --window "$window" 632 168 mousedown 1
sleep 0.2
xdotool mousemove --window "$window" 200 340
sleep 0.2
xdotool mouseup 1
sleep 0.3
[ "$(seen OUT_REQ)" -eq 1 ] || fail "sliding off the toggle triggered it"

tap 396 392                                  # Reset
expect "$work/board.log" "report 37 SESS_RESET = 1"
tap 500 456                                  # Settings
tap 720 360
expect "$work/board.log" "report 50 AUTO_ARM = 1"
tap 590 246
expect "$work/board.log" "report 49 BOOT_STATE = 1"
tap 700 456                                  # About
tap 100 456                                  # Output
tap 632 168 1
expect "$work/board.log" "report 34 OUT_REQ = 0"
kill -0 "$panel" || fail "the panel has died"
