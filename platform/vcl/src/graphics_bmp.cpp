// The BMP codec: reads core and info headers (v1 to v5) with palettes, bit fields, top-down rows and RLE
// compression, and writes uncompressed files of 1, 4, 8, 16, 24 and 32 bits per pixel.
#include <algorithm>
#include <bit>
#include <unordered_map>

#include "graphics_internal.h"

namespace vcl::detail {

void InvalidBitmap(const std::string& reason) {
    throw rtl::EInvalidGraphic("Bitmap image is not valid: " + reason);
}

namespace {

constexpr uint32_t BI_RGB = 0, BI_RLE8 = 1, BI_RLE4 = 2, BI_BITFIELDS = 3, BI_ALPHABITFIELDS = 6;
// Larger images are refused rather than allocated (256 MB of pixels).
constexpr int64_t MaxPixels = int64_t(1) << 26;

uint16_t U16(const uint8_t* p) {
    return static_cast<uint16_t>(p[0] | (p[1] << 8));
}
uint32_t U32(const uint8_t* p) {
    return p[0] | (p[1] << 8) | (p[2] << 16) | (uint32_t(p[3]) << 24);
}

void Put16(std::vector<uint8_t>& out, uint16_t v) {
    out.push_back(v & 0xFF);
    out.push_back(v >> 8);
}
void Put32(std::vector<uint8_t>& out, uint32_t v) {
    for (int i = 0; i < 4; ++i)
        out.push_back((v >> (8 * i)) & 0xFF);
}

// One colour channel of a bit-field pixel, widened to 8 bits by repeating its bits (so that narrowing
// again gives back the same value).
struct TChannel {
    uint32_t Mask = 0;
    int Shift = 0, Bits = 0;
    explicit TChannel(uint32_t mask) : Mask(mask) {
        if (!mask) return;
        Shift = std::countr_zero(mask);
        uint32_t m = mask >> Shift;
        if (m & (m + 1)) InvalidBitmap("colour mask bits are not contiguous");
        Bits = std::popcount(m);
    }
    uint8_t Get(uint32_t v) const {
        if (!Bits) return 0;
        uint32_t x = (v & Mask) >> Shift;
        if (Bits >= 8) return static_cast<uint8_t>(x >> (Bits - 8));
        uint32_t r = 0;
        int filled = 0;
        while (filled < 8) {
            r = (r << Bits) | x;
            filled += Bits;
        }
        return static_cast<uint8_t>(r >> (filled - 8));
    }
};

void DecodeRle(const uint8_t* p, size_t n, int bpp, int w, int h, const std::vector<uint32_t>& pal,
               std::vector<uint32_t>& px, size_t& used) {
    auto colour = [&](int idx) { return idx < static_cast<int>(pal.size()) ? pal[idx] : 0u; };
    std::fill(px.begin(), px.end(), colour(0));
    int x = 0, y = h - 1; // rows are stored bottom-up
    auto put = [&](int idx) {
        if (x < w && y >= 0) px[size_t(y) * w + x] = colour(idx);
        ++x;
    };
    size_t i = 0;
    for (;;) {
        if (i + 2 > n) InvalidBitmap("compressed pixel data ends without an end-of-bitmap mark");
        uint8_t count = p[i], code = p[i + 1];
        i += 2;
        if (count > 0) {
            for (int k = 0; k < count; ++k) {
                if (bpp == 8)
                    put(code);
                else
                    put(k % 2 == 0 ? code >> 4 : code & 0x0F);
            }
            continue;
        }
        if (code == 0) { // end of line
            x = 0;
            --y;
        } else if (code == 1) { // end of bitmap
            break;
        } else if (code == 2) { // delta
            if (i + 2 > n) InvalidBitmap("compressed pixel data is truncated");
            x += p[i];
            y -= p[i + 1];
            i += 2;
        } else { // absolute run of `code` pixels, padded to a 16-bit boundary
            size_t bytes = bpp == 8 ? code : (code + 1) / 2;
            if (i + bytes > n) InvalidBitmap("compressed pixel data is truncated");
            for (int k = 0; k < code; ++k) {
                if (bpp == 8)
                    put(p[i + k]);
                else
                    put(k % 2 == 0 ? p[i + k / 2] >> 4 : p[i + k / 2] & 0x0F);
            }
            i += (bytes + 1) & ~size_t(1);
        }
        if (y < -1) break; // moved below the image; nothing more can be drawn
    }
    used = i;
}

} // namespace

const std::vector<uint32_t>& Vga16Palette() {
    static const std::vector<uint32_t> pal = {clBlack, clMaroon,  clGreen,  clOlive, clNavy, clPurple,
                                              clTeal,  clGray,    clSilver, clRed,   clLime, clYellow,
                                              clBlue,  clFuchsia, clAqua,   clWhite};
    return pal;
}

int NearestIndex(const std::vector<uint32_t>& palette, uint32_t rgb) {
    int best = 0;
    int64_t bestDist = INT64_MAX;
    for (size_t i = 0; i < palette.size(); ++i) {
        int dr = int(R(palette[i])) - R(rgb), dg = int(G(palette[i])) - G(rgb),
            db = int(B(palette[i])) - B(rgb);
        int64_t d = int64_t(dr) * dr + int64_t(dg) * dg + int64_t(db) * db;
        if (d < bestDist) {
            bestDist = d;
            best = static_cast<int>(i);
            if (d == 0) break;
        }
    }
    return best;
}

void DecodeDibAt(const uint8_t* buf, size_t size, size_t hdr, size_t bitsOffset, int heightOverride,
                 TDibImage& out) {
    if (hdr + 4 > size) InvalidBitmap("the bitmap header is truncated");
    uint32_t hdrSize = U32(buf + hdr);
    bool core = hdrSize == 12;
    if (!core && (hdrSize < 40 || hdrSize > 1024))
        InvalidBitmap("unknown bitmap header size " + std::to_string(hdrSize));
    if (hdr + hdrSize > size) InvalidBitmap("the bitmap header is truncated");
    const uint8_t* h = buf + hdr;
    int64_t width, height;
    int bpp;
    uint32_t compression = BI_RGB, clrUsed = 0, sizeImage = 0;
    if (core) {
        width = U16(h + 4);
        height = U16(h + 6);
        bpp = U16(h + 10);
    } else {
        width = static_cast<int32_t>(U32(h + 4));
        height = static_cast<int32_t>(U32(h + 8));
        bpp = U16(h + 14);
        compression = U32(h + 16);
        sizeImage = U32(h + 20);
        clrUsed = U32(h + 32);
    }
    bool topDown = height < 0;
    if (topDown) height = -height;
    if (heightOverride > 0) height = heightOverride;
    if (width < 0) InvalidBitmap("negative width");
    if (width * height > MaxPixels) InvalidBitmap("the image is too large");
    bool paletted = bpp == 1 || bpp == 2 || bpp == 4 || bpp == 8;
    if (!paletted && bpp != 16 && bpp != 24 && bpp != 32)
        InvalidBitmap(std::to_string(bpp) + " bits per pixel");
    if (core && (bpp == 2 || bpp == 16 || bpp == 32)) InvalidBitmap(std::to_string(bpp) + " bits per pixel");
    if (hdrSize == 64 && (compression == 3 || compression == 4))
        InvalidBitmap("the compression of this old two-version header is not supported");
    switch (compression) {
    case BI_RGB:
        break;
    case BI_RLE8:
        if (bpp != 8) InvalidBitmap("RLE8 compression needs 8 bits per pixel");
        break;
    case BI_RLE4:
        if (bpp != 4) InvalidBitmap("RLE4 compression needs 4 bits per pixel");
        break;
    case BI_BITFIELDS:
    case BI_ALPHABITFIELDS:
        if (bpp != 16 && bpp != 32) InvalidBitmap("bit-field masks need 16 or 32 bits per pixel");
        break;
    default:
        InvalidBitmap("compression method " + std::to_string(compression) + " is not supported");
    }
    bool rle = compression == BI_RLE8 || compression == BI_RLE4;
    if (rle && topDown) InvalidBitmap("a compressed bitmap cannot be stored top-down");

    if (bitsOffset != SIZE_MAX && bitsOffset < hdr + hdrSize)
        InvalidBitmap("the pixel data offset lies inside the header");
    // Colour masks: inside a v2+ header, or just after a plain info header.
    size_t pos = hdr + hdrSize;
    uint32_t masks[4] = {0, 0, 0, 0};
    bool bitfields = compression == BI_BITFIELDS || compression == BI_ALPHABITFIELDS;
    if (bitfields) {
        if (hdrSize >= 52) {
            for (int i = 0; i < 3; ++i)
                masks[i] = U32(h + 40 + 4 * i);
            if (hdrSize >= 56) masks[3] = U32(h + 52);
        } else {
            int count = compression == BI_ALPHABITFIELDS ? 4 : 3;
            if (pos + 4 * count > size) InvalidBitmap("the colour masks are truncated");
            for (int i = 0; i < count; ++i)
                masks[i] = U32(buf + pos + 4 * i);
            pos += 4 * count;
        }
    } else if (bpp == 16) {
        masks[0] = 0x7C00, masks[1] = 0x03E0, masks[2] = 0x001F;
    } else if (bpp == 32) {
        masks[0] = 0xFF0000, masks[1] = 0xFF00, masks[2] = 0xFF, masks[3] = 0xFF000000;
    }

    // Palette
    size_t entry = core ? 3 : 4;
    std::vector<uint32_t> palette;
    if (paletted) {
        size_t count = size_t(1) << bpp;
        if (!core && clrUsed != 0 && clrUsed < count) count = clrUsed;
        if (bitsOffset != SIZE_MAX && bitsOffset >= pos && (bitsOffset - pos) / entry < count)
            count = (bitsOffset - pos) / entry; // a shorter palette than announced; the rest reads as black
        if (pos + count * entry > size) InvalidBitmap("the colour palette is truncated");
        palette.resize(count);
        for (size_t i = 0; i < count; ++i) {
            const uint8_t* e = buf + pos + i * entry;
            palette[i] = RGB(e[2], e[1], e[0]);
        }
        pos += count * entry;
    } else if (!core && clrUsed != 0 && bitsOffset == SIZE_MAX) {
        pos += size_t(std::min<uint32_t>(clrUsed, 256)) * entry; // an optional palette for display only
    }
    size_t bits = bitsOffset == SIZE_MAX ? pos : bitsOffset;
    if (bits > size) InvalidBitmap("the pixel data offset lies outside the data");

    int w = static_cast<int>(width), hgt = static_cast<int>(height);
    // Check the data can hold the image before allocating it: uncompressed rows exactly, compressed ones
    // by the most a run can expand (a delta of 4 bytes skips at most 255 x 255 pixels).
    if (w > 0 && hgt > 0) {
        size_t stride = ((size_t(w) * bpp + 31) / 32) * 4;
        if (!rle && bits + stride * (hgt - 1) + (size_t(w) * bpp + 7) / 8 > size)
            InvalidBitmap("the pixel data is truncated");
        if (rle && int64_t(w) * hgt > int64_t(size - bits + 4) * 16384)
            InvalidBitmap("the compressed pixel data is too short for the image size");
    }
    std::vector<uint32_t> px(size_t(w) * hgt);
    std::vector<uint8_t> alpha;
    size_t end;
    if (w == 0 || hgt == 0) {
        w = hgt = 0;
        px.clear();
        end = bits;
    } else if (rle) {
        size_t avail = size - bits;
        if (sizeImage != 0 && sizeImage < avail) avail = sizeImage;
        size_t used = 0;
        DecodeRle(buf + bits, avail, bpp, w, hgt, palette, px, used);
        end = bits + used;
    } else {
        size_t stride = ((size_t(w) * bpp + 31) / 32) * 4; // the final row may lack its padding
        TChannel cr(masks[0]), cg(masks[1]), cb(masks[2]), ca(masks[3]);
        bool anyAlpha = false;
        if (bpp == 32 && masks[3]) alpha.resize(px.size());
        for (int row = 0; row < hgt; ++row) {
            const uint8_t* src = buf + bits + stride * row;
            int y = topDown ? row : hgt - 1 - row;
            uint32_t* dst = px.data() + size_t(y) * w;
            switch (bpp) {
            case 1:
            case 2:
            case 4:
            case 8: {
                int perByte = 8 / bpp, maskBits = (1 << bpp) - 1;
                for (int x = 0; x < w; ++x) {
                    int shift = 8 - bpp * (x % perByte + 1);
                    size_t idx = (src[x / perByte] >> shift) & maskBits;
                    dst[x] = idx < palette.size() ? palette[idx] : 0;
                }
                break;
            }
            case 16:
                for (int x = 0; x < w; ++x) {
                    uint32_t v = U16(src + 2 * x);
                    dst[x] = RGB(cr.Get(v), cg.Get(v), cb.Get(v));
                }
                break;
            case 24:
                for (int x = 0; x < w; ++x)
                    dst[x] = RGB(src[3 * x + 2], src[3 * x + 1], src[3 * x]);
                break;
            case 32:
                for (int x = 0; x < w; ++x) {
                    uint32_t v = U32(src + 4 * x);
                    dst[x] = RGB(cr.Get(v), cg.Get(v), cb.Get(v));
                    if (!alpha.empty()) {
                        uint8_t a = ca.Get(v);
                        alpha[size_t(y) * w + x] = a;
                        anyAlpha |= a != 0;
                    }
                }
                break;
            }
        }
        // An all-zero alpha channel is the usual "unused" byte, not a fully transparent image.
        if (!anyAlpha) alpha.clear();
        end = bits + stride * hgt;
        if (end > size) end = size;
    }

    out.Width = w;
    out.Height = hgt;
    out.BitCount = bpp;
    switch (bpp) {
    case 1:
        out.Format = pf1bit;
        break;
    case 2:
    case 4:
        out.Format = pf4bit;
        break;
    case 8:
        out.Format = pf8bit;
        break;
    case 16:
        out.Format = masks[1] == 0x03E0 ? pf15bit : pf16bit;
        break;
    case 24:
        out.Format = pf24bit;
        break;
    default:
        out.Format = pf32bit;
        break;
    }
    out.Pixels = std::move(px);
    out.Palette = std::move(palette);
    out.Alpha = std::move(alpha);
    out.End = end;
}

void DecodeDib(const uint8_t* buf, size_t size, size_t offset, int heightOverride, TDibImage& out) {
    DecodeDibAt(buf, size, offset, SIZE_MAX, heightOverride, out);
}

void DecodeBmpFile(const uint8_t* buf, size_t size, size_t offset, TDibImage& out) {
    if (offset + 14 > size) InvalidBitmap("the data is too short for a bitmap file");
    const uint8_t* f = buf + offset;
    if (f[0] != 'B' || f[1] != 'M') InvalidBitmap("the data does not start with a bitmap file header");
    uint32_t offBits = U32(f + 10);
    // Some writers leave the offset at zero; the pixels then follow the palette.
    size_t bits = offBits == 0 ? SIZE_MAX : offset + offBits;
    if (offBits != 0 && offBits < 14 + 12) InvalidBitmap("the pixel data offset lies inside the header");
    DecodeDibAt(buf, size, offset + 14, bits, 0, out);
}

void EncodeBmpFile(int width, int height, const uint32_t* pixels, TPixelFormat format,
                   const std::vector<uint32_t>& palette, std::vector<uint8_t>& out, const uint8_t* alpha) {
    int bpp;
    switch (format) {
    case pf1bit:
        bpp = 1;
        break;
    case pf4bit:
        bpp = 4;
        break;
    case pf8bit:
        bpp = 8;
        break;
    case pf15bit:
    case pf16bit:
        bpp = 16;
        break;
    case pf32bit:
        bpp = 32;
        break;
    default:
        bpp = 24;
        break;
    }
    std::vector<uint32_t> pal;
    if (bpp <= 8) {
        size_t max = size_t(1) << bpp;
        pal.assign(palette.begin(), palette.begin() + std::min(palette.size(), max));
        if (pal.empty()) pal = bpp == 1 ? std::vector<uint32_t>{clBlack, clWhite} : Vga16Palette();
    }
    bool bitfields = format == pf16bit;
    size_t stride = ((size_t(width) * bpp + 31) / 32) * 4;
    size_t headers = 14 + 40 + (bitfields ? 12 : 0) + pal.size() * 4;
    size_t imageSize = stride * height;
    size_t start = out.size();
    out.reserve(start + headers + imageSize);
    out.push_back('B');
    out.push_back('M');
    Put32(out, static_cast<uint32_t>(headers + imageSize));
    Put32(out, 0);
    Put32(out, static_cast<uint32_t>(headers));
    Put32(out, 40);
    Put32(out, static_cast<uint32_t>(width));
    Put32(out, static_cast<uint32_t>(height));
    Put16(out, 1);
    Put16(out, static_cast<uint16_t>(bpp));
    Put32(out, bitfields ? BI_BITFIELDS : BI_RGB);
    Put32(out, static_cast<uint32_t>(imageSize));
    Put32(out, 0);
    Put32(out, 0);
    Put32(out, bpp <= 8 ? static_cast<uint32_t>(pal.size()) : 0);
    Put32(out, 0);
    if (bitfields) {
        Put32(out, 0xF800);
        Put32(out, 0x07E0);
        Put32(out, 0x001F);
    }
    for (uint32_t c : pal) {
        out.push_back(B(c));
        out.push_back(G(c));
        out.push_back(R(c));
        out.push_back(0);
    }
    std::unordered_map<uint32_t, int> indexOf;
    for (int i = static_cast<int>(pal.size()) - 1; i >= 0; --i)
        indexOf[pal[i]] = i;
    auto index = [&](uint32_t c) {
        auto it = indexOf.find(c);
        if (it != indexOf.end()) return it->second;
        int i = NearestIndex(pal, c);
        indexOf.emplace(c, i);
        return i;
    };
    std::vector<uint8_t> row(stride);
    for (int y = height - 1; y >= 0; --y) {
        std::fill(row.begin(), row.end(), 0);
        const uint32_t* src = pixels + size_t(y) * width;
        for (int x = 0; x < width; ++x) {
            uint32_t c = src[x] & 0xFFFFFF;
            switch (bpp) {
            case 1:
            case 4:
            case 8: {
                int perByte = 8 / bpp;
                int shift = 8 - bpp * (x % perByte + 1);
                row[x / perByte] |= static_cast<uint8_t>(index(c) << shift);
                break;
            }
            case 16: {
                uint16_t v = format == pf15bit ? ((R(c) >> 3) << 10) | ((G(c) >> 3) << 5) | (B(c) >> 3)
                                               : ((R(c) >> 3) << 11) | ((G(c) >> 2) << 5) | (B(c) >> 3);
                row[2 * x] = v & 0xFF;
                row[2 * x + 1] = v >> 8;
                break;
            }
            case 24:
                row[3 * x] = B(c);
                row[3 * x + 1] = G(c);
                row[3 * x + 2] = R(c);
                break;
            default:
                row[4 * x] = B(c);
                row[4 * x + 1] = G(c);
                row[4 * x + 2] = R(c);
                row[4 * x + 3] = alpha ? alpha[size_t(y) * width + x] : 0;
                break;
            }
        }
        out.insert(out.end(), row.begin(), row.end());
    }
}

} // namespace vcl::detail
