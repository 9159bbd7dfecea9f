// Jexreg_b: the "Jex DB Nav" palette page, and the navigator panels, toolbars and buttons' own properties in
// the library's "Jex" category. Its start makes the navigator button classes streamable by name; its stop
// withdraws them.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexnav.h"
#include "vcl/controls.h"

using namespace dcljexc;
using namespace jex;

namespace dcljexc::Jexreg_b {
namespace {
ide::TUnitGuard Guard;

std::vector<rtl::TClass> StreamedClasses() {
    return {TjexnpFirst::StaticClass(),          TjexnpJumpBack::StaticClass(),
            TjexnpPrev::StaticClass(),           TjexnpNext::StaticClass(),
            TjexnpJumpFwd::StaticClass(),        TjexnpLast::StaticClass(),
            TjexnpInsert::StaticClass(),         TjexnpAppend::StaticClass(),
            TjexnpDuplicateRec::StaticClass(),   TjexnpEdit::StaticClass(),
            TjexnpDataSourceEdit::StaticClass(), TjexnpBlobEdit::StaticClass(),
            TjexnpFindReplace::StaticClass(),    TjexnpDelete::StaticClass(),
            TjexnpCancel::StaticClass(),         TjexnpPost::StaticClass(),
            TjexnpRefresh::StaticClass(),        TjexnpEmptyTable::StaticClass(),
            TjexnpBookmark::StaticClass(),       TjexnpBookmarkMenu::StaticClass(),
            TjexnpFindKey::StaticClass(),        TjexnpIndexCombo::StaticClass(),
            TjexnpRange::StaticClass(),          TjexnpRangeEdit::StaticClass(),
            TjexnpFilterActive::StaticClass(),   TjexnpFilterExpression::StaticClass(),
            TjexnpSQLStartTrans::StaticClass(),  TjexnpSQLCommit::StaticClass(),
            TjexnpSQLRollback::StaticClass(),    TjexnpQueryParams::StaticClass(),
            TjexnpDBInfo::StaticClass(),         TjexnpState::StaticClass(),
            TjexnpRecordCount::StaticClass()};
}
} // namespace

void Start() {
    if (!Guard.Start()) return;
    rtl::ActivateClassGroup(vcl::TControl::StaticClass());
    rtl::RegisterClasses(StreamedClasses());
}

void Stop() {
    if (!Guard.Stop()) return;
    rtl::UnRegisterClasses(StreamedClasses());
}
} // namespace dcljexc::Jexreg_b

