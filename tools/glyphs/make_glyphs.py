#!/usr/bin/env python3
"""Draws the palette glyphs of dclJEXC and writes them as a C++ source that adds them to the package's
resource table.

Every glyph is a 24x24 bitmap in the classic 16-colour palette, named by its component class in upper
case, drawn by code from a few shape primitives (boxes, bevels, lines, triangles, circles, a small pixel
font) into a picture of what the component is. The bottom-left pixel is the background colour, which
the palette and the hint window treat as transparent.

    make_glyphs.py --cpp OUT.cpp [--bmp-dir DIR] [--preview SHEET.png]

--bmp-dir writes every glyph as a .bmp file too; --preview writes one enlarged contact sheet to look at.
Standard library only.
"""

import os
import sys

# The drawing kit beside this script; no bytecode cache is left in the source tree.
sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from glyphlib import (AQUA, BG, BLUE, FUCHSIA, GRAY, GREEN, K, LIME, MAROON, NAVY, PURPLE,  # noqa: E402
                      RED, SILVER, TEAL, WHITE, YELLOW, Glyph, run_generator)

SIZE = 24

# A large "A" (7x9) for labels.
BIG_A = ["..###..", ".##.##.", "##...##", "##...##", "#######", "##...##", "##...##", "##...##", "##...##"]


