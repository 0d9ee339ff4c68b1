#!/bin/sh
# Builds the libraries that a page with the runtime contains: SDL2, FreeType, cJSON, and libjpeg-turbo for pictures.
#   usage: third_party.sh FOLDER [JOBS]       afterwards the libraries are in FOLDER/root; does nothing if they are there
set -eu
here=$(cd "$(dirname "$0")" && pwd)
. "$here/../sources.sh"
sources_begin "$here/third_party.sh" "$@"
need em++
export NODE_PATH=${NODE_PATH:+$NODE_PATH:}/usr/share/nodejs # where Debian has what emscripten requires
sources_fetch libsdl2 freetype cjson libjpeg-turbo
sources_cmake cjson -DENABLE_CJSON_TEST=OFF -DENABLE_CUSTOM_COMPILER_FLAGS=OFF
# Without the libraries that only compressed and emoji fonts need, which a project cannot contain.
sources_cmake freetype -DFT_DISABLE_ZLIB=ON -DFT_DISABLE_PNG=ON -DFT_DISABLE_BZIP2=ON -DFT_DISABLE_BROTLI=ON -DFT_DISABLE_HARFBUZZ=ON
# CMake cannot measure types in a program that it cannot start.
sources_cmake libjpeg-turbo -DENABLE_SHARED=OFF -DWITH_SIMD=OFF -DHAVE_SIZE_T=1 -DSIZE_T=4 -DHAVE_UNSIGNED_LONG=1 -DUNSIGNED_LONG=4
sources_cmake libsdl2 -DSDL_SHARED=OFF -DSDL_STATIC=ON -DSDL_TEST=OFF -DSDL_JOYSTICK=OFF -DSDL_HAPTIC=OFF -DSDL_SENSOR=OFF \
    -DSDL_HIDAPI=OFF -DSDL_OPENGL=OFF -DSDL_OPENGLES=OFF -DSDL2_DISABLE_SDL2MAIN=ON -DSDL_PTHREADS=ON
sources_end
