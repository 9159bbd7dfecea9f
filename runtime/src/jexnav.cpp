// Data navigation: navigator panels and toolbars, the form link, navigator buttons and controls, and the
// data-aware toolbar edit. Built only with platform/db.
#ifdef JEX_HAVE_DB

#include "jex/jexnav.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "jexpublish.h"
#include "vcl/dialogs.h"
#include "vcl/forms.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexNavDataView)
JEX_DEFINE_ENUM(TjexNavPopupFormStyle)
JEX_DEFINE_ENUM(TjexNavBlobView)
JEX_DEFINE_ENUM(TjexFindOption)
JEX_DEFINE_SET(TjexFindOptions, TjexFindOption)
JEX_DEFINE_ENUM(TjexReplaceOption)
JEX_DEFINE_SET(TjexReplaceOptions, TjexReplaceOption)

namespace {
template <class T> void SetReference(rtl::TComponent* self, T*& field, T* value) {
    if (field == value) return;
    if (field) field->RemoveFreeNotification(self);
    field = value;
    if (field) field->FreeNotification(self);
}

bool Editing(const db::TDataSet* ds) {
    return ds && (ds->State() == db::dsEdit || ds->State() == db::dsInsert);
}

bool IsNumericField(const db::TField* f) {
    return dynamic_cast<const db::TNumericField*>(f) != nullptr;
}

// A typed value for a field from text: numbers for numeric fields (when the text is one), text otherwise.
db::Variant ValueForField(const db::TField* f, const std::string& text) {
    std::string t = rtl::Trim(text);
    if (dynamic_cast<const db::TIntegerField*>(f) || dynamic_cast<const db::TLargeintField*>(f)) {
        int64_t v = 0;
        auto r = std::from_chars(t.data(), t.data() + t.size(), v);
        if (r.ec == std::errc() && r.ptr == t.data() + t.size() && !t.empty()) return db::Variant(v);
    } else if (IsNumericField(f)) {
        char* end = nullptr;
        double v = std::strtod(t.c_str(), &end);
        if (!t.empty() && end == t.c_str() + t.size()) return db::Variant(v);
    } else if (dynamic_cast<const db::TBooleanField*>(f)) {
        if (rtl::SameText(t, "true")) return db::Variant(true);
        if (rtl::SameText(t, "false")) return db::Variant(false);
    }
    return db::Variant(text);
}

// A value as filter-expression text: numbers as they are, anything else quoted.
std::string FilterLiteral(const db::TField* f, const std::string& text) {
    db::Variant v = ValueForField(f, text);
    if (v.IsInteger() || v.IsFloat()) return rtl::Trim(text);
    return rtl::QuotedStr(text);
}

std::string StateName(db::TDataSetState s) {
    return rtl::GetEnumName(db::TypeInfoOf(static_cast<db::TDataSetState*>(nullptr)), s);
}
} // namespace

// ---- Navigator link --------------------------------------------------------------------------------------
void TjexNavLink::SetDataSource(db::TDataSource* Value) {
    SetReference<db::TDataSource>(FOwner, FDataSource, Value);
}

TControl* TjexNavLink::ActiveDataControl() const {
    TCustomForm* form = GetParentForm(FOwner);
    if (!form || !form->ActiveControl()) return nullptr;
    TControl* c = form->ActiveControl();
    const rtl::TPropInfo* p = rtl::GetPropInfo(c, "DataSource");
    if (p && p->PropType->Kind == rtl::tkClass && p->PropType->ClassType &&
        p->PropType->ClassType->InheritsFrom(db::TDataSource::StaticClass()))
        return c;
    return nullptr;
}

db::TDataSource* TjexNavLink::ActiveDataSource() const {
    if (AutoDataSource)
        if (TControl* c = ActiveDataControl())
            if (auto* ds = dynamic_cast<db::TDataSource*>(rtl::GetObjectProp(c, "DataSource"))) return ds;
    return FDataSource;
}

std::string TjexNavLink::ActiveFieldName() const {
    if (!AutoField) return {};
    TControl* c = ActiveDataControl();
    if (!c) return {};
    const rtl::TPropInfo* p = rtl::GetPropInfo(c, "DataField");
    return p && p->GetStr ? rtl::GetStrProp(c, *p) : std::string();
}

bool TjexNavLink::LinkedToOpenDataSet() const {
    db::TDataSource* ds = ActiveDataSource();
    return ds && ds->DataSet() && ds->DataSet()->Active();
}

void TjexNavLink::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    if (Operation == rtl::opRemove && AComponent == FDataSource) FDataSource = nullptr;
}

IjexNavHost* jexNavHostOf(const TControl* Control) {
    return Control ? dynamic_cast<IjexNavHost*>(Control->Parent()) : nullptr;
}

// ---- Panels and toolbars ---------------------------------------------------------------------------------
namespace {
template <class C> void PublishNavLink(rtl::TClassDecl<C>& d) {
    d.Property("AutoDataSource", &C::AutoDataSource, &C::SetAutoDataSource).Default(false);
    d.Property("AutoField", &C::AutoField, &C::SetAutoField).Default(false);
    d.Property("DataSource", &C::DataSource, &C::SetDataSource);
}
} // namespace

JEX_IMPLEMENT_CLASS(TjexCustomNavPanel, TCustomControl, "jexnav") {
    pub::WinContainer(d, clBtnFace, false);
    PublishNavLink(d);
}

TjexCustomNavPanel::TjexCustomNavPanel(rtl::TComponent* AOwner) : TCustomControl(AOwner), FLink(this) {
    FControlStyle.Include(csAcceptsControls);
    FColor = clBtnFace;
    FWidth = 185;
    FHeight = 41;
}

void TjexCustomNavPanel::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TCustomControl::Notification(AComponent, Operation);
    FLink.Notification(AComponent, Operation);
}

JEX_IMPLEMENT_CLASS(TjexNavPanel, TjexCustomNavPanel, "jexnav") {}

JEX_IMPLEMENT_CLASS(TjexNavToolbar, TjexCustomToolWindow, "jexnav") {
    pub::ToolWindowLooks(d);
    pub::Docking(d);
    PublishNavLink(d);
}

TjexNavToolbar::TjexNavToolbar(rtl::TComponent* AOwner) : TjexCustomToolWindow(AOwner), FLink(this) {}

void TjexNavToolbar::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TjexCustomToolWindow::Notification(AComponent, Operation);
    FLink.Notification(AComponent, Operation);
}

JEX_IMPLEMENT_CLASS(TjexNavFormLink, rtl::TComponent, "jexnav") {
    d.Property("DataSource", &TjexNavFormLink::DataSource, &TjexNavFormLink::SetDataSource);
    d.Property("NavControl", &TjexNavFormLink::NavControl, &TjexNavFormLink::SetNavControl);
}

void TjexNavFormLink::SetDataSource(db::TDataSource* Value) {
    SetReference<db::TDataSource>(this, FDataSource, Value);
    if (FActive) SetHostDataSource(FDataSource);
}

void TjexNavFormLink::SetNavControl(TWinControl* Value) {
    if (Value && !dynamic_cast<IjexNavHost*>(Value)) throw rtl::EInvalidCast(rtl::SInvalidCast);
    if (FActive) Deactivate();
    SetReference<TWinControl>(this, FNavControl, Value);
}

