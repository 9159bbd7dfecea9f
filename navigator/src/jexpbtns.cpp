// Jexpbtns: the navigator panel, toolbar and button component editors. The unit has no start or stop work.
#include "dcljexc/jexpbtns.h"

#include "dcljexc/jexdfnav.h"
#include "dcljexc/jexdfnpb.h"
#include "dcljexc/units.h"
#include "jex/jexbuttons.h"
#include "rtl/resources.h"
#include "rtl/sysutils.h"
#include "vcl/dialogs.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexpbtns)

namespace dcljexc {

JEX_RESOURCESTRING(_sjexnpdsgnAddNavigatorButtons, "Add Navigator Buttons...");
JEX_RESOURCESTRING(_sjexnpdsgnDeleteAllButtons, "Delete All Buttons");
JEX_RESOURCESTRING(
    _sjexnpdsgnDeleteAllWarning,
    "All controls on the panel will be permanently deleted.%sAre you sure you want to continue?");
JEX_RESOURCESTRING(_sjexnpdsgnEditButtonStyle, "Edit Button Style...");

JEX_IMPLEMENT_CLASS(TjexNavPanelEditor, ide::TComponentEditor, "Jexpbtns") {}
JEX_IMPLEMENT_CLASS(TjexNavToolbarEditor, TjexNavPanelEditor, "Jexpbtns") {}
JEX_IMPLEMENT_CLASS(TjexnpButtonEditor, ide::TComponentEditor, "Jexpbtns") {}

namespace {

// Asks first; on Yes frees the panel's controls from the last to the first, so that the indexes of those
// still to go do not move.
bool DeleteAllControls(vcl::TWinControl* Panel) {
    std::string text = rtl::Format(rtl::LoadResString(_sjexnpdsgnDeleteAllWarning), {"\r\n"});
    if (vcl::MessageDlg(text, vcl::mtWarning, {vcl::mbYes, vcl::mbNo}, 0) != vcl::mrYes) return false;
    for (int i = Panel->ControlCount() - 1; i >= 0; --i)
        Panel->Controls(i)->Free();
    return true;
}

} // namespace

std::string TjexNavPanelEditor::GetVerb(int Index) {
    switch (Index) {
    case 0:
        return rtl::LoadResString(_sjexnpdsgnAddNavigatorButtons);
    case 1:
        return rtl::LoadResString(_sjexnpdsgnDeleteAllButtons);
    default:
        return {};
    }
}

void TjexNavPanelEditor::ExecuteVerb(int Index) {
    auto* panel = dynamic_cast<vcl::TWinControl*>(Component());
    if (!panel) return;
    bool changed = false;
    if (Index == 0)
        changed = ExecjexdfNavPanelEdit(panel);
    else if (Index == 1)
        changed = DeleteAllControls(panel);
    if (changed) Designer()->Modified();
}

std::string TjexnpButtonEditor::GetVerb(int) {
    return rtl::LoadResString(_sjexnpdsgnEditButtonStyle);
}

void TjexnpButtonEditor::ExecuteVerb(int) {
    auto* button = dynamic_cast<jex::TjexCustomPicSpeedBtn*>(Component());
    if (button && ExecjexdfNavBtnEdit(button)) Designer()->Modified();
}

} // namespace dcljexc
