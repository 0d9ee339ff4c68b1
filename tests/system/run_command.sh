#!/bin/sh
# The first command of the README on a machine without a display: with the virtual board that it starts, and with a board
# that is already running.   usage: run_command.sh SOURCE_FOLDER
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

# With an update disk there are no pages to take pictures of.
update=build/release/panel/disk/U/zof_update
mkdir -p "$update"
status=0
env -u DISPLAY -u WAYLAND_DISPLAY ZOF_COM6="$work/board" ./run >"$work/run.log" 2>&1 || status=$?
rmdir "$update"
[ $status -eq 1 ] && grep -q "update screen" "$work/run.log" && ! grep -q Volts "$work/run.log" || fail "an update is not reported"

# Release programs are hardened; the flags are read back from the programs, not from the build files.
has() { readelf -W $2 "$1" 2>/dev/null | grep -Eq -- "$3" || fail "$1: $4"; }
for program in panel/zof_bench tools/board_sim tools/zof clients/c/example/host_example; do
    program=build/release/$program
    has "$program" -h 'Type: +DYN' "not a position-independent program"
    has "$program" -l GNU_RELRO "no read-only relocations"
    has "$program" -d 'BIND_NOW|NOW' "no immediate binding"
done
has build/release/panel/zof_bench --dyn-syms __stack_chk_fail "no stack protector"
has build/release/panel/zof_bench --dyn-syms '__[a-z]+_chk' "calls of the C library are not fortified"
case $(uname -m) in
x86_64) for library in libzof.a libzof_lvgl.a; do has build/release/$library -n 'IBT' "no control-flow protection"; done ;;
esac
