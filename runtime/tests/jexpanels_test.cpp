// Tests of the panels and notebooks: forms shown inside panels and pages, the picture group's layout,
// sizing and moving panels by a person's drags, the speed panel's grid, the hint bar, and paging.
#include <gtest/gtest.h>

#include "jex/jexpanels.h"
#include "rtl/streaming.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

namespace {

class TPanelTestForm : public TForm {
    JEX_CLASS(TPanelTestForm, TForm)
    explicit TPanelTestForm(rtl::TComponent* AOwner) : TForm(AOwner) { SetName("PanelTestForm"); }
};

class PanelsTest : public ::testing::Test {
protected:
    void SetUp() override {
        rtl::RegisterClasses({TPanelTestForm::StaticClass(), TForm::StaticClass(),
                              TjexFormNoteBook::StaticClass(), TPage::StaticClass()});
        form = new TForm(nullptr);
        form->SetName("Form1");
        form->SetBounds(0, 0, 400, 300);
    }
    void TearDown() override {
        form->Free();
        rtl::UnRegisterClasses({TPanelTestForm::StaticClass(), TForm::StaticClass(),
                                TjexFormNoteBook::StaticClass(), TPage::StaticClass()});
    }
    TScriptedUI ui;
    TForm* form = nullptr;
};

TEST_F(PanelsTest, AFormPanelShowsItsFormInside) {
    auto* panel = new TjexFormPanel(form);
    panel->SetParent(form);
    panel->SetBounds(0, 0, 200, 100);
    panel->SetFormName("PanelTestForm");
    TCustomForm* shown = panel->ShowForm();
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->ClassType(), TPanelTestForm::StaticClass());
    EXPECT_EQ(shown->Parent(), panel);
    EXPECT_EQ(shown->BorderStyle(), bsNone);
    EXPECT_EQ(shown->BoundsRect(), panel->AdjustClientRect());
    // A form the panel made goes with it.
    bool destroyed = false;
    shown->OnDestroy = [&](rtl::TObject*) { destroyed = true; };
    panel->Free();
    EXPECT_TRUE(destroyed);

    // A form that was open already is handed back.
    auto* open = NewForm<TPanelTestForm>(nullptr);
    auto* panel2 = new TjexFormPanel(form);
    panel2->SetParent(form);
    panel2->SetFormName("PanelTestForm");
    EXPECT_EQ(panel2->ShowForm(), open);
    panel2->Free();
    EXPECT_EQ(open->Parent(), nullptr);
    EXPECT_FALSE(open->Visible());
    open->Free();

    auto* panel3 = new TjexFormPanel(form);
    panel3->SetFormName("NoSuchForm");
    EXPECT_THROW(panel3->ShowForm(), rtl::EComponentError);
    panel3->SetHandleException(true);
    EXPECT_EQ(panel3->ShowForm(), nullptr);
    ASSERT_FALSE(ui.Messages().empty());
    EXPECT_NE(ui.Messages().back().Request.Text.find("NoSuchForm"), std::string::npos);
}

TEST_F(PanelsTest, ThePictureGroupMakesRoomForItsPictureAndMargins) {
    TjexPictureGroup group(nullptr);
    group.SetBounds(0, 0, 200, 100);
    group.SetCaption("Options");
    int text = TextHeightOf(group.Font());
    EXPECT_EQ(group.AdjustClientRect(), Rect(6, text + 4, 194, 94));
    TBitmap pic;
    pic.SetSize(16, 40);
    group.Picture()->Assign(&pic);
    EXPECT_EQ(group.HeaderHeight(), 40);
    EXPECT_EQ(group.AdjustClientRect().Top, 44);
    EXPECT_EQ(group.PictureRect().Left, 8);
    EXPECT_EQ(group.CaptionRect().Left, 28);
    group.SetAlignPicture(jahRight);
    EXPECT_EQ(group.CaptionRect().Right, 200 - 8);
    group.SetMarginL(10);
    EXPECT_EQ(group.AdjustClientRect().Left, 12);
}

