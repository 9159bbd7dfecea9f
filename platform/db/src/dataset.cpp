// TDataSet: opening and closing, the fields of the active record, navigation over the records that pass the
// scope and the filter, editing with the platform's states and events, bookmarks, and the notifications that
// keep data sources and their links up to date.
#include <algorithm>

#include "db/db.h"
#include "filterexpr.h"

namespace db {

using rtl::Format;

struct TDataSet::TFilterExpr {
    TFilterExpr(const std::string& text, const filter::TResolveField& resolve, TFilterOptions options)
        : Expr(text, resolve, options) {}
    filter::TExpression Expr;
};

JEX_IMPLEMENT_CLASS(TDataSet, TComponent, "DB") {}

TDataSet::TDataSet(TComponent* AOwner)
    : TComponent(AOwner), FFields(std::make_unique<TFields>(this)),
      FFieldDefs(std::make_unique<TFieldDefs>(this)) {
    FFieldDefs->PropName = "FieldDefs";
}

TDataSet::~TDataSet() {
    // Descendants close while they are whole (BeforeDestruction or their own destructor); this is the last
    // net.
    BeforeDestruction();
}

void TDataSet::BeforeDestruction() {
    if (!IsDestroying()) Destroying();
    if (FState != dsInactive) {
        try {
            CloseQuietly();
        } catch (...) {
        }
    }
    std::vector<TDataSource*> sources = FDataSources;
    for (TDataSource* s : sources)
        s->SetDataSet(nullptr);
    std::vector<TField*> fields = FFields->FList;
    FFields->FList.clear();
    for (TField* f : fields) {
        f->FDataSet = nullptr;
        if (f->Owner() == this) f->Free();
    }
    TComponent::BeforeDestruction();
}

void TDataSet::SetFieldDefs(TFieldDefs* Value) {
    if (Value)
        FFieldDefs->Assign(Value);
    else
        FFieldDefs->Clear();
}

void TDataSet::DatabaseError(const std::string& Message) const {
    if (!Name().empty()) throw EDatabaseError(Name() + ": " + Message);
    throw EDatabaseError(Message);
}

void TDataSet::CheckActive() const {
    if (FState == dsInactive) DatabaseError(SDataSetClosed);
}

void TDataSet::CheckInactive() const {
    if (FState != dsInactive) DatabaseError(SDataSetOpen);
}

void TDataSet::CheckCanModify() const {
    if (!CanModify()) DatabaseError(SDataSetReadOnly);
}

// ---- Opening ----------------------------------------------------------------------------------------------
void TDataSet::SetActive(bool Value) {
    if (IsLoading() || ComponentState().Contains(rtl::csReading)) {
        FStreamedActive = Value;
        return;
    }
    if (Value == Active()) return;
    if (Value) {
        BeforeOpen(this);
        OpenCursor();
        SetState(dsBrowse);
        AfterOpen(this);
        if (!FView.empty()) AfterScroll(this);
    } else {
        BeforeClose(this);
        CloseQuietly();
        AfterClose(this);
    }
}

void TDataSet::OpenCursor() {
    FState = dsOpening;
    try {
        InternalOpen();
        CreateFields();
        BindFields();
        if (FFiltered && !FFilter.empty()) ParseFilter();
        FCurrent = -1;
        RebuildView();
        FCurrent = FView.empty() ? -1 : 0;
        FBof = true;
        FEof = FView.empty();
    } catch (...) {
        FState = dsInactive;
        try {
            InternalClose();
        } catch (...) {
        }
        FRecords.clear();
        FView.clear();
        DestroyDynamicFields();
        FFilterExpr.reset();
        throw;
    }
}

void TDataSet::CloseQuietly() {
    if (FState == dsInactive) return;
    FEditBuffer.clear();
    SetState(dsInactive);
    FRecords.clear();
    FView.clear();
    FCurrent = -1;
    FBof = FEof = true;
    FFilterExpr.reset();
    DestroyDynamicFields();
    InternalClose();
}

void TDataSet::Loaded() {
    TComponent::Loaded();
    if (FStreamedActive) {
        FStreamedActive = false;
        try {
            SetActive(true);
        } catch (const rtl::Exception&) {
            // A form under design still loads when its data cannot be opened; it shows the data set closed.
            if (!IsDesigning()) throw;
        }
    }
}

void TDataSet::CreateFields() {
    if (!FFields->FList.empty()) {
        FDefaultFields = false;
        return;
    }
    FDefaultFields = true;
    for (int i = 0; i < FFieldDefs->Count(); ++i) {
        TFieldDef* def = FFieldDefs->Items(i);
        rtl::TClass cls = def->FieldClass();
        if (!cls) cls = TStringField::StaticClass();
        auto* f = static_cast<TField*>(cls->CreateComponent(this));
        f->FFieldName = def->Name();
        f->FDataType = def->DataType();
        f->FSize = def->Size();
        f->FRequired = def->Required() && def->DataType() != ftAutoInc;
        if (auto* fl = dynamic_cast<TFloatField*>(f); fl && def->Precision() > 0)
            fl->SetPrecision(def->Precision());
        AddField(f);
    }
}

void TDataSet::BindFields() {
    for (TField* f : FFields->FList) {
        f->FFieldNo = 0;
        if (f->FieldKind() != fkData) continue;
        int i = FFieldDefs->IndexOf(f->FieldName());
        if (i < 0) DatabaseError(Format(SFieldNotFound, {f->FieldName()}));
        f->FFieldNo = i + 1;
    }
}

void TDataSet::DestroyDynamicFields() {
    if (FDefaultFields) {
        std::vector<TField*> fields = FFields->FList;
        FFields->FList.clear();
        for (TField* f : fields) {
            f->FDataSet = nullptr;
            f->Free();
        }
    } else {
        for (TField* f : FFields->FList)
            f->FFieldNo = 0;
    }
}

void TDataSet::AddField(TField* Field) {
    FFields->FList.push_back(Field);
    Field->FDataSet = this;
    if (Field->Owner() != this) Field->FreeNotification(this);
}

void TDataSet::RemoveField(TField* Field) {
    auto& l = FFields->FList;
    l.erase(std::remove(l.begin(), l.end(), Field), l.end());
    Field->FDataSet = nullptr;
}

void TDataSet::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TComponent::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    if (auto* f = dynamic_cast<TField*>(AComponent); f && f->FDataSet == this) RemoveField(f);
    auto& s = FDataSources;
    s.erase(std::remove(s.begin(), s.end(), AComponent), s.end());
}

