#!/bin/sh
# The panel as a page: it builds, stays small, draws the same pictures as the desktop, to the pixel, and people's stories on it
# work in a browser. Installs emscripten if it is missing.
#   usage: web.sh BUILD      the release build; CHROMIUM names another browser than /usr/bin/chromium
cd "$(dirname "$0")/../.."
. tests/system/lib.sh
build=$(cd "$1" && pwd)
. tests/page/modules.sh
tools/packages web

[ -f build/web/build.ninja ] || cmake --preset web -DZOF_NATIVE_TOOL="$build/tools/zof" >"$work/configure.log" 2>&1 || fail "it cannot be configured"
ninja -C build/web page >"$work/build.log" 2>&1 || fail "it cannot be built"
size=$(tar cf - -C build/web/page . | gzip -9 | wc -c)
[ "$size" -lt 4194304 ] || fail "the page has $size bytes when it is compressed"
"$modules/.bin/tsc" --noEmit --allowJs --checkJs --strict --target es2022 --lib es2022,dom,dom.iterable --typeRoots /nowhere tools/web/page/page.js \
    >"$work/types.log" 2>&1 || fail "page.js has faults of types"

printf '%s\n' 'until 20000 1 1 *' 'wait 500' 'shot output.png' 'view 2' 'wait 1500' 'shot rails.png' quit >"$work/desktop.session"
start board "$build/tools/board_sim" --link "$work/board" --no-noise
expect "$work/board"
mkdir "$work/desktop" "$work/page"
(cd "$build/panel" && SDL_VIDEODRIVER=offscreen ZOF_SHOTS=$work/desktop ZOF_SCRIPT=$work/desktop.session ZOF_COM6=$work/board timeout 60 ./zof_bench) \
    >"$work/desktop.log" 2>&1 || fail "the desktop's panel fails"

export ZOF_WEB=$PWD/build/web/page ZOF_MODULES=$modules ZOF_BOARD=$build/tools/board_sim ZOF_SHOTS=$work/page
timeout 600 node --test tests/web/ >"$work/stories.log" 2>&1 || fail "a story fails"
grep -q '^# fail 0' "$work/stories.log" || fail "no stories were run"
for view in output rails; do
    /usr/bin/python3 tests/web/compare.py "$work/desktop/$view.png" "$work/page/$view.png" >"$work/compare.log" 2>&1 || fail "the page draws $view differently"
done
echo "web: $(sed -n 's/^# pass //p' "$work/stories.log") stories of the panel as a page, $((size / 1024)) KiB compressed"
