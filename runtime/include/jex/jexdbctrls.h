// Data-aware controls of jexc60: the field binding every single-field control uses, the data-aware edit,
// text, memo, image, list, combo, check box, radio group and lookup controls the library builds on, and
// the data controls of its own (rich edit, automatic edit, edit label, record count and state labels,
// currency label, low-resource combo, date/time picker, month calendar, index combo, filter, range edit
// and the field edit window).
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "db/dbtables.h"
#include "jex/jexcommon.h"
#include "jex/jexlabels.h"
#include "vcl/extctrls.h"
#include "vcl/forms.h"
#include "vcl/stdctrls.h"

namespace jex {

// ---- Field binding ----------------------------------------------------------------------------------------
// Ties a control to one field through a data source. The control shows the field's value when told
// (OnDataChange), marks a person's change (BeginChange, Modified) and writes its value into the field when
// the data set asks (OnUpdateData: at post, or when the control is left through UpdateRecord).
class TjexFieldBinding {
public:
    TjexFieldBinding();
    ~TjexFieldBinding();
    TjexFieldBinding(const TjexFieldBinding&) = delete;
    TjexFieldBinding& operator=(const TjexFieldBinding&) = delete;

    db::TDataSource* DataSource() const { return FLink->DataSource(); }
    void SetDataSource(db::TDataSource* Value) { FLink->SetDataSource(Value); }
    std::string DataField() const { return FLink->FieldName(); }
    void SetDataField(const std::string& Value) { FLink->SetFieldName(Value); }
    bool ReadOnly() const { return FLink->ReadOnly(); }
    void SetReadOnly(bool Value) { FLink->SetReadOnly(Value); }
    // The bound field; nil while the data set is closed or has no field of that name.
    db::TField* Field() const { return FLink->Field(); }
    db::TDataSet* DataSet() const { return FLink->DataSet(); }
    db::TFieldDataLink* Link() const { return FLink.get(); }
    bool Active() const { return FLink->Active(); }
    bool Editing() const { return FLink->Editing(); }
    bool CanModify() const { return FLink->CanModify(); }
    // A person starts changing the value: puts the data set into edit mode. False when the field cannot
    // take a value (no field, a read-only control, field or data set, or AutoEdit off while browsing).
    bool BeginChange();
    void Modified() { FLink->Modified(); }
    // Writes a pending value into the field now.
    void UpdateRecord();
    // Shows the field's value again, dropping a pending change.
    void Reset() { FLink->Reset(); }

    std::function<void()> OnDataChange;
    std::function<void()> OnUpdateData;
    std::function<void()> OnEditingChange;
    std::function<void()> OnActiveChange;

private:
    std::unique_ptr<db::TFieldDataLink> FLink;
};

// Accessors of a control with a TjexFieldBinding member, for its class body:
//   JEX_FIELD_BINDING_ACCESSORS(FBinding)
#define JEX_FIELD_BINDING_ACCESSORS(Member)                                                                  \
    db::TDataSource* DataSource() const {                                                                    \
        return Member.DataSource();                                                                          \
    }                                                                                                        \
    void SetDataSource(db::TDataSource* Value) {                                                             \
        Member.SetDataSource(Value);                                                                         \
    }                                                                                                        \
    std::string DataField() const {                                                                          \
        return Member.DataField();                                                                           \
    }                                                                                                        \
    void SetDataField(const std::string& Value) {                                                            \
        Member.SetDataField(Value);                                                                          \
    }                                                                                                        \
    db::TField* Field() const {                                                                              \
        return Member.Field();                                                                               \
    }                                                                                                        \
    ::jex::TjexFieldBinding& Binding() {                                                                     \
        return Member;                                                                                       \
    }

// A data link that forwards every change of its data set to one callback (state, scroll, record, layout).
class TjexNotifyDataLink : public db::TDataLink {
    JEX_CLASS(TjexNotifyDataLink, db::TDataLink)
    TjexNotifyDataLink() = default;
    std::function<void()> OnChange;

protected:
    void ActiveChanged() override { Notify(); }
    void DataSetChanged() override { Notify(); }
    void DataSetScrolled(int) override { Notify(); }
    void EditingChanged() override { Notify(); }
    void LayoutChanged() override { Notify(); }
    void RecordChanged(db::TField*) override { Notify(); }

private:
    void Notify() {
        if (OnChange) OnChange();
    }
};

// ---- Data-aware control bases -----------------------------------------------------------------------------
// An edit showing a field's text; typing edits the record, leaving the control writes the text back.
class TjexCustomDBEdit : public vcl::TCustomEdit {
    JEX_CLASS(TjexCustomDBEdit, vcl::TCustomEdit)
    explicit TjexCustomDBEdit(rtl::TComponent* AOwner);
    JEX_FIELD_BINDING_ACCESSORS(FBinding)
    bool ReadOnly() const { return FBinding.ReadOnly(); }
    void SetReadOnly(bool Value);

