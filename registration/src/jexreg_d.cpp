// Jexreg_d: the "Jex Data Access" palette page, and the exception and hint/help manager components' own
// properties in the library's "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexappexc.h"
#include "jex/jexdbaccess.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_d)

JEX_PACKAGE_REGISTER(jexreg_d) {
    ide::RegisterComponents("Jex Data Access",
                            {TjexAppException::StaticClass(), TjexDSAppException::StaticClass(),
                             TjexDBHintManager::StaticClass(), TjexDBHelpManager::StaticClass()});

    // Property editor registrations of this unit come with the file-name editors.

    jexRegisterPropertiesInCategory(TjexAppException::StaticClass(),
                                    {"ConfirmTerminate", "ExcepLog", "ExcepMsg", "Terminate"});
    jexRegisterPropertiesInCategory(TjexDSAppException::StaticClass(),
                                    {"ConfirmTerminate", "ExcepLog", "ExcepMsg", "Terminate"});
    jexRegisterPropertiesInCategory(
        TjexDBHintManager::StaticClass(),
        {"HintColor", "HintHidePause", "HintPause", "HintShortPause", "HintTable", "KeyFirstParentForm"});
    jexRegisterPropertiesInCategory(TjexDBHelpManager::StaticClass(),
                                    {"HelpTable", "KeyFirstParentForm", "Template"});
}
