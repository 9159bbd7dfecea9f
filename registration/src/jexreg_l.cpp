// Jexreg_l: the "Jex Attached Label" palette page, and the attached labels' own properties in the library's
// "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexlabeled.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_l)

JEX_PACKAGE_REGISTER(jexreg_l) {
    ide::RegisterComponents("Jex Attached Label",
                            {TjexLEdit::StaticClass(), TjexLMaskEdit::StaticClass(),
                             TjexLSpinEdit::StaticClass(), TjexLMemo::StaticClass(),
                             TjexLListBox::StaticClass(), TjexLComboBox::StaticClass(),
                             TjexLImage::StaticClass(), TjexLPanel::StaticClass(),
                             TjexLScrollBox::StaticClass(), TjexLTreeView::StaticClass()});

    jexRegisterPropertiesInCategory(TjexSubLabel::StaticClass(),
                                    {"Enabled", "FocusControl", "Locked", "Visible"});
}
