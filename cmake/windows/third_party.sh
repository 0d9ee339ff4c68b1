#!/bin/sh
# Builds the libraries that the Windows programs contain, static, with mingw-w64: SDL2, FreeType, cJSON, and of FFmpeg
# what decodes the kinds of media that the runtime opens. The sources are those of the distribution that this machine
# runs, so that they have the versions and patches of the libraries that the Linux programs load, and letters have the
# same pixels. apt checks them by checksum against the signed index; dpkg-source checks them once more when it unpacks.
#   usage: third_party.sh FOLDER [JOBS]       afterwards the libraries are in FOLDER/root; does nothing if they are there
set -eu
mkdir -p "$1"
folder=$(cd "$1" && pwd)
jobs=${2:-$(nproc)}
here=$(cd "$(dirname "$0")" && pwd)
root=$folder/root
stamp=$root/built-by
wanted=$(sha256sum <"$here/third_party.sh")
[ "$(cat "$stamp" 2>/dev/null)" != "$wanted" ] || exit 0

for program in x86_64-w64-mingw32-g++-posix dpkg-source nasm cmake; do
    command -v $program >/dev/null || { echo "third_party.sh: $program is missing; run tools/packages ship" >&2; exit 2; }
done
fail() { tail -n 15 "$folder/build.log" >&2; echo "third_party.sh: $*; see $folder/build.log" >&2; exit 1; }
log() { "$@" >>"$folder/build.log" 2>&1; }
: >"$folder/build.log"

# Package lists of its own, for sources: the machine's settings stay as they are, and it works without root.
fetch() {
    apt=$folder/apt
    mkdir -p "$apt/lists/partial" "$apt/archives/partial" "$apt/sources" "$folder/src"
    for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ ! -f "$list" ] || sed -n '/^deb .*\/debian/s/^deb /deb-src /p' "$list" >"$apt/sources/$(basename "$list" .list).list"
    done
    for list in /etc/apt/sources.list.d/*.sources; do
        [ ! -f "$list" ] || ! grep -q 'URIs:.*/debian' "$list" || sed 's/^Types:.*/Types: deb-src/' "$list" >"$apt/sources/$(basename "$list")"
    done
    set -- -o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$apt/sources" -o "Dir::State::lists=$apt/lists" \
        -o "Dir::Cache=$apt" -o APT::Sandbox::User=
    log apt-get "$@" update || fail "the package lists cannot be fetched"
    (cd "$folder/src" && log apt-get "$@" source --only-source libsdl2 freetype cjson ffmpeg) || fail "the sources cannot be fetched"
    rm -rf "$apt"
}

# Builds one library with CMake.   cmake_build FOLDER OPTION...
cmake_build() {
    name=$(basename "$1")
    echo "Windows libraries: $name"
    source=$1
    shift
    log cmake -S "$source" -B "$folder/build/$name" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$here/compilers.cmake" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX="$root" -DBUILD_SHARED_LIBS=OFF "$@" || fail "$name cannot be configured"
    log ninja -C "$folder/build/$name" -j "$jobs" install || fail "$name cannot be built"
}

ffmpeg_build() {
    echo "Windows libraries: $(basename "$1")"
    mkdir -p "$folder/build/ffmpeg"
    cd "$folder/build/ffmpeg"
    log "$1/configure" --prefix="$root" --arch=x86_64 --target-os=mingw32 --cross-prefix=x86_64-w64-mingw32- \
        --cc=x86_64-w64-mingw32-gcc-posix --pkg-config=false --enable-static --disable-shared --disable-everything \
        --disable-autodetect --disable-programs --disable-doc --disable-network --disable-avdevice --disable-avfilter --disable-debug \
        --enable-demuxer=mov,mp3,aac,image_jpeg_pipe --enable-parser=h264,hevc,mpeg4video,mjpeg,png,aac,mpegaudio,av1,vp9 \
        --enable-decoder=h264,hevc,mpeg4,mjpeg,png,vp9,aac,aac_latm,mp3float,mp3,alac,pcm_s16le,pcm_s16be || fail "FFmpeg cannot be configured"
    log make -j "$jobs" install || fail "FFmpeg cannot be built"
}

rm -rf "$folder/src" "$folder/build" "$root"
fetch
cd "$folder/src"
sdl=$(echo "$PWD"/libsdl2-*/) freetype=$(echo "$PWD"/freetype-*/) cjson=$(echo "$PWD"/cjson-*/) ffmpeg=$(echo "$PWD"/ffmpeg-*/)
cmake_build "${cjson%/}" -DENABLE_CJSON_TEST=OFF -DENABLE_CUSTOM_COMPILER_FLAGS=OFF
# Without the libraries that only compressed and emoji fonts need, which a project cannot contain.
cmake_build "${freetype%/}" -DFT_DISABLE_ZLIB=ON -DFT_DISABLE_PNG=ON -DFT_DISABLE_BZIP2=ON -DFT_DISABLE_BROTLI=ON -DFT_DISABLE_HARFBUZZ=ON
cmake_build "${sdl%/}" -DSDL_SHARED=OFF -DSDL_STATIC=ON -DSDL_TEST=OFF -DSDL_JOYSTICK=OFF -DSDL_HAPTIC=OFF -DSDL_SENSOR=OFF \
    -DSDL_HIDAPI=OFF -DSDL_OFFSCREEN=ON -DSDL_VULKAN=OFF -DSDL2_DISABLE_SDL2MAIN=ON
# The programs have a main of their own and write to a console.
sed -i 's/-lSDL2main//g;s/-lmingw32//g;s/-mwindows//g;s/-Dmain=SDL_main/-DSDL_MAIN_HANDLED/g' "$root/lib/pkgconfig/sdl2.pc"
ffmpeg_build "${ffmpeg%/}"
for package in "$folder"/src/*/debian/copyright; do
    name=$(basename "$(dirname "$(dirname "$package")")")
    mkdir -p "$root/licences" && cp "$package" "$root/licences/${name%%-[0-9]*}.txt"
done
rm -rf "$folder/src" "$folder/build"
echo "$wanted" >"$stamp"
