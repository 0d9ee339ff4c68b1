#!/usr/bin/env python3
"""Makes the seeds of the fuzzers of pictures and media: small files, each behind the byte that chooses its kind.

usage: make_media.py ZOF_MEDIA_PROGRAM OUTPUT_FOLDER"""
import io
import pathlib
import subprocess
import sys
import tempfile

from PIL import Image

program, out = sys.argv[1], pathlib.Path(sys.argv[2])


def seed(fuzzer, name, kind, data):
    (out / fuzzer).mkdir(parents=True, exist_ok=True)
    (out / fuzzer / name).write_bytes(bytes([kind]) + data)


def picture(mode, form, **how):
    image = Image.new("RGB", (9, 7))
    image.putdata([(x * 28, y * 36, (x * y * 5) % 256) for y in range(7) for x in range(9)])
    file = io.BytesIO()
    image.convert(mode).save(file, form, **how)
    return file.getvalue()


for mode in ("L", "LA", "P", "RGB", "RGBA"):
    seed("pictures", "png_" + mode, 0, picture(mode, "PNG"))
seed("pictures", "png_laced", 0, picture("RGB", "PNG", interlace=1))
for name, how in (("plain", {}), ("progressive", {"progressive": True}), ("full", {"subsampling": 0})):
    seed("pictures", "jpg_" + name, 1, picture("RGB", "JPEG", quality=60, **how))
frames = [Image.new("P", (9, 7), n) for n in range(3)]
file = io.BytesIO()
frames[0].save(file, "GIF", save_all=True, append_images=frames[1:], duration=20, loop=2)
seed("pictures", "gif", 2, file.getvalue())

with tempfile.TemporaryDirectory() as folder:
    for kind, end in enumerate(("wav", "mp3", "aac", "mp4")):
        path = pathlib.Path(folder) / ("x." + end)
        what = ["clip", path, "16", "16", "0.12", "440"] if end == "mp4" else ["tone", path, "440", "20"]
        subprocess.run([program, *map(str, what)], check=True, stderr=subprocess.DEVNULL)
        seed("media", end, kind, path.read_bytes())