void TjexNavFormLink::SetHostDataSource(db::TDataSource* Value) {
    if (auto* panel = dynamic_cast<TjexCustomNavPanel*>(FNavControl))
        panel->SetDataSource(Value);
    else if (auto* bar = dynamic_cast<TjexNavToolbar*>(FNavControl))
        bar->SetDataSource(Value);
}

void TjexNavFormLink::Activate() {
    if (!FNavControl || FActive) return;
    if (auto* panel = dynamic_cast<TjexCustomNavPanel*>(FNavControl))
        FSaved = panel->DataSource();
    else if (auto* bar = dynamic_cast<TjexNavToolbar*>(FNavControl))
        FSaved = bar->DataSource();
    if (FSaved) FSaved->FreeNotification(this);
    FActive = true;
    SetHostDataSource(FDataSource);
}

void TjexNavFormLink::Deactivate() {
    if (!FActive) return;
    FActive = false;
    SetHostDataSource(FSaved);
    FSaved = nullptr;
}

void TjexNavFormLink::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    rtl::TComponent::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    if (AComponent == FDataSource) FDataSource = nullptr;
    if (AComponent == FSaved) FSaved = nullptr;
    if (AComponent == FNavControl) {
        FNavControl = nullptr;
        FActive = false;
    }
}

// ---- Navigator buttons -----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomnpBtn, TjexCustomPicSpeedBtn, "jexnav") {}

TjexCustomnpBtn::TjexCustomnpBtn(rtl::TComponent* AOwner) : TjexCustomPicSpeedBtn(AOwner) {}

IjexNavHost* TjexCustomnpBtn::NavHost() const {
    return jexNavHostOf(this);
}

db::TDataSource* TjexCustomnpBtn::DataSource() const {
    IjexNavHost* host = NavHost();
    return host ? host->NavDataSource() : nullptr;
}

db::TDataSet* TjexCustomnpBtn::DataSet() const {
    db::TDataSource* ds = DataSource();
    return ds ? ds->DataSet() : nullptr;
}

bool TjexCustomnpBtn::Linked() const {
    db::TDataSet* ds = DataSet();
    return ds && ds->Active();
}

bool TjexCustomnpBtn::ConfirmAction(const std::string& Question) const {
    if (!FConfirm) return true;
    return MessageDlg(Question, mtConfirmation, TMsgDlgButtons{mbYes, mbNo}, 0) == mrYes;
}

void TjexCustomnpBtn::Click() {
    if (!IsDesigning() && ActionEnabled()) ExecuteAction();
    TjexCustomPicSpeedBtn::Click();
}

void TjexCustomnpBtn::Describe(TControlDesc& d) const {
    TjexCustomPicSpeedBtn::Describe(d);
    if (!IsDesigning() && !ActionEnabled()) d.Enabled = false;
}

JEX_IMPLEMENT_CLASS(TjexnpMoveBtn, TjexCustomnpBtn, "jexnav") {}

bool TjexnpMoveBtn::ActionEnabled() const {
    if (!Linked()) return false;
    db::TDataSet* ds = DataSet();
    return Direction() < 0 ? !ds->Bof() : !ds->Eof();
}

void TjexnpMoveBtn::ExecuteAction() {
    db::TDataSet* ds = DataSet();
    int step = UsesMoveBy() ? FMoveBy : 1;
    if (step == 1)
        Direction() < 0 ? ds->Prior() : ds->Next();
    else
        ds->MoveBy(Direction() * step);
}

void TjexnpMoveBtn::Hold(int HeldMs) {
    FSounds.PlayDown();
    int clicks = ClicksForHold(HeldMs);
    for (int i = 0; i < clicks; ++i)
        Click();
}

namespace {
template <class C> void PublishRepeat(rtl::TClassDecl<C>& d, bool accelerate) {
    d.Property("Accelerate", &C::Accelerate, &C::SetAccelerate).Default(accelerate);
    d.Property("RepeatEnabled", &C::RepeatEnabled, &C::SetRepeatEnabled).Default(true);
    d.Property("RepeatInitialPause", &C::RepeatInitialPause, &C::SetRepeatInitialPause).Default(400);
    d.Property("RepeatPause", &C::RepeatPause, &C::SetRepeatPause).Default(100);
}
template <class C> void PublishDialogHelp(rtl::TClassDecl<C>& d) {
    d.Property("DlgHelpButton", &C::DlgHelpButton, &C::SetDlgHelpButton).Default(false);
    d.Property("DlgHelpContext", &C::DlgHelpContext, &C::SetDlgHelpContext, rtl::TypeInfo_THelpContext())
        .Default(0);
}
template <class C> void PublishHints(rtl::TClassDecl<C>& d) {
    d.Property("HintDown", &C::HintDown, &C::SetHintDown);
    d.Property("HintUp", &C::HintUp, &C::SetHintUp);
}
} // namespace

JEX_IMPLEMENT_CLASS(TjexnpFirst, TjexCustomnpBtn, "jexnav") {}

bool TjexnpFirst::ActionEnabled() const {
    return Linked() && !DataSet()->Bof();
}

void TjexnpFirst::ExecuteAction() {
    DataSet()->First();
}

JEX_IMPLEMENT_CLASS(TjexnpJumpBack, TjexnpMoveBtn, "jexnav") {
    PublishRepeat(d, false);
    d.Property("MoveBy", &TjexnpJumpBack::MoveBy, &TjexnpJumpBack::SetMoveBy).Default(10);
}
JEX_IMPLEMENT_CLASS(TjexnpPrev, TjexnpMoveBtn, "jexnav") {
    PublishRepeat(d, true);
}
JEX_IMPLEMENT_CLASS(TjexnpNext, TjexnpMoveBtn, "jexnav") {
    PublishRepeat(d, true);
}
JEX_IMPLEMENT_CLASS(TjexnpJumpFwd, TjexnpMoveBtn, "jexnav") {
    PublishRepeat(d, false);
    d.Property("MoveBy", &TjexnpJumpFwd::MoveBy, &TjexnpJumpFwd::SetMoveBy).Default(10);
}

JEX_IMPLEMENT_CLASS(TjexnpLast, TjexCustomnpBtn, "jexnav") {}

bool TjexnpLast::ActionEnabled() const {
    return Linked() && !DataSet()->Eof();
}

void TjexnpLast::ExecuteAction() {
    DataSet()->Last();
}

JEX_IMPLEMENT_CLASS(TjexnpInsert, TjexCustomnpBtn, "jexnav") {}

bool TjexnpInsert::ActionEnabled() const {
    return Linked() && DataSet()->CanModify();
}

void TjexnpInsert::ExecuteAction() {
    DataSet()->Insert();
}

JEX_IMPLEMENT_CLASS(TjexnpAppend, TjexCustomnpBtn, "jexnav") {}

bool TjexnpAppend::ActionEnabled() const {
    return Linked() && DataSet()->CanModify();
}

void TjexnpAppend::ExecuteAction() {
    DataSet()->Append();
}

