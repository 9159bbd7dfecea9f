// The data-aware tree against a master and a detail table: nodes per level, image fields, custom texts,
// selection moving the data sets, reloading when data changes, and the navigator panels following.
#ifdef JEX_HAVE_DB
#include "jex/jexdbtree.h"

#include "jex/jexnav.h"
#include "jexdbfixture.h"

using namespace jex;
using namespace vcl;
using jexdbtest::DBFixture;

namespace {

class DBTreeTest : public DBFixture {
protected:
    void SetUp() override {
        DBFixture::SetUp();
        MakeDepartments();
        MakePeople();
        // People become the detail of departments.
        People->Close();
        People->SetIndexFieldNames("DEPT;ID");
        People->SetMasterFields("ID");
        People->SetMasterSource(DeptSource);
        People->Open();
        Tree = new TjexDBTreeView(Form);
        Tree->SetName("tvStaff");
        Tree->SetParent(Form);
        Form->Show();
    }
    void TwoLevels() {
        TjexDBTreeLevel* top = Tree->DataSources()->Add();
        top->SetDataSource(DeptSource);
        top->SetDataField("NAME");
        top->SetImageField("ICON");
        TjexDBTreeLevel* detail = Tree->DataSources()->Add();
        detail->SetDataSource(PeopleSource);
        detail->SetDataField("NAME");
        detail->SetStateImageField("AGE");
    }
    TjexDBTreeView* Tree = nullptr;
};

TEST_F(DBTreeTest, LevelsBecomeNodesUnderTheirMasters) {
    TwoLevels();
    ASSERT_EQ(Tree->ItemCount(), 8);
    EXPECT_EQ(Tree->Lines()->ToVector(), (std::vector<std::string>{"Sales", "\tAnn", "\tCid", "Research",
                                                                   "\tBob", "\tEve", "Admin", "\tDan"}));
    EXPECT_EQ(Tree->NodeLevel(1), 0);
    EXPECT_EQ(Tree->NodeLevel(2), 1);
    EXPECT_EQ(Tree->NodeImageIndex(1), 11);
    EXPECT_EQ(Tree->NodeImageIndex(2), -1);
    EXPECT_EQ(Tree->NodeStateIndex(2), 34);
    // The data sets are where they were.
    EXPECT_EQ(Dept->RecNo(), 1);
    EXPECT_EQ(Tree->DataSource(), DeptSource);
    EXPECT_EQ(Tree->DataField(), "NAME");
}

TEST_F(DBTreeTest, SelectingANodeMovesEveryLevelToItsRecords) {
    TwoLevels();
    TFormDriver f = UI->Drive(Form);
    f.Select("tvStaff", "Research\\Eve");
    EXPECT_EQ(Dept->FieldByName("NAME")->AsString(), "Research");
    EXPECT_EQ(People->FieldByName("NAME")->AsString(), "Eve");
    EXPECT_EQ(Tree->FindCurrentNode(1), Tree->GetTextItem("Research\\Eve"));
    EXPECT_EQ(Tree->FindCurrentNode(0), Tree->GetTextItem("Research"));

    Tree->SetOptions(Tree->Options() - TjexDBTreeOptions{jdtSyncDataSets});
    f.Select("tvStaff", "Admin\\Dan");
    EXPECT_EQ(People->FieldByName("NAME")->AsString(), "Eve");
}

TEST_F(DBTreeTest, ChangedDataReloadsTheTreeAndCustomTextsApply) {
    TwoLevels();
    std::vector<std::string> deleted;
    Tree->OnDeletion = [&](rtl::TObject*, TOutlineNode* n) { deleted.push_back(n->Text()); };
    Tree->OnGetText = [](rtl::TObject*, TOutlineNode*, int level, std::string& text) {
        if (level == 1) text = "- " + text;
    };
    Dept->AppendRecord({4, "Legal", 14});
    ASSERT_GE(deleted.size(), 8u);
    EXPECT_EQ(deleted[0], "Dan"); // the last node first
    EXPECT_EQ(Tree->ItemCount(), 9);
    EXPECT_EQ(Tree->Items(Tree->ItemCount())->Text(), "Legal");
    EXPECT_EQ(Tree->Items(2)->Text(), "- Ann");

    Tree->SetOptions({jdtFullExpand, jdtSelectFirst});
    Tree->Reload();
    EXPECT_TRUE(Tree->Items(1)->Expanded());
    EXPECT_EQ(Tree->SelectedItem(), 1);
    size_t before = Tree->ItemCount();
    Dept->AppendRecord({5, "Ops", 15});
    EXPECT_EQ(static_cast<size_t>(Tree->ItemCount()), before); // no automatic refresh now
}

TEST_F(DBTreeTest, NavigatorPanelsFollowTheSelectedLevel) {
    TwoLevels();
    auto* panel = new TjexNavPanel(Form);
    panel->SetName("NavPanel1");
    panel->SetParent(Form);
    panel->SetDataSource(DeptSource);
    Tree->SetSyncJEXNavPanel(true);
    UI->Drive(Form).Select("tvStaff", "Sales\\Cid");
    EXPECT_EQ(panel->DataSource(), PeopleSource);
    UI->Drive(Form).Select("tvStaff", "Admin");
    EXPECT_EQ(panel->DataSource(), DeptSource);
}

TEST_F(DBTreeTest, LevelsLoseFreedDataSourcesAndTheFirstLevelIsTheTreesOwn) {
    Tree->SetDataSource(DeptSource);
    Tree->SetDataField("NAME");
    ASSERT_EQ(Tree->DataSources()->Count(), 1);
    EXPECT_EQ(Tree->ItemCount(), 3);
    auto* images = new TImageList(Form);
    Tree->SetImages(images);
    images->Free();
    EXPECT_EQ(Tree->Images(), nullptr);
    DeptSource->Free();
    DeptSource = nullptr;
    EXPECT_EQ(Tree->DataSources()->Items(0)->DataSource(), nullptr);
    EXPECT_EQ(Tree->ItemCount(), 0);
}

} // namespace

#endif // JEX_HAVE_DB
