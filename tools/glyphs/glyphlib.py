"""Shared drawing kit of the glyph generators (make_glyphs.py, make_nav_glyphs.py): the classic 16-colour
palette, a canvas of any size with pixel primitives, a small pixel font, 4-bit BMP and PNG writers, an
enlarged contact sheet to look at, and the C++ source that adds drawn bitmaps to a module's resource table.

Pictures are lists of rows of palette indices. Standard library only.
"""

import argparse
import os
import struct
import zlib

# The classic 16-colour palette in its usual order, as (r, g, b).
PALETTE = [
    (0x00, 0x00, 0x00), (0x80, 0x00, 0x00), (0x00, 0x80, 0x00), (0x80, 0x80, 0x00),
    (0x00, 0x00, 0x80), (0x80, 0x00, 0x80), (0x00, 0x80, 0x80), (0xC0, 0xC0, 0xC0),
    (0x80, 0x80, 0x80), (0xFF, 0x00, 0x00), (0x00, 0xFF, 0x00), (0xFF, 0xFF, 0x00),
    (0x00, 0x00, 0xFF), (0xFF, 0x00, 0xFF), (0x00, 0xFF, 0xFF), (0xFF, 0xFF, 0xFF),
]
K, MAROON, GREEN, OLIVE, NAVY, PURPLE, TEAL, SILVER, GRAY, RED, LIME, YELLOW, BLUE, FUCHSIA, AQUA, WHITE = range(16)
BG = OLIVE  # transparent; never drawn with

# A 3x5 pixel font: rows top to bottom, '#' set.
FONT = {
    'A': ["###", "#.#", "###", "#.#", "#.#"], 'B': ["##.", "#.#", "##.", "#.#", "##."],
    'C': ["###", "#..", "#..", "#..", "###"], 'D': ["##.", "#.#", "#.#", "#.#", "##."],
    'E': ["###", "#..", "##.", "#..", "###"], 'F': ["###", "#..", "##.", "#..", "#.."],
    'G': ["###", "#..", "#.#", "#.#", "###"], 'H': ["#.#", "#.#", "###", "#.#", "#.#"],
    'I': ["###", ".#.", ".#.", ".#.", "###"], 'K': ["#.#", "#.#", "##.", "#.#", "#.#"],
    'L': ["#..", "#..", "#..", "#..", "###"], 'M': ["#.#", "###", "###", "#.#", "#.#"],
    'N': ["##.", "#.#", "#.#", "#.#", "#.#"], 'O': ["###", "#.#", "#.#", "#.#", "###"],
    'P': ["###", "#.#", "###", "#..", "#.."], 'Q': ["###", "#.#", "#.#", "###", "..#"],
    'R': ["##.", "#.#", "##.", "#.#", "#.#"], 'S': ["###", "#..", "###", "..#", "###"],
    'T': ["###", ".#.", ".#.", ".#.", ".#."], 'U': ["#.#", "#.#", "#.#", "#.#", "###"],
    'V': ["#.#", "#.#", "#.#", "#.#", ".#."], 'W': ["#.#", "#.#", "###", "###", "#.#"],
    'X': ["#.#", "#.#", ".#.", "#.#", "#.#"], 'Y': ["#.#", "#.#", ".#.", ".#.", ".#."],
    'Z': ["###", "..#", ".#.", "#..", "###"],
    'a': ["...", "##.", ".##", "#.#", "###"], 'b': ["#..", "#..", "##.", "#.#", "##."],
    'c': ["...", "...", "###", "#..", "###"],
    '0': ["###", "#.#", "#.#", "#.#", "###"], '1': [".#.", "##.", ".#.", ".#.", "###"],
    '2': ["##.", "..#", ".#.", "#..", "###"], '3': ["##.", "..#", ".#.", "..#", "##."],
    '4': ["#.#", "#.#", "###", "..#", "..#"], '5': ["###", "#..", "##.", "..#", "##."],
    '6': [".##", "#..", "###", "#.#", "###"], '7': ["###", "..#", ".#.", ".#.", ".#."],
    '8': ["###", "#.#", "###", "#.#", "###"], '9': ["###", "#.#", "###", "..#", "##."],
    '?': ["##.", "..#", ".#.", "...", ".#."], '#': ["#.#", "###", "#.#", "###", "#.#"],
    '$': [".##", "##.", ".#.", ".##", "##."], '-': ["...", "...", "###", "...", "..."],
    '+': ["...", ".#.", "###", ".#.", "..."], ':': ["...", ".#.", "...", ".#.", "..."],
    '@': ["###", "#.#", "#.#", "#..", "###"], '.': ["...", "...", "...", "...", ".#."],
    'i': [".#.", "...", "##.", ".#.", "###"], '!': [".#.", ".#.", ".#.", "...", ".#."],
    ' ': ["...", "...", "...", "...", "..."],
}



