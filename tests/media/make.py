"""Pictures and fonts for the tests: python3 make.py FOLDER.

GIFs of 40 x 30, each picture of one colour with a number of white bars on it: picture n has n bars.
"""
import struct
import sys
from pathlib import Path

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen
from PIL import Image, ImageDraw

COLORS = ["#c03030", "#30a030", "#3050d0", "#b08020"]


def picture(number, size=(40, 30), mode="P"):
    image = Image.new("RGB", size, COLORS[(number - 1) % 4])
    draw = ImageDraw.Draw(image)
    for i in range(number):
        draw.rectangle([4 + 8 * i, 5, 8 + 8 * i, size[1] - 6], fill="white")
    return image.convert("P", palette=Image.Palette.ADAPTIVE, colors=8) if mode == "P" else image


def gif(path, count, **keys):
    first, *rest = [picture(n) for n in range(1, count + 1)]
    first.save(path, save_all=True, append_images=rest, duration=100, **keys)


def spots(path):
    """Small pictures on a transparent background, each cleared before the next."""
    frames = []
    for n in range(4):
        image = Image.new("RGBA", (40, 30), (0, 0, 0, 0))
        ImageDraw.Draw(image).ellipse([2 + 8 * n, 6, 14 + 8 * n, 18], fill=COLORS[n])
        frames.append(image)
    frames[0].save(path, save_all=True, append_images=frames[1:], duration=100, loop=0, disposal=2)


def series(folder, numbers, suffix):
    folder.mkdir(parents=True, exist_ok=True)
    for n in numbers:
        picture(n or 4, mode="RGB").save(folder / f"{n}.{suffix}", **({"quality": 95} if suffix == "jpg" else {}))


def kinds(folder):
    """A picture of gradients in every kind of PNG, and as a JPEG."""
    folder.mkdir(exist_ok=True)
    slope = Image.linear_gradient("L")
    slopes = Image.merge("RGBA", [slope.rotate(90 * n) for n in range(4)])
    for mode in ["L", "LA", "RGB", "RGBA"]:
        slopes.convert(mode).save(folder / f"{mode}.png")
    slopes.quantize().save(folder / "P.png")
    slopes.convert("RGB").save(folder / "RGB.jpg", quality=95)


def scans(path, side, count):
    """A progressive JPEG whose last scan is repeated many times."""
    Image.linear_gradient("L").resize((side, side)).save(path, quality=95, progressive=True)
    data = path.read_bytes()
    last = data.rindex(b"\xff\xda")
    path.write_bytes(data[:last] + data[last:-2] * count + data[-2:])


def outline(points):
    pen = TTGlyphPen(None)
    if points:
        pen.moveTo(points[0])
        for point in points[1:]:
            pen.lineTo(point)
        pen.closePath()
    return pen.glyph()


def font(path, glyphs, depth=1):
    """A TrueType font; the glyph of "A" is the last one, and "B" is a square."""
    square = outline([(100, 0), (100, 800), (900, 800), (900, 0)])
    glyphs = {".notdef": outline([]), "square": square, **glyphs}
    build = FontBuilder(1000)
    build.font.recalcBBoxes = False  # this would take forever for deep fonts
    build.setupGlyphOrder(list(glyphs))
    build.setupCharacterMap({ord("A"): list(glyphs)[-1], ord("B"): "square"})
    for glyph in glyphs.values():
        if glyph.isComposite():
            glyph.xMin = glyph.yMin = glyph.xMax = glyph.yMax = 0
        else:
            glyph.recalcBounds(None)
    build.setupGlyf(glyphs, calcGlyphBounds=False)
    build.setupHorizontalMetrics({name: (1000, 0) for name in glyphs})
    build.setupHorizontalHeader(ascent=800, descent=-200)
    build.setupOS2()
    build.setupPost(keepGlyphNames=False)
    build.font["maxp"].maxComponentDepth = depth
    build.save(path)


def composite(base, count):
    pen = TTGlyphPen({base: None})
    for _ in range(count):
        pen.addComponent(base, (1, 0, 0, 1, 0, 0))
    return pen.glyph()


def costly_fonts(folder):
    """Fonts that would take seconds to open or per letter, each in a different way; and a good one built the same
    way."""
    folder.mkdir(exist_ok=True)
    font(folder / "good.ttf", {"A": outline([(0, 0), (500, 800), (1000, 0)])})
    levels = {"level0": outline([])}
    for n in range(1, 7):
        levels[f"level{n}"] = composite(f"level{n - 1}", 60)
    font(folder / "deep.ttf", levels, 9)
    font(folder / "dense.ttf", {"A": outline([(n // 30, n % 2 * 1000) for n in range(30000)])})
    font(folder / "huge.ttf", {"A": outline([(-16000, -16000), (0, 16000), (16000, -16000)])})
    good = (folder / "good.ttf").read_bytes()
    count = struct.unpack(">H", good[4:6])[0]
    more = 60000
    entries = [struct.unpack(">4s3L", good[12 + 16 * n:28 + 16 * n]) for n in range(count)]
    entries = [struct.pack(">4s3L", tag, checksum, offset + 16 * more, size) for tag, checksum, offset, size in entries]
    fill = [struct.pack(">4L", 0x01010101 + n, 0, 0, 0) for n in range(more)]
    (folder / "tables.ttf").write_bytes(good[:4] + struct.pack(">H", count + more) + good[6:12] +
                                        b"".join(fill + entries) + good[12 + 16 * count:])


def main(folder):
    folder.mkdir(parents=True, exist_ok=True)
    gif(folder / "ever.gif", 3, loop=0)
    gif(folder / "twice.gif", 3, loop=2)
    gif(folder / "plain.gif", 3)
    gif(folder / "still.gif", 1)
    spots(folder / "spots.gif")
    series(folder / "png", [0, 1, 2, 3], "png")
    series(folder / "jpg", [1, 2, 3], "jpg")
    series(folder / "mixed", [1, 3], "png")
    series(folder / "mixed", [2], "jpg")
    costly_fonts(folder / "fonts")
    scans(folder / "few_scans.jpg", 256, 60)
    scans(folder / "many_scans.jpg", 256, 5000)
    scans(folder / "large_scans.jpg", 2000, 30)
    kinds(folder / "kinds")
    Image.new("1", (2048, 1)).save(folder / "wide.png")
    Image.new("L", (8, 2049)).save(folder / "high.jpg")
    Image.new("P", (2048, 2)).save(folder / "wide.gif")


if __name__ == "__main__":
    main(Path(sys.argv[1]))
