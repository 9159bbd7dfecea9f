// TDatabase, a connection through a driver by alias or by driver and parameters, and TDBDataSet, the data
// set that reaches its database through a session.
#include <algorithm>

#include "db/dbtables.h"

namespace db {

using rtl::Format;

JEX_DEFINE_EVENT_TYPE(TDatabaseLoginEvent, "Database: TDatabase; LoginParams: TStrings")

JEX_IMPLEMENT_CLASS(TDatabase, TComponent, "DBTables") {
    d.Property("AliasName", &TDatabase::AliasName, &TDatabase::SetAliasName);
    d.Property("Connected", &TDatabase::Connected, &TDatabase::SetConnected).Default(false);
    d.Property("DatabaseName", &TDatabase::DatabaseName, &TDatabase::SetDatabaseName);
    d.Property("DriverName", &TDatabase::DriverName, &TDatabase::SetDriverName);
    d.Property("Exclusive", &TDatabase::Exclusive, &TDatabase::SetExclusive).Default(false);
    d.Property("KeepConnection", &TDatabase::KeepConnection, &TDatabase::SetKeepConnection).Default(true);
    d.Property("LoginPrompt", &TDatabase::LoginPrompt, &TDatabase::SetLoginPrompt).Default(true);
    d.Property("Params", &TDatabase::Params, &TDatabase::SetParams);
    d.Property("ReadOnly", &TDatabase::ReadOnly, &TDatabase::SetReadOnly).Default(false);
    d.Property("SessionName", &TDatabase::SessionName, &TDatabase::SetSessionName);
    d.Property("TransIsolation", &TDatabase::TransIsolation, &TDatabase::SetTransIsolation)
        .Default(tiReadCommitted);
    d.Event("AfterConnect", &TDatabase::AfterConnect);
    d.Event("AfterDisconnect", &TDatabase::AfterDisconnect);
    d.Event("BeforeConnect", &TDatabase::BeforeConnect);
    d.Event("BeforeDisconnect", &TDatabase::BeforeDisconnect);
    d.Event("OnLogin", &TDatabase::OnLogin);
}

TDatabase::TDatabase(TComponent* AOwner) : TComponent(AOwner), FParams(std::make_unique<rtl::TStringList>()) {
    FSession = Sessions()->FindSession("");
    if (FSession) FSession->AddDatabase(this);
}

TDatabase::~TDatabase() {
    BeforeDestruction();
}

void TDatabase::BeforeDestruction() {
    if (!IsDestroying()) Destroying();
    try {
        DoDisconnect();
    } catch (...) {
    }
    if (FSession) {
        FSession->RemoveDatabase(this);
        FSession = nullptr;
    }
    TComponent::BeforeDestruction();
}

void TDatabase::CheckInactive() const {
    if (Connected()) throw EDatabaseError("Cannot perform this operation on an open database");
}

TSession* TDatabase::Session() const {
    return FSession;
}

void TDatabase::SetAliasName(const std::string& Value) {
    CheckInactive();
    FAliasName = Value;
    if (!Value.empty()) FDriverName.clear();
}

void TDatabase::SetDriverName(const std::string& Value) {
    CheckInactive();
    FDriverName = Value;
    if (!Value.empty()) FAliasName.clear();
}

void TDatabase::SetDatabaseName(const std::string& Value) {
    if (Value == FDatabaseName) return;
    CheckInactive();
    // A form being read may name a database that another open form already has (the designer reads a
    // pasted or reopened copy next to the original): the name is only checked when set by hand.
    if (FSession && !Value.empty() && !ComponentState().Contains(rtl::csReading)) {
        TDatabase* other = FSession->FindDatabase(Value);
        if (other && other != this) throw EDatabaseError(Format(SDuplicateDatabase, {Value}));
    }
    FDatabaseName = Value;
}

void TDatabase::SetSessionName(const std::string& Value) {
    if (Value == FSessionName) return;
    CheckInactive();
    TSession* s = Sessions()->FindSession(Value);
    if (!IsLoading() && !ComponentState().Contains(rtl::csReading) && !s)
        throw EDatabaseError(Format("Session name %s not found", {Value}));
    if (s && !FDatabaseName.empty()) {
        TDatabase* other = s->FindDatabase(FDatabaseName);
        if (other && other != this) throw EDatabaseError(Format(SDuplicateDatabase, {FDatabaseName}));
    }
    if (FSession) FSession->RemoveDatabase(this);
    FSessionName = Value;
    FSession = s;
    if (s) s->AddDatabase(this);
}

void TDatabase::SetParams(TStrings* Value) {
    if (Value)
        FParams->Assign(Value);
    else
        FParams->Clear();
}

void TDatabase::SetConnected(bool Value) {
    if (IsLoading() || ComponentState().Contains(rtl::csReading)) {
        FStreamedConnected = Value;
        return;
    }
    if (Value)
        DoConnect();
    else
        DoDisconnect();
}

void TDatabase::Loaded() {
    TComponent::Loaded();
    if (!FSession) {
        FSession = Sessions()->FindSession(FSessionName);
        if (FSession) FSession->AddDatabase(this);
    }
    if (FStreamedConnected) {
        FStreamedConnected = false;
        try {
            DoConnect();
        } catch (const rtl::Exception&) {
            if (!IsDesigning()) throw;
        }
    }
}

void TDatabase::ResolveParams(std::string& driver, rtl::TStringList& params) const {
    params.Clear();
    if (!FAliasName.empty()) {
        if (!FSession) throw EDatabaseError(Format("Session name %s not found", {FSessionName}));
        driver = FSession->GetAliasDriverName(FAliasName);
        FSession->GetAliasParams(FAliasName, &params);
    } else {
        driver = FDriverName;
    }
    // The component's own parameters override the alias's.
    for (int i = 0; i < FParams->Count(); ++i) {
        std::string n = FParams->Names(i);
        if (n.empty()) continue;
        int k = params.IndexOfName(n);
        std::string line = n + "=" + FParams->Values(n);
        if (k >= 0)
            params.Put(k, line);
        else
            params.Add(line);
    }
    if (FReadOnly) params.SetValues("READ ONLY", "TRUE");
}

std::string TDatabase::ResolvedDriverName() const {
    if (!FAliasName.empty() && FSession) return FSession->GetAliasDriverName(FAliasName);
    return FDriverName;
}

bool TDatabase::IsSQLBased() const {
    return !rtl::SameText(ResolvedDriverName(), "STANDARD");
}

void TDatabase::DoConnect() {
    if (Connected()) return;
    if (FDatabaseName.empty() && !FTemporary) throw EDatabaseError(SNoDatabaseName);
    BeforeConnect(this);
    std::string driverName;
    rtl::TStringList params;
    ResolveParams(driverName, params);
    if (driverName.empty())
        throw EDatabaseError(Format("Database %s has neither an alias nor a driver", {FDatabaseName}));
    TDbDriver* driver = FindDbDriver(driverName);
    if (!driver) throw EDatabaseError(Format(SUnknownDriver, {driverName}));
    if (FLoginPrompt && OnLogin) OnLogin(this, &params);
    FConnection = driver->Connect(FAliasName.empty() ? FDatabaseName : FAliasName, &params);
    AfterConnect(this);
}

void TDatabase::DoDisconnect() {
    // Closing the data sets releases their uses, which must not close this database a second time.
    if (!Connected() || FDisconnecting) return;
    BeforeDisconnect(this);
    FDisconnecting = true;
    try {
        CloseDataSets();
    } catch (...) {
        FDisconnecting = false;
        throw;
    }
    FDisconnecting = false;
    if (FConnection->InTransaction()) {
        try {
            FConnection->Rollback();
        } catch (...) {
        }
    }
    FConnection.reset();
    if (!IsDestroying()) AfterDisconnect(this);
}

TDbConnection* TDatabase::Connection() const {
    if (!FConnection) throw EDatabaseError(Format(SNotConnected, {FDatabaseName}));
    return FConnection.get();
}

void TDatabase::StartTransaction() {
    if (!Connected()) DoConnect();
    Connection()->StartTransaction(FTransIsolation);
}

void TDatabase::Commit() {
    Connection()->Commit();
}
void TDatabase::Rollback() {
    Connection()->Rollback();
}
bool TDatabase::InTransaction() const {
    return FConnection && FConnection->InTransaction();
}

int TDatabase::Execute(const std::string& SQL, TParams* Params) {
    if (!Connected()) DoConnect();
    TParams parsed(nullptr);
    std::vector<std::string> order;
    std::string text = parsed.ParseSQL(SQL, false, &order);
    std::vector<Variant> values;
    for (const std::string& name : order) {
        if (!Params) throw EDatabaseError(Format("No value for parameter '%s'", {name}));
        TParam* p = Params->ParamByName(name);
        values.push_back(FConnection->ToStorage(p->Value(), p->DataType()));
    }
    return FConnection->ExecSQL(text, values);
}

void TDatabase::GetTableNames(TStrings* List, bool SystemTables) {
    if (!Connected()) DoConnect();
    List->BeginUpdate();
    List->Clear();
    for (auto& n : FConnection->GetTableNames(SystemTables))
        List->Add(n);
    List->EndUpdate();
}

TDBDataSet* TDatabase::DataSets(int Index) const {
    if (Index < 0 || Index >= DataSetCount()) throw rtl::EListError(Format(rtl::SListIndexError, {Index}));
    return FDataSets[static_cast<size_t>(Index)];
}

void TDatabase::CloseDataSets() {
    std::vector<TDBDataSet*> sets = FDataSets;
    for (TDBDataSet* ds : sets)
        ds->Close();
}

// ---- TDBDataSet -------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TDBDataSet, TDataSet, "DBTables") {}

TDBDataSet::TDBDataSet(TComponent* AOwner) : TDataSet(AOwner) {}

TDBDataSet::~TDBDataSet() {
    CloseQuietly();
    CloseConnection();
}

void TDBDataSet::SetDatabaseName(const std::string& Value) {
    if (Value == FDatabaseName) return;
    CheckInactive();
    FDatabaseName = Value;
}

void TDBDataSet::SetSessionName(const std::string& Value) {
    if (Value == FSessionName) return;
    CheckInactive();
    FSessionName = Value;
}

TSession* TDBDataSet::DBSession() const {
    TSession* s = Sessions()->FindSession(FSessionName);
    if (!s) throw EDatabaseError(Format("Session name %s not found", {FSessionName}));
    return s;
}

TDbConnection* TDBDataSet::OpenConnection() {
    if (FDatabase) return FDatabase->Connection();
    if (rtl::Trim(FDatabaseName).empty()) DatabaseError(SNoDatabaseName);
    TDatabase* db = DBSession()->OpenDatabase(FDatabaseName);
    FDatabase = db;
    db->FDataSets.push_back(this);
    db->FreeNotification(this);
    return db->Connection();
}

void TDBDataSet::CloseConnection() {
    TDatabase* db = FDatabase;
    if (!db) return;
    FDatabase = nullptr;
    auto& l = db->FDataSets;
    l.erase(std::remove(l.begin(), l.end(), this), l.end());
    RemoveFreeNotification(db);
    if (TSession* s = db->Session()) s->CloseDatabase(db);
}

TDBDataSet::TTempConnection TDBDataSet::TemporaryConnection() {
    if (FDatabase) {
        ++FDatabase->FRefCount;
        return TTempConnection{this, FDatabase, FDatabase->Connection()};
    }
    if (rtl::Trim(FDatabaseName).empty()) DatabaseError(SNoDatabaseName);
    TDatabase* db = DBSession()->OpenDatabase(FDatabaseName);
    return TTempConnection{this, db, db->Connection()};
}

TDBDataSet::TTempConnection::~TTempConnection() {
    if (TSession* s = Db->Session()) s->CloseDatabase(Db);
}

void TDBDataSet::InternalClose() {
    CloseConnection();
}

void TDBDataSet::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TDataSet::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FDatabase) FDatabase = nullptr;
}

} // namespace db
