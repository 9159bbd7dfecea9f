// Data navigation: navigator panels and toolbars (which data source and field their buttons act on), the
// form link, the navigator buttons that move, edit, mark, search, filter and commit the records of the
// linked data set, the index combo box, the range edit, the state and record-count labels, and the
// data-aware toolbar edit.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "db/db.h"
#include "db/dbtables.h"
#include "jex/jexbuttons.h"
#include "jex/jexdock.h"
#include "jex/jexlabels.h"
#include "vcl/forms.h"

namespace jex {

// The navigator button kinds, numbered as the navigator designers' catalogue.
enum TjexNavKind : int {
    jnkFirst,
    jnkJumpBack,
    jnkPrev,
    jnkNext,
    jnkJumpFwd,
    jnkLast,
    jnkInsert,
    jnkAppend,
    jnkDuplicateRec,
    jnkEdit,
    jnkDataSourceEdit,
    jnkBlobEdit,
    jnkFindReplace,
    jnkDelete,
    jnkCancel,
    jnkPost,
    jnkRefresh,
    jnkEmptyTable,
    jnkBookmark,
    jnkBookmarkMenu,
    jnkFindKey,
    jnkIndexCombo,
    jnkRange,
    jnkRangeEdit,
    jnkFilterActive,
    jnkFilterExpression,
    jnkSQLStartTrans,
    jnkSQLCommit,
    jnkSQLRollback,
    jnkQueryParams,
    jnkDBInfo,
    jnkState,
    jnkRecordCount,
    jnkCustom,
    jnkCustomUpDown
};

// What a navigator container offers the controls on it.
class IjexNavHost {
public:
    virtual ~IjexNavHost() = default;
    // The data source the controls act on: with AutoDataSource the data source of the form's active
    // data-aware control when it has one, else DataSource.
    virtual db::TDataSource* NavDataSource() const = 0;
    // The field the controls act on: with AutoField the active control's DataField, else empty.
    virtual std::string NavFieldName() const = 0;
    // Whether the container leads to an open data set (then the designers fill index lists from it).
    virtual bool IsLinkedToOpenDataSet() const = 0;
};

// The navigator's link values (AutoDataSource, AutoField, DataSource) and the active-control lookups.
class TjexNavLink {
public:
    explicit TjexNavLink(vcl::TControl* Owner) : FOwner(Owner) {}
    bool AutoDataSource = false;
    bool AutoField = false;
    db::TDataSource* DataSource() const { return FDataSource; }
    void SetDataSource(db::TDataSource* Value);
    db::TDataSource* ActiveDataSource() const;
    std::string ActiveFieldName() const;
    bool LinkedToOpenDataSet() const;
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation);
    // The form's active control when it is data-aware (it publishes a DataSource property), else nil.
    vcl::TControl* ActiveDataControl() const;

private:
    vcl::TControl* FOwner;
    db::TDataSource* FDataSource = nullptr;
};

// Base of navigator panels: a panel whose controls act on its data source.
class TjexCustomNavPanel : public vcl::TCustomControl, public IjexNavHost {
    JEX_CLASS(TjexCustomNavPanel, vcl::TCustomControl)
    explicit TjexCustomNavPanel(rtl::TComponent* AOwner);
    bool AutoDataSource() const { return FLink.AutoDataSource; }
    void SetAutoDataSource(bool Value) { FLink.AutoDataSource = Value; }
    bool AutoField() const { return FLink.AutoField; }
    void SetAutoField(bool Value) { FLink.AutoField = Value; }
    db::TDataSource* DataSource() const { return FLink.DataSource(); }
    void SetDataSource(db::TDataSource* Value) { FLink.SetDataSource(Value); }
    db::TDataSource* NavDataSource() const override { return FLink.ActiveDataSource(); }
    std::string NavFieldName() const override { return FLink.ActiveFieldName(); }
    bool IsLinkedToOpenDataSet() const override { return FLink.LinkedToOpenDataSet(); }

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;
    TjexNavLink FLink;
};

