// Rich text and the rich edit, button edits, aligned check boxes and radio buttons, the popup selector,
// the key-state indicator, the focus highlighter, the spin edit and the tab sets.
#include "jex/jexctrls.h"

#include <algorithm>

#include "jexpanelpub.h"
#include "vcl/menus.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexRichEditorOption)
JEX_DEFINE_SET(TjexRichEditorOptions, TjexRichEditorOption)
JEX_DEFINE_ENUM(TjexRichPopupOption)
JEX_DEFINE_SET(TjexRichPopupOptions, TjexRichPopupOption)
JEX_DEFINE_ENUM(TjexKeyStateKey)
JEX_DEFINE_SET(TjexKeyStateKeys, TjexKeyStateKey)
JEX_DEFINE_ENUM(TjexMDITabOption)
JEX_DEFINE_SET(TjexMDITabOptions, TjexMDITabOption)

namespace {
constexpr uint16_t kVkCapital = 20, kVkNumLock = 144, kVkScroll = 145;

bool StartsRtf(const std::string& text) {
    size_t i = text.find_first_not_of(" \t\r\n");
    return i != std::string::npos && text.compare(i, 5, "{\\rtf") == 0;
}
} // namespace

// ---- Rich text -------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexRichText, TjexPersistentMemory, "jexctrls") {}

void TjexRichText::CheckData(const std::vector<uint8_t>& Bytes) const {
    if (Bytes.empty()) return;
    std::string text(Bytes.begin(), Bytes.begin() + std::min<size_t>(Bytes.size(), 64));
    if (!StartsRtf(text)) throw rtl::EConvertError("Invalid rich text: the data does not start with {\\rtf");
}

std::string TjexRichText::PlainText() const {
    if (GetEmpty()) return {};
    // The platform's rich edit knows how to take the markup off.
    TRichEdit reader(nullptr);
    reader.SetText(std::string(Bytes().begin(), Bytes().end()));
    return reader.PlainTextOf();
}

std::string TjexRichText::PlainToRtf(const std::string& Text) {
    std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0 MS Sans Serif;}}\\f0 ";
    std::u32string chars = rtl::Utf8ToUtf32(Text);
    for (size_t i = 0; i < chars.size(); ++i) {
        char32_t c = chars[i];
        if (c == '\r') {
            if (i + 1 < chars.size() && chars[i + 1] == '\n') ++i;
            rtf += "\\par\r\n";
        } else if (c == '\n') {
            rtf += "\\par\r\n";
        } else if (c == '\\' || c == '{' || c == '}') {
            rtf += '\\';
            rtf += static_cast<char>(c);
        } else if (c == '\t') {
            rtf += "\\tab ";
        } else if (c < 0x80) {
            rtf += static_cast<char>(c);
        } else {
            std::string one = rtl::Utf8ToCp1252(rtl::CodePointToUtf8(c));
            if (one.size() == 1 && one != "?") {
                rtf += "\\'" + rtl::LowerCase(rtl::IntToHex(static_cast<uint8_t>(one[0]), 2));
            } else {
                // Outside Windows-1252: a Unicode escape with '?' for readers that do not know it.
                rtf += "\\u" + std::to_string(static_cast<int16_t>(c <= 0xFFFF ? c : '?')) + "?";
            }
        }
    }
    return rtf + "}";
}

void TjexRichText::SetPlainText(const std::string& Text) {
    std::string rtf = PlainToRtf(Text);
    SetData(rtf.data(), rtf.size());
}

bool TjexRichText::Edit() {
    auto* form = NewForm<TjexRichEditorForm>(nullptr);
    try {
        form->SetCaption("Rich Text");
        form->memText->SetText(PlainText());
        bool ok = form->ShowModal() == mrOk;
        if (ok) SetPlainText(form->memText->Text());
        form->Free();
        return ok;
    } catch (...) {
        form->Free();
        throw;
    }
}

