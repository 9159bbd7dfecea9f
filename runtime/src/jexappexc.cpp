// Application exception components: the shared handler chain, the log file, and the table and SQL
// variants that log to a database and read per-class rules from it.
#ifdef JEX_HAVE_DB

#include "jex/jexappexc.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <fstream>

#include "vcl/dialogs.h"

namespace jex {

using namespace vcl;

std::string jexReplaceStr(const std::string& S, const std::string& OldPattern, const std::string& NewPattern,
                          bool IgnoreCase) {
    if (OldPattern.empty()) return S;
    std::string hay = IgnoreCase ? rtl::UpperCase(S) : S;
    std::string needle = IgnoreCase ? rtl::UpperCase(OldPattern) : OldPattern;
    std::string out;
    size_t pos = 0;
    for (;;) {
        size_t hit = hay.find(needle, pos);
        if (hit == std::string::npos) break;
        out.append(S, pos, hit - pos);
        out += NewPattern;
        pos = hit + needle.size();
    }
    out.append(S, pos, std::string::npos);
    return out;
}

namespace {

double NowDateTime() {
    auto now = std::chrono::system_clock::now();
    std::time_t t = std::chrono::system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&t, &local);
    int ms = static_cast<int>(
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000);
    return db::EncodeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday) +
           db::EncodeTime(local.tm_hour, local.tm_min, local.tm_sec, ms);
}

std::string CurrentUserName() {
    for (const char* var : {"USER", "LOGNAME", "USERNAME"})
        if (const char* v = std::getenv(var); v && *v) return v;
    if (const char* l = getlogin(); l && *l) return l;
    return {};
}

std::string CurrentExeName() {
    std::string name = Application()->ExeName();
    if (!name.empty()) return name;
    char buf[4096];
    ssize_t n = readlink("/proc/self/exe", buf, sizeof(buf) - 1);
    return n > 0 ? std::string(buf, static_cast<size_t>(n)) : std::string();
}

// One line per entry: tabs separate the fields, so tabs and line breaks inside them become blanks.
std::string Flat(const std::string& s) {
    std::string out = s;
    for (char& c : out)
        if (c == '\t' || c == '\r' || c == '\n') c = ' ';
    return out;
}

// ---- The chain of components handling the application's exceptions ------------------------------------
constexpr const char* kDispatchName = "jexAppExceptionHandler";

struct THandlerChain {
    std::vector<TjexCustomAppException*> Active;
    TExceptionEvent Previous;
    bool Installed = false;
};

THandlerChain& Chain() {
    static THandlerChain chain;
    return chain;
}

void Dispatch(rtl::TObject* Sender, const rtl::Exception& E) {
    THandlerChain& c = Chain();
    for (auto it = c.Active.rbegin(); it != c.Active.rend(); ++it)
        if (!(*it)->IsDesigning()) {
            (*it)->HandleException(Sender, E);
            return;
        }
    if (c.Previous)
        c.Previous(Sender, E);
    else
        Application()->ShowException(E);
}

void InstallHandler(TjexCustomAppException* Handler) {
    THandlerChain& c = Chain();
    if (!c.Installed) {
        c.Previous = Application()->OnException;
        TExceptionEvent ev(&Dispatch);
        ev.Name = kDispatchName;
        Application()->OnException = ev;
        c.Installed = true;
    }
    c.Active.push_back(Handler);
}

void RemoveHandler(TjexCustomAppException* Handler) {
    THandlerChain& c = Chain();
    c.Active.erase(std::remove(c.Active.begin(), c.Active.end(), Handler), c.Active.end());
    if (c.Active.empty() && c.Installed) {
        // Give the handler back only when nobody replaced ours in the meantime.
        if (Application()->OnException.Name == kDispatchName) Application()->OnException = c.Previous;
        c.Previous = TExceptionEvent();
        c.Installed = false;
    }
}

bool IsDuplicateKey(const rtl::Exception& E) {
    std::string m = rtl::UpperCase(E.Message());
    return m.find("UNIQUE") != std::string::npos || m.find("PRIMARY KEY") != std::string::npos ||
           m.find("DUPLICATE") != std::string::npos;
}

