// Common controls as a person sees them through the scripted user interface: page switching, tree node
// order and selection, tool button groups, status panels, value controls and dates; and form files that
// hold them read back to the same tree.
#include <gtest/gtest.h>

#include "rtl/streaming.h"
#include "vcl/comctrls.h"
#include "vcl/extctrls.h"
#include "vcl/extctrls_more.h"
#include "vcl/scripted_ui.h"

using namespace vcl;

namespace {

template <class T> T* Child(TComponent* owner, TWinControl* parent, const char* name) {
    auto* c = new T(owner);
    c->SetName(name);
    c->SetParent(parent);
    return c;
}

TTabSheet* Sheet(TForm* form, TPageControl* pc, const char* name, const char* caption) {
    auto* s = new TTabSheet(form);
    s->SetName(name);
    s->SetCaption(caption);
    s->SetPageControl(pc);
    return s;
}

// ---- Page and tab controls -------------------------------------------------------------------------
class PageControlTest : public ::testing::Test {
protected:
    void SetUp() override {
        form = NewForm<TForm>(nullptr);
        form->SetName("Form1");
        pc = Child<TPageControl>(form, form, "Pages");
        one = Sheet(form, pc, "One", "&General");
        two = Sheet(form, pc, "Two", "Advanced");
        three = Sheet(form, pc, "Three", "Hidden");
        edit = Child<TEdit>(form, two, "Edit1");
        form->Show();
    }
    void TearDown() override { form->Free(); }
    TScriptedUI ui;
    TForm* form = nullptr;
    TPageControl* pc = nullptr;
    TTabSheet *one = nullptr, *two = nullptr, *three = nullptr;
    TEdit* edit = nullptr;
};

TEST_F(PageControlTest, FirstPageIsActiveAndOnlyTheActivePageShows) {
    EXPECT_EQ(pc->PageCount(), 3);
    EXPECT_EQ(pc->ActivePage(), one);
    EXPECT_TRUE(one->Showing());
    EXPECT_FALSE(two->Showing());
    EXPECT_FALSE(edit->Showing());
    EXPECT_EQ(two->PageIndex(), 1);
    TRect client = pc->AdjustClientRect();
    EXPECT_EQ(two->BoundsRect(), client) << "every sheet fills the page area";
    EXPECT_LT(client.Width(), pc->Width());
}

TEST_F(PageControlTest, PersonSwitchesPagesWithChangingAndChangeEvents) {
    std::vector<std::string> log;
    pc->OnChanging = [&](rtl::TObject*, bool& allow) {
        log.push_back("changing from " + pc->ActivePage()->Name());
        allow = pc->ActivePage() != two;
    };
    pc->OnChange = [&](rtl::TObject*) { log.push_back("change to " + pc->ActivePage()->Name()); };
    one->OnHide = [&](rtl::TObject*) { log.push_back("hide One"); };
    two->OnShow = [&](rtl::TObject*) { log.push_back("show Two"); };
    TFormDriver f = ui.Drive(form);
    f.Select("Pages", "Advanced");
    EXPECT_EQ(pc->ActivePage(), two);
    EXPECT_TRUE(edit->Showing());
    f.Type("Edit1", "typed on page two");
    f.Select("Pages", "general"); // captions compare without '&' and ignoring case
    EXPECT_EQ(pc->ActivePage(), two) << "OnChanging refused";
    EXPECT_EQ(log, (std::vector<std::string>{"changing from One", "hide One", "show Two", "change to Two",
                                             "changing from Two"}));
    EXPECT_THROW(f.Select("Pages", "Nowhere"), EScriptedUIError);
    EXPECT_EQ(edit->Text(), "typed on page two");
}

TEST_F(PageControlTest, HiddenTabsAreSkippedAndCodeChangesRaiseNoEvents) {
    int changes = 0;
    pc->OnChange = [&](rtl::TObject*) { ++changes; };
    two->SetTabVisible(false);
    EXPECT_EQ(pc->TabCaptions(), (std::vector<std::string>{"&General", "Hidden"}));
    EXPECT_EQ(three->TabIndex(), 1);
    TFormDriver f = ui.Drive(form);
    f.Select("Pages", 1);
    EXPECT_EQ(pc->ActivePage(), three);
    EXPECT_EQ(pc->FindNextPage(three, true, true), one);
    EXPECT_EQ(pc->FindNextPage(one, true, false), two);
    pc->SetActivePage(two);
    EXPECT_EQ(pc->ActivePageIndex(), 1);
    EXPECT_EQ(changes, 1) << "setting ActivePage in code raises no OnChange";
    TControlDesc d = f.Describe();
    const TControlDesc* pages = d.Find("Pages");
    ASSERT_NE(pages, nullptr);
    EXPECT_EQ(pages->Items.size(), 2u);
    EXPECT_EQ(pages->ItemIndex, -1) << "the active page's tab is hidden";
    TPageControl other(nullptr);
    EXPECT_THROW(other.SetActivePage(one), rtl::EInvalidOperation);
}

TEST_F(PageControlTest, CtrlTabCyclesAndFreedSheetsLeaveThePageControl) {
    TFormDriver f = ui.Drive(form);
    f.PressKey("Pages", VK_TAB, {ssCtrl});
    EXPECT_EQ(pc->ActivePage(), two);
    f.PressKey("Pages", VK_TAB, {ssCtrl, ssShift});
    EXPECT_EQ(pc->ActivePage(), one);
    three->SetPageIndex(0);
    EXPECT_EQ(pc->Pages(0), three);
    one->Free();
    EXPECT_EQ(pc->PageCount(), 2);
    EXPECT_EQ(pc->ActivePage(), two) << "the page after the removed active one";
    EXPECT_TRUE(two->Showing());
    two->SetTabVisible(false);
    two->SetPageControl(nullptr);
    EXPECT_EQ(pc->ActivePage(), three);
    three->SetPageControl(nullptr);
    EXPECT_EQ(pc->ActivePage(), nullptr);
    three->SetPageControl(pc);
    EXPECT_EQ(pc->ActivePage(), three) << "the first page to join an empty page control shows";
    EXPECT_THROW(pc->Pages(1), rtl::EListError);
    EXPECT_THROW(three->SetParent(form), rtl::EInvalidOperation);
}

TEST(TabControls, FirstTabIsSelectedAndPersonChoicesRaiseEvents) {
    TScriptedUI ui;
    auto* form = NewForm<TForm>(nullptr);
    auto* tabs = Child<TTabControl>(form, form, "Tabs");
    EXPECT_EQ(tabs->TabIndex(), -1);
    tabs->Tabs()->Add("Red");
    tabs->Tabs()->Add("Green");
    EXPECT_EQ(tabs->TabIndex(), 0);
    int changes = 0;
    tabs->OnChange = [&](rtl::TObject*) { ++changes; };
    form->Show();
    TFormDriver f = ui.Drive(form);
    f.Select("Tabs", "green");
    EXPECT_EQ(tabs->TabIndex(), 1);
    EXPECT_EQ(changes, 1);
    tabs->OnChanging = [](rtl::TObject*, bool& allow) { allow = false; };
    f.Select("Tabs", 0);
    EXPECT_EQ(tabs->TabIndex(), 1);
    tabs->Tabs()->Delete(1);
    EXPECT_EQ(tabs->TabIndex(), -1) << "the selected tab went away";
    tabs->SetTabIndex(5);
    EXPECT_EQ(tabs->TabIndex(), -1);
    EXPECT_THROW(f.Select("Tabs", 3), EScriptedUIError);
    form->Free();
}

// ---- Tree views ----------------------------------------------------------------------------------------
class TreeViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        form = NewForm<TForm>(nullptr);
        tv = Child<TTreeView>(form, form, "Tree");
        TTreeNodes* n = tv->Items();
        animals = n->Add(nullptr, "Animals");
        cat = n->AddChild(animals, "Cat");
        dog = n->AddChild(animals, "Dog");
        plants = n->Add(nullptr, "Plants");
        tree = n->AddChildObject(plants, "Tree", &marker);
        form->Show();
    }
    void TearDown() override {
        if (form) form->Free();
    }
    std::vector<std::string> Order() const {
        std::vector<std::string> r;
        for (TTreeNode* n = tv->Items()->GetFirstNode(); n; n = n->GetNext())
            r.push_back(std::string(n->Level(), '.') + n->Text());
        return r;
    }
    TScriptedUI ui;
    TForm* form = nullptr;
    TTreeView* tv = nullptr;
    TTreeNode *animals, *cat, *dog, *plants, *tree;
    int marker = 0;
};

