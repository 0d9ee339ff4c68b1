#!/bin/sh
# The ways to start the program: without a project, with a broken one, as a build call, with wrong arguments, with --help,
# with its output closed; and the messages of `zof ids` for projects that it refuses.      usage: start.sh BUILD_FOLDER
. "$(dirname "$0")/lib.sh"
build=$1
mkdir -p "$work/a/b"
cd "$work/a/b"

# Runs a command with its output in the log; fails unless it exits with this status.
ends() {
    want=$1
    shift
    status=0
    SDL_VIDEODRIVER=offscreen timeout 60 "$@" >"$work/out.log" 2>&1 || status=$?
    [ $status -eq "$want" ] || fail "$* ended with $status, not $want"
}
says() { grep -qF -- "$1" "$work/out.log" || fail "there is no \"$1\" in:"; }
project() { mkdir -p "$work/res/config/project" && printf '%s' "$1" >"$work/res/config/project/zofprj.g"; }

# Where a program finds its project: each place hides those after it, and without any of them all are listed.
mkdir "$work/bin"
cp "$build/examples/gallery/gallery/gallery" "$work/bin/coffee"
ln -s bin/coffee "$work/tea"
export XDG_DATA_DIRS="$work/share:relative:$work/data"
places="$work/bin/res $work/share/coffee/res $work/data/coffee/res ../.././res ././res"
ends 3 "$work/tea"
says "No work path found"
for place in $places; do says "$(echo "$place" | sed 's|^\([.][./]*/\)[.]/res|\1res|'): config/project/zofprj.g: No such file"; done
[ "$(grep -c zofprj.g "$work/out.log")" -eq 7 ] || fail "a place is listed twice, or one is too many:"
for place in ./res ../../res "$work/data/coffee/res" "$work/share/coffee/res" "$work/bin/res"; do
    mkdir -p "$place/config/project"
    echo '{"views": [}' >"$place/config/project/zofprj.g"
    ends 1 "$work/tea"
    says "$(cd "$place" && pwd | sed "s|^$work/a/b|././|;s|^$work/res|../.././res|;s|//*|/|g")/"
done
rm -r "$work/bin/res"
ends 3 "$work/tea" --project "$work/bin/"
says "$work/bin/res: config/project/zofprj.g: No such file"
! grep -q "$work/share" "$work/out.log" || fail "--project looks in other places:"
rm -r ./res

project '{"views": [}'
panel="$build/panel/zof_bench --project $work"
ends 1 $panel
says "zofprj.g:1:12: expected a value, found"
[ "$(grep -c "expected a value" "$work/out.log")" -eq 1 ] || fail "a fault of the project file is printed twice:"
# The manual page and the completion know every subcommand.
"$build/tools/zof" --completion >"$work/zof.bash"
bash -c '. "$1"; COMP_WORDS=(zof monitor w); COMP_CWORD=2; _zof; [ "${COMPREPLY[*]}" = watch ]' - "$work/zof.bash" ||
    fail "\"zof monitor w\" is not completed"
"$build/tools/zof" --man >"$work/out.log"
for part in '.SS zof check' '.SS zof monitor watch' '.B \-\-strict'; do says "$part"; done
# What a check finds, and a program that does not start with it.
project '{"width": 9, "height": 9, "start_page": 1, "views": [{"pageId": 1, "pageName": "none.g"}]}'
for folder in "$work" "$work/res/"; do
    ends 1 "$build/tools/zof" check "$folder"
    says "$work/res/config/project/zofprj.g:1:80: error: there is no config/view/none.g [file-missing]"