// Sets a log field from the exception, cutting text to the field's size.
void SetLogField(db::TField* f, int Index, const TjexExceptionInfo& I) {
    if (!f) return;
    if (Index == 0) {
        f->SetAsDateTime(I.Time);
        return;
    }
    const std::string* values[] = {nullptr,    &I.UserName, &I.ErrClass,  &I.ErrMsg,
                                   &I.ExeName, &I.AppName,  &I.SndrClass, &I.SndrName,
                                   &I.ErrAddr, &I.SysClass, &I.SysMsg,    &I.SysAddr};
    std::string v = *values[Index];
    if (f->DataType() == db::ftString && f->Size() > 0 && static_cast<int>(v.size()) > f->Size())
        v.resize(static_cast<size_t>(f->Size()));
    f->SetAsString(v);
}

db::Variant LogValue(int Index, const TjexExceptionInfo& I) {
    if (Index == 0) return db::Variant(I.Time);
    const std::string* values[] = {nullptr,    &I.UserName, &I.ErrClass,  &I.ErrMsg,
                                   &I.ExeName, &I.AppName,  &I.SndrClass, &I.SndrName,
                                   &I.ErrAddr, &I.SysClass, &I.SysMsg,    &I.SysAddr};
    return db::Variant(*values[Index]);
}

TMsgDlgType MsgTypeOf(const db::TField* f) {
    if (!f || f->IsNull()) return mtError;
    int v = 0;
    try {
        v = f->AsInteger();
    } catch (const rtl::Exception&) {
        return mtError;
    }
    return v >= 0 && v <= static_cast<int>(mtCustom) ? static_cast<TMsgDlgType>(v) : mtError;
}

} // namespace

TjexExceptionInfo TjexExceptionInfo::Make(rtl::TObject* Sender, const rtl::Exception& E) {
    TjexExceptionInfo i;
    i.Time = NowDateTime();
    i.UserName = CurrentUserName();
    i.ErrClass = E.ClassName();
    i.ErrMsg = E.Message();
    i.ExeName = CurrentExeName();
    i.AppName = Application()->Title();
    if (Sender) {
        i.SndrClass = Sender->ClassName();
        if (auto* c = dynamic_cast<rtl::TComponent*>(Sender)) i.SndrName = c->Name();
    }
    return i;
}

// ---- TjexExcepLog ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexExcepLog, rtl::TPersistent, "jexappexc") {
    d.Property("Enabled", &TjexExcepLog::Enabled, &TjexExcepLog::SetEnabled).Default(true);
    d.Property("FileName", &TjexExcepLog::FileName, &TjexExcepLog::SetFileName, rtl::TypeInfo_TFileName());
}

void TjexExcepLog::Assign(rtl::TPersistent* Source) {
    if (auto* l = dynamic_cast<TjexExcepLog*>(Source)) {
        FFileName = l->FFileName;
        FEnabled = l->FEnabled;
        return;
    }
    rtl::TPersistent::Assign(Source);
}

void TjexExcepLog::Add(const TjexExceptionInfo& Info) {
    if (!Active()) return;
    std::ofstream out(FFileName, std::ios::binary | std::ios::app);
    if (!out) throw rtl::EFCreateError(rtl::Format(rtl::SFCreateError, {FFileName}));
    out << db::DateTimeToStr(Info.Time) << '\t' << Flat(Info.UserName) << '\t' << Flat(Info.ErrClass) << '\t'
        << Flat(Info.ErrMsg) << '\t' << Flat(Info.ExeName) << '\t' << Flat(Info.AppName) << '\t'
        << Flat(Info.SndrClass) << '\t' << Flat(Info.SndrName) << "\r\n";
    if (!out) throw rtl::EFCreateError(rtl::Format(rtl::SFCreateError, {FFileName}));
}