JEX_IMPLEMENT_CLASS(TjexRichEditorForm, TForm, "jexctrls") {}

TjexRichEditorForm::TjexRichEditorForm(rtl::TComponent* AOwner) : TForm(AOwner) {
    SetName("jexRichEditorForm");
    SetCaption("Edit");
    SetPosition(poScreenCenter);
    SetClientWidth(480);
    SetClientHeight(320);
    pnlButtons = new TPanel(this);
    pnlButtons->SetName("pnlButtons");
    pnlButtons->SetParent(this);
    pnlButtons->SetCaption("");
    pnlButtons->SetHeight(37);
    pnlButtons->SetAlign(alBottom);
    pnlButtons->SetBevelOuter(bvNone);
    memText = new TMemo(this);
    memText->SetName("memText");
    memText->SetParent(this);
    memText->SetAlign(alClient);
    memText->SetScrollBars(ssBoth);
    btnOK = new TButton(pnlButtons);
    btnOK->SetName("btnOK");
    btnOK->SetParent(pnlButtons);
    btnOK->SetCaption("OK");
    btnOK->SetDefault(true);
    btnOK->SetModalResult(mrOk);
    btnOK->SetBounds(316, 6, 75, 25);
    btnCancel = new TButton(pnlButtons);
    btnCancel->SetName("btnCancel");
    btnCancel->SetParent(pnlButtons);
    btnCancel->SetCaption("Cancel");
    btnCancel->SetCancel(true);
    btnCancel->SetModalResult(mrCancel);
    btnCancel->SetBounds(398, 6, 75, 25);
}

JEX_IMPLEMENT_CLASS(TjexPrintMargins, rtl::TPersistent, "jexctrls") {
    d.Property("Bottom", &TjexPrintMargins::Bottom, &TjexPrintMargins::SetBottom).Default(100);
    d.Property("Left", &TjexPrintMargins::Left, &TjexPrintMargins::SetLeft).Default(100);
    d.Property("Right", &TjexPrintMargins::Right, &TjexPrintMargins::SetRight).Default(100);
    d.Property("Top", &TjexPrintMargins::Top, &TjexPrintMargins::SetTop).Default(100);
}

void TjexPrintMargins::Assign(rtl::TPersistent* Source) {
    if (auto* m = dynamic_cast<TjexPrintMargins*>(Source)) {
        FLeft = m->FLeft;
        FTop = m->FTop;
        FRight = m->FRight;
        FBottom = m->FBottom;
        return;
    }
    rtl::TPersistent::Assign(Source);
}

JEX_IMPLEMENT_CLASS(TjexRichEdit, TRichEdit, "jexctrls") {
    d.Property("AcceptDroppedFiles", &TjexRichEdit::AcceptDroppedFiles, &TjexRichEdit::SetAcceptDroppedFiles)
        .Default(false);
    d.Property("EditorOptions", &TjexRichEdit::EditorOptions, &TjexRichEdit::SetEditorOptions)
        .Default(TjexRichEditorOptions{jroWordWrap, jroWantTabs, jroWantReturns, jroShowToolbar}.Bits());
    d.Property("EditorTitle", &TjexRichEdit::EditorTitle, &TjexRichEdit::SetEditorTitle);
    d.Property("EditorWindowState", &TjexRichEdit::EditorWindowState, &TjexRichEdit::SetEditorWindowState)
        .Default(wsNormal);
    d.Property("FileName", &TjexRichEdit::FileName, &TjexRichEdit::SetFileName, rtl::TypeInfo_TFileName());
    d.Property("FileTemplate", &TjexRichEdit::FileTemplate, &TjexRichEdit::SetFileTemplate,
               rtl::TypeInfo_TFileName());
    d.Property("PopupOptions", &TjexRichEdit::PopupOptions, &TjexRichEdit::SetPopupOptions)
        .Default(TjexRichPopupOptions{jrpCutCopyPaste, jrpUndo, jrpFind, jrpEditor}.Bits());
    d.Property("PrintMargins", &TjexRichEdit::PrintMargins, &TjexRichEdit::SetPrintMargins);
    d.Property("PrintTitle", &TjexRichEdit::PrintTitle, &TjexRichEdit::SetPrintTitle);
}

