// Hint and help tables, data-set adapters and their registration components, local tables, queries and
// databases, and the idle-time flush.
#ifdef JEX_HAVE_DB

#include "jex/jexdbaccess.h"

#include <unistd.h>

#include <algorithm>

#include "jex/jexappexc.h"
#include "jexpublish.h"

namespace jex {

using namespace vcl;

// ---- Keys and lookups
// ---------------------------------------------------------------------------------------
std::string jexControlKey(const TControl* Control, bool FirstParentForm) {
    if (!Control || Control->Name().empty()) return {};
    // The nearest form up the parents, or the outermost one (forms shown inside other forms).
    const TCustomForm* form = nullptr;
    for (const TControl* c = Control->Parent(); c; c = c->Parent())
        if (auto* f = dynamic_cast<const TCustomForm*>(c)) {
            form = f;
            if (FirstParentForm) break;
        }
    if (!form) {
        if (auto* self = dynamic_cast<const TCustomForm*>(Control)) return self->Name();
        return "." + Control->Name();
    }
    return form->Name() + "." + Control->Name();
}

std::optional<std::string> jexLookupKeyText(db::TDataSet* Table, const std::string& Key) {
    if (!Table || !Table->Active() || Key.empty() || Table->FieldCount() < 2) return std::nullopt;
    if (Table->State() != db::dsBrowse) return std::nullopt;
    db::TField* keyField = Table->FindField("KEY");
    db::TField* textField = Table->FindField("TEXT");
    if (!keyField || !textField) {
        keyField = Table->Fields()->Fields(0);
        textField = Table->Fields()->Fields(1);
    }
    std::optional<std::string> result;
    Table->DisableControls();
    try {
        db::TBookmark mark = Table->GetBookmark();
        if (Table->Locate(keyField->FieldName(), {db::Variant(Key)}, {db::loCaseInsensitive}))
            result = textField->AsString();
        if (!mark.empty() && Table->BookmarkValid(mark)) Table->GotoBookmark(mark);
    } catch (...) {
        Table->EnableControls();
        throw;
    }
    Table->EnableControls();
    return result;
}

namespace {

// The managers that are alive, in the order made; the newest one that is not being designed answers.
template <class M> std::vector<M*>& Managers() {
    static std::vector<M*> list;
    return list;
}

constexpr const char* kHintDispatch = "jexDBHintManager";
constexpr const char* kHelpDispatch = "jexDBHelpManager";

TShowHintEvent& PreviousShowHint() {
    static TShowHintEvent previous;
    return previous;
}

THelpEvent& PreviousHelp() {
    static THelpEvent previous;
    return previous;
}

bool& InHelp() {
    static bool busy = false;
    return busy;
}

template <class M> M* ActiveManager() {
    auto& l = Managers<M>();
    for (auto it = l.rbegin(); it != l.rend(); ++it)
        if (!(*it)->IsDesigning()) return *it;
    return nullptr;
}

void DispatchShowHint(std::string& HintStr, bool& CanShow, THintInfo& HintInfo) {
    if (auto* m = ActiveManager<TjexDBHintManager>()) {
        std::optional<std::string> text;
        try {
            text = m->HintFor(HintInfo.HintControl);
        } catch (const rtl::Exception&) {
            // A table that cannot be read gives no hint of its own: the control's hint shows.
        }
        if (text) HintStr = *text;
        HintInfo.HintColor = m->HintColor();
    }
    if (PreviousShowHint()) PreviousShowHint()(HintStr, CanShow, HintInfo);
}

bool DispatchHelp(uint16_t Command, int64_t Data, bool& CallHelp) {
    if (!InHelp()) {
        if (auto* m = ActiveManager<TjexDBHelpManager>()) {
            TWinControl* active = Screen()->ActiveControl();
            if (active && m->ShowHelpFor(active)) {
                CallHelp = false;
                return true;
            }
        }
    }
    if (PreviousHelp()) return PreviousHelp()(Command, Data, CallHelp);
    return false;
}

template <class M, class E, class F>
void AddManager(M* Manager, E& (*Previous)(), E TApplication::*Slot, F Dispatch, const char* Marker) {
    auto& l = Managers<M>();
    if (l.empty()) {
        Previous() = Application()->*Slot;
        E ev(Dispatch);
        ev.Name = Marker;
        Application()->*Slot = ev;
    }
    l.push_back(Manager);
}

template <class M, class E>
void RemoveManager(M* Manager, E& (*Previous)(), E TApplication::*Slot, const char* Marker) {
    auto& l = Managers<M>();
    auto it = std::find(l.begin(), l.end(), Manager);
    if (it == l.end()) return;
    l.erase(it);
    if (l.empty()) {
        if ((Application()->*Slot).Name == Marker) Application()->*Slot = Previous();
        Previous() = E();
    }
}

} // namespace

// ---- TjexDBHintManager ----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDBHintManager, rtl::TComponent, "jexdbaccess") {
    d.Property("HintColor", &TjexDBHintManager::HintColor, &TjexDBHintManager::SetHintColor,
               TypeInfo_TColor())
        .Default(clInfoBk);
    d.Property("HintHidePause", &TjexDBHintManager::HintHidePause, &TjexDBHintManager::SetHintHidePause)
        .Default(2500);
    d.Property("HintPause", &TjexDBHintManager::HintPause, &TjexDBHintManager::SetHintPause).Default(500);
    d.Property("HintShortPause", &TjexDBHintManager::HintShortPause, &TjexDBHintManager::SetHintShortPause)
        .Default(50);
    d.Property("HintTable", &TjexDBHintManager::HintTable, &TjexDBHintManager::SetHintTable);
    d.Property("KeyFirstParentForm", &TjexDBHintManager::KeyFirstParentForm,
               &TjexDBHintManager::SetKeyFirstParentForm)
        .Default(true);
}