JEX_IMPLEMENT_CLASS(TjexnpDuplicateRec, TjexCustomnpBtn, "jexnav") {
    d.Property("Insert", &TjexnpDuplicateRec::Insert, &TjexnpDuplicateRec::SetInsert).Default(true);
}

bool TjexnpDuplicateRec::ActionEnabled() const {
    return Linked() && DataSet()->CanModify() && !DataSet()->IsEmpty() && !Editing(DataSet());
}

void TjexnpDuplicateRec::ExecuteAction() {
    db::TDataSet* ds = DataSet();
    std::vector<std::pair<db::TField*, db::Variant>> values;
    for (int i = 0; i < ds->FieldCount(); ++i) {
        db::TField* f = ds->Fields()->Fields(i);
        if (dynamic_cast<db::TAutoIncField*>(f) || f->FieldKind() != db::fkData || f->ReadOnly()) continue;
        values.emplace_back(f, f->Value());
    }
    if (FInsert)
        ds->Insert();
    else
        ds->Append();
    for (auto& [f, v] : values)
        f->SetValue(v);
}

JEX_IMPLEMENT_CLASS(TjexnpEdit, TjexCustomnpBtn, "jexnav") {}

bool TjexnpEdit::ActionEnabled() const {
    return Linked() && DataSet()->CanModify() && !DataSet()->IsEmpty() && DataSet()->State() == db::dsBrowse;
}

void TjexnpEdit::ExecuteAction() {
    DataSet()->Edit();
}

JEX_IMPLEMENT_CLASS(TjexnpDataSourceEdit, TjexCustomnpBtn, "jexnav") {
    d.Property("AllowAllUp", &TjexnpDataSourceEdit::AllowAllUp, &TjexnpDataSourceEdit::SetAllowAllUp)
        .Default(false);
    d.Property("DataSource", &TjexnpDataSourceEdit::OwnDataSource, &TjexnpDataSourceEdit::SetOwnDataSource);
    d.Property("DataView", &TjexnpDataSourceEdit::DataView, &TjexnpDataSourceEdit::SetDataView)
        .Default(jdvSingleRecord);
    d.Property("FormName", &TjexnpDataSourceEdit::FormName, &TjexnpDataSourceEdit::SetFormName);
    d.Property("ModalAction", &TjexnpDataSourceEdit::ModalAction, &TjexnpDataSourceEdit::SetModalAction)
        .Default(true);
    d.Property("ModalAutoPost", &TjexnpDataSourceEdit::ModalAutoPost, &TjexnpDataSourceEdit::SetModalAutoPost)
        .Default(true);
    d.Property("PopupFormStyle", &TjexnpDataSourceEdit::PopupFormStyle,
               &TjexnpDataSourceEdit::SetPopupFormStyle)
        .Default(jpfNormal);
}

db::TDataSource* TjexnpDataSourceEdit::DataSource() const {
    return FDataSource ? FDataSource : TjexCustomnpBtn::DataSource();
}

void TjexnpDataSourceEdit::SetOwnDataSource(db::TDataSource* Value) {
    SetReference<db::TDataSource>(this, FDataSource, Value);
}

std::string TjexnpDataSourceEdit::ShownHint() const {
    db::TDataSource* ds = DataSource();
    std::string name = ds ? ds->Name() : std::string();
    return rtl::StringReplaceAll(Hint(), "%datasource%", name);
}

bool TjexnpDataSourceEdit::ActionEnabled() const {
    return DataSource() != nullptr && !FFormName.empty();
}

void TjexnpDataSourceEdit::ExecuteAction() {
    FLastResult = jexShowFormByName(FFormName, FModalAction);
    db::TDataSet* ds = DataSet();
    if (FModalAction && FModalAutoPost && Editing(ds)) {
        if (FLastResult == mrOk)
            ds->Post();
        else
            ds->Cancel();
    }
}

void TjexnpDataSourceEdit::Describe(TControlDesc& d) const {
    TjexCustomnpBtn::Describe(d);
    d.Hint = ShownHint();
}

void TjexnpDataSourceEdit::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TjexCustomnpBtn::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FDataSource) FDataSource = nullptr;
}

JEX_IMPLEMENT_CLASS(TjexBlobEditForm, TForm, "jexnav") {}

TjexBlobEditForm::TjexBlobEditForm(rtl::TComponent* AOwner) : TForm(AOwner) {
    SetName("jexBlobEditForm");
    SetCaption("Edit Memo");
    SetBorderStyle(bsSizeable);
    SetPosition(poScreenCenter);
    SetClientWidth(400);
    SetClientHeight(300);
    memBlob = new TMemo(this);
    memBlob->SetName("memBlob");
    memBlob->SetParent(this);
    memBlob->SetBounds(8, 8, 384, 248);
    btnOK = new TButton(this);
    btnOK->SetName("btnOK");
    btnOK->SetParent(this);
    btnOK->SetCaption("OK");
    btnOK->SetDefault(true);
    btnOK->SetModalResult(mrOk);
    btnOK->SetBounds(236, 266, 75, 25);
    btnCancel = new TButton(this);
    btnCancel->SetName("btnCancel");
    btnCancel->SetParent(this);
    btnCancel->SetCaption("Cancel");
    btnCancel->SetCancel(true);
    btnCancel->SetModalResult(mrCancel);
    btnCancel->SetBounds(317, 266, 75, 25);
}

JEX_IMPLEMENT_CLASS(TjexnpBlobEdit, TjexCustomnpBtn, "jexnav") {
    d.Property("AutoEdit", &TjexnpBlobEdit::AutoEdit, &TjexnpBlobEdit::SetAutoEdit).Default(true);
    d.Property("EditBlobAs", &TjexnpBlobEdit::EditBlobAs, &TjexnpBlobEdit::SetEditBlobAs).Default(jebAuto);
    d.Property("PopupFormStyle", &TjexnpBlobEdit::PopupFormStyle, &TjexnpBlobEdit::SetPopupFormStyle)
        .Default(jpfNormal);
}

db::TField* TjexnpBlobEdit::BlobField() const {
    db::TDataSet* ds = DataSet();
    if (!ds) return nullptr;
    if (IjexNavHost* host = NavHost())
        if (db::TField* f = ds->FindField(host->NavFieldName()); f && f->IsBlob()) return f;
    for (int i = 0; i < ds->FieldCount(); ++i)
        if (auto* f = dynamic_cast<db::TMemoField*>(ds->Fields()->Fields(i))) return f;
    return nullptr;
}

bool TjexnpBlobEdit::ActionEnabled() const {
    return Linked() && !DataSet()->IsEmpty() && BlobField() != nullptr;
}

void TjexnpBlobEdit::ExecuteAction() {
    db::TField* field = BlobField();
    if (FEditBlobAs == jebGraphic || dynamic_cast<db::TGraphicField*>(field)) {
        ShowMessage("Graphic fields cannot be edited here");
        return;
    }
    db::TDataSet* ds = DataSet();
    auto* form = NewForm<TjexBlobEditForm>(nullptr);
    try {
        form->SetCaption("Edit " + field->DisplayName());
        form->memBlob->SetText(field->AsString());
        form->memBlob->SetReadOnly(!field->CanModify() || (!FAutoEdit && !Editing(ds)));
        if (form->ShowModal() == mrOk && form->memBlob->Modified()) {
            if (!Editing(ds)) ds->Edit();
            field->SetAsString(form->memBlob->Text());
        }
    } catch (...) {
        form->Free();
        throw;
    }
    form->Free();
}