class TjexNavPanel : public TjexCustomNavPanel {
    JEX_CLASS(TjexNavPanel, TjexCustomNavPanel)
    explicit TjexNavPanel(rtl::TComponent* AOwner) : TjexCustomNavPanel(AOwner) {}
};

// A dockable toolbar of navigator controls.
class TjexNavToolbar : public TjexCustomToolWindow, public IjexNavHost {
    JEX_CLASS(TjexNavToolbar, TjexCustomToolWindow)
    explicit TjexNavToolbar(rtl::TComponent* AOwner);
    bool AutoDataSource() const { return FLink.AutoDataSource; }
    void SetAutoDataSource(bool Value) { FLink.AutoDataSource = Value; }
    bool AutoField() const { return FLink.AutoField; }
    void SetAutoField(bool Value) { FLink.AutoField = Value; }
    db::TDataSource* DataSource() const { return FLink.DataSource(); }
    void SetDataSource(db::TDataSource* Value) { FLink.SetDataSource(Value); }
    db::TDataSource* NavDataSource() const override { return FLink.ActiveDataSource(); }
    std::string NavFieldName() const override { return FLink.ActiveFieldName(); }
    bool IsLinkedToOpenDataSet() const override { return FLink.LinkedToOpenDataSet(); }

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;
    TjexNavLink FLink;
};

// Lends a form's data source to a navigator elsewhere (a main form's toolbar): Activate points the
// NavControl's DataSource at this link's, Deactivate gives it back the one it had.
class TjexNavFormLink : public rtl::TComponent {
    JEX_CLASS(TjexNavFormLink, rtl::TComponent)
    explicit TjexNavFormLink(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}
    db::TDataSource* DataSource() const { return FDataSource; }
    void SetDataSource(db::TDataSource* Value);
    // A TjexCustomNavPanel or TjexNavToolbar; another control raises EInvalidCast.
    vcl::TWinControl* NavControl() const { return FNavControl; }
    void SetNavControl(vcl::TWinControl* Value);
    void Activate();
    void Deactivate();
    bool Active() const { return FActive; }

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    void SetHostDataSource(db::TDataSource* Value);
    db::TDataSource* FDataSource = nullptr;
    vcl::TWinControl* FNavControl = nullptr;
    db::TDataSource* FSaved = nullptr;
    bool FActive = false;
};

// ---- Navigator picture buttons ---------------------------------------------------------------------------
// Base of the navigator's picture buttons: it finds its data source through its parent navigator, tells
// whether its action applies now, and runs the action of its kind on a click.
class TjexCustomnpBtn : public TjexCustomPicSpeedBtn {
    JEX_CLASS(TjexCustomnpBtn, TjexCustomPicSpeedBtn)
    explicit TjexCustomnpBtn(rtl::TComponent* AOwner);
    virtual TjexNavKind ButtonKind() const = 0;
    // The navigator the button sits on, nil when its parent is none.
    IjexNavHost* NavHost() const;
    virtual db::TDataSource* DataSource() const;
    db::TDataSet* DataSet() const;
    // The data set is there and open.
    bool Linked() const;
    // Whether the action can run now (moving needs room to move, editing a modifiable data set ...).
    virtual bool ActionEnabled() const { return Linked(); }
    // Runs the action when it is enabled; raises what the data set raises.
    virtual void ExecuteAction() {}
    // Asks "Question" (Yes/No) through the message box when Confirm is set; true to go on.
    bool ConfirmAction(const std::string& Question) const;
    bool Confirm() const { return FConfirm; }
    void SetConfirm(bool Value) { FConfirm = Value; }
    // Runs the action (when enabled), then raises OnClick.
    void Click() override;
    // At run time a button whose action does not apply shows disabled.
    void Describe(vcl::TControlDesc& d) const override;

protected:
    bool FConfirm = false;
};

