// Application exception components of jexc60: they take over the application's exception handler, write
// each exception to a log (a text file, a log table, or an SQL statement), show a message chosen for the
// exception's class and may end the application; also the exception log file object they share.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "db/dbtables.h"
#include "jex/jexcommon.h"
#include "vcl/forms.h"
#include "vcl/uiservice.h"

namespace jex {

// Replaces every occurrence of OldPattern in S by NewPattern; with IgnoreCase the pattern is matched
// ignoring the case of ASCII letters. An empty pattern leaves S as it is.
std::string jexReplaceStr(const std::string& S, const std::string& OldPattern, const std::string& NewPattern,
                          bool IgnoreCase);

// What is known about one exception when it reaches the handler; the fields of the log table.
struct TjexExceptionInfo {
    double Time = 0;       // ERR_TIME
    std::string UserName;  // USER_NAME
    std::string ErrClass;  // ERR_CLASS
    std::string ErrMsg;    // ERR_MSG
    std::string ExeName;   // EXE_NAME
    std::string AppName;   // APP_NAME
    std::string SndrClass; // SNDR_CLASS
    std::string SndrName;  // SNDR_NAME
    std::string ErrAddr;   // ERR_ADDR: not known for this platform's exceptions (empty)
    std::string SysClass;  // SYS_CLASS: the underlying system error's class, when there is one
    std::string SysMsg;    // SYS_MSG
    std::string SysAddr;   // SYS_ADDR
    static TjexExceptionInfo Make(rtl::TObject* Sender, const rtl::Exception& E);
};

// The names of the log table's and message table's fields (the layout the table builder creates).
inline constexpr const char* jexLogFieldNames[] = {"ERR_TIME", "USER_NAME", "ERR_CLASS",  "ERR_MSG",
                                                   "EXE_NAME", "APP_NAME",  "SNDR_CLASS", "SNDR_NAME",
                                                   "ERR_ADDR", "SYS_CLASS", "SYS_MSG",    "SYS_ADDR"};
inline constexpr const char* jexMsgFieldNames[] = {"ERR_CLASS", "MSG_TYPE", "LOG", "TERMINATE", "ERR_MSG"};

// The exception log file: one line per exception, its fields separated by tabs (time, user, class,
// message, program, application, sender class, sender name), written when Enabled and FileName is set.
class TjexExcepLog : public rtl::TPersistent {
    JEX_CLASS(TjexExcepLog, rtl::TPersistent)
    TjexExcepLog() = default;
    // The component whose ExcepLog this is (for name paths).
    void SetOwnerObject(rtl::TPersistent* Owner) { FOwner = Owner; }
    void Assign(rtl::TPersistent* Source) override;
    rtl::TPersistent* GetOwner() const override { return FOwner; }
    std::string FileName() const { return FFileName; }
    void SetFileName(const std::string& Value) { FFileName = Value; }
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool Value) { FEnabled = Value; }
    bool Active() const { return FEnabled && !FFileName.empty(); }
    // Appends the exception (EFCreateError when the file cannot be written).
    void Add(const TjexExceptionInfo& Info);
    // The entries of a log file (EFOpenError when it cannot be read).
    static std::vector<TjexExceptionInfo> ReadLog(const std::string& FileName);

private:
    rtl::TPersistent* FOwner = nullptr;
    std::string FFileName;
    bool FEnabled = true;
};

// How one exception is treated: the message shown and its kind, whether it is logged and whether the
// application then ends.
struct TjexExceptionRule {
    vcl::TMsgDlgType MsgType = vcl::mtError;
    bool Log = true;
    bool Terminate = false;
    std::string Message; // empty: the exception's own message
};

// The common part of the exception components. While one exists (and is not being designed) it handles the
// application's exceptions; the most recently made one handles them, and freeing it gives the handler back.
// ExcepMsg is the message shown ("%s" stands for the exception's own message; empty shows that message);
// with Terminate the application ends after the message, asking first with ConfirmTerminate.
class TjexCustomAppException : public rtl::TComponent {
    JEX_CLASS(TjexCustomAppException, rtl::TComponent)
    explicit TjexCustomAppException(rtl::TComponent* AOwner);
    ~TjexCustomAppException() override;
    void BeforeDestruction() override;

    bool ConfirmTerminate() const { return FConfirmTerminate; }
    void SetConfirmTerminate(bool Value) { FConfirmTerminate = Value; }
    TjexExcepLog* ExcepLog() const { return FExcepLog.get(); }
    void SetExcepLog(TjexExcepLog* Value) { FExcepLog->Assign(Value); }
    std::string ExcepMsg() const { return FExcepMsg; }
    void SetExcepMsg(const std::string& Value) { FExcepMsg = Value; }
    bool Terminate() const { return FTerminate; }
    void SetTerminate(bool Value) { FTerminate = Value; }

    // Handles one exception: log, message, termination. Returns the rule that was applied.
    TjexExceptionRule HandleException(rtl::TObject* Sender, const rtl::Exception& E);
    // The last exception handled and the message shown for it.
    const TjexExceptionInfo& LastException() const { return FLast; }
    const std::string& LastMessage() const { return FLastMessage; }
    // Whether this component is the one handling the application's exceptions now.
    bool Handling() const;

protected:
    // The rule for an exception; the base uses ExcepMsg and Terminate.
    virtual TjexExceptionRule RuleFor(const TjexExceptionInfo& Info);
    // Writes the exception to the log; the base writes the log file.
    virtual void LogException(const TjexExceptionInfo& Info);
    std::string FormatMessage(const std::string& Template, const std::string& Original) const;

private:
    std::unique_ptr<TjexExcepLog> FExcepLog;
    std::string FExcepMsg;
    bool FConfirmTerminate = true, FTerminate = false;
    TjexExceptionInfo FLast;
    std::string FLastMessage;
};

