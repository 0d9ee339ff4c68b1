#!/usr/bin/python3
"""Checks that two pictures are the same to the pixel.   usage: compare.py PICTURE PICTURE      Needs: python3-pil"""
import sys
from PIL import Image, ImageChops

one, other = (Image.open(name).convert("RGB") for name in sys.argv[1:])
different = ImageChops.difference(one, other).getbbox() if one.size == other.size else (0, 0, *other.size)
if different:
    sys.exit(f"{sys.argv[1]} and {sys.argv[2]} differ in {different}")
