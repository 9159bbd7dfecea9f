// TCanvas: rasterises rectangles, ellipses, lines, polygons, text and images into its bitmap's pixels,
// clipped to the bitmap, with the pen's mode and style and the brush's style.
#include <algorithm>
#include <cmath>

#include "graphics_internal.h"

namespace vcl {

using namespace detail;

JEX_IMPLEMENT_CLASS(TCanvas, TPersistent, "Graphics") {}

namespace {

// The platform's binary raster operations, pen colour p over screen colour s.
uint32_t Mix(TPenMode mode, uint32_t p, uint32_t s) {
    switch (mode) {
    case pmBlack:
        return 0;
    case pmWhite:
        return 0xFFFFFF;
    case pmNop:
        return s;
    case pmNot:
        return ~s;
    case pmCopy:
        return p;
    case pmNotCopy:
        return ~p;
    case pmMergePenNot:
        return p | ~s;
    case pmMaskPenNot:
        return p & ~s;
    case pmMergeNotPen:
        return ~p | s;
    case pmMaskNotPen:
        return ~p & s;
    case pmMerge:
        return p | s;
    case pmNotMerge:
        return ~(p | s);
    case pmMask:
        return p & s;
    case pmNotMask:
        return ~(p & s);
    case pmXor:
        return p ^ s;
    case pmNotXor:
        return ~(p ^ s);
    }
    return p;
}

// Dash patterns of one-pixel pens, in pixels on/off.
bool DashOn(TPenStyle style, int pos) {
    auto in = [pos](std::initializer_list<int> pattern) {
        int total = 0;
        for (int v : pattern)
            total += v;
        int p = pos % total, acc = 0, i = 0;
        for (int v : pattern) {
            acc += v;
            if (p < acc) return i % 2 == 0;
            ++i;
        }
        return true;
    };
    switch (style) {
    case psDash:
        return in({18, 6});
    case psDot:
        return in({3, 3});
    case psDashDot:
        return in({9, 6, 3, 6});
    case psDashDotDot:
        return in({9, 3, 3, 3, 3, 3});
    default:
        return true;
    }
}

bool HatchOn(TBrushStyle style, int x, int y) {
    x &= 7;
    y &= 7;
    switch (style) {
    case bsHorizontal:
        return y == 0;
    case bsVertical:
        return x == 0;
    case bsFDiagonal:
        return x == y;
    case bsBDiagonal:
        return x == 7 - y;
    case bsCross:
        return x == 0 || y == 0;
    case bsDiagCross:
        return x == y || x == 7 - y;
    default:
        return true;
    }
}

TRect Normalized(int x1, int y1, int x2, int y2) {
    return Rect(std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2));
}

} // namespace

TCanvas::TCanvas()
    : FFont(std::make_unique<TFont>()), FPen(std::make_unique<TPen>()), FBrush(std::make_unique<TBrush>()) {}
TCanvas::~TCanvas() = default;

TRect TCanvas::ClipRect() const {
    return FTarget ? Rect(0, 0, FTarget->Width(), FTarget->Height()) : TRect{};
}

void TCanvas::Modified() {
    if (FTarget) FTarget->NotifyChanged();
}

// One pixel of the pen, honouring its mode.
void TCanvas::PenPixel(int x, int y) {
    if (!FTarget || x < 0 || y < 0 || x >= FTarget->FWidth || y >= FTarget->FHeight) return;
    uint32_t& dst = FTarget->FPixels[size_t(y) * FTarget->FWidth + x];
    dst = FTarget->Quantize(Mix(FPen->Mode(), ColorToRGB(FPen->Color()), dst));
}

