// Tests of the split controls: pane creation and placement, bar positions and limits, rotation and
// exchange, a person's dragging and keys, the flat look, scroll synchronisation, form files, and the
// stand-alone split bar.
#include <gtest/gtest.h>

#include "jex/jexsplit.h"
#include "rtl/streaming.h"
#include "vcl/forms.h"

using namespace jex;
using namespace vcl;

namespace {

class SplitTest : public ::testing::Test {
protected:
    void SetUp() override {
        rtl::RegisterClasses({TForm::StaticClass(), TjexSplitPane::StaticClass(),
                              TjexScrollingSplitPane::StaticClass(), TjexBiSplit::StaticClass(),
                              TjexQuadSplit::StaticClass(), TjexTriSplit::StaticClass(),
                              TjexSMultiSplit::StaticClass(), TEdit::StaticClass()});
        form = new TForm(nullptr);
        form->SetName("Form1");
        form->SetBounds(0, 0, 640, 480);
    }
    void TearDown() override {
        form->Free();
        rtl::UnRegisterClasses({TForm::StaticClass(), TjexSplitPane::StaticClass(),
                                TjexScrollingSplitPane::StaticClass(), TjexBiSplit::StaticClass(),
                                TjexQuadSplit::StaticClass(), TjexTriSplit::StaticClass(),
                                TjexSMultiSplit::StaticClass(), TEdit::StaticClass()});
    }
    template <class S> S* NewSplit(int w = 204, int h = 104, const std::string& name = "Split1") {
        auto* s = new S(form);
        s->SetName(name);
        s->SetParent(form);
        // No border bevel, so that client and slot coordinates are easy to follow.
        s->SetBevelOuter(bvNone);
        s->SetBounds(0, 0, w, h);
        return s;
    }
    static void NamePanes(TjexCustomSplit* s) {
        for (int i = 0; i < s->GetPaneCount(); ++i)
            if (s->GetPane(i)->Name().empty()) s->GetPane(i)->SetName("Pane" + std::to_string(i + 1));
    }
    TForm* form = nullptr;
};

TEST_F(SplitTest, CreatePanesMakesTheMissingPanesOwnedByTheFormAndPlacesThem) {
    auto* s = NewSplit<TjexBiSplit>();
    EXPECT_EQ(s->GetPaneCount(), 0);
    EXPECT_EQ(s->RequiredPaneCount(), 2);
    s->CreatePanes();
    ASSERT_EQ(s->GetPaneCount(), 2);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(s->GetPane(i)->Owner(), form);
        EXPECT_EQ(s->GetPane(i)->Parent(), s);
        EXPECT_EQ(s->GetPane(i)->ClassType(), TjexSplitPane::StaticClass());
        EXPECT_EQ(dynamic_cast<TjexSplitPane*>(s->GetPane(i))->PaneIndex(), i);
    }
    // 204 wide, bar of 4 at 50%: 102 | 4 | 98.
    EXPECT_EQ(s->SplitHPos(), 102);
    EXPECT_EQ(s->GetPane(0)->BoundsRect(), Rect(0, 0, 102, 104));
    EXPECT_EQ(s->GetPane(1)->BoundsRect(), Rect(106, 0, 204, 104));
    // A second call has nothing left to create.
    s->CreatePanes();
    EXPECT_EQ(s->GetPaneCount(), 2);

    auto* q = new TjexSQuadSplit(form);
    q->SetParent(form);
    q->CreatePanes();
    ASSERT_EQ(q->GetPaneCount(), 4);
    EXPECT_EQ(q->GetPane(3)->ClassType(), TjexScrollingSplitPane::StaticClass());
}

TEST_F(SplitTest, PositionsFollowPercentWhenScaledAndStayWhenNot) {
    auto* s = NewSplit<TjexBiSplit>();
    s->CreatePanes();
    s->SetSplitHPercent(25);
    EXPECT_EQ(s->SplitHPos(), 51);
    s->SetWidth(404);
    EXPECT_EQ(s->SplitHPercent(), 25);
    EXPECT_EQ(s->SplitHPos(), 101);
    EXPECT_EQ(s->GetPane(0)->Width(), 101);

    s->SetSplitHScaled(false);
    s->SetSplitHPos(200);
    EXPECT_EQ(s->SplitHPercent(), 49);
    s->SetWidth(804);
    EXPECT_EQ(s->SplitHPos(), 200);
    EXPECT_EQ(s->SplitHPercent(), 24);
    EXPECT_EQ(s->GetPane(1)->Left(), 204);
}

