// Tests of the list and combo controls: partners that follow each other, check marks by line number,
// tab columns, the log memo, printing text, font and colour combos, and the low-resource list and combo.
#include <gtest/gtest.h>

#include "jex/jexlists.h"
#include "rtl/streaming.h"
#include "vcl/forms.h"

using namespace jex;
using namespace vcl;

namespace {

void Fill(rtl::TStrings* s, int n) {
    for (int i = 0; i < n; ++i)
        s->Add("line " + std::to_string(i));
}

TEST(SyncListTest, PartnersFollowEachOtherWithoutEndlessEchoes) {
    TjexSyncListBox a(nullptr), b(nullptr);
    Fill(a.Items(), 20);
    Fill(b.Items(), 20);
    a.SetSyncControl(&b);
    b.SetSyncControl(&a);
    a.UserSelect(3);
    EXPECT_EQ(b.ItemIndex(), 3);
    b.SetItemIndex(1);
    EXPECT_EQ(a.ItemIndex(), 1);
    a.SetTopIndex(2);
    EXPECT_EQ(b.TopIndex(), 2);
    b.SetSyncOptions({jsoTopIndex});
    b.SetItemIndex(4);
    EXPECT_EQ(a.ItemIndex(), 1);
    EXPECT_THROW(a.SetSyncControl(&a), rtl::EInvalidOperation);
}

TEST(SyncListTest, APartnerThatGoesAwayIsForgotten) {
    TjexTabListBox a(nullptr);
    auto* b = new TjexCheckListBox(nullptr);
    a.SetSyncControl(b);
    b->Free();
    EXPECT_EQ(a.SyncControl(), nullptr);
    // No such line: the list refuses, and the missing partner is not touched.
    EXPECT_THROW(a.UserSelectText("nothing"), rtl::Exception);
}

TEST(CheckListTest, ChecksAreKeptByLineNumberAndTogglePerOptions) {
    TjexCheckListBox list(nullptr);
    Fill(list.Items(), 6);
    list.SetCheckedItems("0, 2,5");
    EXPECT_TRUE(list.Checked(2));
    EXPECT_FALSE(list.Checked(1));
    EXPECT_EQ(list.CheckedItems(), "0,2,5");
    EXPECT_EQ(list.CheckedCount(), 3);
    EXPECT_THROW(list.SetCheckedItems("1,x"), rtl::EConvertError);
    EXPECT_EQ(list.CheckedItems(), "0,2,5");

    int clicks = 0;
    list.OnClickCheck = [&](rtl::TObject*) { ++clicks; };
    list.UserSelect(1);
    EXPECT_TRUE(list.Checked(1));
    EXPECT_EQ(list.ItemIndex(), 1);
    list.SetDisabledItems("1");
    list.UserSelect(1);
    EXPECT_TRUE(list.Checked(1)); // a disabled line keeps its mark
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(list.ItemColor(1), clGrayText);
    list.SetItemIndex(3);
    char key = ' ';
    list.KeyPress(key);
    EXPECT_TRUE(list.Checked(3));
    EXPECT_EQ(key, 0);
    list.SetOptions({});
    list.UserSelect(4);
    EXPECT_FALSE(list.Checked(4));
    list.SetCheckedColorChange(true);
    EXPECT_EQ(list.ItemColor(3), clRed);
    list.CheckAll(false);
    EXPECT_TRUE(list.Checked(1)); // disabled lines are left as they are
    EXPECT_EQ(list.CheckedCount(), 1);

    list.Items()->Add("a\tb");
    list.SetExpandTabs(true);
    EXPECT_EQ(list.DisplayText(6), "a       b");
}

TEST(CheckListTest, MarksSurviveAFormFile) {
    rtl::RegisterClasses({TForm::StaticClass(), TjexCheckListBox::StaticClass()});
    auto* form = new TForm(nullptr);
    form->SetName("Form1");
    auto* list = new TjexCheckListBox(form);
    list->SetName("List1");
    list->SetParent(form);
    Fill(list->Items(), 4);
    list->SetCheckedItems("1,3");
    list->SetDisabledItems("0");
    auto* copy = rtl::ReadComponentText(rtl::WriteComponentText(form), nullptr);
    auto* list2 = dynamic_cast<TjexCheckListBox*>(copy->FindComponent("List1"));
    ASSERT_NE(list2, nullptr);
    EXPECT_EQ(list2->CheckedItems(), "1,3");
    EXPECT_FALSE(list2->ItemEnabled(0));
    copy->Free();
    form->Free();
    rtl::UnRegisterClasses({TForm::StaticClass(), TjexCheckListBox::StaticClass()});
}

TEST(TabListTest, ColumnsSplitAtTabsAndStartAtTheTabPositions) {
    TjexTabListBox list(nullptr);
    list.Items()->Add("Name\tSize\tDate");
    list.Items()->Add("short");
    list.TabPositions()->SetText("80\n160");
    EXPECT_EQ(list.ColumnText(0, 1), "Size");
    EXPECT_EQ(list.ColumnText(0, 2), "Date");
    EXPECT_EQ(list.ColumnText(1, 1), "");
    EXPECT_EQ(list.ColumnLeft(0), 0);
    EXPECT_EQ(list.ColumnLeft(2), 160);
    EXPECT_GT(list.ColumnLeft(3), 160);
    list.SetPrintIndent(2);
    list.SetPrinting({jpoTitle});
    EXPECT_EQ(list.PrintText("Files"), "Files\r\n\r\n  Name\tSize\tDate\r\n  short\r\n");
    EXPECT_THROW(list.Print(), rtl::EInvalidOperation);
}

TEST(ROMemoTest, KeepsTheNewestLinesAndItsPartnerInStep) {
    TjexROMemo log(nullptr), other(nullptr);
    EXPECT_THROW(log.EnterText("typed"), EUserActionError);
    log.SetMaxEditLines(3);
    for (int i = 0; i < 5; ++i)
        log.AddLine("entry " + std::to_string(i));
    ASSERT_EQ(log.Lines()->Count(), 3);
    EXPECT_EQ((*log.Lines())[0], "entry 2");
    Fill(other.Lines(), 10);
    log.SetSyncMemo(&other);
    log.SetTopLine(1);
    EXPECT_EQ(other.TopLine(), 1);
    log.SetMaxEditLines(1);
    EXPECT_EQ(log.Lines()->Text(), "entry 4\r\n");
    log.SetPrintLines(true);
    EXPECT_NE(log.PrintText().find("entry 4\r\n----"), std::string::npos);
}

TEST(ComboTest, ColourCombosOfferTheBasicColoursAndAddOthers) {
    TjexColorComboBox combo(nullptr);
    ASSERT_EQ(combo.Items()->Count(), 16);
    EXPECT_EQ((*combo.Items())[0], "clBlack");
    EXPECT_EQ(combo.SelectedColor(), clNone);
    combo.SetSelectedColor(clRed);
    EXPECT_EQ(combo.Text(), "clRed");
    combo.SetSelectedColor(static_cast<TColor>(0x00FF8000));
    EXPECT_EQ(combo.Items()->Count(), 17);
    EXPECT_EQ(combo.Text(), "$00FF8000");
    EXPECT_EQ(combo.SelectedColor(), 0x00FF8000);
    combo.Items()->Add("no colour");
    EXPECT_THROW(combo.Colors(17), rtl::EConvertError);
}

TEST(ComboTest, FontCombosListTheInstalledFamilies) {
    TjexFontComboBox combo(nullptr);
    rtl::TStrings* fonts = Screen()->Fonts();
    EXPECT_EQ(combo.Items()->Count(), fonts->Count());
    combo.SetFontOptions({jfoTrueTypeOnly});
    for (int i = 0; i < combo.Items()->Count(); ++i)
        EXPECT_TRUE(Screen()->IsTrueTypeFont((*combo.Items())[i]));
    if (combo.Items()->Count()) {
        combo.SetFontName((*combo.Items())[0]);
        EXPECT_EQ(combo.ItemIndex(), 0);
    }
}

TEST(LowResourceTest, TheComboHoldsItsLinesOnlyWhileOpen) {
    TjexLRComboBox combo(nullptr);
    Fill(combo.Items(), 3);
    EXPECT_EQ(combo.vcl::TCustomComboBox::Items()->Count(), 0);
    combo.DropDown();
    EXPECT_EQ(combo.vcl::TCustomComboBox::Items()->Count(), 3);
    combo.CloseUp();
    EXPECT_EQ(combo.vcl::TCustomComboBox::Items()->Count(), 0);
    int selects = 0;
    combo.OnSelect = [&](rtl::TObject*) { ++selects; };
    combo.UserSelect(2);
    EXPECT_EQ(combo.Text(), "line 2");
    EXPECT_EQ(combo.ItemIndex(), 2);
    EXPECT_EQ(selects, 1);
    EXPECT_FALSE(combo.ListOpen());
    combo.SetItemIndex(0);
    EXPECT_EQ(combo.Text(), "line 0");
}

TEST(LowResourceTest, TheListShowsTheLinesInViewAndFollowsKeys) {
    TjexLRListBox list(nullptr);
    list.SetBounds(0, 0, 100, 48); // three lines of 16
    Fill(list.Items(), 10);
    EXPECT_EQ(list.VisibleCount(), 3);
    EXPECT_EQ(list.VisibleItems(), (std::vector<std::string>{"line 0", "line 1", "line 2"}));
    list.SetItemIndex(5);
    EXPECT_EQ(list.TopIndex(), 3);
    uint16_t key = VK_END;
    list.KeyDown(key, {});
    EXPECT_EQ(list.ItemIndex(), 9);
    EXPECT_EQ(list.TopIndex(), 7);
    list.MouseDown(mbLeft, {}, 5, 20);
    EXPECT_EQ(list.ItemIndex(), 8);
    EXPECT_THROW(list.UserSelect(10), EUserActionError);
    list.SetItemIndex(42);
    EXPECT_EQ(list.ItemIndex(), -1);
}

} // namespace
