#!/bin/sh
# The panel on a bad line: it survives every fault of the virtual board, and shows readings as soon as any arrive.
# usage: faults.sh BUILD_FOLDER
. "$(dirname "$0")/lib.sh"
build=$1
export SDL_VIDEODRIVER=offscreen ZOF_COM6="$work/line" ZOF_SCRIPT="$work/session"

# One run: the fault, and the session that the panel plays.
run() {
    rm -f "$work/line"
    start board "$build/tools/board_sim" --link "$work/line" --seed 7 --no-noise --fault "$1"
    expect "$work/line"
    printf '%b' "$2" >"$work/session"
    timeout 60 env -C "$build/panel" ./zof_bench >"$work/panel.log" 2>&1 || fail "with fault $1 the panel ended with $?"
    kill $! 2>/dev/null || true
}

readings='until 20000 1 1 *\nuntil 20000 1 3 *\nview 2\nuntil 20000 2 2 5.00 V\nwait 500\nquit\n'
for fault in garbage=50 late=300 flood=11520; do
    run $fault "$readings"
done
# Lost requests and answers are not repeated; only what the board pushes by itself still arrives.
for fault in lose=0.5 split=20 replug=1; do
    run $fault 'until 20000 1 1 *\nwait 2500\nuntil 20000 1 3 *\nquit\n'
done
run mute 'wait 1500\ntap 632 168\ntap 632 300\nwait 500\nquit\n'
