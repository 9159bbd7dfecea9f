// Sessions, databases, tables and queries: aliases from the configuration file, connections through the
// storage drivers, and the TTable / TQuery data sets that read and write real tables.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "db/db.h"
#include "db/dbdriver.h"

namespace db {

class TDatabase;
class TDBDataSet;

JEX_EVENT_TYPE(TDatabaseLoginEvent, void(TDatabase* Database, rtl::TStrings* LoginParams))

// A session: the aliases it knows, the databases open in it. Sessions().Session (the one named "Default")
// always exists; others are made by dropping a TSession on a form or with Sessions()->OpenSession.
//
// Aliases come from the configuration file jexdb.ini in the system directory (rtl::GetSystemDirectory): one
// section per alias, its keys being the alias's parameters, "DRIVER" naming the driver ("SQLITE" or
// "STANDARD"). While the file does not exist the configuration holds one alias, JEXDEMO: the SQLite database
// jexdemo.sqlite in the folder "jexdata" of the system directory (made when it is first opened). Aliases
// added with AddAlias / AddStandardAlias belong to the session until SaveConfigFile writes them.
//
// An SQLite alias names one database file: DATABASE NAME (absolute, or relative to PATH), by default the
// alias name in lower case with ".sqlite" in PATH. PATH defaults to the system directory's "jexdata" folder.
class TSession : public TComponent {
    JEX_CLASS(TSession, TComponent)
    explicit TSession(TComponent* AOwner);
    ~TSession() override;

    const std::string& SessionName() const { return FSessionName; }
    // Raises EDatabaseError "Duplicate session name '%s'" when another session has the name.
    void SetSessionName(const std::string& Value);
    bool Active() const { return FActive; }
    void SetActive(bool Value);
    void Open() { SetActive(true); }
    void Close() { SetActive(false); }
    // Keep databases that were opened for data sets connected after the last data set closes.
    bool KeepConnections() const { return FKeepConnections; }
    void SetKeepConnections(bool Value) { FKeepConnections = Value; }

    // ---- Aliases
    static std::string ConfigFileName() { return "jexdb.ini"; }
    void GetAliasNames(TStrings* List);
    // "NAME=VALUE" lines of the alias without its DRIVER; EDatabaseError "Unknown alias: %s".
    void GetAliasParams(const std::string& AliasName, TStrings* List);
    std::string GetAliasDriverName(const std::string& AliasName);
    bool IsAlias(const std::string& Name);
    void AddAlias(const std::string& Name, const std::string& Driver, TStrings* List);
    // A folder of table files (Paradox, dBASE, text); DefaultDriver is written as "DEFAULT DRIVER".
    void AddStandardAlias(const std::string& Name, const std::string& Path, const std::string& DefaultDriver);
    void ModifyAlias(const std::string& Name, TStrings* List);
    void DeleteAlias(const std::string& Name);
    // Writes the session's aliases and deletions into the configuration file.
    void SaveConfigFile();

    // ---- Names
    // Alias names and the DatabaseName of every database component of this session, sorted, each once.
    void GetDatabaseNames(TStrings* List);
    void GetDriverNames(TStrings* List);
    void GetDriverParams(const std::string& DriverName, TStrings* List);
    // Tables of the database: Pattern filters the names ("*.db"); Extensions keeps file extensions;
    // SystemTables adds the driver's own tables.
    void GetTableNames(const std::string& DatabaseName, const std::string& Pattern, bool Extensions,
                       bool SystemTables, TStrings* List);

