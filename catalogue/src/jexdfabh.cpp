// Jexdfabh: the extended-hint and About window, its release check and the system lines of the support
// mail.
#include "dcljexc/jexdfabh.h"

#include <sys/utsname.h>

#include <fstream>
#include <vector>

#include "dcljexc/jexdsncn.h"
#include "dcljexc/jexinet.h"
#include "dcljexc/units.h"
#include "rtl/registry.h"
#include "vcl/graphics.h"

namespace dcljexc {

using namespace vcl;

JEX_RESOURCESTRING(_jexIDEReleaseURL, "https://www.quentrel.example/jex/jex6release.txt");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutMoveMouse,
                   "Move the mouse over the Jex component palette icons to view extended hints.");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutCaption, "Jex 6");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutRelease, "Release ");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutNotice, "Copyright (c) Quentrel. All rights reserved.");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutWebCaption, "www.quentrel.example");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutWebURL, "https://www.quentrel.example/jex/");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutSupportAddress, "jexsupport@quentrel.example");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutSupportSubject, "Jex Support");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutInstalledVersion, "Installed Version:");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutCheckRelease, "Current release");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutCheckReleaseHint, "http: check the current release number");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutExplore, "Explore...");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutCancel, "Cancel");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutHelp, "&Help");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutCouldNotRead, "Could not read the release URL");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutHaveCurrent, "You have the current release ");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutHaveRelease, "You have release ");
JEX_RESOURCESTRING(_sjexpropdsgnHintAboutCurrentIs, "The current release is ");

TjexdfHintAbout* jexdfHintAbout = nullptr;

namespace {
ide::TUnitGuard Guard;

// The help file opened when no class is chosen, and the agent the release check announces itself as.
constexpr const char* HelpFileCommand = "winhlp32 jex6.hlp";
constexpr const char* ReleaseAgent = "Jex 6.0";

template <class T> T* Make(rtl::TComponent* owner, const char* name) {
    T* c = new T(owner);
    c->SetName(name);
    return c;
}

// A control owned by the form, on parent.
template <class T>
T* Place(TjexdfHintAbout* form, TWinControl* parent, const char* name, int left, int top, int width,
         int height) {
    T* c = Make<T>(form, name);
    c->SetParent(parent);
    c->SetBounds(left, top, width, height);
    return c;
}
} // namespace

JEX_IMPLEMENT_CLASS(TjexdfHintAbout, TForm, "Jexdfabh") {}

