#!/bin/sh
# Two panels and their hosts: the bench panel, with its virtual board, and the gallery, each on its own line with a
# monitor. The Python command line and the C example drive both; the monitors must decode all of it, and a recording
# replayed to the gallery must get the recorded answers.   usage: hosts.sh BUILD_FOLDER SOURCE_FOLDER
. "$(dirname "$0")/lib.sh"
build=$1 source=$2
export SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy PYTHONPATH="$source/clients/python" PYTHONDONTWRITEBYTECODE=1

# One second of silence ends a frame: on a busy machine the bytes of a frame may arrive far apart.
monitor() {
    start $1.monitor "$build/tools/zof" monitor watch --panel-link "$work/$1.panel" --host-link "$work/$1.host" --gap 1000 \
        --record "$work/$1.rec"
    expect "$work/$1.host"
}

gallery() { start gallery env -C "$build/examples/gallery/gallery" ZOF_COM4="$1" ./gallery; }

host() {
    port=$work/$1.host
    shift
    /usr/bin/python3 -m zof_host --port "$port" "$@" 2>"$work/host.log" || fail "host $*"
}

monitor bench
monitor gallery
start board "$build/tools/board_sim" --link "$work/board"
expect "$work/board"
start bench env -C "$build/panel" ZOF_COM5="$work/bench.panel" ZOF_COM6="$work/board" ./zof_bench
gallery "$work/gallery.panel"
gallery=$!
for name in bench gallery; do expect "$work/$name.rec" "value system.reboot word=43707"; done

# Both kinds of host on each panel.
host gallery set view.display 5
host gallery set slider.value 5/23 77
for at in bench/17 gallery/1; do
    name=${at%/*} label=${at#*/}
    [ "$(host $name get view.size)" = "width=800 height=480" ] || fail "the size of $name"
    timeout 60 "$build/clients/c/example/host_example" "$work/$name.host" 1 $label 5 >"$work/example.log" || fail "the example on $name"
    grep -q "label 1/$label: 0.04 V" "$work/example.log" || fail "the example's answer on $name"
done
expect "$work/gallery.monitor.log" 'value slider.value view=5 control=23 value=77'
expect "$work/bench.monitor.log" 'write label.text view=1 control=17 text="0.04 V"'
! grep -q '!!' "$work"/*.monitor.log || fail "a fault on a good line"

for words in "1x 17" "1 65536" "-1 17" "1 17 0" "1 17 1 1"; do
    status=0
    "$build/clients/c/example/host_example" /dev/null $words 2>"$work/example.log" || status=$?
    [ $status -eq 2 ] && grep -Eq 'is a number from|usage' "$work/example.log" || fail "the example accepts \"$words\""
done

# A host whose cable is pulled reports it.
start cable "$build/tools/zof" monitor watch --host-link "$work/cable" --panel-link "$work/far"
cable=$!
expect "$work/cable"
start watch /usr/bin/python3 -m zof_host --port "$work/far" watch
start example "$build/clients/c/example/host_example" "$work/cable" 1 1
example=$!
expect "$work/cable.log" 'host > *write system.touch_config'
expect "$work/cable.log" '< panel'
kill "$cable"
status=0
wait "$example" || status=$?
[ $status -eq 1 ] && grep -q "cable: " "$work/example.log" || fail "the example does not report a lost line"
expect "$work/watch.log" "the line is gone"

# Replays a recording to the gallery, which must answer as recorded. Half a second between frames is enough for any
# machine.
"$build/tools/zof" monitor show "$work/gallery.rec" --only slider.value | grep -q 'write slider.value view=5 control=23 value=77' ||
    fail "the recording cannot be read"
kill "$gallery"
cat >"$work/written.rec" <<'END'
# zof monitor head=5AA5 crc=0
0 panel 5A A5 05 11 B0 01 AA BB
500000 host 5A A5 03 11 B1 06
510000 panel 5A A5 07 11 B1 06 03 20 01 E0
1000000 host 5A A5 05 22 B1 00 00 05
1500000 host 5A A5 0A 22 B2 07 01 00 05 00 17 00 4D
2000000 host 5A A5 08 11 B2 07 01 00 05 00 17
2010000 panel 5A A5 0A 11 B2 07 01 00 05 00 17 00 4D
END
start replay "$build/tools/zof" monitor replay "$work/written.rec" --panel-link "$work/again"
replay=$!
expect "$work/again"
gallery "$work/again"
wait $replay || fail "the gallery's answers differ"
grep -q ' 0 differences' "$work/replay.log" || fail "no comparison"