    // ---- Databases
    int DatabaseCount() const { return static_cast<int>(FDatabases.size()); }
    TDatabase* Databases(int Index) const;
    TDatabase* FindDatabase(const std::string& DatabaseName) const;
    // The database component of that name, or a temporary one made for an alias, a folder path or an
    // SQLite file path; connects it and counts the use. EDatabaseError when the name means nothing.
    TDatabase* OpenDatabase(const std::string& DatabaseName);
    // Ends one use; a temporary database is freed with its last use unless KeepConnections.
    void CloseDatabase(TDatabase* Database);
    // Frees the temporary databases that nothing uses.
    void DropConnections();

protected:
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;

private:
    friend class TDatabase;
    struct TAlias {
        std::string Name;
        std::string Driver;
        std::vector<std::string> Params; // NAME=VALUE
        bool Deleted = false;
    };
    std::vector<TAlias> LoadAliases() const;
    const TAlias* FindAlias(const std::vector<TAlias>& all, std::string_view Name) const;
    void AddDatabase(TDatabase* Database);
    void RemoveDatabase(TDatabase* Database);
    std::string FSessionName;
    bool FActive = true;
    bool FKeepConnections = true;
    std::vector<TDatabase*> FDatabases;
    std::vector<TAlias> FSessionAliases; // added, modified or deleted in this session
};

class TSessionList;
TSessionList* Sessions();

// The list of sessions of the process.
class TSessionList : public TObject {
    JEX_CLASS(TSessionList, TObject)
    TSessionList();
    ~TSessionList() override;
    int Count() const { return static_cast<int>(FSessions.size()); }
    TSession* Sessions(int Index) const;
    TSession* FindSession(std::string_view SessionName) const; // "" is the default session
    // The session of that name, created (owned by the list) when missing.
    TSession* OpenSession(const std::string& SessionName);
    void GetSessionNames(TStrings* List) const;
    TSession* CurrentSession() const { return FCurrent; }
    void SetCurrentSession(TSession* Value) { FCurrent = Value; }

private:
    friend class TSession;
    friend TSessionList* Sessions();
    std::vector<TSession*> FSessions;
    std::vector<TSession*> FOwned;
    TSession* FCurrent = nullptr;
};

// The process's session list and its default session, made on first use.
TSessionList* Sessions();
TSession* Session();

// A connection to one database through a driver: by alias (AliasName) or by driver and parameters
// (DriverName, Params). Its DatabaseName is what data sets name in their own DatabaseName.
class TDatabase : public TComponent {
    JEX_CLASS(TDatabase, TComponent)
    explicit TDatabase(TComponent* AOwner);
    ~TDatabase() override;
    void BeforeDestruction() override;

    const std::string& AliasName() const { return FAliasName; }
    void SetAliasName(const std::string& Value);
    const std::string& DriverName() const { return FDriverName; }
    void SetDriverName(const std::string& Value);
    const std::string& DatabaseName() const { return FDatabaseName; }
    void SetDatabaseName(const std::string& Value);
    TStrings* Params() const { return FParams.get(); }
    void SetParams(TStrings* Value);
    bool Connected() const { return FConnection != nullptr; }
    // Applied in Loaded while the component is read from a form.
    void SetConnected(bool Value);
    void Open() { SetConnected(true); }
    void Close() { SetConnected(false); }
    bool LoginPrompt() const { return FLoginPrompt; }
    void SetLoginPrompt(bool Value) { FLoginPrompt = Value; }
    bool KeepConnection() const { return FKeepConnection; }
    void SetKeepConnection(bool Value) { FKeepConnection = Value; }
    bool Exclusive() const { return FExclusive; }
    void SetExclusive(bool Value) { FExclusive = Value; }
    bool ReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool Value) { FReadOnly = Value; }
    const std::string& SessionName() const { return FSessionName; }
    void SetSessionName(const std::string& Value);
    TTransIsolation TransIsolation() const { return FTransIsolation; }
    void SetTransIsolation(TTransIsolation Value) { FTransIsolation = Value; }
    // The session this database belongs to (SessionName resolved).
    TSession* Session() const;
    // Made by the session for a data set; freed by it.
    bool Temporary() const { return FTemporary; }
    bool IsSQLBased() const;

    void StartTransaction();
    void Commit();
    void Rollback();
    bool InTransaction() const;
    // Runs one SQL statement (":Name" parameters from Params); returns the number of rows changed.
    int Execute(const std::string& SQL, TParams* Params = nullptr);
    void GetTableNames(TStrings* List, bool SystemTables = false);
    int DataSetCount() const { return static_cast<int>(FDataSets.size()); }
    TDBDataSet* DataSets(int Index) const;
    void CloseDataSets();
    // The open connection; EDatabaseError when not connected.
    TDbConnection* Connection() const;
    // The driver's name after resolving the alias.
    std::string ResolvedDriverName() const;

    TDatabaseLoginEvent OnLogin;
    rtl::TNotifyEvent BeforeConnect, AfterConnect, BeforeDisconnect, AfterDisconnect;

    void Loaded() override;

private:
    friend class TSession;
    friend class TDBDataSet;
    void DoConnect();
    void DoDisconnect();
    void CheckInactive() const;
    void ResolveParams(std::string& driver, rtl::TStringList& params) const;
    std::string FAliasName, FDriverName, FDatabaseName, FSessionName;
    std::unique_ptr<rtl::TStringList> FParams;
    std::unique_ptr<TDbConnection> FConnection;
    TSession* FSession = nullptr;
    std::vector<TDBDataSet*> FDataSets;
    TTransIsolation FTransIsolation = tiReadCommitted;
    bool FLoginPrompt = true;
    bool FKeepConnection = true;
    bool FExclusive = false;
    bool FReadOnly = false;
    bool FTemporary = false;
    bool FStreamedConnected = false;
    bool FDisconnecting = false;
    int FRefCount = 0;
};

