// The library's buttons: glyph handling, picture speed buttons, windowed picture buttons, form and sound
// buttons, shaped buttons, mouse regions, menu, size and push buttons.
#include "jex/jexbuttons.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "jexpublish.h"
#include "vcl/forms.h"
#include "vcl/uiservice.h"

namespace jex {

using namespace vcl;

// ---- Glyph look ------------------------------------------------------------------------------------------
TjexGlyphProps::TjexGlyphProps() : FPicture(std::make_unique<TPicture>()) {
    FPicture->OnChange = [this](rtl::TObject*) { GlyphChanged(); };
}

TjexGlyphProps::~TjexGlyphProps() {
    FPicture->OnChange = nullptr;
}

void TjexGlyphProps::SetPicture(TPicture* Value) {
    FPicture->Assign(Value);
}

void TjexGlyphProps::SetGlyph(TBitmap* Value) {
    FPicture->Assign(Value);
}

void TjexGlyphProps::SetNumGlyphs(int Value) {
    if (Value < 1 || Value > 5) throw rtl::ERangeError(rtl::SRangeError);
    if (Value == FNumGlyphs) return;
    FNumGlyphs = Value;
    GlyphChanged();
}

#define JEX_GLYPH_SETTER(Name, Type, Field)                                                                  \
    void TjexGlyphProps::Set##Name(Type Value) {                                                             \
        if (Field == Value) return;                                                                          \
        Field = Value;                                                                                       \
        GlyphChanged();                                                                                      \
    }
JEX_GLYPH_SETTER(Margin, int, FMargin)
JEX_GLYPH_SETTER(Spacing, int, FSpacing)
JEX_GLYPH_SETTER(Layout, TjexButtonLayout, FLayout)
JEX_GLYPH_SETTER(TextStyle, TjexTextStyle, FTextStyle)
JEX_GLYPH_SETTER(Style, TjexButtonStyle, FStyle)
JEX_GLYPH_SETTER(PictureHighlight, TjexPictureHighlight, FPictureHighlight)
JEX_GLYPH_SETTER(Popup, bool, FPopup)
JEX_GLYPH_SETTER(DisabledShadow, bool, FDisabledShadow)
JEX_GLYPH_SETTER(TransparentColor, TColor, FTransparentColor)
#undef JEX_GLYPH_SETTER

int TjexGlyphProps::GlyphWidth() const {
    int index = 0;
    if (TCustomImageList* images = GlyphImages(index)) return images->Width();
    TGraphic* g = FPicture->Graphic();
    return g && !g->Empty() ? g->Width() / FNumGlyphs : 0;
}

int TjexGlyphProps::GlyphHeight() const {
    int index = 0;
    if (TCustomImageList* images = GlyphImages(index)) return images->Height();
    TGraphic* g = FPicture->Graphic();
    return g && !g->Empty() ? g->Height() : 0;
}

int TjexGlyphProps::GlyphIndex(TjexGlyphState State) const {
    int index = 0;
    int count = GlyphImages(index) ? 1 : FNumGlyphs;
    int wanted = static_cast<int>(State);
    return wanted < count ? wanted : 0;
}

namespace {
uint32_t Luminance(uint32_t rgb) {
    uint32_t r = rgb & 0xFF, g = (rgb >> 8) & 0xFF, b = (rgb >> 16) & 0xFF;
    return (r * 30 + g * 59 + b * 11) / 100;
}
uint32_t Grey(uint32_t level) {
    return RGB(level, level, level);
}
uint32_t Mix(uint32_t a, uint32_t b) {
    auto ch = [&](int shift) { return ((((a >> shift) & 0xFF) + ((b >> shift) & 0xFF)) / 2) << shift; };
    return ch(0) | ch(8) | ch(16);
}
uint32_t Darker(uint32_t a) {
    auto ch = [&](int shift) { return ((((a >> shift) & 0xFF) * 3) / 4) << shift; };
    return ch(0) | ch(8) | ch(16);
}
} // namespace

