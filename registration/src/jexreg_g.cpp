// Jexreg_g: the "Jex Dialogs" palette page, and the dialog components' own properties in the library's "Jex"
// category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "ide/propedit.h"
#include "jex/jexdialogs.h"
#include "jex/jexfiledlg.h"
#include "jex/jexsplash.h"
#include "jex/jextips.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_g)

JEX_PACKAGE_REGISTER(jexreg_g) {
    ide::RegisterComponents("Jex Dialogs",
                            {TjexMessageDlg::StaticClass(), TjexProgressDlg::StaticClass(),
                             TjexBusy::StaticClass(), TjexSplash::StaticClass(),
                             TjexWelcomeTips::StaticClass(), TjexPageSetupDialog::StaticClass(),
                             TjexFileOpenEdit::StaticClass(), TjexFileSaveEdit::StaticClass(),
                             TjexDirectoryEdit::StaticClass(), TjexDirectoryDialog::StaticClass()});

    // The other property editor registrations of this unit come with the file-name editors and the value-list
    // editors.
    ide::RegisterPropertyEditor(rtl::TypeInfo_String(), TjexOpenDialogWrapper::StaticClass(), "Filter",
                                ide::TFilterProperty::StaticClass());
    ide::RegisterPropertyEditor(rtl::TypeInfo_String(), TjexSaveDialogWrapper::StaticClass(), "Filter",
                                ide::TFilterProperty::StaticClass());

    // Component editor registrations of this unit come with the file-name editors, the busy dialog editor,
    // the splash editor and the tips editor.

    jexRegisterPropertiesInCategory(TjexPageSetupDialog::StaticClass(),
                                    {"Margins", "MinMargins", "Options", "Units"});
    jexRegisterPropertiesInCategory(TjexDirectoryDialog::StaticClass(),
                                    {"DirButtonStyle", "DirDialogStyle", "Directory", "DirEditStyle",
                                     "DirLabelStyle", "HistoryList", "Options", "Title"});
    jexRegisterPropertiesInCategory(TjexFileOpenEdit::StaticClass(),
                                    {"ButtonDisabled", "ButtonVisible", "ClickOnEnterKey", "OpenDialog"});
    jexRegisterPropertiesInCategory(TjexFileSaveEdit::StaticClass(),
                                    {"ButtonDisabled", "ButtonVisible", "ClickOnEnterKey", "SaveDialog"});
    jexRegisterPropertiesInCategory(TjexDirectoryEdit::StaticClass(),
                                    {"ButtonDisabled", "ButtonVisible", "ClickOnEnterKey", "DirDialog"});
    jexRegisterPropertiesInCategory(TjexSplash::StaticClass(),
                                    {"AllowLocalBmp", "AutoShow", "Duration", "HideOnClick", "Picture",
                                     "PictureVGA", "ShowModal", "StayOnTop"});
    jexRegisterPropertiesInCategory(TjexWelcomeTips::StaticClass(),
                                    {"AutoShow", "CaptionGreeting", "CaptionShowNext", "CaptionTip",
                                     "HelpContents", "HelpWhatsNew", "IniFileName", "IniLocal",
                                     "VisibleButtons"});
    jexRegisterPropertiesInCategory(TjexBusy::StaticClass(),
                                    {"AVIPosition",  "AVISource",   "AVITransparent", "DlgColor",
                                     "DlgHeight",    "DlgLeft",     "DlgPosition",    "DlgTop",
                                     "DlgWidth",     "Message1",    "Message1Font",   "Message2",
                                     "Message2Font", "MinDuration", "Options",        "ProgressMax",
                                     "ProgressMin",  "ProgressPos", "ProgressStep",   "Sound"});
}
