// Standard controls: labels, edits, memos, buttons, check boxes, radio buttons, list and combo boxes,
// group boxes and static texts, with the platform's events for programmatic and person-made changes.
#pragma once

#include <string>
#include <vector>

#include "vcl/controls.h"

namespace vcl {

// The items of a list control: strings with an object, a selection flag and a "current" flag per line,
// so that selections follow their items when lines are inserted, deleted or moved. When Sorted, Add and
// AddObject insert at the sorted place (ignoring case); Insert puts the line where it is told.
class TControlItems : public TStrings {
    JEX_CLASS(TControlItems, TStrings)
    TControlItems() = default;
    std::string Get(int index) const override;
    int GetCount() const override { return static_cast<int>(FItems.size()); }
    rtl::TObject* GetObject(int index) const override;
    void Put(int index, const std::string& s) override;
    void PutObject(int index, rtl::TObject* obj) override;
    void Insert(int index, const std::string& s) override;
    void InsertObject(int index, const std::string& s, rtl::TObject* obj) override;
    void Delete(int index) override;
    void Clear() override;
    int Add(const std::string& s) override;
    int AddObject(const std::string& s, rtl::TObject* obj) override;
    void Exchange(int a, int b) override;
    void Move(int from, int to) override;

    bool Sorted() const { return FSorted; }
    void SetSorted(bool v);
    bool Selected(int index) const;
    void SetSelected(int index, bool v);
    int SelCount() const;
    // The current line (a single-select list's ItemIndex, a multi-select list's focus), or -1.
    int Current() const;
    void SetCurrent(int index);      // -1 or out of range: none
    std::function<void()> OnChanged; // after every change of lines

private:
    struct Item {
        std::string Str;
        rtl::TObject* Obj = nullptr;
        bool Sel = false;
        bool Cur = false;
    };
    void Check(int index) const;
    void Changed();
    std::vector<Item> FItems;
    bool FSorted = false;
};

// ---- Labels -------------------------------------------------------------------------------------------
class TCustomLabel : public TGraphicControl {
    JEX_CLASS(TCustomLabel, TGraphicControl)
    explicit TCustomLabel(TComponent* AOwner);
    TAlignment Alignment() const { return FAlignment; }
    void SetAlignment(TAlignment v) { FAlignment = v; }
    bool AutoSize() const { return FAutoSize; }
    void SetAutoSize(bool v);
    TWinControl* FocusControl() const { return FFocusControl; }
    void SetFocusControl(TWinControl* v);
    TTextLayout Layout() const { return FLayout; }
    void SetLayout(TTextLayout v) { FLayout = v; }
    bool ShowAccelChar() const { return FShowAccelChar; }
    void SetShowAccelChar(bool v) { FShowAccelChar = v; }
    bool Transparent() const { return FTransparent; }
    void SetTransparent(bool v) { FTransparent = v; }
    bool WordWrap() const { return FWordWrap; }
    void SetWordWrap(bool v);
    // Sizes the label to its text when AutoSize is set (estimated from the font's metrics).
    void AdjustBounds();
    void TextChanged() override { AdjustBounds(); }
    void FontChanged() override;

protected:
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;

private:
    TAlignment FAlignment = taLeftJustify;
    bool FAutoSize = true;
    TWinControl* FFocusControl = nullptr;
    TTextLayout FLayout = tlTop;
    bool FShowAccelChar = true;
    bool FTransparent = false;
    bool FWordWrap = false;
};

class TLabel : public TCustomLabel {
    JEX_CLASS(TLabel, TCustomLabel)
    using TCustomLabel::TCustomLabel;
};

// ---- Edits --------------------------------------------------------------------------------------------
JEX_ENUM(TEditCharCase, ecNormal, ecUpperCase, ecLowerCase)

class TCustomEdit : public TWinControl {
    JEX_CLASS(TCustomEdit, TWinControl)
    explicit TCustomEdit(TComponent* AOwner);
    bool AutoSelect() const { return FAutoSelect; }
    void SetAutoSelect(bool v) { FAutoSelect = v; }
    bool AutoSize() const { return FAutoSize; }
    void SetAutoSize(bool v) { FAutoSize = v; }
    TBorderStyle BorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TBorderStyle v) { FBorderStyle = v; }
    TEditCharCase CharCase() const { return FCharCase; }
    void SetCharCase(TEditCharCase v);
    bool HideSelection() const { return FHideSelection; }
    void SetHideSelection(bool v) { FHideSelection = v; }
    int MaxLength() const { return FMaxLength; }
    void SetMaxLength(int v) { FMaxLength = v < 0 ? 0 : v; }
    bool Modified() const { return FModified; }
    void SetModified(bool v) { FModified = v; }
    char PasswordChar() const { return FPasswordChar; }
    void SetPasswordChar(char v) { FPasswordChar = v; }
    bool ReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool v) { FReadOnly = v; }
    int SelStart() const { return FSelStart; }
    void SetSelStart(int v);
    int SelLength() const { return FSelLength; }
    void SetSelLength(int v);
    std::string SelText() const;
    void SetSelText(const std::string& v);
    void SelectAll();
    void ClearSelection() { SetSelText(""); }
    void Clear() { SetText(""); }

    // A person replaces the whole text by typing: refused (EInvalidOperation) when ReadOnly; MaxLength and
    // CharCase apply as they do to typing; Modified becomes true; OnChange follows the change.
    virtual void EnterText(const std::string& v);
    // Typing one character at the caret (Backspace deletes the character before it).
    void KeyPress(char& Key) override;
    void UserType(const std::string& Text) override { EnterText(Text); }
    // Entering a single-line edit selects its text when AutoSelect is set, so typing replaces it.
    void DoEnter() override;

    // Every change of the text raises OnChange, whether typed or assigned.
    virtual void Change() { OnChange(this); }
    void TextChanged() override;
    void Describe(TControlDesc& d) const override;
    TNotifyEvent OnChange;