// A line without its end point; wider pens stamp a square centred on each point.
void TCanvas::PenLine(int x0, int y0, int x1, int y1, int width) {
    if (!FTarget || FPen->Style() == psClear) return;
    int w = width > 0 ? width : std::max(1, FPen->Width());
    bool styled = FPen->Width() <= 1 && FPen->Style() != psSolid && FPen->Style() != psInsideFrame;
    int dx = std::abs(x1 - x0), dy = -std::abs(y1 - y0);
    int sx = x0 < x1 ? 1 : -1, sy = y0 < y1 ? 1 : -1;
    int err = dx + dy;
    int x = x0, y = y0;
    while (x != x1 || y != y1) {
        if (!styled || DashOn(FPen->Style(), FDashPos)) {
            if (w == 1)
                PenPixel(x, y);
            else
                for (int yy = y - w / 2; yy < y - w / 2 + w; ++yy)
                    for (int xx = x - w / 2; xx < x - w / 2 + w; ++xx)
                        PenPixel(xx, yy);
        }
        ++FDashPos;
        int e2 = 2 * err;
        if (e2 >= dy) {
            err += dy;
            x += sx;
        }
        if (e2 <= dx) {
            err += dx;
            y += sy;
        }
    }
}

// Pixels x0 <= x < x1 of row y in the brush: hatched brushes only on their lines.
void TCanvas::BrushSpan(int y, int x0, int x1, bool usePenMode) {
    if (!FTarget || FBrush->Style() == bsClear || y < 0 || y >= FTarget->FHeight) return;
    x0 = std::max(x0, 0);
    x1 = std::min(x1, FTarget->FWidth);
    uint32_t colour = ColorToRGB(FBrush->Color());
    uint32_t* row = FTarget->FPixels.data() + size_t(y) * FTarget->FWidth;
    TBrushStyle style = FBrush->Style();
    TPenMode mode = usePenMode ? FPen->Mode() : pmCopy;
    uint32_t copied = FTarget->Quantize(colour);
    for (int x = x0; x < x1; ++x) {
        if (style != bsSolid && !HatchOn(style, x, y)) continue;
        row[x] = mode == pmCopy ? copied : FTarget->Quantize(Mix(mode, colour, row[x]));
    }
}

void TCanvas::FillRect(const TRect& r) {
    TRect n = Normalized(r.Left, r.Top, r.Right, r.Bottom);
    for (int y = n.Top; y < n.Bottom; ++y)
        BrushSpan(y, n.Left, n.Right, false);
    Modified();
}

void TCanvas::FrameRect(const TRect& r) {
    TRect n = Normalized(r.Left, r.Top, r.Right, r.Bottom);
    if (!FTarget || n.Width() <= 0 || n.Height() <= 0 || FBrush->Style() == bsClear) return;
    // The frame takes the brush colour whatever the brush's hatch.
    uint32_t c = FTarget->Quantize(ColorToRGB(FBrush->Color()));
    auto put = [&](int x, int y) {
        if (x >= 0 && y >= 0 && x < FTarget->FWidth && y < FTarget->FHeight)
            FTarget->FPixels[size_t(y) * FTarget->FWidth + x] = c;
    };
    for (int x = n.Left; x < n.Right; ++x) {
        put(x, n.Top);
        put(x, n.Bottom - 1);
    }
    for (int y = n.Top + 1; y < n.Bottom - 1; ++y) {
        put(n.Left, y);
        put(n.Right - 1, y);
    }
    Modified();
}

void TCanvas::Rectangle(int x1, int y1, int x2, int y2) {
    TRect n = Normalized(x1, y1, x2, y2);
    if (n.Width() <= 0 || n.Height() <= 0) return;
    if (FPen->Style() == psClear) { // without a pen the platform fills one pixel less each way
        for (int y = n.Top; y < n.Bottom - 1; ++y)
            BrushSpan(y, n.Left, n.Right - 1, true);
        Modified();
        return;
    }
    int w = std::max(1, FPen->Width());
    for (int y = n.Top + w; y < n.Bottom - w; ++y)
        BrushSpan(y, n.Left + w, n.Right - w, true);
    for (int i = 0; i < w && n.Left + i < n.Right - i && n.Top + i < n.Bottom - i; ++i) {
        int l = n.Left + i, t = n.Top + i, r = n.Right - 1 - i, b = n.Bottom - 1 - i;
        FDashPos = 0;
        if (l == r && t == b)
            PenPixel(l, t);
        else if (l == r || t == b)
            PenLine(l, t, r + (l == r ? 0 : 1), b + (t == b ? 0 : 1), 1);
        else {
            PenLine(l, t, r, t, 1);
            PenLine(r, t, r, b, 1);
            PenLine(r, b, l, b, 1);
            PenLine(l, b, l, t, 1);
        }
    }
    Modified();
}