TjexRichEdit::TjexRichEdit(rtl::TComponent* AOwner)
    : TRichEdit(AOwner), FPrintMargins(std::make_unique<TjexPrintMargins>()) {}

TjexRichEdit::~TjexRichEdit() = default;

bool TjexRichEdit::Edit() {
    auto* form = NewForm<TjexRichEditorForm>(nullptr);
    try {
        form->SetCaption(FEditorTitle.empty() ? Name() : FEditorTitle);
        form->SetWindowState(FEditorWindowState);
        form->memText->SetWordWrap(FEditorOptions.Contains(jroWordWrap));
        form->memText->SetWantTabs(FEditorOptions.Contains(jroWantTabs));
        form->memText->SetWantReturns(FEditorOptions.Contains(jroWantReturns));
        form->memText->SetText(Text());
        bool ok = form->ShowModal() == mrOk;
        if (ok) {
            SetText(form->memText->Text());
            SetModified(true);
        }
        form->Free();
        return ok;
    } catch (...) {
        form->Free();
        throw;
    }
}

void TjexRichEdit::LoadFromFile(const std::string& Name) {
    std::string bytes = rtl::ReadFileBytes(Name);
    SetText(bytes);
    FFileName = Name;
}

void TjexRichEdit::SaveToFile(const std::string& Name) {
    rtl::WriteFileBytes(Name, Text());
    FFileName = Name;
}

std::string TjexRichEdit::InitialDir() const {
    return rtl::ExtractFilePath(FFileName);
}

bool TjexRichEdit::DropFile(const std::string& Name) {
    if (!FAcceptDroppedFiles) return false;
    LoadFromFile(Name);
    return true;
}

bool TjexRichEdit::ApplyTemplate() {
    if (FFileTemplate.empty() || !Text().empty()) return false;
    SetText(rtl::ReadFileBytes(FFileTemplate));
    return true;
}

void TjexRichEdit::Print() const {
    throw rtl::EInvalidOperation("No printer is installed");
}

// ---- Button edits --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomButtonEdit, TCustomEdit, "jexctrls") {}

JEX_IMPLEMENT_CLASS(TjexButtonEdit, TjexCustomButtonEdit, "jexctrls") {
    pubx::Edit(d);
    d.Property("AutoClick", &TjexButtonEdit::AutoClick, &TjexButtonEdit::SetAutoClick).Default(false);
    d.Property("ButtonDisabled", &TjexButtonEdit::ButtonDisabled, &TjexButtonEdit::SetButtonDisabled)
        .Default(false);
    d.Property("ButtonVisible", &TjexButtonEdit::ButtonVisible, &TjexButtonEdit::SetButtonVisible)
        .Default(true);
    d.Property("ClickOnEnterKey", &TjexButtonEdit::ClickOnEnterKey, &TjexButtonEdit::SetClickOnEnterKey)
        .Default(false);
    d.Event("OnButtonClick", &TjexButtonEdit::OnButtonClick);
}

TjexCustomButtonEdit::TjexCustomButtonEdit(rtl::TComponent* AOwner) : TCustomEdit(AOwner) {}

TRect TjexCustomButtonEdit::ButtonRect() const {
    if (!FButtonVisible) return {};
    int w = ClientWidth(), h = ClientHeight();
    return Rect(std::max(0, w - std::min(18, h)), 0, w, h);
}

bool TjexCustomButtonEdit::ButtonClick() {
    if (!FButtonVisible || FButtonDisabled || !Enabled()) return false;
    DoButtonClick();
    OnButtonClick(this);
    return true;
}