// Buttons that move by one or MoveBy records and repeat while held.
class TjexnpMoveBtn : public TjexCustomnpBtn, public TjexRepeatProps {
    JEX_CLASS(TjexnpMoveBtn, TjexCustomnpBtn)
    explicit TjexnpMoveBtn(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    int MoveBy() const { return FMoveBy; }
    void SetMoveBy(int Value) { FMoveBy = Value < 1 ? 1 : Value; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
    // Holding the button: a click per ClicksForHold.
    void Hold(int HeldMs);

protected:
    // -1 backwards, +1 forwards; the step is 1 or MoveBy.
    virtual int Direction() const = 0;
    virtual bool UsesMoveBy() const { return false; }
    int FMoveBy = 10;
};

class TjexnpFirst : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpFirst, TjexCustomnpBtn)
    explicit TjexnpFirst(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkFirst; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
};

class TjexnpJumpBack : public TjexnpMoveBtn {
    JEX_CLASS(TjexnpJumpBack, TjexnpMoveBtn)
    explicit TjexnpJumpBack(rtl::TComponent* AOwner) : TjexnpMoveBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkJumpBack; }

protected:
    int Direction() const override { return -1; }
    bool UsesMoveBy() const override { return true; }
};

class TjexnpPrev : public TjexnpMoveBtn {
    JEX_CLASS(TjexnpPrev, TjexnpMoveBtn)
    explicit TjexnpPrev(rtl::TComponent* AOwner) : TjexnpMoveBtn(AOwner) { SetAccelerate(true); }
    TjexNavKind ButtonKind() const override { return jnkPrev; }

protected:
    int Direction() const override { return -1; }
};

class TjexnpNext : public TjexnpMoveBtn {
    JEX_CLASS(TjexnpNext, TjexnpMoveBtn)
    explicit TjexnpNext(rtl::TComponent* AOwner) : TjexnpMoveBtn(AOwner) { SetAccelerate(true); }
    TjexNavKind ButtonKind() const override { return jnkNext; }

protected:
    int Direction() const override { return 1; }
};

class TjexnpJumpFwd : public TjexnpMoveBtn {
    JEX_CLASS(TjexnpJumpFwd, TjexnpMoveBtn)
    explicit TjexnpJumpFwd(rtl::TComponent* AOwner) : TjexnpMoveBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkJumpFwd; }

protected:
    int Direction() const override { return 1; }
    bool UsesMoveBy() const override { return true; }
};

class TjexnpLast : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpLast, TjexCustomnpBtn)
    explicit TjexnpLast(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkLast; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
};

// Insert or Append a new record.
class TjexnpInsert : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpInsert, TjexCustomnpBtn)
    explicit TjexnpInsert(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkInsert; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
};

// (Not derived from TjexnpInsert: the designers take a button's kind from the first catalogue class it is
// an instance of, so no catalogue class derives from another.)
class TjexnpAppend : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpAppend, TjexCustomnpBtn)
    explicit TjexnpAppend(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkAppend; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
};

// Copies the current record into a new one (inserted, or appended without Insert) left in edit mode;
// auto-increment fields are left to the data set.
class TjexnpDuplicateRec : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpDuplicateRec, TjexCustomnpBtn)
    explicit TjexnpDuplicateRec(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkDuplicateRec; }
    bool Insert() const { return FInsert; }
    void SetInsert(bool Value) { FInsert = Value; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;

private:
    bool FInsert = true;
};

class TjexnpEdit : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpEdit, TjexCustomnpBtn)
    explicit TjexnpEdit(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkEdit; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
};

JEX_ENUM(TjexNavDataView, jdvSingleRecord, jdvMultiRecord)
JEX_ENUM(TjexNavPopupFormStyle, jpfNormal, jpfStayOnTop, jpfToolWindow)

