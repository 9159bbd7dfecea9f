// Application exception components: taking over and giving back the application's handler, the log file,
// logging into real SQLite tables of the builder's layout with per-class rules from the message table, the
// SQL variant, and data set errors.
#ifdef JEX_HAVE_DB
#include "jex/jexappexc.h"

#include "jexdbfixture.h"
#include "rtl/streaming.h"

using namespace jex;
using namespace vcl;
using jexdbtest::DBFixture;

namespace {

class AppExcTest : public DBFixture {
protected:
    // The log and message tables as the table builder makes them (SQL layout).
    void MakeExceptionTables() {
        db::TTable log(nullptr);
        log.SetDatabaseName("CTRLDB");
        log.SetTableName("ERRLOG");
        log.FieldDefs()->Add("ERR_TIME", db::ftDateTime, 0, true);
        for (const char* n : {"USER_NAME", "ERR_CLASS", "ERR_MSG", "EXE_NAME", "APP_NAME", "SNDR_CLASS",
                              "SNDR_NAME", "ERR_ADDR", "SYS_CLASS", "SYS_MSG", "SYS_ADDR"}) {
            int size = std::string(n).find("ADDR") != std::string::npos ? 9
                       : std::string(n).find("CLASS") != std::string::npos || std::string(n) == "SNDR_NAME"
                           ? 63
                           : 255;
            log.FieldDefs()->Add(n, db::ftString, size);
        }
        log.IndexDefs()->Add("PRIMARYKEY", "ERR_TIME", {db::ixPrimary, db::ixUnique});
        log.CreateTable();
        db::TTable msg(nullptr);
        msg.SetDatabaseName("CTRLDB");
        msg.SetTableName("ERRMSG");
        msg.FieldDefs()->Add("ERR_CLASS", db::ftString, 63, true);
        msg.FieldDefs()->Add("MSG_TYPE", db::ftSmallint, 0, true);
        msg.FieldDefs()->Add("LOG", db::ftBoolean, 0, true);
        msg.FieldDefs()->Add("TERMINATE", db::ftBoolean, 0, true);
        msg.FieldDefs()->Add("ERR_MSG", db::ftMemo, 240, true);
        msg.IndexDefs()->Add("PRIMARYKEY", "ERR_CLASS", {db::ixPrimary, db::ixUnique});
        msg.CreateTable();
        msg.Open();
        msg.AppendRecord(
            {"EConvertError", static_cast<int>(mtWarning), false, false, "Please type a number (%s)"});
        msg.AppendRecord({"EListError", static_cast<int>(mtInformation), true, true, "List trouble"});
        msg.Close();
    }
    void TearDown() override {
        Application()->OnException = nullptr;
        DBFixture::TearDown();
    }
};

TEST(AppExcHelpers, ReplaceStrReplacesEveryOccurrenceOptionallyIgnoringCase) {
    EXPECT_EQ(jexReplaceStr("INSERT INTO ERRLOG (x) -- errlog", "ERRLOG", "\"LOG.DB\"", true),
              "INSERT INTO \"LOG.DB\" (x) -- \"LOG.DB\"");
    EXPECT_EQ(jexReplaceStr("errlog ERRLOG", "ERRLOG", "T", false), "errlog T");
    EXPECT_EQ(jexReplaceStr("abc", "", "x", true), "abc");
    EXPECT_EQ(jexReplaceStr("aaa", "a", "aa", false), "aaaaaa");
}

TEST_F(AppExcTest, TakesOverTheApplicationsHandlerAndGivesItBack) {
    int previousCalls = 0;
    Application()->OnException = [&](rtl::TObject*, const rtl::Exception&) { ++previousCalls; };
    auto* first = new TjexAppException(Form);
    auto* second = new TjexAppException(Form);
    second->SetExcepMsg("Sorry: %s");
    EXPECT_TRUE(second->Handling());
    EXPECT_FALSE(first->Handling());

    try {
        throw rtl::EConvertError("'x' is not a valid integer value");
    } catch (...) {
        Application()->HandleException(Form);
    }
    ASSERT_EQ(UI->Messages().size(), 1u);
    EXPECT_EQ(UI->Messages()[0].Request.Text, "Sorry: 'x' is not a valid integer value");
    EXPECT_EQ(UI->Messages()[0].Request.Type, mtError);
    EXPECT_EQ(second->LastException().ErrClass, "EConvertError");
    EXPECT_EQ(second->LastException().SndrName, "Form1");
    EXPECT_EQ(previousCalls, 0);

    second->Free();
    EXPECT_TRUE(first->Handling());
    first->SetDesigning(true); // designed components leave exceptions alone
    try {
        throw rtl::EListError("bad index");
    } catch (...) {
        Application()->HandleException(Form);
    }
    EXPECT_EQ(previousCalls, 1);
    first->Free();
    try {
        throw rtl::EListError("again");
    } catch (...) {
        Application()->HandleException(Form);
    }
    EXPECT_EQ(previousCalls, 2); // the application's own handler is back
}

TEST_F(AppExcTest, LogFileGetsOneLinePerExceptionAndTerminationAsksFirst) {
    auto* handler = new TjexAppException(Form);
    handler->ExcepLog()->SetFileName(Dir + "/errors.log");
    handler->SetTerminate(true);
    UI->AnswerMessage(mrOk);
    UI->AnswerMessage(mrNo);
    handler->HandleException(Form, rtl::EInvalidOperation("line\tone\r\nbreak"));
    EXPECT_FALSE(Application()->Terminated());
    UI->AnswerMessage(mrOk);
    UI->AnswerMessage(mrNo);
    handler->HandleException(nullptr, rtl::EConvertError("second"));
    EXPECT_EQ(UI->Messages().back().Request.Type, mtConfirmation);
    auto entries = TjexExcepLog::ReadLog(Dir + "/errors.log");
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].ErrClass, "EInvalidOperation");
    EXPECT_EQ(entries[0].ErrMsg, "line one  break");
    EXPECT_EQ(entries[0].SndrClass, "TForm");
    EXPECT_GT(entries[0].Time, db::EncodeDate(2020, 1, 1));
    EXPECT_EQ(entries[1].SndrClass, "");

    // A log that cannot be written is said in the message, and the message still shows.
    handler->SetTerminate(false);
    handler->ExcepLog()->SetFileName(Dir + "/no/such/folder/errors.log");
    handler->HandleException(Form, rtl::EConvertError("third"));
    EXPECT_NE(handler->LastMessage().find("could not be logged"), std::string::npos);
    EXPECT_EQ(UI->Messages().back().Request.Text.rfind("third", 0), 0u);
}