void TjexCustomButtonEdit::KeyDown(uint16_t& Key, TShiftState Shift) {
    TCustomEdit::KeyDown(Key, Shift);
    // Enter, or Alt+Down as in a combo box.
    if ((Key == VK_RETURN && FClickOnEnterKey) || (Key == VK_DOWN && Shift.Contains(ssAlt))) {
        if (ButtonClick()) Key = 0;
    }
}

void TjexCustomButtonEdit::DblClick() {
    TCustomEdit::DblClick();
    if (FAutoClick) ButtonClick();
}

void TjexCustomButtonEdit::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    TCustomEdit::MouseDown(Button, Shift, X, Y);
    TRect r = ButtonRect();
    if (Button == mbLeft && X >= r.Left && X < r.Right && Y >= r.Top && Y < r.Bottom) ButtonClick();
}

// ---- Check boxes and radio buttons ----------------------------------------------------------------------
TRect jexCaptionRect(const TControl* Control, TjexAlignHorz Horz, TjexAlignVert Vert, bool WordWrap,
                     bool BoxLeft) {
    constexpr int box = 17; // the box and the gap beside it
    int w = Control->ClientWidth(), h = Control->ClientHeight();
    TRect area = BoxLeft ? Rect(box, 0, w, h) : Rect(0, 0, std::max(0, w - box), h);
    int aw = std::max(1, area.Width());
    int tw = TextWidthOf(Control->Font(), Control->Caption());
    int lineH = TextHeightOf(Control->Font());
    int lines = WordWrap ? std::max(1, (tw + aw - 1) / aw) : 1;
    int cw = std::min(tw, aw), ch = lines * lineH;
    int x = Horz == jahLeft ? area.Left : Horz == jahCenter ? area.Left + (aw - cw) / 2 : area.Right - cw;
    int y = Vert == javTop ? 0 : Vert == javCenter ? (h - ch) / 2 : h - ch;
    return Bounds(x, y, cw, ch);
}

JEX_IMPLEMENT_CLASS(TjexCheckBox, TCheckBox, "jexctrls") {
    d.Property("AlignHorz", &TjexCheckBox::AlignHorz, &TjexCheckBox::SetAlignHorz).Default(jahLeft);
    d.Property("AlignVert", &TjexCheckBox::AlignVert, &TjexCheckBox::SetAlignVert).Default(javCenter);
}

TRect TjexCheckBox::CaptionRect() const {
    return jexCaptionRect(this, FAlignHorz, FAlignVert, WordWrap(), Alignment() == taRightJustify);
}

JEX_IMPLEMENT_CLASS(TjexRadioButton, TRadioButton, "jexctrls") {
    d.Property("AlignHorz", &TjexRadioButton::AlignHorz, &TjexRadioButton::SetAlignHorz).Default(jahLeft);
    d.Property("AlignVert", &TjexRadioButton::AlignVert, &TjexRadioButton::SetAlignVert).Default(javCenter);
}

void TjexRadioButton::SetChecked(bool Value) {
    bool tabStop = FTabStop;
    TRadioButton::SetChecked(Value);
    // Checking a radio button makes it a tab stop; a form file says itself whether it is one.
    if (IsLoading()) FTabStop = tabStop;
}

TRect TjexRadioButton::CaptionRect() const {
    return jexCaptionRect(this, FAlignHorz, FAlignVert, WordWrap(), Alignment() == taRightJustify);
}

