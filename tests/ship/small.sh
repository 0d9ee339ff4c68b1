#!/bin/sh
# Builds the library without FFmpeg and without anything else, and a program with it and with the full library, by pkg-config
# alone: both show the same PNG and nearly the same JPEG pictures and play WAV; only the log of the small one says, once for
# each file, that clips and compressed sounds are not built in.
#   usage: small.sh NATIVE_BUILD      the release build of this machine
cd "$(dirname "$0")/../.."
. tests/system/lib.sh
native=$(cd "$1" && pwd)
cmake -S . -B build/small -G Ninja -DCMAKE_BUILD_TYPE=Release -DZOF_MEDIA=OFF -DZOF_RUNTIME_ONLY=ON >"$work/configure.log" 2>&1 ||
    fail "the small build cannot be configured"
ninja -C build/small --quiet >"$work/build.log" 2>&1 || fail "the small build fails"
cmake --install "$native" --prefix "$work/full" >"$work/install.log"
cmake --install build/small --prefix "$work/small" >>"$work/install.log"
[ "$(ls -x "$work/small")" = "include  lib" ] || fail "the small build installs more than the library"
[ -z "$(find "$work/small/include" -not -name '*.h' -type f)" ] || fail "the small build installs more than headers"
nm "$work/small/lib/libzof.a" 2>/dev/null | grep -E ' (av|sws|swr)_' && fail "the small library knows FFmpeg"
cmake -S . -B "$work/whole" -G Ninja -DCMAKE_BUILD_TYPE=Release -DZOF_MEDIA=OFF -DZOF_TESTS=OFF >"$work/configure.log" 2>&1 &&
    ninja -C "$work/whole" -n >"$work/build.log" 2>&1 || fail "panel and tools cannot be built without FFmpeg"

# The project: a page of PNG and one of JPEG pictures; a sound of each kind, and a clip.
res=$work/res
mkdir -p "$res/config/project" "$res/config/view" "$res/image" "$res/sound" "$res/video"
cat >"$res/config/project/zofprj.g" <<'END'
{"p_name": "Media", "width": 200, "height": 100, "start_page": 1, "views": [{"pageId": 1, "pageName": "png.g"}, {"pageId": 2, "pageName": "jpg.g"}, {"pageId": 3, "pageName": "film.g"}]}
END
image() { # ID X FILE
    echo "{\"type\": \"image\", \"theme\": \"night\", \"property\": {\"pub_t\": {\"id\": $1, \"pt\": {\"x\": $2, \"y\": 0}, \"size\": {\"width\": 100, \"height\": 50}, \"alpha\": 255}, \"init_img\": \"$3\"}}"
}
video='{"type": "video", "theme": "night", "property": {"pub_t": {"name": "film", "id": 9, "pt": {"x": 0, "y": 50}, "size": {"width": 80, "height": 40}, "alpha": 255}, "state": "stop"}}'
echo "{\"view\": {\"v_name\": \"png\", \"v_id\": 1, \"bg_scale\": 255}, \"controls\": [$(image 1 0 rgb.png), $(image 2 100 grey.png)]}" >"$res/config/view/png.g"
echo "{\"view\": {\"v_name\": \"jpg\", \"v_id\": 2, \"bg_scale\": 255}, \"controls\": [$(image 1 0 baseline.jpg), $(image 2 100 progressive.jpg)]}" >"$res/config/view/jpg.g"
echo "{\"view\": {\"v_name\": \"film\", \"v_id\": 3, \"bg_scale\": 255}, \"controls\": [$video]}" >"$res/config/view/film.g"
/usr/bin/python3 - "$res" <<'END'
import sys, wave
from PIL import Image
slope = Image.linear_gradient("L").resize((100, 50))
rgb = Image.merge("RGB", (slope, Image.linear_gradient("L").rotate(90).resize((100, 50)), slope.rotate(180)))
rgb.save(sys.argv[1] + "/image/rgb.png")
slope.save(sys.argv[1] + "/image/grey.png")
rgb.save(sys.argv[1] + "/image/baseline.jpg", quality=95)
rgb.save(sys.argv[1] + "/image/progressive.jpg", quality=95, progressive=True)
with wave.open(sys.argv[1] + "/sound/long.wav", "wb") as sound:
    sound.setparams((1, 2, 8000, 0, "NONE", ""))
    sound.writeframes(bytes(16000 * 60))