TjexDBHintManager::TjexDBHintManager(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {
    AddManager(this, &PreviousShowHint, &TApplication::OnShowHint, &DispatchShowHint, kHintDispatch);
}

TjexDBHintManager::~TjexDBHintManager() {
    RemoveManager(this, &PreviousShowHint, &TApplication::OnShowHint, kHintDispatch);
}

void TjexDBHintManager::BeforeDestruction() {
    RemoveManager(this, &PreviousShowHint, &TApplication::OnShowHint, kHintDispatch);
    rtl::TComponent::BeforeDestruction();
}

void TjexDBHintManager::SetHintColor(TColor Value) {
    FHintColor = Value;
    ApplySettings();
}

void TjexDBHintManager::SetHintPause(int Value) {
    FHintPause = std::max(0, Value);
    ApplySettings();
}

void TjexDBHintManager::SetHintShortPause(int Value) {
    FHintShortPause = std::max(0, Value);
    ApplySettings();
}

void TjexDBHintManager::SetHintHidePause(int Value) {
    FHintHidePause = std::max(0, Value);
    ApplySettings();
}

void TjexDBHintManager::SetHintTable(db::TDataSet* Value) {
    if (FHintTable == Value) return;
    if (FHintTable) FHintTable->RemoveFreeNotification(this);
    FHintTable = Value;
    if (FHintTable) FHintTable->FreeNotification(this);
}

void TjexDBHintManager::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    rtl::TComponent::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FHintTable) FHintTable = nullptr;
}

void TjexDBHintManager::ApplySettings() {
    if (IsDesigning() || IsLoading()) return;
    TApplication* app = Application();
    app->SetHintColor(FHintColor);
    app->SetHintPause(FHintPause);
    app->SetHintShortPause(FHintShortPause);
    app->SetHintHidePause(FHintHidePause);
}

void TjexDBHintManager::Loaded() {
    rtl::TComponent::Loaded();
    ApplySettings();
}

std::optional<std::string> TjexDBHintManager::HintFor(const TControl* Control) const {
    return jexLookupKeyText(FHintTable, jexControlKey(Control, FKeyFirstParentForm));
}

// ---- TjexDBHelpManager ----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDBHelpManager, rtl::TComponent, "jexdbaccess") {
    d.Property("HelpTable", &TjexDBHelpManager::HelpTable, &TjexDBHelpManager::SetHelpTable);
    d.Property("KeyFirstParentForm", &TjexDBHelpManager::KeyFirstParentForm,
               &TjexDBHelpManager::SetKeyFirstParentForm)
        .Default(true);
    d.Property("Template", &TjexDBHelpManager::Template, &TjexDBHelpManager::SetTemplate);
}