class Glyph:
    """A w x h picture filled with the background (transparent) colour, drawn on with clipped primitives."""

    def __init__(self, w, h):
        self.w, self.h = w, h
        self.p = [[BG] * w for _ in range(h)]

    # ---- primitives (coordinates inclusive, clipped) ----
    def px(self, x, y, c):
        if 0 <= x < self.w and 0 <= y < self.h:
            self.p[y][x] = c

    def hline(self, x0, x1, y, c):
        for x in range(min(x0, x1), max(x0, x1) + 1):
            self.px(x, y, c)

    def vline(self, x, y0, y1, c):
        for y in range(min(y0, y1), max(y0, y1) + 1):
            self.px(x, y, c)

    def rect(self, x0, y0, x1, y1, c):
        self.hline(x0, x1, y0, c)
        self.hline(x0, x1, y1, c)
        self.vline(x0, y0, y1, c)
        self.vline(x1, y0, y1, c)

    def fill(self, x0, y0, x1, y1, c):
        for y in range(y0, y1 + 1):
            self.hline(x0, x1, y, c)

    def line(self, x0, y0, x1, y1, c):
        dx, dy = abs(x1 - x0), -abs(y1 - y0)
        sx, sy = (1 if x0 < x1 else -1), (1 if y0 < y1 else -1)
        err = dx + dy
        while True:
            self.px(x0, y0, c)
            if x0 == x1 and y0 == y1:
                return
            e2 = 2 * err
            if e2 >= dy:
                err += dy
                x0 += sx
            if e2 <= dx:
                err += dx
                y0 += sy

    def polygon(self, pts, c):
        """Fills a polygon by scanlines through pixel centres, then draws its edges."""
        ys = [y for _, y in pts]
        for y in range(min(ys), max(ys) + 1):
            xs = []
            for i in range(len(pts)):
                (xa, ya), (xb, yb) = pts[i], pts[(i + 1) % len(pts)]
                if ya == yb:
                    continue
                if min(ya, yb) <= y < max(ya, yb) or (y == max(ys) and max(ya, yb) == y):
                    xs.append(xa + (y - ya) * (xb - xa) / (yb - ya))
            xs.sort()
            for i in range(0, len(xs) - 1, 2):
                self.hline(round(xs[i]), round(xs[i + 1]), y, c)
        for i in range(len(pts)):
            self.line(*pts[i], *pts[(i + 1) % len(pts)], c)

    def circle(self, cx, cy, r, c, filled=False):
        for y in range(-r, r + 1):
            for x in range(-r, r + 1):
                d = x * x + y * y
                if (filled and d <= r * r + r) or (not filled and r * r - r <= d <= r * r + r):
                    self.px(cx + x, cy + y, c)

    def text(self, x, y, s, c):
        for ch in s:
            rows = FONT[ch]
            for j, row in enumerate(rows):
                for i, bit in enumerate(row):
                    if bit == '#':
                        self.px(x + i, y + j, c)
            x += 4

    def bitmap(self, x, y, rows, c):
        for j, row in enumerate(rows):
            for i, bit in enumerate(row):
                if bit == '#':
                    self.px(x + i, y + j, c)


def bmp_bytes(pixels):
    """A 16-colour BMP file (bottom-up rows, 4 bits per pixel) of a picture."""
    h, w = len(pixels), len(pixels[0])
    row_bytes = (w * 4 + 31) // 32 * 4
    data = bytearray()
    for y in range(h - 1, -1, -1):
        row = bytearray()
        for x in range(0, w, 2):
            right = pixels[y][x + 1] if x + 1 < w else 0
            row.append((pixels[y][x] << 4) | right)
        row.extend(b"\0" * (row_bytes - len(row)))
        data.extend(row)
    palette = b"".join(struct.pack("<BBBB", b, g, r, 0) for r, g, b in PALETTE)
    offset = 14 + 40 + len(palette)
    header = struct.pack("<2sIHHI", b"BM", offset + len(data), 0, 0, offset)
    info = struct.pack("<IiiHHIIiiII", 40, w, h, 1, 4, 0, len(data), 2835, 2835, 16, 0)
    return header + info + palette + bytes(data)