JEX_IMPLEMENT_CLASS(TjexnpFindReplace, TjexCustomnpBtn, "jexnav") {
    d.Property("FindText", &TjexnpFindReplace::FindText, &TjexnpFindReplace::SetFindText);
    d.Property("OptionsFind", &TjexnpFindReplace::OptionsFind, &TjexnpFindReplace::SetOptionsFind).Default(0);
    d.Property("OptionsReplace", &TjexnpFindReplace::OptionsReplace, &TjexnpFindReplace::SetOptionsReplace)
        .Default(0);
    d.Property("ReplaceText", &TjexnpFindReplace::ReplaceText, &TjexnpFindReplace::SetReplaceText);
}

bool TjexnpFindReplace::Matches(const std::string& Value) const {
    if (FFindText.empty()) return false;
    bool exact = FOptionsFind.Contains(jfoMatchCase);
    std::string v = exact ? Value : rtl::UpperCase(Value);
    std::string f = exact ? FFindText : rtl::UpperCase(FFindText);
    return FOptionsFind.Contains(jfoWholeField) ? v == f : v.find(f) != std::string::npos;
}

std::vector<db::TField*> TjexnpFindReplace::SearchFields() const {
    std::vector<db::TField*> fields;
    db::TDataSet* ds = DataSet();
    if (!ds) return fields;
    if (!FOptionsFind.Contains(jfoAllFields))
        if (IjexNavHost* host = NavHost())
            if (db::TField* f = ds->FindField(host->NavFieldName())) return {f};
    for (int i = 0; i < ds->FieldCount(); ++i)
        if (db::TField* f = ds->Fields()->Fields(i); !f->IsBlob() || dynamic_cast<db::TMemoField*>(f))
            fields.push_back(f);
    return fields;
}

bool TjexnpFindReplace::FindNext() {
    db::TDataSet* ds = DataSet();
    if (!ds || !ds->Active() || ds->IsEmpty()) return false;
    ds->CheckBrowseMode();
    db::TBookmark start = ds->GetBookmark();
    std::vector<db::TField*> fields = SearchFields();
    if (FOptionsFind.Contains(jfoFromStart))
        ds->First();
    else
        ds->Next();
    for (; !ds->Eof(); ds->Next())
        for (db::TField* f : fields)
            if (Matches(f->AsString())) return true;
    // One more look at the last record, which Next leaves as the current one at the end.
    if (!ds->IsEmpty())
        for (db::TField* f : fields)
            if (Matches(f->AsString()) && ds->GetBookmark() != start) return true;
    ds->GotoBookmark(start);
    return false;
}

int TjexnpFindReplace::ReplaceAll() {
    db::TDataSet* ds = DataSet();
    if (!ds || !ds->Active() || FFindText.empty()) return 0;
    ds->CheckBrowseMode();
    std::vector<db::TField*> fields = SearchFields();
    int count = 0;
    bool exact = FOptionsFind.Contains(jfoMatchCase);
    ds->DisableControls();
    try {
        for (ds->First(); !ds->Eof(); ds->Next()) {
            bool changed = false;
            for (db::TField* f : fields) {
                std::string value = f->AsString();
                if (!Matches(value) || !f->CanModify()) continue;
                std::string replaced;
                if (FOptionsFind.Contains(jfoWholeField)) {
                    replaced = FReplaceText;
                } else {
                    std::string hay = exact ? value : rtl::UpperCase(value);
                    std::string needle = exact ? FFindText : rtl::UpperCase(FFindText);
                    size_t pos = 0, from = 0;
                    while ((pos = hay.find(needle, from)) != std::string::npos) {
                        replaced += value.substr(from, pos - from) + FReplaceText;
                        from = pos + needle.size();
                    }
                    replaced += value.substr(from);
                }
                if (!changed) ds->Edit();
                f->SetAsString(replaced);
                changed = true;
                ++count;
            }
            if (changed) ds->Post();
        }
    } catch (...) {
        if (Editing(ds)) ds->Cancel();
        ds->EnableControls();
        throw;
    }
    ds->EnableControls();
    return count;
}

void TjexnpFindReplace::ExecuteAction() {
    std::string text = FFindText;
    if (!InputQuery("Find", "Text to find:", text)) return;
    FFindText = text;
    if (FOptionsReplace.Contains(jroReplaceAll)) {
        int n = ReplaceAll();
        ShowMessage(std::to_string(n) + " value(s) replaced");
    } else if (!FindNext()) {
        ShowMessage("Text not found: " + FFindText);
    }
}

JEX_IMPLEMENT_CLASS(TjexnpDelete, TjexCustomnpBtn, "jexnav") {
    d.Property("Confirm", &TjexnpDelete::Confirm, &TjexnpDelete::SetConfirm).Default(true);
}

bool TjexnpDelete::ActionEnabled() const {
    return Linked() && DataSet()->CanModify() && !DataSet()->IsEmpty();
}

void TjexnpDelete::ExecuteAction() {
    if (ConfirmAction("Delete record?")) DataSet()->Delete();
}

JEX_IMPLEMENT_CLASS(TjexnpCancel, TjexCustomnpBtn, "jexnav") {}

bool TjexnpCancel::ActionEnabled() const {
    return Linked() && Editing(DataSet());
}

void TjexnpCancel::ExecuteAction() {
    DataSet()->Cancel();
}

JEX_IMPLEMENT_CLASS(TjexnpPost, TjexCustomnpBtn, "jexnav") {}

bool TjexnpPost::ActionEnabled() const {
    return Linked() && Editing(DataSet());
}

void TjexnpPost::ExecuteAction() {
    DataSet()->Post();
}

JEX_IMPLEMENT_CLASS(TjexnpRefresh, TjexCustomnpBtn, "jexnav") {}

void TjexnpRefresh::ExecuteAction() {
    DataSet()->Refresh();
}

JEX_IMPLEMENT_CLASS(TjexnpEmptyTable, TjexCustomnpBtn, "jexnav") {
    d.Property("Confirm", &TjexnpEmptyTable::Confirm, &TjexnpEmptyTable::SetConfirm).Default(true);
    d.Property("ConfirmMsg", &TjexnpEmptyTable::ConfirmMsg, &TjexnpEmptyTable::SetConfirmMsg);
}

TjexnpEmptyTable::TjexnpEmptyTable(rtl::TComponent* AOwner) : TjexCustomnpBtn(AOwner) {
    FConfirm = true;
}

bool TjexnpEmptyTable::ActionEnabled() const {
    return Linked() && DataSet()->CanModify() && dynamic_cast<db::TTable*>(DataSet()) != nullptr;
}

void TjexnpEmptyTable::ExecuteAction() {
    auto* table = dynamic_cast<db::TTable*>(DataSet());
    std::string question =
        FConfirmMsg.empty() ? "Delete all records in " + table->TableName() + "?" : FConfirmMsg;
    if (ConfirmAction(question)) table->EmptyTable();
}

