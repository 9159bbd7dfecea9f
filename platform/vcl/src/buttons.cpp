// Speed buttons and bit buttons.
#include "vcl/buttons.h"

#include "publish.h"
#include "vcl/forms.h"

namespace vcl {

JEX_DEFINE_ENUM(TButtonLayout)
JEX_DEFINE_ENUM(TButtonState)
JEX_DEFINE_ENUM(TButtonStyle)
JEX_DEFINE_ENUM(TBitBtnKind)

const rtl::TTypeInfo* TypeInfo_TNumGlyphs() {
    static const rtl::TTypeInfo ti =
        rtl::TTypeInfo::MakeOrdinal("TNumGlyphs", rtl::tkInteger, rtl::otUByte, 1, 4);
    return &ti;
}

// ---- TSpeedButton -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TSpeedButton, TGraphicControl, "Buttons") {
    d.Property("AllowAllUp", &TSpeedButton::AllowAllUp, &TSpeedButton::SetAllowAllUp).Default(false);
    pub::Anchors(d);
    d.Property("GroupIndex", &TSpeedButton::GroupIndex, &TSpeedButton::SetGroupIndex).Default(0);
    d.Property("Down", &TSpeedButton::Down, &TSpeedButton::SetDown).Default(false);
    pub::Caption(d);
    pub::Enabled(d);
    d.Property("Flat", &TSpeedButton::Flat, &TSpeedButton::SetFlat).Default(false);
    pub::Font(d);
    d.Property("Glyph", &TSpeedButton::Glyph, &TSpeedButton::SetGlyph);
    d.Property("Layout", &TSpeedButton::Layout, &TSpeedButton::SetLayout).Default(blGlyphLeft);
    d.Property("Margin", &TSpeedButton::Margin, &TSpeedButton::SetMargin).Default(-1);
    d.Property("NumGlyphs", &TSpeedButton::NumGlyphs, &TSpeedButton::SetNumGlyphs, TypeInfo_TNumGlyphs())
        .Default(1);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("Spacing", &TSpeedButton::Spacing, &TSpeedButton::SetSpacing).Default(4);
    d.Property("Transparent", &TSpeedButton::Transparent, &TSpeedButton::SetTransparent).Default(true);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnMouse(d);
}

TSpeedButton::TSpeedButton(TComponent* AOwner) : TGraphicControl(AOwner), FGlyph(new TBitmap) {
    FControlStyle = TControlStyle{csCaptureMouse, csDoubleClicks};
    FWidth = 23;
    FHeight = 22;
    FParentColor = false;
    FColor = clBtnFace;
}

TSpeedButton::~TSpeedButton() {
    delete FGlyph;
}

void TSpeedButton::SetAllowAllUp(bool v) {
    if (v == FAllowAllUp) return;
    FAllowAllUp = v;
    UpdateExclusive();
}

void TSpeedButton::SetGroupIndex(int v) {
    if (v == FGroupIndex) return;
    FGroupIndex = v;
    UpdateExclusive();
}

void TSpeedButton::SetDown(bool v) {
    if (FGroupIndex == 0) v = false;
    if (v == FDown) return;
    if (FDown && !FAllowAllUp) return;
    FDown = v;
    if (v) UpdateExclusive();
}

void TSpeedButton::UpdateExclusive() {
    // The other buttons of the group (same group index, same parent) follow this one.
    if (FGroupIndex == 0 || !FParent) return;
    for (TControl* c : FParent->ControlList()) {
        auto* b = dynamic_cast<TSpeedButton*>(c);
        if (!b || b == this || b->FGroupIndex != FGroupIndex) continue;
        if (FDown && b->FDown) b->FDown = false;
        b->FAllowAllUp = FAllowAllUp;
    }
}

void TSpeedButton::SetNumGlyphs(TNumGlyphs v) {
    if (v < 1 || v > 4) return;
    FNumGlyphs = v;
}

void TSpeedButton::UserClick() {
    if (FGroupIndex != 0) {
        if (!FDown)
            SetDown(true);
        else if (FAllowAllUp)
            SetDown(false);
    }
    Click();
}

void TSpeedButton::Describe(TControlDesc& d) const {
    TGraphicControl::Describe(d);
    if (FGroupIndex != 0) d.Checked = FDown;
    if (!FGlyph->Empty()) {
        d.PictureWidth = FGlyph->Width();
        d.PictureHeight = FGlyph->Height();
    }
}

// ---- TBitBtn ------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TBitBtn, TButton, "Buttons") {
    d.Property("Glyph", &TBitBtn::Glyph, &TBitBtn::SetGlyph);
    d.Property("Kind", &TBitBtn::Kind, &TBitBtn::SetKind).Default(bkCustom);
    d.Property("Layout", &TBitBtn::Layout, &TBitBtn::SetLayout).Default(blGlyphLeft);
    d.Property("Margin", &TBitBtn::Margin, &TBitBtn::SetMargin).Default(-1);
    d.Property("NumGlyphs", &TBitBtn::NumGlyphs, &TBitBtn::SetNumGlyphs, TypeInfo_TNumGlyphs()).Default(1);
    d.Property("Style", &TBitBtn::Style, &TBitBtn::SetStyle).Default(bsAutoDetect);
    d.Property("Spacing", &TBitBtn::Spacing, &TBitBtn::SetSpacing).Default(4);
}

TBitBtn::TBitBtn(TComponent* AOwner) : TButton(AOwner), FGlyph(new TBitmap) {}

TBitBtn::~TBitBtn() {
    delete FGlyph;
}

void TBitBtn::SetNumGlyphs(TNumGlyphs v) {
    if (v < 1 || v > 4) return;
    FNumGlyphs = v;
}

void TBitBtn::SetKind(TBitBtnKind v) {
    static constexpr const char* captions[] = {"",       "OK",    "Cancel", "&Help",   "&Yes", "&No",
                                               "&Close", "Abort", "&Retry", "&Ignore", "&All"};
    static constexpr TModalResult results[] = {mrNone, mrOk,    mrCancel, mrNone,   mrYes, mrNo,
                                               mrNone, mrAbort, mrRetry,  mrIgnore, mrAll};
    if (v == FKind) return;
    if (v != bkCustom) {
        SetDefault(v == bkOK || v == bkYes);
        SetCancel(v == bkCancel || v == bkNo);
        if (!IsLoading() || Caption().empty())
            if (*captions[v]) SetCaption(captions[v]);
        SetModalResult(results[v]);
        FNumGlyphs = 2;
    }
    FKind = v;
}

void TBitBtn::Click() {
    if (FKind == bkClose) {
        if (TCustomForm* form = GetParentForm(this)) {
            form->Close();
            return;
        }
    } else if (FKind == bkHelp) {
        for (const TControl* c = this; c; c = c->Parent())
            if (c->HelpContext() != 0) {
                Application()->HelpContext(c->HelpContext());
                return;
            }
    }
    TButton::Click();
}

void TBitBtn::Describe(TControlDesc& d) const {
    TButton::Describe(d);
    if (!FGlyph->Empty()) {
        d.PictureWidth = FGlyph->Width();
        d.PictureHeight = FGlyph->Height();
    }
}

} // namespace vcl
