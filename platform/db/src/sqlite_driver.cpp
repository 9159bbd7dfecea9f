// The SQLite driver: one database file per alias, tables read and written by rowid, field types kept in the
// declared column types so that other tools read the same schema, and the ALTER TABLE ... ADD PRIMARY KEY
// statement (which SQLite lacks) done by rebuilding the table.
#include "sqlite_driver.h"

#include <sqlite3.h>

#include <cctype>
#include <cmath>

#include "rtl/lists.h"

namespace db {

using rtl::Format;

namespace {

std::string Quote(std::string_view name) {
    std::string r = "\"";
    for (char c : name) {
        if (c == '"') r += '"';
        r += c;
    }
    return r + '"';
}

// ---- SQL tokens, enough to read constraint names and the ADD PRIMARY KEY statement ------------------------
struct TSqlToken {
    std::string Text;
    bool Quoted = false;
};

std::vector<TSqlToken> Tokenize(std::string_view s) {
    std::vector<TSqlToken> out;
    size_t i = 0;
    while (i < s.size()) {
        char c = s[i];
        if (std::isspace(static_cast<unsigned char>(c))) {
            ++i;
        } else if (c == '-' && i + 1 < s.size() && s[i + 1] == '-') {
            while (i < s.size() && s[i] != '\n')
                ++i;
        } else if (c == '"' || c == '`' || c == '[' || c == '\'') {
            char close = c == '[' ? ']' : c;
            std::string v;
            size_t j = i + 1;
            while (j < s.size()) {
                if (s[j] == close) {
                    if (close != ']' && j + 1 < s.size() && s[j + 1] == close) {
                        v += close;
                        j += 2;
                        continue;
                    }
                    break;
                }
                v += s[j++];
            }
            out.push_back({c == '\'' ? "'" + v + "'" : v, c != '\''});
            i = j + 1;
        } else if (std::isalnum(static_cast<unsigned char>(c)) || c == '_' ||
                   static_cast<unsigned char>(c) >= 0x80) {
            size_t j = i;
            while (j < s.size() && (std::isalnum(static_cast<unsigned char>(s[j])) || s[j] == '_' ||
                                    s[j] == '.' || static_cast<unsigned char>(s[j]) >= 0x80))
                ++j;
            out.push_back({std::string(s.substr(i, j - i)), false});
            i = j;
        } else {
            out.push_back({std::string(1, c), false});
            ++i;
        }
    }
    return out;
}

bool Is(const TSqlToken& t, const char* word) {
    return !t.Quoted && rtl::SameText(t.Text, word);
}

// The name given to the primary key (CONSTRAINT name PRIMARY KEY) in a CREATE TABLE statement.
std::string PrimaryKeyName(const std::string& createSql) {
    auto t = Tokenize(createSql);
    for (size_t i = 0; i + 3 < t.size(); ++i)
        if (Is(t[i], "CONSTRAINT") && Is(t[i + 2], "PRIMARY") && Is(t[i + 3], "KEY")) return t[i + 1].Text;
    return "PRIMARY";
}

// ---- Types ------------------------------------------------------------------------------------------------
struct TDeclType {
    TFieldType Type = ftString;
    int Size = 0;
    int Precision = 0;
};

TDeclType ParseDeclType(const std::string& decl) {
    TDeclType r;
    std::string u = rtl::UpperCase(rtl::Trim(decl));
    std::string base = u;
    std::vector<int> args;
    size_t p = u.find('(');
    if (p != std::string::npos) {
        base = rtl::Trim(u.substr(0, p));
        size_t e = u.find(')', p);
        std::string inner = u.substr(p + 1, e == std::string::npos ? std::string::npos : e - p - 1);
        for (const std::string& a : SplitFieldNames(inner))
            args.push_back(rtl::StrToIntDef(a, 0));
    }
    int arg0 = args.empty() ? 0 : args[0];
    auto is = [&](std::initializer_list<const char*> names) {
        for (const char* n : names)
            if (base == n) return true;
        return false;
    };
    if (is({"VARCHAR", "CHARACTER VARYING", "VARYING CHARACTER", "NATIVE CHARACTER", "STRING", "VARCHAR2"})) {
        r.Type = ftString;
        r.Size = arg0 > 0 ? arg0 : 255;
    } else if (is({"CHAR", "CHARACTER"})) {
        r.Type = ftFixedChar;
        r.Size = arg0 > 0 ? arg0 : 1;
    } else if (is({"NVARCHAR", "NCHAR", "NATIONAL CHARACTER", "NATIONAL VARCHAR"})) {
        r.Type = ftWideString;
        r.Size = arg0 > 0 ? arg0 : 255;
    } else if (is({"TEXT", "CLOB", "MEMO", "LONGVARCHAR", "LONGTEXT", "MEDIUMTEXT"})) {
        r.Type = ftMemo;
        r.Size = arg0;
    } else if (base == "FMTTEXT") {
        r.Type = ftFmtMemo;
        r.Size = arg0;
    } else if (is({"SMALLINT", "INT2", "TINYINT"})) {
        r.Type = ftSmallint;
    } else if (base == "WORD") {
        r.Type = ftWord;
    } else if (is({"INTEGER", "INT", "MEDIUMINT", "INT4"})) {
        r.Type = ftInteger;
    } else if (is({"BIGINT", "INT8", "UNSIGNED BIG INT", "LARGEINT"})) {
        r.Type = ftLargeint;
    } else if (is({"BOOLEAN", "BOOL", "BIT", "LOGICAL"})) {
        r.Type = ftBoolean;
    } else if (is({"REAL", "FLOAT", "DOUBLE", "DOUBLE PRECISION", "NUMBER"})) {
        r.Type = ftFloat;
    } else if (is({"MONEY", "CURRENCY"})) {
        r.Type = ftCurrency;
    } else if (is({"DECIMAL", "NUMERIC"})) {
        r.Type = ftBCD;
        r.Precision = arg0;
        r.Size = args.size() > 1 ? args[1] : 0;
    } else if (base == "DATE") {
        r.Type = ftDate;
    } else if (base == "TIME") {
        r.Type = ftTime;
    } else if (is({"DATETIME", "TIMESTAMP"})) {
        r.Type = ftDateTime;
    } else if (base == "BINARY") {
        r.Type = ftBytes;
        r.Size = arg0;
    } else if (base == "VARBINARY") {
        r.Type = ftVarBytes;
        r.Size = arg0;
    } else if (base == "GRAPHIC BLOB") {
        r.Type = ftGraphic;
    } else if (base == "TYPED BLOB") {
        r.Type = ftTypedBinary;
    } else if (base.find("BLOB") != std::string::npos) {
        r.Type = ftBlob;
    } else if (base.find("INT") != std::string::npos) {
        r.Type = ftInteger; // SQLite's own rule: any type naming INT holds integers
    } else if (base.find("CHAR") != std::string::npos || base.find("TEXT") != std::string::npos) {
        r.Type = ftString;
        r.Size = arg0 > 0 ? arg0 : 255;
    } else {
        r.Type = ftString; // untyped columns hold anything; shown as text
        r.Size = 255;
    }
    return r;
}

std::string DeclTypeFor(const TFieldDef* d) {
    int size = d->Size();
    switch (d->DataType()) {
    case ftString:
        return Format("VARCHAR(%d)", {size > 0 ? size : 20});
    case ftFixedChar:
        return Format("CHAR(%d)", {size > 0 ? size : 1});
    case ftWideString:
        return Format("NVARCHAR(%d)", {size > 0 ? size : 20});
    case ftGuid:
        return "CHAR(38)";
    case ftSmallint:
        return "SMALLINT";
    case ftInteger:
    case ftAutoInc:
        return "INTEGER";
    case ftWord:
        return "WORD";
    case ftLargeint:
        return "BIGINT";
    case ftBoolean:
        return "BOOLEAN";
    case ftFloat:
        return "DOUBLE";
    case ftCurrency:
        return "MONEY";
    case ftBCD:
    case ftFMTBcd:
        return Format("DECIMAL(%d,%d)", {d->Precision() > 0 ? d->Precision() : 18, size});
    case ftDate:
        return "DATE";
    case ftTime:
        return "TIME";
    case ftDateTime:
    case ftTimeStamp:
        return "DATETIME";
    case ftBytes:
        return Format("BINARY(%d)", {size});
    case ftVarBytes:
        return Format("VARBINARY(%d)", {size});
    case ftMemo:
        return size > 0 ? Format("TEXT(%d)", {size}) : std::string("TEXT");
    case ftFmtMemo:
        return size > 0 ? Format("FMTTEXT(%d)", {size}) : std::string("FMTTEXT");
    case ftBlob:
    case ftParadoxOle:
    case ftDBaseOle:
    case ftOraBlob:
        return "BLOB";
    case ftGraphic:
        return "GRAPHIC BLOB";
    case ftTypedBinary:
        return "TYPED BLOB";
    case ftOraClob:
        return "TEXT";
    default:
        throw EDatabaseError(Format("Field '%s': type %s is not supported by the SQLITE driver",
                                    {d->Name(), FieldTypeName(d->DataType())}));
    }
}

// ---- Statements -------------------------------------------------------------------------------------------
class TStmt {
public:
    TStmt(sqlite3* db, const std::string& sql) : FDb(db) {
        const char* tail = nullptr;
        if (sqlite3_prepare_v2(db, sql.c_str(), static_cast<int>(sql.size()), &FStmt, &tail) != SQLITE_OK)
            Fail();
        if (!FStmt) throw EDatabaseError(SNoSQLStatementText);
        while (tail && *tail && std::isspace(static_cast<unsigned char>(*tail)))
            ++tail;
        if (tail && *tail && *tail != ';') {
            // Only one statement at a time, as the platform's query components run them.
            sqlite3_finalize(FStmt);
            throw EDatabaseError("Only one SQL statement can be run at a time");
        }
    }
    ~TStmt() { sqlite3_finalize(FStmt); }
    TStmt(const TStmt&) = delete;
    TStmt& operator=(const TStmt&) = delete;

