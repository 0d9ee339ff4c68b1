#!/bin/sh
# The first command of the README, as a machine without a display runs it.   usage: run_command.sh SOURCE_FOLDER
set -eu
cd "$1"
out=$(env -u DISPLAY -u WAYLAND_DISPLAY -u ZOF_COM6 ./run 2>&1) || { echo "$out" >&2; exit 1; }
for view in output rails settings about; do
    echo "$out" | grep -q "out/$view.png" || { echo "$out" >&2; exit 1; }
done
echo "$out" | grep -Eq '^Volts: +1[0-9]\.[0-9]{2}$' || { echo "no volts in: $out" >&2; exit 1; }