void TDataSet::GetFieldNames(TStrings* List) {
    if (!FFields->FList.empty()) {
        FFields->GetFieldNames(List);
        return;
    }
    if (!Active()) InternalInitFieldDefs();
    FFieldDefs->GetItemNames(List);
}

void TDataSet::GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) {
    for (TField* f : FFields->FList)
        if (f->Owner() == Root) Proc(f);
}

void TDataSet::SetState(TDataSetState Value) {
    if (FState == Value) return;
    FState = Value;
    FModified = false;
    DataEvent(deUpdateState, 0);
}

// ---- Records and the view ---------------------------------------------------------------------------------
void TDataSet::SetRecords(std::vector<std::unique_ptr<TRecordData>> Records) {
    FView.clear(); // it points into the records being replaced
    FRecords = std::move(Records);
    for (auto& r : FRecords)
        r->Serial = FNextSerial++;
}

bool TDataSet::PassesFilter(const TRecordData& Record) const {
    if (!RecordInScope(Record)) return false;
    if (!FFiltered) return true;
    if (FFilterExpr && !FFilterExpr->Expr.Matches(Record.Values)) return false;
    if (OnFilterRecord) {
        // The handler reads the candidate through the fields, as the platform's dsFilter state allows.
        auto* self = const_cast<TDataSet*>(this);
        TDataSetState saved = self->FState;
        std::vector<Variant> savedBuffer = std::move(self->FEditBuffer);
        self->FState = dsFilter;
        self->FEditBuffer = Record.Values;
        bool accept = true;
        try {
            OnFilterRecord(self, accept);
        } catch (...) {
            self->FState = saved;
            self->FEditBuffer = std::move(savedBuffer);
            throw;
        }
        self->FState = saved;
        self->FEditBuffer = std::move(savedBuffer);
        return accept;
    }
    return true;
}

