// Jexreg_d: the "Jex Data Access" palette page, and the exception and hint/help manager components' own
// properties in the library's "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"

using namespace dcljexc;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_d)

JEX_PACKAGE_REGISTER(jexreg_d) {
    // Rows of classes jexc60 does not have yet are added when it gets them: TjexAppException,
    // TjexDSAppException, TjexDBHintManager, TjexDBHelpManager.

    // Property editor registrations of this unit come with the file-name editors.
}
