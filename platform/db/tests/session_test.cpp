// Sessions, aliases from the configuration file, databases and the driver registry.
#include <memory>

#include "dbtest.h"

using namespace db;
using dbtest::DbTest;

namespace {
std::vector<std::string> Lines(TStrings* s) {
    return s->ToVector();
}
} // namespace

using SessionTest = DbTest;

TEST_F(SessionTest, DefaultConfigurationHasJexDemoOnALocalFolder) {
    rtl::TStringList names;
    Session()->GetAliasNames(&names);
    EXPECT_EQ(Lines(&names), std::vector<std::string>{"JEXDEMO"});
    rtl::TStringList params;
    Session()->GetAliasParams("jexdemo", &params);
    EXPECT_EQ(params.Values("PATH"), Dir + "/jexdata");
    EXPECT_EQ(Session()->GetAliasDriverName("JEXDEMO"), "SQLITE");

    // Works with nothing installed: a table made there lands in the system directory's data folder.
    TTable t(nullptr);
    t.SetDatabaseName("JEXDEMO");
    t.SetTableName("T1");
    t.FieldDefs()->Add("A", ftInteger);
    t.CreateTable();
    EXPECT_TRUE(rtl::FileExists(Dir + "/jexdata/jexdemo.sqlite"));
    rtl::TStringList tables;
    Session()->GetTableNames("JEXDEMO", "", true, false, &tables);
    EXPECT_EQ(Lines(&tables), std::vector<std::string>{"T1"});
}

TEST_F(SessionTest, AliasesComeFromTheConfigurationFile) {
    WriteConfig();
    rtl::TIniFile ini(TSession::ConfigFileName());
    ini.WriteString("FILES", "DRIVER", "STANDARD");
    ini.WriteString("FILES", "PATH", Dir);
    rtl::TStringList names;
    Session()->GetAliasNames(&names);
    // The file is authoritative: JEXDEMO is only the default when there is no file.
    EXPECT_EQ(Lines(&names), (std::vector<std::string>{"FILES", "TESTDB"}));
    EXPECT_TRUE(Session()->IsAlias("testdb"));
    EXPECT_FALSE(Session()->IsAlias("JEXDEMO"));
    rtl::TStringList params;
    Session()->GetAliasParams("TESTDB", &params);
    EXPECT_EQ(Lines(&params), std::vector<std::string>{"PATH=" + Dir + "/data"});
    try {
        Session()->GetAliasParams("NOPE", &params);
        FAIL();
    } catch (const EDatabaseError& e) {
        EXPECT_STREQ(e.what(), "Unknown alias: NOPE");
    }
}

TEST_F(SessionTest, SessionAliasesPersistOnlyWhenSaved) {
    TSession s(nullptr);
    s.SetSessionName("AliasWork");
    rtl::TStringList p;
    p.Add("PATH=" + Dir + "/mine");
    s.AddAlias("MINE", "SQLITE", &p);
    s.AddStandardAlias("FOLDER", Dir, "");
    EXPECT_TRUE(s.IsAlias("MINE"));
    EXPECT_FALSE(Session()->IsAlias("MINE")); // another session does not see it
    EXPECT_THROW(s.AddAlias("MINE", "SQLITE", &p), EDatabaseError);
    EXPECT_THROW(s.AddAlias("OTHER", "NODRIVER", &p), EDatabaseError);
    s.DeleteAlias("JEXDEMO");
    s.SaveConfigFile();

    rtl::TIniFile ini(TSession::ConfigFileName());
    EXPECT_EQ(ini.ReadString("MINE", "DRIVER", ""), "SQLITE");
    EXPECT_EQ(ini.ReadString("FOLDER", "DEFAULT DRIVER", ""), "PARADOX");
    EXPECT_FALSE(ini.SectionExists("JEXDEMO"));
    rtl::TStringList names;
    Session()->GetAliasNames(&names);
    EXPECT_EQ(Lines(&names), (std::vector<std::string>{"FOLDER", "MINE"}));

    rtl::TStringList change;
    change.Add("PATH=" + Dir + "/moved");
    s.ModifyAlias("MINE", &change);
    rtl::TStringList params;
    s.GetAliasParams("MINE", &params);
    EXPECT_EQ(params.Values("PATH"), Dir + "/moved");
}