void TjexGlyphProps::DrawGlyph(TjexGlyphState State, TBitmap* Dest, TColor Background) const {
    if (!Dest) return;
    int w = GlyphWidth(), h = GlyphHeight();
    Dest->SetSize(w, h);
    if (w <= 0 || h <= 0) return;
    const uint32_t bg = ColorToRGB(Background);
    // opaque[i]: the pixel belongs to the glyph (not to its transparent background).
    std::vector<uint8_t> opaque(static_cast<size_t>(w) * h, 1);
    int image = GlyphIndex(State);
    int listIndex = 0;
    if (TCustomImageList* images = GlyphImages(listIndex)) {
        TBitmap mask;
        images->GetMask(listIndex, &mask);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                Dest->SetPixelRGB(x, y, bg);
        images->GetBitmap(listIndex, Dest);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                opaque[y * w + x] = (mask.PixelRGB(x, y) & 0xFFFFFF) != 0xFFFFFF;
    } else if (auto* bmp = dynamic_cast<TBitmap*>(FPicture->Graphic())) {
        uint32_t transparent = FTransparentColor == clDefault ? ColorToRGB(bmp->TransparentColor())
                                                              : ColorToRGB(FTransparentColor);
        bool useTransparency = FTransparentColor != clNone;
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                uint32_t p = bmp->PixelRGB(image * w + x, y) & 0xFFFFFF;
                bool clear = useTransparency && p == (transparent & 0xFFFFFF);
                opaque[y * w + x] = !clear;
                Dest->SetPixelRGB(x, y, clear ? bg : p);
            }
    } else {
        // Another kind of picture (an icon): drawn over the background as it is.
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                Dest->SetPixelRGB(x, y, bg);
        FPicture->Graphic()->Draw(Dest->Canvas(), Bounds(0, 0, w, h));
    }

    bool ownDisabledImage = State == TjexGlyphState::Disabled && image == static_cast<int>(State);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            if (!opaque[y * w + x]) continue;
            uint32_t p = Dest->PixelRGB(x, y) & 0xFFFFFF;
            if (State == TjexGlyphState::Disabled) {
                if (ownDisabledImage) continue;
                p = FDisabledShadow ? ColorToRGB(clBtnShadow) : Grey(128 + Luminance(p) / 2);
            } else if (State == TjexGlyphState::Up || State == TjexGlyphState::Exclusive) {
                switch (FPictureHighlight) {
                case jphGray:
                    p = Grey(Luminance(p));
                    break;
                case jphFade:
                    p = Mix(p, bg);
                    break;
                case jphDarken:
                    p = Darker(p);
                    break;
                default:
                    break;
                }
            }
            Dest->SetPixelRGB(x, y, p);
        }
}

void TjexGlyphProps::AssignLook(const TjexGlyphProps& Source) {
    FNumGlyphs = Source.FNumGlyphs;
    FMargin = Source.FMargin;
    FSpacing = Source.FSpacing;
    FLayout = Source.FLayout;
    FTextStyle = Source.FTextStyle;
    FStyle = Source.FStyle;
    FPictureHighlight = Source.FPictureHighlight;
    FPopup = Source.FPopup;
    FDisabledShadow = Source.FDisabledShadow;
    FTransparentColor = Source.FTransparentColor;
    GlyphChanged();
}

int TjexRepeatProps::ClicksForHold(int HeldMs) const {
    if (!FRepeatEnabled || HeldMs < FRepeatInitialPause) return 1;
    // The press, then the first repeat at the initial pause.
    int64_t clicks = 2;
    int64_t t = FRepeatInitialPause;
    int64_t pause = FRepeatPause;
    // Accelerating pauses shrink geometrically, so this loop is short; the rest is one division.
    while (FAccelerate && pause > 20) {
        if (t + pause > HeldMs) return static_cast<int>(clicks);
        t += pause;
        ++clicks;
        pause = std::max<int64_t>(20, pause * 3 / 4);
    }
    clicks += (HeldMs - t) / pause;
    return static_cast<int>(std::min<int64_t>(clicks, INT32_MAX));
}

// ---- Picture speed buttons -------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomPicSpeedBtn, TGraphicControl, "jexbuttons") {
    pub::GraphicControl(d, clBtnFace, true);
    pub::Caption(d);
    jexPublishGlyphProps(d);
    jexPublishSounds(d);
}

TjexCustomPicSpeedBtn::TjexCustomPicSpeedBtn(rtl::TComponent* AOwner)
    : TGraphicControl(AOwner), FSounds(this) {
    FWidth = 23;
    FHeight = 22;
    FColor = clBtnFace;
    FParentColor = true;
    // Like a speed button, and unlike a windowed button, a new picture speed button does not show its name
    // as its caption: navigator buttons are glyph-only unless a caption is given.
    FControlStyle = TControlStyle{csCaptureMouse, csDoubleClicks, csOpaque};
}