// Opens the form FormName to view or edit its data source's records; with ModalAction the form is modal
// and, with ModalAutoPost, a record being edited is posted when the form closes with OK and cancelled
// otherwise. Its hint may name the data source as "%datasource%".
class TjexnpDataSourceEdit : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpDataSourceEdit, TjexCustomnpBtn)
    explicit TjexnpDataSourceEdit(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkDataSourceEdit; }
    // Its own data source when set, else the navigator's.
    db::TDataSource* DataSource() const override;
    db::TDataSource* OwnDataSource() const { return FDataSource; }
    void SetOwnDataSource(db::TDataSource* Value);
    TjexNavDataView DataView() const { return FDataView; }
    void SetDataView(TjexNavDataView Value) { FDataView = Value; }
    std::string FormName() const { return FFormName; }
    void SetFormName(const std::string& Value) { FFormName = Value; }
    bool ModalAction() const { return FModalAction; }
    void SetModalAction(bool Value) { FModalAction = Value; }
    bool ModalAutoPost() const { return FModalAutoPost; }
    void SetModalAutoPost(bool Value) { FModalAutoPost = Value; }
    TjexNavPopupFormStyle PopupFormStyle() const { return FPopupFormStyle; }
    void SetPopupFormStyle(TjexNavPopupFormStyle Value) { FPopupFormStyle = Value; }
    // The hint with "%datasource%" replaced by the data source's name.
    std::string ShownHint() const;
    bool ActionEnabled() const override;
    void ExecuteAction() override;
    void Describe(vcl::TControlDesc& d) const override;
    vcl::TModalResult LastResult() const { return FLastResult; }

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    db::TDataSource* FDataSource = nullptr;
    TjexNavDataView FDataView = jdvSingleRecord;
    std::string FFormName;
    bool FModalAction = true;
    bool FModalAutoPost = true;
    TjexNavPopupFormStyle FPopupFormStyle = jpfNormal;
    vcl::TModalResult FLastResult = vcl::mrNone;
};

JEX_ENUM(TjexNavBlobView, jebAuto, jebMemo, jebGraphic)

// The window a blob button edits a memo field in: memo "memBlob", buttons "btnOK" and "btnCancel".
class TjexBlobEditForm : public vcl::TForm {
    JEX_CLASS(TjexBlobEditForm, vcl::TForm)
    explicit TjexBlobEditForm(rtl::TComponent* AOwner);
    vcl::TMemo* memBlob;
    vcl::TButton* btnOK;
    vcl::TButton* btnCancel;
};

// Edits the active (or first) memo field of the current record in a window; with AutoEdit the data set
// goes into edit mode for it. Graphic fields are not edited here (a message says so).
class TjexnpBlobEdit : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpBlobEdit, TjexCustomnpBtn)
    explicit TjexnpBlobEdit(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkBlobEdit; }
    bool AutoEdit() const { return FAutoEdit; }
    void SetAutoEdit(bool Value) { FAutoEdit = Value; }
    TjexNavBlobView EditBlobAs() const { return FEditBlobAs; }
    void SetEditBlobAs(TjexNavBlobView Value) { FEditBlobAs = Value; }
    TjexNavPopupFormStyle PopupFormStyle() const { return FPopupFormStyle; }
    void SetPopupFormStyle(TjexNavPopupFormStyle Value) { FPopupFormStyle = Value; }
    // The field edited: the navigator's field when it is a blob, else the first memo field.
    db::TField* BlobField() const;
    bool ActionEnabled() const override;
    void ExecuteAction() override;

private:
    bool FAutoEdit = true;
    TjexNavBlobView FEditBlobAs = jebAuto;
    TjexNavPopupFormStyle FPopupFormStyle = jpfNormal;
};

JEX_ENUM(TjexFindOption, jfoMatchCase, jfoWholeField, jfoAllFields, jfoFromStart)
JEX_SET(TjexFindOptions, TjexFindOption)
JEX_ENUM(TjexReplaceOption, jroReplaceAll, jroPrompt)
JEX_SET(TjexReplaceOptions, TjexReplaceOption)

