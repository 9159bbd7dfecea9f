// Jexdfabh: the extended-hint and About window. While it is open it watches the hints the designer shows
// and, for a library component's palette icon, shows the component's glyph and catalogue description; it
// also shows the installed release, checks the published current release over HTTP, and opens help and
// the library's Explore document.
#pragma once

#include <string>

#include "jex/jexdialogs.h"
#include "jex/jexlabels.h"
#include "rtl/resources.h"
#include "vcl/extctrls.h"
#include "vcl/forms.h"
#include "vcl/stdctrls.h"

namespace dcljexc {

// The URL of the vendor's release-information file: plain text holding the current release ("6.0.1").
JEX_DECLARE_RESOURCESTRING(_jexIDEReleaseURL);
// "Move the mouse over the Jex component palette icons to view extended hints."
JEX_DECLARE_RESOURCESTRING(_sjexpropdsgnHintAboutMoveMouse);

// Where the Explore document's path is kept, at HKEY_LOCAL_MACHINE, value "Explore".
inline constexpr const char* jexRegistryKey = "Software\\Quentrel\\Jex\\6.0";

class TjexdfHintAbout : public vcl::TForm {
    JEX_CLASS(TjexdfHintAbout, vcl::TForm)
    explicit TjexdfHintAbout(rtl::TComponent* AOwner);

    vcl::TImage* imgComponent2;
    vcl::TImage* imgComponent1;
    vcl::TImage* imgComponent;
    vcl::TPanel* pnlCompDesc;
    vcl::TLabel* lblCompDesc;
    jex::TjexMultilineLabel* lbmVersion;
    jex::TjexVersionLabel* jexVersionLabel1;
    jex::TjexURLLabel* jexURLLabel1;
    jex::TjexMailToLabel* jexMailToLabel1;
    jex::TjexMouseLabel* lblURLCheckRelease;
    vcl::TButton* btnExplore;
    vcl::TButton* btnCancel;
    vcl::TButton* btnHelp;
    jex::TjexMessageDlg* jexMessageDlg1;

    void FormCreate(rtl::TObject* Sender);
    void FormClose(rtl::TObject* Sender, vcl::TCloseAction& Action);
    void FormDestroy(rtl::TObject* Sender);
    // The application's hint handler while the window exists: the handler installed before runs first.
    void AppShowHint(std::string& HintStr, bool& CanShow, vcl::THintInfo& HintInfo);
    void lblURLCheckReleaseClick(rtl::TObject* Sender);
    void btnHelpClick(rtl::TObject* Sender);
    void btnExploreClick(rtl::TObject* Sender);
    void btnCancelClick(rtl::TObject* Sender);

    const std::string& jexClassName() const { return FjexClassName; }
    // Shows the glyph and the description of the named class.
    void SetjexClassName(const std::string& Value);
    const std::string& ExplorePath() const { return FExplorePath; }

private:
    void LoadComponentBitmap();
    void LoadDescriptions();

    std::string FjexClassName;
    vcl::TShowHintEvent FOldShowHint;
    std::string FExplorePath;
    bool FHooked = false; // OnShowHint is ours to give back
};

// The one window, nil while it is closed.
extern TjexdfHintAbout* jexdfHintAbout;

// Opens the window (created on first use, owned by the application) with the move-the-mouse text, or
// brings the open one forward with its texts reset.
void jexShowIDEHintAbout();

// The release check's fetch: at most 1023 bytes of the URL's body, up to the first zero byte; empty on
// any failure. Never raises.
std::string jexReadReleaseText(const std::string& URL);

// Lines describing the running system for a support mail, in the shape of the platform's version lines:
// "  <system name and version>" from OsReleaseFile (else /usr/lib/os-release), then
// "  <kernel> <release> (Build <version>) <machine>". Appended to Lines.
void jexGetWindowsVersionStrings(rtl::TStrings* Lines, const std::string& OsReleaseFile = "/etc/os-release");

namespace Jexdfabh {
// Stop closes a window still open, so that no window and no hint handler of an unloaded package remains.
void Start();
void Stop();
} // namespace Jexdfabh

} // namespace dcljexc