TjexCustomPicSpeedBtn::~TjexCustomPicSpeedBtn() = default;

void TjexCustomPicSpeedBtn::SetGroupIndex(int Value) {
    if (Value == FGroupIndex) return;
    FGroupIndex = Value;
    if (FDown && FGroupIndex > 0) ReleaseGroup();
}

void TjexCustomPicSpeedBtn::SetDown(bool Value) {
    // A lone button (no group, not two-state) springs back up, as speed buttons do.
    if (Value && FGroupIndex == 0 && !IsTwoState()) Value = false;
    if (Value == FDown) return;
    FDown = Value;
    if (FDown && FGroupIndex > 0) ReleaseGroup();
    UpdateStateHint();
}

void TjexCustomPicSpeedBtn::SetAllowAllUp(bool Value) {
    FAllowAllUp = Value;
    // Buttons of one group share the setting.
    if (FGroupIndex > 0 && FParent)
        for (TControl* c : FParent->ControlList())
            if (auto* b = dynamic_cast<TjexCustomPicSpeedBtn*>(c);
                b && b != this && b->FGroupIndex == FGroupIndex)
                b->FAllowAllUp = Value;
}

void TjexCustomPicSpeedBtn::ReleaseGroup() {
    if (!FParent) return;
    for (TControl* c : FParent->ControlList())
        if (auto* b = dynamic_cast<TjexCustomPicSpeedBtn*>(c);
            b && b != this && b->FGroupIndex == FGroupIndex) {
            b->FDown = false;
            b->UpdateStateHint();
        }
}

void TjexCustomPicSpeedBtn::SetHintUp(const std::string& Value) {
    FHintUp = Value;
    UpdateStateHint();
}

void TjexCustomPicSpeedBtn::SetHintDown(const std::string& Value) {
    FHintDown = Value;
    UpdateStateHint();
}

void TjexCustomPicSpeedBtn::UpdateStateHint() {
    if (!IsTwoState() || (FHintUp.empty() && FHintDown.empty())) return;
    SetHint(FDown ? FHintDown : FHintUp);
}

void TjexCustomPicSpeedBtn::MouseEnter() {
    if (FMouseInControl) return;
    FMouseInControl = true;
    if (Enabled()) FSounds.PlayOver();
}

void TjexCustomPicSpeedBtn::MouseLeave() {
    FMouseInControl = false;
}

TjexGlyphState TjexCustomPicSpeedBtn::CurrentGlyphState() const {
    if (!Enabled()) return TjexGlyphState::Disabled;
    if (FDown) return TjexGlyphState::Exclusive;
    if (FMouseInControl) return TjexGlyphState::Over;
    return TjexGlyphState::Up;
}

void TjexCustomPicSpeedBtn::UserClick() {
    FSounds.PlayDown();
    if (IsTwoState()) {
        SetDown(!FDown);
    } else if (FGroupIndex > 0) {
        if (!FDown)
            SetDown(true);
        else if (FAllowAllUp)
            SetDown(false);
    }
    Click();
}

void TjexCustomPicSpeedBtn::Describe(TControlDesc& d) const {
    TGraphicControl::Describe(d);
    if (FGroupIndex > 0 || IsTwoState()) d.Checked = FDown;
    if (GlyphWidth() > 0) {
        d.PictureWidth = GlyphWidth();
        d.PictureHeight = GlyphHeight();
    }
}

void TjexCustomPicSpeedBtn::Loaded() {
    TGraphicControl::Loaded();
    UpdateStateHint();
}

void TjexCustomPicSpeedBtn::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TGraphicControl::Notification(AComponent, Operation);
    FSounds.Notification(AComponent, Operation);
}