// ---- Popup selector ---------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexPopupSelect, TGraphicControl, "jexctrls") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("BarBreak", &TjexPopupSelect::BarBreak, &TjexPopupSelect::SetBarBreak).Default(true);
    pub::Color(d, clBtnFace);
    pub::Enabled(d);
    pub::Font(d);
    // The lines before the index, so that reading finds the line the index names.
    d.Property("Items", &TjexPopupSelect::Items, &TjexPopupSelect::SetItems);
    d.Property("ItemIndex", &TjexPopupSelect::ItemIndex, &TjexPopupSelect::SetItemIndex).Default(-1);
    d.Property("ItemsPerCol", &TjexPopupSelect::ItemsPerCol, &TjexPopupSelect::SetItemsPerCol).Default(10);
    pub::ParentColor(d, false);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    d.Property("PopupOffsetX", &TjexPopupSelect::PopupOffsetX, &TjexPopupSelect::SetPopupOffsetX).Default(0);
    d.Property("PopupOffsetY", &TjexPopupSelect::PopupOffsetY, &TjexPopupSelect::SetPopupOffsetY).Default(0);
    d.Property("PopupYAdjust", &TjexPopupSelect::PopupYAdjust, &TjexPopupSelect::SetPopupYAdjust)
        .Default(true);
    pub::ShowHint(d);
    d.Property("Sorted", &TjexPopupSelect::Sorted, &TjexPopupSelect::SetSorted).Default(false);
    pub::Visible(d);
    d.Event("OnChange", &TjexPopupSelect::OnChange);
    pub::OnClick(d);
    pub::OnMouse(d);
}

TjexPopupSelect::TjexPopupSelect(rtl::TComponent* AOwner)
    : TGraphicControl(AOwner), FItems(std::make_unique<rtl::TStringList>()), FMenu(new TPopupMenu(this)) {
    FColor = clBtnFace;
    FWidth = 100;
    FHeight = 22;
    FControlStyle.Exclude(csSetCaption);
    FItems->OnChange = [this](rtl::TObject*) {
        if (!IsLoading()) SetItemIndex(FItemIndex);
    };
}

TjexPopupSelect::~TjexPopupSelect() {
    FItems->OnChange = nullptr;
}

void TjexPopupSelect::SetItemIndex(int Value) {
    if (IsLoading()) {
        FItemIndex = Value;
        return;
    }
    FItemIndex = Value >= 0 && Value < FItems->Count() ? Value : -1;
    SetText(FItemIndex >= 0 ? (*FItems)[FItemIndex] : std::string());
}

void TjexPopupSelect::BuildMenu() {
    FMenu->Items()->Clear();
    for (int i = 0; i < FItems->Count(); ++i) {
        auto* item = new TMenuItem(FMenu);
        item->SetCaption((*FItems)[i]);
        item->SetTag(i / FItemsPerCol);
        item->SetChecked(i == FItemIndex);
        item->OnClick = [this, i](rtl::TObject*) {
            SetItemIndex(i);
            OnChange(this);
        };
        FMenu->Items()->Add(item);
    }
}

TPoint TjexPopupSelect::PopupPoint() const {
    TPoint p = FParent ? FParent->ClientToScreen(Point(FLeft, FTop)) : Point(FLeft, FTop);
    p.X += FPopupOffsetX;
    if (FPopupYAdjust && FItemIndex >= 0) {
        // The chosen item's row lies over the selector.
        int itemHeight = TextHeightOf(Font()) + 6;
        p.Y += FPopupOffsetY - (FItemIndex % FItemsPerCol) * itemHeight;
    } else {
        p.Y += FHeight + FPopupOffsetY;
    }
    return p;
}

void TjexPopupSelect::Popup() {
    BuildMenu();
    TPoint p = PopupPoint();
    FMenu->Popup(p.X, p.Y);
}

void TjexPopupSelect::Click() {
    TGraphicControl::Click();
    if (FItems->Count()) Popup();
}

