#!/bin/sh
# Builds the programs for 64-bit ARM and runs them under qemu: unit tests; the pages of the panel, which are the same, pixel
# by pixel, as those of the panel of this machine, and so are all pages of the gallery; a project of somebody else, built
# with the installed runtime.
#   usage: arm64.sh NATIVE_BUILD      the release build of this machine
cd "$(dirname "$0")/../.."
. tests/system/lib.sh
. tests/system/panels.sh
. tests/system/hardened.sh
native=$(cd "$1" && pwd)
arm=$PWD/build/arm64
tests="bench_model control cson font gallery_golden hmi_frame host image jdoc list memory names panel path record scpi style table_chart text util video"
targets="" pattern=""
for test in $tests; do targets="$targets ${test}_test" pattern="$pattern${pattern:+|}${test}_test"; done
if [ ! -f "$arm/build.ninja" ]; then
    cmake --preset arm64 -DZOF_TESTS=ON -DZOF_NATIVE_TOOL="$native/tools/zof" >"$work/configure.log" 2>&1 || fail "the build for arm64 cannot be configured"
fi
# The tests are built by name: the others need too long under qemu, or threads and lines at their full rate.
ninja -C "$arm" --quiet $targets zof_bench board_sim zof_player zof_tool bench_res zof_describe zof_describe_manual \
    >"$work/build.log" 2>&1 || fail "the programs for arm64 cannot be built"
export SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy
ctest --test-dir "$arm" -j "$(nproc)" -R "^($pattern):" --output-on-failure --no-tests=error >"$work/ctest.log" 2>&1 || fail "tests fail"

root=$PWD/build/arm64-root/root
aarch64-linux-gnu-gcc --sysroot="$root" -shared -fPIC tests/system/qemu_line.c -o "$work/qemu_line.so"
run="qemu-aarch64 -L $root -E LD_PRELOAD=$work/qemu_line.so"
mkdir -p "$work/native"
cp -r "$native/panel/res" "$work/native"
play_other() { play other "$1" "$work/native" $run "$arm/panel/zof_bench" --project res; }
compare_panels

# What is installed is hardened, and builds another project; the project's build runs the tool of this machine.
cmake --install "$arm" --prefix "$work/prefix" >"$work/install.log" 2>&1 || fail "the build cannot be installed"
hardened aarch64-linux-gnu-objdump "$work"/prefix/bin/*
cp -r examples/blank "$work/blank"
cmake -S "$work/blank" -B "$work/blank/build" -G Ninja --toolchain "$PWD/cmake/arm64/compilers.cmake" -DCMAKE_FIND_ROOT_PATH="$work/prefix" \
    -DZOF_NATIVE_TOOL="$native/tools/zof" >"$work/blank.log" 2>&1 && ninja -C "$work/blank/build" >>"$work/blank.log" 2>&1 || fail "blank cannot be built"
printf 'wait 100\ntap 240 200\nwait 200\nprint 1 1\nquit\n' >"$work/click"
ZOF_SCRIPT=$work/click $run "$work/blank/build/blank" >"$work/run.log" 2>&1 || fail "blank ended with $?"
grep -qx '1/1: 1' "$work/run.log" || fail "blank counts no clicks"
echo "arm64: unit tests pass, the panel draws the same pages, another project is built"
