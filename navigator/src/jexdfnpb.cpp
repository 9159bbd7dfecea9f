// Jexdfnpb: the navigator button editor dialog. The unit has no start or stop work.
#include "dcljexc/jexdfnpb.h"

#include "dcljexc/jexdsncn.h"
#include "dcljexc/units.h"
#include "rtl/sysutils.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexdfnpb)

namespace dcljexc {

using namespace vcl;

JEX_RESOURCESTRING(_sjexnpdsgnBtnEditCaption, "Set Button Properties");
JEX_RESOURCESTRING(_sjexnpdsgnBtnEditHintGlyphs,
                   "Choose a button glyph. A hint and caption can be added if required.");
JEX_RESOURCESTRING(_sjexnpdsgnBtnEditHintButtonSize, "Set the size of the button.");
JEX_RESOURCESTRING(_sjexnpdsgnBtnEditHintCaptionHint,
                   "Edit the hint text and/or caption text for the button.");
JEX_RESOURCESTRING(_sjexnpdsgnBtnEditLblHint, "Hint:");
JEX_RESOURCESTRING(_sjexnpdsgnBtnEditLblHintDown, "Hint Down:");
JEX_RESOURCESTRING(_sjexnpdsgnBtnEditLblCaption, "Caption:");
JEX_RESOURCESTRING(_sjexnpdsgnBtnEditNoButton, "No navigator button to edit");

namespace {

enum TPage { pgGlyphs, pgCaptionStyle, pgButtonSize, pgCaptionHint };

// Page 3 has three rows; a row takes the place of the rows above it that are hidden.
constexpr int RowTop[3] = {24, 64, 104};
constexpr int LabelLeft = 16, EditLeft = 96, EditWidth = 320, EditHeight = 21;

} // namespace

JEX_IMPLEMENT_CLASS(TjexdfNavBtnEdit, TjexdfNavDesignForm, "Jexdfnpb") {}

TjexdfNavBtnEdit::TjexdfNavBtnEdit(rtl::TComponent* AOwner) : TjexdfNavDesignForm(AOwner) {
    SetName("jexdfNavBtnEdit");
    SetCaption(rtl::LoadResString(_sjexnpdsgnBtnEditCaption));

    rtl::TStringList pages;
    for (const char* page : {"Glyphs", "CaptionStyle", "ButtonSize", "CaptionHint"})
        pages.Add(page);
    Notebook->SetPages(&pages);
    BuildGlyphsPage(Notebook->Page(pgGlyphs));
    BuildCaptionStylePage(Notebook->Page(pgCaptionStyle));
    BuildButtonSizePage(Notebook->Page(pgButtonSize));

    TWinControl* page = Notebook->Page(pgCaptionHint);
    edHint = Place<TEdit>(page, "edHint", EditLeft, RowTop[0], EditWidth, EditHeight);
    lblHint = PlaceLabel(page, "lblHint", rtl::LoadResString(_sjexnpdsgnBtnEditLblHint), LabelLeft,
                         RowTop[0] + 3, edHint);
    edHintDown = Place<TEdit>(page, "edHintDown", EditLeft, RowTop[1], EditWidth, EditHeight);
    lblHintDown = PlaceLabel(page, "lblHintDown", rtl::LoadResString(_sjexnpdsgnBtnEditLblHintDown),
                             LabelLeft, RowTop[1] + 3, edHintDown);
    edCaption = Place<TEdit>(page, "edCaption", EditLeft, RowTop[2], EditWidth, EditHeight);
    lblCaption = PlaceLabel(page, "lblCaption", rtl::LoadResString(_sjexnpdsgnBtnEditLblCaption), LabelLeft,
                            RowTop[2] + 3, edCaption);
    for (TControl* c :
         std::initializer_list<TControl*>{lblHint, edHint, lblHintDown, edHintDown, lblCaption, edCaption})
        c->SetVisible(false);
    for (TEdit* e : {edHint, edHintDown, edCaption})
        e->SetText(""); // naming an edit puts its name in it

    btnPrev->OnClick = rtl::TNotifyEvent(this, &TjexdfNavBtnEdit::PrevClick);
    btnNext->OnClick = rtl::TNotifyEvent(this, &TjexdfNavBtnEdit::NextClick);
    OnCreate = rtl::TNotifyEvent(this, &TjexdfNavBtnEdit::FormCreate);
    OnDestroy = rtl::TNotifyEvent(this, &TjexdfNavBtnEdit::FormDestroy);
    OnActivate = rtl::TNotifyEvent(this, &TjexdfNavBtnEdit::FormActivate);
}

void TjexdfNavBtnEdit::FormCreate(rtl::TObject*) {
    OpenIniFile();
    Notebook->SetPageIndex(pgGlyphs);
    InitNavGlyphSample();
    RefreshButtons();
}

void TjexdfNavBtnEdit::FormDestroy(rtl::TObject*) {
    CloseIniFile();
}

void TjexdfNavBtnEdit::FormActivate(rtl::TObject*) {
    if (!FirstActivation) return;
    InitButtonValues();
    FirstActivation = false;
}

bool TjexdfNavBtnEdit::HasUpDownHints(const rtl::TObject* Control) {
    for (rtl::TClass cls : {jex::TjexnpBookmark::StaticClass(), jex::TjexnpFilterExpression::StaticClass(),
                            jex::TjexnpFilterActive::StaticClass(), jex::TjexToggleBtn::StaticClass()})
        if (Control->InheritsFrom(cls)) return true;
    return false;
}

int TjexdfNavBtnEdit::ButtonKind(const rtl::TObject* Control) {
    for (int kind = 0; kind < jexNavBtnKindCount; ++kind) {
        rtl::TClass cls = JEXDesignNavComponentClass(kind);
        if (cls && Control->InheritsFrom(cls)) return kind;
    }
    return -1;
}

void TjexdfNavBtnEdit::InitButtonValues() {
    if (!Button) return;
    // Each look setting goes through its handler, so the glyph preview follows.
    cboBtnStyle->SetItemIndex(static_cast<int>(Button->Style()));
    cboBtnStyleClick(cboBtnStyle);
    cboBtnPicHighlight->SetItemIndex(static_cast<int>(Button->PictureHighlight()));
    cboBtnPicHighlightClick(cboBtnPicHighlight);
    chkPopup->SetChecked(Button->Popup());
    chkPopupClick(chkPopup);
    ColorDialog->SetColor(Button->Color());
    btnGlyphSample->SetColor(Button->Color());

    chkHints->SetChecked(!Button->Hint().empty());
    chkCaption->SetChecked(!Button->Caption().empty());

    rgGlyphPos->SetItemIndex(static_cast<int>(Button->Layout()));
    rgGlyphPosClick(rgGlyphPos);
    rgCaptionTextStyle->SetItemIndex(static_cast<int>(Button->TextStyle()));
    rgCaptionTextStyleClick(rgCaptionTextStyle);
    FontDialog->SetFont(Button->Font());
    btnCaptionSample->SetFont(Button->Font());
    speBtnMargin->SetValue(Button->Margin());
    speBtnMarginChange(speBtnMargin);

    if (HasUpDownHints(Button)) {
        edHint->SetText(Button->HintUp());
        edHintDown->SetText(Button->HintDown());
    } else {
        edHint->SetText(Button->Hint());
    }
    edCaption->SetText(Button->Caption());
}

void TjexdfNavBtnEdit::InitButtonSize() {
    // The button's present size is not offered: the dialog always proposes the default size.
    InitSizeSample();
}

void TjexdfNavBtnEdit::InitCaptionHint() {
    int kind = ButtonKind(Button);
    int row = 0;
    auto place = [&](TLabel* label, TEdit* edit) {
        edit->SetTop(RowTop[row]);
        label->SetTop(RowTop[row] + 3);
        edit->SetVisible(true);
        label->SetVisible(true);
        ++row;
    };
    auto hide = [](TLabel* label, TEdit* edit) {
        edit->SetVisible(false);
        label->SetVisible(false);
    };
    hide(lblHint, edHint);
    hide(lblHintDown, edHintDown);
    hide(lblCaption, edCaption);
    if (chkHints->Checked()) {
        edHint->SetText(JEXDesignNavComponentHint(kind));
        place(lblHint, edHint);
        std::string down = JEXDesignNavComponentHintDown(kind);
        if (down != rtl::LoadResString(_sjexnpHintDownNone)) {
            edHintDown->SetText(down);
            place(lblHintDown, edHintDown);
        }
    }
    if (chkCaption->Checked()) {
        edCaption->SetText(JEXDesignNavComponentCaption(kind));
        place(lblCaption, edCaption);
    }
}

void TjexdfNavBtnEdit::RefreshButtons() {
    const int page = Notebook->PageIndex();
    const bool noText = !chkCaption->Checked() && !chkHints->Checked();
    std::string hint;
    switch (page) {
    case pgGlyphs:
        hint = rtl::LoadResString(_sjexnpdsgnBtnEditHintGlyphs);
        break;
    case pgCaptionStyle:
        hint = rtl::LoadResString(_sjexnpdsgnPageHintCaptionStyle);
        break;
    case pgButtonSize:
        hint = rtl::LoadResString(_sjexnpdsgnBtnEditHintButtonSize);
        break;
    default:
        hint = rtl::LoadResString(_sjexnpdsgnBtnEditHintCaptionHint);
        break;
    }
    ShowPageState(hint, page == pgCaptionHint || (page == pgButtonSize && noText));
}

void TjexdfNavBtnEdit::NextClick(rtl::TObject*) {
    switch (Notebook->PageIndex()) {
    case pgGlyphs:
        if (chkCaption->Checked()) {
            InitCaptionSample();
            Notebook->SetPageIndex(pgCaptionStyle);
        } else {
            InitButtonSize();
            Notebook->SetPageIndex(pgButtonSize);
        }
        break;
    case pgCaptionStyle:
        InitButtonSize();
        Notebook->SetPageIndex(pgButtonSize);
        break;
    case pgButtonSize:
        if (!chkCaption->Checked() && !chkHints->Checked()) {
            SetModalResult(mrOk);
            return;
        }
        InitCaptionHint();
        Notebook->SetPageIndex(pgCaptionHint);
        break;
    default:
        SetModalResult(mrOk);
        return;
    }
    RefreshButtons();
}

void TjexdfNavBtnEdit::PrevClick(rtl::TObject*) {
    switch (Notebook->PageIndex()) {
    case pgCaptionStyle:
        Notebook->SetPageIndex(pgGlyphs);
        break;
    case pgButtonSize:
        Notebook->SetPageIndex(chkCaption->Checked() ? pgCaptionStyle : pgGlyphs);
        break;
    case pgCaptionHint:
        Notebook->SetPageIndex(pgButtonSize);
        break;
    default:
        break;
    }
    RefreshButtons();
}

void TjexdfNavBtnEdit::UpdateButton() {
    SetButtonGlyph(Button);
    Button->SetColor(btnGlyphSample->Color());
    Button->SetStyle(btnGlyphSample->Style());
    Button->SetPictureHighlight(btnGlyphSample->PictureHighlight());
    Button->SetPopup(btnGlyphSample->Popup());
    if (chkHints->Checked()) {
        if (HasUpDownHints(Button)) {
            Button->SetHintUp(edHint->Text());
            Button->SetHintDown(edHintDown->Text());
        } else {
            Button->SetHint(edHint->Text());
        }
    }
    if (chkCaption->Checked()) {
        Button->SetFont(btnCaptionSample->Font());
        Button->SetLayout(btnCaptionSample->Layout());
        Button->SetTextStyle(btnCaptionSample->TextStyle());
        Button->SetCaption(edCaption->Text());
        Button->SetMargin(btnCaptionSample->Margin());
    } else {
        // The caption stays; only the glyph goes back to the centre.
        Button->SetMargin(-1);
    }
    Button->SetBounds(Button->Left(), Button->Top(), btnSizeSample->Width(), btnSizeSample->Height());
}

bool ExecjexdfNavBtnEdit(jex::TjexCustomPicSpeedBtn* Button) {
    if (!Button) throw rtl::EInvalidOperation(rtl::LoadResString(_sjexnpdsgnBtnEditNoButton));
    auto* dlg = NewForm<TjexdfNavBtnEdit>(nullptr);
    bool ok = false;
    try {
        dlg->Button = Button;
        dlg->InitButtonValues();
        ok = dlg->ShowModal() == mrOk;
        if (ok) dlg->UpdateButton();
    } catch (...) {
        dlg->Free();
        throw;
    }
    dlg->Free();
    return ok;
}

} // namespace dcljexc
