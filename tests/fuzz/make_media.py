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
for name, how in (("plain", {"loop": 2}), ("once", {}), ("kept", {"loop": 0, "disposal": 3}), ("laced", {"interlace": 1})):
    frames = [Image.new("P", (9, 7), n) for n in range(3)]
    file = io.BytesIO()
    frames[0].save(file, "GIF", save_all=True, append_images=frames[1:], duration=20, **how)
    seed("pictures", "gif_" + name, 2, file.getvalue())
clear = [Image.new("RGBA", (9, 7), (0, 0, 0, 0)) for n in range(3)]
for n, frame in enumerate(clear):
    frame.paste((90 * n, 200, 0, 255), (n, n, n + 4, n + 3))
file = io.BytesIO()
clear[0].save(file, "GIF", save_all=True, append_images=clear[1:], duration=20, loop=0, disposal=2)
seed("pictures", "gif_clear", 2 + 3 * 2, file.getvalue())


def run(*command):
    subprocess.run([*map(str, command)], check=True, stderr=subprocess.DEVNULL)


REPLAY, RESIZE, PAUSE, REWIND = 4, 8, 16, 32  # as in media_fuzz.cpp
with tempfile.TemporaryDirectory() as folder:
    folder = pathlib.Path(folder)
    for kind, end in enumerate(("wav", "mp3", "aac")):
        run(program, "tone", folder / ("x." + end), 440, 20)
        seed("media", end, kind + REPLAY * (kind % 2), (folder / ("x." + end)).read_bytes())
    for codec in ("pcm_u8", "pcm_s24le", "pcm_f32le", "pcm_alaw", "adpcm_ms", "adpcm_ima_wav"):
        run("ffmpeg", "-f", "lavfi", "-i", "sine=d=0.03:r=8000", "-bitexact", "-c:a", codec, "-y", folder / "x.wav")
        seed("media", "wav_" + codec, 0, (folder / "x.wav").read_bytes())
    clip = folder / "x.mp4"
    for name, how, *more in (("mpeg4", REPLAY + REWIND, "mpeg4"), ("png", PAUSE + RESIZE, "png"),
                             ("mjpeg", REPLAY + RESIZE, "mjpeg"), ("smaller", REPLAY + REWIND, "mjpeg", 2)):
        run(program, "clip", clip, 16, 16, 0.16, 440, *more)
        seed("media", "mp4_" + name, 3 + how, clip.read_bytes())
    run("ffmpeg", "-f", "lavfi", "-i", "testsrc=s=16x16:r=25:d=0.16", "-bitexact", "-c:v", "libx264", "-pix_fmt", "yuv420p",
        "-y", clip)
    seed("media", "mp4_h264", 3 + REPLAY + PAUSE, clip.read_bytes())
