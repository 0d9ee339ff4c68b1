#!/usr/bin/python3
"""Draws and writes the gallery's pictures, sounds and its short film.   usage: media.py OUTPUT_FOLDER

Needs: apt install python3-pil ffmpeg
"""
import math
import os
import struct
import subprocess
import sys
import wave
from PIL import Image, ImageDraw, ImageFont

OUT = sys.argv[1]
SCALE = 4       # everything is drawn larger and scaled down, for smooth edges
BLUE, ORANGE, GREEN, GREY, WHITE = (47, 143, 232), (232, 134, 47), (47, 163, 107), (124, 135, 148), (255, 255, 255)


def folder(name):
    path = os.path.join(OUT, name)
    os.makedirs(path, exist_ok=True)
    return path


def draw(width, height, paint, back=(0, 0, 0, 0)):
    image = Image.new("RGBA", (width * SCALE, height * SCALE), back)
    paint(ImageDraw.Draw(image), lambda *v: [n * SCALE for n in v])
    return image.resize((width, height), Image.LANCZOS)


def shell(d, s):
    for i in range(5):
        d.ellipse(s(4 + 5 * i, 4 + 6 * i, 60 - 5 * i, 60 - 2 * i), fill=(BLUE, WHITE, ORANGE, WHITE, GREEN)[i])


def key(face):
    def paint(d, s):
        d.rounded_rectangle(s(1, 1, 118, 70), 16 * SCALE, fill=face)
        d.rounded_rectangle(s(5, 5, 114, 34), 12 * SCALE, fill=tuple(min(255, c + 22) for c in face))
    return paint


def lamp(light, size):
    def paint(d, s):
        edge = (80 - size) // 2
        d.ellipse(s(edge, edge, 80 - edge, 80 - edge), fill=light)
        d.ellipse(s(edge + 8, edge + 6, 46, 40), fill=tuple(min(255, c + 50) for c in light))
    return paint


def sign(text):
    font = ImageFont.truetype(os.path.join(OUT, "font", "gallery.ttf"), 30 * SCALE)

    def paint(d, s):
        d.rounded_rectangle(s(1, 1, 94, 62), 12 * SCALE, fill=BLUE)
        d.text(s(48, 32), text, font=font, fill=WHITE, anchor="mm")
    return paint


def ring(d, s):
    for i in range(28):
        a = math.radians(135 + i * 10)
        x, y = math.cos(a), math.sin(a)
        d.line(s(64 + 50 * x, 64 + 50 * y, 64 + 63 * x, 64 + 63 * y), fill=GREY, width=3 * SCALE)


def wave_frame(n):
    def paint(d, s):
        for i in range(8):
            r = 6 + 5 * math.sin(2 * math.pi * (n / 12 + i / 8))
            d.ellipse(s(6 + 12 * i - r / 2, 48 - r * 3.2, 6 + 12 * i + r / 2, 48 + r * 3.2), fill=(BLUE, GREEN, ORANGE)[i % 3])
    return paint


def spin_frame(n):
    def paint(d, s):
        for i in range(12):
            a = 2 * math.pi * i / 12
            age = (n - i) % 12
            tint = tuple(int(c + (124 - c) * age / 14) for c in BLUE)
            x, y, r = 48 + 36 * math.cos(a), 48 + 36 * math.sin(a), 8 - age * 0.4
            d.ellipse(s(x - r, y - r, x + r, y + r), fill=tint)
    return paint


def sharp(picture):
    """A GIF has no partial opacity, so its pictures have a background of their own that suits both themes."""
    picture.putalpha(picture.getchannel("A").point(lambda a: 255 if a > 127 else 0))
    return picture


