// TQuery: parameters parsed from the statement, result sets with their column types, ExecSQL, master
// parameters, and the failures that leave the query closed.
#include "dbtest.h"

using namespace db;
using dbtest::DbTest;

class QueryTest : public DbTest {
protected:
    void SetUp() override {
        DbTest::SetUp();
        WriteConfig();
        dbc = std::make_unique<TDatabase>(nullptr);
        dbc->SetDatabaseName("D");
        dbc->SetAliasName("TESTDB");
        dbc->Execute(
            "CREATE TABLE ITEMS (ID INTEGER PRIMARY KEY, NAME VARCHAR(20), PRICE MONEY, ADDED DATE)");
        dbc->Execute(
            "INSERT INTO ITEMS VALUES (1, 'pen', 1.5, '2024-01-02'), (2, 'ink', 3.25, '2024-03-04'), "
            "(3, 'pad', 2, NULL)");
    }
    void TearDown() override {
        dbc.reset();
        DbTest::TearDown();
    }
    std::unique_ptr<TDatabase> dbc;
};

TEST_F(QueryTest, ParamsAreParsedFromTheStatement) {
    TQuery q(nullptr);
    q.SQL()->Add("SELECT * FROM ITEMS WHERE NAME <> ':notaparam' -- :nor this");
    q.SQL()->Add("AND PRICE >= :Low AND PRICE <= :HIGH AND PRICE <> :low");
    ASSERT_EQ(q.ParamCount(), 2);
    EXPECT_EQ(q.Params()->Items(0)->Name(), "Low");
    EXPECT_EQ(q.Params()->Items(1)->Name(), "HIGH");
    EXPECT_EQ(q.Params()->Items(0)->ParamType(), ptInput);
    EXPECT_EQ(q.Text(), "SELECT * FROM ITEMS WHERE NAME <> ':notaparam' -- :nor this\r\n"
                        "AND PRICE >= ? AND PRICE <= ? AND PRICE <> ?\r\n");
    q.ParamByName("low")->SetAsFloat(2);
    // Editing the statement keeps the values of parameters that keep their names.
    q.SQL()->SetText("SELECT NAME FROM ITEMS WHERE PRICE >= :LOW ORDER BY NAME");
    ASSERT_EQ(q.ParamCount(), 1);
    EXPECT_DOUBLE_EQ(q.ParamByName("LOW")->AsFloat(), 2);
    EXPECT_THROW(q.ParamByName("HIGH"), EDatabaseError);
    q.SetDatabaseName("D");
    q.Open();
    EXPECT_EQ(Column(&q, "NAME"), (std::vector<std::string>{"ink", "pad"}));
}

TEST_F(QueryTest, ResultColumnsGetFieldTypes) {
    TQuery q(nullptr);
    q.SetDatabaseName("TESTDB");
    q.SQL()->SetText("SELECT ID, NAME, PRICE, ADDED, COUNT(*) OVER () AS N, NAME || '!' AS SHOUT FROM ITEMS");
    q.Open();
    EXPECT_EQ(q.FieldByName("ID")->DataType(), ftInteger);
    EXPECT_EQ(q.FieldByName("NAME")->DataType(), ftString);
    EXPECT_EQ(q.FieldByName("NAME")->Size(), 20);
    EXPECT_EQ(q.FieldByName("PRICE")->DataType(), ftCurrency);
    EXPECT_EQ(q.FieldByName("ADDED")->DataType(), ftDate);
    EXPECT_EQ(q.FieldByName("N")->DataType(), ftInteger);
    EXPECT_EQ(q.FieldByName("SHOUT")->DataType(), ftString);
    EXPECT_EQ(q.FieldByName("ADDED")->AsString(), "2024-01-02");
    EXPECT_EQ(q.FieldByName("N")->AsInteger(), 3);
    EXPECT_FALSE(q.CanModify());
    EXPECT_THROW(q.Edit(), EDatabaseError);
    rtl::TStringList names;
    q.GetFieldNames(&names);
    EXPECT_EQ(names.Count(), 6);
}

