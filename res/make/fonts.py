#!/usr/bin/python3
"""Makes the panel's fonts from one Debian family.   usage: fonts.py OUTPUT_FOLDER

Needs: apt install fonts-inter-variable python3-fonttools python3-pil fontconfig
The runtime does not support OpenType features or weight axes, so they are frozen into plain TrueType
files here: one weight each, tabular digits as the default digits, small unit letters.
"""
import os
import struct
import subprocess
import sys
from fontTools.pens.transformPen import TransformPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.subset import Options, Subsetter
from fontTools.ttLib import TTFont
from fontTools.varLib.instancer import instantiateVariableFont

OUT = sys.argv[1]
LATIN = "".join(chr(c) for c in list(range(0x20, 0x7F)) + list(range(0xA0, 0x100)))
SIGNS = "–—‘’“”„•…‹›€−✓●○→←↑↓"

# name -> family file, weight, characters, unit letters' scale, width of the space and of the range dash
FONTS = {
    "bench-num.ttf": dict(file="InterDisplay-roman.var.ttf", wght=500, text="0123456789.- AVWh%", unit=0.44,
                          unit_wght=500, space=0.10, dash="digit"),
    "bench-rail.ttf": dict(file="InterDisplay-roman.var.ttf", wght=600, text="0123456789.- AVW", unit=0.74,
                           unit_wght=500, space=0.16, dash="range"),
    "bench-text.ttf": dict(file="Inter-roman.var.ttf", wght=500, text=LATIN + SIGNS),
    "bench-bold.ttf": dict(file="Inter-roman.var.ttf", wght=650, text=LATIN + SIGNS),
}


def find(name):
    for line in subprocess.check_output(["fc-list", "--format", "%{file}\n"], text=True).splitlines():
        if line.endswith("/" + name):
            return line
    raise SystemExit(f"{name} is not installed: apt install fonts-inter-variable")


def tabular(font):
    """Character -> glyph of its tabular form, from the font's own 'tnum' feature."""
    gsub, subst = font["GSUB"].table, {}
    for rec in gsub.FeatureList.FeatureRecord:
        if rec.FeatureTag == "tnum":
            for i in rec.Feature.LookupListIndex:
                for sub in gsub.LookupList.Lookup[i].SubTable:
                    sub = getattr(sub, "ExtSubTable", sub)
                    subst.update(getattr(sub, "mapping", {}))
    return subst


def redraw(font, glyph, source, scale=1.0, dx=0.0, dy=0.0, adv=None):
    """Replace a glyph by one of `source`, scaled and moved; its advance follows."""
    pen = TTGlyphPen(None)
    source.getGlyphSet()[glyph if isinstance(glyph, str) else glyph[1]].draw(
        TransformPen(pen, (scale, 0, 0, scale, dx, dy)))
    name = glyph if isinstance(glyph, str) else glyph[0]
    old = source["hmtx"][glyph if isinstance(glyph, str) else glyph[1]][0]
    font["glyf"][name] = pen.glyph()
    font["glyf"][name].recalcBounds(font["glyf"])
    font["hmtx"][name] = (round(adv if adv is not None else old * scale), font["glyf"][name].xMin
                          if font["glyf"][name].numberOfContours else 0)


def level(font, glyph, adv, optical=0.0):
    """Set a digit's advance to `adv` and centre it; `optical` moves it left."""
    g = font["glyf"][glyph]
    g.recalcBounds(font["glyf"])
    dx = round((adv - g.xMin - g.xMax) / 2) - round(optical * adv)
    if g.isComposite():
        for part in g.components:
            part.x += dx
    else:
        g.coordinates.translate((dx, 0))
    g.recalcBounds(font["glyf"])
    font["hmtx"][glyph] = (adv, g.xMin)