// Finds text in the records: in the navigator's field (or every field with jfoAllFields), from the next
// record on (from the first with jfoFromStart); a click asks for the text first.
class TjexnpFindReplace : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpFindReplace, TjexCustomnpBtn)
    explicit TjexnpFindReplace(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkFindReplace; }
    std::string FindText() const { return FFindText; }
    void SetFindText(const std::string& Value) { FFindText = Value; }
    std::string ReplaceText() const { return FReplaceText; }
    void SetReplaceText(const std::string& Value) { FReplaceText = Value; }
    TjexFindOptions OptionsFind() const { return FOptionsFind; }
    void SetOptionsFind(TjexFindOptions Value) { FOptionsFind = Value; }
    TjexReplaceOptions OptionsReplace() const { return FOptionsReplace; }
    void SetOptionsReplace(TjexReplaceOptions Value) { FOptionsReplace = Value; }
    // Moves to the next record holding FindText; false (staying put) when none does.
    bool FindNext();
    // Replaces FindText by ReplaceText in every matching field of every record; returns the count.
    int ReplaceAll();
    void ExecuteAction() override;

private:
    bool Matches(const std::string& Value) const;
    std::vector<db::TField*> SearchFields() const;
    std::string FFindText, FReplaceText;
    TjexFindOptions FOptionsFind;
    TjexReplaceOptions FOptionsReplace;
};

class TjexnpDelete : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpDelete, TjexCustomnpBtn)
    explicit TjexnpDelete(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) { FConfirm = true; }
    TjexNavKind ButtonKind() const override { return jnkDelete; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
};

class TjexnpCancel : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpCancel, TjexCustomnpBtn)
    explicit TjexnpCancel(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkCancel; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
};

class TjexnpPost : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpPost, TjexCustomnpBtn)
    explicit TjexnpPost(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkPost; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
};

class TjexnpRefresh : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpRefresh, TjexCustomnpBtn)
    explicit TjexnpRefresh(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkRefresh; }
    void ExecuteAction() override;
};

// Deletes every record of a table, after ConfirmMsg when Confirm is set.
class TjexnpEmptyTable : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpEmptyTable, TjexCustomnpBtn)
    explicit TjexnpEmptyTable(rtl::TComponent* AOwner);
    TjexNavKind ButtonKind() const override { return jnkEmptyTable; }
    std::string ConfirmMsg() const { return FConfirmMsg; }
    void SetConfirmMsg(const std::string& Value) { FConfirmMsg = Value; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;

private:
    std::string FConfirmMsg;
};

// Two-state: going down marks the current record, going up returns to it.
class TjexnpBookmark : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpBookmark, TjexCustomnpBtn)
    explicit TjexnpBookmark(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkBookmark; }
    bool IsTwoState() const override { return true; }
    bool HasBookmark() const { return !FBookmark.empty(); }
    void ExecuteAction() override;
    // A press without a linked data set does not stay down.
    void UserClick() override;

private:
    db::TBookmark FBookmark;
};

// Keeps a list of bookmarks in a popup menu: MenuStrings[0] adds the current record, MenuStrings[1]
// clears the list, then one item per bookmark ("Record n", or its first index field's value with
// LabelByIndexVals), in columns of BreakAtItem items (0: one column).
class TjexnpBookmarkMenu : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpBookmarkMenu, TjexCustomnpBtn)
    explicit TjexnpBookmarkMenu(rtl::TComponent* AOwner);
    ~TjexnpBookmarkMenu() override;
    TjexNavKind ButtonKind() const override { return jnkBookmarkMenu; }
    int BreakAtItem() const { return FBreakAtItem; }
    void SetBreakAtItem(int Value) { FBreakAtItem = Value < 0 ? 0 : Value; }
    bool LabelByIndexVals() const { return FLabelByIndexVals; }
    void SetLabelByIndexVals(bool Value) { FLabelByIndexVals = Value; }
    vcl::TPopupAlignment MenuAlign() const { return FMenuAlign; }
    void SetMenuAlign(vcl::TPopupAlignment Value) { FMenuAlign = Value; }
    rtl::TStrings* MenuStrings() const { return FMenuStrings.get(); }
    void SetMenuStrings(rtl::TStrings* Value) { FMenuStrings->Assign(Value); }

    int BookmarkCount() const { return static_cast<int>(FBookmarks.size()); }
    std::string BookmarkLabel(int Index) const;
    void AddBookmark();
    void GotoBookmark(int Index);
    void ClearBookmarks();
    // The menu shown (rebuilt by each click).
    vcl::TPopupMenu* Menu() const { return FMenu; }
    void ExecuteAction() override;

