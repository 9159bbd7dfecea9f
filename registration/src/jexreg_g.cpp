// Jexreg_g: the "Jex Dialogs" palette page, and the dialog components' own properties in the library's "Jex"
// category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexdialogs.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_g)

JEX_PACKAGE_REGISTER(jexreg_g) {
    // Rows of classes jexc60 does not have yet are added when it gets them: TjexBusy, TjexSplash,
    // TjexWelcomeTips, TjexPageSetupDialog, TjexFileOpenEdit, TjexFileSaveEdit, TjexDirectoryEdit,
    // TjexDirectoryDialog.

    ide::RegisterComponents("Jex Dialogs", {TjexMessageDlg::StaticClass(), TjexProgressDlg::StaticClass()});

    // Property editor registrations of this unit come with the file-name editors and the value-list editors.

    // Component editor registrations of this unit come with the file-name editors, the busy dialog editor,
    // the splash editor and the tips editor.
}