TEST_F(QueryTest, ExecSqlChangesRowsWithTypedParams) {
    TQuery q(nullptr);
    q.SetDatabaseName("D");
    q.SQL()->SetText("UPDATE ITEMS SET ADDED = :D, PRICE = PRICE * :F WHERE NAME LIKE :P");
    q.ParamByName("D")->SetAsDate(EncodeDate(2025, 5, 6));
    q.ParamByName("F")->SetAsInteger(2);
    q.ParamByName("P")->SetAsString("p%");
    q.ExecSQL();
    EXPECT_EQ(q.RowsAffected(), 2);
    TQuery check(nullptr);
    check.SetDatabaseName("D");
    check.SQL()->SetText("SELECT ADDED, PRICE FROM ITEMS WHERE ID = :ID");
    check.ParamByName("ID")->SetAsInteger(3);
    check.Open();
    EXPECT_EQ(check.FieldByName("ADDED")->AsString(), "2025-05-06");
    EXPECT_DOUBLE_EQ(check.FieldByName("PRICE")->AsFloat(), 4);
}

TEST_F(QueryTest, FailuresLeaveTheQueryClosed) {
    TQuery q(nullptr);
    q.SetDatabaseName("D");
    EXPECT_THROW(q.Open(), EDatabaseError); // no statement
    q.SQL()->SetText("SELECT * FROM NOSUCH");
    try {
        q.Open();
        FAIL();
    } catch (const EDatabaseError& e) {
        EXPECT_STREQ(e.what(), "SQL error: no such table: NOSUCH");
    }
    EXPECT_FALSE(q.Active());
    q.SQL()->SetText("SELECT * FROM ITEMS WHERE ID = :ID");
    try {
        q.Open();
        FAIL();
    } catch (const EDatabaseError& e) {
        EXPECT_STREQ(e.what(), "No value for parameter 'ID'");
    }
    q.SQL()->SetText("DELETE FROM ITEMS; DELETE FROM ITEMS");
    EXPECT_THROW(q.ExecSQL(), EDatabaseError);
    EXPECT_EQ(dbc->DataSetCount(), 0);
    TQuery count(nullptr);
    count.SetDatabaseName("D");
    count.SQL()->SetText("SELECT COUNT(*) AS N FROM ITEMS");
    count.Open();
    EXPECT_EQ(count.FieldByName("N")->AsInteger(), 3); // the refused batch deleted nothing
}

TEST_F(QueryTest, DataSourceSuppliesParameterValues) {
    dbc->Execute("CREATE TABLE SALES (ITEM_ID INTEGER, QTY INTEGER)");
    dbc->Execute("INSERT INTO SALES VALUES (1, 5), (1, 7), (2, 1)");
    TTable items(nullptr);
    items.SetDatabaseName("D");
    items.SetTableName("ITEMS");
    TDataSource src(nullptr);
    src.SetDataSet(&items);
    TQuery sales(nullptr);
    sales.SetDatabaseName("D");
    sales.SQL()->SetText("SELECT QTY FROM SALES WHERE ITEM_ID = :ID ORDER BY QTY");
    sales.SetDataSource(&src);
    items.Open();
    sales.Open();
    EXPECT_EQ(Column(&sales, "QTY"), (std::vector<std::string>{"5", "7"}));
    items.Next();
    EXPECT_EQ(Column(&sales, "QTY"), std::vector<std::string>{"1"});
    items.Next();
    EXPECT_TRUE(sales.IsEmpty());
}

TEST_F(QueryTest, ParamsStreamWithTheirValues) {
    TQuery q(nullptr);
    q.SetName("Query1");
    q.SetDatabaseName("D");
    q.SQL()->SetText("SELECT * FROM ITEMS WHERE ID = :ID AND NAME = :N");
    q.ParamByName("ID")->SetAsInteger(2);
    q.ParamByName("N")->SetAsString("ink");
    std::string text = rtl::WriteComponentText(&q);
    rtl::RegisterClass(TQuery::StaticClass());
    TComponent* read = rtl::ReadComponentText(text, nullptr);
    std::unique_ptr<TComponent> holder(read);
    auto* copy = dynamic_cast<TQuery*>(read);
    ASSERT_NE(copy, nullptr) << text;
    EXPECT_EQ(copy->SQL()->Text(), q.SQL()->Text());
    ASSERT_EQ(copy->ParamCount(), 2);
    EXPECT_EQ(copy->ParamByName("ID")->AsInteger(), 2);
    EXPECT_EQ(copy->ParamByName("ID")->DataType(), ftInteger);
    EXPECT_EQ(copy->ParamByName("N")->AsString(), "ink");
    copy->Open();
    EXPECT_EQ(copy->RecordCount(), 1);
    rtl::UnRegisterClass(TQuery::StaticClass());
}
