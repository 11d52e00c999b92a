#!/usr/bin/env python3
"""Draws the skins' images (shadow frame pieces, the calendar icon), so every picture in the tree is our own and can be
made again. """
import os
import sys

from pngwriter import write_png

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def shadow_alpha(d, size, strength):
    """d: distance from the panel edge outwards (0..size)."""
    t = max(0.0, 1.0 - d / size)
    return int(strength * t ** 1.5)


def shadows(folder, rgb, strength, size=10):
    def edge(dist):
        return lambda x, y: rgb + (shadow_alpha(dist(x, y), size, strength),)

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
        write_png(os.path.join(folder, "bg", name + ".png"), w, h, edge(dist))


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

    write_png(path, 16, 16, px)


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
