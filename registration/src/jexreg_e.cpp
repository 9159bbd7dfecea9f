// Jexreg_e: the "Jex Containers" palette page, and the split panes, page frames, button bars and panels' own
// properties in the library's "Jex" category. Its start makes the page classes streamable by name; its stop
// withdraws them.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexeffects.h"
#include "jex/jexsplit.h"
#include "vcl/controls.h"

using namespace dcljexc;
using namespace jex;

namespace dcljexc::Jexreg_e {
namespace {
ide::TUnitGuard Guard;
} // namespace

void Start() {
    if (!Guard.Start()) return;
    // ActivateClassGroup(TControl) and RegisterClasses of TjexPage, TjexButtonPage go here once jexc60 has
    // them.
}

void Stop() {
    if (!Guard.Stop()) return;
    // ...and their UnRegisterClasses here.
}
} // namespace dcljexc::Jexreg_e

JEX_PACKAGE_REGISTER(jexreg_e) {
    // Rows of classes jexc60 does not have yet are added when it gets them: TjexFormTabControl,
    // TjexAnimationFrame, TjexFormPanel, TjexButtonBar, TjexButtonList, TjexPictureGroup, TjexEdgePanel,
    // TjexDragPanel, TjexSpeedPanel, TjexHintBar, TjexFormTabbedNoteBook, TjexFormNoteBook, TjexLRNoteBook,
    // TjexLRTabbedNoteBook, TjexPage, TjexButtonPage.

    ide::RegisterComponents("Jex Containers", {TjexMultiSplit::StaticClass(), TjexQuadSplit::StaticClass(),
                                               TjexTriSplit::StaticClass(), TjexBiSplit::StaticClass(),
                                               TjexSplitBar::StaticClass(), TjexSMultiSplit::StaticClass(),
                                               TjexSQuadSplit::StaticClass(), TjexSTriSplit::StaticClass(),
                                               TjexSBiSplit::StaticClass()});
    ide::RegisterNoIcon({TjexSplitPane::StaticClass(), TjexScrollingSplitPane::StaticClass()});

    // Property editor registrations of this unit come with the value-list editors and the page frame editors.

    // Component editor registrations of this unit come with the split pane editor and the page frame editors.

    jexRegisterPropertiesInCategory(TjexSplitBar::StaticClass(),
                                    {"KeyIncrement", "Layout", "Max", "Min", "MoveImmediate", "Percent",
                                     "Pos", "SplitMoveStyle", "Thickness", "WindowA", "WindowB"});
    jexRegisterPropertiesInCategory(TjexBiSplit::StaticClass(),
                                    {"KeyIncrement", "Layout", "MoveImmediate", "SplitBevel", "SplitColor",
                                     "SplitHLock", "SplitHMax", "SplitHMin", "SplitHPercent", "SplitHPos",
                                     "SplitHScaled", "SplitMoveStyle", "SplitVLock", "SplitVMax", "SplitVMin",
                                     "SplitVPercent", "SplitVPos", "SplitVScaled", "Thickness"});
    jexRegisterPropertiesInCategory(TjexTriSplit::StaticClass(),
                                    {"KeyIncrement", "Layout", "MoveImmediate", "SplitBevel", "SplitColor",
                                     "SplitHLock", "SplitHMax", "SplitHMin", "SplitHPercent", "SplitHPos",
                                     "SplitHScaled", "SplitMoveStyle", "SplitVLock", "SplitVMax", "SplitVMin",
                                     "SplitVPercent", "SplitVPos", "SplitVScaled", "Thickness"});
    jexRegisterPropertiesInCategory(TjexQuadSplit::StaticClass(),
                                    {"KeyIncrement", "MoveImmediate", "SplitBevel", "SplitColor",
                                     "SplitHLock", "SplitHMax", "SplitHMin", "SplitHPercent", "SplitHPos",
                                     "SplitHScaled", "SplitMoveStyle", "SplitVLock", "SplitVMax", "SplitVMin",
                                     "SplitVPercent", "SplitVPos", "SplitVScaled", "Thickness"});
    jexRegisterPropertiesInCategory(TjexMultiSplit::StaticClass(),
                                    {"KeyIncrement", "Layout", "MoveImmediate", "SplitBevel", "SplitColor",
                                     "SplitHLock", "SplitHMax", "SplitHMin", "SplitHPercent", "SplitHPos",
                                     "SplitHScaled", "SplitMoveStyle", "SplitVLock", "SplitVMax", "SplitVMin",
                                     "SplitVPercent", "SplitVPos", "SplitVScaled", "Thickness"});
    jexRegisterPropertiesInCategory(
        TjexSBiSplit::StaticClass(),
        {"KeyIncrement", "Layout",      "MoveImmediate", "SplitBevel",    "SplitColor",   "SplitHLock",
         "SplitHMax",    "SplitHMin",   "SplitHPercent", "SplitHPos",     "SplitHScaled", "SplitMoveStyle",
         "SplitVLock",   "SplitVMax",   "SplitVMin",     "SplitVPercent", "SplitVPos",    "SplitVScaled",
         "SyncHScroll",  "SyncVScroll", "Thickness"});
    jexRegisterPropertiesInCategory(
        TjexSTriSplit::StaticClass(),
        {"KeyIncrement", "Layout",      "MoveImmediate", "SplitBevel",    "SplitColor",   "SplitHLock",
         "SplitHMax",    "SplitHMin",   "SplitHPercent", "SplitHPos",     "SplitHScaled", "SplitMoveStyle",
         "SplitVLock",   "SplitVMax",   "SplitVMin",     "SplitVPercent", "SplitVPos",    "SplitVScaled",
         "SyncHScroll",  "SyncVScroll", "Thickness"});
    jexRegisterPropertiesInCategory(TjexSQuadSplit::StaticClass(),
                                    {"KeyIncrement", "MoveImmediate", "SplitBevel",     "SplitColor",
                                     "SplitHLock",   "SplitHMax",     "SplitHMin",      "SplitHPercent",
                                     "SplitHPos",    "SplitHScaled",  "SplitMoveStyle", "SplitVLock",
                                     "SplitVMax",    "SplitVMin",     "SplitVPercent",  "SplitVPos",
                                     "SplitVScaled", "SyncHScroll",   "SyncVScroll",    "Thickness"});
    jexRegisterPropertiesInCategory(
        TjexSMultiSplit::StaticClass(),
        {"KeyIncrement", "Layout",      "MoveImmediate", "SplitBevel",    "SplitColor",   "SplitHLock",
         "SplitHMax",    "SplitHMin",   "SplitHPercent", "SplitHPos",     "SplitHScaled", "SplitMoveStyle",
         "SplitVLock",   "SplitVMax",   "SplitVMin",     "SplitVPercent", "SplitVPos",    "SplitVScaled",
         "SyncHScroll",  "SyncVScroll", "Thickness"});
}
