# Shared by the system tests, to be sourced: $work is a temporary folder of the test, and programs started by `start` end
# with the test. A failing test prints the ends of its logs.
set -eu
export ZOF_STATE= # nothing of the person who runs the tests
work=$(mktemp -d)
export XDG_STATE_HOME="$work/state-home" # nothing is kept from other runs
pids=""
finish() {
    status=$?
    for pid in $pids; do kill "$pid" 2>/dev/null || true; done
    [ $status -eq 0 ] || tail -n 25 "$work"/*.log >&2
    rm -rf "$work"
}
trap finish EXIT
fail() { echo "$(basename "$0" .sh): $*" >&2; exit 1; }

# Waits for a file, or for a line in it, for at least twenty seconds.
expect() {
    tries=0
    until [ -e "$1" ] && { [ $# -eq 1 ] || grep -q -- "$2" "$1"; }; do
        [ $tries -lt 400 ] || fail "$1: never came: ${2:-the file}"
        sleep 0.05
        tries=$((tries + 1))
    done
}

# Starts a program in the background, with its output in $work/NAME.log.   start NAME COMMAND...
start() {
    log=$work/$1.log
    shift
    "$@" >"$log" 2>&1 &
    pids="$pids $!"
}