// A data set that lives in a database of a session.
class TDBDataSet : public TDataSet {
    JEX_CLASS(TDBDataSet, TDataSet)
    explicit TDBDataSet(TComponent* AOwner);
    ~TDBDataSet() override;

    const std::string& DatabaseName() const { return FDatabaseName; }
    void SetDatabaseName(const std::string& Value); // only while closed
    const std::string& SessionName() const { return FSessionName; }
    void SetSessionName(const std::string& Value); // only while closed
    // The database while open, nil otherwise.
    TDatabase* Database() const { return FDatabase; }
    // The session that SessionName names (the default one for "").
    TSession* DBSession() const;

protected:
    // Opens the database through the session (counted) and returns its connection.
    TDbConnection* OpenConnection();
    void CloseConnection();
    // A connection for work on a closed data set (CreateTable, FieldDefs.Update); released by the guard.
    struct TTempConnection {
        TDBDataSet* Owner;
        TDatabase* Db;
        TDbConnection* Conn;
        ~TTempConnection();
    };
    TTempConnection TemporaryConnection();
    void InternalClose() override;
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;

private:
    friend class TDatabase;
    std::string FDatabaseName, FSessionName;
    TDatabase* FDatabase = nullptr;
};

class TTable : public TDBDataSet {
    JEX_CLASS(TTable, TDBDataSet)
    explicit TTable(TComponent* AOwner);
    ~TTable() override;

    const std::string& TableName() const { return FTableName; }
    void SetTableName(const std::string& Value); // only while closed
    TTableType TableType() const { return FTableType; }
    void SetTableType(TTableType Value);
    // Orders the records by a named index, or by a field list (IndexFieldNames); setting one clears the
    // other. While open the records are re-read in the new order.
    const std::string& IndexName() const { return FIndexName; }
    void SetIndexName(const std::string& Value);
    const std::string& IndexFieldNames() const { return FIndexFieldNames; }
    void SetIndexFieldNames(const std::string& Value);
    TIndexDefs* IndexDefs() const { return FIndexDefs.get(); }
    void SetIndexDefs(TIndexDefs* Value);
    // A master data source whose MasterFields values select the detail records (matched against the
    // fields of the current index, or fields of the same names when there is none).
    TDataSource* MasterSource() const;
    void SetMasterSource(TDataSource* Value); // EDatabaseError "Circular datalinks are not allowed"
    const std::string& MasterFields() const { return FMasterFields; }
    void SetMasterFields(const std::string& Value);
    bool ReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool Value);
    bool Exclusive() const { return FExclusive; }
    void SetExclusive(bool Value);
    // Write the field and index definitions into form files.
    bool StoreDefs() const { return FStoreDefs; }
    void SetStoreDefs(bool Value) { FStoreDefs = Value; }
    bool CanModify() const override;
    TDataSource* GetDataSource() const override { return MasterSource(); }

    // ---- Table operations (on a closed table)
    bool Exists();
    // Creates the table from FieldDefs and IndexDefs, replacing one of the same name.
    void CreateTable();
    void DeleteTable();
    // Deletes every row (also while open; the records are re-read).
    void EmptyTable();
    void AddIndex(const std::string& Name, const std::string& Fields, TIndexOptions Options);
    void DeleteIndex(const std::string& Name);
    void GetIndexNames(TStrings* List);
    int IndexFieldCount() const;
    TField* IndexFields(int Index) const;

    // ---- Keys and ranges over the current index's fields
    // Shows only records whose first index fields lie between StartValues and EndValues (inclusive).
    void SetRange(const std::vector<Variant>& StartValues, const std::vector<Variant>& EndValues);
    void CancelRange();
    bool FindKey(const std::vector<Variant>& KeyValues);
    void FindNearest(const std::vector<Variant>& KeyValues);

protected:
    void InternalOpen() override;
    void InternalInitFieldDefs() override;
    void InternalInitIndexDefs() override;
    void InternalPost(TRecordData& Record, bool Inserting) override;
    void InternalDelete(const TRecordData& Record) override;
    void InternalRefresh() override;
    bool RecordInScope(const TRecordData& Record) const override;
    void InitNewRecord(std::vector<Variant>& Values) override;
    void SortRecords() override;