    void Bind(const std::vector<Variant>& values) {
        int expected = sqlite3_bind_parameter_count(FStmt);
        if (expected != static_cast<int>(values.size()))
            throw EDatabaseError(Format("The statement needs %d parameter values, %d were given",
                                        {expected, static_cast<int>(values.size())}));
        for (size_t i = 0; i < values.size(); ++i) {
            int k = static_cast<int>(i) + 1;
            const Variant& v = values[i];
            int rc;
            if (v.IsNull())
                rc = sqlite3_bind_null(FStmt, k);
            else if (v.IsBool())
                rc = sqlite3_bind_int64(FStmt, k, v.AsBoolean() ? 1 : 0);
            else if (v.IsInteger())
                rc = sqlite3_bind_int64(FStmt, k, v.AsInteger());
            else if (v.IsFloat())
                rc = sqlite3_bind_double(FStmt, k, v.AsFloat());
            else {
                std::string s = v.AsString();
                // Text that is not UTF-8 (or holds NUL) is binary data.
                if (rtl::IsValidUtf8(s) && s.find('\0') == std::string::npos)
                    rc = sqlite3_bind_text(FStmt, k, s.data(), static_cast<int>(s.size()), SQLITE_TRANSIENT);
                else
                    rc = sqlite3_bind_blob(FStmt, k, s.data(), static_cast<int>(s.size()), SQLITE_TRANSIENT);
            }
            if (rc != SQLITE_OK) Fail();
        }
    }
    // True while there is a row.
    bool Step() {
        int rc = sqlite3_step(FStmt);
        if (rc == SQLITE_ROW) return true;
        if (rc == SQLITE_DONE) return false;
        Fail();
    }
    int ColumnCount() const { return sqlite3_column_count(FStmt); }
    Variant Column(int i) const {
        switch (sqlite3_column_type(FStmt, i)) {
        case SQLITE_NULL:
            return Variant();
        case SQLITE_INTEGER:
            return Variant(static_cast<int64_t>(sqlite3_column_int64(FStmt, i)));
        case SQLITE_FLOAT:
            return Variant(sqlite3_column_double(FStmt, i));
        case SQLITE_BLOB: {
            const void* p = sqlite3_column_blob(FStmt, i);
            int n = sqlite3_column_bytes(FStmt, i);
            return Variant(std::string(static_cast<const char*>(p ? p : ""), static_cast<size_t>(n)));
        }
        default: {
            const unsigned char* p = sqlite3_column_text(FStmt, i);
            int n = sqlite3_column_bytes(FStmt, i);
            return Variant(
                std::string(reinterpret_cast<const char*>(p ? p : reinterpret_cast<const unsigned char*>("")),
                            static_cast<size_t>(n)));
        }
        }
    }
    int64_t Int(int i) const { return sqlite3_column_int64(FStmt, i); }
    std::string Text(int i) const {
        const unsigned char* p = sqlite3_column_text(FStmt, i);
        return p ? std::string(reinterpret_cast<const char*>(p)) : std::string();
    }
    std::string ColumnName(int i) const {
        const char* n = sqlite3_column_name(FStmt, i);
        return n ? n : "";
    }
    std::string DeclType(int i) const {
        const char* d = sqlite3_column_decltype(FStmt, i);
        return d ? d : "";
    }
    bool ReadOnly() const { return sqlite3_stmt_readonly(FStmt) != 0; }
    [[noreturn]] void Fail() const { throw EDatabaseError(std::string("SQL error: ") + sqlite3_errmsg(FDb)); }
    static constexpr const char* SNoSQLStatementText = "No SQL statement available";

private:
    sqlite3* FDb;
    sqlite3_stmt* FStmt = nullptr;
};

class TSQLiteConnection : public TDbConnection {
public:
    TSQLiteConnection(sqlite3* db, std::string file) : FDb(db), FFile(std::move(file)) {}
    ~TSQLiteConnection() override { sqlite3_close_v2(FDb); }