// ---- Key state --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexKeyState, TGraphicControl, "jexctrls") {
    pub::Align(d);
    pub::Anchors(d);
    pub::Color(d, clBtnFace);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("KeyCapsLock", &TjexKeyState::KeyCapsLock, &TjexKeyState::SetKeyCapsLock).Default(false);
    d.Property("KeyInsert", &TjexKeyState::KeyInsert, &TjexKeyState::SetKeyInsert).Default(true);
    d.Property("KeyNumLock", &TjexKeyState::KeyNumLock, &TjexKeyState::SetKeyNumLock).Default(false);
    d.Property("KeyScrollLock", &TjexKeyState::KeyScrollLock, &TjexKeyState::SetKeyScrollLock).Default(false);
    d.Property("KeyStrings", &TjexKeyState::KeyStrings, &TjexKeyState::SetKeyStrings);
    pub::ParentColor(d, true);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ShowINSAsOVR", &TjexKeyState::ShowINSAsOVR, &TjexKeyState::SetShowINSAsOVR).Default(true);
    pub::ShowHint(d);
    d.Property("ShowKeyStates", &TjexKeyState::ShowKeyStates, &TjexKeyState::SetShowKeyStates)
        .Default(TjexKeyStateKeys{jksCapsLock, jksNumLock, jksScrollLock, jksInsert}.Bits());
    d.Property("ToggleOnClick", &TjexKeyState::ToggleOnClick, &TjexKeyState::SetToggleOnClick).Default(false);
    pub::Visible(d);
    d.Event("OnChange", &TjexKeyState::OnChange);
    pub::OnClick(d);
    pub::OnMouse(d);
}

TjexKeyState::TjexKeyState(rtl::TComponent* AOwner)
    : TGraphicControl(AOwner), FKeyStrings(std::make_unique<rtl::TStringList>()),
      FAlive(std::make_shared<bool>(true)) {
    FParentColor = true;
    FWidth = 150;
    FHeight = 17;
    FControlStyle.Exclude(csSetCaption);
    FKeyStrings->SetText("CAPS\nNUM\nSCRL\nINS\nOVR");
    FKeyStrings->OnChange = [this](rtl::TObject*) { SetText(DisplayText()); };
    SetText(DisplayText());
}

TjexKeyState::~TjexKeyState() {
    *FAlive = false;
    FKeyStrings->OnChange = nullptr;
}

void TjexKeyState::SetKey(TjexKeyStateKey Key, bool Value) {
    if (FOn.Contains(Key) == Value) return;
    if (Value)
        FOn.Include(Key);
    else
        FOn.Exclude(Key);
    SetText(DisplayText());
    if (!IsLoading()) OnChange(this);
}

std::string TjexKeyState::DisplayText() const {
    auto text = [&](int i) { return i < FKeyStrings->Count() ? (*FKeyStrings)[i] : std::string(); };
    std::vector<std::string> parts;
    if (FShow.Contains(jksCapsLock) && FOn.Contains(jksCapsLock)) parts.push_back(text(0));
    if (FShow.Contains(jksNumLock) && FOn.Contains(jksNumLock)) parts.push_back(text(1));
    if (FShow.Contains(jksScrollLock) && FOn.Contains(jksScrollLock)) parts.push_back(text(2));
    if (FShow.Contains(jksInsert)) {
        if (FOn.Contains(jksInsert))
            parts.push_back(text(3));
        else if (FShowINSAsOVR)
            parts.push_back(text(4));
    }
    std::string joined;
    for (const std::string& p : parts)
        if (!p.empty()) joined += (joined.empty() ? "" : " ") + p;
    return joined;
}

void TjexKeyState::KeyPressed(uint16_t Key) {
    switch (Key) {
    case kVkCapital:
        SetKey(jksCapsLock, !KeyCapsLock());
        break;
    case kVkNumLock:
        SetKey(jksNumLock, !KeyNumLock());
        break;
    case kVkScroll:
        SetKey(jksScrollLock, !KeyScrollLock());
        break;
    case VK_INSERT:
        SetKey(jksInsert, !KeyInsert());
        break;
    default:
        break;
    }
}

void TjexKeyState::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    TGraphicControl::MouseDown(Button, Shift, X, Y);
    if (!FToggleOnClick || Button != mbLeft || FWidth <= 0) return;
    // The control is divided evenly among the keys it shows.
    std::vector<TjexKeyStateKey> shown;
    for (TjexKeyStateKey k : {jksCapsLock, jksNumLock, jksScrollLock, jksInsert})
        if (FShow.Contains(k)) shown.push_back(k);
    if (shown.empty()) return;
    int part = std::clamp(X * static_cast<int>(shown.size()) / FWidth, 0, static_cast<int>(shown.size()) - 1);
    SetKey(shown[part], !FOn.Contains(shown[part]));
}

