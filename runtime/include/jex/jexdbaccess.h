// Data-access helpers of jexc60: hints and help topics kept in tables, the data-set adapters that tell the
// library's navigators how to work with each kind of data set (and the components that register them),
// tables, queries and databases found relative to the application, and the idle-time flush.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "db/dbtables.h"
#include "jex/jexcommon.h"
#include "vcl/forms.h"

namespace jex {

// ---- Hint and help tables ------------------------------------------------------------------------------
// The key a control has in a hint or help table: "Form.Control", the form being the control's nearest
// form (FirstParentForm) or its outermost one (for forms shown inside other forms). Empty for a control
// without a name.
std::string jexControlKey(const vcl::TControl* Control, bool FirstParentForm);
// Looks Key up in Table (an open data set whose first field holds keys and second field the text, or whose
// fields are named KEY and TEXT), ignoring case; the table keeps its current record.
std::optional<std::string> jexLookupKeyText(db::TDataSet* Table, const std::string& Key);

// Gives the application's hints from a table: while it exists (and is not being designed) every hint about
// to show for a control found in HintTable shows the table's text; HintColor and the pauses are the
// application's.
class TjexDBHintManager : public rtl::TComponent {
    JEX_CLASS(TjexDBHintManager, rtl::TComponent)
    explicit TjexDBHintManager(rtl::TComponent* AOwner);
    ~TjexDBHintManager() override;
    void BeforeDestruction() override;
    vcl::TColor HintColor() const { return FHintColor; }
    void SetHintColor(vcl::TColor Value);
    int HintPause() const { return FHintPause; }
    void SetHintPause(int Value);
    int HintShortPause() const { return FHintShortPause; }
    void SetHintShortPause(int Value);
    int HintHidePause() const { return FHintHidePause; }
    void SetHintHidePause(int Value);
    db::TDataSet* HintTable() const { return FHintTable; }
    void SetHintTable(db::TDataSet* Value);
    bool KeyFirstParentForm() const { return FKeyFirstParentForm; }
    void SetKeyFirstParentForm(bool Value) { FKeyFirstParentForm = Value; }
    // The table's hint for a control, if it has one.
    std::optional<std::string> HintFor(const vcl::TControl* Control) const;
    // Puts HintColor and the pauses into the application.
    void ApplySettings();
    void Loaded() override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    db::TDataSet* FHintTable = nullptr;
    vcl::TColor FHintColor = vcl::clInfoBk;
    int FHintPause = 500, FHintShortPause = 50, FHintHidePause = 2500;
    bool FKeyFirstParentForm = true;
};

// Gives help topics from a table: HelpTable's text for a control is a help context number, or a topic that
// goes into Template ("%s" stands for it) and is shown as a help keyword. While it exists (and is not being
// designed) help asked for the active control goes through it.
class TjexDBHelpManager : public rtl::TComponent {
    JEX_CLASS(TjexDBHelpManager, rtl::TComponent)
    explicit TjexDBHelpManager(rtl::TComponent* AOwner);
    ~TjexDBHelpManager() override;
    void BeforeDestruction() override;
    db::TDataSet* HelpTable() const { return FHelpTable; }
    void SetHelpTable(db::TDataSet* Value);
    bool KeyFirstParentForm() const { return FKeyFirstParentForm; }
    void SetKeyFirstParentForm(bool Value) { FKeyFirstParentForm = Value; }
    std::string Template() const { return FTemplate; }
    void SetTemplate(const std::string& Value) { FTemplate = Value; }
    std::optional<std::string> TopicFor(const vcl::TControl* Control) const;
    // Shows the control's help topic; false when the table has none for it.
    bool ShowHelpFor(const vcl::TControl* Control);

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    db::TDataSet* FHelpTable = nullptr;
    std::string FTemplate = "%s";
    bool FKeyFirstParentForm = true;
};

// ---- Data-set adapters -----------------------------------------------------------------------------------
// What the library's navigators need from a kind of data set beyond TDataSet: transactions, indexes,
// ranges, keys and emptying. An operation the kind does not offer raises EDatabaseError saying so.
class TjexDataSetAdapter {
public:
    virtual ~TjexDataSetAdapter() = default;
    virtual std::string Name() const = 0;
    virtual bool Handles(const db::TDataSet* DataSet) const = 0;
    virtual bool CanTransact(const db::TDataSet* DataSet) const;
    virtual void StartTransaction(db::TDataSet* DataSet);
    virtual void Commit(db::TDataSet* DataSet);
    virtual void Rollback(db::TDataSet* DataSet);
    virtual bool InTransaction(const db::TDataSet* DataSet) const;
    // Index names (empty when the kind has none); the current index through the "IndexName" property.
    virtual void GetIndexNames(db::TDataSet* DataSet, rtl::TStrings* List);
    virtual std::string IndexName(const db::TDataSet* DataSet) const;
    virtual void SetIndexName(db::TDataSet* DataSet, const std::string& Value);
    virtual bool CanRange(const db::TDataSet* DataSet) const;
    virtual void SetRange(db::TDataSet* DataSet, const std::vector<db::Variant>& Start,
                          const std::vector<db::Variant>& End);
    virtual void CancelRange(db::TDataSet* DataSet);
    virtual bool FindKey(db::TDataSet* DataSet, const std::vector<db::Variant>& Values);
    virtual void EmptyTable(db::TDataSet* DataSet);

protected:
    [[noreturn]] void NotSupported(const std::string& What) const;
};

// The adapter for this platform's tables, queries and their databases.
class TjexBDEAdapter : public TjexDataSetAdapter {
public:
    std::string Name() const override { return "BDE"; }
    bool Handles(const db::TDataSet* DataSet) const override;
    bool CanTransact(const db::TDataSet* DataSet) const override;
    void StartTransaction(db::TDataSet* DataSet) override;
    void Commit(db::TDataSet* DataSet) override;
    void Rollback(db::TDataSet* DataSet) override;
    bool InTransaction(const db::TDataSet* DataSet) const override;
    void GetIndexNames(db::TDataSet* DataSet, rtl::TStrings* List) override;
    bool CanRange(const db::TDataSet* DataSet) const override;
    void SetRange(db::TDataSet* DataSet, const std::vector<db::Variant>& Start,
                  const std::vector<db::Variant>& End) override;
    void CancelRange(db::TDataSet* DataSet) override;
    bool FindKey(db::TDataSet* DataSet, const std::vector<db::Variant>& Values) override;
    void EmptyTable(db::TDataSet* DataSet) override;

private:
    static db::TDatabase* DatabaseOf(const db::TDataSet* DataSet);
};

// An adapter for the data set classes that another data-access library registers under the adapter's kind
// (jexRegisterAdapterDataSetClass), working through their published properties only. This platform brings
// no such classes of its own.
class TjexKindAdapter : public TjexDataSetAdapter {
public:
    explicit TjexKindAdapter(std::string Kind) : FKind(std::move(Kind)) {}
    std::string Name() const override { return FKind; }
    bool Handles(const db::TDataSet* DataSet) const override;

private:
    std::string FKind;
};

// Data set classes (and their descendants) handled by the adapter of a kind ("Client", "ADO", "IB", "SQL").
void jexRegisterAdapterDataSetClass(const std::string& Kind, rtl::TClass DataSetClass);
void jexUnregisterAdapterDataSetClass(const std::string& Kind, rtl::TClass DataSetClass);

// The adapter for a data set (the most recently registered one that handles it), or nil.
TjexDataSetAdapter* jexFindDataSetAdapter(const db::TDataSet* DataSet);
// Names of the registered adapters, most recent first.
std::vector<std::string> jexDataSetAdapterNames();

// A component that registers a data-set adapter for as long as it exists (several may register the same
// kind; it stays registered until the last one goes).
class TjexCustomAdapterReg : public rtl::TComponent {
    JEX_CLASS(TjexCustomAdapterReg, rtl::TComponent)
    explicit TjexCustomAdapterReg(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}
    ~TjexCustomAdapterReg() override;
    void BeforeDestruction() override;
    TjexDataSetAdapter* Adapter() const { return FAdapter; }

protected:
    // Descendants call this in their constructor with the kind's key and a maker for its adapter.
    void RegisterAdapter(const std::string& Key, std::unique_ptr<TjexDataSetAdapter> (*Make)());

private:
    void Release();
    std::string FKey;
    TjexDataSetAdapter* FAdapter = nullptr;
};

// The registration components: the BDE kind is this platform's tables and queries; the others are the
// kinds other data-access libraries register their data set classes under.
class TjexBDEAdapterReg : public TjexCustomAdapterReg {
    JEX_CLASS(TjexBDEAdapterReg, TjexCustomAdapterReg)
    explicit TjexBDEAdapterReg(rtl::TComponent* AOwner);
};
class TjexClientAdapterReg : public TjexCustomAdapterReg {
    JEX_CLASS(TjexClientAdapterReg, TjexCustomAdapterReg)
    explicit TjexClientAdapterReg(rtl::TComponent* AOwner);
};
class TjexADOAdapterReg : public TjexCustomAdapterReg {
    JEX_CLASS(TjexADOAdapterReg, TjexCustomAdapterReg)
    explicit TjexADOAdapterReg(rtl::TComponent* AOwner);
};
class TjexIBAdapterReg : public TjexCustomAdapterReg {
    JEX_CLASS(TjexIBAdapterReg, TjexCustomAdapterReg)
    explicit TjexIBAdapterReg(rtl::TComponent* AOwner);
};
class TjexSQLAdapterReg : public TjexCustomAdapterReg {
    JEX_CLASS(TjexSQLAdapterReg, TjexCustomAdapterReg)
    explicit TjexSQLAdapterReg(rtl::TComponent* AOwner);
};

// ---- Local tables, queries and databases
// -------------------------------------------------------------------- The application's folder (that of
// Application()->ExeName(), else the current folder), and a path relative to it (an absolute path stays as it
// is), expanded.
std::string jexApplicationFolder();
std::string jexResolveLocalPath(const std::string& LocalPath);

// A table whose database is a folder or SQLite file given relative to the application (LocalPath): setting
// LocalPath sets DatabaseName to the full path, again whenever the form is loaded, so that the form works
// wherever the application is installed.
class TjexLocalTable : public db::TTable {
    JEX_CLASS(TjexLocalTable, db::TTable)
    explicit TjexLocalTable(rtl::TComponent* AOwner) : db::TTable(AOwner) {}
    std::string LocalPath() const { return FLocalPath; }
    void SetLocalPath(const std::string& Value);
    void Loaded() override;

private:
    std::string FLocalPath;
};

class TjexLocalQuery : public db::TQuery {
    JEX_CLASS(TjexLocalQuery, db::TQuery)
    explicit TjexLocalQuery(rtl::TComponent* AOwner) : db::TQuery(AOwner) {}
    std::string LocalPath() const { return FLocalPath; }
    void SetLocalPath(const std::string& Value);
    void Loaded() override;

private:
    std::string FLocalPath;
};

// A database component on a folder of table files or an SQLite file relative to the application: LocalPath
// sets the driver (STANDARD for a folder, SQLITE for a file) and its PATH or DATABASE NAME parameter.
class TjexLocalDatabase : public db::TDatabase {
    JEX_CLASS(TjexLocalDatabase, db::TDatabase)
    explicit TjexLocalDatabase(rtl::TComponent* AOwner) : db::TDatabase(AOwner) {}
    std::string LocalPath() const { return FLocalPath; }
    void SetLocalPath(const std::string& Value);
    void Loaded() override;

private:
    void ApplyLocalPath();
    std::string FLocalPath;
};

// ---- Idle time ------------------------------------------------------------------------------------------
// Flushes what the connected databases hold in memory to their files when the application is idle: the
// host's idle loop (or the application) calls DoIdle, which checkpoints every connected SQLite database
// that is not inside a transaction. The platform's application object has no idle event of its own.
class TjexDBIdleTime : public rtl::TComponent {
    JEX_CLASS(TjexDBIdleTime, rtl::TComponent)
    explicit TjexDBIdleTime(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}
    // Returns how many databases were flushed (nothing while designing).
    int DoIdle();
    // The flush itself, over every session's connected databases.
    static int FlushBuffers();
    int FlushCount() const { return FFlushCount; }

private:
    int FFlushCount = 0;
};

} // namespace jex