TEST_F(TreeViewTest, NodesKeepTreeOrderAcrossAddInsertMoveAndDelete) {
    EXPECT_EQ(Order(), (std::vector<std::string>{"Animals", ".Cat", ".Dog", "Plants", ".Tree"}));
    EXPECT_EQ(tv->Items()->Count(), 5);
    EXPECT_EQ(tv->Items()->Item(4), tree);
    EXPECT_EQ(tree->AbsoluteIndex(), 4);
    EXPECT_EQ(tree->Data(), &marker);
    EXPECT_EQ(tv->Items()->FindData(&marker), tree);
    TTreeNode* ant = tv->Items()->Insert(cat, "Ant");
    tv->Items()->AddChildFirst(nullptr, "ignored first")->Delete();
    tv->Items()->AddFirst(plants, "Minerals");
    EXPECT_EQ(Order(),
              (std::vector<std::string>{"Minerals", "Animals", ".Ant", ".Cat", ".Dog", "Plants", ".Tree"}));
    EXPECT_EQ(ant->Index(), 0);
    EXPECT_EQ(cat->GetPrevSibling(), ant);
    EXPECT_EQ(dog->GetNext(), plants);
    EXPECT_EQ(plants->GetPrev(), dog);
    dog->MoveTo(tree, naAddChild);
    EXPECT_EQ(dog->Parent(), tree);
    EXPECT_EQ(dog->Path(), "Plants\\Tree\\Dog");
    EXPECT_THROW(plants->MoveTo(dog, naAdd), ETreeViewError) << "a node cannot move below itself";
    std::vector<std::string> deleted;
    tv->OnDeletion = [&](rtl::TObject*, TTreeNode* n) { deleted.push_back(n->Text()); };
    plants->Delete();
    EXPECT_EQ(deleted, (std::vector<std::string>{"Dog", "Tree", "Plants"})) << "children go first";
    EXPECT_EQ(Order(), (std::vector<std::string>{"Minerals", "Animals", ".Ant", ".Cat"}));
    EXPECT_THROW(tv->Items()->Item(4), rtl::EListError);
}

