// Sessions: the process's session list, aliases read from the configuration file in the system directory
// (with the JEXDEMO alias while there is none), and the databases a session opens for its data sets.
#include <algorithm>
#include <fstream>

#include "db/dbtables.h"
#include "rtl/inifiles.h"

namespace db {

using rtl::Format;

namespace {
// The process's session list; made on first use and freed when the module unloads.
TSessionList* GSessionList = nullptr;
struct TSessionListHolder {
    ~TSessionListHolder() {
        TSessionList* l = GSessionList;
        delete l;
        GSessionList = nullptr;
    }
} GSessionListHolder;

std::string DefaultDataPath() {
    return rtl::IncludeTrailingPathDelimiter(rtl::GetSystemDirectory()) + "jexdata";
}
std::string ConfigPath() {
    return rtl::IncludeTrailingPathDelimiter(rtl::GetSystemDirectory()) + TSession::ConfigFileName();
}
bool HasSQLiteHeader(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    char head[16] = {};
    in.read(head, sizeof head);
    return in.gcount() == 16 && std::string(head, 15) == "SQLite format 3";
}
} // namespace

TSessionList* Sessions() {
    if (!GSessionList) {
        GSessionList = new TSessionList();
        auto* def = new TSession(nullptr);
        def->SetSessionName("Default");
        GSessionList->FOwned.push_back(def);
        GSessionList->FCurrent = def;
    }
    return GSessionList;
}

TSession* Session() {
    return Sessions()->Sessions(0);
}

// ---- TSessionList -----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TSessionList, TObject, "DBTables") {}

TSessionList::TSessionList() = default;

TSessionList::~TSessionList() {
    std::vector<TSession*> owned = FOwned;
    FOwned.clear();
    for (auto it = owned.rbegin(); it != owned.rend(); ++it)
        (*it)->Free();
    // Sessions owned by forms that outlive the list forget it.
    FSessions.clear();
}

TSession* TSessionList::Sessions(int Index) const {
    if (Index < 0 || Index >= Count()) throw rtl::EListError(Format(rtl::SListIndexError, {Index}));
    return FSessions[static_cast<size_t>(Index)];
}

TSession* TSessionList::FindSession(std::string_view SessionName) const {
    if (rtl::Trim(SessionName).empty()) return FSessions.empty() ? nullptr : FSessions.front();
    for (TSession* s : FSessions)
        if (rtl::SameText(s->SessionName(), SessionName)) return s;
    return nullptr;
}

TSession* TSessionList::OpenSession(const std::string& SessionName) {
    if (TSession* s = FindSession(SessionName)) {
        s->Open();
        return s;
    }
    auto* s = new TSession(nullptr);
    try {
        s->SetSessionName(SessionName);
    } catch (...) {
        s->Free();
        throw;
    }
    FOwned.push_back(s);
    return s;
}

void TSessionList::GetSessionNames(TStrings* List) const {
    List->BeginUpdate();
    List->Clear();
    for (TSession* s : FSessions)
        if (!s->SessionName().empty()) List->Add(s->SessionName());
    List->EndUpdate();
}

// ---- TSession ---------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TSession, TComponent, "DBTables") {
    d.Property("Active", &TSession::Active, &TSession::SetActive).Default(true);
    d.Property("KeepConnections", &TSession::KeepConnections, &TSession::SetKeepConnections).Default(true);
    d.Property("SessionName", &TSession::SessionName, &TSession::SetSessionName);
}

TSession::TSession(TComponent* AOwner) : TComponent(AOwner) {
    TSessionList* list = Sessions(); // makes the default session first
    list->FSessions.push_back(this);
}

TSession::~TSession() {
    std::vector<TDatabase*> dbs = FDatabases;
    for (TDatabase* db : dbs) {
        try {
            db->Close();
        } catch (...) {
        }
        db->FSession = nullptr;
    }
    FDatabases.clear();
    if (GSessionList) {
        auto& l = GSessionList->FSessions;
        l.erase(std::remove(l.begin(), l.end(), this), l.end());
        auto& o = GSessionList->FOwned;
        o.erase(std::remove(o.begin(), o.end(), this), o.end());
        if (GSessionList->FCurrent == this) GSessionList->FCurrent = l.empty() ? nullptr : l.front();
    }
}

