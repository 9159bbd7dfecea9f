// Experts and tool services: reference counting, the expert registry, main menu interfaces over a real
// TMainMenu (insertion, flags, clicks, removal), and exception reporting.
#include <gtest/gtest.h>

#include "ide/experts.h"
#include "testcomps.h"
#include "vcl/menus.h"

using namespace ide;
using namespace idetest;

namespace {

int Destroyed = 0;

class TCountingExpert : public TIExpert {
public:
    explicit TCountingExpert(std::string id) : FId(std::move(id)) {}
    std::string GetName() override { return "Counting"; }
    std::string GetAuthor() override { return "Tests"; }
    std::string GetComment() override { return {}; }
    std::string GetPage() override { return {}; }
    intptr_t GetGlyph() override { return 0; }
    TExpertStyle GetStyle() override { return esStandard; }
    TExpertState GetState() override { return {esEnabled}; }
    std::string GetIDString() override { return FId; }
    std::string GetMenuText() override { return "Count"; }
    void Execute() override { ++Runs; }
    int Runs = 0;

protected:
    ~TCountingExpert() override { ++Destroyed; }

private:
    std::string FId;
};

TEST(Experts, ReferenceCounting) {
    Destroyed = 0;
    auto* e = new TCountingExpert("a");
    EXPECT_EQ(e->RefCount(), 1);
    EXPECT_EQ(e->AddRef(), 2);
    EXPECT_EQ(e->Release(), 1);
    EXPECT_EQ(Destroyed, 0);
    EXPECT_EQ(e->Release(), 0);
    EXPECT_EQ(Destroyed, 1);
}

TEST(Experts, RegistryOwnsExpertsUntilTheModuleGoes) {
    Destroyed = 0;
    {
        TFakeModule module;
        RegisterLibraryExpert(new TCountingExpert("Test.One"));
        EXPECT_NE(FindLibraryExpert("Test.One"), nullptr);
        EXPECT_THROW(RegisterLibraryExpert(new TCountingExpert("Test.One")), rtl::EInvalidOperation);
        EXPECT_EQ(Destroyed, 1) << "a refused expert is released";
        EXPECT_THROW(RegisterLibraryExpert(nullptr), rtl::EInvalidOperation);
        EXPECT_EQ(Destroyed, 1);
    }
    EXPECT_EQ(FindLibraryExpert("Test.One"), nullptr);
    EXPECT_EQ(Destroyed, 2);
}

class Menus : public ::testing::Test {
protected:
    void SetUp() override {
        Host = new rtl::TComponent(nullptr);
        Menu = new vcl::TMainMenu(Host);
        File = Add(Menu->Items(), "FileMenu", "&File");
        HelpMenu = Add(Menu->Items(), "HelpMenu", "&Help");
        Add(HelpMenu, "HelpContentsItem", "&Contents");
        About = Add(HelpMenu, "HelpAboutItem", "&About...");
        TToolServicesConfig c;
        c.MainMenu = Menu;
        c.ProjectName = [] { return std::string("/projects/Demo.dpr"); };
        ConfigureToolServices(c);
    }
    void TearDown() override {
        ConfigureToolServices({});
        Host->Free();
    }
    vcl::TMenuItem* Add(vcl::TMenuItem* parent, const char* name, const char* caption) {
        auto* i = new vcl::TMenuItem(Host);
        i->SetName(name);
        i->SetCaption(caption);
        parent->Add(i);
        return i;
    }
    rtl::TComponent* Host = nullptr;
    vcl::TMainMenu* Menu = nullptr;
    vcl::TMenuItem *File = nullptr, *HelpMenu = nullptr, *About = nullptr;
};

TEST_F(Menus, ToolServicesReachTheHostsMenu) {
    EXPECT_EQ(ToolServices->GetProjectName(), "/projects/Demo.dpr");
    TIntfRef<TIMainMenuIntf> menu(ToolServices->GetMainMenu());
    ASSERT_TRUE(menu);
    TIntfRef<TIMenuItemIntf> items(menu->GetMenuItems());
    ASSERT_TRUE(items);
    EXPECT_EQ(items->GetItemCount(), 2);
    TIntfRef<TIMenuItemIntf> help(items->GetItem(1));
    EXPECT_EQ(help->GetName(), "HelpMenu");
    EXPECT_EQ(help->GetCaption(), "&Help");
    EXPECT_EQ(items->GetItem(2), nullptr);
    TIntfRef<TIMenuItemIntf> about(menu->FindMenuItem("helpaboutitem"));
    ASSERT_TRUE(about);
    EXPECT_EQ(about->GetIndex(), 1);
    TIntfRef<TIMenuItemIntf> parent(about->GetParent());
    EXPECT_EQ(parent->GetName(), "HelpMenu");
    EXPECT_EQ(menu->FindMenuItem("NoSuchItem"), nullptr);
    EXPECT_EQ(about->GetFlags(), (TIMenuFlags{mfEnabled, mfVisible}));
}

TEST_F(Menus, NoMenuNoInterface) {
    ConfigureToolServices({});
    EXPECT_EQ(ToolServices->GetMainMenu(), nullptr);
    EXPECT_EQ(ToolServices->GetProjectName(), "");
}

TEST_F(Menus, InsertedItemsAreRealMenuItems) {
    TIntfRef<TIMainMenuIntf> menu(ToolServices->GetMainMenu());
    TIntfRef<TIMenuItemIntf> help(menu->FindMenuItem("HelpMenu"));
    TIntfRef<TIMenuItemIntf> about(menu->FindMenuItem("HelpAboutItem"));
    int clicks = 0;
    TIMenuItemIntf* seen = nullptr;
    TIntfRef<TIMenuItemIntf> item(help->InsertItem(
        about->GetIndex() + 1, "Browse...", "browseItem", "Browse it", vcl::ShortCut('B', {vcl::ssCtrl}), 5,
        2, {mfEnabled, mfVisible, mfBarBreak}, [&](TIMenuItemIntf* sender) {
            ++clicks;
            seen = sender;
        }));
    ASSERT_TRUE(item);
    vcl::TMenuItem* real = Menu->FindByName("browseItem");
    ASSERT_NE(real, nullptr);
    EXPECT_EQ(item->MenuItem(), real);
    EXPECT_EQ(real->Parent(), HelpMenu);
    EXPECT_EQ(real->MenuIndex(), About->MenuIndex() + 1);
    EXPECT_EQ(real->Caption(), "Browse...");
    EXPECT_EQ(real->Hint(), "Browse it");
    EXPECT_EQ(real->HelpContext(), 5);
    EXPECT_EQ(real->GroupIndex(), 2);
    EXPECT_EQ(item->GetFlags(), (TIMenuFlags{mfEnabled, mfVisible, mfBarBreak}));
    real->Click();
    EXPECT_EQ(clicks, 1);
    ASSERT_NE(seen, nullptr);
    item->SetFlags({mfEnabled, mfChecked}, {mfChecked});
    EXPECT_FALSE(real->Enabled());
    EXPECT_TRUE(real->Checked());
    EXPECT_EQ(InsertedMenuItemCount(), 1);
    // A name the owner already has cannot be inserted.
    EXPECT_EQ(help->InsertItem(0, "x", "HelpAboutItem", "", 0, 0, 0, {mfVisible}, nullptr), nullptr);
    // Releasing the inserting interface takes the item out of the menu.
    item.Reset();
    EXPECT_EQ(Menu->FindByName("browseItem"), nullptr);
    EXPECT_EQ(HelpMenu->Count(), 2);
    EXPECT_EQ(InsertedMenuItemCount(), 0);
}

TEST_F(Menus, InterfacesNoticeItemsFreedBehindThem) {
    TIntfRef<TIMainMenuIntf> menu(ToolServices->GetMainMenu());
    TIntfRef<TIMenuItemIntf> about(menu->FindMenuItem("HelpAboutItem"));
    About->Free();
    EXPECT_EQ(about->GetFlags(), TIMenuFlags{mfInvalid});
    EXPECT_EQ(about->GetName(), "");
    EXPECT_FALSE(about->SetCaption("x"));
    EXPECT_EQ(about->InsertItem(0, "x", "", "", 0, 0, 0, {}, nullptr), nullptr);
    TIntfRef<TIMenuItemIntf> file(menu->FindMenuItem("FileMenu"));
    EXPECT_TRUE(file->DestroyMenuItem());
    EXPECT_EQ(Menu->FindByName("FileMenu"), nullptr);
    EXPECT_FALSE(file->DestroyMenuItem());
}

TEST_F(Menus, AModulesItemsLeaveWithIt) {
    TIMenuItemIntf* leaked;
    {
        TFakeModule module;
        TIntfRef<TIMainMenuIntf> menu(ToolServices->GetMainMenu());
        TIntfRef<TIMenuItemIntf> help(menu->FindMenuItem("HelpMenu"));
        leaked = help->InsertItem(-1, "Leaked", "leakedItem", "", 0, 0, 0, {mfEnabled, mfVisible}, nullptr);
        ASSERT_NE(leaked, nullptr);
        EXPECT_EQ(HelpMenu->Items(HelpMenu->Count() - 1)->Name(), "leakedItem") << "-1 appends";
    }
    EXPECT_EQ(Menu->FindByName("leakedItem"), nullptr);
    EXPECT_EQ(leaked->GetFlags(), TIMenuFlags{mfInvalid});
    leaked->Release(); // the interface itself is still the holder's to release
}

TEST_F(Menus, ExceptionsGoToTheHost) {
    EXPECT_THROW(ToolServices->RaiseException("boom"), rtl::Exception);
    std::string reported;
    TToolServicesConfig c = ToolServicesConfig();
    c.ReportException = [&](const std::string& m) { reported = m; };
    ConfigureToolServices(c);
    EXPECT_NO_THROW(ToolServices->RaiseException("boom"));
    EXPECT_EQ(reported, "boom");
}

} // namespace
