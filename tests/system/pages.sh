#!/bin/sh
# Follows the pages for newcomers word by word, from an installed tree.   usage: pages.sh BUILD_FOLDER SOURCE_FOLDER FLAGS
. "$(dirname "$0")/lib.sh"
cmake --install "$1" --prefix "$work/prefix" >"$work/install.log"
export PATH="$work/prefix/bin:$PATH" CMAKE_PREFIX_PATH="$work/prefix" CFLAGS="$3"
docs=$work/prefix/share/doc/zof-dev
/usr/bin/python3 -B "$2/tools/reference/walk.py" "$work/walk" "$work/pictures" "$docs/ten_minutes.md" "$docs/firmware.md"
