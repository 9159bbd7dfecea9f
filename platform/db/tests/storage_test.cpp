// What the SQLite storage keeps: every creatable field type survives a round trip through the file, other
// writers are seen on Refresh, conflicts and refused key changes lose nothing, views stay read-only, and
// transactions cover table edits.
#include "dbtest.h"

using namespace db;
using dbtest::DbTest;

class StorageTest : public DbTest {
protected:
    void SetUp() override {
        DbTest::SetUp();
        WriteConfig();
        dbc = std::make_unique<TDatabase>(nullptr);
        dbc->SetDatabaseName("D");
        dbc->SetAliasName("TESTDB");
    }
    void TearDown() override {
        dbc.reset();
        DbTest::TearDown();
    }
    std::unique_ptr<TDatabase> dbc;
};

TEST_F(StorageTest, EveryCreatableFieldTypeRoundTrips) {
    struct Case {
        TFieldType Type;
        int Size;
        rtl::TClass Class;
    };
    const std::vector<std::pair<std::string, Case>> cases = {
        {"F_STRING", {ftString, 12, TStringField::StaticClass()}},
        {"F_FIXED", {ftFixedChar, 3, TStringField::StaticClass()}},
        {"F_WIDE", {ftWideString, 8, TWideStringField::StaticClass()}},
        {"F_SMALL", {ftSmallint, 0, TSmallintField::StaticClass()}},
        {"F_INT", {ftInteger, 0, TIntegerField::StaticClass()}},
        {"F_WORD", {ftWord, 0, TWordField::StaticClass()}},
        {"F_LARGE", {ftLargeint, 0, TLargeintField::StaticClass()}},
        {"F_BOOL", {ftBoolean, 0, TBooleanField::StaticClass()}},
        {"F_FLOAT", {ftFloat, 0, TFloatField::StaticClass()}},
        {"F_MONEY", {ftCurrency, 0, TCurrencyField::StaticClass()}},
        {"F_BCD", {ftBCD, 2, TBCDField::StaticClass()}},
        {"F_DATE", {ftDate, 0, TDateField::StaticClass()}},
        {"F_TIME", {ftTime, 0, TTimeField::StaticClass()}},
        {"F_STAMP", {ftDateTime, 0, TDateTimeField::StaticClass()}},
        {"F_BYTES", {ftBytes, 4, TBlobField::StaticClass()}},
        {"F_MEMO", {ftMemo, 240, TMemoField::StaticClass()}},
        {"F_FMT", {ftFmtMemo, 0, TMemoField::StaticClass()}},
        {"F_BLOB", {ftBlob, 0, TBlobField::StaticClass()}},
        {"F_PIC", {ftGraphic, 0, TGraphicField::StaticClass()}},
    };
    TTable t(nullptr);
    t.SetDatabaseName("D");
    t.SetTableName("ALLTYPES");
    for (auto& [name, c] : cases)
        t.FieldDefs()->Add(name, c.Type, c.Size);
    t.CreateTable();
    t.FieldDefs()->Clear();
    t.Open();
    for (auto& [name, c] : cases) {
        SCOPED_TRACE(name);
        TField* f = t.FieldByName(name);
        EXPECT_EQ(f->DataType(), c.Type);
        EXPECT_EQ(f->ClassType(), c.Class);
        if (c.Size) EXPECT_EQ(t.FieldDefs()->Find(name)->Size(), c.Size);
    }
    std::string bytes("\x00\x01\xFF\x80", 4);
    t.Append();
    t.FieldByName("F_STRING")->SetAsString("héllo");
    t.FieldByName("F_LARGE")->SetValue(Variant(int64_t(1) << 40));
    t.FieldByName("F_BOOL")->SetAsBoolean(false);
    t.FieldByName("F_FLOAT")->SetAsFloat(0.1);
    t.FieldByName("F_TIME")->SetAsString("07:08:09");
    t.FieldByName("F_STAMP")->SetAsDateTime(EncodeDate(1999, 12, 31) + EncodeTime(23, 59, 58, 7));
    t.FieldByName("F_BLOB")->SetAsString(bytes);
    t.FieldByName("F_WORD")->SetAsInteger(65535);
    EXPECT_THROW(t.FieldByName("F_WORD")->SetAsInteger(-1), EDatabaseError);
    t.Post();
    t.Close();
    t.Open();
    EXPECT_EQ(t.FieldByName("F_STRING")->AsString(), "héllo");
    EXPECT_EQ(t.FieldByName("F_LARGE")->Value().AsInteger(), int64_t(1) << 40);
    EXPECT_FALSE(t.FieldByName("F_BOOL")->IsNull());
    EXPECT_FALSE(t.FieldByName("F_BOOL")->AsBoolean());
    EXPECT_DOUBLE_EQ(t.FieldByName("F_FLOAT")->AsFloat(), 0.1);
    EXPECT_EQ(t.FieldByName("F_TIME")->AsString(), "07:08:09");
    EXPECT_EQ(t.FieldByName("F_STAMP")->AsString(), "1999-12-31 23:59:58.007");
    EXPECT_EQ(t.FieldByName("F_BLOB")->AsString(), bytes);
    EXPECT_EQ(t.FieldByName("F_WORD")->AsInteger(), 65535);
    EXPECT_TRUE(t.FieldByName("F_MEMO")->IsNull());
    t.Close();

    TTable bad(nullptr);
    bad.SetDatabaseName("D");
    bad.SetTableName("BAD");
    bad.FieldDefs()->Add("C", ftCursor);
    EXPECT_THROW(bad.CreateTable(), EDatabaseError);
    EXPECT_FALSE(bad.Exists()); // nothing half-made
}

