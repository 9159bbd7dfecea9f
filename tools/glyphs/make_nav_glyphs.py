#!/usr/bin/env python3
"""Draws the navigator button glyphs of dclJEXC and the navigator wizard's own button glyphs, and writes
them as a C++ source that adds them to the package's resource table.

Every glyph base name NAME of the navigator button catalogue is drawn in six sets, "JEXNP_" + NAME + set:

    set 0, 1   large, raised    36 x 18  (two 18 x 18 images)
    set 2, 3   medium, raised   28 x 13  (two 14 x 13 images)
    set 4, 5   small, flat      28 x 13, the plain arrows 18 x 9  (two 14 x 13 or 9 x 9 images)

even sets coloured, odd sets black. Each bitmap holds the enabled image and, beside it, the disabled one
(the dark parts greyed and embossed). "JEXNPDSGN_CREATE" (one 18 x 18 image) and "JEXNPDSGN_NEXT" (two) are
the wizard's "Create" and "Next" buttons.

A symbol is drawn once, as a list of shapes (pixel masks) computed from the size of its box, so that it
reads at 18, 14 and 9 pixels; the set decides how the shapes are painted: coloured with outlines (raised),
coloured without (flat), or black and white. Vertical variants draw the horizontal symbol in the
transposed box and transpose the result, so that arrows point up and down. The bottom-left pixel of every
bitmap is the background colour, which the buttons treat as transparent.

    make_nav_glyphs.py --cpp OUT.cpp [--bmp-dir DIR] [--preview SHEET.png] [--list]

Standard library only.
"""

import math
import os
import sys

# The drawing kit beside this script; no bytecode cache is left in the source tree.
sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from glyphlib import (AQUA, BG, BLUE, GRAY, GREEN, K, LIME, MAROON, NAVY, RED, SILVER, TEAL, WHITE,  # noqa: E402
                      YELLOW, Glyph, run_generator)


# ---- shapes -----------------------------------------------------------------------------------------------
class Shape:
    """A set of pixels painted as one piece.

    fill: its colour; edge: the colour of its outline in the raised coloured sets (None: never outlined);
    light: a light body whose outline is always drawn (in black: white inside a black outline);
    halo: the pixels around it are cleared first, so that it stands apart from what lies beneath."""

    def __init__(self, mask, fill, edge=None, light=False, halo=False):
        self.mask, self.fill, self.edge, self.light, self.halo = set(mask), fill, edge, light, halo


class Symbol:
    """The shapes of one picture in a w x h box, with mask builders in pixel coordinates."""

    def __init__(self, w, h):
        self.w, self.h = w, h
        self.n = min(w, h)
        self.shapes = []

    def add(self, mask, fill, edge=None, light=False, halo=False):
        self.shapes.append(Shape(mask, fill, edge, light, halo))

    # -- masks --
    def rect(self, x0, y0, x1, y1):
        return {(x, y) for y in range(round(y0), round(y1) + 1) for x in range(round(x0), round(x1) + 1)}

    def triangle(self, tip_x, cy, d, direction):
        """A 45-degree arrow head d pixels deep (2d + 1 high) with its tip at (tip_x, cy); direction is
        'l' or 'r'."""
        sign = 1 if direction == 'l' else -1
        return {(tip_x + sign * i, cy + j) for i in range(d + 1) for j in range(-i, i + 1)}

    def polygon(self, pts):
        g = Glyph(self.w, self.h)
        g.polygon([(round(x), round(y)) for x, y in pts], K)
        return {(x, y) for y in range(self.h) for x in range(self.w) if g.p[y][x] != BG}

    def disc(self, cx, cy, r):
        return {(x, y) for y in range(self.h) for x in range(self.w) if (x - cx) ** 2 + (y - cy) ** 2 <= r * r}

    def ellipse(self, cx, cy, rx, ry):
        return {(x, y) for y in range(self.h) for x in range(self.w)
                if ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1.0}

    def band(self, pts, t):
        """A stroke of half-width t along the polyline pts."""
        out = set()
        for (xa, ya), (xb, yb) in zip(pts, pts[1:]):
            dx, dy = xb - xa, yb - ya
            ll = dx * dx + dy * dy or 1e-9
            for y in range(self.h):
                for x in range(self.w):
                    u = max(0.0, min(1.0, ((x - xa) * dx + (y - ya) * dy) / ll))
                    if (x - xa - u * dx) ** 2 + (y - ya - u * dy) ** 2 <= t * t:
                        out.add((x, y))
        return out

    def arc(self, cx, cy, r, t, a0, a1):
        """The ring of radius r and half-width t between the angles a0 and a1 (degrees, counter-clockwise
        from east as the picture is seen, y pointing down)."""
        out = set()
        for y in range(self.h):
            for x in range(self.w):
                if abs(math.hypot(x - cx, y - cy) - r) <= t:
                    a = math.degrees(math.atan2(cy - y, x - cx)) % 360
                    if (a - a0) % 360 <= (a1 - a0) % 360:
                        out.add((x, y))
        return out