private:
    void BuildMenu();
    int FBreakAtItem = 0;
    bool FLabelByIndexVals = false;
    vcl::TPopupAlignment FMenuAlign = vcl::paLeft;
    std::unique_ptr<rtl::TStringList> FMenuStrings;
    struct TMark {
        db::TBookmark Bookmark;
        std::string Label;
    };
    std::vector<TMark> FBookmarks;
    vcl::TPopupMenu* FMenu;
};

// Buttons that ask a question first (the help button and context of their prompt), and the key field they
// work on: the navigator's field, the table's first index field, or the first field.
class TjexnpDialogBtn : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpDialogBtn, TjexCustomnpBtn)
    explicit TjexnpDialogBtn(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    bool DlgHelpButton() const { return FDlgHelpButton; }
    void SetDlgHelpButton(bool Value) { FDlgHelpButton = Value; }
    vcl::THelpContext DlgHelpContext() const { return FDlgHelpContext; }
    void SetDlgHelpContext(vcl::THelpContext Value) { FDlgHelpContext = Value; }
    std::string KeyFieldName() const;

protected:
    bool FDlgHelpButton = false;
    vcl::THelpContext FDlgHelpContext = 0;
};

// Asks for a key value and moves to the first record whose key field equals it.
class TjexnpFindKey : public TjexnpDialogBtn {
    JEX_CLASS(TjexnpFindKey, TjexnpDialogBtn)
    explicit TjexnpFindKey(rtl::TComponent* AOwner) : TjexnpDialogBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkFindKey; }
    // Moves to the record; false (with a message) when none matches.
    bool FindKey(const std::string& Value);
    void ExecuteAction() override;
};

// Sets a range ("from-to") on the key field, or clears the range it set.
class TjexnpRange : public TjexnpDialogBtn {
    JEX_CLASS(TjexnpRange, TjexnpDialogBtn)
    explicit TjexnpRange(rtl::TComponent* AOwner) : TjexnpDialogBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkRange; }
    bool RangeActive() const { return FRangeActive; }
    void ExecuteAction() override;

private:
    bool FRangeActive = false;
};

// Limits a data set to key values From..To: a table with an index through SetRange, anything else through
// a filter on Field. Empty bounds clear the limit. Returns whether a limit is now active.
bool jexApplyRange(db::TDataSet* DataSet, const std::string& Field, const std::string& From,
                   const std::string& To);
void jexCancelRange(db::TDataSet* DataSet);

// Two-state filters. The filter the data set had before going down comes back when going up.
class TjexnpFilterBtn : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpFilterBtn, TjexCustomnpBtn)
    explicit TjexnpFilterBtn(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    bool IsTwoState() const override { return true; }
    db::TFilterOptions FilterOptions() const { return FFilterOptions; }
    void SetFilterOptions(db::TFilterOptions Value) { FFilterOptions = Value; }
    bool GoToFirst() const { return FGoToFirst; }
    void SetGoToFirst(bool Value) { FGoToFirst = Value; }
    // The filter expression going down applies.
    virtual std::string FilterText() const = 0;
    void ExecuteAction() override;
    void UserClick() override;

protected:
    db::TFilterOptions FFilterOptions;
    bool FGoToFirst = true;
    std::string FSavedFilter;
    bool FSavedFiltered = false;
};

// Shows only the records whose active field equals its value in the current record.
class TjexnpFilterActive : public TjexnpFilterBtn {
    JEX_CLASS(TjexnpFilterActive, TjexnpFilterBtn)
    explicit TjexnpFilterActive(rtl::TComponent* AOwner) : TjexnpFilterBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkFilterActive; }
    bool ActionEnabled() const override;
    std::string FilterText() const override;
};

