// Spin edits: an edit holding an integer with up and down arrows, clamped to a range.
#pragma once

#include "vcl/stdctrls.h"

namespace vcl {

class TSpinEdit : public TCustomEdit {
    JEX_CLASS(TSpinEdit, TCustomEdit)
    explicit TSpinEdit(TComponent* AOwner);
    // The text as an integer; text that is no integer reads as MinValue, as on the platform.
    int Value() const;
    // Shows CheckValue(v); OnChange follows when the text changes.
    void SetValue(int v);
    // Clamps to MinValue..MaxValue, except when the two are equal: then any value passes.
    int CheckValue(int v) const;
    int MinValue() const { return FMinValue; }
    void SetMinValue(int v) { FMinValue = v; }
    int MaxValue() const { return FMaxValue; }
    void SetMaxValue(int v) { FMaxValue = v; }
    int Increment() const { return FIncrement; }
    void SetIncrement(int v) { FIncrement = v; }
    bool EditorEnabled() const { return FEditorEnabled; }
    void SetEditorEnabled(bool v) { FEditorEnabled = v; }
    // The arrows: Value +/- Increment (a beep instead when read-only).
    void UpClick();
    void DownClick();

    void KeyDown(uint16_t& Key, TShiftState Shift) override;
    void KeyPress(char& Key) override;
    // Leaving the control puts an out-of-range value back in range.
    void DoExit() override;
    // Typing accepts digits and signs only (EUserActionError otherwise).
    void EnterText(const std::string& v) override;
    void UserSetValue(int v) override { SetValue(v); }
    void Describe(TControlDesc& d) const override;

private:
    int FMinValue = 0, FMaxValue = 0, FIncrement = 1;
    bool FEditorEnabled = true;
};

} // namespace vcl