void TDataSet::RebuildView() {
    uint64_t keep = FCurrent >= 0 && FCurrent < static_cast<int>(FView.size())
                        ? FView[static_cast<size_t>(FCurrent)]->Serial
                        : 0;
    int oldIndex = FCurrent;
    FView.clear();
    for (auto& r : FRecords)
        if (PassesFilter(*r)) FView.push_back(r.get());
    int found = keep ? IndexOfSerial(keep) : -1;
    if (found >= 0)
        FCurrent = found;
    else if (FView.empty())
        FCurrent = -1;
    else
        FCurrent = std::clamp(oldIndex, 0, static_cast<int>(FView.size()) - 1);
    if (FView.empty())
        FBof = FEof = true;
    else {
        if (FCurrent > 0) FBof = false;
        if (FCurrent < static_cast<int>(FView.size()) - 1) FEof = false;
    }
}

int TDataSet::IndexOfSerial(uint64_t serial) const {
    for (size_t i = 0; i < FView.size(); ++i)
        if (FView[i]->Serial == serial) return static_cast<int>(i);
    return -1;
}

TDataSet::TRecordData* TDataSet::ActiveRecordData() const {
    if (FCurrent < 0 || FCurrent >= static_cast<int>(FView.size())) return nullptr;
    return FView[static_cast<size_t>(FCurrent)];
}

void TDataSet::ParseFilter() {
    FFilterExpr.reset();
    if (FFilter.empty()) return;
    auto resolve = [this](const std::string& name, int& col, TFieldType& type) {
        int i = FFieldDefs->IndexOf(name);
        if (i < 0) return false;
        col = i;
        type = FFieldDefs->Items(i)->DataType();
        return true;
    };
    FFilterExpr = std::make_shared<TFilterExpr>(FFilter, resolve, FFilterOptions);
}

// ---- Field data -------------------------------------------------------------------------------------------
Variant TDataSet::GetFieldData(const TField* Field) const {
    CheckActive();
    int col = Field->FieldNo() - 1;
    if (col < 0) return Variant();
    if (FState == dsEdit || FState == dsInsert || FState == dsFilter)
        return col < static_cast<int>(FEditBuffer.size()) ? FEditBuffer[static_cast<size_t>(col)] : Variant();
    TRecordData* r = ActiveRecordData();
    if (!r || col >= static_cast<int>(r->Values.size())) return Variant();
    return r->Values[static_cast<size_t>(col)];
}

void TDataSet::SetFieldData(TField* Field, const Variant& Value) {
    CheckActive();
    if (FState != dsEdit && FState != dsInsert) DatabaseError(SNotEditing);
    int col = Field->FieldNo() - 1;
    if (col < 0 || col >= static_cast<int>(FEditBuffer.size())) return;
    Variant old = FEditBuffer[static_cast<size_t>(col)];
    FEditBuffer[static_cast<size_t>(col)] = Value;
    try {
        Field->OnValidate(Field);
    } catch (...) {
        FEditBuffer[static_cast<size_t>(col)] = old;
        throw;
    }
    FModified = true;
    Field->OnChange(Field);
    DataEvent(deFieldChange, reinterpret_cast<intptr_t>(Field));
}

// ---- Navigation -------------------------------------------------------------------------------------------
void TDataSet::DoAfterScroll() {
    AfterScroll(this);
}

void TDataSet::AfterMove(bool scrolled, int distance) {
    DataEvent(scrolled ? deDataSetScroll : deDataSetChange, distance);
    DoAfterScroll();
}

void TDataSet::First() {
    CheckBrowseMode();
    BeforeScroll(this);
    FCurrent = FView.empty() ? -1 : 0;
    FBof = true;
    FEof = FView.empty();
    AfterMove(false);
}

