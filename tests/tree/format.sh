#!/bin/sh
# The code is laid out as .clang-format says, by the version of clang-format that the packages pin: others differ.
#   usage: format.sh SOURCE_FOLDER [fix]
set -eu
cd "$1"
files=$(find apps bench clients examples tests tools zof_src \( -name '*.cpp' -o -name '*.h' -o -name '*.c' \) ! -path '*/build/*' | sort)
if [ "${2:-}" = fix ]; then
    exec clang-format-16 -i $files
fi
clang-format-16 --dry-run -Werror $files || { echo "tests/tree/format.sh . fix lays it out" >&2; exit 1; }
