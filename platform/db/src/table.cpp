// TTable: a stored table opened in index order, its records written back row by row, its structure created
// from field and index definitions, ranges and keys over the current index, and master-detail links.
#include <algorithm>

#include "db/dbtables.h"
#include "dspublish.h"

namespace db {

using rtl::Format;

// Follows the master data source and re-selects the detail records when the master moves or changes.
class TTable::TMasterLink : public TDataLink {
public:
    explicit TMasterLink(TTable* t) : FTable(t) {}

protected:
    void ActiveChanged() override { FTable->MasterChanged(); }
    void DataSetChanged() override { FTable->MasterChanged(); }
    void DataSetScrolled(int) override { FTable->MasterChanged(); }
    void RecordChanged(TField* Field) override {
        if (!Field) return FTable->MasterChanged();
        for (const std::string& n : SplitFieldNames(FTable->FMasterFields))
            if (rtl::SameText(n, Field->FieldName())) return FTable->MasterChanged();
    }

private:
    TTable* FTable;
};

JEX_IMPLEMENT_CLASS(TTable, TDBDataSet, "DBTables") {
    d.Property("Active", &TDataSet::Active, &TDataSet::SetActive).Default(false);
    d.Property("DatabaseName", &TDBDataSet::DatabaseName, &TDBDataSet::SetDatabaseName);
    d.Property("Exclusive", &TTable::Exclusive, &TTable::SetExclusive).Default(false);
    d.Property("FieldDefs", &TDataSet::FieldDefs, &TDataSet::SetFieldDefs).Stored(&TTable::StoreDefs);
    pub::Filters(d);
    d.Property("IndexDefs", &TTable::IndexDefs, &TTable::SetIndexDefs).Stored(&TTable::StoreDefs);
    d.Property("IndexFieldNames", &TTable::IndexFieldNames, &TTable::SetIndexFieldNames);
    d.Property("IndexName", &TTable::IndexName, &TTable::SetIndexName);
    d.Property("MasterFields", &TTable::MasterFields, &TTable::SetMasterFields);
    d.Property("MasterSource", &TTable::MasterSource, &TTable::SetMasterSource);
    d.Property("ReadOnly", &TTable::ReadOnly, &TTable::SetReadOnly).Default(false);
    d.Property("SessionName", &TDBDataSet::SessionName, &TDBDataSet::SetSessionName);
    d.Property("StoreDefs", &TTable::StoreDefs, &TTable::SetStoreDefs).Default(false);
    d.Property("TableName", &TTable::TableName, &TTable::SetTableName, rtl::TypeInfo_TFileName());
    d.Property("TableType", &TTable::TableType, &TTable::SetTableType).Default(ttDefault);
    pub::DataSetEvents(d);
}

TTable::TTable(TComponent* AOwner)
    : TDBDataSet(AOwner), FIndexDefs(std::make_unique<TIndexDefs>(this)),
      FMasterLink(std::make_unique<TMasterLink>(this)) {
    FIndexDefs->PropName = "IndexDefs";
}

TTable::~TTable() {
    CloseQuietly();
    FMasterLink->SetDataSource(nullptr);
}

void TTable::SetTableName(const std::string& Value) {
    if (Value == FTableName) return;
    CheckInactive();
    FTableName = Value;
    FIndexDefs->Updated = false;
}

void TTable::SetTableType(TTableType Value) {
    CheckInactive();
    FTableType = Value;
}

void TTable::SetReadOnly(bool Value) {
    CheckInactive();
    FReadOnly = Value;
}

void TTable::SetExclusive(bool Value) {
    CheckInactive();
    FExclusive = Value;
}

void TTable::SetIndexDefs(TIndexDefs* Value) {
    if (Value)
        FIndexDefs->Assign(Value);
    else
        FIndexDefs->Clear();
}

bool TTable::CanModify() const {
    return TDataSet::CanModify() && !FReadOnly;
}

std::string TTable::StorageName() const {
    std::string n = rtl::Trim(FTableName);
    if (n.empty()) DatabaseError(SNoTableName);
    return n;
}

void TTable::CheckTableType(TDbConnection*) const {
    TDatabase* db = Database();
    std::string driverName = db ? db->ResolvedDriverName() : std::string();
    TDbDriver* d = FindDbDriver(driverName);
    if (d && !d->SupportsTableType(FTableType))
        DatabaseError(
            Format(STableTypeNotSupported,
                   {rtl::GetEnumName(TypeInfoOf(static_cast<TTableType*>(nullptr)), FTableType), d->Name()}));
}

// ---- Order ------------------------------------------------------------------------------------------------
std::vector<TDbOrder> TTable::CurrentOrder() const {
    std::vector<TDbOrder> order;
    if (!FIndexFieldNames.empty()) {
        for (auto& f : SplitFieldNames(FIndexFieldNames))
            order.push_back({f, false, false});
        return order;
    }
    const TIndexDef* def = nullptr;
    if (!FIndexName.empty()) {
        def = FIndexDefs->Find(FIndexName);
    } else {
        for (int i = 0; i < FIndexDefs->Count(); ++i)
            if (FIndexDefs->Items(i)->Options().Contains(ixPrimary)) def = FIndexDefs->Items(i);
    }
    if (!def || def->Options().Contains(ixExpression)) return order;
    auto desc = SplitFieldNames(def->DescFields());
    auto ci = SplitFieldNames(def->CaseInsFields());
    auto in = [](const std::vector<std::string>& v, const std::string& f) {
        return std::any_of(v.begin(), v.end(), [&](auto& x) { return rtl::SameText(x, f); });
    };
    for (auto& f : SplitFieldNames(def->Fields()))
        order.push_back({f, def->Options().Contains(ixDescending) || in(desc, f),
                         def->Options().Contains(ixCaseInsensitive) || in(ci, f)});
    return order;
}

std::vector<int> TTable::IndexColumns() const {
    std::vector<int> cols;
    for (auto& o : CurrentOrder()) {
        int i = FieldDefs()->IndexOf(o.Column);
        if (i < 0) DatabaseError(Format(SFieldNotFound, {o.Column}));
        cols.push_back(i);
    }
    return cols;
}

int TTable::IndexFieldCount() const {
    return static_cast<int>(CurrentOrder().size());
}

TField* TTable::IndexFields(int Index) const {
    auto order = CurrentOrder();
    if (Index < 0 || Index >= static_cast<int>(order.size()))
        throw rtl::EListError(Format(rtl::SListIndexError, {Index}));
    return FieldByName(order[static_cast<size_t>(Index)].Column);
}

void TTable::SortRecords() {
    if (!Active()) return;
    auto order = CurrentOrder();
    std::vector<std::pair<int, TDbOrder>> cols;
    for (auto& o : order) {
        int i = FieldDefs()->IndexOf(o.Column);
        if (i >= 0) cols.push_back({i, o});
    }
    std::stable_sort(Records().begin(), Records().end(), [&](const auto& a, const auto& b) {
        for (auto& [col, o] : cols) {
            int c = CompareVariants(a->Values[static_cast<size_t>(col)], b->Values[static_cast<size_t>(col)],
                                    o.CaseInsensitive);
            if (c) return o.Descending ? c > 0 : c < 0;
        }
        return a->Key < b->Key;
    });
}

void TTable::Reorder() {
    if (!Active()) return;
    CheckBrowseMode();
    SortRecords();
    RebuildView();
    First();
}

void TTable::SetIndexName(const std::string& Value) {
    if (Active() && !Value.empty()) FIndexDefs->Find(Value);
    FIndexName = Value;
    FIndexFieldNames.clear();
    Reorder();
}

void TTable::SetIndexFieldNames(const std::string& Value) {
    if (Active())
        for (auto& f : SplitFieldNames(Value))
            if (FieldDefs()->IndexOf(f) < 0) DatabaseError(Format(SFieldNotFound, {f}));
    FIndexFieldNames = Value;
    if (!Value.empty()) FIndexName.clear();
    Reorder();
}

// ---- Opening and writing ----------------------------------------------------------------------------------
void TTable::InternalOpen() {
    std::string name = StorageName();
    TDbConnection* conn = OpenConnection();
    CheckTableType(conn);
    conn->GetTableDefs(name, FieldDefs(), FIndexDefs.get());
    FIndexDefs->Updated = true;
    if (!FIndexName.empty()) FIndexDefs->Find(FIndexName);
    FWritable = conn->TableIsWritable(name);
    SetReadOnlyData(!FWritable || Database()->ReadOnly());
    ReadRecords(conn);
}

void TTable::ReadRecords(TDbConnection* conn) {
    std::vector<std::string> cols;
    for (int i = 0; i < FieldDefs()->Count(); ++i)
        cols.push_back(FieldDefs()->Items(i)->Name());
    TDbRows rows = conn->ReadTable(StorageName(), cols, CurrentOrder());
    std::vector<std::unique_ptr<TRecordData>> records;
    records.reserve(rows.Rows.size());
    for (size_t r = 0; r < rows.Rows.size(); ++r) {
        auto rec = std::make_unique<TRecordData>();
        rec->Values.resize(cols.size());
        for (size_t c = 0; c < cols.size() && c < rows.Rows[r].size(); ++c)
            rec->Values[c] =
                conn->FromStorage(rows.Rows[r][c], FieldDefs()->Items(static_cast<int>(c))->DataType());
        rec->Key = r < rows.Keys.size() ? rows.Keys[r] : 0;
        records.push_back(std::move(rec));
    }
    SetRecords(std::move(records));
}

void TTable::InternalRefresh() {
    ReadRecords(Database()->Connection());
}

void TTable::InternalPost(TRecordData& Record, bool Inserting) {
    TDbConnection* conn = Database()->Connection();
    std::string name = StorageName();
    std::vector<std::string> cols, all;
    std::vector<Variant> values;
    for (int i = 0; i < FieldDefs()->Count(); ++i) {
        TFieldDef* d = FieldDefs()->Items(i);
        all.push_back(d->Name());
        const Variant& v = Record.Values[static_cast<size_t>(i)];
        // A new AutoInc value comes from the database.
        if (Inserting && d->DataType() == ftAutoInc && v.IsNull()) continue;
        cols.push_back(d->Name());
        values.push_back(conn->ToStorage(v, d->DataType()));
    }
    if (Inserting)
        Record.Key = conn->InsertRow(name, cols, values);
    else
        Record.Key = conn->UpdateRow(name, Record.Key, cols, values);
    // Read back what was stored: generated keys, defaults, and the database's own conversions.
    std::vector<Variant> stored = conn->ReadRow(name, Record.Key, all);
    for (size_t i = 0; i < stored.size() && i < Record.Values.size(); ++i)
        Record.Values[i] = conn->FromStorage(stored[i], FieldDefs()->Items(static_cast<int>(i))->DataType());
}

void TTable::InternalDelete(const TRecordData& Record) {
    Database()->Connection()->DeleteRow(StorageName(), Record.Key);
}

void TTable::InternalInitFieldDefs() {
    std::string name = StorageName();
    auto tc = TemporaryConnection();
    tc.Conn->GetTableDefs(name, FieldDefs(), nullptr);
}

void TTable::InternalInitIndexDefs() {
    std::string name = StorageName();
    auto tc = TemporaryConnection();
    tc.Conn->GetTableDefs(name, nullptr, FIndexDefs.get());
}

// ---- Table operations -------------------------------------------------------------------------------------
bool TTable::Exists() {
    if (Active()) return true;
    std::string name = StorageName();
    auto tc = TemporaryConnection();
    return tc.Conn->TableExists(name);
}

void TTable::CreateTable() {
    CheckInactive();
    std::string name = StorageName();
    auto tc = TemporaryConnection();
    TDbDriver* d = FindDbDriver(tc.Db->ResolvedDriverName());
    if (d && !d->SupportsTableType(FTableType))
        DatabaseError(
            Format(STableTypeNotSupported,
                   {rtl::GetEnumName(TypeInfoOf(static_cast<TTableType*>(nullptr)), FTableType), d->Name()}));
    tc.Conn->CreateTable(name, FieldDefs(), FIndexDefs.get());
}

void TTable::DeleteTable() {
    CheckInactive();
    std::string name = StorageName();
    auto tc = TemporaryConnection();
    tc.Conn->DeleteTable(name);
}

void TTable::EmptyTable() {
    std::string name = StorageName();
    if (Active()) {
        CheckBrowseMode();
        CheckCanModify();
        Database()->Connection()->EmptyTable(name);
        SetRecords({});
        RebuildView();
        First();
        return;
    }
    auto tc = TemporaryConnection();
    tc.Conn->EmptyTable(name);
}

void TTable::AddIndex(const std::string& Name, const std::string& Fields, TIndexOptions Options) {
    std::string name = StorageName();
    TIndexDefs one(nullptr);
    one.Add(Name, Fields, Options);
    auto tc = TemporaryConnection();
    tc.Conn->AddIndex(name, one.Items(0));
    tc.Conn->GetTableDefs(name, nullptr, FIndexDefs.get());
}

void TTable::DeleteIndex(const std::string& Name) {
    std::string name = StorageName();
    if (Active() && rtl::SameText(Name, FIndexName)) DatabaseError(Format("Index '%s' is in use", {Name}));
    auto tc = TemporaryConnection();
    tc.Conn->DeleteIndex(name, Name);
    tc.Conn->GetTableDefs(name, nullptr, FIndexDefs.get());
}

void TTable::GetIndexNames(TStrings* List) {
    FIndexDefs->Update();
    FIndexDefs->GetItemNames(List);
}

// ---- Ranges, keys and the master link ---------------------------------------------------------------------
bool TTable::RecordInScope(const TRecordData& Record) const {
    auto tuple = [&](const std::vector<int>& cols, const std::vector<Variant>& want) {
        for (size_t k = 0; k < want.size() && k < cols.size(); ++k) {
            int col = cols[k];
            Variant w = NormalizeValue(want[k], FieldDefs()->Items(col)->DataType());
            int c = CompareVariants(Record.Values[static_cast<size_t>(col)], w);
            if (c) return c;
        }
        return 0;
    };
    if (FRanged) {
        std::vector<int> cols = IndexColumns();
        if (!FRangeStart.empty() && tuple(cols, FRangeStart) < 0) return false;
        if (!FRangeEnd.empty() && tuple(cols, FRangeEnd) > 0) return false;
    }
    TDataSet* master = FMasterLink->Active() ? FMasterLink->DataSet() : nullptr;
    if (master && !FMasterFields.empty()) {
        auto names = SplitFieldNames(FMasterFields);
        std::vector<int> cols = DetailColumns();
        for (size_t k = 0; k < names.size() && k < cols.size(); ++k) {
            Variant m = master->FieldByName(names[k])->Value();
            if (m.IsNull()) return false;
            const Variant& v = Record.Values[static_cast<size_t>(cols[k])];
            if (v.IsNull() ||
                CompareVariants(v, NormalizeValue(m, FieldDefs()->Items(cols[k])->DataType())) != 0)
                return false;
        }
    }
    return true;
}

std::vector<int> TTable::DetailColumns() const {
    auto names = SplitFieldNames(FMasterFields);
    std::vector<int> cols = IndexColumns();
    if (cols.size() >= names.size()) return cols;
    // Without an index that covers the link, the detail fields are those named like the master fields.
    cols.clear();
    for (auto& n : names) {
        int i = FieldDefs()->IndexOf(n);
        if (i < 0) DatabaseError(Format(SFieldNotFound, {n}));
        cols.push_back(i);
    }
    return cols;
}

void TTable::InitNewRecord(std::vector<Variant>& Values) {
    TDataSet* master = FMasterLink->Active() ? FMasterLink->DataSet() : nullptr;
    if (!master || FMasterFields.empty()) return;
    auto names = SplitFieldNames(FMasterFields);
    std::vector<int> cols = DetailColumns();
    for (size_t k = 0; k < names.size() && k < cols.size(); ++k)
        Values[static_cast<size_t>(cols[k])] =
            NormalizeValue(master->FieldByName(names[k])->Value(), FieldDefs()->Items(cols[k])->DataType());
}

void TTable::MasterChanged() {
    if (!Active() || State() == dsOpening) return;
    if (State() == dsEdit || State() == dsInsert) CheckBrowseMode();
    RebuildView();
    First();
}

TDataSource* TTable::MasterSource() const {
    return FMasterLink->DataSource();
}

void TTable::SetMasterSource(TDataSource* Value) {
    if (Value == MasterSource()) return;
    if (Value && IsLinkedTo(Value)) DatabaseError(SCircularDataLink);
    FMasterLink->SetDataSource(Value);
    MasterChanged();
}

void TTable::SetMasterFields(const std::string& Value) {
    FMasterFields = Value;
    MasterChanged();
}

void TTable::SetRange(const std::vector<Variant>& StartValues, const std::vector<Variant>& EndValues) {
    CheckBrowseMode();
    if (CurrentOrder().empty()) DatabaseError(SNoIndexOrder);
    FRangeStart = StartValues;
    FRangeEnd = EndValues;
    FRanged = true;
    RebuildView();
    First();
}

void TTable::CancelRange() {
    CheckBrowseMode();
    if (!FRanged) return;
    FRanged = false;
    FRangeStart.clear();
    FRangeEnd.clear();
    RebuildView();
    First();
}

bool TTable::FindKey(const std::vector<Variant>& KeyValues) {
    CheckBrowseMode();
    std::vector<int> cols = IndexColumns();
    if (cols.empty()) DatabaseError(SNoIndexOrder);
    auto order = CurrentOrder();
    std::vector<std::string> names;
    std::vector<Variant> values;
    for (size_t k = 0; k < KeyValues.size() && k < order.size(); ++k) {
        names.push_back(order[k].Column);
        values.push_back(KeyValues[k]);
    }
    std::string fields;
    for (auto& n : names)
        fields += (fields.empty() ? "" : ";") + n;
    return Locate(fields, values,
                  order.front().CaseInsensitive ? TLocateOptions{loCaseInsensitive} : TLocateOptions{});
}

void TTable::FindNearest(const std::vector<Variant>& KeyValues) {
    CheckBrowseMode();
    std::vector<int> cols = IndexColumns();
    if (cols.empty()) DatabaseError(SNoIndexOrder);
    auto order = CurrentOrder();
    int n = RecordCount();
    // The first record at or after the key in index order, else the last one.
    DisableControls();
    try {
        First();
        int target = n;
        for (int i = 0; i < n; ++i) {
            int c = 0;
            for (size_t k = 0; k < KeyValues.size() && k < cols.size() && c == 0; ++k) {
                Variant w = NormalizeValue(KeyValues[k], FieldDefs()->Items(cols[k])->DataType());
                Variant v = FieldByNumber(cols[k] + 1) ? FieldByNumber(cols[k] + 1)->Value() : Variant();
                c = CompareVariants(v, w, order[k].CaseInsensitive);
                if (order[k].Descending) c = -c;
            }
            if (c >= 0) {
                target = i;
                break;
            }
            Next();
        }
        if (target >= n) Last();
    } catch (...) {
        EnableControls();
        throw;
    }
    EnableControls();
}

} // namespace db