TjexDBHelpManager::TjexDBHelpManager(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {
    AddManager(this, &PreviousHelp, &TApplication::OnHelp, &DispatchHelp, kHelpDispatch);
}

TjexDBHelpManager::~TjexDBHelpManager() {
    RemoveManager(this, &PreviousHelp, &TApplication::OnHelp, kHelpDispatch);
}

void TjexDBHelpManager::BeforeDestruction() {
    RemoveManager(this, &PreviousHelp, &TApplication::OnHelp, kHelpDispatch);
    rtl::TComponent::BeforeDestruction();
}

void TjexDBHelpManager::SetHelpTable(db::TDataSet* Value) {
    if (FHelpTable == Value) return;
    if (FHelpTable) FHelpTable->RemoveFreeNotification(this);
    FHelpTable = Value;
    if (FHelpTable) FHelpTable->FreeNotification(this);
}

void TjexDBHelpManager::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    rtl::TComponent::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FHelpTable) FHelpTable = nullptr;
}

std::optional<std::string> TjexDBHelpManager::TopicFor(const TControl* Control) const {
    // The control, else the nearest parent the table knows.
    for (const TControl* c = Control; c; c = c->Parent())
        if (auto t = jexLookupKeyText(FHelpTable, jexControlKey(c, FKeyFirstParentForm)); t && !t->empty())
            return t;
    return std::nullopt;
}

bool TjexDBHelpManager::ShowHelpFor(const TControl* Control) {
    std::optional<std::string> topic = TopicFor(Control);
    if (!topic) return false;
    bool& busy = InHelp();
    bool old = busy;
    busy = true;
    bool shown = false;
    try {
        int32_t context = 0;
        if (rtl::TryStrToInt(rtl::Trim(*topic), context))
            shown = Application()->HelpContext(context);
        else
            shown = Application()->HelpKeyword(
                jexReplaceStr(FTemplate.empty() ? "%s" : FTemplate, "%s", *topic, false));
    } catch (...) {
        busy = old;
        throw;
    }
    busy = old;
    return shown;
}

// ---- Adapters ---------------------------------------------------------------------------------------------
void TjexDataSetAdapter::NotSupported(const std::string& What) const {
    throw db::EDatabaseError(rtl::Format("%s is not supported for %s data sets", {What, Name()}));
}

bool TjexDataSetAdapter::CanTransact(const db::TDataSet*) const {
    return false;
}
void TjexDataSetAdapter::StartTransaction(db::TDataSet*) {
    NotSupported("StartTransaction");
}
void TjexDataSetAdapter::Commit(db::TDataSet*) {
    NotSupported("Commit");
}
void TjexDataSetAdapter::Rollback(db::TDataSet*) {
    NotSupported("Rollback");
}
bool TjexDataSetAdapter::InTransaction(const db::TDataSet*) const {
    return false;
}
void TjexDataSetAdapter::GetIndexNames(db::TDataSet*, rtl::TStrings* List) {
    List->Clear();
}
std::string TjexDataSetAdapter::IndexName(const db::TDataSet* DataSet) const {
    const rtl::TPropInfo* p = rtl::GetPropInfo(DataSet, "IndexName");
    return p && p->GetStr ? rtl::GetStrProp(DataSet, *p) : std::string();
}
void TjexDataSetAdapter::SetIndexName(db::TDataSet* DataSet, const std::string& Value) {
    const rtl::TPropInfo* p = rtl::GetPropInfo(DataSet, "IndexName");
    if (!p || !p->SetStr) NotSupported("IndexName");
    rtl::SetStrProp(DataSet, *p, Value);
}
bool TjexDataSetAdapter::CanRange(const db::TDataSet*) const {
    return false;
}
void TjexDataSetAdapter::SetRange(db::TDataSet*, const std::vector<db::Variant>&,
                                  const std::vector<db::Variant>&) {
    NotSupported("SetRange");
}
void TjexDataSetAdapter::CancelRange(db::TDataSet*) {
    NotSupported("CancelRange");
}
bool TjexDataSetAdapter::FindKey(db::TDataSet*, const std::vector<db::Variant>&) {
    NotSupported("FindKey");
}
void TjexDataSetAdapter::EmptyTable(db::TDataSet*) {
    NotSupported("EmptyTable");
}

bool TjexBDEAdapter::Handles(const db::TDataSet* DataSet) const {
    return dynamic_cast<const db::TDBDataSet*>(DataSet) != nullptr;
}

db::TDatabase* TjexBDEAdapter::DatabaseOf(const db::TDataSet* DataSet) {
    auto* ds = dynamic_cast<const db::TDBDataSet*>(DataSet);
    if (!ds) return nullptr;
    if (ds->Database()) return ds->Database();
    return ds->DBSession()->FindDatabase(ds->DatabaseName());
}