void TSession::SetSessionName(const std::string& Value) {
    if (Value == FSessionName) return;
    if (!Value.empty() && GSessionList) {
        for (TSession* s : GSessionList->FSessions)
            if (s != this && rtl::SameText(s->FSessionName, Value))
                throw EDatabaseError(Format(SDuplicateSession, {Value}));
    }
    FSessionName = Value;
}

void TSession::SetActive(bool Value) {
    if (Value == FActive) return;
    if (!Value) {
        std::vector<TDatabase*> dbs = FDatabases;
        for (TDatabase* db : dbs)
            db->Close();
        DropConnections();
    }
    FActive = Value;
}

void TSession::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TComponent::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove) {
        auto& l = FDatabases;
        l.erase(std::remove(l.begin(), l.end(), AComponent), l.end());
    }
}

// ---- Aliases ----------------------------------------------------------------------------------------------
std::vector<TSession::TAlias> TSession::LoadAliases() const {
    std::vector<TAlias> all;
    std::string path = ConfigPath();
    if (!rtl::FileExists(path)) {
        all.push_back({"JEXDEMO", "SQLITE", {"PATH=" + DefaultDataPath()}, false});
    } else {
        rtl::TIniFile ini(path);
        rtl::TStringList sections;
        ini.ReadSections(&sections);
        for (int i = 0; i < sections.Count(); ++i) {
            TAlias a;
            a.Name = sections[i];
            rtl::TStringList values;
            ini.ReadSectionValues(a.Name, &values);
            for (int k = 0; k < values.Count(); ++k) {
                std::string key = rtl::Trim(values.Names(k));
                std::string value = rtl::Trim(values.Values(values.Names(k)));
                if (rtl::SameText(key, "DRIVER") || rtl::SameText(key, "TYPE"))
                    a.Driver = value;
                else
                    a.Params.push_back(key + "=" + value);
            }
            if (a.Driver.empty()) a.Driver = "STANDARD";
            all.push_back(std::move(a));
        }
    }
    for (const TAlias& s : FSessionAliases) {
        auto it = std::find_if(all.begin(), all.end(),
                               [&](const TAlias& a) { return rtl::SameText(a.Name, s.Name); });
        if (it != all.end()) all.erase(it);
        if (!s.Deleted) all.push_back(s);
    }
    std::sort(all.begin(), all.end(),
              [](const TAlias& a, const TAlias& b) { return rtl::CompareText(a.Name, b.Name) < 0; });
    return all;
}

const TSession::TAlias* TSession::FindAlias(const std::vector<TAlias>& all, std::string_view Name) const {
    for (const TAlias& a : all)
        if (rtl::SameText(a.Name, Name)) return &a;
    return nullptr;
}

void TSession::GetAliasNames(TStrings* List) {
    auto all = LoadAliases();
    List->BeginUpdate();
    List->Clear();
    for (auto& a : all)
        List->Add(a.Name);
    List->EndUpdate();
}

void TSession::GetAliasParams(const std::string& AliasName, TStrings* List) {
    auto all = LoadAliases();
    const TAlias* a = FindAlias(all, AliasName);
    if (!a) throw EDatabaseError(Format(SUnknownAlias, {AliasName}));
    List->BeginUpdate();
    List->Clear();
    for (auto& p : a->Params)
        List->Add(p);
    List->EndUpdate();
}

std::string TSession::GetAliasDriverName(const std::string& AliasName) {
    auto all = LoadAliases();
    const TAlias* a = FindAlias(all, AliasName);
    if (!a) throw EDatabaseError(Format(SUnknownAlias, {AliasName}));
    return a->Driver;
}

bool TSession::IsAlias(const std::string& Name) {
    if (rtl::Trim(Name).empty()) return false;
    auto all = LoadAliases();
    return FindAlias(all, Name) != nullptr;
}

