// Jexreg_f: the "Jex Controls" palette page, and the controls' own properties in the library's "Jex"
// category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexctrls.h"
#include "jex/jexlists.h"
#include "jex/jexshape.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_f)

JEX_PACKAGE_REGISTER(jexreg_f) {
    ide::RegisterComponents("Jex Controls",
                            {TjexShapeForm::StaticClass(),       TjexRichEdit::StaticClass(),
                             TjexCheckListBox::StaticClass(),    TjexFontComboBox::StaticClass(),
                             TjexColorComboBox::StaticClass(),   TjexLine::StaticClass(),
                             TjexMDITabs::StaticClass(),         TjexButtonEdit::StaticClass(),
                             TjexCheckBox::StaticClass(),        TjexRadioButton::StaticClass(),
                             TjexPopupSelect::StaticClass(),     TjexBackground::StaticClass(),
                             TjexMDIBackground::StaticClass(),   TjexTiledImage::StaticClass(),
                             TjexMDITiledImage::StaticClass(),   TjexKeyState::StaticClass(),
                             TjexActiveHighlight::StaticClass(), TjexShape::StaticClass(),
                             TjexFrame::StaticClass(),           TjexAutoTabSet::StaticClass(),
                             TjexLRComboBox::StaticClass(),      TjexLRListBox::StaticClass(),
                             TjexROMemo::StaticClass(),          TjexTabListBox::StaticClass(),
                             TjexSyncListBox::StaticClass(),     TjexTransImage::StaticClass(),
                             TjexSpinEdit::StaticClass()});

    // Property editor registrations of this unit come with the value-list editors, the string and colour list
    // editors and the rich text editors.

    // Component editor registrations of this unit come with the line editor and the rich text editors.

    jexRegisterPropertiesInCategory(TjexPopupSelect::StaticClass(),
                                    {"BarBreak", "ItemIndex", "Items", "ItemsPerCol", "PopupOffsetX",
                                     "PopupOffsetY", "PopupYAdjust", "Sorted"});
    jexRegisterPropertiesInCategory(TjexBackground::StaticClass(),
                                    {"ColorFrom", "ColorTo", "DrawDirection", "DrawSteps"});
    jexRegisterPropertiesInCategory(TjexMDIBackground::StaticClass(),
                                    {"ColorFrom", "ColorTo", "DrawDirection", "DrawSteps"});
    jexRegisterPropertiesInCategory(TjexTiledImage::StaticClass(), {"ImageStyle", "Picture"});
    jexRegisterPropertiesInCategory(TjexMDITiledImage::StaticClass(), {"ImageStyle", "Picture"});
    jexRegisterPropertiesInCategory(TjexKeyState::StaticClass(),
                                    {"KeyCapsLock", "KeyInsert", "KeyNumLock", "KeyScrollLock", "KeyStrings",
                                     "ShowINSAsOVR", "ShowKeyStates", "ToggleOnClick"});
    jexRegisterPropertiesInCategory(TjexActiveHighlight::StaticClass(),
                                    {"ColorChange", "HighlightColor", "MoveCursor"});
    jexRegisterPropertiesInCategory(
        TjexLine::StaticClass(),
        {"Arrows", "ArrowSize", "ArrowStyle", "ClipMouse", "Direction", "LineStyle", "LineWidth"});
    jexRegisterPropertiesInCategory(
        TjexShape::StaticClass(), {"AlignVertical", "ColorHighlight", "ColorShadow", "CornerWidth", "Shape"});
    jexRegisterPropertiesInCategory(TjexFrame::StaticClass(),
                                    {"ColorHighlight", "ColorShadow", "CornerWidth"});
    jexRegisterPropertiesInCategory(TjexAutoTabSet::StaticClass(), {"NoteBook"});
    jexRegisterPropertiesInCategory(TjexROMemo::StaticClass(),
                                    {"MaxEditLines", "PrintIndent", "Printing", "PrintLines"});
    jexRegisterPropertiesInCategory(
        TjexCheckListBox::StaticClass(),
        {"CheckedColor", "CheckedColorChange", "CheckedItems", "DisabledItems", "DisabledItemsGrayed",
         "ExpandTabs", "Glyph", "GlyphAlignH", "GlyphAlignV", "GlyphForeColor", "GlyphSpace", "GlyphStyle",
         "Options", "PrintIndent", "Printing", "PrintLines", "ScrollWidth", "SyncControl", "SyncOptions"});
    jexRegisterPropertiesInCategory(TjexTabListBox::StaticClass(),
                                    {"PrintIndent", "Printing", "PrintLines", "ScrollWidth", "SyncControl",
                                     "SyncOptions", "TabPositions"});
    jexRegisterPropertiesInCategory(
        TjexSyncListBox::StaticClass(),
        {"PrintIndent", "Printing", "PrintLines", "ScrollWidth", "SyncControl", "SyncOptions"});
    jexRegisterPropertiesInCategory(TjexTransImage::StaticClass(), {"PicAlign", "PicDrawStyle", "Picture",
                                                                    "Transparent", "TransparentColor"});
    jexRegisterPropertiesInCategory(TjexSpinEdit::StaticClass(),
                                    {"EditorEnabled", "Increment", "MaxValue", "MinValue", "Value"});
    jexRegisterPropertiesInCategory(TjexColorComboBox::StaticClass(), {"Items", "ShowText"});
    jexRegisterPropertiesInCategory(TjexFontComboBox::StaticClass(), {"FontOptions"});
    jexRegisterPropertiesInCategory(TjexButtonEdit::StaticClass(),
                                    {"AutoClick", "AutoSelect", "ButtonDisabled", "ButtonVisible"});
    jexRegisterPropertiesInCategory(TjexRichEdit::StaticClass(),
                                    {"AcceptDroppedFiles", "EditorOptions", "EditorTitle",
                                     "EditorWindowState", "FileName", "FileTemplate", "PopupOptions",
                                     "PrintMargins", "PrintTitle"});
    jexRegisterPropertiesInCategory(TjexCheckBox::StaticClass(), {"AlignHorz", "AlignVert", "WordWrap"});
    jexRegisterPropertiesInCategory(TjexRadioButton::StaticClass(), {"AlignHorz", "AlignVert", "WordWrap"});
    jexRegisterPropertiesInCategory(TjexShapeForm::StaticClass(),
                                    {"DragAnywhere", "DragControl", "Picture", "Tolerance"});
    jexRegisterPropertiesInCategory(TjexMDITabs::StaticClass(), {"Options"});
}
