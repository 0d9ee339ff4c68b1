#!/bin/sh
# Builds the programs for Windows and runs the panel under Wine, with serial ports that lead to pseudo-terminals: its pages
# are the same, pixel by pixel, as those of the panel of this machine; boxes, hosts and the monitor at its lines.
#   usage: windows.sh NATIVE_BUILD      the release build of this machine
cd "$(dirname "$0")/../.."
. tests/system/lib.sh
. tests/system/panels.sh
. tests/windows/wine.sh "$1"

# Both panels run in folders of equal content; the line has the same name in both.
mkdir -p "$work/native"
cp -r "$inside/res" "$work/native"
for port in 5 6 7 8 9; do ln -sfn "$work/native/COM$port" "$WINEPREFIX/dosdevices/com$port"; done
play_other() { play other "$1" "$inside" wine ./zof_bench.exe; }
compare_panels

# Every fault of the line: readings appear as soon as any arrive, and a cable that is pulled out comes back.
readings='until 20000 1 1 *\nuntil 20000 1 3 *\nview 2\nuntil 20000 2 2 5.00 V\nwait 500\nquit\n'
pushed='until 20000 1 1 *\nwait 2500\nuntil 20000 1 3 *\nquit\n' # lost requests and answers are not repeated
for row in "garbage=50|$readings" "late=300|$readings" "flood=11520|$readings" "lose=0.5|$pushed" "split=20|$pushed" "replug=1|$pushed" \
    "mute|wait 1500\ntap 632 168\ntap 632 300\nwait 500\nquit\n"; do
    fault=${row%%|*}
    printf '%b' "${row#*|}" >"$work/${fault%=*}.session"
    line --fault "$fault"
    play_other "$work/${fault%=*}.session"
    unplug
done
grep -q "the device is back" "$work/replug.log" || fail "the panel has not noticed the cable"

# A host on its other port: names, values and texts go both ways, through the monitor of Windows between two of this machine.
start monitor "$native/tools/zof" monitor watch --panel-link "$work/native/COM5" --host-link "$work/native/COM8" --gap 1000
start near_host "$native/tools/zof" monitor watch --panel-link "$work/native/COM9" --host-link "$work/host" --gap 1000
for line in "$work/native/COM8" "$work/native/COM9" "$work/host"; do expect "$line"; done
start monitor_exe wine "$inside/zof.exe" monitor watch --host COM9 --panel COM8 --record "$work/Tag.rec" --gap 1000
expect "$work/monitor_exe.log" "the panel opens: COM8"
start host_panel env -C "$inside" ZOF_COM6=COM6 ZOF_SCRIPT= wine ./zof_bench.exe
expect "$work/monitor.log" "word=43707" # it has started
host() {
    PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=clients/python /usr/bin/python3 -m zof_host --port "$work/host" --project "$inside/res" --timeout 5000 "$@" 2>"$work/host.log"
}
[ "$(host get view.size)" = "width=800 height=480" ] || fail "a host gets no answer"
host set slider.value settings/slider0 55 && [ "$(host get slider.value 4/19)" = 55 ] || fail "a host's value does not arrive"
host set --no-confirm label.text 1/17 "für 7 €" && [ "$(host get label.text 1/17)" = "für 7 €" ] || fail "a host's text does not arrive"
wine "$inside/zof.exe" monitor show "$work/Tag.rec" --only 'label.*' >"$work/windows-rec" 2>"$work/show.log" || fail "zof.exe monitor show fails"
"$native/tools/zof" monitor show "$work/Tag.rec" --only 'label.*' >"$work/linux-rec"
grep -q "für 7 €" "$work/linux-rec" && cmp "$work/linux-rec" "$work/windows-rec" || fail "zof.exe monitor has not recorded the host's text"

# The virtual board of Windows, with the panel of this machine at the far end.
start bridge "$native/tools/zof" monitor watch --panel-link "$work/native/COM7" --host-link "$work/far"
expect "$work/far"
(cd "$work/native" && exec wine "$inside/board_sim.exe" --tty COM7 --no-noise --state box.state --seconds 60) >"$work/board_sim.log" 2>&1 &
pids="$pids $!"
printf '%b' "$readings" >"$work/far.session"
(cd "$work/native" && ZOF_COM6=$work/far ZOF_SCRIPT=$work/far.session timeout 60 "$native/panel/zof_bench" --project res) >"$work/panel.log" 2>&1 ||
    fail "board_sim.exe sends no readings"
echo "windows: the panel draws the same pages, boards and hosts talk to it"
