#!/usr/bin/env python3
"""Draws the skins' images (shadow frame pieces, the calendar icon), so every picture in the tree is our own and can be
made again. """
import os
import sys

from pngwriter import write_scaled

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def shadow_alpha(d, size, strength):
    """d: distance from the panel edge outwards (0..size)."""
    t = max(0.0, 1.0 - d / size)
    return int(strength * t ** 1.5)


def one_x(v, scale):
    """Device pixel v of an image drawn at scale, in the 1x image's pixel coordinates (identity at scale 1)."""
    return (v + 0.5) / scale - 0.5


def shadows(folder, rgb, strength, size=10):
    def edge(dist):
        return lambda scale: (lambda x, y: rgb + (shadow_alpha(dist(one_x(x, scale), one_x(y, scale)), size, strength),))

    s = size
    pieces = {
        "shadow_top_left": (s, s, lambda x, y: ((s - x) ** 2 + (s - y) ** 2) ** 0.5),
        "shadow_top_right": (s, s, lambda x, y: ((x + 1) ** 2 + (s - y) ** 2) ** 0.5),
        "shadow_bottom_left": (s, s, lambda x, y: ((s - x) ** 2 + (y + 1) ** 2) ** 0.5),
        "shadow_bottom_right": (s, s, lambda x, y: ((x + 1) ** 2 + (y + 1) ** 2) ** 0.5),
        "shadow_top": (1, s, lambda x, y: s - y),
        "shadow_bottom": (1, s, lambda x, y: y + 1),
        "shadow_left": (s, 1, lambda x, y: s - x),
        "shadow_right": (s, 1, lambda x, y: x + 1),
    }
    for name, (w, h, dist) in pieces.items():
        write_scaled(os.path.join(folder, "bg", name + ".png"), w, h, edge(dist))


def calendar_icon(path, frame, accent):
    def px(x, y):
        if 1 <= x <= 14 and 2 <= y <= 14:
            if y <= 5:
                return accent + (255,)
            if x in (1, 14) or y == 14:
                return frame + (255,)
            if (x - 2) % 3 == 1 and (y - 7) % 3 == 0 and y < 14:
                return frame + (255,)
            return (0, 0, 0, 0)
        if y in (0, 1) and x in (4, 11):
            return frame + (255,)
        return (0, 0, 0, 0)

    # Pixel art: the 2x image repeats each pixel as a 2 x 2 block, sharp at any whole scale.
    write_scaled(path, 16, 16, lambda scale: (lambda x, y: px(x // scale, y // scale)))


SKINS = {
    # id: (shadow colour, shadow strength, icon frame, icon accent)
    "light": ((0, 0, 0), 130, (90, 98, 110), (0, 96, 227)),
    "dark": ((0, 0, 0), 140, (200, 205, 212), (64, 140, 255)),
    "black": ((0, 0, 0), 180, (210, 180, 120), (210, 105, 30)),
}


def main():
    for skin, (rgb, strength, frame, accent) in SKINS.items():
        folder = os.path.join(ROOT, "skins", skin)
        shadows(folder, rgb, strength)
        calendar_icon(os.path.join(folder, "subject_date.png"), frame, accent)
    return 0


if __name__ == "__main__":
    sys.exit(main())
