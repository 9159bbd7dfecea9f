// The extended-hint and About window, driven through the scripted user interface: its texts, the hint
// chain, glyphs with their ancestor fallback, help and Explore, one window at most, and the release check
// against a real HTTP server on 127.0.0.1.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include <sys/utsname.h>

#include "catalogue_testutil.h"
#include "dcljexc/jexdfabh.h"
#include "dcljexc/jexdsncn.h"
#include "dcljexc/jexinet.h"
#include "jex/jexdock.h"
#include "rtl/registry.h"
#include "vcl/graphics.h"
#include "vcl/scripted_ui.h"

using namespace dcljexc;
using namespace vcl;
namespace fs = std::filesystem;

// A library class the catalogue does not list, whose palette glyph is its ancestor's.
class TjexTestDock : public jex::TjexDock {
    JEX_CLASS(TjexTestDock, jex::TjexDock)
    explicit TjexTestDock(rtl::TComponent* AOwner) : jex::TjexDock(AOwner) {}
};
JEX_IMPLEMENT_CLASS(TjexTestDock, jex::TjexDock, "jexdfabh_test") {}

namespace {

const std::string MoveMouse = "Move the mouse over the Jex component palette icons to view extended hints.";

class Jexdfabh : public ::testing::Test {
protected:
    void SetUp() override {
        std::string templ = (fs::temp_directory_path() / "jexdfabhXXXXXX").string();
        Dir = mkdtemp(templ.data());
        rtl::SetSystemDirectory(Dir + "/system");
        dcljexc::Jexdsncn::Start();
        dcljexc::Jexdfabh::Start();
        for (rtl::TClass c : {jex::TjexDock::StaticClass(), TjexTestDock::StaticClass()})
            if (rtl::RegisteredClassCount(c->ClassName()) == 0) {
                rtl::RegisterClass(c);
                Registered.push_back(c);
            }
        Host = new TForm(nullptr);
        Icon = new TButton(Host);
        Icon->SetParent(Host);
        Icon->SetShowHint(true);
    }
    void TearDown() override {
        dcljexc::Jexdfabh::Stop(); // frees a window still open, as unloading the package does
        Application()->ProcessMessages();
        Host->Free();
        for (rtl::TClass c : Registered)
            rtl::UnRegisterClass(c);
        dcljexc::Jexdsncn::Stop();
        rtl::SetSystemDirectory("");
        fs::remove_all(Dir);
    }

    // The palette shows its hint for a component icon: the class name without "T".
    std::string Hover(const std::string& Hint) {
        Icon->SetHint(Hint);
        return Application()->ActivateHint(Icon);
    }
    TjexdfHintAbout* Open() {
        jexShowIDEHintAbout();
        return jexdfHintAbout;
    }
    std::string Description() const { return jexdfHintAbout->lblCompDesc->Caption(); }
    // Runs the release check with the release URL pointing at Url, and returns the lines of the message.
    std::vector<std::string> CheckRelease(const std::string& Url) {
        Translation->Set("_jexIDEReleaseURL", Url);
        TFormDriver form = UI.OpenForm("TjexdfHintAbout");
        form.Click("lblURLCheckRelease");
        std::vector<std::string> lines;
        rtl::TStrings* l = jexdfHintAbout->jexMessageDlg1->Lines();
        for (int i = 0; i < l->Count(); ++i)
            lines.push_back((*l)[i]);
        return lines;
    }
    TMsgDlgType LastMessageType() const { return UI.Messages().back().Request.Type; }

    std::string Dir;
    TScriptedUI UI;
    cattest::TPackageModuleScope Package;
    std::unique_ptr<cattest::TPackageTranslation> Translation =
        std::make_unique<cattest::TPackageTranslation>(Package.Module());
    std::vector<rtl::TClass> Registered;
    TForm* Host = nullptr;
    TButton* Icon = nullptr;
};

// The glyph resource of a class as a bitmap.
std::unique_ptr<TBitmap> Glyph(rtl::TResourceModule& module, const std::string& name) {
    auto bmp = std::make_unique<TBitmap>();
    const std::vector<uint8_t>* bytes = rtl::FindBitmapResource(module, name);
    if (bytes) bmp->LoadFromBytes(*bytes);
    return bmp;
}

} // namespace

