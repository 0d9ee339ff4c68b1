#!/usr/bin/python3
"""Writes the icon of the programs for Windows, from a picture.   usage: icon.py PICTURE ICON      Needs: python3-pil"""
import sys
from PIL import Image

picture = Image.open(sys.argv[1])
side = max(picture.size)
square = Image.new("RGBA", (side, side), (0, 0, 0, 0))
square.paste(picture, ((side - picture.width) // 2, (side - picture.height) // 2))
square.resize((256, 256), Image.LANCZOS).save(sys.argv[2], sizes=[(16, 16), (32, 32), (48, 48), (256, 256)])
