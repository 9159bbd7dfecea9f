// Jexreg_c: the "Jex Data Controls" palette page (and the data-aware toolbar edit), and the data controls'
// own properties in the library's "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexnav.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_c)

JEX_PACKAGE_REGISTER(jexreg_c) {
    // Rows of classes jexc60 does not have yet are added when it gets them: TjexDBTreeView, TjexDBRichEdit,
    // TjexDBSuperNav, TjexDBEditWin, TjexHDBGrid, TjexDBIndexCombo, TjexDBFilter, TjexDBRangeEdit,
    // TjexDBAutoEdit, TjexDBFixedGrid, TjexDBEditLabel, TjexDBRecordCount, TjexDBState, TjexDBCurrencyLabel,
    // TjexLRDBComboBox, TjexDBDateTimePicker, TjexDBMonthCalendar.

    ide::RegisterComponents("Jex Toolbars && Menus", {TjexToolbarDBEdit::StaticClass()});

    // Property editor registrations of this unit come with the data-aware editors.

    // Component editor registrations of this unit come with the grid, query and index editors.
}