// Applies its Filter expression; with AllowEdit a right click asks for a new expression.
class TjexnpFilterExpression : public TjexnpFilterBtn {
    JEX_CLASS(TjexnpFilterExpression, TjexnpFilterBtn)
    explicit TjexnpFilterExpression(rtl::TComponent* AOwner) : TjexnpFilterBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkFilterExpression; }
    bool AllowEdit() const { return FAllowEdit; }
    void SetAllowEdit(bool Value) { FAllowEdit = Value; }
    std::string Filter() const { return FFilter; }
    void SetFilter(const std::string& Value) { FFilter = Value; }
    bool ActionEnabled() const override;
    std::string FilterText() const override { return FFilter; }
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;

private:
    bool FAllowEdit = true;
    std::string FFilter;
};

// Transactions on the data set's database.
class TjexnpSQLBtn : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpSQLBtn, TjexCustomnpBtn)
    explicit TjexnpSQLBtn(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    db::TDatabase* Database() const;
};

class TjexnpSQLStartTrans : public TjexnpSQLBtn {
    JEX_CLASS(TjexnpSQLStartTrans, TjexnpSQLBtn)
    explicit TjexnpSQLStartTrans(rtl::TComponent* AOwner) : TjexnpSQLBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkSQLStartTrans; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
};

