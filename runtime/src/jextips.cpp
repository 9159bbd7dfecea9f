// The tip-of-the-day component and its window.
#include "jex/jextips.h"

#include <algorithm>

#include "jexpanelpub.h"
#include "rtl/inifiles.h"
#include "vcl/uiservice.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexTipsButton)
JEX_DEFINE_SET(TjexTipsButtons, TjexTipsButton)

namespace {
constexpr const char* kTips = "TIPS";
constexpr const char* kTipText = "TIP TEXT";
} // namespace

JEX_IMPLEMENT_CLASS(TjexTipsForm, TForm, "jextips") {}

TjexTipsForm::TjexTipsForm(rtl::TComponent* AOwner) : TForm(AOwner) {
    SetName("jexTipsForm");
    SetBorderStyle(bsDialog);
    SetPosition(poScreenCenter);
    SetClientWidth(400);
    SetClientHeight(230);
    auto label = [this](const char* name, int x, int y, int w) {
        auto* l = new TLabel(this);
        l->SetName(name);
        l->SetParent(this);
        l->SetBounds(x, y, w, 16);
        return l;
    };
    lblGreeting = label("lblGreeting", 12, 8, 376);
    lblTipCaption = label("lblTipCaption", 12, 32, 280);
    lblProgress = label("lblProgress", 300, 32, 88);
    memTip = new TMemo(this);
    memTip->SetName("memTip");
    memTip->SetParent(this);
    memTip->SetReadOnly(true);
    memTip->SetBounds(12, 52, 280, 140);
    chkShowOnStartup = new TCheckBox(this);
    chkShowOnStartup->SetName("chkShowOnStartup");
    chkShowOnStartup->SetParent(this);
    chkShowOnStartup->SetBounds(12, 202, 200, 17);
    auto button = [this](const char* name, const char* caption, int y) {
        auto* b = new TButton(this);
        b->SetName(name);
        b->SetParent(this);
        b->SetCaption(caption);
        b->SetBounds(304, y, 85, 25);
        return b;
    };
    btnNext = button("btnNext", "&Next Tip", 52);
    btnContents = button("btnContents", "&Contents", 84);
    btnWhatsNew = button("btnWhatsNew", "&What's New", 116);
    btnClose = button("btnClose", "Close", 167);
    btnClose->SetCancel(true);
    btnClose->SetDefault(true);
    btnClose->SetModalResult(mrOk);
}

JEX_IMPLEMENT_CLASS(TjexCustomWelcomeTips, rtl::TComponent, "jextips") {}

JEX_IMPLEMENT_CLASS(TjexWelcomeTips, TjexCustomWelcomeTips, "jextips") {
    d.Property("AutoShow", &TjexWelcomeTips::AutoShow, &TjexWelcomeTips::SetAutoShow).Default(true);
    d.Property("CaptionGreeting", &TjexWelcomeTips::CaptionGreeting, &TjexWelcomeTips::SetCaptionGreeting);
    d.Property("CaptionProgress", &TjexWelcomeTips::CaptionProgress, &TjexWelcomeTips::SetCaptionProgress);
    d.Property("CaptionShowNext", &TjexWelcomeTips::CaptionShowNext, &TjexWelcomeTips::SetCaptionShowNext);
    d.Property("CaptionTip", &TjexWelcomeTips::CaptionTip, &TjexWelcomeTips::SetCaptionTip);
    d.Property("HelpContents", &TjexWelcomeTips::HelpContents, &TjexWelcomeTips::SetHelpContents,
               rtl::TypeInfo_THelpContext())
        .Default(0);
    d.Property("HelpWhatsNew", &TjexWelcomeTips::HelpWhatsNew, &TjexWelcomeTips::SetHelpWhatsNew,
               rtl::TypeInfo_THelpContext())
        .Default(0);
    d.Property("IniFileName", &TjexWelcomeTips::IniFileName, &TjexWelcomeTips::SetIniFileName,
               rtl::TypeInfo_TFileName());
    d.Property("IniLocal", &TjexWelcomeTips::IniLocal, &TjexWelcomeTips::SetIniLocal).Default(false);
    d.Property("SharedTipFileName", &TjexWelcomeTips::SharedTipFileName,
               &TjexWelcomeTips::SetSharedTipFileName, rtl::TypeInfo_TFileName());
    d.Property("ShowProgress", &TjexWelcomeTips::ShowProgress, &TjexWelcomeTips::SetShowProgress)
        .Default(true);
    d.Property("VisibleButtons", &TjexWelcomeTips::VisibleButtons, &TjexWelcomeTips::SetVisibleButtons)
        .Default(TjexTipsButtons{jtbNext, jtbClose}.Bits());
}