protected:
    std::string ApplyCharCase(const std::string& s) const;

    bool FAutoSelect = true;
    bool FAutoSize = true;
    TBorderStyle FBorderStyle = bsSingle;
    TEditCharCase FCharCase = ecNormal;
    bool FHideSelection = true;
    int FMaxLength = 0;
    bool FModified = false;
    char FPasswordChar = 0;
    bool FReadOnly = false;
    int FSelStart = 0, FSelLength = 0;
};

class TEdit : public TCustomEdit {
    JEX_CLASS(TEdit, TCustomEdit)
    using TCustomEdit::TCustomEdit;
};

class TCustomMemo : public TCustomEdit {
    JEX_CLASS(TCustomMemo, TCustomEdit)
    explicit TCustomMemo(TComponent* AOwner);
    ~TCustomMemo() override;
    TStrings* Lines() const { return FLines; }
    void SetLines(TStrings* v) { FLines->Assign(v); }
    // The lines joined with CR LF (no break after the last line).
    std::string GetText() const override;
    void SetText(const std::string& v) override;
    TScrollStyle ScrollBars() const { return FScrollBars; }
    void SetScrollBars(TScrollStyle v) { FScrollBars = v; }
    bool WantReturns() const { return FWantReturns; }
    void SetWantReturns(bool v) { FWantReturns = v; }
    bool WantTabs() const { return FWantTabs; }
    void SetWantTabs(bool v) { FWantTabs = v; }
    bool WordWrap() const { return FWordWrap; }
    void SetWordWrap(bool v) { FWordWrap = v; }
    TAlignment Alignment() const { return FAlignment; }
    void SetAlignment(TAlignment v) { FAlignment = v; }
    bool WantsKey(uint16_t Key) const override;
    void KeyPress(char& Key) override;
    void Describe(TControlDesc& d) const override;

private:
    TStringList* FLines;
    TScrollStyle FScrollBars = ssNone;
    bool FWantReturns = true, FWantTabs = false, FWordWrap = true;
    TAlignment FAlignment = taLeftJustify;
    bool FSettingText = false;
};

class TMemo : public TCustomMemo {
    JEX_CLASS(TMemo, TCustomMemo)
    using TCustomMemo::TCustomMemo;
};

// ---- Buttons ------------------------------------------------------------------------------------------
class TButtonControl : public TWinControl {
    JEX_CLASS(TButtonControl, TWinControl)
    explicit TButtonControl(TComponent* AOwner);
    bool WordWrap() const { return FWordWrap; }
    void SetWordWrap(bool v) { FWordWrap = v; }

private:
    bool FWordWrap = false;
};

class TButton : public TButtonControl {
    JEX_CLASS(TButton, TButtonControl)
    explicit TButton(TComponent* AOwner);
    bool Cancel() const { return FCancel; }
    void SetCancel(bool v) { FCancel = v; }
    bool Default() const { return FDefault; }
    void SetDefault(bool v) { FDefault = v; }
    TModalResult ModalResult() const { return FModalResult; }
    void SetModalResult(TModalResult v) { FModalResult = v; }
    // Gives the form this button's ModalResult, then raises OnClick (which may set the form's back).
    void Click() override;
    bool FocusOnClick() const override { return true; }
    void Describe(TControlDesc& d) const override;

private:
    bool FCancel = false, FDefault = false;
    TModalResult FModalResult = mrNone;
};

JEX_ENUM(TCheckBoxState, cbUnchecked, cbChecked, cbGrayed)
const rtl::TTypeInfo* TypeInfo_TLeftRight(); // taLeftJustify..taRightJustify of TAlignment