TjexdfHintAbout::TjexdfHintAbout(rtl::TComponent* AOwner) : TForm(AOwner) {
    SetName("jexdfHintAbout");
    SetCaption(rtl::LoadResString(_sjexpropdsgnHintAboutCaption));
    SetBorderStyle(bsToolWindow);
    SetBorderIcons({biSystemMenu});
    SetPosition(poScreenCenter);
    SetClientWidth(360);
    SetClientHeight(248);

    // Three copies of the glyph, stacked towards the corner like a pile of palette icons.
    imgComponent2 = Place<TImage>(this, this, "imgComponent2", 24, 24, 26, 26);
    imgComponent1 = Place<TImage>(this, this, "imgComponent1", 16, 16, 26, 26);
    imgComponent = Place<TImage>(this, this, "imgComponent", 8, 8, 26, 26);
    for (TImage* img : {imgComponent2, imgComponent1, imgComponent}) {
        img->SetAutoSize(true);
        img->SetStretch(true);
    }

    pnlCompDesc = Place<TPanel>(this, this, "pnlCompDesc", 64, 8, 288, 96);
    pnlCompDesc->SetBevelOuter(vcl::bvLowered);
    pnlCompDesc->SetColor(clWhite);
    pnlCompDesc->SetCaption("");
    lblCompDesc = Place<TLabel>(this, pnlCompDesc, "lblCompDesc", 1, 1, 286, 94);
    lblCompDesc->SetAutoSize(false);
    lblCompDesc->SetAlign(alClient);
    lblCompDesc->SetWordWrap(true);
    lblCompDesc->SetShowAccelChar(false);

    lbmVersion = Place<jex::TjexMultilineLabel>(this, this, "lbmVersion", 64, 112, 288, 30);

    jexVersionLabel1 = Place<jex::TjexVersionLabel>(this, this, "jexVersionLabel1", 8, 112, 48, 13);
    jexVersionLabel1->SetVisible(false);
    jexVersionLabel1->SetModuleName(jexThisModule().Name());
    for (const char* key : {"OriginalFilename", "FileVersion", "ProductName"})
        jexVersionLabel1->VersionInfo()->Add()->SetKey(key);

    jexURLLabel1 = Place<jex::TjexURLLabel>(this, this, "jexURLLabel1", 64, 148, 160, 13);
    jexURLLabel1->SetCaption(rtl::LoadResString(_sjexpropdsgnHintAboutWebCaption));
    jexURLLabel1->SetURL(rtl::LoadResString(_sjexpropdsgnHintAboutWebURL));
    jexURLLabel1->SetCursor(crHandPoint);

    jexMailToLabel1 = Place<jex::TjexMailToLabel>(this, this, "jexMailToLabel1", 64, 166, 160, 13);
    jexMailToLabel1->SetCaption(rtl::LoadResString(_sjexpropdsgnHintAboutSupportAddress));
    jexMailToLabel1->SetMailTo(rtl::LoadResString(_sjexpropdsgnHintAboutSupportAddress));
    jexMailToLabel1->SetSubject(rtl::LoadResString(_sjexpropdsgnHintAboutSupportSubject));
    jexMailToLabel1->SetCursor(crHandPoint);
    for (int i = 0; i < 6; ++i)
        jexMailToLabel1->Body()->Add("");
    jexMailToLabel1->Body()->Add(rtl::LoadResString(_sjexpropdsgnHintAboutInstalledVersion));

    lblURLCheckRelease = Place<jex::TjexMouseLabel>(this, this, "lblURLCheckRelease", 64, 184, 160, 13);
    lblURLCheckRelease->SetCaption(rtl::LoadResString(_sjexpropdsgnHintAboutCheckRelease));
    lblURLCheckRelease->SetCursor(crHandPoint);
    lblURLCheckRelease->SetHint(rtl::LoadResString(_sjexpropdsgnHintAboutCheckReleaseHint));
    lblURLCheckRelease->SetShowHint(true);
    lblURLCheckRelease->OnClick = rtl::TNotifyEvent(this, &TjexdfHintAbout::lblURLCheckReleaseClick);

    btnExplore = Place<TButton>(this, this, "btnExplore", 88, 212, 84, 25);
    btnExplore->SetCaption(rtl::LoadResString(_sjexpropdsgnHintAboutExplore));
    btnExplore->SetDefault(true);
    btnExplore->OnClick = rtl::TNotifyEvent(this, &TjexdfHintAbout::btnExploreClick);

    btnCancel = Place<TButton>(this, this, "btnCancel", 178, 212, 84, 25);
    btnCancel->SetCaption(rtl::LoadResString(_sjexpropdsgnHintAboutCancel));
    btnCancel->SetCancel(true);
    btnCancel->OnClick = rtl::TNotifyEvent(this, &TjexdfHintAbout::btnCancelClick);

    btnHelp = Place<TButton>(this, this, "btnHelp", 268, 212, 84, 25);
    btnHelp->SetCaption(rtl::LoadResString(_sjexpropdsgnHintAboutHelp));
    btnHelp->OnClick = rtl::TNotifyEvent(this, &TjexdfHintAbout::btnHelpClick);

    jexMessageDlg1 = Make<jex::TjexMessageDlg>(this, "jexMessageDlg1");
    jexMessageDlg1->SetCaption(rtl::LoadResString(_sjexpropdsgnHintAboutCaption));
    jexMessageDlg1->SetButtons({mbOK});
    jexMessageDlg1->SetDlgType(mtInformation);

    OnCreate = rtl::TNotifyEvent(this, &TjexdfHintAbout::FormCreate);
    OnClose = TCloseEvent(this, &TjexdfHintAbout::FormClose);
    OnDestroy = rtl::TNotifyEvent(this, &TjexdfHintAbout::FormDestroy);
}

void TjexdfHintAbout::FormCreate(rtl::TObject*) {
    TApplication* app = Application();
    FOldShowHint = app->OnShowHint;
    app->OnShowHint = TShowHintEvent(this, &TjexdfHintAbout::AppShowHint);
    FHooked = true;

    const std::string release = jex::jexLibraryRelease();
    const std::string edition = jex::jexLibraryEdition();
    rtl::TStrings* version = lbmVersion->Lines();
    version->Clear();
    version->Add(rtl::LoadResString(_sjexpropdsgnHintAboutRelease) + release + " " + edition);
    version->Add(rtl::LoadResString(_sjexpropdsgnHintAboutNotice));

    {
        rtl::TRegistry reg;
        reg.SetRootKey(rtl::HKEY_LOCAL_MACHINE);
        if (reg.OpenKeyReadOnly(jexRegistryKey)) {
            FExplorePath = reg.ReadString("Explore");
            if (!rtl::FileExists(FExplorePath)) btnExplore->SetEnabled(false);
        }
    }

    rtl::TStrings* body = jexMailToLabel1->Body();
    body->Add("  Jex " + release + " " + edition);
    body->Add("  " + jexVersionLabel1->ItemValue(0) + " Build " + jexVersionLabel1->ItemValue(1) + " " +
              jexVersionLabel1->ItemValue(2));
    body->Add("");
    jexGetWindowsVersionStrings(body);
    body->Add("");
}