std::vector<TjexExceptionInfo> TjexExcepLog::ReadLog(const std::string& FileName) {
    rtl::TStringList lines;
    lines.LoadFromFile(FileName);
    std::vector<TjexExceptionInfo> out;
    for (int n = 0; n < lines.Count(); ++n) {
        std::vector<std::string> f;
        std::string line = lines[n];
        size_t start = 0;
        for (;;) {
            size_t tab = line.find('\t', start);
            f.push_back(line.substr(start, tab == std::string::npos ? std::string::npos : tab - start));
            if (tab == std::string::npos) break;
            start = tab + 1;
        }
        if (f.size() < 8) continue;
        TjexExceptionInfo i;
        db::TryStrToDateTime(f[0], i.Time);
        i.UserName = f[1];
        i.ErrClass = f[2];
        i.ErrMsg = f[3];
        i.ExeName = f[4];
        i.AppName = f[5];
        i.SndrClass = f[6];
        i.SndrName = f[7];
        out.push_back(std::move(i));
    }
    return out;
}

// ---- TjexCustomAppException ------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomAppException, rtl::TComponent, "jexappexc") {}

TjexCustomAppException::TjexCustomAppException(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FExcepLog(std::make_unique<TjexExcepLog>()) {
    FExcepLog->SetOwnerObject(this);
    InstallHandler(this);
}

TjexCustomAppException::~TjexCustomAppException() {
    RemoveHandler(this);
}

void TjexCustomAppException::BeforeDestruction() {
    RemoveHandler(this);
    rtl::TComponent::BeforeDestruction();
}

bool TjexCustomAppException::Handling() const {
    const THandlerChain& c = Chain();
    for (auto it = c.Active.rbegin(); it != c.Active.rend(); ++it)
        if (!(*it)->IsDesigning()) return *it == this && Application()->OnException.Name == kDispatchName;
    return false;
}

std::string TjexCustomAppException::FormatMessage(const std::string& Template,
                                                  const std::string& Original) const {
    if (Template.empty()) return Original;
    return jexReplaceStr(Template, "%s", Original, false);
}

TjexExceptionRule TjexCustomAppException::RuleFor(const TjexExceptionInfo&) {
    TjexExceptionRule rule;
    rule.Message = FExcepMsg;
    rule.Terminate = FTerminate;
    return rule;
}

void TjexCustomAppException::LogException(const TjexExceptionInfo& Info) {
    FExcepLog->Add(Info);
}

TjexExceptionRule TjexCustomAppException::HandleException(rtl::TObject* Sender, const rtl::Exception& E) {
    TjexExceptionInfo info = TjexExceptionInfo::Make(Sender, E);
    FLast = info;
    std::string note;
    TjexExceptionRule rule;
    try {
        rule = RuleFor(info);
    } catch (const rtl::Exception& x) {
        rule = TjexCustomAppException::RuleFor(info);
        note = "(The message for this error could not be read: " + x.Message() + ")";
    }
    if (rule.Log) {
        try {
            LogException(info);
        } catch (const rtl::Exception& x) {
            note += std::string(note.empty() ? "" : "\r\n") +
                    "(The error could not be logged: " + x.Message() + ")";
        }
    }
    std::string text = FormatMessage(rule.Message, E.Message());
    if (!note.empty()) text += "\r\n\r\n" + note;
    FLastMessage = text;
    MessageDlg(text, rule.MsgType, TMsgDlgButtons{mbOK}, 0);
    if (rule.Terminate) {
        bool end = !FConfirmTerminate || MessageDlg("An error occurred. Terminate the application?",
                                                    mtConfirmation, TMsgDlgButtons{mbYes, mbNo}, 0) == mrYes;
        if (end) Application()->Terminate();
    }
    return rule;
}

namespace {
template <class C> void PublishAppException(rtl::TClassDecl<C>& d) {
    d.Property("ConfirmTerminate", &C::ConfirmTerminate, &C::SetConfirmTerminate).Default(true);
    d.Property("ExcepLog", &C::ExcepLog, &C::SetExcepLog);
    d.Property("ExcepMsg", &C::ExcepMsg, &C::SetExcepMsg);
    d.Property("Terminate", &C::Terminate, &C::SetTerminate).Default(false);
}
} // namespace

JEX_IMPLEMENT_CLASS(TjexAppException, TjexCustomAppException, "jexappexc") {
    PublishAppException(d);
}

// ---- TjexDSAppException ---------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDSAppException, TjexCustomAppException, "jexappexc") {
    PublishAppException(d);
}

TjexDSAppException::~TjexDSAppException() {
    UnhookDataSets();
}

void TjexDSAppException::Loaded() {
    TjexCustomAppException::Loaded();
    if (!IsDesigning()) HookDataSets();
}

