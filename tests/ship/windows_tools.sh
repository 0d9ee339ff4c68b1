#!/bin/sh
# Runs the tests that are built for Windows under Wine, each case in a process of its own; compares what zof.exe and the
# gallery show with what the programs of this machine show, with clips, compressed sounds and JPEG; and opens projects
# in folders with odd names: on drive D, below 300 characters, with umlauts.
#   usage: windows_tools.sh NATIVE_BUILD      the release build of this machine
cd "$(dirname "$0")/../.."
. tests/system/lib.sh
. tests/windows/wine.sh "$1"
top=$PWD

# The programs write to the console from which they are started.
for program in "$inside"/*.exe; do
    x86_64-w64-mingw32-objdump -p "$program" | grep -q 'Windows CUI' || fail "$(basename "$program") is no console program"
done

# Left out: names of folders and of errors, and times with parts of a second, which only POSIX has; a variable that SDL
# reads only once on Windows.
export without='-tce=beeper: a tone of*,glyphs are read once*,without a medium the watch*,a thread copies a USB*,the window?s state is kept*'
case_run() { # PROGRAM NUMBER: appends to $work/failed what fails
    log=$work/case-$(basename "$1" .exe)-$2.log
    timeout 900 wine "$1" --no-version "$without" -f="$2" -l="$2" >"$log" 2>&1 || { cat "$log"; echo "FAILED $(basename "$1") $2"; } >>"$work/failed.log"
    rm -f "$log"
}
cd "$windows/tests"
for test in *.exe; do
    cases=$(wine "$test" "$without" --count 2>/dev/null | tr -d '\r' | sed -n 's/.*filters: //p')
    [ "${cases:-0}" -gt 0 ] || fail "$test has no tests"
    seq "$cases" | sed "s/^/$test /"
done >"$work/cases"
case_runs() { # every second case, from the first or from the second
    sed -n "$1~2p" "$work/cases" | while read -r test number; do case_run "$test" "$number" </dev/null; done
}
case_runs 1 &
half=$!
(case_runs 2)
wait $half
cd "$top"
# Windows keeps the folder of a test whose files are open when it ends.
find /tmp -maxdepth 1 -name 'zof_test_[0-9][0-9][0-9][0-9][0-9][0-9]' -newer "$work/cases" -exec rm -rf {} +
[ ! -e "$work/failed.log" ] || fail "tests fail: $(sed -n 's/^FAILED //p' "$work/failed.log" | tr '\n' ' ')"

# Runs a command of zof on both systems in the current folder; its output and its status are the same.   both NAME ARGUMENT...
zof_linux() { "$native/tools/zof" "$@"; }
zof_windows() { wine "$inside/zof.exe" "$@"; }
both() {
    name=$1
    shift
    for system in linux windows; do
        zof_$system "$@" >"$work/$system-$name" 2>"$work/$system-$name.log" && status=0 || status=$?
        echo "status $status" >>"$work/$system-$name"
    done
    cmp "$work/linux-$name" "$work/windows-$name" || fail "zof $* differs between the systems"
}
cd "$inside"
both shot view res --view settings --lang de --shot -
both tree view res --tree -
both lint lint --strict --sheet - res
zof_windows doctor | grep -q "sudo" && fail "zof.exe doctor advises sudo"
zof_windows font add x.ttf --project res 2>&1 | grep -q "fontTools" || fail "zof.exe font does not name what it needs"

# The gallery, with other media than its own: a JPEG, a clip of a second, sounds as MP3 and AAC.
media=$work/media
cp -r "$native/examples/gallery/gallery/res" "$media"
"$native/tools/zof_media" clip "$media/video/motion.mp4" 64 48 1 10 mjpeg
"$native/tools/zof_media" clip "$media/video/clip.mp4" 320 180 1 10
for kind in mp3 aac; do "$native/tools/zof_media" tone "$media/sound/tone.$kind" 440 300; done
/usr/bin/python3 -c "import sys; data = open(sys.argv[1], 'rb').read(); at = data.index(b'\xff\xd8\xff')
open(sys.argv[2], 'wb').write(data[at:data.index(b'\xff\xd9', at) + 2])" "$media/video/motion.mp4" "$media/image/shell.jpg"
sed -i 's/shell\.png/shell.jpg/' "$media"/config/view/*.g
cd "$work"
both media check --strict media
grep -qx "status 0" "$work/linux-media" || fail "the media are damaged"
head -c 600 "$media/sound/tone.mp3" >"$media/sound/half.aac"
head -c 3000 "$media/video/clip.mp4" >"$media/video/half.mp4"
both damage check media
rm "$media"/*/half.*
both gallery view media --sheet -
{ printf 'view 15\nwait 400\ntap 80 380\nwait 3000\nshot clip.png\nview 4\nwait 400\nshot pictures.png\nquit\n'; } >"$work/media.session"
for system in linux windows; do
    mkdir "$work/$system"
    [ $system = linux ] && program=$native/examples/gallery/gallery/gallery || program="wine $windows/examples/gallery/gallery/gallery.exe"
    ZOF_SHOTS="$work/$system" ZOF_SCRIPT=media.session timeout 180 $program --project media >"$work/gallery-$system.log" 2>&1 || fail "the gallery fails on $system"