void TjexKeyState::Loaded() {
    TGraphicControl::Loaded();
    SetText(DisplayText());
    if (IsDesigning()) return;
    if (auto* form = dynamic_cast<TCustomForm*>(Owner()))
        pubx::ChainEvent(form->OnKeyDown, FAlive,
                         [this](rtl::TObject*, uint16_t& Key, TShiftState) { KeyPressed(Key); });
}

// ---- Focus highlighter ---------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexActiveHighlight, rtl::TComponent, "jexctrls") {
    d.Property("ColorChange", &TjexActiveHighlight::ColorChange, &TjexActiveHighlight::SetColorChange)
        .Default(true);
    d.Property("HighlightColor", &TjexActiveHighlight::HighlightColor,
               &TjexActiveHighlight::SetHighlightColor, TypeInfo_TColor())
        .Default(clInfoBk);
    d.Property("MoveCursor", &TjexActiveHighlight::MoveCursor, &TjexActiveHighlight::SetMoveCursor)
        .Default(false);
}

TjexActiveHighlight::TjexActiveHighlight(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FAlive(std::make_shared<bool>(true)) {}

TjexActiveHighlight::~TjexActiveHighlight() {
    *FAlive = false;
    if (FCurrent) ControlExited(FCurrent);
    for (TWinControl* c : FAttached)
        c->RemoveFreeNotification(this);
}

void TjexActiveHighlight::Attach(TWinControl* Control) {
    if (!Control) return;
    if (std::find(FAttached.begin(), FAttached.end(), Control) == FAttached.end() &&
        !dynamic_cast<TCustomForm*>(Control)) {
        FAttached.push_back(Control);
        Control->FreeNotification(this);
        pubx::ChainEvent(Control->OnEnter, FAlive,
                         [this, Control](rtl::TObject*) { ControlEntered(Control); });
        pubx::ChainEvent(Control->OnExit, FAlive, [this, Control](rtl::TObject*) { ControlExited(Control); });
    }
    for (TControl* child : Control->ControlList())
        if (auto* w = dynamic_cast<TWinControl*>(child)) Attach(w);
}

void TjexActiveHighlight::ControlEntered(TWinControl* Control) {
    if (FCurrent && FCurrent != Control) ControlExited(FCurrent);
    FCurrent = Control;
    FSavedColor = Control->Color();
    FSavedParentColor = Control->ParentColor();
    if (FColorChange) Control->SetColor(FHighlightColor);
    if (FMoveCursor)
        if (auto* edit = dynamic_cast<TCustomEdit*>(Control)) {
            edit->SetSelStart(static_cast<int>(edit->Text().size()));
            edit->SetSelLength(0);
        }
}

void TjexActiveHighlight::ControlExited(TWinControl* Control) {
    if (Control != FCurrent) return;
    FCurrent = nullptr;
    if (!FColorChange) return;
    Control->SetColor(FSavedColor);
    if (FSavedParentColor) Control->SetParentColor(true);
}

void TjexActiveHighlight::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    rtl::TComponent::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    if (AComponent == FCurrent) FCurrent = nullptr;
    FAttached.erase(std::remove(FAttached.begin(), FAttached.end(), AComponent), FAttached.end());
}

void TjexActiveHighlight::Loaded() {
    rtl::TComponent::Loaded();
    if (!IsDesigning())
        if (auto* form = dynamic_cast<TWinControl*>(Owner())) Attach(form);
}

// ---- Spin edit ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexSpinEdit, TSpinEdit, "jexctrls") {}

// ---- Tab sets ------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexAutoTabSet, TTabControl, "jexctrls") {
    d.Property("NoteBook", &TjexAutoTabSet::NoteBook, &TjexAutoTabSet::SetNoteBook);
}