TEST_F(AppExcTest, TableVariantLogsRowsAndFollowsTheMessageTable) {
    MakeExceptionTables();
    auto* handler = new TjexDBAppException(Form);
    handler->SetDatabaseName("CTRLDB");
    handler->SetLogTableName("ERRLOG");
    handler->SetMsgTableName("ERRMSG");
    Application()->SetTitle("Tester");

    TjexExceptionRule r = handler->HandleException(Form, rtl::EConvertError("'q' is no number"));
    EXPECT_EQ(r.MsgType, mtWarning);
    EXPECT_FALSE(r.Log);
    EXPECT_EQ(UI->Messages().back().Request.Text, "Please type a number ('q' is no number)");
    EXPECT_EQ(Stored("SELECT COUNT(*) FROM ERRLOG"), "0");

    UI->AnswerMessage(mrOk);
    UI->AnswerMessage(mrYes);
    r = handler->HandleException(Form, rtl::EListError("index 7"));
    EXPECT_TRUE(r.Terminate);
    EXPECT_TRUE(Application()->Terminated());
    EXPECT_EQ(Stored("SELECT COUNT(*) FROM ERRLOG"), "1");
    EXPECT_EQ(Stored("SELECT ERR_CLASS || '|' || ERR_MSG || '|' || APP_NAME || '|' || SNDR_NAME FROM ERRLOG"),
              "EListError|index 7|Tester|Form1");

    // Classes the table does not know follow the component, and two within a millisecond both get logged.
    handler->HandleException(Form, rtl::EInvalidOperation("one"));
    handler->HandleException(Form, rtl::EInvalidOperation("two"));
    EXPECT_EQ(Stored("SELECT COUNT(*) FROM ERRLOG WHERE ERR_CLASS = 'EInvalidOperation'"), "2");
    EXPECT_EQ(UI->Messages().back().Request.Type, mtError);
    EXPECT_FALSE(handler->LogTable()->Active());
    EXPECT_EQ(handler->MsgDataSet()->DBSession(), db::Session());

    // A missing log table is reported with the message, not instead of it.
    handler->SetLogTableName("NOSUCHLOG");
    handler->HandleException(Form, rtl::EInvalidOperation("three"));
    EXPECT_NE(handler->LastMessage().find("could not be logged"), std::string::npos);
    Application()->SetTitle("");
}

TEST_F(AppExcTest, TableTypeChoosesThePlatformsTableTypes) {
    auto* handler = new TjexDBAppException(Form);
    handler->SetTableType(jatParadox);
    EXPECT_EQ(handler->LogTable()->TableType(), db::ttParadox);
    EXPECT_EQ(handler->MsgTable()->TableType(), db::ttParadox);
    handler->SetTableType(jatDBase);
    EXPECT_EQ(handler->MsgTable()->TableType(), db::ttDBase);
    EXPECT_EQ(static_cast<int>(jatSQL), 0);
    EXPECT_EQ(static_cast<int>(jatParadox), 1);
    EXPECT_EQ(static_cast<int>(jatDBase), 2);
}

