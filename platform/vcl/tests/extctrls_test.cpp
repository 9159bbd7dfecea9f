// Glyph buttons, panels, images, radio groups, notebooks, spin edits and string grids, driven through the
// scripted user interface where a person would act on them.
#include <gtest/gtest.h>

#include "vcl/buttons.h"
#include "vcl/extctrls.h"
#include "vcl/grids.h"
#include "vcl/scripted_ui.h"
#include "vcl/spin.h"

using namespace vcl;

namespace {

template <class T> T* Child(TComponent* owner, TWinControl* parent, const char* name) {
    auto* c = new T(owner);
    c->SetName(name);
    c->SetParent(parent);
    return c;
}

TEST(SpeedButtons, GroupsGoDownExclusivelyAndAllowAllUp) {
    TForm form(nullptr);
    auto* a = Child<TSpeedButton>(&form, &form, "a");
    auto* b = Child<TSpeedButton>(&form, &form, "b");
    a->SetDown(true);
    EXPECT_FALSE(a->Down()) << "an ungrouped speed button cannot stay down";
    a->SetGroupIndex(1);
    b->SetGroupIndex(1);
    a->SetDown(true);
    b->SetDown(true);
    EXPECT_FALSE(a->Down());
    EXPECT_TRUE(b->Down());
    b->SetDown(false);
    EXPECT_TRUE(b->Down()) << "the group does not allow all buttons up";
    int clicks = 0;
    b->OnClick = [&](rtl::TObject*) { ++clicks; };
    b->UserClick();
    EXPECT_TRUE(b->Down());
    a->SetAllowAllUp(true);
    EXPECT_TRUE(b->AllowAllUp()) << "AllowAllUp is shared by the group";
    b->UserClick();
    EXPECT_FALSE(b->Down());
    EXPECT_EQ(clicks, 2);
    b->SetNumGlyphs(7);
    EXPECT_EQ(b->NumGlyphs(), 1);
}

TEST(BitButtons, KindsSetCaptionResultAndDefaults) {
    TScriptedUI ui;
    auto* form = NewForm<TForm>(nullptr);
    auto* ok = Child<TBitBtn>(form, form, "ok");
    ok->SetKind(bkOK);
    EXPECT_EQ(ok->Caption(), "OK");
    EXPECT_EQ(ok->ModalResult(), mrOk);
    EXPECT_TRUE(ok->Default());
    auto* no = Child<TBitBtn>(form, form, "no");
    no->SetKind(bkNo);
    EXPECT_TRUE(no->Cancel());
    EXPECT_EQ(no->Caption(), "&No");
    auto* close = Child<TBitBtn>(form, form, "close");
    close->SetKind(bkClose);
    auto* help = Child<TBitBtn>(form, form, "help");
    help->SetKind(bkHelp);
    form->SetHelpContext(77);
    ui.OnForm("TForm", [](TFormDriver& f) {
        f.Click("help");
        EXPECT_FALSE(f.Closed());
        f.Click("close");
        EXPECT_TRUE(f.Closed());
    });
    EXPECT_EQ(form->ShowModal(), mrCancel);
    ASSERT_EQ(ui.HelpCalls().size(), 1u);
    EXPECT_EQ(ui.HelpCalls()[0].Data, 77);
    form->Free();
}

TEST(Panels, BevelsAndBordersKeepAlignedChildrenClear) {
    TForm form(nullptr);
    auto* panel = Child<TPanel>(&form, &form, "Panel1");
    EXPECT_EQ(panel->Caption(), "Panel1");
    panel->SetBounds(0, 0, 200, 100);
    panel->SetBevelInner(bvLowered);
    panel->SetBorderWidth(3);
    auto* inner = Child<TPanel>(&form, panel, "Inner");
    inner->SetAlign(alClient);
    EXPECT_EQ(inner->BoundsRect(), Rect(5, 5, 195, 95));
}

TEST(Images, AutoSizeFollowsThePictureAndDestRectHonoursStretch) {
    TForm form(nullptr);
    auto* img = Child<TImage>(&form, &form, "img");
    img->SetAutoSize(true);
    TBitmap bmp;
    bmp.SetSize(40, 30);
    img->Picture()->SetGraphic(&bmp);
    EXPECT_EQ(img->Width(), 40);
    EXPECT_EQ(img->Height(), 30);
    img->SetAutoSize(false);
    img->SetBounds(0, 0, 100, 100);
    img->SetCenter(true);
    EXPECT_EQ(img->DestRect(), Rect(30, 35, 70, 65));
    img->SetStretch(true);
    img->SetProportional(true);
    EXPECT_EQ(img->DestRect(), Rect(0, 12, 100, 87));
    TControlDesc d = DescribeControl(img);
    EXPECT_EQ(d.PictureWidth, 40);
}

TEST(RadioGroups, ItemsMakeButtonsAndItemIndexRaisesOnClick) {
    TScriptedUI ui;
    auto* form = NewForm<TForm>(nullptr);
    auto* rg = Child<TRadioGroup>(form, form, "rgStyle");
    rg->SetBounds(8, 8, 200, 120);
    rg->Items()->SetCommaText("\" Large\",\" Medium\",\" Small\"");
    ASSERT_EQ(rg->ButtonCount(), 3);
    EXPECT_EQ(rg->Buttons(1)->Caption(), " Medium");
    EXPECT_EQ(rg->ItemIndex(), -1);
    std::vector<int> clicks;
    rg->OnClick = [&](rtl::TObject*) { clicks.push_back(rg->ItemIndex()); };
    rg->SetItemIndex(2);
    rg->SetItemIndex(2);
    rg->SetItemIndex(9);
    EXPECT_EQ(rg->ItemIndex(), 2);
    EXPECT_EQ(clicks, (std::vector<int>{2}));
    rg->Buttons(0)->SetEnabled(false);
    std::vector<TComponent*> streamed;
    rg->GetChildren([&](TComponent* c) { streamed.push_back(c); }, form);
    EXPECT_TRUE(streamed.empty()) << "the buttons are not written to form files";
    ui.OnForm("TForm", [](TFormDriver& f) {
        f.Select("rgStyle", " Medium");
        EXPECT_THROW(f.Select("rgStyle", 0), EScriptedUIError) << "item 0 is disabled";
        EXPECT_THROW(f.Select("rgStyle", 3), EScriptedUIError);
        f.Close(mrOk);
    });
    form->ShowModal();
    EXPECT_EQ(clicks, (std::vector<int>{2, 1}));
    rg->Items()->Delete(2);
    EXPECT_EQ(rg->ButtonCount(), 2);
    rg->SetColumns(2);
    EXPECT_EQ(rg->Buttons(1)->Left(), 8 + (200 - 10) / 2);
    form->Free();
}

TEST(Notebooks, PagesShowOneAtATimeAndHideTheirControls) {
    TScriptedUI ui;
    auto* form = NewForm<TForm>(nullptr);
    auto* nb = Child<TNotebook>(form, form, "Notebook");
    EXPECT_EQ(nb->Pages()->CommaText(), "Default");
    nb->Pages()->Clear();
    nb->Pages()->Add("Buttons");
    nb->Pages()->Add("Glyphs");
    EXPECT_EQ(nb->PageIndex(), 1) << "adding a page shows it";
    int changes = 0;
    nb->OnPageChanged = [&](rtl::TObject*) { ++changes; };
    nb->SetPageIndex(0);
    nb->SetPageIndex(5);
    EXPECT_EQ(nb->PageIndex(), 0);
    EXPECT_EQ(changes, 1);
    auto* btn = Child<TButton>(form, nb->Page(1), "btnOnGlyphs");
    auto* edit = Child<TEdit>(form, nb->Page(0), "edtOnButtons");
    std::vector<TComponent*> pages;
    nb->GetChildren([&](TComponent* c) { pages.push_back(c); }, form);
    EXPECT_EQ(pages.size(), 2u);
    ui.OnForm("TForm", [&](TFormDriver& f) {
        EXPECT_THROW(f.Click("btnOnGlyphs"), EScriptedUIError) << "its page is not showing";
        f.Type("edtOnButtons", "x");
        f.Select("Notebook", "Glyphs");
        EXPECT_THROW(f.Type("edtOnButtons", "y"), EScriptedUIError);
        f.Click("btnOnGlyphs");
        f.Close(mrOk);
    });
    form->ShowModal();
    EXPECT_EQ(edit->Text(), "x");
    EXPECT_EQ(nb->ActivePage(), "Glyphs");
    nb->Pages()->Delete(1);
    EXPECT_EQ(form->FindComponent("btnOnGlyphs"), nullptr) << "a deleted page frees its controls";
    EXPECT_EQ(nb->PageIndex(), 0);
    (void)btn;
    form->Free();
}

TEST(SpinEdits, ValuesClampLikeThePlatformAndRaiseOnChange) {
    TScriptedUI ui;
    auto* form = NewForm<TForm>(nullptr);
    auto* spe = Child<TSpinEdit>(form, form, "speRows");
    EXPECT_EQ(spe->Text(), "0");
    spe->SetMinValue(1);
    spe->SetMaxValue(10);
    std::vector<int> changes;
    spe->OnChange = [&](rtl::TObject*) { changes.push_back(spe->Value()); };
    spe->SetValue(25);
    EXPECT_EQ(spe->Value(), 10);
    spe->SetValue(10);
    spe->UpClick();
    spe->SetValue(-3);
    EXPECT_EQ(changes, (std::vector<int>{10, 1}));
    spe->SetMinValue(4);
    spe->SetMaxValue(4);
    spe->SetValue(99);
    EXPECT_EQ(spe->Value(), 99) << "equal limits do not clamp";
    spe->SetMaxValue(10);
    spe->SetText("abc");
    EXPECT_EQ(spe->Value(), 4) << "text that is no number reads as MinValue";
    ui.OnForm("TForm", [](TFormDriver& f) {
        f.SetValue("speRows", 7);
        f.PressKey("speRows", VK_UP);
        EXPECT_THROW(f.Type("speRows", "12a"), EScriptedUIError);
        f.Type("speRows", "50");
        f.Close(mrOk);
    });
    changes.clear();
    form->ShowModal();
    EXPECT_EQ(changes.front(), 7);
    EXPECT_EQ(changes[1], 8);
    EXPECT_EQ(spe->Text(), "50") << "typing is clamped only when the control is left";
    form->Free();
}

TEST(StringGrids, CellsSelectionAndEditing) {
    TScriptedUI ui;
    auto* form = NewForm<TForm>(nullptr);
    auto* grd = Child<TStringGrid>(form, form, "grdCaptions");
    grd->SetColCount(2);
    grd->SetRowCount(3);
    grd->SetCells(0, 0, "BUTTON");
    grd->SetCells(1, 0, "CAPTION");
    grd->Rows(1)->SetCommaText("First,&First");
    EXPECT_EQ(grd->Cells(1, 1), "&First");
    EXPECT_EQ(grd->Cols(0)->CommaText(), "BUTTON,First,");
    EXPECT_EQ(grd->Cells(7, 7), "");
    EXPECT_THROW(grd->SetCells(7, 7, "x"), EInvalidGridOperation);
    EXPECT_THROW(grd->SetFixedCols(2), EInvalidGridOperation);
    EXPECT_EQ(grd->Col(), 1);
    EXPECT_EQ(grd->Row(), 1);
    std::vector<std::string> log;
    grd->OnSelectCell = [&](rtl::TObject*, int c, int r, bool& can) {
        log.push_back("select " + std::to_string(c) + "," + std::to_string(r));
        can = r != 2 || c != 0;
    };
    grd->OnSetEditText = [&](rtl::TObject*, int c, int r, const std::string& v) {
        log.push_back("set " + v);
    };
    ui.OnForm("TForm", [](TFormDriver& f) {
        EXPECT_THROW(f.SetCell("grdCaptions", 1, 2, "x"), EScriptedUIError) << "goEditing is off";
        f.Get<TStringGrid>("grdCaptions")->SetOptions(DefaultGridOptions + TGridOptions{goEditing});
        f.SetCell("grdCaptions", 1, 2, "&Last");
        EXPECT_THROW(f.SelectCell("grdCaptions", 0, 0), EScriptedUIError) << "a fixed cell";
        f.Close(mrOk);
    });
    form->ShowModal();
    EXPECT_EQ(grd->Cells(1, 2), "&Last");
    EXPECT_EQ(log, (std::vector<std::string>{"select 1,2", "set &Last"}));
    grd->SetRowCount(2);
    EXPECT_EQ(grd->Row(), 1);
    grd->SetRowCount(3);
    EXPECT_EQ(grd->Cells(1, 2), "") << "shrinking drops the cells";
    TControlDesc d = DescribeControl(grd);
    ASSERT_EQ(d.Cells.size(), 3u);
    EXPECT_EQ(d.Cells[0][1], "CAPTION");
    form->Free();
}

} // namespace
