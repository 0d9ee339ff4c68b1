"""Pictures for the tests of GIFs and image sequences: python3 make.py FOLDER.

GIFs of 40 x 30, each picture of one colour with a number of white bars on it: picture n has n bars.
"""
import sys
from pathlib import Path

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
    """Small pictures on a clear ground, each of which takes its own away again."""
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
    """One picture of slopes in every kind of PNG, and as a JPEG."""
    folder.mkdir(exist_ok=True)
    slope = Image.linear_gradient("L")
    slopes = Image.merge("RGBA", [slope.rotate(90 * n) for n in range(4)])
    for mode in ["L", "LA", "RGB", "RGBA"]:
        slopes.convert(mode).save(folder / f"{mode}.png")
    slopes.quantize().save(folder / "P.png")
    slopes.convert("RGB").save(folder / "RGB.jpg", quality=95)


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
    kinds(folder / "kinds")
    Image.new("1", (2048, 1)).save(folder / "wide.png")
    Image.new("L", (8, 2049)).save(folder / "high.jpg")
    Image.new("P", (2048, 2)).save(folder / "wide.gif")


if __name__ == "__main__":
    main(Path(sys.argv[1]))
