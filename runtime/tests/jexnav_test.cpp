// Navigator controls against a real SQLite table: the panel's data source and active field, movement,
// editing with confirmation, bookmarks, filters, ranges, find, index lists, labels, transactions, the form
// link and the data-aware toolbar edit.
#ifdef JEX_HAVE_DB
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "jex/jexnav.h"
#include "rtl/inifiles.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

namespace {

// A form that views the city records, opened by name from a data-source button.
class TCityForm : public TForm {
    JEX_CLASS(TCityForm, TForm)
    explicit TCityForm(rtl::TComponent* owner) : TForm(owner) { SetName("CityForm"); }
};

// Answers the platform's input box with a value.
void AnswerInput(TScriptedUI& ui, const std::string& value) {
    ui.OnForm("TForm", [value](TFormDriver& f) {
        f.Type("Edit", value);
        f.Click("OKButton");
    });
}

class NavTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::random_device rd;
        Dir = (std::filesystem::temp_directory_path() / ("jexnav_" + std::to_string(rd()))).string();
        std::filesystem::create_directories(Dir);
        rtl::SetSystemDirectory(Dir);
        rtl::TIniFile ini(db::TSession::ConfigFileName());
        ini.WriteString("NAVDB", "DRIVER", "SQLITE");
        ini.WriteString("NAVDB", "PATH", Dir + "/data");

        Form = new TForm(nullptr);
        Table = new db::TTable(Form);
        Table->SetName("tblCity");
        Table->SetDatabaseName("NAVDB");
        Table->SetTableName("CITY");
        Table->FieldDefs()->Add("ID", db::ftInteger);
        Table->FieldDefs()->Add("NAME", db::ftString, 30);
        Table->FieldDefs()->Add("POP", db::ftInteger);
        Table->FieldDefs()->Add("NOTES", db::ftMemo, 200);
        Table->IndexDefs()->Add("PK", "ID", {db::ixPrimary, db::ixUnique});
        Table->IndexDefs()->Add("ByName", "NAME", {db::ixCaseInsensitive});
        Table->CreateTable();
        Table->Open();
        int id = 1;
        for (const char* name : {"Oslo", "Bergen", "Oslo", "Fosen", "Alta"}) {
            Table->Append();
            Table->FieldByName("ID")->SetAsInteger(id);
            Table->FieldByName("NAME")->SetAsString(name);
            Table->FieldByName("POP")->SetAsInteger(id * 100);
            Table->Post();
            ++id;
        }
        Table->First();
        Source = new db::TDataSource(Form);
        Source->SetName("dsCity");
        Source->SetDataSet(Table);
        Panel = new TjexNavPanel(Form);
        Panel->SetName("NavPanel1");
        Panel->SetParent(Form);
        Panel->SetDataSource(Source);
    }
    void TearDown() override {
        Form->Free();
        db::Session()->DropConnections();
        rtl::SetSystemDirectory("");
        std::error_code ec;
        std::filesystem::remove_all(Dir, ec);
    }
    template <class B> B* Add() {
        auto* b = new B(Form);
        b->SetParent(Panel);
        return b;
    }
    int Id() const { return Table->FieldByName("ID")->AsInteger(); }

    std::string Dir;
    TForm* Form = nullptr;
    db::TTable* Table = nullptr;
    db::TDataSource* Source = nullptr;
    TjexNavPanel* Panel = nullptr;
};

} // namespace

JEX_IMPLEMENT_CLASS(TCityForm, TForm, "jexnav_test") {}