void TDataSet::Last() {
    CheckBrowseMode();
    BeforeScroll(this);
    FCurrent = static_cast<int>(FView.size()) - 1;
    FEof = true;
    FBof = FView.empty();
    AfterMove(false);
}

int TDataSet::MoveBy(int Distance) {
    CheckBrowseMode();
    if (Distance == 0) return 0;
    BeforeScroll(this);
    int n = static_cast<int>(FView.size());
    int moved = 0;
    if (Distance > 0) {
        FBof = n == 0;
        int target = FCurrent + Distance;
        if (target >= n) {
            target = n - 1;
            FEof = true;
        } else {
            FEof = false;
        }
        moved = target - FCurrent;
        FCurrent = target;
    } else {
        FEof = n == 0;
        int target = FCurrent + Distance;
        if (target < 0) {
            target = n == 0 ? -1 : 0;
            FBof = true;
        } else {
            FBof = false;
        }
        moved = target - FCurrent;
        FCurrent = target;
    }
    AfterMove(true, moved);
    return moved;
}

void TDataSet::Next() {
    MoveBy(1);
}
void TDataSet::Prior() {
    MoveBy(-1);
}

int TDataSet::RecordCount() const {
    CheckActive();
    return static_cast<int>(FView.size());
}

int TDataSet::RecNo() const {
    if (FState == dsInactive || FState == dsInsert) return 0;
    return FCurrent + 1;
}

void TDataSet::SetRecNo(int Value) {
    CheckBrowseMode();
    if (FView.empty()) return;
    Value = std::clamp(Value, 1, static_cast<int>(FView.size()));
    if (Value - 1 == FCurrent) return;
    BeforeScroll(this);
    FCurrent = Value - 1;
    FBof = FEof = false;
    AfterMove(false);
}

bool TDataSet::Locate(const std::string& KeyFields, const std::vector<Variant>& KeyValues,
                      TLocateOptions Options) {
    CheckBrowseMode();
    std::vector<std::string> names = SplitFieldNames(KeyFields);
    if (names.size() != KeyValues.size())
        DatabaseError(Format("Locate needs one value for each of the fields '%s'", {KeyFields}));
    std::vector<int> cols;
    for (const std::string& n : names)
        cols.push_back(FieldByName(n)->FieldNo() - 1);
    bool ci = Options.Contains(loCaseInsensitive), partial = Options.Contains(loPartialKey);
    for (size_t i = 0; i < FView.size(); ++i) {
        bool ok = true;
        for (size_t k = 0; k < cols.size() && ok; ++k) {
            const Variant& have = cols[k] >= 0 ? FView[i]->Values[static_cast<size_t>(cols[k])] : Variant();
            const Variant& want = KeyValues[k];
            if (partial && want.IsString() && !have.IsNull()) {
                std::string h = have.AsString(), w = want.AsString();
                ok = h.size() >= w.size() &&
                     (ci ? rtl::SameText(h.substr(0, w.size()), w) : h.compare(0, w.size(), w) == 0);
            } else if (have.IsNull() || want.IsNull()) {
                ok = have.IsNull() && want.IsNull();
            } else {
                // Compare in the field's own type, so '5' finds 5 and '2024-01-31' finds the date.
                Variant w = want;
                if (TField* f = FFields->FindField(names[k]); f && want.IsString() && !have.IsString()) {
                    try {
                        w = f->Coerce(want);
                    } catch (const rtl::Exception&) {
                    }
                }
                ok = CompareVariants(have, w, ci) == 0;
            }
        }
        if (ok) {
            BeforeScroll(this);
            FCurrent = static_cast<int>(i);
            FBof = FEof = false;
            AfterMove(false);
            return true;
        }
    }
    return false;
}

void TDataSet::InternalRefresh() {
    DatabaseError("Refresh is not supported by this dataset");
}

