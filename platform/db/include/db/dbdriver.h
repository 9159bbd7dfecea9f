// The storage driver interface behind databases, tables and queries. A driver connects to a database named by
// its parameters; a connection lists, describes, creates and reads tables, writes rows by key and runs SQL.
// The SQLite driver ("SQLITE") is built in; the folder driver ("STANDARD") lists table files of a folder.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "db/db.h"

namespace db {

JEX_ENUM(TTransIsolation, tiDirtyRead, tiReadCommitted, tiRepeatableRead)
JEX_ENUM(TTableType, ttDefault, ttParadox, ttDBase, ttFoxPro, ttASCII)

// A value read from storage in the representation fields expect for Type: dates and times as TDateTime
// numbers (ISO text is parsed), Booleans as Booleans, integers and floats as numbers, text as text.
Variant NormalizeValue(const Variant& Value, TFieldType Type);

// A column of a result: its name, field type and size, and whether it may be empty.
struct TDbColumn {
    std::string Name;
    TFieldType DataType = ftUnknown;
    int Size = 0;
    bool Required = false;
};

// Rows read from storage; Keys[i] identifies Rows[i] for later updates (empty when rows cannot be updated).
struct TDbRows {
    std::vector<TDbColumn> Columns;
    std::vector<std::vector<Variant>> Rows;
    std::vector<int64_t> Keys;
};

// An ordering column of a table read.
struct TDbOrder {
    std::string Column;
    bool Descending = false;
    bool CaseInsensitive = false;
};

class TDbConnection {
public:
    virtual ~TDbConnection() = default;

    // ---- Catalogue
    // Table names as stored (with extensions for file-based drivers); system tables only when asked.
    virtual std::vector<std::string> GetTableNames(bool SystemTables) = 0;
    virtual bool TableExists(const std::string& Table) = 0;
    // Fills the definitions of an existing table (either may be nil); EDatabaseError "Table does not exist".
    virtual void GetTableDefs(const std::string& Table, TFieldDefs* Fields, TIndexDefs* Indexes) = 0;
    // Creates the table, replacing one of the same name.
    virtual void CreateTable(const std::string& Table, const TFieldDefs* Fields,
                             const TIndexDefs* Indexes) = 0;
    virtual void DeleteTable(const std::string& Table) = 0;
    virtual void EmptyTable(const std::string& Table) = 0;
    virtual void AddIndex(const std::string& Table, const TIndexDef* Index) = 0;
    virtual void DeleteIndex(const std::string& Table, const std::string& IndexName) = 0;
    // Whether rows of the table can be written (views cannot).
    virtual bool TableIsWritable(const std::string& Table) = 0;

    // ---- Rows of one table, with their keys
    virtual TDbRows ReadTable(const std::string& Table, const std::vector<std::string>& Columns,
                              const std::vector<TDbOrder>& Order) = 0;
    virtual int64_t InsertRow(const std::string& Table, const std::vector<std::string>& Columns,
                              const std::vector<Variant>& Values) = 0;
    // Returns the row's key afterwards (a changed key column can move it).
    virtual int64_t UpdateRow(const std::string& Table, int64_t Key, const std::vector<std::string>& Columns,
                              const std::vector<Variant>& Values) = 0;
    virtual void DeleteRow(const std::string& Table, int64_t Key) = 0;
    // The stored values of one row (after defaults and generated keys were applied).
    virtual std::vector<Variant> ReadRow(const std::string& Table, int64_t Key,
                                         const std::vector<std::string>& Columns) = 0;

    // ---- SQL; parameters are '?' placeholders bound in order. Drivers without SQL raise EDatabaseError.
    virtual TDbRows OpenQuery(const std::string& SQL, const std::vector<Variant>& Params) = 0;
    // Returns the number of rows changed.
    virtual int ExecSQL(const std::string& SQL, const std::vector<Variant>& Params) = 0;

    // ---- Values: the stored form of a field type's value, and back (dates as numbers, Booleans as such).
    virtual Variant ToStorage(const Variant& Value, TFieldType Type) const { return Value; }
    virtual Variant FromStorage(const Variant& Value, TFieldType Type) const {
        return NormalizeValue(Value, Type);
    }

    // ---- Transactions
    virtual void StartTransaction(TTransIsolation Isolation) = 0;
    virtual void Commit() = 0;
    virtual void Rollback() = 0;
    virtual bool InTransaction() const = 0;
};

class TDbDriver {
public:
    virtual ~TDbDriver() = default;
    // The driver name aliases and TDatabase.DriverName use ("SQLITE").
    virtual std::string Name() const = 0;
    // The parameters a new alias of this driver starts with ("PATH=" ...).
    virtual std::vector<std::string> DefaultParams() const = 0;
    virtual bool SupportsTableType(TTableType Type) const = 0;
    // Opens the database that Params ("NAME=VALUE" lines) describe. DatabaseName names it for defaults and
    // messages. Raises EDatabaseError with the reason.
    virtual std::unique_ptr<TDbConnection> Connect(const std::string& DatabaseName,
                                                   const TStrings* Params) = 0;
};

// The driver registry. Registering a driver under a taken name replaces it; Unregister gives it back.
void RegisterDbDriver(std::shared_ptr<TDbDriver> Driver);
void UnregisterDbDriver(const std::string& Name);
TDbDriver* FindDbDriver(std::string_view Name); // nil when unknown (ignoring case)
std::vector<std::string> GetDbDriverNames();

// Matches Name against a table mask with '*' and '?' ("*.db"), ignoring case; an empty mask matches all.
bool MatchesMask(std::string_view Name, std::string_view Mask);

} // namespace db
