// Tests of the splash screen, the busy window and the tips, through the scripted user interface with
// real bitmaps and INI files.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "jex/jexsplash.h"
#include "jex/jextips.h"
#include "rtl/inifiles.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

namespace {

class SplashTest : public ::testing::Test {
protected:
    void SetUp() override {
        dir = std::filesystem::temp_directory_path() /
              ("jexsplash_test_" + std::to_string(::getpid()) + "_" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(dir);
        savedExe = Application()->ExeName();
    }
    void TearDown() override {
        Application()->SetExeName(savedExe);
        Screen()->SetCursor(crDefault);
        std::filesystem::remove_all(dir);
    }
    std::string P(const std::string& name) const { return (dir / name).string(); }
    static void Picture(TPicture* p, int w, int h) {
        TBitmap b;
        b.SetSize(w, h);
        p->Assign(&b);
    }
    std::filesystem::path dir;
    std::string savedExe;
    TScriptedUI ui;
};

TEST_F(SplashTest, TheSplashShowsItsPictureUntilClickedOrExpired) {
    TjexSplash splash(nullptr);
    EXPECT_FALSE(splash.Execute()); // nothing to show
    Picture(splash.PictureVGA(), 30, 20);
    ASSERT_TRUE(splash.Execute());
    EXPECT_EQ(splash.Form()->ClientWidth(), 30); // the stand-in picture
    Picture(splash.Picture(), 120, 80);
    ASSERT_TRUE(splash.Execute());
    EXPECT_TRUE(splash.Showing());
    EXPECT_EQ(splash.Form()->ClientWidth(), 120);
    EXPECT_EQ(splash.Form()->FormStyle(), fsStayOnTop);
    ui.Drive(splash.Form()).Click("imgSplash");
    EXPECT_FALSE(splash.Showing());
    splash.SetDuration(0);
    splash.Execute();
    EXPECT_TRUE(splash.HideIfExpired());
    EXPECT_FALSE(splash.Showing());

    // Modal: a click closes it, then it is gone.
    splash.SetShowModal(true);
    ui.OnForm("TjexSplashForm", [](TFormDriver& d) { d.Click("imgSplash"); });
    EXPECT_TRUE(splash.Execute());
    EXPECT_EQ(splash.Form(), nullptr);
    EXPECT_EQ(ui.PendingAnswers(), 0);
}

TEST_F(SplashTest, ALocalBitmapBesideTheApplicationWins) {
    TBitmap local;
    local.SetSize(7, 5);
    local.SaveToFile(P("app.bmp"));
    Application()->SetExeName(P("app"));
    TjexSplash splash(nullptr);
    Picture(splash.Picture(), 50, 50);
    std::unique_ptr<TBitmap> holder;
    EXPECT_EQ(splash.ShownGraphic(holder)->Width(), 50);
    splash.SetAllowLocalBmp(true);
    EXPECT_EQ(splash.ShownGraphic(holder)->Width(), 7);
    TjexSplash copy(nullptr);
    copy.Assign(&splash);
    EXPECT_TRUE(copy.AllowLocalBmp());
    EXPECT_EQ(copy.Picture()->Width(), 50);
}

TEST_F(SplashTest, TheBusyWindowShowsProgressAndTheHourglass) {
    TjexBusy busy(nullptr);
    busy.SetMessage2("Copying files");
    busy.SetProgressMax(4);
    busy.SetProgressStep(1);
    busy.Show();
    ASSERT_TRUE(busy.Showing());
    EXPECT_EQ(Screen()->Cursor(), crHourGlass);
    EXPECT_EQ(busy.Form()->lblMessage1->Caption(), "Please wait...");
    EXPECT_EQ(busy.Form()->lblMessage2->Caption(), "Copying files");
    busy.StepIt();
    busy.StepIt();
    EXPECT_EQ(busy.Form()->pbProgress->Position(), 2);
    busy.SetProgressPos(99);
    EXPECT_EQ(busy.ProgressPos(), 4);
    busy.SetMinDuration(60);
    auto start = std::chrono::steady_clock::now();
    busy.Show(); // already up: the time counts from the first show
    busy.Hide();
    EXPECT_FALSE(busy.Showing());
    EXPECT_EQ(Screen()->Cursor(), crDefault);
    EXPECT_LE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(2000));
    EXPECT_THROW(busy.Sound()->SetData("RIFF", 4), rtl::EConvertError);
}

TEST_F(SplashTest, TheBusyWindowMakesRoomForItsVideoAndPlaysItsSound) {
    auto le32 = [](uint32_t v) {
        return std::string{char(v & 0xFF), char((v >> 8) & 0xFF), char((v >> 16) & 0xFF),
                           char((v >> 24) & 0xFF)};
    };
    std::string avih = le32(100000) + std::string(12, '\0') + le32(3) + std::string(12, '\0') + le32(40) +
                       le32(30) + std::string(16, '\0');
    std::string hdrl = "hdrl" + std::string("avih") + le32(avih.size()) + avih;
    std::string body = "AVI LIST" + le32(hdrl.size()) + hdrl;
    std::string avi = "RIFF" + le32(body.size()) + body;
    TjexBusy busy(nullptr);
    busy.AVISource()->Data()->SetData(avi.data(), avi.size());
    busy.SetOptions({jboShowAVI, jboPlaySound});
    std::string data(16, '\x80');
    std::string fmt =
        std::string("\x01\x00\x01\x00", 4) + le32(8000) + le32(8000) + std::string("\x01\x00\x08\x00", 4);
    std::string wave =
        "RIFF" + le32(36 + data.size()) + "WAVEfmt " + le32(16) + fmt + "data" + le32(data.size()) + data;
    busy.Sound()->SetData(wave.data(), wave.size());
    busy.Show();
    EXPECT_EQ(busy.Form()->pnlAVI->BoundsRect(), Rect(8, 8, 48, 38));
    EXPECT_EQ(busy.Form()->lblMessage1->Left(), 56);
    EXPECT_FALSE(busy.Form()->pbProgress->Visible());
    EXPECT_TRUE(busy.SoundPlayed());
    ASSERT_EQ(ui.ShellExecutes().size(), 1u);
    EXPECT_EQ(ui.ShellExecutes()[0].Verb, "play");
    busy.SetAVIPosition(japTop);
    busy.Show();
    EXPECT_EQ(busy.Form()->lblMessage1->Top(), 46);
    busy.Hide();
}

class TipsTest : public SplashTest {
protected:
    void WriteTips(const std::string& file) {
        rtl::TIniFile ini(file);
        ini.WriteString("TIP TEXT", "Tip1", "First");
        ini.WriteString("TIP TEXT", "Tip2", "Second");
        ini.WriteString("TIP TEXT", "Tip4", "Lost after the gap");
    }
};

TEST_F(TipsTest, TheWindowShowsTheNextTipAndStoresWhereItStopped) {
    std::string ini = P("tips.ini");
    WriteTips(ini);
    TjexWelcomeTips tips(nullptr);
    EXPECT_THROW(tips.Execute(), rtl::EInvalidOperation);
    tips.SetIniFileName(ini);
    EXPECT_EQ(tips.Tips(), (std::vector<std::string>{"First", "Second"}));
    EXPECT_EQ(tips.NextTip(), 1);
    EXPECT_TRUE(tips.ShowOnStartup());
    ui.OnForm("TjexTipsForm", [](TFormDriver& d) {
        EXPECT_EQ(d.Get<TMemo>("memTip")->Text(), "First");
        EXPECT_EQ(d.Get<TLabel>("lblProgress")->Caption(), "Tip 1 of 2");
        d.Click("btnNext");
        EXPECT_EQ(d.Get<TMemo>("memTip")->Text(), "Second");
        d.Check("chkShowOnStartup", false);
        d.Click("btnClose");
    });
    ASSERT_TRUE(tips.Execute());
    EXPECT_EQ(tips.NextTip(), 1); // after the second comes the first again
    EXPECT_FALSE(tips.ShowOnStartup());
    EXPECT_FALSE(tips.Execute()); // not on startup any more
    tips.ForceShow = true;
    ui.OnForm("TjexTipsForm", [](TFormDriver& d) {
        EXPECT_FALSE(d.Get<TCheckBox>("chkShowOnStartup")->Checked());
        d.Click("btnClose");
    });
    EXPECT_TRUE(tips.Execute());
    EXPECT_EQ(tips.NextTip(), 2);
    EXPECT_EQ(ui.PendingAnswers(), 0);
}

TEST_F(TipsTest, SharedTipsAndNamesBesideTheApplication) {
    WriteTips(P("shared.ini"));
    Application()->SetExeName(P("app"));
    TjexWelcomeTips tips(nullptr);
    tips.SetIniLocal(true);
    tips.SetIniFileName("state.ini");
    tips.SetSharedTipFileName("shared.ini");
    EXPECT_EQ(tips.IniPath(), P("state.ini"));
    EXPECT_EQ(tips.TipPath(), P("shared.ini"));
    EXPECT_EQ(tips.Tips().size(), 2u);
    tips.SetVisibleButtons({jtbClose, jtbContents});
    tips.SetHelpContents(77);
    ui.OnForm("TjexTipsForm", [](TFormDriver& d) {
        EXPECT_FALSE(d.Get<TButton>("btnNext")->Visible());
        d.Click("btnContents");
        d.Click("btnClose");
    });
    ASSERT_TRUE(tips.Execute());
    ASSERT_EQ(ui.HelpCalls().size(), 1u);
    EXPECT_EQ(ui.HelpCalls()[0].Data, 77);
    EXPECT_TRUE(std::filesystem::exists(dir / "state.ini"));
    EXPECT_EQ(rtl::TIniFile(P("shared.ini")).ReadInteger("TIPS", "NextTip", -1), -1);
}

} // namespace
