#!/bin/sh
# The first command of the README, as a machine without a display runs it: on the virtual board, and on a board that is
# there already.   usage: run_command.sh SOURCE_FOLDER
set -eu
cd "$1"
work=$(mktemp -d)
board=""
trap '[ -z "$board" ] || kill "$board" 2>/dev/null || true; rm -rf "$work"' EXIT

check() {
    for view in output rails settings about; do
        grep -q "out/$view.png" "$work/log" || { cat "$work/log" >&2; exit 1; }
    done
    grep -Eq '^Volts: +1[0-9]\.[0-9]{2}$' "$work/log" || { cat "$work/log" >&2; exit 1; }
}

env -u DISPLAY -u WAYLAND_DISPLAY -u ZOF_COM6 ./run >"$work/log" 2>&1 || { cat "$work/log" >&2; exit 1; }
check
build/release/tools/board_sim --link "$work/board" >"$work/board.log" &
board=$!
tries=0
until [ -e "$work/board" ] || [ $tries -gt 100 ]; do sleep 0.05; tries=$((tries + 1)); done
env -u DISPLAY -u WAYLAND_DISPLAY ZOF_COM6="$work/board" ./run >"$work/log" 2>&1 || { cat "$work/log" >&2; exit 1; }
check
