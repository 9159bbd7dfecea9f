// Jexreg_l: the "Jex Attached Label" palette page, and the attached labels' own properties in the library's
// "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"

using namespace dcljexc;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_l)

JEX_PACKAGE_REGISTER(jexreg_l) {
    // Rows of classes jexc60 does not have yet are added when it gets them: TjexLEdit, TjexLMaskEdit,
    // TjexLSpinEdit, TjexLMemo, TjexLListBox, TjexLComboBox, TjexLImage, TjexLPanel, TjexLScrollBox,
    // TjexLTreeView, TjexSubLabel.
}