TEST_F(PanelsTest, APersonSizesAnEdgePanelByItsInnerEdge) {
    auto* panel = new TjexEdgePanel(form);
    panel->SetParent(form);
    panel->SetAlign(alLeft);
    EXPECT_EQ(panel->EdgeRect().Left, 96);
    panel->MouseDown(mbLeft, {}, 98, 50);
    ASSERT_TRUE(panel->Sizing());
    panel->MouseMove({ssLeft}, 128, 50);
    panel->MouseUp(mbLeft, {}, 128, 50);
    EXPECT_EQ(panel->Width(), 130);
    panel->SetAlign(alBottom);
    int h = panel->Height();
    panel->MouseDown(mbLeft, {}, 10, 1);
    panel->MouseMove({ssLeft}, 10, -19);
    // The panel's top moved up with the mouse, which is 1 pixel below it again.
    panel->MouseUp(mbLeft, {}, 10, 1);
    EXPECT_EQ(panel->Height(), h + 20);
    panel->MouseDown(mbLeft, {}, 10, 50); // inside, not on the edge
    EXPECT_FALSE(panel->Sizing());
}

TEST_F(PanelsTest, APersonMovesAndSizesADragPanelWithinItsLimits) {
    auto* panel = new TjexDragPanel(form);
    panel->SetParent(form);
    panel->SetBounds(10, 10, 100, 50);
    int moved = 0;
    panel->OnMoved = [&](rtl::TObject*) { ++moved; };
    panel->MouseDown(mbLeft, {}, 20, 20);
    panel->MouseMove({ssLeft}, 50, 30);
    panel->MouseUp(mbLeft, {}, 50, 30);
    EXPECT_EQ(panel->Left(), 40);
    EXPECT_EQ(panel->Top(), 20);
    EXPECT_EQ(moved, 1);
    panel->MoveTo(-50, 1000); // clipped to the parent
    EXPECT_EQ(panel->Left(), 0);
    EXPECT_EQ(panel->Top(), form->ClientHeight() - 50);
    panel->SetMoveMaxLeft(30);
    panel->MoveTo(100, 0);
    EXPECT_EQ(panel->Left(), 30);
    // The corner sizes it.
    panel->MoveTo(0, 0);
    panel->MouseDown(mbLeft, {}, 98, 48);
    panel->MouseMove({ssLeft}, 78, 68);
    panel->MouseUp(mbLeft, {}, 78, 68);
    EXPECT_EQ(panel->Width(), 80);
    EXPECT_EQ(panel->Height(), 70);
    panel->SizeTo(1, 1);
    EXPECT_EQ(panel->Width(), 10);
    panel->SetMSLocked(true);
    panel->SetSizeMaxWidth(50);
    panel->MouseDown(mbLeft, {}, 8, 8);
    panel->MouseMove({ssLeft}, 48, 8); // a move now, not sizing
    panel->MouseUp(mbLeft, {}, 48, 8);
    EXPECT_EQ(panel->Width(), 10);
    EXPECT_EQ(panel->Left(), 30);
    panel->SetLocked(true);
    panel->MouseDown(mbLeft, {}, 5, 5);
    EXPECT_FALSE(panel->Dragging());
}

TEST_F(PanelsTest, TheSpeedPanelArrangesItsControlsInAGrid) {
    auto* panel = new TjexSpeedPanel(form);
    panel->SetParent(form);
    panel->SetBevelOuter(bvNone);
    panel->SetBounds(0, 0, 100, 100);
    std::vector<TPanel*> cells;
    for (int i = 0; i < 5; ++i) {
        auto* c = new TPanel(form);
        c->SetTag(10 - i);
        c->SetParent(panel);
        cells.push_back(c);
    }
    // (100 - 8 + 2) / 27 = 3 columns.
    EXPECT_EQ(panel->ColCount(), 3);
    EXPECT_EQ(panel->RowCount(), 2);
    EXPECT_EQ(cells[0]->BoundsRect(), Rect(4, 4, 29, 29));
    EXPECT_EQ(cells[4]->BoundsRect(), Rect(31, 31, 56, 56));
    panel->SetInsertCols(true);
    EXPECT_EQ(cells[1]->BoundsRect(), Rect(4, 31, 29, 56));
    panel->SetCtrlRows(2);
    EXPECT_EQ(panel->ColCount(), 3);
    EXPECT_EQ(cells[2]->Left(), 31);
    panel->SetSorted(true); // by Tag: the last one first
    EXPECT_EQ(cells[4]->BoundsRect(), Rect(4, 4, 29, 29));
    cells[4]->SetVisible(false);
    panel->ArrangeControls();
    EXPECT_EQ(cells[3]->BoundsRect(), Rect(4, 4, 29, 29));
}