void TDataSet::Refresh() {
    CheckBrowseMode();
    BeforeRefresh(this);
    TRecordData* cur = ActiveRecordData();
    int64_t key = cur ? cur->Key : 0;
    int oldIndex = FCurrent;
    InternalRefresh();
    FCurrent = -1;
    RebuildView();
    FCurrent = FView.empty() ? -1 : std::clamp(oldIndex, 0, static_cast<int>(FView.size()) - 1);
    if (key)
        for (size_t i = 0; i < FView.size(); ++i)
            if (FView[i]->Key == key) FCurrent = static_cast<int>(i);
    FBof = FEof = FView.empty();
    DataEvent(deDataSetChange, 0);
    AfterRefresh(this);
}

// ---- Editing ----------------------------------------------------------------------------------------------
void TDataSet::Edit() {
    if (FState == dsEdit || FState == dsInsert) return;
    CheckActive();
    if (FView.empty()) {
        Insert();
        return;
    }
    CheckBrowseMode();
    CheckCanModify();
    BeforeEdit(this);
    try {
        FEditBuffer = ActiveRecordData()->Values;
        SetState(dsEdit);
        DataEvent(deRecordChange, 0);
    } catch (EDatabaseError& e) {
        FEditBuffer.clear();
        TDataAction action = daFail;
        OnEditError(this, e, action);
        if (action == daAbort) throw rtl::EAbort("Operation aborted");
        throw;
    }
    AfterEdit(this);
}

void TDataSet::BeginInsertAppend(bool Append) {
    CheckBrowseMode();
    CheckCanModify();
    BeforeInsert(this);
    BeforeScroll(this);
    FEditBuffer.assign(static_cast<size_t>(FFieldDefs->Count()), Variant());
    InitNewRecord(FEditBuffer);
    FInsertPos = Append ? static_cast<int>(FView.size()) : std::max(FCurrent, 0);
    SetState(dsInsert);
    try {
        OnNewRecord(this);
        for (TField* f : FFields->FList)
            if (!f->DefaultExpression().empty() && f->FieldNo() > 0 &&
                FEditBuffer[static_cast<size_t>(f->FieldNo() - 1)].IsNull())
                FEditBuffer[static_cast<size_t>(f->FieldNo() - 1)] =
                    f->Coerce(Variant(f->DefaultExpression()));
    } catch (...) {
        FEditBuffer.clear();
        SetState(dsBrowse);
        throw;
    }
    FModified = false;
    DataEvent(deDataSetChange, 0);
    AfterInsert(this);
    DoAfterScroll();
}

void TDataSet::Insert() {
    BeginInsertAppend(false);
}
void TDataSet::Append() {
    BeginInsertAppend(true);
}

void TDataSet::InternalPost(TRecordData&, bool) {}
void TDataSet::InternalDelete(const TRecordData&) {}

void TDataSet::Post() {
    UpdateRecord();
    if (FState != dsEdit && FState != dsInsert) {
        CheckActive();
        return;
    }
    BeforePost(this);
    for (TField* f : FFields->FList)
        if (f->Required() && f->FieldKind() == fkData && f->DataType() != ftAutoInc && f->IsNull())
            DatabaseError(Format(SFieldRequired, {f->DisplayName()}));
    bool inserting = FState == dsInsert;
    auto rec = std::make_unique<TRecordData>();
    TRecordData* cur = ActiveRecordData();
    if (!inserting) {
        rec->Key = cur->Key;
        rec->Serial = cur->Serial;
    }
    for (;;) {
        // A retrying error handler may have corrected the values, so each attempt takes them afresh.
        rec->Values = FEditBuffer;
        try {
            InternalPost(*rec, inserting);
            break;
        } catch (EDatabaseError& e) {
            TDataAction action = daFail;
            OnPostError(this, e, action);
            if (action == daRetry) continue;
            if (action == daAbort) throw rtl::EAbort("Operation aborted");
            throw;
        }
    }
    uint64_t serial;
    if (inserting) {
        rec->Serial = serial = FNextSerial++;
        // The new record goes where it was inserted among the visible ones.
        auto pos = FRecords.end();
        if (FInsertPos >= 0 && FInsertPos < static_cast<int>(FView.size())) {
            TRecordData* before = FView[static_cast<size_t>(FInsertPos)];
            pos = std::find_if(FRecords.begin(), FRecords.end(),
                               [before](auto& r) { return r.get() == before; });
        } else if (!FView.empty()) {
            TRecordData* after = FView.back();
            pos =
                std::find_if(FRecords.begin(), FRecords.end(), [after](auto& r) { return r.get() == after; });
            if (pos != FRecords.end()) ++pos;
        }
        FRecords.insert(pos, std::move(rec));
    } else {
        serial = cur->Serial;
        cur->Values = std::move(rec->Values);
        cur->Key = rec->Key;
    }
    FEditBuffer.clear();
    SortRecords();
    FView.clear();
    FCurrent = -1;
    for (auto& r : FRecords)
        if (r->Serial == serial || PassesFilter(*r)) FView.push_back(r.get());
    FCurrent = IndexOfSerial(serial);
    FBof = FEof = FView.empty();
    SetState(dsBrowse);
    DataEvent(deDataSetChange, 0);
    AfterPost(this);
}

