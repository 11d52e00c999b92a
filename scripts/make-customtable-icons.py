#!/usr/bin/env python3
"""Draws the column settings dialog's check-box, move and close-button icons and the table's settings button, into the library's compiled-in resources
(blue accent) and into the dark (blue on dark) and black (chocolate accent) skins. Run it again after changing a colour. """
import os
import sys

from pngwriter import write_scaled

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SIZE = 16
SUB = 4  # supersampling per axis, for smooth edges


def covered(inside):
    """Fraction of the pixel (x, y, scale) for which inside(fx, fy) holds; fx, fy in 1x pixel units."""
    def cov(x, y, scale):
        hits = 0
        for sy in range(SUB):
            for sx in range(SUB):
                if inside((x + (sx + 0.5) / SUB) / scale, (y + (sy + 0.5) / SUB) / scale):
                    hits += 1
        return hits / (SUB * SUB)
    return cov


def rounded_box(x0, y0, x1, y1, r):
    def inside(fx, fy):
        if not (x0 <= fx <= x1 and y0 <= fy <= y1):
            return False
        cx = min(max(fx, x0 + r), x1 - r)
        cy = min(max(fy, y0 + r), y1 - r)
        return (fx - cx) ** 2 + (fy - cy) ** 2 <= r * r
    return inside


def segment(ax, ay, bx, by, half_width):
    def inside(fx, fy):
        dx, dy = bx - ax, by - ay
        t = max(0.0, min(1.0, ((fx - ax) * dx + (fy - ay) * dy) / (dx * dx + dy * dy)))
        px, py = ax + t * dx, ay + t * dy
        return (fx - px) ** 2 + (fy - py) ** 2 <= half_width ** 2
    return inside


def union(*shapes):
    return lambda fx, fy: any(s(fx, fy) for s in shapes)


def layers(*pairs):
    """pairs of (rgb, coverage function), painted bottom to top; returns pixel functions by scale."""
    def px(x, y, scale):
        r = g = b = a = 0.0
        for rgb, cov in pairs:
            c = cov(x, y, scale)
            if c <= 0:
                continue
            na = c + a * (1 - c)
            r = (rgb[0] * c + r * a * (1 - c)) / na
            g = (rgb[1] * c + g * a * (1 - c)) / na
            b = (rgb[2] * c + b * a * (1 - c)) / na
            a = na
        return (int(round(r)), int(round(g)), int(round(b)), int(round(a * 255)))
    return lambda scale: (lambda x, y: px(x, y, scale))


OUTER = rounded_box(1.0, 1.0, 15.0, 15.0, 2.5)
INNER = rounded_box(2.0, 2.0, 14.0, 14.0, 1.5)
TICK = union(segment(4.5, 8.2, 7.0, 10.8, 1.0), segment(7.0, 10.8, 11.6, 5.2, 1.0))


def checkbox_unchecked(path, frame, fill):
    ring = covered(lambda fx, fy: OUTER(fx, fy) and not INNER(fx, fy))
    inner = covered(INNER)
    write_scaled(path, SIZE, SIZE, layers((fill, inner), (frame, ring)))


def checkbox_checked(path, accent):
    write_scaled(path, SIZE, SIZE, layers((accent, covered(OUTER)), ((255, 255, 255), covered(TICK))))


CROSS = union(segment(4.5, 4.5, 11.5, 11.5, 0.8), segment(11.5, 4.5, 4.5, 11.5, 0.8))
PLATE = rounded_box(0.5, 0.5, 15.5, 15.5, 2.0)


def close_icon(path, cross, plate=None):
    pairs = []
    if plate:
        pairs.append((plate, covered(PLATE)))
    pairs.append((cross, covered(CROSS)))
    write_scaled(path, SIZE, SIZE, layers(*pairs))


CHEVRON_UP = union(segment(3.5, 10.5, 8.0, 6.0, 0.9), segment(8.0, 6.0, 12.5, 10.5, 0.9))
CHEVRON_DOWN = union(segment(3.5, 5.5, 8.0, 10.0, 0.9), segment(8.0, 10.0, 12.5, 5.5, 0.9))
TO_TOP = union(segment(3.5, 3.5, 12.5, 3.5, 0.9), segment(3.5, 12.0, 8.0, 7.5, 0.9), segment(8.0, 7.5, 12.5, 12.0, 0.9))


def arrows(folder, colour):
    for name, shape in (("settingdlg_top", TO_TOP), ("settingdlg_up", CHEVRON_UP), ("settingdlg_down", CHEVRON_DOWN)):
        write_scaled(os.path.join(folder, name + ".png"), SIZE, SIZE, layers((colour, covered(shape))))


def gear(fx, fy):
    import math
    dx, dy = fx - 8.0, fy - 8.0
    r = math.hypot(dx, dy)
    angle = math.atan2(dy, dx)
    # Eight teeth: the rim is 7 px out on a tooth and 5.2 px between them.
    tooth = math.cos(angle * 8) > 0.3
    return 2.4 <= r <= (7.0 if tooth else 5.2)


def settings_button(folder, colour, hover):
    write_scaled(os.path.join(folder, "table_setting.png"), SIZE, SIZE, layers((colour, covered(gear))))
    write_scaled(os.path.join(folder, "table_setting_hover.png"), SIZE, SIZE, layers((hover, covered(gear))))


SETS = {
    # folder: (accent, accent when hovered, unchecked frame, its hover frame, unchecked fill)
    os.path.join(ROOT, "uicomponents", "resources", "images"):
        ((0, 96, 227), (42, 124, 240), (138, 144, 153), (0, 96, 227), (255, 255, 255)),
    os.path.join(ROOT, "skins", "dark", "images"):
        ((64, 140, 255), (98, 160, 255), (125, 131, 144), (64, 140, 255), (38, 42, 51)),
    os.path.join(ROOT, "skins", "black", "images"):
        ((210, 105, 30), (232, 134, 62), (120, 110, 100), (210, 105, 30), (20, 20, 20)),
}


def main():
    for folder, (accent, accent_hover, frame, frame_hover, fill) in SETS.items():
        checkbox_checked(os.path.join(folder, "checkbox_checked.png"), accent)
        checkbox_checked(os.path.join(folder, "checkbox_checked_hover.png"), accent_hover)
        checkbox_unchecked(os.path.join(folder, "checkbox_unchecked.png"), frame, fill)
        checkbox_unchecked(os.path.join(folder, "checkbox_unchecked_hover.png"), frame_hover, fill)
        arrows(folder, frame)
        settings_button(folder, frame, accent)
    images = os.path.join(ROOT, "uicomponents", "resources", "images")
    close_icon(os.path.join(images, "close_noraml.png"), (138, 144, 153))
    close_icon(os.path.join(images, "close_hover.png"), (255, 255, 255), (232, 17, 35))
    close_icon(os.path.join(images, "close_press.png"), (255, 255, 255), (181, 15, 30))
    return 0


if __name__ == "__main__":
    sys.exit(main())
