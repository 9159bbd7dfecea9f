// Data-aware controls with an attached label: the data-aware label object (whose caption can follow the
// field's display label) and the labelled data text, edit, automatic edit, memo, image, list, combo, check
// box, radio group and lookup controls.
#pragma once

#include "jex/jexdbctrls.h"
#include "jex/jexlabeled.h"

namespace jex {

// The attached label of a data-aware control. With CaptionAuto (the default) it shows the display label of
// the control's field whenever the control is bound to one; otherwise its own Caption.
class TjexDBSubLabel : public TjexSubLabel {
    JEX_CLASS(TjexDBSubLabel, TjexSubLabel)
    explicit TjexDBSubLabel(vcl::TControl* Control) : TjexSubLabel(Control) {}
    void Assign(rtl::TPersistent* Source) override;
    bool CaptionAuto() const { return FCaptionAuto; }
    void SetCaptionAuto(bool Value);
    // The field the label follows (set by the control).
    std::function<db::TField*()> FieldOf;
    // The field's display label when CaptionAuto and bound, else Caption.
    std::string ShownCaption() const;
    void FieldChanged() { Apply(); }

protected:
    std::string ShownCaptionText() const override { return ShownCaption(); }

private:
    bool FCaptionAuto = true;
};

// A labelled data-aware control: Base has a field binding (JEX_FIELD_BINDING_ACCESSORS); its label follows
// the bound field.
template <class Base> class TjexDBLabeledControl : public TjexLabeledControl<Base, TjexDBSubLabel> {
public:
    explicit TjexDBLabeledControl(rtl::TComponent* AOwner)
        : TjexLabeledControl<Base, TjexDBSubLabel>(AOwner) {
        TjexDBSubLabel* l = this->SubLabel();
        l->FieldOf = [this] { return this->Field(); };
        TjexFieldBinding& b = this->Binding();
        auto shown = b.OnDataChange;
        b.OnDataChange = [this, shown] {
            if (shown) shown();
            if (this->FSubLabel) this->FSubLabel->FieldChanged();
        };
    }
};

class TjexLDBText : public TjexDBLabeledControl<TjexCustomDBText> {
    JEX_CLASS(TjexLDBText, TjexCustomDBText)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

class TjexLDBEdit : public TjexDBLabeledControl<TjexCustomDBEdit> {
    JEX_CLASS(TjexLDBEdit, TjexCustomDBEdit)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

class TjexLDBAutoEdit : public TjexDBLabeledControl<TjexDBAutoEdit> {
    JEX_CLASS(TjexLDBAutoEdit, TjexDBAutoEdit)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

class TjexLDBMemo : public TjexDBLabeledControl<TjexCustomDBMemo> {
    JEX_CLASS(TjexLDBMemo, TjexCustomDBMemo)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

class TjexLDBImage : public TjexDBLabeledControl<TjexCustomDBImage> {
    JEX_CLASS(TjexLDBImage, TjexCustomDBImage)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

class TjexLDBListBox : public TjexDBLabeledControl<TjexCustomDBListBox> {
    JEX_CLASS(TjexLDBListBox, TjexCustomDBListBox)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

class TjexLDBComboBox : public TjexDBLabeledControl<TjexCustomDBComboBox> {
    JEX_CLASS(TjexLDBComboBox, TjexCustomDBComboBox)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

class TjexLDBCheckBox : public TjexDBLabeledControl<TjexCustomDBCheckBox> {
    JEX_CLASS(TjexLDBCheckBox, TjexCustomDBCheckBox)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

class TjexLDBRadioGroup : public TjexDBLabeledControl<TjexCustomDBRadioGroup> {
    JEX_CLASS(TjexLDBRadioGroup, TjexCustomDBRadioGroup)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

// The earlier lookup list and combo (LookupSource, LookupField, LookupDisplay).
class TjexLDBLookupList : public TjexDBLabeledControl<TjexCustomDBLookupListBox> {
    JEX_CLASS(TjexLDBLookupList, TjexCustomDBLookupListBox)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

class TjexLDBLookupCombo : public TjexDBLabeledControl<TjexCustomDBLookupComboBox> {
    JEX_CLASS(TjexLDBLookupCombo, TjexCustomDBLookupComboBox)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

class TjexLDBLookupListBox : public TjexDBLabeledControl<TjexCustomDBLookupListBox> {
    JEX_CLASS(TjexLDBLookupListBox, TjexCustomDBLookupListBox)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

class TjexLDBLookupComboBox : public TjexDBLabeledControl<TjexCustomDBLookupComboBox> {
    JEX_CLASS(TjexLDBLookupComboBox, TjexCustomDBLookupComboBox)
    using TjexDBLabeledControl::TjexDBLabeledControl;
};

} // namespace jex
