#!/bin/sh
# zof view, and zof lint, which draws as it does: pictures, sheets and trees without a display, the same bytes each time;
# and a window under Xvfb with a real pointer and real keys.      usage: view.sh BUILD_FOLDER SOURCE_FOLDER
. "$(dirname "$0")/lib.sh"
view="$1/tools/zof view"
res=$work/res
cp -r "$2/examples/blank/res" "$res"
cd "$work"

# Runs zof view with its output in the log; fails unless it exits with this status.
ends() {
    want=$1
    shift
    status=0
    env -u DISPLAY SDL_VIDEODRIVER= timeout 60 $view "$@" >out.log 2>&1 || status=$?
    [ $status -eq "$want" ] || fail "$view $* ended with $status, not $want"
}
says() { grep -qF -- "$1" out.log || fail "there is no \"$1\" in:"; }

for i in 1 2; do
    ends 0 "$work" --shot shot$i.png --sheet sheet$i.png --tree tree$i.json --state main/button=pressed
    $view res --shot - >piped$i.png
done
for name in shot1.png sheet1.png tree1.json piped1.png; do
    [ -s $name ] || fail "$name is empty"
    cmp $name "$(echo $name | tr 1 2)" || fail "$name differs from run to run"
done
! cmp -s shot1.png piped1.png || fail "a pressed button looks like another"
grep -q '"path":	"main/button"' tree1.json || fail "the tree has no button"
ends 3 nowhere --shot x.png
says "nowhere: no config/project/zofprj.g"
ends 3 res --view none --shot x.png
says "there is no view none"
ends 1 res --state main/none=pressed --shot x.png
says "there is no control main/none"
ends 3 res --shot nowhere/x.png
says "nowhere/x.png cannot be written"
ends 2 --shot x.png
ends 4 res
says "work without a display"
sed 's/"v_name": "main",/"v_name": "main"/' "$res/config/view/main.g" >broken && mv broken "$res/config/view/main.g"
ends 3 res --shot x.png
says 'main.g:2:31: expected ","'
cp "$2/examples/blank/res/config/view/main.g" "$res/config/view/main.g"

view="$1/tools/zof lint"
for i in 1 2; do
    ends 0 "$work" --sheet lint$i.png
done
cmp lint1.png lint2.png || fail "the sheet of zof lint differs from run to run"
cmp lint1.png sheet1.png || fail "the sheet of a clean project has marks"
sed -i 's/"height": 72/"height": 30/' "$res/config/view/main.g"
ends 1 res --strict --format json --sheet lint3.png
says '"severity": "error"'
says '"rule": "target"'
! cmp -s lint1.png lint3.png || fail "the sheet marks nothing"
ends 2
ends 2 res --format html
ends 3 nowhere
ends 3 res --view none
ends 0 --rules
cp "$2/examples/blank/res/config/view/main.g" "$res/config/view/main.g"
view="$1/tools/zof view"

start screen Xvfb -displayfd 1 -screen 0 800x600x24
expect screen.log '^[0-9]*$'
DISPLAY=:$(grep '^[0-9]*$' screen.log)
export DISPLAY
start window env -u SDL_VIDEODRIVER EDITOR="echo editor" $view res --watch
window=$(timeout 20 xdotool search --sync --name "Blank - main" | head -1)
[ -n "$window" ] || fail "no window"

# The inspector's query takes an unknown time, so the key is repeated until the line appears.
press_until() {
    tries=0
    until grep -qF -- "$2" window.log; do
        [ $tries -lt 100 ] || fail "$1 never printed: $2"
        xdotool mousemove --window "$window" "$3" "$4" key "$1"
        sleep 0.1
        tries=$((tries + 1))
    done
}
xdotool key F2
press_until c 'panel.write(rows.BUTTON_STATE, 0, view=1, control=2)' 240 200
press_until c 'panel.write(rows.LABEL_TEXT, "", view=1, control=1)' 100 80
press_until Return "editor +4 res/config/view/main.g" 100 80
sed -i 's/"Press me"/"Press me" "again"/' "$res/config/view/main.g"
expect window.log 'main.g:12:31: expected ","'
[ "$(find "$res" -type f | wc -l)" -eq 2 ] || fail "the project has new files"