    void Exec(const std::string& sql, const std::vector<Variant>& params = {}) {
        TStmt st(FDb, sql);
        st.Bind(params);
        while (st.Step()) {
        }
    }

    // type ('table' or 'view') and SQL of a table, matched ignoring case; empty type when missing.
    std::pair<std::string, std::string> Master(const std::string& table) {
        TStmt st(FDb, "SELECT type, sql, name FROM sqlite_master WHERE type IN ('table','view') AND name = ? "
                      "COLLATE NOCASE");
        st.Bind({Variant(table)});
        if (!st.Step()) return {};
        return {st.Text(0), st.Text(1)};
    }
    void CheckExists(const std::string& table) {
        if (Master(table).first.empty()) throw EDatabaseError(Format("Table does not exist: %s", {table}));
    }

    std::vector<std::string> GetTableNames(bool SystemTables) override {
        std::vector<std::string> out;
        TStmt st(
            FDb,
            "SELECT name FROM sqlite_master WHERE type IN ('table','view') ORDER BY name COLLATE NOCASE");
        while (st.Step()) {
            std::string n = st.Text(0);
            if (!SystemTables && rtl::SameText(n.substr(0, 7), "sqlite_")) continue;
            out.push_back(n);
        }
        if (SystemTables) out.insert(out.begin(), "sqlite_master");
        return out;
    }

    bool TableExists(const std::string& Table) override { return !Master(Table).first.empty(); }

    bool TableIsWritable(const std::string& Table) override { return Master(Table).first == "table"; }

