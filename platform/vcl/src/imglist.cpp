// Image lists: images cut from bitmaps with masks, drawn plain, blended, as masks or greyed, and streamed
// as a header with an image strip and a mask strip.
#include "vcl/imglist.h"

#include <algorithm>

#include "graphics_internal.h"

namespace vcl {

using namespace detail;

JEX_DEFINE_ENUM(TDrawingStyle)
JEX_DEFINE_ENUM(TImageType)
JEX_DEFINE_ALIAS_TYPE(TypeInfo_TImageIndex, "TImageIndex", rtl::TypeInfo_Integer)

namespace {

constexpr const char* SInvalidImageSize = "Invalid image size";
constexpr const char* SImageIndexError = "Invalid ImageList Index";
constexpr const char* SImageListReadError = "Failed to read ImageList data: ";
constexpr uint16_t ILC_MASK = 0x0001, ILC_COLOR24 = 0x0018, ILC_COLOR32 = 0x0020;
constexpr uint32_t CLR_NONE = 0xFFFFFFFF;
constexpr int StripColumns = 4; // images per row of the strip

void Put16(std::vector<uint8_t>& out, uint16_t v) {
    out.push_back(v & 0xFF);
    out.push_back(v >> 8);
}
void Put32(std::vector<uint8_t>& out, uint32_t v) {
    for (int i = 0; i < 4; ++i)
        out.push_back((v >> (8 * i)) & 0xFF);
}
uint16_t U16(const uint8_t* p) {
    return static_cast<uint16_t>(p[0] | (p[1] << 8));
}

uint32_t Blend(uint32_t a, uint32_t b, int percentB) {
    auto mix = [&](unsigned x, unsigned y) { return (x * (100 - percentB) + y * percentB + 50) / 100; };
    return RGB(mix(R(a), R(b)), mix(G(a), G(b)), mix(B(a), B(b)));
}

} // namespace

JEX_IMPLEMENT_CLASS(TCustomImageList, rtl::TComponent, "ImgList") {}

JEX_IMPLEMENT_CLASS(TImageList, TCustomImageList, "Controls") {
    d.Property("BlendColor", &TImageList::BlendColor, &TImageList::SetBlendColor, TypeInfo_TColor())
        .Default(clNone);
    d.Property("BkColor", &TImageList::BkColor, &TImageList::SetBkColor, TypeInfo_TColor()).Default(clNone);
    d.Property("AllocBy", &TImageList::AllocBy, &TImageList::SetAllocBy).Default(4);
    d.Property("DrawingStyle", &TImageList::DrawingStyle, &TImageList::SetDrawingStyle).Default(dsNormal);
    d.Property("Height", &TImageList::Height, &TImageList::SetHeight).Default(16);
    d.Property("ImageType", &TImageList::ImageType, &TImageList::SetImageType).Default(itImage);
    d.Property("Masked", &TImageList::Masked, &TImageList::SetMasked).Default(true);
    d.Event("OnChange", &TImageList::OnChange);
    d.Property("ShareImages", &TImageList::ShareImages, &TImageList::SetShareImages).Default(false);
    d.Property("Width", &TImageList::Width, &TImageList::SetWidth).Default(16);
}

TCustomImageList::TCustomImageList(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}
TCustomImageList::~TCustomImageList() = default;

void TCustomImageList::Change() {
    if (FUpdateCount > 0) {
        FChanged = true;
        return;
    }
    OnChange(this);
}

void TCustomImageList::BeginUpdate() {
    ++FUpdateCount;
}

void TCustomImageList::EndUpdate() {
    if (FUpdateCount > 0 && --FUpdateCount == 0 && FChanged) {
        FChanged = false;
        Change();
    }
}

void TCustomImageList::Assign(TPersistent* Source) {
    if (auto* src = dynamic_cast<TCustomImageList*>(Source)) {
        if (src == this) return;
        FWidth = src->FWidth;
        FHeight = src->FHeight;
        FAllocBy = src->FAllocBy;
        FBkColor = src->FBkColor;
        FBlendColor = src->FBlendColor;
        FDrawingStyle = src->FDrawingStyle;
        FImageType = src->FImageType;
        FMasked = src->FMasked;
        FShareImages = src->FShareImages;
        FImages = src->FImages;
        Change();
        return;
    }
    inherited::Assign(Source);
}

void TCustomImageList::SetSize(int w, int h) {
    if (w < 1 || h < 1 || w > 32768 || h > 32768) throw rtl::EInvalidOperation(SInvalidImageSize);
    if (w == FWidth && h == FHeight) return;
    FWidth = w;
    FHeight = h;
    FImages.clear();
    Change();
}

void TCustomImageList::SetWidth(int v) {
    SetSize(v, FHeight);
}
void TCustomImageList::SetHeight(int v) {
    SetSize(FWidth, v);
}

void TCustomImageList::SetBkColor(TColor v) {
    if (v == FBkColor) return;
    FBkColor = v;
    Change();
}
void TCustomImageList::SetDrawingStyle(TDrawingStyle v) {
    if (v == FDrawingStyle) return;
    FDrawingStyle = v;
    Change();
}
void TCustomImageList::SetImageType(TImageType v) {
    if (v == FImageType) return;
    FImageType = v;
    Change();
}
void TCustomImageList::SetMasked(bool v) {
    if (v == FMasked) return;
    FMasked = v;
    Change();
}

void TCustomImageList::CheckIndex(int index) const {
    if (index < 0 || index >= Count()) throw rtl::EInvalidOperation(SImageIndexError);
}

std::function<bool(int, int, uint32_t)> TCustomImageList::MaskTest(TBitmap* image, TBitmap* mask) {
    if (!mask || mask->Empty()) return [](int, int, uint32_t) { return false; };
    return [mask](int x, int y, uint32_t) {
        if (x >= mask->Width() || y >= mask->Height()) return false;
        uint32_t m = mask->PixelRGB(x, y);
        return R(m) + G(m) + B(m) >= 3 * 128;
    };
}

std::function<bool(int, int, uint32_t)> TCustomImageList::ColorTest(TBitmap* image, TColor maskColor) {
    if (maskColor == clNone) return [](int, int, uint32_t) { return false; };
    TColor c = maskColor == clDefault ? image->TransparentColor() : maskColor;
    uint32_t rgb = ColorToRGB(c) & 0xFFFFFF;
    return [rgb](int, int, uint32_t pixel) { return pixel == rgb; };
}

TCustomImageList::TImage TCustomImageList::Cut(const TBitmap* image, int column,
                                               const std::function<bool(int, int, uint32_t)>& clear) const {
    TImage img;
    img.Pixels.assign(size_t(FWidth) * FHeight, 0);
    img.Mask.assign(size_t(FWidth) * FHeight, 1);
    int x0 = column * FWidth;
    for (int y = 0; y < std::min(FHeight, image->Height()); ++y)
        for (int x = 0; x < FWidth && x0 + x < image->Width(); ++x) {
            uint32_t c = image->PixelRGB(x0 + x, y);
            bool transparent = clear(x0 + x, y, c);
            img.Pixels[size_t(y) * FWidth + x] = transparent ? 0 : c;
            img.Mask[size_t(y) * FWidth + x] = transparent;
        }
    return img;
}

std::vector<TCustomImageList::TImage>
TCustomImageList::Split(TBitmap* image, const std::function<bool(int, int, uint32_t)>& clear) const {
    if (!image || image->Empty()) throw rtl::EInvalidOperation("Cannot add an empty image to an image list");
    int n = std::max(1, image->Width() / FWidth);
    std::vector<TImage> out;
    for (int i = 0; i < n; ++i)
        out.push_back(Cut(image, i, clear));
    return out;
}

int TCustomImageList::Add(TBitmap* image, TBitmap* mask) {
    auto images = Split(image, MaskTest(image, mask));
    int first = Count();
    FImages.insert(FImages.end(), images.begin(), images.end());
    Change();
    return first;
}

int TCustomImageList::AddMasked(TBitmap* image, TColor maskColor) {
    if (!image || image->Empty()) throw rtl::EInvalidOperation("Cannot add an empty image to an image list");
    auto images = Split(image, ColorTest(image, maskColor));
    int first = Count();
    FImages.insert(FImages.end(), images.begin(), images.end());
    Change();
    return first;
}

void TCustomImageList::Insert(int index, TBitmap* image, TBitmap* mask) {
    if (index < 0 || index > Count()) throw rtl::EInvalidOperation(SImageIndexError);
    auto images = Split(image, MaskTest(image, mask));
    FImages.insert(FImages.begin() + index, images.begin(), images.end());
    Change();
}

void TCustomImageList::InsertMasked(int index, TBitmap* image, TColor maskColor) {
    if (index < 0 || index > Count()) throw rtl::EInvalidOperation(SImageIndexError);
    if (!image || image->Empty()) throw rtl::EInvalidOperation("Cannot add an empty image to an image list");
    auto images = Split(image, ColorTest(image, maskColor));
    FImages.insert(FImages.begin() + index, images.begin(), images.end());
    Change();
}

void TCustomImageList::Replace(int index, TBitmap* image, TBitmap* mask) {
    CheckIndex(index);
    if (!image || image->Empty()) throw rtl::EInvalidOperation("Cannot add an empty image to an image list");
    FImages[index] = Cut(image, 0, MaskTest(image, mask));
    Change();
}

void TCustomImageList::ReplaceMasked(int index, TBitmap* image, TColor maskColor) {
    CheckIndex(index);
    if (!image || image->Empty()) throw rtl::EInvalidOperation("Cannot add an empty image to an image list");
    FImages[index] = Cut(image, 0, ColorTest(image, maskColor));
    Change();
}

void TCustomImageList::Delete(int index) {
    CheckIndex(index);
    FImages.erase(FImages.begin() + index);
    Change();
}

void TCustomImageList::Move(int curIndex, int newIndex) {
    CheckIndex(curIndex);
    CheckIndex(newIndex);
    if (curIndex == newIndex) return;
    TImage img = std::move(FImages[curIndex]);
    FImages.erase(FImages.begin() + curIndex);
    FImages.insert(FImages.begin() + newIndex, std::move(img));
    Change();
}

void TCustomImageList::Clear() {
    if (FImages.empty()) return;
    FImages.clear();
    Change();
}

void TCustomImageList::GetBitmap(int index, TBitmap* image) {
    CheckIndex(index);
    if (!image) return;
    image->SetSize(FWidth, FHeight);
    Draw(image->Canvas(), 0, 0, index, true);
}

void TCustomImageList::GetMask(int index, TBitmap* mask) {
    CheckIndex(index);
    if (!mask) return;
    mask->SetSize(FWidth, FHeight);
    const TImage& img = FImages[index];
    for (int y = 0; y < FHeight; ++y)
        for (int x = 0; x < FWidth; ++x)
            mask->ScanLine(y)[x] = img.Mask[size_t(y) * FWidth + x] ? clWhite : clBlack;
    mask->NotifyChanged();
}

void TCustomImageList::Draw(TCanvas* canvas, int x, int y, int index, bool enabled) {
    if (!canvas || !canvas->Target() || index < 0 || index >= Count()) return;
    TBitmap* target = canvas->Target();
    const TImage& img = FImages[index];
    auto put = [&](int px, int py, uint32_t c) {
        if (px < 0 || py < 0 || px >= target->Width() || py >= target->Height()) return;
        target->ScanLine(py)[px] = target->Quantize(c);
    };
    auto opaque = [&](int i, int j) { return !FMasked || !img.Mask[size_t(j) * FWidth + i]; };
    if (!enabled) {
        // The classic disabled look: every opaque pixel that is not white, in the highlight colour one pixel
        // down and right, then in the shadow colour in place.
        uint32_t highlight = ColorToRGB(clBtnHighlight), shadow = ColorToRGB(clBtnShadow);
        auto ink = [&](int i, int j) {
            size_t k = size_t(j) * FWidth + i;
            if (!opaque(i, j) || (!img.Alpha.empty() && img.Alpha[k] < 128)) return false;
            return img.Pixels[k] != 0xFFFFFF;
        };
        for (int j = 0; j < FHeight; ++j)
            for (int i = 0; i < FWidth; ++i)
                if (ink(i, j)) put(x + i + 1, y + j + 1, highlight);
        for (int j = 0; j < FHeight; ++j)
            for (int i = 0; i < FWidth; ++i)
                if (ink(i, j)) put(x + i, y + j, shadow);
    } else {
        bool fillBackground = FBkColor != clNone && FDrawingStyle != dsTransparent;
        uint32_t bk = ColorToRGB(FBkColor);
        int blend = FDrawingStyle == dsFocus ? 25 : FDrawingStyle == dsSelected ? 50 : 0;
        uint32_t blendWith = ColorToRGB(FBlendColor == clNone ? clHighlight : FBlendColor);
        for (int j = 0; j < FHeight; ++j)
            for (int i = 0; i < FWidth; ++i) {
                size_t k = size_t(j) * FWidth + i;
                int px = x + i, py = y + j;
                if (FImageType == itMask) {
                    put(px, py, img.Mask[k] ? clWhite : clBlack);
                    continue;
                }
                if (!opaque(i, j)) {
                    if (fillBackground) put(px, py, bk);
                    continue;
                }
                uint32_t c = img.Pixels[k];
                if (!img.Alpha.empty() && img.Alpha[k] < 255) {
                    // Premultiplied: source plus what the remaining opacity lets through.
                    if (px < 0 || py < 0 || px >= target->Width() || py >= target->Height()) continue;
                    uint32_t under = fillBackground ? bk : target->PixelRGB(px, py);
                    unsigned rest = 255 - img.Alpha[k];
                    auto over = [&](unsigned s, unsigned d) {
                        return std::min(255u, s + (d * rest + 127) / 255);
                    };
                    c = RGB(over(R(c), R(under)), over(G(c), G(under)), over(B(c), B(under)));
                }
                put(px, py, blend ? Blend(c, blendWith, blend) : c);
            }
    }
    target->NotifyChanged();
}

// ---- Streaming ------------------------------------------------------------------------------------------

void TCustomImageList::WriteData(std::vector<uint8_t>& data) const {
    int n = Count();
    int rows = std::max(1, (n + StripColumns - 1) / StripColumns);
    int sw = FWidth * StripColumns, sh = FHeight * rows;
    bool withAlpha =
        std::any_of(FImages.begin(), FImages.end(), [](const TImage& i) { return !i.Alpha.empty(); });
    std::vector<uint32_t> strip(size_t(sw) * sh, 0), masks(size_t(sw) * sh, 0xFFFFFF);
    std::vector<uint8_t> alpha(withAlpha ? size_t(sw) * sh : 0, 0);
    for (int i = 0; i < n; ++i) {
        const TImage& img = FImages[i];
        int ox = (i % StripColumns) * FWidth, oy = (i / StripColumns) * FHeight;
        for (int y = 0; y < FHeight; ++y)
            for (int x = 0; x < FWidth; ++x) {
                size_t k = size_t(y) * FWidth + x, s = size_t(oy + y) * sw + ox + x;
                bool clear = img.Mask[k];
                strip[s] = img.Pixels[k];
                masks[s] = clear ? 0xFFFFFF : 0;
                if (withAlpha) {
                    alpha[s] = !img.Alpha.empty() ? img.Alpha[k] : clear ? 0 : 255;
                    if (img.Alpha.empty() && clear) strip[s] = 0; // premultiplied by zero
                }
            }
    }
    data.push_back('I');
    data.push_back('L');
    Put16(data, 0x0101);
    Put16(data, static_cast<uint16_t>(n));
    Put16(data, static_cast<uint16_t>(std::min(n + FAllocBy, 0xFFFF)));
    Put16(data, static_cast<uint16_t>(FAllocBy));
    Put16(data, static_cast<uint16_t>(FWidth));
    Put16(data, static_cast<uint16_t>(FHeight));
    Put32(data, FBkColor == clNone ? CLR_NONE : ColorToRGB(FBkColor));
    Put16(data, (FMasked ? ILC_MASK : 0) | (withAlpha ? ILC_COLOR32 : ILC_COLOR24));
    for (int i = 0; i < 4; ++i)
        Put16(data, 0xFFFF);
    EncodeBmpFile(sw, sh, strip.data(), withAlpha ? pf32bit : pf24bit, {}, data,
                  withAlpha ? alpha.data() : nullptr);
    if (FMasked) EncodeBmpFile(sw, sh, masks.data(), pf1bit, {clBlack, clWhite}, data);
}

void TCustomImageList::ReadData(const std::vector<uint8_t>& data) {
    auto fail = [](const std::string& reason) { throw rtl::EReadError(SImageListReadError + reason); };
    if (data.size() < 28) fail("the data is too short");
    const uint8_t* p = data.data();
    if (p[0] != 'I' || p[1] != 'L') fail("the data does not start with an image list header");
    if (U16(p + 2) != 0x0101) fail("image list version " + std::to_string(U16(p + 2)) + " is not supported");
    int count = U16(p + 4);
    int cx = U16(p + 10), cy = U16(p + 12);
    uint16_t flags = U16(p + 18);
    if (cx < 1 || cy < 1) fail("the image size is zero");
    std::vector<TImage> images;
    try {
        TDibImage strip, masks;
        DecodeBmpFile(p, data.size(), 28, strip);
        bool hasMask = (flags & ILC_MASK) && strip.End + 14 <= data.size() && p[strip.End] == 'B' &&
                       p[strip.End + 1] == 'M';
        if (hasMask) DecodeBmpFile(p, data.size(), strip.End, masks);
        int columns = strip.Width / cx, rows = strip.Height / cy;
        if (int64_t(columns) * rows < count)
            fail("the image strip holds fewer images than the header counts");
        if (hasMask && (masks.Width < columns * cx || masks.Height < rows * cy))
            fail("the mask strip is smaller than the image strip");
        for (int i = 0; i < count; ++i) {
            TImage img;
            img.Pixels.resize(size_t(cx) * cy);
            img.Mask.resize(size_t(cx) * cy);
            if (!strip.Alpha.empty()) img.Alpha.resize(size_t(cx) * cy);
            int ox = (i % columns) * cx, oy = (i / columns) * cy;
            for (int y = 0; y < cy; ++y)
                for (int x = 0; x < cx; ++x) {
                    size_t s = size_t(oy + y) * strip.Width + ox + x, k = size_t(y) * cx + x;
                    img.Pixels[k] = strip.Pixels[s];
                    bool clear = false;
                    if (!strip.Alpha.empty()) {
                        img.Alpha[k] = strip.Alpha[s];
                        clear = strip.Alpha[s] == 0;
                    } else if (hasMask) {
                        clear = (masks.Pixels[size_t(oy + y) * masks.Width + ox + x] & 0xFFFFFF) != 0;
                    }
                    img.Mask[k] = clear;
                }
            images.push_back(std::move(img));
        }
    } catch (const rtl::EInvalidGraphic& e) {
        fail(e.Message());
    }
    FWidth = cx;
    FHeight = cy;
    FImages = std::move(images);
    Change();
}

void TCustomImageList::DefineProperties(rtl::TFiler& Filer) {
    inherited::DefineProperties(Filer);
    bool hasData = Count() > 0;
    if (auto* ancestor = dynamic_cast<TCustomImageList*>(Filer.Ancestor)) {
        std::vector<uint8_t> mine, theirs;
        WriteData(mine);
        ancestor->WriteData(theirs);
        hasData = mine != theirs;
    }
    Filer.DefineBinaryProperty(
        "Bitmap", [this](const std::vector<uint8_t>& data) { ReadData(data); },
        [this](std::vector<uint8_t>& data) { WriteData(data); }, hasData);
}

} // namespace vcl
