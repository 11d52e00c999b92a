#!/usr/bin/env python3
"""Draws the dialogs' small images (close and minimise glyphs, a check mark, the file dialog's shadow frame) into
uicomponents/resources/images/, so every picture in the tree is our own and can be made again."""
import os
import sys

from pngwriter import write_scaled

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUT = os.path.join(ROOT, "uicomponents", "resources", "images")


def segment_distance(px, py, ax, ay, bx, by):
    dx, dy = bx - ax, by - ay
    t = ((px - ax) * dx + (py - ay) * dy) / float(dx * dx + dy * dy)
    t = max(0.0, min(1.0, t))
    cx, cy = ax + t * dx, ay + t * dy
    return ((px - cx) ** 2 + (py - cy) ** 2) ** 0.5


def glyph(path, size, segments, rgb, half_width=0.75):
    """Antialiased strokes: each segment is (ax, ay, bx, by) in pixel units of the 1x image."""

    def at(scale):
        def px(x, y):
            cx, cy = (x + 0.5) / scale, (y + 0.5) / scale
            d = min(segment_distance(cx, cy, *s) for s in segments) * scale
            coverage = max(0.0, min(1.0, half_width * scale + 0.5 - d))
            return rgb + (int(round(255 * coverage)),)
        return px

    write_scaled(path, size, size, at)


def cross(size, inset):
    lo, hi = inset, size - inset
    return [(lo, lo, hi, hi), (lo, hi, hi, lo)]


COLOURS = {
    "gray": (138, 143, 153),
    "blue": (0, 96, 227),
    "white": (255, 255, 255),
    "chocolate": (210, 105, 30),
}


def nine_slice_shadow(path, border, strength):
    """A frame of soft shadow for a style sheet's border-image: BORDER pixels wide, clear inside."""
    size = 2 * border + 8

    def at(scale):
        def px(x, y):
            cx, cy = (x + 0.5) / scale, (y + 0.5) / scale
            dx = max(border - cx, 0.0, cx - (size - border))
            dy = max(border - cy, 0.0, cy - (size - border))
            d = (dx * dx + dy * dy) ** 0.5
            if d == 0.0:
                return (0, 0, 0, 0)
            t = max(0.0, 1.0 - d / border)
            return (0, 0, 0, int(strength * t * t))
        return px

    write_scaled(path, size, size, at)


def main():
    for name, rgb in COLOURS.items():
        # The message box's 14 x 14 close button.
        glyph(os.path.join(OUT, "dialog_close_%s.png" % name), 14, cross(14, 3.5), rgb)
    # The file dialog's 23 x 23 title-bar buttons (white on the coloured bar).
    glyph(os.path.join(OUT, "dialog_title_close.png"), 23, cross(23, 6.5), COLOURS["white"], 0.8)
    glyph(os.path.join(OUT, "dialog_title_min.png"), 23, [(6.5, 12.0, 16.5, 12.0)], COLOURS["white"], 0.8)
    # Check mark for the check box indicator of the darker skins.
    glyph(os.path.join(OUT, "dialog_check_white.png"), 13, [(3.0, 6.5, 5.5, 9.0), (5.5, 9.0, 10.0, 4.0)],
          COLOURS["white"], 0.8)
    # Drop-down arrows of the file dialog's combo boxes, one per skin's text colour.
    for name, rgb in (("light", (92, 99, 112)), ("dark", (174, 179, 188)), ("black", (184, 176, 166))):
        glyph(os.path.join(OUT, "dialog_arrow_down_%s.png" % name), 10, [(2.0, 3.5, 5.0, 6.5), (5.0, 6.5, 8.0, 3.5)],
              rgb, 0.7)
    # The file dialog's drop shadow, in its 8-pixel margin: lighter for the light skin.
    nine_slice_shadow(os.path.join(OUT, "dialog_shadow_light.png"), 8, 70)
    nine_slice_shadow(os.path.join(OUT, "dialog_shadow_dark.png"), 8, 160)
    return 0


if __name__ == "__main__":
    sys.exit(main())