    // Typing is refused (EUserActionError) when the field cannot be changed.
    void EnterText(const std::string& v) override;
    void KeyPress(char& Key) override;
    // Escape drops the pending change.
    void KeyDown(uint16_t& Key, vcl::TShiftState Shift) override;
    void DoExit() override;
    void Change() override;

protected:
    virtual void DataChange();
    virtual void UpdateData();
    void CheckCanChange();
    TjexFieldBinding FBinding;
    bool FShowing = false;
};

// A label showing a field's display text.
class TjexCustomDBText : public vcl::TCustomLabel {
    JEX_CLASS(TjexCustomDBText, vcl::TCustomLabel)
    explicit TjexCustomDBText(rtl::TComponent* AOwner);
    JEX_FIELD_BINDING_ACCESSORS(FBinding)
    // The label's text comes from the field only.
    void SetText(const std::string&) override {}

protected:
    void DataChange();
    TjexFieldBinding FBinding;
};

// A memo showing a memo (or string) field.
class TjexCustomDBMemo : public vcl::TCustomMemo {
    JEX_CLASS(TjexCustomDBMemo, vcl::TCustomMemo)
    explicit TjexCustomDBMemo(rtl::TComponent* AOwner);
    JEX_FIELD_BINDING_ACCESSORS(FBinding)
    bool ReadOnly() const { return FBinding.ReadOnly(); }
    void SetReadOnly(bool Value);
    // Without AutoDisplay the memo shows the field only after LoadMemo (or a double click).
    bool AutoDisplay() const { return FAutoDisplay; }
    void SetAutoDisplay(bool Value);
    void LoadMemo();