JEX_IMPLEMENT_CLASS(TjexnpBookmark, TjexCustomnpBtn, "jexnav") {
    PublishHints(d);
}

void TjexnpBookmark::UserClick() {
    if (!IsDesigning() && !Linked()) {
        FSounds.PlayDown();
        TjexCustomPicSpeedBtn::Click();
        return;
    }
    TjexCustomnpBtn::UserClick();
}

void TjexnpBookmark::ExecuteAction() {
    db::TDataSet* ds = DataSet();
    if (Down()) {
        FBookmark = ds->GetBookmark();
    } else {
        db::TBookmark mark;
        mark.swap(FBookmark);
        if (!mark.empty() && ds->BookmarkValid(mark)) ds->GotoBookmark(mark);
    }
}

JEX_IMPLEMENT_CLASS(TjexnpBookmarkMenu, TjexCustomnpBtn, "jexnav") {
    d.Property("BreakAtItem", &TjexnpBookmarkMenu::BreakAtItem, &TjexnpBookmarkMenu::SetBreakAtItem)
        .Default(0);
    d.Property("LabelByIndexVals", &TjexnpBookmarkMenu::LabelByIndexVals,
               &TjexnpBookmarkMenu::SetLabelByIndexVals)
        .Default(false);
    d.Property("MenuAlign", &TjexnpBookmarkMenu::MenuAlign, &TjexnpBookmarkMenu::SetMenuAlign)
        .Default(paLeft);
    d.Property("MenuStrings", &TjexnpBookmarkMenu::MenuStrings, &TjexnpBookmarkMenu::SetMenuStrings);
}

TjexnpBookmarkMenu::TjexnpBookmarkMenu(rtl::TComponent* AOwner)
    : TjexCustomnpBtn(AOwner), FMenuStrings(std::make_unique<rtl::TStringList>()) {
    FMenuStrings->Add("&Add Bookmark");
    FMenuStrings->Add("&Clear Bookmarks");
    // The menu is the button's own, never part of the form's file.
    FMenu = new TPopupMenu(this);
}

TjexnpBookmarkMenu::~TjexnpBookmarkMenu() = default;

std::string TjexnpBookmarkMenu::BookmarkLabel(int Index) const {
    if (Index < 0 || Index >= BookmarkCount())
        throw rtl::EListError(rtl::Format(rtl::SListIndexError, {Index}));
    return FBookmarks[Index].Label;
}

void TjexnpBookmarkMenu::AddBookmark() {
    db::TDataSet* ds = DataSet();
    if (!ds || !ds->Active() || ds->IsEmpty()) return;
    TMark mark{ds->GetBookmark(), "Record " + std::to_string(ds->RecNo())};
    if (FLabelByIndexVals) {
        db::TField* key = nullptr;
        if (auto* table = dynamic_cast<db::TTable*>(ds); table && table->IndexFieldCount() > 0)
            key = table->IndexFields(0);
        if (!key && ds->FieldCount() > 0) key = ds->Fields()->Fields(0);
        if (key) mark.Label = key->AsString();
    }
    FBookmarks.push_back(std::move(mark));
}

void TjexnpBookmarkMenu::GotoBookmark(int Index) {
    if (Index < 0 || Index >= BookmarkCount())
        throw rtl::EListError(rtl::Format(rtl::SListIndexError, {Index}));
    db::TDataSet* ds = DataSet();
    if (ds && ds->Active() && ds->BookmarkValid(FBookmarks[Index].Bookmark))
        ds->GotoBookmark(FBookmarks[Index].Bookmark);
}

void TjexnpBookmarkMenu::ClearBookmarks() {
    FBookmarks.clear();
}

void TjexnpBookmarkMenu::BuildMenu() {
    FMenu->Items()->Clear();
    auto add = [&](const std::string& caption, std::function<void()> action) {
        auto* item = new TMenuItem(this);
        item->SetCaption(caption);
        if (action) item->OnClick = [action](rtl::TObject*) { action(); };
        FMenu->Items()->Add(item);
        return item;
    };
    add(FMenuStrings->Count() > 0 ? (*FMenuStrings)[0] : "&Add Bookmark", [this] { AddBookmark(); });
    add(FMenuStrings->Count() > 1 ? (*FMenuStrings)[1] : "&Clear Bookmarks", [this] { ClearBookmarks(); });
    if (!FBookmarks.empty()) add(cLineCaption, nullptr);
    for (int i = 0; i < BookmarkCount(); ++i)
        add(FBookmarks[i].Label, [this, i] { GotoBookmark(i); });
    FMenu->SetAlignment(FMenuAlign);
}

void TjexnpBookmarkMenu::ExecuteAction() {
    BuildMenu();
    FMenu->SetPopupComponent(this);
    TPoint p = ClientToScreen(Point(0, Height()));
    FMenu->Popup(p.X, p.Y);
}

JEX_IMPLEMENT_CLASS(TjexnpDialogBtn, TjexCustomnpBtn, "jexnav") {}

std::string TjexnpDialogBtn::KeyFieldName() const {
    db::TDataSet* ds = DataSet();
    if (!ds) return {};
    if (IjexNavHost* host = NavHost(); host && !host->NavFieldName().empty()) return host->NavFieldName();
    if (auto* table = dynamic_cast<db::TTable*>(ds); table && ds->Active() && table->IndexFieldCount() > 0)
        return table->IndexFields(0)->FieldName();
    return ds->FieldCount() > 0 ? ds->Fields()->Fields(0)->FieldName() : std::string();
}

JEX_IMPLEMENT_CLASS(TjexnpFindKey, TjexnpDialogBtn, "jexnav") {
    PublishDialogHelp(d);
}

bool TjexnpFindKey::FindKey(const std::string& Value) {
    db::TDataSet* ds = DataSet();
    db::TField* field = ds ? ds->FindField(KeyFieldName()) : nullptr;
    if (!field) return false;
    ds->CheckBrowseMode();
    if (ds->Locate(field->FieldName(), {ValueForField(field, Value)},
                   db::TLocateOptions{db::loCaseInsensitive}))
        return true;
    ShowMessage("Record not found: " + Value);
    return false;
}

void TjexnpFindKey::ExecuteAction() {
    std::string field = KeyFieldName(), value;
    if (field.empty()) return;
    if (InputQuery("Find Key", "Value of " + field + ":", value)) FindKey(value);
}

bool jexApplyRange(db::TDataSet* DataSet, const std::string& Field, const std::string& From,
                   const std::string& To) {
    if (!DataSet) return false;
    std::string from = rtl::Trim(From), to = rtl::Trim(To);
    if (from.empty() && to.empty()) {
        jexCancelRange(DataSet);
        return false;
    }
    db::TField* field = DataSet->FindField(Field);
    auto* table = dynamic_cast<db::TTable*>(DataSet);
    if (table && table->Active() && table->IndexFieldCount() > 0 && !from.empty() && !to.empty() &&
        (!field || field == table->IndexFields(0))) {
        db::TField* key = table->IndexFields(0);
        table->SetRange({ValueForField(key, from)}, {ValueForField(key, to)});
        return true;
    }
    if (!field) throw db::EDatabaseError(rtl::Format(db::SFieldNotFound, {Field}));
    std::string expr;
    if (!from.empty()) expr = Field + " >= " + FilterLiteral(field, from);
    if (!to.empty()) expr += (expr.empty() ? "" : " AND ") + Field + " <= " + FilterLiteral(field, to);
    DataSet->SetFilter(expr);
    DataSet->SetFiltered(true);
    return true;
}