JEX_IMPLEMENT_CLASS(TjexPicSpeedBtn, TjexCustomPicSpeedBtn, "jexbuttons") {
    d.Property("AllowAllUp", &TjexPicSpeedBtn::AllowAllUp, &TjexPicSpeedBtn::SetAllowAllUp).Default(false);
    d.Property("GroupIndex", &TjexPicSpeedBtn::GroupIndex, &TjexPicSpeedBtn::SetGroupIndex).Default(0);
    d.Property("Down", &TjexPicSpeedBtn::Down, &TjexPicSpeedBtn::SetDown).Default(false);
    d.Property("Images", &TjexPicSpeedBtn::Images, &TjexPicSpeedBtn::SetImages);
    d.Property("ImageIndex", &TjexPicSpeedBtn::ImageIndex, &TjexPicSpeedBtn::SetImageIndex,
               TypeInfo_TImageIndex())
        .Default(-1);
}

void TjexPicSpeedBtn::SetImages(TCustomImageList* Value) {
    if (FImages == Value) return;
    if (FImages) FImages->RemoveFreeNotification(this);
    FImages = Value;
    if (FImages) FImages->FreeNotification(this);
}

void TjexPicSpeedBtn::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TjexCustomPicSpeedBtn::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FImages) FImages = nullptr;
}

TCustomImageList* TjexPicSpeedBtn::GlyphImages(int& Index) const {
    if (!FImages || FImageIndex < 0 || FImageIndex >= FImages->Count()) return nullptr;
    Index = FImageIndex;
    return FImages;
}

JEX_IMPLEMENT_CLASS(TjexRepSpeedBtn, TjexCustomPicSpeedBtn, "jexbuttons") {
    d.Property("RepeatEnabled", &TjexRepSpeedBtn::RepeatEnabled, &TjexRepSpeedBtn::SetRepeatEnabled)
        .Default(true);
    d.Property("RepeatInitialPause", &TjexRepSpeedBtn::RepeatInitialPause,
               &TjexRepSpeedBtn::SetRepeatInitialPause)
        .Default(400);
    d.Property("RepeatPause", &TjexRepSpeedBtn::RepeatPause, &TjexRepSpeedBtn::SetRepeatPause).Default(100);
}

void TjexRepSpeedBtn::Hold(int HeldMs) {
    FSounds.PlayDown();
    int clicks = ClicksForHold(HeldMs);
    for (int i = 0; i < clicks; ++i)
        Click();
}

JEX_IMPLEMENT_CLASS(TjexToggleBtn, TjexCustomPicSpeedBtn, "jexbuttons") {
    d.Property("Down", &TjexToggleBtn::Down, &TjexToggleBtn::SetDown).Default(false);
    d.Property("HintDown", &TjexToggleBtn::HintDown, &TjexToggleBtn::SetHintDown);
    d.Property("HintUp", &TjexToggleBtn::HintUp, &TjexToggleBtn::SetHintUp);
}

// ---- Forms by name ---------------------------------------------------------------------------------------
TCustomForm* jexFindOrCreateForm(const std::string& FormName, bool& Created) {
    Created = false;
    for (int i = 0; i < Screen()->FormCount(); ++i)
        if (rtl::SameText(Screen()->Forms(i)->Name(), FormName)) return Screen()->Forms(i);
    rtl::TClass cls = FormName.empty() ? nullptr : rtl::GetClass(FormName);
    if (!cls && !FormName.empty()) cls = rtl::GetClass("T" + FormName);
    if (cls && cls->InheritsFrom(TCustomForm::StaticClass()) && cls->CanCreateComponent()) {
        auto* form = static_cast<TCustomForm*>(cls->CreateComponent(Application()));
        try {
            form->AfterConstruction();
        } catch (...) {
            form->Free();
            throw;
        }
        Created = true;
        return form;
    }
    throw rtl::EComponentError("Form '" + FormName + "' not found");
}

TModalResult jexShowFormByName(const std::string& FormName, bool Modal) {
    bool created = false;
    TCustomForm* form = jexFindOrCreateForm(FormName, created);
    if (!Modal) {
        form->Show();
        return mrNone;
    }
    TModalResult result = mrNone;
    try {
        result = form->ShowModal();
    } catch (...) {
        if (created) form->Free();
        throw;
    }
    if (created) form->Free();
    return result;
}

JEX_IMPLEMENT_CLASS(TjexFormPicSpeedBtn, TjexCustomPicSpeedBtn, "jexbuttons") {
    d.Property("FormName", &TjexFormPicSpeedBtn::FormName, &TjexFormPicSpeedBtn::SetFormName);
    d.Property("ShowModal", &TjexFormPicSpeedBtn::ShowModal, &TjexFormPicSpeedBtn::SetShowModal)
        .Default(true);
}

