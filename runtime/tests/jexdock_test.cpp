// Docks and tool windows: row layout and its deferral, docking rules, floating, client areas; toolbar
// buttons, separators and mask edits; the menus' status-bar hints, system menu, menu images and menu
// toolbar.
#include <gtest/gtest.h>

#include "jex/jexdock.h"
#include "vcl/forms.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

namespace {
TjexToolbarButton* AddButton(TjexCustomToolWindow* bar, int width = 23) {
    auto* b = new TjexToolbarButton(bar->Owner());
    b->SetWidth(width);
    b->SetParent(bar);
    return b;
}
} // namespace

TEST(JexToolbar, LaysOutItsControlsInARowAndSizesItself) {
    TForm form(nullptr);
    auto* bar = new TjexToolbar(&form);
    bar->SetParent(&form);
    auto* a = AddButton(bar);
    auto* sep = new TjexToolbarSep(&form);
    sep->SetSizeHorz(8);
    sep->SetParent(bar);
    auto* b = AddButton(bar, 30);
    // Border 2, drag handle 9.
    EXPECT_EQ(a->Left(), 11);
    EXPECT_EQ(sep->Left(), 34);
    EXPECT_EQ(sep->Width(), 8);
    EXPECT_EQ(b->Left(), 42);
    EXPECT_EQ(bar->Width(), 42 + 30 + 2);
    EXPECT_EQ(bar->Height(), 22 + 4);
    bar->SetDragHandle(false);
    EXPECT_EQ(a->Left(), 2);
}

TEST(JexToolbar, LayoutWaitsForTheLastEndUpdate) {
    TForm form(nullptr);
    auto* bar = new TjexToolbar(&form);
    bar->SetParent(&form);
    bar->BeginUpdate();
    bar->BeginUpdate();
    auto* a = AddButton(bar);
    auto* b = AddButton(bar);
    EXPECT_EQ(a->Left(), 0);
    EXPECT_EQ(b->Left(), 0);
    bar->EndUpdate();
    EXPECT_EQ(b->Left(), 0);
    EXPECT_EQ(bar->UpdateCount(), 1);
    bar->EndUpdate();
    EXPECT_EQ(a->Left(), 11);
    EXPECT_EQ(b->Left(), 34);
    bar->EndUpdate(); // unbalanced: ignored
    EXPECT_EQ(bar->UpdateCount(), 0);
}

TEST(JexDock, ArrangesToolWindowsInRowsAndSizesAcrossItsEdge) {
    TForm form(nullptr);
    auto* dock = new TjexDock(&form);
    dock->SetParent(&form);
    EXPECT_EQ(dock->Height(), 0); // empty and not FixAlign
    auto* first = new TjexToolbar(&form);
    auto* second = new TjexToolbar(&form);
    auto* below = new TjexToolbar(&form);
    AddButton(first);
    AddButton(second);
    AddButton(below);
    below->SetDockRow(1);
    for (auto* t : {first, second, below})
        t->SetDockedTo(dock);
    EXPECT_EQ(first->DockedTo(), dock);
    EXPECT_EQ(first->Parent(), dock);
    EXPECT_EQ(first->Left(), 0);
    EXPECT_EQ(second->Left(), first->Width());
    EXPECT_EQ(second->DockPos(), first->Width());
    EXPECT_EQ(below->Top(), first->Height());
    EXPECT_EQ(dock->RowCount(), 2);
    EXPECT_EQ(dock->Height(), first->Height() + below->Height());
    EXPECT_EQ(dock->Width(), form.ClientWidth());

    second->SetDockPos(200); // dragged further along the row
    EXPECT_EQ(second->Left(), 200);
    below->SetFullSize(true);
    EXPECT_EQ(below->Width(), dock->Width());
    dock->SetLimitToOneRow(true);
    EXPECT_EQ(dock->RowCount(), 1);
    EXPECT_EQ(below->Top(), 0);

    dock->SetBoundLines({jdbTop, jdbBottom});
    dock->SetLimitToOneRow(false);
    EXPECT_EQ(first->Top(), 1);
    EXPECT_EQ(dock->Height(), 1 + first->Height() + below->Height() + 1);
}