TEST_F(StorageTest, RefreshSeesOtherWritersAndConflictsAreReported) {
    std::unique_ptr<TTable> t(MakePeople());
    t->SetDatabaseName("D");
    t->Open();
    AddPerson(t.get(), "Ann", 20);
    AddPerson(t.get(), "Ben", 30);

    // Another program writes into the same file.
    TDatabase other(nullptr);
    other.SetDatabaseName("Other");
    other.SetDriverName("SQLITE");
    other.Params()->Add("DATABASE NAME=" + DbFile());
    other.Execute("INSERT INTO PEOPLE (NAME, AGE) VALUES ('Cy', 40)");
    other.Execute("UPDATE PEOPLE SET AGE = 21 WHERE NAME = 'Ann'");
    EXPECT_EQ(t->RecordCount(), 2);
    t->Last(); // on Ben
    t->Refresh();
    EXPECT_EQ(t->RecordCount(), 3);
    EXPECT_EQ(t->FieldByName("NAME")->AsString(), "Ben"); // the position stays on the same row
    t->First();
    EXPECT_EQ(t->FieldByName("AGE")->AsInteger(), 21);

    other.Execute("DELETE FROM PEOPLE WHERE NAME = 'Ann'");
    t->Edit();
    t->FieldByName("AGE")->SetAsInteger(22);
    try {
        t->Post();
        FAIL();
    } catch (const EDatabaseError& e) {
        EXPECT_STREQ(e.what(), "Couldn't perform the edit because another user changed the record");
    }
    EXPECT_EQ(t->State(), dsEdit);
    EXPECT_EQ(t->FieldByName("AGE")->AsInteger(), 22); // the typed value is still there
    t->Cancel();
    EXPECT_THROW(t->Delete(), EDatabaseError);
    EXPECT_EQ(t->RecordCount(), 3);
}

