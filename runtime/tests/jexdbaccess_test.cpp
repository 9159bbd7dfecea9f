// Data-access helpers: hints and help topics from real tables, the adapter registry and its components,
// tables, queries and databases relative to the application, and the idle-time flush.
#ifdef JEX_HAVE_DB
#include "jex/jexdbaccess.h"

#include "jex/jexappexc.h"
#include "jexdbfixture.h"
#include "vcl/extctrls.h"
#include "vcl/stdctrls.h"

using namespace jex;
using namespace vcl;
using jexdbtest::DBFixture;

namespace {

class DBAccessTest : public DBFixture {
protected:
    void SetUp() override {
        DBFixture::SetUp();
        Topics = new db::TTable(Form);
        Topics->SetName("tblTopics");
        Topics->SetDatabaseName("CTRLDB");
        Topics->SetTableName("TOPICS");
        Topics->FieldDefs()->Add("TOPIC_KEY", db::ftString, 60);
        Topics->FieldDefs()->Add("TOPIC_TEXT", db::ftString, 200);
        Topics->CreateTable();
        Topics->Open();
        Topics->AppendRecord({"Form1.edtName", "The person's full name"});
        Topics->AppendRecord({"form1.EDTAGE", "412"});
        Topics->AppendRecord({"Form1.pnlMain", "people-panel"});
        Topics->First();
        Panel = new TPanel(Form);
        Panel->SetName("pnlMain");
        Panel->SetParent(Form);
        Name = new TEdit(Form);
        Name->SetName("edtName");
        Name->SetParent(Panel);
        Name->SetHint("own hint");
        Name->SetShowHint(true);
        Age = new TEdit(Form);
        Age->SetName("edtAge");
        Age->SetParent(Panel);
        Other = new TEdit(Form);
        Other->SetName("edtOther");
        Other->SetParent(Panel);
        Form->Show();
    }
    void TearDown() override {
        Application()->OnShowHint = nullptr;
        Application()->OnHelp = nullptr;
        DBFixture::TearDown();
    }
    db::TTable* Topics = nullptr;
    TPanel* Panel = nullptr;
    TEdit *Name = nullptr, *Age = nullptr, *Other = nullptr;
};

TEST_F(DBAccessTest, ControlKeysAndLookupsIgnoreCaseAndKeepTheRecord) {
    EXPECT_EQ(jexControlKey(Name, true), "Form1.edtName");
    EXPECT_EQ(jexControlKey(Form, true), "Form1");
    TEdit unnamed(nullptr);
    EXPECT_EQ(jexControlKey(&unnamed, true), "");
    Topics->Last();
    EXPECT_EQ(jexLookupKeyText(Topics, "FORM1.EDTNAME"),
              std::optional<std::string>("The person's full name"));
    EXPECT_EQ(jexLookupKeyText(Topics, "Form1.nothing"), std::nullopt);
    EXPECT_EQ(Topics->RecNo(), 3);
    Topics->Close();
    EXPECT_EQ(jexLookupKeyText(Topics, "Form1.edtName"), std::nullopt);
}

TEST_F(DBAccessTest, HintManagerGivesTheTablesHintsAndTheApplicationsSettings) {
    auto* hints = new TjexDBHintManager(Form);
    hints->SetHintTable(Topics);
    hints->SetHintColor(clYellow);
    hints->SetHintPause(123);
    EXPECT_EQ(Application()->HintPause(), 123);
    EXPECT_EQ(Application()->HintColor(), clYellow);
    EXPECT_EQ(Application()->ActivateHint(Name), "The person's full name");
    Other->SetHint("other's own");
    Other->SetShowHint(true);
    EXPECT_EQ(Application()->ActivateHint(Other), "other's own");

    Topics->Free();
    Topics = nullptr;
    EXPECT_EQ(hints->HintTable(), nullptr);
    EXPECT_EQ(Application()->ActivateHint(Name), "own hint");
    hints->Free();
    EXPECT_FALSE(Application()->OnShowHint.Assigned());
}

TEST_F(DBAccessTest, HelpManagerShowsContextsAndKeywordTopics) {
    auto* help = new TjexDBHelpManager(Form);
    help->SetHelpTable(Topics);
    help->SetTemplate("people.chm::/%s.htm");
    EXPECT_TRUE(help->ShowHelpFor(Age));
    ASSERT_EQ(UI->HelpCalls().size(), 1u);
    EXPECT_EQ(UI->HelpCalls()[0].Command, HELP_CONTEXT);
    EXPECT_EQ(UI->HelpCalls()[0].Data, 412);
    // A control without its own topic takes its parent's.
    EXPECT_TRUE(help->ShowHelpFor(Other));
    EXPECT_EQ(UI->HelpCalls().back().Keyword, "people.chm::/people-panel.htm");
    TLabel stray(nullptr);
    EXPECT_FALSE(help->ShowHelpFor(&stray));

    // Help asked for the active control goes through the table.
    Age->SetFocus();
    size_t before = UI->HelpCalls().size();
    Application()->HelpContext(1);
    ASSERT_EQ(UI->HelpCalls().size(), before + 1);
    EXPECT_EQ(UI->HelpCalls().back().Data, 412);
}

TEST_F(DBAccessTest, AdapterComponentsRegisterTheirKindWhileTheyExist) {
    MakePeople();
    EXPECT_EQ(jexFindDataSetAdapter(People), nullptr);
    auto* bde = new TjexBDEAdapterReg(Form);
    auto* ado = new TjexADOAdapterReg(Form);
    auto* bde2 = new TjexBDEAdapterReg(Form);
    TjexDataSetAdapter* a = jexFindDataSetAdapter(People);
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->Name(), "BDE");
    EXPECT_EQ(jexDataSetAdapterNames(), (std::vector<std::string>{"ADO", "BDE"}));