    void GetTableDefs(const std::string& Table, TFieldDefs* Fields, TIndexDefs* Indexes) override {
        auto [type, createSql] = Master(Table);
        if (type.empty()) throw EDatabaseError(Format("Table does not exist: %s", {Table}));
        struct Col {
            std::string Name, Decl;
            bool NotNull;
            int Pk;
        };
        std::vector<Col> cols;
        {
            TStmt st(FDb, "PRAGMA table_info(" + Quote(Table) + ")");
            while (st.Step())
                cols.push_back({st.Text(1), st.Text(2), st.Int(3) != 0, static_cast<int>(st.Int(5))});
        }
        std::vector<std::string> pk;
        for (int k = 1;; ++k) {
            bool found = false;
            for (auto& c : cols)
                if (c.Pk == k) {
                    pk.push_back(c.Name);
                    found = true;
                }
            if (!found) break;
        }
        // A lone INTEGER primary key is the rowid: numbered by the database like an AutoInc field.
        bool rowidKey =
            pk.size() == 1 && type == "table" && std::any_of(cols.begin(), cols.end(), [&](auto& c) {
                return c.Name == pk[0] && rtl::SameText(rtl::Trim(c.Decl), "INTEGER");
            });
        if (Fields) {
            Fields->BeginUpdate();
            Fields->Clear();
            for (auto& c : cols) {
                TDeclType t = ParseDeclType(c.Decl);
                if (rowidKey && c.Name == pk[0]) t.Type = ftAutoInc;
                TFieldDef* d = Fields->AddFieldDef();
                d->SetName(c.Name);
                d->SetDataType(t.Type);
                d->SetSize(t.Size);
                d->SetPrecision(t.Precision);
                d->SetRequired(c.NotNull);
            }
            Fields->EndUpdate();
        }
        if (!Indexes) return;
        Indexes->BeginUpdate();
        Indexes->Clear();
        if (rowidKey) {
            TIndexDef* d = Indexes->AddIndexDef();
            d->SetName(PrimaryKeyName(createSql));
            d->SetFields(pk[0]);
            d->SetOptions({ixPrimary, ixUnique});
        }
        struct Idx {
            std::string Name, Origin;
            bool Unique;
        };
        std::vector<Idx> idx;
        if (type == "table") {
            TStmt st(FDb, "PRAGMA index_list(" + Quote(Table) + ")");
            while (st.Step())
                idx.push_back({st.Text(1), st.Text(3), st.Int(2) != 0});
        }
        // index_list gives the newest first; definitions read better in creation order.
        std::reverse(idx.begin(), idx.end());
        for (auto& ix : idx) {
            std::vector<std::string> fields, desc, nocase;
            bool expression = false;
            TStmt st(FDb, "PRAGMA index_xinfo(" + Quote(ix.Name) + ")");
            while (st.Step()) {
                if (st.Int(5) == 0) continue; // the rowid that every index carries
                if (st.Int(1) == -2) {
                    expression = true;
                    continue;
                }
                std::string col = st.Text(2);
                fields.push_back(col);
                if (st.Int(3)) desc.push_back(col);
                if (rtl::SameText(st.Text(4), "NOCASE")) nocase.push_back(col);
            }
            TIndexDef* d = Indexes->AddIndexDef();
            TIndexOptions opt;
            if (ix.Origin == "pk") {
                d->SetName(PrimaryKeyName(createSql));
                opt.Include(ixPrimary).Include(ixUnique);
            } else {
                d->SetName(ix.Name);
                if (ix.Unique) opt.Include(ixUnique);
            }
            auto join = [](const std::vector<std::string>& v) {
                std::string r;
                for (auto& s : v)
                    r += (r.empty() ? "" : ";") + s;
                return r;
            };
            if (expression) {
                opt.Include(ixExpression);
                TStmt q(FDb, "SELECT sql FROM sqlite_master WHERE type = 'index' AND name = ?");
                q.Bind({Variant(ix.Name)});
                if (q.Step()) {
                    std::string sql = q.Text(0);
                    size_t a = sql.find('('), b = sql.rfind(')');
                    if (a != std::string::npos && b != std::string::npos && b > a)
                        d->SetExpression(rtl::Trim(sql.substr(a + 1, b - a - 1)));
                }
            } else {
                d->SetFields(join(fields));
            }
            if (!fields.empty() && desc.size() == fields.size())
                opt.Include(ixDescending);
            else
                d->SetDescFields(join(desc));
            if (!fields.empty() && nocase.size() == fields.size())
                opt.Include(ixCaseInsensitive);
            else
                d->SetCaseInsFields(join(nocase));
            d->SetOptions(opt);
        }
        Indexes->EndUpdate();
    }