void TDataSet::Cancel() {
    if (FState != dsEdit && FState != dsInsert) return;
    BeforeCancel(this);
    bool wasInsert = FState == dsInsert;
    FEditBuffer.clear();
    SetState(dsBrowse);
    DataEvent(deDataSetChange, 0);
    AfterCancel(this);
    if (wasInsert) DoAfterScroll();
}

void TDataSet::Delete() {
    CheckActive();
    if (FState == dsInsert) {
        Cancel();
        return;
    }
    if (FView.empty()) DatabaseError(SDataSetEmpty);
    CheckCanModify();
    BeforeDelete(this);
    BeforeScroll(this);
    TRecordData* cur = ActiveRecordData();
    for (;;) {
        try {
            InternalDelete(*cur);
            break;
        } catch (EDatabaseError& e) {
            TDataAction action = daFail;
            OnDeleteError(this, e, action);
            if (action == daRetry) continue;
            if (action == daAbort) throw rtl::EAbort("Operation aborted");
            throw;
        }
    }
    FView.erase(FView.begin() + FCurrent);
    FRecords.erase(std::find_if(FRecords.begin(), FRecords.end(), [cur](auto& r) { return r.get() == cur; }));
    if (FCurrent >= static_cast<int>(FView.size())) FCurrent = static_cast<int>(FView.size()) - 1;
    FBof = FEof = FView.empty();
    FEditBuffer.clear();
    if (FState != dsBrowse) SetState(dsBrowse);
    DataEvent(deDataSetChange, 0);
    AfterDelete(this);
    DoAfterScroll();
}

void TDataSet::CheckBrowseMode() {
    CheckActive();
    DataEvent(deCheckBrowseMode, 0);
    if (FState == dsEdit || FState == dsInsert) {
        UpdateRecord();
        if (FModified)
            Post();
        else
            Cancel();
    }
}

void TDataSet::UpdateRecord() {
    if (FState != dsEdit && FState != dsInsert) return;
    DataEvent(deUpdateRecord, 0);
}

void TDataSet::ClearFields() {
    if (FState != dsEdit && FState != dsInsert) DatabaseError(SNotEditing);
    for (TField* f : FFields->FList)
        if (f->FieldNo() > 0 && !f->ReadOnly())
            FEditBuffer[static_cast<size_t>(f->FieldNo() - 1)] = Variant();
    FModified = true;
    DataEvent(deRecordChange, 0);
}

void TDataSet::SetFields(const std::vector<Variant>& Values) {
    for (size_t i = 0; i < Values.size() && i < FFields->FList.size(); ++i)
        if (!Values[i].IsNull() || FFields->FList[i]->FieldKind() == fkData)
            FFields->FList[i]->SetValue(Values[i]);
}

void TDataSet::AppendRecord(const std::vector<Variant>& Values) {
    Append();
    try {
        SetFields(Values);
        Post();
    } catch (...) {
        Cancel();
        throw;
    }
}