TEST_F(Jexdfabh, OpensWithItsControlsTextsAndTheSupportMail) {
    TjexdfHintAbout* form = Open();
    ASSERT_NE(form, nullptr);
    TFormDriver driver = UI.OpenForm("TjexdfHintAbout");
    EXPECT_EQ(driver.Form(), form);
    EXPECT_EQ(form->Caption(), "Jex 6");
    EXPECT_EQ(form->BorderStyle(), bsToolWindow);
    EXPECT_EQ(form->BorderIcons(), TBorderIcons{biSystemMenu});
    EXPECT_EQ(form->Position(), poScreenCenter);
    EXPECT_EQ(Description(), MoveMouse);
    EXPECT_FALSE(form->lblCompDesc->ShowAccelChar());
    EXPECT_TRUE(form->lblCompDesc->WordWrap());
    for (const char* name :
         {"imgComponent", "imgComponent1", "imgComponent2", "lblCompDesc", "lbmVersion", "jexURLLabel1",
          "jexMailToLabel1", "lblURLCheckRelease", "btnExplore", "btnCancel", "btnHelp"})
        EXPECT_NO_THROW(driver.Control(name)) << name;
    EXPECT_EQ(form->imgComponent->Left(), 8);
    EXPECT_EQ(form->imgComponent1->Left(), 16);
    EXPECT_EQ(form->imgComponent2->Top(), 24);
    EXPECT_FALSE(form->jexVersionLabel1->Visible());
    EXPECT_EQ(form->lblURLCheckRelease->Caption(), "Current release");
    EXPECT_EQ(form->lblURLCheckRelease->Hint(), "http: check the current release number");
    EXPECT_EQ(form->lblURLCheckRelease->Cursor(), crHandPoint);
    EXPECT_TRUE(form->btnExplore->Default());
    EXPECT_TRUE(form->btnCancel->Cancel());
    EXPECT_EQ(form->jexMessageDlg1->Caption(), "Jex 6");

    EXPECT_EQ(form->lbmVersion->Lines()->Count(), 2);
    EXPECT_EQ((*form->lbmVersion->Lines())[0], "Release 6.0.1 Vantor Edition");
    EXPECT_EQ(form->lbmVersion->Caption().substr(0, 30), "Release 6.0.1 Vantor Edition\r\n");

    EXPECT_EQ(form->jexMailToLabel1->Subject(), "Jex Support");
    std::vector<std::string> expected(6, "");
    expected.push_back("Installed Version:");
    expected.push_back("  Jex 6.0.1 Vantor Edition");
    // The invisible version label reads the package's own version resource.
    expected.push_back("  libdclJEXC.so Build 6.0.1.0 Jex 6");
    expected.push_back("");
    rtl::TStringList system;
    jexGetWindowsVersionStrings(&system);
    for (int i = 0; i < system.Count(); ++i)
        expected.push_back(system[i]);
    expected.push_back("");
    std::vector<std::string> body;
    for (int i = 0; i < form->jexMailToLabel1->Body()->Count(); ++i)
        body.push_back((*form->jexMailToLabel1->Body())[i]);
    EXPECT_EQ(body, expected);
}