    std::string IndexSQL(const std::string& Table, const TIndexDef* d, bool forceUnique = false) {
        std::string name = d->Name();
        if (name.empty()) {
            name = Table;
            for (auto& f : SplitFieldNames(d->Fields()))
                name += "_" + f;
        }
        bool unique = forceUnique || d->Options().Contains(ixUnique) || d->Options().Contains(ixPrimary);
        std::string sql = std::string("CREATE ") + (unique ? "UNIQUE " : "") + "INDEX " + Quote(name) +
                          " ON " + Quote(Table) + " (";
        if (d->Options().Contains(ixExpression)) {
            if (d->Expression().empty()) throw EDatabaseError(Format("Index '%s' has no expression", {name}));
            sql += d->Expression();
        } else {
            auto fields = SplitFieldNames(d->Fields());
            if (fields.empty()) throw EDatabaseError(Format("Index '%s' has no fields", {name}));
            auto desc = SplitFieldNames(d->DescFields());
            auto ci = SplitFieldNames(d->CaseInsFields());
            auto in = [](const std::vector<std::string>& v, const std::string& f) {
                for (auto& x : v)
                    if (rtl::SameText(x, f)) return true;
                return false;
            };
            for (size_t i = 0; i < fields.size(); ++i) {
                if (i) sql += ", ";
                sql += Quote(fields[i]);
                if (d->Options().Contains(ixCaseInsensitive) || in(ci, fields[i])) sql += " COLLATE NOCASE";
                if (d->Options().Contains(ixDescending) || in(desc, fields[i])) sql += " DESC";
            }
        }
        return sql + ")";
    }

    // The statements that create a table and its indexes.
    std::vector<std::string> CreateSQL(const std::string& Table, const TFieldDefs* Fields,
                                       const TIndexDefs* Indexes) {
        if (!Fields || Fields->Count() == 0)
            throw EDatabaseError(Format("Table %s has no field definitions", {Table}));
        const TIndexDef* primary = nullptr;
        if (Indexes)
            for (int i = 0; i < Indexes->Count(); ++i)
                if (Indexes->Items(i)->Options().Contains(ixPrimary)) {
                    if (primary)
                        throw EDatabaseError(Format("Table %s has more than one primary index", {Table}));
                    primary = Indexes->Items(i);
                }
        const TFieldDef* autoInc = nullptr;
        for (int i = 0; i < Fields->Count(); ++i)
            if (Fields->Items(i)->DataType() == ftAutoInc) {
                if (autoInc)
                    throw EDatabaseError(Format("Table %s has more than one AutoInc field", {Table}));
                autoInc = Fields->Items(i);
            }
        std::vector<std::string> pkFields =
            primary ? SplitFieldNames(primary->Fields()) : std::vector<std::string>();
        for (auto& f : pkFields)
            if (Fields->IndexOf(f) < 0) throw EDatabaseError(Format(SFieldNotFound, {f}));
        // SQLite numbers only a lone INTEGER PRIMARY KEY, so an AutoInc field becomes the key; another
        // primary index is then kept as a unique one.
        bool primaryIsAutoInc =
            autoInc && pkFields.size() == 1 && rtl::SameText(pkFields[0], autoInc->Name());
        std::string sql = "CREATE TABLE " + Quote(Table) + " (";
        for (int i = 0; i < Fields->Count(); ++i) {
            const TFieldDef* d = Fields->Items(i);
            if (d->Name().empty()) throw EDatabaseError("Field name missing");
            if (i) sql += ", ";
            sql += Quote(d->Name()) + " " + DeclTypeFor(d);
            if (d == autoInc) {
                if (primaryIsAutoInc && !primary->Name().empty())
                    sql += " CONSTRAINT " + Quote(primary->Name());
                sql += " PRIMARY KEY AUTOINCREMENT";
            } else if (d->Required() || std::any_of(pkFields.begin(), pkFields.end(),
                                                    [&](auto& f) { return rtl::SameText(f, d->Name()); })) {
                sql += " NOT NULL";
            }
        }
        if (primary && !autoInc) {
            if (pkFields.empty()) throw EDatabaseError(Format("Index '%s' has no fields", {primary->Name()}));
            sql += ", ";
            if (!primary->Name().empty()) sql += "CONSTRAINT " + Quote(primary->Name()) + " ";
            sql += "PRIMARY KEY (";
            for (size_t k = 0; k < pkFields.size(); ++k)
                sql += (k ? ", " : "") + Quote(pkFields[k]);
            sql += ")";
        }
        sql += ")";
        std::vector<std::string> out{sql};
        if (Indexes)
            for (int i = 0; i < Indexes->Count(); ++i) {
                const TIndexDef* d = Indexes->Items(i);
                if (d == primary && (!autoInc || primaryIsAutoInc)) continue;
                out.push_back(IndexSQL(Table, d));
            }
        return out;
    }

    template <class F> void InSavepoint(F&& f) {
        Exec("SAVEPOINT jexdb_work");
        try {
            f();
        } catch (...) {
            try {
                Exec("ROLLBACK TO jexdb_work");
                Exec("RELEASE jexdb_work");
            } catch (...) {
            }
            throw;
        }
        Exec("RELEASE jexdb_work");
    }

    void CreateTable(const std::string& Table, const TFieldDefs* Fields, const TIndexDefs* Indexes) override {
        if (Table.empty()) throw EDatabaseError("Missing TableName property");
        std::vector<std::string> stmts = CreateSQL(Table, Fields, Indexes);
        InSavepoint([&] {
            auto [type, sql] = Master(Table);
            if (type == "view")
                Exec("DROP VIEW " + Quote(Table));
            else if (!type.empty())
                Exec("DROP TABLE " + Quote(Table));
            for (auto& s : stmts)
                Exec(s);
        });
    }

