// Jexreg_k: the "Jex Utils" palette page, and the utility components' own properties in the library's "Jex"
// category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"

using namespace dcljexc;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_k)

JEX_PACKAGE_REGISTER(jexreg_k) {

    // Property editor registrations of this unit come with the file-name editors and the value-list editors.
}