bool TjexBDEAdapter::CanTransact(const db::TDataSet* DataSet) const {
    db::TDatabase* d = DatabaseOf(DataSet);
    return d && d->Connected() && d->IsSQLBased();
}

void TjexBDEAdapter::StartTransaction(db::TDataSet* DataSet) {
    db::TDatabase* d = DatabaseOf(DataSet);
    if (!d || !d->Connected()) NotSupported("StartTransaction without an open database");
    d->StartTransaction();
}

void TjexBDEAdapter::Commit(db::TDataSet* DataSet) {
    db::TDatabase* d = DatabaseOf(DataSet);
    if (!d || !d->Connected()) NotSupported("Commit without an open database");
    DataSet->CheckBrowseMode();
    d->Commit();
}

void TjexBDEAdapter::Rollback(db::TDataSet* DataSet) {
    db::TDatabase* d = DatabaseOf(DataSet);
    if (!d || !d->Connected()) NotSupported("Rollback without an open database");
    DataSet->Cancel();
    d->Rollback();
    DataSet->Refresh();
}

bool TjexBDEAdapter::InTransaction(const db::TDataSet* DataSet) const {
    db::TDatabase* d = DatabaseOf(DataSet);
    return d && d->Connected() && d->InTransaction();
}

void TjexBDEAdapter::GetIndexNames(db::TDataSet* DataSet, rtl::TStrings* List) {
    if (auto* t = dynamic_cast<db::TTable*>(DataSet))
        t->GetIndexNames(List);
    else
        List->Clear();
}

bool TjexBDEAdapter::CanRange(const db::TDataSet* DataSet) const {
    return dynamic_cast<const db::TTable*>(DataSet) != nullptr;
}

void TjexBDEAdapter::SetRange(db::TDataSet* DataSet, const std::vector<db::Variant>& Start,
                              const std::vector<db::Variant>& End) {
    auto* t = dynamic_cast<db::TTable*>(DataSet);
    if (!t) NotSupported("SetRange");
    t->SetRange(Start, End);
}

void TjexBDEAdapter::CancelRange(db::TDataSet* DataSet) {
    auto* t = dynamic_cast<db::TTable*>(DataSet);
    if (!t) NotSupported("CancelRange");
    t->CancelRange();
}

bool TjexBDEAdapter::FindKey(db::TDataSet* DataSet, const std::vector<db::Variant>& Values) {
    auto* t = dynamic_cast<db::TTable*>(DataSet);
    if (!t) NotSupported("FindKey");
    return t->FindKey(Values);
}

void TjexBDEAdapter::EmptyTable(db::TDataSet* DataSet) {
    auto* t = dynamic_cast<db::TTable*>(DataSet);
    if (!t) NotSupported("EmptyTable");
    t->EmptyTable();
}

namespace {
std::vector<std::pair<std::string, rtl::TClass>>& KindClasses() {
    static std::vector<std::pair<std::string, rtl::TClass>> list;
    return list;
}
} // namespace

void jexRegisterAdapterDataSetClass(const std::string& Kind, rtl::TClass DataSetClass) {
    auto& l = KindClasses();
    if (std::find(l.begin(), l.end(), std::make_pair(Kind, DataSetClass)) == l.end())
        l.emplace_back(Kind, DataSetClass);
}

void jexUnregisterAdapterDataSetClass(const std::string& Kind, rtl::TClass DataSetClass) {
    auto& l = KindClasses();
    l.erase(std::remove(l.begin(), l.end(), std::make_pair(Kind, DataSetClass)), l.end());
}

bool TjexKindAdapter::Handles(const db::TDataSet* DataSet) const {
    if (!DataSet) return false;
    for (const auto& [kind, cls] : KindClasses())
        if (kind == FKind && DataSet->InheritsFrom(cls)) return true;
    return false;
}

namespace {
struct TAdapterEntry {
    std::string Key;
    std::unique_ptr<TjexDataSetAdapter> Adapter;
    int Uses = 0;
};

std::vector<TAdapterEntry>& Adapters() {
    static std::vector<TAdapterEntry> list;
    return list;
}
} // namespace

TjexDataSetAdapter* jexFindDataSetAdapter(const db::TDataSet* DataSet) {
    auto& l = Adapters();
    for (auto it = l.rbegin(); it != l.rend(); ++it)
        if (it->Adapter->Handles(DataSet)) return it->Adapter.get();
    return nullptr;
}