TEST_F(Jexdfabh, APaletteHintShowsTheComponentsDescriptionAndFramedGlyph) {
    Open();
    EXPECT_EQ(Hover("jexDock"), "jexDock") << "the hint itself is shown unchanged";
    EXPECT_EQ(jexdfHintAbout->jexClassName(), "TjexDock");
    EXPECT_EQ(Description(), jexIDEComponentDescription("TjexDock"));
    EXPECT_EQ(Description().rfind("TjexDock is a container", 0), 0u);

    std::unique_ptr<TBitmap> glyph = Glyph(Package.Module(), "TJEXDOCK");
    ASSERT_EQ(glyph->Width(), 24);
    const uint32_t transparent = ColorToRGB(glyph->TransparentColor());
    const uint32_t face = ColorToRGB(clBtnFace);
    for (TImage* img :
         {jexdfHintAbout->imgComponent, jexdfHintAbout->imgComponent1, jexdfHintAbout->imgComponent2}) {
        auto* shown = dynamic_cast<TBitmap*>(img->Picture()->Graphic());
        ASSERT_NE(shown, nullptr);
        ASSERT_EQ(shown->Width(), 26);
        ASSERT_EQ(shown->Height(), 26);
        EXPECT_EQ(img->Width(), 26) << "auto-sized to the framed glyph";
        EXPECT_EQ(shown->PixelRGB(0, 0), ColorToRGB(clBtnHighlight));
        EXPECT_EQ(shown->PixelRGB(0, 24), ColorToRGB(clBtnHighlight));
        EXPECT_EQ(shown->PixelRGB(25, 25), ColorToRGB(clBtnShadow));
        EXPECT_EQ(shown->PixelRGB(12, 25), ColorToRGB(clBtnShadow));
        int transparentPixels = 0;
        for (int y = 0; y < 24; ++y)
            for (int x = 0; x < 24; ++x) {
                const uint32_t g = glyph->PixelRGB(x, y);
                transparentPixels += g == transparent;
                ASSERT_EQ(shown->PixelRGB(x + 1, y + 1), g == transparent ? face : g) << x << "," << y;
            }
        EXPECT_GT(transparentPixels, 0) << "the dock glyph has a transparent corner to replace";
    }
}

TEST_F(Jexdfabh, OtherHintsBringBackTheMoveTheMouseTextAndKeepTheGlyph) {
    Open();
    Hover("jexDock");
    auto* before = dynamic_cast<TBitmap*>(jexdfHintAbout->imgComponent->Picture()->Graphic());
    ASSERT_NE(before, nullptr);
    const uint32_t corner = before->PixelRGB(5, 5);
    for (const char* hint : {"JexDock", "Cancel", "je", "http: check the current release number"}) {
        Hover(hint);
        EXPECT_EQ(Description(), MoveMouse) << hint;
    }
    EXPECT_EQ(jexdfHintAbout->jexClassName(), "TjexDock");
    auto* after = dynamic_cast<TBitmap*>(jexdfHintAbout->imgComponent->Picture()->Graphic());
    ASSERT_NE(after, nullptr);
    EXPECT_EQ(after->PixelRGB(5, 5), corner);
}

TEST_F(Jexdfabh, AClassWithoutGlyphShowsItsAncestorsAndAnUnknownOneKeepsThePicture) {
    Open();
    Hover("jexTestDock");
    EXPECT_EQ(jexdfHintAbout->jexClassName(), "TjexTestDock");
    EXPECT_EQ(Description(), "") << "not in the catalogue";
    auto* shown = dynamic_cast<TBitmap*>(jexdfHintAbout->imgComponent->Picture()->Graphic());
    ASSERT_NE(shown, nullptr);
    std::unique_ptr<TBitmap> dock = Glyph(Package.Module(), "TJEXDOCK");
    EXPECT_EQ(shown->PixelRGB(12, 5), dock->PixelRGB(11, 4)) << "the glyph of TjexDock";

    Hover("jexNavPanel"); // catalogued, but its class is not registered for streaming here
    EXPECT_EQ(Description(), jexIDEComponentDescription("TjexNavPanel"));
    shown = dynamic_cast<TBitmap*>(jexdfHintAbout->imgComponent->Picture()->Graphic());
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->PixelRGB(12, 5), dock->PixelRGB(11, 4)) << "TComponent has no glyph: the picture stays";
}

