#!/bin/sh
# Two panels and their hosts: the bench panel, with its virtual board, and the gallery, each on a line of its own with
# a monitor on it. The command line in Python and the example in C drive both; the monitors have to have seen it all by
# name, and a recording, said again to the gallery, has to be answered as written.   usage: hosts.sh BUILD_FOLDER SOURCE_FOLDER
set -eu
build=$(cd "$1" && pwd) source=$2
work=$(mktemp -d)
pids=""
trap 'for p in $pids; do kill "$p" 2>/dev/null || true; done; rm -rf "$work"' EXIT
export SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy PYTHONPATH="$source/clients/python" PYTHONDONTWRITEBYTECODE=1

fail() {
    echo "$*" >&2
    tail -n 15 "$work"/*.log >&2
    exit 1
}

# Waits for a line of a file, or for the file.
until_there() {
    tries=0
    while { [ $# -gt 1 ] && ! grep -q "$2" "$1" 2>/dev/null; } || [ ! -e "$1" ]; do
        [ $tries -lt 400 ] || fail "$1: never came: ${2:-the file}"
        sleep 0.05
        tries=$((tries + 1))
    done
}

# A second of silence ends a frame: on a busy machine the bytes of one may come far apart.
monitor() {
    "$build/tools/zof_monitor" watch --panel-link "$work/$1.panel" --host-link "$work/$1.host" --gap 1000 --record "$work/$1.rec" \
        >"$work/$1.monitor.log" 2>&1 &
    pids="$pids $!"
    until_there "$work/$1.host"
}

host() {
    port=$work/$1.host
    shift
    /usr/bin/python3 -m zof_host --port "$port" "$@" 2>"$work/host.log" || fail "host $*"
}

monitor bench
monitor gallery
"$build/tools/board_sim" --link "$work/board" >"$work/board.log" 2>&1 &
pids="$pids $!"
until_there "$work/board"
(cd "$build/panel" && ZOF_COM5="$work/bench.panel" ZOF_COM6="$work/board" exec ./zof_bench >"$work/bench.log" 2>&1) &
pids="$pids $!"
(cd "$build/examples/gallery/gallery" && ZOF_COM4="$work/gallery.panel" exec ./gallery >"$work/gallery.log" 2>&1) &
gallery=$!
pids="$pids $gallery"
until_there "$work/bench.rec" "value system.reboot word=43707"
until_there "$work/gallery.rec" "value system.reboot word=43707"

# A host of each kind on each panel.
[ "$(host bench get view.size)" = "$(host gallery get view.size)" ] || fail "both are 800 by 480"
host gallery set view.display 5
host gallery set slider.value 5/23 77 || fail "slider"
host gallery get slider.value 5/23 | grep -q 77 || fail "the slider is not where it was put"
for at in bench/17 gallery/1; do
    name=${at%/*} label=${at#*/}
    timeout 60 "$build/clients/c/example/host_example" "$work/$name.host" 1 $label 5 >"$work/$name.example.log" || fail "the example on $name"
    grep -q "label 1/$label: 0.04 V" "$work/$name.example.log" || fail "the example on $name"
done
grep -q 'write slider.value view=5 control=23 value=77' "$work/gallery.monitor.log" || fail "the monitor missed the slider"
grep -q 'write label.text view=1 control=17 text="0.04 V"' "$work/bench.monitor.log" || fail "the monitor missed the label"
! grep -q '!!' "$work"/*.monitor.log || fail "a fault on a good line"

# The gallery once more, as the host of a recording: it answers as written. Half a second between frames is enough for
# any machine.
"$build/tools/zof_monitor" show "$work/gallery.rec" --only slider.value | grep -q 'write slider.value view=5 control=23 value=77' ||
    fail "the recording cannot be read"
kill "$gallery"
cat >"$work/written.rec" <<'END'
# zof_monitor head=5AA5 crc=0
0 panel 5A A5 05 11 B0 01 AA BB
500000 host 5A A5 03 11 B1 06
510000 panel 5A A5 07 11 B1 06 03 20 01 E0
1000000 host 5A A5 05 22 B1 00 00 05
1500000 host 5A A5 0A 22 B2 07 01 00 05 00 17 00 4D
2000000 host 5A A5 08 11 B2 07 01 00 05 00 17
2010000 panel 5A A5 0A 11 B2 07 01 00 05 00 17 00 4D
END
"$build/tools/zof_monitor" replay "$work/written.rec" --panel-link "$work/again" >"$work/replay.log" 2>&1 &
replay=$!
until_there "$work/again"
(cd "$build/examples/gallery/gallery" && ZOF_COM4="$work/again" exec ./gallery >"$work/gallery2.log" 2>&1) &
pids="$pids $!"
wait $replay || { cat "$work/replay.log" >&2; fail "the gallery answers otherwise"; }
grep -q ' 0 differences' "$work/replay.log" || fail "no comparison"