    void EnterText(const std::string& v) override;
    void KeyPress(char& Key) override;
    void KeyDown(uint16_t& Key, vcl::TShiftState Shift) override;
    void DoExit() override;
    void Change() override;
    void UserDblClick() override;

protected:
    virtual void DataChange();
    virtual void UpdateData();
    TjexFieldBinding FBinding;
    bool FShowing = false;
    bool FAutoDisplay = true;
    bool FMemoLoaded = false;
};

// A picture kept in a blob field as the bytes of a BMP file.
class TjexCustomDBImage : public vcl::TCustomControl {
    JEX_CLASS(TjexCustomDBImage, vcl::TCustomControl)
    explicit TjexCustomDBImage(rtl::TComponent* AOwner);
    ~TjexCustomDBImage() override;
    JEX_FIELD_BINDING_ACCESSORS(FBinding)
    bool ReadOnly() const { return FBinding.ReadOnly(); }
    void SetReadOnly(bool Value) { FBinding.SetReadOnly(Value); }
    vcl::TPicture* Picture() const { return FPicture.get(); }
    bool AutoDisplay() const { return FAutoDisplay; }
    void SetAutoDisplay(bool Value);
    bool Center() const { return FCenter; }
    void SetCenter(bool Value) { FCenter = Value; }
    bool Stretch() const { return FStretch; }
    void SetStretch(bool Value) { FStretch = Value; }
    vcl::TBorderStyle BorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(vcl::TBorderStyle Value) { FBorderStyle = Value; }
    // True when the field held bytes that are no picture (the picture is then empty).
    bool InvalidData() const { return FInvalidData; }
    void LoadPicture();
    // A person puts a picture file into the record (EUserActionError when the field cannot change;
    // the platform's picture errors for a file that is no picture, and the record keeps its value).
    void LoadFromFile(const std::string& FileName);
    // A person clears the picture.
    void ClearPicture();
    void DoExit() override;
    void UserDblClick() override;
    void Describe(vcl::TControlDesc& d) const override;

protected:
    void DataChange();
    void UpdateData();
    TjexFieldBinding FBinding;
    std::unique_ptr<vcl::TPicture> FPicture;
    bool FAutoDisplay = true, FCenter = true, FStretch = false, FInvalidData = false, FLoaded = false;
    vcl::TBorderStyle FBorderStyle = vcl::bsSingle;
};

// A list box whose selected line is the field's value.
class TjexCustomDBListBox : public vcl::TCustomListBox {
    JEX_CLASS(TjexCustomDBListBox, vcl::TCustomListBox)
    explicit TjexCustomDBListBox(rtl::TComponent* AOwner);
    JEX_FIELD_BINDING_ACCESSORS(FBinding)
    bool ReadOnly() const { return FBinding.ReadOnly(); }
    void SetReadOnly(bool Value) { FBinding.SetReadOnly(Value); }
    void Click() override;
    void DoExit() override;

protected:
    void DataChange();
    void UpdateData();
    TjexFieldBinding FBinding;
    bool FShowing = false;
};

// A combo box whose text is the field's value.
class TjexCustomDBComboBox : public vcl::TCustomComboBox {
    JEX_CLASS(TjexCustomDBComboBox, vcl::TCustomComboBox)
    explicit TjexCustomDBComboBox(rtl::TComponent* AOwner);
    JEX_FIELD_BINDING_ACCESSORS(FBinding)
    bool ReadOnly() const { return FBinding.ReadOnly(); }
    void SetReadOnly(bool Value) { FBinding.SetReadOnly(Value); }
    void Change() override;
    void UserType(const std::string& Text) override;
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    void DoExit() override;

protected:
    virtual void DataChange();
    void UpdateData();
    void CheckCanChange();
    TjexFieldBinding FBinding;
    bool FShowing = false;
};

// A check box: checked when the field holds ValueChecked (a Boolean field: True), unchecked for
// ValueUnchecked, grayed for anything else. Both values may list several texts separated by ';'.
class TjexCustomDBCheckBox : public vcl::TCustomCheckBox {
    JEX_CLASS(TjexCustomDBCheckBox, vcl::TCustomCheckBox)
    explicit TjexCustomDBCheckBox(rtl::TComponent* AOwner);
    JEX_FIELD_BINDING_ACCESSORS(FBinding)
    bool ReadOnly() const { return FBinding.ReadOnly(); }
    void SetReadOnly(bool Value) { FBinding.SetReadOnly(Value); }
    std::string ValueChecked() const { return FValueChecked; }
    void SetValueChecked(const std::string& Value);
    std::string ValueUnchecked() const { return FValueUnchecked; }
    void SetValueUnchecked(const std::string& Value);
    void UserClick() override;
    void UserCheck(bool v) override;
    void DoExit() override;

protected:
    void DataChange();
    void UpdateData();
    TjexFieldBinding FBinding;
    std::string FValueChecked = "True", FValueUnchecked = "False";
    bool FShowing = false;
};

// A radio group: the item whose value (Values, else the caption) equals the field's text is selected.
class TjexCustomDBRadioGroup : public vcl::TCustomRadioGroup {
    JEX_CLASS(TjexCustomDBRadioGroup, vcl::TCustomRadioGroup)
    explicit TjexCustomDBRadioGroup(rtl::TComponent* AOwner);
    ~TjexCustomDBRadioGroup() override;
    JEX_FIELD_BINDING_ACCESSORS(FBinding)
    bool ReadOnly() const { return FBinding.ReadOnly(); }
    void SetReadOnly(bool Value) { FBinding.SetReadOnly(Value); }
    rtl::TStrings* Values() const { return FValues.get(); }
    void SetValues(rtl::TStrings* Value) { FValues->Assign(Value); }
    // The value of the selected item ("" when none is).
    std::string Value() const;
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;

protected:
    void DataChange();
    void UpdateData();
    TjexFieldBinding FBinding;
    std::unique_ptr<rtl::TStringList> FValues;
    bool FShowing = false;
};

// The list side of a lookup control: the records of ListSource's data set, each with its KeyField value
// and ListField text, re-read whenever that data set changes.
class TjexLookupList {
public:
    explicit TjexLookupList(std::function<void()> OnChanged);
    ~TjexLookupList();
    TjexLookupList(const TjexLookupList&) = delete;
    TjexLookupList& operator=(const TjexLookupList&) = delete;
    db::TDataSource* ListSource() const { return FLink->DataSource(); }
    void SetListSource(db::TDataSource* Value);
    const std::string& KeyField() const { return FKeyField; }
    void SetKeyField(const std::string& Value);
    const std::string& ListField() const { return FListField; }
    void SetListField(const std::string& Value);
    struct TEntry {
        db::Variant Key;
        std::string Text;
    };
    const std::vector<TEntry>& Entries() const { return FEntries; }
    int IndexOfKey(const db::Variant& Key) const;
    // Re-reads the entries (the list data set keeps its current record).
    void Reload();

private:
    std::unique_ptr<TjexNotifyDataLink> FLink;
    std::function<void()> FOnChanged;
    std::string FKeyField, FListField;
    std::vector<TEntry> FEntries;
    bool FLoading = false;
};

// A list box offering the records of a lookup list; selecting one writes its key into the field.
class TjexCustomDBLookupListBox : public vcl::TCustomListBox {
    JEX_CLASS(TjexCustomDBLookupListBox, vcl::TCustomListBox)
    explicit TjexCustomDBLookupListBox(rtl::TComponent* AOwner);
    JEX_FIELD_BINDING_ACCESSORS(FBinding)
    bool ReadOnly() const { return FBinding.ReadOnly(); }
    void SetReadOnly(bool Value) { FBinding.SetReadOnly(Value); }
    db::TDataSource* ListSource() const { return FList.ListSource(); }
    void SetListSource(db::TDataSource* Value) { FList.SetListSource(Value); }
    std::string KeyField() const { return FList.KeyField(); }
    void SetKeyField(const std::string& Value) { FList.SetKeyField(Value); }
    std::string ListField() const { return FList.ListField(); }
    void SetListField(const std::string& Value) { FList.SetListField(Value); }
    TjexLookupList& Lookup() { return FList; }
    // The key of the selected entry (Null when none is).
    db::Variant KeyValue() const;
    void Click() override;

protected:
    void ListChanged();
    void DataChange();
    void UpdateData();
    TjexFieldBinding FBinding;
    TjexLookupList FList;
    bool FShowing = false;
};

// A drop-down list of the records of a lookup list; choosing one writes its key into the field.
class TjexCustomDBLookupComboBox : public vcl::TCustomComboBox {
    JEX_CLASS(TjexCustomDBLookupComboBox, vcl::TCustomComboBox)
    explicit TjexCustomDBLookupComboBox(rtl::TComponent* AOwner);
    JEX_FIELD_BINDING_ACCESSORS(FBinding)
    bool ReadOnly() const { return FBinding.ReadOnly(); }
    void SetReadOnly(bool Value) { FBinding.SetReadOnly(Value); }
    db::TDataSource* ListSource() const { return FList.ListSource(); }
    void SetListSource(db::TDataSource* Value) { FList.SetListSource(Value); }
    std::string KeyField() const { return FList.KeyField(); }
    void SetKeyField(const std::string& Value) { FList.SetKeyField(Value); }
    std::string ListField() const { return FList.ListField(); }
    void SetListField(const std::string& Value) { FList.SetListField(Value); }
    TjexLookupList& Lookup() { return FList; }
    db::Variant KeyValue() const;
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;

protected:
    void ListChanged();
    void DataChange();
    void UpdateData();
    TjexFieldBinding FBinding;
    TjexLookupList FList;
    bool FShowing = false;
};

// ---- Popup editing of memo and blob fields ------------------------------------------------------------
// How a popup editor shows a blob field: as text, or as a picture.
JEX_ENUM(TjexPopupBlobAs, jpbText, jpbGraphic)

// The modal window in which a person edits a memo or blob field's whole value.
class TjexDBPopupEditForm : public vcl::TForm {
    JEX_CLASS(TjexDBPopupEditForm, vcl::TForm)
    TjexDBPopupEditForm(rtl::TComponent* AOwner, db::TField* Field, TjexPopupBlobAs BlobAs);
    vcl::TMemo* Memo() const { return FMemo; }
    vcl::TImage* Image() const { return FImage; }
    vcl::TButton* OKButton() const { return FOK; }
    // Writes what the person entered into the field (which must be in edit mode).
    void ApplyTo(db::TField* Field) const;

private:
    vcl::TMemo* FMemo = nullptr;
    vcl::TImage* FImage = nullptr;
    vcl::TButton* FLoad = nullptr;
    vcl::TButton* FOK = nullptr;
    vcl::TButton* FCancel = nullptr;
    bool FText;
};

// Shows the popup editor for Field; true (and the field changed) when the person confirmed.
bool jexPopupEditField(db::TDataSource* Source, db::TField* Field, TjexPopupBlobAs BlobAs,
                       vcl::TFormStyle FormStyle, const std::string& Caption);

// ---- Data controls of the library ------------------------------------------------------------------------
JEX_ENUM(TjexDBRichEditorOption, jreoWordWrap, jreoPlainText, jreoWantTabs, jreoWantReturns, jreoShowToolbar)
JEX_SET(TjexDBRichEditorOptions, TjexDBRichEditorOption)
JEX_ENUM(TjexDBRichPopupOption, jrpoCutCopyPaste, jrpoUndo, jrpoFind, jrpoFont, jrpoPrint, jrpoEditor)
JEX_SET(TjexDBRichPopupOptions, TjexDBRichPopupOption)

// Print margins in hundredths of an inch.
class TjexDBRichPrintMargins : public rtl::TPersistent {
    JEX_CLASS(TjexDBRichPrintMargins, rtl::TPersistent)
    TjexDBRichPrintMargins() = default;
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

// A rich-text memo over a memo field: the field holds the document's text (RTF or plain); a person can
// load it from a file (dropped or chosen), start from FileTemplate, or edit it in a larger editor window.
class TjexDBRichEdit : public TjexCustomDBMemo {
    JEX_CLASS(TjexDBRichEdit, TjexCustomDBMemo)
    explicit TjexDBRichEdit(rtl::TComponent* AOwner);
    ~TjexDBRichEdit() override;
    bool AcceptDroppedFiles() const { return FAcceptDroppedFiles; }
    void SetAcceptDroppedFiles(bool Value) { FAcceptDroppedFiles = Value; }
    TjexDBRichEditorOptions EditorOptions() const { return FEditorOptions; }
    void SetEditorOptions(TjexDBRichEditorOptions Value);
    vcl::TWindowState EditorWindowState() const { return FEditorWindowState; }
    void SetEditorWindowState(vcl::TWindowState Value) { FEditorWindowState = Value; }
    std::string FileTemplate() const { return FFileTemplate; }
    void SetFileTemplate(const std::string& Value) { FFileTemplate = Value; }
    TjexDBRichPopupOptions PopupOptions() const { return FPopupOptions; }
    void SetPopupOptions(TjexDBRichPopupOptions Value) { FPopupOptions = Value; }
    TjexDBRichPrintMargins* PrintMargins() const { return FPrintMargins.get(); }
    void SetPrintMargins(TjexDBRichPrintMargins* Value) { FPrintMargins->Assign(Value); }
    std::string PrintTitle() const { return FPrintTitle; }
    void SetPrintTitle(const std::string& Value) { FPrintTitle = Value; }