    void DeleteTable(const std::string& Table) override {
        auto [type, sql] = Master(Table);
        if (type.empty()) throw EDatabaseError(Format("Table does not exist: %s", {Table}));
        Exec((type == "view" ? "DROP VIEW " : "DROP TABLE ") + Quote(Table));
    }

    void EmptyTable(const std::string& Table) override {
        CheckExists(Table);
        Exec("DELETE FROM " + Quote(Table));
    }

    void AddIndex(const std::string& Table, const TIndexDef* Index) override {
        CheckExists(Table);
        if (Index->Options().Contains(ixPrimary)) {
            AddPrimaryKey(Table, SplitFieldNames(Index->Fields()), Index->Name());
            return;
        }
        Exec(IndexSQL(Table, Index));
    }

    void DeleteIndex(const std::string& Table, const std::string& IndexName) override {
        TIndexDefs defs(nullptr);
        GetTableDefs(Table, nullptr, &defs);
        int i = defs.IndexOf(IndexName);
        if (i < 0) throw EDatabaseError(Format(SIndexNotFound, {IndexName}));
        if (defs.Items(i)->Options().Contains(ixPrimary))
            throw EDatabaseError(Format("The primary index of %s cannot be deleted", {Table}));
        Exec("DROP INDEX " + Quote(IndexName));
    }

    // ALTER TABLE ... ADD PRIMARY KEY: SQLite fixes the key when a table is created, so the table is made
    // again with the key and its rows copied over; a duplicate or empty key value undoes everything.
    void AddPrimaryKey(const std::string& Table, const std::vector<std::string>& Columns,
                       const std::string& Name) {
        TFieldDefs fields(nullptr);
        TIndexDefs indexes(nullptr);
        GetTableDefs(Table, &fields, &indexes);
        if (!TableIsWritable(Table)) throw EDatabaseError(Format("%s is a view", {Table}));
        for (int i = 0; i < indexes.Count(); ++i)
            if (indexes.Items(i)->Options().Contains(ixPrimary))
                throw EDatabaseError(Format("Table %s already has a primary key", {Table}));
        if (Columns.empty()) throw EDatabaseError("PRIMARY KEY needs at least one field");
        std::string list;
        for (auto& c : Columns) {
            if (fields.IndexOf(c) < 0) throw EDatabaseError(Format(SFieldNotFound, {c}));
            list += (list.empty() ? "" : ";") + c;
        }
        TIndexDef* pk = indexes.AddIndexDef();
        pk->SetName(Name);
        pk->SetFields(list);
        pk->SetOptions({ixPrimary, ixUnique});
        std::string tmp = Table + "_jexdb_rebuild";
        std::vector<std::string> stmts = CreateSQL(tmp, &fields, &indexes);
        std::string cols;
        for (int i = 0; i < fields.Count(); ++i)
            cols += (i ? ", " : "") + Quote(fields.Items(i)->Name());
        InSavepoint([&] {
            Exec(stmts[0]);
            Exec("INSERT INTO " + Quote(tmp) + " (" + cols + ") SELECT " + cols + " FROM " + Quote(Table));
            Exec("DROP TABLE " + Quote(Table));
            Exec("ALTER TABLE " + Quote(tmp) + " RENAME TO " + Quote(Table));
            for (int i = 0; i < indexes.Count(); ++i) {
                const TIndexDef* d = indexes.Items(i);
                if (d->Options().Contains(ixPrimary)) continue;
                Exec(IndexSQL(Table, d));
            }
        });
    }

    TDbRows ReadTable(const std::string& Table, const std::vector<std::string>& Columns,
                      const std::vector<TDbOrder>& Order) override {
        auto [type, sqlText] = Master(Table);
        if (type.empty()) throw EDatabaseError(Format("Table does not exist: %s", {Table}));
        bool keyed = type == "table";
        std::string sql = keyed ? "SELECT rowid" : "SELECT ";
        for (size_t i = 0; i < Columns.size(); ++i)
            sql += (keyed || i ? ", " : "") + Quote(Columns[i]);
        if (Columns.empty() && !keyed) sql += "*";
        sql += " FROM " + Quote(Table);
        std::string order;
        for (auto& o : Order) {
            order += (order.empty() ? " ORDER BY " : ", ") + Quote(o.Column);
            if (o.CaseInsensitive) order += " COLLATE NOCASE";
            if (o.Descending) order += " DESC";
        }
        if (order.empty() && keyed) order = " ORDER BY rowid";
        sql += order;
        TStmt st(FDb, sql);
        TDbRows rows;
        int first = keyed ? 1 : 0;
        while (st.Step()) {
            std::vector<Variant> r;
            r.reserve(Columns.size());
            for (int i = first; i < st.ColumnCount(); ++i)
                r.push_back(st.Column(i));
            rows.Rows.push_back(std::move(r));
            if (keyed) rows.Keys.push_back(st.Int(0));
        }
        return rows;
    }

