// Jexreg_b: the "Jex DB Nav" palette page, the navigator panel, toolbar and button editors, and the
// navigator panels, toolbars and buttons' own properties in the library's "Jex" category. Its start makes
// the navigator button classes streamable by name; its stop withdraws them.
#include "dcljexc/jexpbtns.h"
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/compedit.h"
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

    ide::RegisterComponentEditor(TjexNavToolbar::StaticClass(), TjexNavToolbarEditor::StaticClass());
    ide::RegisterComponentEditor(TjexNavPanel::StaticClass(), TjexNavPanelEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpFirst::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpJumpBack::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpPrev::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpNext::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpJumpFwd::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpLast::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpInsert::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpAppend::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpDuplicateRec::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpEdit::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpDataSourceEdit::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpBlobEdit::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpFindReplace::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpDelete::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpCancel::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpPost::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpRefresh::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpEmptyTable::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpBookmark::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpBookmarkMenu::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpFindKey::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpRange::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpFilterActive::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpSQLStartTrans::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpSQLCommit::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpSQLRollback::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpQueryParams::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexnpDBInfo::StaticClass(), TjexnpButtonEditor::StaticClass());

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