    // A file dropped on the control (refused unless AcceptDroppedFiles) or loaded: its text replaces the
    // document. EFOpenError when it cannot be read; the record is then unchanged.
    bool DropFile(const std::string& FileName);
    void LoadFromFile(const std::string& FileName);
    // An empty document starts from FileTemplate's text; false when there is no template or the
    // document is not empty.
    bool ApplyTemplate();
    // The larger editor window; true when the person confirmed a change.
    bool ExecuteEditor();
    // True when the document is rich text ("{\rtf" at its start).
    bool IsRichText() const;

private:
    bool FAcceptDroppedFiles = false;
    TjexDBRichEditorOptions FEditorOptions{jreoWordWrap, jreoWantTabs, jreoWantReturns, jreoShowToolbar};
    vcl::TWindowState FEditorWindowState = vcl::wsNormal;
    std::string FFileTemplate;
    TjexDBRichPopupOptions FPopupOptions{jrpoCutCopyPaste, jrpoUndo, jrpoFind, jrpoEditor};
    std::unique_ptr<TjexDBRichPrintMargins> FPrintMargins;
    std::string FPrintTitle;
};

// A data-aware edit that opens the popup editor for memo and blob fields (PopupAutoEdit: when a person
// double-clicks or starts typing into one), showing blobs as PopupEditBlobAs in a PopupFormStyle window.
class TjexDBAutoEdit : public TjexCustomDBEdit {
    JEX_CLASS(TjexDBAutoEdit, TjexCustomDBEdit)
    explicit TjexDBAutoEdit(rtl::TComponent* AOwner) : TjexCustomDBEdit(AOwner) {}
    bool PopupAutoEdit() const { return FPopupAutoEdit; }
    void SetPopupAutoEdit(bool Value) { FPopupAutoEdit = Value; }
    TjexPopupBlobAs PopupEditBlobAs() const { return FPopupEditBlobAs; }
    void SetPopupEditBlobAs(TjexPopupBlobAs Value) { FPopupEditBlobAs = Value; }
    vcl::TFormStyle PopupFormStyle() const { return FPopupFormStyle; }
    void SetPopupFormStyle(vcl::TFormStyle Value) { FPopupFormStyle = Value; }
    // The bound field is a memo or blob (edited in the popup editor rather than inline).
    bool IsBlobField() const;
    // Opens the popup editor for the field; true when the person confirmed a change.
    bool PopupEdit();
    void EnterText(const std::string& v) override;
    void UserDblClick() override;

protected:
    void DataChange() override;

private:
    bool FPopupAutoEdit = true;
    TjexPopupBlobAs FPopupEditBlobAs = jpbText;
    vcl::TFormStyle FPopupFormStyle = vcl::fsNormal;
};

// The edit label bound to a field: the edit shows and edits the field, and with CaptionAuto the label
// shows the field's display label.
class TjexDBEditLabel : public TjexCustomEditLabel {
    JEX_CLASS(TjexDBEditLabel, TjexCustomEditLabel)
    explicit TjexDBEditLabel(rtl::TComponent* AOwner);
    JEX_FIELD_BINDING_ACCESSORS(FBinding)
    bool CaptionAuto() const { return FCaptionAuto; }
    void SetCaptionAuto(bool Value);
    bool ReadOnly() const { return FBinding.ReadOnly(); }
    void SetReadOnly(bool Value);
    void UserType(const std::string& Text) override;

private:
    void DataChange();
    void UpdateData();
    TjexFieldBinding FBinding;
    bool FCaptionAuto = true;
    bool FShowing = false;
};

// A label that shows "Record n of m" for a data set (Mask with two %d: the record number and the
// count), or DisabledCaption while the data set is closed or missing.
class TjexDBRecordCount : public TjexCustomLabel {
    JEX_CLASS(TjexDBRecordCount, TjexCustomLabel)
    explicit TjexDBRecordCount(rtl::TComponent* AOwner);
    ~TjexDBRecordCount() override;
    db::TDataSource* DataSource() const { return FLink->DataSource(); }
    void SetDataSource(db::TDataSource* Value);
    std::string Mask() const { return FMask; }
    void SetMask(const std::string& Value);
    std::string DisabledCaption() const { return FDisabledCaption; }
    void SetDisabledCaption(const std::string& Value);
    void SetText(const std::string&) override {}
    // The text for the data set as it is now.
    std::string CurrentText() const;
    void UpdateCaption();

private:
    std::unique_ptr<TjexNotifyDataLink> FLink;
    std::string FMask = "Record %d of %d";
    std::string FDisabledCaption;
};

// A label that shows the data set's state: line n of States for state n (Inactive, Browse, Edit ...),
// inside Mask ("%s"); DisabledCaption (when set) while there is no open data set.
class TjexDBState : public TjexCustomLabel {
    JEX_CLASS(TjexDBState, TjexCustomLabel)
    explicit TjexDBState(rtl::TComponent* AOwner);
    ~TjexDBState() override;
    db::TDataSource* DataSource() const { return FLink->DataSource(); }
    void SetDataSource(db::TDataSource* Value);
    std::string Mask() const { return FMask; }
    void SetMask(const std::string& Value);
    std::string DisabledCaption() const { return FDisabledCaption; }
    void SetDisabledCaption(const std::string& Value);
    rtl::TStrings* States() const { return FStates.get(); }
    void SetStates(rtl::TStrings* Value) { FStates->Assign(Value); }
    bool IsStatesStored() const;
    void SetText(const std::string&) override {}
    std::string CurrentText() const;
    void UpdateCaption();
    // The default state texts, one per data set state.
    static std::vector<std::string> DefaultStates();

private:
    std::unique_ptr<TjexNotifyDataLink> FLink;
    std::unique_ptr<rtl::TStringList> FStates;
    std::string FMask = "%s";
    std::string FDisabledCaption;
};

// The currency label showing a numeric field's amount in words.
class TjexDBCurrencyLabel : public TjexCurrencyLabel {
    JEX_CLASS(TjexDBCurrencyLabel, TjexCurrencyLabel)
    explicit TjexDBCurrencyLabel(rtl::TComponent* AOwner);
    JEX_FIELD_BINDING_ACCESSORS(FBinding)

private:
    void DataChange();
    TjexFieldBinding FBinding;
};

// A data-aware combo box that holds its list outside the drop-down: the drop-down's lines are filled
// when it opens (DropDown) and released when it closes (CloseUp), so that many such combos on a form
// cost only their texts.
class TjexLRDBComboBox : public TjexCustomDBComboBox {
    JEX_CLASS(TjexLRDBComboBox, TjexCustomDBComboBox)
    explicit TjexLRDBComboBox(rtl::TComponent* AOwner);
    ~TjexLRDBComboBox() override;
    // The choices offered (kept here; the drop-down holds them only while open).
    rtl::TStrings* Choices() const { return FChoices.get(); }
    void SetChoices(rtl::TStrings* Value) { FChoices->Assign(Value); }
    bool DroppedDownList() const { return FDropped; }
    void DropDown();
    void CloseUp();
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;

protected:
    void DataChange() override;

private:
    std::unique_ptr<rtl::TStringList> FChoices;
    bool FDropped = false;
};

// ---- Date and time controls ------------------------------------------------------------------------------
JEX_ENUM(TjexDateTimeKind, jdkDate, jdkTime, jdkDateTime)

// A date/time picker over two fields: DataField holds the date (or time) and DataFieldCheckBox, when
// set, a Boolean field that follows the check box (ShowCheckbox). A person types a date or ticks the box.
class TjexDBDateTimePicker : public vcl::TWinControl {
    JEX_CLASS(TjexDBDateTimePicker, vcl::TWinControl)
    explicit TjexDBDateTimePicker(rtl::TComponent* AOwner);
    ~TjexDBDateTimePicker() override;
    db::TDataSource* DataSource() const { return FBinding.DataSource(); }
    void SetDataSource(db::TDataSource* Value);
    std::string DataField() const { return FBinding.DataField(); }
    void SetDataField(const std::string& Value) { FBinding.SetDataField(Value); }
    std::string DataFieldCheckBox() const { return FCheckBinding.DataField(); }
    void SetDataFieldCheckBox(const std::string& Value) { FCheckBinding.SetDataField(Value); }
    bool ReadOnly() const { return FBinding.ReadOnly(); }
    void SetReadOnly(bool Value);
    db::TField* Field() const { return FBinding.Field(); }
    db::TField* CheckField() const { return FCheckBinding.Field(); }