class TCustomCheckBox : public TButtonControl {
    JEX_CLASS(TCustomCheckBox, TButtonControl)
    explicit TCustomCheckBox(TComponent* AOwner);
    TAlignment Alignment() const { return FAlignment; }
    void SetAlignment(TAlignment v) { FAlignment = v; }
    bool AllowGrayed() const { return FAllowGrayed; }
    void SetAllowGrayed(bool v) { FAllowGrayed = v; }
    bool Checked() const { return FState == cbChecked; }
    void SetChecked(bool v) { SetState(v ? cbChecked : cbUnchecked); }
    TCheckBoxState State() const { return FState; }
    // A change of state raises OnClick, as the platform does for assignments too.
    void SetState(TCheckBoxState v);
    // A person's click: unchecked -> checked (grayed first when AllowGrayed), checked -> unchecked,
    // grayed -> checked.
    void Toggle();
    void UserClick() override { Toggle(); }
    void UserCheck(bool v) override;
    bool FocusOnClick() const override { return true; }
    void Describe(TControlDesc& d) const override;

private:
    TAlignment FAlignment = taRightJustify;
    bool FAllowGrayed = false;
    TCheckBoxState FState = cbUnchecked;
};

class TCheckBox : public TCustomCheckBox {
    JEX_CLASS(TCheckBox, TCustomCheckBox)
    using TCustomCheckBox::TCustomCheckBox;
};

class TRadioButton : public TButtonControl {
    JEX_CLASS(TRadioButton, TButtonControl)
    explicit TRadioButton(TComponent* AOwner);
    TAlignment Alignment() const { return FAlignment; }
    void SetAlignment(TAlignment v) { FAlignment = v; }
    bool Checked() const { return FChecked; }
    // Checking unchecks the sibling radio buttons and raises OnClick; unchecking raises nothing.
    virtual void SetChecked(bool v);
    void UserClick() override { SetChecked(true); }
    void UserCheck(bool v) override;
    bool FocusOnClick() const override { return true; }
    void Describe(TControlDesc& d) const override;

private:
    TAlignment FAlignment = taRightJustify;
    bool FChecked = false;
};

// ---- List and combo boxes ------------------------------------------------------------------------------
JEX_ENUM(TListBoxStyle, lbStandard, lbOwnerDrawFixed, lbOwnerDrawVariable)

class TCustomListBox : public TWinControl {
    JEX_CLASS(TCustomListBox, TWinControl)
    explicit TCustomListBox(TComponent* AOwner);
    ~TCustomListBox() override;
    TStrings* Items() const { return FItems; }
    void SetItems(TStrings* v) { FItems->Assign(v); }
    // Single select: the selected line or -1; an index out of range selects nothing. Multi-select: the
    // line with the focus. Assigning raises no event.
    int ItemIndex() const { return FItems->Current(); }
    void SetItemIndex(int v);
    bool MultiSelect() const { return FMultiSelect; }
    void SetMultiSelect(bool v);
    bool ExtendedSelect() const { return FExtendedSelect; }
    void SetExtendedSelect(bool v) { FExtendedSelect = v; }
    bool Selected(int index) const;
    void SetSelected(int index, bool v);
    int SelCount() const; // -1 for a single-select list, as the platform answers
    bool Sorted() const { return FItems->Sorted(); }
    void SetSorted(bool v) { FItems->SetSorted(v); }
    int Columns() const { return FColumns; }
    void SetColumns(int v) { FColumns = v; }
    int ItemHeight() const { return FItemHeight; }
    void SetItemHeight(int v) { FItemHeight = v; }
    bool IntegralHeight() const { return FIntegralHeight; }
    void SetIntegralHeight(bool v) { FIntegralHeight = v; }
    TListBoxStyle Style() const { return FStyle; }
    void SetStyle(TListBoxStyle v) { FStyle = v; }
    TBorderStyle BorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TBorderStyle v) { FBorderStyle = v; }
    int TopIndex() const { return FTopIndex; }
    void SetTopIndex(int v) { FTopIndex = v; }
    void Clear() { FItems->Clear(); }
    // A person clicks a line (replacing any multiple selection), then OnClick.
    void ClickItem(int index);
    // A person selects exactly these lines of a multi-select list, then OnClick.
    void SelectItems(const std::vector<int>& indexes);
    void UserSelect(int Index) override { ClickItem(Index); }
    void UserSelectText(const std::string& Text) override;
    void UserSelectMulti(const std::vector<int>& Indexes) override { SelectItems(Indexes); }
    void Describe(TControlDesc& d) const override;

private:
    TControlItems* FItems;
    bool FMultiSelect = false, FExtendedSelect = true, FIntegralHeight = false;
    int FColumns = 0, FItemHeight = 16, FTopIndex = 0;
    TListBoxStyle FStyle = lbStandard;
    TBorderStyle FBorderStyle = bsSingle;
};