void TjexDSAppException::HookDataSets() {
    if (!Owner()) return;
    for (rtl::TComponent* c : Owner()->ComponentList()) {
        auto* ds = dynamic_cast<db::TDataSet*>(c);
        if (!ds) continue;
        if (std::any_of(FHooks.begin(), FHooks.end(), [&](const THook& h) { return h.DataSet == ds; }))
            continue;
        FHooks.push_back({ds, ds->OnPostError, ds->OnDeleteError, ds->OnEditError});
        auto handler = [this, ds](db::TDataSet* Sender, db::EDatabaseError& E, db::TDataAction& Action) {
            DataSetError(Sender ? Sender : ds, E, Action);
        };
        ds->OnPostError = handler;
        ds->OnDeleteError = handler;
        ds->OnEditError = handler;
        ds->FreeNotification(this);
    }
}

void TjexDSAppException::UnhookDataSets() {
    std::vector<THook> hooks;
    hooks.swap(FHooks);
    for (THook& h : hooks) {
        h.DataSet->OnPostError = h.PostError;
        h.DataSet->OnDeleteError = h.DeleteError;
        h.DataSet->OnEditError = h.EditError;
        h.DataSet->RemoveFreeNotification(this);
    }
}

void TjexDSAppException::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TjexCustomAppException::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove)
        FHooks.erase(std::remove_if(FHooks.begin(), FHooks.end(),
                                    [&](const THook& h) { return h.DataSet == AComponent; }),
                     FHooks.end());
}

void TjexDSAppException::DataSetError(db::TDataSet* DataSet, db::EDatabaseError& E, db::TDataAction& Action) {
    // The form's own handler comes first; when it decided, that decision stands.
    for (THook& h : FHooks) {
        if (h.DataSet != DataSet) continue;
        for (auto* prev : {&h.PostError, &h.DeleteError, &h.EditError})
            if (*prev) {
                (*prev)(DataSet, E, Action);
                break;
            }
    }
    if (Action != db::daFail) return;
    HandleException(DataSet, E);
    Action = db::daAbort;
}

// ---- TjexDBAppException ---------------------------------------------------------------------------------
JEX_DEFINE_ENUM(TjexAppExcTableType)

JEX_IMPLEMENT_CLASS(TjexDBAppException, TjexCustomAppException, "jexappexc") {
    PublishAppException(d);
    d.Property("DatabaseName", &TjexDBAppException::DatabaseName, &TjexDBAppException::SetDatabaseName,
               rtl::TypeInfo_TFileName());
    d.Property("LogTableName", &TjexDBAppException::LogTableName, &TjexDBAppException::SetLogTableName,
               rtl::TypeInfo_TFileName());
    d.Property("MsgTableName", &TjexDBAppException::MsgTableName, &TjexDBAppException::SetMsgTableName,
               rtl::TypeInfo_TFileName());
    d.Property("SessionName", &TjexDBAppException::SessionName, &TjexDBAppException::SetSessionName);
    d.Property("TableType", &TjexDBAppException::TableType, &TjexDBAppException::SetTableType)
        .Default(jatSQL);
}

TjexDBAppException::TjexDBAppException(rtl::TComponent* AOwner) : TjexCustomAppException(AOwner) {
    // The tables are the component's own parts: owned by it, never written to the form.
    FMsgTable = new db::TTable(this);
    FMsgTable->SetName("MsgTable");
    FLogTable = new db::TTable(this);
    FLogTable->SetName("LogTable");
}

TjexDBAppException::~TjexDBAppException() = default;

db::TTableType TjexDBAppException::PlatformTableType(TjexAppExcTableType Value) {
    switch (Value) {
    case jatParadox:
        return db::ttParadox;
    case jatDBase:
        return db::ttDBase;
    default:
        return db::ttDefault;
    }
}

void TjexDBAppException::CloseTables() {
    FMsgTable->Close();
    FLogTable->Close();
}

void TjexDBAppException::SetDatabaseName(const std::string& Value) {
    CloseTables();
    FMsgTable->SetDatabaseName(Value);
    FLogTable->SetDatabaseName(Value);
}