void jexCancelRange(db::TDataSet* DataSet) {
    if (!DataSet) return;
    if (auto* table = dynamic_cast<db::TTable*>(DataSet); table && table->Active()) table->CancelRange();
    if (DataSet->Filtered()) {
        DataSet->SetFiltered(false);
        DataSet->SetFilter("");
    }
}

JEX_IMPLEMENT_CLASS(TjexnpRange, TjexnpDialogBtn, "jexnav") {
    PublishDialogHelp(d);
}

void TjexnpRange::ExecuteAction() {
    db::TDataSet* ds = DataSet();
    if (FRangeActive) {
        jexCancelRange(ds);
        FRangeActive = false;
        return;
    }
    std::string field = KeyFieldName(), text;
    if (field.empty() || !InputQuery("Range", "Range of " + field + " (from-to):", text)) return;
    size_t sep = text.find('-', text.empty() ? 0 : 1); // a leading '-' is a sign
    std::string from = sep == std::string::npos ? text : text.substr(0, sep);
    std::string to = sep == std::string::npos ? text : text.substr(sep + 1);
    FRangeActive = jexApplyRange(ds, field, from, to);
    if (FRangeActive) ds->First();
}

JEX_IMPLEMENT_CLASS(TjexnpFilterBtn, TjexCustomnpBtn, "jexnav") {
    d.Property("FilterOptions", &TjexnpFilterBtn::FilterOptions, &TjexnpFilterBtn::SetFilterOptions)
        .Default(0);
    d.Property("GoToFirst", &TjexnpFilterBtn::GoToFirst, &TjexnpFilterBtn::SetGoToFirst).Default(true);
    PublishHints(d);
}

void TjexnpFilterBtn::UserClick() {
    // Without an open data set, or with nothing to filter by, the button does not go down.
    if (!IsDesigning() && (!Linked() || (!Down() && FilterText().empty()))) {
        FSounds.PlayDown();
        TjexCustomPicSpeedBtn::Click();
        return;
    }
    TjexCustomnpBtn::UserClick();
}

void TjexnpFilterBtn::ExecuteAction() {
    db::TDataSet* ds = DataSet();
    if (Down()) {
        FSavedFilter = ds->Filter();
        FSavedFiltered = ds->Filtered();
        ds->SetFilterOptions(FFilterOptions);
        ds->SetFilter(FilterText());
        ds->SetFiltered(true);
    } else {
        ds->SetFilter(FSavedFilter);
        ds->SetFiltered(FSavedFiltered);
    }
    if (FGoToFirst) ds->First();
}

JEX_IMPLEMENT_CLASS(TjexnpFilterActive, TjexnpFilterBtn, "jexnav") {}

bool TjexnpFilterActive::ActionEnabled() const {
    return Linked() && (!Down() || !FilterText().empty());
}

std::string TjexnpFilterActive::FilterText() const {
    db::TDataSet* ds = DataSet();
    IjexNavHost* host = NavHost();
    if (!ds || !ds->Active() || !host || ds->IsEmpty()) return {};
    db::TField* f = ds->FindField(host->NavFieldName());
    if (!f || f->IsBlob()) return {};
    if (f->Value().IsNull()) return f->FieldName() + " IS NULL";
    return f->FieldName() + " = " + FilterLiteral(f, f->AsString());
}

JEX_IMPLEMENT_CLASS(TjexnpFilterExpression, TjexnpFilterBtn, "jexnav") {
    d.Property("AllowEdit", &TjexnpFilterExpression::AllowEdit, &TjexnpFilterExpression::SetAllowEdit)
        .Default(true);
    d.Property("Filter", &TjexnpFilterExpression::Filter, &TjexnpFilterExpression::SetFilter);
}

bool TjexnpFilterExpression::ActionEnabled() const {
    return Linked() && (!Down() || !FFilter.empty());
}

void TjexnpFilterExpression::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    TjexnpFilterBtn::MouseDown(Button, Shift, X, Y);
    if (Button != mbRight || !FAllowEdit || IsDesigning()) return;
    std::string text = FFilter;
    if (!InputQuery("Filter", "Filter expression:", text)) return;
    FFilter = text;
    // A filter in force follows the edit at once.
    if (Down() && Linked()) DataSet()->SetFilter(FFilter);
}

JEX_IMPLEMENT_CLASS(TjexnpSQLBtn, TjexCustomnpBtn, "jexnav") {}

db::TDatabase* TjexnpSQLBtn::Database() const {
    auto* ds = dynamic_cast<db::TDBDataSet*>(DataSet());
    return ds ? ds->Database() : nullptr;
}

JEX_IMPLEMENT_CLASS(TjexnpSQLStartTrans, TjexnpSQLBtn, "jexnav") {}

bool TjexnpSQLStartTrans::ActionEnabled() const {
    db::TDatabase* db = Database();
    return db && !db->InTransaction();
}

void TjexnpSQLStartTrans::ExecuteAction() {
    Database()->StartTransaction();
}

JEX_IMPLEMENT_CLASS(TjexnpSQLCommit, TjexnpSQLBtn, "jexnav") {
    d.Property("Confirm", &TjexnpSQLCommit::Confirm, &TjexnpSQLCommit::SetConfirm).Default(true);
}

bool TjexnpSQLCommit::ActionEnabled() const {
    db::TDatabase* db = Database();
    return db && db->InTransaction();
}

void TjexnpSQLCommit::ExecuteAction() {
    if (!ConfirmAction("Commit all changes made since the transaction started?")) return;
    DataSet()->CheckBrowseMode();
    Database()->Commit();
}

JEX_IMPLEMENT_CLASS(TjexnpSQLRollback, TjexnpSQLBtn, "jexnav") {
    d.Property("Confirm", &TjexnpSQLRollback::Confirm, &TjexnpSQLRollback::SetConfirm).Default(true);
}

bool TjexnpSQLRollback::ActionEnabled() const {
    db::TDatabase* db = Database();
    return db && db->InTransaction();
}

void TjexnpSQLRollback::ExecuteAction() {
    if (!ConfirmAction("Undo all changes made since the transaction started?")) return;
    db::TDataSet* ds = DataSet();
    if (Editing(ds)) ds->Cancel();
    Database()->Rollback();
    ds->Refresh();
}

JEX_IMPLEMENT_CLASS(TjexnpQueryParams, TjexnpDialogBtn, "jexnav") {
    PublishDialogHelp(d);
}

bool TjexnpQueryParams::ActionEnabled() const {
    auto* query = dynamic_cast<db::TQuery*>(DataSet());
    return query && query->ParamCount() > 0;
}

