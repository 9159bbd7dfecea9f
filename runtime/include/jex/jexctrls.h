// Edit and button-like controls: rich text kept as a memory block, the rich edit with its editor window,
// edits with a button, aligned check boxes and radio buttons, the popup selector, the key-state
// indicator, the focus highlighter, the spin edit, and tab sets that follow a notebook or the open
// document windows.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jex/jexcommon.h"
#include "vcl/comctrls.h"
#include "vcl/extctrls.h"
#include "vcl/forms.h"
#include "vcl/spin.h"

namespace jex {

// ---- Rich text -----------------------------------------------------------------------------------------
// A rich-text document kept in a form file: empty, or RTF ("{\rtf" first). Other bytes are refused with
// EConvertError "Invalid rich text: ..." and the old document stays.
class TjexRichText : public TjexPersistentMemory {
    JEX_CLASS(TjexRichText, TjexPersistentMemory)
    TjexRichText() = default;
    // The document's text without its markup (paragraphs as CR LF line breaks).
    std::string PlainText() const;
    // Replaces the document with one holding Text as plain paragraphs (characters outside ASCII
    // escaped in Windows-1252 where possible, else as Unicode).
    void SetPlainText(const std::string& Text);
    // Opens the text in an editor window (through the user-interface service); true when a person
    // confirmed, the document then holding the edited text.
    virtual bool Edit();
    // RTF for a plain text.
    static std::string PlainToRtf(const std::string& Text);

protected:
    void CheckData(const std::vector<uint8_t>& Bytes) const override;
};

// The window in which rich text and rich edits are edited: the text in "memText", buttons "btnOK" and
// "btnCancel".
class TjexRichEditorForm : public vcl::TForm {
    JEX_CLASS(TjexRichEditorForm, vcl::TForm)
    explicit TjexRichEditorForm(rtl::TComponent* AOwner);
    vcl::TMemo* memText;
    vcl::TPanel* pnlButtons;
    vcl::TButton* btnOK;
    vcl::TButton* btnCancel;
};

JEX_ENUM(TjexRichEditorOption, jroWordWrap, jroWantTabs, jroWantReturns, jroShowToolbar)
JEX_SET(TjexRichEditorOptions, TjexRichEditorOption)
JEX_ENUM(TjexRichPopupOption, jrpCutCopyPaste, jrpUndo, jrpFind, jrpEditor, jrpPrint)
JEX_SET(TjexRichPopupOptions, TjexRichPopupOption)

// Page margins of a printout, in hundredths of an inch.
class TjexPrintMargins : public rtl::TPersistent {
    JEX_CLASS(TjexPrintMargins, rtl::TPersistent)
    TjexPrintMargins() = default;
    void Assign(rtl::TPersistent* Source) override;
    int Left() const { return FLeft; }
    void SetLeft(int Value) { FLeft = Value; }
    int Top() const { return FTop; }
    void SetTop(int Value) { FTop = Value; }
    int Right() const { return FRight; }
    void SetRight(int Value) { FRight = Value; }
    int Bottom() const { return FBottom; }
    void SetBottom(int Value) { FBottom = Value; }

private:
    int FLeft = 100, FTop = 100, FRight = 100, FBottom = 100;
};

// A rich edit that a person can edit in a larger window (Edit), fill from a file (LoadFromFile, or by
// dropping one with AcceptDroppedFiles) and start from a template (FileTemplate).
class TjexRichEdit : public vcl::TRichEdit {
    JEX_CLASS(TjexRichEdit, vcl::TRichEdit)
    explicit TjexRichEdit(rtl::TComponent* AOwner);
    ~TjexRichEdit() override;
    bool AcceptDroppedFiles() const { return FAcceptDroppedFiles; }
    void SetAcceptDroppedFiles(bool Value) { FAcceptDroppedFiles = Value; }
    TjexRichEditorOptions EditorOptions() const { return FEditorOptions; }
    void SetEditorOptions(TjexRichEditorOptions Value) { FEditorOptions = Value; }
    std::string EditorTitle() const { return FEditorTitle; }
    void SetEditorTitle(const std::string& Value) { FEditorTitle = Value; }
    vcl::TWindowState EditorWindowState() const { return FEditorWindowState; }
    void SetEditorWindowState(vcl::TWindowState Value) { FEditorWindowState = Value; }
    std::string FileName() const { return FFileName; }
    void SetFileName(const std::string& Value) { FFileName = Value; }
    std::string FileTemplate() const { return FFileTemplate; }
    void SetFileTemplate(const std::string& Value) { FFileTemplate = Value; }
    TjexRichPopupOptions PopupOptions() const { return FPopupOptions; }
    void SetPopupOptions(TjexRichPopupOptions Value) { FPopupOptions = Value; }
    TjexPrintMargins* PrintMargins() const { return FPrintMargins.get(); }
    void SetPrintMargins(TjexPrintMargins* Value) { FPrintMargins->Assign(Value); }
    std::string PrintTitle() const { return FPrintTitle; }
    void SetPrintTitle(const std::string& Value) { FPrintTitle = Value; }