JEX_PACKAGE_REGISTER(jexreg_b) {
    ide::RegisterComponents("Jex DB Nav", {TjexNavToolbar::StaticClass(),
                                           TjexNavPanel::StaticClass(),
                                           TjexNavFormLink::StaticClass(),
                                           TjexnpFirst::StaticClass(),
                                           TjexnpJumpBack::StaticClass(),
                                           TjexnpPrev::StaticClass(),
                                           TjexnpNext::StaticClass(),
                                           TjexnpJumpFwd::StaticClass(),
                                           TjexnpLast::StaticClass(),
                                           TjexnpInsert::StaticClass(),
                                           TjexnpAppend::StaticClass(),
                                           TjexnpDuplicateRec::StaticClass(),
                                           TjexnpEdit::StaticClass(),
                                           TjexnpDataSourceEdit::StaticClass(),
                                           TjexnpBlobEdit::StaticClass(),
                                           TjexnpFindReplace::StaticClass(),
                                           TjexnpDelete::StaticClass(),
                                           TjexnpCancel::StaticClass(),
                                           TjexnpPost::StaticClass(),
                                           TjexnpRefresh::StaticClass(),
                                           TjexnpEmptyTable::StaticClass(),
                                           TjexnpBookmark::StaticClass(),
                                           TjexnpBookmarkMenu::StaticClass(),
                                           TjexnpFindKey::StaticClass(),
                                           TjexnpIndexCombo::StaticClass(),
                                           TjexnpRange::StaticClass(),
                                           TjexnpRangeEdit::StaticClass(),
                                           TjexnpFilterActive::StaticClass(),
                                           TjexnpFilterExpression::StaticClass(),
                                           TjexnpSQLStartTrans::StaticClass(),
                                           TjexnpSQLCommit::StaticClass(),
                                           TjexnpSQLRollback::StaticClass(),
                                           TjexnpQueryParams::StaticClass(),
                                           TjexnpDBInfo::StaticClass(),
                                           TjexnpState::StaticClass(),
                                           TjexnpRecordCount::StaticClass()});

    // Property editor registrations of this unit come with the navigator button editor.

    // Component editor registrations of this unit come with the navigator button editor.

    jexRegisterPropertiesInCategory(TjexNavToolbar::StaticClass(),
                                    {"ActivateParent", "AutoDataSource", "AutoField", "CloseButton",
                                     "DataSource", "DefaultDock", "DockableTo", "DockedTo", "DockMode",
                                     "DockPos", "DockRow", "DragHandle", "FloatingMode", "FullSize",
                                     "HideWhenInactive"});
    jexRegisterPropertiesInCategory(TjexNavPanel::StaticClass(),
                                    {"AutoDataSource", "AutoField", "DataSource"});
    jexRegisterPropertiesInCategory(
        TjexnpFirst::StaticClass(),
        {"DisabledShadow", "Layout", "Margin", "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpJumpBack::StaticClass(),
                                    {"Accelerate", "DisabledShadow", "Layout", "Margin", "MoveBy", "Picture",
                                     "PictureHighlight", "RepeatEnabled", "RepeatInitialPause", "RepeatPause",
                                     "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpPrev::StaticClass(),
                                    {"Accelerate", "DisabledShadow", "Layout", "Margin", "Picture",
                                     "PictureHighlight", "RepeatEnabled", "RepeatInitialPause", "RepeatPause",
                                     "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpNext::StaticClass(),
                                    {"Accelerate", "DisabledShadow", "Layout", "Margin", "Picture",
                                     "PictureHighlight", "RepeatEnabled", "RepeatInitialPause", "RepeatPause",
                                     "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpJumpFwd::StaticClass(),
                                    {"Accelerate", "DisabledShadow", "Layout", "Margin", "MoveBy", "Picture",
                                     "PictureHighlight", "RepeatEnabled", "RepeatInitialPause", "RepeatPause",
                                     "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(
        TjexnpLast::StaticClass(),
        {"DisabledShadow", "Layout", "Margin", "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(
        TjexnpInsert::StaticClass(),
        {"DisabledShadow", "Layout", "Margin", "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(
        TjexnpAppend::StaticClass(),
        {"DisabledShadow", "Layout", "Margin", "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpDuplicateRec::StaticClass(),
                                    {"DisabledShadow", "Insert", "Layout", "Margin", "Picture",
                                     "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(
        TjexnpEdit::StaticClass(),
        {"DisabledShadow", "Layout", "Margin", "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpDataSourceEdit::StaticClass(),
                                    {"AllowAllUp", "DataSource", "DataView", "DisabledShadow", "FormName",
                                     "Layout", "Margin", "ModalAction", "ModalAutoPost", "Picture",
                                     "PictureHighlight", "PopupFormStyle", "SoundDown", "SoundList",
                                     "SoundOver", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpBlobEdit::StaticClass(),
                                    {"AutoEdit", "DisabledShadow", "EditBlobAs", "Layout", "Margin",
                                     "Picture", "PictureHighlight", "PopupFormStyle", "Spacing",
                                     "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpFindReplace::StaticClass(),
                                    {"DisabledShadow", "FindText", "Layout", "Margin", "OptionsFind",
                                     "OptionsReplace", "Picture", "PictureHighlight", "ReplaceText",
                                     "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpDelete::StaticClass(),
                                    {"Confirm", "DisabledShadow", "Layout", "Margin", "Picture",
                                     "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(
        TjexnpCancel::StaticClass(),
        {"DisabledShadow", "Layout", "Margin", "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(
        TjexnpPost::StaticClass(),
        {"DisabledShadow", "Layout", "Margin", "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(
        TjexnpRefresh::StaticClass(),
        {"DisabledShadow", "Layout", "Margin", "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpEmptyTable::StaticClass(),
                                    {"Confirm", "ConfirmMsg", "DisabledShadow", "Layout", "Margin", "Picture",
                                     "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpBookmark::StaticClass(),
                                    {"DisabledShadow", "HintDown", "HintUp", "Layout", "Margin", "Picture",
                                     "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpBookmarkMenu::StaticClass(),
                                    {"BreakAtItem", "DisabledShadow", "LabelByIndexVals", "Layout", "Margin",
                                     "MenuAlign", "MenuStrings", "Picture", "PictureHighlight", "Spacing",
                                     "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpFindKey::StaticClass(),
                                    {"DisabledShadow", "DlgHelpButton", "DlgHelpContext", "Layout", "Margin",
                                     "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpIndexCombo::StaticClass(),
                                    {"AutoLoadItems", "GoToFirst", "TableIndexItems"});
    jexRegisterPropertiesInCategory(TjexnpRange::StaticClass(),
                                    {"DisabledShadow", "DlgHelpButton", "DlgHelpContext", "Layout", "Margin",
                                     "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpRangeEdit::StaticClass(), {"AutoSelect", "GoToFirst", "Separator"});
    jexRegisterPropertiesInCategory(TjexnpFilterActive::StaticClass(),
                                    {"DisabledShadow", "FilterOptions", "GoToFirst", "HintDown", "HintUp",
                                     "Layout", "Margin", "Picture", "PictureHighlight", "Spacing",
                                     "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpFilterExpression::StaticClass(),
                                    {"AllowEdit", "DisabledShadow", "Filter", "FilterOptions", "GoToFirst",
                                     "HintDown", "HintUp", "Layout", "Margin", "Picture", "PictureHighlight",
                                     "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(
        TjexnpSQLStartTrans::StaticClass(),
        {"DisabledShadow", "Layout", "Margin", "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpSQLCommit::StaticClass(),
                                    {"Confirm", "DisabledShadow", "Layout", "Margin", "Picture",
                                     "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpSQLRollback::StaticClass(),
                                    {"Confirm", "DisabledShadow", "Layout", "Margin", "Picture",
                                     "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpQueryParams::StaticClass(),
                                    {"DisabledShadow", "DlgHelpButton", "DlgHelpContext", "Layout", "Margin",
                                     "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(
        TjexnpDBInfo::StaticClass(),
        {"DisabledShadow", "Layout", "Margin", "Picture", "PictureHighlight", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexnpState::StaticClass(), {"DisabledCaption", "Mask", "States"});
    jexRegisterPropertiesInCategory(TjexnpRecordCount::StaticClass(), {"DisabledCaption", "Mask"});
}