TEST_F(TreeViewTest, PersonSelectsByPathExpandingParentsWithEvents) {
    std::vector<std::string> log;
    tv->OnExpanding = [&](rtl::TObject*, TTreeNode* n, bool& allow) {
        log.push_back("expanding " + n->Text());
    };
    tv->OnChanging = [&](rtl::TObject*, TTreeNode* n, bool& allow) {
        log.push_back("changing to " + n->Text());
        allow = n != cat;
    };
    tv->OnChange = [&](rtl::TObject*, TTreeNode* n) { log.push_back("change to " + n->Text()); };
    tv->OnClick = [&](rtl::TObject*) { log.push_back("click"); };
    TFormDriver f = ui.Drive(form);
    f.Select("Tree", "plants\\TREE");
    EXPECT_TRUE(tree->Selected());
    EXPECT_TRUE(plants->Expanded());
    f.Select("Tree", "Animals\\Cat");
    EXPECT_EQ(tv->Selected(), tree) << "OnChanging refused the cat";
    EXPECT_EQ(log, (std::vector<std::string>{"expanding Plants", "changing to Tree", "change to Tree",
                                             "click", "expanding Animals", "changing to Cat", "click"}));
    EXPECT_THROW(f.Select("Tree", "Animals\\Cow"), EScriptedUIError);
    f.Select("Tree", 2);
    EXPECT_EQ(tv->Selected(), dog);
    TControlDesc d = f.Describe();
    const TControlDesc* desc = d.Find("Tree");
    ASSERT_EQ(desc->Nodes.size(), 2u);
    EXPECT_TRUE(desc->Nodes[0].Children[1].Selected);
    EXPECT_TRUE(desc->Nodes[0].Expanded);
    EXPECT_EQ(desc->ItemIndex, 2);
}

TEST_F(TreeViewTest, CollapsingOrDeletingTheSelectionMovesIt) {
    int changes = 0;
    tv->OnChange = [&](rtl::TObject*, TTreeNode*) { ++changes; };
    cat->SetSelected(true);
    EXPECT_EQ(changes, 1) << "selecting in code raises OnChange, as on the platform";
    animals->Collapse(false);
    EXPECT_EQ(tv->Selected(), animals);
    EXPECT_FALSE(animals->Expanded());
    dog->SetSelected(true);
    dog->Delete();
    EXPECT_EQ(tv->Selected(), cat) << "no next sibling: the previous one";
    animals->Delete();
    EXPECT_EQ(tv->Selected(), plants) << "the selection leaves a deleted subtree once";
    tv->Items()->Clear();
    EXPECT_EQ(tv->Selected(), nullptr);
    EXPECT_EQ(tv->Items()->Count(), 0);
    tree = nullptr;
}

TEST_F(TreeViewTest, ExpansionCanBeRefusedAndFilledOnDemand) {
    TTreeNode* lazy = tv->Items()->Add(nullptr, "Lazy");
    lazy->SetHasChildren(true);
    tv->OnExpanding = [&](rtl::TObject*, TTreeNode* n, bool& allow) {
        if (n == lazy && n->Count() == 0) tv->Items()->AddChild(n, "Loaded");
        if (n == plants) allow = false;
    };
    lazy->Expand(false);
    EXPECT_TRUE(lazy->Expanded());
    EXPECT_EQ(lazy->Item(0)->Text(), "Loaded");
    plants->SetExpanded(true);
    EXPECT_FALSE(plants->Expanded());
    cat->SetExpanded(true);
    EXPECT_FALSE(cat->Expanded()) << "a node without children does not expand";
    tv->OnExpanding = nullptr;
    TFormDriver f = ui.Drive(form);
    f.Select("Tree", "Plants");
    f.DblClick("Tree");
    EXPECT_TRUE(plants->Expanded());
    f.PressKey("Tree", VK_LEFT);
    EXPECT_FALSE(plants->Expanded());
    f.PressKey("Tree", VK_DOWN);
    EXPECT_EQ(tv->Selected(), lazy);
}

TEST_F(TreeViewTest, SortingEditingAndImageIndexes) {
    tv->Items()->AddChild(animals, "Bee");
    tv->SetSortType(stText);
    EXPECT_EQ(Order(), (std::vector<std::string>{"Animals", ".Bee", ".Cat", ".Dog", "Plants", ".Tree"}));
    tv->Items()->AddChild(animals, "Ape");
    EXPECT_EQ(animals->Item(0)->Text(), "Ape");
    TFormDriver f = ui.Drive(form);
    f.Select("Tree", "Animals\\Cat");
    tv->OnEdited = [](rtl::TObject*, TTreeNode*, std::string& s) { s += "fish"; };
    f.Type("Tree", "Eel");
    EXPECT_EQ(cat->Text(), "Eelfish");
    EXPECT_EQ(animals->Item(3), cat) << "renaming keeps the sort";
    tv->SetReadOnly(true);
    EXPECT_THROW(f.Type("Tree", "x"), EScriptedUIError);
    EXPECT_EQ(cat->ImageIndex(), 0);
    EXPECT_EQ(cat->StateIndex(), -1);
    EXPECT_EQ(cat->OverlayIndex(), -1);
    tv->OnGetImageIndex = [](rtl::TObject*, TTreeNode* n) { n->SetImageIndex(n->Level() + 10); };
    tv->OnGetSelectedIndex = [](rtl::TObject*, TTreeNode* n) { n->SetSelectedIndex(99); };
    EXPECT_EQ(tv->NodeImageIndex(dog), 11);
    EXPECT_EQ(tv->NodeImageIndex(cat), 99);
}