    // The editor window with the lines; true (and the lines changed) when a person confirmed.
    virtual bool Edit();
    // Replaces the lines with the file's and remembers its name; EFOpenError leaves both as they were.
    virtual void LoadFromFile(const std::string& Name);
    void SaveToFile(const std::string& Name);
    // Where a file dialog for this control starts: the folder of FileName.
    std::string InitialDir() const;
    // A file dropped by a person: loaded when AcceptDroppedFiles, else refused (false).
    bool DropFile(const std::string& Name);
    // An empty control starts from FileTemplate; false when there is none or the control is not empty.
    bool ApplyTemplate();
    void Print() const;

private:
    bool FAcceptDroppedFiles = false;
    TjexRichEditorOptions FEditorOptions{jroWordWrap, jroWantTabs, jroWantReturns, jroShowToolbar};
    std::string FEditorTitle;
    vcl::TWindowState FEditorWindowState = vcl::wsNormal;
    std::string FFileName;
    std::string FFileTemplate;
    TjexRichPopupOptions FPopupOptions{jrpCutCopyPaste, jrpUndo, jrpFind, jrpEditor};
    std::unique_ptr<TjexPrintMargins> FPrintMargins;
    std::string FPrintTitle;
};

// ---- Edits with a button --------------------------------------------------------------------------------
// An edit with a small button at its right end. ButtonClick runs the button (OnButtonClick) unless it is
// hidden or disabled; Enter runs it with ClickOnEnterKey, a double-click with AutoClick, and so does a
// press on the button's area.
class TjexCustomButtonEdit : public vcl::TCustomEdit {
    JEX_CLASS(TjexCustomButtonEdit, vcl::TCustomEdit)
    explicit TjexCustomButtonEdit(rtl::TComponent* AOwner);
    bool AutoClick() const { return FAutoClick; }
    void SetAutoClick(bool Value) { FAutoClick = Value; }
    bool ButtonDisabled() const { return FButtonDisabled; }
    void SetButtonDisabled(bool Value) { FButtonDisabled = Value; }
    bool ButtonVisible() const { return FButtonVisible; }
    void SetButtonVisible(bool Value) { FButtonVisible = Value; }
    bool ClickOnEnterKey() const { return FClickOnEnterKey; }
    void SetClickOnEnterKey(bool Value) { FClickOnEnterKey = Value; }
    // The button's area in client coordinates (empty when hidden).
    vcl::TRect ButtonRect() const;
    // Runs the button; false when it is hidden or disabled.
    bool ButtonClick();
    void KeyDown(uint16_t& Key, vcl::TShiftState Shift) override;
    void DblClick() override;
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    bool WantsKey(uint16_t Key) const override { return Key == vcl::VK_RETURN && FClickOnEnterKey; }
    rtl::TNotifyEvent OnButtonClick;

protected:
    // What the button does besides its event (the file edits run their dialogs).
    virtual void DoButtonClick() {}

private:
    bool FAutoClick = false;
    bool FButtonDisabled = false;
    bool FButtonVisible = true;
    bool FClickOnEnterKey = false;
};

class TjexButtonEdit : public TjexCustomButtonEdit {
    JEX_CLASS(TjexButtonEdit, TjexCustomButtonEdit)
    using TjexCustomButtonEdit::TjexCustomButtonEdit;
};

// ---- Check boxes and radio buttons -------------------------------------------------------------------
// Where the caption goes beside the box: AlignHorz within the caption area, AlignVert within the height,
// wrapped over several lines with WordWrap.
vcl::TRect jexCaptionRect(const vcl::TControl* Control, TjexAlignHorz Horz, TjexAlignVert Vert, bool WordWrap,
                          bool BoxLeft);

class TjexCheckBox : public vcl::TCheckBox {
    JEX_CLASS(TjexCheckBox, vcl::TCheckBox)
    explicit TjexCheckBox(rtl::TComponent* AOwner) : vcl::TCheckBox(AOwner) {}
    TjexAlignHorz AlignHorz() const { return FAlignHorz; }
    void SetAlignHorz(TjexAlignHorz Value) { FAlignHorz = Value; }
    TjexAlignVert AlignVert() const { return FAlignVert; }
    void SetAlignVert(TjexAlignVert Value) { FAlignVert = Value; }
    vcl::TRect CaptionRect() const;

private:
    TjexAlignHorz FAlignHorz = jahLeft;
    TjexAlignVert FAlignVert = javCenter;
};

class TjexRadioButton : public vcl::TRadioButton {
    JEX_CLASS(TjexRadioButton, vcl::TRadioButton)
    explicit TjexRadioButton(rtl::TComponent* AOwner) : vcl::TRadioButton(AOwner) {}
    // As the platform's, except that a form file's Checked leaves TabStop to the file.
    void SetChecked(bool Value) override;
    TjexAlignHorz AlignHorz() const { return FAlignHorz; }
    void SetAlignHorz(TjexAlignHorz Value) { FAlignHorz = Value; }
    TjexAlignVert AlignVert() const { return FAlignVert; }
    void SetAlignVert(TjexAlignVert Value) { FAlignVert = Value; }
    vcl::TRect CaptionRect() const;

private:
    TjexAlignHorz FAlignHorz = jahLeft;
    TjexAlignVert FAlignVert = javCenter;
};

// ---- Popup selector ---------------------------------------------------------------------------------
// A button showing the chosen one of Items; a click pops up all of them in columns of ItemsPerCol
// (BarBreak draws a bar between the columns), placed by PopupOffsetX/Y and, with PopupYAdjust, so that the
// chosen item lies over the button. Choosing an item sets ItemIndex and raises OnChange.
class TjexPopupSelect : public vcl::TGraphicControl {
    JEX_CLASS(TjexPopupSelect, vcl::TGraphicControl)
    explicit TjexPopupSelect(rtl::TComponent* AOwner);
    ~TjexPopupSelect() override;
    bool BarBreak() const { return FBarBreak; }
    void SetBarBreak(bool Value) { FBarBreak = Value; }
    int ItemIndex() const { return FItemIndex; }
    void SetItemIndex(int Value);
    rtl::TStrings* Items() const { return FItems.get(); }
    void SetItems(rtl::TStrings* Value) { FItems->Assign(Value); }
    int ItemsPerCol() const { return FItemsPerCol; }
    void SetItemsPerCol(int Value) { FItemsPerCol = Value < 1 ? 1 : Value; }
    int PopupOffsetX() const { return FPopupOffsetX; }
    void SetPopupOffsetX(int Value) { FPopupOffsetX = Value; }
    int PopupOffsetY() const { return FPopupOffsetY; }
    void SetPopupOffsetY(int Value) { FPopupOffsetY = Value; }
    bool PopupYAdjust() const { return FPopupYAdjust; }
    void SetPopupYAdjust(bool Value) { FPopupYAdjust = Value; }
    bool Sorted() const { return FItems->Sorted(); }
    void SetSorted(bool Value) { FItems->SetSorted(Value); }