void TDataSet::InsertRecord(const std::vector<Variant>& Values) {
    Insert();
    try {
        SetFields(Values);
        Post();
    } catch (...) {
        Cancel();
        throw;
    }
}

// ---- Filters ----------------------------------------------------------------------------------------------
void TDataSet::SetFilter(const std::string& Value) {
    if (Value == FFilter) return;
    std::string old = FFilter;
    FFilter = Value;
    if (Active() && FFiltered) {
        CheckBrowseMode();
        try {
            ParseFilter();
        } catch (...) {
            FFilter = old;
            throw;
        }
        RebuildView();
        First();
    }
}

void TDataSet::SetFiltered(bool Value) {
    if (Value == FFiltered) return;
    if (Active()) {
        CheckBrowseMode();
        FFiltered = Value;
        try {
            if (Value)
                ParseFilter();
            else
                FFilterExpr.reset();
        } catch (...) {
            FFiltered = false;
            throw;
        }
        RebuildView();
        First();
    } else {
        FFiltered = Value;
    }
}

void TDataSet::SetFilterOptions(TFilterOptions Value) {
    if (Value == FFilterOptions) return;
    FFilterOptions = Value;
    if (Active() && FFiltered) {
        CheckBrowseMode();
        ParseFilter();
        RebuildView();
        First();
    }
}

// ---- Bookmarks --------------------------------------------------------------------------------------------
TBookmark TDataSet::GetBookmark() const {
    TRecordData* r = FState == dsInactive ? nullptr : ActiveRecordData();
    return r ? rtl::IntToStr(static_cast<int64_t>(r->Serial)) : TBookmark();
}

bool TDataSet::BookmarkValid(const TBookmark& Bookmark) const {
    int64_t s;
    return Active() && rtl::TryStrToInt64(Bookmark, s) && IndexOfSerial(static_cast<uint64_t>(s)) >= 0;
}

void TDataSet::GotoBookmark(const TBookmark& Bookmark) {
    CheckBrowseMode();
    int64_t s;
    int i = rtl::TryStrToInt64(Bookmark, s) ? IndexOfSerial(static_cast<uint64_t>(s)) : -1;
    if (i < 0) DatabaseError(SRecordNotFound);
    BeforeScroll(this);
    FCurrent = i;
    FBof = FEof = false;
    AfterMove(false);
}

int TDataSet::CompareBookmarks(const TBookmark& a, const TBookmark& b) const {
    int64_t x = 0, y = 0;
    int ia = rtl::TryStrToInt64(a, x) ? IndexOfSerial(static_cast<uint64_t>(x)) : -1;
    int ib = rtl::TryStrToInt64(b, y) ? IndexOfSerial(static_cast<uint64_t>(y)) : -1;
    return ia < ib ? -1 : (ia > ib ? 1 : 0);
}

// ---- Data sources -----------------------------------------------------------------------------------------
void TDataSet::DisableControls() {
    if (FDisableCount++ == 0) {
        FDisabledState = FState;
        FPendingChange = false;
    }
}

void TDataSet::EnableControls() {
    if (FDisableCount == 0) return;
    if (--FDisableCount > 0) return;
    if (FDisabledState != FState) DataEvent(deUpdateState, 0);
    if (FDisabledState != dsInactive && FState != dsInactive && FPendingChange) DataEvent(deDataSetChange, 0);
    FPendingChange = false;
}

void TDataSet::DataEvent(TDataEvent Event, intptr_t Info) {
    if (FDisableCount > 0) {
        // Held back until EnableControls, which sends one change for all.
        FPendingChange = true;
        return;
    }
    std::vector<TDataSource*> sources = FDataSources;
    for (TDataSource* s : sources)
        s->DataEvent(Event, Info);
}

bool TDataSet::IsLinkedTo(TDataSource* DataSource) const {
    int guard = 0;
    while (DataSource && guard++ < 1000) {
        TDataSet* ds = DataSource->DataSet();
        if (!ds) break;
        if (ds == this) return true;
        DataSource = ds->GetDataSource();
    }
    return false;
}

} // namespace db