    double DateTime() const { return FDateTime; }
    void SetDateTime(double Value);
    double Date() const;
    void SetDate(double Value);
    double Time() const;
    void SetTime(double Value);
    double MinDate() const { return FMinDate; }
    void SetMinDate(double Value) { FMinDate = Value; }
    double MaxDate() const { return FMaxDate; }
    void SetMaxDate(double Value) { FMaxDate = Value; }
    TjexDateTimeKind Kind() const { return FKind; }
    void SetKind(TjexDateTimeKind Value);
    bool ShowCheckbox() const { return FShowCheckbox; }
    void SetShowCheckbox(bool Value) { FShowCheckbox = Value; }
    bool Checked() const { return FChecked; }
    void SetChecked(bool Value);
    // The value as shown ("2024-03-05", "14:30:00" or both).
    std::string DisplayText() const;
    std::string GetText() const override { return DisplayText(); }

    // A person types a date/time (EConvertError for text that is none, or outside MinDate..MaxDate),
    // or ticks the check box.
    void UserType(const std::string& Text) override;
    void UserCheck(bool v) override;
    void DoExit() override;
    void Describe(vcl::TControlDesc& d) const override;
    rtl::TNotifyEvent OnChange;

private:
    void DataChange();
    void UpdateData();
    void CheckChange();
    void UpdateCheckData();
    void CheckRange(double Value) const;
    TjexFieldBinding FBinding;
    TjexFieldBinding FCheckBinding;
    double FDateTime = 0;
    double FMinDate = 0, FMaxDate = 0;
    TjexDateTimeKind FKind = jdkDate;
    bool FShowCheckbox = false, FChecked = true, FShowing = false;
};

// A month calendar over a date field (Date) and, with MultiSelect, an end-date field (EndDate): the
// selected range Date..EndDate, at most MaxSelectRange days long.
class TjexDBMonthCalendar : public vcl::TCustomControl {
    JEX_CLASS(TjexDBMonthCalendar, vcl::TCustomControl)
    explicit TjexDBMonthCalendar(rtl::TComponent* AOwner);
    ~TjexDBMonthCalendar() override;
    db::TDataSource* DataSource() const { return FBinding.DataSource(); }
    void SetDataSource(db::TDataSource* Value);
    std::string DataField() const { return FBinding.DataField(); }
    void SetDataField(const std::string& Value) { FBinding.SetDataField(Value); }
    std::string DataFieldEndDate() const { return FEndBinding.DataField(); }
    void SetDataFieldEndDate(const std::string& Value) { FEndBinding.SetDataField(Value); }
    bool ReadOnly() const { return FBinding.ReadOnly(); }
    void SetReadOnly(bool Value);
    db::TField* Field() const { return FBinding.Field(); }
    db::TField* EndField() const { return FEndBinding.Field(); }

