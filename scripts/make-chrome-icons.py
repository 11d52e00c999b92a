#!/usr/bin/env python3
"""Draws the chrome tests' stand-in shadow pieces: small opaque squares, one plain colour per piece, so a test can tell
from a pixel which piece covers it. The high-DPI suite's copies add an "@2x" sibling in the inverted colour, so a
pixel also tells which of the two files was drawn."""
import os

from pngwriter import write_png

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUT = os.path.join(ROOT, "tests", "chrome", "bg")
HIDPI_OUT = os.path.join(ROOT, "tests", "hidpi", "bg")

PIECES = {
    "shadow_top_left": (255, 0, 0),
    "shadow_left": (0, 255, 0),
    "shadow_bottom_left": (0, 0, 255),
    "shadow_top": (255, 255, 0),
    "shadow_bottom": (0, 255, 255),
    "shadow_right": (255, 0, 255),
    "shadow_top_right": (128, 0, 0),
    "shadow_bottom_right": (0, 128, 0),
}

for name, rgb in PIECES.items():
    write_png(os.path.join(OUT, name + ".png"), 4, 4, lambda x, y, c=rgb: c + (255,))
    write_png(os.path.join(HIDPI_OUT, name + ".png"), 4, 4, lambda x, y, c=rgb: c + (255,))
    write_png(os.path.join(HIDPI_OUT, name + "@2x.png"), 8, 8, lambda x, y, c=rgb: tuple(255 - v for v in c) + (255,))
