#!/bin/sh
# Checks that the code is formatted by .clang-format, with the pinned version of clang-format, as other versions differ.
#   usage: format.sh SOURCE_FOLDER [fix]
set -eu
cd "$1"
files=$(find apps bench clients examples tests tools zof_src \( -name '*.cpp' -o -name '*.h' -o -name '*.c' \) ! -path '*/build/*' | sort)
if [ "${2:-}" = fix ]; then
    exec clang-format-16 -i $files
fi
clang-format-16 --dry-run -Werror $files || { echo "run tests/tree/format.sh . fix" >&2; exit 1; }