TjexCustomWelcomeTips::TjexCustomWelcomeTips(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}

namespace {
std::string Localized(bool local, const std::string& name) {
    if (!local || name.empty()) return name;
    std::string exe = Application()->ExeName();
    return exe.empty() ? name : rtl::ExtractFilePath(exe) + name;
}
} // namespace

std::string TjexCustomWelcomeTips::IniPath() const {
    return Localized(FIniLocal, FIniFileName);
}

std::string TjexCustomWelcomeTips::TipPath() const {
    return FSharedTipFileName.empty() ? IniPath() : Localized(FIniLocal, FSharedTipFileName);
}

std::vector<std::string> TjexCustomWelcomeTips::Tips() const {
    std::vector<std::string> tips;
    std::string path = TipPath();
    if (path.empty()) return tips;
    rtl::TIniFile ini(path);
    for (int i = 1;; ++i) {
        std::string tip = ini.ReadString(kTipText, "Tip" + std::to_string(i), "");
        if (tip.empty()) break;
        tips.push_back(tip);
    }
    return tips;
}

int TjexCustomWelcomeTips::NextTip() const {
    if (IniPath().empty()) return 1;
    return rtl::TIniFile(IniPath()).ReadInteger(kTips, "NextTip", 1);
}

bool TjexCustomWelcomeTips::ShowOnStartup() const {
    if (IniPath().empty()) return true;
    return rtl::TIniFile(IniPath()).ReadBool(kTips, "ShowOnStartup", true);
}

int TjexCustomWelcomeTips::TipAfter(int Tip) const {
    int n = static_cast<int>(Tips().size());
    return n == 0 ? 1 : Tip % n + 1;
}

bool TjexCustomWelcomeTips::Execute() {
    if (FIniFileName.empty()) throw rtl::EInvalidOperation("IniFileName required");
    if (!ForceShow && !ShowOnStartup()) return false;
    std::vector<std::string> tips = Tips();
    if (tips.empty()) return false;
    int count = static_cast<int>(tips.size());
    int current = NextTip();
    if (current < 1 || current > count) current = 1;

    auto* form = NewForm<TjexTipsForm>(nullptr);
    try {
        auto show = [&] {
            form->memTip->SetText(tips[current - 1]);
            form->lblProgress->SetCaption(rtl::Format(FCaptionProgress, {current, count}));
        };
        form->SetCaption(FCaptionTip);
        form->lblGreeting->SetCaption(FCaptionGreeting);
        form->lblTipCaption->SetCaption(FCaptionTip);
        form->lblProgress->SetVisible(FShowProgress);
        form->chkShowOnStartup->SetCaption(FCaptionShowNext);
        form->chkShowOnStartup->SetChecked(ShowOnStartup());
        form->btnNext->SetVisible(FVisibleButtons.Contains(jtbNext) && count > 1);
        form->btnContents->SetVisible(FVisibleButtons.Contains(jtbContents));
        form->btnWhatsNew->SetVisible(FVisibleButtons.Contains(jtbWhatsNew));
        form->btnClose->SetVisible(FVisibleButtons.Contains(jtbClose));
        form->btnNext->OnClick = [&](rtl::TObject*) {
            current = current % count + 1;
            show();
        };
        form->btnContents->OnClick = [this](rtl::TObject*) { Application()->HelpContext(FHelpContents); };
        form->btnWhatsNew->OnClick = [this](rtl::TObject*) { Application()->HelpContext(FHelpWhatsNew); };
        show();
        form->ShowModal();
        rtl::TIniFile ini(IniPath());
        ini.WriteInteger(kTips, "NextTip", current % count + 1);
        ini.WriteBool(kTips, "ShowOnStartup", form->chkShowOnStartup->Checked());
        form->Free();
        return true;
    } catch (...) {
        form->Free();
        throw;
    }
}

void TjexCustomWelcomeTips::Loaded() {
    rtl::TComponent::Loaded();
    // Without a user interface (a form read by a tool) there is no screen to show it on.
    if (FAutoShow && !IsDesigning() && !FIniFileName.empty() && UIInstalled()) Execute();
}

static const TjexLibraryUnit<TjexWelcomeTips> jextipsUnit("jextips");

} // namespace jex