    rtl::TStringList names;
    a->GetIndexNames(People, &names);
    EXPECT_EQ(names.Count(), 3);
    a->SetIndexName(People, "ByName");
    EXPECT_EQ(a->IndexName(People), "ByName");
    ASSERT_TRUE(a->CanRange(People));
    a->SetRange(People, {db::Variant("B")}, {db::Variant("D")});
    EXPECT_EQ(People->RecordCount(), 2);
    a->CancelRange(People);
    a->SetIndexName(People, "PK");
    EXPECT_TRUE(a->FindKey(People, {db::Variant(4)}));
    EXPECT_EQ(People->FieldByName("NAME")->AsString(), "Dan");

    ASSERT_TRUE(a->CanTransact(People));
    a->StartTransaction(People);
    EXPECT_TRUE(a->InTransaction(People));
    People->Edit();
    People->FieldByName("NAME")->SetAsString("Temp");
    People->Post();
    a->Rollback(People);
    EXPECT_FALSE(a->InTransaction(People));
    EXPECT_EQ(Stored("SELECT NAME FROM PEOPLE WHERE ID = 4"), "Dan");

    // The other kinds handle the data set classes registered for them, newest adapter first.
    EXPECT_FALSE(ado->Adapter()->Handles(People));
    jexRegisterAdapterDataSetClass("ADO", db::TTable::StaticClass());
    EXPECT_EQ(jexFindDataSetAdapter(People), ado->Adapter()); // registered after the BDE kind
    auto* ado2 = new TjexADOAdapterReg(Form);
    EXPECT_EQ(ado2->Adapter(), ado->Adapter()); // one adapter per kind
    EXPECT_TRUE(ado->Adapter()->Handles(People));
    EXPECT_THROW(ado->Adapter()->StartTransaction(People), db::EDatabaseError);
    EXPECT_EQ(ado->Adapter()->IndexName(People), "PK");
    jexUnregisterAdapterDataSetClass("ADO", db::TTable::StaticClass());
    ado2->Free();

    bde->Free();
    EXPECT_NE(jexFindDataSetAdapter(People), nullptr); // the second one keeps it
    bde2->Free();
    EXPECT_EQ(jexFindDataSetAdapter(People), nullptr);
    ado->Free();
    EXPECT_TRUE(jexDataSetAdapterNames().empty());
}