done
ends 1 "$build/tools/zof" check "$work" --format json
for part in '"line": 1,' '"column": 80,' '"rule": "file-missing",' '"key": "views[0].pageName"'; do says "$part"; done
mkdir -p "$work/res/config/view"
printf '{"view": {"bg_color": 255}}' >"$work/res/config/view/f.g"
ends 1 "$build/tools/zof" fmt --check "$work/res/config/view/f.g"
ends 0 "$build/tools/zof" fmt "$work/res/config/view/f.g"
[ "$(cat "$work/res/config/view/f.g")" = '{"view": {"bg_color": "#0000FF"}}' ] || fail "the file has no names"
ends 0 "$build/tools/zof" fmt --check "$work/res/config/view/f.g"
ends 3 "$build/tools/zof" fmt "$work/none.g"
rm -r "$work/res/config/view"
ends 2 "$build/tools/zof" check
ends 3 "$build/tools/zof" check "$work/none"
ends 1 env ZOF_STRICT=1 $panel
says "there is no config/view/none.g [file-missing]"
# The runtime answers for an application without options of its own.
gallery=$build/examples/gallery/gallery/gallery
for word in -h --help; do
    ends 0 "$gallery" $word
    for part in "usage: gallery" --version "--port N=PATH" "ZOF_COM<N>" ZOF_SCRIPT; do says "$part"; done
    ends 0 "$build/panel/zof_bench" $word
    for part in "--port PATH|auto|N=PATH" --list-ports "--replay FILE" "--log FILE|-" --fullscreen "--scpi [ADDRESS:]PORT" --headless F11 \
        ZOF_LINK_TRACE "0  the window was closed"; do
        says "$part"
    done
done
for program in "$gallery" "$build/panel/zof_bench"; do
    ends 0 "$program" --version
    says 1.4.12-251024090648
done
ends 0 "$build/panel/zof_bench" --list-ports
# Wrong arguments start nothing: the arguments, and the message.
wrong() {
    ends "${3:-2}" "$build/panel/zof_bench" $1
    says "$2"
    ! grep -q "sdk:" "$work/out.log" || fail "\"$1\" started the panel:"
}
wrong "x y" "x: not expected"
wrong t "t: not expected"
wrong --po "--po: not expected"
wrong --port "--port: a value is missing: PATH"
wrong "--port --headless" "--port: a value is missing"
wrong --headless=1 "takes no value"
for port in 256=/x 5=; do wrong "--port=$port" "--port $port: "; done
for scale in 0.4 9 nan 1x; do wrong "--scale $scale" "from 0.5 to 8"; done
wrong "--port $(printf %0300d 0)" "too long"
for address in 5025x 65536 host:1 1.2.3.4:; do wrong "--scpi=$address" "not [ADDRESS:]PORT"; done
wrong "--scpi 192.0.2.1:5025" "--scpi 192.0.2.1:5025: "
wrong "--replay /nowhere" "/nowhere: No such file" 3
wrong "--replay / --port auto" "excludes"
wrong "--record /nowhere" "no such folder" 3
wrong "--import /nowhere" "/nowhere: No such file" 3
wrong "--log $work/out.log" "exists" 3
ends 3 "$build/panel/zof_bench" --lang fr
says "config/languages/fr.g: cannot be read"
printf 'view 4\nwait 300\nprint 4 28\nquit\n' >"$work/session"
mkdir "$work/kept"
echo 'language = en' >"$work/kept/settings"
ends 0 env ZOF_STATE="$work/kept" ZOF_SCRIPT="$work/session" "$build/panel/zof_bench" --lang de --headless --port 5=/five
says "4/28: Sprache"
says "cannot open /five"
for option in --fullscreen "--scale 2"; do
    ends 4 env -u DISPLAY -u WAYLAND_DISPLAY SDL_VIDEODRIVER= "$build/panel/zof_bench" $option
done
ends 4 env SDL_VIDEODRIVER=x11 DISPLAY=:9999 "$build/panel/zof_bench"
ends 2 "$build/tools/zof_player" --wrong
ends 2 "$build/tools/board_sim" --wrong

project '{"version": "1"}'
ends 0 "$build/panel/zof_bench" t -tnow
grep -q '"comp_time":	"now"' "$work/res/config/project/zofprj.g" || fail "the build time is not in the project file"

