#!/usr/bin/env python3
"""Draws the Designer widget-box icons (22 x 22, transparent, and 44 x 44 @2x siblings for high-DPI screens) into
designer/icons/, one per widget class."""
import math
import os

from pngwriter import write_png

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUT = os.path.join(ROOT, "designer", "icons")
SIZE = 22

BLUE = (0, 150, 255, 255)
DARK = (60, 70, 85, 255)
GREY = (190, 195, 205, 255)
WHITE = (255, 255, 255, 255)
RED = (255, 67, 67, 255)
GREEN = (0, 170, 80, 255)
SHADOW = (0, 0, 0, 70)


class Canvas:
    """Coordinates are in 22 x 22 icon units; scale 2 draws the same shapes on 44 x 44 pixels."""

    def __init__(self, scale=1):
        self.s = scale
        self.n = SIZE * scale
        self.px = [[(0, 0, 0, 0)] * self.n for _ in range(self.n)]

    def set(self, x, y, c):
        for j in range(y * self.s, (y + 1) * self.s):
            for i in range(x * self.s, (x + 1) * self.s):
                if 0 <= i < self.n and 0 <= j < self.n:
                    self.px[j][i] = c

    def fill(self, x, y, w, h, c):
        for j in range(y, y + h):
            for i in range(x, x + w):
                self.set(i, j, c)

    def frame(self, x, y, w, h, c):
        self.fill(x, y, w, 1, c)
        self.fill(x, y + h - 1, w, 1, c)
        self.fill(x, y, 1, h, c)
        self.fill(x + w - 1, y, 1, h, c)

    def box(self, x, y, w, h, border=DARK, inside=WHITE):
        self.fill(x, y, w, h, inside)
        self.frame(x, y, w, h, border)

    def ring(self, cx, cy, r, c, width=1.0):
        s = self.s
        for j in range(self.n):
            for i in range(self.n):
                if abs(math.hypot(i + 0.5 - cx * s, j + 0.5 - cy * s) - r * s) <= width * s / 2:
                    self.px[j][i] = c

    def line(self, x0, y0, x1, y1, c):
        s = self.s
        steps = max(abs(x1 - x0), abs(y1 - y0), 1) * s
        for k in range(steps + 1):
            x = (x0 + (x1 - x0) * k / steps) * s
            y = (y0 + (y1 - y0) * k / steps) * s
            for j in range(s):
                for i in range(s):
                    xi, yj = round(x) + i, round(y) + j
                    if 0 <= xi < self.n and 0 <= yj < self.n:
                        self.px[yj][xi] = c

    def save(self, name):
        suffix = "" if self.s == 1 else "@%dx" % self.s
        write_png(os.path.join(OUT, name + suffix + ".png"), self.n, self.n, lambda x, y: self.px[y][x])


def table(c):
    c.box(1, 3, 20, 16)
    c.fill(2, 4, 18, 3, BLUE)
    for y in (9, 12, 15):
        c.fill(2, y, 18, 1, GREY)
    c.fill(7, 4, 1, 14, GREY)
    c.fill(8, 10, 5, 1, RED)
    c.fill(8, 13, 5, 1, GREEN)


def calendar(c):
    c.box(2, 3, 18, 17)
    c.fill(3, 4, 16, 4, BLUE)
    for j in range(3):
        for i in range(4):
            c.fill(4 + i * 4, 10 + j * 3, 2, 2, RED if (i, j) == (2, 1) else DARK)


def line_edit(c, y=6):
    c.box(1, y, 20, 10)
    c.fill(3, y + 3, 1, 4, DARK)


def calendar_edit(c):
    line_edit(c)
    c.box(13, 8, 6, 6, BLUE, WHITE)
    c.fill(13, 8, 6, 2, BLUE)


def date_time_edit(c):
    line_edit(c)
    c.fill(5, 10, 2, 2, DARK)
    c.fill(8, 10, 2, 2, DARK)
    c.line(14, 10, 16, 12, BLUE)
    c.line(16, 12, 18, 10, BLUE)


def clock(c):
    c.ring(11, 11, 8.5, DARK, 1.6)
    c.line(11, 11, 11, 5, DARK)
    c.line(11, 11, 15, 13, BLUE)


def keyboard_edit(c):
    line_edit(c, 2)
    c.box(3, 12, 16, 8, GREY, WHITE)
    c.fill(4, 14, 14, 1, BLUE)
    c.fill(4, 17, 10, 1, GREY)


def search_edit(c):
    line_edit(c)
    c.ring(15, 10, 2.5, BLUE, 1.2)
    c.line(17, 12, 19, 14, BLUE)


def ticker(c):
    c.box(1, 6, 20, 10, GREY)
    c.fill(3, 10, 9, 2, DARK)
    c.line(15, 8, 18, 11, BLUE)
    c.line(18, 11, 15, 14, BLUE)


def indent_label(c):
    c.fill(7, 5, 13, 2, DARK)
    for y in (10, 15):
        c.fill(2, y, 18, 2, DARK)


def tool_button(c):
    c.box(1, 5, 20, 12, DARK, (235, 240, 248, 255))
    c.fill(4, 9, 8, 2, DARK)
    c.fill(4, 12, 6, 1, GREY)
    c.fill(14, 6, 1, 10, GREY)
    c.fill(16, 10, 3, 1, DARK)
    c.fill(17, 11, 1, 1, DARK)


def stack(c):
    c.box(7, 2, 13, 11, GREY)
    c.box(4, 5, 13, 11, GREY)
    c.box(1, 8, 13, 11, DARK)
    c.line(16, 17, 20, 17, BLUE)
    c.line(18, 15, 20, 17, BLUE)
    c.line(18, 19, 20, 17, BLUE)


def shadow_frame(c):
    c.fill(4, 4, 17, 17, SHADOW)
    c.fill(3, 3, 17, 17, SHADOW)
    c.box(1, 1, 17, 17, DARK)


def scroll_area(c):
    c.box(1, 1, 20, 20)
    c.fill(16, 2, 4, 18, (235, 240, 248, 255))
    c.fill(17, 5, 2, 7, BLUE)
    for y in (5, 9, 13):
        c.fill(4, y, 9, 2, GREY)


ICONS = {
    "uxcustomtablewidget": table,
    "uxcalendartimewidget": calendar,
    "uxcalendartimeedit": calendar_edit,
    "uxdatetimeedit": date_time_edit,
    "uxminiclockpannel": clock,
    "uxkeyboradlineedit": keyboard_edit,
    "uxnewsearchlineedit": search_edit,
    "uxlooplabels": ticker,
    "uxnewindentlabel": indent_label,
    "uxcustomtoolbutton": tool_button,
    "uxanimationstackedwidget": stack,
    "uxbaseshadowwidget": shadow_frame,
    "uxscrollarea": scroll_area,
}

for name, draw in ICONS.items():
    for scale in (1, 2):
        canvas = Canvas(scale)
        draw(canvas)
        canvas.save(name)
