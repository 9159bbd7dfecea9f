// Data grids, the navigator bar and the aggregate grids against real SQLite tables: rows and titles,
// moving, editing, inserting and deleting through the grid, columns, fixed columns, the horizontal grid,
// navigator actions and states, and aggregates with their embedded table or query through form files.
#ifdef JEX_HAVE_DB
#include "jex/jexdbgrids.h"

#include "jexdbfixture.h"
#include "rtl/streaming.h"

using namespace jex;
using namespace vcl;
using jexdbtest::DBFixture;

namespace {

class DBGridsTest : public DBFixture {
protected:
    void SetUp() override {
        DBFixture::SetUp();
        MakePeople();
        UI->PropagateExceptions = true;
        Form->Show();
    }
    TjexDBFixedGrid* NewGrid() {
        auto* g = new TjexDBFixedGrid(Form);
        g->SetName("grdPeople");
        g->SetParent(Form);
        g->SetDataSource(PeopleSource);
        return g;
    }
};

TEST_F(DBGridsTest, GridShowsTitlesIndicatorAndOneRowPerRecord) {
    TjexDBFixedGrid* g = NewGrid();
    EXPECT_EQ(g->RowCount(), 6);
    EXPECT_EQ(g->ColCount(), 11);
    EXPECT_EQ(g->Cells(1, 0), "ID");
    EXPECT_EQ(g->Cells(2, 0), "NAME");
    EXPECT_EQ(g->Cells(2, 1), "Ann");
    EXPECT_EQ(g->Cells(2, 5), "Eve");
    EXPECT_EQ(g->Cells(0, 1), ">");
    EXPECT_EQ(g->Row(), 1);
    People->Next();
    EXPECT_EQ(g->Cells(0, 1), "");
    EXPECT_EQ(g->Cells(0, 2), ">");
    EXPECT_EQ(g->Row(), 2);

    TControlDesc d = DescribeControl(g);
    ASSERT_EQ(d.Cells.size(), 6u);
    EXPECT_EQ(d.Cells[3][2], "Cid");

    // Without titles and indicator the records start at the top left.
    g->SetDBOptions(jexDefaultDBGridOptions - TjexDBGridOptions{jdgTitles, jdgIndicator});
    EXPECT_EQ(g->RowCount(), 5);
    EXPECT_EQ(g->Cells(1, 0), "Ann");
    People->Close();
    EXPECT_EQ(g->ColumnCount(), 0);
    EXPECT_EQ(g->Cells(1, 0), "");
}

TEST_F(DBGridsTest, SelectingAndEditingCellsMovesAndEditsTheDataSet) {
    TjexDBFixedGrid* g = NewGrid();
    TFormDriver f = UI->Drive(Form);
    f.SelectCell("grdPeople", 2, 4);
    EXPECT_EQ(People->FieldByName("NAME")->AsString(), "Dan");
    f.SetCell("grdPeople", 2, 3, "Cyd");
    EXPECT_EQ(People->State(), db::dsEdit);
    EXPECT_EQ(g->Cells(0, 3), "I");
    EXPECT_EQ(g->Cells(2, 3), "Cyd");
    f.SelectCell("grdPeople", 2, 1); // leaving the row posts it
    EXPECT_EQ(People->State(), db::dsBrowse);
    EXPECT_EQ(Stored("SELECT NAME FROM PEOPLE WHERE ID = 3"), "Cyd");
    EXPECT_EQ(g->Cells(0, 1), ">");

    g->SetReadOnly(true);
    EXPECT_THROW(g->SetEditText(2, 1, "No"), EUserActionError);
    EXPECT_EQ(People->State(), db::dsBrowse);
}

TEST_F(DBGridsTest, ColumnsChooseTitleWidthAndEditability) {
    TjexDBFixedGrid* g = NewGrid();
    TjexDBGridColumn* name = g->Columns()->Add();
    name->SetFieldName("NAME");
    name->SetTitle("Who");
    name->SetWidth(80);
    TjexDBGridColumn* age = g->Columns()->Add();
    age->SetFieldName("AGE");
    age->SetReadOnly(true);
    TjexDBGridColumn* hidden = g->Columns()->Add();
    hidden->SetFieldName("SALARY");
    hidden->SetVisible(false);
    EXPECT_EQ(g->ColCount(), 3);
    EXPECT_EQ(g->Cells(1, 0), "Who");
    EXPECT_EQ(g->Cells(2, 0), "AGE");
    EXPECT_EQ(g->Cells(2, 2), "45");
    EXPECT_EQ(g->ColWidths(1), 80);
    EXPECT_THROW(g->SetEditText(2, 1, "99"), EUserActionError);
    EXPECT_EQ(name->GetDisplayName(), "Who");

    g->Columns()->RebuildColumns();
    EXPECT_EQ(g->Columns()->Count(), 10);
    EXPECT_EQ(g->Cells(1, 0), "ID");
}

TEST_F(DBGridsTest, KeysInsertDeleteAndCancelRecords) {
    TjexDBFixedGrid* g = NewGrid();
    uint16_t key = VK_INSERT;
    g->KeyDown(key, {});
    EXPECT_EQ(People->State(), db::dsInsert);
    EXPECT_EQ(g->RowCount(), 7);
    EXPECT_EQ(g->Cells(0, 1), "*");
    g->SetEditText(1, 1, "9");
    g->SetEditText(2, 1, "Ida");
    People->Post();
    EXPECT_EQ(g->RowCount(), 7);
    EXPECT_EQ(Stored("SELECT NAME FROM PEOPLE WHERE ID = 9"), "Ida");

    key = VK_INSERT;
    g->KeyDown(key, {});
    key = VK_ESCAPE;
    g->KeyDown(key, {});
    EXPECT_EQ(People->State(), db::dsBrowse);
    EXPECT_EQ(g->RowCount(), 7);

    People->First();
    UI->AnswerMessage(mrCancel);
    key = VK_DELETE;
    g->KeyDown(key, {ssCtrl});
    EXPECT_EQ(People->RecordCount(), 6);
    UI->AnswerMessage(mrOk);
    key = VK_DELETE;
    g->KeyDown(key, {ssCtrl});
    EXPECT_EQ(People->RecordCount(), 5);
    EXPECT_EQ(g->RowCount(), 6);
    EXPECT_EQ(UI->Messages().back().Request.Text, "Delete record?");

    key = VK_DOWN;
    g->KeyDown(key, {});
    EXPECT_EQ(People->RecNo(), 2);
}

TEST_F(DBGridsTest, FixedColumnsStayFixedWithinTheColumnsThereAre) {
    TjexDBFixedGrid* g = NewGrid();
    g->SetFixedCols(2);
    EXPECT_EQ(g->TCustomGrid::FixedCols(), 3); // the indicator and two data columns
    g->SetFixedCols(50);
    EXPECT_EQ(g->TCustomGrid::FixedCols(), g->ColCount() - 1);
    EXPECT_EQ(g->FixedCols(), 50);
}

TEST_F(DBGridsTest, HorizontalGridShowsRecordsAcrossAndFieldsDown) {
    auto* g = new TjexHDBGrid(Form);
    g->SetName("hgPeople");
    g->SetParent(Form);
    g->SetDataSource(PeopleSource);
    EXPECT_EQ(g->ColCount(), 4);
    EXPECT_EQ(g->RowCount(), 11);
    EXPECT_EQ(g->Cells(0, 2), "NAME");
    EXPECT_EQ(g->Cells(1, 0), "1");
    EXPECT_EQ(g->Cells(1, 2), "Ann");
    EXPECT_EQ(g->Cells(3, 2), "Cid");
    People->Last();
    EXPECT_EQ(g->FirstRecord(), 2);
    EXPECT_EQ(g->Cells(3, 2), "Eve");
    EXPECT_EQ(g->Col(), 3);
    UI->Drive(Form).SelectCell("hgPeople", 1, 2);
    EXPECT_EQ(People->FieldByName("NAME")->AsString(), "Cid");
    UI->Drive(Form).SetCell("hgPeople", 1, 2, "Cyd");
    People->Post();
    EXPECT_EQ(Stored("SELECT NAME FROM PEOPLE WHERE ID = 3"), "Cyd");
    g->SetNumCols(1);
    EXPECT_EQ(g->ColCount(), 2);
    EXPECT_EQ(g->Cells(1, 2), "Cyd");
}

TEST_F(DBGridsTest, NavigatorMovesAndEditsAndEnablesItsButtons) {
    auto* nav = new TjexDBSuperNav(Form);
    nav->SetName("navPeople");
    nav->SetParent(Form);
    std::vector<TjexSuperNavBtn> clicked;
    nav->OnNavClick = [&](rtl::TObject*, TjexSuperNavBtn b) { clicked.push_back(b); };
    EXPECT_FALSE(nav->Button(jsnNext)->Enabled());
    nav->SetDataSource(PeopleSource);
    EXPECT_FALSE(nav->Button(jsnFirst)->Enabled());
    EXPECT_TRUE(nav->Button(jsnNext)->Enabled());
    EXPECT_FALSE(nav->Button(jsnPost)->Enabled());

    nav->BtnClick(jsnNext);
    EXPECT_EQ(People->RecNo(), 2);
    nav->SetMoveBy(2);
    nav->BtnClick(jsnNextPage);
    EXPECT_EQ(People->RecNo(), 4);
    nav->BtnClick(jsnLast);
    EXPECT_FALSE(nav->Button(jsnNext)->Enabled());
    nav->BtnClick(jsnNext); // disabled: nothing happens
    EXPECT_EQ(clicked.size(), 3u);

    nav->BtnClick(jsnEdit);
    EXPECT_TRUE(nav->Button(jsnPost)->Enabled());
    People->FieldByName("NAME")->SetAsString("Eva");
    nav->BtnClick(jsnPost);
    EXPECT_EQ(Stored("SELECT NAME FROM PEOPLE WHERE ID = 5"), "Eva");

    UI->AnswerMessage(mrCancel);
    nav->BtnClick(jsnDelete);
    EXPECT_EQ(People->RecordCount(), 5);
    nav->SetConfirmDelete(false);
    nav->BtnClick(jsnDelete);
    EXPECT_EQ(People->RecordCount(), 4);

    // Person clicks reach the same action.
    UI->Drive(Form).Click("navPeople.btnFirst");
    EXPECT_EQ(People->RecNo(), 1);
}

TEST_F(DBGridsTest, NavigatorHintsGlyphsAndVisibleButtons) {
    auto* nav = new TjexDBSuperNav(Form);
    nav->SetParent(Form);
    EXPECT_EQ(nav->ButtonHint(jsnRefresh), "Refresh data");
    nav->Hints()->SetText("\nBack a page");
    EXPECT_EQ(nav->Button(jsnPriorPage)->Hint(), "Back a page");
    EXPECT_EQ(nav->Button(jsnFirst)->Hint(), "First record");

    nav->SetGlyphColor(clRed);
    TBitmap* glyph = nav->Button(jsnFirst)->Glyph();
    ASSERT_EQ(glyph->Width(), 12);
    EXPECT_EQ(glyph->PixelRGB(2, 5), ColorToRGB(clRed));       // the bar of "first"
    EXPECT_EQ(glyph->PixelRGB(11, 0), glyph->PixelRGB(0, 11)); // background

    nav->SetVisibleButtons({jsnPrior, jsnNext});
    EXPECT_FALSE(nav->Button(jsnFirst)->Visible());
    EXPECT_TRUE(nav->Button(jsnNext)->Visible());
    EXPECT_EQ(nav->Button(jsnNext)->Left(), nav->Width() / 2);
    nav->SetNavSpeed(jnsFast);
    EXPECT_LT(nav->RepeatInterval(), 100);
}

TEST_F(DBGridsTest, TableGridOpensItsEmbeddedTableAndFollowsAMaster) {
    MakeDepartments();
    auto* tg = new TjexDBTableGrid(Form);
    tg->SetName("tgPeople");
    tg->SetParent(Form);
    tg->SetA1DatabaseName("CTRLDB");
    tg->SetA2TableName("PEOPLE");
    tg->SetIndexName("ByName");
    tg->SetA3Active(true);
    ASSERT_TRUE(tg->Table()->Active());
    EXPECT_EQ(tg->Grid()->RowCount(), 6);
    EXPECT_EQ(tg->Grid()->Cells(2, 1), "Ann");
    EXPECT_TRUE(tg->Navigator()->Button(jsnNext)->Enabled());
    EXPECT_EQ(tg->Table()->Owner(), tg);

    tg->SetA3Active(false);
    tg->SetIndexFieldNames("DEPT;ID");
    tg->SetMasterFields("ID");
    tg->SetMasterSource(DeptSource);
    tg->SetA3Active(true);
    EXPECT_EQ(tg->Grid()->RowCount(), 3); // Sales: Ann and Cid
    Dept->Next();
    EXPECT_EQ(tg->Grid()->Cells(2, 1), "Bob");
    EXPECT_THROW(tg->SetMasterSource(tg->DataSource()), db::EDatabaseError);

    // The master going away clears the link.
    DeptSource->Free();
    DeptSource = nullptr;
    EXPECT_EQ(tg->MasterSource(), nullptr);
    EXPECT_EQ(tg->Grid()->RowCount(), 6);

    tg->SetNavAlign(jgnTop);
    EXPECT_EQ(tg->Navigator()->Top(), 0);
    EXPECT_EQ(tg->Grid()->Top(), tg->NavHeight());
    tg->SetNavAlign(jgnNone);
    EXPECT_FALSE(tg->Navigator()->Visible());
}

TEST_F(DBGridsTest, AggregatesStreamTheirDataSetSettingsAndOpenAfterLoading) {
    rtl::RegisterClasses({TForm::StaticClass(), TjexDBTableGrid::StaticClass(),
                          TjexDBQueryGrid::StaticClass(), db::TDataSource::StaticClass(),
                          db::TTable::StaticClass()});
    auto* tg = new TjexDBTableGrid(Form);
    tg->SetName("tgPeople");
    tg->SetParent(Form);
    tg->SetA1DatabaseName("CTRLDB");
    tg->SetA2TableName("PEOPLE");
    tg->SetA3Active(true);
    tg->Columns()->Add()->SetFieldName("NAME");
    tg->SetFixedCols(1);
    auto* qg = new TjexDBQueryGrid(Form);
    qg->SetName("qgOlder");
    qg->SetParent(Form);
    qg->SetA1DatabaseName("CTRLDB");
    qg->A2SQL()->SetText("SELECT * FROM PEOPLE WHERE AGE > :MINAGE");
    ASSERT_EQ(qg->Params()->Count(), 1);
    qg->Params()->Items(0)->SetAsInteger(40);
    qg->SetA3Active(true);
    EXPECT_EQ(qg->Grid()->RowCount(), 3);

    std::string text = rtl::WriteComponentText(Form);
    EXPECT_NE(text.find("A2TableName = 'PEOPLE'"), std::string::npos);
    EXPECT_EQ(text.find("SubTable"), std::string::npos); // the embedded parts are not form components
    Form->Hide();
    rtl::TComponent* copy = rtl::ReadComponentText(text, nullptr);
    auto* tg2 = dynamic_cast<TjexDBTableGrid*>(copy->FindComponent("tgPeople"));
    auto* qg2 = dynamic_cast<TjexDBQueryGrid*>(copy->FindComponent("qgOlder"));
    ASSERT_TRUE(tg2 && qg2);
    EXPECT_TRUE(tg2->Table()->Active());
    EXPECT_EQ(tg2->Grid()->ColCount(), 2);
    EXPECT_EQ(tg2->Grid()->Cells(1, 1), "Ann");
    EXPECT_EQ(tg2->FixedCols(), 1);
    EXPECT_TRUE(qg2->Query()->Active());
    EXPECT_EQ(qg2->Params()->ParamByName("MINAGE")->AsInteger(), 40);
    EXPECT_EQ(qg2->Grid()->RowCount(), 3);
    copy->Free();
    rtl::UnRegisterClasses({TForm::StaticClass(), TjexDBTableGrid::StaticClass(),
                            TjexDBQueryGrid::StaticClass(), db::TDataSource::StaticClass(),
                            db::TTable::StaticClass()});
}

TEST_F(DBGridsTest, QueryGridRunsAgainWithNewParameterValues) {
    auto* qg = new TjexDBQueryGrid(Form);
    qg->SetParent(Form);
    qg->SetA1DatabaseName("CTRLDB");
    qg->A2SQL()->SetText("SELECT NAME FROM PEOPLE WHERE DEPT = :D ORDER BY NAME");
    qg->Params()->ParamByName("D")->SetAsInteger(2);
    qg->SetA3Active(true);
    EXPECT_EQ(qg->Grid()->RecordRows(), 2);
    EXPECT_EQ(qg->Grid()->Cells(1, 1), "Bob");
    qg->SetA3Active(false);
    qg->Params()->ParamByName("D")->SetAsInteger(3);
    qg->SetA3Active(true);
    EXPECT_EQ(qg->Grid()->RecordRows(), 1);
    EXPECT_EQ(qg->Grid()->Cells(1, 1), "Dan");
    // The query's results cannot be edited through the grid.
    EXPECT_THROW(qg->Grid()->SetEditText(1, 1, "x"), EUserActionError);
    qg->SetA3Active(false);
    qg->A2SQL()->SetText("SELECT * FROM NOSUCHTABLE");
    EXPECT_THROW(qg->SetA3Active(true), db::EDatabaseError);
    EXPECT_FALSE(qg->A3Active());
    EXPECT_EQ(qg->Grid()->RecordRows(), 0);
}

TEST(DBGridsHelpers, TableTypeMasksListTheTypesFiles) {
    EXPECT_EQ(jexGetTableTypeMask(db::ttParadox), "*.db");
    EXPECT_EQ(jexGetTableTypeMask(db::ttDBase), "*.dbf");
    EXPECT_EQ(jexGetTableTypeMask(db::ttASCII), "*.txt");
    EXPECT_EQ(jexGetTableTypeMask(db::ttDefault), "*");
    EXPECT_TRUE(db::MatchesMask("ERRLOG.DB", jexGetTableTypeMask(db::ttParadox)));
    EXPECT_FALSE(db::MatchesMask("ERRLOG.DBF", jexGetTableTypeMask(db::ttParadox)));
}

} // namespace

#endif // JEX_HAVE_DB
