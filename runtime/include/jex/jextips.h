// The tip-of-the-day component: tips kept in an INI file (section "TIP TEXT", keys Tip1, Tip2 ... up to the
// first missing or empty one), the next tip and the show-on-startup choice in section "TIPS", and the
// window that shows them.
#pragma once

#include <string>
#include <vector>

#include "jex/jexcommon.h"
#include "vcl/forms.h"
#include "vcl/stdctrls.h"

namespace jex {

// The tip window: "lblGreeting", "lblTipCaption", the tip in "memTip", "lblProgress", the check box
// "chkShowOnStartup" and the buttons "btnNext", "btnContents", "btnWhatsNew", "btnClose".
class TjexTipsForm : public vcl::TForm {
    JEX_CLASS(TjexTipsForm, vcl::TForm)
    explicit TjexTipsForm(rtl::TComponent* AOwner);
    vcl::TLabel* lblGreeting;
    vcl::TLabel* lblTipCaption;
    vcl::TMemo* memTip;
    vcl::TLabel* lblProgress;
    vcl::TCheckBox* chkShowOnStartup;
    vcl::TButton* btnNext;
    vcl::TButton* btnContents;
    vcl::TButton* btnWhatsNew;
    vcl::TButton* btnClose;
};

JEX_ENUM(TjexTipsButton, jtbNext, jtbContents, jtbWhatsNew, jtbClose)
JEX_SET(TjexTipsButtons, TjexTipsButton)

// The tips come from SharedTipFileName when it is set (several programs may share one tip file), else
// from IniFileName, which always holds "NextTip" and "ShowOnStartup". With IniLocal the INI file names
// are relative to the application's folder. Execute shows the window when ShowOnStartup allows (or
// ForceShow says so): the next tip, Next for the one after it, help for Contents and What's New; closing
// the window stores the tip after the one shown and the check box.
class TjexCustomWelcomeTips : public rtl::TComponent {
    JEX_CLASS(TjexCustomWelcomeTips, rtl::TComponent)
    explicit TjexCustomWelcomeTips(rtl::TComponent* AOwner);
    bool AutoShow() const { return FAutoShow; }
    void SetAutoShow(bool Value) { FAutoShow = Value; }
    std::string CaptionGreeting() const { return FCaptionGreeting; }
    void SetCaptionGreeting(const std::string& Value) { FCaptionGreeting = Value; }
    // The progress text: "%d" stands for the tip's number and the count ("Tip %d of %d").
    std::string CaptionProgress() const { return FCaptionProgress; }
    void SetCaptionProgress(const std::string& Value) { FCaptionProgress = Value; }
    std::string CaptionShowNext() const { return FCaptionShowNext; }
    void SetCaptionShowNext(const std::string& Value) { FCaptionShowNext = Value; }
    std::string CaptionTip() const { return FCaptionTip; }
    void SetCaptionTip(const std::string& Value) { FCaptionTip = Value; }
    vcl::THelpContext HelpContents() const { return FHelpContents; }
    void SetHelpContents(vcl::THelpContext Value) { FHelpContents = Value; }
    vcl::THelpContext HelpWhatsNew() const { return FHelpWhatsNew; }
    void SetHelpWhatsNew(vcl::THelpContext Value) { FHelpWhatsNew = Value; }
    std::string IniFileName() const { return FIniFileName; }
    void SetIniFileName(const std::string& Value) { FIniFileName = Value; }
    bool IniLocal() const { return FIniLocal; }
    void SetIniLocal(bool Value) { FIniLocal = Value; }
    std::string SharedTipFileName() const { return FSharedTipFileName; }
    void SetSharedTipFileName(const std::string& Value) { FSharedTipFileName = Value; }
    bool ShowProgress() const { return FShowProgress; }
    void SetShowProgress(bool Value) { FShowProgress = Value; }
    TjexTipsButtons VisibleButtons() const { return FVisibleButtons; }
    void SetVisibleButtons(TjexTipsButtons Value) { FVisibleButtons = Value; }
    // Shows the window even when ShowOnStartup is off (a preview does so).
    bool ForceShow = false;

    // The INI file names as used (IniLocal applied).
    std::string IniPath() const;
    std::string TipPath() const;
    std::vector<std::string> Tips() const;
    // "NextTip" (1-based, default 1) and "ShowOnStartup" (default true) of the INI file.
    int NextTip() const;
    bool ShowOnStartup() const;
    // The tip number that follows Tip (wrapping after the last).
    int TipAfter(int Tip) const;
    // Shows the window; false when it stayed closed (no tips, or not on startup), raises EInvalidOperation
    // when IniFileName is empty.
    virtual bool Execute();
    void Loaded() override;

private:
    bool FAutoShow = true;
    std::string FCaptionGreeting = "Welcome";
    std::string FCaptionProgress = "Tip %d of %d";
    std::string FCaptionShowNext = "&Show Tips on Startup";
    std::string FCaptionTip = "Did you know...";
    vcl::THelpContext FHelpContents = 0, FHelpWhatsNew = 0;
    std::string FIniFileName;
    bool FIniLocal = false;
    std::string FSharedTipFileName;
    bool FShowProgress = true;
    TjexTipsButtons FVisibleButtons{jtbNext, jtbClose};
};

class TjexWelcomeTips : public TjexCustomWelcomeTips {
    JEX_CLASS(TjexWelcomeTips, TjexCustomWelcomeTips)
    using TjexCustomWelcomeTips::TjexCustomWelcomeTips;
};

} // namespace jex
