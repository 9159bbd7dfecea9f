// TDataSource and the data links: how a data set's state changes, scrolls and edits reach data-aware
// controls, and how a single-field control is bound to its field.
#include <algorithm>

#include "db/db.h"

namespace db {

JEX_IMPLEMENT_CLASS(TDataSource, TComponent, "DB") {
    d.Property("AutoEdit", &TDataSource::AutoEdit, &TDataSource::SetAutoEdit).Default(true);
    d.Property("DataSet", &TDataSource::DataSet, &TDataSource::SetDataSet);
    d.Property("Enabled", &TDataSource::Enabled, &TDataSource::SetEnabled).Default(true);
    d.Event("OnStateChange", &TDataSource::OnStateChange);
    d.Event("OnDataChange", &TDataSource::OnDataChange);
    d.Event("OnUpdateData", &TDataSource::OnUpdateData);
}

TDataSource::TDataSource(TComponent* AOwner) : TComponent(AOwner) {}

TDataSource::~TDataSource() {
    BeforeDestruction();
}

void TDataSource::BeforeDestruction() {
    if (!IsDestroying()) Destroying();
    std::vector<TDataLink*> links = FDataLinks;
    FDataLinks.clear();
    for (TDataLink* l : links) {
        l->FDataSource = nullptr;
        l->UpdateState();
    }
    SetDataSet(nullptr);
    TComponent::BeforeDestruction();
}

void TDataSource::SetDataSet(TDataSet* Value) {
    if (Value == FDataSet) return;
    if (Value && Value->IsLinkedTo(this)) throw EDatabaseError(SCircularDataLink);
    if (FDataSet) {
        auto& l = FDataSet->FDataSources;
        l.erase(std::remove(l.begin(), l.end(), this), l.end());
        RemoveFreeNotification(FDataSet);
    }
    FDataSet = Value;
    if (Value) {
        Value->FDataSources.push_back(this);
        Value->FreeNotification(this);
    }
    UpdateState();
}

void TDataSource::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TComponent::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FDataSet) {
        FDataSet = nullptr;
        UpdateState();
    }
}

void TDataSource::SetEnabled(bool Value) {
    FEnabled = Value;
    UpdateState();
}

void TDataSource::UpdateState() {
    TDataSetState s = FEnabled && FDataSet ? FDataSet->State() : dsInactive;
    // The filter state is internal to the data set; links keep seeing it browsing.
    if (s == dsFilter || s == dsOpening) return;
    if (s == FState) return;
    TDataSetState prev = FState;
    FState = s;
    std::vector<TDataLink*> links = FDataLinks;
    for (TDataLink* l : links)
        l->DataEvent(deUpdateState, 0);
    if (IsDestroying()) return;
    OnStateChange(this);
    if (prev == dsInactive) OnDataChange(this, nullptr);
}

void TDataSource::DataEvent(TDataEvent Event, intptr_t Info) {
    if (Event == deUpdateState) {
        UpdateState();
        return;
    }
    if (FState == dsInactive) return;
    std::vector<TDataLink*> links = FDataLinks;
    for (TDataLink* l : links)
        if (std::find(FDataLinks.begin(), FDataLinks.end(), l) != FDataLinks.end()) l->DataEvent(Event, Info);
    switch (Event) {
    case deFieldChange:
        OnDataChange(this, reinterpret_cast<TField*>(Info));
        break;
    case deRecordChange:
    case deDataSetChange:
    case deDataSetScroll:
    case deLayoutChange:
        OnDataChange(this, nullptr);
        break;
    case deUpdateRecord:
        OnUpdateData(this);
        break;
    default:
        break;
    }
}

void TDataSource::Edit() {
    if (FAutoEdit && FState == dsBrowse && FDataSet) FDataSet->Edit();
}

bool TDataSource::IsLinkedTo(TDataSet* DataSet) const {
    int guard = 0;
    while (DataSet && guard++ < 1000) {
        TDataSource* s = DataSet->GetDataSource();
        if (!s) break;
        if (s == this) return true;
        DataSet = s->DataSet();
    }
    return false;
}

// ---- TDataLink --------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TDataLink, TPersistent, "DB") {}

