#!/bin/sh
# Runs clang-tidy on our sources with the checks in .clang-tidy.   usage: tidy.sh BUILD_FOLDER [FILE...]
set -eu
build=$1
shift
[ $# -gt 0 ] || set -- $(find zof_src apps tools -name '*.cpp' | sort)
printf '%s\n' "$@" | xargs -P "$(nproc)" -n 4 clang-tidy-16 -p "$build" --quiet
