// Colours and their names, fonts, pens and brushes, the abstract graphic, and pictures that hold one graphic
// of a registered format and stream it in the form-file "Data" layout.
#include "vcl/graphics.h"

#include "graphics_internal.h"
#include "rtl/streaming.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <mutex>

namespace vcl {

JEX_DEFINE_ENUM(TFontStyle)
JEX_DEFINE_SET(TFontStyles, TFontStyle)
JEX_DEFINE_ENUM(TFontPitch)
JEX_DEFINE_ENUM(TPenStyle)
JEX_DEFINE_ENUM(TPenMode)
JEX_DEFINE_ENUM(TBrushStyle)
JEX_DEFINE_ENUM(TPixelFormat)
JEX_DEFINE_ENUM(TTransparentMode)

JEX_DEFINE_ALIAS_TYPE(TypeInfo_TFontName, "TFontName", rtl::TypeInfo_String)

namespace {

// Withdraws the identifier tables this library gave the form reader and writer when it is unloaded.
struct TIntegerConstsRegistration {
    const rtl::TTypeInfo* Color = nullptr;
    const rtl::TTypeInfo* Charset = nullptr;
    ~TIntegerConstsRegistration() {
        if (Color) rtl::UnRegisterIntegerConsts(Color);
        if (Charset) rtl::UnRegisterIntegerConsts(Charset);
    }
};
TIntegerConstsRegistration IntegerConsts;

struct TCharsetName {
    int Value;
    const char* Name;
};
constexpr TCharsetName CharsetNames[] = {
    {0, "ANSI_CHARSET"},      {1, "DEFAULT_CHARSET"},    {2, "SYMBOL_CHARSET"},
    {77, "MAC_CHARSET"},      {128, "SHIFTJIS_CHARSET"}, {129, "HANGEUL_CHARSET"},
    {130, "JOHAB_CHARSET"},   {134, "GB2312_CHARSET"},   {136, "CHINESEBIG5_CHARSET"},
    {161, "GREEK_CHARSET"},   {162, "TURKISH_CHARSET"},  {163, "VIETNAMESE_CHARSET"},
    {177, "HEBREW_CHARSET"},  {178, "ARABIC_CHARSET"},   {186, "BALTIC_CHARSET"},
    {204, "RUSSIAN_CHARSET"}, {222, "THAI_CHARSET"},     {238, "EASTEUROPE_CHARSET"},
    {255, "OEM_CHARSET"},
};

} // namespace

// The types are created on first use, and with them the identifiers form files use for their values
// (clBtnFace, DEFAULT_CHARSET) are registered with the form reader and writer.
const rtl::TTypeInfo* TypeInfo_TColor() {
    static const rtl::TTypeInfo ti = rtl::TTypeInfo::MakeAlias("TColor", *rtl::TypeInfo_Integer());
    static const bool registered = [] {
        rtl::RegisterIntegerConsts(
            &ti,
            [](std::string_view ident, int64_t& value) {
                TColor c;
                if (!IdentToColor(std::string(ident), c)) return false;
                value = c;
                return true;
            },
            [](int64_t value, std::string& ident) {
                return ColorToIdent(static_cast<TColor>(value), ident);
            });
        IntegerConsts.Color = &ti;
        return true;
    }();
    (void)registered;
    return &ti;
}

const rtl::TTypeInfo* TypeInfo_TFontCharset() {
    static const rtl::TTypeInfo ti = rtl::TTypeInfo::MakeAlias("TFontCharset", *rtl::TypeInfo_Byte());
    static const bool registered = [] {
        rtl::RegisterIntegerConsts(
            &ti,
            [](std::string_view ident, int64_t& value) {
                int v;
                if (!IdentToCharset(std::string(ident), v)) return false;
                value = v;
                return true;
            },
            [](int64_t value, std::string& ident) { return CharsetToIdent(static_cast<int>(value), ident); });
        IntegerConsts.Charset = &ti;
        return true;
    }();
    (void)registered;
    return &ti;
}

bool CharsetToIdent(int charset, std::string& ident) {
    for (const auto& c : CharsetNames)
        if (c.Value == charset) {
            ident = c.Name;
            return true;
        }
    return false;
}

bool IdentToCharset(const std::string& ident, int& charset) {
    for (const auto& c : CharsetNames)
        if (rtl::SameText(ident, c.Name)) {
            charset = c.Value;
            return true;
        }
    return false;
}

// ---- Colours --------------------------------------------------------------------------------------------
namespace {

struct TColorName {
    TColor Value;
    const char* Name;
};

// The platform's table; GetColorValues walks it in this order and ColorToString takes the first match.
constexpr TColorName ColorNames[] = {
    {clBlack, "clBlack"},
    {clMaroon, "clMaroon"},
    {clGreen, "clGreen"},
    {clOlive, "clOlive"},
    {clNavy, "clNavy"},
    {clPurple, "clPurple"},
    {clTeal, "clTeal"},
    {clGray, "clGray"},
    {clSilver, "clSilver"},
    {clRed, "clRed"},
    {clLime, "clLime"},
    {clYellow, "clYellow"},
    {clBlue, "clBlue"},
    {clFuchsia, "clFuchsia"},
    {clAqua, "clAqua"},
    {clWhite, "clWhite"},
    {clMoneyGreen, "clMoneyGreen"},
    {clSkyBlue, "clSkyBlue"},
    {clCream, "clCream"},
    {clMedGray, "clMedGray"},
    {clActiveBorder, "clActiveBorder"},
    {clActiveCaption, "clActiveCaption"},
    {clAppWorkSpace, "clAppWorkSpace"},
    {clBackground, "clBackground"},
    {clBtnFace, "clBtnFace"},
    {clBtnHighlight, "clBtnHighlight"},
    {clBtnShadow, "clBtnShadow"},
    {clBtnText, "clBtnText"},
    {clCaptionText, "clCaptionText"},
    {clDefault, "clDefault"},
    {clGrayText, "clGrayText"},
    {clHighlight, "clHighlight"},
    {clHighlightText, "clHighlightText"},
    {clInactiveBorder, "clInactiveBorder"},
    {clInactiveCaption, "clInactiveCaption"},
    {clInactiveCaptionText, "clInactiveCaptionText"},
    {clInfoBk, "clInfoBk"},
    {clInfoText, "clInfoText"},
    {clMenu, "clMenu"},
    {clMenuText, "clMenuText"},
    {clNone, "clNone"},
    {clScrollBar, "clScrollBar"},
    {cl3DDkShadow, "cl3DDkShadow"},
    {cl3DLight, "cl3DLight"},
    {clWindow, "clWindow"},
    {clWindowFrame, "clWindowFrame"},
    {clWindowText, "clWindowText"},
};

// The classic default scheme, indexed by system colour number ($00BBGGRR).
constexpr uint32_t SystemScheme[] = {
    0xC0C0C0, // scroll bar
    0x808000, // desktop background
    0x800000, // active caption
    0x808080, // inactive caption
    0xC0C0C0, // menu
    0xFFFFFF, // window
    0x000000, // window frame
    0x000000, // menu text
    0x000000, // window text
    0xFFFFFF, // caption text
    0xC0C0C0, // active border
    0xC0C0C0, // inactive border
    0x808080, // application workspace
    0x800000, // highlight
    0xFFFFFF, // highlight text
    0xC0C0C0, // button face
    0x808080, // button shadow
    0x808080, // grey text
    0x000000, // button text
    0xC0C0C0, // inactive caption text
    0xFFFFFF, // button highlight
    0x000000, // 3D dark shadow
    0xC0C0C0, // 3D light
    0x000000, // tooltip text
    0xE1FFFF, // tooltip background
    0xB5B5B5, // (unused slot 25)
    0xFF0000, // hot-tracked item
    0xD08410, // active caption gradient
    0xB5B5B5, // inactive caption gradient
    0x800000, // menu highlight
    0xC0C0C0, // menu bar
};

} // namespace

bool ColorToIdent(TColor color, std::string& ident) {
    for (const auto& c : ColorNames)
        if (c.Value == color) {
            ident = c.Name;
            return true;
        }
    return false;
}

bool IdentToColor(const std::string& ident, TColor& color) {
    for (const auto& c : ColorNames)
        if (rtl::SameText(ident, c.Name)) {
            color = c.Value;
            return true;
        }
    return false;
}

std::string ColorToString(TColor color) {
    std::string name;
    if (ColorToIdent(color, name)) return name;
    static const char* hex = "0123456789ABCDEF";
    std::string r = "$";
    uint32_t v = static_cast<uint32_t>(color);
    for (int shift = 28; shift >= 0; shift -= 4)
        r += hex[(v >> shift) & 0xF];
    return r;
}

TColor StringToColor(const std::string& s) {
    TColor c;
    if (IdentToColor(s, c)) return c;
    // Any integer text, hexadecimal included: "$8000001E" is how an unnamed system colour is written.
    return rtl::StrToInt(s);
}

void GetColorValues(const std::function<void(const std::string&)>& proc) {
    for (const auto& c : ColorNames)
        proc(c.Name);
}

uint32_t ColorToRGB(TColor color) {
    if (color < 0) {
        uint32_t index = static_cast<uint32_t>(color) & 0xFF;
        return index < std::size(SystemScheme) ? SystemScheme[index] : 0;
    }
    return static_cast<uint32_t>(color);
}

// ---- Graphics objects -----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TGraphicsObject, TPersistent, "Graphics") {}

void TGraphicsObject::Changed() {
    OnChange(this);
}

JEX_IMPLEMENT_CLASS(TFont, TGraphicsObject, "Graphics") {
    d.Property("Charset", &TFont::Charset, &TFont::SetCharset, TypeInfo_TFontCharset());
    d.Property("Color", &TFont::Color, &TFont::SetColor, TypeInfo_TColor());
    d.Property("Height", &TFont::Height, &TFont::SetHeight);
    d.Property("Name", &TFont::Name, &TFont::SetName, TypeInfo_TFontName());
    d.Property("Pitch", &TFont::Pitch, &TFont::SetPitch).Default(fpDefault);
    // Height says the same; writing both would make the reader apply the size twice.
    d.Property("Size", &TFont::Size, &TFont::SetSize).Stored(false);
    d.Property("Style", &TFont::Style, &TFont::SetStyle);
}

TFont::TFont() = default;

void TFont::Assign(TPersistent* Source) {
    if (auto* f = dynamic_cast<TFont*>(Source)) {
        if (Equals(*f)) return;
        FCharset = f->FCharset;
        FColor = f->FColor;
        // Height is relative to the resolution; carry the point size across different resolutions.
        FHeight = f->PixelsPerInch == PixelsPerInch
                      ? f->FHeight
                      : static_cast<int>(std::lround(double(f->FHeight) * PixelsPerInch / f->PixelsPerInch));
        FName = f->FName;
        FPitch = f->FPitch;
        FStyle = f->FStyle;
        Changed();
        return;
    }
    inherited::Assign(Source);
}

bool TFont::Equals(const TFont& o) const {
    return FCharset == o.FCharset && FColor == o.FColor && FHeight == o.FHeight && FName == o.FName &&
           FPitch == o.FPitch && FStyle == o.FStyle;
}

void TFont::SetCharset(int v) {
    v &= 0xFF;
    if (v == FCharset) return;
    FCharset = v;
    Changed();
}
void TFont::SetColor(TColor v) {
    if (v == FColor) return;
    FColor = v;
    Changed();
}
void TFont::SetHeight(int v) {
    if (v == FHeight) return;
    FHeight = v;
    Changed();
}
void TFont::SetName(const std::string& v) {
    if (v.empty() || v == FName) return; // the platform ignores an empty face name
    FName = v;
    Changed();
}
void TFont::SetPitch(TFontPitch v) {
    if (v == FPitch) return;
    FPitch = v;
    Changed();
}
// Points from pixels, rounded like the platform's MulDiv.
int TFont::Size() const {
    return -static_cast<int>(std::lround(double(FHeight) * 72.0 / PixelsPerInch));
}
void TFont::SetSize(int v) {
    SetHeight(-static_cast<int>(std::lround(double(v) * PixelsPerInch / 72.0)));
}
void TFont::SetStyle(TFontStyles v) {
    if (v == FStyle) return;
    FStyle = v;
    Changed();
}

JEX_IMPLEMENT_CLASS(TPen, TGraphicsObject, "Graphics") {
    d.Property("Color", &TPen::Color, &TPen::SetColor, TypeInfo_TColor()).Default(clBlack);
    d.Property("Mode", &TPen::Mode, &TPen::SetMode).Default(pmCopy);
    d.Property("Style", &TPen::Style, &TPen::SetStyle).Default(psSolid);
    d.Property("Width", &TPen::Width, &TPen::SetWidth).Default(1);
}

void TPen::Assign(TPersistent* Source) {
    if (auto* p = dynamic_cast<TPen*>(Source)) {
        if (FColor == p->FColor && FMode == p->FMode && FStyle == p->FStyle && FWidth == p->FWidth) return;
        FColor = p->FColor;
        FMode = p->FMode;
        FStyle = p->FStyle;
        FWidth = p->FWidth;
        Changed();
        return;
    }
    inherited::Assign(Source);
}
void TPen::SetColor(TColor v) {
    if (v == FColor) return;
    FColor = v;
    Changed();
}
void TPen::SetMode(TPenMode v) {
    if (v == FMode) return;
    FMode = v;
    Changed();
}
void TPen::SetStyle(TPenStyle v) {
    if (v == FStyle) return;
    FStyle = v;
    Changed();
}
void TPen::SetWidth(int v) {
    if (v < 0) v = 0; // a zero width draws one pixel wide, as on the platform
    if (v == FWidth) return;
    FWidth = v;
    Changed();
}

JEX_IMPLEMENT_CLASS(TBrush, TGraphicsObject, "Graphics") {
    d.Property("Color", &TBrush::Color, &TBrush::SetColor, TypeInfo_TColor()).Default(clWhite);
    d.Property("Style", &TBrush::Style, &TBrush::SetStyle).Default(bsSolid);
}

void TBrush::Assign(TPersistent* Source) {
    if (auto* b = dynamic_cast<TBrush*>(Source)) {
        if (FColor == b->FColor && FStyle == b->FStyle) return;
        FColor = b->FColor;
        FStyle = b->FStyle;
        Changed();
        return;
    }
    inherited::Assign(Source);
}
void TBrush::SetColor(TColor v) {
    if (v == FColor && FStyle != bsClear) return;
    FColor = v;
    // Choosing a colour makes a clear brush solid again, as on the platform.
    if (FStyle == bsClear) FStyle = bsSolid;
    Changed();
}
void TBrush::SetStyle(TBrushStyle v) {
    if (v == FStyle) return;
    FStyle = v;
    Changed();
}

// ---- TGraphic ---------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TGraphic, TPersistent, "Graphics") {}

void TGraphic::Changed() {
    OnChange(this);
}

void TGraphic::SetTransparent(bool v) {
    if (v == FTransparent) return;
    FTransparent = v;
    Changed();
}

std::vector<uint8_t> detail::ReadGraphicFile(const std::string& fileName) {
    std::string bytes = rtl::ReadFileBytes(fileName);
    return std::vector<uint8_t>(bytes.begin(), bytes.end());
}

void detail::WriteGraphicFile(const std::string& fileName, const std::vector<uint8_t>& bytes) {
    rtl::WriteFileBytes(fileName,
                        std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

void TGraphic::LoadFromFile(const std::string& fileName) {
    LoadFromBytes(detail::ReadGraphicFile(fileName));
}

void TGraphic::SaveToFile(const std::string& fileName) const {
    std::vector<uint8_t> bytes;
    SaveToBytes(bytes);
    detail::WriteGraphicFile(fileName, bytes);
}

void TGraphic::ReadData(const std::vector<uint8_t>& data) {
    LoadFromBytes(data);
}

void TGraphic::WriteData(std::vector<uint8_t>& data) const {
    std::vector<uint8_t> bytes;
    SaveToBytes(bytes);
    data.insert(data.end(), bytes.begin(), bytes.end());
}

bool TGraphic::Equals(const TGraphic* other) const {
    if (!other || other->ClassType() != ClassType()) return false;
    if (Empty() || other->Empty()) return Empty() == other->Empty();
    std::vector<uint8_t> a, b;
    WriteData(a);
    other->WriteData(b);
    return a == b;
}

void TGraphic::DefineProperties(rtl::TFiler& Filer) {
    bool hasData;
    if (auto* ancestor = dynamic_cast<TGraphic*>(Filer.Ancestor))
        hasData = !Equals(ancestor);
    else
        hasData = !Empty();
    Filer.DefineBinaryProperty(
        "Data", [this](const std::vector<uint8_t>& data) { ReadData(data); },
        [this](std::vector<uint8_t>& data) { WriteData(data); }, hasData);
}

} // namespace vcl
