// The Browse Components expert over a real main menu: where its item goes, when there is none, what a
// click opens, and how a failure reaches the host.
#include <gtest/gtest.h>

#include <filesystem>

#include "catalogue_testutil.h"
#include "dcljexc/jexdfabh.h"
#include "dcljexc/jexdsncn.h"
#include "dcljexc/jexphint.h"
#include "vcl/menus.h"
#include "vcl/scripted_ui.h"

using namespace dcljexc;

namespace {

class Jexphint : public ::testing::Test {
protected:
    void SetUp() override {
        std::string templ = (std::filesystem::temp_directory_path() / "jexphintXXXXXX").string();
        Dir = mkdtemp(templ.data());
        rtl::SetSystemDirectory(Dir);
        dcljexc::Jexdsncn::Start();
        dcljexc::Jexdfabh::Start();
        Host = new rtl::TComponent(nullptr);
        Menu = new vcl::TMainMenu(Host);
        Add(Menu->Items(), "FileMenu", "&File");
        HelpMenu = Add(Menu->Items(), "HelpMenu", "&Help");
        Add(HelpMenu, "HelpContentsItem", "&Contents");
        About = Add(HelpMenu, "HelpAboutItem", "&About...");
        Add(HelpMenu, "HelpTipsItem", "&Tips");
        ide::TToolServicesConfig c;
        c.MainMenu = Menu;
        c.ReportException = [this](const std::string& m) { Reported.push_back(m); };
        ide::ConfigureToolServices(c);
    }
    void TearDown() override {
        dcljexc::Jexdfabh::Stop();
        vcl::Application()->ProcessMessages();
        ide::ConfigureToolServices({});
        Host->Free();
        dcljexc::Jexdsncn::Stop();
        rtl::SetSystemDirectory("");
        std::filesystem::remove_all(Dir);
    }
    vcl::TMenuItem* Add(vcl::TMenuItem* parent, const char* name, const char* caption) {
        auto* i = new vcl::TMenuItem(Host);
        i->SetName(name);
        i->SetCaption(caption);
        parent->Add(i);
        return i;
    }
    int OpenWindows() const {
        int n = 0;
        for (int i = 0; i < vcl::Screen()->FormCount(); ++i)
            n += vcl::Screen()->Forms(i)->ClassType() == TjexdfHintAbout::StaticClass();
        return n;
    }

    std::string Dir;
    rtl::TComponent* Host = nullptr;
    vcl::TMainMenu* Menu = nullptr;
    vcl::TMenuItem *HelpMenu = nullptr, *About = nullptr;
    std::vector<std::string> Reported;
};

} // namespace

TEST_F(Jexphint, DescribesItselfAsAnAddInExpert) {
    auto* expert = new TjexBrowseCompsExpert;
    EXPECT_EQ(expert->GetName(), "Jex Browse Components Expert");
    EXPECT_EQ(expert->GetAuthor(), "");
    EXPECT_EQ(expert->GetComment(), "");
    EXPECT_EQ(expert->GetPage(), "");
    EXPECT_EQ(expert->GetGlyph(), 0);
    EXPECT_EQ(expert->GetStyle(), ide::esAddIn);
    EXPECT_EQ(static_cast<int>(expert->GetStyle()), 3);
    EXPECT_EQ(expert->GetState(), ide::TExpertState{ide::esEnabled});
    EXPECT_EQ(expert->GetIDString(), "QuentrelSWTechnology.JEXBrowseComponentExpert");
    EXPECT_EQ(expert->GetMenuText(), "Browse Jex Components...");
    expert->Release();
}

TEST_F(Jexphint, PutsItsItemRightBelowTheAboutItemUntilItIsReleased) {
    auto* expert = new TjexBrowseCompsExpert;
    vcl::TMenuItem* item = Menu->FindByName("jexBrowseCompsMenuItem");
    ASSERT_NE(item, nullptr);
    ASSERT_NE(expert->MenuItem(), nullptr);
    EXPECT_EQ(expert->MenuItem()->MenuItem(), item);
    EXPECT_EQ(item->Parent(), HelpMenu);
    EXPECT_EQ(item->MenuIndex(), About->MenuIndex() + 1);
    EXPECT_EQ(HelpMenu->Items(HelpMenu->Count() - 1)->Name(), "HelpTipsItem") << "inserted, not appended";
    EXPECT_EQ(item->Caption(), "Browse Jex Components...");
    EXPECT_EQ(item->Hint(), "");
    EXPECT_EQ(item->ShortCut(), 0);
    EXPECT_EQ(item->HelpContext(), 0);
    EXPECT_EQ(item->GroupIndex(), 0);
    EXPECT_TRUE(item->Enabled());
    EXPECT_TRUE(item->Visible());
    expert->Release(); // the host destroys the expert when the package goes
    EXPECT_EQ(Menu->FindByName("jexBrowseCompsMenuItem"), nullptr);
    EXPECT_EQ(HelpMenu->Count(), 3);
}

TEST_F(Jexphint, WithoutAboutItemHelpMenuOrMainMenuThereIsNoItemAndNoError) {
    About->Free();
    auto* expert = new TjexBrowseCompsExpert;
    EXPECT_EQ(expert->MenuItem(), nullptr);
    EXPECT_EQ(Menu->FindByName("jexBrowseCompsMenuItem"), nullptr);
    EXPECT_NO_THROW(expert->Release());

    Add(HelpMenu, "HelpAboutItem", "&About...");
    HelpMenu->SetName("Help2Menu");
    expert = new TjexBrowseCompsExpert;
    EXPECT_EQ(expert->MenuItem(), nullptr);
    expert->Release();

    ide::ConfigureToolServices({});
    expert = new TjexBrowseCompsExpert;
    EXPECT_EQ(expert->MenuItem(), nullptr);
    expert->Release();
    EXPECT_TRUE(Reported.empty());
}

TEST_F(Jexphint, ClickingTheItemTwiceShowsOneWindow) {
    vcl::TScriptedUI ui;
    auto* expert = new TjexBrowseCompsExpert;
    vcl::TMenuItem* item = Menu->FindByName("jexBrowseCompsMenuItem");
    ASSERT_NE(item, nullptr);
    item->Click();
    ASSERT_NE(jexdfHintAbout, nullptr);
    TjexdfHintAbout* first = jexdfHintAbout;
    item->Click();
    EXPECT_EQ(jexdfHintAbout, first);
    EXPECT_EQ(OpenWindows(), 1);
    vcl::TFormDriver window = ui.OpenForm("TjexdfHintAbout");
    EXPECT_EQ(window.Form(), first);
    EXPECT_EQ(first->lblCompDesc->Caption(),
              "Move the mouse over the Jex component palette icons to view extended hints.");
    EXPECT_TRUE(Reported.empty());
    expert->Release();
}

TEST_F(Jexphint, AFailureToOpenTheWindowIsReportedThroughToolServices) {
    // No user interface is installed, so the window cannot be shown.
    ASSERT_FALSE(vcl::UIInstalled());
    auto* expert = new TjexBrowseCompsExpert;
    EXPECT_NO_THROW(Menu->FindByName("jexBrowseCompsMenuItem")->Click());
    ASSERT_EQ(Reported.size(), 1u);
    EXPECT_EQ(Reported[0], "No user interface is installed");
    expert->Release();

    // Once there is one, the next click opens the window after all.
    vcl::TScriptedUI ui;
    expert = new TjexBrowseCompsExpert;
    expert->Execute();
    EXPECT_EQ(OpenWindows(), 1);
    EXPECT_TRUE(jexdfHintAbout->Visible());
    expert->Release();
}
