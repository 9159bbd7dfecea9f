// Tests of the page containers: pages joining and leaving frames, the active page and the next page,
// tabs a person chooses, the animated frame's effect, the button bar's layout and buttons, the button
// list's items, and form files with pages.
#include <gtest/gtest.h>

#include "jex/jexpages.h"
#include "rtl/streaming.h"
#include "vcl/forms.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

namespace {

class PagesTest : public ::testing::Test {
protected:
    void SetUp() override {
        rtl::RegisterClasses({TForm::StaticClass(), TjexPage::StaticClass(),
                              TjexFormTabControl::StaticClass(), TjexAnimationFrame::StaticClass(),
                              TjexButtonBar::StaticClass(), TjexButtonPage::StaticClass(),
                              TjexButtonList::StaticClass()});
        form = new TForm(nullptr);
        form->SetName("Form1");
    }
    void TearDown() override {
        form->Free();
        rtl::UnRegisterClasses({TForm::StaticClass(), TjexPage::StaticClass(),
                                TjexFormTabControl::StaticClass(), TjexAnimationFrame::StaticClass(),
                                TjexButtonBar::StaticClass(), TjexButtonPage::StaticClass(),
                                TjexButtonList::StaticClass()});
    }
    template <class Page, class Frame> Page* AddPage(Frame* frame, const std::string& name) {
        auto* p = new Page(form);
        p->SetName(name);
        p->SetParent(frame);
        return p;
    }
    TForm* form = nullptr;
};

TEST_F(PagesTest, TheFirstPageBecomesActiveAndOnlyTheActivePageShows) {
    auto* frame = new TjexFormTabControl(form);
    frame->SetName("Frame1");
    frame->SetParent(form);
    int changes = 0;
    frame->OnChange = [&](rtl::TObject*) { ++changes; };
    auto* a = AddPage<TjexPage>(frame, "PageA");
    auto* b = AddPage<TjexPage>(frame, "PageB");
    auto* c = AddPage<TjexPage>(frame, "PageC");
    EXPECT_EQ(frame->ActivePage(), a);
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(a->Visible());
    EXPECT_FALSE(b->Visible());
    EXPECT_EQ(b->Frame(), frame);
    EXPECT_EQ(c->PageIndex(), 2);
    EXPECT_EQ(a->BoundsRect(), frame->AdjustClientRect());

    EXPECT_EQ(frame->FindNextPage(a, true), b);
    EXPECT_EQ(frame->FindNextPage(c, true), a);
    EXPECT_EQ(frame->FindNextPage(a, false), c);
    EXPECT_EQ(frame->FindNextPage(nullptr, false), c);
    frame->SelectNextPage(false);
    EXPECT_EQ(frame->ActivePage(), c);
    EXPECT_TRUE(c->Visible());
    EXPECT_FALSE(a->Visible());

    auto* other = new TjexAnimationFrame(form);
    other->SetParent(form);
    auto* foreign = AddPage<TjexPage>(other, "PageX");
    EXPECT_THROW(frame->SetActivePage(foreign), rtl::EInvalidOperation);
    EXPECT_EQ(frame->ActivePage(), c);

    c->SetPageIndex(0);
    EXPECT_EQ(frame->Pages(0), c);
    EXPECT_EQ(a->PageIndex(), 1);
    c->Free(); // the active page goes: another takes its place
    EXPECT_EQ(frame->ActivePage(), a);
    EXPECT_EQ(frame->PageCount(), 2);
    b->SetFrame(other);
    EXPECT_EQ(frame->PageCount(), 1);
    EXPECT_EQ(other->PageCount(), 2);
    EXPECT_THROW(frame->Pages(1), rtl::EListError);
}

TEST_F(PagesTest, APersonChoosesATabUnlessOnChangingRefuses) {
    TScriptedUI ui;
    auto* frame = new TjexFormTabControl(form);
    frame->SetName("Tabs1");
    frame->SetParent(form);
    AddPage<TjexPage>(frame, "General")->SetCaption("&General");
    AddPage<TjexPage>(frame, "Advanced")->SetCaption("Advanced");
    EXPECT_EQ(frame->Tabs(), (std::vector<std::string>{"&General", "Advanced"}));
    EXPECT_EQ(frame->AdjustClientRect().Top, frame->TabStripSize());
    form->Show();
    TFormDriver drive = ui.Drive(form);
    drive.Select("Tabs1", "Advanced");
    EXPECT_EQ(frame->TabIndex(), 1);
    frame->OnChanging = [](rtl::TObject*, bool& allow) { allow = false; };
    drive.Select("Tabs1", 0);
    EXPECT_EQ(frame->TabIndex(), 1);
    frame->SetTabPosition(tpBottom);
    EXPECT_EQ(frame->ActivePage()->BoundsRect().Bottom, frame->ClientHeight() - frame->TabStripSize());
}

TEST_F(PagesTest, TheAnimatedFrameTakesTheNextEffectForEachChange) {
    auto* frame = new TjexAnimationFrame(form);
    frame->SetParent(form);
    auto* a = AddPage<TjexPage>(frame, "PageA");
    auto* b = AddPage<TjexPage>(frame, "PageB");
    frame->Animation()->SetEffect(jteRandom);
    frame->Animation()->SetSelectedEffects({jteFade, jteBlinds});
    frame->SetActivePage(b);
    EXPECT_EQ(frame->LastEffect(), jteFade);
    frame->SetActivePage(a);
    EXPECT_EQ(frame->LastEffect(), jteBlinds);
    frame->SetAnimationTime(400);
    EXPECT_EQ(frame->StepDelay(), 50);
}

TEST_F(PagesTest, AFormFileKeepsPagesAndTheActiveOne) {
    auto* frame = new TjexAnimationFrame(form);
    frame->SetName("Frame1");
    frame->SetParent(form);
    AddPage<TjexPage>(frame, "PageA");
    auto* b = AddPage<TjexPage>(frame, "PageB");
    AddPage<TjexPage>(frame, "PageC");
    frame->SetActivePage(b);
    frame->Animation()->SetEffect(jteWipeUp);
    auto* bar = new TjexButtonBar(form);
    bar->SetName("Bar1");
    bar->SetParent(form);
    AddPage<TjexButtonPage>(bar, "BtnPage1");
    auto* p2 = AddPage<TjexButtonPage>(bar, "BtnPage2");
    bar->SetActivePage(p2);
    auto* list = new TjexButtonList(form);
    list->SetName("List1");
    list->SetParent(p2);
    list->Items()->Add()->SetCaption("Inbox");
    std::string text = rtl::WriteComponentText(form);
    rtl::TComponent* copy = rtl::ReadComponentText(text, nullptr);
    auto* frame2 = dynamic_cast<TjexAnimationFrame*>(copy->FindComponent("Frame1"));
    ASSERT_NE(frame2, nullptr);
    EXPECT_EQ(frame2->PageCount(), 3);
    EXPECT_EQ(frame2->ActivePage(), copy->FindComponent("PageB"));
    EXPECT_FALSE(dynamic_cast<TjexPage*>(copy->FindComponent("PageA"))->Visible());
    EXPECT_EQ(frame2->Animation()->Effect(), jteWipeUp);
    auto* bar2 = dynamic_cast<TjexButtonBar*>(copy->FindComponent("Bar1"));
    EXPECT_EQ(bar2->ActivePage(), copy->FindComponent("BtnPage2"));
    EXPECT_EQ(dynamic_cast<TjexButtonList*>(copy->FindComponent("List1"))->Items()->Items(0)->Caption(),
              "Inbox");
    EXPECT_EQ(rtl::WriteComponentText(copy), text);
    copy->Free();
}

TEST_F(PagesTest, TheButtonBarStacksButtonsAroundTheActivePage) {
    auto* bar = new TjexButtonBar(form);
    bar->SetParent(form);
    bar->SetBevelOuter(bvNone);
    bar->SetBounds(0, 0, 100, 200);
    auto* p1 = AddPage<TjexButtonPage>(bar, "P1");
    auto* p2 = AddPage<TjexButtonPage>(bar, "P2");
    auto* p3 = AddPage<TjexButtonPage>(bar, "P3");
    EXPECT_EQ(bar->ActivePage(), p1);
    EXPECT_EQ(bar->ButtonRect(0), Rect(0, 0, 100, 20));
    EXPECT_EQ(bar->ButtonRect(1), Rect(0, 160, 100, 180));
    EXPECT_EQ(bar->ButtonRect(2), Rect(0, 180, 100, 200));
    EXPECT_EQ(p1->BoundsRect(), Rect(0, 20, 100, 160));
    bar->MouseDown(mbLeft, {}, 50, 170); // the second button
    EXPECT_EQ(bar->ActivePage(), p2);
    EXPECT_EQ(bar->ButtonRect(1), Rect(0, 20, 100, 40));
    EXPECT_EQ(p2->BoundsRect(), Rect(0, 40, 100, 180));
    EXPECT_FALSE(p1->Visible());
    EXPECT_EQ(bar->FindNextPage(p3, true, false), nullptr);
    EXPECT_EQ(bar->FindNextPage(p3, true, true), p1);
    EXPECT_EQ(bar->FindNextPage(p1, false, false), nullptr);
    EXPECT_EQ(bar->FindNextPage(p2, false, false), p1);
    bar->SetButtonHeight(30);
    EXPECT_EQ(p2->BoundsRect(), Rect(0, 60, 100, 170));
    p3->SetPageIndex(0);
    EXPECT_EQ(bar->Pages(0), p3);
    EXPECT_EQ(p2->BoundsRect(), Rect(0, 90, 100, 200));
}

TEST_F(PagesTest, TheButtonListSelectsPlaysAndReorders) {
    class TSounds : public TjexCustomSoundList {
    public:
        using TjexCustomSoundList::TjexCustomSoundList;
        int SoundCount() const override { return 5; }
        bool PlaySound(int Index) override {
            Played.push_back(Index);
            return true;
        }
        std::vector<int> Played;
    };
    auto* list = new TjexButtonList(form);
    list->SetParent(form);
    list->SetAlign(alNone);
    list->SetBounds(0, 0, 80, 400);
    for (const char* c : {"Inbox", "Sent", "Trash"})
        list->Items()->Add()->SetCaption(c);
    list->Items()->Items(1)->SetSound(3);
    list->Items()->Items(2)->SetEnabled(false);
    auto* sounds = new TSounds(form);
    list->SetSoundList(sounds);
    std::vector<int> clicked;
    list->OnItemClick = [&](rtl::TObject*, int i) { clicked.push_back(i); };
    int h = list->ItemHeight();
    EXPECT_EQ(list->ItemRect(1), Rect(0, h, 80, 2 * h));
    list->MouseDown(mbLeft, {}, 10, h + 3);
    list->MouseUp(mbLeft, {}, 10, h + 3);
    EXPECT_EQ(list->SelectedIndex(), 1);
    EXPECT_EQ(sounds->Played, std::vector<int>{3});
    list->UserSelect(2); // disabled
    EXPECT_EQ(clicked, std::vector<int>{1});
    EXPECT_THROW(list->UserSelect(7), EUserActionError);

    // Dragging the selected item to the top.
    list->SetOptions({jloAllowReorder});
    list->MouseDown(mbLeft, {}, 10, h + 3);
    list->MouseMove({ssLeft}, 10, 5);
    EXPECT_TRUE(list->Dragging());
    list->MouseUp(mbLeft, {}, 10, 5);
    EXPECT_EQ(list->Items()->Items(0)->Caption(), "Sent");
    EXPECT_EQ(list->SelectedIndex(), 0);
    list->MoveItem(2, 0);
    EXPECT_EQ(list->Items()->Items(0)->Caption(), "Trash");
    EXPECT_EQ(list->SelectedIndex(), 1);
    list->SetViewStyle(jvsSmallIcons);
    EXPECT_LT(list->ItemHeight(), h);
    sounds->Free();
    EXPECT_EQ(list->SoundList(), nullptr);
}

} // namespace