TEST_F(NavTest, ClassHierarchyIsWhatTheDesignersRelyOn) {
    const rtl::TClass buttons[] = {TjexnpFirst::StaticClass(),          TjexnpJumpBack::StaticClass(),
                                   TjexnpPrev::StaticClass(),           TjexnpNext::StaticClass(),
                                   TjexnpJumpFwd::StaticClass(),        TjexnpLast::StaticClass(),
                                   TjexnpInsert::StaticClass(),         TjexnpAppend::StaticClass(),
                                   TjexnpDuplicateRec::StaticClass(),   TjexnpEdit::StaticClass(),
                                   TjexnpDataSourceEdit::StaticClass(), TjexnpBlobEdit::StaticClass(),
                                   TjexnpFindReplace::StaticClass(),    TjexnpDelete::StaticClass(),
                                   TjexnpCancel::StaticClass(),         TjexnpPost::StaticClass(),
                                   TjexnpRefresh::StaticClass(),        TjexnpEmptyTable::StaticClass(),
                                   TjexnpBookmark::StaticClass(),       TjexnpBookmarkMenu::StaticClass(),
                                   TjexnpFindKey::StaticClass(),        TjexnpRange::StaticClass(),
                                   TjexnpFilterActive::StaticClass(),   TjexnpFilterExpression::StaticClass(),
                                   TjexnpSQLStartTrans::StaticClass(),  TjexnpSQLCommit::StaticClass(),
                                   TjexnpSQLRollback::StaticClass(),    TjexnpQueryParams::StaticClass(),
                                   TjexnpDBInfo::StaticClass()};
    for (rtl::TClass c : buttons) {
        EXPECT_TRUE(c->InheritsFrom(TjexCustomnpBtn::StaticClass())) << c->ClassName();
        EXPECT_TRUE(c->InheritsFrom(TjexCustomPicSpeedBtn::StaticClass())) << c->ClassName();
        EXPECT_TRUE(c->CanCreateComponent()) << c->ClassName();
        // The designers take a button's kind from the first catalogue class it is an instance of.
        for (rtl::TClass other : buttons)
            if (other != c)
                EXPECT_FALSE(c->InheritsFrom(other)) << c->ClassName() << " / " << other->ClassName();
    }
    EXPECT_FALSE(TjexnpIndexCombo::StaticClass()->InheritsFrom(TjexCustomnpBtn::StaticClass()));
    EXPECT_FALSE(TjexPicSpeedBtn::StaticClass()->InheritsFrom(TjexCustomnpBtn::StaticClass()));
    EXPECT_TRUE(TjexNavToolbar::StaticClass()->InheritsFrom(TjexCustomToolWindow::StaticClass()));
    EXPECT_FALSE(TjexNavToolbar::StaticClass()->InheritsFrom(TjexCustomNavPanel::StaticClass()));
    EXPECT_TRUE(TjexNavPanel::StaticClass()->InheritsFrom(TjexCustomNavPanel::StaticClass()));
    auto* first = Add<TjexnpFirst>();
    EXPECT_EQ(first->ButtonKind(), jnkFirst);
    EXPECT_EQ(Add<TjexnpDBInfo>()->ButtonKind(), jnkDBInfo);
}

TEST_F(NavTest, MovementButtonsMoveTheDataSet) {
    auto* first = Add<TjexnpFirst>();
    auto* next = Add<TjexnpNext>();
    auto* last = Add<TjexnpLast>();
    auto* prev = Add<TjexnpPrev>();
    auto* jump = Add<TjexnpJumpFwd>();
    EXPECT_FALSE(first->ActionEnabled()); // already at the first record
    EXPECT_FALSE(DescribeControl(first).Enabled);
    next->Click();
    EXPECT_EQ(Id(), 2);
    last->Click();
    EXPECT_EQ(Id(), 5);
    EXPECT_FALSE(next->ActionEnabled());
    int clicks = 0;
    prev->OnClick = [&](rtl::TObject*) { ++clicks; };
    prev->Hold(450); // the press and one repeat
    EXPECT_EQ(Id(), 3);
    EXPECT_EQ(clicks, 2);
    first->Click();
    jump->SetMoveBy(3);
    jump->Click();
    EXPECT_EQ(Id(), 4);
    Panel->SetDataSource(nullptr);
    EXPECT_FALSE(first->Linked());
    first->Click(); // nothing to act on: only OnClick
    EXPECT_EQ(Id(), 4);
}