# A project without views is an empty panel. A port that is given wins over the environment.
printf 'wait 100\r\n# a comment\nshot %s/empty.png\nquit  \n' "$work" >"$work/session"
ends 0 env ZOF_SCRIPT="$work/session" ZOF_COM6=/other $panel --port /nowhere
says "cannot open /nowhere"
[ -s "$work/empty.png" ] || fail "there is no picture of the empty panel"
rm "$work/empty.png"
ends 0 env -u SDL_VIDEODRIVER DISPLAY=:9999 ZOF_SCRIPT="$work/session" $panel --headless --scpi 0
says "SCPI: listening on 127.0.0.1:"
! grep "window:" "$work/out.log" || fail "a panel without a window looked for a display"
[ -s "$work/empty.png" ] || fail "there is no picture of a panel without a window"
rm "$work/empty.png"
ZOF_SCRIPT="$work/session" SDL_VIDEODRIVER=offscreen timeout 60 $panel | true
[ -s "$work/empty.png" ] || fail "the panel ended when its output was closed"
# A trace is replayed in the panel's own project, without a port, and may be traced again, but not onto itself.
replayed() {
    printf 'until 20000 1 1 20.01\nquit\n' >"$work/session"
    ends 0 env -C "$build/panel" ZOF_SCRIPT="$work/session" ZOF_LINK_TRACE="$1" ./zof_bench --replay "$work/trace"
    says "$2"
    ! grep -q "serial port 6" "$work/out.log" || fail "a replay opened a port"
}
printf '2026-11-22T09:00:00.000+01:00 board>panel 5AA5058200104E2C\nnonsense\n' >"$work/trace"
replayed "$work/again" "trace:2: not a line of a trace"
grep -q "write 16 LIVE_MV = 20012 mV" "$work/again" || fail "the replay was not traced"
replayed "$work/trace" "is being replayed"
# A session with a fault: its text, and the message.
stops() {
    printf "$1" >"$work/session"
    ends "${3:-2}" env ZOF_SCRIPT="$work/session" $panel
    says "$2"
}
stops 'wait soon\n' "session:1: a number was expected"
stops '\ntap 5\n' "session:2: a word is missing"
stops '# nothing\njump\n' "session:2: there is no such command"
stops 'wait -5\n' "session:1: a time cannot be negative"
stops 'wait 1\nview 9\n' "session:2: there is no such view"
stops 'theme none\n' "session:1: there is no such theme"
stops 'shot none/a.png\n' "session:1: the picture cannot be written" 3

# A project that `zof ids` refuses: the project file, the view file, and the message.
refuses() {
    mkdir -p "$work/res/config/view"
    project "$1"
    printf '%s' "$2" >"$work/res/config/view/v.g"
    ends 1 "$build/tools/zof" ids "$work/res" "${4:-$work/ids.h}"
    says "$3"
    [ ! -e "$work/ids.h" ] || fail "ids were written"
}
control() { printf '{"property": {"pub_t": {"id": %s}}}' "$1"; }
views='{"p_name": "Box 2", "views": [{"pageId": 1, "pageName": "v.g"}]}'
good="{\"controls\": [$(control '7, "name": "a"')]}"
refuses no "" "zofprj.g:1:1: error: expected a value, found \"n\""
refuses '[]' "" "zofprj.g:1:1: error: expected an object"
refuses '{}' "" "zofprj.g:1:1: error: has no \`views\`"
refuses '{"views": [{"pageId": 1}]}' "" "a view has no \`pageId\` or no \`pageName\`"
refuses "$views" '{"view": {},
"a": 1 "controls": []}' "v.g:2:8: error: expected \",\""
refuses "$views" "{}" "v.g:1:1: error: has no \`controls\`"
refuses "$views" "{\"controls\": [$(control 1)]}" "a control has no"
refuses "$views" "{\"controls\": [$(control '1, "name": "a b"'), $(control '2, "name": "A-B"')]}" "VIEW1_A_B_ID would name two controls"
refuses "$views" "{\"controls\": [$(control '7, "name": "a"'), $(control '7, "name": "b"')]}" "two controls have the id 7"
refuses "$views" "$good
,x" "v.g:2:1: error: text after the end of the object"
refuses "$views" "$good" "nowhere/ids.h: error: No such file or directory" "$work/nowhere/ids.h"
ends 0 "$build/tools/zof" ids "$work/res" "$work/ids.h"
grep -q 'VIEW1_A_ID = 7,' "$work/ids.h" && grep -q 'VIEW_V_ID = 1,' "$work/ids.h" || fail "an id is missing"
grep -q '#ifndef ZOF_BOX_2_IDS_H' "$work/ids.h" || fail "the guard does not contain the project's name"

# FFmpeg pulls in a hundred libraries: it is loaded when needed, not linked.
readelf -d "$build/panel/zof_bench" >"$work/out.log"
grep -q 'NEEDED.*libSDL2' "$work/out.log" || fail "cannot read the libraries that the panel links"
! grep -E 'NEEDED.*lib(av|sw)' "$work/out.log" || fail "the panel links FFmpeg"