void TjexFormPicSpeedBtn::Click() {
    TjexCustomPicSpeedBtn::Click();
    if (!FFormName.empty()) FLastResult = jexShowFormByName(FFormName, FShowModal);
}

// ---- Windowed picture buttons ----------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomPicBtn, TButton, "jexbuttons") {
    pub::Color(d, clBtnFace);
    jexPublishGlyphProps(d);
    jexPublishSounds(d);
}

TjexCustomPicBtn::TjexCustomPicBtn(rtl::TComponent* AOwner) : TButton(AOwner), FSounds(this) {
    FColor = clBtnFace;
}

void TjexCustomPicBtn::UserClick() {
    FSounds.PlayDown();
    TButton::UserClick();
}

void TjexCustomPicBtn::Describe(TControlDesc& d) const {
    TButton::Describe(d);
    if (GlyphWidth() > 0) {
        d.PictureWidth = GlyphWidth();
        d.PictureHeight = GlyphHeight();
    }
}

void TjexCustomPicBtn::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TButton::Notification(AComponent, Operation);
    FSounds.Notification(AComponent, Operation);
}

JEX_IMPLEMENT_CLASS(TjexPicBtn, TjexCustomPicBtn, "jexbuttons") {
    d.Property("Images", &TjexPicBtn::Images, &TjexPicBtn::SetImages);
    d.Property("ImageIndex", &TjexPicBtn::ImageIndex, &TjexPicBtn::SetImageIndex, TypeInfo_TImageIndex())
        .Default(-1);
}

void TjexPicBtn::SetImages(TCustomImageList* Value) {
    if (FImages == Value) return;
    if (FImages) FImages->RemoveFreeNotification(this);
    FImages = Value;
    if (FImages) FImages->FreeNotification(this);
}

void TjexPicBtn::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TjexCustomPicBtn::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FImages) FImages = nullptr;
}

TCustomImageList* TjexPicBtn::GlyphImages(int& Index) const {
    if (!FImages || FImageIndex < 0 || FImageIndex >= FImages->Count()) return nullptr;
    Index = FImageIndex;
    return FImages;
}

JEX_IMPLEMENT_CLASS(TjexFormPicBtn, TjexCustomPicBtn, "jexbuttons") {
    d.Property("FormName", &TjexFormPicBtn::FormName, &TjexFormPicBtn::SetFormName);
    d.Property("ShowModal", &TjexFormPicBtn::ShowModal, &TjexFormPicBtn::SetShowModal).Default(true);
}

void TjexFormPicBtn::Click() {
    TjexCustomPicBtn::Click();
    if (!FFormName.empty()) FLastResult = jexShowFormByName(FFormName, FShowModal);
}

// ---- Sounds ----------------------------------------------------------------------------------------------
bool jexPlayWaveFile(const std::string& FileName) {
    if (FileName.empty() || !UIInstalled()) return false;
    return vcl::ShellExecute("play", FileName, {}, {}, SW_HIDE) > 32;
}

bool jexPlayWave(const TjexWaveImage& Sound) {
    if (Sound.GetEmpty() || !UIInstalled()) return false;
    // Named after the content (FNV-1a), so the same sound is written once and never clobbered by another.
    uint64_t hash = 1469598103934665603ull;
    for (uint8_t b : Sound.Bytes())
        hash = (hash ^ b) * 1099511628211ull;
    char name[40];
    std::snprintf(name, sizeof name, "jexwave-%016llx.wav", static_cast<unsigned long long>(hash));
    std::filesystem::path file = std::filesystem::temp_directory_path() / name;
    if (!rtl::FileExists(file.string()) ||
        std::filesystem::file_size(file) != static_cast<uintmax_t>(Sound.Size()))
        Sound.SaveToFile(file.string());
    return jexPlayWaveFile(file.string());
}

JEX_IMPLEMENT_CLASS(TjexWaveBtn, TjexCustomPicBtn, "jexbuttons") {
    d.Property("PlaySync", &TjexWaveBtn::PlaySync, &TjexWaveBtn::SetPlaySync).Default(false);
    d.Property("Sound", &TjexWaveBtn::Sound, &TjexWaveBtn::SetSound);
}

