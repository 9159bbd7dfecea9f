// TIcon: .ico files kept byte for byte, with one image decoded (colour bitmap plus AND mask or alpha) for
// drawing.
#include <algorithm>

#include "graphics_internal.h"

namespace vcl {

using namespace detail;

JEX_IMPLEMENT_CLASS(TIcon, TGraphic, "Graphics") {}

namespace {

[[noreturn]] void InvalidIcon(const std::string& reason) {
    throw rtl::EInvalidGraphic("Icon image is not valid: " + reason);
}

uint16_t U16(const uint8_t* p) {
    return static_cast<uint16_t>(p[0] | (p[1] << 8));
}
uint32_t U32(const uint8_t* p) {
    return p[0] | (p[1] << 8) | (p[2] << 16) | (uint32_t(p[3]) << 24);
}

struct TEntry {
    int Width, Height, BitCount;
    size_t Offset, Size;
};

} // namespace

TIcon::TIcon() = default;
TIcon::~TIcon() = default;

void TIcon::Assign(TPersistent* Source) {
    if (!Source) {
        FBytes.clear();
        FPixels.clear();
        FAlpha.clear();
        FWidth = FHeight = FImageCount = 0;
        Changed();
        return;
    }
    if (auto* i = dynamic_cast<TIcon*>(Source)) {
        if (i == this) return;
        FBytes = i->FBytes;
        FWidth = i->FWidth;
        FHeight = i->FHeight;
        FImageCount = i->FImageCount;
        FPixels = i->FPixels;
        FAlpha = i->FAlpha;
        FTransparent = i->FTransparent;
        Changed();
        return;
    }
    inherited::Assign(Source);
}

void TIcon::SetWidth(int) {
    throw rtl::EInvalidGraphicOperation("Cannot change the size of an icon");
}
void TIcon::SetHeight(int) {
    throw rtl::EInvalidGraphicOperation("Cannot change the size of an icon");
}

void TIcon::LoadFromBytes(const std::vector<uint8_t>& bytes) {
    const uint8_t* p = bytes.data();
    size_t n = bytes.size();
    if (n < 6 || U16(p) != 0 || U16(p + 2) != 1) InvalidIcon("the data does not start with an icon header");
    int count = U16(p + 4);
    if (count == 0) InvalidIcon("the icon holds no image");
    if (6 + size_t(count) * 16 > n) InvalidIcon("the image directory is truncated");
    std::vector<TEntry> entries;
    for (int i = 0; i < count; ++i) {
        const uint8_t* e = p + 6 + 16 * i;
        TEntry entry{e[0] ? e[0] : 256, e[1] ? e[1] : 256, U16(e + 6), U32(e + 12), U32(e + 8)};
        if (entry.Offset >= n || entry.Size > n - entry.Offset) InvalidIcon("an image lies outside the data");
        entries.push_back(entry);
    }
    // 32x32 first (the size the platform shows), else the largest; the deepest colour among equals.
    auto rank = [](const TEntry& e) {
        return std::tuple(e.Width == 32 && e.Height == 32, e.Width * e.Height, e.BitCount);
    };
    const TEntry& best = *std::max_element(
        entries.begin(), entries.end(), [&](const TEntry& a, const TEntry& b) { return rank(a) < rank(b); });
    const uint8_t* img = p + best.Offset;
    std::vector<uint32_t> pixels;
    std::vector<uint8_t> alpha;
    int w = best.Width, h = best.Height;
    if (best.Size >= 8 && img[0] == 0x89 && img[1] == 'P' && img[2] == 'N' && img[3] == 'G') {
        if (best.Size >= 24) {
            w = static_cast<int>((uint32_t(img[16]) << 24) | (img[17] << 16) | (img[18] << 8) | img[19]);
            h = static_cast<int>((uint32_t(img[20]) << 24) | (img[21] << 16) | (img[22] << 8) | img[23]);
        }
    } else {
        if (best.Size < 16) InvalidIcon("an image header is truncated");
        int dibHeight = static_cast<int>(U32(img + 8));
        TDibImage dib;
        try {
            // The header's height counts the colour rows and the mask rows.
            DecodeDib(p, best.Offset + best.Size, best.Offset, std::max(1, std::abs(dibHeight) / 2), dib);
        } catch (const rtl::EInvalidGraphic& e) {
            InvalidIcon(e.Message());
        }
        w = dib.Width;
        h = dib.Height;
        pixels = std::move(dib.Pixels);
        alpha.assign(pixels.size(), 255);
        if (!dib.Alpha.empty()) {
            alpha = std::move(dib.Alpha);
        } else {
            // The AND mask follows the colour rows, bottom-up, one bit per pixel, 1 where transparent.
            size_t stride = ((size_t(w) + 31) / 32) * 4;
            size_t end = best.Offset + best.Size;
            if (dib.End + stride * h <= end) {
                for (int row = 0; row < h; ++row) {
                    const uint8_t* m = p + dib.End + stride * row;
                    int y = h - 1 - row;
                    for (int x = 0; x < w; ++x)
                        if ((m[x / 8] >> (7 - x % 8)) & 1) alpha[size_t(y) * w + x] = 0;
                }
            }
        }
    }
    FBytes = bytes;
    FWidth = w;
    FHeight = h;
    FImageCount = count;
    FPixels = std::move(pixels);
    FAlpha = std::move(alpha);
    Changed();
}

uint32_t TIcon::PixelRGB(int x, int y) const {
    if (FPixels.empty() || x < 0 || y < 0 || x >= FWidth || y >= FHeight) return 0;
    return FPixels[size_t(y) * FWidth + x];
}

uint8_t TIcon::PixelAlpha(int x, int y) const {
    if (FAlpha.empty() || x < 0 || y < 0 || x >= FWidth || y >= FHeight) return 0;
    return FAlpha[size_t(y) * FWidth + x];
}

void TIcon::Draw(TCanvas* canvas, const TRect& r) {
    if (!canvas || FPixels.empty()) return;
    canvas->BlendImage(r, FWidth, FHeight, FPixels.data(), FAlpha.data());
}

} // namespace vcl