def pictures():
    image = folder("image")
    for name, width, height, paint in (
            ("shell", 64, 64, shell), ("key", 120, 72, key((38, 86, 140))), ("key_pr", 120, 72, key((25, 58, 96))),
            ("lamp", 80, 80, lamp((90, 96, 108), 72)), ("lamp_pr", 80, 80, lamp((90, 96, 108), 66)), ("lamp_on", 80, 80, lamp((240, 196, 64), 80)),
            ("sign_en", 96, 64, sign("EN")), ("sign_de", 96, 64, sign("DE")), ("sign_zh", 96, 64, sign("中")), ("ring", 128, 128, ring),
            ("check", 20, 20, lambda d, s: d.line(s(4, 10, 8, 15, 16, 5), fill=WHITE, width=3 * SCALE, joint="curve")),
            ("dot0", 16, 16, lambda d, s: d.ellipse(s(2, 2, 14, 14), fill=BLUE)), ("dot1", 16, 16, lambda d, s: d.ellipse(s(2, 2, 14, 14), fill=GREEN)),
            ("dot2", 16, 16, lambda d, s: d.ellipse(s(2, 2, 14, 14), fill=ORANGE)),
            ("logo", 240, 80, lambda d, s: d.text(s(120, 40), "Gallery", font=ImageFont.truetype(os.path.join(OUT, "font", "gallery.ttf"), 44 * SCALE),
                                                  fill=WHITE, anchor="mm"))):
        draw(width, height, paint).save(os.path.join(image, name + ".png"))
    frames = folder("image/wave")
    for n in range(12):
        draw(96, 96, wave_frame(n)).save(os.path.join(frames, f"{n}.png"))
    spin = [sharp(draw(96, 96, spin_frame(n))) for n in range(12)]
    spin[0].save(os.path.join(image, "spin.gif"), save_all=True, append_images=spin[1:], duration=80, loop=0, disposal=2)


def sound(name, notes, rate=22050):
    """`notes` are pairs of hertz and seconds; each note fades out."""
    with wave.open(os.path.join(folder("sound"), name), "wb") as out:
        out.setparams((1, 2, rate, 0, "NONE", ""))
        for hertz, seconds in notes:
            count = int(rate * seconds)
            out.writeframes(b"".join(struct.pack("<h", int(12000 * math.exp(-4 * n / count) * math.sin(2 * math.pi * hertz * n / rate)))
                                     for n in range(count)))


def film():
    """Three seconds of a needle that swings over a scale, to the tones of a musical scale."""
    work = folder("film.work")
    for n in range(75):
        def paint(d, s, n=n):
            d.rectangle(s(0, 0, 476, 268), fill=(16, 20, 28))
            for i in range(11):
                a = math.pi * (1 + i / 10)
                d.line(s(238 + 170 * math.cos(a), 230 + 170 * math.sin(a), 238 + 195 * math.cos(a), 230 + 195 * math.sin(a)), fill=WHITE, width=12)
            a = math.pi * (1.5 - 0.45 * math.cos(2 * math.pi * n / 75))
            d.line(s(238, 230, 238 + 180 * math.cos(a), 230 + 180 * math.sin(a)), fill=ORANGE, width=20)
            d.ellipse(s(222, 214, 254, 246), fill=ORANGE)
        draw(476, 268, paint).convert("RGB").save(os.path.join(work, f"{n:03}.png"))
    subprocess.run(["ffmpeg", "-nostdin", "-loglevel", "error", "-y", "-framerate", "25", "-i", os.path.join(work, "%03d.png"),
                    "-i", os.path.join(OUT, "sound", "scale.wav"), "-t", "3", "-c:v", "mpeg4", "-q:v", "4", "-c:a", "aac", "-flags", "+bitexact",
                    "-fflags", "+bitexact", "-pix_fmt", "yuv420p", os.path.join(folder("video"), "clip.mp4")], check=True)
    for name in os.listdir(work):
        os.remove(os.path.join(work, name))
    os.rmdir(work)


pictures()
sound("chime.wav", [(880, 0.5), (660, 0.9)])
sound("scale.wav", [(262 * 2 ** (n / 12), 0.35) for n in (0, 2, 4, 5, 7, 9, 11, 12)])
film()