private:
    class TMasterLink;
    friend class TMasterLink;
    void CheckTableType(TDbConnection* conn) const;
    std::string StorageName() const;
    std::vector<TDbOrder> CurrentOrder() const;
    std::vector<int> IndexColumns() const; // 0-based column positions of the current order
    std::vector<int> DetailColumns() const;
    void MasterChanged();
    void ReadRecords(TDbConnection* conn);
    void Reorder();
    std::string FTableName, FIndexName, FIndexFieldNames, FMasterFields;
    TTableType FTableType = ttDefault;
    std::unique_ptr<TIndexDefs> FIndexDefs;
    std::unique_ptr<TMasterLink> FMasterLink;
    std::vector<Variant> FRangeStart, FRangeEnd;
    bool FRanged = false;
    bool FReadOnly = false;
    bool FExclusive = false;
    bool FStoreDefs = false;
    bool FWritable = true;
};

class TQuery : public TDBDataSet {
    JEX_CLASS(TQuery, TDBDataSet)
    explicit TQuery(TComponent* AOwner);
    ~TQuery() override;

    // Changing the statement closes the query and, with ParamCheck, rebuilds Params from its ":Name"s.
    TStrings* SQL() const { return FSQL.get(); }
    void SetSQL(TStrings* Value);
    TParams* Params() const { return FParams.get(); }
    void SetParams(TParams* Value);
    int ParamCount() const { return FParams->Count(); }
    TParam* ParamByName(std::string_view Name) const { return FParams->ParamByName(Name); }
    bool ParamCheck() const { return FParamCheck; }
    void SetParamCheck(bool Value) { FParamCheck = Value; }
    // Parameters that have no value take the value of the master data set's field of the same name; the
    // query is re-run when the master moves.
    TDataSource* DataSource() const;
    void SetDataSource(TDataSource* Value); // EDatabaseError "Circular datalinks are not allowed"
    TDataSource* GetDataSource() const override { return DataSource(); }
    // Results are read-only here: a live result would need the statement's single source table.
    bool RequestLive() const { return FRequestLive; }
    void SetRequestLive(bool Value) { FRequestLive = Value; }
    bool UniDirectional() const { return FUniDirectional; }
    void SetUniDirectional(bool Value) { FUniDirectional = Value; }
    bool Prepared() const { return FPrepared; }
    void SetPrepared(bool Value);
    void Prepare() { SetPrepared(true); }
    void UnPrepare() { SetPrepared(false); }
    // Runs a statement that returns no rows (or ignores them).
    void ExecSQL();
    int RowsAffected() const { return FRowsAffected; }
    // The statement as sent to the driver, parameters as '?'.
    std::string Text() const;

protected:
    void InternalOpen() override;
    void InternalInitFieldDefs() override;
    void InternalRefresh() override;

private:
    class TQueryMasterLink;
    TDbRows RunQuery(TDbConnection* Conn);
    void LoadRows(TDbConnection* Conn, TDbRows& Rows);
    void MasterChanged();
    friend class TQueryMasterLink;
    void SQLChanged();
    std::vector<Variant> ParamValues(std::string& sqlText) const;
    std::unique_ptr<rtl::TStringList> FSQL;
    std::unique_ptr<TParams> FParams;
    std::unique_ptr<TQueryMasterLink> FMasterLink;
    bool FParamCheck = true;
    bool FRequestLive = false;
    bool FUniDirectional = false;
    bool FPrepared = false;
    int FRowsAffected = -1;
};

// Texts of this unit.
inline constexpr const char* STableDoesNotExist = "Table does not exist: %s";
inline constexpr const char* SNoTableName = "Missing TableName property";
inline constexpr const char* SNoDatabaseName = "Missing DatabaseName property";
inline constexpr const char* SNoSQLStatement = "No SQL statement available";
inline constexpr const char* SUnknownDatabase = "Unknown database or alias: %s";
inline constexpr const char* SUnknownAlias = "Unknown alias: %s";
inline constexpr const char* SUnknownDriver = "Unknown driver: %s";
inline constexpr const char* SDuplicateSession = "Duplicate session name '%s'";
inline constexpr const char* SDuplicateDatabase = "Duplicate database name '%s'";
inline constexpr const char* STableTypeNotSupported = "Table type %s is not supported by the %s driver";
inline constexpr const char* SNotConnected = "Database %s is not connected";
inline constexpr const char* SNoIndexOrder = "No index currently active";

} // namespace db