class TjexnpSQLCommit : public TjexnpSQLBtn {
    JEX_CLASS(TjexnpSQLCommit, TjexnpSQLBtn)
    explicit TjexnpSQLCommit(rtl::TComponent* AOwner) : TjexnpSQLBtn(AOwner) { FConfirm = true; }
    TjexNavKind ButtonKind() const override { return jnkSQLCommit; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
};

class TjexnpSQLRollback : public TjexnpSQLBtn {
    JEX_CLASS(TjexnpSQLRollback, TjexnpSQLBtn)
    explicit TjexnpSQLRollback(rtl::TComponent* AOwner) : TjexnpSQLBtn(AOwner) { FConfirm = true; }
    TjexNavKind ButtonKind() const override { return jnkSQLRollback; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
};

// Asks for each parameter of a query and runs it again.
class TjexnpQueryParams : public TjexnpDialogBtn {
    JEX_CLASS(TjexnpQueryParams, TjexnpDialogBtn)
    explicit TjexnpQueryParams(rtl::TComponent* AOwner) : TjexnpDialogBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkQueryParams; }
    bool ActionEnabled() const override;
    void ExecuteAction() override;
};

// Shows what the data source is linked to: data set, class, state, position and fields.
class TjexnpDBInfo : public TjexCustomnpBtn {
    JEX_CLASS(TjexnpDBInfo, TjexCustomnpBtn)
    explicit TjexnpDBInfo(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {}
    TjexNavKind ButtonKind() const override { return jnkDBInfo; }
    bool ActionEnabled() const override { return DataSource() != nullptr; }
    std::string InfoText() const;
    void ExecuteAction() override;
};

// ---- Other navigator controls ----------------------------------------------------------------------------
// The navigator controls that are not buttons find their navigator the same way.
IjexNavHost* jexNavHostOf(const vcl::TControl* Control);

// Lists the linked table's indexes; choosing one orders the table by it. TableIndexItems may give
// captions as "Caption=IndexName" lines (the list then shows those captions for those indexes only).
class TjexnpIndexCombo : public vcl::TComboBox {
    JEX_CLASS(TjexnpIndexCombo, vcl::TComboBox)
    explicit TjexnpIndexCombo(rtl::TComponent* AOwner);
    ~TjexnpIndexCombo() override;
    bool AutoLoadItems() const { return FAutoLoadItems; }
    void SetAutoLoadItems(bool Value) { FAutoLoadItems = Value; }
    bool GoToFirst() const { return FGoToFirst; }
    void SetGoToFirst(bool Value) { FGoToFirst = Value; }
    rtl::TStrings* TableIndexItems() const { return FTableIndexItems.get(); }
    void SetTableIndexItems(rtl::TStrings* Value) { FTableIndexItems->Assign(Value); }
    db::TTable* Table() const;
    // Fills the items from the linked table's index names (or TableIndexItems) and selects the current
    // index; nothing changes when no table is linked.
    void LoadItemsFromDataSet();
    // The index name behind item Index.
    std::string IndexNameOf(int Index) const;
    // A person picking an item orders the table by that index.
    void Click() override;
    void Loaded() override;

private:
    bool FAutoLoadItems = true;
    bool FGoToFirst = true;
    std::unique_ptr<rtl::TStringList> FTableIndexItems;
    std::vector<std::string> FIndexNames;
};

// An edit taking a range "from-to" (Separator between the bounds) for the navigator's key field; Enter
// applies it, an empty text clears it.
class TjexnpRangeEdit : public vcl::TEdit {
    JEX_CLASS(TjexnpRangeEdit, vcl::TEdit)
    explicit TjexnpRangeEdit(rtl::TComponent* AOwner);
    bool GoToFirst() const { return FGoToFirst; }
    void SetGoToFirst(bool Value) { FGoToFirst = Value; }
    std::string Separator() const { return FSeparator; }
    void SetSeparator(const std::string& Value) { FSeparator = Value; }
    // Applies the text; false when nothing is linked.
    bool ApplyRange();
    bool WantsKey(uint16_t Key) const override { return Key == vcl::VK_RETURN; }
    void KeyDown(uint16_t& Key, vcl::TShiftState Shift) override;

private:
    bool FGoToFirst = true;
    std::string FSeparator = "-";
};

// Labels showing the navigator's data set: its state (States[state] in Mask), or its record number and
// count ("%d of %d" by default); DisabledCaption while nothing open is linked.
class TjexnpDBLabel : public TjexCustomLabel {
    JEX_CLASS(TjexnpDBLabel, TjexCustomLabel)
    explicit TjexnpDBLabel(rtl::TComponent* AOwner) : TjexCustomLabel(AOwner) {}
    std::string DisabledCaption() const { return FDisabledCaption; }
    void SetDisabledCaption(const std::string& Value) { FDisabledCaption = Value; }
    std::string Mask() const { return FMask; }
    void SetMask(const std::string& Value) { FMask = Value; }
    db::TDataSet* DataSet() const;
    // The text for the data set now.
    virtual std::string ShownText() const = 0;
    std::string GetText() const override { return ShownText(); }
    void SetText(const std::string&) override {}

protected:
    std::string FDisabledCaption;
    std::string FMask;
};

class TjexnpState : public TjexnpDBLabel {
    JEX_CLASS(TjexnpState, TjexnpDBLabel)
    explicit TjexnpState(rtl::TComponent* AOwner);
    ~TjexnpState() override;
    rtl::TStrings* States() const { return FStates.get(); }
    void SetStates(rtl::TStrings* Value) { FStates->Assign(Value); }
    std::string ShownText() const override;

private:
    std::unique_ptr<rtl::TStringList> FStates;
};

class TjexnpRecordCount : public TjexnpDBLabel {
    JEX_CLASS(TjexnpRecordCount, TjexnpDBLabel)
    explicit TjexnpRecordCount(rtl::TComponent* AOwner);
    std::string ShownText() const override;
};

// ---- Data-aware toolbar edit -------------------------------------------------------------------------
// A toolbar edit showing a field of the current record and writing what a person types back to it.
class TjexToolbarDBEdit : public TjexToolbarEdit {
    JEX_CLASS(TjexToolbarDBEdit, TjexToolbarEdit)
    explicit TjexToolbarDBEdit(rtl::TComponent* AOwner);
    ~TjexToolbarDBEdit() override;
    db::TDataSource* DataSource() const;
    void SetDataSource(db::TDataSource* Value);
    std::string DataField() const;
    void SetDataField(const std::string& Value);
    db::TField* Field() const;
    // Typing puts the data set into edit mode (refused when it cannot be modified) and marks the field.
    void EnterText(const std::string& Value) override;
    // Leaving the edit writes the text into the field.
    void DoExit() override;
    void Describe(vcl::TControlDesc& d) const override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    void DataChange();
    std::unique_ptr<db::TFieldDataLink> FDataLink;
    bool FUpdating = false;
};

} // namespace jex
