// Tests of the utility components: idle time, the caption gradient, the single-instance lock between two
// holders, launch schedules, form places in INI files, size limits, the stop watch's log, the document
// area's range, form messages and the tray icon.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "jex/jexdock.h"
#include "jex/jexutils.h"
#include "rtl/inifiles.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

namespace {

class UtilsTest : public ::testing::Test {
protected:
    void SetUp() override {
        dir = std::filesystem::temp_directory_path() /
              ("jexutils_test_" + std::to_string(::getpid()) + "_" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(dir);
        rtl::SetSystemDirectory(dir.string());
        form = new TForm(nullptr);
        form->SetName("MainForm");
        form->SetBounds(10, 20, 300, 200);
    }
    void TearDown() override {
        form->Free();
        rtl::SetSystemDirectory("");
        std::filesystem::remove_all(dir);
    }
    std::string P(const std::string& name) const { return (dir / name).string(); }
    std::filesystem::path dir;
    TScriptedUI ui;
    TForm* form = nullptr;
};

TEST_F(UtilsTest, TheIdleTimeoutFiresOnceAfterQuietTime) {
    auto* idle = new TjexIdleTimeout(form);
    idle->SetInterval(1000);
    int fired = 0;
    idle->OnTimeout = [&](rtl::TObject*) { ++fired; };
    auto t0 = TjexClock::now();
    idle->Activity(t0);
    EXPECT_FALSE(idle->CheckIdle(t0 + std::chrono::milliseconds(999)));
    EXPECT_TRUE(idle->CheckIdle(t0 + std::chrono::milliseconds(1000)));
    EXPECT_FALSE(idle->CheckIdle(t0 + std::chrono::milliseconds(5000)));
    EXPECT_EQ(fired, 1);
    idle->Activity(t0 + std::chrono::milliseconds(6000));
    idle->SetEnabled(false);
    EXPECT_FALSE(idle->CheckIdle(t0 + std::chrono::milliseconds(9000)));
    idle->SetEnabled(true);
    // At run time a key on the form is activity.
    idle->Loaded();
    auto later = TjexClock::now() + std::chrono::milliseconds(900);
    uint16_t key = 'A';
    form->KeyDown(key, {});
    EXPECT_FALSE(idle->CheckIdle(later));
}

TEST_F(UtilsTest, TheCaptionGradientRunsAcrossTheBar) {
    auto* g = new TjexTitleGradient(form);
    g->SetColorFrom(clRed);
    g->SetColorTo(clBlue);
    TBitmap bar;
    g->Render(&bar, 200, 18);
    EXPECT_EQ(bar.PixelRGB(0, 17), ColorToRGB(clRed));
    EXPECT_EQ(bar.PixelRGB(199, 17), ColorToRGB(clBlue));
}

TEST_F(UtilsTest, OnlyOneHolderGetsTheInstanceLock) {
    TjexSingleInstance first(nullptr), second(nullptr);
    first.Key = second.Key = "jex test/app";
    EXPECT_EQ(first.LockFileName(), P("jexsingle-jex_test_app.lock"));
    EXPECT_TRUE(first.Check());
    EXPECT_FALSE(second.Check());
    EXPECT_FALSE(second.Holding());
    int activations = 0;
    first.OnActivate = [&](rtl::TObject*) { ++activations; };
    EXPECT_FALSE(first.PollActivation());
    second.RequestActivation();
    EXPECT_TRUE(first.PollActivation());
    EXPECT_FALSE(first.PollActivation());
    EXPECT_EQ(activations, 1);
    {
        TjexSingleInstance gone(nullptr);
        gone.Key = "other";
        EXPECT_TRUE(gone.Check());
    }
    TjexSingleInstance again(nullptr);
    again.Key = "other";
    EXPECT_TRUE(again.Check()); // the lock went with its holder
}

TEST_F(UtilsTest, LaunchSchedulesFindTheirNextTime) {
    TjexLauncher l(nullptr);
    double mon = jexEncodeDateTime(2024, 1, 15, 0, 0, 0); // a Monday
    EXPECT_EQ(jexDayOfWeek(mon), 2);
    l.SetTime(jexEncodeDateTime(1899, 12, 30, 9, 30, 0));
    l.SetLaunchType(jltDaily);
    EXPECT_DOUBLE_EQ(l.NextLaunchAfter(mon + 0.5), jexEncodeDateTime(2024, 1, 16, 9, 30, 0));
    EXPECT_DOUBLE_EQ(l.NextLaunchAfter(mon), jexEncodeDateTime(2024, 1, 15, 9, 30, 0));
    l.SetLaunchType(jltWeekly);
    l.SetWeekDay(jwdFriday);
    EXPECT_DOUBLE_EQ(l.NextLaunchAfter(mon), jexEncodeDateTime(2024, 1, 19, 9, 30, 0));
    l.SetLaunchType(jltMonthly);
    l.SetMonthDay(31);
    EXPECT_DOUBLE_EQ(l.NextLaunchAfter(jexEncodeDateTime(2024, 2, 1, 0, 0, 0)),
                     jexEncodeDateTime(2024, 2, 29, 9, 30, 0));
    l.SetLaunchType(jltInterval);
    l.SetDate(mon);
    l.SetTimeLapse(90);
    EXPECT_NEAR(l.NextLaunchAfter(jexEncodeDateTime(2024, 1, 15, 10, 0, 0)),
                jexEncodeDateTime(2024, 1, 15, 11, 0, 0), 1e-7);
    l.SetLaunchType(jltOnce);
    EXPECT_DOUBLE_EQ(l.NextLaunchAfter(mon), jexEncodeDateTime(2024, 1, 15, 9, 30, 0));
    EXPECT_EQ(l.NextLaunchAfter(mon + 1), 0);
    int y, m, d;
    jexDecodeDate(jexEncodeDateTime(2000, 2, 29, 12, 0, 0), y, m, d);
    EXPECT_EQ(y * 10000 + m * 100 + d, 20000229);
}

TEST_F(UtilsTest, APollLaunchesWhenATimeHasCome) {
    TjexLauncher l(nullptr);
    l.ShellParams()->SetFileName("/usr/bin/backup");
    l.SetCommandLine("--all");
    l.SetWindowState(wsMinimized);
    l.SetTime(jexEncodeDateTime(1899, 12, 30, 9, 0, 0));
    double day = jexEncodeDateTime(2024, 3, 4, 0, 0, 0);
    int launches = 0;
    l.OnLaunch = [&](rtl::TObject*) { ++launches; };
    EXPECT_FALSE(l.Poll(day + 10.0 / 24)); // the first poll: 9:00 had passed, and missed times do not count
    EXPECT_FALSE(l.Poll(day + 11.0 / 24));
    EXPECT_TRUE(l.Poll(day + 1 + 9.5 / 24)); // the next day's 9:00
    ASSERT_EQ(ui.ShellExecutes().size(), 1u);
    EXPECT_EQ(ui.ShellExecutes()[0].File, "/usr/bin/backup");
    EXPECT_EQ(ui.ShellExecutes()[0].Parameters, "--all");
    EXPECT_EQ(ui.ShellExecutes()[0].ShowCmd, SW_SHOWMINIMIZED);
    EXPECT_FALSE(l.Poll(day + 1 + 10.0 / 24));
    l.SetContinuous(false);
    EXPECT_TRUE(l.Poll(day + 2 + 9.0 / 24));
    EXPECT_FALSE(l.Poll(day + 3 + 9.0 / 24)); // not continuous: done
    EXPECT_EQ(launches, 2);

    TjexLauncher missed(nullptr);
    missed.ShellParams()->SetFileName("/usr/bin/x");
    missed.SetLaunchType(jltOnce);
    missed.SetDate(day);
    missed.SetChecks({jlcMissed});
    EXPECT_TRUE(missed.Poll(day + 2));
    EXPECT_FALSE(missed.Poll(day + 3));
}

TEST_F(UtilsTest, TheFormSaverKeepsTheFormsPlace) {
    auto* saver = new TjexFormSaver(form);
    saver->SetIniFileName(P("places.ini"));
    saver->SaveForm();
    rtl::TIniFile ini(P("places.ini"));
    EXPECT_EQ(ini.ReadInteger("MainForm", "Left", -1), 10);
    EXPECT_EQ(ini.ReadInteger("MainForm", "Height", -1), 200);
    ini.WriteInteger("MainForm", "Left", 111);
    ini.WriteInteger("MainForm", "Width", 222);
    ini.WriteInteger("MainForm", "WindowState", wsMinimized);
    saver->SetOptions({jfoSize, jfoState});
    EXPECT_TRUE(saver->RestoreForm());
    EXPECT_EQ(form->Left(), 10); // position not restored
    EXPECT_EQ(form->Width(), 222);
    EXPECT_EQ(form->WindowState(), wsNormal); // never brought back minimized
    saver->SetOptions({jfoPosition, jfoSize, jfoState});
    saver->Loaded(); // run time: restores, and saves when the form closes
    EXPECT_EQ(form->Left(), 111);
    form->Show();
    form->SetBounds(5, 6, 400, 300);
    form->Close();
    EXPECT_EQ(rtl::TIniFile(P("places.ini")).ReadInteger("MainForm", "Width", -1), 400);
    saver->SetIniFileName("");
    Application()->SetExeName("");
    EXPECT_EQ(saver->IniPath(), "");
    EXPECT_FALSE(saver->RestoreForm());
}

TEST_F(UtilsTest, TheFormSizerKeepsTheFormWithinItsLimits) {
    auto* sizer = new TjexFormSizer(form);
    sizer->SetWidthMax(250);
    sizer->SetHeightMin(250);
    sizer->SetLeftMin(50);
    sizer->SetInitialFormPos(jfpScreenCenter);
    sizer->Loaded();
    EXPECT_EQ(form->Width(), 300); // not before the form shows
    form->Show();
    EXPECT_EQ(form->Width(), 250);
    EXPECT_EQ(form->Height(), 250);
    EXPECT_EQ(form->Left(), (Screen()->Width() - 250) / 2);
    form->SetBounds(0, 0, 600, 100);
    EXPECT_EQ(form->Left(), 50);
    EXPECT_EQ(form->Width(), 250);
    EXPECT_EQ(form->Height(), 250);
}

TEST_F(UtilsTest, TheStopWatchLogsWhatItIsAskedTo) {
    TjexStopWatch watch(nullptr);
    watch.SetLogFile(P("times.log"));
    watch.SetLogWhen({jlwStart, jlwStop});
    watch.Start();
    EXPECT_TRUE(watch.Running());
    int64_t lap = watch.Lap();
    int64_t total = watch.Stop();
    EXPECT_GE(total, lap);
    EXPECT_EQ(watch.Elapsed(), total);
    std::ifstream in(P("times.log"), std::ios::binary);
    std::string log((std::istreambuf_iterator<char>(in)), {});
    EXPECT_EQ(log, "Start: 0 ms\r\nStop: " + std::to_string(total) + " ms\r\n");
    watch.SetLogFormat("%d %d");
    EXPECT_THROW(watch.Stop(), rtl::EConvertError);
}

TEST_F(UtilsTest, TheDocumentAreaCoversItsChildWindows) {
    auto* scroll = new TjexMDIScroll(form);
    auto* child = new TForm(nullptr);
    child->SetFormStyle(fsMDIChild);
    child->SetBounds(100, 50, 400, 300);
    child->Show();
    EXPECT_EQ(scroll->ScrollRange(), Rect(100, 50, 500, 350));
    EXPECT_TRUE(scroll->Update());
    EXPECT_EQ(form->HorzScrollBar()->Range(), 500);
    scroll->SetEnabled(false);
    EXPECT_FALSE(scroll->Update());
    child->Free();
}

TEST_F(UtilsTest, TheHookSeesTheFormsMessages) {
    auto* hook = new TjexFormMessageHook(form);
    std::vector<unsigned> seen;
    intptr_t size = 0;
    hook->OnMessage = [&](rtl::TObject*, TjexMessage& m, bool& handled) {
        seen.push_back(m.Msg);
        if (m.Msg == WM_SIZE) size = m.LParam;
        handled = m.Msg == 1234;
    };
    hook->Loaded();
    form->Activate();
    form->SetBounds(0, 0, 320, 240);
    form->Deactivate();
    EXPECT_EQ(seen, (std::vector<unsigned>{WM_ACTIVATE, WM_SIZE, WM_ACTIVATE}));
    EXPECT_EQ(size & 0xFFFF, form->ClientWidth());
    EXPECT_EQ(size >> 16, form->ClientHeight());
    TjexMessage custom{1234, 0, 0, 0};
    EXPECT_TRUE(hook->Dispatch(custom));
}

TEST_F(UtilsTest, TheTrayIconShowsItsMenuAndImage) {
    auto* tray = new TjexTrayIcon(form);
    auto* menu = new TjexPopupMenu(form);
    menu->SetName("TrayMenu");
    tray->SetPopupMenu(menu);
    EXPECT_TRUE(menu->TrayIconOwned());
    tray->SetActive(true);
    EXPECT_FALSE(tray->Shown());
    tray->RightClickIcon(100, 100);
    ASSERT_EQ(ui.Popups().size(), 1u);
    EXPECT_EQ(ui.Popups()[0], "TrayMenu");
    auto* images = new TImageList(form);
    TBitmap strip;
    strip.SetSize(16, 16);
    strip.SetPixelRGB(3, 3, RGB(0, 0, 255));
    images->Add(&strip, nullptr);
    tray->SetImages(images);
    tray->SetImageIndex(0);
    TBitmap icon;
    tray->GetIcon(&icon);
    EXPECT_EQ(icon.PixelRGB(3, 3), RGB(0, 0, 255));
    int clicks = 0;
    tray->OnDblClick = [&](rtl::TObject*) { ++clicks; };
    tray->DblClickIcon();
    EXPECT_EQ(clicks, 1);
    menu->Free();
    images->Free();
    EXPECT_EQ(tray->PopupMenu(), nullptr);
    EXPECT_EQ(tray->Images(), nullptr);
}

} // namespace