void TCanvas::Ellipse(int x1, int y1, int x2, int y2) {
    TRect n = Normalized(x1, y1, x2, y2);
    if (!FTarget || n.Width() <= 0 || n.Height() <= 0) return;
    double cx = (n.Left + n.Right) / 2.0, cy = (n.Top + n.Bottom) / 2.0;
    double rx = n.Width() / 2.0, ry = n.Height() / 2.0;
    bool pen = FPen->Style() != psClear;
    int w = pen ? std::max(1, FPen->Width()) : 0;
    // Span of row y (pixel centres inside the ellipse of radii a, b), as [lo, hi); empty when lo >= hi.
    auto span = [&](int y, double a, double b, int& lo, int& hi) {
        lo = hi = 0;
        if (a <= 0 || b <= 0) return;
        double dy = (y + 0.5 - cy) / b;
        if (dy * dy > 1) return;
        double half = a * std::sqrt(1 - dy * dy);
        lo = static_cast<int>(std::ceil(cx - half - 0.5));
        hi = static_cast<int>(std::floor(cx + half - 0.5)) + 1;
    };
    int top = std::max(n.Top, 0), bottom = std::min(n.Bottom, FTarget->FHeight);
    for (int y = top; y < bottom; ++y) {
        int lo, hi, plo, phi, nlo, nhi, ilo, ihi;
        span(y, rx, ry, lo, hi);
        if (lo >= hi) continue;
        if (!pen) {
            BrushSpan(y, lo, hi, true);
            continue;
        }
        span(y - 1, rx, ry, plo, phi);
        span(y + 1, rx, ry, nlo, nhi);
        span(y, rx - w, ry - w, ilo, ihi);
        for (int x = std::max(lo, 0); x < std::min(hi, FTarget->FWidth); ++x) {
            // On the outline: at the span's ends, under or over an outside pixel, or outside the inner
            // ellipse.
            bool edge =
                x == lo || x == hi - 1 || x < plo || x >= phi || x < nlo || x >= nhi || x < ilo || x >= ihi;
            if (edge)
                PenPixel(x, y);
            else
                BrushSpan(y, x, x + 1, true);
        }
    }
    Modified();
}

void TCanvas::MoveTo(int x, int y) {
    FPenPos = Point(x, y);
    FDashPos = 0;
}

void TCanvas::LineTo(int x, int y) {
    PenLine(FPenPos.X, FPenPos.Y, x, y);
    FPenPos = Point(x, y);
    Modified();
}

void TCanvas::Polyline(const std::vector<TPoint>& points) {
    FDashPos = 0;
    for (size_t i = 1; i < points.size(); ++i)
        PenLine(points[i - 1].X, points[i - 1].Y, points[i].X, points[i].Y);
    Modified();
}