std::vector<std::string> jexDataSetAdapterNames() {
    std::vector<std::string> out;
    auto& l = Adapters();
    for (auto it = l.rbegin(); it != l.rend(); ++it)
        out.push_back(it->Adapter->Name());
    return out;
}

JEX_IMPLEMENT_CLASS(TjexCustomAdapterReg, rtl::TComponent, "jexdbaccess") {}

void TjexCustomAdapterReg::RegisterAdapter(const std::string& Key,
                                           std::unique_ptr<TjexDataSetAdapter> (*Make)()) {
    auto& l = Adapters();
    auto it = std::find_if(l.begin(), l.end(), [&](const TAdapterEntry& e) { return e.Key == Key; });
    if (it == l.end()) {
        l.push_back({Key, Make(), 0});
        it = l.end() - 1;
    }
    ++it->Uses;
    FKey = Key;
    FAdapter = it->Adapter.get();
}

void TjexCustomAdapterReg::Release() {
    if (FKey.empty()) return;
    auto& l = Adapters();
    auto it = std::find_if(l.begin(), l.end(), [&](const TAdapterEntry& e) { return e.Key == FKey; });
    if (it != l.end() && --it->Uses <= 0) l.erase(it);
    FKey.clear();
    FAdapter = nullptr;
}

TjexCustomAdapterReg::~TjexCustomAdapterReg() {
    Release();
}

void TjexCustomAdapterReg::BeforeDestruction() {
    Release();
    rtl::TComponent::BeforeDestruction();
}

JEX_IMPLEMENT_CLASS(TjexBDEAdapterReg, TjexCustomAdapterReg, "jexdbaccess") {}
JEX_IMPLEMENT_CLASS(TjexClientAdapterReg, TjexCustomAdapterReg, "jexdbaccess") {}
JEX_IMPLEMENT_CLASS(TjexADOAdapterReg, TjexCustomAdapterReg, "jexdbaccess") {}
JEX_IMPLEMENT_CLASS(TjexIBAdapterReg, TjexCustomAdapterReg, "jexdbaccess") {}
JEX_IMPLEMENT_CLASS(TjexSQLAdapterReg, TjexCustomAdapterReg, "jexdbaccess") {}

TjexBDEAdapterReg::TjexBDEAdapterReg(rtl::TComponent* AOwner) : TjexCustomAdapterReg(AOwner) {
    RegisterAdapter("BDE", [] { return std::unique_ptr<TjexDataSetAdapter>(new TjexBDEAdapter()); });
}

namespace {
template <const char* Kind> std::unique_ptr<TjexDataSetAdapter> MakeKindAdapter() {
    return std::make_unique<TjexKindAdapter>(Kind);
}
constexpr char kClient[] = "Client";
constexpr char kADO[] = "ADO";
constexpr char kIB[] = "IB";
constexpr char kSQL[] = "SQL";
} // namespace

TjexClientAdapterReg::TjexClientAdapterReg(rtl::TComponent* AOwner) : TjexCustomAdapterReg(AOwner) {
    RegisterAdapter(kClient, &MakeKindAdapter<kClient>);
}

TjexADOAdapterReg::TjexADOAdapterReg(rtl::TComponent* AOwner) : TjexCustomAdapterReg(AOwner) {
    RegisterAdapter(kADO, &MakeKindAdapter<kADO>);
}

TjexIBAdapterReg::TjexIBAdapterReg(rtl::TComponent* AOwner) : TjexCustomAdapterReg(AOwner) {
    RegisterAdapter(kIB, &MakeKindAdapter<kIB>);
}

TjexSQLAdapterReg::TjexSQLAdapterReg(rtl::TComponent* AOwner) : TjexCustomAdapterReg(AOwner) {
    RegisterAdapter(kSQL, &MakeKindAdapter<kSQL>);
}

// ---- Local tables, queries and databases
// --------------------------------------------------------------------
std::string jexApplicationFolder() {
    std::string exe = Application()->ExeName();
    if (!exe.empty()) return rtl::ExtractFilePath(rtl::ExpandFileName(exe));
    char buf[4096];
    if (getcwd(buf, sizeof(buf))) return rtl::IncludeTrailingPathDelimiter(buf);
    return {};
}

std::string jexResolveLocalPath(const std::string& LocalPath) {
    if (LocalPath.empty()) return {};
    if (LocalPath[0] == '/') return rtl::ExpandFileName(LocalPath);
    return rtl::ExpandFileName(jexApplicationFolder() + LocalPath);
}

