// Glyph buttons: TSpeedButton (grouped, down/up, flat) and TBitBtn (a button with a glyph and a kind).
#pragma once

#include "vcl/stdctrls.h"

namespace vcl {

JEX_ENUM(TButtonLayout, blGlyphLeft, blGlyphRight, blGlyphTop, blGlyphBottom)
JEX_ENUM(TButtonState, bsUp, bsDisabled, bsDown, bsExclusive)
JEX_ENUM(TButtonStyle, bsAutoDetect, bsWin31, bsNew)
JEX_ENUM(TBitBtnKind, bkCustom, bkOK, bkCancel, bkHelp, bkYes, bkNo, bkClose, bkAbort, bkRetry, bkIgnore,
         bkAll)
const rtl::TTypeInfo* TypeInfo_TNumGlyphs(); // 1..4
using TNumGlyphs = int;

class TSpeedButton : public TGraphicControl {
    JEX_CLASS(TSpeedButton, TGraphicControl)
    explicit TSpeedButton(TComponent* AOwner);
    ~TSpeedButton() override;
    bool AllowAllUp() const { return FAllowAllUp; }
    // Applies to every button of the group under the same parent.
    void SetAllowAllUp(bool v);
    bool Down() const { return FDown; }
    // Only a grouped button can be down; a down button of a group that does not allow all up stays down
    // until another button of the group goes down.
    void SetDown(bool v);
    bool Flat() const { return FFlat; }
    void SetFlat(bool v) { FFlat = v; }
    int GroupIndex() const { return FGroupIndex; }
    void SetGroupIndex(int v);
    TBitmap* Glyph() const { return FGlyph; }
    void SetGlyph(TBitmap* v) { FGlyph->Assign(v); }
    TNumGlyphs NumGlyphs() const { return FNumGlyphs; }
    // 1..4; other values are ignored, as the platform's setter does.
    void SetNumGlyphs(TNumGlyphs v);
    TButtonLayout Layout() const { return FLayout; }
    void SetLayout(TButtonLayout v) { FLayout = v; }
    int Margin() const { return FMargin; }
    void SetMargin(int v) { FMargin = v < -1 ? -1 : v; }
    int Spacing() const { return FSpacing; }
    void SetSpacing(int v) { FSpacing = v; }
    bool Transparent() const { return FTransparent; }
    void SetTransparent(bool v) { FTransparent = v; }
    // A person's click: a grouped button goes down (or up when it is down and the group allows all up),
    // then OnClick.
    void UserClick() override;
    void Describe(TControlDesc& d) const override;

private:
    void UpdateExclusive();
    TBitmap* FGlyph;
    bool FAllowAllUp = false, FDown = false, FFlat = false, FTransparent = true;
    int FGroupIndex = 0;
    TNumGlyphs FNumGlyphs = 1;
    TButtonLayout FLayout = blGlyphLeft;
    int FMargin = -1, FSpacing = 4;
};

class TBitBtn : public TButton {
    JEX_CLASS(TBitBtn, TButton)
    explicit TBitBtn(TComponent* AOwner);
    ~TBitBtn() override;
    TBitmap* Glyph() const { return FGlyph; }
    void SetGlyph(TBitmap* v) { FGlyph->Assign(v); }
    // Setting a kind other than bkCustom sets the caption, modal result, Default and Cancel as the
    // platform's kinds do.
    TBitBtnKind Kind() const { return FKind; }
    void SetKind(TBitBtnKind v);
    TButtonLayout Layout() const { return FLayout; }
    void SetLayout(TButtonLayout v) { FLayout = v; }
    int Margin() const { return FMargin; }
    void SetMargin(int v) { FMargin = v < -1 ? -1 : v; }
    TNumGlyphs NumGlyphs() const { return FNumGlyphs; }
    void SetNumGlyphs(TNumGlyphs v);
    int Spacing() const { return FSpacing; }
    void SetSpacing(int v) { FSpacing = v; }
    TButtonStyle Style() const { return FStyle; }
    void SetStyle(TButtonStyle v) { FStyle = v; }
    // bkClose closes the form, bkHelp asks for help on the nearest help context; others as TButton.
    void Click() override;
    void Describe(TControlDesc& d) const override;

private:
    TBitmap* FGlyph;
    TBitBtnKind FKind = bkCustom;
    TButtonLayout FLayout = blGlyphLeft;
    int FMargin = -1, FSpacing = 4;
    TNumGlyphs FNumGlyphs = 1;
    TButtonStyle FStyle = bsAutoDetect;
};

} // namespace vcl
