// Spin edits.
#include "vcl/spin.h"

#include "publish.h"
#include "vcl/uiservice.h"

namespace vcl {

JEX_IMPLEMENT_CLASS(TSpinEdit, TCustomEdit, "Spin") {
    pub::Anchors(d);
    d.Property("AutoSelect", &TSpinEdit::AutoSelect, &TSpinEdit::SetAutoSelect).Default(true);
    d.Property("AutoSize", &TSpinEdit::AutoSize, &TSpinEdit::SetAutoSize).Default(true);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    d.Property("EditorEnabled", &TSpinEdit::EditorEnabled, &TSpinEdit::SetEditorEnabled).Default(true);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("Increment", &TSpinEdit::Increment, &TSpinEdit::SetIncrement).Default(1);
    d.Property("MaxLength", &TSpinEdit::MaxLength, &TSpinEdit::SetMaxLength).Default(0);
    d.Property("MaxValue", &TSpinEdit::MaxValue, &TSpinEdit::SetMaxValue);
    d.Property("MinValue", &TSpinEdit::MinValue, &TSpinEdit::SetMinValue);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TSpinEdit::ReadOnly, &TSpinEdit::SetReadOnly).Default(false);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    d.Property("Value", &TSpinEdit::Value, &TSpinEdit::SetValue);
    pub::Visible(d);
    d.Event("OnChange", &TSpinEdit::OnChange);
    pub::OnClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TSpinEdit::TSpinEdit(TComponent* AOwner) : TCustomEdit(AOwner) {
    // The text does not follow the component's name; a new spin edit shows 0.
    FControlStyle.Exclude(csSetCaption);
    FText = "0";
}

int TSpinEdit::Value() const {
    int32_t v;
    return rtl::TryStrToInt(GetText(), v) ? v : FMinValue;
}

int TSpinEdit::CheckValue(int v) const {
    if (FMaxValue != FMinValue) {
        if (v < FMinValue) return FMinValue;
        if (v > FMaxValue) return FMaxValue;
    }
    return v;
}

void TSpinEdit::SetValue(int v) {
    SetText(rtl::IntToStr(CheckValue(v)));
}

void TSpinEdit::UpClick() {
    if (FReadOnly) {
        MessageBeep(MB_OK);
        return;
    }
    SetValue(Value() + FIncrement);
}

void TSpinEdit::DownClick() {
    if (FReadOnly) {
        MessageBeep(MB_OK);
        return;
    }
    SetValue(Value() - FIncrement);
}

void TSpinEdit::KeyDown(uint16_t& Key, TShiftState Shift) {
    if (Key == VK_UP)
        UpClick();
    else if (Key == VK_DOWN)
        DownClick();
    TCustomEdit::KeyDown(Key, Shift);
}

void TSpinEdit::KeyPress(char& Key) {
    bool valid =
        (Key >= '0' && Key <= '9') || Key == '+' || Key == '-' || static_cast<unsigned char>(Key) < 32;
    if (!valid || !FEditorEnabled) {
        Key = 0;
        MessageBeep(MB_OK);
        return;
    }
    TCustomEdit::KeyPress(Key);
}

void TSpinEdit::DoExit() {
    TCustomEdit::DoExit();
    if (CheckValue(Value()) != Value()) SetValue(Value());
}

void TSpinEdit::EnterText(const std::string& v) {
    if (!FEditorEnabled) throw EUserActionError("'" + Name() + "' takes no typing");
    for (char c : v)
        if (!((c >= '0' && c <= '9') || c == '+' || c == '-'))
            throw EUserActionError("'" + Name() + "' accepts digits only, not '" + v + "'");
    TCustomEdit::EnterText(v);
}

void TSpinEdit::Describe(TControlDesc& d) const {
    TCustomEdit::Describe(d);
    d.Value = Value();
    d.MinValue = FMinValue;
    d.MaxValue = FMaxValue;
}

} // namespace vcl