TEST(TreeNodeData, BinaryLayoutRoundTripsAndRejectsDamage) {
    TTreeView a(nullptr), b(nullptr);
    TTreeNode* root = a.Items()->Add(nullptr, "Root");
    TTreeNode* kid = a.Items()->AddChild(root, std::string(300, 'k')); // longer than a length byte holds
    kid->SetImageIndex(3);
    kid->SetSelectedIndex(4);
    kid->SetStateIndex(5);
    kid->SetOverlayIndex(1);
    a.Items()->AddChild(kid, "Grandchild");
    a.Items()->Add(nullptr, "Second");
    std::vector<uint8_t> data;
    a.Items()->WriteData(data);
    ASSERT_GE(data.size(), 4u);
    EXPECT_EQ(data[0], 2) << "two top-level nodes";
    EXPECT_EQ(data[4], 25 + 4) << "the record size of \"Root\"";
    b.Items()->ReadData(data);
    ASSERT_EQ(b.Items()->Count(), 4);
    TTreeNode* kid2 = b.Items()->Item(1);
    EXPECT_EQ(kid2->Text().size(), 300u);
    EXPECT_EQ(kid2->ImageIndex(), 3);
    EXPECT_EQ(kid2->SelectedIndex(), 4);
    EXPECT_EQ(kid2->StateIndex(), 5);
    EXPECT_EQ(kid2->OverlayIndex(), 1);
    EXPECT_EQ(b.Items()->Item(2)->Parent(), kid2);
    std::vector<uint8_t> cut(data.begin(), data.end() - 3);
    EXPECT_THROW(b.Items()->ReadData(cut), rtl::EReadError);
    std::vector<uint8_t> huge = data;
    huge[0] = 0xFF;
    huge[3] = 0x7F;
    EXPECT_THROW(b.Items()->ReadData(huge), rtl::EReadError);
    EXPECT_EQ(b.Items()->Count(), 4) << "bad data leaves the nodes as they were";
}

// ---- Tool bars -----------------------------------------------------------------------------------------
class ToolBarTest : public ::testing::Test {
protected:
    void SetUp() override {
        form = NewForm<TForm>(nullptr);
        form->SetClientWidth(400);
        bar = Child<TToolBar>(form, form, "Bar");
        form->Show();
    }
    void TearDown() override { form->Free(); }
    TToolButton* Button(const char* name, TToolButtonStyle style = tbsButton) {
        auto* b = new TToolButton(form);
        b->SetName(name);
        b->SetStyle(style);
        b->SetParent(bar);
        return b;
    }
    TScriptedUI ui;
    TForm* form = nullptr;
    TToolBar* bar = nullptr;
};

TEST_F(ToolBarTest, GroupedCheckButtonsGoDownOneAtATime) {
    TToolButton* left = Button("Left", tbsCheck);
    TToolButton* center = Button("Center", tbsCheck);
    TToolButton* right = Button("Right", tbsCheck);
    Button("Sep", tbsSeparator);
    TToolButton* bold = Button("Bold", tbsCheck);
    for (TToolButton* b : {left, center, right, bold})
        b->SetGrouped(true);
    EXPECT_EQ(left->Group().size(), 3u) << "the separator ends the group";
    int clicks = 0;
    center->OnClick = [&](rtl::TObject*) { ++clicks; };
    TFormDriver f = ui.Drive(form);
    f.Click("Left");
    f.Click("Center");
    EXPECT_FALSE(left->Down());
    EXPECT_TRUE(center->Down());
    f.Click("Center");
    EXPECT_TRUE(center->Down()) << "the group does not allow all up";
    EXPECT_EQ(clicks, 2);
    right->SetAllowAllUp(true);
    EXPECT_TRUE(left->AllowAllUp());
    f.Click("Center");
    EXPECT_FALSE(center->Down());
    f.Click("Bold");
    f.Click("Right");
    EXPECT_TRUE(bold->Down()) << "a group of its own";
    EXPECT_TRUE(right->Down());
    EXPECT_THROW(f.Click("Sep"), EScriptedUIError);
    TControlDesc d = f.Describe();
    EXPECT_EQ(d.Find("Right")->Checked, std::optional<bool>(true));
    EXPECT_EQ(d.Find("Left")->Checked, std::optional<bool>(false));
}

TEST_F(ToolBarTest, UngroupedCheckButtonsToggleAndDropDownsShowTheirMenu) {
    TToolButton* check = Button("Check", tbsCheck);
    auto* menu = new TPopupMenu(form);
    menu->SetName("Menu1");
    TToolButton* drop = Button("Drop", tbsDropDown);
    drop->SetDropdownMenu(menu);
    TFormDriver f = ui.Drive(form);
    f.Click("Check");
    EXPECT_TRUE(check->Down());
    f.Click("Check");
    EXPECT_FALSE(check->Down());
    f.Click("Drop");
    ASSERT_EQ(ui.Popups().size(), 1u);
    EXPECT_EQ(ui.Popups()[0], "Menu1");
    EXPECT_EQ(menu->PopupComponent(), drop);
    int clicks = 0;
    drop->OnClick = [&](rtl::TObject*) { ++clicks; };
    f.Click("Drop");
    EXPECT_EQ(clicks, 1) << "with a handler the button part clicks";
    EXPECT_EQ(ui.Popups().size(), 1u);
    menu->Free();
    EXPECT_EQ(drop->DropdownMenu(), nullptr);
}

