#!/usr/bin/env python3
"""Draws the date and time widgets' compiled-in icons (mini clock title bar, calendar navigation), so every picture in
the tree is our own and can be made again."""
import math
import os
import sys

from pngwriter import write_scaled

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
RES = os.path.join(ROOT, "uicomponents", "resources")
SS = 4  # supersampling per axis


def seg_dist(px, py, ax, ay, bx, by):
    dx, dy = bx - ax, by - ay
    t = max(0.0, min(1.0, ((px - ax) * dx + (py - ay) * dy) / float(dx * dx + dy * dy)))
    return math.hypot(px - (ax + t * dx), py - (ay + t * dy))


def render(path, w, h, layers):
    """layers: list of (inside(x, y) -> bool, (r, g, b, a)) in 1x pixel units, painted in order with supersampling."""

    def at(scale):
        return lambda x, y: px(x, y, scale)

    def px(x, y, scale):
        acc = [0.0, 0.0, 0.0, 0.0]
        for sy in range(SS):
            for sx in range(SS):
                fx, fy = (x + (sx + 0.5) / SS) / scale, (y + (sy + 0.5) / SS) / scale
                colour = None
                for inside, rgba in layers:
                    if inside(fx, fy):
                        colour = rgba
                if colour:
                    a = colour[3] / 255.0
                    for i in range(3):
                        acc[i] += colour[i] * a
                    acc[3] += a
        n = SS * SS
        if acc[3] == 0:
            return (0, 0, 0, 0)
        return (int(acc[0] / acc[3]), int(acc[1] / acc[3]), int(acc[2] / acc[3]), int(255 * acc[3] / n))

    write_scaled(path, w, h, at)


def strokes(segments, width):
    return lambda x, y: any(seg_dist(x, y, *s) <= width / 2.0 for s in segments)


def clock_icon(path, rgb):
    c = 8.0
    ring = lambda x, y: 5.4 <= math.hypot(x - c, y - c) <= 6.9
    hands = strokes([(c, c, c, 4.2), (c, c, 10.8, c)], 1.5)
    render(path, 16, 16, [(ring, rgb + (255,)), (hands, rgb + (255,))])


def close_icon(path, rgb, backdrop):
    cross = strokes([(4.5, 4.5, 11.5, 11.5), (11.5, 4.5, 4.5, 11.5)], 1.6)
    layers = []
    if backdrop:
        layers.append((lambda x, y: math.hypot(x - 8, y - 8) <= 7.6, backdrop))
    layers.append((cross, rgb + (255,)))
    render(path, 16, 16, layers)


def triangle_down(path, w, h, rgb):
    # Apex at the bottom centre, base along the top.
    def inside(x, y):
        t = y / float(h)
        half = (w / 2.0) * (1.0 - t)
        return abs(x - w / 2.0) <= half

    render(path, w, h, [(inside, rgb + (255,))])


def chevrons(path, rgb, direction, double):
    """12 x 12 chevron(s) pointing left (-1) or right (+1)."""
    def chevron(cx):
        tip = cx + direction * 2.2
        back = cx - direction * 2.2
        return [(back, 2.5, tip, 6.0), (tip, 6.0, back, 9.5)]

    segs = chevron(4.0) + chevron(8.0) if double else chevron(6.0)
    render(path, 12, 12, [(strokes(segs, 1.5), rgb + (255,))])


CALENDAR_TINTS = {
    # folder: glyph colour
    "dark": (90, 98, 110),     # on light backgrounds
    "light": (215, 218, 224),  # on dark backgrounds
}


def main():
    white = (255, 255, 255)
    clock_icon(os.path.join(RES, "his_normal.png"), white)
    close_icon(os.path.join(RES, "tabClose", "tabCloseS.png"), white, None)
    close_icon(os.path.join(RES, "tabClose", "tabCloseH.png"), white, (255, 255, 255, 70))
    close_icon(os.path.join(RES, "tabClose", "tabCloseP.png"), white, (0, 0, 0, 90))
    triangle_down(os.path.join(RES, "arrow_down.png"), 8, 5, white)
    for folder, rgb in CALENDAR_TINTS.items():
        base = os.path.join(RES, "calendar", folder)
        chevrons(os.path.join(base, "prev_year.png"), rgb, -1, True)
        chevrons(os.path.join(base, "prev_month.png"), rgb, -1, False)
        chevrons(os.path.join(base, "next_month.png"), rgb, 1, False)
        chevrons(os.path.join(base, "next_year.png"), rgb, 1, True)
        triangle_down(os.path.join(base, "combo_down.png"), 8, 5, rgb)
    return 0


if __name__ == "__main__":
    sys.exit(main())
