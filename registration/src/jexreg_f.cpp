// Jexreg_f: the "Jex Controls" palette page, and the controls' own properties in the library's "Jex"
// category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"

using namespace dcljexc;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_f)

JEX_PACKAGE_REGISTER(jexreg_f) {

    // Property editor registrations of this unit come with the value-list editors, the string and colour list
    // editors and the rich text editors.

    // Component editor registrations of this unit come with the line editor and the rich text editors.
}