TEST_F(ToolBarTest, ButtonsWrapIntoRowsAndAutoSizeFollows) {
    bar->SetAutoSize(true);
    std::vector<TToolButton*> buttons;
    for (int i = 0; i < 20; ++i)
        buttons.push_back(Button(("B" + std::to_string(i)).c_str()));
    TToolButton* sep = Button("Sep", tbsSeparator);
    EXPECT_EQ(sep->Width(), 8);
    EXPECT_EQ(buttons[0]->BoundsRect(), Rect(0, 2, 23, 24)) << "below the top edge";
    EXPECT_EQ(buttons[1]->Left(), 23);
    // 400 pixels take 17 buttons of 23; the 18th starts a second row.
    EXPECT_EQ(buttons[16]->Top(), 2);
    EXPECT_EQ(buttons[17]->BoundsRect(), Rect(0, 24, 23, 46));
    EXPECT_EQ(bar->RowCount(), 2);
    EXPECT_EQ(bar->Height(), 2 + 2 * 22);
    buttons[2]->SetWrap(true);
    EXPECT_EQ(buttons[3]->Left(), 0);
    EXPECT_EQ(buttons[3]->Top(), 24);
    EXPECT_EQ(buttons[19]->Top(), 24) << "the rest fit on the second row";
    EXPECT_EQ(sep->Top(), 24) << "a separator never starts a row";
    buttons[10]->SetWrap(true);
    EXPECT_EQ(buttons[11]->BoundsRect(), Rect(0, 46, 23, 68));
    EXPECT_EQ(bar->RowCount(), 3);
    EXPECT_EQ(bar->Height(), 2 + 3 * 22);
    buttons[10]->SetWrap(false);
    bar->SetWrapable(false);
    buttons[2]->SetWrap(false);
    EXPECT_EQ(bar->RowCount(), 1);
    EXPECT_EQ(bar->Height(), 24);
    bar->SetIndent(5);
    bar->SetButtonWidth(30);
    EXPECT_EQ(buttons[1]->BoundsRect(), Rect(35, 2, 65, 24));
    bar->SetShowCaptions(true);
    buttons[0]->SetCaption("A much longer caption");
    EXPECT_GT(buttons[1]->Width(), 30) << "every button takes the widest caption";
    EXPECT_EQ(buttons[1]->Width(), buttons[0]->Width());
    buttons[1]->Free();
    EXPECT_EQ(bar->ButtonCount(), 20);
    EXPECT_EQ(buttons[2]->Left(), 5 + buttons[0]->Width());
}

// ---- Status bars ---------------------------------------------------------------------------------------
TEST(StatusBars, PanelsShowTextsSideBySideAndSimpleTextReplacesThem) {
    TScriptedUI ui;
    auto* form = NewForm<TForm>(nullptr);
    form->SetBounds(0, 0, 300, 200);
    auto* sb = Child<TStatusBar>(form, form, "Status");
    EXPECT_EQ(sb->Align(), alBottom);
    EXPECT_EQ(sb->Top() + sb->Height(), form->ClientHeight());
    TStatusPanel* p1 = sb->Panels()->Add();
    p1->SetText("Ready");
    p1->SetWidth(100);
    TStatusPanel* p2 = sb->Panels()->Add();
    p2->SetText("Line 1");
    EXPECT_EQ(p2->Width(), 50);
    EXPECT_EQ(p2->Bevel(), pbLowered);
    EXPECT_EQ(sb->PanelRect(0), Rect(0, 0, 100, sb->Height()));
    EXPECT_EQ(sb->PanelRect(1).Right, sb->ClientWidth()) << "the last panel runs to the right edge";
    EXPECT_EQ(sb->PanelAt(150), 1);
    EXPECT_THROW(sb->PanelRect(2), rtl::EListError);
    form->Show();
    TFormDriver f = ui.Drive(form);
    EXPECT_EQ(f.Describe().Find("Status")->Items, (std::vector<std::string>{"Ready", "Line 1"}));
    sb->SetSimplePanel(true);
    sb->SetSimpleText("Saving...");
    EXPECT_EQ(f.Describe().Find("Status")->Items, (std::vector<std::string>{"Saving..."}));
    EXPECT_EQ(sb->PanelAt(10), -1);
    EXPECT_FALSE(sb->ShowHintText("ignored"));
    sb->SetAutoHint(true);
    sb->SetSimplePanel(false);
    int hints = 0;
    sb->OnHint = [&](rtl::TObject*) { ++hints; };
    EXPECT_TRUE(sb->ShowHintText("Opens a file"));
    EXPECT_EQ(p1->Text(), "Opens a file");
    EXPECT_EQ(hints, 1);
    form->Free();
}

// ---- Value controls ------------------------------------------------------------------------------------
TEST(ValueControls, ProgressTrackAndUpDownKeepTheirRanges) {
    TScriptedUI ui;
    auto* form = NewForm<TForm>(nullptr);
    auto* progress = Child<TProgressBar>(form, form, "Progress");
    progress->SetPosition(95);
    progress->StepIt();
    EXPECT_EQ(progress->Position(), 4) << "stepping past Max starts again at Min";
    progress->SetPosition(500);
    EXPECT_EQ(progress->Position(), 100);
    EXPECT_EQ(progress->Percent(), 100);
    EXPECT_THROW(progress->SetMin(101), rtl::EInvalidOperation);

    auto* track = Child<TTrackBar>(form, form, "Track");
    int changes = 0;
    track->OnChange = [&](rtl::TObject*) { ++changes; };
    track->SetMin(20);
    EXPECT_EQ(track->Min(), 0) << "a minimum above the maximum is ignored";
    track->SetFrequency(5);
    EXPECT_EQ(track->Ticks(), (std::vector<int>{0, 5, 10}));
    auto* edit = Child<TEdit>(form, form, "Count");
    edit->SetBounds(10, 10, 100, 21);
    auto* updown = Child<TUpDown>(form, form, "Spin");
    updown->SetMax(2000);
    updown->SetIncrement(600);
    updown->SetAssociate(edit);
    EXPECT_EQ(edit->Width(), 100 - updown->Width()) << "the buttons take the right end of the edit";
    EXPECT_EQ(updown->Left(), edit->Left() + edit->Width());
    EXPECT_EQ(edit->Text(), "0");
    auto* other = Child<TUpDown>(form, form, "Other");
    EXPECT_THROW(other->SetAssociate(edit), rtl::EInvalidOperation);
    std::vector<TUDBtnType> clicks;
    updown->OnClick = [&](rtl::TObject*, TUDBtnType b) { clicks.push_back(b); };

    form->Show();
    TFormDriver f = ui.Drive(form);
    f.SetValue("Track", 7);
    f.SetValue("Track", 70);
    EXPECT_EQ(track->Position(), 10);
    EXPECT_EQ(changes, 2);
    f.PressKey("Track", VK_HOME);
    EXPECT_EQ(track->Position(), 0);
    updown->UserClickButton(btNext);
    updown->UserClickButton(btNext);
    EXPECT_EQ(edit->Text(), "1,200");
    for (int i = 0; i < 3; ++i)
        updown->UserClickButton(btNext);
    EXPECT_EQ(updown->Position(), 2000);
    updown->SetWrap(true);
    updown->UserClickButton(btNext);
    EXPECT_EQ(updown->Position(), 0) << "Wrap goes round to Min";
    EXPECT_EQ(clicks.size(), 6u);
    updown->OnChanging = [](rtl::TObject*, bool& allow) { allow = false; };
    f.SetValue("Spin", 50);
    EXPECT_EQ(updown->Position(), 0);
    EXPECT_EQ(f.Describe().Find("Progress")->Value, std::optional<int>(100));
    edit->Free();
    EXPECT_EQ(updown->Associate(), nullptr);
    form->Free();
}

