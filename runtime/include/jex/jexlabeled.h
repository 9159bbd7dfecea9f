// Controls with an attached label: the label object every such control carries (its text, look and
// placement beside the control, which it follows when the control moves, hides or is disabled) and the
// labelled edit, mask edit, spin edit, memo, list box, combo box, image, panel, scroll box and tree.
#pragma once

#include <memory>
#include <string>

#include "jex/jexcommon.h"
#include "vcl/comctrls.h"
#include "vcl/extctrls.h"
#include "vcl/forms.h"
#include "vcl/spin.h"
#include "vcl/stdctrls.h"

namespace jex {

// Where the label sits: above, left of, right of or below its control, Spacing pixels away.
JEX_ENUM(TjexSubLabelPosition, jlpAbove, jlpLeft, jlpRight, jlpBelow)

// The attached label of a control, kept with the control in form files (as its "Label" property). The
// label itself is a platform label beside the control, in the control's parent, made and freed by this
// object. Locked (the default) keeps it at Position; unlocked it keeps the offset (OffsetX, OffsetY) from
// the control it was moved to. Either way, moving the control moves the label; hiding or disabling the
// control hides or disables it too. FocusControl is the control a click on the label (or its accelerator)
// focuses; nil means the labelled control itself.
class TjexSubLabel : public rtl::TPersistent {
    JEX_CLASS(TjexSubLabel, rtl::TPersistent)
    explicit TjexSubLabel(vcl::TControl* Control);
    ~TjexSubLabel() override;
    void Assign(rtl::TPersistent* Source) override;
    rtl::TPersistent* GetOwner() const override;

    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& Value);
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool Value);
    bool Visible() const { return FVisible; }
    void SetVisible(bool Value);
    vcl::TWinControl* FocusControl() const { return FFocusControl; }
    void SetFocusControl(vcl::TWinControl* Value);
    bool Locked() const { return FLocked; }
    void SetLocked(bool Value);
    TjexSubLabelPosition Position() const { return FPosition; }
    void SetPosition(TjexSubLabelPosition Value);
    int Spacing() const { return FSpacing; }
    void SetSpacing(int Value);
    int OffsetX() const { return FOffsetX; }
    void SetOffsetX(int Value);
    int OffsetY() const { return FOffsetY; }
    void SetOffsetY(int Value);
    bool IsOffsetStored() const { return !FLocked; }
    vcl::TFont* Font() const { return FFont.get(); }
    void SetFont(vcl::TFont* Value) { FFont->Assign(Value); }
    bool ParentFont() const { return FParentFont; }
    void SetParentFont(bool Value);
    bool IsFontStored() const { return !FParentFont; }
    vcl::TColor Color() const { return FColor; }
    void SetColor(vcl::TColor Value);
    bool ParentColor() const { return FParentColor; }
    void SetParentColor(bool Value);
    bool IsColorStored() const { return !FParentColor; }
    bool Transparent() const { return FTransparent; }
    void SetTransparent(bool Value);

    // The platform label showing all this (nil while the control has no parent).
    vcl::TLabel* Label() const { return FLabel; }
    vcl::TControl* Control() const { return FControl; }
    // A person (or the designer) moves the label to X, Y in the parent: refused (false) while Locked.
    bool MoveTo(int X, int Y);
    // Where the label goes for the control's current bounds.
    vcl::TPoint LabelPosition() const;

    // Called by the control: it moved, resized, was re-parented, hidden, shown, enabled or disabled.
    void ControlChanged();
    // The control's notification, passed on (the label or the focus control going away).
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation);

protected:
    virtual void Apply();
    // The text the label shows (the Caption here).
    virtual std::string ShownCaptionText() const { return FCaption; }

private:
    void EnsureLabel();
    vcl::TControl* FControl;
    vcl::TLabel* FLabel = nullptr;
    vcl::TWinControl* FFocusControl = nullptr;
    std::unique_ptr<vcl::TFont> FFont;
    std::string FCaption;
    vcl::TColor FColor = vcl::clBtnFace;
    TjexSubLabelPosition FPosition = jlpAbove;
    int FSpacing = 3, FOffsetX = 0, FOffsetY = -20;
    bool FEnabled = true, FVisible = true, FLocked = true, FParentFont = true, FParentColor = true,
         FTransparent = false, FApplying = false;
};