    double Date() const { return FDate; }
    void SetDate(double Value);
    double EndDate() const { return FEndDate; }
    void SetEndDate(double Value);
    bool MultiSelect() const { return FMultiSelect; }
    void SetMultiSelect(bool Value);
    int MaxSelectRange() const { return FMaxSelectRange; }
    void SetMaxSelectRange(int Value) { FMaxSelectRange = Value < 1 ? 1 : Value; }
    bool ShowToday() const { return FShowToday; }
    void SetShowToday(bool Value) { FShowToday = Value; }
    bool WeekNumbers() const { return FWeekNumbers; }
    void SetWeekNumbers(bool Value) { FWeekNumbers = Value; }
    // A person picks a date ("yyyy-mm-dd", or "from..to" with MultiSelect), or a day of the shown month.
    void UserType(const std::string& Text) override;
    void UserSetValue(int Day) override;
    void DoExit() override;
    void Describe(vcl::TControlDesc& d) const override;
    rtl::TNotifyEvent OnChange;

private:
    void DataChange();
    void UpdateData();
    void PersonSets(double From, double To);
    TjexFieldBinding FBinding;
    TjexFieldBinding FEndBinding;
    double FDate = 0, FEndDate = 0;
    bool FMultiSelect = false, FShowToday = true, FWeekNumbers = false, FShowing = false;
    int FMaxSelectRange = 31;
};

// ---- Index, filter and range controls ---------------------------------------------------------------------
// A combo box listing indexes of the table behind DataSource; choosing one orders the table by it (and
// with GoToFirst moves to the first record). TableIndexItems holds "Caption=IndexName" lines (a line
// without '=' is its own caption); Sorted sorts the captions.
class TjexDBIndexCombo : public vcl::TCustomComboBox {
    JEX_CLASS(TjexDBIndexCombo, vcl::TCustomComboBox)
    explicit TjexDBIndexCombo(rtl::TComponent* AOwner);
    ~TjexDBIndexCombo() override;
    db::TDataSource* DataSource() const { return FLink->DataSource(); }
    void SetDataSource(db::TDataSource* Value);
    rtl::TStrings* TableIndexItems() const { return FTableIndexItems.get(); }
    void SetTableIndexItems(rtl::TStrings* Value) { FTableIndexItems->Assign(Value); }
    bool GoToFirst() const { return FGoToFirst; }
    void SetGoToFirst(bool Value) { FGoToFirst = Value; }
    void SetComboItemIndex(int Value);
    // The table the combo works on: DataSource's data set when it is a TTable, else nil.
    db::TTable* Table() const;
    // Fills TableIndexItems with the table's index names (replacing what was there); returns how many.
    // EDatabaseError when the table cannot list its indexes.
    int LoadItemsFromDataSet();
    // The index name of caption line Index.
    std::string IndexNameOf(int Index) const;
    void UserSelect(int Index) override;
    void UserSelectText(const std::string& Text) override;
    void Loaded() override;

private:
    void RebuildItems();
    void ApplyIndex(int Index);
    void ShowCurrentIndex();
    std::unique_ptr<TjexNotifyDataLink> FLink;
    std::unique_ptr<rtl::TStringList> FTableIndexItems;
    bool FGoToFirst = true;
    bool FUpdating = false;
};

// A filter kept with the form and applied to DataSource's data set: Filter and FilterOptions are given to
// the data set; with AutoActivate the filter is switched on whenever the data set opens (and at once when
// the filter changes); with GoToFirst the data set moves to its first record after a change.
class TjexDBFilter : public rtl::TComponent {
    JEX_CLASS(TjexDBFilter, rtl::TComponent)
    explicit TjexDBFilter(rtl::TComponent* AOwner);
    ~TjexDBFilter() override;
    db::TDataSource* DataSource() const { return FLink->DataSource(); }
    void SetDataSource(db::TDataSource* Value);
    std::string Filter() const { return FFilter; }
    void SetFilter(const std::string& Value);
    db::TFilterOptions FilterOptions() const { return FFilterOptions; }
    void SetFilterOptions(db::TFilterOptions Value);
    bool AutoActivate() const { return FAutoActivate; }
    void SetAutoActivate(bool Value);
    bool GoToFirst() const { return FGoToFirst; }
    void SetGoToFirst(bool Value) { FGoToFirst = Value; }
    db::TDataSet* DataSet() const { return FLink->DataSet(); }
    // Whether the data set is filtered by this filter now.
    bool Active() const;
    // Gives the expression to the data set and switches filtering on (EDatabaseError for an expression
    // the data set refuses; it then keeps its previous filter).
    void Apply();
    // Switches the data set's filtering off.
    void Cancel();
    // The filter dialog: the expression (and case-insensitivity) to edit. With ApplyNow the expression
    // is applied when the person confirms; with CancelOnEmpty an empty expression switches the filter
    // off. True when the person confirmed.
    bool Edit(bool ApplyNow, bool CancelOnEmpty);
    void Loaded() override;

private:
    void DataSetChanged();
    std::unique_ptr<TjexNotifyDataLink> FLink;
    std::string FFilter;
    db::TFilterOptions FFilterOptions;
    bool FAutoActivate = false, FGoToFirst = true, FApplying = false, FWasActive = false;
};

// The filter dialog the filter component shows.
class TjexDBFilterDialog : public vcl::TForm {
    JEX_CLASS(TjexDBFilterDialog, vcl::TForm)
    explicit TjexDBFilterDialog(rtl::TComponent* AOwner);
    vcl::TMemo* Expression() const { return FExpression; }
    vcl::TCheckBox* CaseInsensitive() const { return FCaseInsensitive; }
    vcl::TListBox* Fields() const { return FFields; }

private:
    void FieldsDblClick(rtl::TObject* Sender);
    vcl::TMemo* FExpression;
    vcl::TCheckBox* FCaseInsensitive;
    vcl::TListBox* FFields;
};

JEX_ENUM(TjexApplyRangeWhen, jarOnEnter, jarOnExit, jarOnChange)

// An edit where a person types a range over the table's current index: "from-to" (Separator between the
// two), "from-" or "-to" for an open end, a single value for an exact key, empty for no range. The range
// is applied to the table when ApplyRangeWhen says (Enter, leaving, every change).
class TjexDBRangeEdit : public vcl::TCustomEdit {
    JEX_CLASS(TjexDBRangeEdit, vcl::TCustomEdit)
    explicit TjexDBRangeEdit(rtl::TComponent* AOwner);
    ~TjexDBRangeEdit() override;
    db::TDataSource* DataSource() const { return FLink->DataSource(); }
    void SetDataSource(db::TDataSource* Value);
    TjexApplyRangeWhen ApplyRangeWhen() const { return FApplyRangeWhen; }
    void SetApplyRangeWhen(TjexApplyRangeWhen Value) { FApplyRangeWhen = Value; }
    bool GoToFirst() const { return FGoToFirst; }
    void SetGoToFirst(bool Value) { FGoToFirst = Value; }
    std::string Separator() const { return FSeparator; }
    void SetSeparator(const std::string& Value);
    db::TTable* Table() const;
    // Applies the text as a range (EDatabaseError without a table with a current index).
    void ApplyRange();
    // Splits a range text into its start and end ("" for an open end); single values give both ends.
    void ParseRange(const std::string& Text, std::string& From, std::string& To) const;
    void KeyDown(uint16_t& Key, vcl::TShiftState Shift) override;
    void DoExit() override;
    void Change() override;

private:
    std::unique_ptr<TjexNotifyDataLink> FLink;
    TjexApplyRangeWhen FApplyRangeWhen = jarOnEnter;
    std::string FSeparator = "-";
    bool FGoToFirst = true;
};

// ---- The field edit window ---------------------------------------------------------------------------
JEX_ENUM(TjexEditWinLayout, jewVertical, jewFlow)
JEX_ENUM(TjexEditWinLabelLayout, jelwLeft, jelwTop)

// A scrolling window that shows every visible field of DataSource's data set as a label and an automatic
// edit, laid out one under the other (or flowing across up to MaxWidth). Labels show the fields' display
// labels (AutoCaption) or the lines "FIELD=Caption" of LabelCaptions; EditHints gives "FIELD=Hint".
class TjexDBEditWin : public vcl::TScrollingWinControl {
    JEX_CLASS(TjexDBEditWin, vcl::TScrollingWinControl)
    explicit TjexDBEditWin(rtl::TComponent* AOwner);
    ~TjexDBEditWin() override;
    db::TDataSource* DataSource() const { return FLink->DataSource(); }
    void SetDataSource(db::TDataSource* Value);

#define JEX_EDITWIN_PROP(Type, Name)                                                                         \
    Type Name() const {                                                                                      \
        return F##Name;                                                                                      \
    }                                                                                                        \
    void Set##Name(Type Value) {                                                                             \
        F##Name = Value;                                                                                     \
        Rebuild();                                                                                           \
    }
    JEX_EDITWIN_PROP(bool, AutoCaption)
    JEX_EDITWIN_PROP(bool, EditAutoSize)
    JEX_EDITWIN_PROP(vcl::TColor, EditColor)
    JEX_EDITWIN_PROP(bool, EditParentColor)
    JEX_EDITWIN_PROP(bool, EditParentFont)
    JEX_EDITWIN_PROP(bool, EditShowHint)
    JEX_EDITWIN_PROP(int, EditWidth)
    JEX_EDITWIN_PROP(int, FieldOffsetH)
    JEX_EDITWIN_PROP(int, FieldOffsetV)
    JEX_EDITWIN_PROP(bool, FieldReadOnly)
    JEX_EDITWIN_PROP(vcl::TAlignment, LabelAlignment)
    JEX_EDITWIN_PROP(bool, LabelAutoSize)
    JEX_EDITWIN_PROP(vcl::TColor, LabelColor)
    JEX_EDITWIN_PROP(int, LabelHeight)
    JEX_EDITWIN_PROP(int, LabelOffsetH)
    JEX_EDITWIN_PROP(int, LabelOffsetV)
    JEX_EDITWIN_PROP(bool, LabelParentColor)
    JEX_EDITWIN_PROP(bool, LabelParentFont)
    JEX_EDITWIN_PROP(int, LabelWidth)
    JEX_EDITWIN_PROP(bool, LabelWordWrap)
    JEX_EDITWIN_PROP(TjexEditWinLayout, LayoutEdit)
    JEX_EDITWIN_PROP(TjexEditWinLabelLayout, LayoutLabel)
    JEX_EDITWIN_PROP(int, MarginLeft)
    JEX_EDITWIN_PROP(int, MarginTop)
    JEX_EDITWIN_PROP(int, MaxWidth)
    JEX_EDITWIN_PROP(bool, PopupAutoEdit)
    JEX_EDITWIN_PROP(TjexPopupBlobAs, PopupEditBlobAs)
    JEX_EDITWIN_PROP(vcl::TFormStyle, PopupFormStyle)
#undef JEX_EDITWIN_PROP
    vcl::TFont* EditFont() const {
        return FEditFont.get();
    }
    void SetEditFont(vcl::TFont* Value);
    bool IsEditFontStored() const {
        return !FEditParentFont;
    }
    vcl::TFont* LabelFont() const {
        return FLabelFont.get();
    }
    void SetLabelFont(vcl::TFont* Value);
    bool IsLabelFontStored() const {
        return !FLabelParentFont;
    }
    rtl::TStrings* EditHints() const {
        return FEditHints.get();
    }
    void SetEditHints(rtl::TStrings* Value) {
        FEditHints->Assign(Value);
    }
    rtl::TStrings* LabelCaptions() const {
        return FLabelCaptions.get();
    }
    void SetLabelCaptions(rtl::TStrings* Value) {
        FLabelCaptions->Assign(Value);
    }

