// Jexreg_m: the "Jex DB Attached Label" palette page, and the data-aware attached labels' own properties in
// the library's "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"

using namespace dcljexc;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_m)

JEX_PACKAGE_REGISTER(jexreg_m) {
    // Rows of classes jexc60 does not have yet are added when it gets them: TjexLDBText, TjexLDBEdit,
    // TjexLDBAutoEdit, TjexLDBMemo, TjexLDBImage, TjexLDBListBox, TjexLDBComboBox, TjexLDBCheckBox,
    // TjexLDBRadioGroup, TjexLDBLookupList, TjexLDBLookupCombo, TjexLDBLookupListBox, TjexLDBLookupComboBox,
    // TjexDBSubLabel.
}
