// Jexreg_h: the "Jex Multimedia" palette page and the sprite classes, and the multimedia components' own
// properties in the library's "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexdbeffects.h"
#include "jex/jexeffects.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_h)

JEX_PACKAGE_REGISTER(jexreg_h) {
    // Rows of classes jexc60 does not have yet are added when it gets them: TjexWave, TjexWaveFile,
    // TjexWaveRes, TjexWaveList, TjexWaveFileList, TjexWaveResList, TjexMCIFilePlayer, TjexMCIStreamPlayer,
    // TjexSpriteSurface, TjexSpriteList, TjexBitmapSpriteFactory.

    ide::RegisterComponents("Jex Multimedia",
                            {TjexEffectsImage::StaticClass(), TjexRichEffectsImage::StaticClass(),
                             TjexDBEffectsImage::StaticClass()});

    // Property editor registrations and the nine sprite classes of this unit come with the sprite list
    // editor, the point list editor and the rich text editors.

    // Component editor registrations of this unit come with the sprite list editor.

    jexRegisterPropertiesInCategory(TjexEffectsImage::StaticClass(),
                                    {"Effect", "EffectSelection", "EffectSelIndex", "EffectSize",
                                     "EffectSpeed", "Picture", "PictureSize", "ProcessMessages",
                                     "Transparent"});
    jexRegisterPropertiesInCategory(TjexDBEffectsImage::StaticClass(),
                                    {"Effect", "EffectSelection", "EffectSelIndex", "EffectSize",
                                     "EffectSpeed", "PictureSize", "ProcessMessages"});
}
