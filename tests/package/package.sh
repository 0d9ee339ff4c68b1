#!/bin/sh
# Installs the build and makes a panel of somebody else's with it.   usage: package.sh BUILD_FOLDER SOURCE_FOLDER FLAGS
set -eu
build=$1 source=$2 flags=$3
work=$build/package-test
rm -rf "$work"
mkdir -p "$work/run/res/config/project" "$work/run/res/config/view"
cmake --install "$build" --prefix "$work/prefix" >"$work/install.log"
cmake -S "$source/tests/package" -B "$work/build" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix" -DCMAKE_C_FLAGS="$flags" \
    >"$work/configure.log"
cmake --build "$work/build" >"$work/build.log"
cat >"$work/run/res/config/project/zofprj.g" <<'END'
{"p_name": "ten lines", "width": 320, "height": 240, "start_page": 1, "views": [{"pageId": 1, "pageName": "one.g"}]}
END
echo '{"view": {"v_name": "one", "v_id": 1, "bg_scale": 255}, "controls": []}' >"$work/run/res/config/view/one.g"
printf 'wait 100\nquit\n' >"$work/run/session"
cd "$work/run"
ZOF_SCRIPT=session ../build/ten_lines | tee "$work/run.log" | grep -q 'ten lines: view' || { cat "$work/run.log"; exit 1; }
[ -x "$work/prefix/share/zof/panel/zof_bench" ] && [ -s "$work/prefix/share/zof/panel/res/font/bench-num-112.bin" ]
