#!/bin/sh
# Builds the programs for Windows and runs them under Wine: the pages of the panel are the same, pixel by pixel, as those of
# the panel of this machine. Says why it is skipped where mingw-w64 or Wine are missing.
#   usage: windows.sh [NATIVE_BUILD]      a build folder with zof_bench, zof and board_sim; build/release, made if missing
cd "$(dirname "$0")/../.."
for program in x86_64-w64-mingw32-g++-posix wine nasm dpkg-source; do
    command -v $program >/dev/null || { echo "windows: skipped: $program is missing; tools/packages windows installs it"; exit 0; }
done
. tests/system/lib.sh
native=${1:-build/release}
[ -f "$native/build.ninja" ] || cmake --preset release -B "$native" >"$work/configure.log" 2>&1 || fail "the native build cannot be configured"
ninja -C "$native" --quiet zof_tool zof_bench board_sim >"$work/native.log" 2>&1 || fail "the native programs cannot be built"
native=$(cd "$native" && pwd)
windows=$PWD/build/windows
if [ ! -f "$windows/build.ninja" ]; then
    cmake --preset windows -DZOF_NATIVE_TOOL="$native/tools/zof" >"$work/configure.log" 2>&1 || fail "the build for Windows cannot be configured"
fi
ninja -C "$windows" --quiet >"$work/windows.log" 2>&1 || fail "the programs for Windows cannot be built"

session=$PWD/tools/run.session
export WINEPREFIX="$work/wine" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy
stop_wine() { wineserver -k 2>/dev/null || true; } # of this prefix alone
trap 'status=$?; stop_wine; (exit $status) || true; finish' EXIT
wine wineboot --init >"$work/wine.log" 2>&1 || fail "Wine does not start"

# Both panels run in folders of equal content; the line has the same name in both. The name of the folder for Windows is
# one that only UTF-16 calls find.
inside="$work/Prüfstand 7"
mkdir -p "$work/linux" "$inside"
cp -r "$windows/panel/res" "$work/linux"
cp -r "$windows/panel/." "$inside"
line() { # a new board, and its line in both systems; further words are options of the board
    rm -f "$work/linux/COM6"
    start board "$native/tools/board_sim" --link "$work/linux/COM6" --no-noise "$@"
    board=$!
    expect "$work/linux/COM6"
    ln -sfn "$(readlink "$work/linux/COM6")" "$WINEPREFIX/dosdevices/com6"
}
unplug() { kill "$board"; wait "$board" 2>/dev/null || true; rm -f "$work/linux/COM6" "$WINEPREFIX/dosdevices/com6"; }
# Plays a session on one of the systems; its pictures are in $work/SYSTEM-shots.   play linux|windows SESSION
play() {
    mkdir -p "$work/$1-shots"
    set -- "$1" "$2" "$native/panel/zof_bench" "$work/linux"
    [ "$1" = linux ] || set -- "$1" "$2" "wine ./zof_bench.exe" "$inside"
    (cd "$4" && ZOF_COM6=COM6 ZOF_SHOTS="$work/$1-shots" ZOF_SCRIPT="$2" XDG_STATE_HOME="$work/$1-state" timeout 120 $3) \
        >"$work/panel.log" 2>&1 || fail "the panel on $1 ended with $? in the session $2"
}
same() {
    for page in "$@"; do
        cmp "$work/linux-shots/$page.png" "$work/windows-shots/$page.png" || fail "the page $page differs between the systems"
    done
}

# A tour of all pages, with a picture of each.   tour PREFIX
tour() {
    for page in output:80 rails:240 trend:400 settings:560 about:720; do
        printf 'tap %s 456\nwait 1500\nshot %s_%s.png\n' "${page#*:}" "$1" "${page%:*}"
    done
    echo quit
}
# With a board, what depends on the time is not compared: energy, the trend, frames in a second.
{ printf 'until 5000 1 28 *\n' && tour box; } >"$work/box.session"
for system in linux windows; do
    line
    play $system "$work/box.session"
    play $system "$session"
    unplug
done
same box_output box_rails box_settings keypad rails settings
# Without one, nothing does.
{ printf 'wait 1500\n' && tour alone; } >"$work/alone.session"
for system in linux windows; do play $system "$work/alone.session"; done
same alone_output alone_rails alone_trend alone_settings alone_about
echo "windows: the panel draws the same pages under Wine"