void TjexDBAppException::SetSessionName(const std::string& Value) {
    CloseTables();
    FMsgTable->SetSessionName(Value);
    FLogTable->SetSessionName(Value);
}

void TjexDBAppException::SetMsgTableName(const std::string& Value) {
    FMsgTable->Close();
    FMsgTable->SetTableName(Value);
}

void TjexDBAppException::SetLogTableName(const std::string& Value) {
    FLogTable->Close();
    FLogTable->SetTableName(Value);
}

void TjexDBAppException::SetTableType(TjexAppExcTableType Value) {
    CloseTables();
    FTableType = Value;
    FMsgTable->SetTableType(PlatformTableType(Value));
    FLogTable->SetTableType(PlatformTableType(Value));
}

TjexExceptionRule TjexDBAppException::RuleFor(const TjexExceptionInfo& Info) {
    TjexExceptionRule rule = TjexCustomAppException::RuleFor(Info);
    if (DatabaseName().empty() || MsgTableName().empty()) return rule;
    FMsgTable->Open();
    try {
        if (FMsgTable->Locate("ERR_CLASS", {db::Variant(Info.ErrClass)}, {db::loCaseInsensitive})) {
            rule.MsgType = MsgTypeOf(FMsgTable->FindField("MSG_TYPE"));
            if (db::TField* f = FMsgTable->FindField("LOG"); f && !f->IsNull()) rule.Log = f->AsBoolean();
            if (db::TField* f = FMsgTable->FindField("TERMINATE"); f && !f->IsNull())
                rule.Terminate = f->AsBoolean();
            if (db::TField* f = FMsgTable->FindField("ERR_MSG"); f && !f->IsNull())
                rule.Message = f->AsString();
        }
    } catch (...) {
        FMsgTable->Close();
        throw;
    }
    FMsgTable->Close();
    return rule;
}

void TjexDBAppException::LogException(const TjexExceptionInfo& Info) {
    TjexCustomAppException::LogException(Info);
    if (DatabaseName().empty() || LogTableName().empty()) return;
    FLogTable->Open();
    try {
        TjexExceptionInfo entry = Info;
        for (int attempt = 0;; ++attempt) {
            FLogTable->Append();
            try {
                for (int i = 0; i < 12; ++i)
                    SetLogField(FLogTable->FindField(jexLogFieldNames[i]), i, entry);
                FLogTable->Post();
                break;
            } catch (const rtl::Exception& e) {
                FLogTable->Cancel();
                // ERR_TIME is the key: two errors within a millisecond take the next free one.
                if (attempt >= 20 || !IsDuplicateKey(e)) throw;
                entry.Time += 1.0 / 86400000.0;
            }
        }
    } catch (...) {
        FLogTable->Close();
        throw;
    }
    FLogTable->Close();
}

// ---- TjexDBQryAppException ------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDBQryAppException, TjexCustomAppException, "jexappexc") {
    PublishAppException(d);
    d.Property("DatabaseName", &TjexDBQryAppException::DatabaseName, &TjexDBQryAppException::SetDatabaseName,
               rtl::TypeInfo_TFileName());
    d.Property("LogSQL", &TjexDBQryAppException::LogSQL, &TjexDBQryAppException::SetLogSQL)
        .Stored(&TjexDBQryAppException::IsLogSQLStored);
    d.Property("MsgSQL", &TjexDBQryAppException::MsgSQL, &TjexDBQryAppException::SetMsgSQL)
        .Stored(&TjexDBQryAppException::IsMsgSQLStored);
    d.Property("SessionName", &TjexDBQryAppException::SessionName, &TjexDBQryAppException::SetSessionName);
}

std::vector<std::string> TjexDBQryAppException::DefaultLogSQL() {
    return {"INSERT INTO ERRLOG", "(ERR_TIME, USER_NAME, ERR_CLASS, ERR_MSG, EXE_NAME, APP_NAME,",
            " SNDR_CLASS, SNDR_NAME, ERR_ADDR, SYS_CLASS, SYS_MSG, SYS_ADDR)",
            "VALUES (:ERR_TIME, :USER_NAME, :ERR_CLASS, :ERR_MSG, :EXE_NAME, :APP_NAME,",
            " :SNDR_CLASS, :SNDR_NAME, :ERR_ADDR, :SYS_CLASS, :SYS_MSG, :SYS_ADDR)"};
}

