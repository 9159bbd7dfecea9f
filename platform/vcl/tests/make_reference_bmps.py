#!/usr/bin/env python3
"""Writes reference BMP files with an encoder independent of the library under test, for the graphics tests.

Every NAME.bmp comes with NAME.txt: "width height bits" on the first line, then one line per pixel row, top
row first, of the colours the image shows as six hex digits BBGGRR (the $00BBGGRR layout of a colour value).
Usage: make_reference_bmps.py OUTPUT_DIR
"""
import os
import struct
import sys


def file_header(payload_len, off_bits):
    return b"BM" + struct.pack("<IHHI", 14 + payload_len, 0, 0, off_bits)


def info_header(w, h, bits, compression=0, size_image=0, clr_used=0):
    return struct.pack("<IiiHHIIiiII", 40, w, h, 1, bits, compression, size_image, 2835, 2835, clr_used, 0)


def rows_padded(rows):
    out = b""
    for r in rows:
        out += r + b"\0" * ((4 - len(r) % 4) % 4)
    return out


def pack_indices(indices, bits):
    per = 8 // bits
    out = bytearray((len(indices) * bits + 7) // 8)
    for i, v in enumerate(indices):
        out[i // per] |= v << (8 - bits * (i % per + 1))
    return bytes(out)


def bgr(c):
    r, g, b = c
    return "%02X%02X%02X" % (b, g, r)


def write(outdir, name, w, h, bits, data, pixels):
    with open(os.path.join(outdir, name + ".bmp"), "wb") as f:
        f.write(data)
    with open(os.path.join(outdir, name + ".txt"), "w") as f:
        f.write("%d %d %d\n" % (w, h, bits))
        for y in range(h):
            f.write(" ".join(bgr(pixels[y][x]) for x in range(w)) + "\n")


def paletted(outdir, name, w, h, bits, palette, index, top_down=False, clr_used=None):
    rows = [pack_indices([index(x, y) for x in range(w)], bits) for y in range(h)]
    stored = rows if top_down else rows[::-1]
    pixels = rows_padded(stored)
    pal = b"".join(struct.pack("<BBBB", b, g, r, 0) for r, g, b in palette)
    used = len(palette) if clr_used is None else clr_used
    info = info_header(w, -h if top_down else h, bits, 0, len(pixels), used)
    off = 14 + len(info) + len(pal)
    data = file_header(len(info) + len(pal) + len(pixels), off) + info + pal + pixels
    expect = [[palette[index(x, y)] for x in range(w)] for y in range(h)]
    write(outdir, name, w, h, bits, data, expect)


def direct(outdir, name, w, h, bits, colour, header="info"):
    rows = []
    expect = []
    for y in range(h):
        row = b""
        erow = []
        for x in range(w):
            r, g, b = colour(x, y)
            if bits == 24:
                row += struct.pack("<BBB", b, g, r)
                erow.append((r, g, b))
            elif bits == 32:
                row += struct.pack("<BBBB", b, g, r, (x * 40) & 0xFF)
                erow.append((r, g, b))
            elif bits == 16 and header == "565":
                v = ((r >> 3) << 11) | ((g >> 2) << 5) | (b >> 3)
                row += struct.pack("<H", v)
                erow.append(((r >> 3) << 3 | (r >> 5), (g >> 2) << 2 | (g >> 6), (b >> 3) << 3 | (b >> 5)))
            else:  # 16 bits, 5-5-5
                v = ((r >> 3) << 10) | ((g >> 3) << 5) | (b >> 3)
                row += struct.pack("<H", v)
                erow.append(((r >> 3) << 3 | (r >> 5), (g >> 3) << 3 | (g >> 5), (b >> 3) << 3 | (b >> 5)))
        rows.append(row)
        expect.append(erow)
    pixels = rows_padded(rows[::-1])
    if header == "565":
        info = info_header(w, h, 16, 3, len(pixels)) + struct.pack("<III", 0xF800, 0x07E0, 0x001F)
    elif header == "v5":
        # A version 5 header with explicit masks in the header and an sRGB colour space.
        info = struct.pack("<IiiHHIIiiII", 124, w, h, 1, 32, 3, len(pixels), 2835, 2835, 0, 0)
        info += struct.pack("<IIII", 0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000)
        info += b"sRGB" + b"\0" * 36 + struct.pack("<III", 0, 0, 0) + struct.pack("<IIII", 4, 0, 0, 0)
        assert len(info) == 124
    else:
        info = info_header(w, h, bits, 0, len(pixels))
    off = 14 + len(info)
    write(outdir, name, w, h, bits, file_header(len(info) + len(pixels), off) + info + pixels, expect)


def core_8bpp(outdir):
    w, h = 6, 3
    palette = [(i, 255 - i, (i * 3) & 0xFF) for i in range(256)]
    index = lambda x, y: (x * 40 + y * 7) & 0xFF
    rows = [bytes(index(x, y) for x in range(w)) for y in range(h)]
    pixels = rows_padded(rows[::-1])
    info = struct.pack("<IHHHH", 12, w, h, 1, 8)
    pal = b"".join(struct.pack("<BBB", b, g, r) for r, g, b in palette)
    off = 14 + len(info) + len(pal)
    data = file_header(len(info) + len(pal) + len(pixels), off) + info + pal + pixels
    write(outdir, "core_8bpp", w, h, 8, data, [[palette[index(x, y)] for x in range(w)] for y in range(h)])


def rle(outdir, bits):
    w, h = 10, 4
    palette = [((i * 17) & 0xFF, (i * 29) & 0xFF, (i * 43) & 0xFF) for i in range(1 << bits)]
    n = len(palette)
    # Per row: an encoded run, then an absolute run, then end of line.
    idx = [[(y + 1) % n] * 4 + [(x * 3 + y) % n for x in range(6)] for y in range(h)]
    stream = b""
    for y in range(h - 1, -1, -1):
        row = idx[y]
        if bits == 8:
            stream += bytes([4, row[0]])
            stream += bytes([0, 6]) + bytes(row[4:10])  # 6 bytes: already 16-bit aligned
        else:
            stream += bytes([4, row[0] << 4 | row[0]])
            absolute = row[4:10]
            packed = bytes(absolute[i] << 4 | absolute[i + 1] for i in range(0, 6, 2))
            stream += bytes([0, 6]) + packed + b"\0"  # 3 bytes, padded to 4
        stream += b"\0\0"
    stream += b"\0\1"
    info = info_header(w, h, bits, 1 if bits == 8 else 2, len(stream), n)
    pal = b"".join(struct.pack("<BBBB", b, g, r, 0) for r, g, b in palette)
    off = 14 + len(info) + len(pal)
    data = file_header(len(info) + len(pal) + len(stream), off) + info + pal + stream
    write(outdir, "rle%d" % bits, w, h, bits, data, [[palette[v] for v in idx[y]] for y in range(h)])


def main():
    outdir = sys.argv[1]
    os.makedirs(outdir, exist_ok=True)
    paletted(outdir, "pal_1bpp", 13, 7, 1, [(10, 20, 30), (200, 210, 220)], lambda x, y: (x + y) % 2)
    pal16 = [((i * 16) & 0xFF, 255 - i * 16, (i * 37) & 0xFF) for i in range(16)]
    paletted(outdir, "pal_4bpp", 11, 6, 4, pal16, lambda x, y: (x * 3 + y * 5) % 16)
    paletted(outdir, "pal_4bpp_short_palette", 5, 3, 4, pal16[:5], lambda x, y: (x + y) % 5)
    pal256 = [(i, (i * 7) & 0xFF, 255 - i) for i in range(256)]
    paletted(outdir, "pal_8bpp", 9, 5, 8, pal256, lambda x, y: (x * 31 + y * 17) & 0xFF)
    paletted(outdir, "pal_8bpp_topdown", 9, 5, 8, pal256, lambda x, y: (x * 31 + y * 17) & 0xFF, top_down=True)
    colour = lambda x, y: ((x * 30) & 0xFF, (y * 40) & 0xFF, ((x + y) * 10) & 0xFF)
    direct(outdir, "rgb_24bpp", 7, 5, 24, colour)
    direct(outdir, "rgb_32bpp", 5, 4, 32, colour)
    direct(outdir, "rgb_16bpp_555", 5, 3, 16, colour)
    direct(outdir, "rgb_16bpp_565", 6, 3, 16, colour, header="565")
    direct(outdir, "v5_32bpp", 4, 3, 32, colour, header="v5")
    core_8bpp(outdir)
    rle(outdir, 8)
    rle(outdir, 4)


if __name__ == "__main__":
    main()