TEST_F(SessionTest, SessionListFindsAndNamesSessions) {
    TSession* def = Session();
    EXPECT_EQ(def->SessionName(), "Default");
    EXPECT_EQ(Sessions()->FindSession(""), def);
    TSession* work = Sessions()->OpenSession("Work");
    EXPECT_EQ(Sessions()->FindSession("WORK"), work);
    EXPECT_EQ(Sessions()->OpenSession("work"), work);
    rtl::TStringList names;
    Sessions()->GetSessionNames(&names);
    EXPECT_GE(names.IndexOf("Default"), 0);
    EXPECT_GE(names.IndexOf("Work"), 0);
    TSession other(nullptr);
    EXPECT_THROW(other.SetSessionName("work"), EDatabaseError);
}

TEST_F(SessionTest, DatabaseNamesIncludeDatabaseComponents) {
    WriteConfig();
    TDatabase dbc(nullptr);
    dbc.SetDatabaseName("AppData");
    dbc.SetAliasName("TESTDB");
    rtl::TStringList names;
    Session()->GetDatabaseNames(&names);
    EXPECT_EQ(Lines(&names), (std::vector<std::string>{"AppData", "TESTDB"}));
    TDatabase dup(nullptr);
    EXPECT_THROW(dup.SetDatabaseName("APPDATA"), EDatabaseError);
    // A form file read next to the database (a pasted copy) keeps the name it was written with.
    dup.SetName("Copy");
    dup.SetDatabaseName("Other");
    std::string text = rtl::WriteComponentText(&dup);
    for (size_t at = text.find("Other"); at != std::string::npos; at = text.find("Other"))
        text.replace(at, 5, "AppData");
    rtl::RegisterClass(TDatabase::StaticClass());
    std::unique_ptr<rtl::TComponent> read(rtl::ReadComponentText(text, nullptr));
    rtl::UnRegisterClass(TDatabase::StaticClass());
    EXPECT_EQ(dynamic_cast<TDatabase&>(*read).DatabaseName(), "AppData");

    // A table through the database component ends up in the alias's file.
    TTable t(nullptr);
    t.SetDatabaseName("AppData");
    t.SetTableName("X");
    t.FieldDefs()->Add("A", ftInteger);
    dbc.SetKeepConnection(false);
    t.CreateTable();
    EXPECT_TRUE(rtl::FileExists(DbFile()));
    EXPECT_FALSE(dbc.Connected()); // opened for CreateTable only, and not kept
    t.Open();
    EXPECT_TRUE(dbc.Connected());
    EXPECT_EQ(t.Database(), &dbc);
    EXPECT_EQ(dbc.DataSetCount(), 1);
    dbc.Close(); // closing the database closes its data sets
    EXPECT_FALSE(t.Active());
}

TEST_F(SessionTest, TableNamesFollowPatternAndSystemFlag) {
    WriteConfig();
    TDatabase dbc(nullptr);
    dbc.SetDatabaseName("D");
    dbc.SetAliasName("TESTDB");
    dbc.Open();
    dbc.Execute("CREATE TABLE CUSTOMER (ID INTEGER)");
    dbc.Execute("CREATE TABLE ORDERS (ID INTEGER)");
    dbc.Execute("CREATE VIEW CUSTVIEW AS SELECT * FROM CUSTOMER");
    rtl::TStringList list;
    Session()->GetTableNames("TESTDB", "", false, false, &list);
    EXPECT_EQ(Lines(&list), (std::vector<std::string>{"CUSTOMER", "CUSTVIEW", "ORDERS"}));
    Session()->GetTableNames("TESTDB", "cust*", false, false, &list);
    EXPECT_EQ(Lines(&list), (std::vector<std::string>{"CUSTOMER", "CUSTVIEW"}));
    Session()->GetTableNames("TESTDB", "", false, true, &list);
    EXPECT_GE(list.IndexOf("sqlite_master"), 0);
}

