// Jexreg_i: the "Jex Buttons" palette page, and the buttons' own properties in the library's "Jex" category.
#include "dcljexc/jexpbtns.h"
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/compedit.h"
#include "ide/palette.h"
#include "jex/jexbuttons.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_i)

JEX_PACKAGE_REGISTER(jexreg_i) {
    ide::RegisterComponents(
        "Jex Buttons",
        {TjexShapeButton::StaticClass(), TjexPicBtn::StaticClass(), TjexPicSpeedBtn::StaticClass(),
         TjexRepSpeedBtn::StaticClass(), TjexToggleBtn::StaticClass(), TjexMouseRegion::StaticClass(),
         TjexMenuButton::StaticClass(), TjexSizeButton::StaticClass(), TjexWaveBtn::StaticClass(),
         TjexWaveFileBtn::StaticClass(), TjexFormButton::StaticClass(), TjexFormPicBtn::StaticClass(),
         TjexFormPicSpeedBtn::StaticClass(), TjexPushButton::StaticClass(), TjexButton::StaticClass()});

    // Property editor registrations of this unit come with the file-name editors and the value-list editors.

    ide::RegisterComponentEditor(TjexPicSpeedBtn::StaticClass(), TjexnpButtonEditor::StaticClass());
    ide::RegisterComponentEditor(TjexToggleBtn::StaticClass(), TjexnpButtonEditor::StaticClass());

    jexRegisterPropertiesInCategory(TjexPicBtn::StaticClass(),
                                    {"DisabledShadow", "Layout", "Margin", "NumGlyphs", "Picture",
                                     "PictureHighlight", "SoundDown", "SoundList", "SoundOver", "Spacing",
                                     "TextStyle", "TransparentColor"});
    jexRegisterPropertiesInCategory(TjexPicSpeedBtn::StaticClass(),
                                    {"DisabledShadow", "Layout", "Margin", "NumGlyphs", "Picture",
                                     "PictureHighlight", "SoundDown", "SoundList", "SoundOver", "Spacing",
                                     "TextStyle", "TransparentColor"});
    jexRegisterPropertiesInCategory(TjexRepSpeedBtn::StaticClass(),
                                    {"DisabledShadow", "Layout", "Margin", "NumGlyphs", "Picture",
                                     "PictureHighlight", "RepeatEnabled", "RepeatInitialPause", "RepeatPause",
                                     "SoundDown", "SoundList", "SoundOver", "Spacing", "TextStyle",
                                     "TransparentColor"});
    jexRegisterPropertiesInCategory(TjexToggleBtn::StaticClass(),
                                    {"DisabledShadow", "HintDown", "HintUp", "Layout", "Margin", "NumGlyphs",
                                     "Picture", "PictureHighlight", "SoundDown", "SoundList", "SoundOver",
                                     "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexMouseRegion::StaticClass(), {"Outline", "OutlineColor", "SoundDown",
                                                                     "SoundLeave", "SoundList", "SoundOver"});
    jexRegisterPropertiesInCategory(TjexMenuButton::StaticClass(),
                                    {"Flat", "Glyph", "Layout", "Margin", "MenuCaption", "MenuItem",
                                     "NumGlyphs", "Spacing", "Transparent"});
    jexRegisterPropertiesInCategory(TjexSizeButton::StaticClass(), {"MarginH", "MarginV"});
    jexRegisterPropertiesInCategory(TjexWaveBtn::StaticClass(),
                                    {"DisabledShadow", "Layout", "Margin", "NumGlyphs", "Picture",
                                     "PictureHighlight", "PlaySync", "Sound", "SoundDown", "SoundList",
                                     "SoundOver", "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexWaveFileBtn::StaticClass(),
                                    {"DisabledShadow", "FileName", "Layout", "Margin", "NumGlyphs", "Picture",
                                     "PictureHighlight", "PlaySync", "SoundDown", "SoundList", "SoundOver",
                                     "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexFormButton::StaticClass(), {"FormName", "ShowModal"});
    jexRegisterPropertiesInCategory(TjexFormPicBtn::StaticClass(),
                                    {"DisabledShadow", "FormName", "Layout", "Margin", "NumGlyphs", "Picture",
                                     "PictureHighlight", "ShowModal", "SoundDown", "SoundList", "SoundOver",
                                     "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexFormPicSpeedBtn::StaticClass(),
                                    {"DisabledShadow", "FormName", "Layout", "Margin", "NumGlyphs", "Picture",
                                     "PictureHighlight", "ShowModal", "SoundDown", "SoundList", "SoundOver",
                                     "Spacing", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexPushButton::StaticClass(),
                                    {"AlignHorz", "AlignVert", "Checked", "WordWrap"});
    jexRegisterPropertiesInCategory(TjexButton::StaticClass(), {"AlignHorz", "AlignVert", "WordWrap"});
    jexRegisterPropertiesInCategory(TjexShapeButton::StaticClass(),
                                    {"ImageList", "IndexDisabled", "IndexDown", "IndexFlat", "IndexMouseMask",
                                     "IndexUp", "OffsetDownX", "OffsetDownY", "OffsetUpX", "OffsetUpY",
                                     "Scaled", "SoundDown", "SoundList", "SoundOver"});
}