    // The label and edit made for each field, in field order.
    int FieldCount() const {
        return static_cast<int>(FPairs.size());
    }
    vcl::TLabel* FieldLabel(int Index) const {
        return FPairs.at(static_cast<size_t>(Index)).Label;
    }
    TjexDBAutoEdit* FieldEdit(int Index) const {
        return FPairs.at(static_cast<size_t>(Index)).Edit;
    }
    // Makes the labels and edits again for the data set's current fields.
    void Rebuild();
    void Loaded() override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    struct TPair {
        vcl::TLabel* Label;
        TjexDBAutoEdit* Edit;
    };
    void ClearPairs();
    void LayoutChanged();
    std::unique_ptr<TjexNotifyDataLink> FLink;
    std::vector<TPair> FPairs, FRetired;
    std::unique_ptr<vcl::TFont> FEditFont, FLabelFont;
    std::unique_ptr<rtl::TStringList> FEditHints, FLabelCaptions;
    bool FAutoCaption = true, FEditAutoSize = true, FEditParentColor = false, FEditParentFont = true,
         FEditShowHint = false, FFieldReadOnly = false, FLabelAutoSize = false, FLabelParentColor = true,
         FLabelParentFont = true, FLabelWordWrap = false, FPopupAutoEdit = true;
    vcl::TColor FEditColor = vcl::clWindow, FLabelColor = vcl::clBtnFace;
    int FEditWidth = 0, FFieldOffsetH = 8, FFieldOffsetV = 4, FLabelHeight = 17, FLabelOffsetH = 4,
        FLabelOffsetV = 3, FLabelWidth = 80, FMarginLeft = 8, FMarginTop = 8, FMaxWidth = 0;
    vcl::TAlignment FLabelAlignment = vcl::taLeftJustify;
    TjexEditWinLayout FLayoutEdit = jewVertical;
    TjexEditWinLabelLayout FLayoutLabel = jelwLeft;
    TjexPopupBlobAs FPopupEditBlobAs = jpbText;
    vcl::TFormStyle FPopupFormStyle = vcl::fsNormal;
    std::string FLayoutKey; // the field list the pairs were made for
    bool FRebuilding = false;
};

} // namespace jex