void TCanvas::Polygon(const std::vector<TPoint>& points) {
    if (!FTarget || points.empty()) return;
    int top = INT32_MAX, bottom = INT32_MIN;
    for (const auto& p : points) {
        top = std::min(top, p.Y);
        bottom = std::max(bottom, p.Y);
    }
    top = std::max(top, 0);
    bottom = std::min(bottom, FTarget->FHeight);
    std::vector<double> xs;
    for (int y = top; y < bottom; ++y) {
        double yc = y + 0.5;
        xs.clear();
        for (size_t i = 0; i < points.size(); ++i) {
            const TPoint& a = points[i];
            const TPoint& b = points[(i + 1) % points.size()];
            if ((a.Y <= yc) == (b.Y <= yc)) continue;
            xs.push_back(a.X + (yc - a.Y) * (b.X - a.X) / double(b.Y - a.Y));
        }
        std::sort(xs.begin(), xs.end());
        for (size_t i = 0; i + 1 < xs.size(); i += 2) {
            int lo = static_cast<int>(std::ceil(xs[i] - 0.5)),
                hi = static_cast<int>(std::ceil(xs[i + 1] - 0.5));
            BrushSpan(y, lo, hi, true);
        }
    }
    FDashPos = 0;
    for (size_t i = 0; i < points.size(); ++i) {
        const TPoint& a = points[i];
        const TPoint& b = points[(i + 1) % points.size()];
        PenLine(a.X, a.Y, b.X, b.Y);
    }
    if (points.size() == 1 && FPen->Style() != psClear) PenPixel(points[0].X, points[0].Y);
    Modified();
}

int TCanvas::TextWidth(const std::string& text) {
    return TextExtent(text).cx;
}
int TCanvas::TextHeight(const std::string& text) {
    return TextExtent(text).cy;
}

TSize TCanvas::TextExtent(const std::string& text) {
    TSize s;
    s.cx = MeasureText(*FFont, text, &s.cy);
    return s;
}

void TCanvas::TextOut(int x, int y, const std::string& text) {
    int h = 0;
    int w = MeasureText(*FFont, text, &h);
    if (FTarget) {
        if (FBrush->Style() == bsSolid) {
            uint32_t c = FTarget->Quantize(ColorToRGB(FBrush->Color()));
            TRect r = Rect(std::max(x, 0), std::max(y, 0), std::min(x + w, FTarget->FWidth),
                           std::min(y + h, FTarget->FHeight));
            for (int yy = r.Top; yy < r.Bottom; ++yy)
                std::fill_n(FTarget->FPixels.begin() + size_t(yy) * FTarget->FWidth + r.Left,
                            std::max(0, r.Width()), c);
        }
        RenderText(*FTarget, ClipRect(), x, y, *FFont, text);
        Modified();
    }
    FPenPos = Point(x + w, y);
}

void TCanvas::TextRect(const TRect& r, int x, int y, const std::string& text) {
    if (!FTarget) return;
    TRect bounds = ClipRect();
    TRect clip = Rect(std::max(r.Left, bounds.Left), std::max(r.Top, bounds.Top),
                      std::min(r.Right, bounds.Right), std::min(r.Bottom, bounds.Bottom));
    if (clip.Width() <= 0 || clip.Height() <= 0) return;
    if (FBrush->Style() == bsSolid) {
        uint32_t c = FTarget->Quantize(ColorToRGB(FBrush->Color()));
        for (int yy = clip.Top; yy < clip.Bottom; ++yy)
            std::fill_n(FTarget->FPixels.begin() + size_t(yy) * FTarget->FWidth + clip.Left, clip.Width(), c);
    }
    RenderText(*FTarget, clip, x, y, *FFont, text);
    Modified();
}

void TCanvas::Draw(int x, int y, TGraphic* graphic) {
    if (!graphic || graphic->Empty()) return;
    graphic->Draw(this, Bounds(x, y, graphic->Width(), graphic->Height()));
}

void TCanvas::StretchDraw(const TRect& r, TGraphic* graphic) {
    if (!graphic || graphic->Empty()) return;
    graphic->Draw(this, r);
}

