#!/bin/sh
# Builds the libraries that the Windows programs contain, static, with mingw-w64: SDL2, FreeType, cJSON, and of FFmpeg
# what decodes the kinds of media that the runtime opens.
#   usage: third_party.sh FOLDER [JOBS]       afterwards the libraries are in FOLDER/root; does nothing if they are there
set -eu
here=$(cd "$(dirname "$0")" && pwd)
. "$here/../sources.sh"
sources_begin "$here/third_party.sh" "$@"
need x86_64-w64-mingw32-g++-posix nasm
sources_fetch libsdl2 freetype cjson ffmpeg

ffmpeg_build() {
    source=$(echo "$folder"/src/ffmpeg-*/)
    echo "Libraries: $(basename "$source")"
    mkdir -p "$folder/build/ffmpeg"
    cd "$folder/build/ffmpeg"
    log "$source/configure" --prefix="$root" --arch=x86_64 --target-os=mingw32 --cross-prefix=x86_64-w64-mingw32- \
        --cc=x86_64-w64-mingw32-gcc-posix --pkg-config=false --enable-static --disable-shared --disable-everything \
        --disable-autodetect --disable-programs --disable-doc --disable-network --disable-avdevice --disable-avfilter --disable-debug \
        --enable-demuxer=mov,mp3,aac,image_jpeg_pipe --enable-parser=h264,hevc,mpeg4video,mjpeg,png,aac,mpegaudio,av1,vp9 \
        --enable-decoder=h264,hevc,mpeg4,mjpeg,png,vp9,aac,aac_latm,mp3float,mp3,alac,pcm_s16le,pcm_s16be || fail "FFmpeg cannot be configured"
    log make -j "$jobs" install || fail "FFmpeg cannot be built"
}

sources_cmake cjson -DENABLE_CJSON_TEST=OFF -DENABLE_CUSTOM_COMPILER_FLAGS=OFF
# Without the libraries that only compressed and emoji fonts need, which a project cannot contain.
sources_cmake freetype -DFT_DISABLE_ZLIB=ON -DFT_DISABLE_PNG=ON -DFT_DISABLE_BZIP2=ON -DFT_DISABLE_BROTLI=ON -DFT_DISABLE_HARFBUZZ=ON
sources_cmake libsdl2 -DSDL_SHARED=OFF -DSDL_STATIC=ON -DSDL_TEST=OFF -DSDL_JOYSTICK=OFF -DSDL_HAPTIC=OFF -DSDL_SENSOR=OFF \
    -DSDL_HIDAPI=OFF -DSDL_OFFSCREEN=ON -DSDL_VULKAN=OFF -DSDL2_DISABLE_SDL2MAIN=ON
# The programs have a main of their own and write to a console.
sed -i 's/-lSDL2main//g;s/-lmingw32//g;s/-mwindows//g;s/-Dmain=SDL_main/-DSDL_MAIN_HANDLED/g' "$root/lib/pkgconfig/sdl2.pc"
ffmpeg_build
sources_end