def make(name, cfg):
    path = find(cfg["file"])
    font = instantiateVariableFont(TTFont(path), {"wght": cfg["wght"]}, inplace=False)
    upm = font["head"].unitsPerEm
    subst = tabular(font)
    for table in font["cmap"].tables:
        if table.isUnicode():
            for ch in "0123456789":
                g = table.cmap.get(ord(ch))
                if g in subst:
                    table.cmap[ord(ch)] = subst[g]
    opt = Options()
    opt.layout_features = []
    opt.hinting = False
    opt.notdef_outline = True
    opt.name_IDs = [1, 2, 3, 4, 6, 0, 13, 14]
    sub = Subsetter(opt)
    sub.populate(text=cfg["text"] + "0")
    sub.subset(font)
    cmap = font.getBestCmap()
    digit = font["hmtx"][cmap[ord("0")]][0]
    for ch in "0123456789":             # the family's own tabular digits differ by up to 0.09 em: make them equal
        level(font, cmap[ord(ch)], digit, 0.035 if ch == "1" else 0)
    assert len({font["hmtx"][cmap[ord(ch)]][0] for ch in "0123456789"}) == 1
    if "unit" in cfg:
        light = instantiateVariableFont(TTFont(path), {"wght": cfg["unit_wght"]}, inplace=False)
        for ch in "AVWh":
            if ord(ch) in cmap:
                redraw(font, cmap[ord(ch)], light, cfg["unit"])
        font["hmtx"][cmap[0x20]] = (round(cfg["space"] * upm), 0)
        source = instantiateVariableFont(TTFont(path), {"wght": cfg["wght"]}, inplace=False)
        hy, en = cmap[ord("-")], source.getBestCmap()[0x2013]
        bounds = source["glyf"][source.getBestCmap()[ord("-")]]
        if cfg["dash"] == "digit":      # unknown reading: a dash in place of each digit
            w = bounds.xMax - bounds.xMin
            redraw(font, (hy, source.getBestCmap()[ord("-")]), source, 1.0, (digit - w) / 2 - bounds.xMin, 0, digit)
        else:                           # range of a rail: an en dash with space around it
            redraw(font, (hy, en), source, 0.8, 0.06 * upm, 0.02 * upm,
                   source["hmtx"][en][0] * 0.8 + 0.12 * upm)
    if "unit" not in cfg:               # at 16 px the line rounds to 20 then, and its middle to the middle of its box
        font["hhea"].lineGap = round(0.012 * upm)
    else:                               # the point of an unknown reading, faint like its dashes
        for table in font["cmap"].tables:
            if table.isUnicode():
                table.cmap[0x2024] = cmap[ord(".")]
    family = "Bench " + name[6:-4].capitalize()
    for rec in font["name"].names:
        rec.string = {1: family, 2: "Regular", 4: family, 6: family.replace(" ", ""), 3: family}.get(rec.nameID, rec.toUnicode())
    font["OS/2"].usWeightClass = 400
    font["head"].macStyle = 0
    font.recalcTimestamp = False        # reproducible output
    os.makedirs(OUT, exist_ok=True)
    font.save(os.path.join(OUT, name))
    hh = font["hhea"]
    print(f"{name:16} digit {digit / upm:.3f} em  point {font['hmtx'][cmap[46]][0] / upm:.3f}  "
          f"line {(hh.ascent - hh.descent) / upm:.3f}  cap {font['OS/2'].sCapHeight / upm:.3f}  "
          f"{os.path.getsize(os.path.join(OUT, name)) // 1024} KiB")


def bitmap(ttf, size, fade=None):
    """The runtime's own bitmap format, 8 bits per pixel, in which a glyph can be fainter than its neighbours.

    The board's amperes and watts have the unit in the same text, so only the font can make it fainter.
    """
    from PIL import Image, ImageFont
    fade = fade or {"A": 0.7, "V": 0.7, "W": 0.7, "h": 0.7, "-": 0.5, "\u2024": 0.5}
    font = ImageFont.truetype(os.path.join(OUT, ttf), size)
    ascent, descent = font.getmetrics()
    codes = sorted(TTFont(os.path.join(OUT, ttf)).getBestCmap())
    records = []
    for code in codes:
        ch = chr(code)
        x0, y0, x1, y1 = font.getbbox(ch, anchor="ls")
        w, h = max(x1 - x0, 0), max(y1 - y0, 0)
        cover = b""
        if w and h:
            im = Image.new("L", (w, h))
            im.im.paste(font.getmask(ch, "L", anchor="ls"), (0, 0, w, h))
            cover = bytes(round(v * fade.get(ch, 1)) for v in im.tobytes())
        records.append(struct.pack("<BBBbb", round(font.getlength(ch)), w, h, x0, -y1) + cover)
    start = 16 + 2 * len(codes) + 4 * len(codes) + 4       # a zero word ends the offsets
    offsets, at = [], start
    for rec in records:
        offsets.append(at)
        at += len(rec)
    head = struct.pack("<HHHHBBb5x", codes[0], codes[-1], max(len(r) - 5 for r in records), len(codes), 8,
                       ascent + descent, descent)
    name = f"{ttf[:-4]}-{size}.bin"
    with open(os.path.join(OUT, name), "wb") as f:
        f.write(head + struct.pack(f"<{len(codes)}H{len(codes)}I", *codes, *offsets) + b"\0\0\0\0" + b"".join(records))
    print(f"{name:16} line {ascent + descent}, {at // 1024} KiB")


if __name__ == "__main__":
    for key, value in FONTS.items():
        make(key, value)
    for px in (112, 56, 36, 26):
        bitmap("bench-num.ttf", px)