void TjexWaveBtn::Click() {
    jexPlayWave(FSound);
    TjexCustomPicBtn::Click();
}

JEX_IMPLEMENT_CLASS(TjexWaveFileBtn, TjexCustomPicBtn, "jexbuttons") {
    d.Property("FileName", &TjexWaveFileBtn::FileName, &TjexWaveFileBtn::SetFileName,
               rtl::TypeInfo_TFileName());
    d.Property("PlaySync", &TjexWaveFileBtn::PlaySync, &TjexWaveFileBtn::SetPlaySync).Default(false);
}

void TjexWaveFileBtn::Click() {
    jexPlayWaveFile(FFileName);
    TjexCustomPicBtn::Click();
}

// ---- Other buttons ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexFormButton, TButton, "jexbuttons") {
    d.Property("FormName", &TjexFormButton::FormName, &TjexFormButton::SetFormName);
    d.Property("ShowModal", &TjexFormButton::ShowModal, &TjexFormButton::SetShowModal).Default(true);
}

void TjexFormButton::Click() {
    TButton::Click();
    if (!FFormName.empty()) FLastResult = jexShowFormByName(FFormName, FShowModal);
}

JEX_IMPLEMENT_CLASS(TjexButton, TButton, "jexbuttons") {
    d.Property("AlignHorz", &TjexButton::AlignHorz, &TjexButton::SetAlignHorz).Default(jahCenter);
    d.Property("AlignVert", &TjexButton::AlignVert, &TjexButton::SetAlignVert).Default(javCenter);
    d.Property("WordWrap", &TjexButton::WordWrap, &TjexButton::SetWordWrap).Default(false);
}

JEX_IMPLEMENT_CLASS(TjexPushButton, TjexButton, "jexbuttons") {
    d.Property("Checked", &TjexPushButton::Checked, &TjexPushButton::SetChecked).Default(false);
}

void TjexPushButton::UserClick() {
    FChecked = !FChecked;
    TjexButton::UserClick();
}

void TjexPushButton::Describe(TControlDesc& d) const {
    TjexButton::Describe(d);
    d.Checked = FChecked;
}

JEX_IMPLEMENT_CLASS(TjexSizeButton, TButton, "jexbuttons") {
    d.Property("MarginH", &TjexSizeButton::MarginH, &TjexSizeButton::SetMarginH).Default(8);
    d.Property("MarginV", &TjexSizeButton::MarginV, &TjexSizeButton::SetMarginV).Default(4);
}

TjexSizeButton::TjexSizeButton(rtl::TComponent* AOwner) : TButton(AOwner) {}

void TjexSizeButton::SetMarginH(int Value) {
    FMarginH = std::max(0, Value);
    AdjustSize();
}

void TjexSizeButton::SetMarginV(int Value) {
    FMarginV = std::max(0, Value);
    AdjustSize();
}

void TjexSizeButton::AdjustSize() {
    if (IsLoading()) return;
    int w = TextWidthOf(Font(), StripHotkey(Caption())) + 2 * FMarginH;
    int h = TextHeightOf(Font()) + 2 * FMarginV;
    SetBounds(Left(), Top(), w, h);
}

void TjexSizeButton::FontChanged() {
    TButton::FontChanged();
    AdjustSize();
}

void TjexSizeButton::Loaded() {
    TButton::Loaded();
    AdjustSize();
}

