#!/usr/bin/python3
"""Draws the panel's pictures.   usage: art.py FONT_FOLDER OUTPUT_FOLDER      Needs: apt install python3-pil"""
import math
import os
import struct
import sys
import zlib
from PIL import Image, ImageDraw, ImageFont
import panel

FONTS, OUT = sys.argv[1:3]
S = 8                                        # supersampling
GREY, TRACK, WHITE, AMBER = (tuple(rgb.to_bytes(3, "big")) for rgb in (panel.GREY, panel.RAISED, panel.WHITE, panel.AMBER))


def font(name, px):
    return ImageFont.truetype(os.path.join(FONTS, name), px)


def polar(cx, cy, r, deg):
    a = math.radians(deg)
    return cx + r * math.cos(a), cy + r * math.sin(a)


def save(im, name):
    """Writes an RGBA picture without PNG's filters: flat drawings are a quarter smaller without, and faster to decode."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    w, h = im.size
    rows = b"".join(b"\0" + im.crop((0, y, w, y + 1)).tobytes() for y in range(h))
    os.makedirs(OUT, exist_ok=True)
    with open(os.path.join(OUT, name), "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", w, h, 8, 6, 0, 0, 0)) +
                chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


def dial(full=48, marks=(0, 5, 9, 15, 20, 28, 36, 48), size=320, r0=129):
    """The scale of the voltage arc: a short tick per volt, a long one with a number at the usual steps."""
    im = Image.new("RGBA", (size * S, size * S), (*GREY, 0))
    d, c = ImageDraw.Draw(im), size * S / 2
    for v in range(full + 1):
        deg = 135 + 270 * v / full
        long = v in marks
        d.line([polar(c, c, r0 * S, deg), polar(c, c, (r0 + (8 if long else 4)) * S, deg)],
               fill=(*GREY, 255 if long else 120), width=round((2 if long else 1.25) * S))
    im = im.resize((size, size), Image.LANCZOS)
    f = font("bench-text.ttf", 16 * S)
    over = Image.new("RGBA", (size * S, size * S), (*GREY, 0))
    d = ImageDraw.Draw(over)
    for v in marks:
        x, y = polar(c, c, (r0 + 21) * S, 135 + 270 * v / full)
        d.text((x, y), str(v), font=f, fill=(*GREY, 255), anchor="mm")
        if v == full:                       # only one number has the unit
            d.text((x + 13 * S, y), "V", font=f, fill=(*GREY, 255), anchor="lm")
    save(Image.alpha_composite(im, over.resize((size, size), Image.LANCZOS)), "dial.png")


def mark(width=6, height=22):
    """The mark of the set voltage: a stroke across the ring, which the panel turns about the dial's middle."""
    save(Image.new("RGBA", (width, height), (*AMBER, 255)), "mark.png")


def set_now(width=9, height=12):
    """The sign beside a pane of the trend, at what is set now."""
    im = Image.new("RGBA", (width * S, height * S), (*AMBER, 0))
    ImageDraw.Draw(im).polygon([(0, height * S / 2), (width * S, 0), (width * S, height * S)], fill=(*AMBER, 255))
    save(im.resize((width, height), Image.LANCZOS), "set_now.png")


def lock(name, ink, size=20):
    """The sign of the locked panel."""
    im = Image.new("RGBA", (size * S, size * S), (*ink, 0))
    d = ImageDraw.Draw(im)
    d.arc([5 * S, 1.5 * S, 15 * S, 13.5 * S], 180, 360, fill=(*ink, 255), width=round(2.4 * S))
    for x in (5, 12.6):
        d.rectangle([x * S, 7.5 * S, (x + 2.4) * S, 10 * S], fill=(*ink, 255))
    d.rounded_rectangle([3 * S, 9 * S, 17 * S, 18.5 * S], 2 * S, fill=(*ink, 255))
    save(im.resize((size, size), Image.LANCZOS), name)


def logo(name, size):
    """The dial as a logo: large at power-on, small on the About page."""
    k = S * size / 160                           # drawn on a sheet of 160
    im = Image.new("RGBA", (size * S, size * S), (0, 0, 0, 0))
    d, c, r, w = ImageDraw.Draw(im), size * S / 2, 72 * k, round(12 * k)
    d.arc([c - r, c - r, c + r, c + r], 135, 405, fill=(*TRACK, 255), width=w)
    d.arc([c - r, c - r, c + r, c + r], 135, 247.5, fill=(*WHITE, 255), width=w)
    rr, ww = 24 * k, round(6 * k)
    d.arc([c - rr, c - rr, c + rr, c + rr], -52, 232, fill=(*AMBER, 255), width=ww)
    for deg in (-52, 232):
        x, y = polar(c, c, rr - ww / 2, deg)
        d.ellipse([x - ww / 2, y - ww / 2, x + ww / 2, y + ww / 2], fill=(*AMBER, 255))
    d.rounded_rectangle([c - ww / 2, c - 30 * k, c + ww / 2, c - 4 * k], ww / 2, fill=(*AMBER, 255))
    save(im.resize((size, size), Image.LANCZOS), name)


if __name__ == "__main__":
    dial()
    mark()
    set_now()
    lock("lock.png", WHITE)
    lock("lock_grey.png", GREY)
    logo("logo.png", 160)
    logo("logo_small.png", 48)
