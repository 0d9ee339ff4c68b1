#!/bin/sh
# A user at the panel: a real window under Xvfb, a real pointer, the virtual board at the far end of a pseudo-terminal.
# Walks through all views and checks the output of board and panel.      usage: walk.sh BUILD_FOLDER
. "$(dirname "$0")/lib.sh"
build=$1
seen() { grep -c -- "$1" "$work/board.log" || true; }
hold() { xdotool mousemove --window "$window" "$1" "$2" mousedown 1; sleep "$3"; xdotool mouseup 1; sleep 0.6; }
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

tap 632 340 0.8                              # Rails ›
expect "$work/board.log" "report 36 RAIL_REQUEST = 1"
tap 303 272 0.8                              # PPS 3.3-21.0 V
xdotool mousemove --window "$window" 230 336 mousedown 1
for x in 260 290 320 352; do xdotool mousemove --window "$window" $x 336; sleep 0.1; done
xdotool mouseup 1
sleep 0.3
tap 684 388 0.8                              # Use, and back on the output's page
expect "$work/board.log" "report 35 RAIL_SELECT = 7"
mv=$(sed -n 's/.*report 32 ADJ_MV = \([0-9]*\) mV.*/\1/p' "$work/board.log")
[ "$mv" -gt 11000 ] && [ "$mv" -lt 13000 ] || fail "the slider said $mv mV"
hold 632 208 0.4                             # the toggle, too short for so many volts
[ "$(seen OUT_REQ)" -eq 0 ] || fail "a short press turned on"
hold 632 208 1.2
expect "$work/board.log" "report 34 OUT_REQ = 1"
expect "$work/board.log" "write 22 OUT_STATE = 1"
expect "$work/board.log" "write 17 LIVE_MA = 1000 mA"  # the limit that the tray showed

# Sliding off a button does not trigger it.
xdotool mousemove --window "$window" 396 392 mousedown 1
sleep 0.2
xdotool mousemove --window "$window" 396 330
sleep 0.2
xdotool mouseup 1
sleep 0.3
[ "$(seen SESS_RESET)" -eq 0 ] || fail "sliding off Reset triggered it"

tap 396 392                                  # Reset
expect "$work/board.log" "report 37 SESS_RESET = 1"
tap 240 456 0.8                              # Rails
tap 109 272 0.8                              # 15 V, more than what is set
tap 684 388
[ "$(seen "RAIL_SELECT = 3")" -eq 0 ] || fail "a tap raised the voltage"
hold 684 388 1.2
expect "$work/board.log" "report 35 RAIL_SELECT = 3"
sleep 0.5
tap 560 456 0.6                              # Settings
tap 341 190
expect "$work/board.log" "report 50 AUTO_ARM = 1"
tap 674 126
expect "$work/board.log" "report 49 BOOT_STATE = 1"
tap 720 456 0.6                              # About
tap 80 456 0.6                               # Output
tap 632 208 1
expect "$work/board.log" "report 34 OUT_REQ = 0"
kill -0 "$panel" || fail "the panel has died"