TEST_F(SplitTest, BarsStayWithinTheirLimitsAndTheClientArea) {
    auto* s = NewSplit<TjexBiSplit>();
    s->CreatePanes();
    s->SetSplitHPos(1000);
    EXPECT_EQ(s->SplitHPos(), 200); // 204 - thickness
    s->SetSplitHPos(-5);
    EXPECT_EQ(s->SplitHPos(), 0);
    s->SetSplitHMin(30);
    EXPECT_EQ(s->SplitHPos(), 30);
    s->SetSplitHMax(80);
    s->SetSplitHPos(150);
    EXPECT_EQ(s->SplitHPos(), 80);
    s->SetThickness(10);
    EXPECT_EQ(s->GetPane(1)->Left(), 90);
}

TEST_F(SplitTest, ThreeAndFourPaneLayoutsShareTheAreaWithoutOverlap) {
    auto* t = NewSplit<TjexTriSplit>(104, 104);
    t->CreatePanes();
    ASSERT_EQ(t->GetPaneCount(), 3);
    EXPECT_EQ(t->GetPane(0)->BoundsRect(), Rect(0, 0, 52, 104)); // the big pane on the left
    EXPECT_EQ(t->GetPane(1)->BoundsRect(), Rect(56, 0, 104, 52));
    EXPECT_EQ(t->GetPane(2)->BoundsRect(), Rect(56, 56, 104, 104));
    EXPECT_EQ(t->VBarRect(), Rect(56, 52, 104, 56));
    t->SetLayout(jtlBottom);
    EXPECT_EQ(t->GetPane(2)->BoundsRect(), Rect(0, 56, 104, 104));
    EXPECT_EQ(t->HBarRect(), Rect(52, 0, 56, 52));

    auto* q = new TjexQuadSplit(form);
    q->SetParent(form);
    q->SetBevelOuter(bvNone);
    q->SetBounds(0, 0, 104, 104);
    q->CreatePanes();
    EXPECT_EQ(q->GetPane(3)->BoundsRect(), Rect(56, 56, 104, 104));
    // Fewer slots hide the extra panes; more slots show them again.
    auto* m = NewSplit<TjexSMultiSplit>(204, 104, "Multi1");
    m->SetLayout(jmlQuad);
    m->CreatePanes();
    m->SetLayout(jmlTopBottom);
    EXPECT_FALSE(m->GetPane(2)->Visible());
    EXPECT_TRUE(m->GetPane(1)->Visible());
    m->SetLayout(jmlTriTop);
    EXPECT_TRUE(m->GetPane(2)->Visible());
}

TEST_F(SplitTest, RotationTurnsLayoutBarsAndSlots) {
    auto* s = NewSplit<TjexBiSplit>(204, 204);
    s->CreatePanes();
    TWinControl* left = s->GetPane(0);
    TWinControl* right = s->GetPane(1);
    s->SetSplitHPercent(25);
    s->Rotate(true);
    // Turned clockwise, the left pane is on top and keeps its share.
    EXPECT_EQ(s->Layout(), jblTopBottom);
    EXPECT_EQ(s->GetPane(0), left);
    EXPECT_EQ(s->SplitVPercent(), 25);
    EXPECT_EQ(left->BoundsRect(), Rect(0, 0, 204, 51));
    s->Rotate(true);
    // Another quarter: the top pane goes to the right.
    EXPECT_EQ(s->Layout(), jblLeftRight);
    EXPECT_EQ(s->GetPane(1), left);
    EXPECT_EQ(s->GetPane(0), right);
    EXPECT_EQ(s->SplitHPercent(), 75);

    auto* q = NewSplit<TjexQuadSplit>(204, 204, "Quad1");
    q->CreatePanes();
    std::vector<TWinControl*> before;
    for (int i = 0; i < 4; ++i)
        before.push_back(q->GetPane(i));
    q->Rotate(true);
    // Top-left goes to top-right, top-right to bottom-right, bottom-right to bottom-left.
    EXPECT_EQ(q->GetPane(1), before[0]);
    EXPECT_EQ(q->GetPane(3), before[1]);
    EXPECT_EQ(q->GetPane(2), before[3]);
    EXPECT_EQ(q->GetPane(0), before[2]);
    q->Rotate(false);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(q->GetPane(i), before[i]);

    auto* t = NewSplit<TjexTriSplit>(204, 204, "Tri1");
    t->CreatePanes();
    TWinControl* big = t->GetPane(0);
    t->Rotate(true);
    EXPECT_EQ(t->Layout(), jtlTop);
    EXPECT_EQ(t->GetPane(0), big);
    EXPECT_EQ(big->Width(), 204);
}