TEST(JexDock, DockingRulesAndFloating) {
    TForm form(nullptr);
    auto* top = new TjexDock(&form);
    top->SetParent(&form);
    auto* left = new TjexDock(&form);
    left->SetPosition(jdpLeft);
    left->SetParent(&form);
    EXPECT_EQ(left->Align(), alLeft);
    auto* bar = new TjexToolbar(&form);
    AddButton(bar);
    AddButton(bar);
    bar->SetDockableTo({jdpTop});
    bar->SetDockedTo(top);
    EXPECT_THROW(bar->SetDockedTo(left), rtl::EInvalidOperation);
    EXPECT_EQ(bar->DockedTo(), top);

    bar->SetDockableTo({jdpTop, jdpLeft});
    int changes = 0;
    bar->OnDockChanged = [&](rtl::TObject*) { ++changes; };
    bar->SetDockedTo(left);
    EXPECT_TRUE(bar->Vertical());
    EXPECT_GT(bar->Height(), bar->Width()); // its buttons now stack downwards
    bar->SetDockMode(jdmCannotFloat);
    EXPECT_THROW(bar->Float(), rtl::EInvalidOperation);
    bar->SetDockMode(jdmCanFloat);
    bar->Float();
    EXPECT_TRUE(bar->Floating());
    EXPECT_EQ(bar->Parent(), &form);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(top->Height(), 0);
}

TEST(JexToolWindow, KeepsItsClientAreaAndTakesItFromItsSize) {
    TForm form(nullptr);
    auto* w = new TjexToolWindow(&form);
    w->SetParent(&form);
    w->SetClientAreaWidth(120);
    w->SetClientAreaHeight(10); // below the minimum
    EXPECT_EQ(w->ClientAreaHeight(), 32);
    EXPECT_EQ(w->Width(), 120 + 4 + 9);
    EXPECT_EQ(w->Height(), 32 + 4);
    auto* inside = new TjexToolbarButton(&form);
    inside->SetBounds(40, 5, 23, 22);
    inside->SetParent(w);
    EXPECT_EQ(inside->Left(), 40); // a tool window leaves its controls where they are
    w->SetBounds(w->Left(), w->Top(), 200, 100);
    EXPECT_EQ(w->ClientAreaWidth(), 200 - 4 - 9);
    EXPECT_EQ(w->ClientAreaHeight(), 96);
}

TEST(JexToolbarButton, DrawsFromItsToolbarsImagesAndDropsItsMenuDown) {
    TScriptedUI ui;
    TForm form(nullptr);
    auto* images = new TImageList(&form);
    TBitmap bmp;
    bmp.SetSize(16, 16);
    images->Add(&bmp, nullptr);
    auto* bar = new TjexToolbar(&form);
    bar->SetParent(&form);
    bar->SetImages(images);
    auto* b = AddButton(bar);
    b->SetImageIndex(0);
    EXPECT_EQ(b->Images(), images);
    EXPECT_EQ(DescribeControl(b).PictureWidth, std::optional<int>(16));
    auto* menu = new TPopupMenu(&form);
    menu->SetName("ButtonMenu");
    b->SetDropdownMenu(menu);
    b->SetDropdownAlways(true);
    int clicks = 0;
    b->OnClick = [&](rtl::TObject*) { ++clicks; };
    b->UserClick();
    EXPECT_EQ(clicks, 0);
    ASSERT_EQ(ui.Popups().size(), 1u);
    EXPECT_EQ(ui.Popups()[0], "ButtonMenu");
    EXPECT_EQ(menu->PopupComponent(), b);
    menu->Free();
    EXPECT_EQ(b->DropdownMenu(), nullptr);
    b->UserClick();
    EXPECT_EQ(clicks, 1);
    b->SetRepeating(true);
    EXPECT_EQ(b->ClicksForHold(400 + 250), 4);
}

TEST(JexToolbarMaskEdit, TakesOnlyTextThatFitsItsMask) {
    TjexToolbarMaskEdit e(nullptr);
    e.SetEditMask("!(999) 000-0000;1;_");
    EXPECT_TRUE(e.IsValidText("(555) 123-4567"));
    EXPECT_TRUE(e.IsValidText("(  5) 123-4567")); // optional digits may be blank
    EXPECT_FALSE(e.IsValidText("(555) 12A-4567"));
    EXPECT_FALSE(e.IsValidText("(555) 123-45"));
    EXPECT_FALSE(e.IsValidText("(555) 123-45678"));
    EXPECT_THROW(e.EnterText("hello"), rtl::EInvalidOperation);
    EXPECT_EQ(e.Text(), "");
    e.EnterText("(555) 123-4567");
    EXPECT_EQ(e.Text(), "(555) 123-4567");
    e.SetEditMask("LLL\\-0");
    EXPECT_TRUE(e.IsValidText("abc-5"));
    EXPECT_FALSE(e.IsValidText("abcx5"));
}