TEST_F(StorageTest, PostErrorHandlersCanRetryOrAbort) {
    std::unique_ptr<TTable> t(MakePeople());
    t->Open();
    AddPerson(t.get(), "Ann", 20);
    AddPerson(t.get(), "Ben", 30);
    int calls = 0;
    t->OnPostError = [&](TDataSet* ds, EDatabaseError&, TDataAction& action) {
        ++calls;
        ds->FieldByName("ID")->SetAsInteger(99); // repair the key and try again
        action = daRetry;
    };
    t->Edit();
    t->FieldByName("ID")->SetAsInteger(1); // Ann's key
    t->Post();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(t->FieldByName("ID")->AsInteger(), 99);
    t->OnPostError = [](TDataSet*, EDatabaseError&, TDataAction& action) { action = daAbort; };
    t->Edit();
    t->FieldByName("ID")->SetAsInteger(1);
    EXPECT_THROW(t->Post(), rtl::EAbort);
    t->Cancel();
}

TEST_F(StorageTest, ViewsOpenReadOnly) {
    dbc->Execute("CREATE TABLE T (A INTEGER)");
    dbc->Execute("INSERT INTO T VALUES (1), (2)");
    dbc->Execute("CREATE VIEW V AS SELECT A * 10 AS B FROM T");
    TTable v(nullptr);
    v.SetDatabaseName("D");
    v.SetTableName("V");
    v.Open();
    EXPECT_EQ(Column(&v, "B"), (std::vector<std::string>{"10", "20"}));
    EXPECT_FALSE(v.CanModify());
    EXPECT_THROW(v.Append(), EDatabaseError);
    rtl::TStringList names;
    v.GetIndexNames(&names);
    EXPECT_EQ(names.Count(), 0);
}

TEST_F(StorageTest, FailedPrimaryKeyLeavesTheTableAsItWas) {
    dbc->Execute("CREATE TABLE LOG (T INTEGER, MSG VARCHAR(10))");
    dbc->Execute("CREATE INDEX ByMsg ON LOG (MSG)");
    dbc->Execute("INSERT INTO LOG VALUES (1, 'a'), (1, 'b')");
    TQuery q(nullptr);
    q.SetDatabaseName("D");
    q.SQL()->SetText("ALTER TABLE LOG ADD PRIMARY KEY (T)");
    EXPECT_THROW(q.ExecSQL(), EDatabaseError); // the two rows share a key
    TTable t(nullptr);
    t.SetDatabaseName("D");
    t.SetTableName("LOG");
    rtl::TStringList names;
    t.GetIndexNames(&names);
    EXPECT_EQ(names.ToVector(), std::vector<std::string>{"ByMsg"});
    t.Open();
    EXPECT_EQ(t.RecordCount(), 2);
    t.Close();
    dbc->Execute("DELETE FROM LOG WHERE MSG = 'b'");
    q.SQL()->SetText("ALTER TABLE LOG ADD CONSTRAINT LOG_KEY PRIMARY KEY (T);");
    q.ExecSQL();
    t.GetIndexNames(&names);
    EXPECT_EQ(names.ToVector(), (std::vector<std::string>{"LOG_KEY", "ByMsg"}));
    q.SQL()->SetText("ALTER TABLE LOG ADD PRIMARY KEY (NOSUCH)");
    EXPECT_THROW(q.ExecSQL(), EDatabaseError);
}

TEST_F(StorageTest, TransactionsCoverTableEdits) {
    std::unique_ptr<TTable> t(MakePeople());
    t->SetDatabaseName("D");
    t->Open();
    AddPerson(t.get(), "Ann", 20);
    dbc->StartTransaction();
    AddPerson(t.get(), "Ben", 30);
    t->First();
    t->Delete();
    dbc->Rollback();
    t->Refresh();
    EXPECT_EQ(Column(t.get(), "NAME"), std::vector<std::string>{"Ann"});
    // Closing the database with a transaction open rolls it back.
    dbc->StartTransaction();
    AddPerson(t.get(), "Cy", 40);
    dbc->Close();
    EXPECT_FALSE(t->Active());
    t->Open();
    EXPECT_EQ(t->RecordCount(), 1);
}