TEST_F(PanelsTest, TheHintBarShowsHintsAsItsSettingsSay) {
    auto* bar = new TjexHintBar(form);
    bar->SetParent(form);
    bar->SetAutoHint(true);
    bar->SetHintPrefix("> ");
    EXPECT_TRUE(bar->DisplayHint("Saves the file"));
    EXPECT_EQ(bar->ShownText(), "> Saves the file");
    bar->SetShowEmpty(false);
    EXPECT_FALSE(bar->DisplayHint(""));
    EXPECT_EQ(bar->ShownText(), "> Saves the file");
    bar->Panels()->Add();
    bar->SetHintSuffix(".");
    bar->DisplayHint("Opens");
    EXPECT_EQ(bar->Panels()->Items(0)->Text(), "> Opens.");
    // At run time the application's hint and the focused control's hint reach it.
    auto* edit = new TEdit(form);
    edit->SetName("Edit1");
    edit->SetParent(form);
    edit->SetHint("Name|The customer's name");
    bar->SetShowActiveControl(true);
    bar->Loaded();
    Application()->SetHint("From the application");
    EXPECT_EQ(bar->ShownText(), "> From the application.");
    form->Show();
    ui.Drive(form).Focus("Edit1");
    EXPECT_EQ(bar->ShownText(), "> The customer's name.");
    Application()->SetHint("");
}

TEST_F(PanelsTest, FormNotebooksShowTheFormOfTheActivePage) {
    auto* nb = new TjexFormNoteBook(form);
    nb->SetName("Book1");
    nb->SetParent(form);
    nb->Forms()->SetText("\nPanelTestForm");
    EXPECT_EQ(nb->PageCount(), 2); // the notebook's own page and one added for the second line
    nb->SetPageIndex(0);
    EXPECT_EQ(nb->ActiveForm(), "");
    nb->SetActiveForm("paneltestform");
    EXPECT_EQ(nb->PageIndex(), 1);
    EXPECT_EQ(nb->ActiveForm(), "PanelTestForm");
    nb->SetFormCreateDestroy(true);
    nb->Loaded(); // run time: the active page's form appears
    TCustomForm* shown = nb->PageForm(1);
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->Parent(), nb->Page(1));
    bool destroyed = false;
    shown->OnDestroy = [&](rtl::TObject*) { destroyed = true; };
    nb->SetPageIndex(0);
    EXPECT_TRUE(destroyed);
    EXPECT_EQ(nb->PageForm(1), nullptr);

    std::string text = rtl::WriteComponentText(form);
    nb->Free();
    auto* copy = rtl::ReadComponentText(text, nullptr);
    auto* nb2 = dynamic_cast<TjexFormNoteBook*>(copy->FindComponent("Book1"));
    ASSERT_NE(nb2, nullptr);
    EXPECT_EQ(nb2->Forms()->Text(), "\r\nPanelTestForm\r\n");
    EXPECT_EQ(nb2->PageCount(), 2);
    EXPECT_TRUE(nb2->FormCreateDestroy());
    // Read at run time, the notebook shows its active page's form again (here none, page 0).
    EXPECT_EQ(nb2->PageForm(0), nullptr);
    copy->Free();
}

TEST_F(PanelsTest, ArrowKeysAndButtonsTurnThePages) {
    auto* nb = new TjexLRTabbedNoteBook(form);
    nb->SetParent(form);
    nb->SetBounds(0, 0, 200, 100);
    nb->Pages()->SetText("One\nTwo\nThree");
    nb->SetPageIndex(0);
    uint16_t key = VK_LEFT;
    nb->KeyDown(key, {});
    EXPECT_EQ(nb->PageIndex(), 2);
    EXPECT_EQ(key, 0);
    key = VK_RIGHT;
    nb->KeyDown(key, {});
    EXPECT_EQ(nb->PageIndex(), 0);
    nb->MouseDown(mbLeft, {}, 195, 95);
    EXPECT_EQ(nb->PageIndex(), 1);
    nb->MouseDown(mbLeft, {}, 175, 95);
    EXPECT_EQ(nb->PageIndex(), 0);
    EXPECT_GT(nb->AdjustClientRect().Top, 0);
}

} // namespace

JEX_IMPLEMENT_CLASS(TPanelTestForm, TForm, "jexpanels_test") {}
