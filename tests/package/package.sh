#!/bin/sh
# Installs the build and builds projects against it as users would: the blank application and the gallery; changes,
# installs and packs the former.
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
fail() { echo "$*"; exit 1; }
export SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy ZOF_STATE=
printf 'wait 100\ntap 240 200\nwait 200\nprint 1 1\nquit\n' >"$work/click"
cd "$work/blank"
ZOF_SCRIPT=../click ./blank >"$work/run.log" 2>&1 || { cat "$work/run.log"; exit 1; }
grep -qx '1/1: 1' "$work/run.log" || { cat "$work/run.log"; exit 1; }
[ -x "$work/gallery/gallery/gallery" ] && [ -s "$work/gallery/gallery/res/video/clip.mp4" ]
(cd / && echo quit >"$work/quit" && ZOF_SCRIPT=$work/quit "$work/prefix/bin/zof_bench" --headless) >"$work/run.log" 2>&1 || { cat "$work/run.log"; exit 1; }
grep -qF "find work path , $work/prefix/share/zof_bench/res/" "$work/run.log" || fail "the panel does not find its project"

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

# A change of the project reaches a program that need not be linked again; a view may be added, renamed and removed.
cd "$work/src/blank/res/config"
built() { cmake --build "$work/blank" >"$work/blank.log" 2>&1 || { cat "$work/blank.log"; exit 1; }; }
built
! grep -q Checking "$work/blank.log" || fail "a project that has not changed is checked and copied again"
sed -i 's/"txt": "0"/"txt": "changed"/' view/main.g
built
grep -q '"txt": "changed"' "$work/blank/res/config/view/main.g" || fail "a changed view file is not copied"
sed 's/"v_id": 1/"v_id": 2/; s/"id": 1,/"id": 7,/' view/main.g >view/other.g
sed -i 's/"main.g"}/"main.g"}, {"pageId": 2, "pageName": "other.g"}/' project/zofprj.g
built
grep -q 'VIEW2_COUNT_ID = 7' "$work/blank/ids.h" || fail "a new view has no ids"
sed -i 's/"id": 7,/"id": 8,/' view/other.g
built
grep -q 'VIEW2_COUNT_ID = 8' "$work/blank/ids.h" || fail "a changed id of the new view is not in ids.h"
grep -q '#ifndef ZOF_BLANK_IDS_H' "$work/blank/ids.h" || fail "the include guard does not have the project's name"
rm view/other.g
sed -i 's/, {"pageId": 2, "pageName": "other.g"}//; s/"main.g"/"start.g"/' project/zofprj.g
mv view/main.g view/start.g
built
[ "$(ls "$work/blank/res/config/view")" = start.g ] || fail "files that are gone are still beside the program"
cp view/start.g "$work/good.g"
sed -i 's/"id": 2,/"id": 2, "pub": 1, /' view/start.g
! cmake --build "$work/blank" >"$work/blank.log" 2>&1 || fail "a project with errors is built"
grep -q 'view/start.g:[0-9]*:[0-9]*: error: ' "$work/blank.log" || fail "the errors of a project are not printed"
cp "$work/good.g" view/start.g
built
config=$work/src/my_settings/res/config
mv "$config/view/main.g" "$config/view/page.g"
sed -i 's/main.g/page.g/' "$config/project/zofprj.g"
cmake --build "$work/my_settings" >"$work/my_settings.log" || { cat "$work/my_settings.log"; exit 1; }

# The package for Debian has what is installed. Both run from a tree that can only be read, as another user where that
# is possible, and find their project from any folder.
top=$(mktemp -d)
trap 'rm -rf "$top"' EXIT
chmod 755 "$top"
cmake --install "$work/blank" --prefix "$top/installed/usr" >"$work/blank-install.log"
(cd "$work/blank" && cpack -G DEB >"$work/cpack.log" 2>&1) || { cat "$work/cpack.log"; exit 1; }
dpkg-deb -x "$work"/blank/blank_1.0.0_*.deb "$top/unpacked"
dpkg-deb -f "$work"/blank/blank_1.0.0_*.deb Depends | grep -q 'libsdl2-2.0-0.*' || fail "the package does not depend on SDL"
for tree in installed unpacked; do (cd "$top/$tree" && find usr -type f | sort) >"$work/$tree.files"; done
cmp "$work/installed.files" "$work/unpacked.files" || fail "the package and the installation differ"
for file in bin/blank share/blank/res/config/view/start.g share/applications/blank.desktop \
    share/icons/hicolor/scalable/apps/blank.svg lib/systemd/system/blank.service lib/udev/rules.d/70-blank.rules; do
    grep -qx "usr/$file" "$work/unpacked.files" || fail "the package has no $file"
done
! grep -r '@[A-Za-z_]*@' "$top/installed/usr/share/applications" "$top/installed/usr/lib/systemd" || fail "a name is not filled in"
cp "$work/click" "$top/session"
mkdir "$top/state"
chmod -R a+rX,a-w "$top/installed" "$top/unpacked"
chmod 777 "$top/state"
for tree in installed unpacked; do
    run="cd / && ZOF_STATE=$top/state ZOF_SCRIPT=$top/session $top/$tree/usr/bin/blank"
    if [ "$(id -u)" -eq 0 ]; then
        setpriv --reuid=65534 --regid=65534 --clear-groups sh -c "$run" >"$work/run.log" 2>&1 || { cat "$work/run.log"; exit 1; }
    else
        sh -c "$run" >"$work/run.log" 2>&1 || { cat "$work/run.log"; exit 1; }
    fi
    grep -qF "find work path , $top/$tree/usr/share/blank/res/" "$work/run.log" || fail "not the installed project"
    grep -qx '1/1: 1' "$work/run.log" || { cat "$work/run.log"; exit 1; }
done
chmod -R u+w "$top"
