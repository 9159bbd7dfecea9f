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
    // Every node in tree order, indented with a tab per level.
    std::vector<std::string> Lines() const {
        std::vector<std::string> out;
        for (int i = 0; i < Tree->Items()->Count(); ++i) {
            TTreeNode* n = Tree->Items()->Item(i);
            out.push_back(std::string(static_cast<size_t>(n->Level()), '\t') + n->Text());
        }
        return out;
    }
    TTreeNode* Node(const std::string& path) const { return Tree->Items()->FindPath(path); }
    TjexDBTreeView* Tree = nullptr;
};

TEST_F(DBTreeTest, LevelsBecomeNodesUnderTheirMasters) {
    TwoLevels();
    ASSERT_EQ(Tree->Items()->Count(), 8);
    EXPECT_EQ(Lines(), (std::vector<std::string>{"Sales", "\tAnn", "\tCid", "Research", "\tBob", "\tEve",
                                                 "Admin", "\tDan"}));
    EXPECT_EQ(Tree->NodeLevel(Node("Sales")), 0);
    EXPECT_EQ(Tree->NodeLevel(Node("Sales\\Ann")), 1);
    EXPECT_EQ(Node("Sales")->ImageIndex(), 11);
    EXPECT_EQ(Node("Admin")->ImageIndex(), 13);
    EXPECT_EQ(Node("Sales\\Ann")->StateIndex(), 34);
    // The data sets are where they were.
    EXPECT_EQ(Dept->RecNo(), 1);
    EXPECT_EQ(Tree->DataSource(), DeptSource);
    EXPECT_EQ(Tree->DataField(), "NAME");
    TControlDesc d = DescribeControl(Tree);
    ASSERT_EQ(d.Nodes.size(), 3u);
    EXPECT_EQ(d.Nodes[1].Children[1].Text, "Eve");
}

TEST_F(DBTreeTest, SelectingANodeMovesEveryLevelToItsRecords) {
    TwoLevels();
    TFormDriver f = UI->Drive(Form);
    f.Select("tvStaff", "Research\\Eve");
    EXPECT_EQ(Dept->FieldByName("NAME")->AsString(), "Research");
    EXPECT_EQ(People->FieldByName("NAME")->AsString(), "Eve");
    EXPECT_EQ(Tree->FindCurrentNode(1), Node("Research\\Eve"));
    EXPECT_EQ(Tree->FindCurrentNode(0), Node("Research"));

    Tree->SetOptions(Tree->Options() - TjexDBTreeOptions{jdtSyncDataSets});
    f.Select("tvStaff", "Admin\\Dan");
    EXPECT_EQ(People->FieldByName("NAME")->AsString(), "Eve");
}

TEST_F(DBTreeTest, ChangedDataReloadsTheTreeAndCustomTextsApply) {
    TwoLevels();
    std::vector<std::string> deleted;
    Tree->OnDeletion = [&](rtl::TObject*, TTreeNode* n) { deleted.push_back(n->Text()); };
    Tree->OnGetText = [](rtl::TObject*, TTreeNode*, int level, std::string& text) {
        if (level == 1) text = "- " + text;
    };
    Dept->Append();
    EXPECT_EQ(Tree->Items()->Count(), 8); // nothing changes while the record is new
    Dept->SetFields({4, "Legal", 14});
    Dept->Post();
    ASSERT_GE(deleted.size(), 8u);
    EXPECT_EQ(Tree->Items()->Count(), 9);
    EXPECT_NE(Node("Legal"), nullptr);
    EXPECT_EQ(Tree->Items()->Item(1)->Text(), "- Ann");

    Tree->SetOptions({jdtFullExpand, jdtSelectFirst});
    Tree->Reload();
    EXPECT_TRUE(Node("Sales")->Expanded());
    EXPECT_EQ(Tree->Selected(), Node("Sales"));
    int before = Tree->Items()->Count();
    Dept->AppendRecord({5, "Ops", 15});
    EXPECT_EQ(Tree->Items()->Count(), before); // no automatic refresh now
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
    EXPECT_EQ(Tree->Items()->Count(), 3);
    auto* images = new TImageList(Form);
    Tree->SetImages(images);
    images->Free();
    EXPECT_EQ(Tree->Images(), nullptr);
    DeptSource->Free();
    DeptSource = nullptr;
    EXPECT_EQ(Tree->DataSources()->Items(0)->DataSource(), nullptr);
    EXPECT_EQ(Tree->Items()->Count(), 0);
}

} // namespace

#endif // JEX_HAVE_DB