void TjexdfHintAbout::FormClose(rtl::TObject*, TCloseAction& Action) {
    Action = caFree;
}

void TjexdfHintAbout::FormDestroy(rtl::TObject*) {
    if (FHooked) Application()->OnShowHint = FOldShowHint;
    FHooked = false;
    if (jexdfHintAbout == this) jexdfHintAbout = nullptr;
}

void TjexdfHintAbout::AppShowHint(std::string& HintStr, bool& CanShow, THintInfo& HintInfo) {
    if (FOldShowHint) FOldShowHint(HintStr, CanShow, HintInfo);
    // The palette's hint is the class name without its "T"; anything else is not a library icon.
    if (HintStr.compare(0, 3, "jex") != 0) {
        lblCompDesc->SetCaption(rtl::LoadResString(_sjexpropdsgnHintAboutMoveMouse));
        return;
    }
    SetjexClassName("T" + HintStr);
}

void TjexdfHintAbout::SetjexClassName(const std::string& Value) {
    FjexClassName = Value;
    LoadComponentBitmap();
    LoadDescriptions();
}

void TjexdfHintAbout::LoadDescriptions() {
    lblCompDesc->SetCaption(jexIDEComponentDescription(FjexClassName));
}

void TjexdfHintAbout::LoadComponentBitmap() {
    rtl::TClass cls = rtl::GetClass(FjexClassName);
    if (!cls) cls = rtl::TComponent::StaticClass();
    std::vector<uint8_t> found;
    for (; cls && cls != rtl::TPersistent::StaticClass(); cls = cls->ClassParent()) {
        const std::string resName = rtl::UpperCase(cls->ClassName());
        rtl::EnumResourceModules([&](rtl::TResourceModule& module) {
            if (const std::vector<uint8_t>* bytes = rtl::FindBitmapResource(module, resName)) found = *bytes;
            return found.empty();
        });
        if (!found.empty()) break;
    }
    if (found.empty()) return;

    TBitmap glyph;
    try {
        glyph.LoadFromBytes(found);
    } catch (const rtl::Exception&) {
        return; // a broken resource leaves the previous picture, as a missing one does
    }
    const uint32_t face = ColorToRGB(clBtnFace);
    const uint32_t highlight = ColorToRGB(clBtnHighlight);
    const uint32_t shadow = ColorToRGB(clBtnShadow);
    const uint32_t transparent = ColorToRGB(glyph.TransparentColor());
    const int w = glyph.Width() + 2, h = glyph.Height() + 2;
    TBitmap framed;
    framed.SetSize(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            framed.SetPixelRGB(x, y, face);
    for (int x = 0; x < w; ++x)
        framed.SetPixelRGB(x, 0, highlight);
    for (int y = 0; y < h; ++y)
        framed.SetPixelRGB(0, y, highlight);
    for (int x = 0; x < w; ++x)
        framed.SetPixelRGB(x, h - 1, shadow);
    for (int y = 0; y < h; ++y)
        framed.SetPixelRGB(w - 1, y, shadow);
    for (int y = 0; y < glyph.Height(); ++y)
        for (int x = 0; x < glyph.Width(); ++x) {
            const uint32_t rgb = glyph.PixelRGB(x, y);
            framed.SetPixelRGB(x + 1, y + 1, rgb == transparent ? face : rgb);
        }
    for (TImage* img : {imgComponent, imgComponent1, imgComponent2})
        img->Picture()->Assign(&framed);
}

std::string jexReadReleaseText(const std::string& URL) {
    std::string result;
    HINTERNET internet = nullptr, url = nullptr;
    try {
        internet = InternetOpen(ReleaseAgent, INTERNET_OPEN_TYPE_DIRECT, "", "", 0);
        if (internet)
            url = InternetOpenUrl(internet, URL, "",
                                  INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE |
                                      INTERNET_FLAG_PRAGMA_NOCACHE | INTERNET_FLAG_RESYNCHRONIZE,
                                  0);
        if (url) {
            std::vector<char> buffer(1024, '\0');
            uint32_t read = 0;
            if (InternetReadFile(url, buffer.data(), 1023, read) && read > 0) result = buffer.data();
        }
    } catch (...) {
        result.clear();
    }
    InternetCloseHandle(url);
    InternetCloseHandle(internet);
    return result;
}

void TjexdfHintAbout::lblURLCheckReleaseClick(rtl::TObject*) {
    const std::string url = rtl::LoadResString(_jexIDEReleaseURL);
    Screen()->SetCursor(crHourGlass);
    std::string text;
    try {
        text = jexReadReleaseText(url);
    } catch (...) {
        Screen()->SetCursor(crDefault);
        throw;
    }
    Screen()->SetCursor(crDefault);

    const std::string release = jex::jexLibraryRelease();
    rtl::TStrings* lines = jexMessageDlg1->Lines();
    lines->Clear();
    jexMessageDlg1->SetDlgType(mtInformation);
    if (rtl::Trim(text).empty()) {
        lines->Add("");
        lines->Add(rtl::LoadResString(_sjexpropdsgnHintAboutCouldNotRead));
        lines->Add("");
        lines->Add(url);
        jexMessageDlg1->SetDlgType(mtWarning);
    } else if (release == text) {
        // Compared untrimmed on purpose: a published file ending in a line break reports both releases.
        lines->Add("");
        lines->Add(rtl::LoadResString(_sjexpropdsgnHintAboutHaveCurrent) + release);
    } else {
        lines->Add("");
        lines->Add(rtl::LoadResString(_sjexpropdsgnHintAboutHaveRelease) + release);
        lines->Add("");
        lines->Add(rtl::LoadResString(_sjexpropdsgnHintAboutCurrentIs) + text);
    }
    jexMessageDlg1->Execute();
}

void TjexdfHintAbout::btnHelpClick(rtl::TObject*) {
    Close();
    // HELP_KEY with the class name as the keyword; the platform's keyword call carries the text itself.
    if (!FjexClassName.empty())
        Application()->HelpKeyword(FjexClassName);
    else
        vcl::ShellExecute("open", HelpFileCommand, "", "", SW_SHOWNORMAL);
}

void TjexdfHintAbout::btnExploreClick(rtl::TObject*) {
    if (rtl::FileExists(FExplorePath)) vcl::ShellExecute("open", FExplorePath, "", "", SW_SHOWNORMAL);
    Close();
}

void TjexdfHintAbout::btnCancelClick(rtl::TObject*) {
    Close();
}

void jexShowIDEHintAbout() {
    // A window closed a moment ago waits to be freed; it goes now, so that a fresh one opens.
    if (jexdfHintAbout && !jexdfHintAbout->Visible()) jexdfHintAbout->Free();
    if (!jexdfHintAbout) jexdfHintAbout = NewForm<TjexdfHintAbout>(Application());
    jexdfHintAbout->SetCaption(rtl::LoadResString(_sjexpropdsgnHintAboutCaption));
    jexdfHintAbout->lblCompDesc->SetCaption(rtl::LoadResString(_sjexpropdsgnHintAboutMoveMouse));
    jexdfHintAbout->Show();
}

// ---- System lines ---------------------------------------------------------------------------------------
namespace {

// The value of KEY=value in an os-release file: quotes removed, backslash escapes inside double quotes.
std::string OsReleaseValue(const std::string& line) {
    size_t eq = line.find('=');
    std::string v = rtl::Trim(line.substr(eq + 1));
    if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front()) {
        const char quote = v.front();
        std::string out;
        for (size_t i = 1; i + 1 < v.size(); ++i) {
            if (quote == '"' && v[i] == '\\' && i + 2 < v.size()) ++i;
            out += v[i];
        }
        return out;
    }
    return v;
}

bool ReadOsRelease(const std::string& file, std::string& pretty, std::string& name, std::string& version) {
    std::ifstream in(file);
    if (!in) return false;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        std::string key = rtl::Trim(line.substr(0, line.find('=')));
        if (line.find('=') == std::string::npos || key.empty() || key[0] == '#') continue;
        if (key == "PRETTY_NAME")
            pretty = OsReleaseValue(line);
        else if (key == "NAME")
            name = OsReleaseValue(line);
        else if (key == "VERSION")
            version = OsReleaseValue(line);
        else if (key == "VERSION_ID" && version.empty())
            version = OsReleaseValue(line);
    }
    return true;
}

} // namespace

void jexGetWindowsVersionStrings(rtl::TStrings* Lines, const std::string& OsReleaseFile) {
    if (!Lines) return;
    struct utsname uts {};
    const bool haveUname = uname(&uts) == 0;
    std::string pretty, name, version;
    if (!ReadOsRelease(OsReleaseFile, pretty, name, version))
        ReadOsRelease("/usr/lib/os-release", pretty, name, version);
    std::string system = !pretty.empty() ? pretty : rtl::Trim(name + " " + version);
    if (system.empty()) system = haveUname ? uts.sysname : "Unknown system";
    Lines->Add("  " + system);
    if (haveUname)
        Lines->Add(std::string("  ") + uts.sysname + " " + uts.release + " (Build " + uts.version + ") " +
                   uts.machine);
}

namespace Jexdfabh {

void Start() {
    Guard.Start();
}

void Stop() {
    if (!Guard.Stop()) return;
    if (jexdfHintAbout) jexdfHintAbout->Free();
}

} // namespace Jexdfabh

} // namespace dcljexc
