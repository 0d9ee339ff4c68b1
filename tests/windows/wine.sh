# Shared by the scripts that test the programs for Windows, to be sourced after lib.sh with the release build as its argument:
# $native is that build, $windows the one for Windows, $inside the folder of the unpacked archive, whose name only UTF-16
# calls find.
native=$(cd "$1" && pwd)
windows=$PWD/build/windows
if [ ! -f "$windows/build.ninja" ]; then
    cmake --preset windows -DZOF_NATIVE_TOOL="$native/tools/zof" >"$work/configure.log" 2>&1 || fail "the build for Windows cannot be configured"
fi
ninja -C "$windows" --quiet all zof_zip zof_windows_tests gallery >"$work/windows.log" 2>&1 || fail "the programs for Windows cannot be built"

export WINEPREFIX="$work/wine" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy
stop_wine() { wineserver -k 2>/dev/null || true; } # of this prefix alone
trap 'status=$?; stop_wine; set +e; (exit $status); finish' EXIT
wine wineboot --init >"$work/wine.log" 2>&1 || fail "Wine does not start"

inside="$work/Prüfstand 7/panel"
mkdir -p "${inside%/*}"
cmake -E chdir "$work" cmake -E tar xf "$windows"/zof-bench-*-windows.zip
mv "$work"/zof-bench-*-windows "$inside"