# ---- painting ---------------------------------------------------------------------------------------------
def paint(sym, coloured, raised):
    """The symbol's picture: coloured (outlined when raised) or black and white, where a light body is white
    inside a black outline and every other shape black."""
    g = Glyph(sym.w, sym.h)
    for s in sym.shapes:
        if s.halo:
            for x, y in s.mask:
                for dx, dy in ((-1, 0), (1, 0), (0, -1), (0, 1)):
                    if (x + dx, y + dy) not in s.mask:
                        g.px(x + dx, y + dy, BG)
        inner = {(x, y) for x, y in s.mask
                 if all((x + dx, y + dy) in s.mask for dx, dy in ((-1, 0), (1, 0), (0, -1), (0, 1)))}
        if coloured:
            outlined = s.light or (raised and s.edge is not None)
            edge = s.edge if s.edge is not None else K
        else:
            outlined = s.light
            edge = K
        if not coloured and s.fill == SILVER:
            continue  # faint detail, which black and white cannot show
        body = s.fill if coloured else (WHITE if s.light or s.fill == WHITE else K)
        for x, y in s.mask:
            g.px(x, y, edge if outlined and inner and (x, y) not in inner else body)
    return g.p


def disabled(pixels):
    """The disabled look of a black and white picture: its black in grey, embossed with white below and to
    the right."""
    h, w = len(pixels), len(pixels[0])
    dark = {(x, y) for y in range(h) for x in range(w) if pixels[y][x] == K}
    g = Glyph(w, h)
    for x, y in dark:
        g.px(x + 1, y + 1, WHITE)
    for x, y in dark:
        g.px(x, y, GRAY)
    return g.p


def side_by_side(*pictures):
    return [sum((p[y] for p in pictures), []) for y in range(len(pictures[0]))]


def transposed(pixels):
    return [list(row) for row in zip(*pixels)]


# ---- the symbols ------------------------------------------------------------------------------------------
# Each takes a Symbol and adds its shapes, computing every size from the box (s.w x s.h, s.n = the smaller).
ARROW = dict(fill=BLUE, edge=NAVY)


def arrow_depth(s):
    return round(s.n / 3)


def centre_y(s):
    return (s.h - 1) // 2


def arrows(s, direction, count=1, bar=None):
    """count arrow heads pointing left or right, with a bar at the end they point to ('first', 'last')."""
    d = arrow_depth(s)
    step = d if count > 1 else 0
    bar_w = 2 if s.n >= 13 else 1
    width = (d + 1) + step * (count - 1) + ((bar_w + 1) if bar else 0)
    x = (s.w - width) // 2
    cy = centre_y(s)
    mask = set()
    if direction == 'l':
        if bar:
            mask |= s.rect(x, cy - d, x + bar_w - 1, cy + d)
            x += bar_w + 1
        for i in range(count):
            mask |= s.triangle(x + i * step, cy, d, 'l')
    else:
        x_end = x + width - 1
        if bar:
            mask |= s.rect(x_end - bar_w + 1, cy - d, x_end, cy + d)
            x_end -= bar_w + 1
        for i in range(count):
            mask |= s.triangle(x_end - i * step, cy, d, 'r')
    s.add(mask, **ARROW)


def plus(s, cx, cy, size, thick):
    half, t = (size - 1) / 2, (thick - 1) / 2
    return s.rect(cx - half, cy - t, cx + half, cy + t) | s.rect(cx - t, cy - half, cx + t, cy + half)


