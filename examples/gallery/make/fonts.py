#!/usr/bin/python3
"""Makes the gallery's font: one weight of a Latin family plus the Chinese characters used in the texts.

usage: fonts.py OUTPUT_FOLDER        Needs: apt install fonts-inter-variable fonts-wqy-microhei python3-fonttools
"""
import os
import shutil
import sys
from fontTools.pens.boundsPen import BoundsPen
from fontTools.pens.recordingPen import DecomposingRecordingPen
from fontTools.pens.transformPen import TransformPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.subset import Options, Subsetter
from fontTools.ttLib import TTCollection, TTFont
from fontTools.varLib.instancer import instantiateVariableFont
import gallery

LATIN = "/usr/share/fonts/truetype/inter/Inter-roman.var.ttf"
CHINESE = "/usr/share/fonts/truetype/wqy/wqy-microhei.ttc"
SIGNS = "–—‘’“”„•…‹›€−✓●○→←·"


def make(out):
    os.makedirs(os.path.join(out, "font"), exist_ok=True)
    shutil.copyfile(find(CHINESE), os.path.join(out, "font", "cn.ttf"))     # whole, for the Pinyin candidates
    gallery.views()
    want = sorted({c for text in gallery.languages["zh"].values() for c in text if ord(c) > 0x2FFF} | set("中文名字"))
    font = instantiateVariableFont(TTFont(find(LATIN)), {"wght": 500}, inplace=False)
    opt = Options()
    opt.layout_features = []
    opt.hinting = False
    opt.notdef_outline = True
    sub = Subsetter(opt)
    sub.populate(text="".join(map(chr, list(range(0x20, 0x7F)) + list(range(0xA0, 0x180)))) + SIGNS)
    sub.subset(font)
    source = TTCollection(find(CHINESE)).fonts[0]
    scale = font["head"].unitsPerEm / source["head"].unitsPerEm
    names = source.getBestCmap()
    glyphs = source.getGlyphSet()
    for ch in want:
        pen, whole = TTGlyphPen(None), DecomposingRecordingPen(glyphs)
        glyphs[names[ord(ch)]].draw(whole)
        whole.replay(TransformPen(pen, (scale, 0, 0, scale, 0, 0)))
        name = f"uni{ord(ch):04X}"
        font.setGlyphOrder(font.getGlyphOrder() + [name])
        font["glyf"].glyphs[name] = pen.glyph()
        font["glyf"][name].recalcBounds(font["glyf"])
        bounds = BoundsPen(glyphs)
        glyphs[names[ord(ch)]].draw(bounds)
        font["hmtx"][name] = (round(source["hmtx"][names[ord(ch)]][0] * scale), round((bounds.bounds or (0,))[0] * scale))
        for table in font["cmap"].tables:
            if table.isUnicode():
                table.cmap[ord(ch)] = name
    font["glyf"].glyphOrder = font.getGlyphOrder()
    for rec in font["name"].names:
        rec.string = {1: "Gallery", 2: "Regular", 4: "Gallery", 6: "Gallery", 3: "Gallery"}.get(rec.nameID, rec.toUnicode())
    font.recalcTimestamp = False        # reproducible output
    font.save(os.path.join(out, "font", "gallery.ttf"))


def find(path):
    """Returns the path of the font, or of a file with the same name elsewhere in the system's font folders."""
    if os.path.exists(path):
        return path
    for folder, _, files in os.walk("/usr/share/fonts"):
        if os.path.basename(path) in files:
            return os.path.join(folder, os.path.basename(path))
    raise SystemExit(f"{os.path.basename(path)} is not installed; see the first lines of this file")


if __name__ == "__main__":
    make(sys.argv[1])