TEST_F(NavTest, EditingButtonsInsertPostCancelAndDeleteWithConfirmation) {
    TScriptedUI ui;
    auto* append = Add<TjexnpAppend>();
    auto* post = Add<TjexnpPost>();
    auto* cancel = Add<TjexnpCancel>();
    auto* del = Add<TjexnpDelete>();
    auto* dup = Add<TjexnpDuplicateRec>();
    auto* edit = Add<TjexnpEdit>();
    EXPECT_FALSE(post->ActionEnabled());
    append->Click();
    EXPECT_EQ(Table->State(), db::dsInsert);
    EXPECT_TRUE(post->ActionEnabled());
    Table->FieldByName("ID")->SetAsInteger(6);
    Table->FieldByName("NAME")->SetAsString("Bodo");
    post->Click();
    EXPECT_EQ(Table->RecordCount(), 6);
    edit->Click();
    Table->FieldByName("NAME")->SetAsString("changed");
    cancel->Click();
    EXPECT_EQ(Table->FieldByName("NAME")->AsString(), "Bodo");

    ui.AnswerMessage(mrNo);
    del->Click();
    EXPECT_EQ(Table->RecordCount(), 6);
    ui.AnswerMessage(mrYes);
    del->Click();
    EXPECT_EQ(Table->RecordCount(), 5);
    ASSERT_EQ(ui.Messages().size(), 2u);
    EXPECT_EQ(ui.Messages()[0].Request.Text, "Delete record?");
    EXPECT_EQ(ui.Messages()[0].Request.Type, mtConfirmation);
    del->SetConfirm(false);
    del->Click();
    EXPECT_EQ(Table->RecordCount(), 4);
    EXPECT_EQ(ui.Messages().size(), 2u);

    Table->First();
    dup->Click();
    EXPECT_EQ(Table->State(), db::dsInsert);
    EXPECT_EQ(Table->FieldByName("NAME")->AsString(), "Oslo");
    Table->FieldByName("ID")->SetAsInteger(99);
    Table->Post();
    EXPECT_EQ(Table->RecordCount(), 5);
}

TEST_F(NavTest, BookmarkGoesBackToTheMarkedRecord) {
    auto* mark = Add<TjexnpBookmark>();
    mark->SetHintUp("Set Bookmark|Mark this record position with a bookmark");
    mark->SetHintDown("Go To Bookmark|Return to the last bookmarked record");
    Table->MoveBy(2);
    mark->UserClick();
    EXPECT_TRUE(mark->Down());
    EXPECT_TRUE(mark->HasBookmark());
    EXPECT_EQ(mark->Hint(), "Go To Bookmark|Return to the last bookmarked record");
    Table->Last();
    mark->UserClick();
    EXPECT_FALSE(mark->Down());
    EXPECT_EQ(Id(), 3);
    Table->Close();
    mark->UserClick(); // nothing open: the button stays up
    EXPECT_FALSE(mark->Down());
}

TEST_F(NavTest, FiltersApplyAndGiveBackThePreviousFilter) {
    TScriptedUI ui;
    auto* expr = Add<TjexnpFilterExpression>();
    expr->SetFilter("POP >= 300");
    expr->UserClick();
    EXPECT_TRUE(expr->Down());
    EXPECT_TRUE(Table->Filtered());
    EXPECT_EQ(Table->RecordCount(), 3);
    EXPECT_EQ(Id(), 3); // GoToFirst
    expr->UserClick();
    EXPECT_FALSE(Table->Filtered());
    EXPECT_EQ(Table->RecordCount(), 5);

    // The active field comes from the form's active data-aware control.
    auto* edit = new TjexToolbarDBEdit(Form);
    edit->SetParent(Form);
    edit->SetDataSource(Source);
    edit->SetDataField("NAME");
    Form->Show();
    Form->SetActiveControl(edit);
    auto* active = Add<TjexnpFilterActive>();
    EXPECT_EQ(active->FilterText(), ""); // AutoField is off
    active->UserClick();
    EXPECT_FALSE(active->Down());
    Panel->SetAutoField(true);
    EXPECT_EQ(Panel->NavFieldName(), "NAME");
    EXPECT_EQ(active->FilterText(), "NAME = 'Oslo'");
    active->UserClick();
    EXPECT_TRUE(active->Down());
    EXPECT_EQ(Table->RecordCount(), 2);
    active->UserClick();
    EXPECT_EQ(Table->RecordCount(), 5);
    Form->Hide();
}

TEST_F(NavTest, AutoDataSourceFollowsTheActiveControl) {
    TScriptedUI ui;
    auto* other = new db::TDataSource(Form);
    auto* edit = new TjexToolbarDBEdit(Form);
    edit->SetParent(Form);
    edit->SetDataSource(other);
    Form->Show();
    Form->SetActiveControl(edit);
    EXPECT_EQ(Panel->NavDataSource(), Source);
    Panel->SetAutoDataSource(true);
    EXPECT_EQ(Panel->NavDataSource(), other);
    EXPECT_FALSE(Panel->IsLinkedToOpenDataSet());
    edit->SetDataSource(nullptr);
    EXPECT_EQ(Panel->NavDataSource(), Source);
    EXPECT_TRUE(Panel->IsLinkedToOpenDataSet());
    Form->Hide();
}