void TCanvas::Blit(const TRect& dest, const TBitmap* bitmap, const TRect& src, bool transparent,
                   uint32_t transparentRGB) {
    if (!FTarget || !bitmap || bitmap->Empty()) return;
    int dw = dest.Width(), dh = dest.Height(), sw = src.Width(), sh = src.Height();
    if (dw == 0 || dh == 0 || sw == 0 || sh == 0) return;
    // Copy the source first: it may be this canvas's own bitmap.
    std::vector<uint32_t> copy;
    const std::vector<uint32_t>* pixels = &bitmap->FPixels;
    if (bitmap == FTarget) {
        copy = bitmap->FPixels;
        pixels = &copy;
    }
    int bw = bitmap->FWidth, bh = bitmap->FHeight;
    // Negative extents mirror, as on the platform.
    for (int j = 0; j < std::abs(dh); ++j) {
        int y = dh > 0 ? dest.Top + j : dest.Top - 1 - j;
        if (y < 0 || y >= FTarget->FHeight) continue;
        int sy = src.Top + static_cast<int>((int64_t(j) * std::abs(sh)) / std::abs(dh));
        if (sh < 0) sy = src.Top - 1 - static_cast<int>((int64_t(j) * -sh) / std::abs(dh));
        if (sy < 0 || sy >= bh) continue;
        uint32_t* row = FTarget->FPixels.data() + size_t(y) * FTarget->FWidth;
        for (int i = 0; i < std::abs(dw); ++i) {
            int x = dw > 0 ? dest.Left + i : dest.Left - 1 - i;
            if (x < 0 || x >= FTarget->FWidth) continue;
            int sx = src.Left + static_cast<int>((int64_t(i) * std::abs(sw)) / std::abs(dw));
            if (sw < 0) sx = src.Left - 1 - static_cast<int>((int64_t(i) * -sw) / std::abs(dw));
            if (sx < 0 || sx >= bw) continue;
            uint32_t c = (*pixels)[size_t(sy) * bw + sx];
            if (transparent && c == transparentRGB) continue;
            row[x] = FTarget->Quantize(c);
        }
    }
    Modified();
}

void TCanvas::BlendImage(const TRect& dest, int width, int height, const uint32_t* pixels,
                         const uint8_t* alpha) {
    if (!FTarget || width <= 0 || height <= 0) return;
    int dw = dest.Width(), dh = dest.Height();
    if (dw <= 0 || dh <= 0) return;
    for (int j = std::max(0, -dest.Top); j < dh && dest.Top + j < FTarget->FHeight; ++j) {
        int sy = static_cast<int>(int64_t(j) * height / dh);
        uint32_t* row = FTarget->FPixels.data() + size_t(dest.Top + j) * FTarget->FWidth;
        for (int i = std::max(0, -dest.Left); i < dw && dest.Left + i < FTarget->FWidth; ++i) {
            size_t k = size_t(sy) * width + static_cast<int>(int64_t(i) * width / dw);
            unsigned a = alpha ? alpha[k] : 255;
            if (a == 0) continue;
            uint32_t c = pixels[k], d = row[dest.Left + i];
            if (a < 255) {
                auto mix = [a](unsigned s, unsigned t) { return (s * a + t * (255 - a) + 127) / 255; };
                c = RGB(mix(R(c), R(d)), mix(G(c), G(d)), mix(B(c), B(d)));
            }
            row[dest.Left + i] = FTarget->Quantize(c);
        }
    }
    Modified();
}

void TCanvas::CopyRect(const TRect& dest, TCanvas* source, const TRect& src) {
    if (!source || !source->FTarget) return;
    Blit(dest, source->FTarget, src, false, 0);
}

TColor TCanvas::Pixel(int x, int y) const {
    if (!FTarget || x < 0 || y < 0 || x >= FTarget->FWidth || y >= FTarget->FHeight) return -1;
    return static_cast<TColor>(FTarget->FPixels[size_t(y) * FTarget->FWidth + x]);
}

void TCanvas::SetPixel(int x, int y, TColor c) {
    if (!FTarget) return;
    FTarget->SetPixelRGB(x, y, ColorToRGB(c));
}

} // namespace vcl