END
ffmpeg -nostdin -loglevel error -f lavfi -i sine=d=0.2:r=8000 "$res/sound/a.mp3" -f lavfi -i testsrc=s=64x32:r=5:d=0.4 -map 1 "$res/video/a.mp4"
cat >"$work/main.c" <<'END'
#include <stdio.h>
#include <zof.h>

static void films(void) {
    zof_ctrl_t *film = zof_ctrl_get_form_id(3, 9);
    for (int i = 0; i < 3; i++) {
        zof_audio_set_src("a.mp3");
        zof_video_set_src(film, "a.mp4");
        zof_video_set_state(film, ZOF_MEDIA_PLAY);
    }
    zof_audio_set_src("long.wav");
    printf("wav: %d\n", zof_audio_get_state() == ZOF_MEDIA_PLAY);
}
static void entered(void) {} /* without one, a view is not shown */
static void png(void) { zof_view_create(1, 0, 0); }
static void jpg(void) { zof_view_create(2, 0, 0); }
static void film(void) { zof_view_create(3, 0, 0); }
static const zof_view_fun_t views[] = {{1, png, entered, 0}, {2, jpg, entered, 0}, {3, film, films, 0}};
void zof_main(void) { zof_prj_create(views, 3); }
int main(int argc, char **argv) { return zof_run(argc, argv); }
END
printf 'wait 300\nshot png.png\nview 2\nwait 300\nshot jpg.png\nview 3\nwait 300\nquit\n' >"$work/session"
export SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy
for form in full small; do
    export PKG_CONFIG_PATH="$work/$form/lib/pkgconfig"
    # shellcheck disable=SC2046
    cc -Wall -Wextra -Werror -o "$work/$form/program" "$work/main.c" $(pkg-config --cflags --libs zof) || fail "pkg-config of the $form library is not enough"
    mkdir "$work/$form-shots"
    ZOF_STRICT=1 ZOF_SHOTS=$work/$form-shots ZOF_SCRIPT=$work/session timeout 60 "$work/$form/program" --project "$res" >"$work/$form.log" 2>&1 || fail "the program with the $form library fails"
    grep -qx 'wav: 1' "$work/$form.log" || fail "the $form library does not play WAV"
done
cmp "$work/full-shots/png.png" "$work/small-shots/png.png" || fail "PNG pictures differ"
/usr/bin/python3 - "$work/full-shots/jpg.png" "$work/small-shots/jpg.png" <<'END' || fail "JPEG pictures differ"
import sys
from PIL import Image, ImageChops
full, small = (Image.open(name).convert("RGB") for name in sys.argv[1:])
most = max(end for _, end in ImageChops.difference(full, small).getextrema())
print("JPEG: at most", most, "of 255 between the decoders")
sys.exit(most > 16 or len(small.getcolors(20000)) < 500)
END
grep 'not built in' "$work/full.log" && fail "the full library has no clips"
[ "$(grep -c '^media .*/res/.*a\.mp[34]: clips and compressed sounds are not built in' "$work/small.log")" = 2 ] || fail "the log does not name each file once"
[ "$(grep -c '/a\.mp[34]:1:1: warning: not built in' "$work/small.log")" = 2 ] || fail "the check at start does not name each file"
for form in full small; do
    echo "$form: $(size -t "$work/$form/lib/libzof.a" | awk 'END {print int($1 / 1024)}') KB of code in libzof.a, program of $(stat -c %s "$work/$form/program" | awk '{print int($1 / 1024)}') KB"
done