TDataLink::TDataLink() = default;

TDataLink::~TDataLink() {
    if (FDataSource) {
        auto& l = FDataSource->FDataLinks;
        l.erase(std::remove(l.begin(), l.end(), this), l.end());
        FDataSource = nullptr;
    }
}

void TDataLink::SetDataSource(TDataSource* Value) {
    if (Value == FDataSource) return;
    if (FDataSource) {
        auto& l = FDataSource->FDataLinks;
        l.erase(std::remove(l.begin(), l.end(), this), l.end());
    }
    FDataSource = Value;
    if (Value) Value->FDataLinks.push_back(this);
    UpdateState();
}

TDataSet* TDataLink::DataSet() const {
    return FDataSource ? FDataSource->DataSet() : nullptr;
}

void TDataLink::SetReadOnly(bool v) {
    if (v == FReadOnly) return;
    FReadOnly = v;
    UpdateState();
}

void TDataLink::UpdateState() {
    bool active = FDataSource && FDataSource->State() != dsInactive;
    if (active != FActive) {
        FActive = active;
        if (!active && FEditing) {
            FEditing = false;
            EditingChanged();
        }
        ActiveChanged();
    }
    TDataSetState s = FDataSource ? FDataSource->State() : dsInactive;
    bool editing = FActive && !FReadOnly && (s == dsEdit || s == dsInsert || s == dsSetKey);
    if (editing != FEditing) {
        FEditing = editing;
        EditingChanged();
    }
}

void TDataLink::DataEvent(TDataEvent Event, intptr_t Info) {
    if (Event == deUpdateState) {
        UpdateState();
        return;
    }
    if (!FActive) return;
    switch (Event) {
    case deFieldChange:
    case deRecordChange:
        if (!FUpdating) RecordChanged(reinterpret_cast<TField*>(Info));
        break;
    case deDataSetChange:
        DataSetChanged();
        break;
    case deDataSetScroll:
        DataSetScrolled(static_cast<int>(Info));
        break;
    case deLayoutChange:
        LayoutChanged();
        break;
    case deUpdateRecord:
        UpdateRecord();
        break;
    case deCheckBrowseMode:
        CheckBrowseMode();
        break;
    case deFocusControl:
        FocusControl(reinterpret_cast<TField**>(Info));
        break;
    default:
        break;
    }
}

bool TDataLink::Edit() {
    if (!FReadOnly && FDataSource) FDataSource->Edit();
    return FEditing;
}

void TDataLink::UpdateRecord() {
    FUpdating = true;
    try {
        UpdateData();
    } catch (...) {
        FUpdating = false;
        throw;
    }
    FUpdating = false;
}

int TDataLink::RecordCount() const {
    TDataSet* ds = DataSet();
    return FActive && ds && !ds->IsEmpty() ? 1 : 0;
}

// ---- TFieldDataLink ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TFieldDataLink, TDataLink, "DBCtrls") {}

void TFieldDataLink::SetFieldName(const std::string& Value) {
    if (Value == FFieldName) return;
    FFieldName = Value;
    UpdateField();
}

void TFieldDataLink::UpdateField() {
    TField* f = nullptr;
    if (Active() && !FFieldName.empty()) f = DataSet()->FindField(FFieldName);
    FField = f;
    FModified = false;
    OnDataChange(this);
}

bool TFieldDataLink::CanModify() const {
    return !ReadOnly() && FField && FField->CanModify();
}

void TFieldDataLink::Reset() {
    RecordChanged(nullptr);
}

void TFieldDataLink::ActiveChanged() {
    UpdateField();
    OnActiveChange(this);
}

void TFieldDataLink::EditingChanged() {
    OnEditingChange(this);
}

void TFieldDataLink::LayoutChanged() {
    UpdateField();
}

void TFieldDataLink::RecordChanged(TField* Field) {
    if (!Field || Field == FField) {
        FModified = false;
        OnDataChange(this);
    }
}

void TFieldDataLink::UpdateData() {
    if (FModified) {
        if (FField) OnUpdateData(this);
        FModified = false;
    }
}

} // namespace db