void TSession::AddAlias(const std::string& Name, const std::string& Driver, TStrings* List) {
    if (!rtl::IsValidIdent(rtl::StringReplaceAll(Name, " ", "_")) ||
        Name.find_first_of("[]=") != std::string::npos)
        throw EDatabaseError(Format("Invalid alias name: '%s'", {Name}));
    if (IsAlias(Name)) throw EDatabaseError(Format("Alias '%s' already exists", {Name}));
    if (!FindDbDriver(Driver)) throw EDatabaseError(Format(SUnknownDriver, {Driver}));
    TAlias a{Name, rtl::UpperCase(Driver), {}, false};
    if (List)
        for (int i = 0; i < List->Count(); ++i)
            if (!rtl::Trim((*List)[i]).empty()) a.Params.push_back((*List)[i]);
    auto& s = FSessionAliases;
    s.erase(std::remove_if(s.begin(), s.end(), [&](auto& x) { return rtl::SameText(x.Name, Name); }),
            s.end());
    s.push_back(std::move(a));
}

void TSession::AddStandardAlias(const std::string& Name, const std::string& Path,
                                const std::string& DefaultDriver) {
    rtl::TStringList params;
    params.Add("PATH=" + Path);
    params.Add("DEFAULT DRIVER=" +
               (DefaultDriver.empty() ? std::string("PARADOX") : rtl::UpperCase(DefaultDriver)));
    AddAlias(Name, "STANDARD", &params);
}

void TSession::ModifyAlias(const std::string& Name, TStrings* List) {
    auto all = LoadAliases();
    const TAlias* found = FindAlias(all, Name);
    if (!found) throw EDatabaseError(Format(SUnknownAlias, {Name}));
    TAlias a = *found;
    rtl::TStringList current;
    for (auto& p : a.Params)
        current.Add(p);
    for (int i = 0; i < List->Count(); ++i) {
        std::string n = List->Names(i);
        if (n.empty()) continue;
        current.SetValues(n, List->Values(n));
        if (current.IndexOfName(n) < 0) current.Add(n + "="); // an empty value is kept as an empty parameter
    }
    a.Params = current.ToVector();
    auto& s = FSessionAliases;
    s.erase(std::remove_if(s.begin(), s.end(), [&](auto& x) { return rtl::SameText(x.Name, Name); }),
            s.end());
    s.push_back(std::move(a));
}

void TSession::DeleteAlias(const std::string& Name) {
    if (!IsAlias(Name)) throw EDatabaseError(Format(SUnknownAlias, {Name}));
    auto& s = FSessionAliases;
    s.erase(std::remove_if(s.begin(), s.end(), [&](auto& x) { return rtl::SameText(x.Name, Name); }),
            s.end());
    s.push_back({Name, "", {}, true});
}

void TSession::SaveConfigFile() {
    std::string path = ConfigPath();
    bool existed = rtl::FileExists(path);
    std::vector<TAlias> defaults;
    if (!existed) {
        // The built-in configuration becomes the file's first content.
        std::vector<TAlias> keep = std::move(FSessionAliases);
        FSessionAliases.clear();
        defaults = LoadAliases();
        FSessionAliases = std::move(keep);
    }
    rtl::TIniFile ini(path);
    auto write = [&](const TAlias& a) {
        ini.EraseSection(a.Name);
        ini.WriteString(a.Name, "DRIVER", a.Driver);
        for (auto& p : a.Params) {
            size_t eq = p.find('=');
            if (eq == std::string::npos) continue;
            ini.WriteString(a.Name, rtl::Trim(p.substr(0, eq)), p.substr(eq + 1));
        }
    };
    for (auto& a : defaults)
        write(a);
    for (auto& a : FSessionAliases) {
        if (a.Deleted)
            ini.EraseSection(a.Name);
        else
            write(a);
    }
    FSessionAliases.clear();
}

// ---- Names ------------------------------------------------------------------------------------------------
void TSession::GetDatabaseNames(TStrings* List) {
    rtl::TStringList names;
    names.SetSorted(true);
    names.SetDuplicates(rtl::dupIgnore);
    for (auto& a : LoadAliases())
        names.Add(a.Name);
    for (TDatabase* db : FDatabases)
        if (!db->Temporary() && !db->DatabaseName().empty()) names.Add(db->DatabaseName());
    List->BeginUpdate();
    List->Clear();
    List->AddStrings(&names);
    List->EndUpdate();
}

void TSession::GetDriverNames(TStrings* List) {
    List->BeginUpdate();
    List->Clear();
    for (auto& n : GetDbDriverNames())
        List->Add(n);
    List->EndUpdate();
}