TEST_F(Jexdfabh, TheHandlerInstalledBeforeRunsFirstAndIsBackAfterClose) {
    int calls = 0;
    Application()->OnShowHint = [&](std::string& HintStr, bool& CanShow, THintInfo& Info) {
        ++calls;
        if (HintStr == "Special") HintStr = "jexDock"; // the previous handler may change the hint
    };
    Open();
    Hover("Special");
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(jexdfHintAbout->jexClassName(), "TjexDock") << "saw the hint as the old handler left it";
    UI.OpenForm("TjexdfHintAbout").Click("btnCancel");
    Application()->ProcessMessages();
    EXPECT_EQ(jexdfHintAbout, nullptr);
    EXPECT_EQ(Hover("Cancel"), "Cancel");
    EXPECT_EQ(calls, 2) << "the old handler is the application's handler again";
    Application()->OnShowHint = nullptr;
}

TEST_F(Jexdfabh, WithoutAPreviousHandlerNoneIsLeftBehind) {
    Application()->OnShowHint = nullptr;
    Open();
    EXPECT_TRUE(Application()->OnShowHint.Assigned());
    UI.OpenForm("TjexdfHintAbout").CloseForm();
    Application()->ProcessMessages();
    EXPECT_FALSE(Application()->OnShowHint.Assigned());
}

TEST_F(Jexdfabh, OneWindowAtMostWithItsTextsResetWhenOpenedAgain) {
    TjexdfHintAbout* first = Open();
    Hover("jexDock");
    first->SetCaption("changed");
    TjexdfHintAbout* second = Open();
    EXPECT_EQ(first, second);
    EXPECT_EQ(second->Caption(), "Jex 6");
    EXPECT_EQ(Description(), MoveMouse);
    int windows = 0;
    for (int i = 0; i < Screen()->FormCount(); ++i)
        windows += Screen()->Forms(i)->ClassType() == TjexdfHintAbout::StaticClass();
    EXPECT_EQ(windows, 1);

    // Closed and not yet freed: opening again gives a fresh window, and the old one is gone.
    UI.OpenForm("TjexdfHintAbout").Click("btnCancel");
    TjexdfHintAbout* third = Open();
    ASSERT_NE(third, nullptr);
    EXPECT_TRUE(third->Visible());
    windows = 0;
    for (int i = 0; i < Screen()->FormCount(); ++i)
        windows += Screen()->Forms(i)->ClassType() == TjexdfHintAbout::StaticClass();
    EXPECT_EQ(windows, 1);
}

TEST_F(Jexdfabh, HelpAsksForTheClassOrOpensTheHelpFile) {
    Open();
    Hover("jexDock");
    UI.OpenForm("TjexdfHintAbout").Click("btnHelp");
    ASSERT_EQ(UI.HelpCalls().size(), 1u);
    EXPECT_EQ(UI.HelpCalls()[0].Command, HELP_KEY);
    EXPECT_EQ(UI.HelpCalls()[0].Keyword, "TjexDock");
    EXPECT_FALSE(jexdfHintAbout->Visible()) << "the window closes first";
    Application()->ProcessMessages();
    EXPECT_EQ(jexdfHintAbout, nullptr);

    Open();
    UI.OpenForm("TjexdfHintAbout").Click("btnHelp");
    EXPECT_EQ(UI.HelpCalls().size(), 1u);
    ASSERT_EQ(UI.ShellExecutes().size(), 1u);
    EXPECT_EQ(UI.ShellExecutes()[0].Verb, "open");
    EXPECT_EQ(UI.ShellExecutes()[0].File, "winhlp32 jex6.hlp");
    EXPECT_EQ(UI.ShellExecutes()[0].Parameters, "");
    EXPECT_EQ(UI.ShellExecutes()[0].ShowCmd, SW_SHOWNORMAL);
}

TEST_F(Jexdfabh, ExploreOpensTheDocumentNamedInTheRegistry) {
    const std::string document = Dir + "/Explore Jex.html";
    std::ofstream(document) << "<html></html>";
    {
        rtl::TRegistry reg;
        reg.SetRootKey(rtl::HKEY_LOCAL_MACHINE);
        ASSERT_TRUE(reg.OpenKey(jexRegistryKey, true));
        reg.WriteString("Explore", document);
    }
    Open();
    EXPECT_EQ(jexdfHintAbout->ExplorePath(), document);
    EXPECT_TRUE(jexdfHintAbout->btnExplore->Enabled());
    UI.OpenForm("TjexdfHintAbout").Click("btnExplore");
    ASSERT_EQ(UI.ShellExecutes().size(), 1u);
    EXPECT_EQ(UI.ShellExecutes()[0].Verb, "open");
    EXPECT_EQ(UI.ShellExecutes()[0].File, document);
    EXPECT_FALSE(jexdfHintAbout->Visible());
}