    int64_t InsertRow(const std::string& Table, const std::vector<std::string>& Columns,
                      const std::vector<Variant>& Values) override {
        std::string sql = "INSERT INTO " + Quote(Table);
        if (Columns.empty()) {
            sql += " DEFAULT VALUES";
        } else {
            std::string names, marks;
            for (size_t i = 0; i < Columns.size(); ++i) {
                names += (i ? ", " : "") + Quote(Columns[i]);
                marks += i ? ", ?" : "?";
            }
            sql += " (" + names + ") VALUES (" + marks + ")";
        }
        Exec(sql, Values);
        return sqlite3_last_insert_rowid(FDb);
    }

    int64_t UpdateRow(const std::string& Table, int64_t Key, const std::vector<std::string>& Columns,
                      const std::vector<Variant>& Values) override {
        if (Columns.empty()) return Key;
        std::string sql = "UPDATE " + Quote(Table) + " SET ";
        for (size_t i = 0; i < Columns.size(); ++i)
            sql += (i ? ", " : "") + Quote(Columns[i]) + " = ?";
        // An INTEGER PRIMARY KEY column is the rowid itself: changing it moves the row.
        sql += " WHERE rowid = ? RETURNING rowid";
        std::vector<Variant> params = Values;
        params.push_back(Variant(Key));
        TStmt st(FDb, sql);
        st.Bind(params);
        if (!st.Step())
            throw EDatabaseError("Couldn't perform the edit because another user changed the record");
        int64_t newKey = st.Int(0);
        while (st.Step()) {
        }
        return newKey;
    }

    void DeleteRow(const std::string& Table, int64_t Key) override {
        Exec("DELETE FROM " + Quote(Table) + " WHERE rowid = ?", {Variant(Key)});
        if (sqlite3_changes(FDb) == 0) throw EDatabaseError("Record was deleted by another user");
    }

    std::vector<Variant> ReadRow(const std::string& Table, int64_t Key,
                                 const std::vector<std::string>& Columns) override {
        std::string sql = "SELECT ";
        for (size_t i = 0; i < Columns.size(); ++i)
            sql += (i ? ", " : "") + Quote(Columns[i]);
        sql += " FROM " + Quote(Table) + " WHERE rowid = ?";
        TStmt st(FDb, sql);
        st.Bind({Variant(Key)});
        std::vector<Variant> r;
        if (!st.Step()) throw EDatabaseError("Record not found");
        for (int i = 0; i < st.ColumnCount(); ++i)
            r.push_back(st.Column(i));
        return r;
    }

    TDbRows OpenQuery(const std::string& SQL, const std::vector<Variant>& Params) override {
        if (rtl::Trim(SQL).empty()) throw EDatabaseError("No SQL statement available");
        TStmt st(FDb, SQL);
        st.Bind(Params);
        TDbRows rows;
        int n = st.ColumnCount();
        if (n == 0) throw EDatabaseError("The statement returns no result set; use ExecSQL");
        std::vector<std::string> decl;
        for (int i = 0; i < n; ++i) {
            rows.Columns.push_back({st.ColumnName(i), ftUnknown, 0, false});
            decl.push_back(st.DeclType(i));
        }
        while (st.Step()) {
            std::vector<Variant> r;
            r.reserve(static_cast<size_t>(n));
            for (int i = 0; i < n; ++i)
                r.push_back(st.Column(i));
            rows.Rows.push_back(std::move(r));
        }
        for (int i = 0; i < n; ++i) {
            TDbColumn& c = rows.Columns[static_cast<size_t>(i)];
            if (!decl[static_cast<size_t>(i)].empty()) {
                TDeclType t = ParseDeclType(decl[static_cast<size_t>(i)]);
                c.DataType = t.Type;
                c.Size = t.Size;
                continue;
            }
            // An expression column has no declared type: judge by the values.
            TFieldType t = ftUnknown;
            size_t longest = 0;
            bool big = false;
            for (auto& r : rows.Rows) {
                const Variant& v = r[static_cast<size_t>(i)];
                if (v.IsNull()) continue;
                TFieldType vt = v.IsInteger() ? ftInteger : v.IsFloat() ? ftFloat : ftString;
                if (vt == ftString && !rtl::IsValidUtf8(v.AsString())) vt = ftBlob;
                if (v.IsInteger() && (v.AsInteger() < INT32_MIN || v.AsInteger() > INT32_MAX)) big = true;
                if (vt == ftString) longest = std::max(longest, v.AsString().size());
                if (t == ftUnknown)
                    t = vt;
                else if (t != vt)
                    t = (t == ftInteger && vt == ftFloat) || (t == ftFloat && vt == ftInteger) ? ftFloat
                                                                                               : ftString;
            }
            if (t == ftInteger && big) t = ftLargeint;
            if (t == ftUnknown) t = ftString;
            c.DataType = t;
            if (t == ftString) {
                if (longest > 8192)
                    c.DataType = ftMemo;
                else
                    c.Size = static_cast<int>(std::max<size_t>(longest, 20));
            }
        }
        return rows;
    }

