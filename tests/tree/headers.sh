#!/bin/sh
# Checks that every public header compiles on its own, in C and in C++, and the register map in the C of any firmware.   usage: headers.sh SOURCE_FOLDER COMPILE_FLAGS...
set -eu
top=$1
shift
status=0
for header in $(cd "$top/zof_src" && find . -name '*.h' ! -path './port/*' ! -name 'zof_lock.h' ! -name '*_in.h' | sort); do
    for language in c c++; do
        case $language in c) std=c11 ;; *) std=c++20 ;; esac
        echo "#include \"${header#./}\"" | cc -x $language -std=$std -Wall -Wextra -Wno-missing-field-initializers -Werror \
            -fsyntax-only -I"$top/zof_src" "$@" - || { echo "$header does not compile on its own in $language" >&2; status=1; }
    done
done
cc -x c -std=c99 -Wall -Wextra -Wpedantic -Werror -fsyntax-only -nostdinc "$top/apps/hardware/uart/zof_hw_map.h" ||
    { echo "the register map does not compile without other headers" >&2; status=1; }
exit $status