TEST_F(NavTest, RangesLimitByKeyAndClearAgain) {
    EXPECT_TRUE(jexApplyRange(Table, "POP", "200", "400"));
    EXPECT_EQ(Table->RecordCount(), 3);
    jexCancelRange(Table);
    EXPECT_EQ(Table->RecordCount(), 5);
    Table->SetIndexName("ByName");
    EXPECT_TRUE(jexApplyRange(Table, "NAME", "B", "P"));
    EXPECT_EQ(Table->RecordCount(), 4); // Bergen, Fosen, Oslo, Oslo
    jexCancelRange(Table);
    EXPECT_FALSE(jexApplyRange(Table, "NAME", " ", ""));
    EXPECT_THROW(jexApplyRange(Table, "MISSING", "1", ""), db::EDatabaseError);

    auto* edit = new TjexnpRangeEdit(Form);
    edit->SetParent(Panel);
    Table->SetIndexName("");
    edit->SetText("2-3");
    EXPECT_TRUE(edit->ApplyRange()); // the first field, ID
    EXPECT_EQ(Table->RecordCount(), 2);
    uint16_t key = VK_RETURN;
    edit->SetText("");
    edit->KeyDown(key, {});
    EXPECT_EQ(key, 0);
    EXPECT_EQ(Table->RecordCount(), 5);
}

TEST_F(NavTest, FindKeyAndFindReplaceSearchTheRecords) {
    TScriptedUI ui;
    auto* find = Add<TjexnpFindKey>();
    EXPECT_EQ(find->KeyFieldName(), "ID");
    EXPECT_TRUE(find->FindKey("4"));
    EXPECT_EQ(Id(), 4);
    EXPECT_FALSE(find->FindKey("42"));
    EXPECT_EQ(ui.MessageTexts().back(), "Record not found: 42");

    auto* fr = Add<TjexnpFindReplace>();
    fr->SetFindText("os");
    Table->First();
    EXPECT_TRUE(fr->FindNext()); // Oslo (3) ... starts after the current record
    EXPECT_EQ(Id(), 3);
    EXPECT_TRUE(fr->FindNext());
    EXPECT_EQ(Id(), 4); // Fosen
    EXPECT_FALSE(fr->FindNext());
    EXPECT_EQ(Id(), 4);
    fr->SetOptionsFind({jfoMatchCase});
    fr->SetReplaceText("OS");
    Table->First();
    EXPECT_EQ(fr->ReplaceAll(), 1); // only Fosen has a lower-case "os"
    fr->SetOptionsFind({});
    fr->SetFindText("oslo");
    fr->SetReplaceText("Christiania");
    EXPECT_EQ(fr->ReplaceAll(), 2);
    Table->First();
    EXPECT_EQ(Table->FieldByName("NAME")->AsString(), "Christiania");
}

TEST_F(NavTest, IndexComboListsTheTablesIndexesAndOrdersByTheChosenOne) {
    auto* combo = new TjexnpIndexCombo(Form);
    combo->SetParent(Panel);
    combo->LoadItemsFromDataSet();
    EXPECT_EQ(combo->Items()->ToVector(), (std::vector<std::string>{"PK", "ByName"}));
    EXPECT_EQ(combo->ItemIndex(), -1);
    combo->SetItemIndex(1);
    combo->Click();
    EXPECT_EQ(Table->IndexName(), "ByName");
    EXPECT_EQ(Table->FieldByName("NAME")->AsString(), "Alta");
    combo->TableIndexItems()->Add("By name=ByName");
    combo->TableIndexItems()->Add("Gone=NoSuchIndex");
    combo->LoadItemsFromDataSet();
    EXPECT_EQ(combo->Items()->ToVector(), std::vector<std::string>{"By name"});
    EXPECT_EQ(combo->ItemIndex(), 0);
    EXPECT_EQ(combo->IndexNameOf(0), "ByName");
}

TEST_F(NavTest, LabelsShowStateAndPosition) {
    auto* state = new TjexnpState(Form);
    state->SetParent(Panel);
    auto* count = new TjexnpRecordCount(Form);
    count->SetParent(Panel);
    EXPECT_EQ(state->Caption(), "Browse");
    EXPECT_EQ(count->Caption(), "1 of 5");
    Table->Edit();
    state->SetMask("State: %s");
    EXPECT_EQ(state->Caption(), "State: Edit");
    Table->Cancel();
    count->SetMask("%d/%d records");
    Table->Last();
    EXPECT_EQ(DescribeControl(count).Caption, "5/5 records");
    Table->Close();
    EXPECT_EQ(state->Caption(), "Inactive");
    count->SetDisabledCaption("closed");
    EXPECT_EQ(count->Caption(), "closed");
}