    int ExecSQL(const std::string& SQL, const std::vector<Variant>& Params) override {
        if (rtl::Trim(SQL).empty()) throw EDatabaseError("No SQL statement available");
        // ALTER TABLE name ADD [CONSTRAINT c] PRIMARY KEY (a, b)
        auto t = Tokenize(SQL);
        while (!t.empty() && t.back().Text == ";" && !t.back().Quoted)
            t.pop_back();
        if (t.size() >= 8 && Is(t[0], "ALTER") && Is(t[1], "TABLE") && Is(t[3], "ADD")) {
            size_t i = 4;
            std::string cname;
            if (Is(t[i], "CONSTRAINT") && i + 1 < t.size()) {
                cname = t[i + 1].Text;
                i += 2;
            }
            if (i + 2 < t.size() && Is(t[i], "PRIMARY") && Is(t[i + 1], "KEY") && t[i + 2].Text == "(" &&
                t.back().Text == ")") {
                std::vector<std::string> cols;
                for (size_t k = i + 3; k + 1 < t.size(); ++k)
                    if (t[k].Text != "," || t[k].Quoted) cols.push_back(t[k].Text);
                AddPrimaryKey(t[2].Text, cols, cname);
                return 0;
            }
        }
        TStmt st(FDb, SQL);
        st.Bind(Params);
        while (st.Step()) {
        }
        return sqlite3_changes(FDb);
    }

    Variant ToStorage(const Variant& Value, TFieldType Type) const override {
        if (Value.IsNull()) return Value;
        switch (Type) {
        case ftDate:
            return Variant(DateToStr(Value.IsString() ? StrToDateTime(Value.AsString()) : Value.AsFloat()));
        case ftTime:
            return Variant(TimeToStr(Value.IsString() ? StrToDateTime(Value.AsString()) : Value.AsFloat()));
        case ftDateTime:
        case ftTimeStamp:
            return Variant(
                DateTimeToStr(Value.IsString() ? StrToDateTime(Value.AsString()) : Value.AsFloat()));
        case ftBoolean:
            return Variant(static_cast<int64_t>(Value.AsBoolean() ? 1 : 0));
        default:
            return Value;
        }
    }

    void StartTransaction(TTransIsolation Isolation) override {
        if (InTransaction()) throw EDatabaseError("A transaction is already active");
        Exec(Isolation == tiDirtyRead ? "PRAGMA read_uncommitted = 1" : "PRAGMA read_uncommitted = 0");
        Exec(Isolation == tiRepeatableRead ? "BEGIN IMMEDIATE" : "BEGIN");
    }
    void Commit() override {
        if (!InTransaction()) throw EDatabaseError("No transaction is active");
        Exec("COMMIT");
    }
    void Rollback() override {
        if (!InTransaction()) throw EDatabaseError("No transaction is active");
        Exec("ROLLBACK");
    }
    bool InTransaction() const override { return sqlite3_get_autocommit(FDb) == 0; }

private:
    sqlite3* FDb;
    std::string FFile;
};

class TSQLiteDriver : public TDbDriver {
public:
    std::string Name() const override { return "SQLITE"; }
    std::vector<std::string> DefaultParams() const override {
        return {"PATH=", "DATABASE NAME=", "READ ONLY=FALSE"};
    }
    bool SupportsTableType(TTableType Type) const override { return Type == ttDefault; }

    std::unique_ptr<TDbConnection> Connect(const std::string& DatabaseName, const TStrings* Params) override {
        std::string path = Params ? rtl::Trim(Params->Values("PATH")) : std::string();
        if (path.empty()) path = rtl::IncludeTrailingPathDelimiter(rtl::GetSystemDirectory()) + "jexdata";
        std::string file = Params ? rtl::Trim(Params->Values("DATABASE NAME")) : std::string();
        if (file.empty())
            file = rtl::LowerCase(DatabaseName.empty() ? std::string("database") : DatabaseName) + ".sqlite";
        if (file[0] != '/') file = rtl::IncludeTrailingPathDelimiter(path) + file;
        bool readOnly = Params && rtl::SameText(rtl::Trim(Params->Values("READ ONLY")), "TRUE");
        std::string dir = rtl::ExtractFileDir(file);
        if (!readOnly && !dir.empty() && !rtl::DirectoryExists(dir) && !rtl::ForceDirectories(dir))
            throw EDatabaseError(Format("Cannot create the folder of database %s: %s", {DatabaseName, dir}));
        sqlite3* db = nullptr;
        int flags = readOnly ? SQLITE_OPEN_READONLY : (SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        int rc = sqlite3_open_v2(file.c_str(), &db, flags | SQLITE_OPEN_FULLMUTEX, nullptr);
        if (rc != SQLITE_OK) {
            std::string msg = db ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
            sqlite3_close_v2(db);
            throw EDatabaseError(Format("Cannot open database %s (%s): %s", {DatabaseName, file, msg}));
        }
        sqlite3_busy_timeout(db, 5000);
        auto conn = std::make_unique<TSQLiteConnection>(db, file);
        try {
            // A file that is not a database is found out at the first read, so read once now.
            conn->Exec("SELECT count(*) FROM sqlite_master");
        } catch (const EDatabaseError& e) {
            throw EDatabaseError(
                Format("Cannot open database %s (%s): %s", {DatabaseName, file, e.Message()}));
        }
        return conn;
    }
};

} // namespace

std::shared_ptr<TDbDriver> CreateSQLiteDriver() {
    return std::make_shared<TSQLiteDriver>();
}

} // namespace db
