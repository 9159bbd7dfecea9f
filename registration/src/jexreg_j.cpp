// Jexreg_j: the "Jex Labels" palette page, and the labels' own properties in the library's "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexcommon.h"
#include "jex/jexlabels.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_j)

JEX_PACKAGE_REGISTER(jexreg_j) {
    ide::RegisterComponents("Jex Labels", {TjexRotLabel::StaticClass(), TjexVersionLabel::StaticClass(),
                                           TjexURLLabel::StaticClass(), TjexMailToLabel::StaticClass(),
                                           TjexMultilineLabel::StaticClass(),
                                           TjexCurrencyLabel::StaticClass(), TjexMouseLabel::StaticClass(),
                                           TjexClockLabel::StaticClass(), TjexSuperLabel::StaticClass(),
                                           TjexAutoLabel::StaticClass(), TjexEditLabel::StaticClass()});

    // Property editor registrations of this unit come with the value-list editors.

    // Component editor registrations of this unit come with the value-list editors.

    jexRegisterPropertiesInCategory(TjexRotLabel::StaticClass(),
                                    {"Angle", "BorderStyle", "CaptionStyle", "FocusControl", "RotateCenter"});
    jexRegisterPropertiesInCategory(TjexClockLabel::StaticClass(), {"Format", "Interval"});
    jexRegisterPropertiesInCategory(TjexSuperLabel::StaticClass(),
                                    {"BorderColor", "BorderStyle", "BottomMargin", "LeftMargin",
                                     "RightMargin", "TopMargin", "VerticalAlignment"});
    jexRegisterPropertiesInCategory(TjexAutoLabel::StaticClass(),
                                    {"BorderColor", "BorderStyle", "Layout", "Separator", "TextStyle"});
    jexRegisterPropertiesInCategory(TjexEditLabel::StaticClass(),
                                    {"EditColor", "EditFont", "EditParentColor", "EditParentFont",
                                     "LabelFont", "LabelHeight", "LabelOffsetX", "LabelOffsetY",
                                     "LabelParentFont", "LabelWidth", "Layout"});
    jexRegisterPropertiesInCategory(
        TjexCurrencyLabel::StaticClass(),
        {"CurrFractionFormat", "CurrFractionText", "CurrText", "FirstUpperCase", "HandleException", "Value"});
    jexRegisterPropertiesInCategory(TjexMultilineLabel::StaticClass(), {"Layout", "Lines"});
    jexRegisterPropertiesInCategory(TjexMouseLabel::StaticClass(),
                                    {"Layout", "MouseDownColor", "MouseDownEffects", "MouseOverColor",
                                     "MouseOverEffects", "SoundDown", "SoundList", "SoundOver"});
    jexRegisterPropertiesInCategory(TjexVersionLabel::StaticClass(), {"DoubleSpaced", "VersionInfo"});
    jexRegisterPropertiesInCategory(TjexURLLabel::StaticClass(),
                                    {"Layout", "MouseDownColor", "MouseDownEffects", "MouseOverColor",
                                     "MouseOverEffects", "ShowBrowser", "SoundDown", "SoundList", "SoundOver",
                                     "URL"});
}