void TjexnpQueryParams::ExecuteAction() {
    auto* query = dynamic_cast<db::TQuery*>(DataSet());
    std::vector<std::string> values;
    for (int i = 0; i < query->ParamCount(); ++i) {
        auto* param = static_cast<db::TParam*>(query->Params()->Items(i));
        std::string value = param->AsString();
        if (!InputQuery("Query Params", param->Name() + ":", value)) return;
        values.push_back(value);
    }
    query->Close();
    for (int i = 0; i < query->ParamCount(); ++i)
        static_cast<db::TParam*>(query->Params()->Items(i))->SetAsString(values[i]);
    query->Open();
}

JEX_IMPLEMENT_CLASS(TjexnpDBInfo, TjexCustomnpBtn, "jexnav") {}

std::string TjexnpDBInfo::InfoText() const {
    db::TDataSource* src = DataSource();
    if (!src) return "No data source";
    std::string text = "DataSource: " + src->Name();
    db::TDataSet* ds = src->DataSet();
    if (!ds) return text + "\r\nDataSet: (none)";
    text += "\r\nDataSet: " + ds->Name() + " (" + ds->ClassName() + ")";
    if (auto* dbds = dynamic_cast<db::TDBDataSet*>(ds)) text += "\r\nDatabaseName: " + dbds->DatabaseName();
    if (auto* table = dynamic_cast<db::TTable*>(ds)) {
        text += "\r\nTableName: " + table->TableName();
        if (!table->IndexName().empty()) text += "\r\nIndexName: " + table->IndexName();
    }
    text += "\r\nState: " + StateName(ds->State());
    if (ds->Active()) {
        text += "\r\nRecord: " + std::to_string(ds->RecNo()) + " of " + std::to_string(ds->RecordCount());
        if (ds->Filtered()) text += "\r\nFilter: " + ds->Filter();
        std::string fields;
        for (int i = 0; i < ds->FieldCount(); ++i)
            fields += (i ? ", " : "") + ds->Fields()->Fields(i)->FieldName();
        text += "\r\nFields: " + fields;
    }
    return text;
}

void TjexnpDBInfo::ExecuteAction() {
    MessageDlg(InfoText(), mtInformation, TMsgDlgButtons{mbOK}, 0);
}

// ---- Index combo, range edit, labels -------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexnpIndexCombo, TComboBox, "jexnav") {
    d.Property("AutoLoadItems", &TjexnpIndexCombo::AutoLoadItems, &TjexnpIndexCombo::SetAutoLoadItems)
        .Default(true);
    d.Property("GoToFirst", &TjexnpIndexCombo::GoToFirst, &TjexnpIndexCombo::SetGoToFirst).Default(true);
    d.Property("TableIndexItems", &TjexnpIndexCombo::TableIndexItems, &TjexnpIndexCombo::SetTableIndexItems);
}

TjexnpIndexCombo::TjexnpIndexCombo(rtl::TComponent* AOwner)
    : TComboBox(AOwner), FTableIndexItems(std::make_unique<rtl::TStringList>()) {
    SetStyle(csDropDownList);
}

TjexnpIndexCombo::~TjexnpIndexCombo() = default;

db::TTable* TjexnpIndexCombo::Table() const {
    IjexNavHost* host = jexNavHostOf(this);
    db::TDataSource* src = host ? host->NavDataSource() : nullptr;
    return src ? dynamic_cast<db::TTable*>(src->DataSet()) : nullptr;
}

std::string TjexnpIndexCombo::IndexNameOf(int Index) const {
    return Index >= 0 && Index < static_cast<int>(FIndexNames.size()) ? FIndexNames[Index] : std::string();
}

void TjexnpIndexCombo::LoadItemsFromDataSet() {
    db::TTable* table = Table();
    if (!table) return;
    rtl::TStringList names;
    table->GetIndexNames(&names);
    std::vector<std::string> captions, indexes;
    if (FTableIndexItems->Count() > 0) {
        for (int i = 0; i < FTableIndexItems->Count(); ++i) {
            std::string line = (*FTableIndexItems)[i];
            size_t eq = line.find('=');
            std::string caption = eq == std::string::npos ? line : line.substr(0, eq);
            std::string index = eq == std::string::npos ? line : line.substr(eq + 1);
            if (names.IndexOf(index) < 0) continue;
            captions.push_back(caption);
            indexes.push_back(index);
        }
    } else {
        for (int i = 0; i < names.Count(); ++i) {
            captions.push_back(names[i]);
            indexes.push_back(names[i]);
        }
    }
    Items()->BeginUpdate();
    Items()->Clear();
    for (const std::string& c : captions)
        Items()->Add(c);
    Items()->EndUpdate();
    FIndexNames = indexes;
    int current = -1;
    for (size_t i = 0; i < FIndexNames.size(); ++i)
        if (rtl::SameText(FIndexNames[i], table->IndexName())) current = static_cast<int>(i);
    SetItemIndex(current);
}

void TjexnpIndexCombo::Click() {
    if (!IsDesigning())
        if (db::TTable* table = Table(); table && ItemIndex() >= 0) {
            std::string index = IndexNameOf(ItemIndex());
            if (index.empty()) index = Items()->Get(ItemIndex());
            table->SetIndexName(index);
            if (FGoToFirst && table->Active()) table->First();
        }
    TComboBox::Click();
}

void TjexnpIndexCombo::Loaded() {
    TComboBox::Loaded();
    if (!FAutoLoadItems || IsDesigning()) return;
    try {
        LoadItemsFromDataSet();
    } catch (const rtl::Exception&) {
        // A table that cannot list its indexes yet leaves the list as the form file had it.
    }
}

JEX_IMPLEMENT_CLASS(TjexnpRangeEdit, TEdit, "jexnav") {
    d.Property("GoToFirst", &TjexnpRangeEdit::GoToFirst, &TjexnpRangeEdit::SetGoToFirst).Default(true);
    d.Property("Separator", &TjexnpRangeEdit::Separator, &TjexnpRangeEdit::SetSeparator);
}

TjexnpRangeEdit::TjexnpRangeEdit(rtl::TComponent* AOwner) : TEdit(AOwner) {
    FWidth = 80;
}

bool TjexnpRangeEdit::ApplyRange() {
    IjexNavHost* host = jexNavHostOf(this);
    db::TDataSource* src = host ? host->NavDataSource() : nullptr;
    db::TDataSet* ds = src ? src->DataSet() : nullptr;
    if (!ds || !ds->Active()) return false;
    std::string field = host->NavFieldName();
    if (field.empty()) {
        if (auto* table = dynamic_cast<db::TTable*>(ds); table && table->IndexFieldCount() > 0)
            field = table->IndexFields(0)->FieldName();
        else if (ds->FieldCount() > 0)
            field = ds->Fields()->Fields(0)->FieldName();
    }
    std::string text = Text();
    std::string sep = FSeparator.empty() ? "-" : FSeparator;
    size_t at = text.find(sep, text.empty() ? 0 : 1);
    std::string from = at == std::string::npos ? text : text.substr(0, at);
    std::string to = at == std::string::npos ? text : text.substr(at + sep.size());
    bool active = jexApplyRange(ds, field, from, to);
    if (FGoToFirst) ds->First();
    return active || rtl::Trim(text).empty();
}

