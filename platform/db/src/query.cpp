// TQuery: an SQL statement with :Name parameters, run for a result set (Open) or for its effect (ExecSQL),
// with parameters filled from a master data set's current record.
#include "db/dbtables.h"
#include "dspublish.h"

namespace db {

using rtl::Format;

class TQuery::TQueryMasterLink : public TDataLink {
public:
    explicit TQueryMasterLink(TQuery* q) : FQuery(q) {}

protected:
    void ActiveChanged() override { FQuery->MasterChanged(); }
    void DataSetChanged() override { FQuery->MasterChanged(); }
    void DataSetScrolled(int) override { FQuery->MasterChanged(); }
    void RecordChanged(TField* Field) override {
        if (!Field) FQuery->MasterChanged();
    }

private:
    TQuery* FQuery;
};

JEX_IMPLEMENT_CLASS(TQuery, TDBDataSet, "DBTables") {
    d.Property("Active", &TDataSet::Active, &TDataSet::SetActive).Default(false);
    d.Property("DatabaseName", &TDBDataSet::DatabaseName, &TDBDataSet::SetDatabaseName);
    d.Property("DataSource", &TQuery::DataSource, &TQuery::SetDataSource);
    pub::Filters(d);
    d.Property("ParamCheck", &TQuery::ParamCheck, &TQuery::SetParamCheck).Default(true);
    d.Property("RequestLive", &TQuery::RequestLive, &TQuery::SetRequestLive).Default(false);
    d.Property("SessionName", &TDBDataSet::SessionName, &TDBDataSet::SetSessionName);
    d.Property("SQL", &TQuery::SQL, &TQuery::SetSQL);
    d.Property("Params", &TQuery::Params, &TQuery::SetParams);
    d.Property("UniDirectional", &TQuery::UniDirectional, &TQuery::SetUniDirectional).Default(false);
    pub::DataSetEvents(d);
}

TQuery::TQuery(TComponent* AOwner)
    : TDBDataSet(AOwner), FSQL(std::make_unique<rtl::TStringList>()),
      FParams(std::make_unique<TParams>(this)), FMasterLink(std::make_unique<TQueryMasterLink>(this)) {
    FParams->PropName = "Params";
    FSQL->OnChange = [this](rtl::TObject*) { SQLChanged(); };
}

TQuery::~TQuery() {
    CloseQuietly();
    FMasterLink->SetDataSource(nullptr);
    FSQL->OnChange = nullptr;
}

void TQuery::SetSQL(TStrings* Value) {
    if (Value)
        FSQL->Assign(Value);
    else
        FSQL->Clear();
}

void TQuery::SetParams(TParams* Value) {
    if (Value)
        FParams->Assign(Value);
    else
        FParams->Clear();
}

void TQuery::SQLChanged() {
    // A changed statement is a new query: the old result and preparation go.
    if (Active()) Close();
    FPrepared = false;
    if (FParamCheck || IsDesigning()) FParams->ParseSQL(FSQL->Text(), true);
}

std::string TQuery::Text() const {
    TParams scratch(nullptr);
    return scratch.ParseSQL(FSQL->Text(), false);
}

TDataSource* TQuery::DataSource() const {
    return FMasterLink->DataSource();
}

void TQuery::SetDataSource(TDataSource* Value) {
    if (Value == DataSource()) return;
    if (Value && IsLinkedTo(Value)) DatabaseError(SCircularDataLink);
    FMasterLink->SetDataSource(Value);
}

void TQuery::SetPrepared(bool Value) {
    if (Value && rtl::Trim(FSQL->Text()).empty()) DatabaseError(SNoSQLStatement);
    FPrepared = Value;
}

std::vector<Variant> TQuery::ParamValues(std::string& sqlText) const {
    TParams scratch(nullptr);
    std::vector<std::string> order;
    sqlText = scratch.ParseSQL(FSQL->Text(), false, &order);
    TDbConnection* conn = Database()->Connection();
    TDataSet* master = FMasterLink->Active() ? FMasterLink->DataSet() : nullptr;
    std::vector<Variant> values;
    for (const std::string& name : order) {
        TParam* p = FParams->FindParam(name);
        if (p && p->Bound()) {
            values.push_back(conn->ToStorage(p->Value(), p->DataType()));
            continue;
        }
        // An unset parameter takes the master's field of the same name.
        if (master)
            if (TField* f = master->FindField(name)) {
                values.push_back(conn->ToStorage(f->Value(), f->DataType()));
                continue;
            }
        DatabaseError(Format("No value for parameter '%s'", {name}));
    }
    return values;
}

TDbRows TQuery::RunQuery(TDbConnection* Conn) {
    if (rtl::Trim(FSQL->Text()).empty()) DatabaseError(SNoSQLStatement);
    std::string text;
    std::vector<Variant> values = ParamValues(text);
    return Conn->OpenQuery(text, values);
}

void TQuery::LoadRows(TDbConnection* Conn, TDbRows& Rows) {
    std::vector<std::unique_ptr<TRecordData>> records;
    records.reserve(Rows.Rows.size());
    for (auto& row : Rows.Rows) {
        auto rec = std::make_unique<TRecordData>();
        rec->Values.resize(Rows.Columns.size());
        for (size_t c = 0; c < Rows.Columns.size() && c < row.size(); ++c)
            rec->Values[c] = Conn->FromStorage(row[c], Rows.Columns[c].DataType);
        records.push_back(std::move(rec));
    }
    SetRecords(std::move(records));
}

namespace {
void FillFieldDefs(TFieldDefs* defs, const std::vector<TDbColumn>& columns) {
    defs->BeginUpdate();
    defs->Clear();
    for (const TDbColumn& c : columns) {
        // Joined tables may repeat a column name; the platform numbers the repeats.
        std::string name = c.Name.empty() ? std::string("COLUMN") : c.Name;
        std::string unique = name;
        for (int n = 1; defs->IndexOf(unique) >= 0; ++n)
            unique = name + "_" + rtl::IntToStr(n);
        TFieldDef* d = defs->AddFieldDef();
        d->SetName(unique);
        d->SetDataType(c.DataType == ftAutoInc ? ftInteger : c.DataType);
        d->SetSize(c.Size);
        d->SetRequired(false);
    }
    defs->EndUpdate();
}
} // namespace

void TQuery::InternalOpen() {
    TDbConnection* conn = OpenConnection();
    TDbRows rows = RunQuery(conn);
    FillFieldDefs(FieldDefs(), rows.Columns);
    SetReadOnlyData(true);
    LoadRows(conn, rows);
}

void TQuery::InternalRefresh() {
    TDbConnection* conn = Database()->Connection();
    TDbRows rows = RunQuery(conn);
    if (static_cast<int>(rows.Columns.size()) != FieldDefs()->Count())
        DatabaseError("The query's columns changed; close and open it again");
    LoadRows(conn, rows);
}

void TQuery::InternalInitFieldDefs() {
    if (rtl::Trim(FSQL->Text()).empty()) DatabaseError(SNoSQLStatement);
    TDbConnection* conn = OpenConnection();
    try {
        TDbRows rows = RunQuery(conn);
        FillFieldDefs(FieldDefs(), rows.Columns);
    } catch (...) {
        CloseConnection();
        throw;
    }
    CloseConnection();
}

void TQuery::MasterChanged() {
    if (!Active() || State() == dsOpening) return;
    Refresh();
    First();
}

void TQuery::ExecSQL() {
    CheckInactive();
    TDbConnection* conn = OpenConnection();
    try {
        if (rtl::Trim(FSQL->Text()).empty()) DatabaseError(SNoSQLStatement);
        std::string text;
        std::vector<Variant> values = ParamValues(text);
        FRowsAffected = conn->ExecSQL(text, values);
    } catch (...) {
        CloseConnection();
        throw;
    }
    CloseConnection();
}

} // namespace db
