// The storage driver registry, value normalisation shared by drivers, and the STANDARD folder driver, which
// lists the table files of a folder (opening Paradox, dBASE and text tables is left to their own drivers).
#include <algorithm>
#include <filesystem>

#include "db/dbdriver.h"
#include "sqlite_driver.h"

namespace db {

using rtl::Format;

JEX_DEFINE_ENUM(TTransIsolation)
JEX_DEFINE_ENUM(TTableType)

Variant NormalizeValue(const Variant& Value, TFieldType Type) {
    if (Value.IsNull()) return Value;
    try {
        switch (Type) {
        case ftDate:
        case ftTime:
        case ftDateTime:
        case ftTimeStamp:
            if (Value.IsString()) {
                TDateTime d;
                return TryStrToDateTime(Value.AsString(), d) ? Variant(d) : Value;
            }
            return Variant(Value.AsFloat());
        case ftBoolean:
            return Variant(Value.AsBoolean());
        case ftSmallint:
        case ftInteger:
        case ftWord:
        case ftAutoInc:
        case ftLargeint:
            return Value.IsInteger() ? Value : Variant(Value.AsInteger());
        case ftFloat:
        case ftCurrency:
        case ftBCD:
        case ftFMTBcd:
            return Value.IsFloat() ? Value : Variant(Value.AsFloat());
        case ftString:
        case ftFixedChar:
        case ftWideString:
        case ftMemo:
        case ftFmtMemo:
        case ftGuid:
            return Value.IsString() ? Value : Variant(Value.AsString());
        default:
            return Value;
        }
    } catch (const rtl::EConvertError&) {
        return Value; // stored data that does not fit the declared type is shown as it is
    }
}

bool MatchesMask(std::string_view Name, std::string_view Mask) {
    if (Mask.empty() || Mask == "*" || Mask == "*.*") return true;
    size_t n = 0, m = 0, star = std::string_view::npos, mark = 0;
    auto up = [](char c) { return static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c); };
    while (n < Name.size()) {
        if (m < Mask.size() && (Mask[m] == '?' || up(Mask[m]) == up(Name[n]))) {
            ++n;
            ++m;
        } else if (m < Mask.size() && Mask[m] == '*') {
            star = m++;
            mark = n;
        } else if (star != std::string_view::npos) {
            m = star + 1;
            n = ++mark;
        } else {
            return false;
        }
    }
    while (m < Mask.size() && Mask[m] == '*')
        ++m;
    return m == Mask.size();
}

// ---- The STANDARD driver: a folder of table files ---------------------------------------------------------
namespace {

class TStandardConnection : public TDbConnection {
public:
    explicit TStandardConnection(std::string path) : FPath(std::move(path)) {}

