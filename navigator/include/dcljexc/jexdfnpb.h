// Jexdfnpb: the navigator button editor, a dialog that restyles one picture button already on a navigator
// panel: the wizard's glyph, caption-style and size pages, and a page with the button's hint and caption.
#pragma once

#include "dcljexc/jexdfnav.h"

namespace dcljexc {

// "Set Button Properties". Pages: 0 Glyphs, 1 CaptionStyle, 2 ButtonSize, 3 CaptionHint.
class TjexdfNavBtnEdit : public TjexdfNavDesignForm {
    JEX_CLASS(TjexdfNavBtnEdit, TjexdfNavDesignForm)
    explicit TjexdfNavBtnEdit(rtl::TComponent* AOwner);

    // Page 3: the rows are hidden until InitCaptionHint shows those that apply.
    vcl::TLabel* lblHint;
    vcl::TEdit* edHint;
    vcl::TLabel* lblHintDown;
    vcl::TEdit* edHintDown;
    vcl::TLabel* lblCaption;
    vcl::TEdit* edCaption;

    // The button under edit.
    jex::TjexCustomPicSpeedBtn* Button = nullptr;
    // True until the first activation has loaded the button's values again.
    bool FirstActivation = true;

    void FormCreate(rtl::TObject* Sender);
    void FormDestroy(rtl::TObject* Sender);
    void FormActivate(rtl::TObject* Sender);
    void PrevClick(rtl::TObject* Sender);
    void NextClick(rtl::TObject* Sender);

    // Loads the dialog from Button: look, colour, font, layout, text style, margin, hints and caption.
    void InitButtonValues();
    // Entering the size page: the size preview takes the chosen look at the default size.
    void InitButtonSize();
    // Entering page 3: the catalogue's hint, hint down and caption of the button's kind, in the rows that
    // apply (the texts loaded from the button are replaced on purpose).
    void InitCaptionHint();
    // Page hint line, Prev enabled from page 1 on, "&Create" when the next press closes the dialog.
    void RefreshButtons();
    // Copies the dialog's choices to Button (after OK).
    void UpdateButton();

    // The first catalogue kind (ascending) whose class Control is an instance of; -1 when there is none.
    static int ButtonKind(const rtl::TObject* Control);
    // Buttons that carry HintUp and HintDown instead of one hint: the bookmark, the two filter buttons and
    // the custom up/down button.
    static bool HasUpDownHints(const rtl::TObject* Control);
};

// Runs the editor on Button; true when the user confirmed it and the button was updated. Raises
// EInvalidOperation for a nil button.
bool ExecjexdfNavBtnEdit(jex::TjexCustomPicSpeedBtn* Button);

namespace Jexdfnpb {
void Start();
void Stop();
} // namespace Jexdfnpb

} // namespace dcljexc