TEST_F(SplitTest, ExchangeSwapsSlotsAndRefusesBadIndexes) {
    auto* s = NewSplit<TjexQuadSplit>();
    s->CreatePanes();
    TWinControl* a = s->GetPane(0);
    TWinControl* d = s->GetPane(3);
    TRect slot0 = s->SlotRect(0);
    s->Exchange(0, 3);
    EXPECT_EQ(s->GetPane(0), d);
    EXPECT_EQ(s->GetPane(3), a);
    EXPECT_EQ(d->BoundsRect(), slot0);
    EXPECT_THROW(s->Exchange(0, 4), rtl::EListError);
    EXPECT_EQ(s->GetPane(0), d);
}

TEST_F(SplitTest, APersonDragsAnUnlockedBar) {
    auto* s = NewSplit<TjexQuadSplit>();
    s->CreatePanes();
    int moved = 0;
    s->OnMoved = [&](rtl::TObject*) { ++moved; };
    // Grab the crossing: both bars move.
    TRect h = s->HBarRect(), v = s->VBarRect();
    s->MouseDown(mbLeft, {}, h.Left + 1, v.Top + 1);
    ASSERT_TRUE(s->Dragging());
    s->MouseMove({ssLeft}, h.Left + 21, v.Top - 9);
    EXPECT_EQ(s->SplitHPos(), 122);
    EXPECT_EQ(s->SplitVPos(), 42);
    s->MouseUp(mbLeft, {}, h.Left + 21, v.Top - 9);
    EXPECT_FALSE(s->Dragging());
    EXPECT_GT(moved, 0);

    // Without MoveImmediate the panes wait for the release.
    s->SetMoveImmediate(false);
    s->MouseDown(mbLeft, {}, s->HBarRect().Left, 5);
    s->MouseMove({ssLeft}, s->HBarRect().Left - 50, 5);
    EXPECT_EQ(s->DragHPos(), 72);
    EXPECT_EQ(s->SplitHPos(), 122);
    s->MouseUp(mbLeft, {}, s->HBarRect().Left - 50, 5);
    EXPECT_EQ(s->SplitHPos(), 72);
    EXPECT_EQ(s->GetPane(0)->Width(), 72);

    // A locked bar stays.
    s->SetSplitHLock(true);
    s->MouseDown(mbLeft, {}, s->HBarRect().Left, 5);
    EXPECT_FALSE(s->Dragging());
    uint16_t key = VK_RIGHT;
    s->KeyDown(key, {});
    EXPECT_EQ(s->SplitHPos(), 72);
    key = VK_DOWN;
    s->KeyDown(key, {});
    EXPECT_EQ(s->SplitVPos(), 52);
    EXPECT_EQ(key, 0);
}

TEST_F(SplitTest, FlatStyleClearsTheBordersAndGivesPanesSoftLoweredBevels) {
    auto* s = NewSplit<TjexBiSplit>();
    s->SetBevelOuter(bvRaised);
    s->SetBorderWidth(3);
    s->CreatePanes();
    s->FlatStyle();
    EXPECT_EQ(s->BevelOuter(), bvNone);
    EXPECT_EQ(s->BorderWidth(), 0);
    EXPECT_EQ(s->SplitBevel(), bvNone);
    auto* p = dynamic_cast<TjexSplitPane*>(s->GetPane(0));
    EXPECT_EQ(p->BevelKind(), bkSoft);
    EXPECT_EQ(p->BevelOuter(), bvLowered);
    EXPECT_EQ(p->BevelInner(), bvNone);
    EXPECT_EQ(p->BevelEdges(), (TBevelEdges{beLeft, beTop, beRight, beBottom}));
    // The pane now has bevels all round; its client area is inside them.
    EXPECT_EQ(p->AdjustClientRect(), Rect(2, 2, p->Width() - 2, p->Height() - 2));
}

