// Jexreg_k: the "Jex Utils" palette page, and the utility components' own properties in the library's "Jex"
// category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexfiledlg.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_k)

JEX_PACKAGE_REGISTER(jexreg_k) {
    // Rows of classes jexc60 does not have yet are added when it gets them: TjexIdleTimeout,
    // TjexTitleGradient, TjexSingleInstance, TjexLauncher, TjexFormSaver, TjexFormSizer, TjexStopWatch,
    // TjexMDIScroll, TjexFormMessageHook, TjexTrayIcon.

    // Property editor registrations of this unit come with the file-name editors and the value-list editors.
}