TEST_F(NavTest, EmptyTableAndInfoAndTransactions) {
    TScriptedUI ui;
    auto* info = Add<TjexnpDBInfo>();
    std::string text = info->InfoText();
    EXPECT_NE(text.find("DataSet: tblCity (TTable)"), std::string::npos) << text;
    EXPECT_NE(text.find("Record: 1 of 5"), std::string::npos) << text;
    EXPECT_NE(text.find("Fields: ID, NAME, POP, NOTES"), std::string::npos) << text;
    info->Click();
    EXPECT_EQ(ui.MessageTexts().back(), text);

    auto* start = Add<TjexnpSQLStartTrans>();
    auto* rollback = Add<TjexnpSQLRollback>();
    EXPECT_FALSE(rollback->ActionEnabled());
    start->Click();
    EXPECT_TRUE(Table->Database()->InTransaction());
    Table->First();
    Table->Delete();
    EXPECT_EQ(Table->RecordCount(), 4);
    ui.AnswerMessage(mrYes);
    rollback->Click();
    EXPECT_FALSE(Table->Database()->InTransaction());
    EXPECT_EQ(Table->RecordCount(), 5);

    auto* empty = Add<TjexnpEmptyTable>();
    ui.AnswerMessage(mrYes);
    empty->Click();
    EXPECT_EQ(ui.MessageTexts().back(), "Delete all records in CITY?");
    EXPECT_EQ(Table->RecordCount(), 0);
}

TEST_F(NavTest, FormLinkLendsItsDataSourceAndGivesTheOldOneBack) {
    auto* bar = new TjexNavToolbar(Form);
    bar->SetParent(Form);
    auto* mine = new db::TDataSource(Form);
    auto* link = new TjexNavFormLink(Form);
    EXPECT_THROW(link->SetNavControl(Form), rtl::EInvalidCast);
    link->SetNavControl(bar);
    link->SetDataSource(mine);
    bar->SetDataSource(Source);
    link->Activate();
    EXPECT_EQ(bar->DataSource(), mine);
    link->Deactivate();
    EXPECT_EQ(bar->DataSource(), Source);
    link->SetNavControl(Panel);
    link->Activate();
    EXPECT_EQ(Panel->DataSource(), mine);
    mine->Free();
    EXPECT_EQ(Panel->DataSource(), nullptr);
    EXPECT_EQ(link->DataSource(), nullptr);
}

TEST_F(NavTest, ToolbarDBEditShowsAndWritesItsField) {
    TScriptedUI ui;
    auto* edit = new TjexToolbarDBEdit(Form);
    edit->SetName("edtName");
    edit->SetParent(Form);
    edit->SetDataSource(Source);
    edit->SetDataField("NAME");
    EXPECT_EQ(edit->Text(), "Oslo");
    Table->Next();
    EXPECT_EQ(edit->Text(), "Bergen");
    Form->Show();
    ui.Drive(Form).Type("edtName", "Bergen City");
    EXPECT_EQ(Table->State(), db::dsEdit);
    edit->DoExit();
    Table->Post();
    EXPECT_EQ(Table->FieldByName("NAME")->AsString(), "Bergen City");
    Source->Free();
    EXPECT_EQ(edit->DataSource(), nullptr);
    Form->Hide();
}