namespace {
template <class C> void PublishLocalPath(rtl::TClassDecl<C>& d) {
    d.Property("LocalPath", &C::LocalPath, &C::SetLocalPath);
}
} // namespace

JEX_IMPLEMENT_CLASS(TjexLocalTable, db::TTable, "jexdbaccess") {
    PublishLocalPath(d);
}

void TjexLocalTable::SetLocalPath(const std::string& Value) {
    if (!IsLoading() && !Value.empty()) SetDatabaseName(jexResolveLocalPath(Value)); // closed tables only
    FLocalPath = Value;
}

void TjexLocalTable::Loaded() {
    if (!FLocalPath.empty()) SetDatabaseName(jexResolveLocalPath(FLocalPath));
    db::TTable::Loaded();
}

JEX_IMPLEMENT_CLASS(TjexLocalQuery, db::TQuery, "jexdbaccess") {
    PublishLocalPath(d);
}

void TjexLocalQuery::SetLocalPath(const std::string& Value) {
    if (!IsLoading() && !Value.empty()) SetDatabaseName(jexResolveLocalPath(Value));
    FLocalPath = Value;
}

void TjexLocalQuery::Loaded() {
    if (!FLocalPath.empty()) SetDatabaseName(jexResolveLocalPath(FLocalPath));
    db::TQuery::Loaded();
}

JEX_IMPLEMENT_CLASS(TjexLocalDatabase, db::TDatabase, "jexdbaccess") {
    PublishLocalPath(d);
}

void TjexLocalDatabase::SetLocalPath(const std::string& Value) {
    if (Connected()) throw db::EDatabaseError("Cannot change LocalPath of a connected database");
    FLocalPath = Value;
    if (!IsLoading()) ApplyLocalPath();
}

void TjexLocalDatabase::ApplyLocalPath() {
    if (FLocalPath.empty() || Connected()) return;
    std::string path = jexResolveLocalPath(FLocalPath);
    std::string ext = rtl::LowerCase(rtl::ExtractFileExt(path));
    bool sqliteFile = ext == ".sqlite" || ext == ".sqlite3" || ext == ".db3" ||
                      (rtl::FileExists(path) && !rtl::DirectoryExists(path));
    if (!AliasName().empty()) SetAliasName("");
    SetDriverName(sqliteFile ? "SQLITE" : "STANDARD");
    rtl::TStrings* p = Params();
    for (const char* key : {"PATH", "DATABASE NAME"})
        if (int i = p->IndexOfName(key); i >= 0) p->Delete(i);
    p->Add(std::string(sqliteFile ? "DATABASE NAME=" : "PATH=") + path);
}

void TjexLocalDatabase::Loaded() {
    ApplyLocalPath();
    db::TDatabase::Loaded();
}

// ---- TjexDBIdleTime
// ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDBIdleTime, rtl::TComponent, "jexdbaccess") {}

int TjexDBIdleTime::FlushBuffers() {
    int flushed = 0;
    db::TSessionList* sessions = db::Sessions();
    for (int s = 0; s < sessions->Count(); ++s) {
        db::TSession* session = sessions->Sessions(s);
        for (int i = 0; i < session->DatabaseCount(); ++i) {
            db::TDatabase* d = session->Databases(i);
            if (!d->Connected() || d->InTransaction()) continue;
            if (!rtl::SameText(d->ResolvedDriverName(), "SQLITE")) continue;
            try {
                // Moves what the write-ahead log holds into the database file; a no-op for a database
                // that keeps no such log.
                d->Execute("PRAGMA wal_checkpoint(PASSIVE)");
                ++flushed;
            } catch (const rtl::Exception&) {
                // A database busy elsewhere is flushed at the next idle time.
            }
        }
    }
    return flushed;
}

int TjexDBIdleTime::DoIdle() {
    if (IsDesigning()) return 0;
    int n = FlushBuffers();
    FFlushCount += n;
    return n;
}

static const TjexLibraryUnit<TjexDBHintManager, TjexDBHelpManager, TjexBDEAdapterReg, TjexClientAdapterReg,
                             TjexADOAdapterReg, TjexIBAdapterReg, TjexSQLAdapterReg, TjexLocalTable,
                             TjexLocalQuery, TjexLocalDatabase, TjexDBIdleTime>
    jexdbaccessUnit("jexdbaccess");

} // namespace jex

#endif // JEX_HAVE_DB