std::vector<std::string> TjexDBQryAppException::DefaultMsgSQL() {
    return {"SELECT * FROM ERRMSG", "WHERE ERR_CLASS = :ERR_CLASS"};
}

TjexDBQryAppException::TjexDBQryAppException(rtl::TComponent* AOwner)
    : TjexCustomAppException(AOwner), FLogSQL(std::make_unique<rtl::TStringList>()),
      FMsgSQL(std::make_unique<rtl::TStringList>()) {
    FMsgQuery = new db::TQuery(this);
    FMsgQuery->SetName("MsgQuery");
    FLogQuery = new db::TQuery(this);
    FLogQuery->SetName("LogQuery");
    FLogSQL->AddStrings(DefaultLogSQL());
    FMsgSQL->AddStrings(DefaultMsgSQL());
}

TjexDBQryAppException::~TjexDBQryAppException() = default;

bool TjexDBQryAppException::IsLogSQLStored() const {
    return FLogSQL->ToVector() != DefaultLogSQL();
}

bool TjexDBQryAppException::IsMsgSQLStored() const {
    return FMsgSQL->ToVector() != DefaultMsgSQL();
}

void TjexDBQryAppException::SetDatabaseName(const std::string& Value) {
    FMsgQuery->Close();
    FLogQuery->Close();
    FMsgQuery->SetDatabaseName(Value);
    FLogQuery->SetDatabaseName(Value);
}

void TjexDBQryAppException::SetSessionName(const std::string& Value) {
    FMsgQuery->Close();
    FLogQuery->Close();
    FMsgQuery->SetSessionName(Value);
    FLogQuery->SetSessionName(Value);
}

TjexExceptionRule TjexDBQryAppException::RuleFor(const TjexExceptionInfo& Info) {
    TjexExceptionRule rule = TjexCustomAppException::RuleFor(Info);
    if (DatabaseName().empty() || rtl::Trim(FMsgSQL->Text()).empty()) return rule;
    FMsgQuery->Close();
    FMsgQuery->SQL()->Assign(FMsgSQL.get());
    if (db::TParam* p = FMsgQuery->Params()->FindParam("ERR_CLASS")) p->SetAsString(Info.ErrClass);
    FMsgQuery->Open();
    try {
        if (!FMsgQuery->Eof()) {
            rule.MsgType = MsgTypeOf(FMsgQuery->FindField("MSG_TYPE"));
            if (db::TField* f = FMsgQuery->FindField("LOG"); f && !f->IsNull()) rule.Log = f->AsBoolean();
            if (db::TField* f = FMsgQuery->FindField("TERMINATE"); f && !f->IsNull())
                rule.Terminate = f->AsBoolean();
            if (db::TField* f = FMsgQuery->FindField("ERR_MSG"); f && !f->IsNull())
                rule.Message = f->AsString();
        }
    } catch (...) {
        FMsgQuery->Close();
        throw;
    }
    FMsgQuery->Close();
    return rule;
}

void TjexDBQryAppException::LogException(const TjexExceptionInfo& Info) {
    TjexCustomAppException::LogException(Info);
    if (DatabaseName().empty() || rtl::Trim(FLogSQL->Text()).empty()) return;
    FLogQuery->Close();
    FLogQuery->SQL()->Assign(FLogSQL.get());
    TjexExceptionInfo entry = Info;
    for (int attempt = 0;; ++attempt) {
        for (int i = 0; i < 12; ++i)
            if (db::TParam* p = FLogQuery->Params()->FindParam(jexLogFieldNames[i])) {
                if (i == 0)
                    p->SetAsDateTime(entry.Time);
                else
                    p->SetValue(LogValue(i, entry));
            }
        try {
            FLogQuery->ExecSQL();
            return;
        } catch (const rtl::Exception& e) {
            if (attempt >= 20 || !IsDuplicateKey(e)) throw;
            entry.Time += 1.0 / 86400000.0;
        }
    }
}

static const TjexLibraryUnit<TjexAppException, TjexDSAppException, TjexDBAppException, TjexDBQryAppException>
    jexappexcUnit("jexappexc");

} // namespace jex

#endif // JEX_HAVE_DB
