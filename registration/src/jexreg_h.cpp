// Jexreg_h: the "Jex Multimedia" palette page and the sprite classes, and the multimedia components' own
// properties in the library's "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexdbeffects.h"
#include "jex/jexeffects.h"
#include "jex/jexspr.h"
#include "jex/jexwave.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_h)

JEX_PACKAGE_REGISTER(jexreg_h) {
    ide::RegisterComponents("Jex Multimedia",
                            {TjexEffectsImage::StaticClass(), TjexRichEffectsImage::StaticClass(),
                             TjexDBEffectsImage::StaticClass(), TjexWave::StaticClass(),
                             TjexWaveFile::StaticClass(), TjexWaveRes::StaticClass(),
                             TjexWaveList::StaticClass(), TjexWaveFileList::StaticClass(),
                             TjexWaveResList::StaticClass(), TjexMCIFilePlayer::StaticClass(),
                             TjexMCIStreamPlayer::StaticClass(), TjexSpriteSurface::StaticClass(),
                             TjexSpriteList::StaticClass(), TjexBitmapSpriteFactory::StaticClass()});

    // Property editor registrations and the nine sprite classes of this unit come with the sprite list
    // editor, the point list editor and the rich text editors.

    // Component editor registrations of this unit come with the sprite list editor.

    jexRegisterPropertiesInCategory(TjexWave::StaticClass(), {"PlayOption", "Sound"});
    jexRegisterPropertiesInCategory(TjexWaveFile::StaticClass(), {"FileName", "PlayOption"});
    jexRegisterPropertiesInCategory(TjexWaveRes::StaticClass(),
                                    {"PlayOption", "ResourceDLL", "ResourceName"});
    jexRegisterPropertiesInCategory(TjexWaveList::StaticClass(), {"ItemIndex", "Items", "PlayOption"});
    jexRegisterPropertiesInCategory(TjexWaveFileList::StaticClass(),
                                    {"FileExt", "FilePath", "ItemIndex", "Items", "PlayOption"});
    jexRegisterPropertiesInCategory(TjexWaveResList::StaticClass(),
                                    {"ItemIndex", "Items", "PlayOption", "ResourceDLL"});
    jexRegisterPropertiesInCategory(TjexMCIFilePlayer::StaticClass(),
                                    {"AutoClose", "AutoOpen", "AutoRepeat", "AutoRewind", "DeviceType",
                                     "Display", "FileName", "RaiseExceptions", "Shareable"});
    jexRegisterPropertiesInCategory(TjexMCIStreamPlayer::StaticClass(),
                                    {"AutoClose", "AutoOpen", "AutoRepeat", "AutoRewind", "DeviceType",
                                     "Display", "MCIData", "RaiseExceptions", "Shareable"});
    jexRegisterPropertiesInCategory(TjexEffectsImage::StaticClass(),
                                    {"Effect", "EffectSelection", "EffectSelIndex", "EffectSize",
                                     "EffectSpeed", "Picture", "PictureSize", "ProcessMessages",
                                     "Transparent"});
    jexRegisterPropertiesInCategory(TjexDBEffectsImage::StaticClass(),
                                    {"Effect", "EffectSelection", "EffectSelIndex", "EffectSize",
                                     "EffectSpeed", "PictureSize", "ProcessMessages"});
}