class PaletteGlyph(Glyph):
    """A 24x24 palette glyph with the building blocks the component pictures are made of."""

    def __init__(self):
        super().__init__(SIZE, SIZE)

    # ---- building blocks ----
    def raised(self, x0, y0, x1, y1, face=SILVER, dark=True):
        self.fill(x0, y0, x1, y1, face)
        self.hline(x0, x1, y0, WHITE)
        self.vline(x0, y0, y1, WHITE)
        self.hline(x0 + 1, x1, y1, K if dark else GRAY)
        self.vline(x1, y0 + 1, y1, K if dark else GRAY)
        if dark and x1 - x0 > 3 and y1 - y0 > 3:
            self.hline(x0 + 1, x1 - 1, y1 - 1, GRAY)
            self.vline(x1 - 1, y0 + 1, y1 - 1, GRAY)

    def sunken(self, x0, y0, x1, y1, face=WHITE):
        self.fill(x0, y0, x1, y1, face)
        self.hline(x0, x1, y0, GRAY)
        self.vline(x0, y0, y1, GRAY)
        self.hline(x0, x1, y1, WHITE)
        self.vline(x1, y0, y1, WHITE)
        if x1 - x0 > 3 and y1 - y0 > 3:
            self.hline(x0 + 1, x1 - 1, y0 + 1, K)
            self.vline(x0 + 1, y0 + 1, y1 - 1, K)

    def window(self, x0, y0, x1, y1, caption=NAVY, face=SILVER):
        self.rect(x0, y0, x1, y1, K)
        self.fill(x0 + 1, y0 + 1, x1 - 1, y1 - 1, face)
        self.fill(x0 + 1, y0 + 1, x1 - 1, y0 + 3, caption)
        self.fill(x1 - 3, y0 + 2, x1 - 2, y0 + 2, WHITE)

    def edit(self, x0, y0, x1, y1, s="ab", face=WHITE):
        self.sunken(x0, y0, x1, y1, face)
        if s:
            self.text(x0 + 3, (y0 + y1) // 2 - 2, s, K)

    def combo(self, x0, y0, x1, y1, s="ab"):
        self.edit(x0, y0, x1, y1, s)
        self.raised(x1 - 6, y0 + 2, x1 - 2, y1 - 2, dark=False)
        cx, cy = x1 - 4, (y0 + y1) // 2
        self.hline(cx - 1, cx + 1, cy - 1, K)
        self.px(cx, cy, K)

    def listbox(self, x0, y0, x1, y1, rows=4, sel=1):
        self.sunken(x0, y0, x1, y1)
        for i in range(rows):
            y = y0 + 3 + i * 4
            if y + 2 > y1 - 2:
                break
            if i == sel:
                self.fill(x0 + 2, y - 1, x1 - 2, y + 1, NAVY)
                self.hline(x0 + 4, x1 - 5, y, WHITE)
            else:
                self.hline(x0 + 4, x1 - 5 - (i % 2) * 3, y, K)

    def grid(self, x0, y0, x1, y1, cw=5, rh=4, fixed=True):
        self.fill(x0, y0, x1, y1, WHITE)
        if fixed:
            self.fill(x0, y0, x1, y0 + rh - 1, SILVER)
            self.fill(x0, y0, x0 + cw - 1, y1, SILVER)
        for x in range(x0, x1 + 1, cw):
            self.vline(x, y0, y1, GRAY)
        for y in range(y0, y1 + 1, rh):
            self.hline(x0, x1, y, GRAY)
        self.rect(x0, y0, x1, y1, K)

    def arrow(self, x, y, d, s, c):
        """A filled triangle: apex at (x, y) pointing d ('l', 'r', 'u', 'd'), s pixels deep."""
        if d == 'r':
            self.polygon([(x, y), (x - s, y - s), (x - s, y + s)], c)
        elif d == 'l':
            self.polygon([(x, y), (x + s, y - s), (x + s, y + s)], c)
        elif d == 'u':
            self.polygon([(x, y), (x - s, y + s), (x + s, y + s)], c)
        else:
            self.polygon([(x, y), (x - s, y - s), (x + s, y - s)], c)

    def db(self, x, y, c=YELLOW):
        """A small database cylinder, 7x8, top-left at (x, y): the mark of data-aware components."""
        self.fill(x + 1, y + 1, x + 5, y + 6, c)
        self.vline(x, y + 1, y + 6, K)
        self.vline(x + 6, y + 1, y + 6, K)
        self.hline(x + 1, x + 5, y, K)
        self.hline(x + 1, x + 5, y + 7, K)
        self.hline(x + 1, x + 5, y + 2, K)
        self.px(x + 2, y + 1, WHITE)

    def paper(self, x0, y0, x1, y1):
        self.fill(x0, y0, x1, y1, WHITE)
        self.rect(x0, y0, x1, y1, K)
        self.line(x1 - 3, y0, x1, y0 + 3, K)
        self.fill(x1 - 2, y0, x1, y0 + 1, BG)
        self.px(x1, y0 + 2, BG)
        self.hline(x1 - 3, x1, y0 + 3, K)
        self.vline(x1 - 3, y0, y0 + 3, K)
        for y in range(y0 + 5, y1 - 1, 2):
            self.hline(x0 + 2, x1 - 2 - (y % 3), y, GRAY)

    def picture(self, x0, y0, x1, y1):
        self.fill(x0, y0, x1, y1, AQUA)
        self.rect(x0, y0, x1, y1, K)
        self.circle(x1 - 4, y0 + 4, 2, YELLOW, filled=True)
        self.polygon([(x0 + 1, y1 - 1), (x0 + (x1 - x0) // 3, y0 + (y1 - y0) // 2),
                      (x0 + (x1 - x0) * 2 // 3, y1 - 1)], GREEN)
        self.polygon([(x0 + (x1 - x0) // 2, y1 - 1), (x1 - 3, y0 + (y1 - y0) // 2 + 1), (x1 - 1, y1 - 1)], TEAL)

    def speaker(self, x, y, waves=2):
        self.fill(x, y + 3, x + 2, y + 6, K)
        self.polygon([(x + 2, y + 3), (x + 5, y), (x + 5, y + 9), (x + 2, y + 6)], K)
        for i in range(waves):
            r = 3 + i * 2
            for dy in range(-r + 1, r):
                dx = int((r * r - dy * dy) ** 0.5)
                self.px(x + 6 + dx, y + 4 + dy, BLUE if i == 0 else NAVY)

    def note(self, x, y, c=K):
        self.vline(x + 3, y, y + 6, c)
        self.hline(x + 3, x + 5, y, c)
        self.px(x + 6, y + 1, c)
        self.fill(x, y + 6, x + 2, y + 7, c)
        self.px(x + 3, y + 7, c)

    def clock(self, cx, cy, r):
        self.circle(cx, cy, r, WHITE, filled=True)
        self.circle(cx, cy, r, K)
        for dx, dy in ((0, -1), (1, 0), (0, 1), (-1, 0)):
            self.px(cx + dx * (r - 1), cy + dy * (r - 1), GRAY)
        self.vline(cx, cy - r + 2, cy, K)
        self.hline(cx, cx + r - 3, cy, RED)

    def check(self, x, y, c=GREEN):
        self.line(x, y + 2, x + 2, y + 4, c)
        self.line(x + 2, y + 4, x + 6, y, c)
        self.line(x, y + 3, x + 2, y + 5, c)
        self.line(x + 2, y + 5, x + 6, y + 1, c)

    def cross(self, x, y, s=5, c=RED):
        self.line(x, y, x + s, y + s, c)
        self.line(x + 1, y, x + s + 1, y + s, c)
        self.line(x + s, y, x, y + s, c)
        self.line(x + s + 1, y, x + 1, y + s, c)

    def label(self, x, y, c=BLUE):
        self.bitmap(x, y, BIG_A, c)

    def funnel(self, x, y, c=BLUE):
        self.polygon([(x, y), (x + 10, y), (x + 6, y + 5), (x + 4, y + 5)], c)
        self.fill(x + 4, y + 5, x + 6, y + 9, c)
        self.hline(x, x + 10, y, K)

    def magnifier(self, x, y):
        self.circle(x + 4, y + 4, 3, AQUA, filled=True)
        self.circle(x + 4, y + 4, 4, K)
        self.line(x + 7, y + 7, x + 10, y + 10, K)
        self.line(x + 8, y + 7, x + 11, y + 10, MAROON)

    def key(self, x, y):
        self.circle(x + 3, y + 3, 3, YELLOW, filled=True)
        self.circle(x + 3, y + 3, 3, K)
        self.px(x + 3, y + 3, BG)
        self.line(x + 5, y + 5, x + 11, y + 11, K)
        self.line(x + 6, y + 5, x + 12, y + 11, YELLOW)
        self.line(x + 9, y + 11, x + 10, y + 10, K)
        self.line(x + 11, y + 9, x + 12, y + 8, K)

    def pencil(self, x, y):
        for i in range(8):
            self.px(x + 2 + i, y + 9 - i, YELLOW)
            self.px(x + 3 + i, y + 9 - i, YELLOW)
            self.px(x + 3 + i, y + 10 - i, MAROON)
        self.px(x + 1, y + 10, K)
        self.px(x + 2, y + 10, K)
        self.px(x + 10, y + 1, RED)
        self.px(x + 11, y + 1, RED)
        self.px(x + 11, y + 2, RED)

    def folder(self, x, y, c=YELLOW):
        self.fill(x, y + 2, x + 11, y + 9, c)
        self.fill(x, y, x + 4, y + 2, c)
        self.rect(x, y + 2, x + 11, y + 9, K)
        self.hline(x, x + 4, y, K)
        self.vline(x + 5, y, y + 2, K)
        self.vline(x, y, y + 2, K)

    def tabs(self, x0, y0, x1, y1, n=3, active=0, face=SILVER):
        self.fill(x0, y0 + 4, x1, y1, face)
        self.rect(x0, y0 + 4, x1, y1, K)
        self.hline(x0 + 1, x1 - 1, y0 + 5, WHITE)
        w = (x1 - x0) // (n + 1)
        for i in range(n):
            tx = x0 + i * w
            top = y0 if i == active else y0 + 1
            self.fill(tx + 1, top, tx + w, y0 + 4, face)
            self.hline(tx + 1, tx + w - 1, top, WHITE if i == active else GRAY)
            self.vline(tx, top + 1, y0 + 4, K)
            self.vline(tx + w, top + 1, y0 + 4, K)
            if i == active:
                self.hline(tx + 1, tx + w - 1, y0 + 4, face)

    def toolbar(self, x0, y0, x1, y1, buttons=3, vertical=False):
        self.raised(x0, y0, x1, y1, dark=False)
        if vertical:
            self.hline(x0 + 2, x1 - 2, y0 + 2, WHITE)
            self.hline(x0 + 2, x1 - 2, y0 + 3, GRAY)
            for i in range(buttons):
                by = y0 + 5 + i * 5
                self.fill(x0 + 2, by, x1 - 2, by + 3, [BLUE, RED, GREEN, YELLOW][i % 4])
        else:
            self.vline(x0 + 2, y0 + 2, y1 - 2, WHITE)
            self.vline(x0 + 3, y0 + 2, y1 - 2, GRAY)
            for i in range(buttons):
                bx = x0 + 5 + i * 5
                if bx + 3 > x1 - 1:
                    break
                self.fill(bx, y0 + 2, bx + 3, y1 - 2, [BLUE, RED, GREEN, YELLOW][i % 4])

    def menu(self, x0, y0, x1, y1, items=3, sel=1):
        self.fill(x0, y0, x1, y1, SILVER)
        self.rect(x0, y0, x1, y1, K)
        self.hline(x0 + 1, x1 - 1, y0 + 1, WHITE)
        self.vline(x0 + 1, y0 + 1, y1 - 1, WHITE)
        for i in range(items):
            y = y0 + 4 + i * 4
            if i == sel:
                self.fill(x0 + 2, y - 1, x1 - 2, y + 1, NAVY)
                self.hline(x0 + 5, x1 - 4, y, WHITE)
            else:
                self.hline(x0 + 5, x1 - 4 - (i % 2) * 2, y, K)

    def gradient(self, x0, y0, x1, y1, colours, vertical=True):
        n = len(colours)
        if vertical:
            for y in range(y0, y1 + 1):
                self.hline(x0, x1, y, colours[min(n - 1, (y - y0) * n // (y1 - y0 + 1))])
        else:
            for x in range(x0, x1 + 1):
                self.vline(x, y0, y1, colours[min(n - 1, (x - x0) * n // (x1 - x0 + 1))])

    def split_frame(self):
        self.rect(1, 2, 22, 21, K)
        self.fill(2, 3, 21, 20, WHITE)

    def bar_v(self, x, y0, y1):
        self.fill(x, y0, x + 1, y1, SILVER)
        self.vline(x, y0, y1, GRAY)

    def bar_h(self, y, x0, x1):
        self.fill(x0, y, x1, y + 1, SILVER)
        self.hline(x0, x1, y, GRAY)

    def scroll_v(self, x, y0, y1):
        self.fill(x, y0, x + 2, y1, SILVER)
        self.px(x + 1, y0 + 1, K)
        self.px(x + 1, y1 - 1, K)
        self.fill(x, y0 + 4, x + 2, y0 + 6, GRAY)

    def attached(self, draw_control, text="ab"):
        """A control with its attached label standing above it."""
        self.text(2, 1, text, BLUE)
        self.hline(2, 2 + 4 * len(text) - 2, 7, BLUE)
        draw_control()

# ---- the glyphs ----------------------------------------------------------------------------------------
def nav_button(symbol):
    def draw(g):
        g.raised(1, 3, 22, 20)
        symbol(g)
    return draw


def sym_first(g):
    g.fill(6, 7, 7, 16, K)
    g.arrow(8, 11, 'l', 5, K)


def sym_last(g):
    g.arrow(15, 11, 'r', 5, K)
    g.fill(16, 7, 17, 16, K)


def sym_prev(g):
    g.arrow(8, 11, 'l', 5, K)


def sym_next(g):
    g.arrow(15, 11, 'r', 5, K)


def sym_jumpback(g):
    g.arrow(4, 11, 'l', 5, K)
    g.arrow(11, 11, 'l', 5, K)


def sym_jumpfwd(g):
    g.arrow(19, 11, 'r', 5, K)
    g.arrow(12, 11, 'r', 5, K)


def record_rows(g, hl=None, hl_colour=YELLOW):
    for i, y in enumerate((6, 10, 14)):
        face = hl_colour if i == hl else WHITE
        g.fill(4, y, 17, y + 2, face)
        g.rect(4, y, 17, y + 2, K)


def sym_insert(g):
    record_rows(g, hl=1)
    g.fill(16, 9, 20, 10, RED)
    g.fill(17, 8, 19, 11, RED)
    g.fill(18, 7, 18, 12, RED)


def sym_append(g):
    record_rows(g, hl=2)
    g.fill(16, 14, 20, 15, RED)
    g.fill(17, 13, 19, 16, RED)
    g.fill(18, 12, 18, 17, RED)


def sym_duplicate(g):
    g.fill(4, 6, 14, 9, YELLOW)
    g.rect(4, 6, 14, 9, K)
    g.fill(8, 12, 18, 15, YELLOW)
    g.rect(8, 12, 18, 15, K)
    g.line(9, 10, 11, 11, BLUE)


def sym_edit(g):
    g.pencil(5, 6)


def sym_dsedit(g):
    g.window(4, 5, 16, 17)
    g.fill(6, 10, 14, 11, WHITE)
    g.fill(6, 13, 12, 14, WHITE)
    g.db(14, 11)


def sym_blobedit(g):
    g.picture(4, 6, 13, 15)
    g.pencil(9, 7)


def sym_findrep(g):
    g.magnifier(4, 5)
    g.text(14, 13, "a", RED)


def sym_delete(g):
    g.fill(5, 10, 18, 12, RED)
    g.rect(5, 10, 18, 12, MAROON)


def sym_cancel(g):
    g.cross(7, 7, 8, RED)


def sym_post(g):
    g.line(6, 11, 9, 14, GREEN)
    g.line(9, 14, 16, 7, GREEN)
    g.line(6, 12, 9, 15, GREEN)
    g.line(9, 15, 16, 8, GREEN)
    g.line(6, 13, 9, 16, GREEN)
    g.line(9, 16, 16, 9, GREEN)


def sym_refresh(g):
    g.circle(11, 11, 5, GREEN)
    g.circle(11, 11, 4, GREEN)
    g.fill(12, 5, 17, 9, SILVER)
    g.arrow(13, 7, 'r', 3, GREEN)


def sym_empty(g):
    g.grid(4, 5, 18, 17, cw=5, rh=4)
    g.cross(7, 8, 6, RED)


def sym_bookmark(g):
    g.fill(8, 5, 15, 16, RED)
    g.polygon([(8, 17), (11, 14), (15, 17)], SILVER)
    g.rect(8, 5, 15, 16, MAROON)


def sym_bookmarks(g):
    g.fill(5, 5, 10, 14, RED)
    g.polygon([(5, 15), (7, 13), (10, 15)], SILVER)
    g.menu(11, 7, 20, 18, items=3, sel=0)


def sym_findkey(g):
    g.key(5, 5)


def sym_range(g):
    g.vline(5, 6, 16, K)
    g.hline(5, 7, 6, K)
    g.hline(5, 7, 16, K)
    g.vline(18, 6, 16, K)
    g.hline(16, 18, 6, K)
    g.hline(16, 18, 16, K)
    g.text(8, 9, "19", BLUE)


def sym_filteract(g):
    g.funnel(6, 5, BLUE)
    g.fill(15, 12, 19, 16, YELLOW)
    g.rect(15, 12, 19, 16, K)


def sym_filterexpr(g):
    g.funnel(4, 5, BLUE)
    g.text(13, 12, "ab", RED)


def sym_starttrans(g):
    g.db(3, 7)
    g.arrow(18, 11, 'r', 5, GREEN)


def sym_commit(g):
    g.db(3, 7)
    g.check(12, 8)


def sym_rollback(g):
    g.db(3, 7)
    g.line(12, 10, 17, 10, RED)
    g.line(17, 10, 19, 12, RED)
    g.line(19, 12, 17, 14, RED)
    g.line(17, 14, 14, 14, RED)
    g.arrow(11, 10, 'l', 2, RED)


def sym_params(g):
    g.text(5, 9, "?", BLUE)
    g.text(9, 9, "ab", K)


def sym_dbinfo(g):
    g.db(3, 7)
    g.circle(15, 11, 4, BLUE, filled=True)
    g.text(14, 9, "i", WHITE)


def nav_state(g):
    g.sunken(1, 7, 22, 16, SILVER)
    g.text(4, 9, "EDIT", K)


def nav_count(g):
    g.sunken(1, 7, 22, 16, SILVER)
    g.text(4, 9, "1:99", K)


def nav_indexcombo(g):
    g.combo(1, 7, 22, 16, "AZ")


def nav_rangeedit(g):
    g.edit(1, 7, 22, 16, "1-9")


def dock(g):
    g.fill(1, 2, 22, 21, GRAY)
    g.rect(1, 2, 22, 21, K)
    g.toolbar(2, 3, 21, 8, 3)
    g.toolbar(2, 9, 14, 14, 2)
    g.fill(2, 15, 21, 20, SILVER)


def toolbar(g):
    g.toolbar(1, 7, 22, 16, 4)


def toolwindow(g):
    g.window(2, 3, 21, 20, caption=TEAL)
    g.fill(4, 8, 19, 18, WHITE)
    g.rect(4, 8, 19, 18, GRAY)
    g.circle(11, 13, 3, BLUE, filled=True)


def toolbarbutton(g):
    g.raised(4, 4, 19, 19, dark=False)
    g.fill(8, 8, 15, 15, BLUE)
    g.rect(8, 8, 15, 15, NAVY)


def toolbarsep(g):
    g.toolbar(1, 7, 22, 16, 0)
    g.fill(5, 9, 8, 14, BLUE)
    g.vline(11, 9, 14, GRAY)
    g.vline(12, 9, 14, WHITE)
    g.fill(15, 9, 18, 14, RED)


def toolbaredit(g, text="ab", db=False):
    g.toolbar(1, 5, 22, 18, 0)
    g.edit(5, 8, 21, 15, text)
    if db:
        g.db(15, 14)


def mainmenu(g):
    g.fill(1, 2, 22, 8, SILVER)
    g.hline(1, 22, 2, WHITE)
    g.hline(1, 22, 8, GRAY)
    g.text(3, 3, "F", K)
    g.text(8, 3, "E", K)
    g.fill(12, 2, 17, 8, NAVY)
    g.text(13, 3, "V", WHITE)
    g.menu(10, 9, 21, 22, items=3, sel=1)


def menutoolbar(g):
    g.toolbar(1, 3, 22, 9, 0)
    g.text(6, 4, "F", K)
    g.text(11, 4, "E", K)
    g.text(16, 4, "V", K)
    g.menu(10, 10, 21, 21, items=2, sel=0)


def popupmenu(g):
    g.menu(6, 2, 20, 20, items=4, sel=2)
    g.arrow(3, 4, 'u', 2, K)
    g.vline(3, 6, 9, K)


def systemmenu(g):
    g.window(1, 2, 22, 21)
    g.fill(2, 3, 6, 5, SILVER)
    g.menu(2, 6, 14, 18, items=3, sel=0)


def menuimages(g):
    g.menu(3, 2, 20, 21, items=0)
    for i, c in enumerate((RED, GREEN, BLUE)):
        y = 4 + i * 6
        g.fill(5, y, 8, y + 3, c)
        g.hline(10, 17, y + 1, K)


def navtoolbar(g):
    g.toolbar(1, 6, 22, 17, 0)
    g.arrow(6, 11, 'l', 3, K)
    g.arrow(13, 11, 'r', 3, K)
    g.db(15, 8)


def navpanel(g):
    g.raised(1, 4, 22, 19)
    g.arrow(4, 11, 'l', 3, K)
    g.fill(3, 8, 3, 14, K)
    g.arrow(11, 11, 'l', 3, K)
    g.arrow(13, 11, 'r', 3, K)
    g.arrow(20, 11, 'r', 3, K)
    g.fill(20, 8, 20, 14, K)


def navformlink(g):
    g.window(1, 2, 11, 12)
    g.window(12, 11, 22, 21)
    g.line(7, 13, 11, 17, BLUE)
    g.line(8, 13, 12, 17, BLUE)
    g.db(3, 14)


def dbtreeview(g):
    g.sunken(1, 1, 22, 22)
    g.fill(4, 4, 7, 6, YELLOW)
    g.vline(5, 7, 16, GRAY)
    for y in (10, 15):
        g.hline(6, 8, y, GRAY)
        g.fill(9, y - 1, 12, y + 1, BLUE)
    g.db(14, 12)


def dbrichedit(g):
    g.sunken(1, 1, 22, 22)
    g.text(4, 4, "A", RED)
    g.text(8, 4, "b", BLUE)
    g.hline(4, 18, 11, K)
    g.hline(4, 12, 14, K)
    g.db(14, 13)


def dbsupernav(g):
    g.raised(1, 6, 22, 17)
    g.arrow(3, 11, 'l', 3, BLUE)
    g.arrow(9, 11, 'l', 3, BLUE)
    g.arrow(14, 11, 'r', 3, BLUE)
    g.arrow(20, 11, 'r', 3, BLUE)
    g.vline(5, 8, 15, GRAY)
    g.vline(18, 8, 15, GRAY)


def dbeditwin(g):
    g.sunken(1, 1, 22, 22, SILVER)
    for y in (4, 10, 16):
        g.hline(3, 7, y + 1, BLUE)
        g.fill(9, y, 17, y + 3, WHITE)
        g.rect(9, y, 17, y + 3, GRAY)
    g.scroll_v(19, 2, 21)


def hdbgrid(g):
    g.grid(1, 2, 22, 21, cw=6, rh=4)
    g.fill(2, 3, 6, 20, SILVER)
    for y in (4, 8, 12, 16):
        g.hline(2, 5, y + 1, BLUE)


def dbindexcombo(g):
    g.combo(1, 6, 22, 15, "AZ")
    g.db(2, 15)


def dbfilter(g):
    g.funnel(3, 4, BLUE)
    g.db(14, 12)


def dbrangeedit(g):
    g.edit(1, 5, 22, 14, "a-c")
    g.db(2, 15)


def dbautoedit(g):
    g.edit(1, 5, 22, 14, "ab")
    g.raised(16, 7, 20, 12, dark=False)
    g.text(17, 7, ".", K)
    g.db(2, 15)


def dbfixedgrid(g):
    g.grid(1, 2, 22, 21, cw=5, rh=4)
    g.fill(7, 7, 10, 20, AQUA)
    g.vline(11, 3, 21, NAVY)


def dbeditlabel(g):
    g.text(1, 2, "ab", BLUE)
    g.edit(9, 1, 22, 9, "")
    g.db(15, 12)


def dbrecordcount(g):
    g.sunken(1, 5, 22, 14, SILVER)
    g.text(4, 7, "1:99", K)
    g.db(2, 15)


def dbstate(g):
    g.sunken(1, 5, 22, 14, SILVER)
    g.text(3, 7, "EDIT", K)
    g.db(2, 15)


def currencylabel(g, db=False):
    g.text(2, 4, "$", GREEN)
    g.text(6, 4, "ONE", K)
    g.hline(2, 20, 11, GRAY)
    g.text(2, 13, "TEN", K)
    if db:
        g.db(15, 13)


def lrcombo(g, db=False):
    g.combo(1, 3, 22, 12, "ab")
    g.text(3, 15, "LR", GREEN)
    if db:
        g.db(15, 14)


def appexception(g, mark=None):
    g.polygon([(11, 2), (21, 20), (1, 20)], YELLOW)
    g.polygon([(11, 2), (21, 20), (1, 20)], YELLOW)
    g.line(11, 2, 21, 20, K)
    g.line(11, 2, 1, 20, K)
    g.hline(1, 21, 20, K)
    g.fill(10, 8, 12, 15, K)
    g.fill(10, 17, 12, 18, K)
    if mark == 'file':
        g.paper(14, 11, 22, 22)
    elif mark == 'ds':
        g.db(15, 14, AQUA)
    elif mark == 'db':
        g.db(15, 14)
    elif mark == 'sql':
        g.fill(13, 15, 22, 22, WHITE)
        g.rect(13, 15, 22, 22, K)
        g.text(14, 17, "SQ", BLUE)


def dbhintmanager(g):
    g.fill(2, 3, 19, 11, YELLOW)
    g.rect(2, 3, 19, 11, K)
    g.hline(4, 16, 6, K)
    g.hline(4, 12, 8, K)
    g.polygon([(6, 12), (9, 12), (6, 15)], YELLOW)
    g.line(6, 12, 6, 15, K)
    g.line(6, 15, 9, 12, K)
    g.db(14, 13)


def dbhelpmanager(g):
    g.circle(8, 9, 6, BLUE, filled=True)
    g.text(7, 7, "?", WHITE)
    g.db(14, 13)


def animationframe(g):
    g.raised(1, 3, 22, 20)
    g.fill(4, 6, 12, 17, WHITE)
    g.rect(4, 6, 12, 17, K)
    for x in (14, 16, 18):
        g.vline(x, 7, 16, GRAY)
    g.arrow(20, 11, 'r', 3, BLUE)


def formpanel(g):
    g.raised(1, 1, 22, 22)
    g.window(4, 4, 19, 19)
    g.fill(6, 9, 17, 17, WHITE)


def buttonbar(g):
    g.fill(1, 1, 22, 22, GRAY)
    g.rect(1, 1, 22, 22, K)
    g.raised(2, 2, 21, 6, dark=False)
    g.fill(2, 7, 21, 15, TEAL)
    g.fill(8, 9, 14, 13, YELLOW)
    g.raised(2, 16, 21, 20, dark=False)


def buttonlist(g):
    g.fill(1, 1, 22, 22, TEAL)
    g.rect(1, 1, 22, 22, K)
    for y, c in ((3, YELLOW), (9, RED), (15, LIME)):
        g.fill(9, y, 14, y + 4, c)
        g.rect(9, y, 14, y + 4, K)
    g.rect(7, 8, 16, 14, WHITE)


def picturegroup(g):
    g.rect(1, 6, 22, 22, GRAY)
    g.rect(2, 7, 21, 21, WHITE)
    g.picture(4, 1, 14, 10)


def multisplit(g):
    g.split_frame()
    g.bar_v(11, 3, 20)
    g.bar_h(11, 12, 21)
    g.fill(2, 3, 10, 20, AQUA)


def quadsplit(g):
    g.split_frame()
    g.bar_v(11, 3, 20)
    g.bar_h(11, 2, 21)


def trisplit(g):
    g.split_frame()
    g.bar_v(9, 3, 20)
    g.bar_h(11, 10, 21)


def bisplit(g):
    g.split_frame()
    g.bar_v(11, 3, 20)


def splitbar(g):
    g.fill(2, 3, 8, 20, WHITE)
    g.rect(2, 3, 8, 20, K)
    g.fill(15, 3, 21, 20, WHITE)
    g.rect(15, 3, 21, 20, K)
    g.raised(10, 3, 13, 20, dark=False)
    g.arrow(9, 11, 'l', 2, RED)
    g.arrow(14, 11, 'r', 2, RED)


def scrolling(draw):
    def f(g):
        draw(g)
        g.scroll_v(19, 3, 20)
    return f


def edgepanel(g):
    g.polygon([(3, 3), (20, 3), (20, 15), (14, 20), (3, 20)], SILVER)
    g.line(3, 3, 20, 3, WHITE)
    g.line(3, 3, 3, 20, WHITE)
    g.line(20, 3, 20, 15, K)
    g.line(20, 15, 14, 20, K)
    g.line(14, 20, 3, 20, K)


def dragpanel(g):
    g.raised(5, 5, 18, 18)
    for x0, y0, d in ((11, 1, 'u'), (11, 22, 'd'), (1, 11, 'l'), (22, 11, 'r')):
        g.arrow(x0, y0, d, 2, RED)


def speedpanel(g):
    g.raised(1, 1, 22, 22)
    for y in (4, 10, 16):
        for x in (4, 10, 16):
            g.raised(x, y, x + 4, y + 4, dark=False)


def hintbar(g):
    g.fill(1, 13, 22, 20, SILVER)
    g.rect(1, 13, 22, 20, GRAY)
    g.text(3, 14, "ab", K)
    g.vline(14, 14, 19, GRAY)
    for i in range(3):
        g.px(20 - i, 19, GRAY)
        g.px(21, 18 - i, GRAY)
    g.fill(6, 3, 19, 9, YELLOW)
    g.rect(6, 3, 19, 9, K)
    g.hline(8, 16, 6, K)


def shapeform(g):
    g.circle(11, 11, 9, TEAL, filled=True)
    g.circle(11, 11, 9, K)
    g.fill(5, 5, 17, 7, NAVY)
    g.circle(11, 14, 2, YELLOW, filled=True)


def richedit(g):
    g.sunken(1, 1, 22, 22)
    g.text(4, 4, "A", RED)
    g.text(8, 4, "b", BLUE)
    g.text(12, 4, "c", GREEN)
    for y in (11, 14, 17):
        g.hline(4, 18 - (y % 4), y, K)


def formtabbednotebook(g):
    g.tabs(1, 2, 22, 21)
    g.window(5, 9, 18, 19)


def formnotebook(g):
    g.raised(1, 1, 22, 22)
    g.fill(4, 18, 19, 19, GRAY)
    g.window(3, 3, 18, 16)
    g.arrow(20, 19, 'r', 1, K)


def checklistbox(g):
    g.sunken(1, 1, 22, 22)
    for i, y in enumerate((4, 10, 16)):
        g.fill(4, y, 8, y + 4, WHITE)
        g.rect(4, y, 8, y + 4, K)
        if i != 1:
            g.px(5, y + 2, K)
            g.px(6, y + 3, K)
            g.px(7, y + 1, K)
        g.hline(10, 19, y + 2, K)


def fontcombo(g):
    g.combo(1, 10, 22, 19, "")
    g.text(4, 12, "T", BLUE)
    g.text(8, 12, "T", GRAY)
    g.bitmap(4, 1, ["#######", "#..#..#", "...#...", "...#...", "...#...", "...#...", "..###.."], K)


def colorcombo(g):
    g.combo(1, 7, 22, 16, "")
    g.fill(4, 10, 13, 13, RED)
    g.rect(4, 10, 13, 13, K)


def line_(g):
    g.line(3, 19, 17, 5, K)
    g.line(3, 18, 16, 5, K)
    g.polygon([(20, 2), (14, 4), (18, 8)], RED)
    g.polygon([(3, 20), (9, 18), (5, 14)], RED)


def buttonedit(g):
    g.edit(1, 6, 22, 17, "ab")
    g.raised(15, 8, 20, 15, dark=False)
    g.text(16, 9, ".", K)
    g.px(16, 13, K)
    g.px(19, 13, K)


def checkbox(g):
    g.sunken(2, 8, 9, 15)
    g.check(3, 9, K)
    g.text(11, 8, "ab", K)
    g.hline(11, 19, 17, GRAY)


def radiobutton(g):
    g.circle(6, 11, 4, WHITE, filled=True)
    g.circle(6, 11, 4, GRAY)
    g.circle(6, 11, 1, K, filled=True)
    g.text(12, 8, "ab", K)
    g.hline(12, 20, 17, GRAY)


def popupselect(g):
    g.raised(1, 16, 10, 22, dark=False)
    g.fill(6, 2, 22, 14, WHITE)
    g.rect(6, 2, 22, 14, K)
    for x in (8, 15):
        for y in (4, 8, 12):
            g.hline(x, x + 4, y, K)
    g.fill(14, 7, 20, 9, NAVY)
    g.hline(15, 19, 8, WHITE)


def background(g, mdi=False):
    g.gradient(1, 1, 22, 22, [BLUE, BLUE, NAVY, NAVY, K] if not mdi else [AQUA, TEAL, TEAL, NAVY])
    if mdi:
        g.window(6, 6, 17, 15)


def tiledimage(g, mdi=False):
    for y0 in (1, 12):
        for x0 in (1, 12):
            g.picture(x0, y0, x0 + 10, y0 + 10)
    if mdi:
        g.window(5, 5, 18, 18)


def keystate(g):
    g.sunken(1, 6, 22, 17, SILVER)
    g.text(3, 9, "CAP", K)
    g.fill(16, 9, 19, 13, LIME)
    g.rect(16, 9, 19, 13, K)


def activehighlight(g):
    g.edit(2, 3, 21, 10, "ab")
    g.fill(1, 13, 22, 21, YELLOW)
    g.sunken(3, 14, 20, 20, YELLOW)
    g.text(6, 15, "ab", K)


def shape_(g):
    g.fill(3, 4, 20, 19, SILVER)
    g.hline(3, 20, 4, WHITE)
    g.vline(3, 4, 19, WHITE)
    g.hline(3, 20, 19, GRAY)
    g.vline(20, 4, 19, GRAY)
    g.circle(11, 11, 5, WHITE, filled=True)
    g.circle(11, 11, 5, GRAY)


def frame_(g):
    g.rect(2, 2, 21, 21, WHITE)
    g.rect(3, 3, 20, 20, GRAY)
    g.rect(4, 4, 19, 19, WHITE)
    for x, y in ((2, 2), (21, 2), (2, 21), (21, 21)):
        g.px(x, y, BG)


def lrnotebook(g, tabbed=False):
    if tabbed:
        g.tabs(1, 2, 22, 18)
    else:
        g.raised(1, 2, 22, 18)
        g.fill(4, 5, 19, 15, WHITE)
    g.text(3, 18, "LR", GREEN)


def autotabset(g):
    g.raised(1, 1, 22, 12)
    g.fill(3, 3, 20, 10, WHITE)
    g.fill(1, 13, 22, 14, K)
    for x0, active in ((2, True), (9, False), (16, False)):
        g.fill(x0, 14, x0 + 5, 19, WHITE if active else SILVER)
        g.rect(x0, 14, x0 + 5, 19, K)
        if active:
            g.hline(x0 + 1, x0 + 4, 14, WHITE)


def lrlistbox(g):
    g.listbox(1, 1, 22, 16, rows=3)
    g.text(3, 18, "LR", GREEN)


def romemo(g):
    g.sunken(1, 1, 22, 22, SILVER)
    for y in (5, 8, 11, 14):
        g.hline(4, 17 - (y % 3) * 2, y, K)
    g.fill(14, 15, 20, 20, RED)
    g.rect(14, 15, 20, 20, MAROON)
    g.hline(16, 18, 16, WHITE)


def tablistbox(g):
    g.sunken(1, 1, 22, 22)
    for y in (5, 9, 13, 17):
        g.hline(4, 8, y, K)
        g.hline(12, 18, y, K)
    g.vline(10, 3, 20, AQUA)


def synclistbox(g):
    g.listbox(1, 1, 11, 22, rows=5, sel=2)
    g.listbox(12, 1, 22, 22, rows=5, sel=2)


def transimage(g):
    g.circle(11, 11, 8, RED, filled=True)
    g.circle(11, 11, 8, MAROON)
    g.fill(9, 9, 13, 13, YELLOW)


def spinedit(g):
    g.edit(1, 5, 22, 18, "12")
    g.raised(16, 6, 21, 11, dark=False)
    g.raised(16, 12, 21, 17, dark=False)
    g.arrow(18, 7, 'u', 2, K)
    g.arrow(18, 16, 'd', 2, K)


def busy(g):
    g.window(1, 2, 22, 21)
    g.fill(5, 8, 8, 14, WHITE)
    g.polygon([(5, 8), (8, 8), (7, 11), (8, 14), (5, 14), (6, 11)], YELLOW)
    g.rect(4, 8, 9, 14, K)
    g.sunken(3, 16, 20, 19, WHITE)
    g.fill(4, 17, 12, 18, NAVY)
    g.hline(11, 19, 10, K)
    g.hline(11, 17, 12, K)


def splash(g):
    g.fill(2, 3, 21, 20, NAVY)
    g.rect(2, 3, 21, 20, K)
    for x, y in ((5, 6), (16, 8), (8, 15), (18, 17), (12, 5)):
        g.px(x, y, WHITE)
    g.circle(11, 12, 4, YELLOW, filled=True)


def welcometips(g):
    g.window(1, 2, 22, 21)
    g.circle(7, 11, 3, YELLOW, filled=True)
    g.circle(7, 11, 3, K)
    g.fill(6, 15, 8, 16, GRAY)
    g.hline(12, 19, 9, K)
    g.hline(12, 17, 12, K)
    g.hline(12, 19, 15, K)


def pagesetup(g):
    g.paper(4, 2, 19, 21)
    g.rect(6, 7, 15, 18, BLUE)


def fileedit(g, save=False):
    g.edit(1, 10, 22, 19, "")
    g.raised(15, 12, 20, 17, dark=False)
    g.text(16, 12, ".", K)
    g.px(16, 16, K)
    g.px(19, 16, K)
    if save:
        g.fill(3, 1, 12, 9, NAVY)
        g.fill(5, 1, 10, 4, WHITE)
        g.fill(5, 6, 10, 9, SILVER)
        g.rect(3, 1, 12, 9, K)
    else:
        g.folder(2, 0)


def directoryedit(g):
    g.edit(1, 10, 22, 19, "")
    g.raised(15, 12, 20, 17, dark=False)
    g.px(16, 16, K)
    g.px(19, 16, K)
    g.folder(1, 0)
    g.folder(6, 2)


def directorydialog(g):
    g.window(1, 2, 22, 21)
    g.folder(5, 8)
    g.vline(7, 18, 19, GRAY)
    g.hline(7, 12, 19, GRAY)


def effectsimage(g, rich=False, db=False):
    g.picture(2, 2, 21, 21)
    for y in range(3, 21, 2):
        g.hline(12, 20, y, K)
    if rich:
        g.fill(3, 14, 11, 20, WHITE)
        g.text(4, 15, "Ab", RED)
    if db:
        g.db(3, 13)


def wave(g, kind=None):
    g.speaker(3, 6, waves=2)
    if kind == 'file':
        g.paper(14, 11, 22, 22)
    elif kind == 'res':
        g.fill(14, 13, 22, 22, WHITE)
        g.rect(14, 13, 22, 22, K)
        g.text(16, 16, "R", BLUE)


def wavelist(g, kind=None):
    g.note(1, 3)
    g.note(6, 1, NAVY)
    g.listbox(11, 4, 22, 22, rows=4, sel=0)
    if kind == 'file':
        g.paper(1, 13, 9, 22)
    elif kind == 'res':
        g.fill(1, 14, 9, 22, WHITE)
        g.rect(1, 14, 9, 22, K)
        g.text(3, 16, "R", BLUE)


def mciplayer(g, stream=False):
    g.raised(1, 6, 22, 17)
    g.arrow(8, 11, 'r', 3, K)
    g.fill(11, 8, 12, 14, K)
    g.fill(14, 8, 15, 14, K)
    g.fill(17, 8, 20, 14, K)
    if stream:
        g.fill(2, 18, 21, 21, GRAY)
        for x in range(3, 21, 3):
            g.px(x, 19, WHITE)


def shapebutton(g):
    g.circle(11, 11, 9, SILVER, filled=True)
    g.circle(11, 11, 9, K)
    for d in range(-6, 1):
        g.px(11 + d, 11 + d - 1 if d else 3, WHITE)
    g.circle(11, 11, 4, RED, filled=True)


def picbtn(g, speed=False, rep=False, toggle=False):
    if speed:
        g.raised(1, 1, 22, 22, dark=False)
    else:
        g.raised(1, 1, 22, 22)
    g.picture(5, 4, 16, 13)
    g.text(5, 15, "Ab", K)
    if rep:
        g.arrow(20, 6, 'u', 2, RED)
        g.arrow(20, 16, 'd', 2, RED)
    if toggle:
        g.sunken(1, 1, 22, 22, SILVER)
        g.picture(6, 5, 17, 14)
        g.text(6, 16, "Ab", K)


def mouseregion(g):
    for x in range(2, 22, 2):
        g.px(x, 2, K)
        g.px(x, 21, K)
    for y in range(2, 22, 2):
        g.px(2, y, K)
        g.px(21, y, K)
    g.polygon([(9, 7), (9, 18), (12, 15), (15, 19), (16, 18), (13, 14), (17, 14)], WHITE)
    g.line(9, 7, 9, 18, K)
    g.line(9, 7, 17, 14, K)


def menubutton(g):
    g.raised(1, 1, 22, 11, dark=False)
    g.text(4, 4, "FILE", K)
    g.menu(4, 12, 20, 22, items=2, sel=0)


def sizebutton(g):
    g.raised(3, 6, 20, 17)
    g.text(6, 9, "ab", K)
    g.arrow(1, 11, 'l', 1, RED)
    g.arrow(22, 11, 'r', 1, RED)


def wavebtn(g, file=False):
    g.raised(1, 1, 22, 22)
    g.speaker(4, 6, waves=2)
    if file:
        g.paper(14, 12, 20, 20)


def formbutton(g, pic=False, speed=False):
    if speed:
        g.raised(1, 10, 14, 22, dark=False)
    else:
        g.raised(1, 10, 14, 22)
    if pic:
        g.picture(4, 13, 11, 19)
    else:
        g.text(4, 14, "OK", K)
    g.window(9, 1, 22, 12)


def pushbutton(g):
    g.sunken(1, 4, 22, 19, SILVER)
    g.text(6, 9, "ON", K)
    g.fill(16, 9, 19, 13, LIME)


def button(g):
    g.raised(1, 4, 22, 19)
    g.text(4, 6, "ab", K)
    g.text(9, 12, "ab", K)


def rotlabel(g):
    g.bitmap(4, 8, ["....##.", "...#.#.", "..#..#.", ".#####.", "#....#.", "#....#."], BLUE)
    g.line(3, 21, 20, 4, GRAY)
    g.arrow(20, 3, 'u', 2, RED)


def versionlabel(g):
    g.label(2, 2, BLUE)
    g.text(11, 15, "6.0", K)
    g.hline(2, 21, 21, GRAY)


def urllabel(g):
    g.text(2, 5, "WWW", BLUE)
    g.hline(2, 14, 11, BLUE)
    g.circle(17, 15, 5, AQUA, filled=True)
    g.circle(17, 15, 5, NAVY)
    g.vline(17, 10, 20, NAVY)
    g.hline(12, 22, 15, NAVY)


def mailtolabel(g):
    g.fill(2, 6, 21, 18, WHITE)
    g.rect(2, 6, 21, 18, K)
    g.line(2, 6, 11, 13, K)
    g.line(21, 6, 12, 13, K)
    g.hline(2, 21, 21, BLUE)


def multilinelabel(g):
    g.vline(1, 2, 20, GRAY)
    g.text(3, 2, "ABC", BLUE)
    g.text(3, 9, "DEF", BLUE)
    g.text(3, 16, "GH", BLUE)


def mouselabel(g):
    g.label(2, 2, RED)
    g.hline(2, 9, 12, RED)
    g.polygon([(12, 10), (12, 21), (15, 18), (18, 22), (19, 21), (16, 17), (20, 17)], WHITE)
    g.line(12, 10, 12, 21, K)
    g.line(12, 10, 20, 17, K)


def clocklabel(g):
    g.clock(11, 11, 9)


def superlabel(g):
    g.rect(1, 3, 22, 20, RED)
    g.label(8, 7, BLUE)


def autolabel(g):
    g.label(1, 2, BLUE)
    g.text(9, 6, ":", BLUE)
    g.edit(12, 2, 22, 12, "")
    g.line(6, 13, 15, 17, GRAY)
    g.arrow(16, 18, 'r', 2, GRAY)


def editlabel(g):
    g.label(1, 6, BLUE)
    g.edit(10, 6, 22, 16, "ab")


def titlegradient(g):
    g.rect(1, 2, 22, 21, K)
    g.fill(2, 3, 21, 20, SILVER)
    g.gradient(2, 3, 21, 7, [NAVY, NAVY, BLUE, BLUE, AQUA], vertical=False)


def singleinstance(g):
    g.window(1, 2, 14, 15)
    g.text(5, 7, "1", K)
    g.rect(9, 9, 22, 22, GRAY)
    g.cross(12, 12, 7, RED)


def launcher(g):
    g.clock(7, 8, 6)
    g.window(10, 10, 22, 22)
    g.arrow(12, 17, 'r', 2, GREEN)


def formsaver(g):
    g.window(1, 1, 14, 13)
    g.fill(11, 11, 22, 22, NAVY)
    g.fill(13, 11, 20, 15, WHITE)
    g.fill(13, 17, 20, 22, SILVER)
    g.rect(11, 11, 22, 22, K)


def formsizer(g):
    g.window(3, 3, 18, 18)
    g.line(14, 22, 22, 14, RED)
    g.arrow(22, 14, 'u', 2, RED)
    g.arrow(14, 22, 'd', 2, RED)
    g.rect(1, 1, 20, 20, GRAY)


def stopwatch(g):
    g.fill(10, 1, 13, 2, K)
    g.vline(11, 3, 4, K)
    g.clock(11, 13, 8)


def mdiscroll(g):
    g.window(1, 1, 22, 22)
    g.fill(2, 5, 21, 21, GRAY)
    g.window(4, 8, 14, 17)
    g.scroll_v(19, 5, 20)
    g.cross(17, 17, 4, RED)


def formmessagehook(g):
    g.window(1, 1, 16, 16)
    g.fill(12, 11, 22, 18, WHITE)
    g.rect(12, 11, 22, 18, K)
    g.line(12, 11, 17, 15, K)
    g.line(22, 11, 17, 15, K)
    g.vline(6, 17, 21, RED)
    g.line(6, 21, 9, 21, RED)
    g.line(9, 21, 9, 19, RED)


def lcontrol(kind):
    def f(g):
        def control():
            if kind == 'edit':
                g.edit(1, 9, 22, 18, "ab")
            elif kind == 'mask':
                g.edit(1, 9, 22, 18, "9-9")
            elif kind == 'spin':
                g.edit(1, 9, 22, 19, "12")
                g.raised(16, 10, 21, 14, dark=False)
                g.raised(16, 15, 21, 18, dark=False)
                g.px(18, 12, K)
                g.px(18, 16, K)
            elif kind == 'memo':
                g.sunken(1, 9, 22, 22)
                for y in (12, 15, 18):
                    g.hline(4, 18 - (y % 2) * 4, y, K)
            elif kind == 'list':
                g.listbox(1, 9, 22, 22, rows=3, sel=1)
            elif kind == 'combo':
                g.combo(1, 9, 22, 18)
            elif kind == 'image':
                g.picture(1, 9, 22, 22)
            elif kind == 'panel':
                g.raised(1, 9, 22, 22)
            elif kind == 'scroll':
                g.sunken(1, 9, 22, 22, SILVER)
                g.scroll_v(19, 10, 21)
            elif kind == 'tree':
                g.sunken(1, 9, 22, 22)
                g.vline(5, 12, 19, GRAY)
                g.hline(5, 8, 15, GRAY)
                g.hline(5, 8, 19, GRAY)
                g.fill(3, 11, 6, 13, YELLOW)
                g.fill(9, 14, 12, 16, BLUE)
                g.fill(9, 18, 12, 20, BLUE)
        g.attached(control)
    return f


def ldb(kind):
    def f(g):
        def control():
            if kind == 'text':
                g.text(2, 12, "ab", K)
                g.hline(2, 12, 18, GRAY)
            elif kind in ('edit', 'autoedit'):
                g.edit(1, 9, 22, 18, "ab")
                if kind == 'autoedit':
                    g.raised(10, 11, 14, 16, dark=False)
            elif kind == 'memo':
                g.sunken(1, 9, 22, 22)
                for y in (12, 15, 18):
                    g.hline(4, 10, y, K)
            elif kind == 'image':
                g.picture(1, 9, 14, 22)
            elif kind in ('list', 'lookuplist', 'lookuplistbox'):
                g.listbox(1, 9, 22, 22, rows=3, sel=1 if kind == 'list' else 0)
                if kind == 'lookuplistbox':
                    g.scroll_v(12, 11, 20)
            elif kind in ('combo', 'lookupcombo', 'lookupcombobox'):
                g.combo(1, 9, 22, 18)
                if kind == 'lookupcombobox':
                    g.hline(3, 14, 20, NAVY)
            elif kind == 'check':
                g.sunken(2, 11, 8, 17)
                g.check(2, 11, K)
            elif kind == 'radio':
                g.rect(1, 9, 22, 22, GRAY)
                g.circle(5, 13, 2, WHITE, filled=True)
                g.circle(5, 13, 2, K)
                g.circle(5, 19, 2, WHITE, filled=True)
                g.circle(5, 19, 2, K)
                g.px(5, 13, K)
            if kind.startswith('lookup'):
                g.magnifier(0, 12)
            if kind in ('combo', 'lookupcombo', 'lookupcombobox', 'edit', 'autoedit'):
                g.db(16, 14)
            else:
                g.db(16, 15)
        g.attached(control)
    return f


def dbappexception(g, sql=False):
    appexception(g, 'sql' if sql else 'db')


def localdata(kind):
    def f(g):
        g.folder(1, 1)
        if kind == 'table':
            g.grid(8, 10, 22, 22, cw=5, rh=4)
        elif kind == 'query':
            g.fill(8, 10, 22, 22, WHITE)
            g.rect(8, 10, 22, 22, K)
            g.text(10, 12, "SQL"[:2], BLUE)
            g.text(10, 17, "?", RED)
        else:
            g.db(13, 11)
            g.db(9, 14, AQUA)
    return f


def dbidletime(g):
    g.clock(8, 8, 6)
    g.db(14, 12)
    g.arrow(12, 19, 'd', 2, RED)


def aggregategrid(query):
    def f(g):
        g.grid(1, 1, 22, 16, cw=5, rh=4)
        g.raised(1, 17, 22, 22, dark=False)
        g.arrow(5, 19, 'l', 1, K)
        g.arrow(9, 19, 'r', 1, K)
        if query:
            g.fill(13, 18, 21, 21, WHITE)
            g.text(14, 18, "Q", BLUE)
        else:
            g.fill(13, 18, 21, 21, YELLOW)
            g.rect(13, 18, 21, 21, K)
    return f


def adapter(tag, colour):
    def f(g):
        g.db(2, 2)
        g.fill(10, 6, 21, 16, colour)
        g.rect(10, 6, 21, 16, K)
        g.text(12, 9, tag, WHITE)
        g.line(9, 6, 7, 10, K)
        g.fill(3, 14, 9, 21, SILVER)
        g.rect(3, 14, 9, 21, K)
        g.hline(9, 12, 18, K)
    return f


def mditabs(g):
    g.window(1, 1, 22, 22)
    for x0, active in ((2, True), (9, False), (16, False)):
        g.fill(x0, 5, x0 + 5, 9, WHITE if active else SILVER)
        g.rect(x0, 5, x0 + 5, 9, K)
    g.fill(2, 10, 21, 21, GRAY)
    g.window(4, 12, 18, 20)


def trayicon(g):
    g.fill(1, 15, 22, 22, SILVER)
    g.hline(1, 22, 15, WHITE)
    g.sunken(8, 16, 22, 21, SILVER)
    g.fill(10, 17, 13, 20, RED)
    g.text(15, 17, "1", K)
    g.fill(4, 3, 17, 10, YELLOW)
    g.rect(4, 3, 17, 10, K)
    g.hline(6, 14, 6, K)


def dbdatetimepicker(g):
    g.combo(1, 2, 22, 11, "12")
    g.db(15, 13)
    g.fill(2, 13, 11, 21, WHITE)
    g.rect(2, 13, 11, 21, K)
    g.fill(2, 13, 11, 14, RED)


def dbmonthcalendar(g):
    g.fill(1, 1, 22, 22, WHITE)
    g.rect(1, 1, 22, 22, K)
    g.fill(2, 2, 21, 5, NAVY)
    for y in range(8, 20, 3):
        for x in range(3, 20, 3):
            g.px(x, y, K)
    g.rect(8, 10, 10, 12, RED)
    g.db(15, 14)


def formtabcontrol(g):
    g.tabs(1, 2, 22, 21, n=3, active=1)
    g.window(5, 9, 18, 19)


def messagedlg(g):
    g.window(1, 2, 22, 21)
    g.circle(7, 11, 4, BLUE, filled=True)
    g.text(6, 9, "i", WHITE)
    g.hline(13, 19, 10, K)
    g.hline(13, 17, 12, K)
    g.raised(8, 16, 16, 19, dark=False)


def progressdlg(g):
    g.window(1, 2, 22, 21)
    g.hline(4, 18, 9, K)
    g.sunken(3, 12, 20, 16, WHITE)
    for x in range(5, 14, 3):
        g.fill(x, 13, x + 1, 15, NAVY)


def idletimeout(g):
    g.clock(9, 9, 7)
    g.bitmap(14, 13, ["#####", "...#.", "..#..", ".#...", "#####"], BLUE)
    g.bitmap(19, 18, ["###", ".#.", "###"], BLUE)


def spritesurface(g):
    g.fill(1, 2, 22, 21, NAVY)
    g.rect(1, 2, 22, 21, K)
    g.fill(2, 17, 21, 20, GREEN)
    g.circle(12, 10, 4, YELLOW, filled=True)
    g.polygon([(12, 10), (17, 7), (17, 13)], NAVY)
    for x in (3, 5, 7):
        g.hline(x, x, 10, WHITE)


def spritelist(g):
    g.listbox(1, 9, 22, 22, rows=3, sel=0)
    g.circle(6, 4, 3, YELLOW, filled=True)
    g.polygon([(6, 4), (10, 2), (10, 6)], BG)
    g.circle(16, 4, 3, FUCHSIA, filled=True)
    g.px(15, 3, WHITE)
    g.px(17, 3, WHITE)


def bitmapspritefactory(g):
    for i, c in enumerate((RED, GREEN, BLUE)):
        g.fill(2 + i * 7, 2, 7 + i * 7, 7, c)
        g.rect(2 + i * 7, 2, 7 + i * 7, 7, K)
    g.arrow(11, 13, 'd', 3, K)
    g.circle(11, 18, 3, YELLOW, filled=True)
    g.polygon([(11, 18), (15, 16), (15, 20)], BG)


GLYPHS = {
    'TjexDock': dock, 'TjexToolbar': toolbar, 'TjexToolWindow': toolwindow,
    'TjexToolbarButton': toolbarbutton, 'TjexToolbarSep': toolbarsep, 'TjexToolbarEdit': toolbaredit,
    'TjexToolbarMaskEdit': lambda g: toolbaredit(g, "9-9"),
    'TjexToolbarDBEdit': lambda g: toolbaredit(g, "ab", db=True),
    'TjexMainMenu': mainmenu, 'TjexMenuToolbar': menutoolbar, 'TjexPopupMenu': popupmenu,
    'TjexSystemMenu': systemmenu, 'TjexMenuImages': menuimages,
    'TjexNavToolbar': navtoolbar, 'TjexNavPanel': navpanel, 'TjexNavFormLink': navformlink,
    'TjexnpFirst': nav_button(sym_first), 'TjexnpJumpBack': nav_button(sym_jumpback),
    'TjexnpPrev': nav_button(sym_prev), 'TjexnpNext': nav_button(sym_next),
    'TjexnpJumpFwd': nav_button(sym_jumpfwd), 'TjexnpLast': nav_button(sym_last),
    'TjexnpInsert': nav_button(sym_insert), 'TjexnpAppend': nav_button(sym_append),
    'TjexnpDuplicateRec': nav_button(sym_duplicate), 'TjexnpEdit': nav_button(sym_edit),
    'TjexnpDataSourceEdit': nav_button(sym_dsedit), 'TjexnpBlobEdit': nav_button(sym_blobedit),
    'TjexnpFindReplace': nav_button(sym_findrep), 'TjexnpDelete': nav_button(sym_delete),
    'TjexnpCancel': nav_button(sym_cancel), 'TjexnpPost': nav_button(sym_post),
    'TjexnpRefresh': nav_button(sym_refresh), 'TjexnpEmptyTable': nav_button(sym_empty),
    'TjexnpBookmark': nav_button(sym_bookmark), 'TjexnpBookmarkMenu': nav_button(sym_bookmarks),
    'TjexnpFindKey': nav_button(sym_findkey), 'TjexnpIndexCombo': nav_indexcombo,
    'TjexnpRange': nav_button(sym_range), 'TjexnpRangeEdit': nav_rangeedit,
    'TjexnpFilterActive': nav_button(sym_filteract), 'TjexnpFilterExpression': nav_button(sym_filterexpr),
    'TjexnpSQLStartTrans': nav_button(sym_starttrans), 'TjexnpSQLCommit': nav_button(sym_commit),
    'TjexnpSQLRollback': nav_button(sym_rollback), 'TjexnpQueryParams': nav_button(sym_params),
    'TjexnpDBInfo': nav_button(sym_dbinfo), 'TjexnpState': nav_state, 'TjexnpRecordCount': nav_count,
    'TjexDBTreeView': dbtreeview, 'TjexDBRichEdit': dbrichedit, 'TjexDBSuperNav': dbsupernav,
    'TjexDBEditWin': dbeditwin, 'TjexHDBGrid': hdbgrid, 'TjexDBIndexCombo': dbindexcombo,
    'TjexDBFilter': dbfilter, 'TjexDBRangeEdit': dbrangeedit, 'TjexDBAutoEdit': dbautoedit,
    'TjexDBFixedGrid': dbfixedgrid, 'TjexDBEditLabel': dbeditlabel, 'TjexDBRecordCount': dbrecordcount,
    'TjexDBState': dbstate, 'TjexDBCurrencyLabel': lambda g: currencylabel(g, db=True),
    'TjexLRDBComboBox': lambda g: lrcombo(g, db=True),
    'TjexAppException': lambda g: appexception(g, 'file'), 'TjexDSAppException': lambda g: appexception(g, 'ds'),
    'TjexDBHintManager': dbhintmanager, 'TjexDBHelpManager': dbhelpmanager,
    'TjexAnimationFrame': animationframe, 'TjexFormPanel': formpanel, 'TjexButtonBar': buttonbar,
    'TjexButtonList': buttonlist, 'TjexPictureGroup': picturegroup,
    'TjexMultiSplit': multisplit, 'TjexQuadSplit': quadsplit, 'TjexTriSplit': trisplit, 'TjexBiSplit': bisplit,
    'TjexSplitBar': splitbar, 'TjexSMultiSplit': scrolling(multisplit), 'TjexSQuadSplit': scrolling(quadsplit),
    'TjexSTriSplit': scrolling(trisplit), 'TjexSBiSplit': scrolling(bisplit),
    'TjexEdgePanel': edgepanel, 'TjexDragPanel': dragpanel, 'TjexSpeedPanel': speedpanel,
    'TjexHintBar': hintbar, 'TjexShapeForm': shapeform, 'TjexRichEdit': richedit,
    'TjexFormTabbedNoteBook': formtabbednotebook, 'TjexFormNoteBook': formnotebook,
    'TjexCheckListBox': checklistbox, 'TjexFontComboBox': fontcombo, 'TjexColorComboBox': colorcombo,
    'TjexLine': line_, 'TjexButtonEdit': buttonedit, 'TjexCheckBox': checkbox, 'TjexRadioButton': radiobutton,
    'TjexPopupSelect': popupselect, 'TjexBackground': background,
    'TjexMDIBackground': lambda g: background(g, mdi=True), 'TjexTiledImage': tiledimage,
    'TjexMDITiledImage': lambda g: tiledimage(g, mdi=True), 'TjexKeyState': keystate,
    'TjexActiveHighlight': activehighlight, 'TjexShape': shape_, 'TjexFrame': frame_,
    'TjexLRNoteBook': lrnotebook, 'TjexLRTabbedNoteBook': lambda g: lrnotebook(g, tabbed=True),
    'TjexAutoTabSet': autotabset, 'TjexLRComboBox': lrcombo, 'TjexLRListBox': lrlistbox,
    'TjexROMemo': romemo, 'TjexTabListBox': tablistbox, 'TjexSyncListBox': synclistbox,
    'TjexTransImage': transimage, 'TjexSpinEdit': spinedit, 'TjexBusy': busy, 'TjexSplash': splash,
    'TjexWelcomeTips': welcometips, 'TjexPageSetupDialog': pagesetup,
    'TjexFileOpenEdit': fileedit, 'TjexFileSaveEdit': lambda g: fileedit(g, save=True),
    'TjexDirectoryEdit': directoryedit, 'TjexDirectoryDialog': directorydialog,
    'TjexEffectsImage': effectsimage, 'TjexRichEffectsImage': lambda g: effectsimage(g, rich=True),
    'TjexDBEffectsImage': lambda g: effectsimage(g, db=True),
    'TjexWave': wave, 'TjexWaveFile': lambda g: wave(g, 'file'), 'TjexWaveRes': lambda g: wave(g, 'res'),
    'TjexWaveList': wavelist, 'TjexWaveFileList': lambda g: wavelist(g, 'file'),
    'TjexWaveResList': lambda g: wavelist(g, 'res'),
    'TjexMCIFilePlayer': mciplayer, 'TjexMCIStreamPlayer': lambda g: mciplayer(g, stream=True),
    'TjexShapeButton': shapebutton, 'TjexPicBtn': picbtn, 'TjexPicSpeedBtn': lambda g: picbtn(g, speed=True),
    'TjexRepSpeedBtn': lambda g: picbtn(g, speed=True, rep=True),
    'TjexToggleBtn': lambda g: picbtn(g, toggle=True), 'TjexMouseRegion': mouseregion,
    'TjexMenuButton': menubutton, 'TjexSizeButton': sizebutton, 'TjexWaveBtn': wavebtn,
    'TjexWaveFileBtn': lambda g: wavebtn(g, file=True), 'TjexFormButton': formbutton,
    'TjexFormPicBtn': lambda g: formbutton(g, pic=True),
    'TjexFormPicSpeedBtn': lambda g: formbutton(g, pic=True, speed=True),
    'TjexPushButton': pushbutton, 'TjexButton': button,
    'TjexRotLabel': rotlabel, 'TjexVersionLabel': versionlabel, 'TjexURLLabel': urllabel,
    'TjexMultilineLabel': multilinelabel, 'TjexCurrencyLabel': currencylabel, 'TjexMouseLabel': mouselabel,
    'TjexClockLabel': clocklabel, 'TjexSuperLabel': superlabel, 'TjexAutoLabel': autolabel,
    'TjexEditLabel': editlabel, 'TjexTitleGradient': titlegradient, 'TjexSingleInstance': singleinstance,
    'TjexLauncher': launcher, 'TjexFormSaver': formsaver, 'TjexFormSizer': formsizer,
    'TjexStopWatch': stopwatch, 'TjexMDIScroll': mdiscroll, 'TjexFormMessageHook': formmessagehook,
    'TjexLEdit': lcontrol('edit'), 'TjexLMaskEdit': lcontrol('mask'), 'TjexLSpinEdit': lcontrol('spin'),
    'TjexLMemo': lcontrol('memo'), 'TjexLListBox': lcontrol('list'), 'TjexLComboBox': lcontrol('combo'),
    'TjexLImage': lcontrol('image'), 'TjexLPanel': lcontrol('panel'), 'TjexLScrollBox': lcontrol('scroll'),
    'TjexLTreeView': lcontrol('tree'),
    'TjexLDBText': ldb('text'), 'TjexLDBEdit': ldb('edit'), 'TjexLDBAutoEdit': ldb('autoedit'),
    'TjexLDBMemo': ldb('memo'), 'TjexLDBImage': ldb('image'), 'TjexLDBListBox': ldb('list'),
    'TjexLDBComboBox': ldb('combo'), 'TjexLDBCheckBox': ldb('check'), 'TjexLDBRadioGroup': ldb('radio'),
    'TjexLDBLookupList': ldb('lookuplist'), 'TjexLDBLookupCombo': ldb('lookupcombo'),
    'TjexLDBLookupListBox': ldb('lookuplistbox'), 'TjexLDBLookupComboBox': ldb('lookupcombobox'),
    'TjexDBAppException': dbappexception, 'TjexDBQryAppException': lambda g: dbappexception(g, sql=True),
    'TjexLocalTable': localdata('table'), 'TjexLocalQuery': localdata('query'),
    'TjexLocalDatabase': localdata('database'), 'TjexDBIdleTime': dbidletime,
    'TjexDBQueryGrid': aggregategrid(True), 'TjexDBTableGrid': aggregategrid(False),
    'TjexClientAdapterReg': adapter("C", GREEN), 'TjexBDEAdapterReg': adapter("B", MAROON),
    'TjexADOAdapterReg': adapter("A", BLUE), 'TjexIBAdapterReg': adapter("I", PURPLE),
    'TjexSQLAdapterReg': adapter("S", TEAL),
    'TjexMDITabs': mditabs, 'TjexTrayIcon': trayicon, 'TjexDBDateTimePicker': dbdatetimepicker,
    'TjexDBMonthCalendar': dbmonthcalendar, 'TjexFormTabControl': formtabcontrol,
    'TjexMessageDlg': messagedlg, 'TjexProgressDlg': progressdlg, 'TjexIdleTimeout': idletimeout,
    'TjexSpriteSurface': spritesurface, 'TjexSpriteList': spritelist,
    'TjexBitmapSpriteFactory': bitmapspritefactory, 'TjexMailToLabel': mailtolabel,
}



def render(name):
    g = PaletteGlyph()
    GLYPHS[name](g)
    if g.p[SIZE - 1][0] != BG:
        raise SystemExit(f"{name}: the bottom-left pixel must stay the background (transparent) colour")
    return g.p


def main(argv):
    names = list(GLYPHS)
    return run_generator(
        argv, __doc__.splitlines()[0], lambda: [(name.upper(), render(name)) for name in names],
        ["Generated by tools/glyphs/make_glyphs.py; do not edit. The palette glyphs of dclJEXC: one 24x24",
         "16-colour bitmap per component class, named by the class name in upper case."],
        "PaletteGlyphs", per_row=12, listing=names)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