// ---- Shaped buttons --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexShapeButton, TGraphicControl, "jexbuttons") {
    pub::Align(d);
    pub::Anchors(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::Visible(d);
    d.Property("ImageList", &TjexShapeButton::ImageList, &TjexShapeButton::SetImageList);
    d.Property("IndexDisabled", &TjexShapeButton::IndexDisabled, &TjexShapeButton::SetIndexDisabled,
               TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("IndexDown", &TjexShapeButton::IndexDown, &TjexShapeButton::SetIndexDown,
               TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("IndexFlat", &TjexShapeButton::IndexFlat, &TjexShapeButton::SetIndexFlat,
               TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("IndexMouseMask", &TjexShapeButton::IndexMouseMask, &TjexShapeButton::SetIndexMouseMask,
               TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("IndexUp", &TjexShapeButton::IndexUp, &TjexShapeButton::SetIndexUp, TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("OffsetDownX", &TjexShapeButton::OffsetDownX, &TjexShapeButton::SetOffsetDownX).Default(1);
    d.Property("OffsetDownY", &TjexShapeButton::OffsetDownY, &TjexShapeButton::SetOffsetDownY).Default(1);
    d.Property("OffsetUpX", &TjexShapeButton::OffsetUpX, &TjexShapeButton::SetOffsetUpX).Default(0);
    d.Property("OffsetUpY", &TjexShapeButton::OffsetUpY, &TjexShapeButton::SetOffsetUpY).Default(0);
    d.Property("Scaled", &TjexShapeButton::Scaled, &TjexShapeButton::SetScaled).Default(false);
    jexPublishSounds(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnMouse(d);
}

TjexShapeButton::TjexShapeButton(rtl::TComponent* AOwner) : TGraphicControl(AOwner), FSounds(this) {
    FWidth = 32;
    FHeight = 32;
}

void TjexShapeButton::SetImageList(TCustomImageList* Value) {
    if (FImageList == Value) return;
    if (FImageList) FImageList->RemoveFreeNotification(this);
    FImageList = Value;
    if (FImageList) FImageList->FreeNotification(this);
    AdjustSize();
}

void TjexShapeButton::SetScaled(bool Value) {
    FScaled = Value;
    AdjustSize();
}

int TjexShapeButton::CurrentIndex() const {
    if (!Enabled() && FIndexDisabled >= 0) return FIndexDisabled;
    if (FPressed && FIndexDown >= 0) return FIndexDown;
    if (!FMouseInControl && FIndexFlat >= 0) return FIndexFlat;
    return FIndexUp;
}

bool TjexShapeButton::InShape(int X, int Y) const {
    if (X < 0 || Y < 0 || X >= Width() || Y >= Height()) return false;
    if (!FImageList || FIndexMouseMask < 0 || FIndexMouseMask >= FImageList->Count()) return true;
    TBitmap mask;
    FImageList->GetMask(FIndexMouseMask, &mask);
    int mx = X, my = Y;
    if (FScaled && Width() > 0 && Height() > 0) {
        mx = X * FImageList->Width() / Width();
        my = Y * FImageList->Height() / Height();
    }
    if (mx >= mask.Width() || my >= mask.Height()) return false;
    return (mask.PixelRGB(mx, my) & 0xFFFFFF) != 0xFFFFFF;
}

void TjexShapeButton::MouseEnter() {
    if (FMouseInControl) return;
    FMouseInControl = true;
    if (Enabled()) FSounds.PlayOver();
}

void TjexShapeButton::MouseLeave() {
    FMouseInControl = false;
    FPressed = false;
}

void TjexShapeButton::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft && Enabled() && InShape(X, Y)) {
        FPressed = true;
        FSounds.PlayDown();
    }
    TGraphicControl::MouseDown(Button, Shift, X, Y);
}

void TjexShapeButton::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft) FPressed = false;
    TGraphicControl::MouseUp(Button, Shift, X, Y);
}

void TjexShapeButton::AdjustSize() {
    if (IsLoading() || FScaled || !FImageList) return;
    SetBounds(Left(), Top(), FImageList->Width(), FImageList->Height());
}

void TjexShapeButton::Loaded() {
    TGraphicControl::Loaded();
    AdjustSize();
}

void TjexShapeButton::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TGraphicControl::Notification(AComponent, Operation);
    FSounds.Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FImageList) FImageList = nullptr;
}

// ---- Mouse regions ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexMouseRegion, TGraphicControl, "jexbuttons") {
    pub::Align(d);
    pub::Anchors(d);
    pub::Enabled(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::Visible(d);
    d.Property("Outline", &TjexMouseRegion::Outline, &TjexMouseRegion::SetOutline).Default(false);
    d.Property("OutlineColor", &TjexMouseRegion::OutlineColor, &TjexMouseRegion::SetOutlineColor,
               TypeInfo_TColor())
        .Default(clBlack);
    jexPublishSounds(d);
    d.Property("SoundLeave", &TjexMouseRegion::SoundLeave, &TjexMouseRegion::SetSoundLeave).Default(-1);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnMouse(d);
    d.Event("OnMouseEnter", &TjexMouseRegion::OnMouseEnter);
    d.Event("OnMouseLeave", &TjexMouseRegion::OnMouseLeave);
}