class TListBox : public TCustomListBox {
    JEX_CLASS(TListBox, TCustomListBox)
    using TCustomListBox::TCustomListBox;
};

JEX_ENUM(TComboBoxStyle, csDropDown, csSimple, csDropDownList, csOwnerDrawFixed, csOwnerDrawVariable)

class TCustomComboBox : public TWinControl {
    JEX_CLASS(TCustomComboBox, TWinControl)
    explicit TCustomComboBox(TComponent* AOwner);
    ~TCustomComboBox() override;
    TStrings* Items() const { return FItems; }
    void SetItems(TStrings* v) { FItems->Assign(v); }
    // Selects a line (or none with -1) and shows its text; assigning raises no event.
    int ItemIndex() const { return FItems->Current(); }
    void SetItemIndex(int v);
    TComboBoxStyle Style() const { return FStyle; }
    void SetStyle(TComboBoxStyle v);
    bool Sorted() const { return FItems->Sorted(); }
    void SetSorted(bool v) { FItems->SetSorted(v); }
    int DropDownCount() const { return FDropDownCount; }
    void SetDropDownCount(int v) { FDropDownCount = v; }
    int MaxLength() const { return FMaxLength; }
    void SetMaxLength(int v) { FMaxLength = v < 0 ? 0 : v; }
    TEditCharCase CharCase() const { return FCharCase; }
    void SetCharCase(TEditCharCase v) { FCharCase = v; }
    int ItemHeight() const { return FItemHeight; }
    void SetItemHeight(int v) { FItemHeight = v; }
    bool DroppedDown() const { return false; }
    void Clear();
    // The edit part follows: in a drop-down list the text can only be one of the items (a text that is no
    // item selects nothing); in the other styles the text is free and the line matching it is selected.
    void SetText(const std::string& v) override;
    void TextChanged() override;
    // A person picks a line from the list: the text follows, then OnClick, then OnSelect (or OnChange
    // when OnSelect is not assigned).
    void SelectItem(int index);
    // A person types into the edit part (refused for a drop-down list); OnChange follows.
    void EnterText(const std::string& v);
    void UserType(const std::string& Text) override { EnterText(Text); }
    void UserSelect(int Index) override { SelectItem(Index); }
    void UserSelectText(const std::string& Text) override;
    bool WantsKey(uint16_t Key) const override { return false; }
    void Describe(TControlDesc& d) const override;
    void Loaded() override;
    virtual void Change() { OnChange(this); }

    TNotifyEvent OnChange;
    TNotifyEvent OnSelect;
    TNotifyEvent OnDropDown;
    TNotifyEvent OnCloseUp;

private:
    TControlItems* FItems;
    TComboBoxStyle FStyle = csDropDown;
    int FDropDownCount = 8, FMaxLength = 0, FItemHeight = 13;
    TEditCharCase FCharCase = ecNormal;
    bool FSyncing = false;
    int FLoadedItemIndex = -1;
};

class TComboBox : public TCustomComboBox {
    JEX_CLASS(TComboBox, TCustomComboBox)
    using TCustomComboBox::TCustomComboBox;
};

// ---- Containers and static text ------------------------------------------------------------------------
class TCustomGroupBox : public TCustomControl {
    JEX_CLASS(TCustomGroupBox, TCustomControl)
    explicit TCustomGroupBox(TComponent* AOwner);
    // Leaves room for the frame and the caption line.
    TRect AdjustClientRect() const override;
};

class TGroupBox : public TCustomGroupBox {
    JEX_CLASS(TGroupBox, TCustomGroupBox)
    using TCustomGroupBox::TCustomGroupBox;
};

JEX_ENUM(TStaticBorderStyle, sbsNone, sbsSingle, sbsSunken)

class TStaticText : public TWinControl {
    JEX_CLASS(TStaticText, TWinControl)
    explicit TStaticText(TComponent* AOwner);
    TAlignment Alignment() const { return FAlignment; }
    void SetAlignment(TAlignment v) { FAlignment = v; }
    bool AutoSize() const { return FAutoSize; }
    void SetAutoSize(bool v) { FAutoSize = v; }
    TStaticBorderStyle BorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TStaticBorderStyle v) { FBorderStyle = v; }
    TWinControl* FocusControl() const { return FFocusControl; }
    void SetFocusControl(TWinControl* v);
    bool ShowAccelChar() const { return FShowAccelChar; }
    void SetShowAccelChar(bool v) { FShowAccelChar = v; }

protected:
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;

private:
    TAlignment FAlignment = taLeftJustify;
    bool FAutoSize = true;
    TStaticBorderStyle FBorderStyle = sbsNone;
    TWinControl* FFocusControl = nullptr;
    bool FShowAccelChar = true;
};

} // namespace vcl