// ---- Dates ---------------------------------------------------------------------------------------------
TEST(Dates, EncodeDecodeAndPickerFormats) {
    EXPECT_EQ(EncodeDate(1899, 12, 30), 0.0);
    EXPECT_EQ(EncodeDate(2000, 1, 1), 36526.0);
    EXPECT_THROW(EncodeDate(2023, 2, 29), rtl::EConvertError);
    int y, m, d, h, mi, s, ms;
    DecodeDate(45000.75, y, m, d);
    DecodeTime(45000.75, h, mi, s, ms);
    EXPECT_EQ((std::vector<int>{y, m, d, h, mi, s}), (std::vector<int>{2023, 3, 15, 18, 0, 0}));
    TDateTime v = EncodeDate(2024, 2, 29) + EncodeTime(14, 5, 9);
    EXPECT_EQ(FormatPickerDateTime("dddd, MMMM d, yyyy 'at' h:mm tt", v),
              "Thursday, February 29, 2024 at 2:05 PM");
    EXPECT_EQ(FormatPickerDateTime("ddd dd-MMM-yy HH:mm:ss", v), "Thu 29-Feb-24 14:05:09");
    TDateTime parsed = 0;
    ASSERT_TRUE(ParsePickerDateTime("d MMMM yyyy", "7 june 2021", parsed));
    EXPECT_EQ(parsed, EncodeDate(2021, 6, 7));
    ASSERT_TRUE(ParsePickerDateTime("h:mm tt", "12:30 AM", parsed));
    EXPECT_EQ(parsed, EncodeDate(2021, 6, 7) + EncodeTime(0, 30, 0)) << "the date part is kept";
    EXPECT_FALSE(ParsePickerDateTime("yyyy-MM-dd", "2021-02-30", parsed));
    EXPECT_FALSE(ParsePickerDateTime("yyyy-MM-dd", "2021-02-03x", parsed));
    EXPECT_EQ(parsed, EncodeDate(2021, 6, 7) + EncodeTime(0, 30, 0)) << "a failed read changes nothing";
}

TEST(Dates, PickerAndCalendarTakeAPersonsChoice) {
    TScriptedUI ui;
    auto* form = NewForm<TForm>(nullptr);
    auto* picker = Child<TDateTimePicker>(form, form, "Picker");
    picker->SetDateTime(EncodeDate(2020, 5, 17) + EncodeTime(8, 30, 0));
    picker->SetShowCheckbox(true);
    picker->SetMinDate(EncodeDate(2020, 1, 1));
    int changes = 0;
    picker->OnChange = [&](rtl::TObject*) { ++changes; };
    auto* cal = Child<TMonthCalendar>(form, form, "Calendar");
    cal->SetDate(EncodeDate(2021, 2, 10));
    form->Show();
    TFormDriver f = ui.Drive(form);
    EXPECT_EQ(picker->Text(), "2020-05-17");
    f.Type("Picker", "2021-12-24");
    EXPECT_EQ(picker->Date(), EncodeDate(2021, 12, 24));
    EXPECT_EQ(picker->Time(), EncodeTime(8, 30, 0)) << "typing a date keeps the time";
    EXPECT_THROW(f.Type("Picker", "2019-12-24"), EScriptedUIError) << "before MinDate";
    EXPECT_THROW(f.Type("Picker", "someday"), EScriptedUIError);
    f.Check("Picker", false);
    EXPECT_FALSE(picker->Checked());
    EXPECT_EQ(changes, 2);
    picker->SetKind(dtkTime);
    f.Type("Picker", "17:45");
    EXPECT_EQ(picker->Text(), "17:45:00");
    picker->SetFormat("h:mm tt");
    EXPECT_EQ(picker->Text(), "5:45 PM");
    EXPECT_EQ(f.Describe().Find("Picker")->Checked, std::optional<bool>(true)) << "typing checks the value";

    int clicks = 0;
    cal->OnClick = [&](rtl::TObject*) { ++clicks; };
    f.Select("Calendar", 28);
    EXPECT_EQ(cal->Date(), EncodeDate(2021, 2, 28));
    EXPECT_THROW(f.Select("Calendar", 29), EScriptedUIError) << "2021 has no February 29";
    cal->SetMaxDate(EncodeDate(2021, 3, 1));
    f.Select("Calendar", "2021-03-01");
    EXPECT_THROW(f.Select("Calendar", "2021-03-02"), EScriptedUIError);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(f.Describe().Find("Calendar")->Caption, "2021-03-01");
    form->Free();
}