TEST_F(Jexdfabh, ExploreIsDisabledForAMissingDocumentAndOnlyClosesWithoutTheKey) {
    {
        rtl::TRegistry reg;
        reg.SetRootKey(rtl::HKEY_LOCAL_MACHINE);
        ASSERT_TRUE(reg.OpenKey(jexRegistryKey, true));
        reg.WriteString("Explore", Dir + "/gone.html");
    }
    Open();
    EXPECT_FALSE(jexdfHintAbout->btnExplore->Enabled());
    UI.OpenForm("TjexdfHintAbout").Click("btnCancel");
    Application()->ProcessMessages();
    {
        rtl::TRegistry reg;
        reg.SetRootKey(rtl::HKEY_LOCAL_MACHINE);
        ASSERT_TRUE(reg.DeleteKey(jexRegistryKey));
    }
    Open();
    EXPECT_EQ(jexdfHintAbout->ExplorePath(), "");
    EXPECT_TRUE(jexdfHintAbout->btnExplore->Enabled());
    UI.OpenForm("TjexdfHintAbout").Click("btnExplore");
    EXPECT_TRUE(UI.ShellExecutes().empty());
    EXPECT_FALSE(jexdfHintAbout->Visible());
}

TEST_F(Jexdfabh, UnloadingThePackageClosesTheWindowAndGivesTheHintBack) {
    int calls = 0;
    Application()->OnShowHint = [&](std::string&, bool&, THintInfo&) { ++calls; };
    Open();
    dcljexc::Jexdfabh::Stop();
    EXPECT_EQ(jexdfHintAbout, nullptr);
    Hover("Cancel");
    EXPECT_EQ(calls, 1);
    Application()->OnShowHint = nullptr;
    dcljexc::Jexdfabh::Start(); // for TearDown's stop
}

// ---- Release check
// -------------------------------------------------------------------------------------------
TEST_F(Jexdfabh, TheCurrentReleaseIsRecognised) {
    cattest::THttpServer server;
    server.Answer(200, "6.0.1");
    Open();
    EXPECT_EQ(CheckRelease(server.Url()),
              (std::vector<std::string>{"", "You have the current release 6.0.1"}));
    EXPECT_EQ(LastMessageType(), mtInformation);
    EXPECT_EQ(UI.Messages().back().Request.Caption, "Jex 6");
    EXPECT_EQ(UI.Cursors(), (std::vector<TCursor>{crHourGlass, crDefault}));
    // The request as the release check makes it: a fresh copy, announced as the library.
    ASSERT_EQ(server.Requests().size(), 1u);
    const std::string request = server.Requests()[0];
    EXPECT_EQ(request.rfind("GET /jex6release.txt HTTP/1.1\r\n", 0), 0u) << request;
    EXPECT_NE(request.find("\r\nUser-Agent: Jex 6.0\r\n"), std::string::npos) << request;
    EXPECT_NE(request.find("\r\nPragma: no-cache"), std::string::npos) << request;
    EXPECT_NE(request.find("\r\nCache-Control: no-cache, max-age=0"), std::string::npos) << request;
}

TEST_F(Jexdfabh, AReleaseFileEndingInALineBreakReportsBothReleases) {
    cattest::THttpServer server;
    server.Answer(200, "6.0.1\r\n");
    Open();
    EXPECT_EQ(CheckRelease(server.Url()), (std::vector<std::string>{"", "You have release 6.0.1", "",
                                                                    "The current release is 6.0.1\r\n"}));
    EXPECT_EQ(LastMessageType(), mtInformation);
}