def sym_insert(s):
    size = s.n - 4 if s.n > 9 else s.n - 2
    thick = max(2, round(s.n / 5))
    if (size - thick) % 2:
        size -= 1
    s.add(plus(s, (s.w - 1) / 2, (s.h - 1) / 2, size, thick), fill=LIME, edge=GREEN)


def sym_append(s):
    d = arrow_depth(s)
    cy = centre_y(s)
    bar_w = 2 if s.n >= 13 else 1
    size = 2 * d - 1 if d % 2 == 0 else 2 * d - 2
    thick = max(2, round(s.n / 6))
    if (size - thick) % 2:
        size -= 1
    width = size + 2 + bar_w
    x = (s.w - width) // 2
    s.add(plus(s, x + (size - 1) / 2, cy, size, thick), fill=LIME, edge=GREEN)
    # The end of the records, after which the new one goes.
    s.add(s.rect(x + width - bar_w, cy - d, x + width - 1, cy + d), **ARROW)


def sheet(s, x0, y0, x1, y1, lines=True, halo=False):
    """A sheet of paper, with lines of text when it is tall enough."""
    s.add(s.rect(x0, y0, x1, y1), fill=WHITE, edge=K, light=True, halo=halo)
    if lines and y1 - y0 >= 6:
        for y in range(y0 + 2, y1 - 1, 2):
            s.add(s.rect(x0 + 2, y, x1 - 2 - (y % 3 == 0) * 2, y), fill=GRAY)


def sym_duprec(s):
    w, h = s.w, s.h
    a = round(s.n * 0.6)
    sheet(s, 1, 1, a, a - 1, lines=False)
    sheet(s, w - 2 - a + 1, h - 2 - a + 2, w - 2, h - 2, halo=True)
    # The copy is a new record.
    m = s.n // 6
    s.add(plus(s, (a + 1) / 2, (a - 1) / 2, 2 * m + 1, 1), fill=GREEN)


def pencil(s, x0, y0, length, thick):
    """A pencil lying from its point at (x0, y0) up to the right, length pixels along each axis."""
    t = thick / 2
    tip = max(2.0, thick * 0.9)
    body = s.band([(x0 + tip, y0 - tip), (x0 + length, y0 - length)], t)
    # The sharpened end narrows to the point; its last third is the lead.
    cone, lead = set(), set()
    for y in range(s.h):
        for x in range(s.w):
            along = ((x - x0) - (y - y0)) / 2
            across = abs((x - x0) + (y - y0)) / 2 ** 0.5
            if 0 <= along <= tip and across <= t * along / tip + 0.5:
                (lead if along <= tip * 0.45 else cone).add((x, y))
    end = s.band([(x0 + length - 1, y0 - length + 1), (x0 + length, y0 - length)], t)
    s.add(body - end, fill=YELLOW, edge=MAROON, light=True)
    s.add(cone - body, fill=WHITE, edge=K, light=True)
    s.add(lead, fill=K)
    s.add(end, fill=RED)


def sym_edit(s):
    length = s.n - 4
    pencil(s, 1, s.h - 2, length, max(2.4, s.n / 5))