// ---- Rich edits and list views -----------------------------------------------------------------------
TEST(RichEdits, KeepRichTextAsTextAndGivePlainText) {
    TRichEdit re(nullptr);
    re.Lines()->Add("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red255\\green0\\blue0;}");
    re.Lines()->Add("\\f0 Hello \\b bold\\b0  caf\\'e9\\par");
    re.Lines()->Add("Second \\{line\\} \\u8364?\\par}");
    EXPECT_TRUE(re.IsRichText());
    EXPECT_EQ(re.Lines()->Count(), 3) << "the markup stays in the lines";
    EXPECT_EQ(re.PlainTextOf(), "Hello bold caf\xC3\xA9\r\nSecond {line} \xE2\x82\xAC");
    re.SetText("plain\r\ntext");
    EXPECT_FALSE(re.IsRichText());
    EXPECT_EQ(re.PlainTextOf(), "plain\r\ntext");
}

TEST(ListViews, ItemsWithSubItemsSelectionAndReportDescription) {
    TScriptedUI ui;
    auto* form = NewForm<TForm>(nullptr);
    auto* lv = Child<TListView>(form, form, "Files");
    lv->SetViewStyle(vsReport);
    lv->Columns()->Add()->SetCaption("Name");
    lv->Columns()->Add()->SetCaption("Size");
    for (auto [name, size] : {std::pair{"a.txt", "10"}, {"b.bmp", "2048"}, {"c.dfm", "77"}}) {
        TListItem* i = lv->Items()->Add();
        i->SetCaption(name);
        i->SubItems()->Add(size);
    }
    std::vector<std::string> log;
    lv->OnSelectItem = [&](rtl::TObject*, TListItem* i, bool sel) {
        log.push_back((sel ? "+" : "-") + i->Caption());
    };
    form->Show();
    TFormDriver f = ui.Drive(form);
    f.Select("Files", "b.bmp");
    f.Select("Files", 0);
    EXPECT_EQ(log, (std::vector<std::string>{"+b.bmp", "-b.bmp", "+a.txt"}));
    EXPECT_THROW(f.SelectMulti("Files", {0, 2}), EScriptedUIError);
    lv->SetMultiSelect(true);
    f.SelectMulti("Files", {2, 1});
    EXPECT_EQ(lv->SelCount(), 2);
    EXPECT_EQ(lv->Selected(), lv->Items()->Item(1)) << "the first selected in list order";
    TControlDesc d = *f.Describe().Find("Files");
    EXPECT_EQ(d.Cells, (std::vector<std::vector<std::string>>{
                           {"Name", "Size"}, {"a.txt", "10"}, {"b.bmp", "2048"}, {"c.dfm", "77"}}));
    EXPECT_EQ(d.SelectedItems, (std::vector<int>{1, 2}));
    lv->Items()->Item(1)->Delete();
    EXPECT_EQ(lv->SelCount(), 1);
    form->Free();
}

// ---- Form files ----------------------------------------------------------------------------------------
class CommonControlsStreaming : public ::testing::Test {
protected:
    void SetUp() override {
        std::vector<rtl::TClass> classes = CommonControlClasses();
        for (rtl::TClass c :
             {TForm::StaticClass(), TNotebook::StaticClass(), TPage::StaticClass(), TButton::StaticClass(),
              TLabel::StaticClass(), TEdit::StaticClass(), TPopupMenu::StaticClass(), TTimer::StaticClass(),
              TSplitter::StaticClass(), TPaintBox::StaticClass(), TPanel::StaticClass()})
            classes.push_back(c);
        for (rtl::TClass c : classes)
            if (!rtl::GetClass(c->ClassName())) {
                rtl::RegisterClass(c);
                registered.push_back(c);
            }
    }
    void TearDown() override {
        for (rtl::TClass c : registered)
            rtl::UnRegisterClass(c);
    }
    std::vector<rtl::TClass> registered;
};

