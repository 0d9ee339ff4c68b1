#!/bin/sh
# Installs the build and builds projects against it as users would: the blank application and the gallery.
#   usage: package.sh BUILD_FOLDER SOURCE_FOLDER FLAGS
set -eu
build=$1 source=$2 flags=$3
work=$build/package-test
rm -rf "$work"
mkdir -p "$work"
cmake --install "$build" --prefix "$work/prefix" >"$work/install.log"
for example in blank gallery; do
    cmake -S "$source/examples/$example" -B "$work/$example" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix" \
        -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" >"$work/$example.log"
    cmake --build "$work/$example" >>"$work/$example.log"
done
printf 'wait 100\ntap 240 200\nwait 200\nprint 1 1\nquit\n' >"$work/session"
cd "$work/blank"
ZOF_SCRIPT=../session ./blank >"$work/run.log" 2>&1 || { cat "$work/run.log"; exit 1; }
grep -qx '1/1: 1' "$work/run.log" || { cat "$work/run.log"; exit 1; }
[ -x "$work/gallery/gallery/gallery" ] && [ -s "$work/gallery/gallery/res/video/clip.mp4" ]
[ -x "$work/prefix/share/zof/panel/zof_bench" ] && [ -s "$work/prefix/share/zof/panel/res/font/bench-num-112.bin" ]