TEST_F(DBAccessTest, LocalTablesQueriesAndDatabasesLiveBesideTheApplication) {
    std::string appDir = Dir + "/app";
    std::filesystem::create_directories(appDir + "/data");
    Application()->SetExeName(appDir + "/program");
    EXPECT_EQ(jexApplicationFolder(), appDir + "/");
    EXPECT_EQ(jexResolveLocalPath("data/local.sqlite"), appDir + "/data/local.sqlite");
    EXPECT_EQ(jexResolveLocalPath("/abs/x.sqlite"), "/abs/x.sqlite");

    auto* t = new TjexLocalTable(Form);
    t->SetLocalPath("data/local.sqlite");
    EXPECT_EQ(t->DatabaseName(), appDir + "/data/local.sqlite");
    t->SetTableName("NOTES");
    t->FieldDefs()->Add("ID", db::ftInteger);
    t->FieldDefs()->Add("TEXT", db::ftString, 40);
    t->CreateTable();
    t->Open();
    t->AppendRecord({1, "kept beside the program"});
    t->Close();
    EXPECT_TRUE(rtl::FileExists(appDir + "/data/local.sqlite"));

    auto* q = new TjexLocalQuery(Form);
    q->SetLocalPath("data/local.sqlite");
    q->SQL()->SetText("SELECT TEXT FROM NOTES");
    q->Open();
    EXPECT_EQ(q->Fields()->Fields(0)->AsString(), "kept beside the program");
    q->Close();

    auto* d = new TjexLocalDatabase(Form);
    d->SetDatabaseName("LOCALNOTES");
    d->SetLocalPath("data/local.sqlite");
    EXPECT_EQ(d->DriverName(), "SQLITE");
    EXPECT_EQ(d->Params()->Values("DATABASE NAME"), appDir + "/data/local.sqlite");
    db::TTable viaDb(nullptr);
    viaDb.SetDatabaseName("LOCALNOTES");
    viaDb.SetTableName("NOTES");
    viaDb.Open();
    EXPECT_EQ(viaDb.RecordCount(), 1);
    EXPECT_THROW(d->SetLocalPath("data"), db::EDatabaseError);
    viaDb.Close();
    d->Close();
    d->SetLocalPath("data");
    EXPECT_EQ(d->DriverName(), "STANDARD");
    EXPECT_EQ(d->Params()->Values("PATH"), appDir + "/data");
    EXPECT_EQ(d->Params()->IndexOfName("DATABASE NAME"), -1);
    Application()->SetExeName("");
}

TEST_F(DBAccessTest, IdleTimeFlushesConnectedSQLiteDatabasesOutsideTransactions) {
    MakePeople();
    auto* idle = new TjexDBIdleTime(Form);
    int flushed = idle->DoIdle();
    EXPECT_GE(flushed, 1);
    EXPECT_EQ(idle->FlushCount(), flushed);
    People->Database()->StartTransaction();
    EXPECT_EQ(idle->DoIdle(), flushed - 1);
    People->Database()->Rollback();
    idle->SetDesigning(true);
    EXPECT_EQ(idle->DoIdle(), 0);
}

TEST_F(DBAccessTest, KeysCanNameTheOutermostFormOfAnEmbeddedOne) {
    auto* inner = new TForm(Form);
    inner->SetName("InnerForm");
    inner->SetParent(Panel);
    auto* field = new TEdit(inner);
    field->SetName("edtCity");
    field->SetParent(inner);
    EXPECT_EQ(jexControlKey(field, true), "InnerForm.edtCity");
    EXPECT_EQ(jexControlKey(field, false), "Form1.edtCity");
    Topics->AppendRecord({"Form1.edtCity", "City, from the outer form"});
    auto* hints = new TjexDBHintManager(Form);
    hints->SetHintTable(Topics);
    EXPECT_EQ(hints->HintFor(field), std::nullopt);
    hints->SetKeyFirstParentForm(false);
    EXPECT_EQ(hints->HintFor(field), std::optional<std::string>("City, from the outer form"));
}

} // namespace

#endif // JEX_HAVE_DB