// Gives a control class an attached label of class L (TjexSubLabel or a descendant). The concrete class
// declares JEX_CLASS(Self, Base) and publishes "Label" with jexPublishSubLabel.
template <class Base, class L = TjexSubLabel> class TjexLabeledControl : public Base {
public:
    explicit TjexLabeledControl(rtl::TComponent* AOwner)
        : Base(AOwner), FSubLabel(std::make_unique<L>(this)) {}
    ~TjexLabeledControl() override { FSubLabel.reset(); }
    L* SubLabel() const { return FSubLabel.get(); }
    void SetSubLabel(L* Value) { FSubLabel->Assign(Value); }

    void SetParent(vcl::TWinControl* AParent) override {
        Base::SetParent(AParent);
        if (FSubLabel) FSubLabel->ControlChanged();
    }
    void SetBounds(int ALeft, int ATop, int AWidth, int AHeight) override {
        Base::SetBounds(ALeft, ATop, AWidth, AHeight);
        if (FSubLabel) FSubLabel->ControlChanged();
    }
    void SetVisible(bool v) override {
        Base::SetVisible(v);
        if (FSubLabel) FSubLabel->ControlChanged();
    }
    void SetEnabled(bool v) override {
        Base::SetEnabled(v);
        if (FSubLabel) FSubLabel->ControlChanged();
    }
    void Loaded() override {
        Base::Loaded();
        if (FSubLabel) FSubLabel->ControlChanged();
    }

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override {
        Base::Notification(AComponent, Operation);
        if (FSubLabel) FSubLabel->Notification(AComponent, Operation);
    }
    std::unique_ptr<L> FSubLabel;
};

// Publishes the attached label of a labelled control as "Label".
template <class C> void jexPublishSubLabel(rtl::TClassDecl<C>& d) {
    d.Property("Label", &C::SubLabel, &C::SetSubLabel);
}

// ---- The labelled controls (each publishes what its platform control publishes, and Label) -------------
class TjexLEdit : public TjexLabeledControl<vcl::TEdit> {
    JEX_CLASS(TjexLEdit, vcl::TEdit)
    using TjexLabeledControl::TjexLabeledControl;
};

// An edit whose text must fit EditMask: the platform's mask characters L/l (letter, required/optional),
// A/a (letter or digit), C/c (any character), 0/9 (digit), # (digit or sign, optional), > and < (upper
// and lower case what follows, <> neither), \ (the next character literally); other characters are
// literals. "mask;0;_" sections are accepted (the blank character stands for an empty optional place).
class TjexLMaskEdit : public TjexLabeledControl<vcl::TEdit> {
    JEX_CLASS(TjexLMaskEdit, vcl::TEdit)
    using TjexLabeledControl::TjexLabeledControl;
    std::string EditMask() const { return FEditMask; }
    void SetEditMask(const std::string& Value) { FEditMask = Value; }
    // Whether Text fits the mask (an empty mask takes anything).
    bool FitsMask(const std::string& Text) const;
    // The text with the mask's case conversions applied.
    std::string ApplyMaskCase(const std::string& Text) const;
    // Typing text that does not fit the mask is refused (EUserActionError).
    void EnterText(const std::string& v) override;

private:
    std::string FEditMask;
};

class TjexLSpinEdit : public TjexLabeledControl<vcl::TSpinEdit> {
    JEX_CLASS(TjexLSpinEdit, vcl::TSpinEdit)
    using TjexLabeledControl::TjexLabeledControl;
};

class TjexLMemo : public TjexLabeledControl<vcl::TMemo> {
    JEX_CLASS(TjexLMemo, vcl::TMemo)
    using TjexLabeledControl::TjexLabeledControl;
};

class TjexLListBox : public TjexLabeledControl<vcl::TListBox> {
    JEX_CLASS(TjexLListBox, vcl::TListBox)
    using TjexLabeledControl::TjexLabeledControl;
};

class TjexLComboBox : public TjexLabeledControl<vcl::TComboBox> {
    JEX_CLASS(TjexLComboBox, vcl::TComboBox)
    using TjexLabeledControl::TjexLabeledControl;
};

class TjexLImage : public TjexLabeledControl<vcl::TImage> {
    JEX_CLASS(TjexLImage, vcl::TImage)
    using TjexLabeledControl::TjexLabeledControl;
};

class TjexLPanel : public TjexLabeledControl<vcl::TPanel> {
    JEX_CLASS(TjexLPanel, vcl::TPanel)
    using TjexLabeledControl::TjexLabeledControl;
};

class TjexLScrollBox : public TjexLabeledControl<vcl::TScrollBox> {
    JEX_CLASS(TjexLScrollBox, vcl::TScrollBox)
    using TjexLabeledControl::TjexLabeledControl;
};

class TjexLTreeView : public TjexLabeledControl<vcl::TTreeView> {
    JEX_CLASS(TjexLTreeView, vcl::TTreeView)
    using TjexLabeledControl::TjexLabeledControl;
};

} // namespace jex