done
for picture in clip pictures; do cmp "$work/linux/$picture.png" "$work/windows/$picture.png" || fail "$picture differs between the systems"; done

# A project folder on a drive with the letter of a project's drive, and one whose path is longer than 260 characters.
part=$(printf "Teilü%.0s" 1 2 3 4 5 6 7 8 9 10)
long=$work/$part/$part/$part/$part/$part
mkdir -p "$long" "$work/D"
cp -r "$inside/res" "$long/Fläche"
cp -r "$inside/res" "$work/D/panel"
ln -s "$work/D" "$WINEPREFIX/dosdevices/d:"
zof_linux view "$inside/res" --shot "$work/plain.png"
cd "$inside"
printf 'wait 1500\nview 5\nwait 1500\nquit\n' >"$work/long.session"
for folder in 'D:\panel' 'D:/panel/' "Z:$long/Fläche"; do
    zof_windows check --strict "$folder" >"$work/check.log" 2>&1 || fail "zof.exe check fails in $folder"
    zof_windows view "$folder" --shot "$work/Bild.png" 2>"$work/view.log" && cmp "$work/plain.png" "$work/Bild.png" || fail "zof.exe view fails in $folder"
    ZOF_SCRIPT="$work/long.session" timeout 180 wine ./zof_bench.exe --project "$folder" >"$work/long.log" 2>&1 || fail "the panel fails in $folder"
    ! grep -v 'serial port' "$work/long.log" | grep -iE 'cannot|damaged' || fail "the panel has faults in $folder"
done
timeout 4 wine ./zof_bench.exe --log "Z:$long/Tag ü.csv" >"$work/log.log" 2>&1 || [ $? -eq 124 ] || fail "the panel does not record"
[ -e "$long/Tag ü.csv" ] || fail "the panel writes no recording"
{ echo "Time,Voltage (V),Current (A)" && for s in 10 11 12; do echo "2026-03-01T12:00:$s.000+00:00,5,1"; done; } >"$long/für.csv"
ZOF_SCRIPT="$work/long.session" timeout 180 wine ./zof_bench.exe --import "Z:$long/für.csv" >"$work/import.log" 2>&1 || fail "the panel imports nothing from a long path"
zof_windows new "$work/neu" >"$work/new.log" 2>&1 && zof_windows check --strict "$work/neu" >"$work/new.log" 2>&1 || fail "zof.exe new fails"
zof_windows fmt --check "$work/neu/res/config/view/main.g" >"$work/fmt.log" 2>&1 || fail "zof.exe fmt fails"
zof_windows catalogue button >"$work/catalogue.log" 2>&1 || fail "zof.exe catalogue fails"

# Rows for bench/RESULTS.md: sizes, and the best of five starts that end with the first page, in milliseconds.
echo quit >"$work/quit.session"
best() {
    for _ in 1 2 3 4 5; do
        begin=$(date +%s%N)
        ZOF_SCRIPT="$work/quit.session" "$@" --project res >"$work/best.log" 2>&1 || fail "the panel does not start"
        echo $((($(date +%s%N) - begin) / 1000000))
    done | sort -n | head -1
}
size() { stat -Lc %s "$1" | awk '{printf "%.1f MiB", $1 / 1048576}'; }
for program in panel/zof_bench tools/board_sim tools/zof tools/zof_player; do
    name=$(basename $program).exe
    echo "| size of $name, which contains its libraries | $(size "$inside/$name") | $(size "$native/$program"), on Linux, without them | |"
done
started=$(best wine ./zof_bench.exe) reference=$(best "$native/panel/zof_bench")
echo "| start and end of zof_bench.exe under Wine | $started ms | $reference ms, on Linux | $(echo "$started $reference" | awk '{printf "%.1f", $1 / $2}') |"
echo "windows_tools: tests pass, tools and gallery show the same, odd paths work"