TEST_F(CommonControlsStreaming, NotebookPagesTreeAndPanelsReadBackToTheSameTree) {
    auto* form = NewForm<TForm>(nullptr);
    form->SetName("Form1");
    auto* nb = Child<TNotebook>(form, form, "Book");
    nb->Pages()->Put(0, "Start");
    nb->Pages()->Add("Finish");
    auto* finish = Child<TButton>(form, nb->Page(1), "FinishBtn");
    finish->SetCaption("Done");
    nb->SetPageIndex(1);

    auto* pc = Child<TPageControl>(form, form, "Pages");
    pc->SetBounds(0, 200, 300, 150);
    Sheet(form, pc, "General", "&General");
    TTabSheet* adv = Sheet(form, pc, "Advanced", "Advanced");
    adv->SetImageIndex(2);
    Child<TLabel>(form, adv, "Label1")->SetCaption("Deep inside");
    pc->SetActivePage(adv);

    auto* tv = Child<TTreeView>(form, form, "Tree");
    TTreeNode* a = tv->Items()->Add(nullptr, "Alpha");
    tv->Items()->AddChild(a, "Beta")->SetImageIndex(7);
    tv->Items()->Add(nullptr, "Gamma");
    tv->SetShowLines(false);

    auto* sb = Child<TStatusBar>(form, form, "Status");
    sb->Panels()->Add()->SetText("One");
    TStatusPanel* p = sb->Panels()->Add();
    p->SetText("Two");
    p->SetWidth(120);
    p->SetAlignment(taCenter);

    auto* bar = Child<TToolBar>(form, form, "Bar");
    auto* menu = new TPopupMenu(form);
    menu->SetName("BarMenu");
    for (const char* name : {"ToolA", "ToolB", "ToolC"}) {
        auto* b = new TToolButton(form);
        b->SetName(name);
        b->SetParent(bar);
    }
    bar->Buttons(1)->SetStyle(tbsCheck);
    bar->Buttons(1)->SetDown(true);
    bar->Buttons(2)->SetStyle(tbsDropDown);
    bar->Buttons(2)->SetDropdownMenu(menu);
    auto* picker = Child<TDateTimePicker>(form, form, "When");
    picker->SetDateTime(EncodeDate(2022, 8, 9) + EncodeTime(10, 11, 12));
    auto* timer = new TTimer(form);
    timer->SetName("Tick");
    timer->SetInterval(250);
    auto* tabs = Child<TTabControl>(form, form, "Tabs");
    tabs->Tabs()->Add("Left");
    tabs->Tabs()->Add("Right");
    tabs->SetTabIndex(1);
    auto* count = Child<TEdit>(form, form, "Count");
    count->SetBounds(10, 10, 80, 21);
    auto* spin = Child<TUpDown>(form, form, "Spin");
    spin->SetPosition(42);
    spin->SetAssociate(count);
    auto* files = Child<TListView>(form, form, "Files");
    files->SetViewStyle(vsReport);
    files->Columns()->Add()->SetCaption("Name");
    files->Columns()->Add()->SetWidth(80);
    TListItem* item = files->Items()->Add();
    item->SetCaption("readme.txt");
    item->SubItems()->Add("12 KB");
    item->SubItems()->Add(std::string(400, 'x')); // past what a length byte holds
    files->Items()->Add()->SetCaption("empty");

    std::string text = rtl::WriteComponentText(form);
    for (const char* expected :
         {"object Pages: TPageControl", "ActivePage = Advanced", "object Advanced: TTabSheet",
          "object Label1: TLabel", "Items.Data = {", "Panels = <", "Alignment = taCenter", "object TPage",
          "Caption = 'Finish'", "PageIndex = 1", "DropdownMenu = BarMenu", "Interval = 250"})
        EXPECT_NE(text.find(expected), std::string::npos) << expected << "\n" << text;

    auto* copy = new TForm(nullptr);
    rtl::ReadComponentText(text, nullptr, copy);
    EXPECT_EQ(rtl::WriteComponentText(copy), text);

    auto* nb2 = dynamic_cast<TNotebook*>(copy->FindComponent("Book"));
    ASSERT_NE(nb2, nullptr);
    EXPECT_EQ(nb2->PageCount(), 2) << "the notebook's own first page is replaced, not kept beside";
    EXPECT_EQ(nb2->Page(1)->Caption(), "Finish");
    EXPECT_EQ(nb2->Page(0)->Owner(), nb2) << "pages belong to their notebook";
    EXPECT_EQ(nb2->PageIndex(), 1);
    EXPECT_TRUE(nb2->Page(1)->Visible());
    EXPECT_FALSE(nb2->Page(0)->Visible());
    EXPECT_EQ(copy->FindComponent("FinishBtn")->GetParentComponent(), nb2->Page(1));
    auto* pc2 = dynamic_cast<TPageControl*>(copy->FindComponent("Pages"));
    ASSERT_EQ(pc2->PageCount(), 2);
    EXPECT_EQ(pc2->ActivePage()->Name(), "Advanced");
    EXPECT_EQ(pc2->ActivePage()->ImageIndex(), 2);
    EXPECT_FALSE(pc2->Pages(0)->Visible());
    auto* tv2 = dynamic_cast<TTreeView*>(copy->FindComponent("Tree"));
    ASSERT_EQ(tv2->Items()->Count(), 3);
    EXPECT_EQ(tv2->Items()->Item(1)->Path(), "Alpha\\Beta");
    EXPECT_EQ(tv2->Items()->Item(1)->ImageIndex(), 7);
    auto* sb2 = dynamic_cast<TStatusBar*>(copy->FindComponent("Status"));
    ASSERT_EQ(sb2->Panels()->Count(), 2);
    EXPECT_EQ(sb2->Panels()->Items(1)->Width(), 120);
    auto* bar2 = dynamic_cast<TToolBar*>(copy->FindComponent("Bar"));
    ASSERT_EQ(bar2->ButtonCount(), 3);
    EXPECT_TRUE(bar2->Buttons(1)->Down());
    EXPECT_EQ(bar2->Buttons(2)->DropdownMenu(), copy->FindComponent("BarMenu"));
    EXPECT_EQ(dynamic_cast<TTabControl*>(copy->FindComponent("Tabs"))->TabIndex(), 1);
    auto* count2 = dynamic_cast<TEdit*>(copy->FindComponent("Count"));
    EXPECT_EQ(count2->Width(), count->Width()) << "reading the association does not shrink the edit again";
    EXPECT_EQ(count2->Text(), "42");
    auto* files2 = dynamic_cast<TListView*>(copy->FindComponent("Files"));
    ASSERT_EQ(files2->Items()->Count(), 2);
    EXPECT_EQ(files2->Items()->Item(0)->SubItems()->Get(1).size(), 400u);
    EXPECT_EQ(files2->Columns()->Items(1)->Width(), 80);
    auto* picker2 = dynamic_cast<TDateTimePicker*>(copy->FindComponent("When"));
    EXPECT_DOUBLE_EQ(picker2->DateTime(), picker->DateTime());
    copy->Free();
    form->Free();
}

TEST_F(CommonControlsStreaming, DamagedNodeDataIsAClearReadError) {
    std::string text = "object Form1: TForm\r\n"
                       "  object Tree: TTreeView\r\n"
                       "    Items.Data = {01000000FF}\r\n"
                       "  end\r\n"
                       "end\r\n";
    auto* form = new TForm(nullptr);
    try {
        rtl::ReadComponentText(text, nullptr, form);
        ADD_FAILURE() << "damaged data was read";
    } catch (const rtl::EReadError& e) {
        EXPECT_NE(std::string(e.Message()).find("Tree.Items.Data"), std::string::npos) << e.Message();
    }
    EXPECT_EQ(form->ComponentCount(), 0) << "nothing of the failed read remains";
    form->Free();
}

} // namespace
