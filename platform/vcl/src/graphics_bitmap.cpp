// TBitmap: pixel storage, pixel-format conversion with palette building, transparency, and the BMP and
// form-file "Data" layouts.
#include <algorithm>
#include <set>

#include "graphics_internal.h"

namespace vcl {

using namespace detail;

JEX_IMPLEMENT_CLASS(TBitmap, TGraphic, "Graphics") {}

namespace {

bool IsPaletteFormat(TPixelFormat pf) {
    return pf == pf1bit || pf == pf4bit || pf == pf8bit;
}

uint8_t Widen(uint32_t v, int bits) { // repeats the bits, as the decoder does for bit fields
    v <<= 8 - bits;
    return static_cast<uint8_t>(v | (v >> bits) | (bits < 4 ? v >> (2 * bits) : 0));
}

// A fixed palette for images with more than 256 colours: the 16 classic colours, a 6x6x6 colour cube
// and a grey ramp.
const std::vector<uint32_t>& Fixed256Palette() {
    static const std::vector<uint32_t> pal = [] {
        std::vector<uint32_t> p = Vga16Palette();
        for (int r = 0; r < 6; ++r)
            for (int g = 0; g < 6; ++g)
                for (int b = 0; b < 6; ++b)
                    p.push_back(RGB(r * 51, g * 51, b * 51));
        for (int i = 1; i <= 24; ++i)
            p.push_back(RGB(i * 10, i * 10, i * 10));
        return p;
    }();
    return pal;
}

// The palette a reduction to `pf` uses for these pixels: the colours themselves when they fit (for 4 bits the
// classic palette when they all belong to it), completed from the format's standard palette so that later
// drawing still finds near colours; otherwise the standard palette alone.
std::vector<uint32_t> BuildPalette(const std::vector<uint32_t>& pixels, TPixelFormat pf) {
    size_t max = pf == pf1bit ? 2 : pf == pf4bit ? 16 : 256;
    const std::vector<uint32_t> standard = pf == pf1bit   ? std::vector<uint32_t>{clBlack, clWhite}
                                           : pf == pf4bit ? Vga16Palette()
                                                          : Fixed256Palette();
    std::set<uint32_t> distinct;
    for (uint32_t c : pixels) {
        distinct.insert(c & 0xFFFFFF);
        if (distinct.size() > max) return standard;
    }
    if (std::all_of(distinct.begin(), distinct.end(), [&](uint32_t c) {
            return std::find(standard.begin(), standard.end(), c) != standard.end();
        }))
        return standard;
    std::vector<uint32_t> pal(distinct.begin(), distinct.end());
    for (uint32_t c : standard) {
        if (pal.size() >= max) break;
        if (!distinct.count(c)) pal.push_back(c);
    }
    if (pf == pf1bit) { // the darker entry first, as 1-bit images conventionally are
        auto lum = [](uint32_t c) { return R(c) * 299 + G(c) * 587 + B(c) * 114; };
        if (lum(pal[0]) > lum(pal[1])) std::swap(pal[0], pal[1]);
    }
    return pal;
}

} // namespace

TBitmap::TBitmap() = default;
TBitmap::~TBitmap() = default;

void TBitmap::Assign(TPersistent* Source) {
    if (!Source) {
        FWidth = FHeight = 0;
        FPixels.clear();
        Changed();
        return;
    }
    if (auto* b = dynamic_cast<TBitmap*>(Source)) {
        if (b == this) return;
        FWidth = b->FWidth;
        FHeight = b->FHeight;
        FPixels = b->FPixels;
        FPalette = b->FPalette;
        FPixelFormat = b->FPixelFormat;
        FTransparent = b->FTransparent;
        FTransparentColor = b->FTransparentColor;
        FTransparentMode = b->FTransparentMode;
        FNearest.clear();
        Changed();
        return;
    }
    inherited::Assign(Source);
}

bool TBitmap::Empty() const {
    return FWidth == 0 || FHeight == 0;
}

void TBitmap::Resize(int w, int h) {
    w = std::max(w, 0);
    h = std::max(h, 0);
    if (w == FWidth && h == FHeight) return;
    std::vector<uint32_t> px(size_t(w) * h, Quantize(clWhite));
    for (int y = 0; y < std::min(h, FHeight); ++y)
        std::copy_n(FPixels.begin() + size_t(y) * FWidth, std::min(w, FWidth), px.begin() + size_t(y) * w);
    FPixels = std::move(px);
    FWidth = w;
    FHeight = h;
    if (IsPaletteFormat(FPixelFormat) && FPalette.empty()) FPalette = BuildPalette(FPixels, FPixelFormat);
}

void TBitmap::SetWidth(int v) {
    SetSize(v, FHeight);
}
void TBitmap::SetHeight(int v) {
    SetSize(FWidth, v);
}

void TBitmap::SetSize(int w, int h) {
    if (std::max(w, 0) == FWidth && std::max(h, 0) == FHeight) return;
    if (int64_t(std::max(w, 0)) * std::max(h, 0) > (int64_t(1) << 28))
        throw rtl::EOutOfResources("Not enough storage is available to process this command");
    Resize(w, h);
    Changed();
}

void TBitmap::LoadFromBytes(const std::vector<uint8_t>& bytes) {
    TDibImage img;
    DecodeBmpFile(bytes.data(), bytes.size(), 0, img);
    FWidth = img.Width;
    FHeight = img.Height;
    FPixels = std::move(img.Pixels);
    FPalette = std::move(img.Palette);
    FPixelFormat = img.Format;
    FNearest.clear();
    if (FPixelFormat == pf16bit)
        for (uint32_t& c : FPixels)
            c = Quantize(c);
    Changed();
}

void TBitmap::SaveToBytes(std::vector<uint8_t>& bytes) const {
    bytes.clear();
    EncodeBmpFile(FWidth, FHeight, FPixels.data(), FPixelFormat, FPalette, bytes);
}

void TBitmap::ReadData(const std::vector<uint8_t>& data) {
    if (data.size() < 4) InvalidBitmap("the data is too short");
    uint32_t n = data[0] | (data[1] << 8) | (data[2] << 16) | (uint32_t(data[3]) << 24);
    if (n > data.size() - 4) InvalidBitmap("the byte count is larger than the data");
    if (n == 0) {
        Assign(nullptr);
        return;
    }
    LoadFromBytes(std::vector<uint8_t>(data.begin() + 4, data.begin() + 4 + n));
}

void TBitmap::WriteData(std::vector<uint8_t>& data) const {
    std::vector<uint8_t> bytes;
    SaveToBytes(bytes);
    uint32_t n = static_cast<uint32_t>(bytes.size());
    for (int i = 0; i < 4; ++i)
        data.push_back((n >> (8 * i)) & 0xFF);
    data.insert(data.end(), bytes.begin(), bytes.end());
}

void TBitmap::DefineProperties(rtl::TFiler& Filer) {
    inherited::DefineProperties(Filer);
}

void TBitmap::Draw(TCanvas* canvas, const TRect& r) {
    if (!canvas || Empty()) return;
    canvas->Blit(r, this, Rect(0, 0, FWidth, FHeight), FTransparent,
                 ColorToRGB(TransparentColor()) & 0xFFFFFF);
}

TCanvas* TBitmap::Canvas() {
    if (!FCanvas) {
        FCanvas = std::make_unique<TCanvas>();
        FCanvas->SetTarget(this);
    }
    return FCanvas.get();
}

void TBitmap::SetPixelFormat(TPixelFormat pf) {
    if (pf == FPixelFormat) return;
    FNearest.clear();
    if (IsPaletteFormat(pf)) {
        FPalette = BuildPalette(FPixels, pf);
    } else {
        FPalette.clear();
    }
    FPixelFormat = pf;
    for (uint32_t& c : FPixels)
        c = Quantize(c);
    Changed();
}

void TBitmap::SetPalette(const std::vector<uint32_t>& palette) {
    size_t max = FPixelFormat == pf1bit ? 2 : FPixelFormat == pf4bit ? 16 : FPixelFormat == pf8bit ? 256 : 0;
    if (max == 0)
        throw rtl::EInvalidGraphicOperation("Only a bitmap of 1, 4 or 8 bits per pixel has a palette");
    if (palette.empty() || palette.size() > max)
        throw rtl::EInvalidGraphicOperation("A palette of this pixel format holds 1 to " +
                                            std::to_string(max) + " colours");
    FPalette.clear();
    for (uint32_t c : palette)
        FPalette.push_back(c & 0xFFFFFF);
    FNearest.clear();
    for (uint32_t& c : FPixels)
        c = Quantize(c);
    Changed();
}

uint32_t TBitmap::Quantize(uint32_t rgb) const {
    rgb &= 0xFFFFFF;
    switch (FPixelFormat) {
    case pf1bit:
    case pf4bit:
    case pf8bit: {
        if (FPalette.empty()) return rgb;
        auto it = FNearest.find(rgb);
        if (it != FNearest.end()) return it->second;
        uint32_t c = FPalette[NearestIndex(FPalette, rgb)];
        if (FNearest.size() > 65536) FNearest.clear();
        FNearest.emplace(rgb, c);
        return c;
    }
    case pf15bit:
        return RGB(Widen(R(rgb) >> 3, 5), Widen(G(rgb) >> 3, 5), Widen(B(rgb) >> 3, 5));
    case pf16bit:
        return RGB(Widen(R(rgb) >> 3, 5), Widen(G(rgb) >> 2, 6), Widen(B(rgb) >> 3, 5));
    default:
        return rgb;
    }
}

TColor TBitmap::TransparentColor() const {
    if (FTransparentMode == tmFixed && FTransparentColor != clDefault) return FTransparentColor;
    if (Empty()) return clDefault;
    return static_cast<TColor>(PixelRGB(0, FHeight - 1));
}

void TBitmap::SetTransparentColor(TColor c) {
    if (c == FTransparentColor && FTransparentMode == (c == clDefault ? tmAuto : tmFixed)) return;
    FTransparentColor = c;
    FTransparentMode = c == clDefault ? tmAuto : tmFixed;
    Changed();
}

void TBitmap::SetTransparentMode(TTransparentMode m) {
    if (m == FTransparentMode) return;
    // Fixing the mode keeps the colour the bitmap showed as transparent until now.
    SetTransparentColor(m == tmAuto ? clDefault : TransparentColor());
}

uint32_t TBitmap::PixelRGB(int x, int y) const {
    if (x < 0 || y < 0 || x >= FWidth || y >= FHeight) return 0;
    return FPixels[size_t(y) * FWidth + x];
}

void TBitmap::SetPixelRGB(int x, int y, uint32_t rgb) {
    if (x < 0 || y < 0 || x >= FWidth || y >= FHeight) return;
    FPixels[size_t(y) * FWidth + x] = Quantize(rgb);
    Changed();
}

uint32_t* TBitmap::ScanLine(int y) {
    if (y < 0 || y >= FHeight) throw rtl::EInvalidGraphicOperation("Scan line index out of range");
    return FPixels.data() + size_t(y) * FWidth;
}

const uint32_t* TBitmap::ScanLine(int y) const {
    if (y < 0 || y >= FHeight) throw rtl::EInvalidGraphicOperation("Scan line index out of range");
    return FPixels.data() + size_t(y) * FWidth;
}

} // namespace vcl
