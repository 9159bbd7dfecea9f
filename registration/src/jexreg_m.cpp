// Jexreg_m: the "Jex DB Attached Label" palette page, and the data-aware attached labels' own properties in
// the library's "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"

using namespace dcljexc;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_m)

JEX_PACKAGE_REGISTER(jexreg_m) {}
