#!/bin/sh
# The first command of the README, as a machine without a display runs it: on the virtual board, and on a board that is
# there already.   usage: run_command.sh SOURCE_FOLDER
. "$(dirname "$0")/lib.sh"
cd "$1"

check() {
    env -u DISPLAY -u WAYLAND_DISPLAY -u ZOF_COM6 "$@" ./run >"$work/run.log" 2>&1 || fail "it ended with $?"
    for said in out/output.png out/rails.png out/settings.png out/about.png '^Volts: +1[0-9]\.[0-9]{2}$'; do
        grep -Eq "$said" "$work/run.log" || fail "no $said"
    done
}

check
start board build/release/tools/board_sim --link "$work/board"
expect "$work/board"
check ZOF_COM6="$work/board"