    std::vector<std::string> GetTableNames(bool) override {
        std::vector<std::string> out;
        std::error_code ec;
        for (const auto& e : std::filesystem::directory_iterator(FPath, ec)) {
            if (!e.is_regular_file(ec)) continue;
            std::string name = e.path().filename().string();
            std::string ext = rtl::UpperCase(rtl::ExtractFileExt(name));
            if (ext == ".DB" || ext == ".DBF" || ext == ".TXT") out.push_back(name);
        }
        std::sort(out.begin(), out.end(),
                  [](const std::string& a, const std::string& b) { return rtl::CompareText(a, b) < 0; });
        return out;
    }
    bool TableExists(const std::string& Table) override {
        std::string name = rtl::ExtractFileExt(Table).empty() ? Table + ".db" : Table;
        return rtl::FileExists(rtl::IncludeTrailingPathDelimiter(FPath) + name);
    }
    [[noreturn]] void Unsupported(const std::string& Table) {
        std::string ext = rtl::UpperCase(rtl::ExtractFileExt(Table));
        const char* type = ext == ".DBF" ? "ttDBase" : ext == ".TXT" ? "ttASCII" : "ttParadox";
        throw EDatabaseError(
            Format("Table type %s is not supported by the STANDARD driver: %s cannot be opened or created",
                   {type, Table}));
    }
    void GetTableDefs(const std::string& Table, TFieldDefs*, TIndexDefs*) override {
        if (!TableExists(Table)) throw EDatabaseError(Format("Table does not exist: %s", {Table}));
        Unsupported(Table);
    }
    void CreateTable(const std::string& Table, const TFieldDefs*, const TIndexDefs*) override {
        Unsupported(Table);
    }
    void DeleteTable(const std::string& Table) override { Unsupported(Table); }
    void EmptyTable(const std::string& Table) override { Unsupported(Table); }
    void AddIndex(const std::string& Table, const TIndexDef*) override { Unsupported(Table); }
    void DeleteIndex(const std::string& Table, const std::string&) override { Unsupported(Table); }
    bool TableIsWritable(const std::string&) override { return false; }
    TDbRows ReadTable(const std::string& Table, const std::vector<std::string>&,
                      const std::vector<TDbOrder>&) override {
        Unsupported(Table);
    }
    int64_t InsertRow(const std::string& Table, const std::vector<std::string>&,
                      const std::vector<Variant>&) override {
        Unsupported(Table);
    }
    int64_t UpdateRow(const std::string& Table, int64_t, const std::vector<std::string>&,
                      const std::vector<Variant>&) override {
        Unsupported(Table);
    }
    void DeleteRow(const std::string& Table, int64_t) override { Unsupported(Table); }
    std::vector<Variant> ReadRow(const std::string& Table, int64_t,
                                 const std::vector<std::string>&) override {
        Unsupported(Table);
    }
    [[noreturn]] static void NoSQL() { throw EDatabaseError("SQL is not supported by the STANDARD driver"); }
    TDbRows OpenQuery(const std::string&, const std::vector<Variant>&) override { NoSQL(); }
    int ExecSQL(const std::string&, const std::vector<Variant>&) override { NoSQL(); }
    void StartTransaction(TTransIsolation) override { FInTrans = true; }
    void Commit() override { FInTrans = false; }
    void Rollback() override { FInTrans = false; }
    bool InTransaction() const override { return FInTrans; }

private:
    std::string FPath;
    bool FInTrans = false;
};

class TStandardDriver : public TDbDriver {
public:
    std::string Name() const override { return "STANDARD"; }
    std::vector<std::string> DefaultParams() const override { return {"PATH=", "DEFAULT DRIVER=PARADOX"}; }
    bool SupportsTableType(TTableType) const override { return false; }
    std::unique_ptr<TDbConnection> Connect(const std::string& DatabaseName, const TStrings* Params) override {
        std::string path = Params ? rtl::Trim(Params->Values("PATH")) : std::string();
        if (path.empty()) throw EDatabaseError(Format("Database %s has no PATH", {DatabaseName}));
        if (!rtl::DirectoryExists(path)) throw EDatabaseError(Format("Directory not found: %s", {path}));
        return std::make_unique<TStandardConnection>(path);
    }
};

struct TDriverRegistry {
    std::vector<std::shared_ptr<TDbDriver>> Drivers;
    TDriverRegistry() {
        Drivers.push_back(CreateSQLiteDriver());
        Drivers.push_back(std::make_shared<TStandardDriver>());
    }
};

TDriverRegistry& Registry() {
    static TDriverRegistry r;
    return r;
}

} // namespace

void RegisterDbDriver(std::shared_ptr<TDbDriver> Driver) {
    auto& d = Registry().Drivers;
    std::string name = Driver->Name();
    d.erase(std::remove_if(d.begin(), d.end(), [&](auto& x) { return rtl::SameText(x->Name(), name); }),
            d.end());
    d.push_back(std::move(Driver));
}

void UnregisterDbDriver(const std::string& Name) {
    auto& d = Registry().Drivers;
    d.erase(std::remove_if(d.begin(), d.end(), [&](auto& x) { return rtl::SameText(x->Name(), Name); }),
            d.end());
}

TDbDriver* FindDbDriver(std::string_view Name) {
    for (auto& d : Registry().Drivers)
        if (rtl::SameText(d->Name(), Name)) return d.get();
    return nullptr;
}

std::vector<std::string> GetDbDriverNames() {
    std::vector<std::string> out;
    for (auto& d : Registry().Drivers)
        out.push_back(d->Name());
    return out;
}

} // namespace db
