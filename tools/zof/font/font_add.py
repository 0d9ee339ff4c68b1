"""Makes a font with exactly the given letters and icons; `zof font add` runs it. Arguments: the font, the file to
write, the letters, the weight of a variable font or "", sizes "16,24" or "", the first free letter for icons
(hexadecimal), and for each icon font its path and "NAME,NAME", or "NAME=U+E000" for icons that have a letter already.
Prints JSON."""
import difflib
import json
import logging
import os
import sys

try:
    from fontTools.pens.boundsPen import BoundsPen
    from fontTools.pens.cu2quPen import Cu2QuPen
    from fontTools.pens.recordingPen import DecomposingRecordingPen
    from fontTools.pens.transformPen import TransformPen
    from fontTools.pens.ttGlyphPen import TTGlyphPen
    from fontTools.subset import Options, Subsetter
    from fontTools.ttLib import TTFont, TTLibError, newTable
    from fontTools.varLib.instancer import instantiateVariableFont
except ImportError:
    sys.exit(9)                         # the caller tries another Python


logging.disable()                       # what fontTools remarks about foreign fonts is of no use to the user


def fail(text):
    print(json.dumps({"error": text}))
    sys.exit(0)


def opened(path, weight=""):
    try:
        font = TTFont(path, fontNumber=0, lazy=False)
        font.getBestCmap()
    except OSError as e:
        fail(f"{path}: {e.strerror or e}")
    except (TTLibError, ImportError, AssertionError, KeyError, ValueError, EOFError) as e:
        fail(f"{path}: {e or 'not a font'}")
    if "fvar" in font:
        axes = {axis.axisTag: axis.defaultValue for axis in font["fvar"].axes}
        if weight and "wght" in axes:
            axes["wght"] = float(weight)
        font = instantiateVariableFont(font, axes)
    elif weight:
        fail(f"{path}: not a variable font, so it has no other weight")
    if not font.getBestCmap():
        fail(f"{path}: has no Unicode letters")
    return font


def outline(glyphs, name, matrix, limit):
    """Returns a glyph with quadratic outlines, transformed by `matrix`."""
    pen, whole = TTGlyphPen(None), DecomposingRecordingPen(glyphs)
    glyphs[name].draw(whole)
    cubic = any(step == "curveTo" for step, _ in whole.value)   # its converter refuses contours without a point on the
    to = Cu2QuPen(pen, limit, reverse_direction=False) if cubic else pen    # curve, which quadratic outlines may have
    whole.replay(TransformPen(to, matrix))
    return pen.glyph()


def subset(font, letters):
    options = Options()
    options.layout_features = ["kern"]
    options.hinting = False
    options.notdef_outline = True
    options.drop_tables += ["GSUB", "STAT", "DSIG", "meta", "SVG ", "COLR", "CPAL"]
    cutter = Subsetter(options)
    cutter.populate(unicodes=letters)
    cutter.subset(font)


def quadratic(font):
    """Converts cubic outlines to quadratic ones, because icons are added as such."""
    if "glyf" in font:
        return
    glyphs, order = font.getGlyphSet(), font.getGlyphOrder()
    limit = font["head"].unitsPerEm / 1000
    made = {name: outline(glyphs, name, (1, 0, 0, 1, 0, 0), limit) for name in order}
    font["glyf"] = table = newTable("glyf")
    table.glyphOrder, table.glyphs = order, made
    font["loca"] = newTable("loca")
    for name in order:
        made[name].recalcBounds(table)
        font["hmtx"][name] = (font["hmtx"][name][0], getattr(made[name], "xMin", 0))
    maxp = font["maxp"]
    maxp.tableVersion = 0x00010000
    for key in ("maxZones", "maxTwilightPoints", "maxStorage", "maxFunctionDefs", "maxInstructionDefs", "maxStackElements",
                "maxSizeOfInstructions", "maxComponentElements", "maxComponentDepth", "maxPoints", "maxContours",
                "maxCompositePoints", "maxCompositeContours"):
        setattr(maxp, key, 1 if key == "maxZones" else 0)
    font["post"].formatType = 3.0
    for tag in ("CFF ", "CFF2", "VORG"):
        if tag in font:
            del font[tag]
    font.sfntVersion = "\0\1\0\0"


def icon_add(font, source, name, letter):
    """Adds an icon, scaled to the em and centred on the height of the capital letters. Returns False if it is empty."""
    upm, head = font["head"].unitsPerEm, source["hhea"]
    scale = upm / source["head"].unitsPerEm
    cap = getattr(font["OS/2"], "sCapHeight", 0) or round(0.7 * upm)
    rise = round(cap / 2 - (head.ascent + head.descent) / 2 * scale)
    glyphs = source.getGlyphSet()
    bounds = BoundsPen(glyphs)
    glyphs[name].draw(bounds)
    if bounds.bounds is None:
        return False
    made = f"icon{letter:04X}"
    font.setGlyphOrder(font.getGlyphOrder() + [made])
    font["glyf"].glyphs[made] = glyph = outline(glyphs, name, (scale, 0, 0, scale, 0, rise), upm / 1000)
    glyph.recalcBounds(font["glyf"])
    font["glyf"].glyphOrder = font.getGlyphOrder()
    font["hmtx"][made] = (round(source["hmtx"][name][0] * scale), glyph.xMin)
    for table in font["cmap"].tables:
        if table.isUnicode():
            table.cmap[letter] = made
    return True


def icon_find(source, path, name):
    """Returns the glyph name, or fails with a message that suggests the nearest name."""
    order = source.getGlyphOrder()
    if name in order:
        return name
    near = difflib.get_close_matches(name, order, 1)
    fail(f"{path}: no icon {name}" + (f"; did you mean {near[0]}?" if near else ""))


def main(path, out, letters, weight, sizes, free, *icon_args):
    font = opened(path, weight)
    cmap = font.getBestCmap()
    missing = [ord(c) for c in letters if ord(c) not in cmap]
    subset(font, [ord(c) for c in letters if ord(c) in cmap])
    quadratic(font)
    free, icons = int(free, 16), {}
    for file, names in zip(icon_args[::2], icon_args[1::2]):
        source = opened(file)
        for entry in names.split(","):
            name, _, known = entry.partition("=")
            letter = int(known[2:], 16) if known else free
            free += not known
            try:
                added = icon_add(font, source, icon_find(source, file, name), letter)
            except Exception:
                fail(f"{file}: the outline of the icon {name} is damaged")
            if not added:
                fail(f"{file}: the icon {name} is empty")
            icons[name] = f"U+{letter:04X}"
    font.recalcTimestamp = False        # the same input must produce the same bytes
    font.flavor = None
    temporary = out + ".new"
    if os.path.lexists(temporary):      # it may be a link that leads elsewhere
        os.remove(temporary)
    font.save(temporary)
    os.replace(temporary, out)
    head, upm = font["hhea"], font["head"].unitsPerEm
    height = (head.ascent - head.descent + head.lineGap) / upm
    print(json.dumps({
        "letters": len(letters) - len(missing), "missing": missing, "icons": icons,
        "before": os.path.getsize(path), "after": os.path.getsize(out),
        "heights": {size: round(int(size) * height) for size in sizes.split(",") if size},
    }))


try:
    main(*sys.argv[1:])
except Exception as e:                   # a foreign font may be damaged in any way
    fail(f"{sys.argv[1]}: the font is damaged: {e or type(e).__name__}")