TEST_F(SessionTest, StandardFolderListsTableFilesButRefusesToOpenThem) {
    rtl::WriteFileBytes(Dir + "/ERRLOG.DB", "x");
    rtl::WriteFileBytes(Dir + "/people.dbf", "x");
    rtl::WriteFileBytes(Dir + "/readme.md", "x");
    rtl::TStringList list;
    Session()->GetTableNames(Dir, "", true, false, &list);
    EXPECT_EQ(Lines(&list), (std::vector<std::string>{"ERRLOG.DB", "people.dbf"}));
    Session()->GetTableNames(Dir, "*.db", false, false, &list);
    EXPECT_EQ(Lines(&list), std::vector<std::string>{"ERRLOG"});

    TTable t(nullptr);
    t.SetDatabaseName(Dir);
    t.SetTableName("ERRLOG.DB");
    t.SetTableType(ttParadox);
    t.FieldDefs()->Add("A", ftInteger);
    try {
        t.CreateTable();
        FAIL();
    } catch (const EDatabaseError& e) {
        EXPECT_STREQ(e.what(), "Table type ttParadox is not supported by the STANDARD driver");
    }
}

TEST_F(SessionTest, UnknownDatabasesAndUnsupportedTypesGiveClearErrors) {
    WriteConfig();
    TTable t(nullptr);
    t.SetDatabaseName("NOWHERE");
    t.SetTableName("A");
    try {
        t.Open();
        FAIL();
    } catch (const EDatabaseError& e) {
        EXPECT_STREQ(e.what(), "Unknown database or alias: NOWHERE");
    }
    EXPECT_FALSE(t.Active());
    t.SetDatabaseName("TESTDB");
    t.SetTableType(ttDBase);
    t.FieldDefs()->Add("A", ftInteger);
    try {
        t.CreateTable();
        FAIL();
    } catch (const EDatabaseError& e) {
        EXPECT_STREQ(e.what(), "Table type ttDBase is not supported by the SQLITE driver");
    }
    // A file that is not a database is refused when connecting, and the file is left alone.
    rtl::WriteFileBytes(Dir + "/bad.sqlite", "this is not a database, just text that is long enough");
    TQuery q(nullptr);
    q.SetDatabaseName(Dir + "/bad.sqlite");
    q.SQL()->Add("SELECT 1");
    EXPECT_THROW(q.Open(), EDatabaseError);
    EXPECT_EQ(rtl::ReadFileBytes(Dir + "/bad.sqlite"),
              "this is not a database, just text that is long enough");
}

TEST_F(SessionTest, TransactionsCommitAndRollBack) {
    WriteConfig();
    TDatabase dbc(nullptr);
    dbc.SetDatabaseName("D");
    dbc.SetAliasName("TESTDB");
    dbc.Execute("CREATE TABLE T (A INTEGER)");
    dbc.StartTransaction();
    EXPECT_TRUE(dbc.InTransaction());
    EXPECT_THROW(dbc.StartTransaction(), EDatabaseError);
    TParams params;
    params.CreateParam(ftInteger, "V", ptInput)->SetAsInteger(7);
    EXPECT_EQ(dbc.Execute("INSERT INTO T VALUES (:V)", &params), 1);
    dbc.Rollback();
    EXPECT_FALSE(dbc.InTransaction());
    dbc.StartTransaction();
    params.ParamByName("v")->SetAsInteger(8);
    dbc.Execute("INSERT INTO T VALUES (:V)", &params);
    dbc.Commit();
    TQuery q(nullptr);
    q.SetDatabaseName("D");
    q.SQL()->SetText("SELECT A FROM T");
    q.Open();
    EXPECT_EQ(q.RecordCount(), 1);
    EXPECT_EQ(q.FieldByName("A")->AsInteger(), 8);
    EXPECT_THROW(dbc.Execute("INSERT INTO T VALUES (:MISSING)", &params), EDatabaseError);
}

TEST_F(SessionTest, DriversAreListedWithTheirParameters) {
    rtl::TStringList names;
    Session()->GetDriverNames(&names);
    EXPECT_GE(names.IndexOf("SQLITE"), 0);
    EXPECT_GE(names.IndexOf("STANDARD"), 0);
    rtl::TStringList params;
    Session()->GetDriverParams("SQLITE", &params);
    EXPECT_GE(params.IndexOfName("PATH"), 0);
    EXPECT_THROW(Session()->GetDriverParams("XYZ", &params), EDatabaseError);
}
