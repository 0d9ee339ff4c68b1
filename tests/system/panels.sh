# Compares the panel of this machine with the same panel for another system, pixel by pixel; to be sourced after lib.sh. The
# script sets $native, the release build, puts the project into $work/native/res, and defines play_other SESSION, which calls
# `play other` with the other panel. Both panels know the line to the box as COM6 in their folder.
session=$PWD/tools/run.session
line() { # a new board, at the end of the line; arguments are options of the board
    rm -f "$work/native/COM6"
    start board "$native/tools/board_sim" --link "$work/native/COM6" --seed 7 --no-noise "$@"
    board=$!
    expect "$work/native/COM6"
}
unplug() { kill "$board"; wait "$board" 2>/dev/null || true; rm -f "$work/native/COM6"; }

# Plays a session; its pictures are in $work/NAME-shots.   play NAME SESSION FOLDER COMMAND...
play() {
    name=$1 script=$2 folder=$3 log=$(basename "$2" .session).log
    shift 3
    mkdir -p "$work/$name-shots"
    (cd "$folder" && ZOF_COM6=COM6 ZOF_SHOTS="$work/$name-shots" ZOF_SCRIPT="$script" XDG_STATE_HOME="$work/$name-state" timeout 120 "$@") \
        >"$work/$log" 2>&1 || fail "the panel ($name) ended with $? in the session $script"
}
play_native() { play native "$1" "$work/native" "$native/panel/zof_bench" --project res; }
same() {
    for page in "$@"; do
        cmp "$work/native-shots/$page.png" "$work/other-shots/$page.png" || fail "the page $page differs between the systems"
    done
}

# A tour of all pages, with a picture of each.   tour PREFIX
tour() {
    for page in output:80 rails:240 trend:400 settings:560 about:720; do
        printf 'tap %s 456\nwait 1500\nshot %s_%s.png\n' "${page#*:}" "$1" "${page%:*}"
    done
    echo quit
}
compare_panels() {
    # With a board, what depends on the time is not compared: energy, the trend, the age of the last answer, frames in a second.
    { printf 'until 5000 1 28 *\n' && tour box; } >"$work/box.session"
    for panel in native other; do
        line
        play_$panel "$work/box.session"
        play_$panel "$session"
        unplug
    done
    same box_output box_rails keypad rails
    # Without one, nothing does.
    { printf 'wait 1500\n' && tour alone; } >"$work/alone.session"
    for panel in native other; do play_$panel "$work/alone.session"; done
    same alone_output alone_rails alone_trend alone_settings alone_about
}