void TSession::GetDriverParams(const std::string& DriverName, TStrings* List) {
    TDbDriver* d = FindDbDriver(DriverName);
    if (!d) throw EDatabaseError(Format(SUnknownDriver, {DriverName}));
    List->BeginUpdate();
    List->Clear();
    for (auto& p : d->DefaultParams())
        List->Add(p);
    List->EndUpdate();
}

void TSession::GetTableNames(const std::string& DatabaseName, const std::string& Pattern, bool Extensions,
                             bool SystemTables, TStrings* List) {
    TDatabase* db = OpenDatabase(DatabaseName);
    std::vector<std::string> names;
    bool fileBased = false;
    try {
        names = db->Connection()->GetTableNames(SystemTables);
        fileBased = !db->IsSQLBased();
    } catch (...) {
        CloseDatabase(db);
        throw;
    }
    CloseDatabase(db);
    List->BeginUpdate();
    List->Clear();
    for (auto& n : names) {
        if (!MatchesMask(n, Pattern)) continue;
        List->Add(fileBased && !Extensions ? rtl::ChangeFileExt(n, "") : n);
    }
    List->EndUpdate();
}

// ---- Databases --------------------------------------------------------------------------------------------
TDatabase* TSession::Databases(int Index) const {
    if (Index < 0 || Index >= DatabaseCount()) throw rtl::EListError(Format(rtl::SListIndexError, {Index}));
    return FDatabases[static_cast<size_t>(Index)];
}

void TSession::AddDatabase(TDatabase* Database) {
    if (std::find(FDatabases.begin(), FDatabases.end(), Database) == FDatabases.end()) {
        FDatabases.push_back(Database);
        Database->FreeNotification(this);
    }
}

void TSession::RemoveDatabase(TDatabase* Database) {
    auto& l = FDatabases;
    l.erase(std::remove(l.begin(), l.end(), Database), l.end());
}

TDatabase* TSession::FindDatabase(const std::string& DatabaseName) const {
    if (DatabaseName.empty()) return nullptr;
    for (TDatabase* db : FDatabases)
        if (rtl::SameText(db->DatabaseName(), DatabaseName)) return db;
    return nullptr;
}

TDatabase* TSession::OpenDatabase(const std::string& DatabaseName) {
    if (rtl::Trim(DatabaseName).empty()) throw EDatabaseError(SNoDatabaseName);
    TDatabase* db = FindDatabase(DatabaseName);
    bool made = false;
    if (!db) {
        auto* t = new TDatabase(this);
        t->FTemporary = true;
        made = true;
        try {
            t->SetSessionName(FSessionName);
            t->SetDatabaseName(DatabaseName);
            if (IsAlias(DatabaseName)) {
                t->SetAliasName(DatabaseName);
            } else if (rtl::DirectoryExists(DatabaseName)) {
                t->SetDriverName("STANDARD");
                t->Params()->Add("PATH=" + DatabaseName);
            } else {
                std::string ext = rtl::LowerCase(rtl::ExtractFileExt(DatabaseName));
                bool sqliteFile = ext == ".sqlite" || ext == ".sqlite3" || ext == ".db3";
                if (!sqliteFile && rtl::FileExists(DatabaseName)) sqliteFile = HasSQLiteHeader(DatabaseName);
                if (!sqliteFile) throw EDatabaseError(Format(SUnknownDatabase, {DatabaseName}));
                t->SetDriverName("SQLITE");
                t->Params()->Add("DATABASE NAME=" + rtl::ExpandFileName(DatabaseName));
            }
        } catch (...) {
            t->Free();
            throw;
        }
        db = t;
    }
    try {
        db->Open();
    } catch (...) {
        if (made) db->Free();
        throw;
    }
    ++db->FRefCount;
    return db;
}

void TSession::CloseDatabase(TDatabase* Database) {
    if (!Database) return;
    if (Database->FRefCount > 0) --Database->FRefCount;
    if (Database->FRefCount == 0 && Database->Temporary() && !FKeepConnections)
        Database->Free();
    else if (Database->FRefCount == 0 && !Database->Temporary() && !Database->KeepConnection())
        Database->Close();
}

void TSession::DropConnections() {
    std::vector<TDatabase*> dbs = FDatabases;
    for (TDatabase* db : dbs)
        if (db->Temporary() && db->FRefCount == 0) db->Free();
}

} // namespace db