TEST_F(SplitTest, ScrollingPanesFollowEachOtherWhenSynchronised) {
    auto* s = NewSplit<TjexSMultiSplit>();
    s->SetLayout(jmlQuad);
    s->CreatePanes();
    auto pane = [&](int i) { return dynamic_cast<TjexScrollingSplitPane*>(s->GetPane(i)); };
    pane(0)->ScrollTo(30, 40);
    EXPECT_EQ(pane(2)->HorzScrollBar()->Position(), 0);
    s->SetSyncHScroll(true);
    s->SetSyncVScroll(true);
    pane(0)->ScrollTo(30, 40);
    // Same column: horizontal position; same row: vertical position; the diagonal pane neither.
    EXPECT_EQ(pane(2)->HorzScrollBar()->Position(), 30);
    EXPECT_EQ(pane(2)->VertScrollBar()->Position(), 0);
    EXPECT_EQ(pane(1)->VertScrollBar()->Position(), 40);
    EXPECT_EQ(pane(1)->HorzScrollBar()->Position(), 0);
    EXPECT_EQ(pane(3)->HorzScrollBar()->Position(), 0);
}

TEST_F(SplitTest, AFormFileKeepsPanesTheirOrderAndTheBars) {
    auto* s = NewSplit<TjexTriSplit>(300, 200);
    s->CreatePanes();
    NamePanes(s);
    s->SetLayout(jtlRight);
    s->SetSplitHScaled(false);
    s->SetSplitHPos(123);
    s->SetSplitVPercent(30);
    s->Exchange(0, 2);
    auto* edit = new TEdit(form);
    edit->SetName("Edit1");
    edit->SetParent(s->GetPane(1));
    std::string text = rtl::WriteComponentText(form);
    auto* copy = dynamic_cast<TForm*>(rtl::ReadComponentText(text, nullptr));
    ASSERT_NE(copy, nullptr);
    auto* s2 = dynamic_cast<TjexTriSplit*>(copy->FindComponent("Split1"));
    ASSERT_NE(s2, nullptr);
    EXPECT_EQ(s2->Layout(), jtlRight);
    EXPECT_EQ(s2->SplitHPos(), 123);
    EXPECT_EQ(s2->SplitVPercent(), 30);
    ASSERT_EQ(s2->GetPaneCount(), 3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(s2->GetPane(i)->Name(), s->GetPane(i)->Name());
        EXPECT_EQ(s2->GetPane(i)->BoundsRect(), s->GetPane(i)->BoundsRect());
    }
    EXPECT_EQ(copy->FindComponent("Edit1")->GetParentComponent(), s2->GetPane(1));
    EXPECT_EQ(rtl::WriteComponentText(copy), text);
    copy->Free();
}

TEST_F(SplitTest, TheSplitBarMovesTheNearEdgesOfItsWindows) {
    auto* a = new TEdit(form);
    a->SetName("EditA");
    a->SetParent(form);
    a->SetBounds(0, 0, 100, 50);
    auto* b = new TEdit(form);
    b->SetName("EditB");
    b->SetParent(form);
    b->SetBounds(104, 0, 196, 50);
    auto* bar = new TjexSplitBar(form);
    bar->SetParent(form);
    bar->SetBounds(100, 0, 4, 50);
    bar->SetWindowA(a);
    bar->SetWindowB(b);
    bar->SetPos(150);
    EXPECT_EQ(bar->Left(), 150);
    EXPECT_EQ(a->Width(), 150);
    EXPECT_EQ(b->Left(), 154);
    EXPECT_EQ(b->Left() + b->Width(), 300); // the far edge stays
    EXPECT_EQ(bar->Percent(), 150 * 100 / form->ClientWidth());
    bar->SetMax(120);
    bar->SetPos(200);
    EXPECT_EQ(bar->Pos(), 120);

    // A drag by 10 pixels.
    bar->MouseDown(mbLeft, {}, 2, 10);
    bar->MouseMove({ssLeft}, -8, 10);
    // The bar moved with the mouse, so the mouse is where it grabbed the bar again.
    bar->MouseUp(mbLeft, {}, 2, 10);
    EXPECT_EQ(bar->Pos(), 110);
    EXPECT_EQ(a->Width(), 110);

    bar->SetLayout(jblTopBottom);
    EXPECT_EQ(bar->Height(), 4);
    EXPECT_EQ(bar->Width(), 50);

    b->Free();
    EXPECT_EQ(bar->WindowB(), nullptr);
    EXPECT_EQ(bar->WindowA(), a);
}

} // namespace