void TjexnpRangeEdit::KeyDown(uint16_t& Key, TShiftState Shift) {
    TEdit::KeyDown(Key, Shift);
    if (Key == VK_RETURN) {
        ApplyRange();
        Key = 0;
    }
}

JEX_IMPLEMENT_CLASS(TjexnpDBLabel, TjexCustomLabel, "jexnav") {
    pub::Label(d, false, true);
    d.Property("DisabledCaption", &TjexnpDBLabel::DisabledCaption, &TjexnpDBLabel::SetDisabledCaption);
    d.Property("Mask", &TjexnpDBLabel::Mask, &TjexnpDBLabel::SetMask);
}

db::TDataSet* TjexnpDBLabel::DataSet() const {
    IjexNavHost* host = jexNavHostOf(this);
    db::TDataSource* src = host ? host->NavDataSource() : nullptr;
    return src ? src->DataSet() : nullptr;
}

JEX_IMPLEMENT_CLASS(TjexnpState, TjexnpDBLabel, "jexnav") {
    d.Property("States", &TjexnpState::States, &TjexnpState::SetStates);
}

TjexnpState::TjexnpState(rtl::TComponent* AOwner)
    : TjexnpDBLabel(AOwner), FStates(std::make_unique<rtl::TStringList>()) {
    FDisabledCaption = "Inactive";
    FMask = "%s";
    for (const char* s : {"Inactive", "Browse", "Edit", "Insert", "SetKey", "CalcFields", "Filter",
                          "NewValue", "OldValue", "CurValue", "BlockRead", "InternalCalc", "Opening"})
        FStates->Add(s);
}

TjexnpState::~TjexnpState() = default;

std::string TjexnpState::ShownText() const {
    db::TDataSet* ds = DataSet();
    if (!ds || !ds->Active()) return FDisabledCaption;
    int s = static_cast<int>(ds->State());
    std::string name = s < FStates->Count() ? (*FStates)[s] : StateName(ds->State());
    try {
        return rtl::Format(FMask, {name});
    } catch (const rtl::EConvertError&) {
        return FMask;
    }
}

JEX_IMPLEMENT_CLASS(TjexnpRecordCount, TjexnpDBLabel, "jexnav") {}

TjexnpRecordCount::TjexnpRecordCount(rtl::TComponent* AOwner) : TjexnpDBLabel(AOwner) {
    FDisabledCaption = "Inactive";
    FMask = "%d of %d";
}

std::string TjexnpRecordCount::ShownText() const {
    db::TDataSet* ds = DataSet();
    if (!ds || !ds->Active()) return FDisabledCaption;
    try {
        return rtl::Format(FMask, {ds->RecNo(), ds->RecordCount()});
    } catch (const rtl::EConvertError&) {
        return FMask;
    }
}

// ---- Data-aware toolbar edit -----------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexToolbarDBEdit, TjexToolbarEdit, "jexnav") {
    d.Property("DataField", &TjexToolbarDBEdit::DataField, &TjexToolbarDBEdit::SetDataField);
    d.Property("DataSource", &TjexToolbarDBEdit::DataSource, &TjexToolbarDBEdit::SetDataSource);
}

TjexToolbarDBEdit::TjexToolbarDBEdit(rtl::TComponent* AOwner)
    : TjexToolbarEdit(AOwner), FDataLink(std::make_unique<db::TFieldDataLink>()) {
    FDataLink->SetControl(this);
    FDataLink->OnDataChange = [this](rtl::TObject*) { DataChange(); };
    FDataLink->OnActiveChange = [this](rtl::TObject*) { DataChange(); };
    FDataLink->OnUpdateData = [this](rtl::TObject*) {
        if (db::TField* f = Field()) f->SetAsString(Text());
    };
}

TjexToolbarDBEdit::~TjexToolbarDBEdit() {
    FDataLink->OnDataChange = nullptr;
    FDataLink->OnActiveChange = nullptr;
    FDataLink->OnUpdateData = nullptr;
    FDataLink->SetDataSource(nullptr);
}

db::TDataSource* TjexToolbarDBEdit::DataSource() const {
    return FDataLink->DataSource();
}

void TjexToolbarDBEdit::SetDataSource(db::TDataSource* Value) {
    db::TDataSource* old = FDataLink->DataSource();
    if (old == Value) return;
    if (old) old->RemoveFreeNotification(this);
    FDataLink->SetDataSource(Value);
    if (Value) Value->FreeNotification(this);
}

std::string TjexToolbarDBEdit::DataField() const {
    return FDataLink->FieldName();
}

void TjexToolbarDBEdit::SetDataField(const std::string& Value) {
    FDataLink->SetFieldName(Value);
}

db::TField* TjexToolbarDBEdit::Field() const {
    return FDataLink->Field();
}

void TjexToolbarDBEdit::DataChange() {
    if (FUpdating) return;
    FUpdating = true;
    try {
        db::TField* f = Field();
        SetText(f ? f->AsString() : std::string());
        SetModified(false);
    } catch (...) {
        FUpdating = false;
        throw;
    }
    FUpdating = false;
}

void TjexToolbarDBEdit::EnterText(const std::string& Value) {
    if (Field()) {
        if (!FDataLink->CanModify() || !FDataLink->Edit())
            throw EUserActionError("'" + Name() + "' is read-only");
    }
    FUpdating = true;
    try {
        TjexToolbarEdit::EnterText(Value);
    } catch (...) {
        FUpdating = false;
        throw;
    }
    FUpdating = false;
    if (Field()) FDataLink->Modified();
}

void TjexToolbarDBEdit::DoExit() {
    if (Field() && Modified()) FDataLink->UpdateRecord();
    TjexToolbarEdit::DoExit();
}

void TjexToolbarDBEdit::Describe(TControlDesc& d) const {
    TjexToolbarEdit::Describe(d);
    if (DataSource() && !FDataLink->CanModify()) d.ReadOnly = true;
}

void TjexToolbarDBEdit::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TjexToolbarEdit::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FDataLink->DataSource())
        FDataLink->SetDataSource(nullptr);
}

static const TjexLibraryUnit<
    TjexNavToolbar, TjexNavPanel, TjexNavFormLink, TjexnpFirst, TjexnpJumpBack, TjexnpPrev, TjexnpNext,
    TjexnpJumpFwd, TjexnpLast, TjexnpInsert, TjexnpAppend, TjexnpDuplicateRec, TjexnpEdit,
    TjexnpDataSourceEdit, TjexnpBlobEdit, TjexnpFindReplace, TjexnpDelete, TjexnpCancel, TjexnpPost,
    TjexnpRefresh, TjexnpEmptyTable, TjexnpBookmark, TjexnpBookmarkMenu, TjexnpFindKey, TjexnpIndexCombo,
    TjexnpRange, TjexnpRangeEdit, TjexnpFilterActive, TjexnpFilterExpression, TjexnpSQLStartTrans,
    TjexnpSQLCommit, TjexnpSQLRollback, TjexnpQueryParams, TjexnpDBInfo, TjexnpState, TjexnpRecordCount,
    TjexToolbarDBEdit>
    jexnavUnit("jexnav");

} // namespace jex

#endif // JEX_HAVE_DB