    // The menu the selector pops up (rebuilt at each popup): one item per line, its Tag the column.
    vcl::TPopupMenu* Menu() const { return FMenu; }
    // Where the menu appears, in screen coordinates.
    vcl::TPoint PopupPoint() const;
    void Popup();
    void Click() override;
    rtl::TNotifyEvent OnChange;

private:
    void BuildMenu();
    bool FBarBreak = true;
    int FItemIndex = -1;
    std::unique_ptr<rtl::TStringList> FItems;
    int FItemsPerCol = 10;
    int FPopupOffsetX = 0, FPopupOffsetY = 0;
    bool FPopupYAdjust = true;
    vcl::TPopupMenu* FMenu;
};

// ---- Key state --------------------------------------------------------------------------------------
JEX_ENUM(TjexKeyStateKey, jksCapsLock, jksNumLock, jksScrollLock, jksInsert)
JEX_SET(TjexKeyStateKeys, TjexKeyStateKey)

// Shows which toggle keys are on: the texts of KeyStrings (CAPS, NUM, SCRL, INS, and OVR for insert off
// with ShowINSAsOVR) of the keys in ShowKeyStates that are on. The states follow KeyPressed (the form's
// keys at run time) and, with ToggleOnClick, a click on a key's part of the control.
class TjexKeyState : public vcl::TGraphicControl {
    JEX_CLASS(TjexKeyState, vcl::TGraphicControl)
    explicit TjexKeyState(rtl::TComponent* AOwner);
    ~TjexKeyState() override;
    bool KeyCapsLock() const { return FOn.Contains(jksCapsLock); }
    void SetKeyCapsLock(bool Value) { SetKey(jksCapsLock, Value); }
    bool KeyInsert() const { return FOn.Contains(jksInsert); }
    void SetKeyInsert(bool Value) { SetKey(jksInsert, Value); }
    bool KeyNumLock() const { return FOn.Contains(jksNumLock); }
    void SetKeyNumLock(bool Value) { SetKey(jksNumLock, Value); }
    bool KeyScrollLock() const { return FOn.Contains(jksScrollLock); }
    void SetKeyScrollLock(bool Value) { SetKey(jksScrollLock, Value); }
    rtl::TStrings* KeyStrings() const { return FKeyStrings.get(); }
    void SetKeyStrings(rtl::TStrings* Value) { FKeyStrings->Assign(Value); }
    bool ShowINSAsOVR() const { return FShowINSAsOVR; }
    void SetShowINSAsOVR(bool Value) { FShowINSAsOVR = Value; }
    TjexKeyStateKeys ShowKeyStates() const { return FShow; }
    void SetShowKeyStates(TjexKeyStateKeys Value) { FShow = Value; }
    bool ToggleOnClick() const { return FToggleOnClick; }
    void SetToggleOnClick(bool Value) { FToggleOnClick = Value; }