TEST_F(Jexdfabh, ANewerReleaseIsReported) {
    cattest::THttpServer server;
    server.Answer(200, "6.1.0");
    Open();
    EXPECT_EQ(CheckRelease(server.Url()),
              (std::vector<std::string>{"", "You have release 6.0.1", "", "The current release is 6.1.0"}));
}

TEST_F(Jexdfabh, AnEmptyOrBlankReleaseFileIsAWarningWithTheURL) {
    cattest::THttpServer server;
    Open();
    for (const char* body : {"", " \r\n\t"}) {
        server.Answer(200, body);
        EXPECT_EQ(CheckRelease(server.Url()),
                  (std::vector<std::string>{"", "Could not read the release URL", "", server.Url()}));
        EXPECT_EQ(LastMessageType(), mtWarning);
    }
    // The dialog type goes back to information for the next check.
    server.Answer(200, "6.0.1");
    CheckRelease(server.Url());
    EXPECT_EQ(LastMessageType(), mtInformation);
}

TEST_F(Jexdfabh, OnlyTheFirst1023BytesAreRead) {
    cattest::THttpServer server;
    std::string body;
    for (int i = 0; body.size() < 2000; ++i)
        body += static_cast<char>('0' + i % 10);
    body.resize(2000);
    server.Answer(200, body);
    EXPECT_EQ(jexReadReleaseText(server.Url()), body.substr(0, 1023));
    Open();
    std::vector<std::string> lines = CheckRelease(server.Url());
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[3], "The current release is " + body.substr(0, 1023));
}

TEST_F(Jexdfabh, TheTextEndsAtTheFirstZeroByte) {
    cattest::THttpServer server;
    server.Answer(200, std::string("6.0.1\0trailing", 14));
    Open();
    EXPECT_EQ(CheckRelease(server.Url()),
              (std::vector<std::string>{"", "You have the current release 6.0.1"}));
}

TEST_F(Jexdfabh, NetworkFailuresAreWarningsNotErrors) {
    Open();
    const std::string closed =
        "http://127.0.0.1:" + std::to_string(cattest::ClosedPort()) + "/jex6release.txt";
    EXPECT_EQ(CheckRelease(closed),
              (std::vector<std::string>{"", "Could not read the release URL", "", closed}));
    EXPECT_EQ(LastMessageType(), mtWarning);

    cattest::THttpServer server;
    server.Answer(404, "6.0.1");
    EXPECT_EQ(CheckRelease(server.Url())[1], "Could not read the release URL")
        << "an HTTP error is a failure";
    EXPECT_EQ(CheckRelease("ftp://127.0.0.1/jex6release.txt")[1], "Could not read the release URL");
    EXPECT_EQ(CheckRelease("not a url")[1], "Could not read the release URL");
    // The cursor comes back after every check.
    ASSERT_FALSE(UI.Cursors().empty());
    EXPECT_EQ(UI.Cursors().back(), crDefault);
}

TEST_F(Jexdfabh, AServerThatNeverAnswersTimesOut) {
    cattest::TEnvScope total("JEX_INTERNET_TIMEOUT_MS", "1200");
    cattest::TEnvScope connect("JEX_INTERNET_CONNECT_TIMEOUT_MS", "1000");
    cattest::THttpServer server;
    server.Hang();
    Open();
    const auto start = std::chrono::steady_clock::now();
    std::vector<std::string> lines = CheckRelease(server.Url());
    const auto elapsed = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(lines, (std::vector<std::string>{"", "Could not read the release URL", "", server.Url()}));
    EXPECT_EQ(LastMessageType(), mtWarning);
    EXPECT_GE(elapsed, std::chrono::milliseconds(1000));
    EXPECT_LT(elapsed, std::chrono::seconds(6));
}

