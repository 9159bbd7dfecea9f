// Jexreg_c: the "Jex Data Controls" palette page (and the data-aware toolbar edit), and the data controls'
// own properties in the library's "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexdbctrls.h"
#include "jex/jexdbgrids.h"
#include "jex/jexdbtree.h"
#include "jex/jexnav.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_c)

JEX_PACKAGE_REGISTER(jexreg_c) {
    ide::RegisterComponents("Jex Toolbars && Menus", {TjexToolbarDBEdit::StaticClass()});
    ide::RegisterComponents(
        "Jex Data Controls",
        {TjexDBTreeView::StaticClass(), TjexDBRichEdit::StaticClass(), TjexDBSuperNav::StaticClass(),
         TjexDBEditWin::StaticClass(), TjexHDBGrid::StaticClass(), TjexDBIndexCombo::StaticClass(),
         TjexDBFilter::StaticClass(), TjexDBRangeEdit::StaticClass(), TjexDBAutoEdit::StaticClass(),
         TjexDBFixedGrid::StaticClass(), TjexDBEditLabel::StaticClass(), TjexDBRecordCount::StaticClass(),
         TjexDBState::StaticClass(), TjexDBCurrencyLabel::StaticClass(), TjexLRDBComboBox::StaticClass(),
         TjexDBDateTimePicker::StaticClass(), TjexDBMonthCalendar::StaticClass()});

    // Property editor registrations of this unit come with the data-aware editors.

    // Component editor registrations of this unit come with the grid, query and index editors.

    jexRegisterPropertiesInCategory(TjexDBSuperNav::StaticClass(),
                                    {"Flat", "GlyphColor", "Hints", "MoveBy", "NavSpeed", "VisibleButtons"});
    jexRegisterPropertiesInCategory(
        TjexDBEditWin::StaticClass(),
        {"AutoCaption",   "AutoScroll",      "EditAutoSize",     "EditColor",       "EditFont",
         "EditHints",     "EditParentColor", "EditParentFont",   "EditShowHint",    "EditWidth",
         "FieldOffsetH",  "FieldOffsetV",    "FieldReadOnly",    "HorzScrollBar",   "LabelAlignment",
         "LabelAutoSize", "LabelCaptions",   "LabelColor",       "LabelFont",       "LabelHeight",
         "LabelOffsetH",  "LabelOffsetV",    "LabelParentColor", "LabelParentFont", "LabelWidth",
         "LabelWordWrap", "LayoutEdit",      "LayoutLabel",      "MarginLeft",      "MarginTop",
         "MaxWidth",      "PopupAutoEdit",   "PopupEditBlobAs",  "PopupFormStyle",  "VertScrollBar"});
    jexRegisterPropertiesInCategory(
        TjexHDBGrid::StaticClass(),
        {"AlignTitles", "ColSizing", "ColWidth", "FixedColor", "NumCols", "Options", "TitleWidth"});
    jexRegisterPropertiesInCategory(TjexDBIndexCombo::StaticClass(),
                                    {"GoToFirst", "ItemIndex", "Sorted", "TableIndexItems"});
    jexRegisterPropertiesInCategory(TjexDBFilter::StaticClass(),
                                    {"AutoActivate", "Filter", "FilterOptions", "GoToFirst"});
    jexRegisterPropertiesInCategory(TjexDBRangeEdit::StaticClass(),
                                    {"ApplyRangeWhen", "GoToFirst", "Separator"});
    jexRegisterPropertiesInCategory(TjexDBAutoEdit::StaticClass(),
                                    {"PopupAutoEdit", "PopupEditBlobAs", "PopupFormStyle"});
    jexRegisterPropertiesInCategory(TjexDBFixedGrid::StaticClass(), {"FixedCols"});
    jexRegisterPropertiesInCategory(TjexDBEditLabel::StaticClass(),
                                    {"CaptionAuto", "EditColor", "EditFont", "EditParentColor",
                                     "EditParentFont", "LabelFont", "LabelHeight", "LabelOffsetX",
                                     "LabelOffsetY", "LabelParentFont", "LabelWidth", "Layout"});
    jexRegisterPropertiesInCategory(TjexDBRecordCount::StaticClass(), {"DisabledCaption", "Mask"});
    jexRegisterPropertiesInCategory(TjexDBState::StaticClass(), {"DisabledCaption", "Mask", "States"});
    jexRegisterPropertiesInCategory(
        TjexDBCurrencyLabel::StaticClass(),
        {"CurrFractionFormat", "CurrFractionText", "CurrText", "FirstUpperCase", "HandleException"});
    jexRegisterPropertiesInCategory(TjexDBTreeView::StaticClass(),
                                    {"DataSources", "Options", "SyncJEXNavPanel", "OnDeletion", "OnGetText"});
    jexRegisterPropertiesInCategory(TjexDBRichEdit::StaticClass(),
                                    {"AcceptDroppedFiles", "EditorOptions", "EditorWindowState",
                                     "FileTemplate", "PopupOptions", "PrintMargins", "PrintTitle"});
    jexRegisterPropertiesInCategory(TjexDBDateTimePicker::StaticClass(),
                                    {"DataField", "DataFieldCheckBox", "DataSource"});
    jexRegisterPropertiesInCategory(TjexDBMonthCalendar::StaticClass(),
                                    {"DataField", "DataFieldEndDate", "DataSource"});
}