TEST_F(AppExcTest, QueryVariantRunsItsStatementsWithParameters) {
    MakeExceptionTables();
    auto* handler = new TjexDBQryAppException(Form);
    handler->SetDatabaseName("CTRLDB");
    EXPECT_FALSE(handler->IsLogSQLStored());
    TjexExceptionRule r = handler->HandleException(Form, rtl::EConvertError("nope"));
    EXPECT_EQ(r.MsgType, mtWarning);
    EXPECT_EQ(UI->Messages().back().Request.Text, "Please type a number (nope)");
    handler->HandleException(Form, rtl::EInvalidOperation("logged"));
    EXPECT_EQ(Stored("SELECT ERR_MSG FROM ERRLOG"), "logged");

    // The table builder renames the tables in the first lines.
    handler->LogSQL()->Put(0, jexReplaceStr(handler->LogSQL()->Strings(0), "ERRLOG", "MISSING", true));
    EXPECT_TRUE(handler->IsLogSQLStored());
    handler->HandleException(Form, rtl::EInvalidOperation("lost"));
    EXPECT_NE(handler->LastMessage().find("could not be logged"), std::string::npos);
}

TEST_F(AppExcTest, DataSetErrorsAreHandledOnceAndTheOperationAbandoned) {
    MakePeople();
    auto* handler = new TjexDSAppException(Form);
    handler->SetExcepMsg("Data error: %s");
    handler->HookDataSets();
    EXPECT_EQ(handler->HookedCount(), 1);
    People->Append();
    People->FieldByName("ID")->SetAsInteger(1); // the key is taken
    People->FieldByName("NAME")->SetAsString("Dup");
    EXPECT_THROW(People->Post(), rtl::EAbort);
    ASSERT_EQ(UI->Messages().size(), 1u);
    EXPECT_EQ(UI->Messages()[0].Request.Text.rfind("Data error: ", 0), 0u);
    EXPECT_EQ(handler->LastException().SndrName, "tblPeople");
    People->Cancel();

    handler->UnhookDataSets();
    People->Append();
    People->FieldByName("ID")->SetAsInteger(1);
    EXPECT_THROW(People->Post(), db::EDatabaseError);
    People->Cancel();
}

TEST_F(AppExcTest, TableTypesTheDatabaseCannotHoldAreReportedWithTheMessage) {
    MakeExceptionTables();
    auto* handler = new TjexDBAppException(Form);
    handler->SetDatabaseName("CTRLDB");
    handler->SetLogTableName("ERRLOG");
    handler->SetMsgTableName("ERRMSG");
    handler->SetTableType(jatParadox);
    handler->SetExcepMsg("Fallback: %s");
    TjexExceptionRule r = handler->HandleException(Form, rtl::EConvertError("x"));
    // The message table cannot be read as a Paradox table here: the component's own message shows.
    EXPECT_EQ(r.MsgType, mtError);
    EXPECT_EQ(handler->LastMessage().rfind("Fallback: x", 0), 0u);
    EXPECT_NE(handler->LastMessage().find("could not be read"), std::string::npos);
    EXPECT_EQ(Stored("SELECT COUNT(*) FROM ERRLOG"), "0");
}

TEST_F(AppExcTest, DataSetHandlerHooksTheFormsDataSetsWhenTheFormLoads) {
    MakePeople();
    rtl::RegisterClasses({TForm::StaticClass(), db::TTable::StaticClass(), db::TDataSource::StaticClass(),
                          TjexDSAppException::StaticClass()});
    auto* handler = new TjexDSAppException(Form);
    handler->SetName("excData");
    handler->ExcepLog()->SetFileName(Dir + "/data.log");
    std::string text = rtl::WriteComponentText(Form);
    EXPECT_NE(text.find("ExcepLog.FileName"), std::string::npos);
    handler->Free();
    People->Close();
    rtl::TComponent* copy = rtl::ReadComponentText(text, nullptr);
    auto* h2 = dynamic_cast<TjexDSAppException*>(copy->FindComponent("excData"));
    ASSERT_NE(h2, nullptr);
    EXPECT_EQ(h2->HookedCount(), 1);
    EXPECT_TRUE(h2->Handling());
    auto* t2 = dynamic_cast<db::TTable*>(copy->FindComponent("tblPeople"));
    t2->Open();
    t2->Append();
    t2->FieldByName("ID")->SetAsInteger(2);
    EXPECT_THROW(t2->Post(), rtl::EAbort);
    t2->Cancel();
    ASSERT_EQ(TjexExcepLog::ReadLog(Dir + "/data.log").size(), 1u);
    EXPECT_EQ(TjexExcepLog::ReadLog(Dir + "/data.log")[0].SndrName, "tblPeople");
    // Freeing the data set first leaves nothing behind to unhook.
    t2->Free();
    EXPECT_EQ(h2->HookedCount(), 0);
    copy->Free();
    rtl::UnRegisterClasses({TForm::StaticClass(), db::TTable::StaticClass(), db::TDataSource::StaticClass(),
                            TjexDSAppException::StaticClass()});
}

} // namespace

#endif // JEX_HAVE_DB
