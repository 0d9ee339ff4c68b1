#!/bin/sh
# Installs the build and builds projects against it as users would: the blank application and the gallery.
#   usage: package.sh BUILD_FOLDER SOURCE_FOLDER FLAGS
set -eu
build=$1 source=$2 flags=$3
work=$build/package-test
rm -rf "$work"
mkdir -p "$work/src"
cp -r "$source/examples/blank" "$source/examples/gallery" "$work/src" # to change them
cmake --install "$build" --prefix "$work/prefix" >"$work/install.log"
for example in blank gallery; do
    cmake -S "$work/src/$example" -B "$work/$example" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix" \
        -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" >"$work/$example.log"
    cmake --build "$work/$example" >>"$work/$example.log"
done
printf 'wait 100\ntap 240 200\nwait 200\nprint 1 1\nquit\n' >"$work/session"
cd "$work/blank"
ZOF_SCRIPT=../session ./blank >"$work/run.log" 2>&1 || { cat "$work/run.log"; exit 1; }
grep -qx '1/1: 1' "$work/run.log" || { cat "$work/run.log"; exit 1; }
[ -x "$work/gallery/gallery/gallery" ] && [ -s "$work/gallery/gallery/res/video/clip.mp4" ]
[ -x "$work/prefix/share/zof/panel/zof_bench" ] && [ -s "$work/prefix/share/zof/panel/res/font/bench-num-112.bin" ]

# The templates, as a new user starts with them.
for form in blank dashboard settings; do
    "$work/prefix/bin/zof" new "$work/src/my_$form" --template $form >>"$work/new.log"
    cmake -S "$work/src/my_$form" -B "$work/my_$form" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix" \
        -DCMAKE_C_FLAGS="$flags -Wall -Wextra -Werror" >"$work/my_$form.log"
    cmake --build "$work/my_$form" >>"$work/my_$form.log" || { cat "$work/my_$form.log"; exit 1; }
done
count=$(sed -n 's/.*"name": "count", "id": \([0-9]*\),.*/\1/p' "$work/src/my_blank/res/config/view/main.g")
printf 'wait 100\ntap 400 440\nwait 200\nprint 1 %s\nquit\n' "$count" >"$work/session"
cd "$work/my_blank"
ZOF_SCRIPT=../session ./my_blank >"$work/run.log" 2>&1 || { cat "$work/run.log"; exit 1; }
grep -qx "1/$count: 1" "$work/run.log" || { cat "$work/run.log"; exit 1; }

cmp "$work/prefix/share/zof/schema/view.json" "$work/blank/schema/view.json"

# A change of the project reaches a program that need not be linked again, and a new view file has its ids.
cd "$work/src/blank/res/config"
sed -i 's/"txt": "0"/"txt": "changed"/' view/main.g
cmake --build "$work/blank" >>"$work/blank.log"
grep -q '"txt": "changed"' "$work/blank/res/config/view/main.g" || { echo "a changed view file is not copied"; exit 1; }
sed 's/"id": 1,/"id": 7,/' view/main.g >view/other.g
sed -i 's/"main.g"}/"main.g"}, {"pageId": 2, "pageName": "other.g"}/' project/zofprj.g
cmake --build "$work/blank" >>"$work/blank.log"
grep -q 'VIEW2_COUNT_ID = 7' "$work/blank/ids.h" || { echo "a new view has no ids"; exit 1; }
sed -i 's/"id": 7,/"id": 8,/' view/other.g
cmake --build "$work/blank" >>"$work/blank.log"
grep -q 'VIEW2_COUNT_ID = 8' "$work/blank/ids.h" || { echo "a changed id of the new view is not in ids.h"; exit 1; }