TEST_F(NavTest, DataSourceEditOpensItsFormAndPostsOnOK) {
    TScriptedUI ui;
    rtl::RegisterClass(TCityForm::StaticClass());
    auto* button = Add<TjexnpDataSourceEdit>();
    button->SetHint("Edit %datasource%|Display a form to view or edit %datasource% records");
    EXPECT_EQ(button->ShownHint(), "Edit dsCity|Display a form to view or edit dsCity records");
    EXPECT_FALSE(button->ActionEnabled()); // no form named yet
    button->SetFormName("CityForm");
    Table->Edit();
    Table->FieldByName("NAME")->SetAsString("Oslo kommune");
    ui.OnForm("TCityForm", [](TFormDriver& f) { f.Close(mrOk); });
    button->Click();
    EXPECT_EQ(button->LastResult(), mrOk);
    EXPECT_EQ(Table->State(), db::dsBrowse);
    EXPECT_EQ(Table->FieldByName("NAME")->AsString(), "Oslo kommune");
    Table->Edit();
    Table->FieldByName("NAME")->SetAsString("dropped");
    ui.OnForm("TCityForm", [](TFormDriver& f) { f.Close(mrCancel); });
    button->Click();
    EXPECT_EQ(Table->FieldByName("NAME")->AsString(), "Oslo kommune");
    auto* own = new db::TDataSource(Form);
    own->SetName("dsOther");
    button->SetOwnDataSource(own);
    EXPECT_EQ(button->DataSource(), own);
    rtl::UnRegisterClass(TCityForm::StaticClass());
}

TEST_F(NavTest, BlobEditWritesTheMemoFieldWhenConfirmed) {
    TScriptedUI ui;
    auto* button = Add<TjexnpBlobEdit>();
    EXPECT_EQ(button->BlobField(), Table->FieldByName("NOTES"));
    ui.OnForm("TjexBlobEditForm", [](TFormDriver& f) {
        f.Type("memBlob", "Capital\r\nof Norway");
        f.Click("btnOK");
    });
    button->Click();
    EXPECT_EQ(Table->State(), db::dsEdit);
    Table->Post();
    EXPECT_EQ(Table->FieldByName("NOTES")->AsString(), "Capital\r\nof Norway");
    ui.OnForm("TjexBlobEditForm", [](TFormDriver& f) {
        f.Type("memBlob", "thrown away");
        f.Click("btnCancel");
    });
    button->Click();
    EXPECT_EQ(Table->State(), db::dsBrowse);
    button->SetEditBlobAs(jebGraphic);
    button->Click();
    EXPECT_EQ(ui.MessageTexts().back(), "Graphic fields cannot be edited here");
}

TEST_F(NavTest, BookmarkMenuKeepsBookmarksInItsPopup) {
    TScriptedUI ui;
    auto* button = Add<TjexnpBookmarkMenu>();
    button->AddBookmark();
    Table->MoveBy(3);
    button->SetLabelByIndexVals(true);
    button->AddBookmark();
    ASSERT_EQ(button->BookmarkCount(), 2);
    EXPECT_EQ(button->BookmarkLabel(0), "Record 1");
    EXPECT_EQ(button->BookmarkLabel(1), "4"); // the primary index's ID
    button->Click();
    EXPECT_EQ(ui.Popups().size(), 1u);
    TMenuItem* items = button->Menu()->Items();
    ASSERT_EQ(items->Count(), 5); // add, clear, line, two bookmarks
    EXPECT_EQ(items->Items(0)->Caption(), "&Add Bookmark");
    items->Items(3)->Click();
    EXPECT_EQ(Id(), 1);
    items->Items(1)->Click();
    EXPECT_EQ(button->BookmarkCount(), 0);
    EXPECT_THROW(button->GotoBookmark(0), rtl::EListError);
}

TEST_F(NavTest, RangeAndQueryParamsAskThroughTheInputBox) {
    TScriptedUI ui;
    auto* range = Add<TjexnpRange>();
    AnswerInput(ui, "2-4");
    range->Click();
    EXPECT_TRUE(range->RangeActive());
    EXPECT_EQ(Table->RecordCount(), 3);
    range->Click(); // a second click clears it without asking
    EXPECT_FALSE(range->RangeActive());
    EXPECT_EQ(Table->RecordCount(), 5);

    auto* query = new db::TQuery(Form);
    query->SetDatabaseName("NAVDB");
    query->SQL()->SetText("SELECT * FROM CITY WHERE POP > :MINPOP");
    query->ParamByName("MINPOP")->SetAsInteger(0);
    query->Open();
    Source->SetDataSet(query);
    auto* params = Add<TjexnpQueryParams>();
    ASSERT_TRUE(params->ActionEnabled());
    AnswerInput(ui, "250");
    params->Click();
    EXPECT_TRUE(query->Active());
    EXPECT_EQ(query->RecordCount(), 3);
    ui.OnForm("TForm", [](TFormDriver& f) { f.Click("CancelButton"); });
    params->Click(); // cancelled: the query is left as it was
    EXPECT_EQ(query->RecordCount(), 3);
}
#endif