class TjexAppException : public TjexCustomAppException {
    JEX_CLASS(TjexAppException, TjexCustomAppException)
    explicit TjexAppException(rtl::TComponent* AOwner) : TjexCustomAppException(AOwner) {}
};

// Also handles the errors of the data sets its form owns (posting, deleting, editing): they are logged and
// shown as any exception, and the operation is abandoned quietly so that no second message follows.
class TjexDSAppException : public TjexCustomAppException {
    JEX_CLASS(TjexDSAppException, TjexCustomAppException)
    explicit TjexDSAppException(rtl::TComponent* AOwner) : TjexCustomAppException(AOwner) {}
    ~TjexDSAppException() override;
    void Loaded() override;
    // Takes over the error events of the owner's data sets (done when the form has loaded).
    void HookDataSets();
    void UnhookDataSets();
    int HookedCount() const { return static_cast<int>(FHooks.size()); }

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    void DataSetError(db::TDataSet* DataSet, db::EDatabaseError& E, db::TDataAction& Action);
    struct THook {
        db::TDataSet* DataSet;
        db::TDataSetErrorEvent PostError, DeleteError, EditError;
    };
    std::vector<THook> FHooks;
};

// The kind of table the exception tables are: 0 an SQL server table, 1 Paradox, 2 dBASE.
JEX_ENUM(TjexAppExcTableType, jatSQL, jatParadox, jatDBase)

// Writes each exception into a log table and takes the rule for each exception class from a message table
// (ERR_CLASS, MSG_TYPE (the message kind's ordinal), LOG, TERMINATE, ERR_MSG); classes not in the table
// follow ExcepMsg and Terminate. Both tables live in DatabaseName (an alias or a path) of SessionName.
class TjexDBAppException : public TjexCustomAppException {
    JEX_CLASS(TjexDBAppException, TjexCustomAppException)
    explicit TjexDBAppException(rtl::TComponent* AOwner);
    ~TjexDBAppException() override;
    std::string DatabaseName() const { return FMsgTable->DatabaseName(); }
    void SetDatabaseName(const std::string& Value);
    std::string SessionName() const { return FMsgTable->SessionName(); }
    void SetSessionName(const std::string& Value);
    std::string MsgTableName() const { return FMsgTable->TableName(); }
    void SetMsgTableName(const std::string& Value);
    std::string LogTableName() const { return FLogTable->TableName(); }
    void SetLogTableName(const std::string& Value);
    TjexAppExcTableType TableType() const { return FTableType; }
    void SetTableType(TjexAppExcTableType Value);
    // The internal tables (closed between exceptions).
    db::TTable* MsgTable() const { return FMsgTable; }
    db::TTable* LogTable() const { return FLogTable; }
    // The message data set the design-time editors ask for its session.
    db::TDBDataSet* MsgDataSet() const { return FMsgTable; }
    static db::TTableType PlatformTableType(TjexAppExcTableType Value);

protected:
    TjexExceptionRule RuleFor(const TjexExceptionInfo& Info) override;
    void LogException(const TjexExceptionInfo& Info) override;

private:
    void CloseTables();
    db::TTable* FMsgTable;
    db::TTable* FLogTable;
    TjexAppExcTableType FTableType = jatSQL;
};

// The same through SQL: MsgSQL selects the message row (":ERR_CLASS" takes the class name) and LogSQL
// inserts the log row (its parameters take the fields of the same names). The first line of each names the
// table (ERRMSG, ERRLOG), which the table builder replaces with the tables it creates.
class TjexDBQryAppException : public TjexCustomAppException {
    JEX_CLASS(TjexDBQryAppException, TjexCustomAppException)
    explicit TjexDBQryAppException(rtl::TComponent* AOwner);
    ~TjexDBQryAppException() override;
    std::string DatabaseName() const { return FMsgQuery->DatabaseName(); }
    void SetDatabaseName(const std::string& Value);
    std::string SessionName() const { return FMsgQuery->SessionName(); }
    void SetSessionName(const std::string& Value);
    rtl::TStrings* LogSQL() const { return FLogSQL.get(); }
    void SetLogSQL(rtl::TStrings* Value) { FLogSQL->Assign(Value); }
    rtl::TStrings* MsgSQL() const { return FMsgSQL.get(); }
    void SetMsgSQL(rtl::TStrings* Value) { FMsgSQL->Assign(Value); }
    bool IsLogSQLStored() const;
    bool IsMsgSQLStored() const;
    db::TQuery* MsgQuery() const { return FMsgQuery; }
    db::TQuery* LogQuery() const { return FLogQuery; }
    db::TDBDataSet* MsgDataSet() const { return FMsgQuery; }
    static std::vector<std::string> DefaultLogSQL();
    static std::vector<std::string> DefaultMsgSQL();

protected:
    TjexExceptionRule RuleFor(const TjexExceptionInfo& Info) override;
    void LogException(const TjexExceptionInfo& Info) override;

private:
    db::TQuery* FMsgQuery;
    db::TQuery* FLogQuery;
    std::unique_ptr<rtl::TStringList> FLogSQL, FMsgSQL;
};

} // namespace jex