TjexMouseRegion::TjexMouseRegion(rtl::TComponent* AOwner) : TGraphicControl(AOwner), FSounds(this) {
    FWidth = 50;
    FHeight = 50;
}

void TjexMouseRegion::MouseEnter() {
    if (FMouseInControl) return;
    FMouseInControl = true;
    FSounds.PlayOver();
    OnMouseEnter(this);
}

void TjexMouseRegion::MouseLeave() {
    if (!FMouseInControl) return;
    FMouseInControl = false;
    FSounds.Play(FSoundLeave);
    OnMouseLeave(this);
}

void TjexMouseRegion::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft) FSounds.PlayDown();
    TGraphicControl::MouseDown(Button, Shift, X, Y);
}

void TjexMouseRegion::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TGraphicControl::Notification(AComponent, Operation);
    FSounds.Notification(AComponent, Operation);
}

// ---- Menu buttons ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexMenuButton, TGraphicControl, "jexbuttons") {
    pub::GraphicControl(d, clBtnFace, true);
    pub::Caption(d);
    d.Property("Flat", &TjexMenuButton::Flat, &TjexMenuButton::SetFlat).Default(true);
    d.Property("Glyph", &TjexMenuButton::Glyph, &TjexMenuButton::SetGlyph);
    d.Property("Layout", &TjexMenuButton::Layout, &TjexMenuButton::SetLayout).Default(jblGlyphLeft);
    d.Property("Margin", &TjexMenuButton::Margin, &TjexMenuButton::SetMargin).Default(-1);
    d.Property("MenuCaption", &TjexMenuButton::MenuCaption, &TjexMenuButton::SetMenuCaption).Default(true);
    d.Property("MenuItem", &TjexMenuButton::MenuItem, &TjexMenuButton::SetMenuItem);
    d.Property("NumGlyphs", &TjexMenuButton::NumGlyphs, &TjexMenuButton::SetNumGlyphs).Default(1);
    d.Property("Spacing", &TjexMenuButton::Spacing, &TjexMenuButton::SetSpacing).Default(4);
    d.Property("Transparent", &TjexMenuButton::Transparent, &TjexMenuButton::SetTransparent).Default(false);
}

TjexMenuButton::TjexMenuButton(rtl::TComponent* AOwner)
    : TGraphicControl(AOwner), FGlyph(std::make_unique<TBitmap>()) {
    FWidth = 75;
    FHeight = 25;
    FColor = clBtnFace;
    FParentColor = true;
}

TjexMenuButton::~TjexMenuButton() = default;

void TjexMenuButton::SetMenuCaption(bool Value) {
    FMenuCaption = Value;
}

void TjexMenuButton::SetMenuItem(TMenuItem* Value) {
    if (FMenuItem == Value) return;
    if (FMenuItem) FMenuItem->RemoveFreeNotification(this);
    FMenuItem = Value;
    if (FMenuItem) FMenuItem->FreeNotification(this);
}

void TjexMenuButton::SetNumGlyphs(int Value) {
    if (Value < 1 || Value > 5) throw rtl::ERangeError(rtl::SRangeError);
    FNumGlyphs = Value;
}

std::string TjexMenuButton::ShownCaption() const {
    if (FMenuCaption && FMenuItem) return StripHotkey(FMenuItem->Caption());
    return Caption();
}

void TjexMenuButton::Click() {
    TGraphicControl::Click();
    if (FMenuItem && FMenuItem->Enabled()) FMenuItem->Click();
}

void TjexMenuButton::Describe(TControlDesc& d) const {
    TGraphicControl::Describe(d);
    d.Caption = ShownCaption();
    if (FMenuItem) d.Enabled = d.Enabled && FMenuItem->Enabled();
}

void TjexMenuButton::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TGraphicControl::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FMenuItem) FMenuItem = nullptr;
}

static const TjexLibraryUnit<TjexPicSpeedBtn, TjexRepSpeedBtn, TjexToggleBtn, TjexFormPicSpeedBtn, TjexPicBtn,
                             TjexFormPicBtn, TjexWaveBtn, TjexWaveFileBtn, TjexFormButton, TjexButton,
                             TjexPushButton, TjexSizeButton, TjexShapeButton, TjexMouseRegion, TjexMenuButton>
    jexbuttonsUnit("jexbuttons");

} // namespace jex
