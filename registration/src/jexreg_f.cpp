// Jexreg_f: the "Jex Controls" palette page, and the controls' own properties in the library's "Jex"
// category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"

using namespace dcljexc;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_f)

JEX_PACKAGE_REGISTER(jexreg_f) {
    // Rows of classes jexc60 does not have yet are added when it gets them: TjexShapeForm, TjexRichEdit,
    // TjexCheckListBox, TjexFontComboBox, TjexColorComboBox, TjexLine, TjexMDITabs, TjexButtonEdit,
    // TjexCheckBox, TjexRadioButton, TjexPopupSelect, TjexBackground, TjexMDIBackground, TjexTiledImage,
    // TjexMDITiledImage, TjexKeyState, TjexActiveHighlight, TjexShape, TjexFrame, TjexAutoTabSet,
    // TjexLRComboBox, TjexLRListBox, TjexROMemo, TjexTabListBox, TjexSyncListBox, TjexTransImage,
    // TjexSpinEdit.

    // Property editor registrations of this unit come with the value-list editors, the string and colour list
    // editors and the rich text editors.

    // Component editor registrations of this unit come with the line editor and the rich text editors.
}