TjexAutoTabSet::TjexAutoTabSet(rtl::TComponent* AOwner)
    : TTabControl(AOwner), FAlive(std::make_shared<bool>(true)) {}

TjexAutoTabSet::~TjexAutoTabSet() {
    *FAlive = false;
}

void TjexAutoTabSet::SetNoteBook(TNotebook* Value) {
    if (Value == FNoteBook) return;
    pubx::SetReference<TNotebook>(this, FNoteBook, Value);
    if (FNoteBook)
        pubx::ChainEvent(FNoteBook->OnPageChanged, FAlive, [this, nb = FNoteBook](rtl::TObject*) {
            if (FNoteBook == nb) SetTabIndex(nb->PageIndex());
        });
    if (!IsLoading()) RefreshTabs();
}

void TjexAutoTabSet::RefreshTabs() {
    if (!FNoteBook) return;
    Tabs()->Assign(FNoteBook->Pages());
    SetTabIndex(FNoteBook->PageIndex());
}

void TjexAutoTabSet::Loaded() {
    TTabControl::Loaded();
    RefreshTabs();
}

void TjexAutoTabSet::Change() {
    if (FNoteBook && TabIndex() >= 0) FNoteBook->SetPageIndex(TabIndex());
    TTabControl::Change();
}

void TjexAutoTabSet::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TTabControl::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FNoteBook) FNoteBook = nullptr;
}

JEX_IMPLEMENT_CLASS(TjexMDITabs, TTabControl, "jexctrls") {
    d.Property("Options", &TjexMDITabs::Options, &TjexMDITabs::SetOptions)
        .Default(TjexMDITabOptions{jmtCloseButtons}.Bits());
}

TjexMDITabs::TjexMDITabs(rtl::TComponent* AOwner) : TTabControl(AOwner) {
    SetAlign(alTop);
    SetHeight(24);
}

std::vector<TCustomForm*> TjexMDITabs::ChildForms() const {
    std::vector<TCustomForm*> forms;
    for (int i = 0; i < Screen()->FormCount(); ++i) {
        TCustomForm* f = Screen()->Forms(i);
        if (f->FormStyle() == fsMDIChild && f->Visible()) forms.push_back(f);
    }
    return forms;
}

void TjexMDITabs::RefreshTabs() {
    std::vector<TCustomForm*> forms = ChildForms();
    rtl::TStringList captions;
    int active = -1;
    for (size_t i = 0; i < forms.size(); ++i) {
        captions.Add(forms[i]->Caption());
        if (forms[i] == Screen()->ActiveForm()) active = static_cast<int>(i);
    }
    Tabs()->Assign(&captions);
    if (active >= 0) SetTabIndex(active);
    if (FOptions.Contains(jmtHideWhenEmpty) && !IsDesigning()) SetVisible(!forms.empty());
}

bool TjexMDITabs::CloseTab(int Index) {
    std::vector<TCustomForm*> forms = ChildForms();
    if (!FOptions.Contains(jmtCloseButtons) || Index < 0 || Index >= static_cast<int>(forms.size()))
        return false;
    forms[Index]->Close();
    RefreshTabs();
    return true;
}

void TjexMDITabs::Change() {
    std::vector<TCustomForm*> forms = ChildForms();
    int i = TabIndex();
    if (i >= 0 && i < static_cast<int>(forms.size())) {
        forms[i]->Show();
        forms[i]->BringToFront();
        forms[i]->Activate();
    }
    TTabControl::Change();
}

static const TjexLibraryUnit<TjexRichEdit, TjexMDITabs, TjexButtonEdit, TjexCheckBox, TjexRadioButton,
                             TjexPopupSelect, TjexKeyState, TjexActiveHighlight, TjexAutoTabSet, TjexSpinEdit>
    jexctrlsUnit("jexctrls");

} // namespace jex