def png_bytes(width, height, rgb_rows):
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body) & 0xFFFFFFFF)
    raw = b"".join(b"\0" + bytes(v for px in row for v in px) for row in rgb_rows)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b""))


# The background shows as a button face on contact sheets, the way the glyphs are seen in use.
SHEET_FACE = (0xD4, 0xD0, 0xC8)


def write_contact_sheet(path, rows, scale=4, gap=4, backdrop=(96, 96, 96)):
    """Writes a PNG of pictures enlarged `scale` times, laid out as `rows` (a list of lists of pictures)."""
    row_h = [max((len(p) for p in row), default=0) * scale + gap for row in rows]
    width = max(sum(len(p[0]) * scale + gap for p in row) for row in rows) + gap
    height = sum(row_h) + gap
    canvas = [[backdrop] * width for _ in range(height)]
    oy = gap
    for row, rh in zip(rows, row_h):
        ox = gap
        for pixels in row:
            for y, line in enumerate(pixels):
                for x, c in enumerate(line):
                    colour = SHEET_FACE if c == BG else PALETTE[c]
                    for dy in range(scale):
                        out = canvas[oy + y * scale + dy]
                        for dx in range(scale):
                            out[ox + x * scale + dx] = colour
            ox += len(pixels[0]) * scale + gap
        oy += rh
    with open(path, "wb") as f:
        f.write(png_bytes(width, height, canvas))


def write_resource_cpp(path, header_lines, struct_name, bitmaps):
    """Writes a C++ source that adds the bitmaps, (resource name, BMP bytes) pairs, to the module's resource
    table while it initialises. The resource name doubles as the array's identifier. The file is written
    only when its text changed, so that a re-run does not rebuild the module."""
    out = [f"// {line}" if line else "//" for line in header_lines]
    out += ['#include "rtl/resources.h"', "", "namespace {", ""]
    for name, data in bitmaps:
        out.append(f"const unsigned char {name}[] = {{")
        for i in range(0, len(data), 24):
            out.append("    " + ", ".join(f"0x{b:02x}" for b in data[i:i + 24]) + ",")
        out.append("};")
    out += ["", "// Resources are declared while the module initialises, as the resource table expects.",
            f"struct T{struct_name} {{", f"    T{struct_name}() {{"]
    for name, _ in bitmaps:
        out.append(f'        jexThisModule().AddBitmap("{name}", {name}, sizeof {name});')
    out += ["    }", "};", f"const T{struct_name} {struct_name};", "", "} // namespace", ""]
    text = "\n".join(out)
    if os.path.exists(path):
        with open(path) as f:
            if f.read() == text:
                return
    with open(path, "w") as f:
        f.write(text)


def run_generator(argv, description, bitmaps, cpp_header, struct_name, per_row, scale=4, listing=None):
    """The command line both generators share: --cpp, --bmp-dir, --preview (per_row pictures a row) and
    --list. bitmaps is a function giving the (resource name, picture) pairs; listing, if given, the names
    --list prints instead of the resource names."""
    ap = argparse.ArgumentParser(description=description)
    ap.add_argument("--cpp", help="C++ source to write")
    ap.add_argument("--bmp-dir", help="folder to write every bitmap to as <RESOURCE>.bmp")
    ap.add_argument("--preview", help="PNG contact sheet to write")
    ap.add_argument("--list", action="store_true", help="print the names drawn")
    args = ap.parse_args(argv)
    drawn = bitmaps()
    if args.list:
        print("\n".join(listing if listing is not None else [name for name, _ in drawn]))
    if args.cpp:
        write_resource_cpp(args.cpp, cpp_header, struct_name, [(name, bmp_bytes(p)) for name, p in drawn])
    if args.bmp_dir:
        os.makedirs(args.bmp_dir, exist_ok=True)
        for name, pixels in drawn:
            with open(os.path.join(args.bmp_dir, name + ".bmp"), "wb") as f:
                f.write(bmp_bytes(pixels))
    if args.preview:
        write_contact_sheet(args.preview, [[p for _, p in drawn[i:i + per_row]]
                                           for i in range(0, len(drawn), per_row)], scale=scale)
    return 0