TEST(JexMenus, HighlightedItemsShowTheirHintInTheStatusBar) {
    TForm form(nullptr);
    auto* status = new TEdit(&form);
    status->SetParent(&form);
    auto* popup = new TjexPopupMenu(&form);
    auto* item = new TMenuItem(&form);
    item->SetHint("Save|Saves the file");
    popup->Items()->Add(item);
    popup->SetStatusBar(status);
    popup->ItemHighlighted(item);
    EXPECT_EQ(status->Text(), "Saves the file");
    popup->ItemHighlighted(nullptr);
    EXPECT_EQ(status->Text(), "");
    popup->SetOptions({jmoShowImages});
    popup->ItemHighlighted(item);
    EXPECT_EQ(status->Text(), "");
    EXPECT_FALSE(popup->TrayIconOwned());
    popup->SetTrayIconOwned(true);
    EXPECT_TRUE(popup->TrayIconOwned());
    status->Free();
    EXPECT_EQ(popup->StatusBar(), nullptr);
}

TEST(JexSystemMenu, ShowsTheVisibleStandardItemsAndItsOwn) {
    TjexSystemMenu menu(nullptr);
    EXPECT_EQ(menu.ShownCaptions(), (std::vector<std::string>{"&Restore", "&Move", "&Size", "Mi&nimize",
                                                              "Ma&ximize", "-", "&Close"}));
    auto* about = new TMenuItem(&menu);
    about->SetCaption("&About...");
    menu.Items()->Add(about);
    menu.SetVisibleItems({jsiMove, jsiClose});
    EXPECT_EQ(menu.ShownCaptions(), (std::vector<std::string>{"&Move", "-", "&About...", "-", "&Close"}));
}

TEST(JexMenuImages, GivesMenuItemsTheirImagesAndForgetsFreedItems) {
    TForm form(nullptr);
    auto* menu = new TjexMainMenu(&form);
    auto* open = new TMenuItem(&form);
    auto* save = new TMenuItem(&form);
    open->SetName("mnuOpen");
    menu->Items()->Add(open);
    menu->Items()->Add(save);
    auto* images = new TjexMenuImages(&form);
    images->Add(open, 3);
    images->Add(save, 5);
    EXPECT_EQ(open->ImageIndex(), 3);
    EXPECT_EQ(images->Items()->Items(0)->DisplayName(), "mnuOpen");
    open->SetImageIndex(-1);
    images->ApplyImages();
    EXPECT_EQ(open->ImageIndex(), 3);
    save->Free();
    auto* entry = static_cast<TjexMenuImageItem*>(images->Items()->Items(1));
    EXPECT_EQ(entry->MenuItem(), nullptr);
    images->ApplyImages(); // the freed item is not touched
}

TEST(JexMenuToolbar, ShowsTheMainMenusItemsAndRunsThem) {
    TForm form(nullptr);
    auto* menu = new TMainMenu(&form);
    auto* file = new TMenuItem(&form);
    file->SetCaption("&File");
    file->SetHint("File commands");
    auto* hidden = new TMenuItem(&form);
    hidden->SetVisible(false);
    menu->Items()->Add(file);
    menu->Items()->Add(hidden);
    auto* status = new TEdit(&form);
    auto* bar = new TjexMenuToolbar(&form);
    bar->SetParent(&form);
    bar->SetMainMenu(menu);
    bar->SetStatusBar(status);
    int opened = 0;
    file->OnClick = [&](rtl::TObject*) { ++opened; };
    ASSERT_EQ(bar->MenuItems().size(), 1u);
    bar->ClickItem(0);
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(status->Text(), "File commands");
    EXPECT_THROW(bar->ClickItem(1), rtl::EListError);
    TControlDesc d = DescribeControl(bar);
    ASSERT_EQ(d.Menu.size(), 1u);
    EXPECT_EQ(d.Menu[0].Caption, "&File");
    menu->Free();
    EXPECT_TRUE(bar->MenuItems().empty());
}
