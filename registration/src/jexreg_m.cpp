// Jexreg_m: the "Jex DB Attached Label" palette page, and the data-aware attached labels' own properties in
// the library's "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexdblabeled.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_m)

JEX_PACKAGE_REGISTER(jexreg_m) {
    ide::RegisterComponents(
        "Jex DB Attached Label",
        {TjexLDBText::StaticClass(), TjexLDBEdit::StaticClass(), TjexLDBAutoEdit::StaticClass(),
         TjexLDBMemo::StaticClass(), TjexLDBImage::StaticClass(), TjexLDBListBox::StaticClass(),
         TjexLDBComboBox::StaticClass(), TjexLDBCheckBox::StaticClass(), TjexLDBRadioGroup::StaticClass(),
         TjexLDBLookupList::StaticClass(), TjexLDBLookupCombo::StaticClass(),
         TjexLDBLookupListBox::StaticClass(), TjexLDBLookupComboBox::StaticClass()});

    jexRegisterPropertiesInCategory(TjexDBSubLabel::StaticClass(),
                                    {"CaptionAuto", "Enabled", "FocusControl", "Locked", "Visible"});
}