TEST(JexInternet, ReadsInPiecesAndRefusesWrongHandles) {
    cattest::THttpServer server;
    server.Answer(200, "0123456789abcdef");
    HINTERNET internet = InternetOpen("Jex 6.0", INTERNET_OPEN_TYPE_DIRECT);
    ASSERT_NE(internet, nullptr);
    HINTERNET url = InternetOpenUrl(internet, server.Url("/piece"), "X-Test: 1\r\n", INTERNET_FLAG_RELOAD);
    ASSERT_NE(url, nullptr);
    char buffer[16] = {};
    uint32_t read = 99;
    EXPECT_FALSE(InternetReadFile(internet, buffer, 4, read)) << "a session is not a file";
    EXPECT_EQ(read, 0u);
    ASSERT_TRUE(InternetReadFile(url, buffer, 10, read));
    EXPECT_EQ(std::string(buffer, read), "0123456789");
    ASSERT_TRUE(InternetReadFile(url, buffer, 10, read));
    EXPECT_EQ(std::string(buffer, read), "abcdef");
    ASSERT_TRUE(InternetReadFile(url, buffer, 10, read));
    EXPECT_EQ(read, 0u) << "the end";
    const std::string request = server.Requests().at(0);
    EXPECT_NE(request.find("\r\nX-Test: 1"), std::string::npos) << request;
    EXPECT_NE(request.find("\r\nCache-Control: no-cache"), std::string::npos) << request;
    EXPECT_EQ(request.find("Pragma"), std::string::npos) << request;
    EXPECT_TRUE(InternetCloseHandle(url));
    EXPECT_EQ(InternetOpenUrl(url = nullptr, server.Url(), "", 0), nullptr);
    EXPECT_TRUE(InternetCloseHandle(internet));
    EXPECT_FALSE(InternetCloseHandle(nullptr));
    EXPECT_EQ(InternetOpen("x", 42), nullptr) << "unknown access type";
    EXPECT_EQ(InternetOpen("x", INTERNET_OPEN_TYPE_PROXY), nullptr) << "proxy access needs a proxy";
}

TEST(JexInternet, ABodyLongerThanTheLimitIsCutThere) {
    cattest::THttpServer server;
    server.Answer(200, std::string(InternetMaxBody + 5000, 'x'));
    HINTERNET internet = InternetOpen("Jex 6.0", INTERNET_OPEN_TYPE_DIRECT);
    HINTERNET url = InternetOpenUrl(internet, server.Url(), "", 0);
    ASSERT_NE(url, nullptr);
    std::vector<char> buffer(InternetMaxBody + 5000);
    uint32_t read = 0, total = 0;
    while (InternetReadFile(url, buffer.data(), static_cast<uint32_t>(buffer.size()), read) && read > 0)
        total += read;
    EXPECT_EQ(total, InternetMaxBody);
    InternetCloseHandle(url);
    InternetCloseHandle(internet);
}

// ---- System lines
// -----------------------------------------------------------------------------------------------
TEST(JexSystemLines, NameTheSystemFromOsReleaseAndTheKernelFromUname) {
    std::string templ = (fs::temp_directory_path() / "jexosXXXXXX").string();
    const std::string dir = mkdtemp(templ.data());
    struct utsname uts {};
    ASSERT_EQ(uname(&uts), 0);
    const std::string kernel =
        std::string("  ") + uts.sysname + " " + uts.release + " (Build " + uts.version + ") " + uts.machine;

    std::ofstream(dir + "/pretty") << "NAME=\"Test OS\"\n# comment\nVERSION=\"7 (Quiet)\"\n"
                                      "PRETTY_NAME=\"Test OS 7 \\\"Quiet\\\"\"\nID=test\n";
    rtl::TStringList lines;
    lines.Add("before");
    jexGetWindowsVersionStrings(&lines, dir + "/pretty");
    ASSERT_EQ(lines.Count(), 3);
    EXPECT_EQ(lines[0], "before") << "appended";
    EXPECT_EQ(lines[1], "  Test OS 7 \"Quiet\"");
    EXPECT_EQ(lines[2], kernel);

    std::ofstream(dir + "/plain") << "NAME=Plain\r\nVERSION_ID='3.2'\r\n";
    lines.Clear();
    jexGetWindowsVersionStrings(&lines, dir + "/plain");
    ASSERT_EQ(lines.Count(), 2);
    EXPECT_EQ(lines[0], "  Plain 3.2");
    fs::remove_all(dir);
}