def window(s, x0, y0, x1, y1):
    """A form: white, outlined, with a title bar."""
    s.add(s.rect(x0, y0, x1, y1), fill=WHITE, edge=K, light=True)
    s.add(s.rect(x0, y0, x1, y0 + max(1, (y1 - y0) // 5)), fill=NAVY)


def sym_dsedit(s):
    x1, y1 = s.w - 1, s.h - 1
    window(s, 1, 1, x1 - 1, y1 - 1)
    top = 1 + max(1, (y1 - 2) // 5) + 2
    for y in range(top, y1 - 2, 3 if s.n >= 13 else 2):
        s.add(s.rect(3, y, (x1 - 1) // 2, y), fill=NAVY)
        s.add(s.rect((x1 - 1) // 2 + 2, y, x1 - 3, y), fill=GRAY)


def sym_edact(s):
    x1 = s.w - 3
    y1 = s.h - 3
    s.add(s.rect(1, 1, x1, y1), fill=AQUA, edge=K, light=True)
    r = max(1, s.n // 8)
    s.add(s.disc(x1 - r - 2, 3 + r, r), fill=YELLOW)
    s.add(s.polygon([(2, y1 - 1), (2 + (x1 - 2) * 0.35, 2 + (y1 - 2) * 0.45), (2 + (x1 - 2) * 0.7, y1 - 1)]), fill=GREEN)
    pencil(s, s.w // 2 - 1, s.h - 1, s.n - s.w // 2 - 0, max(2, s.n / 6))


def magnifier(s, cx, cy, r, handle):
    t = max(1.0, s.n / 12)
    s.add(s.disc(cx, cy, r), fill=AQUA, edge=K, light=True, halo=True)
    a = r * 0.7
    s.add(s.band([(cx + a + 1, cy + a + 1), (cx + a + handle, cy + a + handle)], t), fill=MAROON, edge=K)


def sym_findrep(s):
    sheet(s, 1, 1, round(s.w * 0.62), s.h - 2)
    r = s.n * 0.24
    magnifier(s, s.w * 0.62, s.h * 0.45, r, s.n * 0.28)


def sym_delete(s):
    thick = max(2, round(s.n / 5))
    y0 = (s.h - thick) // 2
    s.add(s.rect(2, y0, s.w - 3, y0 + thick - 1), fill=RED, edge=MAROON)


def cross(s, x0, y0, x1, y1, t):
    """An X from corner to corner of the box, strokes of half-width t."""
    return s.band([(x0, y0), (x1, y1)], t) | s.band([(x1, y0), (x0, y1)], t)


def sym_cancel(s):
    m = 2.5 if s.n > 9 else 1.5
    s.add(cross(s, m, m, s.w - 1 - m, s.h - 1 - m, s.n / 10 + 0.4), fill=RED, edge=MAROON)


def sym_post(s):
    t = s.n / 10 + 0.4
    w, h = s.w - 1, s.h - 1
    s.add(s.band([(w * 0.12, h * 0.52), (w * 0.4, h * 0.8), (w * 0.88, h * 0.2)], t), fill=GREEN, edge=K)


def sym_refresh(s):
    cx, cy = (s.w - 1) / 2, (s.h - 1) / 2
    r = s.n * 0.3
    t = max(0.9, s.n / 12)
    s.add(s.arc(cx, cy, r, t, 110, 30) | turn_head(s, cx, cy, r, 30, -1, max(2.0, s.n / 6)),
          fill=GREEN, edge=K)


def turn_head(s, cx, cy, r, angle, sense, d):
    """The head of a curved arrow ending at `angle` on the circle of radius r, pointing on along the circle
    (sense -1 clockwise, +1 counter-clockwise as seen), d pixels long and 2d wide."""
    a = math.radians(angle)
    px, py = cx + r * math.cos(a), cy - r * math.sin(a)
    tx, ty = -math.sin(a) * sense, -math.cos(a) * sense  # the tangent, on screen
    nx, ny = math.cos(a), -math.sin(a)                     # outwards
    return s.polygon([(px + tx * d, py + ty * d), (px + nx * d, py + ny * d), (px - nx * d, py - ny * d)])


def sym_empty(s):
    # A table with its header and nothing below it, crossed out.
    x0, y0, x1, y1 = 1, 1, s.w - 2, s.h - 2
    head = max(1, (y1 - y0) // 5)
    s.add(s.rect(x0, y0, x1, y1), fill=WHITE, edge=K, light=True)
    s.add(s.rect(x0, y0, x1, y0 + head), fill=NAVY)
    # The grid of the empty rows, faint.
    for y in range(y0 + head + 3, y1, 3):
        s.add(s.rect(x0 + 1, y, x1 - 1, y), fill=SILVER)
    s.add(s.rect((x0 + x1) // 2, y0 + head + 1, (x0 + x1) // 2, y1 - 1), fill=SILVER)
    body = y1 - y0 - head - 1
    size = max(3, round(body * 0.7))
    cx, cy = (x0 + x1) / 2, y0 + head + 1 + (body - 1) / 2
    half = (size - 1) / 2
    t = 0.9 if s.n >= 18 else 0.5
    s.add(cross(s, cx - half, cy - half, cx + half, cy + half, t), fill=RED)


def ribbon(s, x0, x1, y0, y1, halo=False):
    notch = max(1, round((x1 - x0) / 2))
    s.add(s.polygon([(x0, y0), (x1, y0), (x1, y1), ((x0 + x1) / 2, y1 - notch), (x0, y1)]),
          fill=RED, edge=MAROON, halo=halo)


def sym_bmk(s):
    half = max(2, round(s.n * 0.22))
    cx = (s.w - 1) // 2
    ribbon(s, cx - half, cx + half + (s.w % 2 == 0), 1, s.h - 2)


def sym_bmks(s):
    half = max(2, round(s.n * 0.2))
    ribbon(s, 1, 1 + 2 * half, 1, s.h - 4)
    ribbon(s, s.w - 2 - 2 * half, s.w - 2, 3, s.h - 2, halo=True)


def sym_find(s):
    # A key lying on its side: the bow on the left, the bit hanging down at the right end.
    cy = (s.h - 1) / 2 - (s.n >= 13)
    r = s.n * 0.24
    cx = 1 + r
    half = 1 if s.n >= 13 else 0
    bow = s.disc(cx, cy, r + 0.5) - s.disc(cx, cy, max(0.6, r * 0.3))
    x_end = s.w - 2
    shaft = s.rect(cx + r - 1, round(cy) - half, x_end, round(cy) + half)
    k = max(2, round(s.n / 4))
    bit = (s.rect(x_end - 2 * half, cy, x_end, cy + k) |
           s.rect(x_end - 2 * k, cy, x_end - 2 * k + 2 * half, cy + k - 1))
    s.add(bow | shaft | bit, fill=YELLOW, edge=K, light=True)


def sym_range(s):
    # |<-->|: from the first key to the last.
    d = max(2, round(s.n / 6))
    cy = centre_y(s)
    x0, x1 = 1, s.w - 2
    bars = s.rect(x0, cy - d - 2, x0, cy + d + 2) | s.rect(x1, cy - d - 2, x1, cy + d + 2)
    heads = s.triangle(x0 + 2, cy, d, 'l') | s.triangle(x1 - 2, cy, d, 'r')
    shaft = s.rect(x0 + 2, cy, x1 - 2, cy + (s.n >= 18))
    s.add(bars, fill=K)
    s.add(heads | shaft, **ARROW)


def funnel(s, x0, y0, x1, y1):
    w = x1 - x0
    neck = max(1, round(w * 0.14))
    mid = (x0 + x1) / 2
    waist = y0 + (y1 - y0) * 0.5
    return s.polygon([(x0, y0), (x1, y0), (mid + neck, waist), (mid + neck, y1 - 1), (mid - neck, y1),
                      (mid - neck, waist)])


def sym_filter(s):
    s.add(funnel(s, 1, 2, s.w - 2, s.h - 2), fill=AQUA, edge=K, light=True)


def sym_filtact(s):
    s.add(funnel(s, 1, 1, round(s.w * 0.72), s.h - 3), fill=AQUA, edge=K, light=True)
    # The active control whose value it filters on.
    fh = max(3, round(s.n / 4))
    s.add(s.rect(s.w - 2 - round(s.w * 0.45), s.h - 1 - fh, s.w - 2, s.h - 2), fill=YELLOW, edge=K,
          light=True, halo=True)


def cylinder(s, x0, y0, x1, y1):
    ry = max(1.0, (x1 - x0) / 5)
    cx, rx = (x0 + x1) / 2, (x1 - x0) / 2 + 0.4
    body = s.rect(x0, y0 + ry, x1, y1 - ry) | s.ellipse(cx, y0 + ry, rx, ry + 0.4) | s.ellipse(cx, y1 - ry, rx, ry + 0.4)
    s.add(body, fill=YELLOW, edge=K, light=True)
    # The rim of the top.
    rim = {(x, y) for x, y in s.ellipse(cx, y0 + ry, rx, ry + 0.4) if (x, y + 1) not in s.ellipse(cx, y0 + ry, rx, ry + 0.4)}
    s.add({(x, y) for x, y in rim if x0 < x < x1}, fill=K)


def with_cylinder(badge):
    def draw(s):
        cw = round(s.w * 0.55)
        cylinder(s, 1, 1, cw, s.h - 3)
        badge(s, s.w - 1 - round(s.n * 0.55), s.h - 1 - round(s.n * 0.55), s.w - 2, s.h - 2)
    return draw


def badge_start(s, x0, y0, x1, y1):
    d = (y1 - y0) // 2
    s.add(s.triangle(x1, y0 + d, min(d, x1 - x0), 'r'), fill=LIME, edge=GREEN, halo=True)


def badge_commit(s, x0, y0, x1, y1):
    t = max(0.8, s.n / 13)
    w, h = x1 - x0, y1 - y0
    s.add(s.band([(x0 + 0.5, y0 + h * 0.5), (x0 + w * 0.38, y1 - 0.5), (x1 - 0.3, y0 + 0.3)], t),
          fill=GREEN, edge=K, halo=True)


def badge_rollback(s, x0, y0, x1, y1):
    # Back the way it came: a U-turn over the top, ending down on the left.
    t = max(0.7, s.n / 16)
    d = max(1.5, s.n / 8)
    r = (x1 - x0) / 2 - t
    cx, cy = (x0 + x1) / 2 + 0.5, y0 + r + t + 0.5
    curve = s.arc(cx, cy, r, t, 340, 180) | s.band([(cx + r, cy), (cx + r, y1 - 0.5)], t)
    s.add(curve | turn_head(s, cx, cy + d * 0.5, r, 180, 1, d), fill=RED, edge=MAROON, halo=True)


def badge_info(s, x0, y0, x1, y1):
    r = (x1 - x0) / 2 + 0.3
    cx, cy = (x0 + x1) / 2, (y0 + y1) / 2
    s.add(s.disc(cx, cy, r), fill=BLUE, edge=NAVY, halo=True)
    ix = round(cx)
    s.add({(ix, round(y0 + 1 + (s.n >= 13)))} | s.rect(ix, round(cy - 0.5), ix, round(y1 - 1)), fill=WHITE)


def sym_qryparm(s):
    # A question mark: the hook, the stem, the dot.
    t = max(0.9, s.n / 11)
    cx = (s.w - 1) / 2
    r = s.n * 0.24
    cy = 1 + t + r - 0.5
    hook = s.arc(cx, cy, r, t, 270, 160)
    stem = s.band([(cx, cy + r - 0.5), (cx, s.h - 2 - 2 * t - 1.5)], t)
    dot = s.disc(cx, s.h - 2 - t + 0.3, t + 0.1)
    s.add(hook | stem | dot, fill=BLUE, edge=NAVY)


SYMBOLS = {
    'FIRST': lambda s: arrows(s, 'l', bar='first'), 'PREV': lambda s: arrows(s, 'l'),
    'NEXT': lambda s: arrows(s, 'r'), 'LAST': lambda s: arrows(s, 'r', bar='last'),
    'JUMPB': lambda s: arrows(s, 'l', 2), 'JUMPF': lambda s: arrows(s, 'r', 2),
    'INSERT': sym_insert, 'APPEND': sym_append, 'DUPREC': sym_duprec, 'EDIT': sym_edit, 'DSEDIT': sym_dsedit,
    'EDACT': sym_edact, 'FINDREP': sym_findrep, 'DELETE': sym_delete, 'CANCEL': sym_cancel, 'POST': sym_post,
    'REFRESH': sym_refresh, 'EMPTY': sym_empty, 'BMK': sym_bmk, 'BMKS': sym_bmks, 'FIND': sym_find,
    'RANGE': sym_range, 'FILTACT': sym_filtact, 'FILTER': sym_filter,
    'STARTT': with_cylinder(badge_start), 'COMMIT': with_cylinder(badge_commit),
    'ROLLBK': with_cylinder(badge_rollback), 'QRYPARM': sym_qryparm, 'DBINFO': with_cylinder(badge_info),
}
# The vertical variants: the horizontal symbol turned so that its arrows point up (left) and down (right).
VERTICAL = {'V' + name: name for name in ('FIRST', 'JUMPB', 'PREV', 'NEXT', 'JUMPF', 'LAST', 'APPEND')}
# Plain arrows are small enough for 9 x 9 in the small sets.
SMALL_ARROWS = {'FIRST', 'JUMPB', 'PREV', 'NEXT', 'JUMPF', 'LAST'}

# Glyph sets: (image width, image height, coloured, raised).
SETS = [(18, 18, True, True), (18, 18, False, True), (14, 13, True, True), (14, 13, False, True),
        (14, 13, True, False), (14, 13, False, False)]


def draw(name, w, h):
    """The shapes of base name `name` in a w x h box, turned for a vertical variant."""
    base = VERTICAL.get(name, name)
    sym = Symbol(h, w) if name in VERTICAL else Symbol(w, h)
    SYMBOLS[base](sym)
    return sym


def image_size(name, index):
    w, h = SETS[index][:2]
    if index >= 4 and VERTICAL.get(name, name) in SMALL_ARROWS:
        return 9, 9
    return w, h


def glyph(name, index):
    """The bitmap of set `index` of base name `name`: the enabled image and the disabled one side by side."""
    w, h, coloured, raised = (*image_size(name, index), *SETS[index][2:])
    sym = draw(name, w, h)
    pixels, grey = paint(sym, coloured, raised), disabled(paint(sym, False, raised))
    if name in VERTICAL:
        pixels, grey = transposed(pixels), transposed(grey)
    return checked(f"JEXNP_{name}{index}", side_by_side(pixels, grey))


def checked(resource, pixels):
    if pixels[-1][0] != BG:
        raise SystemExit(f"{resource}: the bottom-left pixel must stay the background (transparent) colour")
    if all(c == BG for row in pixels for c in row):
        raise SystemExit(f"{resource}: nothing drawn")
    return pixels


# ---- the wizard's own buttons ---------------------------------------------------------------------------
def wizard_create():
    """A magic wand with a spark: the wizard makes the buttons."""
    s = Symbol(18, 18)
    s.add(s.band([(2, 15), (10, 7)], 1.1), fill=K)
    s.add(s.band([(10, 7), (11.5, 5.5)], 1.1), fill=WHITE, edge=K, light=True)
    cx, cy, ro, ri = 12.5, 5, 4.8, 1.9
    star = [(cx + (ro if i % 2 == 0 else ri) * math.sin(math.radians(i * 36)),
             cy - (ro if i % 2 == 0 else ri) * math.cos(math.radians(i * 36))) for i in range(10)]
    s.add(s.polygon(star), fill=YELLOW, edge=K, light=True, halo=True)
    for x, y in ((4, 4), (15, 12), (6, 1)):
        s.add({(x, y), (x - 1, y), (x + 1, y), (x, y - 1), (x, y + 1)}, fill=TEAL)
    return checked("JEXNPDSGN_CREATE", paint(s, True, True))


def wizard_next():
    """An arrow pointing on to the next page."""
    s = Symbol(18, 18)
    s.add(s.rect(2, 7, 9, 10) | s.triangle(15, 8, 7, 'r') | s.triangle(15, 9, 7, 'r'), fill=LIME, edge=GREEN)
    return checked("JEXNPDSGN_NEXT", side_by_side(paint(s, True, True), disabled(paint(s, False, True))))


def base_names():
    names = list(SYMBOLS)
    return names[:6] + ['V' + n for n in names[:6]] + names[6:8] + ['VAPPEND'] + names[8:]


def resources():
    """Every bitmap, as (resource name, picture) pairs."""
    out = [(f"JEXNP_{name}{i}", glyph(name, i)) for name in base_names() for i in range(len(SETS))]
    out.append(("JEXNPDSGN_CREATE", wizard_create()))
    out.append(("JEXNPDSGN_NEXT", wizard_next()))
    return out


def main(argv):
    return run_generator(
        argv, __doc__.splitlines()[0], resources,
        ["Generated by tools/glyphs/make_nav_glyphs.py; do not edit. The navigator button glyphs of dclJEXC,",
         "\"JEXNP_\" + base name + glyph set 0 .. 5, and the navigator wizard's \"JEXNPDSGN_\" button glyphs."],
        "NavigatorGlyphs", per_row=len(SETS), scale=3)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