    // The text shown, the parts separated by blanks.
    std::string DisplayText() const;
    // A toggle key went down (VK_CAPITAL, VK_NUMLOCK, VK_SCROLL or VK_INSERT): its state flips.
    void KeyPressed(uint16_t Key);
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void Loaded() override;
    rtl::TNotifyEvent OnChange;

private:
    void SetKey(TjexKeyStateKey Key, bool Value);
    TjexKeyStateKeys FOn{jksInsert};
    TjexKeyStateKeys FShow{jksCapsLock, jksNumLock, jksScrollLock, jksInsert};
    std::unique_ptr<rtl::TStringList> FKeyStrings;
    bool FShowINSAsOVR = true;
    bool FToggleOnClick = false;
    std::shared_ptr<bool> FAlive;
};

// ---- Focus highlighter ---------------------------------------------------------------------------------
// At run time, colours the focused control of its form in HighlightColor (with ColorChange) and puts the
// caret at the end of an edit's text (with MoveCursor); leaving the control gives its colour back.
class TjexActiveHighlight : public rtl::TComponent {
    JEX_CLASS(TjexActiveHighlight, rtl::TComponent)
    explicit TjexActiveHighlight(rtl::TComponent* AOwner);
    ~TjexActiveHighlight() override;
    bool ColorChange() const { return FColorChange; }
    void SetColorChange(bool Value) { FColorChange = Value; }
    vcl::TColor HighlightColor() const { return FHighlightColor; }
    void SetHighlightColor(vcl::TColor Value) { FHighlightColor = Value; }
    bool MoveCursor() const { return FMoveCursor; }
    void SetMoveCursor(bool Value) { FMoveCursor = Value; }
    // Follows the focus of Control and every windowed control below it (done for the owner form when it
    // is loaded at run time; call it for controls made later).
    void Attach(vcl::TWinControl* Control);
    void ControlEntered(vcl::TWinControl* Control);
    void ControlExited(vcl::TWinControl* Control);
    vcl::TWinControl* Highlighted() const { return FCurrent; }
    void Loaded() override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    bool FColorChange = true;
    vcl::TColor FHighlightColor = vcl::clInfoBk;
    bool FMoveCursor = false;
    vcl::TWinControl* FCurrent = nullptr;
    vcl::TColor FSavedColor = vcl::clWindow;
    bool FSavedParentColor = false;
    std::vector<vcl::TWinControl*> FAttached;
    std::shared_ptr<bool> FAlive;
};

// ---- Spin edit ---------------------------------------------------------------------------------------
class TjexSpinEdit : public vcl::TSpinEdit {
    JEX_CLASS(TjexSpinEdit, vcl::TSpinEdit)
    explicit TjexSpinEdit(rtl::TComponent* AOwner) : vcl::TSpinEdit(AOwner) {}
};

// ---- Tab sets ------------------------------------------------------------------------------------------
// Tabs that follow a notebook: one tab per page, and choosing a tab shows its page.
class TjexAutoTabSet : public vcl::TTabControl {
    JEX_CLASS(TjexAutoTabSet, vcl::TTabControl)
    explicit TjexAutoTabSet(rtl::TComponent* AOwner);
    ~TjexAutoTabSet() override;
    vcl::TNotebook* NoteBook() const { return FNoteBook; }
    void SetNoteBook(vcl::TNotebook* Value);
    // Takes the notebook's page captions and page again.
    void RefreshTabs();
    void Loaded() override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;
    void Change() override;

private:
    vcl::TNotebook* FNoteBook = nullptr;
    std::shared_ptr<bool> FAlive;
};

JEX_ENUM(TjexMDITabOption, jmtShowIcons, jmtCloseButtons, jmtHideWhenEmpty)
JEX_SET(TjexMDITabOptions, TjexMDITabOption)

// Tabs for the document windows of a form: one tab per open child form (a shown form of style
// fsMDIChild), captioned like it; choosing a tab brings its window up.
class TjexMDITabs : public vcl::TTabControl {
    JEX_CLASS(TjexMDITabs, vcl::TTabControl)
    explicit TjexMDITabs(rtl::TComponent* AOwner);
    TjexMDITabOptions Options() const { return FOptions; }
    void SetOptions(TjexMDITabOptions Value) { FOptions = Value; }
    // The child forms, in tab order.
    std::vector<vcl::TCustomForm*> ChildForms() const;
    // Makes the tabs match the open child forms again.
    void RefreshTabs();
    // Closes the window of tab Index (with jmtCloseButtons); false without.
    bool CloseTab(int Index);

protected:
    void Change() override;

private:
    TjexMDITabOptions FOptions{jmtCloseButtons};
};

} // namespace jex
